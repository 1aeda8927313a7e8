#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

class tst_GridItem : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void size_isSixteenBytes();
    void alignment_upToSix_isKept_data();
    void alignment_upToSix_isKept();
    void alignment_seven_overflowsToTheColumns();
    void textColor_keeps24BitsAndOneForTheRest_data();
    void textColor_keeps24BitsAndOneForTheRest();
    void listIndex_isAByteWithNoneAtTheTop_data();
    void listIndex_isAByteWithNoneAtTheTop();
    void fields_shareNoBits();
    void freshItem_ofKind_hasItsDefaults_data();
    void freshItem_ofKind_hasItsDefaults();
    void changeOfKind_iconToText_misreadsNothing();
    void changeOfKind_detourOverIcon_keepsOwnedText();
    void destructor_ofAnyKind_freesText_data();
    void destructor_ofAnyKind_freesText();
    void freeGarbage_ownedText_staysAsItIs();
    void freeGarbage_cachedText_becomesCallbackAgain();
    void freeGarbage_cachedNull_becomesCallbackAgain();
    void freeGarbage_falselyCachedCallback_onlyLosesTheBit();
    void assertValid_changesNothing();
};

void tst_GridItem::size_isSixteenBytes()
{
    if constexpr (sizeof(void *) == 8) {
        QCOMPARE(sizeof(GridItem), std::size_t(16));
    }
    QVERIFY(std::is_trivially_copyable_v<GridItem>);
}

void tst_GridItem::alignment_upToSix_isKept_data()
{
    QTest::addColumn<int>("alignment");
    for (int alignment = -1; alignment <= 6; ++alignment) {
        QTest::newRow(QByteArray::number(alignment).constData()) << alignment;
    }
}

void tst_GridItem::alignment_upToSix_isKept()
{
    QFETCH(int, alignment);
    GridItem item;
    item.flags = 0xff;
    item.setAlignment(alignment);
    QCOMPARE(item.alignment(), alignment);
    QCOMPARE(item.flags & GridItem::stateMask, 0x1fU);
}

void tst_GridItem::alignment_seven_overflowsToTheColumns()
{
    GridItem item;
    item.flags = 0xff;
    item.setAlignment(7);
    QCOMPARE(item.alignment(), -1);
    QCOMPARE(unsigned(item.flags), 0x1fU);
}

void tst_GridItem::textColor_keeps24BitsAndOneForTheRest_data()
{
    QTest::addColumn<unsigned>("stored");
    QTest::addColumn<unsigned>("read");
    QTest::newRow("unset") << 0xff000000U << 0xff000000U;
    QTest::newRow("opaque") << 0xff123456U << 0xff123456U;
    QTest::newRow("no top byte") << 0x00abcdefU << 0x00abcdefU;
    QTest::newRow("nothing") << 0U << 0U;
    QTest::newRow("part of a top byte counts as all") << 0x01fedcbaU << 0xfffedcbaU;
    QTest::newRow("white") << 0xffffffffU << 0xffffffffU;
}

void tst_GridItem::textColor_keeps24BitsAndOneForTheRest()
{
    QFETCH(unsigned, stored);
    QFETCH(unsigned, read);
    for (unsigned style = 0; style < 8; ++style) {
        GridItem item;
        item.setCheckStyle(style);
        item.setTextColor(stored);
        QCOMPARE(item.textColor(), read);
        QCOMPARE(item.checkStyle(), style);
        item.setCheckStyle(~style);
        QCOMPARE(item.textColor(), read);
        QCOMPARE(item.checkStyle(), ~style & 0x7U);
    }
}

void tst_GridItem::listIndex_isAByteWithNoneAtTheTop_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("read");
    QTest::newRow("none") << -1 << -1;
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("more than half of a byte") << 200 << 200;
    QTest::newRow("largest") << 254 << 254;
    QTest::newRow("past it, as none") << 255 << -1;
    QTest::newRow("more bits are cut") << 0x105 << 5;
    QTest::newRow("below none, cut as well") << -2 << 254;
}

void tst_GridItem::listIndex_isAByteWithNoneAtTheTop()
{
    QFETCH(int, stored);
    QFETCH(int, read);
    GridItem item;
    item.images = {3, 4, 5};
    item.setListIndex(stored);
    QCOMPARE(item.listIndex(), read);
    QCOMPARE(int(item.images[1]), 4);
    QCOMPARE(int(item.images[2]), 5);
}

void tst_GridItem::fields_shareNoBits()
{
    char text[] = "text";
    GridItem item;
    item.setTextColor(0xff102030U);
    item.setCheckStyle(GridItem::radio);
    item.images = {1, -2, 3};
    item.text = text;
    item.setState(GCIS_CHECKED, true);
    item.setState(GCIS_HOT, true);
    item.setAlignment(4);
    item.setState(GCIS_HOT, false);
    QCOMPARE(dump(item), QByteArray("flags=a8 images=1,-2,3 color=ff102030 style=2 text=text"));
    QVERIFY(item.hasState(GCIS_CHECKED));
    QVERIFY(!item.hasState(GCIS_HOT));
    QVERIFY(item.ownsText());
    item.text = GC_TEXTCALLBACK;
    QVERIFY(item.isCallback());
    QVERIFY(!item.ownsText());
}

