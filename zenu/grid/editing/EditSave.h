#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <string>

class QLineEdit;

namespace zenu {

class ISlimGridCallbackWrapper;
struct GridItem;

// Reads what was typed, in Latin-1: only that outlives an edit, other characters become '?'.
class ZENU_TEST_EXPORT CGetTextFromEditor : public IGCColumnVisitor
{
public:
    explicit CGetTextFromEditor(QLineEdit const * lineEditor)
        : editor(lineEditor)
    {
    }
    void Visit(CGCColumn * column) override;

    std::string text;

private:
    QLineEdit const * editor;
};

// Stores the text in an item, in the way of the column's kind.
class ZENU_TEST_EXPORT CSaveValueToItem : public IGCColumnVisitor
{
public:
    CSaveValueToItem(GridItem * editedItem, char const * editedText)
        : item(editedItem)
        , text(editedText)
    {
    }
    void Visit(CGCColumn * column) override;

private:
    GridItem * item;
    char const * text;
};

// Stores the text of an edit: in the item of an ordinary row; a slim row's goes to the application.
// Sections have none.
class ZENU_TEST_EXPORT CSaveValueToRow : public IGCRowVisitor
{
public:
    CSaveValueToRow(ISlimGridCallbackWrapper * slimWrapper, CGCColumn * editedColumn,
                    char const * editedText)
        : wrapper(slimWrapper)
        , column(editedColumn)
        , text(editedText)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;

private:
    ISlimGridCallbackWrapper * wrapper;
    CGCColumn * column;
    char const * text;
};

} // namespace zenu
