#pragma once

#include "zenu/grid/KGridCtrl.h"
#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSlimRow.h"
#include "zenu/header/KHeader.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QtTest/QtTest>

#include <algorithm>
#include <climits>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace zenutest {

// Turns the event loop until everything that is due has been painted.
inline void settle()
{
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::processEvents();
    }
}

// A grid that notes what it is told to paint.
class TestGrid : public zenu::KGridCtrl
{
public:
    explicit TestGrid(long style = 0)
        : KGridCtrl(nullptr, 0, nullptr, 0, style)
    {
    }

    QRegion painted; // since it was taken
    int paints = 0;

    QRegion takePainted()
    {
        settle();
        QRegion const taken = painted;
        painted = QRegion();
        return taken;
    }

    // Number of pixels.
    static int area(QRegion const & region)
    {
        int sum = 0;
        for (QRect const & rect : region) {
            sum += rect.width() * rect.height();
        }
        return sum;
    }

    bool showSized(int width, int height)
    {
        resize(width, height);
        setWindowFlag(Qt::FramelessWindowHint);
        move(0, 0);
        show();
        bool const exposed = QTest::qWaitForWindowExposed(this);
        settle();
        painted = QRegion();
        return exposed;
    }

    std::vector<zenu::tag_HCOLUMN *> addColumns(std::vector<int> const & widths)
    {
        std::vector<zenu::tag_HCOLUMN *> handles;
        for (int const width : widths) {
            QByteArray const title = "C" + QByteArray::number(GetColumnsCount());
            handles.push_back(AddColumn(title.constData(), 0, width));
        }
        return handles;
    }

    zenu::tag_HCOLUMN * addKind(int kind, int width = 100, unsigned flags = 0)
    {
        zenu::GC_COLUMN record;
        record.mask = zenu::GCCM_KIND | zenu::GCCM_WIDTH | zenu::GCCM_FLAGS;
        record.kind = kind;
        record.width = width;
        record.flags = flags;
        return AddColumn(&record);
    }

    // A row with a text in the first column, the row's name in dumps.
    zenu::tag_HROW * add(char const * text, zenu::tag_HROW * parent = zenu::GC_ROOT,
                         zenu::tag_HROW * after = zenu::GCI_LAST)
    {
        zenu::tag_HROW * const row = InsertRow(parent, after);
        if (row && GetColumnsCount() != 0) {
            SetItemText(row, firstColumn(), text);
        }
        return row;
    }

    std::vector<zenu::tag_HROW *> addMany(int count, zenu::tag_HROW * parent = zenu::GC_ROOT)
    {
        std::vector<zenu::tag_HROW *> rows;
        for (int i = 0; i < count; ++i) {
            rows.push_back(add(QByteArray::number(i).constData(), parent));
        }
        return rows;
    }

    zenu::tag_HCOLUMN * firstColumn() const { return GetPriv().columns.all()[0]->Handle(); }

    QString name(zenu::tag_HROW * row) const
    {
        if (!row) {
            return QStringLiteral("-");
        }
        if (row == zenu::GC_ROOT) {
            return QStringLiteral("root");
        }
        if (!GetPriv().LocateRow(row)) {
            return QStringLiteral("DEAD");
        }
        return GetColumnsCount() == 0
                   ? QStringLiteral("?")
                   : QString::fromLatin1(GetItemText(row, firstColumn()).c_str());
    }

    // The names of a walk that begins with a FIRST flag.
    QString walk(unsigned flags, zenu::tag_HROW * row = nullptr) const
    {
        QStringList names;
        for (auto at = begin(flags, row); at != end(); ++at) {
            names << name(*at);
        }
        return names.join(u' ');
    }
    QString order() const { return walk(zenu::GCN_VISIBLE_FIRST); }
    QString children(zenu::tag_HROW * row) const { return walk(zenu::GCN_CHILD_FIRST, row); }
    QString selected() const
    {
        QStringList names = walk(zenu::GCN_SELECTED_FIRST).split(u' ', Qt::SkipEmptyParts);
        names.sort();
        return names.join(u' ');
    }
    QString focus() const
    {
        zenu::tag_HCOLUMN * const column = GetFocusedColumn();
        return name(GetNextRow(zenu::GCN_FOCUSED)) + u'/' +
               (column == zenu::GC_NOCOLUMN ? QStringLiteral("-")
                                            : QString::number(reinterpret_cast<qintptr>(column)));
    }

