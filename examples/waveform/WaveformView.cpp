#include "WaveformView.h"

#include <zenu/time/TimeValue.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr int frameInterval = 16;  // milliseconds
constexpr int blinkInterval = 530; // milliseconds
constexpr double femtosecondsASample = 1e6;
constexpr QSize caretSize(3, 26);
constexpr QSize pictureSize(14, 14);
constexpr QPoint tipOffset(14, 18); // from the mouse to the tip
constexpr int shortestStretch = 64; // samples

// Two pictures for the tip: the signal is above zero, and below.
QPixmap arrows()
{
    QPixmap strip(2 * pictureSize.width(), pictureSize.height());
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 130, 60));
    painter.drawPolygon(QPolygonF{{7, 2}, {12, 11}, {2, 11}});
    painter.setBrush(QColor(190, 40, 40));
    painter.drawPolygon(QPolygonF{{16, 3}, {26, 3}, {21, 12}});
    return strip;
}

} // namespace

WaveformView::WaveformView(int samples, QWidget * parent)
    : QWidget(parent)
    , m_signal(samples)
    , m_visible{0, m_signal.size()}
    , m_pictures(arrows(), pictureSize, 2, false)
    , m_timeLine(&m_layer, QColor(255, 190, 60))
    , m_valueLine(&m_layer, QColor(255, 190, 60))
    , m_tip(&m_layer)
    , m_caret(nullptr, &m_layer, caretSize, blinkInterval)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 90);
    m_layer.setSelForeground(QColor(20, 24, 32));
    m_layer.setSelBackground(QColor(70, 90, 150));
    m_caret.setColor(QColor(120, 220, 255));
    m_caret.setPriority(3);
    m_timeLine.setPriority(1);
    m_valueLine.setPriority(1);
    m_tip.setPriority(4);
    m_tip.setEnsureVisible(true);
    m_tip.setImageList(&m_pictures);
    connect(&m_timer, &QTimer::timeout, this, &WaveformView::step);
    setDrifting(true);
}

WaveformView::~WaveformView() = default;

void WaveformView::step()
{
    if (m_markers.empty()) {
        addMarkers();
    }
    for (auto const & marker : m_markers) {
        marker->drift(size());
    }
    updateSprites();
}

void WaveformView::setDrifting(bool drifting)
{
    if (drifting) {
        m_timer.start(frameInterval);
    } else {
        m_timer.stop();
    }
}

WaveformView::Stretch WaveformView::selected() const
{
    return m_band.isEmpty() ? Stretch{0, 0}
                            : Stretch{sampleAt(m_band.left()), sampleAt(m_band.right() + 1)};
}

void WaveformView::zoomToSelection()
{
    if (Stretch const stretch = selected(); stretch.last - stretch.first >= shortestStretch) {
        showStretch(stretch);
    }
}

void WaveformView::zoomOut()
{
    showStretch({0, m_signal.size()});
}

int WaveformView::sampleAt(int x) const
{
    double const share = static_cast<double>(x) / std::max(width(), 1);
    return m_visible.first + static_cast<int>(share * (m_visible.last - m_visible.first));
}

// The layer is told what was painted, and puts its sprites back before any of it is seen.
void WaveformView::paintEvent(QPaintEvent * event)
{
    QPainter painter(this);
    for (QRect const & exposed : event->region()) {
        drawPicture(painter, exposed);
        m_layer.clobberRect(exposed);
    }
    painter.end();
    m_layer.update();
    ++m_paints;
    Q_EMIT counted();
}

void WaveformView::resizeEvent(QResizeEvent *)
{
    m_timeLine.changeContents(QSize(1, height()));
    m_valueLine.changeContents(QSize(width(), 1));
    m_band = QRect();
    m_layer.setSelection(m_band);
}

void WaveformView::mouseMoveEvent(QMouseEvent * event)
{
    QPoint const mouse = event->position().toPoint();
    if (m_pressedAt >= 0) {
        auto const [left, right] =
            std::minmax({m_pressedAt, std::clamp(mouse.x(), 0, width() - 1)});
        m_band = QRect(QPoint(left, 0), QPoint(right, height() - 1));
        m_layer.setSelection(m_band);
    }
    follow(mouse);
}

void WaveformView::mousePressEvent(QMouseEvent * event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    QPoint const mouse = event->position().toPoint();
    m_pressedAt = mouse.x();
    m_band = QRect();
    m_layer.setSelection(m_band);
    moveCaret(mouse.x());
    updateSprites();
}

