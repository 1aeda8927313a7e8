#include "zenu/widgets/KValueButton.h"

#include "zenu/overlay/inner/InnerOutline.h"

#include <QtGui/QPainter>

namespace zenu {

namespace {

constexpr QColor onColor(192, 192, 192);
constexpr QColor outlineColor(126, 126, 126);
constexpr int roomRoundCharacter = 4;

} // namespace

KValueButton::KValueButton(QChar value, QWidget * parent)
    : QAbstractButton(parent)
    , m_value(value)
{
    setCheckable(true);
}

KValueButton::~KValueButton() = default;

QSize KValueButton::sizeHint() const
{
    int const side = fontMetrics().height() + roomRoundCharacter;
    return QSize(side, side);
}

void KValueButton::drawButton(QPainter * painter)
{
    drawButtonLabel(painter);
}

void KValueButton::drawButtonLabel(QPainter * painter)
{
    if (!painter || !painter->isActive())
        return;
    painter->fillRect(rect(), isChecked() ? onColor : QColor(Qt::white));
    drawInnerOutline(painter, rect(), outlineColor);
    if (m_value.isNull())
        return;
    painter->save();
    painter->setPen(Qt::black);
    painter->drawText(rect(), Qt::AlignCenter, QString(m_value));
    painter->restore();
}

void KValueButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawButton(&painter);
}

} // namespace zenu
