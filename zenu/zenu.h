#pragma once

// Every public header of the library.

#include "zenu/ZenuExport.h"
#include "zenu/events/KEventMonitor.h"
#include "zenu/events/KToolTip.h"
#include "zenu/grid/GridRecords.h"
#include "zenu/grid/GridTypes.h"
#include "zenu/grid/IGridNotification.h"
#include "zenu/grid/ISlimGridCallback.h"
#include "zenu/grid/KGridCtrl.h"
#include "zenu/header/IHeaderNotification.h"
#include "zenu/header/KHeader.h"
#include "zenu/header/KHeaderItem.h"
#include "zenu/overlay/Geometry.h"
#include "zenu/overlay/KPainter.h"
#include "zenu/overlay/NarrowText.h"
#include "zenu/scroll/KScrolledWidget.h"
#include "zenu/util/StringUtils.h"
#include "zenu/widgets/Cursors.h"
#include "zenu/widgets/KPixmapSet.h"
