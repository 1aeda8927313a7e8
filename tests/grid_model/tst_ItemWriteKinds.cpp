#include "tests/grid_model/ItemWriter.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

// What check boxes, list boxes and the other row classes make of a write.
class tst_ItemWriteKinds : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void setItem_checkValue_data();
    void setItem_checkValue();
    void setItem_checkStyle_keepsGrayedAndColour_data();
    void setItem_checkStyle_keepsGrayedAndColour();
    void setItem_listText_takesTheFirstEqualChoice_data();
    void setItem_listText_takesTheFirstEqualChoice();
    void setItem_listText_ofAnIndexPastAByte_isNoMatch_data();
    void setItem_listText_ofAnIndexPastAByte_isNoMatch();
    void setItem_listValueAndText_usesTheValue();
    void setItem_listValue_isStoredUnverified();
    void setItem_slimRows_refuse();
    void setItem_section_takesTitleAndColour_data();
    void setItem_section_takesTitleAndColour();
    void setItem_sectionTitle_sameTextIsNoChange();
};

void tst_ItemWriteKinds::setItem_checkValue_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("grayed");
    int const plain = GCCK_CHECKBOX;
    QTest::newRow("check box, 0") << plain << 0 << false << true;
    QTest::newRow("check box, 1") << plain << 1 << true << true;
    QTest::newRow("check box, anything above") << plain << 1000 << true << true;
    QTest::newRow("check box, below") << plain << -1 << false << true;
    int const icon = GCCK_CHECKBOXWITHICON;
    QTest::newRow("check box with icon, 0") << icon << 0 << false << false;
    QTest::newRow("check box with icon, 1") << icon << 1 << true << false;
    QTest::newRow("check box with icon, 2") << icon << 2 << false << true;
    QTest::newRow("check box with icon, 3") << icon << 3 << true << true;
    QTest::newRow("check box with icon, two bits count") << icon << 4 << false << false;
}

void tst_ItemWriteKinds::setItem_checkValue()
{
    QFETCH(int, kind);
    QFETCH(int, value);
    QFETCH(bool, checked);
    QFETCH(bool, grayed);
    for (bool before : {false, true}) {
        RowsOfAllClasses rows;
        GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
        item->setState(GCIS_CHECKED, before);
        item->setCheckStyle(GridItem::radio | GridItem::hideCheck | GridItem::grayed);
        Writer writer(GCIM_VALUE);
        writer.record.value = value;
        writer.write(&rows.ordinary, rows.column(kind));
        QCOMPARE(item->hasState(GCIS_CHECKED), checked);
        QCOMPARE((item->checkStyle() & GridItem::grayed) != 0, grayed);
        QCOMPARE(item->checkStyle() & ~GridItem::grayed,
                 unsigned(GridItem::radio | GridItem::hideCheck));
        QVERIFY(writer.changed); // even if nothing differs
        QVERIFY(writer.result);
    }
}

void tst_ItemWriteKinds::setItem_checkStyle_keepsGrayedAndColour_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("value");
    QTest::addColumn<unsigned>("style");
    for (int kind : {int(GCCK_CHECKBOX), int(GCCK_CHECKBOXWITHICON)}) {
        for (int value : {0, 1, 2, 3, 4, -1}) {
            unsigned const style =
                ((value & 1) ? GridItem::radio : 0U) | ((value & 2) ? GridItem::hideCheck : 0U);
            QTest::addRow("%s, %d", kindNames[std::size_t(kind)], value) << kind << value << style;
        }
    }
}

void tst_ItemWriteKinds::setItem_checkStyle_keepsGrayedAndColour()
{
    QFETCH(int, kind);
    QFETCH(int, value);
    QFETCH(unsigned, style);
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    item->setTextColor(0xff010203U);
    for (unsigned before : {0U, 7U}) {
        item->setCheckStyle(before);
        Writer writer(GCIM_CHECKSTYLE);
        writer.record.value = value;
        writer.write(&rows.ordinary, rows.column(kind));
        QCOMPARE(item->checkStyle(), style | (before & GridItem::grayed));
        QCOMPARE(item->textColor(), 0xff010203U);
        QVERIFY(writer.changed);
    }
}

void tst_ItemWriteKinds::setItem_listText_takesTheFirstEqualChoice_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("index");
    QTest::newRow("first of two equal ones") << QByteArray("twice") << 10;
    QTest::newRow("exact") << QByteArray("c3") << 3;
    QTest::newRow("no match by case") << QByteArray("C3") << -1;
    QTest::newRow("no match by prefix") << QByteArray("c") << -1;
    QTest::newRow("empty") << QByteArray("") << -1;
    QTest::newRow("null") << QByteArray() << -1;
    QTest::newRow("callback") << QByteArray("(callback)") << -1;
}

void tst_ItemWriteKinds::setItem_listText_takesTheFirstEqualChoice()
{
    QFETCH(QByteArray, text);
    QFETCH(int, index);
    RowsOfAllClasses rows;
    auto * const list = static_cast<CGCListBoxColumn *>(rows.column(GCCK_LISTBOX));
    list->choices.insert(list->choices.end(), {"twice", "twice"});
    GridItem * const item = rows.ordinary.ItemOf(list);
    item->images[0] = 7;
    Writer writer(GCIM_TEXT);
    writer.record.text =
        text.isNull() ? nullptr : (text == "(callback)" ? GC_TEXTCALLBACK : text.data());
    writer.write(&rows.ordinary, list);
    QCOMPARE(item->listIndex(), index);
    QCOMPARE(writer.result, index >= 0);
    QVERIFY(writer.changed); // the index moved
    writer.write(&rows.ordinary, list);
    QVERIFY(!writer.changed);
    QVERIFY(!item->text);
}

