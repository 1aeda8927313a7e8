#pragma once

#include "zenu/ZenuExport.h"

class QRegion;
class QWidget;

namespace zenu {

/// The part of `host` that nobody else draws: its rectangle within those of all ancestors and
/// within all masks, without its visible children and without visible relatives that are stacked
/// above it, opaque or not. Unlike `QWidget::visibleRegion`, which leaves out only opaque
/// relatives: one that is see-through is painted after the host and would enter what is read back.
/// In coordinates of `host`. O(number of children of the host and its ancestors).
ZENU_TEST_EXPORT QRegion surfaceClip(QWidget const & host);

} // namespace zenu
