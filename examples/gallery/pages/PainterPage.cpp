#include "examples/gallery/Page.h"

#include <zenu/overlay/KPainter.h>

#include <QRegion>
#include <QWidget>

namespace gallery {

namespace {

// [code]
class Vocabulary : public QWidget
{
    void paintEvent(QPaintEvent *) override
    {
        using zenu::KPainter;
        KPainter painter(this);
        QColor const accent = KPainter::getSysColor(7);
        QColor const text = KPainter::getSysColor(5);
        painter.fastRectangle(10, 10, 90, 40, accent);
        painter.ditherRectangle(110, 10, 90, 40, accent, text);
        KPainter::ditherRectangle(&painter, 210, 10, 90, 40, accent, text);
        painter.ditherFrame2(310, 10, 399, 49, accent, text);
        QRect edge(410, 10, 90, 40);
        painter.drawEdge(&edge, 0, 0);

        int x = 10;
        for (int const state : {0, int(zenu::ItemButtonPressed), int(zenu::ItemButtonHot),
                                int(zenu::ItemButtonFlat)}) {
            QRect face(x, 65, 110, 26);
            painter.drawItemButton(&face, state);
            painter.drawText(face, Qt::AlignCenter, QString::number(state));
            x += 120;
        }
        {
            zenu::KPenSelector const dotted(&painter, accent, 2, Qt::DotLine);
            painter.drawLine(10, 105, 500, 105);
        }
        QRegion const ring = QRegion(10, 115, 90, 40).subtracted(QRegion(25, 125, 60, 20));
        zenu::fillRegion(&painter, ring, accent);
        for (int color = 1; color <= 14; ++color) {
            painter.fastRectangle2(85 + 25 * color, 120, 105 + 25 * color, 150,
                                   KPainter::getSysColor(color));
        }
        painter.drawDragIndicator(490, 160, 0, false);
    }
    // [code]

    QSize sizeHint() const override { return QSize(520, 175); }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

QWidget * makeVocabulary()
{
    return new Vocabulary;
}

} // namespace

Page painterPage()
{
    return {"Painter",
            "Rectangles and half-tones, faces of buttons, system colours 1 to 14, and the mark of "
            "a drop.",
            {"KPainter", "KPenSelector"},
            makeVocabulary};
}

} // namespace gallery