void tst_ItemWriteKinds::setItem_listText_ofAnIndexPastAByte_isNoMatch_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("index");
    QTest::newRow("past half of a byte") << 200 << 200;
    QTest::newRow("last that an item can name") << 254 << 254;
    QTest::newRow("the value of none") << 255 << -1;
    QTest::newRow("not another one") << 300 << -1;
}

void tst_ItemWriteKinds::setItem_listText_ofAnIndexPastAByte_isNoMatch()
{
    QFETCH(int, choice);
    QFETCH(int, index);
    RowsOfAllClasses rows;
    auto * const list = static_cast<CGCListBoxColumn *>(rows.column(GCCK_LISTBOX));
    for (int i = int(list->choices.size()); i < 400; ++i) {
        list->choices.push_back("c" + std::to_string(i));
    }
    rows.ordinary.ItemOf(list)->setListIndex(7);
    Writer writer(GCIM_TEXT);
    writer.record.text = list->choices[std::size_t(choice)].data();
    writer.write(&rows.ordinary, list);
    QCOMPARE(rows.ordinary.ItemOf(list)->listIndex(), index);
    QCOMPARE(writer.result, index >= 0);
    QVERIFY(writer.changed);
}

void tst_ItemWriteKinds::setItem_listValueAndText_usesTheValue()
{
    RowsOfAllClasses rows;
    Writer writer(GCIM_VALUE | GCIM_TEXT);
    writer.text = "c7";
    writer.record.text = writer.text.data();
    writer.write(&rows.ordinary, rows.column(GCCK_LISTBOX));
    QCOMPARE(rows.ordinary.ItemOf(rows.column(GCCK_LISTBOX))->listIndex(), 2);
    QVERIFY(writer.result);
}

void tst_ItemWriteKinds::setItem_listValue_isStoredUnverified()
{
    RowsOfAllClasses rows;
    Writer writer(GCIM_VALUE);
    writer.record.value = 99;
    writer.write(&rows.ordinary, rows.column(GCCK_LISTBOX));
    QVERIFY(writer.result);
    QVERIFY(writer.changed);
    QCOMPARE(rows.ordinary.ItemOf(rows.column(GCCK_LISTBOX))->listIndex(), 99);
    writer.write(&rows.ordinary, rows.column(GCCK_LISTBOX));
    QVERIFY(!writer.changed);
    writer.record.value = 0x105;
    writer.write(&rows.ordinary, rows.column(GCCK_LISTBOX));
    QCOMPARE(rows.ordinary.ItemOf(rows.column(GCCK_LISTBOX))->listIndex(), 5);
}

void tst_ItemWriteKinds::setItem_slimRows_refuse()
{
    RowsOfAllClasses rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        for (IGCRow * const row : {rows.all()[2], rows.all()[3]}) {
            Writer writer(~0U);
            writer.write(row, rows.column(kind));
            QVERIFY(!writer.changed);
            QVERIFY(!writer.result);
        }
    }
}

void tst_ItemWriteKinds::setItem_section_takesTitleAndColour_data()
{
    addKindsAndMaskBits();
}

void tst_ItemWriteKinds::setItem_section_takesTitleAndColour()
{
    QFETCH(int, kind);
    QFETCH(unsigned, mask);
    RowsOfAllClasses rows;
    rows.section.SetText("old");
    Writer writer(mask);
    writer.write(&rows.section, rows.column(kind));
    QCOMPARE(rows.section.Text(), mask == GCIM_TEXT ? "new" : "old");
    QCOMPARE(rows.section.textColor, mask == GCIM_TEXTCOLOR ? 0xff445566U : GC_UNSETCOLOR);
    QCOMPARE(writer.changed, mask == GCIM_TEXT); // a colour alone does not say so
    QVERIFY(!writer.result);
    QCOMPARE(dump(*rows.section.ItemOf(rows.column(kind))), fresh(kind));
}

void tst_ItemWriteKinds::setItem_sectionTitle_sameTextIsNoChange()
{
    RowsOfAllClasses rows;
    Writer writer(GCIM_TEXT);
    writer.write(&rows.section, rows.column(0));
    QVERIFY(writer.changed);
    writer.write(&rows.section, rows.column(0));
    QVERIFY(!writer.changed);
    writer.record.text = GC_TEXTCALLBACK; // a title has no callback
    writer.write(&rows.section, rows.column(0));
    QVERIFY(!writer.changed);
    QCOMPARE(rows.section.Text(), "new");
    writer.record.text = nullptr;
    writer.write(&rows.section, rows.column(0));
    QVERIFY(writer.changed);
    QVERIFY(!rows.section.Text());
    writer.write(&rows.section, rows.column(0));
    QVERIFY(!writer.changed);
}

ZENU_TEST(tst_ItemWriteKinds)
#include "tst_ItemWriteKinds.moc"
