#pragma once

#include <algorithm>

namespace zenu {

class IGCRow;

// A walk over rows of the visible order. It belongs to one state of the order: a rebuild deletes
// it. It goes on only from the row that it gave out last.
class CVisibleRowsIterator
{
public:
    virtual ~CVisibleRowsIterator() = default;
    // The row at the cursor, null when there is none.
    virtual IGCRow * First() = 0;
    // The row after `current`, which is the one given out last; null for another row, which ends
    // the walk, and at its end. The two numbers are not read.
    virtual IGCRow * Next(IGCRow * current, int, int) = 0;
    virtual bool Touch(int, int) { return true; }
};

// The walk over either form, which offers GetCount and GetRowAt.
template <typename Form>
class OrderIterator final : public CVisibleRowsIterator
{
public:
    OrderIterator(Form const & walked, int firstIndex, int count)
        : form(walked)
        , cursor(firstIndex)
        , end(firstIndex + std::clamp(count, 0, std::max(0, walked.GetCount() - firstIndex)))
    {
    }

    IGCRow * First() override
    {
        currentRow = isInside() ? form.GetRowAt(cursor) : nullptr;
        return currentRow;
    }

    IGCRow * Next(IGCRow * current, int, int) override
    {
        if (!current || current != currentRow) {
            currentRow = nullptr;
            return nullptr;
        }
        ++cursor;
        currentRow = cursor < end && isInside() ? form.GetRowAt(cursor) : nullptr;
        return currentRow;
    }

private:
    bool isInside() const { return cursor >= 0 && cursor < form.GetCount(); }

    Form const & form;
    int cursor;
    int end; // index past the last row of the walk
    IGCRow * currentRow = nullptr;
};

} // namespace zenu
