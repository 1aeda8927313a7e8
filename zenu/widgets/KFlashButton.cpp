#include "zenu/widgets/KFlashButton.h"

#include "zenu/overlay/KPainter.h"
#include "zenu/widgets/inner/FlashColors.h"

#include <QMouseEvent>
#include <QPointer>

namespace zenu {

namespace {

enum class State
{
    Idle,
    Hilited,
    Pressed
};

} // namespace

struct KFlashButton::PrivateData
{
    QPixmap pixmap;
    QSize size; // of the pixmap, in logical pixels
    State state = State::Idle;
    FlashColors colors = {};
};

KFlashButton::KFlashButton(QPixmap const & pixmap, QWidget * parent, char const * name,
                           unsigned int flags)
    : QWidget(parent, Qt::WindowFlags(static_cast<int>(flags)))
    , m_data(new PrivateData{pixmap, pixmap.deviceIndependentSize().toSize()})
{
    setObjectName(QString::fromLatin1(name));
    setFixedSize(m_data->size);
    setMouseTracking(true);
}

KFlashButton::~KFlashButton() = default;

void KFlashButton::setActiveColor(QColor const & color)
{
    m_data->colors.active = color;
}

QColor KFlashButton::activeColor()
{
    return m_data->colors.active;
}

void KFlashButton::setInactiveColor(QColor const & color)
{
    m_data->colors.inactive = color;
}

QColor KFlashButton::inactiveColor()
{
    return m_data->colors.inactive;
}

QSize KFlashButton::sizeHint() const
{
    return m_data->size;
}

QSize KFlashButton::minimumSizeHint() const
{
    return m_data->size;
}

void KFlashButton::enterEvent(QEnterEvent *)
{
    m_data->state = State::Hilited;
    update();
    Q_EMIT hilited();
}

void KFlashButton::leaveEvent(QEvent *)
{
    m_data->state = State::Idle;
    update();
    Q_EMIT unhilited();
}

// The press ends here: handed on to a popup around the button it would close the popup, and the
// release that makes a click would never come.
void KFlashButton::mousePressEvent(QMouseEvent * event)
{
    m_data->state = State::Pressed;
    update();
    QWidget::mousePressEvent(event);
    event->accept();
}

void KFlashButton::mouseReleaseEvent(QMouseEvent * event)
{
    bool const inside = rect().contains(event->position().toPoint());
    m_data->state = State::Idle;
    update();
    QPointer<KFlashButton> const self(this);
    Q_EMIT unhilited();
    if (inside && self) {
        Q_EMIT clicked();
    }
}

void KFlashButton::paintEvent(QPaintEvent *)
{
    int const x = (rect().right() - m_data->size.width()) / 2;
    int const y = (rect().bottom() - m_data->size.height()) / 2;
    KPainter painter(this);
    bool const active = m_data->state == State::Hilited;
    painter.fastRectangle(x, y, m_data->size.width(), m_data->size.height(),
                          active ? m_data->colors.active : m_data->colors.inactive);
    painter.drawPixmap(x, y, m_data->pixmap);
}

} // namespace zenu
