#pragma once

#include "zenu/ZenuExport.h"

#include <QPoint>
#include <QRect>
#include <QRegion>

#include <span>
#include <vector>

namespace zenu {

class BackgroundBuffer;
class SpriteContents;
class WidgetSurface;
struct Scene;

/// What a pass copies in one go: a sprite or a part of one. Device pixels.
struct Piece
{
    BackgroundBuffer * background;
    SpriteContents * contents; // null for what has no picture
    QRect pixels;              // on the surface
    QPoint at;                 // where they begin in background and contents
};

/// The widget cut into strips of equal height, in logical pixels. The first also holds what lies
/// above, the last what lies below.
struct ZENU_TEST_EXPORT Strips
{
    int of(int y) const;
    /// The rows of `r` that lie in a strip.
    QRect cut(QRect const & r, int strip) const;

    int top = 0;
    int height = 1;
    int count = 1;
};

/// The pieces of a scene strip by strip, in each from the bottom to the top. Keeps its memory from
/// one pass to the next.
class PieceList
{
public:
    /// All of the sprites, but for what lies in `without`, which is empty most of the time.
    void collect(WidgetSurface const & surface, Scene const & scene, Strips const & strips,
                 QRegion const & without = QRegion());

    /// What lies within a region, in one strip.
    void collectWithin(WidgetSurface const & surface, Scene & scene, QRegion const & region,
                       QRegion const & without = QRegion());

    std::span<Piece const> in(int strip) const;

private:
    struct Placed
    {
        Piece piece;
        int strip;
    };
    class Collector;

    void sort(int strips);

    std::vector<Placed> m_found;
    std::vector<Piece> m_pieces; // strip after strip
    std::vector<size_t> m_ends;  // of each strip in them
};

} // namespace zenu
