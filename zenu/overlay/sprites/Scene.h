#pragma once

#include "zenu/overlay/sprites/PieceList.h"
#include "zenu/overlay/sprites/RectIndex.h"

#include <QColor>
#include <QRect>

#include <vector>

namespace zenu {

class BackgroundBuffer;
class SpriteContents;

/// A rectangle whose pixels are turned between two colours, outside of all sprites.
struct SelectionBand
{
    bool operator==(SelectionBand const & other) const
    {
        return rect == other.rect && foreground.rgb() == other.foreground.rgb() &&
               background.rgb() == other.background.rgb();
    }

    QRect rect; // null: none
    QColor foreground;
    QColor background;
};

/// All that stands on the screen at one moment, or is to stand there.
struct Scene
{
    struct Standing
    {
        BackgroundBuffer * background;
        SpriteContents * contents; // null for what is left by a sprite that is gone
    };

    void add(QRect const & r, BackgroundBuffer * background, SpriteContents * contents)
    {
        rects.add(r);
        sprites.push_back({background, contents});
    }
    void clear()
    {
        rects.clear();
        sprites.clear();
        band = SelectionBand();
    }

    RectIndex rects;               // of the sprites, in the same order
    std::vector<Standing> sprites; // from the bottom to the top
    SelectionBand band;
    PieceList pieces; // of the pass that runs
};

} // namespace zenu
