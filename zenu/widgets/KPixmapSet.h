#pragma once

#include "zenu/ZenuExport.h"

#include <QColor>
#include <QPixmap>
#include <QSize>

class QPainter;

namespace zenu {

/// A list of images of one size in a single strip: image i lies at x = i times the image's width.
/// Sizes are logical pixels; a strip with a device pixel ratio of 2 is twice as large in its own
/// pixels. A value class: copies share the strip. Grid, header and tips point to a set and never
/// own it; its owner keeps it until they are done.
class ZENU_EXPORT KPixmapSet
{
public:
    /// A set of `count` images. With `useMask` the background of the strip becomes transparent, as
    /// QPixmap::createHeuristicMask finds it.
    KPixmapSet(QPixmap const & strip, QSize const & imageSize, int count, bool useMask);
    KPixmapSet(KPixmapSet const & other);
    KPixmapSet & operator=(KPixmapSet const & other);
    virtual ~KPixmapSet();

    /// True when the image size is not empty and the strip is wide enough for all images. A set
    /// that is not valid still draws what it has.
    bool isValid() const { return m_valid; }

    /// What the set was made of; the size is that of one image, in logical pixels.
    int getImagesCount() const { return m_count; }
    QSize const & getImageSize() const { return m_imageSize; }
    QPixmap const & getPixmap() const { return m_pixmap; }

    /// A background colour for users of the set; the set itself does not use it. Invalid at first.
    void setBkColor(QColor const & color) { m_bkColor = color; }
    QColor const & getBkColor() const { return m_bkColor; }

    /// Draws the left top `w` x `h` pixels of image `index` at (x, y), never scaled; a negative
    /// size stands for that of the image, a larger one shows the strip beyond the image. Returns
    /// false, and draws nothing, for a null painter and an index out of range; true otherwise, even
    /// where the strip ends before the image.
    bool drawImage(QPainter * painter, int index, int x, int y, int w, int h) const;

    /// As drawImage, in black and white: each visible pixel becomes one of the two, by error
    /// diffusion. Converts the strip at every call, so it is slow.
    bool drawImageMonoChrome(QPainter * painter, int index, int x, int y, int w, int h) const;

private:
    bool fits() const;
    QRectF sourceRect(int index, int w, int h) const;

    int m_count;
    QSize m_imageSize;
    QPixmap m_pixmap;
    QColor m_bkColor;
    bool m_valid;
};

/// The pixmap that the application-wide QPixmapCache holds under `key`, or else the one built from
/// `xpm`, which is then entered there. So an image is decoded once while the cache keeps it, and
/// `key`, in the form "KMultiPageSelector:un", decides which one it is. A null key is never cached,
/// a null or bad `xpm` gives a null pixmap.
ZENU_EXPORT QPixmap const retrieveOrCreateXpm(char const * key, char const ** xpm);

/// The accent colour of the library, (0, 0, 127).
ZENU_EXPORT QColor getDefaultColor();

} // namespace zenu
