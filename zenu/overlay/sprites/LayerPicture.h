#pragma once

class QRegion;

namespace zenu {

class WidgetSurface;
struct Scene;

/// Draws a scene into the picture that is taken of the widget at the moment, as far as the widget
/// has painted it: `painted`, in its coordinates. In the paint event of the widget only; its own
/// painter may still be open.
void drawInPicture(WidgetSurface const & surface, Scene const & scene, QRegion const & painted);

} // namespace zenu
