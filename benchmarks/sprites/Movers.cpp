#include "Movers.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>

#include <random>

namespace bench {

namespace {

constexpr int lineHeight = 16;
constexpr size_t manyRectangles = 500; // from which on a clip of all of them is slower
char const line[] = "2026-11-21 08:15:42.125  clock tree  node 4711  setup slack 0.125 ns  hold "
                    "slack 0.250 ns  fan-out 12  load 0.034 pF  buffer moved to row 118, column 9";

// Lets the event loop turn until `paints` has grown.
template <typename Paints>
bool waitForPaint(Paints paints)
{
    int const before = paints();
    for (int turn = 0; turn < 100; ++turn) {
        QCoreApplication::processEvents();
        if (paints() != before)
            return true;
    }
    return false;
}

void showFirst(QWidget & window)
{
    window.resize(hostSize);
    window.show();
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
}

// Adds up in pairs: one rectangle after the other takes the square of their number.
QRegion sumOf(std::vector<QRect> const & rects, size_t first, size_t count)
{
    if (count == 1)
        return rects[first];
    return sumOf(rects, first, count / 2) + sumOf(rects, first + count / 2, count - count / 2);
}

} // namespace

Motion::Motion(int count)
{
    std::mt19937 random(4711);
    auto const below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    for (int i = 0; i < count; ++i) {
        m_places.emplace_back(below(hostSize.width() - spriteSize.width()),
                              below(hostSize.height() - spriteSize.height()));
        m_speeds.emplace_back(below(7) - 3, below(2) == 0 ? 2 : -3);
    }
}

void Motion::step()
{
    QPoint const last(hostSize.width() - spriteSize.width(),
                      hostSize.height() - spriteSize.height());
    for (size_t i = 0; i < m_places.size(); ++i) {
        QPoint & speed = m_speeds[i];
        QPoint const next = m_places[i] + speed;
        if (next.x() < 0 || next.x() > last.x())
            speed.setX(-speed.x());
        if (next.y() < 0 || next.y() > last.y())
            speed.setY(-speed.y());
        m_places[i] += speed;
    }
}

void paintText(QPainter & painter, QRegion const & exposed)
{
    painter.fillRect(exposed.boundingRect(), Qt::white);
    painter.setPen(Qt::black);
    for (int y = 0; y < hostSize.height(); y += lineHeight) {
        if (exposed.intersects(QRect(0, y, hostSize.width(), lineHeight)))
            painter.drawText(4, y + lineHeight - 4, QLatin1String(line));
    }
}

QPixmap spritePixmap(int number)
{
    QPixmap pixmap(spriteSize);
    pixmap.fill(QColor::fromHsv(number * 37 % 360, 200, 220));
    QPainter painter(&pixmap);
    painter.drawRect(4, 4, spriteSize.width() - 9, spriteSize.height() - 9);
    return pixmap;
}

TextHost::TextHost()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TextHost::paintEvent(QPaintEvent * event)
{
    ++paints;
    QPainter painter(this);
    paintText(painter, event->region());
}

ZenuMover::Sprite::Sprite(zenu::KSpriteLayer * layer, int number)
    : KSprite(layer)
    , m_picture(spritePixmap(number))
{
    changeContents(spriteSize);
    setPriority(number);
    show();
}

void ZenuMover::Sprite::drawInBuffer(QPixmap * buffer, QPixmap const *)
{
    QPainter(buffer).drawPixmap(0, 0, m_picture);
}

ZenuMover::ZenuMover(int count)
{
    showFirst(m_host);
    m_host.paints = 0;
    for (int i = 0; i < count; ++i)
        m_sprites.push_back(std::make_unique<Sprite>(&m_layer, i));
}

bool ZenuMover::step(Motion const & motion)
{
    for (size_t i = 0; i < m_sprites.size(); ++i)
        m_sprites[i]->moveTo(motion.places()[i]);
    m_layer.update();
    QCoreApplication::processEvents();
    return true;
}

ChildMover::ChildMover(int count)
{
    for (int i = 0; i < count; ++i) {
        auto * const child = new QLabel(&m_host);
        child->setAttribute(Qt::WA_OpaquePaintEvent);
        child->setPixmap(spritePixmap(i));
        child->resize(spriteSize);
        m_children.push_back(child);
    }
    showFirst(m_host);
}

bool ChildMover::step(Motion const & motion)
{
    for (size_t i = 0; i < m_children.size(); ++i)
        m_children[i]->move(motion.places()[i]);
    return waitForPaint([this] { return paints(); });
}

SceneMover::SceneMover(int count, QGraphicsView::ViewportUpdateMode mode)
{
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    m_scene.setSceneRect(QRect(QPoint(), hostSize));
    for (int i = 0; i < count; ++i)
        m_items.push_back(m_scene.addPixmap(spritePixmap(i)));
    m_view.setFrameShape(QFrame::NoFrame);
    m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view.setCacheMode(QGraphicsView::CacheBackground); // the text is drawn once
    m_view.setViewportUpdateMode(mode);
    m_view.setOptimizationFlags(QGraphicsView::DontSavePainterState |
                                QGraphicsView::DontAdjustForAntialiasing);
    m_view.setScene(&m_scene);
    showFirst(m_view);
}

bool SceneMover::step(Motion const & motion)
{
    for (size_t i = 0; i < m_items.size(); ++i)
        m_items[i]->setPos(motion.places()[i]);
    return waitForPaint([this] { return paints(); });
}

void SceneMover::View::paintEvent(QPaintEvent * event)
{
    ++paints;
    QGraphicsView::paintEvent(event);
}

void SceneMover::View::drawBackground(QPainter * painter, QRectF const & r)
{
    paintText(*painter, r.toAlignedRect());
}

RegionMover::RegionMover(int count)
{
    for (int i = 0; i < count; ++i)
        m_host.pictures.push_back(spritePixmap(i));
    m_host.places.resize(static_cast<size_t>(count));
    showFirst(m_host);
}

bool RegionMover::step(Motion const & motion)
{
    std::vector<QRect> dirty;
    for (size_t i = 0; i < m_host.places.size(); ++i) {
        dirty.emplace_back(m_host.places[i], spriteSize);
        dirty.emplace_back(motion.places()[i], spriteSize);
    }
    m_host.places = motion.places();
    QRegion const region = sumOf(dirty, 0, dirty.size());
    m_host.update(dirty.size() > manyRectangles ? QRegion(region.boundingRect()) : region);
    return waitForPaint([this] { return paints(); });
}

void RegionMover::Host::paintEvent(QPaintEvent * event)
{
    TextHost::paintEvent(event);
    QPainter painter(this);
    for (size_t i = 0; i < places.size(); ++i)
        painter.drawPixmap(places[i], pictures[i]);
}

} // namespace bench
