#include "examples/explorer/model/FileKinds.h"

#include "examples/explorer/model/DisplayName.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace explorer {

namespace {

using enum Category;

struct Ending
{
    std::string_view ending;
    std::string_view kind;
    Category category;
};

// Sorted by ending.
constexpr Ending endings[] = {
    {"7z", "7z archive", Archive},
    {"a", "Static library", Program},
    {"avi", "Video", Media},
    {"bash", "Shell script", Code},
    {"bmp", "Image", Image},
    {"bz2", "Compressed file", Archive},
    {"c", "C source", Code},
    {"cc", "C++ source", Code},
    {"cfg", "Settings", Text},
    {"cmake", "CMake file", Code},
    {"conf", "Settings", Text},
    {"cpp", "C++ source", Code},
    {"css", "Style sheet", Code},
    {"csv", "Table", Text},
    {"deb", "Package", Archive},
    {"doc", "Text document", Text},
    {"docx", "Text document", Text},
    {"flac", "Sound", Media},
    {"gif", "Image", Image},
    {"go", "Go source", Code},
    {"gz", "Compressed file", Archive},
    {"h", "C header", Code},
    {"hpp", "C++ header", Code},
    {"htm", "Web page", Code},
    {"html", "Web page", Code},
    {"ini", "Settings", Text},
    {"iso", "Disk image", Archive},
    {"jar", "Java archive", Archive},
    {"java", "Java source", Code},
    {"jpeg", "Image", Image},
    {"jpg", "Image", Image},
    {"js", "JavaScript source", Code},
    {"json", "JSON data", Code},
    {"log", "Log", Text},
    {"md", "Markdown text", Text},
    {"mkv", "Video", Media},
    {"mp3", "Sound", Media},
    {"mp4", "Video", Media},
    {"o", "Object file", Program},
    {"odp", "Presentation", Text},
    {"ods", "Spreadsheet", Text},
    {"odt", "Text document", Text},
    {"ogg", "Sound", Media},
    {"pdf", "PDF document", Text},
    {"pl", "Perl script", Code},
    {"png", "Image", Image},
    {"py", "Python script", Code},
    {"rs", "Rust source", Code},
    {"rtf", "Text document", Text},
    {"sh", "Shell script", Code},
    {"so", "Shared library", Program},
    {"sql", "SQL script", Code},
    {"svg", "Drawing", Image},
    {"tar", "Archive", Archive},
    {"tgz", "Compressed archive", Archive},
    {"toml", "Settings", Text},
    {"ts", "TypeScript source", Code},
    {"txt", "Text", Text},
    {"wav", "Sound", Media},
    {"webp", "Image", Image},
    {"xls", "Spreadsheet", Text},
    {"xlsx", "Spreadsheet", Text},
    {"xml", "XML data", Code},
    {"xz", "Compressed file", Archive},
    {"yaml", "YAML data", Code},
    {"yml", "YAML data", Code},
    {"zip", "Zip archive", Archive},
    {"zst", "Compressed file", Archive},
};
static_assert(std::ranges::is_sorted(endings, {}, &Ending::ending));

constexpr std::size_t longestEnding = 8;

char upper(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

char lower(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// What stands behind the last dot; empty without one, and for ".profile" and the like.
std::string_view endingOf(char const * name)
{
    char const * const dot = std::strrchr(name, '.');
    return dot && dot != name ? std::string_view(dot + 1) : std::string_view();
}

Ending const * find(std::string_view ending)
{
    if (ending.empty() || ending.size() > longestEnding) {
        return nullptr;
    }
    std::array<char, longestEnding> buffer;
    std::ranges::transform(ending, buffer.begin(), lower);
    std::string_view const key(buffer.data(), ending.size());
    auto const * const found = std::ranges::lower_bound(endings, key, {}, &Ending::ending);
    return found != std::end(endings) && found->ending == key ? found : nullptr;
}

} // namespace

Category categoryOf(char const * name)
{
    Ending const * const known = find(endingOf(name));
    return known ? known->category : Other;
}

void kindOf(char const * name, std::string & text)
{
    std::string_view const ending = endingOf(name);
    if (Ending const * const known = find(ending)) {
        text = known->kind;
    } else if (ending.empty() || ending.size() > longestEnding) {
        text = "File";
    } else {
        displayName(ending.data(), text);
        std::ranges::transform(text, text.begin(), upper);
        text += " file";
    }
}

} // namespace explorer
