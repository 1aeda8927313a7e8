#pragma once

#include <zenu/overlay/KSpriteLayer.h>

#include <QWidget>

namespace gallery {

// A widget with a picture that is slow to paint, for what is worth painting once, and a layer over
// it.
class Canvas : public QWidget
{
public:
    explicit Canvas(QWidget * parent = nullptr);

    QSize sizeHint() const override { return QSize(400, 160); }
    QSize minimumSizeHint() const override { return sizeHint(); }

    zenu::KSpriteLayer & layer() { return m_layer; }

protected:
    void paintEvent(QPaintEvent * event) override;

private:
    zenu::KSpriteLayer m_layer;
};

} // namespace gallery
