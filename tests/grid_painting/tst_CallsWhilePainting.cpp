#include "tests/grid_painting/PictureGrid.h"
#include "tests/support/TestMain.h"

#include <map>

using namespace zenutest;

// An application that changes the grid when a paint asks it something.
class tst_CallsWhilePainting : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void anyCall_fromASlimCallback_isSurvived_data();
    void anyCall_fromASlimCallback_isSurvived();
    void anyCall_fromATextCallback_isSurvived_data();
    void anyCall_fromATextCallback_isSurvived();
    void rowsAndColumns_doNotGoDuringAPaint();
};

namespace {

// Some calls lead to the next paint, which would never end.
constexpr int mostCalls = 25;

using Call = std::function<void(PictureGrid &, std::vector<tag_HROW *> const &)>;

std::map<QString, Call> const & calls()
{
    using Rows = std::vector<tag_HROW *> const &;
    static std::map<QString, Call> const all = {
        {"delete row", [](PictureGrid & grid, Rows rows) { grid.DeleteRow(rows[1]); }},
        {"delete last row", [](PictureGrid & grid, Rows rows) { grid.DeleteRow(rows.back()); }},
        {"delete all rows", [](PictureGrid & grid, Rows) { grid.DeleteAllRows(); }},
        {"reset", [](PictureGrid & grid, Rows) { grid.Reset(); }},
        {"insert row", [](PictureGrid & grid, Rows) { grid.addRow("New"); }},
        {"insert slim row",
         [](PictureGrid & grid, Rows) {
             grid.InsertSlimRow(7, true, GC_ROOT, GCI_FIRST, 30);
         }},
        {"reset slim row", [](PictureGrid & grid, Rows rows) { grid.ResetSlimRow(rows[0]); }},
        {"delete column",
         [](PictureGrid & grid, Rows) {
             grid.DeleteColumn(grid.GetPriv().columns.all()[0]->Handle());
         }},
        {"add column", [](PictureGrid & grid, Rows) { grid.addColumn(30, GCCK_CHECKBOX); }},
        {"hide column",
         [](PictureGrid & grid, Rows) {
             grid.ShowColumn(grid.GetPriv().columns.all()[0]->Handle(), false);
         }},
        {"order columns",
         [](PictureGrid & grid, Rows) {
             tag_HCOLUMN * order[] = {grid.GetPriv().columns.all()[1]->Handle(),
                                      grid.GetPriv().columns.all()[0]->Handle()};
             grid.SetColumnOrderArray(order, 2);
         }},
        {"column kind",
         [](PictureGrid & grid, Rows) {
             GC_COLUMN record;
             record.mask = GCCM_KIND;
             record.kind = GCCK_ICON;
             grid.SetColumn(grid.GetPriv().columns.all()[1]->Handle(), &record);
         }},
        {"column width",
         [](PictureGrid & grid, Rows) {
             grid.SetColumnWidth(grid.GetPriv().columns.all()[0]->Handle(), 20);
         }},
        {"expand", [](PictureGrid & grid, Rows rows) { grid.Expand(rows[0], GCE_TOGGLE); }},
        {"collapse all", [](PictureGrid & grid, Rows) { grid.Expand(nullptr, GCE_COLLAPSEALL); }},
        {"expand all", [](PictureGrid & grid, Rows) { grid.Expand(nullptr, GCE_EXPANDALL); }},
        {"row height", [](PictureGrid & grid, Rows rows) { grid.SetRowHeight(rows[0], 55); }},
        {"sort",
         [](PictureGrid & grid, Rows) {
             grid.Sort(grid.GetPriv().columns.all()[0]->Handle(), false);
         }},
        {"scroll rows", [](PictureGrid & grid, Rows) { grid.OnScroll(-1, 3, 0, true); }},
        {"scroll to the end", [](PictureGrid & grid, Rows) { grid.OnScroll(-1, 4, 0, true); }},
        {"scroll columns", [](PictureGrid & grid, Rows) { grid.OnScroll(3, -1, 0, true); }},
        {"ensure visible",
         [](PictureGrid & grid, Rows rows) { grid.EnsureVisible(rows.back(), nullptr); }},
        {"select all", [](PictureGrid & grid, Rows) { grid.SelectAll(); }},
        {"select row", [](PictureGrid & grid, Rows rows) { grid.SetRowSel(rows[2], true); }},
        {"font",
         [](PictureGrid & grid, Rows) {
             QFont font = grid.font();
             font.setPointSize(font.pointSize() == 8 ? 9 : 8);
             grid.setFont(font);
         }},
        {"image list",
         [](PictureGrid & grid, Rows) {
             grid.setImages(GCIL_NORMAL, QSize(30, 30), {Qt::green});
         }},
        {"color", [](PictureGrid & grid, Rows) { grid.SetBkColor(Qt::cyan); }},
        {"item text",
         [](PictureGrid & grid, Rows rows) {
             grid.SetItemText(rows[0], grid.GetPriv().columns.all()[0]->Handle(), "Other");
         }},
        {"row record",
         [](PictureGrid & grid, Rows rows) {
             grid.SetRowTextColor(rows[0], Qt::red);
             grid.focusRow(rows[1]);
         }},
        {"resize",
         [](PictureGrid & grid, Rows) {
             grid.resize(grid.width() == 150 ? 140 : 150, grid.height());
         }},
        {"hit test",
         [](PictureGrid & grid, Rows) {
             tag_HROW * row = nullptr;
             tag_HCOLUMN * column = nullptr;
             grid.HitTest(QPoint(5, 50), &row, &column);
             QRect rect;
             grid.GetItemEditorRect(row, column, &rect);
         }},
        {"no slim callback", [](PictureGrid & grid, Rows) { grid.SetSlimGridCallback(nullptr); }},
        {"no notification", [](PictureGrid & grid, Rows) { grid.setNotification(nullptr); }},
        {"paint", [](PictureGrid & grid, Rows) { grid.paintNested(); }},
    };
    return all;
}

void addCalls(QStringList const & questions)
{
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("call");
    for (QString const & question : questions) {
        for (auto const & [name, call] : calls()) {
            QTest::addRow("%s: %s", qPrintable(question), qPrintable(name)) << question << name;
        }
    }
}

std::vector<tag_HROW *> visibleRows(PictureGrid & grid)
{
    std::vector<tag_HROW *> rows;
    for (auto at = grid.begin(GCN_VISIBLE_FIRST, nullptr); at != grid.end(); ++at) {
        rows.push_back(*at);
    }
    return rows;
}

// Two columns that are wider than the grid, and more rows than it shows.
void fill(PictureGrid & grid, SlimRows & slim)
{
    grid.SetSlimGridCallback(&slim);
    grid.setImages(GCIL_NORMAL, QSize(12, 12), {Qt::red});
    grid.addColumn(100, GCCK_TEXT, GCCF_TREE | GCCF_TREELINES);
    grid.addColumn(90, GCCK_CHECKBOXWITHICON, GCCF_FRAMED);
    for (int i = 0; i < 12; ++i) {
        if (i % 2) {
            tag_HROW * const row = grid.addRow("Text");
            for (CGCColumn const * column : grid.GetPriv().columns.all()) {
                grid.SetItemText(row, column->Handle(), GC_TEXTCALLBACK);
            }
            grid.addRow("Child", row);
        } else {
            tag_HROW * const row = grid.InsertSlimRow(i, true, GC_ROOT, GCI_LAST, -1);
            grid.Expand(row, GCE_EXPAND | GCE_NOSCROLL);
        }
    }
}

std::function<void()> * textHook = nullptr;

char const * textOf(unsigned long, tag_HROW *, tag_HCOLUMN *, long)
{
    if (textHook) {
        std::function<void()> * const hook = std::exchange(textHook, nullptr);
        (*hook)();
        textHook = hook;
    }
    return "Callback";
}

// Paints with the hooks on, in a picture and on the screen, and then without them.
void paintAndCheck(PictureGrid & grid, SlimRows & slim)
{
    grid.paintAll();
    settle(grid);
    grid.update();
    settle(grid);
    slim.hook = nullptr;
    textHook = nullptr;
    grid.SetSlimGridCallback(&slim);
    grid.update();
    QCOMPARE(grid.stalePixels(), QString());
    QImage const below = grid.paintAll();
    COMPARE_PICTURES(grid.paintAll(), below);
}

} // namespace

