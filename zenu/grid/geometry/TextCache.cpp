#include "zenu/grid/geometry/TextCache.h"

#include "zenu/grid/geometry/FontWidths.h"
#include "zenu/grid/geometry/TextLine.h"
#include "zenu/grid/inner/SaturatedInt.h"

#include <QFont>
#include <QGuiApplication>
#include <QObject>
#include <QPaintDevice>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zenu {

namespace {

constexpr std::size_t generationEntries = 8192;
constexpr std::size_t generationBytes = 8U << 20;
constexpr std::size_t shapeBytes = 600;
constexpr std::size_t bytesALetter = 32;
constexpr std::size_t mostFonts = 64;
// Of a longer text these first bytes and a hash of 128 bits tell it from others.
constexpr std::size_t keptBytes = 1024;
// What lies beyond, far outside of any screen, counts with the sum of its letters.
constexpr int longestMeasured = 65536;
constexpr int wholeText = -2;

// Both halves of the hash of a text.
struct TextHash
{
    std::uint64_t first = 0;
    std::uint64_t second = 0;
};

std::uint64_t mixed(std::uint64_t value)
{
    value ^= value >> 32;
    value *= 0xd6e8feb86659fd93U;
    return value ^ value >> 29;
}

TextHash hashOf(std::string_view text)
{
    TextHash hash{0x9e3779b97f4a7c15U ^ text.size(), 0xc2b2ae3d27d4eb4fU + text.size()};
    std::size_t at = 0;
    while (at < text.size()) {
        std::uint64_t word = 0;
        std::size_t const count = std::min(text.size() - at, sizeof word);
        std::memcpy(&word, text.data() + at, count);
        hash.first = mixed(hash.first ^ word);
        hash.second = (hash.second + word) * 0xff51afd7ed558ccdU;
        hash.second ^= hash.second >> 31;
        at += count;
    }
    return hash;
}

// What a result is found by. With `room` wholeText it is the text without a span.
struct Probe
{
    FontWidths const * slot;
    std::string_view text;
    int room;
    FitSide side;
    TextHash hash;

    std::size_t tableHash() const
    {
        std::uint64_t const place = static_cast<std::uint64_t>(static_cast<unsigned>(room)) * 2 +
                                    (side == FitSide::End ? 1 : 0);
        return mixed(hash.first ^ mixed(place ^ reinterpret_cast<std::uintptr_t>(slot)));
    }
};

// One result, at the same address for as long as it lives.
struct Entry
{
    explicit Entry(Probe const & probe)
        : slot(probe.slot)
        , room(probe.room)
        , side(probe.side)
        , length(probe.text.size())
        , hash(probe.hash)
        , tableHash(probe.tableHash())
        , bytes(probe.text.substr(0, keptBytes))
    {
    }

    bool isFor(Probe const & probe) const
    {
        return slot == probe.slot && room == probe.room && side == probe.side &&
               length == probe.text.size() && hash.first == probe.hash.first &&
               hash.second == probe.hash.second && bytes == probe.text.substr(0, keptBytes);
    }

    FontWidths const * slot;
    int room;
    FitSide side;
    std::size_t length;
    TextHash hash;
    std::size_t tableHash;
    std::string bytes;
    FittedText result;
    // A room that takes the whole text for certain.
    int surelyFits = std::numeric_limits<int>::max();
    // A room that does not.
    int surelyCut = std::numeric_limits<int>::min();
    TextLine line;
};

struct EntryHash
{
    using is_transparent = void;
    std::size_t operator()(std::unique_ptr<Entry> const & entry) const { return entry->tableHash; }
    std::size_t operator()(Probe const & probe) const { return probe.tableHash(); }
};

struct EntryEqual
{
    using is_transparent = void;
    bool operator()(std::unique_ptr<Entry> const & a, std::unique_ptr<Entry> const & b) const
    {
        return a == b;
    }
    bool operator()(Probe const & probe, std::unique_ptr<Entry> const & entry) const
    {
        return entry->isFor(probe);
    }
    bool operator()(std::unique_ptr<Entry> const & entry, Probe const & probe) const
    {
        return entry->isFor(probe);
    }
};

} // namespace

