#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/model/FileTree.h"
#include "examples/explorer/rows/ComputedRows.h"
#include "examples/explorer/rows/FileRows.h"
#include "examples/explorer/rows/FixedRows.h"
#include "tests/explorer/FileFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/header/KHeader.h>

#include <QWheelEvent>

using namespace explorer;
using zenutest::FileFixture;
using zenutest::LesserUser;

namespace {

std::string textOf(ExplorerGrid & grid, zenu::tag_HROW * row, Column column)
{
    return grid.GetItemText(row, handleOf(column));
}

// The texts of a column in the visible order, as "a|b|c".
std::string texts(ExplorerGrid & grid, Column column)
{
    std::string result;
    zenu::tag_HROW * row = grid.GetNextRow(zenu::GCN_VISIBLE_FIRST);
    for (; row; row = grid.GetNextRow(zenu::GCN_VISIBLE_NEXT, row)) {
        result += (result.empty() ? "" : "|") + textOf(grid, row, column);
    }
    return result;
}

// A grid that shows the tree of a directory.
struct FileGrid
{
    explicit FileGrid(std::string const & path)
        : tree(path)
        , rows(&tree)
    {
        grid.resize(800, 400);
        grid.addTopRow(&rows);
    }

    std::string names() { return texts(grid, Column::Name).substr(top().size() + 1); }
    std::string top() { return textOf(grid, topRow(), Column::Name); }
    zenu::tag_HROW * topRow() { return grid.GetNextRow(zenu::GCN_VISIBLE_FIRST); }
    zenu::tag_HROW * row(std::string const & name)
    {
        zenu::tag_HROW * found = topRow();
        while (found && textOf(grid, found, Column::Name) != name) {
            found = grid.GetNextRow(zenu::GCN_VISIBLE_NEXT, found);
        }
        return found;
    }

    FileTree tree;
    FileRows rows;
    ExplorerGrid grid;
};

} // namespace

class tst_ExplorerGrid : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void firstLevel_isOpenAtOnce();
    void directory_isReadWhenItIsOpened();
    void cells_tellOfTheFile();
    void unreadableDirectory_saysSoAndHasNoChildren();
    void vanishedFile_saysSo();
    void emptyDirectory_losesItsButtonWhenOpened();
    void linksInACircle_endWhenAllIsExpanded();
    void sorting_keepsDirectoriesFirst_data();
    void sorting_keepsDirectoriesFirst();
    void sorting_setsTheArrowOfTheHeader();
    void sorting_keepsTheRowsOfSectionsInPlace();
    void currentRow_walksDownAndUpTheVisibleOrder();
    void fittedColumns_holdTheirTexts();
    void nameColumn_takesTheRoomOfTheOthers();
    void wheel_scrollsByLines();
    void computedRows_haveTextsAndSort();
    void noComputedRows_areFine();
    void places_areDirectoriesThatExist();
};

void tst_ExplorerGrid::firstLevel_isOpenAtOnce()
{
    FileFixture files;
    files.makeDirectory("b");
    files.makeFile("b/c");
    files.makeFile("a");
    FileGrid shown(files.path());
    QCOMPARE(shown.names(), "b|a");
    QCOMPARE(files.path(), shown.tree.path(FileTree::root));
    QVERIFY(files.path().ends_with('/' + shown.top()));
    QCOMPARE(shown.grid.currentRow(), shown.topRow());
}

void tst_ExplorerGrid::directory_isReadWhenItIsOpened()
{
    FileFixture files;
    files.makeDirectory("b");
    files.makeFile("b/c");
    FileGrid shown(files.path());
    QCOMPARE(shown.grid.GetRowCount(), 2u);
    QCOMPARE(shown.tree.count(), 2u);
    QCOMPARE(textOf(shown.grid, shown.row("b"), Column::Size), "\xa0");
    shown.grid.Expand(shown.row("b"), zenu::GCE_EXPAND);
    QCOMPARE(shown.names(), "b|c");
    QCOMPARE(textOf(shown.grid, shown.row("b"), Column::Size), "1 item\xa0");
    shown.grid.Expand(shown.row("b"), zenu::GCE_COLLAPSE);
    QCOMPARE(shown.names(), "b");
}