void WaveformView::mouseReleaseEvent(QMouseEvent * event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressedAt = -1;
    }
}

void WaveformView::keyPressEvent(QKeyEvent * event)
{
    int const far = event->modifiers() & Qt::ControlModifier ? 20 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        moveCaret(m_caretX - far);
        break;
    case Qt::Key_Right:
        moveCaret(m_caretX + far);
        break;
    case Qt::Key_Return:
        zoomToSelection();
        break;
    case Qt::Key_Escape:
        zoomOut();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    updateSprites();
}

void WaveformView::leaveEvent(QEvent *)
{
    m_mouse.reset();
    m_timeLine.hide();
    m_valueLine.hide();
    m_tip.hide();
    updateSprites();
}

void WaveformView::focusInEvent(QFocusEvent *)
{
    moveCaret(m_caretX);
    m_caret.showCaret();
    updateSprites();
}

void WaveformView::focusOutEvent(QFocusEvent *)
{
    m_caret.hideCaret();
    updateSprites();
}

void WaveformView::addMarkers()
{
    std::minstd_rand random(3);
    auto const share = [&] { return static_cast<double>(random() % 10'000) / 10'000; };
    for (int i = 0; i < markerCount; ++i) {
        QPointF const place(share() * (width() - Marker::side),
                            share() * (height() - Marker::side));
        QPointF const speed(3 * share() - 1.5, 3 * share() - 1.5);
        QColor const color = QColor::fromHsvF(static_cast<float>(share()), 0.6f, 1.0f);
        m_markers.push_back(std::make_unique<Marker>(&m_layer, color, place, speed));
        m_markers.back()->setPriority(2);
    }
}

// One line a column, from the lowest to the highest of its samples.
void WaveformView::drawPicture(QPainter & painter, QRect const & exposed) const
{
    painter.fillRect(exposed, QColor(20, 24, 32));
    painter.setPen(QColor(60, 68, 84));
    for (int line = 1; line < 8; ++line) {
        painter.drawLine(exposed.left(), height() * line / 8, exposed.right(), height() * line / 8);
    }
    painter.setPen(QColor(90, 210, 130));
    for (int x = exposed.left(); x <= exposed.right(); ++x) {
        int const first = sampleAt(x);
        auto const [low, high] = m_signal.range(first, std::max(sampleAt(x + 1), first + 1));
        painter.drawLine(x, yOf(high), x, yOf(low));
    }
}

int WaveformView::yOf(float value) const
{
    return static_cast<int>(std::lround((1.0 - static_cast<double>(value)) * height() / 2));
}

void WaveformView::showStretch(Stretch const & stretch)
{
    m_visible = stretch;
    m_band = QRect();
    m_layer.setSelection(m_band);
    if (m_mouse) {
        follow(*m_mouse); // another time and value lie below it
    }
    update();
}

void WaveformView::follow(QPoint const & mouse)
{
    m_mouse = mouse;
    m_timeLine.moveTo(QPoint(mouse.x(), 0));
    m_valueLine.moveTo(QPoint(0, yOf(m_signal.at(sampleAt(mouse.x())))));
    m_timeLine.show();
    m_valueLine.show();
    placeTip(mouse);
    updateSprites();
}

void WaveformView::placeTip(QPoint const & mouse)
{
    int const sample = sampleAt(mouse.x());
    float const value = m_signal.at(sample);
    zenu::TimeValue const time(static_cast<long long>(sample), femtosecondsASample);
    std::string const text =
        time.str(3, false) + "\n" + std::to_string(std::lround(value * 1000)) + " mV";
    m_tip.setPicture(value < 0 ? 1 : 0);
    m_tip.setText(text.c_str());
    QPoint place = mouse + tipOffset;
    if (place.x() + m_tip.size().width() > width()) {
        place.setX(mouse.x() - tipOffset.x() - m_tip.size().width());
    }
    if (place.y() + m_tip.size().height() > height()) {
        place.setY(mouse.y() - tipOffset.y() - m_tip.size().height());
    }
    m_tip.moveTo(place);
    m_tip.show();
}

void WaveformView::moveCaret(int x)
{
    m_caretX = std::clamp(x, 0, std::max(width() - caretSize.width(), 0));
    m_caret.moveTo(QPoint(m_caretX, height() - caretSize.height()));
    if (m_caret.isActive()) {
        m_caret.holdCaret();
    }
}

void WaveformView::updateSprites()
{
    m_layer.update();
    ++m_frames;
    Q_EMIT counted();
}
