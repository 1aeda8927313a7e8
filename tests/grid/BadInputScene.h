#pragma once

#include "tests/grid/GridFixture.h"

#include <array>

namespace zenutest {

inline QString hex(void const * pointer)
{
    return QString::number(reinterpret_cast<quintptr>(pointer), 16);
}

inline zenu::tag_HROW * rowHandle(quintptr value)
{
    return reinterpret_cast<zenu::tag_HROW *>(value);
}

inline zenu::tag_HCOLUMN * columnOf(qintptr value)
{
    return reinterpret_cast<zenu::tag_HCOLUMN *>(value);
}

// All that a grid tells of a row: the record, the title, the item of each column.
inline QString describeRow(zenu::KGridCtrl const & grid, zenu::tag_HROW * row,
                           std::vector<zenu::tag_HCOLUMN *> const & columns)
{
    char text[64] = {};
    zenu::GC_SECTION record;
    record.mask = zenu::GCRM_TOP | zenu::GCRM_SECTIONTEXT;
    record.text = text;
    record.textMax = sizeof text - 1;
    grid.GetSection(row, &record);
    QStringList parts{QStringLiteral("row %1 under %2 state %3 top %4 height %5 param %6")
                          .arg(hex(row), hex(record.parent))
                          .arg(record.state)
                          .arg(record.top)
                          .arg(grid.GetPriv().GetRowHeight(grid.GetPriv().LocateRow(row)))
                          .arg(record.param),
                      record.textColor.name(), record.bkColor.name(), QLatin1String(text)};
    for (zenu::tag_HCOLUMN * const column : columns) {
        char buffer[64] = {};
        zenu::GC_ITEM item;
        item.mask = zenu::GCIM_TEXT | zenu::GCIM_STATE | zenu::GCIM_IMAGE;
        item.text = buffer;
        item.textMax = sizeof buffer - 1;
        grid.GetItem(row, column, &item);
        parts << QStringLiteral("%1:%2,%3,%4,%5")
                     .arg(QLatin1String(buffer))
                     .arg(item.state)
                     .arg(item.value)
                     .arg(item.image)
                     .arg(item.textColor.name());
    }
    return parts.join(u' ');
}

inline QString describeColumn(zenu::KGridCtrl const & grid, zenu::tag_HCOLUMN * column)
{
    char title[64] = {};
    zenu::GC_COLUMN record;
    record.mask = zenu::GCCM_TEXT;
    record.text = title;
    record.textMax = sizeof title - 1;
    grid.GetColumn(column, &record);
    return QStringLiteral("column %1 %2 kind %3 flags %4 format %5 width %6 order %7 item %8")
        .arg(hex(column), QLatin1String(title))
        .arg(record.kind)
        .arg(record.flags)
        .arg(record.format)
        .arg(record.width)
        .arg(record.order)
        .arg(grid.Column2HeaderItem(column));
}

// What an application can read of a grid, a line a thing: rows, columns, selection, focus, look.
inline QStringList snapshot(TestGrid const & grid)
{
    std::vector<zenu::tag_HCOLUMN *> columns(static_cast<std::size_t>(grid.GetColumnsCount()));
    grid.GetColumnOrderArray(columns.data(), grid.GetColumnsCount());
    QStringList lines;
    for (zenu::tag_HCOLUMN * const column : columns) {
        lines << describeColumn(grid, column);
    }
    QStringList order;
    for (auto row = grid.begin(zenu::GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
        order << hex(*row);
    }
    lines << QStringLiteral("order ") + order.join(u' ');
    QStringList selected;
    for (auto row = grid.begin(zenu::GCN_SELECTED_FIRST); row != grid.end(); ++row) {
        selected << hex(*row);
    }
    selected.sort();
    lines << QStringLiteral("selected ") + selected.join(u' ');
    lines << QStringLiteral("focus %1/%2 place %3")
                 .arg(hex(grid.GetNextRow(zenu::GCN_FOCUSED)), hex(grid.GetFocusedColumn()),
                      grid.place());
    lines << QStringLiteral("styles %1 height %2 indent %3 delta %4 contents %5 x %6")
                 .arg(grid.GetExStyle())
                 .arg(grid.GetDefaultHeight())
                 .arg(grid.GetIndent())
                 .arg(grid.GetHScrollDelta())
                 .arg(grid.contentsWidth())
                 .arg(grid.contentsHeight());
    for (int number = 1; number <= zenu::GCC_COUNT; ++number) {
        lines << QStringLiteral("colour %1 %2").arg(number).arg(grid.GetColor(number).name());
    }
    for (int list = zenu::GCIL_NORMAL; list <= zenu::GCIL_STATE; ++list) {
        lines << QStringLiteral("images %1 %2").arg(list).arg(hex(grid.GetImageList(list)));
    }
    for (auto row = grid.begin(zenu::GCN_ALL_FIRST); row != grid.end(); ++row) {
        lines << describeRow(grid, *row, columns);
    }
    return lines;
}

// The lines of two snapshots that differ; empty when they are the same.
inline QString difference(QStringList const & before, QStringList const & after)
{
    QStringList lines;
    for (QString const & line : before) {
        if (!after.contains(line)) {
            lines << QStringLiteral("was: ") + line;
        }
    }
    for (QString const & line : after) {
        if (!before.contains(line)) {
            lines << QStringLiteral("is: ") + line;
        }
    }
    return lines.join(u'\n');
}

// What a failed read leaves as it was.
constexpr int untouched = 4711;
inline QRect const markedRect(1, 2, 3, 4);

inline zenu::GC_ITEM markedItem()
{
    zenu::GC_ITEM item;
    item.mask = zenu::GCIM_STATE | zenu::GCIM_VALUE | zenu::GCIM_IMAGE | zenu::GCIM_TEXTLEN;
    item.value = untouched;
    item.state = untouched;
    item.image = untouched;
    return item;
}

inline bool isMarked(zenu::GC_ITEM const & item)
{
    return item.value == untouched && item.state == untouched && item.image == untouched;
}

inline zenu::GC_SECTION markedRow(unsigned mask)
{
    zenu::GC_SECTION record;
    record.mask = mask;
    record.height = untouched;
    record.param = untouched;
    record.state = untouched;
    record.parent = zenu::GC_ROOT;
    return record;
}

inline bool isMarked(zenu::GC_ROW const & record)
{
    return record.height == untouched && record.param == untouched && record.state == untouched;
}

// A shown grid with a column of each kind, every class of row, a selection and a focus; and
// handles of rows that are not its own.
struct BadInputScene
{
    static constexpr int kinds = 8;

    SlimTree source;
    TestGrid grid{zenu::GCS_VERTLINES | zenu::GCS_HORZLINES};
    TestGrid other;
    std::unique_ptr<Notes> notes;
    std::array<zenu::tag_HCOLUMN *, kinds> columns{}; // by kind; the column of id 0 was deleted
    zenu::tag_HROW * parent = nullptr;
    zenu::tag_HROW * child = nullptr;
    zenu::tag_HROW * section = nullptr;
    zenu::tag_HROW * slim = nullptr;
    zenu::tag_HROW * slimChild = nullptr;
    zenu::tag_HROW * lonely = nullptr;
    zenu::tag_HROW * stale = nullptr;     // deleted
    zenu::tag_HROW * staleSlim = nullptr; // its parent was reset
    zenu::tag_HROW * foreign = nullptr;   // of the other grid

    BadInputScene()
    {
        grid.SetSlimGridCallback(&source);
        grid.DeleteColumn(grid.addKind(zenu::GCCK_TEXT));
        for (int kind = 0; kind < kinds; ++kind) {
            columns[static_cast<std::size_t>(kind)] = grid.addKind(
                kind, 60 + kind, kind == 0 ? zenu::GCCF_TREE | zenu::GCCF_TREELINES : 0U);
        }
        addRows();
        other.addColumns({50});
        foreign = other.add("foreign");
    }
    ~BadInputScene()
    {
        grid.setNotification(nullptr);
        grid.SetSlimGridCallback(nullptr);
    }

    zenu::tag_HCOLUMN * text() const { return columns[zenu::GCCK_TEXT]; }

    bool show()
    {
        bool const shown = grid.showSized(300, 240);
        notes = std::make_unique<Notes>(&grid);
        return shown;
    }

private:
    void addRows()
    {
        parent = grid.add("parent");
        child = grid.add("child", parent);
        grid.add("second", parent);
        section = grid.InsertSection(nullptr, zenu::GCI_FIRST);
        zenu::GC_SECTION title;
        title.mask = zenu::GCRM_SECTIONTEXT;
        title.text = const_cast<char *>("Section");
        grid.SetSection(section, &title);
        source.tree = {{1, {10, 11}}, {2, {20}}};
        source.lonely = {10, 11, 20};
        slim = grid.InsertSlimRow(1, true, zenu::GC_ROOT, zenu::GCI_LAST);
        grid.Expand(slim, zenu::GCE_EXPAND);
        slimChild = grid.GetNextRow(zenu::GCN_CHILD_FIRST, slim);
        lonely = grid.InsertSlimRow(3, false, zenu::GC_ROOT, zenu::GCI_LAST, 31);
        zenu::tag_HROW * const reset = grid.InsertSlimRow(2, true, zenu::GC_ROOT, zenu::GCI_LAST);
        grid.Expand(reset, zenu::GCE_EXPAND);
        staleSlim = grid.GetNextRow(zenu::GCN_CHILD_FIRST, reset);
        grid.ResetSlimRow(reset);
        source.tree.erase(2);
        stale = grid.add("stale");
        grid.addMany(20);
        grid.DeleteRow(stale);
        grid.SetRowHeight(child, 33);
        grid.SetRowSel(child, true);
        grid.SetRowSel(lonely, true);
        grid.UpdateVisibleRows();
    }
};

// Makes a grid lay out, scroll, hit and paint all it has.
inline void exercise(TestGrid & grid)
{
    grid.UpdateVisibleRows();
    for (int code = -1; code < 9; ++code) {
        for (bool const doScroll : {false, true}) {
            grid.OnScroll(-1, code, 500, doScroll);
            grid.OnScroll(code, -1, 500, doScroll);
        }
        settle();
    }
    std::vector<zenu::tag_HCOLUMN *> columns(static_cast<std::size_t>(grid.GetColumnsCount()));
    grid.GetColumnOrderArray(columns.data(), grid.GetColumnsCount());
    for (zenu::tag_HCOLUMN * const column : columns) {
        grid.BestFit(column);
    }
    std::vector<zenu::tag_HROW *> rows;
    for (auto row = grid.begin(zenu::GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
        rows.push_back(*row);
    }
    QRect rect;
    for (zenu::tag_HROW * const row : rows) {
        grid.GetRowRect(row, &rect);
        grid.InvalidateRow(row);
        for (zenu::tag_HCOLUMN * const column : columns) {
            grid.GetItemRect(row, column, &rect);
            grid.GetItemEditorRect(row, column, &rect);
            grid.GetItemTextLen(row, column);
            grid.InvalidateItem(row, column);
            grid.EnsureVisible(row, column);
        }
    }
    for (int y = -20; y < grid.height() + 20; y += 13) {
        for (int x = -20; x < grid.width() + 20; x += 17) {
            zenu::GC_ITEM item;
            item.mask = ~0U;
            grid.HitTest(QPoint(x, y), &item);
        }
    }
    settle();
}

} // namespace zenutest
