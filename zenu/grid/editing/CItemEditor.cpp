#include "zenu/grid/editing/CItemEditor.h"

#include "zenu/grid/editing/EditSave.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/rows/ColumnSet.h"
#include "zenu/grid/rows/IGCRow.h"

namespace zenu {

namespace {

QPointer<KItemLineEditor> openWidget;

} // namespace

CItemEditorImpl::CItemEditorImpl(KItemLineEditor * lineEditor,
                                 ISlimGridCallbackWrapper * slimWrapper,
                                 ColumnSet const * gridColumns, tag_HCOLUMN * editedColumn,
                                 IGCRow * editedRow)
    : widget(lineEditor)
    , widgetId(lineEditor->Id())
    , wrapper(slimWrapper)
    , columns(gridColumns)
    , column(editedColumn)
    , row(editedRow)
{
    openWidget = lineEditor;
}

// The next edit may have been opened by now.
CItemEditorImpl::~CItemEditorImpl()
{
    if (openWidget == widget) {
        openWidget.clear();
    }
    if (widget) {
        widget->Close();
    }
}

void CItemEditorImpl::Activate()
{
    if (widget) {
        widget->Open();
    }
}

void CItemEditorImpl::SaveValue()
{
    CGCColumn * const found = columns->find(column);
    if (!widget || !found) {
        return;
    }
    CGetTextFromEditor getText(widget);
    found->Accept(&getText);
    CSaveValueToRow save(wrapper, found, getText.text.c_str());
    row->Accept(&save);
}

bool CItemEditorImpl::HasPosted(KEndItemEditEvent const & event) const
{
    return event.EditorId() == widgetId;
}

KItemLineEditor * CItemEditorImpl::OpenWidget()
{
    return openWidget;
}

} // namespace zenu
