#pragma once

#include "tests/grid_random/Player.h"

namespace gridrandom {

inline void Player::check()
{
    start(0);
    ++checkCount;
    grid->UpdateVisibleRows();
    ref.settle();
    compareTree(ref.root, zenu::GC_ROOT);
    nameRows();
    grid->UpdateVisibleRows();
    ref.settle();
    compareEvents();
    if (ref.loose) {
        adoptOrder();
    }
    compareCounts();
    compareWalks();
    ref.forEachRow(ref.root, [&](ReferenceRow & row) { compareRow(row); });
    compareItems();
    compareColumns();
    compareScrolling();
    compareEdit();
}

// Looking at the children of a row may load them, in both.
inline void Player::compareTree(ReferenceRow & under, tag_HROW * parent)
{
    tag_HROW * row = grid->GetNextRow(zenu::GCN_CHILD_FIRST, parent);
    sameRow("the first child of ", parent, {row, ref.nextRow(zenu::GCN_CHILD_FIRST, parent)});
    nameRows();
    for (std::size_t i = 0; i < under.children.size(); ++i) {
        ReferenceRow & child = *under.children[i];
        sameRow("a child of ", parent, {row, child.handle});
        sameRow("the parent of ", row, {grid->GetNextRow(zenu::GCN_PARENT, row), parent});
        sameRow("the visible parent of ", row,
                {grid->GetNextRow(zenu::GCN_VISIBLE_PARENT, row),
                 ref.nextRow(zenu::GCN_VISIBLE_PARENT, row)});
        compareTree(child, row);
        tag_HROW * const before = grid->GetNextRow(zenu::GCN_CHILD_PREV, row);
        sameRow("the sibling before ", row, {before, ref.nextRow(zenu::GCN_CHILD_PREV, row)});
        tag_HROW * const next = grid->GetNextRow(zenu::GCN_CHILD_NEXT, row);
        sameRow("the sibling after ", row, {next, ref.nextRow(zenu::GCN_CHILD_NEXT, row)});
        row = next;
    }
    sameRow("past the children of ", parent, {row, nullptr});
}

inline void Player::compareWalk(char const * what, unsigned first,
                                std::vector<tag_HROW *> const & wanted)
{
    tag_HROW * row = grid->GetNextRow(first);
    sameRow(what, nullptr, {row, ref.nextRow(first, nullptr)});
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        sameRow(what, nullptr, {row, wanted[i]});
        tag_HROW * const next = grid->GetNextRow(first + 1, row);
        sameRow(what, row, {next, ref.nextRow(first + 1, row)});
        row = next;
    }
    sameRow(what, nullptr, {row, nullptr});
}

inline void Player::compareWalks()
{
    std::vector<tag_HROW *> visible;
    for (ReferenceRow const * row : ref.order) {
        visible.push_back(row->handle);
    }
    auto const top = visible.begin() + ref.topIndexStored;
    std::vector<tag_HROW *> const shown(top, std::min(top + ref.shownCount, visible.end()));
    compareWalk("the walk over visible rows, at ", zenu::GCN_VISIBLE_FIRST, visible);
    compareWalk("the walk over rows on display, at ", zenu::GCN_SHOWN_FIRST, shown);
    compareWalk("the walk over selected rows, at ", zenu::GCN_SELECTED_FIRST,
                {ref.selection.begin(), ref.selection.end()});
    compareWalk("the walk over all rows, at ", zenu::GCN_ALL_FIRST, ref.allRows());
    sameRow("the focused row", nullptr,
            {grid->GetNextRow(zenu::GCN_FOCUSED), ref.nextRow(zenu::GCN_FOCUSED, nullptr)});
    sameRow("the root", nullptr, {grid->GetNextRow(zenu::GCN_ROOT), zenu::GC_ROOT});
}

inline void Player::compareCounts()
{
    same("GetRowCount", {grid->GetRowCount(), static_cast<long long>(ref.live.size())});
    same("GetExpandedCount", {grid->GetExpandedCount(), static_cast<long long>(ref.order.size())});
    same("GetVisibleCount", {grid->GetVisibleCount(), ref.shownCount});
    same("GetSelectedCount",
         {grid->GetSelectedCount(), static_cast<long long>(ref.selection.size())});
    same("the anchor", {grid->GetPriv().anchorIndex, ref.anchor});
    same("GetFocusedColumn", {Recorder::idOf(grid->GetFocusedColumn()), ref.focusedColumnId()});
}

