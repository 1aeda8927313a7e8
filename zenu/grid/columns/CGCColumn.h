#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"
#include "zenu/grid/inner/SaturatedInt.h"

#include <string>

namespace zenu {

class IGCColumnVisitor;
struct GC_COLUMN;

// A column of a grid: its kind, title and place. It holds no cells: those are in the rows, one item
// a column. Owned by the grid's ColumnSet.
class ZENU_TEST_EXPORT CGCColumn
{
public:
    CGCColumn(int columnId, int columnItemIndex);
    virtual ~CGCColumn();
    CGCColumn & operator=(CGCColumn const &) = delete;

    // Fills format, kind, flags, width and order, and with GCCM_TEXT the text buffer.
    virtual void GetRecord(GC_COLUMN * record) const;
    // Takes the fields that the mask names. Kinds that can't be edited lose GCCF_EDITFLAGS, every
    // time.
    virtual void SetRecord(GC_COLUMN const * record);
    virtual void Accept(IGCColumnVisitor * visitor);
    virtual void Touch(int) {}

    char const * Text() const { return text; }
    // Takes a copy; null is kept.
    void SetText(char const * newText);
    bool HasFlag(GCColumnFlag flag) const { return (flags & flag) != 0; }
    bool IsHidden() const { return HasFlag(GCCF_HIDDEN); }
    // First pixel behind the column.
    int Right() const { return saturatedSum(left, width); }
    tag_HCOLUMN * Handle() const;

    int id;        // value of the handle, never changes
    int itemIndex; // place of this column's item in every row
    int order = 0; // display position among all columns, hidden ones included
    int kind = GCCK_TEXT;
    int left = 0;       // contents coordinates, kept by the grid's layout
    int width = 0;      // pixels
    unsigned flags = 0; // GCCF_
    int format = 0;     // alignment bits

protected:
    // For a change of kind: all fields, the title duplicated.
    CGCColumn(CGCColumn const & other);

private:
    char * text = nullptr; // owned
};

// Handles of columns are their ids.
inline tag_HCOLUMN * columnHandle(int id)
{
    return reinterpret_cast<tag_HCOLUMN *>(static_cast<long>(id));
}
// -1 for a handle that no id can have.
inline int columnId(tag_HCOLUMN * handle)
{
    long const value = reinterpret_cast<long>(handle);
    return value >= 0 && value <= 0x7fffffff ? static_cast<int>(value) : -1;
}

} // namespace zenu
