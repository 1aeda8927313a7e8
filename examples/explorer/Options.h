#pragma once

#include <string>

namespace explorer {

/// What the program was asked to do.
struct Options
{
    std::string directory;   ///< in the bytes of the file system; empty for the home directory
    int rows = -1;           ///< computed rows instead of a directory, -1 for none
    std::string picture;     ///< file for one frame; empty to show the window
    bool expandAll = false;  ///< the whole tree, not the first level alone
    std::string settings;    ///< file for what is kept between runs; empty for the user's own
    bool noSettings = false; ///< nothing is kept
    bool help = false;
    std::string error; ///< why the arguments make no sense, else empty
};

/// The most rows that can be asked for.
constexpr int mostRows = 100'000'000;

/// Reads the arguments of the program, whose name is the first.
Options readOptions(int argc, char const * const * argv);

/// How the program is called.
char const * usage();

} // namespace explorer
