#pragma once

namespace zenu {

class CGCColumn;
class IGCRow;
class KPainter;
struct CElementRects;

// Draws the cells of owner-draw columns, after their tree parts and lead image.
class IDrawOwnerDraw
{
public:
    virtual ~IDrawOwnerDraw() = default;
    virtual void DrawItem(KPainter * painter, IGCRow * row, CGCColumn * column,
                          CElementRects const & positions, bool selected, bool focusCell) = 0;
};

} // namespace zenu
