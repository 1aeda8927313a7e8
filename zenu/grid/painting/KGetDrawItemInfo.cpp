#include "zenu/grid/painting/KGetDrawItemInfo.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/GridItem.h"

namespace zenu {

void KGetDrawItemInfo::Visit(CGCColumn *)
{
    takeColor();
}

void KGetDrawItemInfo::VisitIcon(CGCIconColumn *)
{
    takeImages();
}

void KGetDrawItemInfo::VisitTextWithIcon(CGCTextWithIconColumn *)
{
    takeColor();
    takeImages();
}

void KGetDrawItemInfo::VisitCheckBox(CGCCheckBoxColumn *)
{
    takeColor();
    takeCheck();
}

void KGetDrawItemInfo::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *)
{
    takeColor();
    takeImages();
    takeCheck();
}

void KGetDrawItemInfo::takeColor()
{
    if (item && ownColor && item->textColor() != GC_UNSETCOLOR) {
        info->textColor = QColor::fromRgb(item->textColor());
    }
}

void KGetDrawItemInfo::takeImages()
{
    if (item) {
        info->image = item->images[0];
        info->overlay = item->images[1];
        info->state = item->images[2];
    }
}

void KGetDrawItemInfo::takeCheck()
{
    if (item) {
        unsigned const style = item->checkStyle();
        info->checked = item->hasState(GCIS_CHECKED);
        info->grayed = (style & GridItem::grayed) != 0;
        info->radio = (style & GridItem::radio) != 0;
        info->hideCheck = (style & GridItem::hideCheck) != 0;
    }
}

} // namespace zenu
