#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/editing/CheckFlip.h"
#include "zenu/grid/editing/EditStart.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <QCoreApplication>

#include <utility>

namespace zenu {

namespace {

constexpr int editDelay = 500; // milliseconds, the gap between a click and a double click

bool canEdit(IGCRow * row, CGCColumn * column)
{
    KHasLineEditor hasEditor;
    column->Accept(&hasEditor);
    CCanEdit visitor(column);
    row->Accept(&visitor);
    return visitor.result && hasEditor.result;
}

// The rows that were selected, less those that have died. A walk by first and next survives that.
class SelectedRows final : public RowWatch
{
public:
    explicit SelectedRows(KGridCtrl::PrivateData * heldFrame)
        : RowWatch(heldFrame)
    {
        frame->selection.forEach([this](IGCRow * row) { rows.insert(row); });
    }
    RowSet rows;

private:
    void rowDies(IGCRow const * dying) override { rows.erase(dying); }
    void allRowsDie() override { rows.clear(); }
};

} // namespace

bool KGridCtrl::PrivateData::EditCell(IGCRow * row, CGCColumn * column)
{
    CellGuard const cell(this, row, column);
    MoveFocus(IndexOf(row), ShownIndexOf(column));
    if (!cell.hasCell()) {
        return false;
    }
    ClearSelectedRows();
    AddToSelection({&row, 1});
    return StartEdit(row, cell.column());
}

bool KGridCtrl::PrivateData::StartEdit(IGCRow * row, CGCColumn * column)
{
    CellGuard const cell(this, row, column);
    endOpenEdit();
    if (!cell.hasCell() || !canEdit(row, cell.column())) {
        return false;
    }
    revealCell(cell);
    if (editorRects(cell).editorRect.isEmpty()) {
        return false;
    }
    char const * const current = ItemText(row, cell.column());
    std::string const text = current ? current : "";
    if (!cell.hasCell() ||
        (notification && notification->OnItemChanging(row->Handle(), cell.column()->Handle()))) {
        return false;
    }
    return openEditor(cell, text.c_str());
}

// One line editor is open in the process at most: an edit of another grid ends as well.
void KGridCtrl::PrivateData::endOpenEdit()
{
    RowGuard const guard(this, nullptr);
    EndEdit(false);
    KItemLineEditor const * const other = guard.hasGrid() ? CItemEditorImpl::OpenWidget() : nullptr;
    if (other && other->parentWidget()) {
        KEndItemEditEvent event(other->Id());
        QCoreApplication::sendEvent(other->parentWidget(), &event);
    }
}

void KGridCtrl::PrivateData::revealCell(CellGuard const & cell)
{
    UpdateNow();
    if (cell.hasCell()) {
        EnsureRowVisible(cell.row());
    }
    if (cell.hasCell()) {
        EnsureColumnVisible(cell.column());
    }
}

// Empty when the cell is gone or takes no part in the display. A flag alone neither lays a column
// out nor takes it out of the layout.
CElementRects KGridCtrl::PrivateData::editorRects(CellGuard const & cell)
{
    CElementRects rects;
    if (cell.hasGrid()) {
        UpdateNow();
    }
    if (cell.hasCell() && !cell.column()->IsHidden() && ShownIndexOf(cell.column()) != -1) {
        ElementRects(cell.row(), cell.column(), &rects);
    }
    return rects;
}

// The text is that from before the application was asked, the place that from after it: the rows
// may have moved. The application may have started an edit of its own as well.
bool KGridCtrl::PrivateData::openEditor(CellGuard const & cell, char const * text)
{
    CElementRects const rects = editorRects(cell);
    if (!cell.hasCell() || editor || rects.editorRect.isEmpty()) {
        return false;
    }
    CGCColumn * const column = cell.column();
    LineEditorInputs inputs;
    inputs.grid = grid;
    inputs.font = &font;
    inputs.rects = &rects;
    inputs.text = text;
    CCreateAndSetupEditor create(inputs, Wrapper(), &columns, column);
    cell.row()->Accept(&create);
    if (!create.editor) {
        return false;
    }
    editor = std::move(create.editor);
    edited = {cell.row(), column->Handle()};
    editor->Activate(); // whoever loses the focus may end it all
    return cell.hasGrid() && editor;
}

void KGridCtrl::PrivateData::ScheduleEdit(IGCRow * row, CGCColumn * column)
{
    CancelDelayedEdit();
    if (canEdit(row, column)) {
        pendingEdit = {row, column->Handle()};
        editTimer.start(editDelay, Qt::PreciseTimer, grid);
    }
}

void KGridCtrl::PrivateData::CancelDelayedEdit()
{
    editTimer.stop();
    pendingEdit = {};
}

void KGridCtrl::PrivateData::EditTimeOut()
{
    HeldCell const cell = pendingEdit;
    CancelDelayedEdit();
    CGCColumn * const column = columns.find(cell.column);
    if (cell.row && column) {
        StartEdit(cell.row, column);
    }
}

// What the grid holds of the edit is let go before anything is called, since each call may lead
// back here.
bool KGridCtrl::PrivateData::EndEdit(bool discard)
{
    if (!editor) {
        return !discard;
    }
    std::unique_ptr<CItemEditor> closing = std::move(editor);
    CellGuard const cell(this, edited.row, columns.find(edited.column));
    edited = {};
    if (!discard && cell.hasCell()) {
        closing->SaveValue();
        if (cell.hasCell()) {
            InvalidateItem(cell.row(), cell.column());
        }
    }
    if (cell.hasCell()) {
        CFinishEditing finish(cell.column());
        cell.row()->Accept(&finish);
        if (notification) {
            notification->OnItemChanged(cell.row()->Handle(), cell.column()->Handle());
        }
    }
    closing.reset();
    if (cell.hasGrid() && !editor) {
        grid->setFocus();
    }
    return true;
}

// The row under an editor has died on a way that did not stop the edit first. Nobody may be told in
// the middle of that, so the grid takes the focus over later.
void KGridCtrl::PrivateData::dropEditor()
{
    editor.reset();
    edited = {};
    QMetaObject::invokeMethod(
        grid,
        [this] {
            if (!IsEditing()) {
                grid->setFocus();
            }
        },
        Qt::QueuedConnection);
}

bool KGridCtrl::PrivateData::IsEditing() const
{
    return editor != nullptr;
}

void KGridCtrl::PrivateData::StopEditing()
{
    if (IsTreeLocked()) {
        return; // nothing will come or go
    }
    CancelDelayedEdit();
    EndEdit(true);
}

// A plain event acts on whichever edit is open. One that an editor posted came too late when that
// editor is not the open one any more.
void KGridCtrl::PrivateData::EndEditEvent(QEvent * event)
{
    bool const discard = event->type() == KEndItemEditEvent::endAndDiscard;
    if (event->type() != KEndItemEditEvent::endAndSave && !discard) {
        return;
    }
    auto const * const posted = dynamic_cast<KEndItemEditEvent const *>(event);
    if (!posted || (editor && editor->HasPosted(*posted))) {
        EndEdit(discard);
    }
}

// Every row that was selected at the click is asked for, whatever becomes of the selection
// meanwhile.
void KGridCtrl::PrivateData::FlipCheckBoxes(IGCRow * row, CGCColumn * column)
{
    CellGuard const clicked(this, row, column);
    CIsItemChecked isChecked(Wrapper(), column);
    row->Accept(&isChecked);
    if (!clicked.hasCell()) {
        return;
    }
    int const value = isChecked.result == 1 ? 0 : 1;
    tag_HCOLUMN * const handle = column->Handle();
    SelectedRows const selected(this);
    for (IGCRow * each = selected.rows.first(); each; each = selected.rows.next(each)) {
        flipCheckBox(each, handle, value);
        if (!selected.hasGrid()) {
            return;
        }
    }
}

void KGridCtrl::PrivateData::flipCheckBox(IGCRow * row, tag_HCOLUMN * column, int value)
{
    CellGuard const cell(this, row, columns.find(column));
    if (!cell.hasCell() || (notification && notification->OnItemChanging(row->Handle(), column)) ||
        !cell.hasCell()) {
        return;
    }
    CSwitchCheckBoxItem flip(Wrapper(), cell.column(), value);
    row->Accept(&flip);
    if (!cell.hasCell()) {
        return;
    }
    InvalidateRow(row);
    if (notification) {
        notification->OnItemChanged(row->Handle(), column);
    }
}

} // namespace zenu
