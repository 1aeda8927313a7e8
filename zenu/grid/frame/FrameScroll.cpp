#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/inner/SaturatedInt.h"

#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace zenu {

namespace {

constexpr int wheelStep = 120; // eighths of a degree a line
int wheelSum = 0;              // over all grids: there is one wheel

void setBar(QScrollBar * bar, int maximum, int pageStep, int value)
{
    if (bar->minimum() != 0) {
        bar->setMinimum(0);
    }
    if (bar->maximum() != maximum) {
        bar->setMaximum(maximum);
    }
    bar->setPageStep(std::max(pageStep, 0));
    if (bar->value() != value) {
        bar->setValue(value);
    }
}

} // namespace

// The bar counts pixels, though the grid scrolls by whole rows.
void KGridCtrl::PrivateData::UpdateVerticalBar()
{
    if (!Settle()) {
        return;
    }
    QScopedValueRollback<bool> const quiet(updatingBars, true);
    QRect const client = ClientRect();
    int const page = client.bottom() - client.top();
    long long const range = static_cast<long long>(GetTotalHeight()) + headerHeight - page;
    setBar(grid->getVScrollBar(), saturated(std::max(range, 0LL)), page - headerHeight, GetTopY());
}

void KGridCtrl::PrivateData::UpdateHorizontalBar()
{
    if (!grid) {
        return;
    }
    QScopedValueRollback<bool> const quiet(updatingBars, true);
    QRect const client = ClientRect();
    int const page = client.right() - client.left();
    setBar(grid->getHScrollBar(), std::max(contentsWidth - page - 1, 0), page, hScrollPos);
}

void KGridCtrl::PrivateData::LayOutBars()
{
    if (!grid || (grid->getVScrollBarMode() != AsNeeded && grid->getHScrollBarMode() != AsNeeded)) {
        return;
    }
    QRect const before = ClientRect();
    grid->contentsSizeChanged();
    if (grid && ClientRect() != before) {
        FitToClient();
    }
}

void KGridCtrl::PrivateData::FitToClient()
{
    if (contentsWidth - hScrollPos < ClientRect().right()) {
        hScrollPos = std::max(contentsWidth - ClientRect().right(), 0);
        Repaint();
    }
    PlaceHeader();
    UpdateHorizontalBar();
    if (!IsEmpty()) {
        SetTop(GetTopIndex());
    }
    UpdateVerticalBar();
}

// The last row on display that is whole.
int KGridCtrl::PrivateData::lastWholeIndex()
{
    int const last = GetLastShownIndex();
    bool const isCut = ViewTopOf(last) + ViewHeightAt(last) > ClientRect().bottom();
    return last > 0 && last < GetCount() && isCut ? last - 1 : last;
}

int KGridCtrl::PrivateData::targetTop(int code, unsigned pos, int top)
{
    int const finalRow = GetCount() - 1;
    switch (code) {
    case ScrollLineBack:
        return std::max(top - 1, 0);
    case ScrollPageBack:
        return FirstIndexForBottom(std::max(top - 1, 0));
    case ScrollPageForward: {
        int const next = std::min(lastWholeIndex() + 1, finalRow);
        return next + VisibleCountFrom(next) > finalRow ? FirstIndexForBottom(finalRow) : next;
    }
    case ScrollLineForward:
        return FirstIndexForBottom(std::min(lastWholeIndex() + 1, finalRow));
    case ScrollToEnd:
        return FirstIndexForBottom(finalRow);
    case ScrollToPosition:
    case ScrollThumb:
        if (static_cast<long long>(pos) < grid->getVScrollBar()->maximum() - 1LL) {
            return RowUnderY(static_cast<int>(pos));
        }
        return FirstIndexForBottom(finalRow);
    case ScrollToBegin:
        return 0;
    default:
        return top;
    }
}

