#pragma once

#include <string>

namespace explorer {

/// The text that a grid shows for a file name, in Latin-1. Letters of other scripts are replaced by
/// Latin ones where there is a usual way; what remains, control characters and bytes that are no
/// UTF-8 appear as %XX, one for each byte of the name.
std::string displayName(char const * name);

/// The same into `text`, which keeps its memory: for names that are shown over and over.
void displayName(char const * name, std::string & text);

/// The name in UTF-8 of a text in Latin-1.
std::string nameFromText(char const * text);

/// Whether displayName shows the name letter for letter, so that nameFromText gives it back.
bool isShownExactly(char const * name);

} // namespace explorer
