#include "zenu/grid/look/KGridImages.h"

#include "zenu/grid/GridTypes.h"

#include <optional>
#include <utility>

namespace zenu {

namespace {

constexpr int glyphSize = 9;
constexpr int glyphRoom = 5;

char const * const glyphsXpm[] = {
    "36 9 4 1",
    "  c #000000",
    "X c #808080",
    ". c None",
    "o c None",
    "XXXXXXXXXXXXXXXXXXooooooooo.........",
    "XoooooooXXoooooooXooooooo o.......X.",
    "Xooo oooXXoooooooXoooooo  o......XX.",
    "Xooo oooXXoooooooXo ooo   o.X...XXX.",
    "Xo     oXXo     oXo  o   oo.XX.XXX..",
    "Xooo oooXXoooooooXo     ooo.XXXXX...",
    "Xooo oooXXoooooooXoo   oooo..XXX....",
    "XoooooooXXoooooooXooo ooooo...X.....",
    "XXXXXXXXXXXXXXXXXXooooooooo.........",
};

// clang-format off
char const * const leftArrowXpm[] = {
    "12 11 2 1",
    "  c None",
    "X c #ff0000",
    "     X      ",
    "    XX      ",
    "   XXX      ",
    "  XXXX      ",
    " XXXXXXXXXXX",
    "XXXXXXXXXXXX",
    " XXXXXXXXXXX",
    "  XXXX      ",
    "   XXX      ",
    "    XX      ",
    "     X      ",
};

char const * const rightArrowXpm[] = {
    "12 11 2 1",
    "  c None",
    "X c #ff0000",
    "      X     ",
    "      XX    ",
    "      XXX   ",
    "      XXXX  ",
    "XXXXXXXXXXX ",
    "XXXXXXXXXXXX",
    "XXXXXXXXXXX ",
    "      XXXX  ",
    "      XXX   ",
    "      XX    ",
    "      X     ",
};

// clang-format on

std::optional<KGridImages::Member> memberOfList(int number)
{
    switch (number) {
    case GCIL_NORMAL:
        return KGridImages::Normal;
    case GCIL_SELECTED:
        return KGridImages::Selected;
    case GCIL_LEAD:
        return KGridImages::Lead;
    case GCIL_OVERLAY:
        return KGridImages::Overlay;
    case GCIL_STATE:
        return KGridImages::State;
    default:
        return std::nullopt;
    }
}

} // namespace

KGridImages::KGridImages(KGridImages const & other)
{
    for (std::size_t i = 0; i < lists.size(); ++i) {
        if (other.lists[i]) {
            lists[i] = std::make_unique<KPixmapSet>(*other.lists[i]);
        }
    }
}

KGridImages & KGridImages::operator=(KGridImages const & other)
{
    if (this != &other) {
        *this = KGridImages(other);
    }
    return *this;
}

void KGridImages::set(Member member, std::unique_ptr<KPixmapSet> images)
{
    lists[member] = std::move(images);
}

QSize KGridImages::imageSize(Member member) const
{
    return lists[member] ? lists[member]->getImageSize() : QSize(0, 0);
}

KPixmapSet * KGridImages::list(int number) const
{
    return get(memberOfList(number).value_or(Normal));
}

bool KGridImages::setList(int number, std::unique_ptr<KPixmapSet> images)
{
    std::optional<Member> const member = memberOfList(number);
    if (!member) {
        return false;
    }
    set(*member, std::move(images));
    return true;
}

void KGridImages::clearLists()
{
    for (Member const member : {Normal, Selected, Overlay, State, Lead}) {
        lists[member].reset();
    }
}

std::unique_ptr<KPixmapSet> makeGridGlyphs()
{
    return std::make_unique<KPixmapSet>(QPixmap(glyphsXpm), QSize(glyphSize, glyphSize), glyphRoom,
                                        false);
}

QPixmap makeLeftArrow()
{
    return QPixmap(leftArrowXpm);
}

QPixmap makeRightArrow()
{
    return QPixmap(rightArrowXpm);
}

} // namespace zenu
