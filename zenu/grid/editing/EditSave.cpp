#include "zenu/grid/editing/EditSave.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/data/ItemAccess.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSlimRow.h"
#include "zenu/overlay/NarrowText.h"

#include <QLineEdit>

namespace zenu {

void CGetTextFromEditor::Visit(CGCColumn *)
{
    text = qstring2chars(editor->text());
}

void CSaveValueToItem::Visit(CGCColumn * column)
{
    GC_ITEM record;
    record.mask = GCIM_TEXT;
    record.text = const_cast<char *>(text);
    KSetItem setItem(item, &record);
    column->Accept(&setItem);
}

void CSaveValueToRow::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (GridItem * const item = row->ItemOf(column)) {
        CSaveValueToItem save(item, text);
        column->Accept(&save);
    }
}

void CSaveValueToRow::VisitSlim(CGCSlimRow * row)
{
    wrapper->SetItemText(row, column, text);
}

void CSaveValueToRow::VisitLonelySlim(CGCLonelySlimRow * row)
{
    wrapper->SetItemText(row, column, text);
}

} // namespace zenu
