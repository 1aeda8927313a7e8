#include "examples/gallery/Page.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/widgets/KPixmapSet.h>

#include <QPainter>
#include <QWidget>

namespace gallery {

namespace {

// [code]
char const * const check[] = {"9 8 2 1",   "  c None",  "# c #00007f", "        #",
                              "       ##", "#     ## ", "##   ##  ",   " ## ##   ",
                              "  ###    ", "   #     ", "         "};

class Images : public QWidget
{
public:
    Images()
        : m_shapes(shapeStrip(32), QSize(32, 32), shapeCount, false)
        , m_check(zenu::retrieveOrCreateXpm("gallery:check", const_cast<char const **>(check)))
    {
    }

private:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        for (int i = 0; i < m_shapes.getImagesCount(); ++i) {
            m_shapes.drawImage(&painter, i, 10 + 45 * i, 10, -1, -1);
            m_shapes.drawImageMonoChrome(&painter, i, 210 + 45 * i, 10, -1, -1);
            m_shapes.drawImage(&painter, i, 10 + 45 * i, 55, 16, 32); // the left half
        }
        painter.fillRect(210, 55, 80, 32, zenu::getDefaultColor());
        painter.fillRect(300, 55, 80, 32, Qt::white);
        painter.drawPixmap(336, 67, m_check);
    }

    zenu::KPixmapSet m_shapes;
    QPixmap m_check;
    // [code]

    QSize sizeHint() const override { return QSize(400, 100); }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

QWidget * makeImages()
{
    return new Images;
}

} // namespace

Page pixmapSetPage()
{
    return {"PixmapSet",
            "Images side by side in one strip, in colour and in black and white.",
            {"KPixmapSet"},
            makeImages};
}

} // namespace gallery
