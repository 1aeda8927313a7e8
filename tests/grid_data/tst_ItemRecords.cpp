#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <cstring>

using namespace zenu;
using namespace zenutest;

// Items through the grid: which row answers, what is repainted, where texts come from.
class tst_ItemRecords : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getItem_eachRowClass_data();
    void getItem_eachRowClass();
    void setItem_eachRowClass_data();
    void setItem_eachRowClass();
    void setItem_listValueAndText_usesTheValueAndIgnoresTheText();
    void setItem_alignmentOfEight_isFalseAndWritesNothingMore();
    void setItem_change_repaintsTheCell();
    void setItem_sameValue_paintsNothing();
    void setItem_refusedButChanged_repaints();
    void setItem_sectionTitle_repaintsTheRow();
    void setItem_hiddenGrid_paintsNothing();
    void setItem_sixArguments_fillTheRecord();
    void setItemText_isAWriteOfTheTextAlone();
    void items_badHandle_answerTheFailureValue_data();
    void items_badHandle_answerTheFailureValue();
    void itemText_ofEachRowClass();
    void itemText_ofCallback_isAskedEachTimeAndNotKept();
    void textFunction_isGivenRowColumnAndBothParams();
    void textFunction_none_isNoText();
    void textFunction_eitherSetter_replacesIt();
};

namespace {

struct Fixture
{
    Fixture()
    {
        first = grid.addKind(GCCK_TEXT);
        check = grid.addKind(GCCK_CHECKBOX);
        list = grid.addKind(GCCK_LISTBOX);
        grid.SetSlimGridCallback(&tree);
        rows[0] = grid.InsertRow(GC_ROOT, GCI_LAST);
        rows[1] = grid.InsertSection("ignored", GCI_LAST);
        rows[2] = grid.InsertSlimRow(5, true, GC_ROOT, GCI_LAST);
        rows[3] = grid.InsertSlimRow(6, false, GC_ROOT, GCI_LAST);
        GC_SECTION title;
        title.mask = GCRM_SECTIONTEXT;
        title.text = const_cast<char *>("title");
        grid.SetSection(rows[1], &title);
        grid.SetItemText(rows[0], first, "mine");
    }
    QRect cell(tag_HROW * row, tag_HCOLUMN * column) const
    {
        QRect rect;
        grid.GetItemRect(row, column, &rect);
        return rect;
    }
    SlimTree tree; // before the grid, which asks it to its end
    TestGrid grid;
    tag_HCOLUMN * first;
    tag_HCOLUMN * check;
    tag_HCOLUMN * list;
    std::array<tag_HROW *, 4> rows{};
};

void addClasses()
{
    QTest::addColumn<int>("rowClass");
    QTest::newRow("ordinary") << 0;
    QTest::newRow("section") << 1;
    QTest::newRow("slim") << 2;
    QTest::newRow("lonely") << 3;
}

// What the text function was given.
struct Asked
{
    unsigned long parameter;
    tag_HROW * row;
    tag_HCOLUMN * column;
    long rowParam;
};
std::vector<Asked> asked;

char const * textOfCell(unsigned long parameter, tag_HROW * row, tag_HCOLUMN * column,
                        long rowParam)
{
    asked.push_back({parameter, row, column, rowParam});
    return parameter == 0 ? nullptr : "asked";
}

} // namespace

void tst_ItemRecords::getItem_eachRowClass_data()
{
    addClasses();
}

void tst_ItemRecords::getItem_eachRowClass()
{
    QFETCH(int, rowClass);
    Fixture f;
    char buffer[8] = "#######";
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = buffer;
    item.textMax = sizeof buffer;
    item.state = 77;
    QCOMPARE(f.grid.GetItem(f.rows[std::size_t(rowClass)], f.first, &item), rowClass == 0);
    char const * const expected[] = {"mine", "title", "#######", "#######"};
    QCOMPARE(buffer, expected[rowClass]);
    QCOMPARE(item.state, rowClass == 0 ? 0U : 77U);
}

void tst_ItemRecords::setItem_eachRowClass_data()
{
    addClasses();
}