void tst_CallsWhilePainting::anyCall_fromASlimCallback_isSurvived_data()
{
    addCalls({"begin", "row", "children", "item", "text", "release", "end"});
}

void tst_CallsWhilePainting::anyCall_fromASlimCallback_isSurvived()
{
    QFETCH(QString, question);
    QFETCH(QString, call);
    SlimRows slim;
    PictureGrid grid;
    fill(grid, slim);
    QVERIFY(grid.showSized(150, 150));
    std::vector<tag_HROW *> const rows = visibleRows(grid);
    int left = mostCalls;
    slim.hook = [&](char const * asked) {
        if (question == QLatin1String(asked) && left-- > 0) {
            calls().at(call)(grid, rows);
        }
    };
    paintAndCheck(grid, slim);
}

void tst_CallsWhilePainting::anyCall_fromATextCallback_isSurvived_data()
{
    addCalls({"text"});
}

void tst_CallsWhilePainting::anyCall_fromATextCallback_isSurvived()
{
    QFETCH(QString, call);
    SlimRows slim;
    PictureGrid grid;
    grid.SetTextCallback(&textOf, 0);
    fill(grid, slim);
    std::vector<tag_HROW *> const rows = visibleRows(grid);
    int left = mostCalls;
    std::function<void()> hook = [&] {
        if (left-- > 0) {
            calls().at(call)(grid, rows);
        }
    };
    QVERIFY(grid.showSized(150, 150));
    for (tag_HROW * const row : rows) {
        grid.SetItemText(row, grid.GetPriv().columns.all()[1]->Handle(), GC_TEXTCALLBACK);
    }
    textHook = &hook;
    paintAndCheck(grid, slim);
}

void tst_CallsWhilePainting::rowsAndColumns_doNotGoDuringAPaint()
{
    SlimRows slim;
    PictureGrid grid;
    fill(grid, slim);
    QVERIFY(grid.showSized(150, 150));
    std::vector<tag_HROW *> const rows = visibleRows(grid);
    unsigned const count = grid.GetRowCount();
    QImage const before = grid.paintAll();
    bool refused = true;
    slim.hook = [&](char const *) {
        refused = refused && !grid.DeleteRow(rows[1]) && !grid.DeleteAllRows() && !grid.Reset() &&
                  !grid.InsertRow(GC_ROOT, GCI_LAST) &&
                  !grid.DeleteColumn(grid.GetPriv().columns.all()[0]->Handle()) &&
                  grid.AddColumn("New", 0, 10) == GC_NOCOLUMN;
    };
    COMPARE_PICTURES(grid.paintAll(), before);
    QVERIFY(refused);
    slim.hook = nullptr;
    QCOMPARE(grid.GetRowCount(), count);
    QCOMPARE(grid.GetColumnsCount(), 2);
    QVERIFY(grid.DeleteRow(rows[1]) || grid.DeleteRow(rows[0]));
}

ZENU_TEST(tst_CallsWhilePainting)
#include "tst_CallsWhilePainting.moc"
