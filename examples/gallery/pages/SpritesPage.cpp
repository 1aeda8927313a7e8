#include "examples/gallery/Page.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/overlay/KSprite.h>
#include <zenu/overlay/KSpriteLayer.h>

#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <memory>
#include <vector>

namespace gallery {

namespace {

// [code]
class Shape : public zenu::KSprite
{
public:
    static constexpr int side = 48;

    Shape(zenu::KSpriteLayer * layer, int index)
        : KSprite(layer)
        , m_index(index)
    {
        changeContents(QSize(side, side));
        show();
    }
    void drawInBuffer(QPixmap * buffer, QPixmap const *) override
    {
        QPainter painter(buffer);
        painter.setOpacity(0.7);
        painter.drawPixmap(0, 0, shape(m_index, side));
    }

private:
    int m_index;
};

// Paints itself once. The shapes, and a band at the top, move over it without a paint event.
class Stage : public QWidget
{
public:
    Stage()
        : m_layer(this)
    {
        setMouseTracking(true);
        for (int i = 0; i < shapeCount; ++i) {
            m_shapes.push_back(std::make_unique<Shape>(&m_layer, i));
        }
        m_layer.setSelForeground(palette().color(QPalette::Base));
        m_layer.setSelBackground(palette().color(QPalette::Highlight));
        gather(QPoint(260, 90));
    }

private:
    void gather(QPoint const & mouse)
    {
        for (int i = 0; i < shapeCount; ++i) {
            m_shapes[std::size_t(i)]->moveTo(mouse + QPoint(36 * i - 72, 20 * (i % 2) - 34));
        }
        m_layer.setSelection(QRect(0, 0, mouse.x(), 40));
        m_layer.update();
    }
    void mouseMoveEvent(QMouseEvent * event) override { gather(event->position().toPoint()); }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().base());
        painter.drawText(rect(), Qt::AlignCenter, tr("Painted %1 times").arg(++m_paints));
        painter.end();
        m_layer.clobberRect(rect());
        m_layer.update();
    }
    // [code]

    QSize sizeHint() const override { return QSize(400, 160); }
    QSize minimumSizeHint() const override { return sizeHint(); }

    zenu::KSpriteLayer m_layer;
    std::vector<std::unique_ptr<Shape>> m_shapes;
    int m_paints = 0;
};

QWidget * makeStage()
{
    return new Stage;
}

} // namespace

Page spritesPage()
{
    return {"Sprites",
            "Images that follow the mouse over a widget that is painted once.",
            {"KSprite", "KSpriteLayer"},
            makeStage};
}

} // namespace gallery