void tst_ItemRecords::setItem_eachRowClass()
{
    QFETCH(int, rowClass);
    Fixture f;
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = const_cast<char *>("new");
    tag_HROW * const row = f.rows[std::size_t(rowClass)];
    QCOMPARE(f.grid.SetItem(row, f.check, &item), rowClass == 0);
    char const * const expected[] = {"new", "new", "s5", "s6"};
    QCOMPARE(f.grid.GetItemText(row, f.check), std::string(expected[rowClass]));
}

void tst_ItemRecords::setItem_listValueAndText_usesTheValueAndIgnoresTheText()
{
    Fixture f;
    GC_ITEM item;
    item.mask = GCIM_VALUE | GCIM_TEXT;
    item.value = 3;
    item.text = const_cast<char *>("no choice at all");
    QVERIFY(f.grid.SetItem(f.rows[0], f.list, &item));
    GC_ITEM read;
    QVERIFY(f.grid.GetItem(f.rows[0], f.list, &read));
    QCOMPARE(read.value, 3);
}

void tst_ItemRecords::setItem_alignmentOfEight_isFalseAndWritesNothingMore()
{
    Fixture f;
    GC_ITEM item;
    item.mask = GCIM_STATE | GCIM_ALIGN | GCIM_TEXT | GCIM_TEXTCOLOR;
    item.state = GCIS_MARKED;
    item.value = 8;
    item.text = const_cast<char *>("new");
    item.textColor = Qt::red;
    QVERIFY(!f.grid.SetItem(f.rows[0], f.first, &item));
    GC_ITEM read;
    read.mask = GCIM_ALIGN;
    QVERIFY(f.grid.GetItem(f.rows[0], f.first, &read));
    QCOMPARE(read.state, unsigned(GCIS_MARKED)); // set before it
    QCOMPARE(read.value, -1);
    QCOMPARE(read.textColor.rgb(), GC_UNSETCOLOR);
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string("mine"));
}

void tst_ItemRecords::setItem_change_repaintsTheCell()
{
    Fixture f;
    QVERIFY(f.grid.showSized(400, 200));
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, "other"));
    QCOMPARE(f.grid.takePainted(), QRegion(f.cell(f.rows[0], f.first).adjusted(0, 0, -1, 0)));
}

void tst_ItemRecords::setItem_sameValue_paintsNothing()
{
    Fixture f;
    QVERIFY(f.grid.showSized(400, 200));
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, "mine"));
    QVERIFY(f.grid.takePainted().isEmpty());
    GC_ITEM item;
    item.mask = GCIM_VALUE;
    QVERIFY(f.grid.SetItem(f.rows[0], f.check, &item)); // counts as a change even so
    QVERIFY(!f.grid.takePainted().isEmpty());
}

void tst_ItemRecords::setItem_refusedButChanged_repaints()
{
    Fixture f;
    QVERIFY(f.grid.showSized(400, 200));
    GC_ITEM item;
    item.mask = GCIM_STATE | GCIM_ALIGN;
    item.value = 8;
    QVERIFY(!f.grid.SetItem(f.rows[0], f.first, &item));
    QVERIFY(!f.grid.takePainted().isEmpty());
    item.mask = GCIM_ALIGN;
    QVERIFY(!f.grid.SetItem(f.rows[0], f.first, &item));
    QVERIFY(f.grid.takePainted().isEmpty());
}

void tst_ItemRecords::setItem_sectionTitle_repaintsTheRow()
{
    Fixture f;
    QVERIFY(f.grid.showSized(400, 200));
    QVERIFY(!f.grid.SetItemText(f.rows[1], f.check, "other title"));
    QRegion const painted = f.grid.takePainted();
    QVERIFY(painted.contains(f.cell(f.rows[1], f.first).center()));
    QVERIFY(painted.contains(f.cell(f.rows[1], f.list).center()));
    QVERIFY(!painted.contains(f.cell(f.rows[0], f.first).center()));
    QVERIFY(!f.grid.SetItemText(f.rows[1], f.check, "other title"));
    QVERIFY(f.grid.takePainted().isEmpty());
}