int KGridCtrl::PrivateData::targetLeft(int code, unsigned pos) const
{
    QScrollBar const * const bar = grid->getHScrollBar();
    long long const left = hScrollPos;
    switch (code) {
    case ScrollLineBack:
        return saturated(left - hScrollDelta);
    case ScrollPageBack:
        return hScrollPos - bar->pageStep();
    case ScrollPageForward:
        return saturated(left + bar->pageStep());
    case ScrollLineForward:
        return saturated(left + hScrollDelta);
    case ScrollToEnd:
        return bar->maximum() - bar->pageStep();
    case ScrollToPosition:
    case ScrollThumb:
        return saturated(pos);
    case ScrollToBegin:
        return 0;
    default:
        return hScrollPos;
    }
}

bool KGridCtrl::PrivateData::wouldScroll(int hCode, int vCode, int newLeft, int newTop)
{
    bool const vertical = !IsEmpty() && newTop != GetTopIndex();
    long long const right = static_cast<long long>(newLeft) + ClientRect().right();
    bool const horizontal = right <= contentsWidth;
    if (hCode == ScrollNothing) {
        return vCode != ScrollNothing && vertical;
    }
    if (vCode == ScrollNothing) {
        return horizontal;
    }
    return vertical && newLeft >= 0 && horizontal;
}

bool KGridCtrl::PrivateData::Scroll(int hCode, int vCode, unsigned pos, bool doScroll)
{
    if (!Settle()) {
        return false;
    }
    int const top = GetTopIndex();
    int newLeft = targetLeft(hCode, pos);
    int newTop = IsEmpty() ? top : targetTop(vCode, pos, top);
    if (!doScroll) {
        return wouldScroll(hCode, vCode, newLeft, newTop);
    }
    newTop = std::clamp(newTop, 0, std::max(GetCount() - 1, 0));
    newLeft = std::clamp(newLeft, 0, std::max(grid->getHScrollBar()->maximum() - 1, 0));
    if (newTop != top || newLeft != hScrollPos) {
        ScrollTo(newLeft, newTop);
    }
    return true;
}

// Copies of callback texts are kept only while their row is on display.
void KGridCtrl::PrivateData::freeTextsLeaving(int newTop)
{
    int const oldTop = GetTopIndex();
    int const oldPast = std::min(oldTop + GetShownCount(), GetCount());
    int const newPast = newTop + VisibleCountFrom(newTop);
    for (int i = oldTop; i < std::min(newTop, oldPast); ++i) {
        GetRowAt(i)->FreeGarbage(columns);
    }
    for (int i = std::max(newPast, oldTop); i < oldPast; ++i) {
        GetRowAt(i)->FreeGarbage(columns);
    }
}

// The pixels of a child that stays where it is, as an open editor does, move along with the others:
// it is painted anew, and so is the place where they went.
void KGridCtrl::PrivateData::scrollPixels(int dx, int dy, QRect const & area)
{
    grid->scroll(dx, dy, area);
    for (QObject * const child : grid->children()) {
        auto const * const widget = qobject_cast<QWidget *>(child);
        if (widget && widget->isVisible() && !widget->isWindow()) {
            QRect const moved = widget->geometry() & area;
            grid->update(moved);
            grid->update(moved.translated(dx, dy) & area);
        }
    }
}

// Moves the pixels of the rows that stay and repaints the strip where rows come in. With
// GCS_WHOLEROWS the display ends in a blank strip, so what lies below the old last row is painted
// as well.
void KGridCtrl::PrivateData::scrollRows(int newTop)
{
    newTop = std::min(newTop, FirstIndexForBottom(GetCount() - 1));
    if (newTop == GetTopIndex()) {
        return;
    }
    freeTextsLeaving(newTop);
    int const oldLast = GetLastShownIndex();
    long long const oldY = TopPosition();
    SetTop(newTop);
    QRect const client = ClientRect();
    QRect const area(0, headerHeight, client.width(), client.bottom() + 1 - headerHeight);
    long long const dy = oldY - TopPosition();
    if (dy == 0 || inPaint) {
        Repaint(area); // a callback of the paint that runs: there is no picture to move yet
    } else if (std::llabs(dy) < area.height()) {
        scrollPixels(0, static_cast<int>(dy), area);
        int const common = std::min(oldLast, GetLastShownIndex());
        int const below = ViewTopOf(common) + ViewHeightAt(common);
        if (below <= client.bottom()) {
            Repaint(QRect(QPoint(0, std::max(below, headerHeight)), client.bottomRight()));
        }
    } else {
        Repaint(area);
    }
    UpdateVerticalBar();
}

