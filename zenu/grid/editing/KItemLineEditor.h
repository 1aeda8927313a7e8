#pragma once

#include "zenu/ZenuExport.h"

#include <QEvent>
#include <QLineEdit>

namespace zenu {

// Posted by a line editor to its parent: the edit is over and its text to be saved. It belongs to
// the editor that posted it, which may be gone when the event arrives, and another one open.
class ZENU_TEST_EXPORT KEndItemEditEvent : public QEvent
{
public:
    // Plain events of these types are the applications' own and end whichever edit is open.
    static constexpr Type endAndSave = static_cast<Type>(7113);
    static constexpr Type endAndDiscard = static_cast<Type>(7114);

    explicit KEndItemEditEvent(quint64 id)
        : QEvent(endAndSave)
        , editorId(id)
    {
    }
    quint64 EditorId() const { return editorId; }

private:
    quint64 editorId;
};

// The widget that edits a text in place. It keeps every key to itself. Return, Enter and the loss
// of the focus end the edit: not at once but by a posted event, since the end deletes the widget.
// Its own context menu is no loss of the focus: one wants to paste and go on.
class ZENU_TEST_EXPORT KItemLineEditor : public QLineEdit
{
    Q_OBJECT
public:
    explicit KItemLineEditor(QWidget * parent);
    // Ends the edit when someone else than Close deletes it.
    ~KItemLineEditor() override;

    // Another one for each editor of the process: an address may come back, an id does not.
    quint64 Id() const { return id; }
    // Shows it and takes the focus, which may lead to Close.
    void Open();
    // Deletes it: at once, or, in the middle of an event of its own, when that is done. Posts
    // nothing any more.
    void Close();
    // Closes those that a parent still has.
    static void CloseAllOf(QWidget * parent);

protected:
    bool event(QEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;

private:
    void postEnd();
    bool isOwnPopup(QWidget const * popup) const;

    quint64 const id;
    int busy = 0; // events and calls of Qt that run with this widget in their hands
    bool isClosed = false;
};

} // namespace zenu
