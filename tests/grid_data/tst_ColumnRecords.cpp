#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/columns/CGCColumnKinds.h"

using namespace zenu;
using namespace zenutest;

// What a column's kind and width do to the rows.
class tst_ColumnRecords : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void addColumn_kindWithoutItsBit_choosesTheClassAlone();
    void setColumn_kind_keepsHandlePlaceTitleAndItems();
    void setColumn_kindAndBack_keepsAnOwnedText_data();
    void setColumn_kindAndBack_keepsAnOwnedText();
    void newRow_afterAChangeOfKind_hasTheFreshItemOfTheNewKind();
    void setColumn_width_repaintsWholeSections();
};

namespace {

// "id@order[item]" of all columns by id.
QString dump(TestGrid const & grid)
{
    QStringList all;
    for (CGCColumn const * const column : grid.GetPriv().columns.all()) {
        all << QStringLiteral("%1@%2[%3]")
                   .arg(column->id)
                   .arg(column->order)
                   .arg(column->itemIndex);
    }
    return all.join(u' ');
}

tag_HCOLUMN * handleOf(int id)
{
    return reinterpret_cast<tag_HCOLUMN *>(static_cast<long>(id));
}

GC_COLUMN recordOf(unsigned mask, int kind = GCCK_TEXT)
{
    GC_COLUMN record;
    record.mask = mask;
    record.kind = kind;
    return record;
}

} // namespace

void tst_ColumnRecords::addColumn_kindWithoutItsBit_choosesTheClassAlone()
{
    TestGrid grid;
    GC_COLUMN record = recordOf(0, GCCK_CHECKBOX);
    tag_HCOLUMN * const column = grid.AddColumn(&record);
    QVERIFY(dynamic_cast<CGCCheckBoxColumn *>(grid.GetPriv().columns.find(column)));
    QVERIFY(grid.GetColumn(column, &record));
    QCOMPARE(record.kind, int(GCCK_TEXT));
}

void tst_ColumnRecords::setColumn_kind_keepsHandlePlaceTitleAndItems()
{
    TestGrid grid;
    grid.addColumns({50, 60, 70});
    tag_HROW * const row = grid.add("r");
    grid.SetItemText(row, handleOf(1), "mine");
    GC_COLUMN change = recordOf(GCCM_KIND, GCCK_CHECKBOX);
    QVERIFY(grid.SetColumn(handleOf(1), &change));
    QVERIFY(dynamic_cast<CGCCheckBoxColumn *>(grid.GetPriv().columns.find(handleOf(1))));
    QCOMPARE(dump(grid), QStringLiteral("0@0[0] 1@1[1] 2@2[2]"));
    char title[8] = "";
    GC_COLUMN record = recordOf(GCCM_TEXT);
    record.text = title;
    record.textMax = sizeof title;
    QVERIFY(grid.GetColumn(handleOf(1), &record));
    QCOMPARE(title, "C1");
    QCOMPARE(record.kind, int(GCCK_CHECKBOX));
    QCOMPARE(record.width, 60);
    QCOMPARE(grid.GetItemText(row, handleOf(1)), std::string("mine"));
    QCOMPARE(checkGrid(grid), QString());
}

void tst_ColumnRecords::setColumn_kindAndBack_keepsAnOwnedText_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("icon") << int(GCCK_ICON);
    QTest::newRow("list box") << int(GCCK_LISTBOX);
}

void tst_ColumnRecords::setColumn_kindAndBack_keepsAnOwnedText()
{
    QFETCH(int, kind);
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("mine");
    GC_COLUMN change = recordOf(GCCM_KIND, kind);
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    QCOMPARE(grid.GetItemText(row, handleOf(0)), std::string());
    GC_ITEM item;
    item.mask = GCIM_IMAGE | GCIM_VALUE;
    item.image = 0x1f; // would be all the flags of an item
    item.value = 0x1f;
    QVERIFY(grid.SetItem(row, handleOf(0), &item));
    change.kind = GCCK_TEXT;
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    GC_ITEM read;
    QVERIFY(grid.GetItem(row, handleOf(0), &read));
    QCOMPARE(read.state, 0U);
    QCOMPARE(grid.GetItemText(row, handleOf(0)), std::string("mine"));
}

void tst_ColumnRecords::newRow_afterAChangeOfKind_hasTheFreshItemOfTheNewKind()
{
    TestGrid grid;
    grid.addColumns({50});
    GC_COLUMN change = recordOf(GCCM_KIND, GCCK_LISTBOX);
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    auto * const cells = dynamic_cast<CGCOrdinaryRow *>(grid.GetPriv().LocateRow(row));
    QCOMPARE(cells->Items()[0].textColor(), 0U); // black, not the default
    QCOMPARE(cells->Items()[0].listIndex(), -1);
}

void tst_ColumnRecords::setColumn_width_repaintsWholeSections()
{
    TestGrid grid;
    grid.addColumns({100, 50});
    tag_HROW * const row = grid.add("r");
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
    QVERIFY(grid.showSized(300, 200));
    QRect rowRect;
    QRect sectionRect;
    QVERIFY(grid.GetRowRect(row, &rowRect));
    QVERIFY(grid.GetRowRect(section, &sectionRect));
    QVERIFY(grid.SetColumnWidth(handleOf(1), 60));
    QRegion const painted = grid.takePainted();
    QVERIFY(painted.contains(QPoint(10, sectionRect.center().y()))); // left of what moved
    QVERIFY(!painted.contains(QPoint(10, rowRect.center().y())));
    QVERIFY(painted.contains(QPoint(110, rowRect.center().y())));
}

ZENU_TEST(tst_ColumnRecords)
#include "tst_ColumnRecords.moc"