void KGridCtrl::PrivateData::scrollColumns(int newLeft)
{
    QRect const client = ClientRect();
    QRect const area(0, headerHeight, client.width(), client.bottom() + 1 - headerHeight);
    long long const dx = static_cast<long long>(hScrollPos) - newLeft;
    hScrollPos = newLeft;
    if (std::llabs(dx) < area.width() && !inPaint) {
        scrollPixels(static_cast<int>(dx), 0, area);
    } else {
        Repaint(area);
    }
    PlaceHeader();
    UpdateHorizontalBar();
}

// False when the application refused.
bool KGridCtrl::PrivateData::ScrollTo(int newLeft, int newTop)
{
    RowGuard const guard(this, nullptr);
    IGCRow const * const row = GetRowAt(newTop);
    if (notification && !notification->OnScrolling(row ? row->Handle() : nullptr)) {
        return false;
    }
    if (!Settle()) {
        return false;
    }
    LeaveHover(); // while it stands where the mouse found it
    if (!IsEmpty() && newTop != GetTopIndex()) {
        scrollRows(std::max(newTop, 0));
    }
    if (newLeft != hScrollPos) {
        scrollColumns(newLeft);
    }
    if (notification) {
        notification->OnScrolled();
    }
    return true;
}

void KGridCtrl::PrivateData::EnsureRowVisible(IGCRow * row)
{
    RowGuard const guard(this, row);
    UpdateNow();
    int const index = guard.hasRow() ? IndexOf(row) : -1;
    if (index == -1) {
        return;
    }
    if (index >= GetLastShownIndex()) {
        ScrollTo(hScrollPos, FirstIndexForBottom(index));
    } else if (index < GetTopIndex()) {
        ScrollTo(hScrollPos, index);
    }
}

void KGridCtrl::PrivateData::EnsureColumnVisible(CGCColumn * column)
{
    if (!column || ShownIndexOf(column) == -1) {
        return;
    }
    QRect const view = ClientRect().translated(hScrollPos, 0);
    int const width = view.right() - view.left();
    int const left = column->left;
    if (column->Right() > view.right() && column->width < width) {
        int const newLeft = column->Right() - width;
        ScrollTo(newLeft, GetTopIndex());
    } else if (left < view.left()) {
        ScrollTo(left, GetTopIndex());
    }
}

void KGridCtrl::PrivateData::Resized(QResizeEvent * event)
{
    if (!Settle()) {
        return;
    }
    int const width = event->size().width();
    int const height = event->size().height();
    if (width >= contentsWidth) {
        if (hScrollPos > 0) {
            hScrollPos = 0;
            Repaint();
        }
    } else if (contentsWidth - hScrollPos < width) {
        hScrollPos = contentsWidth - width;
        Repaint();
    }
    PlaceHeader();
    UpdateHorizontalBar();
    if (!IsEmpty()) {
        int const top = GetTopIndex();
        int const count = VisibleCountFrom(top);
        bool const atEnd = GetLastShownIndex() >= GetCount() - 1 && count >= GetShownCount();
        if (top != 0 && (atEnd || VisibleCountFrom(0) > count)) {
            SetTop(FirstIndexForBottom(GetCount() - 1));
            Repaint();
        } else {
            int const common = std::min(GetLastShownIndex(), top + count - 1);
            if (common >= 0 && common < GetCount()) {
                int const below = ViewTopOf(common) + ViewHeightAt(common);
                Repaint(QRect(0, below, width + 1, height + 1));
            } else {
                Repaint();
            }
            SetShownCount(count);
        }
    }
    UpdateVerticalBar();
}

void KGridCtrl::PrivateData::Wheel(int delta)
{
    wheelSum += delta;
    if (std::abs(wheelSum) < wheelStep) {
        return;
    }
    int const code = wheelSum < 1 ? ScrollLineForward : ScrollLineBack;
    wheelSum = 0;
    Scroll(ScrollNothing, code, 0, true);
}

} // namespace zenu
