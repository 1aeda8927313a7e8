#pragma once

#include <string>

namespace explorer {

/// What a file is for, as far as its name tells.
enum class Category
{
    Other,
    Code,
    Text,
    Image,
    Media,
    Archive,
    Program
};

/// By the ending of the name.
Category categoryOf(char const * name);

/// The kind of a file by the ending of its name, in words: "C++ source", "XYZ file", "File".
void kindOf(char const * name, std::string & text);

} // namespace explorer
