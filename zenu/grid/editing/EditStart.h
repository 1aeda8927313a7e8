#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/editing/CItemEditor.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <memory>

class QFont;
class QWidget;

namespace zenu {

class CGCColumn;
struct CElementRects;

// Whether the cells of a row may be edited: what the column's GCCF_EDITABLE says, and never in a
// section, which has its title over all of them.
class ZENU_TEST_EXPORT CCanEdit : public IGCRowVisitor
{
public:
    explicit CCanEdit(CGCColumn const * editedColumn)
        : column(editedColumn)
    {
    }
    void Visit(IGCRow * row) override;
    void VisitSection(CGCSection *) override {}

    bool result = false;

private:
    CGCColumn const * column;
};

// Whether there is a line editor for cells of this kind. Cells of a list or combo box may be
// editable and have none.
class ZENU_TEST_EXPORT KHasLineEditor : public IGCColumnVisitor
{
public:
    void VisitText(CGCTextColumn *) override { result = true; }
    void VisitTextWithIcon(CGCTextWithIconColumn *) override { result = true; }

    bool result = false;
};

// Marks the item as being edited, GCIS_MARKED. Only ordinary rows have one.
class ZENU_TEST_EXPORT CStartEditing : public IGCRowVisitor
{
public:
    explicit CStartEditing(CGCColumn const * editedColumn)
        : column(editedColumn)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;

private:
    CGCColumn const * column;
};

// Takes the mark away again.
class ZENU_TEST_EXPORT CFinishEditing : public IGCRowVisitor
{
public:
    explicit CFinishEditing(CGCColumn const * editedColumn)
        : column(editedColumn)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;

private:
    CGCColumn const * column;
};

// What a line editor is made of. All of it is used at once and not kept.
struct LineEditorInputs
{
    QWidget * grid = nullptr;
    QFont const * font = nullptr;
    CElementRects const * rects = nullptr; // in widget coordinates
    char const * text = nullptr;           // Latin-1, may be null
};

// Makes the line editor for a column, not shown yet, with all of its text selected. Leaves null
// for kinds that have none.
class ZENU_TEST_EXPORT CCreateEditor : public IGCColumnVisitor
{
public:
    explicit CCreateEditor(LineEditorInputs const & lineEditorInputs)
        : inputs(lineEditorInputs)
    {
    }
    void VisitText(CGCTextColumn *) override { create(); }
    void VisitTextWithIcon(CGCTextWithIconColumn *) override { create(); }

    KItemLineEditor * widget = nullptr; // a child of the grid

private:
    void create();

    LineEditorInputs const & inputs;
};

// Makes the editor of a cell, and marks an ordinary row's item. Leaves null where the column's kind
// has none, and for sections.
class ZENU_TEST_EXPORT CCreateAndSetupEditor : public IGCRowVisitor
{
public:
    CCreateAndSetupEditor(LineEditorInputs const & lineEditorInputs,
                          ISlimGridCallbackWrapper * slimWrapper, ColumnSet const * gridColumns,
                          CGCColumn * editedColumn)
        : inputs(lineEditorInputs)
        , wrapper(slimWrapper)
        , columns(gridColumns)
        , column(editedColumn)
    {
    }
    void Visit(IGCRow * row) override;
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSection(CGCSection *) override {}

    std::unique_ptr<CItemEditor> editor;

private:
    LineEditorInputs const & inputs;
    ISlimGridCallbackWrapper * wrapper;
    ColumnSet const * columns;
    CGCColumn * column;
};

} // namespace zenu