void tst_GridItem::freshItem_ofKind_hasItsDefaults_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("expected");
    for (int kind = 0; kind < kindCount; ++kind) {
        // A fresh list item is black, not of the default colour.
        QByteArray const color = kind == GCCK_LISTBOX ? "0" : "ff000000";
        QTest::newRow(kindNames[std::size_t(kind)])
            << kind << "flags=0 images=-1,-1,-1 color=" + color + " style=0 text=(null)";
    }
}

void tst_GridItem::freshItem_ofKind_hasItsDefaults()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, expected);
    ColumnSet columns;
    addAllKinds(columns);
    GridItem item;
    std::memset(static_cast<void *>(&item), 0x5a, sizeof item);
    KItemConstructor constructor(&item);
    columns.find(kind)->Accept(&constructor);
    QCOMPARE(dump(item), expected);
    QCOMPARE(dump(columns.freshItems()[std::size_t(kind)]), expected);
}

void tst_GridItem::changeOfKind_iconToText_misreadsNothing()
{
    ColumnSet columns;
    addAllKinds(columns);
    GridItem item;
    KItemConstructor constructor(&item);
    columns.find(GCCK_ICON)->Accept(&constructor);
    item.images = {0x1f, -1, 0x7f};
    QCOMPARE(dump(item), QByteArray("flags=0 images=31,-1,127 color=ff000000 style=0 text=(null)"));
    QVERIFY(!item.ownsText());
    KFreeGarbage garbage(&item);
    columns.find(GCCK_TEXT)->Accept(&garbage);
    QVERIFY(!item.text);
}

void tst_GridItem::changeOfKind_detourOverIcon_keepsOwnedText()
{
    ColumnSet columns;
    addAllKinds(columns);
    GridItem item;
    item.text = duplicateText("mine");
    for (int kind : {int(GCCK_ICON), int(GCCK_LISTBOX)}) {
        item.images = {3, 4, 5};
        KFreeGarbage garbage(&item);
        columns.find(kind)->Accept(&garbage);
        QCOMPARE(item.text, "mine");
    }
    KItemDestructor destructor(&item);
    columns.find(GCCK_TEXT)->Accept(&destructor);
    QVERIFY(!item.text);
}

void tst_GridItem::destructor_ofAnyKind_freesText_data()
{
    addKinds();
}

void tst_GridItem::destructor_ofAnyKind_freesText()
{
    QFETCH(int, kind);
    ColumnSet columns;
    addAllKinds(columns);
    GridItem owned;
    owned.text = duplicateText("mine");
    GridItem cached;
    cached.text = duplicateText("copy");
    cached.setState(GCIS_CACHEDTEXT, true);
    GridItem callback;
    callback.text = GC_TEXTCALLBACK;
    for (GridItem * const item : {&owned, &cached, &callback}) {
        KItemDestructor destructor(item);
        columns.find(kind)->Accept(&destructor);
        columns.find(kind)->Accept(&destructor); // a second time is harmless
        QVERIFY(!item->ownsText());
    }
    QVERIFY(!owned.text);
    QVERIFY(cached.isCallback());
    QVERIFY(callback.isCallback());
}

void tst_GridItem::freeGarbage_ownedText_staysAsItIs()
{
    GridItem item;
    item.text = duplicateText("mine");
    char const * const before = item.text;
    freeItemGarbage(item);
    QVERIFY(item.text == before);
    QCOMPARE(item.text, "mine");
    destroyItem(item);
}

void tst_GridItem::freeGarbage_cachedText_becomesCallbackAgain()
{
    GridItem item;
    item.text = duplicateText("copy");
    item.flags = GCIS_CACHEDTEXT | GCIS_FOCUSED;
    freeItemGarbage(item);
    QVERIFY(item.isCallback());
    QCOMPARE(unsigned(item.flags), unsigned(GCIS_FOCUSED));
}

void tst_GridItem::freeGarbage_cachedNull_becomesCallbackAgain()
{
    GridItem item;
    item.setState(GCIS_CACHEDTEXT, true);
    freeItemGarbage(item);
    QVERIFY(item.isCallback());
    QCOMPARE(unsigned(item.flags), 0U);
}

void tst_GridItem::freeGarbage_falselyCachedCallback_onlyLosesTheBit()
{
    GridItem item;
    item.text = GC_TEXTCALLBACK;
    item.setState(GCIS_CACHEDTEXT, true);
    freeItemGarbage(item);
    QVERIFY(item.isCallback());
    QCOMPARE(unsigned(item.flags), 0U);
}

void tst_GridItem::assertValid_changesNothing()
{
    ColumnSet columns;
    addAllKinds(columns);
    GridItem const item;
    for (CGCColumn * const column : columns.all()) {
        KAssertValid check(&item);
        column->Accept(&check);
    }
    QCOMPARE(dump(item), dump(GridItem()));
}

ZENU_TEST(tst_GridItem)
#include "tst_GridItem.moc"