void tst_ExplorerGrid::cells_tellOfTheFile()
{
    FileFixture files;
    files.makeFile("r\xc3\xa9sum\xc3\xa9.sh", 1500, 0755);
    files.makeLink("nowhere", "link");
    FileGrid shown(files.path());
    QCOMPARE(shown.names(), "link|r\xe9sum\xe9.sh");
    zenu::tag_HROW * const script = shown.row("r\xe9sum\xe9.sh");
    QCOMPARE(textOf(shown.grid, script, Column::Size), "1.5 kB\xa0");
    QCOMPARE(textOf(shown.grid, script, Column::Kind), "Shell script");
    QCOMPARE(textOf(shown.grid, script, Column::Modified).size(), std::size_t{16});
    long const param = static_cast<long>(shown.grid.GetRowParam(script));
    QCOMPARE(shown.rows.IsItemChecked(script, param, handleOf(Column::Executable)), 1);
    zenu::tag_HROW * const link = shown.row("link");
    QCOMPARE(textOf(shown.grid, link, Column::Kind), "Link");
    QCOMPARE(textOf(shown.grid, link, Column::Size), "\xa0");
    QCOMPARE(shown.rows.describe(static_cast<long>(shown.grid.GetRowParam(link))),
             files.path("link") + " -> nowhere");
}

void tst_ExplorerGrid::unreadableDirectory_saysSoAndHasNoChildren()
{
    FileFixture files;
    files.makeDirectory("closed");
    files.makeFile("closed/file");
    QCOMPARE(chmod(files.path("closed").c_str(), 0), 0);
    {
        LesserUser const user;
        FileGrid shown(files.path());
        shown.grid.Expand(nullptr, zenu::GCE_EXPANDALL);
        QCOMPARE(shown.names(), "closed");
        QCOMPARE(textOf(shown.grid, shown.row("closed"), Column::Kind), "Folder, unreadable");
        shown.grid.show();
        QVERIFY(!shown.grid.grab().isNull());
    }
    QCOMPARE(chmod(files.path("closed").c_str(), 0755), 0);
}

void tst_ExplorerGrid::vanishedFile_saysSo()
{
    FileFixture files;
    files.makeFile("file", 7);
    files.makeDirectory("directory");
    FileGrid shown(files.path());
    QCOMPARE(unlink(files.path("file").c_str()), 0);
    QCOMPARE(rmdir(files.path("directory").c_str()), 0);
    shown.grid.Expand(nullptr, zenu::GCE_EXPANDALL);
    shown.grid.show();
    QVERIFY(!shown.grid.grab().isNull());
    for (char const * const name : {"file", "directory"}) {
        QCOMPARE(textOf(shown.grid, shown.row(name), Column::Kind), "Not there any more");
        QCOMPARE(textOf(shown.grid, shown.row(name), Column::Modified), "");
    }
}

void tst_ExplorerGrid::emptyDirectory_losesItsButtonWhenOpened()
{
    FileFixture files;
    files.makeDirectory("empty");
    FileGrid shown(files.path());
    zenu::GC_ROW record;
    record.mask = zenu::GCRM_STATE;
    shown.grid.GetRow(shown.row("empty"), &record);
    QVERIFY((record.state & zenu::GCRS_HASCHILDREN) != 0);
    shown.grid.Expand(shown.row("empty"), zenu::GCE_EXPAND);
    shown.grid.GetRow(shown.row("empty"), &record);
    QVERIFY((record.state & zenu::GCRS_HASCHILDREN) == 0);
}

void tst_ExplorerGrid::linksInACircle_endWhenAllIsExpanded()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeDirectory("a/b");
    files.makeLink("../..", "a/b/up");
    files.makeLink(files.path(), "a/self");
    FileGrid shown(files.path());
    shown.grid.Expand(nullptr, zenu::GCE_EXPANDALL);
    QCOMPARE(shown.names(), "a|b|up|self");
    shown.grid.Expand(nullptr, zenu::GCE_COLLAPSEALL);
    QCOMPARE(shown.grid.GetExpandedCount(), 1u);
}

void tst_ExplorerGrid::sorting_keepsDirectoriesFirst_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QByteArray>("names");
    auto const row = [](char const * rule, Column column, bool ascending, char const * names) {
        QTest::newRow(rule) << static_cast<int>(column) << ascending << QByteArray(names);
    };
    row("by name", Column::Name, true, "d1|d2|a.sh|b.txt|c2.cpp|c10.cpp");
    row("by name, turned", Column::Name, false, "d2|d1|c10.cpp|c2.cpp|b.txt|a.sh");
    row("by size", Column::Size, true, "d1|d2|c2.cpp|a.sh|b.txt|c10.cpp");
    row("by size, turned", Column::Size, false, "d1|d2|b.txt|c10.cpp|a.sh|c2.cpp");
    row("by kind", Column::Kind, true, "d1|d2|c2.cpp|c10.cpp|a.sh|b.txt");
    row("by kind, turned", Column::Kind, false, "d1|d2|b.txt|a.sh|c2.cpp|c10.cpp");
    row("by date", Column::Modified, true, "d2|d1|b.txt|a.sh|c2.cpp|c10.cpp");
    row("by date, turned", Column::Modified, false, "d1|d2|c10.cpp|c2.cpp|a.sh|b.txt");
    row("by what runs", Column::Executable, true, "d1|d2|a.sh|b.txt|c2.cpp|c10.cpp");
    row("by what runs, turned", Column::Executable, false, "d1|d2|b.txt|c2.cpp|c10.cpp|a.sh");
}

