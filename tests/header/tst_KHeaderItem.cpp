#include "tests/support/TestMain.h"

#include <zenu/header/KHeaderItem.h>

#include <QPixmap>

#include <new>

using namespace zenu;

class tst_KHeaderItem : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void constructor_default_isAnEmptyTextItem();
    void constructor_values_areStored();
    void constructor_nullText_isAnEmptyText();
    void copy_everyField_isCopied();
    void vecInsert_atEnd_appendsToBoth();
    void vecInsert_inTheMiddle_raisesTheOrdersBehind();
    void vecInsert_badIndex_meansTheEnd();
    void vecInsert_pastLimit_throwsBadAllocationAndChangesNothing();
    void vecLimit_isThatOfAllHeaders();
    void vecRemove_any_closesTheGapInTheOrder();
    void vecRemove_badIndex_isRefused();
    void vecClear_items_emptiesBoth();
    void vecLengthBefore_afterChanges_isSummedAnew();
    void vecLengthBefore_positionOutOfRange_isTheNearest();
    void vecLengthBefore_hugeWidths_doNotOverflow();
};

namespace {

KHeaderItem named(char const * name, int wh = 10)
{
    return KHeaderItem(name, nullptr, HeaderFormatText, 0, wh, 0);
}

// Names in order of insertion, then in order of display, then the orders of the items.
QString dump(KHeaderItemVec const & items)
{
    QString text;
    for (int i = 0; i < items.count(); ++i) {
        text += QString::fromStdString(items[i].getText());
    }
    text += u' ';
    for (int const index : items.order()) {
        text += QString::fromStdString(items[index].getText());
    }
    text += u' ';
    for (int i = 0; i < items.count(); ++i) {
        text += QString::number(items[i].getOrder());
    }
    return text;
}

} // namespace

void tst_KHeaderItem::constructor_default_isAnEmptyTextItem()
{
    KHeaderItem const item;
    QCOMPARE(item.getFmt(), 0x4000);
    QCOMPARE(item.getText(), std::string("Empty"));
    QCOMPARE(item.getWH(), 0);
    QCOMPARE(item.getMinWH(), 0);
    QCOMPARE(item.getLParam(), 0u);
    QCOMPARE(item.getImage(), -1);
    QCOMPARE(item.getOrder(), -1);
    QCOMPARE(item.getPixmap(), nullptr);
    QCOMPARE(item.getSizePercent(), 0.0);
    QCOMPARE(item.getTrackPercent(), 0.0);
    QCOMPARE(int(item.getJustify()), 1);
    QCOMPARE(item.getToolTipText(), std::string());
    QVERIFY(!item.isValid());
}

void tst_KHeaderItem::constructor_values_areStored()
{
    QPixmap pixmap;
    KHeaderItem const item("Size", &pixmap, 0x2010, 3, 40, -7);
    QCOMPARE(item.getText(), std::string("Size"));
    QCOMPARE(item.getPixmap(), &pixmap);
    QCOMPARE(item.getFmt(), 0x2010);
    QCOMPARE(item.getMinWH(), 3);
    QCOMPARE(item.getWH(), 40);
    QCOMPARE(item.getLParam(), static_cast<unsigned int>(-7));
    QCOMPARE(item.getImage(), -1);
    QCOMPARE(item.getOrder(), -1);
    QCOMPARE(int(item.getJustify()), 1);
}

void tst_KHeaderItem::constructor_nullText_isAnEmptyText()
{
    QCOMPARE(KHeaderItem(nullptr, nullptr, 0, 0, 0, 0).getText(), std::string());
}

void tst_KHeaderItem::copy_everyField_isCopied()
{
    QPixmap pixmap;
    KHeaderItem const item("A rather long title that is on the heap", &pixmap, 0x4020, 3, 40, 9);
    KHeaderItem const copy(item);
    KHeaderItem assigned;
    assigned = item;
    for (KHeaderItem const * one : {&copy, &std::as_const(assigned)}) {
        QCOMPARE(one->getText(), item.getText());
        QCOMPARE(one->getPixmap(), &pixmap);
        QCOMPARE(one->getFmt(), 0x4020);
        QCOMPARE(one->getMinWH(), 3);
        QCOMPARE(one->getWH(), 40);
        QCOMPARE(one->getLParam(), 9u);
    }
}

