#pragma once

#include <zenu/overlay/KSprite.h>

#include <QColor>
#include <QPixmap>
#include <QPointF>

// A plain rectangle, such as the line of a cursor.
class LineSprite : public zenu::KSprite
{
public:
    LineSprite(zenu::KSpriteLayer * layer, QColor const & color)
        : KSprite(layer)
        , m_color(color)
    {
    }

protected:
    void drawInBuffer(QPixmap * buffer, QPixmap const *) override { buffer->fill(m_color); }

private:
    QColor m_color;
};

// A see-through diamond that drifts, and turns back at the edges.
class Marker : public zenu::KSprite
{
public:
    static constexpr int side = 17; // logical pixels

    Marker(zenu::KSpriteLayer * layer, QColor const & color, QPointF place, QPointF speed);

    // One step, inside of an area of this size.
    void drift(QSize const & area);

protected:
    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override;

private:
    QColor m_color;
    QPointF m_place; // of the top left corner
    QPointF m_speed; // logical pixels a step
};
