#pragma once

namespace zenu {

class CGCColumn;
class IGCRow;

// Text of an item whose text is GC_TEXTCALLBACK. The pointer is valid until the next call.
class ITextCallback
{
public:
    virtual ~ITextCallback() = default;
    virtual char const * GetText(IGCRow * row, CGCColumn * column) = 0;
};

} // namespace zenu