void tst_KHeaderItem::vecInsert_atEnd_appendsToBoth()
{
    KHeaderItemVec items;
    items.insert(0, named("a"));
    items.insert(1, named("b"));
    items.insert(2, named("c"));
    QCOMPARE(dump(items), QStringLiteral("abc abc 012"));
}

void tst_KHeaderItem::vecInsert_inTheMiddle_raisesTheOrdersBehind()
{
    KHeaderItemVec items;
    for (char const * name : {"a", "b", "c"}) {
        items.insert(-1, named(name));
    }
    items.insert(1, named("x"));
    QCOMPARE(dump(items), QStringLiteral("axbc axbc 0123"));
    items.insert(0, named("y"));
    QCOMPARE(dump(items), QStringLiteral("yaxbc yaxbc 01234"));
}

void tst_KHeaderItem::vecInsert_badIndex_meansTheEnd()
{
    KHeaderItemVec items;
    items.insert(-1, named("a"));
    items.insert(99, named("b"));
    items.insert(-5, named("c"));
    QCOMPARE(dump(items), QStringLiteral("abc abc 012"));
}

void tst_KHeaderItem::vecInsert_pastLimit_throwsBadAllocationAndChangesNothing()
{
    KHeaderItemVec items(nullptr, 2);
    items.insert(-1, named("a"));
    items.insert(-1, named("b"));
    bool thrown = false;
    try {
        items.insert(0, named("c"));
    } catch (std::bad_alloc const & failure) {
        thrown = true;
        QCOMPARE(failure.what(), "bad allocation");
    }
    QVERIFY(thrown);
    QCOMPARE(dump(items), QStringLiteral("ab ab 01"));
}

void tst_KHeaderItem::vecLimit_isThatOfAllHeaders()
{
    QCOMPARE(KHeaderItemVec::Limit, std::size_t(37025580));
}

void tst_KHeaderItem::vecRemove_any_closesTheGapInTheOrder()
{
    KHeaderItemVec items;
    for (char const * name : {"a", "b", "c", "d"}) {
        items.insert(-1, named(name));
    }
    QVERIFY(items.remove(1));
    QCOMPARE(dump(items), QStringLiteral("acd acd 012"));
    QVERIFY(items.remove(2));
    QVERIFY(items.remove(0));
    QCOMPARE(dump(items), QStringLiteral("c c 0"));
}

void tst_KHeaderItem::vecRemove_badIndex_isRefused()
{
    KHeaderItemVec items;
    QVERIFY(!items.remove(0));
    items.insert(-1, named("a"));
    QVERIFY(!items.remove(-1));
    QVERIFY(!items.remove(1));
    QCOMPARE(dump(items), QStringLiteral("a a 0"));
}

void tst_KHeaderItem::vecClear_items_emptiesBoth()
{
    KHeaderItemVec items;
    items.insert(-1, named("a"));
    items.clear();
    QCOMPARE(items.count(), 0);
    QVERIFY(items.order().empty());
    QCOMPARE(items.lengthBefore(0), 0);
    QCOMPARE(items.itemAt(0), -1);
}

void tst_KHeaderItem::vecLengthBefore_afterChanges_isSummedAnew()
{
    KHeaderItemVec items;
    items.insert(-1, named("a", 10));
    items.insert(-1, named("b", 20));
    QCOMPARE(items.lengthBefore(1), 10);
    QCOMPARE(items.lengthBefore(2), 30);
    items.setWH(0, 15);
    QCOMPARE(items.lengthBefore(2), 35);
    items.insert(0, named("c", 100));
    QCOMPARE(items.lengthBefore(2), 115);
    items.remove(1);
    QCOMPARE(items.lengthBefore(2), 120);
}

void tst_KHeaderItem::vecLengthBefore_positionOutOfRange_isTheNearest()
{
    KHeaderItemVec items;
    items.insert(-1, named("a", 10));
    QCOMPARE(items.lengthBefore(-3), 0);
    QCOMPARE(items.lengthBefore(7), 10);
}

void tst_KHeaderItem::vecLengthBefore_hugeWidths_doNotOverflow()
{
    KHeaderItemVec items;
    int const huge = std::numeric_limits<int>::max();
    items.insert(-1, named("a", huge));
    items.insert(-1, named("b", huge));
    QCOMPARE(items.lengthBefore(2), 2LL * huge);
}

ZENU_TEST(tst_KHeaderItem)
#include "tst_KHeaderItem.moc"
