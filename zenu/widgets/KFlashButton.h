#pragma once

#include "zenu/ZenuExport.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

namespace zenu {

/// A picture that is a button: its background takes the active colour while the mouse is over it. A
/// press takes that colour away again, which is all that shows it. The size is that of the picture.
/// GUI thread only.
class ZENU_EXPORT KFlashButton : public QWidget
{
    Q_OBJECT

public:
    /// `flags` are window flags. A null `name` leaves the object without a name, a null pixmap
    /// gives a button without extent.
    explicit KFlashButton(QPixmap const & pixmap, QWidget * parent = nullptr,
                          char const * name = nullptr, unsigned int flags = 0);
    ~KFlashButton() override;

    /// The background while the mouse is over the button and no mouse button is down: at first the
    /// palette's highlight colour. Shows at the next repaint.
    void setActiveColor(QColor const & color);
    QColor activeColor();
    /// The background at all other times: at first the palette's base colour. Shows at the next
    /// repaint.
    void setInactiveColor(QColor const & color);
    QColor inactiveColor();

    /// The size of the picture, in logical pixels.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The mouse has come.
    void hilited();
    /// The mouse has gone, or a button of it was released.
    void unhilited();
    /// A mouse button was released inside; comes after unhilited.
    void clicked();

protected:
    void enterEvent(QEnterEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void paintEvent(QPaintEvent * event) override;

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
