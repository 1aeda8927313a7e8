#include "zenu/grid/geometry/TextCache.h"

#include "zenu/grid/geometry/SaturatedInt.h"
#include "zenu/grid/geometry/TextLine.h"

#include <QFont>
#include <QFontMetrics>
#include <QPaintDevice>
#include <QString>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zenu {

namespace {

constexpr std::size_t generationEntries = 8192;
constexpr std::size_t generationBytes = 8U << 20;
constexpr std::size_t fontSlots = 64;
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

} // namespace

// A font with what is known of it alone.
struct FontSlot
{
    FontSlot(QFont const & slotFont, QPaintDevice const * device, long long & counter)
        : font(slotFont)
        , metrics(device != nullptr ? QFontMetrics(slotFont, device) : QFontMetrics(slotFont))
        , realMetrics(device != nullptr ? QFontMetricsF(slotFont, device) : QFontMetricsF(slotFont))
        , measurements(counter)
        , dots(slotFont, QStringLiteral("..."))
    {
        advances.fill(-1);
        ++measurements;
        dotsWidth = metrics.size(Qt::TextSingleLine, QStringLiteral("...")).width();
    }

    QSize size(QString const & text)
    {
        ++measurements;
        return metrics.size(Qt::TextSingleLine, text);
    }
    int inkWidth(QString const & text)
    {
        ++measurements;
        return metrics.boundingRect(text).width();
    }
    int dotsInkWidth()
    {
        if (dotsInk < 0) {
            dotsInk = inkWidth(QStringLiteral("..."));
        }
        return dotsInk;
    }
    // Of one Latin-1 letter that stands alone.
    float advance(char letter)
    {
        float & known = advances[static_cast<unsigned char>(letter)];
        if (known < 0) {
            ++measurements;
            known = std::max(0.0F, static_cast<float>(realMetrics.horizontalAdvance(
                                       QString(QLatin1Char(letter)))));
        }
        return known;
    }

    QFont font;
    QFontMetrics metrics;
    QFontMetricsF realMetrics;
    long long & measurements;
    std::array<float, 256> advances;
    int dotsWidth = 0;
    int dotsInk = -1;
    TextLine dots;
};

namespace {

// What a result is found by. With `room` wholeText it is the text without a span.
struct Probe
{
    FontSlot const * slot;
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

    FontSlot const * slot;
    int room;
    FitSide side;
    std::size_t length;
    TextHash hash;
    std::size_t tableHash;
    std::string bytes;
    FittedText result;
    int inkWidth = -1; // of the whole text, once it is known
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

using Entries = std::unordered_set<std::unique_ptr<Entry>, EntryHash, EntryEqual>;

QString latin1(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// The widths of the beginnings or ends of a text.
class TextWidths : public ITextWidths
{
public:
    TextWidths(FontSlot & fontSlot, std::string_view wholeText, FitSide fitSide)
        : slot(fontSlot)
        , text(wholeText)
        , side(fitSide)
    {
    }

    std::string_view kept(int count) const
    {
        auto const n = static_cast<std::size_t>(count);
        return side == FitSide::End ? text.substr(text.size() - n) : text.substr(0, n);
    }
    int widthOf(int count) override { return slot.inkWidth(latin1(kept(count))); }
    int probableCount(int room, int most) override
    {
        float sum = 0;
        int count = 0;
        while (count < most) {
            auto const n = static_cast<std::size_t>(count);
            sum += slot.advance(side == FitSide::End ? text[text.size() - 1 - n] : text[n]);
            if (sum > static_cast<float>(room)) {
                break;
            }
            ++count;
        }
        return count;
    }

private:
    FontSlot & slot;
    std::string_view text;
    FitSide side;
};

} // namespace

class TextCache::Private
{
public:
    FontSlot & slotOf(QFont const & font);
    Entry & entryOf(Probe const & probe, bool & isNew);
    void measureWhole(Entry & entry, FontSlot & slot, std::string_view text);
    // True when the whole text fits into the room; the entry is that of the whole text.
    bool fitsWhole(Entry & entry, FontSlot & slot, std::string_view text, int room);
    void cut(Entry & entry, Entry const & whole, FontSlot & slot, std::string_view text);
    void clear();

