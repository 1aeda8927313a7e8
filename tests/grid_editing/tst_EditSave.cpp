#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/editing/EditSave.h"

#include <QLineEdit>

using namespace zenu;
using namespace zenutest;

namespace {

// Notes the texts that slim rows are given.
class TextTaker : public FakeWrapper
{
public:
    void SetItemText(IGCRow * row, CGCColumn * column, char const * newText) override
    {
        ++calls;
        takenRow = row;
        takenColumn = column;
        taken = newText;
    }
    int calls = 0;
    IGCRow * takenRow = nullptr;
    CGCColumn * takenColumn = nullptr;
    QByteArray taken;
};

} // namespace

class tst_EditSave : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getText_isLatin1_data();
    void getText_isLatin1();
    void saveToItem_ofEachKind_data() { addKinds(); }
    void saveToItem_ofEachKind();
    void saveToItem_replacesCallbackText();
    void saveToItem_listBox_takesTheChoiceOfThatText();
    void saveToRow_ordinary_writesTheItem();
    void saveToRow_slim_asksTheApplicationOnce_data() { addRowClasses(); }
    void saveToRow_slim_asksTheApplicationOnce();
};

void tst_EditSave::getText_isLatin1_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("plain") << "abc" << QByteArray("abc");
    QTest::newRow("empty") << "" << QByteArray("");
    QTest::newRow("blanks stay") << "  a " << QByteArray("  a ");
    QTest::newRow("Latin-1") << QString::fromLatin1("\xe4\xff\xa0") << QByteArray("\xe4\xff\xa0");
    QTest::newRow("beyond Latin-1") << QString::fromUtf8("a\xe2\x82\xac"
                                                         "b")
                                    << QByteArray("a?b");
}

void tst_EditSave::getText_isLatin1()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, text);
    QLineEdit editor(typed);
    RowsOfAllClasses const rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        CGetTextFromEditor visitor(&editor);
        rows.column(kind)->Accept(&visitor);
        QCOMPARE(QByteArray(visitor.text.c_str()), text);
    }
}

void tst_EditSave::saveToItem_ofEachKind()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(kind);
    GridItem * const item = rows.ordinary.ItemOf(column);
    item->setTextColor(0xff123456);
    item->setState(GCIS_CHECKED, true);
    QByteArray const before = dump(*item);
    char text[] = "new";
    CSaveValueToItem visitor(item, text);
    column->Accept(&visitor);
    text[0] = '-'; // the item has a copy
    QByteArray expected = before;
    if (bearsText(kind)) {
        expected.replace("text=(null)", "text=new");
    }
    QCOMPARE(dump(*item), expected);
}

void tst_EditSave::saveToItem_replacesCallbackText()
{
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    GridItem * const item = rows.ordinary.ItemOf(column);
    item->text = duplicateText("a copy");
    item->setState(GCIS_CACHEDTEXT, true);
    CSaveValueToItem visitor(item, "typed");
    column->Accept(&visitor);
    QCOMPARE(item->text, "typed");
    QVERIFY(!item->hasState(GCIS_CACHEDTEXT)); // it is the item's own now
}

void tst_EditSave::saveToItem_listBox_takesTheChoiceOfThatText()
{
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_LISTBOX);
    GridItem * const item = rows.ordinary.ItemOf(column);
    CSaveValueToItem visitor(item, "c7");
    column->Accept(&visitor);
    QCOMPARE(item->listIndex(), 7);
}

void tst_EditSave::saveToRow_ordinary_writesTheItem()
{
    RowsOfAllClasses rows;
    TextTaker wrapper;
    CGCColumn * const column = rows.column(GCCK_TEXTWITHICON);
    CSaveValueToRow visitor(&wrapper, column, "new");
    rows.ordinary.Accept(&visitor);
    rows.section.Accept(&visitor); // has none
    QCOMPARE(rows.ordinary.ItemOf(column)->text, "new");
    QVERIFY(!rows.section.ItemOf(column)->text);
    QVERIFY(!rows.section.Text());
    QCOMPARE(wrapper.calls, 0);
    for (GridItem const & item : rows.ordinary.Items()) {
        QCOMPARE(item.text != nullptr, &item == rows.ordinary.ItemOf(column));
    }
}

void tst_EditSave::saveToRow_slim_asksTheApplicationOnce()
{
    QFETCH(int, rowClass);
    if (isOrdinary(rowClass)) {
        return;
    }
    RowsOfAllClasses rows;
    TextTaker wrapper;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    CSaveValueToRow visitor(&wrapper, column, "new");
    row->Accept(&visitor);
    QCOMPARE(wrapper.calls, 1);
    QCOMPARE(wrapper.takenRow, row);
    QCOMPARE(wrapper.takenColumn, column);
    QCOMPARE(wrapper.taken, QByteArray("new"));
}

ZENU_TEST(tst_EditSave)
#include "tst_EditSave.moc"
