#include "zenu/grid/data/ItemText.h"

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/data/TextBuffer.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/inner/ITextCallback.h"
#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

namespace {

char const * choiceOf(CGCOrdinaryRow const * row, CGCListBoxColumn const * column)
{
    GridItem const * const item = row->ItemOf(column);
    return item ? column->Choice(item->listIndex()) : nullptr;
}

char const * fetchText(ITextCallback * callback, CGCOrdinaryRow * row, CGCColumn * column)
{
    char const * const text = callback ? callback->GetText(row, column) : nullptr;
    return isTextCallback(text) ? nullptr : text; // an answer that asks again is none
}

} // namespace

void KGetText::Visit(CGCColumn * column)
{
    GridItem * item = row->ItemOf(column);
    if (!item) {
        return;
    }
    if (item->isCallback()) {
        char * const copy = duplicateText(fetchText(callback, row, column));
        // The application may have changed the item, or the columns, while it was asked.
        item = row->ItemOf(column);
        if (!item || !item->isCallback()) {
            releaseText(copy);
            text = item ? item->text : nullptr;
            return;
        }
        item->text = copy;
        item->setState(GCIS_CACHEDTEXT, true);
    }
    text = item->text;
}

void KGetText::VisitListBox(CGCListBoxColumn * column)
{
    text = choiceOf(row, column);
}

void KGetTextAndForget::Visit(CGCColumn * column)
{
    if (GridItem const * const item = row->ItemOf(column)) {
        text = item->isCallback() ? fetchText(callback, row, column) : item->text;
    }
}

void KGetTextAndForget::VisitListBox(CGCListBoxColumn * column)
{
    text = choiceOf(row, column);
}

void KGetTextAndForget::VisitCheckBox(CGCCheckBoxColumn * column)
{
    Visit(column);
    GridItem const * const item = row->ItemOf(column);
    hideCheck = item && (item->checkStyle() & GridItem::hideCheck);
}

void KGetTextAndForget::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column)
{
    Visit(column);
    GridItem const * const item = row->ItemOf(column);
    hideCheck = item && (item->checkStyle() & GridItem::hideCheck);
}

void CGetItemText::VisitOrdinary(CGCOrdinaryRow * row)
{
    KGetTextAndForget visitor(row, callback);
    column->Accept(&visitor);
    text = visitor.text;
    hideCheck = visitor.hideCheck;
}

void CGetItemText::VisitSlim(CGCSlimRow * row)
{
    text = wrapper ? wrapper->GetItemText(row, column) : nullptr;
}

void CGetItemText::VisitLonelySlim(CGCLonelySlimRow * row)
{
    text = wrapper ? wrapper->GetItemText(row, column) : nullptr;
}

void CGetItemText::VisitSection(CGCSection * row)
{
    text = row->Text();
}

int CGetItemText::Length() const
{
    return textLength(text);
}

} // namespace zenu
