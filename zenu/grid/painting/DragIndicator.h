#pragma once

#include "zenu/ZenuExport.h"

#include <QImage>

class QWidget;

namespace zenu {

// The pixels of the mark that shows between which rows a drop would go: an inverted bar with an
// arrow at either end. It is drawn over the picture as it stands on the screen, outside a paint
// event, and keeps what was there. Logical pixels of the widget.
class ZENU_TEST_EXPORT DragIndicator
{
public:
    static constexpr int height = 11;
    static constexpr int arrowWidth = 12;

    // On the line at y, `markWidth` pixels wide from the widget's left edge. Nothing is drawn on a
    // widget that is not on a screen.
    void draw(QWidget * host, int y, int markWidth);
    // Puts back what was there. `y` may have changed, as when the rows were scrolled. Rows that
    // were painted while the mark was up have wiped out parts of it, so they are painted again.
    void erase(QWidget * host, int y);
    int width() const { return drawnWidth; }

private:
    QImage saved; // device pixels, null for nothing
    int drawnWidth = 0;
};

} // namespace zenu