void tst_ItemRecords::setItem_hiddenGrid_paintsNothing()
{
    Fixture f;
    QVERIFY(f.grid.showSized(400, 200));
    f.grid.hide();
    settle();
    f.grid.takePainted();
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, "other"));
    QVERIFY(f.grid.takePainted().isEmpty());
}

void tst_ItemRecords::setItem_sixArguments_fillTheRecord()
{
    Fixture f;
    tag_HCOLUMN * const icons = f.grid.addKind(GCCK_TEXTWITHICON);
    GC_ITEM read;
    QVERIFY(f.grid.SetItem(f.rows[0], icons, GCIM_TEXT | GCIM_IMAGE, "six", 4, GCIS_MARKED));
    QVERIFY(f.grid.GetItem(f.rows[0], icons, &read));
    QCOMPARE(f.grid.GetItemText(f.rows[0], icons), std::string("six"));
    QCOMPARE(read.image, 4);
    QCOMPARE(read.state, 0U); // the mask does not name it
    QVERIFY(f.grid.SetItem(f.rows[0], icons, GCIM_STATE, nullptr, 0, GCIS_MARKED));
    QVERIFY(f.grid.GetItem(f.rows[0], icons, &read));
    QCOMPARE(read.state, unsigned(GCIS_MARKED));
    QVERIFY(f.grid.SetItem(f.rows[0], icons, GCIM_STATE, nullptr, 0, 0));
    QVERIFY(f.grid.GetItem(f.rows[0], icons, &read));
    QCOMPARE(read.state, unsigned(GCIS_MARKED)); // nothing is cleared: the state mask is 0
}

void tst_ItemRecords::setItemText_isAWriteOfTheTextAlone()
{
    Fixture f;
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, nullptr));
    QCOMPARE(f.grid.GetItemTextLen(f.rows[0], f.first), 0);
    QByteArray text = "copied";
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, text.constData()));
    text.fill('x');
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string("copied"));
    QVERIFY(!f.grid.SetItemText(f.rows[0], f.list, "no choice"));
}

void tst_ItemRecords::items_badHandle_answerTheFailureValue_data()
{
    QTest::addColumn<qlonglong>("row");
    QTest::addColumn<qlonglong>("column");
    QTest::newRow("null row") << 0LL << 0LL;
    QTest::newRow("root") << -1LL << 0LL;
    QTest::newRow("first") << -2LL << 0LL;
    QTest::newRow("last") << -3LL << 0LL;
    QTest::newRow("foreign row") << 0x1234567890LL << 0LL;
    QTest::newRow("no column") << 1LL << -1LL;
    QTest::newRow("unknown column") << 1LL << 3LL;
    QTest::newRow("no id that a column can have") << 1LL << 0x100000000LL;
}

void tst_ItemRecords::items_badHandle_answerTheFailureValue()
{
    QFETCH(qlonglong, row);
    QFETCH(qlonglong, column);
    Fixture f;
    auto * const rowHandle = row == 1 ? f.rows[0] : reinterpret_cast<tag_HROW *>(row);
    auto * const columnHandle = reinterpret_cast<tag_HCOLUMN *>(column);
    GC_ITEM item;
    item.mask = ~0U;
    item.state = 77;
    QVERIFY(!f.grid.GetItem(rowHandle, columnHandle, &item));
    QCOMPARE(item.state, 77U);
    QVERIFY(!f.grid.SetItem(rowHandle, columnHandle, &item));
    QVERIFY(!f.grid.SetItem(rowHandle, columnHandle, GCIM_TEXT, "a", 0, 0));
    QVERIFY(!f.grid.SetItemText(rowHandle, columnHandle, "a"));
    QCOMPARE(f.grid.GetItemText(rowHandle, columnHandle), std::string());
    QCOMPARE(f.grid.GetItemTextLen(rowHandle, columnHandle), 0);
    f.grid.InvalidateItem(rowHandle, columnHandle);
    QVERIFY(!f.grid.GetItem(f.rows[0], f.first, nullptr));
    QVERIFY(!f.grid.SetItem(f.rows[0], f.first, static_cast<GC_ITEM *>(nullptr)));
}