class TextCache::Private
{
public:
    Private();
    FontWidths & knownFont(QFont const & font);
    static std::size_t entryCost(Entry const & entry);
    Entry & entryOf(Probe const & probe, bool & isNew);
    void measureWhole(Entry & entry, FontWidths & slot, std::string_view text);
    // True when the whole text fits into the room; the entry is that of the whole text.
    bool fitsWhole(Entry & entry, std::string_view text, int room);
    void cut(Entry & entry, Entry const & whole, FontWidths & slot, std::string_view text);
    void clear();

    using Entries = std::unordered_set<std::unique_ptr<Entry>, EntryHash, EntryEqual>;

    QPaintDevice const * device = nullptr;
    int dpiX = 0;
    int dpiY = 0;
    qreal pixelRatio = 0;
    long long measurements = 0;
    std::vector<std::unique_ptr<FontWidths>> fonts;
    FontWidths * lastFont = nullptr;
    Entries young;
    Entries old;
    std::size_t youngBytes = 0;
    QObject fontWatch;
};

// Memory, about: the text in both forms and, where it is drawn, its shape.
std::size_t TextCache::Private::entryCost(Entry const & entry)
{
    return shapeBytes + bytesALetter * entry.bytes.size();
}

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

Entry & TextCache::Private::entryOf(Probe const & probe, bool & isNew)
{
    isNew = false;
    if (auto const found = young.find(probe); found != young.end()) {
        return **found;
    }
    if (young.size() >= generationEntries || youngBytes >= generationBytes) {
        old = std::exchange(young, {});
        youngBytes = 0;
    }
    if (auto const found = old.find(probe); found != old.end()) {
        youngBytes += entryCost(**found);
        return **young.insert(old.extract(found)).position;
    }
    isNew = true;
    Entry & entry = **young.insert(std::make_unique<Entry>(probe)).first;
    youngBytes += entryCost(entry);
    return entry;
}

// Shapes the text once, for its size and maybe for its picture.
void TextCache::Private::measureWhole(Entry & entry, FontWidths & slot, std::string_view text)
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

bool TextCache::Private::fitsWhole(Entry & entry, std::string_view text, int room)
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

void TextCache::Private::cut(Entry & entry, Entry const & whole, FontWidths & slot,
                             std::string_view text)
{
    TextWidths widths(slot, text, whole.result.textHeight, entry.side);
    TextFit const fit = fitText(whole.result.length, entry.room, slot.dotsInkWidth(), widths);
    entry.result = whole.result;
    entry.result.fitCount = fit.count;
    entry.result.fitWidth = fit.width;
    entry.line = TextLine(slot.deviceFont(), latin1Text(widths.kept(fit.count)));
    entry.result.fitted = &entry.line;
}

void TextCache::Private::clear()
{
    young.clear();
    old.clear();
    youngBytes = 0;
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
    Probe probe{&slot, bytes, wholeText, FitSide::Front, hashOf(bytes)};
    bool isNew = false;
    Entry & whole = d->entryOf(probe, isNew);
    if (isNew) {
        d->measureWhole(whole, slot, bytes);
    }
    if (d->fitsWhole(whole, bytes, room)) {
        return whole.result;
    }
    // Who asks again asks for the cut text. A long text would be kept for nothing.
    whole.line.release();
    if (bytes.size() > keptBytes) {
        whole.line = TextLine();
    }
    // No text fits into less than nothing, whatever it is.
    probe.room = std::max(room, -1);
    probe.side = side;
    Entry & fitted = d->entryOf(probe, isNew);
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
    return d->young.size() + d->old.size();
}

} // namespace zenu
