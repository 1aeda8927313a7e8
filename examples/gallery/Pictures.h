#pragma once

#include "examples/gallery/Page.h"

class QPixmap;
class QString;

namespace gallery {

class GalleryWindow;

// The page with its code and with what it opens, drawn without a window being seen.
QPixmap pictureOf(Page const & page);

// The window with its page as it is posed.
QPixmap pictureOf(GalleryWindow & window);

// Writes a PNG file; false when that fails.
bool savePicture(QPixmap const & picture, QString const & file);

// Draws each page into a file of its name in `folder`, which is made if need be. False when one
// cannot be written.
bool savePictures(QString const & folder);

} // namespace gallery