void tst_ExplorerGrid::sorting_keepsDirectoriesFirst()
{
    FileFixture files;
    files.makeFile("a.sh", 20, 0755);
    files.makeFile("b.txt", 300);
    files.makeFile("c2.cpp", 1);
    files.makeFile("c10.cpp", 300);
    files.makeDirectory("d1");
    files.makeDirectory("d2");
    time_t time = 1000;
    for (char const * const name : {"b.txt", "a.sh", "d2", "c2.cpp", "c10.cpp", "d1"}) {
        time += 1000;
        timespec const times[] = {{time, 0}, {time, 0}};
        QCOMPARE(utimensat(AT_FDCWD, files.path(name).c_str(), times, 0), 0);
    }
    QFETCH(int, column);
    QFETCH(bool, ascending);
    FileGrid shown(files.path());
    shown.grid.sortBy(static_cast<Column>(column), ascending);
    QTEST(QByteArray::fromStdString(shown.names()), "names");
    shown.grid.sortBy(Column::Name, true);
    QCOMPARE(shown.names(), "d1|d2|a.sh|b.txt|c2.cpp|c10.cpp");
}

void tst_ExplorerGrid::sorting_setsTheArrowOfTheHeader()
{
    ExplorerGrid grid;
    auto const arrows = [&grid] {
        std::string result;
        for (int i = 0; i < columnCount; ++i) {
            int const item = grid.Column2HeaderItem(handleOf(static_cast<Column>(i)));
            int const arrow =
                grid.getHeader()->getItem(item)->getFmt() & zenu::HeaderFormatSortMask;
            result += arrow == zenu::HeaderFormatSortFirst ? '^' : (arrow ? 'v' : '.');
        }
        return result;
    };
    QCOMPARE(arrows(), "^....");
    grid.sortBy(Column::Modified, false);
    QCOMPARE(arrows(), "...v.");
    grid.sortBy(Column::Size, true);
    QCOMPARE(arrows(), ".^...");
}

void tst_ExplorerGrid::sorting_keepsTheRowsOfSectionsInPlace()
{
    FixedRows fixedRows;
    ComputedRows rows(3);
    ExplorerGrid grid;
    grid.resize(800, 400);
    fixedRows.addTo(grid);
    std::string const before = texts(grid, Column::Name);
    grid.addTopRow(&rows);
    grid.sortBy(Column::Name, false);
    QCOMPARE(texts(grid, Column::Name), before + "|3 computed rows|Row 3|Row 2|Row 1");
}

void tst_ExplorerGrid::currentRow_walksDownAndUpTheVisibleOrder()
{
    constexpr int count = 100;
    ComputedRows rows(count);
    ExplorerGrid grid;
    grid.resize(800, 200);
    grid.addTopRow(&rows);
    grid.sortBy(Column::Size, true);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    grid.setFocus();
    std::string walked;
    zenu::tag_HROW * last = nullptr;
    for (; last != grid.currentRow(); QTest::keyClick(&grid, Qt::Key_Down)) {
        last = grid.currentRow();
        walked += (walked.empty() ? "" : "|") + textOf(grid, last, Column::Name);
    }
    QCOMPARE(walked, texts(grid, Column::Name));
    QCOMPARE(grid.GetSelectedCount(), 1u);
    for (int i = 0; i < count; ++i) {
        QTest::keyClick(&grid, Qt::Key_Up);
    }
    QCOMPARE(grid.currentRow(), grid.GetNextRow(zenu::GCN_VISIBLE_FIRST));
    QCOMPARE(grid.GetTopIndex(), grid.currentRow());
    QTest::keyClick(&grid, Qt::Key_Up);
    QCOMPARE(grid.currentRow(), grid.GetNextRow(zenu::GCN_VISIBLE_FIRST));
}

void tst_ExplorerGrid::fittedColumns_holdTheirTexts()
{
    FileFixture files;
    files.makeFile("a name that is longer than most names are, and then a little longer");
    FileGrid shown(files.path());
    shown.grid.resize(300, 200);
    int const before = shown.grid.GetColumnWidth(handleOf(Column::Name));
    shown.grid.fitColumns();
    int const fitted = shown.grid.GetColumnWidth(handleOf(Column::Name));
    QVERIFY(fitted > before);
    QCOMPARE(fitted, shown.grid.BestFit(handleOf(Column::Name)));
    // A column that was fitted keeps its width.
    shown.grid.resize(1200, 200);
    QCOMPARE(shown.grid.GetColumnWidth(handleOf(Column::Name)), fitted);
}

