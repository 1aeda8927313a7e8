#pragma once

#include <QIcon>
#include <QPixmap>

namespace gallery {

// Coloured shapes side by side, each `side` logical pixels high and wide: a disc, a square, a
// triangle and a diamond, in the resolution of the screen.
QPixmap shapeStrip(int side);
constexpr int shapeCount = 4;

// One of them alone.
QPixmap shape(int index, int side);
QIcon shapeIcon(int index);

} // namespace gallery
