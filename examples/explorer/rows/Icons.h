#pragma once

#include <QPixmap>

namespace explorer {

/// The images of the grid, by their place in the strip.
enum class Icon : int
{
    Folder,
    LockedFolder,
    File,
    Code,
    Text,
    Image,
    Media,
    Archive,
    Program,
    Link,
    Device,
    Home,
    Desktop,
    Volume
};
constexpr int iconCount = 14;
constexpr int iconSize = 16; ///< logical pixels

/// All icons side by side, drawn for a device pixel ratio.
QPixmap iconStrip(double ratio);

} // namespace explorer
