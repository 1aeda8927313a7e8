#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/editing/CheckFlip.h"

using namespace zenu;
using namespace zenutest;

namespace {

bool hasCheckBox(int kind)
{
    return kind == GCCK_CHECKBOX || kind == GCCK_CHECKBOXWITHICON;
}

class CheckTaker : public FakeWrapper
{
public:
    void SetItemCheck(IGCRow *, CGCColumn *, bool checked) override
    {
        calls << (checked ? "check" : "uncheck");
    }
    int IsItemChecked(IGCRow *, CGCColumn *) override
    {
        calls << "ask";
        return answer;
    }
    QStringList calls;
    int answer = 0;
};

} // namespace

class tst_CheckFlip : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getItemState_checkKindsAlone_data() { addKinds(); }
    void getItemState_checkKindsAlone();
    void checkItem_valueOfOneChecks_anyOtherUnchecks_data();
    void checkItem_valueOfOneChecks_anyOtherUnchecks();
    void checkItem_otherKinds_areLeftAlone_data() { addKinds(); }
    void checkItem_otherKinds_areLeftAlone();
    void isItemChecked_ofEachRowClass_data() { addRowClasses(); }
    void isItemChecked_ofEachRowClass();
    void switchCheckBox_ofEachRowClass_data() { addRowClasses(); }
    void switchCheckBox_ofEachRowClass();
};

void tst_CheckFlip::getItemState_checkKindsAlone()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    for (bool const checked : {false, true}) {
        item->setState(GCIS_CHECKED, checked);
        KGetItemState visitor(item);
        rows.column(kind)->Accept(&visitor);
        QCOMPARE(visitor.result, checked && hasCheckBox(kind) ? 1 : 0);
    }
}

void tst_CheckFlip::checkItem_valueOfOneChecks_anyOtherUnchecks_data()
{
    QTest::addColumn<int>("value");
    for (int const value : {1, 0, 2, -1}) {
        QTest::addRow("%d", value) << value;
    }
}

void tst_CheckFlip::checkItem_valueOfOneChecks_anyOtherUnchecks()
{
    QFETCH(int, value);
    RowsOfAllClasses rows;
    for (int const kind : {GCCK_CHECKBOX, GCCK_CHECKBOXWITHICON}) {
        GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
        for (bool const before : {false, true}) {
            item->flags = GCIS_FOCUSED;
            item->setState(GCIS_CHECKED, before);
            item->setCheckStyle(GridItem::grayed | GridItem::radio);
            KCheckItem visitor(item, value);
            rows.column(kind)->Accept(&visitor);
            QCOMPARE(int(item->flags), GCIS_FOCUSED | (value == 1 ? GCIS_CHECKED : 0));
            QCOMPARE(item->checkStyle(), GridItem::grayed | GridItem::radio);
        }
    }
}

void tst_CheckFlip::checkItem_otherKinds_areLeftAlone()
{
    QFETCH(int, kind);
    if (hasCheckBox(kind)) {
        return;
    }
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    QByteArray const before = dump(*item);
    KCheckItem visitor(item, 1);
    rows.column(kind)->Accept(&visitor);
    QCOMPARE(dump(*item), before);
}

void tst_CheckFlip::isItemChecked_ofEachRowClass()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_CHECKBOX);
    rows.ordinary.ItemOf(column)->setState(GCIS_CHECKED, true);
    rows.section.ItemOf(column)->setState(GCIS_CHECKED, true);
    CheckTaker wrapper;
    wrapper.answer = 7; // of the application's own making
    CIsItemChecked visitor(&wrapper, column);
    rows.all()[std::size_t(rowClass)]->Accept(&visitor);
    int const expected[] = {1, 0, 7, 7};
    QCOMPARE(visitor.result, expected[rowClass]);
    QCOMPARE(wrapper.calls.size(), isOrdinary(rowClass) ? 0 : 1);
}

void tst_CheckFlip::switchCheckBox_ofEachRowClass()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_CHECKBOX);
    CheckTaker wrapper;
    for (int const value : {1, 0}) {
        wrapper.calls.clear();
        CSwitchCheckBoxItem visitor(&wrapper, column, value);
        rows.all()[std::size_t(rowClass)]->Accept(&visitor);
        QCOMPARE(rows.ordinary.ItemOf(column)->hasState(GCIS_CHECKED), rowClass == 0 && value == 1);
        QVERIFY(!rows.section.ItemOf(column)->hasState(GCIS_CHECKED));
        QString const told = value == 1 ? QStringLiteral("check") : QStringLiteral("uncheck");
        QCOMPARE(wrapper.calls.join(u' '), isOrdinary(rowClass) ? QString() : told);
    }
}

ZENU_TEST(tst_CheckFlip)
#include "tst_CheckFlip.moc"
