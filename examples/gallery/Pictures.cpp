#include "examples/gallery/Pictures.h"

#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/PageView.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QSet>

#include <algorithm>

namespace gallery {

namespace {

constexpr int pictureWidth = 640;
constexpr int smallestFile = 0; // the quality that packs a PNG best

// Menus, dialogs and tips that the page has opened, the lowest one first.
QList<QWidget *> openWindows(QWidget const & view)
{
    QList<QWidget *> windows;
    for (QWidget * window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window != &view) {
            windows += window;
        }
    }
    std::sort(windows.begin(), windows.end(),
              [](QWidget * a, QWidget * b) { return a->y() < b->y(); });
    return windows;
}

QPoint placeIn(QWidget const & view, QWidget const & window)
{
    return view.mapFromGlobal(window.mapToGlobal(QPoint()));
}

// A window hangs on the leading edge, which in right-to-left layouts moves when the view grows.
void makeRoom(PageView & view)
{
    constexpr int margin = 12;
    QSize room;
    for (QWidget const * window : openWindows(view)) {
        QPoint const place = placeIn(view, *window);
        int const lead =
            view.isRightToLeft() ? view.width() - place.x() - window->width() : place.x();
        room = room.expandedTo(
            QSize(lead + window->width() + margin, place.y() + window->height() + margin));
    }
    int const before = view.width();
    view.showAll(room);
    for (QWidget * window : openWindows(view)) {
        int const grown = view.isRightToLeft() ? view.width() - before : 0;
        window->move(window->pos() + QPoint(grown, 0));
    }
}

void drawWindows(QPixmap & picture, QWidget const & view)
{
    QPainter painter(&picture);
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    for (QWidget * window : openWindows(view)) {
        QRect const rect(placeIn(view, *window), window->size());
        painter.drawPixmap(rect.topLeft(), window->grab());
        painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    }
}

void hideWindows(QWidget const & view)
{
    for (QWidget * window : openWindows(view)) {
        window->hide();
    }
}

// Applies a function to each pixel of a picture of 32 bits.
template <typename Act>
void forEachPixel(QImage & picture, Act act)
{
    for (int y = 0; y < picture.height(); ++y) {
        auto * const line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        std::for_each(line, line + picture.width(), act);
    }
}

void keepBits(QImage & picture, int bits)
{
    auto const reduce = [bits](int value) {
        int const high = value & (0xff << (8 - bits));
        return high | high >> bits;
    };
    forEachPixel(picture, [&](QRgb & color) {
        color = qRgb(reduce(qRed(color)), reduce(qGreen(color)), reduce(qBlue(color)));
    });
}

QList<QRgb> colorsOf(QImage & picture)
{
    QSet<QRgb> colors;
    QRgb before = 0;
    forEachPixel(picture, [&](QRgb color) {
        if (color != before) { // most have the colour of their neighbour
            colors += color;
            before = color;
        }
    });
    QList<QRgb> sorted = colors.values();
    std::sort(sorted.begin(), sorted.end()); // so that the file is the same each time
    return sorted;
}

// With 256 colours at most, which makes the file a third of its size.
QImage withFewColors(QImage const & picture)
{
    QImage reduced = picture.convertToFormat(QImage::Format_RGB32);
    QList<QRgb> colors = colorsOf(reduced);
    for (int bits = 7; colors.size() > 256 && bits > 2; --bits) {
        keepBits(reduced, bits);
        colors = colorsOf(reduced);
    }
    return reduced.convertToFormat(QImage::Format_Indexed8, colors);
}

} // namespace

QPixmap pictureOf(Page const & page)
{
    PageView view(page);
    view.resize(pictureWidth, 700);
    view.setFocusPolicy(Qt::StrongFocus);
    view.setFocus(); // so that no field shows a cursor
    view.show();
    view.activateWindow();
    QApplication::processEvents();
    for (int pass = 0; pass < 2; ++pass) { // the sizes of texts that wrap follow the width
        view.showAll(QSize());
        QApplication::processEvents();
    }
    view.pose();
    QApplication::processEvents();
    makeRoom(view);
    QApplication::processEvents();
    QPixmap picture = view.grab();
    drawWindows(picture, view);
    hideWindows(view);
    return picture;
}

QPixmap pictureOf(GalleryWindow & window)
{
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    window.view().pose();
    QApplication::processEvents();
    QPixmap picture = window.grab();
    drawWindows(picture, window);
    hideWindows(window);
    return picture;
}

bool savePicture(QPixmap const & picture, QString const & file)
{
    return withFewColors(picture.toImage()).save(file, "PNG", smallestFile);
}

bool savePictures(QString const & folder)
{
    QDir const files(folder);
    bool saved = QDir().mkpath(folder);
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            QString const file = files.filePath(QString::fromLatin1(page.name) + ".png");
            saved = savePicture(pictureOf(page), file) && saved;
        }
    }
    return saved;
}

} // namespace gallery
