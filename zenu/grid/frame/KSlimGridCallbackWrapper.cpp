#include "zenu/grid/frame/KSlimGridCallbackWrapper.h"

#include "zenu/grid/data/TextBuffer.h"
#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <algorithm>

namespace zenu {

namespace {

// An application that says that a row has more children than this means something else.
constexpr int largestLevel = 1 << 28;

} // namespace

void KSlimGridCallbackWrapper::GetRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row)
{
    if (ISlimGridCallback * const callback = frame->slimCallback) {
        TreeLock const lock(frame);
        callback->GetRowDrawInfo(info, row->Handle(), static_cast<long>(row->param),
                                 frame->selection.contains(row));
    }
}

void KSlimGridCallbackWrapper::ReleaseRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row)
{
    if (ISlimGridCallback * const callback = frame->slimCallback) {
        TreeLock const lock(frame);
        callback->ReleaseRowDrawInfo(info, row->Handle(), static_cast<long>(row->param));
    }
}

void KSlimGridCallbackWrapper::GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow * row,
                                               CGCColumn * column, bool selected, bool focusCell)
{
    if (ISlimGridCallback * const callback = frame->slimCallback) {
        TreeLock const lock(frame);
        callback->GetItemDrawInfo(info, row->Handle(), static_cast<long>(row->param),
                                  column->Handle(), column->width / 2, selected, focusCell);
    }
}

char const * KSlimGridCallbackWrapper::GetItemText(IGCRow * row, CGCColumn * column)
{
    TreeLock const lock(frame);
    ISlimGridCallback * const callback = frame->slimCallback;
    if (!callback) {
        return nullptr;
    }
    char const * const text =
        callback->GetItemText(row->Handle(), static_cast<long>(row->param), column->Handle());
    return isTextCallback(text) ? nullptr : text; // an answer that asks again is none
}

void KSlimGridCallbackWrapper::SetItemText(IGCRow * row, CGCColumn * column, char const * text)
{
    if (ISlimGridCallback * const callback = frame->slimCallback) {
        RowGuard const guard(frame, nullptr);
        callback->SetItemText(row->Handle(), static_cast<long>(row->param), column->Handle(), text);
    }
}

void KSlimGridCallbackWrapper::SetItemCheck(IGCRow * row, CGCColumn * column, bool checked)
{
    if (ISlimGridCallback * const callback = frame->slimCallback) {
        RowGuard const guard(frame, nullptr);
        callback->SetItemCheck(row->Handle(), static_cast<long>(row->param), column->Handle(),
                               checked);
    }
}

int KSlimGridCallbackWrapper::IsItemChecked(IGCRow * row, CGCColumn * column)
{
    TreeLock const lock(frame);
    ISlimGridCallback * const callback = frame->slimCallback;
    return callback ? callback->IsItemChecked(row->Handle(), static_cast<long>(row->param),
                                              column->Handle())
                    : 0;
}

bool KSlimGridCallbackWrapper::HasSubRows(IGCRow * row)
{
    TreeLock const lock(frame);
    ISlimGridCallback * const callback = frame->slimCallback;
    return callback && callback->HasSubRows(row->Handle(), static_cast<long>(row->param));
}

// A row whose children are being asked for has none yet, should the application ask back.
int KSlimGridCallbackWrapper::GetSubRowCount(IGCRow * row)
{
    TreeLock const lock(frame);
    ISlimGridCallback * const callback = frame->slimCallback;
    if (!callback || std::ranges::find(frame->loading, row) != frame->loading.end()) {
        return 0;
    }
    frame->loading.push_back(row);
    int const count = callback->GetSubRowCount(row->Handle(), static_cast<long>(row->param));
    frame->loading.pop_back();
    return count <= largestLevel ? count : 0;
}

void KSlimGridCallbackWrapper::LoadSubRows(CGCSlimRow * row, bool expanded, int count)
{
    frame->LoadSubRows(row, expanded, count);
}

int KSlimGridCallbackWrapper::GetDefaultRowHeight()
{
    return frame->DefaultHeight();
}

} // namespace zenu
