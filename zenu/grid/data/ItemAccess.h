#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

namespace zenu {

struct GC_ITEM;
struct GridItem;

// Fills a record from an item, in the way of the column's kind. State and text colour are filled
// whatever the mask says (an icon has no colour), the image of kinds with text and icon too. Text
// length, alignment, check state and style share one field: the last one that the kind reads wins.
class ZENU_TEST_EXPORT KGetItem : public IGCColumnVisitor
{
public:
    KGetItem(GridItem const * readItem, GC_ITEM * filledRecord)
        : item(readItem)
        , record(filledRecord)
    {
    }
    void VisitIcon(CGCIconColumn * column) override;
    void VisitText(CGCTextColumn * column) override;
    void VisitTextWithIcon(CGCTextWithIconColumn * column) override;
    void VisitCheckBox(CGCCheckBoxColumn * column) override;
    void VisitListBox(CGCListBoxColumn * column) override;
    void VisitComboBox(CGCComboBoxColumn * column) override;
    void VisitOwnerDraw(CGCOwnerDrawColumn * column) override;
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column) override;

    // False when a text was asked for and the buffer is null or the text the callback's.
    bool result = true;

private:
    void readHead();
    void readText();
    void readImages();
    void readCheckStyle();

    GridItem const * item;
    GC_ITEM * record;
};

// Writes what the record's mask names into an item, in the way of the column's kind. An alignment
// out of range ends the work: what was written before it stays, what comes after is left alone.
class ZENU_TEST_EXPORT KSetItem : public IGCColumnVisitor
{
public:
    KSetItem(GridItem * writtenItem, GC_ITEM const * readRecord)
        : item(writtenItem)
        , record(readRecord)
    {
    }
    void VisitIcon(CGCIconColumn * column) override;
    void VisitText(CGCTextColumn * column) override;
    void VisitTextWithIcon(CGCTextWithIconColumn * column) override;
    void VisitCheckBox(CGCCheckBoxColumn * column) override;
    void VisitListBox(CGCListBoxColumn * column) override;
    void VisitComboBox(CGCComboBoxColumn * column) override;
    void VisitOwnerDraw(CGCOwnerDrawColumn * column) override;
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column) override;

    // The cell is to be painted again. State, alignment, colour and check writes say so even when
    // they wrote what was there.
    bool changed = false;
    // False for an alignment out of range and a text that is none of the list's choices.
    bool result = true;

private:
    bool writeHead();
    bool writeText();
    void writeTextColor();
    void replaceText();
    void writeImages();
    void writeCheckStyle();
    void writeListIndex(int index);

    GridItem * item;
    GC_ITEM const * record;
};

// Reads a cell of a row of any class. Slim rows have no items: false. A section's title and colour
// stand for any of its cells and fill the record, and the answer is false all the same.
class ZENU_TEST_EXPORT CGetItemData : public IGCRowVisitor
{
public:
    CGetItemData(GC_ITEM * filledRecord, CGCColumn * askedColumn)
        : record(filledRecord)
        , column(askedColumn)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow *) override {}
    void VisitLonelySlim(CGCLonelySlimRow *) override {}
    void VisitSection(CGCSection * row) override;

    bool result = false;

private:
    GC_ITEM * record;
    CGCColumn * column;
};

// Writes a cell of a row of any class. Slim rows refuse; a section takes title and text colour, and
// answers false all the same.
class ZENU_TEST_EXPORT CSetItemData : public IGCRowVisitor
{
public:
    CSetItemData(GC_ITEM const * readRecord, CGCColumn * askedColumn)
        : record(readRecord)
        , column(askedColumn)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow *) override {}
    void VisitLonelySlim(CGCLonelySlimRow *) override {}
    void VisitSection(CGCSection * row) override;

    bool changed = false;
    bool result = false;
    bool wholeRow = false; // what was written shows across all cells: the title of a section

private:
    GC_ITEM const * record;
    CGCColumn * column;
};

} // namespace zenu
