#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/widgets/KPixmapSet.h"

#include <QSize>

#include <array>
#include <memory>

namespace zenu {

// The image lists of a grid. Each is owned here or missing; nothing in the library fills the radio
// glyphs. Copying duplicates the lists, whose strips are shared.
class ZENU_TEST_EXPORT KGridImages
{
public:
    enum Member
    {
        Normal,   // item images
        Selected, // item images under selection colours
        Overlay,  // over the item image
        State,    // over the item image, after the overlay
        Lead,     // at the right of the cell
        Buttons,  // the built-in glyphs, see GridGlyph
        Radio     // radio glyphs
    };

    KGridImages() = default;
    KGridImages(KGridImages const & other);
    KGridImages & operator=(KGridImages const & other);
    KGridImages(KGridImages && other) noexcept = default;
    KGridImages & operator=(KGridImages && other) noexcept = default;
    ~KGridImages() = default;

    // Null for a list that is missing.
    KPixmapSet * get(Member member) const { return lists[member].get(); }
    // Deletes what was there; null removes the list.
    void set(Member member, std::unique_ptr<KPixmapSet> images);
    // (0, 0) for a list that is missing.
    QSize imageSize(Member member) const;

    // By the GCIL_ number of KGridCtrl::SetImageList. Reading any other number reads the normal
    // list, writing it changes nothing and answers false.
    KPixmapSet * list(int number) const;
    bool setList(int number, std::unique_ptr<KPixmapSet> images);
    // Removes the five lists that an application can set; glyphs stay.
    void clearLists();

private:
    static constexpr int memberCount = Radio + 1;

    std::array<std::unique_ptr<KPixmapSet>, memberCount> lists;
};

// Cells of the built-in glyphs, 9 by 9 pixels each.
enum GridGlyph
{
    GlyphCollapsed = 0, // a plus in a box
    GlyphExpanded = 1,  // a minus in a box
    GlyphChecked = 2,   // a black check mark
    GlyphGrayed = 3     // a gray one
};

// The built-in glyphs: a strip of four cells with room for five.
ZENU_TEST_EXPORT std::unique_ptr<KPixmapSet> makeGridGlyphs();

// Red arrows of 12 by 11 pixels that stand at the ends of the drag indicator.
ZENU_TEST_EXPORT QPixmap makeLeftArrow();
ZENU_TEST_EXPORT QPixmap makeRightArrow();

} // namespace zenu