inline void Player::compareRow(ReferenceRow & row)
{
    auto const is = [&](char const * what, Numbers const & numbers) {
        if (numbers.real != numbers.wanted) {
            fail(QStringLiteral("%1 of %2 is %3, not %4")
                     .arg(QLatin1String(what), nameOf(row.handle))
                     .arg(numbers.real)
                     .arg(numbers.wanted));
        }
    };
    int const index = ref.indexOf(&row);
    bool const ordinary = !row.isSlim();
    char title[32] = "as it was";
    GC_SECTION record;
    record.mask = zenu::GCRM_TOP; // the same bit as the title's
    record.text = title;
    record.textMax = sizeof title;
    record.height = -77;
    is("GetSection", {grid->GetSection(row.handle, &record), ordinary});
    is("the state", {record.state, ref.stateOf(row)});
    sameRow("the parent in the record of ", row.handle,
            {record.parent, row.parent ? row.parent->handle : zenu::GC_ROOT});
    is("top", {record.top, index == -1 ? 0 : ref.topOf(index)});
    is("height", {record.height, row.rowClass == RowClass::Slim ? -77 : ref.heightOf(&row)});
    is("param", {static_cast<long long>(record.param), static_cast<long long>(row.param)});
    is("text colour", {record.textColor.rgb(), row.textColor});
    is("background", {record.bkColor.rgb(), row.bkColor});
    bool const isSection = row.rowClass == RowClass::Section;
    if (title != (isSection ? row.title.value_or("") : std::string("as it was"))) {
        fail(QStringLiteral("the title of %1 is \"%2\"")
                 .arg(nameOf(row.handle), QLatin1String(title)));
    }
    is("GetRowParam",
       {static_cast<long long>(grid->GetRowParam(row.handle)), static_cast<long long>(row.param)});
    int const height = index == -1 ? 0 : ref.heightOf(&row);
    is("GetRowHeight", {static_cast<int>(grid->GetRowHeight(row.handle)), height});
    QRect rect;
    is("GetRowRect", {grid->GetRowRect(row.handle, &rect), true});
    QRect const client = ref.around.client;
    long long const top =
        index == -1 ? 0 : ref.topOf(index) - ref.topPosition() + ref.around.headerHeight;
    QRect const wanted =
        index == -1 ? QRect() : QRect(client.left(), static_cast<int>(top), client.width(), height);
    if (rect != wanted) {
        fail(QStringLiteral("the rectangle of %1 is from %2 to %3, not from %4 to %5")
                 .arg(nameOf(row.handle))
                 .arg(rect.top())
                 .arg(rect.bottom())
                 .arg(wanted.top())
                 .arg(wanted.bottom()));
    }
    sameRow("the visible row before ", row.handle,
            {grid->GetNextRow(zenu::GCN_VISIBLE_PREV, row.handle),
             ref.nextRow(zenu::GCN_VISIBLE_PREV, row.handle)});
}

inline void Player::compareItem(ReferenceRow const & row, int columnId, unsigned mask)
{
    char realText[64] = "as it was";
    char wantedText[64] = "as it was";
    GC_ITEM real;
    real.mask = mask;
    real.value = -77;
    real.image = -77;
    real.textColor = QColor::fromRgb(0xff123456U);
    GC_ITEM wanted = real;
    real.text = realText;
    wanted.text = wantedText;
    real.textMax = wanted.textMax = sizeof realText;
    bool const answer = grid->GetItem(row.handle, column(columnId), &real);
    bool const kept = (real.state & zenu::GCIS_CACHEDTEXT) != 0;
    bool const wantedAnswer = ref.getItem(row, columnId, wanted, kept);
    auto const is = [&](char const * what, Numbers const & numbers) {
        if (numbers.real != numbers.wanted) {
            fail(QStringLiteral("%1 of the item of %2 in column %3 (mask 0x%4) is %5, not %6")
                     .arg(QLatin1String(what), nameOf(row.handle))
                     .arg(columnId)
                     .arg(mask, 0, 16)
                     .arg(numbers.real)
                     .arg(numbers.wanted));
        }
    };
    is("the answer", {answer, wantedAnswer});
    is("the kept text", {kept && !row.mayKeepTexts, false});
    is("the state", {real.state & ~16U, wanted.state});
    is("the value", {real.value, wanted.value});
    is("the image", {real.image, wanted.image});
    is("the colour", {real.textColor.rgb(), wanted.textColor.rgb()});
    is("the text's comparison", {std::memcmp(realText, wantedText, sizeof realText), 0});
}

