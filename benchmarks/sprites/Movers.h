#pragma once

#include <zenu/overlay/KSprite.h>
#include <zenu/overlay/KSpriteLayer.h>

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPixmap>
#include <QRegion>
#include <QWidget>

#include <memory>
#include <vector>

namespace bench {

constexpr QSize hostSize(1280, 800);
constexpr QSize spriteSize(32, 32);

// Where the sprites are: each goes its own way at up to 3 pixels a step and turns at the edges.
class Motion
{
public:
    explicit Motion(int count);
    void step();
    std::vector<QPoint> const & places() const { return m_places; }

private:
    std::vector<QPoint> m_places;
    std::vector<QPoint> m_speeds;
};

// A window full of text, which is the picture below. Paints the lines of the exposed part alone.
class TextHost : public QWidget
{
public:
    TextHost();
    int paints = 0;

protected:
    void paintEvent(QPaintEvent * event) override;
};

void paintText(QPainter & painter, QRegion const & exposed);
QPixmap spritePixmap(int number);

// The contestants: each shows `count` sprites over the text and moves all of them at a step, until
// the result is in the window's store.

class ZenuMover
{
public:
    static constexpr char const * name = "zenu";
    explicit ZenuMover(int count);
    bool step(Motion const & motion);
    int paints() const { return m_host.paints; }

private:
    class Sprite : public zenu::KSprite
    {
    public:
        Sprite(zenu::KSpriteLayer * layer, int number);
        void drawInBuffer(QPixmap * buffer, QPixmap const * background) override;

    private:
        QPixmap m_picture;
    };
    TextHost m_host;
    zenu::KSpriteLayer m_layer{&m_host};
    std::vector<std::unique_ptr<Sprite>> m_sprites;
};

class ChildMover
{
public:
    static constexpr char const * name = "child widgets";
    explicit ChildMover(int count);
    bool step(Motion const & motion);
    int paints() const { return m_host.paints; }

private:
    TextHost m_host;
    std::vector<QWidget *> m_children;
};

class SceneMover
{
public:
    static constexpr char const * name = "QGraphicsView";
    explicit SceneMover(int count)
        : SceneMover(count, QGraphicsView::SmartViewportUpdate)
    {
    }
    SceneMover(int count, QGraphicsView::ViewportUpdateMode mode);
    bool step(Motion const & motion);
    int paints() const { return m_view.paints; }

private:
    struct View : QGraphicsView
    {
        int paints = 0;
        void paintEvent(QPaintEvent * event) override;
        void drawBackground(QPainter * painter, QRectF const & r) override;
    };
    QGraphicsScene m_scene;
    View m_view;
    std::vector<QGraphicsPixmapItem *> m_items;
};

// With one update of all of the view at each step, which many items need.
class FullSceneMover : public SceneMover
{
public:
    static constexpr char const * name = "QGraphicsView, full updates";
    explicit FullSceneMover(int count)
        : SceneMover(count, QGraphicsView::FullViewportUpdate)
    {
    }
};

class RegionMover
{
public:
    static constexpr char const * name = "dirty region";
    explicit RegionMover(int count);
    bool step(Motion const & motion);
    int paints() const { return m_host.paints; }

private:
    struct Host : TextHost
    {
        std::vector<QPoint> places;
        std::vector<QPixmap> pictures;
        void paintEvent(QPaintEvent * event) override;
    };
    Host m_host;
};

} // namespace bench
