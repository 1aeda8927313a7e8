#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/scroll/IInPlaceEditorNotification.h"

#include <QtWidgets/QComboBox>

namespace zenu {

/// A combo box that is laid over a part of its parent while one of its strings is chosen there, and
/// is hidden the rest of the time.
///
/// Make one and use it again and again; it belongs to its parent. A choice ends an edit, also that
/// of the string that is current already. A press on the combo box itself, and the loss of the
/// focus while the list is closed, cancel it, and nobody hears of that.
///
/// A client may delete the combo box from inside a notification.
class ZENU_EXPORT KInPlaceCombo : public QComboBox
{
    Q_OBJECT
public:
    /// Hidden and without strings. `name` may be null.
    explicit KInPlaceCombo(QWidget * parent = nullptr, char const * name = nullptr);
    ~KInPlaceCombo() override;

    /// Starts an edit at `rect` of the parent: shows the combo box there with string `index`
    /// current (none for an index out of range), gives it the focus and opens the list. Returns
    /// false, and changes nothing, if an edit is in progress; also false if the edit is over
    /// already, by a client whose editor has lost the focus to this one. `notification` is told of
    /// the choice; it stays the caller's and must live until the end. With null nobody is told.
    bool startEditing(IInPlaceEditorNotification * notification, int index, QRect const & rect);

    /// Ends the edit, if there is one, and tells nobody.
    void cancelEditing();

    /// Appends a string in Latin-1; null is empty.
    void insertItem(char const * text);
    using QComboBox::insertItem;

    /// An edit is in progress.
    bool isEditing() const { return m_notification != nullptr; }

    /// Opens the list.
    void showPopup() override;

    /// The widget as a QObject.
    QObject * qObject() { return this; }

protected:
    bool eventFilter(QObject * watched, QEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;

private Q_SLOTS:
    void activatedItem(QString const & text);

private:
    bool listTakes(QKeyEvent const & press);

    IInPlaceEditorNotification * m_notification = nullptr;
    bool m_asksList = false; // whether it wants a key
};

} // namespace zenu
