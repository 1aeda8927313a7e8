#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

/// Shows the wait cursor over the whole application for as long as it lives. Guards may be nested.
class ZENU_EXPORT KWaitCursor
{
public:
    KWaitCursor();
    ~KWaitCursor();

    KWaitCursor(KWaitCursor const &) = delete;
    KWaitCursor & operator=(KWaitCursor const &) = delete;
};

/// Calls that applications make for toolkits without cursors of their own. Here they do nothing.
namespace Cursors {

/// Any number; no value has a meaning.
enum ECursor : int
{
};

/// Does nothing.
ZENU_EXPORT void Set(ECursor cursor);

/// Does nothing.
ZENU_EXPORT void Redraw();

} // namespace Cursors

} // namespace zenu
