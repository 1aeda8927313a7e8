#include "zenu/grid/geometry/CElementRects.h"

#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/inner/SaturatedInt.h"

namespace zenu {

int CElementRects::fitWidth() const
{
    return fitted != nullptr ? fitted->measuredWidth() : 0;
}

void CElementRects::translate(int dx, int dy)
{
    for (QRect * const rect : {&cellRect, &indentRect, &buttonRect, &imageRect, &textRect,
                               &fullTextRect, &checkRect, &dropRect, &leadRect, &editorRect}) {
        // A null rectangle at the limit would not stay null, and says nothing by its place.
        if (!rect->isNull()) {
            rect->setCoords(saturatedSum(rect->left(), dx), saturatedSum(rect->top(), dy),
                            saturatedSum(rect->right(), dx), saturatedSum(rect->bottom(), dy));
        }
    }
}

} // namespace zenu