// One column at a time, all rows: the next time it is another column and other parts.
inline void Player::compareItems()
{
    if (ref.columns.empty()) {
        return;
    }
    int const columnId = ref.columns[checkCount % ref.columns.size()].id;
    constexpr unsigned masks[] = {zenu::GCIM_TEXTLEN, zenu::GCIM_ALIGN | zenu::GCIM_IMAGE,
                                  zenu::GCIM_STATEIMAGE, zenu::GCIM_CHECKSTYLE, 0};
    ref.forEachRow(ref.root, [&](ReferenceRow & row) {
        compareItem(row, columnId, zenu::GCIM_TEXT | zenu::GCIM_OVERLAY);
        compareItem(row, columnId, masks[checkCount / 3 % std::size(masks)]);
        std::string const text = grid->GetItemText(row.handle, column(columnId));
        std::string const wanted = ref.textOf(row, columnId).value_or("");
        if (text != wanted) {
            fail(QStringLiteral("the text of %1 in column %2 is \"%3\", not \"%4\"")
                     .arg(nameOf(row.handle))
                     .arg(columnId)
                     .arg(QLatin1String(text.c_str()), QLatin1String(wanted.c_str())));
        }
        same("GetItemTextLen", {grid->GetItemTextLen(row.handle, column(columnId)),
                                static_cast<long long>(wanted.size())});
    });
}

inline void Player::compareColumns()
{
    same("GetColumnsCount", {grid->GetColumnsCount(), static_cast<long long>(ref.columns.size())});
    for (ReferenceColumn const & each : ref.columns) {
        char text[64] = "";
        GC_COLUMN record;
        record.mask = zenu::GCCM_TEXT;
        record.text = text;
        record.textMax = sizeof text;
        same("GetColumn", {grid->GetColumn(column(each.id), &record), true});
        same("a column's kind", {record.kind, each.toldKind});
        same("a column's flags", {record.flags, each.flags});
        same("a column's format", {record.format, each.format});
        same("a column's width", {record.width, each.width});
        same("a column's order", {record.order, each.order});
        same("GetColumnWidth", {grid->GetColumnWidth(column(each.id)), each.width});
        same("a title's comparison", {each.text.value_or("").compare(text), 0});
        auto const item = std::find(ref.headerItems.begin(), ref.headerItems.end(), each.id);
        bool const isThere = item != ref.headerItems.end();
        same("Column2HeaderItem", {grid->Column2HeaderItem(column(each.id)),
                                   isThere ? item - ref.headerItems.begin() : -1});
    }
    same("contentsWidth", {grid->contentsWidth(), ref.contentsWidth});
}

inline void Player::compareScrolling()
{
    int const last = ref.lastShown();
    int const count = static_cast<int>(ref.order.size());
    auto const rowAt = [&](int index) {
        return index < count ? ref.order[static_cast<std::size_t>(index)]->handle : nullptr;
    };
    sameRow("GetTopIndex", nullptr, {grid->GetTopIndex(), rowAt(ref.topIndex())});
    sameRow("GetBottomIndex", nullptr, {grid->GetBottomIndex(), rowAt(last)});
    same("contentsHeight", {grid->contentsHeight(), ref.totalHeight + ref.around.headerHeight});
    same("the header's x", {grid->getHeader()->x(), ref.headerX});
    same("maximum of the vertical bar", {grid->getVScrollBar()->maximum(), ref.vBar.maximum});
    same("value of the vertical bar", {grid->getVScrollBar()->value(), ref.vBar.value});
    same("maximum of the horizontal bar", {grid->getHScrollBar()->maximum(), ref.hBar.maximum});
    same("value of the horizontal bar", {grid->getHScrollBar()->value(), ref.hBar.value});
    for (int const id : ref.shownColumns) {
        if (ReferenceRow const * const row = count ? ref.order.front() : nullptr) {
            QRect rect;
            grid->GetItemRect(row->handle, column(id), &rect);
            ReferenceColumn const & each = *ref.column(id);
            same("the left of a cell", {rect.left(), each.left - ref.hScrollPos});
            same("the right of a cell", {rect.right(), each.left + each.width - ref.hScrollPos});
        }
    }
}

} // namespace gridrandom
