#pragma once

namespace zenu {

class CGCColumn;
class CGCSlimRow;
class IGCRow;
struct GC_DRAWITEMINFO;
struct GC_DRAWROWINFO;

// The grid's inner face of the application's ISlimGridCallback, in rows and columns instead of
// handles. It asks the grid for the callback at every call; with none set it answers quietly: null
// text, no children, unchanged draw records.
class ISlimGridCallbackWrapper
{
public:
    virtual ~ISlimGridCallbackWrapper() = default;
    virtual void GetRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) = 0;
    virtual void ReleaseRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) = 0;
    virtual void GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow * row, CGCColumn * column,
                                 bool selected, bool focusCell) = 0;
    virtual char const * GetItemText(IGCRow * row, CGCColumn * column) = 0;
    virtual void SetItemText(IGCRow * row, CGCColumn * column, char const * text) = 0;
    virtual void SetItemCheck(IGCRow * row, CGCColumn * column, bool checked) = 0;
    virtual int IsItemChecked(IGCRow * row, CGCColumn * column) = 0;
    virtual bool HasSubRows(IGCRow * row) = 0;
    virtual int GetSubRowCount(IGCRow * row) = 0;
    // Replaces the row's block by one of `count` fresh children and tells the application.
    virtual void LoadSubRows(CGCSlimRow * row, bool expanded, int count) = 0;
    // The height that SetDefaultHeight gave, else the automatic one.
    virtual int GetDefaultRowHeight() = 0;
};

} // namespace zenu