    // "top +shown offset"
    QString place() const
    {
        zenu::KGridCtrl::PrivateData & frame = GetPriv();
        return QStringLiteral("%1 +%2 %3")
            .arg(frame.GetTopIndex())
            .arg(frame.GetShownCount())
            .arg(frame.hScrollPos);
    }

    int rowHeight() const { return GetDefaultHeight(); }
    int headerHeight() const { return GetPriv().headerHeight; }

protected:
    void paintEvent(QPaintEvent * event) override
    {
        ++paints;
        painted += event->region();
        KGridCtrl::paintEvent(event);
    }
};

// Writes down what a grid tells, answers and acts as a test says. A handle that is dead by then
// reads "DEAD".
class Notes : public zenu::IGridNotification
{
public:
    explicit Notes(TestGrid * told)
        : grid(told)
    {
        grid->setNotification(this);
    }

    QStringList calls;
    bool allowScroll = true;
    bool allowExpand = true;
    std::function<bool(zenu::tag_HROW *)> expanding;
    std::function<void(char const *, zenu::tag_HROW *)> act; // in every call, with its name

    QString taken()
    {
        QString const text = calls.join(QStringLiteral("; "));
        calls.clear();
        return text;
    }

    bool OnScrolling(zenu::tag_HROW * row) override
    {
        note("scrolling", row);
        return allowScroll;
    }
    void OnScrolled() override { note("scrolled"); }
    bool OnExpanding(zenu::tag_HROW * row) override
    {
        note("expanding", row);
        return allowExpand && (!expanding || expanding(row));
    }
    void OnExpanded(zenu::tag_HROW * row) override { note("expanded", row); }
    void OnSelectionChanged() override { note("selected"); }
    bool OnSelectionChanging(zenu::GC_SELECTIONCHANGE *) override
    {
        note("selecting");
        return true;
    }
    void OnColumnResized(zenu::tag_HCOLUMN * column, int width) override
    {
        calls << QStringLiteral("resized %1 %2").arg(reinterpret_cast<qintptr>(column)).arg(width);
        if (act) {
            act("resized", nullptr);
        }
    }

private:
    void note(char const * what)
    {
        calls << QLatin1String(what);
        if (act) {
            act(what, nullptr);
        }
    }
    void note(char const * what, zenu::tag_HROW * row)
    {
        calls << QLatin1String(what) + u' ' + grid->name(row);
        if (act) {
            act(what, row);
        }
    }

    TestGrid * grid;
};

// A source of slim rows: a row of param p has the children that `tree` lists for p.
class SlimTree : public zenu::ISlimGridCallback
{
public:
    std::map<long, std::vector<long>> tree;
    std::map<long, int> heights;
    std::set<long> lonely; // rows said to have no children
    QStringList calls;
    std::function<void(char const *, zenu::tag_HROW *, long)> act; // in every call
    bool notesReads = false;
    std::function<int(long)> countOf;

    QString taken()
    {
        QString const text = calls.join(QStringLiteral("; "));
        calls.clear();
        return text;
    }

