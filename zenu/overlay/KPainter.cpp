#include "zenu/overlay/KPainter.h"

#include "zenu/overlay/inner/InnerOutline.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPaintEngine>
#include <QPalette>
#include <QRegion>
#include <QWidget>
#include <qdrawutil.h>

#include <iterator>

namespace zenu {

namespace {

constexpr int dragBarHeight = 5;
constexpr int dragBarLeft = 6;

bool isPaintable(QPainter const * painter)
{
    return painter != nullptr && painter->isActive();
}

// Makes a painter speak in the coordinates of its device, without clip and opacity, until it ends.
class DeviceCoordinates
{
public:
    explicit DeviceCoordinates(QPainter * painter)
        : m_painter(painter)
    {
        m_painter->save();
        m_painter->resetTransform();
        m_painter->setClipping(false);
        m_painter->setOpacity(1);
    }
    ~DeviceCoordinates() { m_painter->restore(); }
    DeviceCoordinates(DeviceCoordinates const &) = delete;
    DeviceCoordinates & operator=(DeviceCoordinates const &) = delete;

private:
    QPainter * m_painter;
};

// A size below 1 is nothing here; QPainter::fillRect would paint on the other side of the position.
void fillLine(KPainter * painter, int x, int y, int w, int h, QColor const & color)
{
    if (w > 0 && h > 0) {
        painter->fastRectangle(x, y, w, h, color);
    }
}

QColor itemButtonFill(int state)
{
    if ((state & ItemButtonHot) == 0) {
        return KPainter::getSysColor(1);
    }
    // A hot item that is pressed has no colour of its own: it is black, as it always was.
    return (state & ItemButtonPressed) != 0 ? QColor(Qt::black) : KPainter::getSysColor_Light(true);
}

void drawFlatButtonLines(KPainter * painter, QRect const & rect, int state)
{
    int const w = rect.right() - rect.left();
    int const h = rect.bottom() - rect.top();
    QColor const light = KPainter::getSysColor(13);
    QColor const dark = KPainter::getSysColor(11);
    if ((state & ItemButtonVertical) != 0) {
        fillLine(painter, rect.left() + 1, rect.top(), w - 2, 1, light);
        fillLine(painter, rect.left() + 1, rect.bottom() - 1, w - 2, 1, dark);
    } else {
        fillLine(painter, rect.left(), rect.top() + 1, 1, h - 2, light);
        fillLine(painter, rect.right() - 1, rect.top() + 1, 1, h - 2, dark);
    }
}

// The raised button is one pixel higher than the sunken one, so that a pressed item shows a seam
// below.
void drawRaisedButton(QPainter * painter, QRect const & rect, bool pressed)
{
    QPalette palette = QApplication::palette();
    palette.setCurrentColorGroup(QPalette::Active);
    int const h = rect.bottom() - rect.top();
    qDrawWinButton(painter, rect.left(), rect.top(), rect.right() - rect.left(),
                   pressed ? h : h + 1, palette, pressed);
}

} // namespace

KPainter::KPainter(QPaintDevice const * device)
{
    if (device != nullptr) {
        begin(const_cast<QPaintDevice *>(device));
    }
}

QColor KPainter::getSysColor(int index)
{
    static constexpr QPalette::ColorRole roles[] = {
        QPalette::Window,          QPalette::Button, QPalette::Button,    QPalette::Button,
        QPalette::ButtonText,      QPalette::Text,   QPalette::Highlight, QPalette::Highlight,
        QPalette::HighlightedText, QPalette::Text,   QPalette::Base,      QPalette::Dark,
        QPalette::Light,           QPalette::Light,  QPalette::Light,
    };
    bool const known = index >= 0 && index < static_cast<int>(std::size(roles));
    return QApplication::palette().color(QPalette::Active, known ? roles[index] : QPalette::Window);
}

QColor KPainter::getSysColor_HotTrack()
{
    return getSysColor(6);
}

QColor KPainter::getSysColor_Light(bool avoidButton)
{
    QColor color = getSysColor(7);
    if (avoidButton && color == getSysColor(2)) {
        color = getSysColor(14);
    }
    // The last resort, system colour 3, is the colour that was to be avoided: nothing is left to
    // try.
    return color;
}

void KPainter::fastRectangle(int x, int y, int w, int h, QColor const & color)
{
    fillRect(x, y, w, h, QBrush(color, Qt::SolidPattern));
}

void KPainter::fastRectangle2(int left, int top, int right, int bottom, QColor const & color)
{
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    fillRect(rect, QBrush(color, Qt::SolidPattern));
}

void KPainter::ditherRectangle(int x, int y, int w, int h, QColor const & color, QColor const &)
{
    fillRect(x, y, w, h, QBrush(Qt::white, Qt::SolidPattern));
    fillRect(x, y, w, h, QBrush(color, Qt::Dense4Pattern));
}

void KPainter::ditherRectangle(QPainter * painter, int x, int y, int w, int h, QColor const & color,
                               QColor const &)
{
    if (isPaintable(painter)) {
        painter->fillRect(x, y, w, h, QBrush(color, Qt::Dense4Pattern));
    }
}

void KPainter::ditherLine(int x1, int y1, int x2, int y2, QColor const & color, QColor const &)
{
    if (!isActive()) {
        return;
    }
    // As thin as the dotted pen at every device pixel ratio, so that it lies under the dots alone.
    setPen(QPen(Qt::white, 0));
    drawLine(x1, y1, x2, y2);
    setPen(QPen(color, 0, Qt::DotLine));
    drawLine(x1, y1, x2, y2);
}

void KPainter::ditherFrame2(int left, int top, int right, int bottom, QColor const & color,
                            QColor const & unused)
{
    ditherRectangle(left, top, 1, bottom - top, color, unused);
    ditherRectangle(right, top, 1, bottom - top, color, unused);
    ditherRectangle(left, top, right - left, 1, color, unused);
    ditherRectangle(left, bottom, right - left, 1, color, unused);
}

void KPainter::drawEdge(QRect * rect, unsigned int, unsigned int)
{
    if (rect == nullptr || rect->isEmpty() || !isActive()) {
        return;
    }
    QRect const inside = rect->adjusted(1, 1, -1, -1);
    if (brush().style() != Qt::NoBrush && !inside.isEmpty()) {
        fillRect(inside, brush());
    }
    drawInnerOutline(this, *rect, getSysColor(1));
}

QSize KPainter::GetTextExtent(char const * text) const
{
    return GetTextExtent(const_cast<KPainter *>(this), text);
}

QSize KPainter::GetTextExtent(QPainter * painter, char const * text)
{
    if (text == nullptr || *text == 0) {
        return QSize(0, 0);
    }
    return GetTextExtent(painter, text, -1);
}

QSize KPainter::GetTextExtent(char const * text, int length) const
{
    return GetTextExtent(const_cast<KPainter *>(this), text, length);
}

QSize KPainter::GetTextExtent(QPainter * painter, char const * text, int length)
{
    if (!isPaintable(painter)) {
        return QSize(0, 0);
    }
    return painter->fontMetrics().size(Qt::TextSingleLine, chars2qstring(text).left(length));
}

int KPainter::getAveCharWidth() const
{
    return getAveCharWidth(const_cast<KPainter *>(this));
}

int KPainter::getAveCharWidth(QPainter * painter)
{
    return isPaintable(painter) ? painter->fontMetrics().boundingRect(QLatin1Char('x')).width() : 0;
}

void KPainter::changeColor(QPainter * painter, int x, int y, int w, int h, QColor const & from,
                           QColor const & to)
{
    if (!isPaintable(painter) || w <= 0 || h <= 0 ||
        !painter->paintEngine()->hasFeature(QPaintEngine::RasterOpModes)) {
        return;
    }
    // Per bit: (line AND NOT (from XOR to)) XOR (to AND NOT from).
    QColor const kept = QColor::fromRgb(~(from.rgb() ^ to.rgb()));
    QColor const set = QColor::fromRgb(to.rgb() & ~from.rgb());
    DeviceCoordinates const coordinates(painter);
    painter->setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter->fillRect(x, y, w, h, kept);
    painter->setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter->fillRect(x, y, w, h, set);
}

void KPainter::drawItemButton(QRect * rect, int state)
{
    if (rect == nullptr) {
        return;
    }
    QRect const button = *rect;
    bool const flat = (state & ItemButtonFlat) != 0;
    bool const pressed = (state & ItemButtonPressed) != 0;

    inflateRect(rect, (state & ItemButtonNoMargin) != 0 ? -1 : -3, -1);
    if (flat && pressed && (state & ItemButtonHot) == 0) {
        rect->translate(1, 1);
    }
    if (!isActive()) {
        return;
    }
    // Right minus left and bottom minus top: the face ends one pixel before the last column and
    // row.
    fillLine(this, button.left(), button.top(), button.right() - button.left(),
             button.bottom() - button.top(), itemButtonFill(state));
    if (flat) {
        drawFlatButtonLines(this, button, state);
    } else {
        drawRaisedButton(this, button, pressed);
    }
}

void KPainter::drawDragIndicator(int width, int y, int offset, bool atTop)
{
    QColor const red(255, 0, 0);
    if (atTop) {
        fillRect(0, 0, width, dragBarHeight, red);
    } else {
        fillRect(dragBarLeft, y + offset, width, dragBarHeight, red);
    }
}

KPenSelector::KPenSelector(QPainter * painter, QPen const & pen)
    : m_painter(isPaintable(painter) ? painter : nullptr)
    , m_saved(m_painter != nullptr ? m_painter->pen() : QPen())
    , m_selected(pen)
{
    if (m_painter != nullptr) {
        m_painter->setPen(m_selected);
    }
}

KPenSelector::KPenSelector(QPainter * painter)
    : KPenSelector(painter, QPen())
{
}

KPenSelector::KPenSelector(QPainter * painter, Qt::PenStyle style)
    : KPenSelector(painter, QPen(style))
{
}

KPenSelector::KPenSelector(QPainter * painter, QColor const & color, unsigned int width,
                           Qt::PenStyle style)
    : KPenSelector(painter, QPen(color, width, style))
{
}

KPenSelector::KPenSelector(QPainter * painter, QColor const & color, unsigned int width,
                           Qt::PenStyle style, Qt::PenCapStyle cap, Qt::PenJoinStyle join)
    : KPenSelector(painter, QPen(color, width, style, cap, join))
{
}

KPenSelector::~KPenSelector()
{
    if (isPaintable(m_painter)) {
        m_painter->setPen(m_saved);
    }
}

namespace {

void overwrite(QPainter * painter, QRect const & rect, QColor const & color)
{
    DeviceCoordinates const coordinates(painter);
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    painter->fillRect(rect, color);
}

// The painter that is open on a device which is not a widget, null when there is none.
QPainter * openPainter(QPaintDevice * device)
{
    QPaintEngine * const engine = device->paintEngine();
    return engine != nullptr && engine->isActive() ? engine->painter() : nullptr;
}

} // namespace

void fastFill(QPaintDevice * device, QRect const & rect, QColor const & color)
{
    if (device == nullptr || rect.isEmpty() || device->width() <= 0 || device->height() <= 0) {
        return;
    }
    bool const byRows = rect.height() <= 2LL * rect.width();
    QRect const displaced =
        byRows ? rect.translated(0, rect.top()) : rect.translated(rect.left(), 0);

    if (device->devType() == QInternal::Widget) {
        if (!static_cast<QWidget *>(device)->testAttribute(Qt::WA_WState_InPaintEvent)) {
            return;
        }
    } else if (QPainter * const open = openPainter(device)) {
        overwrite(open, displaced, color);
        return;
    }
    QPainter painter(device);
    overwrite(&painter, displaced, color);
}

void fillRegion(QPainter * painter, QRegion const & region, QBrush const & brush)
{
    if (isPaintable(painter)) {
        for (QRect const & rect : region) {
            painter->fillRect(rect, brush);
        }
    }
}

} // namespace zenu