void tst_ExplorerGrid::nameColumn_takesTheRoomOfTheOthers()
{
    ExplorerGrid grid;
    grid.resize(900, 300);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    auto const total = [&grid] {
        int width = 0;
        for (int i = 0; i < columnCount; ++i) {
            width += grid.GetColumnWidth(handleOf(static_cast<Column>(i)));
        }
        return width;
    };
    QCOMPARE(total(), grid.getClientRect().width() - 1);
    grid.resize(1100, 300);
    QTRY_COMPARE(total(), grid.getClientRect().width() - 1);
    grid.resize(200, 300);
    QTRY_VERIFY(total() > grid.getClientRect().width());
}

void tst_ExplorerGrid::wheel_scrollsByLines()
{
    ComputedRows rows(1000);
    ExplorerGrid grid;
    grid.resize(800, 300);
    grid.addTopRow(&rows);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    zenu::tag_HROW * const top = grid.GetTopIndex();
    auto const turn = [&grid](int angle) {
        QWheelEvent event(QPointF(50, 100), grid.mapToGlobal(QPointF(50, 100)), QPoint(),
                          QPoint(0, angle), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&grid, &event);
    };
    for (int i = 0; i < 4; ++i) {
        turn(-30); // a fine wheel: a notch in four steps
    }
    QCOMPARE(textOf(grid, grid.GetTopIndex(), Column::Name),
             "Row " + std::to_string(QApplication::wheelScrollLines()));
    turn(120);
    QCOMPARE(grid.GetTopIndex(), top);
    turn(1200);
    QCOMPARE(grid.GetTopIndex(), top);
}

void tst_ExplorerGrid::computedRows_haveTextsAndSort()
{
    constexpr int count = 2000;
    ComputedRows rows(count);
    ExplorerGrid grid;
    grid.resize(800, 300);
    grid.addTopRow(&rows);
    QCOMPARE(grid.GetExpandedCount(), unsigned{count + 1});
    for (int i = 0; i < columnCount; ++i) {
        auto const column = static_cast<Column>(i);
        for (bool const ascending : {true, false}) {
            grid.sortBy(column, ascending);
            zenu::tag_HROW * row = grid.GetNextRow(zenu::GCN_VISIBLE_FIRST);
            row = grid.GetNextRow(zenu::GCN_VISIBLE_NEXT, row);
            for (long last = 0; row; row = grid.GetNextRow(zenu::GCN_VISIBLE_NEXT, row)) {
                auto const param = static_cast<long>(grid.GetRowParam(row));
                QVERIFY(last == 0 || rows.compare(last, param, column, ascending) < 0);
                last = param;
            }
        }
    }
    grid.sortBy(Column::Name, true);
    QCOMPARE(textOf(grid, grid.GetNextRow(zenu::GCN_VISIBLE_FIRST), Column::Name),
             "2,000 computed rows");
}

void tst_ExplorerGrid::noComputedRows_areFine()
{
    ComputedRows rows(0);
    ExplorerGrid grid;
    grid.resize(800, 300);
    grid.addTopRow(&rows);
    grid.Expand(nullptr, zenu::GCE_EXPANDALL);
    QCOMPARE(grid.GetExpandedCount(), 1u);
    QTest::keyClick(&grid, Qt::Key_Down);
    QCOMPARE(textOf(grid, grid.currentRow(), Column::Name), "0 computed rows");
}

void tst_ExplorerGrid::places_areDirectoriesThatExist()
{
    FixedRows fixedRows;
    ExplorerGrid grid;
    grid.resize(800, 300);
    fixedRows.addTo(grid);
    int sections = 0;
    int places = 0;
    for (auto row = grid.begin(zenu::GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
        auto const param = static_cast<long>(grid.GetRowParam(*row));
        QVERIFY(param < 0);
        std::string const path = fixedRows.path(param);
        if (grid.GetNextRow(zenu::GCN_PARENT, *row) == zenu::GC_ROOT) {
            ++sections;
            QCOMPARE(path, "");
        } else {
            ++places;
            struct stat status;
            QCOMPARE(stat(path.c_str(), &status), 0);
            QVERIFY(S_ISDIR(status.st_mode));
        }
    }
    QCOMPARE(sections, 2);
    QVERIFY(places > 0);
    for (long const param : {0L, -1L, -1000L, LONG_MIN, LONG_MAX}) {
        QCOMPARE(fixedRows.path(param), "");
    }
}

ZENU_TEST(tst_ExplorerGrid)
#include "tst_ExplorerGrid.moc"