    char const * GetItemText(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN *) override
    {
        call("text", row, param, notesReads);
        text = "s" + QByteArray::number(static_cast<qlonglong>(param));
        return text.constData();
    }
    bool HasSubRows(zenu::tag_HROW * row, long param) override
    {
        call("has", row, param, notesReads);
        return tree.count(param) != 0;
    }
    int GetSubRowCount(zenu::tag_HROW * row, long param) override
    {
        call("count", row, param, true);
        if (countOf) {
            return countOf(param);
        }
        return tree.count(param) ? static_cast<int>(tree[param].size()) : 0;
    }
    void GetSubRows(zenu::tag_HROW * row, long param, int count,
                    zenu::GC_SLIMROWDATA * rows) override
    {
        call("rows", row, param, true);
        for (int i = 0; i < count && i < static_cast<int>(tree[param].size()); ++i) {
            long const child = tree[param][static_cast<std::size_t>(i)];
            rows[i].param = child;
            rows[i].hasChildren = lonely.count(child) == 0;
            rows[i].height = heights.count(child) ? heights[child] : -1;
        }
    }
    void OnSubRowsCreated(zenu::tag_HROW * row, long param, int count,
                          zenu::GC_SLIMROWDATA * rows) override
    {
        created.assign(rows, rows + count);
        call("created", row, param, true);
    }
    void OnSubRowsDeleted(zenu::tag_HROW * row, long param, int count,
                          zenu::GC_SLIMROWDATA * rows) override
    {
        deleted.assign(rows, rows + count);
        call("deleted", row, param, true);
    }

    std::vector<zenu::GC_SLIMROWDATA> created;
    std::vector<zenu::GC_SLIMROWDATA> deleted;

private:
    void call(char const * what, zenu::tag_HROW * row, long param, bool noted)
    {
        if (noted) {
            calls << QLatin1String(what) + u' ' + QString::number(param);
        }
        if (act) {
            act(what, row, param);
        }
    }

    QByteArray text;
};

// The whole state of a grid against itself; empty when all is well.
inline QString checkGrid(zenu::KGridCtrl const & grid)
{
    using namespace zenu;
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    frame.UpdateNow();
    QStringList wrong;
    std::set<IGCRow *> all;
    std::vector<IGCRow *> visible;
    struct Level
    {
        IGCRow * parent;
        RowSpan rows;
        bool shown;
        int next = 0;
    };
    std::vector<Level> levels{{nullptr, frame.GetChildren(nullptr), true}};
    while (!levels.empty()) {
        Level & level = levels.back();
        if (level.next == level.rows.count()) {
            levels.pop_back();
            continue;
        }
        IGCRow * const row = level.rows[level.next++];
        all.insert(row);
        if (row->parent != level.parent) {
            wrong << QStringLiteral("parent link");
        }
        if (frame.locator->LocateRow(row->Handle()) != row) {
            wrong << QStringLiteral("row not in the locator");
        }
        if ((frame.IndexOf(row) != -1) != level.shown) {
            wrong << QStringLiteral("visible index of a hidden or shown row");
        }
        if (level.shown) {
            visible.push_back(row);
        }
        if (auto const * const ordinary = dynamic_cast<CGCOrdinaryRow *>(row)) {
            if (static_cast<int>(ordinary->Items().size()) != frame.columns.count()) {
                wrong << QStringLiteral("item count");
            }
        }
        bool const shown = level.shown && row->IsExpanded();
        levels.push_back({row, row->GetChildren(frame.Wrapper()), shown});
    }
    if (frame.locator->GetCount() != static_cast<int>(all.size())) {
        wrong << QStringLiteral("locator count %1, tree %2")
                     .arg(frame.locator->GetCount())
                     .arg(all.size());
    }
    if (frame.GetCount() != static_cast<int>(visible.size())) {
        wrong
            << QStringLiteral("order count %1, tree %2").arg(frame.GetCount()).arg(visible.size());
    }
    for (int i = 0; i < frame.GetCount(); ++i) {
        if (frame.GetRowAt(i)->SignedVisibleIndex() != i) {
            wrong << QStringLiteral("visible index %1").arg(i);
        }
    }
    frame.selection.forEach([&](IGCRow * row) {
        if (!all.contains(row)) {
            wrong << QStringLiteral("dead row selected");
        }
    });
    if (frame.FocusedRow() && !all.contains(frame.FocusedRow())) {
        wrong << QStringLiteral("dead row focused");
    }
    for (auto const & walk : frame.childWalks) {
        if (!all.contains(walk.first)) {
            wrong << QStringLiteral("walk of a dead row");
        }
    }
    long long sum = 0;
    int left = 0; // the sum, within what can be laid out
    for (CGCColumn const * const column : frame.shownColumns) {
        if (column->left != left) {
            wrong << QStringLiteral("left of column %1").arg(column->id);
        }
        sum += column->width;
        left = static_cast<int>(std::clamp<long long>(sum, 0, INT_MAX / 2));
    }
    if (left != frame.contentsWidth) {
        wrong << QStringLiteral("contents width");
    }
    if (frame.treeLocks != 0 || frame.watches || !frame.loading.empty()) {
        wrong << QStringLiteral("locks left");
    }
    return wrong.join(QStringLiteral(", "));
}

