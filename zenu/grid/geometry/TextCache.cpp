#include "zenu/grid/geometry/TextCache.h"

#include "zenu/grid/geometry/FontWidths.h"
#include "zenu/grid/geometry/TextLine.h"
#include "zenu/grid/geometry/TextStore.h"
#include "zenu/grid/inner/SaturatedInt.h"

#include <QFont>
#include <QGuiApplication>
#include <QObject>
#include <QPaintDevice>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace zenu {

namespace {

constexpr std::size_t mostFonts = 64;
// What lies beyond, far outside of any screen, counts with the sum of its letters.
constexpr int longestMeasured = 65536;

} // namespace

class TextCache::Private
{
public:
    Private();
    FontWidths & knownFont(QFont const & font);
    void measureWhole(TextEntry & entry, FontWidths & slot, std::string_view text);
    // True when the whole text fits into the room; the entry is that of the whole text.
    bool fitsWhole(TextEntry & entry, std::string_view text, int room);
    void cut(TextEntry & entry, TextEntry const & whole, FontWidths & slot, std::string_view text);
    void clear();

    QPaintDevice const * device = nullptr;
    int dpiX = 0;
    int dpiY = 0;
    qreal pixelRatio = 0;
    long long measurements = 0;
    std::vector<std::unique_ptr<FontWidths>> fonts;
    FontWidths * lastFont = nullptr;
    TextStore store;
    QObject fontWatch;
};

// Shaped lines point into fonts that go when fonts are added to the application or removed.
TextCache::Private::Private()
{
    if (qGuiApp != nullptr) {
        QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, &fontWatch,
                         [this] { clear(); });
    }
}

// Fonts are few, and mostly the one of the lookup before.
FontWidths & TextCache::Private::knownFont(QFont const & font)
{
    if (lastFont != nullptr && lastFont->isCopyOf(font)) {
        return *lastFont;
    }
    for (std::unique_ptr<FontWidths> const & known : fonts) {
        if (known->isFor(font)) {
            lastFont = known.get();
            return *lastFont;
        }
    }
    if (fonts.size() >= mostFonts) {
        clear();
    }
    fonts.push_back(std::make_unique<FontWidths>(font, device, measurements));
    lastFont = fonts.back().get();
    return *lastFont;
}

// Shapes the text once, for its size and maybe for its picture.
void TextCache::Private::measureWhole(TextEntry & entry, FontWidths & slot, std::string_view text)
{
    std::string_view const measured = text.substr(0, longestMeasured);
    entry.line = TextLine(slot.deviceFont(), latin1Text(measured));
    ++measurements;
    QSize const size = entry.line.size();
    double width = size.width();
    for (char const letter : text.substr(measured.size())) {
        width += static_cast<double>(slot.advance(letter));
    }
    FittedText & result = entry.result;
    result.length = saturated(static_cast<std::int64_t>(text.size()));
    result.fitCount = result.length;
    result.fullWidth = saturated(std::llround(width));
    result.textHeight = size.height();
    result.dotsWidth = slot.dotsWidth();
    result.fitted = &entry.line;
    result.dots = &slot.dots();
    result.source = &slot;
    // Glyphs stand out of their room by less than a line's height.
    if (std::none_of(text.begin(), text.end(), isOddLetter)) {
        double const advance = std::max(width, entry.line.advance());
        entry.surelyFits = saturated(std::llround(std::ceil(advance)) + 2LL * size.height());
        entry.surelyCut = saturated(std::llround(std::floor(advance)) - 2LL * size.height());
    }
}

bool TextCache::Private::fitsWhole(TextEntry & entry, std::string_view text, int room)
{
    FittedText & result = entry.result;
    // A longer text is cut before it is measured.
    if (result.length > room / 2 + 1) {
        return false;
    }
    if (static_cast<std::size_t>(entry.line.text().size()) != text.size()) {
        entry.line =
            TextLine(static_cast<FontWidths *>(result.source)->deviceFont(), latin1Text(text));
    }
    if (result.fitWidth < 0 && (room > entry.surelyFits || room < entry.surelyCut)) {
        return room > entry.surelyFits;
    }
    return result.measuredWidth() <= room;
}

void TextCache::Private::cut(TextEntry & entry, TextEntry const & whole, FontWidths & slot,
                             std::string_view text)
{
    TextWidths widths(slot, text, whole.result.fitWidth, whole.result.textHeight, entry.side);
    TextFit const fit = fitText(whole.result.length, entry.room, slot.dotsInkWidth(), widths);
    entry.result = whole.result;
    entry.result.fitCount = fit.count;
    entry.result.fitWidth = fit.width;
    entry.line = TextLine(slot.deviceFont(), latin1Text(widths.kept(fit.count)));
    entry.result.fitted = &entry.line;
}

void TextCache::Private::clear()
{
    store.clear();
    fonts.clear();
    lastFont = nullptr;
}

int FittedText::measuredWidth() const
{
    if (fitWidth < 0) {
        fitWidth = source->inkWidth(fitted->text());
    }
    return fitWidth;
}

TextCache::TextCache()
    : d(std::make_unique<Private>())
{
}

TextCache::~TextCache() = default;

void TextCache::setDevice(QPaintDevice const * newDevice)
{
    int const dpiX = newDevice != nullptr ? newDevice->logicalDpiX() : 0;
    int const dpiY = newDevice != nullptr ? newDevice->logicalDpiY() : 0;
    qreal const pixelRatio = newDevice != nullptr ? newDevice->devicePixelRatioF() : 0;
    if (newDevice == d->device && dpiX == d->dpiX && dpiY == d->dpiY &&
        qFuzzyCompare(pixelRatio + 1, d->pixelRatio + 1)) {
        return;
    }
    d->clear();
    d->device = newDevice;
    d->dpiX = dpiX;
    d->dpiY = dpiY;
    d->pixelRatio = pixelRatio;
}

void TextCache::clear()
{
    d->clear();
}

FittedText const & TextCache::fit(QFont const & font, char const * text, int room, FitSide side)
{
    std::string_view const bytes(text, std::min<std::size_t>(std::strlen(text), cellLimit));
    FontWidths & slot = d->knownFont(font);
    TextProbe probe{&slot, bytes, wholeText, FitSide::Front, hashOf(bytes)};
    bool isNew = false;
    TextEntry & whole = d->store.entryOf(probe, isNew);
    if (isNew) {
        d->measureWhole(whole, slot, bytes);
    }
    if (d->fitsWhole(whole, bytes, room)) {
        return whole.result;
    }
    // Who asks again asks for the cut text. A long text would be kept for nothing.
    whole.line.release();
    if (bytes.size() > keptTextBytes) {
        whole.line = TextLine();
    }
    // No text fits into less than nothing, whatever it is.
    probe.room = std::max(room, -1);
    probe.side = side;
    TextEntry & fitted = d->store.entryOf(probe, isNew);
    if (isNew) {
        d->cut(fitted, whole, slot, bytes);
    }
    return fitted.result;
}

long long TextCache::measurements() const
{
    return d->measurements;
}

std::size_t TextCache::size() const
{
    return d->store.size();
}

} // namespace zenu