    QPaintDevice const * device = nullptr;
    int dpiX = 0;
    int dpiY = 0;
    qreal pixelRatio = 0;
    long long measurements = 0;
    std::vector<std::unique_ptr<FontSlot>> slots;
    FontSlot * lastSlot = nullptr;
    Entries young;
    Entries old;
    std::size_t youngBytes = 0;
};

// Fonts are few, and mostly the one of the lookup before.
FontSlot & TextCache::Private::slotOf(QFont const & font)
{
    if (lastSlot != nullptr && lastSlot->font.isCopyOf(font)) {
        return *lastSlot;
    }
    for (std::unique_ptr<FontSlot> const & slot : slots) {
        if (slot->font.isCopyOf(font) || slot->font == font) {
            slot->font = font;
            lastSlot = slot.get();
            return *lastSlot;
        }
    }
    if (slots.size() >= fontSlots) {
        clear();
    }
    slots.push_back(std::make_unique<FontSlot>(font, device, measurements));
    lastSlot = slots.back().get();
    return *lastSlot;
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
        youngBytes += (*found)->bytes.size();
        return **young.insert(old.extract(found)).position;
    }
    isNew = true;
    Entry & entry = **young.insert(std::make_unique<Entry>(probe)).first;
    youngBytes += entry.bytes.size();
    return entry;
}

void TextCache::Private::measureWhole(Entry & entry, FontSlot & slot, std::string_view text)
{
    std::string_view const measured = text.substr(0, longestMeasured);
    QSize const size = slot.size(latin1(measured));
    double width = size.width();
    for (char const letter : text.substr(measured.size())) {
        width += static_cast<double>(slot.advance(letter));
    }
    entry.result.length = saturated(static_cast<std::int64_t>(text.size()));
    entry.result.fullWidth = saturated(std::llround(width));
    entry.result.textHeight = size.height();
    entry.result.dotsWidth = slot.dotsWidth;
    entry.result.fitted = &entry.line;
    entry.result.dots = &slot.dots;
}

bool TextCache::Private::fitsWhole(Entry & entry, FontSlot & slot, std::string_view text, int room)
{
    int const length = entry.result.length;
    // A longer text is cut before it is measured.
    if (length > room / 2 + 1) {
        return false;
    }
    if (entry.inkWidth < 0) {
        entry.line = TextLine(slot.font, latin1(text));
        entry.inkWidth = slot.inkWidth(latin1(text));
        entry.result.fitCount = length;
        entry.result.fitWidth = entry.inkWidth;
    }
    return entry.inkWidth <= room;
}

void TextCache::Private::cut(Entry & entry, Entry const & whole, FontSlot & slot,
                             std::string_view text)
{
    TextWidths widths(slot, text, entry.side);
    TextFit const fit = fitText(whole.result.length, entry.room, slot.dotsInkWidth(), widths);
    std::string_view const kept = widths.kept(fit.count);
    entry.result = whole.result;
    entry.result.fitCount = fit.count;
    entry.result.fitWidth = fit.width;
    entry.line = TextLine(slot.font, latin1(kept));
    entry.result.fitted = &entry.line;
}

void TextCache::Private::clear()
{
    young.clear();
    old.clear();
    youngBytes = 0;
    slots.clear();
    lastSlot = nullptr;
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
    FontSlot & slot = d->slotOf(font);
    Probe probe{&slot, bytes, wholeText, FitSide::Front, hashOf(bytes)};
    bool isNew = false;
    Entry & whole = d->entryOf(probe, isNew);
    if (isNew) {
        d->measureWhole(whole, slot, bytes);
    }
    if (d->fitsWhole(whole, slot, bytes, room)) {
        return whole.result;
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
