#include "examples/gallery/Page.h"
#include "examples/gallery/support/Canvas.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/overlay/KDataTip.h>
#include <zenu/widgets/KPixmapSet.h>

#include <QMouseEvent>

namespace gallery {

namespace {

// [code]
class Tipped : public Canvas
{
public:
    Tipped()
        : m_shapes(shapeStrip(14), QSize(14, 14), shapeCount, false)
        , m_tip(&layer())
    {
        m_tip.setImageList(&m_shapes);
        m_tip.setEnsureVisible(true);
        tellOf(QPoint(150, 60));
    }

private:
    void tellOf(QPoint const & mouse)
    {
        m_tip.setPicture(mouse.x() / 40 % shapeCount);
        QString const text = tr("x %1\ny %2").arg(mouse.x()).arg(mouse.y());
        m_tip.setText(text.toLatin1());
        m_tip.moveTo(mouse + QPoint(14, 18));
        m_tip.show();
        layer().update();
    }
    void mouseMoveEvent(QMouseEvent * event) override { tellOf(event->pos()); }

    zenu::KPixmapSet m_shapes;
    zenu::KDataTip m_tip;
};
// [code]

QWidget * makeTipped()
{
    return new Tipped;
}

} // namespace

Page dataTipPage()
{
    return {"DataTip",
            "A note that follows the mouse. Its colours are its own at first.",
            {"KDataTip"},
            makeTipped};
}

} // namespace gallery
