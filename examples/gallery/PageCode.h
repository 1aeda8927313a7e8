#pragma once

#include <QString>

namespace gallery {

// The text of a source in pages/, as it was built; the last one has a null name.
struct PageSource
{
    char const * name; // without extension
    char const * text;
};
extern PageSource const pageSources[];

// What a source shows: the lines between each two lines `// [code]`, without the indentation that
// they share. Empty for an unknown name, and without such lines.
QString codeOf(QString const & sourceName);

// The same for any text.
QString shownLines(QString const & text);

} // namespace gallery
