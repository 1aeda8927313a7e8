#include "Showcase.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int imageSize = 12;

// Three discs side by side.
QPixmap discs()
{
    QPixmap strip(3 * imageSize, imageSize);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor const colors[] = {QColor(200, 60, 50), QColor(60, 150, 70), QColor(60, 90, 190)};
    for (int i = 0; i < 3; ++i) {
        painter.setBrush(colors[i]);
        painter.drawEllipse(i * imageSize + 1, 1, imageSize - 2, imageSize - 2);
    }
    return strip;
}

void moveMouseTo(zenu::KHeader & header, QPoint const & at)
{
    QMouseEvent move(QEvent::MouseMove, at, header.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&header, &move);
}

} // namespace

Showcase::Showcase()
    : m_images(discs(), QSize(imageSize, imageSize), 3, false)
    , m_bitmap(discs())
    , m_layout(new QVBoxLayout(&m_page))
    , m_status(new QLabel(tr("Drag a divider, click a button, double click a divider.")))
{
    setWindowTitle(tr("Headers"));
    auto * const outer = new QVBoxLayout(this);
    outer->addWidget(&m_page);
    addPlain();
    addFlat();
    addButtons();
    addProportional();
    addSticking();
    addHotTracked();
    addImages();
    addLineDrag();
    addVertical();
    m_layout->addStretch();
    outer->addWidget(m_status);
}

HeaderStrip * Showcase::addStrip(QString const & title)
{
    auto * const strip = new HeaderStrip([this](QString const & text) { m_status->setText(text); });
    m_layout->addWidget(new QLabel(title));
    m_layout->addWidget(strip);
    return strip;
}

void Showcase::addPlain()
{
    HeaderStrip * const strip = addStrip(tr("Plain"));
    strip->add("Name", 180);
    strip->add("A title that is cut with dots", 120);
    strip->add("Fixed", 80, zenu::HeaderFormatText | zenu::HeaderFormatFixed);
    strip->header().setJustify(strip->add("Right", 90), zenu::HeaderJustifyRight);
}

void Showcase::addFlat()
{
    HeaderStrip * const strip = addStrip(tr("Flat"));
    strip->header().setFlatView(true);
    strip->header().setButtons(true);
    strip->add("Name", 180);
    strip->add("Size", 90);
    strip->header().setJustify(strip->add("Kind", 120), zenu::HeaderJustifyCenter);
    strip->header().setSortBitmap(1, zenu::HeaderSortSecond);
}

void Showcase::addButtons()
{
    HeaderStrip * const strip = addStrip(tr("Buttons with sort arrows: left, right, centre"));
    strip->header().setButtons(true);
    strip->add("Ascending", 150);
    strip->header().setJustify(strip->add("Descending", 150), zenu::HeaderJustifyRight);
    strip->header().setJustify(strip->add("Centred", 150), zenu::HeaderJustifyCenter);
    strip->add("Owner", 120, zenu::HeaderFormatOwnerDraw);
    strip->header().setSortBitmap(0, zenu::HeaderSortFirst);
    strip->header().setSortBitmap(1, zenu::HeaderSortSecond);
    strip->header().setSortBitmap(2, zenu::HeaderSortFirst);
}

void Showcase::addProportional()
{
    HeaderStrip * const strip = addStrip(tr("Proportional: resize the window"));
    strip->header().setProportional(true);
    strip->add("Fixed", 70, zenu::HeaderFormatText | zenu::HeaderFormatFixed);
    strip->add("Half", 200);
    strip->add("Quarter", 100);
    strip->add("Quarter", 100);
}

void Showcase::addSticking()
{
    HeaderStrip * const strip = addStrip(tr("Last item sticks to the edge"));
    strip->header().setButtons(true);
    strip->add("Name", 180);
    strip->add("Size", 90);
    strip->add("The rest", 100);
    strip->header().setStickLastToEdge(true);
}

void Showcase::addHotTracked()
{
    m_hot = addStrip(tr("Hot tracked: the item under the mouse has the highlight colour"));
    m_hot->header().setHotTrack(true);
    m_hot->header().setButtons(true);
    m_hot->add("Name", 180);
    m_hot->add("Size", 90);
    m_hot->add("Kind", 120);
}

void Showcase::addImages()
{
    HeaderStrip * const strip = addStrip(tr("Images: left, right, centre, and a bitmap"));
    zenu::KHeader & header = strip->header();
    header.setPixmapSet(&m_images);
    strip->add("Left", 130);
    header.setJustify(strip->add("Right", 130), zenu::HeaderJustifyRight);
    header.setJustify(strip->add("Centre", 130), zenu::HeaderJustifyCenter);
    for (int i = 0; i < 3; ++i) {
        header.setImage(i, i);
    }
    int const bitmap = strip->add("Bitmap", 90, zenu::HeaderFormatBitmap);
    header.setPixmap(bitmap, &m_bitmap);
    header.setJustify(bitmap, zenu::HeaderJustifyCenter);
}

void Showcase::addLineDrag()
{
    HeaderStrip * const strip = addStrip(tr("A drag that shows a line and changes nothing"));
    strip->header().setDragWhenResized(false);
    strip->add("Name", 180);
    strip->add("Size", 90);
}

void Showcase::addVertical()
{
    m_layout->addWidget(new QLabel(tr("Vertical: plain, buttons, flat buttons")));
    auto * const row = new QHBoxLayout;
    for (int look = 0; look < 3; ++look) {
        auto * const strip =
            new HeaderStrip([this](QString const & text) { m_status->setText(text); });
        strip->header().setVert(true);
        strip->header().setButtons(look > 0);
        strip->header().setFlatView(look > 1);
        strip->add("First", 24);
        strip->add("Second", 34);
        strip->add("Third", 24);
        row->addWidget(strip);
    }
    m_layout->addLayout(row);
}

void Showcase::pose()
{
    moveMouseTo(m_hot->header(), QPoint(220, 8));
}
