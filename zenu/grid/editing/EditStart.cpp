#include "zenu/grid/editing/EditStart.h"

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/overlay/NarrowText.h"

#include <QStyle>

namespace zenu {

namespace {

void mark(CGCOrdinaryRow * row, CGCColumn const * column, bool on)
{
    if (GridItem * const item = row->ItemOf(column)) {
        item->setState(GCIS_MARKED, on);
    }
}

// A frame that would cut the text of a low row is left out.
bool hasRoomForFrame(QWidget const & editor)
{
    int const frame = editor.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &editor);
    return editor.height() >= editor.fontMetrics().height() + 2 * frame;
}

} // namespace

void CCanEdit::Visit(IGCRow *)
{
    result = column->HasFlag(GCCF_EDITABLE);
}

void CStartEditing::VisitOrdinary(CGCOrdinaryRow * row)
{
    mark(row, column, true);
}

void CFinishEditing::VisitOrdinary(CGCOrdinaryRow * row)
{
    mark(row, column, false);
}

void CCreateEditor::create()
{
    widget = new KItemLineEditor(inputs.grid);
    widget->setFont(*inputs.font);
    widget->setGeometry(inputs.rects->editorRect);
    widget->setFrame(hasRoomForFrame(*widget));
    widget->setText(chars2qstring(inputs.text));
    widget->selectAll();
}

void CCreateAndSetupEditor::Visit(IGCRow * row)
{
    CCreateEditor create(inputs);
    column->Accept(&create);
    if (create.widget) {
        editor = std::make_unique<CItemEditorImpl>(create.widget, wrapper, columns,
                                                   column->Handle(), row);
    }
}

void CCreateAndSetupEditor::VisitOrdinary(CGCOrdinaryRow * row)
{
    Visit(row);
    if (editor) {
        CStartEditing start(column);
        row->Accept(&start);
    }
}

} // namespace zenu
