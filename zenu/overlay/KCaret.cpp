#include "zenu/overlay/KCaret.h"

#include "zenu/overlay/KPainter.h"
#include "zenu/overlay/KSpriteLayer.h"

#include <QPixmap>
#include <QTimer>

namespace zenu {

namespace {

enum class State
{
    Off,
    On,
    Blanked, // active, in the dark half of a blink
    Held     // visible until the next tick and through it
};

} // namespace

struct KCaret::PrivateData
{
    QTimer * timer; // a child of the caret
    QColor color = Qt::black;
    QSize size;
    State state = State::Off;
};

KCaret::KCaret(QObject * parent, KSpriteLayer * layer, QSize size, int blinkInterval)
    : QObject(parent)
    , KSprite(layer)
    , m_data(new PrivateData{new QTimer(this), Qt::black, size, State::Off})
{
    connect(m_data->timer, &QTimer::timeout, this, &KCaret::blink);
    if (blinkInterval >= 0) {
        m_data->timer->start(blinkInterval);
    }
}

KCaret::~KCaret()
{
    delete m_data->timer;
}

void KCaret::setColor(QColor const & color)
{
    m_data->color = color;
}

QColor const & KCaret::getColor() const
{
    return m_data->color;
}

void KCaret::showCaret()
{
    if (m_data->state != State::Off) {
        return;
    }
    changeContents(m_data->size);
    show();
    m_data->state = State::On;
}

void KCaret::hideCaret()
{
    if (m_data->state == State::On || m_data->state == State::Held) {
        hide();
    }
    m_data->state = State::Off;
}

// From Off the sprite stays hidden: the tick shows it, and a caret that was never shown needs an
// extent for that.
void KCaret::holdCaret()
{
    if (m_data->state == State::Off && KSprite::size().isEmpty()) {
        changeContents(m_data->size);
    }
    if (m_data->state == State::Blanked) {
        show();
    }
    m_data->state = State::Held;
}

bool KCaret::isActive() const
{
    return m_data->state != State::Off;
}

QObject * KCaret::qObject()
{
    return this;
}

void KCaret::drawInBuffer(QPixmap * buffer, QPixmap const *)
{
    fastFill(buffer, QRect(QPoint(0, 0), m_data->size), m_data->color);
}

void KCaret::blink()
{
    switch (m_data->state) {
    case State::Off:
        break;
    case State::On:
        hide();
        m_data->state = State::Blanked;
        break;
    case State::Blanked:
    case State::Held:
        show();
        m_data->state = State::On;
        break;
    }
    if (KSpriteLayer * const layer = getLayer()) {
        layer->update();
    }
}

} // namespace zenu
