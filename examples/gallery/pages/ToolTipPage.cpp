#include "examples/gallery/Page.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/events/KToolTip.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPainter>

namespace gallery {

namespace {

// [code]
// Four fields in one widget, each with a tip of its own.
class Fields : public QWidget
{
public:
    static constexpr int side = 64;

    Fields()
        : m_tip(this)
    {
        connect(&m_tip, &zenu::KToolTip::needToolTipText, this,
                [this](QPoint const & pos, QRect & area, QString & text, bool & cancel) {
                    int const field = pos.x() / side;
                    cancel = field >= shapeCount;
                    area = QRect(field * side, 0, side, height());
                    text = tr("This is shape %1").arg(field + 1);
                });
    }

private:
    zenu::KToolTip m_tip;
    // [code]

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.drawPixmap(0, 0, shapeStrip(side));
    }

    QSize sizeHint() const override { return QSize(shapeCount * side, side + 10); }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

class FieldsPage : public Fields, public PictureScene
{
    void pose() override
    {
        QPoint const place(side + 20, 30);
        QHelpEvent wish(QEvent::ToolTip, place, mapToGlobal(place));
        QCoreApplication::sendEvent(this, &wish);
    }
};

QWidget * makeFields()
{
    return new FieldsPage;
}

} // namespace

Page toolTipPage()
{
    return {"ToolTip", "Tips that depend on the place under the mouse.", {"KToolTip"}, makeFields};
}

} // namespace gallery
