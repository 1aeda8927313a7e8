#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

class KRefreshTracer;

// The rhythm: armed until as many refreshes have come as the threshold says, then two seconds of
// rest.
enum class RefreshState
{
    Armed = 0,
    JustFired = 1,
    Resting = 2,
};

// The tracer of the process, made on first use. All of the rest reaches it through this, and so
// makes it too. An application object must exist.
ZENU_TEST_EXPORT KRefreshTracer * refreshTracer();

// Counts a refresh when the tracer is armed; else does nothing. The one that makes the threshold
// full writes "Break at me !!!", starts the count anew and lets the tracer rest.
ZENU_TEST_EXPORT void notifyRefresh();

// How many refreshes make an armed tracer fire; 1 at the start. The next one does if fewer than 1.
ZENU_TEST_EXPORT void setRefreshThreshold(int threshold);
ZENU_TEST_EXPORT int refreshThreshold();

// Count 0, and resting: armed again within a second.
ZENU_TEST_EXPORT void resetRefreshTracer();

ZENU_TEST_EXPORT RefreshState refreshState();
ZENU_TEST_EXPORT int refreshCount();

} // namespace zenu
