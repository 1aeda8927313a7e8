#pragma once

#include "zenu/grid/KGridCtrl.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"

namespace zenu {

// The grid's face of ISlimGridCallback for rows and drawing code: turns rows and columns into
// handles and asks the grid for the callback at every call.
class KSlimGridCallbackWrapper : public ISlimGridCallbackWrapper
{
public:
    explicit KSlimGridCallbackWrapper(KGridCtrl::PrivateData * owner)
        : frame(owner)
    {
    }
    void GetRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) override;
    void ReleaseRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) override;
    void GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow * row, CGCColumn * column, bool selected,
                         bool focusCell) override;
    char const * GetItemText(IGCRow * row, CGCColumn * column) override;
    void SetItemText(IGCRow * row, CGCColumn * column, char const * text) override;
    void SetItemCheck(IGCRow * row, CGCColumn * column, bool checked) override;
    int IsItemChecked(IGCRow * row, CGCColumn * column) override;
    bool HasSubRows(IGCRow * row) override;
    int GetSubRowCount(IGCRow * row) override;
    void LoadSubRows(CGCSlimRow * row, bool expanded, int count) override;
    int GetDefaultRowHeight() override;

private:
    KGridCtrl::PrivateData * frame;
};

} // namespace zenu
