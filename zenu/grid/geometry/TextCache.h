#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/geometry/TextFit.h"

#include <QtGlobal>

#include <memory>

class QFont;
class QPaintDevice;

namespace zenu {

class FontWidths;
class TextLine;

// What is known of a text in a font and a span of pixels.
struct ZENU_TEST_EXPORT FittedText
{
    int length = 0;     // characters of the text
    int fullWidth = 0;  // of the whole text on a single line
    int textHeight = 0; // of the same
    int fitCount = 0;   // characters that fit, see fitText
    mutable int fitWidth =
        -1;            // what those measure; of a whole text -1 until measuredWidth is asked
    int dotsWidth = 0; // of "..."

    TextLine const * fitted = nullptr; // the characters that fit, never null; maybe empty
    TextLine const * dots = nullptr;   // "...", never null

    // The rest of the text is replaced by dots.
    bool isCut() const { return fitCount < length; }
    // The width of the characters that fit. Painting needs it of cut texts only, so a text that
    // clearly fits is measured here, at the first question.
    int measuredWidth() const;

private:
    friend class TextCache;

    FontWidths * source = nullptr; // measures it
};

// What the texts of one grid measure, so that a screen that was painted before measures and shapes
// nothing again: painting, hit tests and best fit ask here. Knows up to 16384 different texts and
// spans, those of the last 8192 lookups among them, fewer when they are long, in about 16 MB at
// most. A lookup allocates nothing. It holds copies of fonts and compares by identity first, so a
// font that its application changes is seen as another one.
class ZENU_TEST_EXPORT TextCache
{
public:
    TextCache();
    ~TextCache();
    TextCache(TextCache const &) = delete;
    TextCache & operator=(TextCache const &) = delete;

    // The device whose resolution the fonts are measured for, null for the screen's. It must live
    // until the next call of this. Drops everything when the device, its resolution or its pixel
    // ratio is another than the time before; cheap otherwise, so it can be called at each paint.
    void setDevice(QPaintDevice const * newDevice);
    // Drops everything: call it when fonts or the style change under their names.
    void clear();

    // The Latin-1 text, neither null nor empty, in a span of `room` pixels. The result lives until
    // clear, setDevice, or some thousand further texts, some dozens when they are long; use it
    // before the next few lookups.
    FittedText const & fit(QFont const & font, char const * text, int room, FitSide side);

    // How often a text was measured since construction; guesses count too.
    long long measurements() const;
    // How many results are kept.
    std::size_t size() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace zenu
