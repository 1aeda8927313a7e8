#include "zenu/header/IHeaderNotification.h"

namespace zenu {

IHeaderNotification::~IHeaderNotification() = default;

bool IHeaderNotification::onBeginTrack(int, int *)
{
    return false;
}

bool IHeaderNotification::onTrack(int, int *)
{
    return false;
}

bool IHeaderNotification::onEndTrack(int, int *)
{
    return false;
}

void IHeaderNotification::onItemClick(int) {}

void IHeaderNotification::onItemRightClick(int) {}

void IHeaderNotification::onItemDoubleClick(int) {}

void IHeaderNotification::onDividerDoubleClick(int) {}

void IHeaderNotification::onDrawItem(KPainter *, int, QRect *, bool, unsigned int) {}

} // namespace zenu
