#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"

#include <QPointer>

namespace zenu {

class ColumnSet;
class IGCRow;
class ISlimGridCallbackWrapper;
class KEndItemEditEvent;
class KItemLineEditor;

// One edit of one cell. Its end closes the editor's widget.
class CItemEditor
{
public:
    virtual ~CItemEditor() = default;
    // Shows the widget and gives it the keyboard focus; whoever loses it may end this edit.
    virtual void Activate() = 0;
    // Hands the text over to the row; for a slim row that asks the application, which may end
    // everything but this object.
    virtual void SaveValue() = 0;
    // Whether this edit posted the event.
    virtual bool HasPosted(KEndItemEditEvent const & event) const = 0;
};

// The edit by a line editor. One is open in the process at most, in whichever grid.
class ZENU_TEST_EXPORT CItemEditorImpl : public CItemEditor
{
public:
    // Owns the widget. The columns outlive the edit, the row lives as long as it is saved to; the
    // column is looked up then, since it may have gone or become another kind.
    CItemEditorImpl(KItemLineEditor * lineEditor, ISlimGridCallbackWrapper * slimWrapper,
                    ColumnSet const * gridColumns, tag_HCOLUMN * editedColumn, IGCRow * editedRow);
    ~CItemEditorImpl() override;
    CItemEditorImpl(CItemEditorImpl const &) = delete;
    CItemEditorImpl & operator=(CItemEditorImpl const &) = delete;

    void Activate() override;
    void SaveValue() override;
    bool HasPosted(KEndItemEditEvent const & event) const override;

    // The line editor that was opened last, null when it is closed.
    static KItemLineEditor * OpenWidget();

private:
    QPointer<KItemLineEditor> widget; // null when someone else has deleted it
    quint64 widgetId;
    ISlimGridCallbackWrapper * wrapper;
    ColumnSet const * columns;
    tag_HCOLUMN * column;
    IGCRow * row;
};

} // namespace zenu
