#pragma once

#include "zenu/ZenuExport.h"

#include <QFrame>

#include <memory>

class QAction;

namespace zenu {

/// A small popup with a row of large pictures, one for each action, and a line below them with the
/// status tip of the picture under the mouse. A press on the frame or outside closes it; a click on
/// a picture triggers its action and leaves it open. It has no parent: its owner deletes it. GUI
/// thread only.
class ZENU_EXPORT KToolDialog : public QFrame
{
    Q_OBJECT

public:
    /// `margin` is the space around the contents inside of the frame, in pixels.
    explicit KToolDialog(int margin = 5);
    ~KToolDialog() override;

    /// Adds a picture of the action's icon, 32 pixels high and wide at most, in the dialog's
    /// present colours. The status tip is the one that the action has now. A click emits the
    /// action's triggered: a checkable action does not change its state by it, and a disabled one
    /// is triggered as well. The action stays the caller's; once it is deleted its picture does
    /// nothing. Null is ignored.
    void addTool(QAction * action);

    /// What the line says when the mouse is over no picture. Shows from the next time on that the
    /// mouse leaves one.
    void setNoActionText(QString const & text);
    QString noActionText();

    /// The space between the pictures in pixels; 5 at first.
    void setButtonSpacing(int spacing);

    /// The backgrounds of pictures that are added from now on: at first the palette's highlight
    /// colour for the one under the mouse, and its base colour.
    void setActiveColor(QColor const & color);
    QColor activeColor();
    void setInactiveColor(QColor const & color);
    QColor inactiveColor();

    /// The dialog as an object.
    QObject * qObject();

protected:
    void mousePressEvent(QMouseEvent * event) override;

private Q_SLOTS:
    void hilite(QString const & text);
    void unhilite();

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
