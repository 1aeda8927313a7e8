#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QChar>
#include <QtWidgets/QAbstractButton>

namespace zenu {

/// A tiny toggle button that shows one character: white when off, grey when on, with a grey
/// outline. It looks the same under every palette and style. GUI thread only.
class ZENU_EXPORT KValueButton : public QAbstractButton
{
    Q_OBJECT
public:
    /// A button that is off and shows `value`.
    explicit KValueButton(QChar value, QWidget * parent = nullptr);
    ~KValueButton() override;

    /// A square that is a little higher than a line of text.
    QSize sizeHint() const override;

    /// Draws the button; does nothing for a painter that is null or not active. The first calls
    /// the second.
    virtual void drawButton(QPainter * painter);
    virtual void drawButtonLabel(QPainter * painter);

protected:
    void paintEvent(QPaintEvent * event) override;

private:
    QChar m_value;
};

} // namespace zenu
