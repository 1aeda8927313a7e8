#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/scroll/IInPlaceEditorNotification.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QLineEdit>

namespace zenu {

/// A line edit that is laid over a part of its parent, a label or an item on a canvas, while the
/// text there is edited, and is hidden the rest of the time.
///
/// Make one and use it again and again; it belongs to its parent. Return and the loss of the focus
/// end an edit with its text, except that a popup may take the focus for a while. There is no key
/// that cancels: Escape goes on to the parent, as in any line edit, and a client that wants it
/// calls `cancelEditing`. While an edit lasts the editor grabs the keyboard.
///
/// A client may delete the editor from inside a notification.
class ZENU_EXPORT KInPlaceEditor : public QLineEdit
{
    Q_OBJECT
public:
    /// Hidden, without a frame, in the window colour of the palette. `name` may be null.
    explicit KInPlaceEditor(QWidget * parent = nullptr, char const * name = nullptr);
    ~KInPlaceEditor() override;

    /// Starts an edit of `text` (Latin-1, null is empty) at `rect` of the parent: shows the editor
    /// there with all text selected, and gives it the focus and the keyboard. Returns false, and
    /// changes nothing, if an edit is in progress; also false if the edit is over already, by a
    /// client whose editor has lost the focus to this one. `notification` is told how the edit
    /// goes; it stays the caller's and must live until the end. With null nobody is told.
    bool startEditing(IInPlaceEditorNotification * notification, char const * text,
                      QRect const & rect);

    /// Ends the edit as cancelled and releases the keyboard, also if there is no edit.
    void cancelEditing();

    /// An edit is in progress.
    bool isEditing() const { return m_notification != nullptr; }

    /// Whether the editor grows with its text, as far as the parent reaches. It never shrinks below
    /// the size it has. Off at first.
    void setAutoResizing(bool autoResizing) { m_autoResizing = autoResizing; }
    bool isAutoResizing() const { return m_autoResizing; }

    /// Whether typing replaces the character at the cursor, in all editors of the process. The user
    /// switches it with Insert, whatever modifiers are held. Setting it notifies nobody. Off at
    /// first.
    static void setOverwriteMode(bool overwrite) { s_fOverwrite = overwrite; }
    static bool isOverwriteMode() { return s_fOverwrite; }

    /// The widget as a QObject.
    QObject * qObject() { return this; }

protected:
    /// Inserts `text` at the cursor. In overwrite mode the character at the cursor goes first, one
    /// whatever the length of `text`; selected text is replaced as usual. Keys, pastes and input
    /// methods follow the same rule.
    virtual void insert(QString const & text);

    void keyPressEvent(QKeyEvent * event) override;
    void inputMethodEvent(QInputMethodEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void contextMenuEvent(QContextMenuEvent * event) override;
    void initStyleOption(QStyleOptionFrame * option) const override;

private Q_SLOTS:
    void pressedReturn();
    void changedText(QString const & text);

private:
    // How far the end of an edit has come.
    enum class Ending
    {
        None,
        Hiding,    // the editor is being hidden, which takes the focus from it
        HiddenEdit // an edit that has been hidden together with the one before it ends
    };

    friend class KInPlaceCombo;
    static void moveFocus(QWidget * receiver);

    void endEditing(bool cancelled);
    void report(bool cancelled);
    void hideAfterEdit();
    void makeRoom();
    bool canPasteFrom(QClipboard::Mode mode) const;

    static bool s_fOverwrite;

    IInPlaceEditorNotification * m_notification = nullptr;
    Ending m_ending = Ending::None;
    bool m_autoResizing = false;
    bool m_keyIsDown = false;        // the line edit handles a key press
    bool m_returnPressed = false;    // the key was Return
    bool m_focusLost = false;        // while it was hidden
    bool m_composesOverText = false; // the input method replaces what was selected
};

} // namespace zenu
