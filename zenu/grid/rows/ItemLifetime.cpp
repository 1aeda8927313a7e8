#include "zenu/grid/rows/ItemLifetime.h"

#include "zenu/grid/inner/SlabPool.h"

namespace zenu {

void KItemConstructor::Visit(CGCColumn *)
{
    *item = GridItem();
}

void KItemConstructor::VisitListBox(CGCListBoxColumn *)
{
    *item = GridItem();
    item->setTextColor(0);
}

void destroyItem(GridItem & item) noexcept
{
    freeItemGarbage(item);
    if (item.ownsText()) {
        releaseText(item.text);
        item.text = nullptr;
    }
}

void freeItemGarbage(GridItem & item) noexcept
{
    if (item.hasState(GCIS_CACHEDTEXT)) {
        if (item.ownsText()) {
            releaseText(item.text);
        }
        item.setState(GCIS_CACHEDTEXT, false);
        item.text = GC_TEXTCALLBACK;
    }
}

void KItemDestructor::Visit(CGCColumn *)
{
    destroyItem(*item);
}

void KFreeGarbage::Visit(CGCColumn *)
{
    freeItemGarbage(*item);
}

} // namespace zenu