void tst_ItemRecords::itemText_ofEachRowClass()
{
    Fixture f;
    char const * const expected[] = {"mine", "title", "s5", "s6"};
    for (std::size_t i = 0; i < f.rows.size(); ++i) {
        QCOMPARE(f.grid.GetItemText(f.rows[i], f.first), std::string(expected[i]));
        QCOMPARE(f.grid.GetItemTextLen(f.rows[i], f.first), int(std::strlen(expected[i])));
    }
}

void tst_ItemRecords::itemText_ofCallback_isAskedEachTimeAndNotKept()
{
    Fixture f;
    asked.clear();
    QVERIFY(f.grid.SetTextCallback(textOfCell, 9));
    QVERIFY(f.grid.SetItemText(f.rows[0], f.first, GC_TEXTCALLBACK));
    QVERIFY(asked.empty());
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string("asked"));
    QCOMPARE(f.grid.GetItemTextLen(f.rows[0], f.first), 5);
    QCOMPARE(asked.size(), std::size_t(2));
    char buffer[8] = "#######";
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = buffer;
    item.textMax = sizeof buffer;
    QVERIFY(!f.grid.GetItem(f.rows[0], f.first, &item)); // no text of its own
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray(8, '\0'));
    QCOMPARE(asked.size(), std::size_t(2));
    // What a paint fetched is kept while the row is on display, and everyone uses it.
    QVERIFY(f.grid.showSized(400, 200));
    std::size_t const afterPaint = asked.size();
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string("asked"));
    QVERIFY(f.grid.GetItem(f.rows[0], f.first, &item));
    QCOMPARE(buffer, "asked");
    QCOMPARE(item.state, unsigned(GCIS_CACHEDTEXT | GCIS_FOCUSED)); // shown, the grid has the focus
    QCOMPARE(asked.size(), afterPaint);
}

void tst_ItemRecords::textFunction_isGivenRowColumnAndBothParams()
{
    Fixture f;
    asked.clear();
    f.grid.SetTextCBProc(textOfCell, ~0UL);
    f.grid.SetRowParam(f.rows[0], static_cast<unsigned long>(-4L));
    f.grid.SetItemText(f.rows[0], f.check, GC_TEXTCALLBACK);
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.check), std::string("asked"));
    QCOMPARE(asked.size(), std::size_t(1));
    QCOMPARE(asked[0].parameter, ~0UL);
    QVERIFY(asked[0].row == f.rows[0]);
    QVERIFY(asked[0].column == f.check);
    QCOMPARE(asked[0].rowParam, -4L);
}

void tst_ItemRecords::textFunction_none_isNoText()
{
    Fixture f;
    f.grid.SetItemText(f.rows[0], f.first, GC_TEXTCALLBACK);
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string());
    QCOMPARE(f.grid.GetItemTextLen(f.rows[0], f.first), 0);
    f.grid.SetTextCBProc(textOfCell, 0); // answers null
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.first), std::string());
    QVERIFY(f.grid.showSized(400, 200));
}

void tst_ItemRecords::textFunction_eitherSetter_replacesIt()
{
    Fixture f;
    asked.clear();
    f.grid.SetItemText(f.rows[0], f.first, GC_TEXTCALLBACK);
    QVERIFY(f.grid.SetTextCallback(textOfCell, 1));
    f.grid.GetItemText(f.rows[0], f.first);
    f.grid.SetTextCBProc(textOfCell, 2);
    f.grid.GetItemText(f.rows[0], f.first);
    QVERIFY(f.grid.SetTextCallback(nullptr, 3));
    f.grid.GetItemText(f.rows[0], f.first);
    QCOMPARE(asked.size(), std::size_t(2));
    QCOMPARE(asked[0].parameter, 1UL);
    QCOMPARE(asked[1].parameter, 2UL);
}

ZENU_TEST(tst_ItemRecords)
#include "tst_ItemRecords.moc"
