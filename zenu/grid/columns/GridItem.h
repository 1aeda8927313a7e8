#pragma once

#include "zenu/grid/GridTypes.h"

#include <QRgb>

#include <array>
#include <cstdint>

namespace zenu {

// One cell of an ordinary row: plain bytes, moved as they stand. Every field has one place whatever
// the column's kind, so a change of kind misreads nothing and an owned text outlives a detour over
// a kind without text. Owned by its row; ItemLifetime builds and destroys it.
struct GridItem
{
    static constexpr unsigned alignShift = 5;
    static constexpr std::uint8_t alignMask = 0xE0; // 0: the column's alignment, else it plus 1
    static constexpr unsigned stateMask = 0x1f;

    // Bits of checkStyle().
    static constexpr unsigned grayed = 0x1;
    static constexpr unsigned radio = 0x2;
    static constexpr unsigned hideCheck = 0x4;

    std::uint8_t flags = 0;                        // GCIS_ and the alignment
    std::array<std::int8_t, 3> images{-1, -1, -1}; // image, overlay, state image; -1 none
    std::uint32_t colourWord = opaqueBit;          // see textColor and checkStyle
    char * text = nullptr;                         // null, GC_TEXTCALLBACK or owned (duplicateText)

    // Alignment 0 to 7, -1 for the column's. Seven does not survive its own increment: it reads -1.
    int alignment() const { return static_cast<int>((flags & alignMask) >> alignShift) - 1; }
    void setAlignment(int value)
    {
        flags = static_cast<std::uint8_t>(
            (flags & ~alignMask) | ((static_cast<unsigned>(value) + 1U) << alignShift & alignMask));
    }

    // A list box's choice stands where other kinds have their image: a byte, 255 of which is -1,
    // none. So a list may have as many choices as a byte can tell apart.
    static constexpr int largestListIndex = 0xfe;
    int listIndex() const
    {
        int const index = static_cast<std::uint8_t>(images[0]);
        return index <= largestListIndex ? index : -1;
    }
    // Keeps the low byte, whatever the index.
    void setListIndex(int index) { images[0] = static_cast<std::int8_t>(index); }

    // GC_UNSETCOLOR means the grid's colour. The top byte of a colour is 0xff or 0, so one bit
    // keeps it.
    QRgb textColor() const
    {
        return (colourWord & 0xffffffU) | ((colourWord & opaqueBit) ? 0xff000000U : 0U);
    }
    void setTextColor(QRgb colour)
    {
        colourWord = (colourWord & ~(0xffffffU | opaqueBit)) | (colour & 0xffffffU) |
                     ((colour >> 24) ? opaqueBit : 0U);
    }

    unsigned checkStyle() const { return colourWord >> checkShift & 0x7U; }
    void setCheckStyle(unsigned style)
    {
        colourWord = (colourWord & ~(0x7U << checkShift)) | ((style & 0x7U) << checkShift);
    }

    bool hasState(GCItemState bit) const { return (flags & bit) != 0; }
    void setState(GCItemState bit, bool on)
    {
        flags = static_cast<std::uint8_t>(on ? flags | bit : flags & ~bit);
    }

    bool isCallback() const { return text == GC_TEXTCALLBACK; }
    bool ownsText() const { return text && !isCallback(); }

private:
    static constexpr std::uint32_t opaqueBit = 1U << 24;
    static constexpr unsigned checkShift = 25;
};

static_assert(sizeof(GridItem) == 16 || sizeof(void *) != 8);

} // namespace zenu
