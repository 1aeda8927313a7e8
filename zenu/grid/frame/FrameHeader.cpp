#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/header/KHeader.h"

#include <utility>

namespace zenu {

namespace {

constexpr int headerText = 0x4000;   // the item draws its text
constexpr int headerFixed = 0x10;    // the item can't be resized
constexpr int headerArrows = 0x60;   // sort arrows: the application's, kept over rebuilds
constexpr int headerAlignment = 0x7; // bits of a column's format

int headerFormat(CGCColumn const & column)
{
    return headerText | (column.HasFlag(GCCF_FIXEDWIDTH) ? headerFixed : 0) |
           (column.format & headerAlignment);
}

} // namespace

int KGridCtrl::PrivateData::HeaderItemOf(CGCColumn const * column) const
{
    for (int i = 0; i < header->getItemsCount(); ++i) {
        if (header->getItem(i)->getLParam() == static_cast<unsigned>(column->id)) {
            return i;
        }
    }
    return -1;
}

void KGridCtrl::PrivateData::PlaceHeader()
{
    int const clientRight = ClientRect().right();
    if (clientRight > contentsWidth && hScrollPos != 0) {
        hScrollPos = 0;
        Repaint();
    }
    int right = contentsWidth;
    if (header->isProportional()) {
        right = clientRight;
    } else if (contentsWidth - hScrollPos < clientRight) {
        right = clientRight + hScrollPos;
    }
    QRect const wanted = header->getLayout(QRect(QPoint(0, 0), QPoint(right, 0)));
    int const height = wanted.bottom() - wanted.top();
    if (height != std::exchange(headerHeight, height) && !IsDirty() && !IsEmpty()) {
        SetTop(GetTopIndex()); // the page below it is another one now
    }
    header->applyGeometry(
        QRect(-hScrollPos, wanted.top(), wanted.right() - wanted.left(), headerHeight));
    header->update(true);
    if (header->isProportional()) {
        PlaceColumns(); // a header of another size has given its items other widths
        Repaint();
    }
}

// The header is thrown away and rebuilt from the shown columns; the sort arrows are kept by id.
void KGridCtrl::PrivateData::rebuildHeader()
{
    std::unordered_map<unsigned, int> arrows;
    header->blockControl(true);
    for (int i = 0; i < header->getItemsCount(); ++i) {
        KHeaderItem const * const item = header->getItem(i);
        arrows[item->getLParam()] = item->getFmt() & headerArrows;
    }
    header->deleteAllItems();
    for (CGCColumn const * const column : shownColumns) {
        auto const kept = arrows.find(static_cast<unsigned>(column->id));
        int const fmt = headerFormat(*column) | (kept == arrows.end() ? 0 : kept->second);
        header->insertItem(-1, KHeaderItem(column->Text() ? column->Text() : "", nullptr, fmt, 0,
                                           column->width, column->id));
    }
    header->blockControl(false);
}

// What has changed replaces all that the header's format held, so a new alignment takes the fixed
// bit and the sort arrows away, and a new fixed bit the alignment. Applications set them again.
void KGridCtrl::PrivateData::updateHeaderFormat(CGCColumn const * column, GC_COLUMN const * record)
{
    bool const formatChanged =
        (record->mask & GCCM_FORMAT) && (record->format & 0xffff) != (column->format & 0xffff);
    bool const flagsChanged =
        (record->mask & GCCM_FLAGS) && ((record->flags ^ column->flags) & GCCF_FIXEDWIDTH);
    if (formatChanged || flagsChanged) {
        int const fixed = flagsChanged ? static_cast<int>(record->flags & GCCF_FIXEDWIDTH) << 4 : 0;
        int const format = formatChanged ? record->format & 0xbfff : 0;
        header->setFormat(HeaderItemOf(column), headerText | fixed | format);
        header->update(false);
    }
}

void KGridCtrl::PrivateData::onLeftButtonDown()
{
    grid->setFocus();
}

void KGridCtrl::PrivateData::onRightButtonDown()
{
    grid->setFocus();
}

bool KGridCtrl::PrivateData::onBeginTrack(int, int *)
{
    return (gridExStyle & GCXS_HEADERDRAG) == 0;
}

// At each step of a divider drag; the header has the width already.
bool KGridCtrl::PrivateData::onTrack(int item, int *)
{
    KHeaderItem const * const headerItem = header->getItem(item);
    CGCColumn * const column =
        headerItem ? columns.find(static_cast<int>(headerItem->getLParam())) : nullptr;
    if (!column) {
        return false;
    }
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = headerItem->getWH();
    tag_HCOLUMN * const handle = column->Handle();
    RowGuard const guard(this, nullptr);
    SetColumn(column, &record, false);
    if (guard.hasGrid() && notification) {
        notification->OnColumnResized(handle, record.width);
    }
    if (guard.hasGrid()) {
        Repaint();
    }
    return false;
}

bool KGridCtrl::PrivateData::onEndTrack(int, int *)
{
    return false;
}

} // namespace zenu
