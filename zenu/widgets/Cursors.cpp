#include "zenu/widgets/Cursors.h"

#include <QApplication>

namespace zenu {

KWaitCursor::KWaitCursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

KWaitCursor::~KWaitCursor()
{
    QApplication::restoreOverrideCursor();
}

namespace Cursors {

void Set(ECursor) {}

void Redraw() {}

} // namespace Cursors

} // namespace zenu
