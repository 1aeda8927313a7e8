#include "zenu/overlay/surface/StoreContents.h"

#include <QtGui/QBackingStore>
#include <QtGui/QImage>

#if __has_include(<qpa/qplatformbackingstore.h>)
#include <qpa/qplatformbackingstore.h>
#define ZENU_HAS_PLATFORM_STORE 1
#else
#define ZENU_HAS_PLATFORM_STORE 0
#endif

namespace zenu {

#if ZENU_HAS_PLATFORM_STORE

void completeStore(QBackingStore & store)
{
    // Some platforms renew the paint device only here, or choose the buffer to draw into.
    store.beginPaint(QRegion());
    store.endPaint();
    // Scrolled pixels may lie with the display server; this fetches them. The image is dropped at
    // once: while it lives it shares the store's memory, and the next painter would detach that.
    (void)store.handle()->toImage();
}

#else

namespace {

// Without the platform interface scrolled pixels cannot be fetched, so nothing may be scrolled
// outside the store's own memory. The toolkit looks at these once, at its first scroll and its
// first move of a widget. Other values that they may have would leave wrong pixels.
struct ScrollByPainting
{
    ScrollByPainting()
    {
        qputenv("QT_NO_FAST_SCROLL", "1");
        qputenv("QT_NO_FAST_MOVE", "1");
    }
} const scrollByPainting;

} // namespace

void completeStore(QBackingStore & store)
{
    store.beginPaint(QRegion());
    store.endPaint();
}

#endif

} // namespace zenu
