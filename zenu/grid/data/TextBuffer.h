#pragma once

#include "zenu/grid/GridTypes.h"

#include <cstring>

namespace zenu {

// What the texts that records carry have in common.

// True for GC_TEXTCALLBACK and the value beside it, which means the same in a record: neither is
// an address that may be read.
inline bool isTextCallback(char const * text)
{
    return text == GC_TEXTCALLBACK || text == GC_TEXTCALLBACK - 1;
}

// Copies into a buffer of `size` bytes and fills its rest with zeros; a text of `size` bytes or
// more leaves no terminator. Null stands for an empty text. False, and nothing written, for a null
// buffer; a size of 0 or less writes nothing.
inline bool fillBuffer(char * buffer, int size, char const * text)
{
    if (!buffer) {
        return false;
    }
    if (size > 0) {
        std::strncpy(buffer, text ? text : "", static_cast<std::size_t>(size));
    }
    return true;
}

// Length of a real text; 0 for null and for GC_TEXTCALLBACK.
inline int textLength(char const * text)
{
    return text && !isTextCallback(text) ? static_cast<int>(std::strlen(text)) : 0;
}

// By content where both are real texts, else as pointers.
inline bool areSameTexts(char const * a, char const * b)
{
    bool const bothReal = a && b && !isTextCallback(a) && !isTextCallback(b);
    return bothReal ? std::strcmp(a, b) == 0 : a == b;
}

} // namespace zenu
