#include "examples/explorer/Options.h"

#include <charconv>
#include <cstring>
#include <string_view>

namespace explorer {

namespace {

// The arguments one by one; an option takes its value from behind "=" or from the next argument.
class Arguments
{
public:
    Arguments(int argc, char const * const * argv)
        : at(argv)
        , end(argv + argc)
    {
        next();
    }

    bool isAtEnd() const { return at >= end; }
    char const * current() const { return *at; }
    void next() { at += isAtEnd() ? 0 : 1; }

    // Whether this is the option. Its value is null when there is none.
    bool isOption(std::string_view name, char const ** value)
    {
        std::string_view const argument = *at;
        if (!argument.starts_with(name)) {
            return false;
        }
        if (argument.size() > name.size()) {
            *value = *at + name.size() + 1;
            return argument[name.size()] == '=';
        }
        *value = at + 1 < end ? at[1] : nullptr;
        next();
        return true;
    }

private:
    char const * const * at;
    char const * const * end;
};

void readRows(char const * value, Options & options)
{
    char const * const end = value ? value + std::strlen(value) : nullptr;
    int rows = -1;
    auto const result = std::from_chars(value, end, rows);
    if (!value || result.ec != std::errc() || result.ptr != end || rows < 0 || rows > mostRows) {
        options.error = "--rows takes a number up to " + std::to_string(mostRows);
    } else {
        options.rows = rows;
    }
}

void readFile(char const * option, char const * value, std::string & file, Options & options)
{
    if (value && *value) {
        file = value;
    } else {
        options.error = std::string(option) + " takes the name of a file";
    }
}

} // namespace

Options readOptions(int argc, char const * const * argv)
{
    Options options;
    bool onlyNames = false; // behind "--"
    for (Arguments arguments(argc, argv); !arguments.isAtEnd(); arguments.next()) {
        char const * value = nullptr;
        std::string_view const argument = arguments.current();
        if (!onlyNames && argument == "--") {
            onlyNames = true;
        } else if (!onlyNames && (argument == "--help" || argument == "-h")) {
            options.help = true;
        } else if (!onlyNames && argument == "--expand-all") {
            options.expandAll = true;
        } else if (!onlyNames && argument == "--no-settings") {
            options.noSettings = true;
        } else if (!onlyNames && arguments.isOption("--rows", &value)) {
            readRows(value, options);
        } else if (!onlyNames && arguments.isOption("--picture", &value)) {
            readFile("--picture", value, options.picture, options);
        } else if (!onlyNames && arguments.isOption("--settings", &value)) {
            readFile("--settings", value, options.settings, options);
        } else if (!onlyNames && argument.size() > 1 && argument.front() == '-') {
            options.error = "unknown option " + std::string(argument);
        } else if (!options.directory.empty() || argument.empty()) {
            options.error = "one directory, please";
        } else {
            options.directory = argument;
        }
    }
    return options;
}

char const * usage()
{
    return "Usage: zenu_explorer [DIRECTORY] [--rows N] [--expand-all] [--picture FILE]\n"
           "                     [--settings FILE | --no-settings]\n"
           "\n"
           "Shows the tree of DIRECTORY, by default your home directory.\n"
           "\n"
           "  --rows N        shows N computed rows instead, try 10000000\n"
           "  --expand-all    opens the whole tree\n"
           "  --picture FILE  draws one frame into FILE and leaves; needs no display with\n"
           "                  QT_QPA_PLATFORM=offscreen\n"
           "  --settings FILE keeps the columns' widths and the order in FILE\n"
           "  --no-settings   keeps and remembers nothing; pictures do neither\n";
}

} // namespace explorer