inline int columnIdOf(zenu::tag_HCOLUMN * column)
{
    return static_cast<int>(reinterpret_cast<qintptr>(column));
}

// Ids by display order, hidden columns included.
inline QString columnOrder(TestGrid const & grid)
{
    std::vector<zenu::tag_HCOLUMN *> ids(static_cast<std::size_t>(grid.GetColumnsCount()));
    QStringList list;
    if (grid.GetColumnOrderArray(ids.data(), grid.GetColumnsCount())) {
        for (zenu::tag_HCOLUMN * const id : ids) {
            list << QString::number(columnIdOf(id));
        }
    }
    return list.join(u' ');
}

// "id:width@left" of the header's items and the shown columns, which go together.
inline QString shownColumns(TestGrid const & grid)
{
    QStringList list;
    for (zenu::CGCColumn const * const column : grid.GetPriv().shownColumns) {
        list << QStringLiteral("%1:%2@%3").arg(column->id).arg(column->width).arg(column->left);
    }
    return list.join(u' ');
}

inline QString headerItems(TestGrid const & grid)
{
    QStringList list;
    for (int i = 0; i < grid.getHeader()->getItemsCount(); ++i) {
        zenu::KHeaderItem const * const item = grid.getHeader()->getItem(i);
        list << QStringLiteral("%1:%2").arg(item->getLParam()).arg(item->getWH());
    }
    return list.join(u' ');
}

inline zenu::GC_COLUMN columnRecord(TestGrid const & grid, int id)
{
    zenu::GC_COLUMN record;
    grid.GetColumn(zenu::columnHandle(id), &record);
    return record;
}

inline zenu::GC_ROW rowRecord(TestGrid const & grid, zenu::tag_HROW * row, unsigned mask = 0)
{
    zenu::GC_ROW record;
    record.mask = mask;
    grid.GetRow(row, &record);
    return record;
}

inline bool rowHasState(TestGrid const & grid, zenu::tag_HROW * row, unsigned bit)
{
    return (rowRecord(grid, row).state & bit) != 0;
}

// a (b c) d
struct SmallTree
{
    explicit SmallTree(unsigned long exStyle = 0)
    {
        grid.SetGridExStyle(exStyle);
        grid.addColumns({50});
        a = grid.add("a");
        b = grid.add("b", a);
        c = grid.add("c", a);
        d = grid.add("d");
    }
    QString next(unsigned flags, zenu::tag_HROW * row = nullptr) const
    {
        return grid.name(grid.GetNextRow(flags, row));
    }
    TestGrid grid;
    zenu::tag_HROW *a, *b, *c, *d;
};

inline void setFlags(TestGrid & grid, zenu::tag_HCOLUMN * column, unsigned flags)
{
    zenu::GC_COLUMN record;
    record.mask = zenu::GCCM_FLAGS;
    record.flags = flags;
    QVERIFY(grid.SetColumn(column, &record));
}

// Image lists of one image.
inline void setImages(TestGrid & grid, QSize const & size, int list = zenu::GCIL_NORMAL)
{
    QPixmap strip(size);
    strip.fill(Qt::red);
    grid.SetImageList(list, strip, size.width(), size.height(), 1, false);
}

inline void fillRows(TestGrid & grid, int count, bool various)
{
    grid.addColumns({100, 150, 120});
    grid.SetDefaultHeight(20);
    for (zenu::tag_HROW * const row : grid.addMany(count)) {
        int const number = static_cast<int>(grid.GetRowCount()) + grid.name(row).toInt();
        if (various && number % 3 == 0) {
            grid.SetRowHeight(row, 3 + number * 7 % 70);
        }
    }
}

} // namespace zenutest
