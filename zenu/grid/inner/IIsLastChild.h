#pragma once

namespace zenu {

class IGCRow;

class IIsLastChild
{
public:
    virtual ~IIsLastChild() = default;
    // True for the last child of its parent in the visible order.
    virtual bool IsLastChild(IGCRow const * row) const = 0;
};

} // namespace zenu
