#include "zenu/grid/frame/KGridCtrlPrivate.h"

#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/geometry/CGetRowElementPos.h"
#include "zenu/grid/geometry/HitElement.h"
#include "zenu/grid/inner/SaturatedInt.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/painting/RowPath.h"

#include <algorithm>
#include <utility>

namespace zenu {

// Heights and positions may be any number; what leaves here can be added up.
int KGridCtrl::PrivateData::ViewTopOf(int index)
{
    return cellCoordinate(PositionOf(index) - TopPosition() + headerHeight);
}

int KGridCtrl::PrivateData::ViewHeightAt(int index)
{
    return cellCoordinate(GetHeightAt(index));
}

int KGridCtrl::PrivateData::ViewRightOf(CGCColumn const * column) const
{
    return cellCoordinate(std::int64_t{column->Right()} - hScrollPos);
}

// A flag that hides or shows a column waits for the next rebuild of the columns.
bool KGridCtrl::PrivateData::IsOnDisplay(CGCColumn const * column) const
{
    return !column->IsHidden() || ShownIndexOf(column) != -1;
}

QRect KGridCtrl::PrivateData::RowRect(IGCRow * row)
{
    int const index = IndexOf(row);
    if (index == -1) {
        return {};
    }
    QRect const client = ClientRect();
    return {client.left(), ViewTopOf(index), client.width(), ViewHeightAt(index)};
}

// Right is left plus width: one pixel more than the column has, as edges of a rectangle go here.
QRect KGridCtrl::PrivateData::ItemRect(IGCRow * row, CGCColumn * column)
{
    int const index = IndexOf(row);
    if (index == -1) {
        return {};
    }
    int const top = ViewTopOf(index);
    QRect rect;
    rect.setCoords(column->left - hScrollPos, top, ViewRightOf(column),
                   top + ViewHeightAt(index) - 1);
    return rect;
}

bool KGridCtrl::PrivateData::ElementRects(IGCRow * row, CGCColumn * column, CElementRects * rects)
{
    int const index = IndexOf(row);
    if (index == -1) {
        return false;
    }
    CDrawContext const context = DrawContext();
    CGetRowElementPos visitor(context, false, column, ViewTopOf(index), ViewHeightAt(index));
    row->Accept(&visitor);
    *rects = visitor.result();
    rects->translate(-hScrollPos, 0);
    return true;
}

int KGridCtrl::PrivateData::ShownColumnAt(int contentsX) const
{
    // The first column that begins behind x, by halves. Each step is arithmetic: where a mouse or
    // a sweep of hit tests goes, nobody can predict a branch on it.
    std::size_t after = 0;
    for (std::size_t left = shownColumns.size(); left != 0;) {
        std::size_t const half = left / 2;
        bool const goesOn = shownColumns[after + half]->left <= contentsX;
        after += goesOn ? half + 1 : 0;
        left = goesOn ? left - half - 1 : half;
    }
    bool const isInside = after != 0 && contentsX < shownColumns[after - 1]->Right();
    return isInside ? static_cast<int>(after - 1) : -1;
}

KGridCtrl::PrivateData::Hit KGridCtrl::PrivateData::HitTest(QPoint const & point)
{
    UpdateNow(); // before the position is read: it may scroll
    // The header hides the rows that were scrolled away.
    if (point.x() < 0 || point.y() < std::max(headerHeight, 0) ||
        point.x() >= contentsWidth - hScrollPos) {
        return {};
    }
    IGCRow * const row = GetRowAtOffset(point.y() - headerHeight);
    int const columnIndex = row ? ShownColumnAt(point.x() + hScrollPos) : -1;
    if (columnIndex == -1) {
        return {};
    }
    return {row, shownColumns[static_cast<std::size_t>(columnIndex)]};
}

unsigned KGridCtrl::PrivateData::HitElementAt(Hit const & hit, QPoint const & point)
{
    CElementRects rects;
    if (!hit.row || !ElementRects(hit.row, hit.column, &rects)) {
        return GCEL_NONE;
    }
    return hitElement(rects, point);
}

void KGridCtrl::PrivateData::Repaint()
{
    if (grid) {
        grid->update();
    }
}

void KGridCtrl::PrivateData::Repaint(QRect const & rect)
{
    if (grid) {
        grid->update(rect);
    }
}

// A widget that drops the request, since it is hidden or takes no updates, is painted as a whole
// anyway when that ends.
void KGridCtrl::PrivateData::InvalidateAll()
{
    if (!allInvalid) {
        allInvalid = true;
        Repaint();
    }
}

// While the order waits for its rebuild nothing is known of where a row is; the rebuild that the
// next paint makes lays out all rows anew, so all is painted.
bool KGridCtrl::PrivateData::isPaintedAnyway()
{
    if (shown && !allInvalid && IsDirty()) {
        InvalidateAll();
    }
    return !shown || allInvalid;
}

void KGridCtrl::PrivateData::InvalidateRow(IGCRow * row)
{
    if (isPaintedAnyway()) {
        return;
    }
    if (QRect rect = RowRect(row); !rect.isNull()) {
        rect.setLeft(-hScrollPos);
        rect.setRight(contentsWidth - hScrollPos);
        Repaint(rect);
    }
}

void KGridCtrl::PrivateData::InvalidateItem(IGCRow * row, CGCColumn * column)
{
    if (isPaintedAnyway()) {
        return;
    }
    if (QRect const rect = ItemRect(row, column); !rect.isNull() && IsOnDisplay(column)) {
        Repaint(rect.adjusted(0, 0, -1, 0));
    }
}

void KGridCtrl::PrivateData::InvalidateColumn(CGCColumn * column)
{
    if (ShownIndexOf(column) == -1) {
        return;
    }
    QRect rect = ClientRect();
    rect.setLeft(column->left - hScrollPos);
    rect.setRight(ViewRightOf(column) - 1);
    Repaint(rect);
}

// Every row of the order is laid out, whether it is on display or not. The application is asked for
// texts on the way and may change the grid.
int KGridCtrl::PrivateData::BestFit(tag_HCOLUMN * handle)
{
    if (!Settle()) {
        return 0;
    }
    CDrawContext const context = DrawContext();
    RowPath path;
    unsigned version = treeVersion;
    int const count = GetCount();
    int widest = 0;
    for (int i = 0; i < count; ++i) {
        CGCColumn * const column = Settle() ? columns.find(handle) : nullptr;
        IGCRow * const row = GetRowAt(i);
        if (!column || !row) {
            break;
        }
        if (std::exchange(version, treeVersion) != treeVersion) {
            path = RowPath();
        }
        path.enter(row);
        CGetRowElementPos visitor(context, false, column, 0, ViewHeightAt(i));
        visitor.setLevel(path.level());
        row->Accept(&visitor);
        CElementRects const & rects = visitor.result();
        int const width = rects.leadRect.width() + rects.fullTextRect.width() +
                          rects.textRect.left() + 2 - column->left;
        widest = std::max(widest, width);
    }
    return widest;
}

} // namespace zenu
