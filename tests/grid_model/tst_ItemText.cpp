#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/data/ItemText.h"

using namespace zenu;
using namespace zenutest;

class tst_ItemText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void text_ofKind_data();
    void text_ofKind();
    void getText_callback_isAskedOnceAndKept_data();
    void getText_callback_isAskedOnceAndKept();
    void getText_callbackAnsweringNull_staysNullAndCached();
    void getText_callbackAnsweringAnotherCallback_isNull_data();
    void getText_callbackAnsweringAnotherCallback_isNull();
    void getText_afterFreeGarbage_asksAgain();
    void getText_callbackSetsTheItem_usesWhatWasSet();
    void getText_callbackAddsAColumn_findsTheItemAgain();
    void getText_callbackRemovesTheItems_isNull();
    void getTextAndForget_callback_leavesTheItemAsItIs_data();
    void getTextAndForget_callback_leavesTheItemAsItIs();
    void getTextAndForget_cachedCopy_isUsed();
    void getText_withoutCallback_isNull();
    void getTextAndForget_hideCheck_isReadForCheckKindsOnly_data();
    void getTextAndForget_hideCheck_isReadForCheckKindsOnly();
    void listIndex_outOfRange_isNull();
    void rowWithoutItem_textIsEmpty();
    void itemText_ofEachRowClass_data();
    void itemText_ofEachRowClass();
    void itemText_hideCheck_comesAlong();
    void itemText_length_ofNull_isZero();
    void itemText_visitedCell_isNotCopied();
};

namespace {

template <typename Visitor>
char const * textBy(RowsOfAllClasses & rows, int kind, ITextCallback * callback)
{
    Visitor visitor(&rows.ordinary, callback);
    rows.column(kind)->Accept(&visitor);
    return visitor.text;
}

} // namespace

void tst_ItemText::text_ofKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("expected");
    for (int kind = 0; kind < kindCount; ++kind) {
        QTest::newRow(kindNames[std::size_t(kind)])
            << kind << QByteArray(kind == GCCK_ICON ? "" : (kind == GCCK_LISTBOX ? "c4" : "mine"));
    }
}

void tst_ItemText::text_ofKind()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, expected);
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    item->text = duplicateText("mine");
    item->images[0] = 4;
    QCOMPARE(textOf(textBy<KGetText>(rows, kind, &callback)), expected);
    QCOMPARE(textOf(textBy<KGetTextAndForget>(rows, kind, &callback)), expected);
    QCOMPARE(callback.asked, 0);
    QVERIFY(!item->hasState(GCIS_CACHEDTEXT));
}

void tst_ItemText::getText_callback_isAskedOnceAndKept_data()
{
    addTextKinds();
}

void tst_ItemText::getText_callback_isAskedOnceAndKept()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    item->text = GC_TEXTCALLBACK;
    char const * const first = textBy<KGetText>(rows, kind, &callback);
    QCOMPARE(first, "from callback");
    QVERIFY(first != callback.text);
    QVERIFY(first == item->text);
    QVERIFY(item->hasState(GCIS_CACHEDTEXT));
    callback.text = "other";
    QVERIFY(textBy<KGetText>(rows, kind, &callback) == first);
    QCOMPARE(callback.asked, 1);
}

void tst_ItemText::getText_callbackAnsweringNull_staysNullAndCached()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    callback.text = nullptr;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(GCCK_TEXT));
    item->text = GC_TEXTCALLBACK;
    QVERIFY(!textBy<KGetText>(rows, GCCK_TEXT, &callback));
    QVERIFY(!textBy<KGetText>(rows, GCCK_TEXT, &callback));
    QVERIFY(!textBy<KGetTextAndForget>(rows, GCCK_TEXT, &callback));
    QCOMPARE(callback.asked, 1);
    QVERIFY(!item->text);
    QVERIFY(item->hasState(GCIS_CACHEDTEXT));
    rows.ordinary.FreeGarbage(rows.columns);
    QVERIFY(item->isCallback());
}

void tst_ItemText::getText_callbackAnsweringAnotherCallback_isNull_data()
{
    QTest::addColumn<int>("below");
    QTest::newRow("the value that asks") << 0;
    QTest::newRow("the one beside it") << 1;
}

void tst_ItemText::getText_callbackAnsweringAnotherCallback_isNull()
{
    QFETCH(int, below);
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    callback.text = GC_TEXTCALLBACK - below;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    QVERIFY(!textBy<KGetTextAndForget>(rows, GCCK_TEXT, &callback));
    CGetItemText cell(rows.column(GCCK_TEXT), &callback, nullptr);
    rows.ordinary.Accept(&cell);
    QVERIFY(!cell.text);
    QVERIFY(!textBy<KGetText>(rows, GCCK_TEXT, &callback));
}

void tst_ItemText::getText_afterFreeGarbage_asksAgain()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    textBy<KGetText>(rows, GCCK_TEXT, &callback);
    rows.ordinary.FreeGarbage(rows.columns);
    callback.text = "second";
    QCOMPARE(textBy<KGetText>(rows, GCCK_TEXT, &callback), "second");
    QCOMPARE(callback.asked, 2);
}

void tst_ItemText::getText_callbackSetsTheItem_usesWhatWasSet()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(GCCK_TEXT));
    item->text = GC_TEXTCALLBACK;
    callback.meanwhile = [&](IGCRow *, CGCColumn *) { item->text = duplicateText("set"); };
    QCOMPARE(textBy<KGetText>(rows, GCCK_TEXT, &callback), "set");
    QVERIFY(!item->hasState(GCIS_CACHEDTEXT));
    QCOMPARE(item->text, "set");
}

void tst_ItemText::getText_callbackAddsAColumn_findsTheItemAgain()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    std::unique_ptr<CGCColumn> const added = makeColumn(GCCK_TEXT, 20, kindCount);
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    callback.meanwhile = [&](IGCRow * row, CGCColumn *) { row->AddColumnItem(added.get()); };
    char const * const text = textBy<KGetText>(rows, GCCK_TEXT, &callback);
    QCOMPARE(text, "from callback");
    QVERIFY(rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text == text);
}

void tst_ItemText::getText_callbackRemovesTheItems_isNull()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    callback.meanwhile = [&](IGCRow * row, CGCColumn *) { row->DestroyItems(rows.columns); };
    QVERIFY(!textBy<KGetText>(rows, GCCK_TEXT, &callback));
}

void tst_ItemText::getTextAndForget_callback_leavesTheItemAsItIs_data()
{
    addTextKinds();
}

void tst_ItemText::getTextAndForget_callback_leavesTheItemAsItIs()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
    item->text = GC_TEXTCALLBACK;
    for (int asked = 1; asked <= 2; ++asked) {
        QVERIFY(textBy<KGetTextAndForget>(rows, kind, &callback) == callback.text);
        QCOMPARE(callback.asked, asked);
        QVERIFY(item->isCallback());
        QVERIFY(!item->hasState(GCIS_CACHEDTEXT));
    }
}

void tst_ItemText::getTextAndForget_cachedCopy_isUsed()
{
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    textBy<KGetText>(rows, GCCK_TEXT, &callback);
    callback.text = "other";
    QCOMPARE(textBy<KGetTextAndForget>(rows, GCCK_TEXT, &callback), "from callback");
    QCOMPARE(callback.asked, 1);
}

void tst_ItemText::getText_withoutCallback_isNull()
{
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = GC_TEXTCALLBACK;
    QVERIFY(!textBy<KGetTextAndForget>(rows, GCCK_TEXT, nullptr));
    QVERIFY(!textBy<KGetText>(rows, GCCK_TEXT, nullptr));
}

void tst_ItemText::getTextAndForget_hideCheck_isReadForCheckKindsOnly_data()
{
    addKinds();
}

void tst_ItemText::getTextAndForget_hideCheck_isReadForCheckKindsOnly()
{
    QFETCH(int, kind);
    bool const hasCheck = kind == GCCK_CHECKBOX || kind == GCCK_CHECKBOXWITHICON;
    RowsOfAllClasses rows;
    for (unsigned style = 0; style < 8; ++style) {
        rows.ordinary.ItemOf(rows.column(kind))->setCheckStyle(style);
        KGetTextAndForget visitor(&rows.ordinary, nullptr);
        rows.column(kind)->Accept(&visitor);
        QCOMPARE(visitor.hideCheck, hasCheck && (style & GridItem::hideCheck));
    }
}

void tst_ItemText::listIndex_outOfRange_isNull()
{
    RowsOfAllClasses rows;
    for (int index : {-1, 10, 200, 254}) {
        rows.ordinary.ItemOf(rows.column(GCCK_LISTBOX))->setListIndex(index);
        QVERIFY(!textBy<KGetText>(rows, GCCK_LISTBOX, nullptr));
        QVERIFY(!textBy<KGetTextAndForget>(rows, GCCK_LISTBOX, nullptr));
    }
}

void tst_ItemText::rowWithoutItem_textIsEmpty()
{
    RowsOfAllClasses rows;
    rows.ordinary.DestroyItems(rows.columns);
    for (int kind = 0; kind < kindCount; ++kind) {
        QByteArray const expected = kind == GCCK_LISTBOX ? "(null)" : "";
        QCOMPARE(textOf(textBy<KGetText>(rows, kind, nullptr)), expected);
        QCOMPARE(textOf(textBy<KGetTextAndForget>(rows, kind, nullptr)), expected);
    }
}

void tst_ItemText::itemText_ofEachRowClass_data()
{
    QTest::addColumn<int>("rowClass");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("expected");
    for (int kind = 0; kind < kindCount; ++kind) {
        char const * const name = kindNames[std::size_t(kind)];
        QTest::addRow("ordinary, %s", name)
            << 0 << kind
            << QByteArray(kind == GCCK_ICON ? ""
                                            : (kind == GCCK_LISTBOX ? "(null)" : "from callback"));
        QTest::addRow("section, %s", name) << 1 << kind << QByteArray("title");
        QTest::addRow("slim, %s", name) << 2 << kind << QByteArray("slim text");
        QTest::addRow("lonely, %s", name) << 3 << kind << QByteArray("slim text");
    }
}

void tst_ItemText::itemText_ofEachRowClass()
{
    QFETCH(int, rowClass);
    QFETCH(int, kind);
    QFETCH(QByteArray, expected);
    RowsOfAllClasses rows;
    FakeTextCallback callback;
    FakeWrapper wrapper;
    wrapper.text = "slim text";
    rows.section.SetText("title");
    rows.ordinary.ItemOf(rows.column(kind))->text = GC_TEXTCALLBACK;
    CGetItemText visitor(rows.column(kind), &callback, &wrapper);
    rows.all()[std::size_t(rowClass)]->Accept(&visitor);
    QCOMPARE(textOf(visitor.text), expected);
    QCOMPARE(visitor.Length(), expected == "(null)" ? 0 : int(expected.size()));
    QVERIFY(!visitor.hideCheck);
    QVERIFY(rows.ordinary.ItemOf(rows.column(kind))->isCallback());
}

void tst_ItemText::itemText_hideCheck_comesAlong()
{
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(GCCK_CHECKBOX))->setCheckStyle(GridItem::hideCheck);
    CGetItemText visitor(rows.column(GCCK_CHECKBOX), nullptr, nullptr);
    rows.ordinary.Accept(&visitor);
    QVERIFY(visitor.hideCheck);
}

void tst_ItemText::itemText_length_ofNull_isZero()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    for (IGCRow * const row : rows.all()) {
        for (ISlimGridCallbackWrapper * const either :
             {static_cast<ISlimGridCallbackWrapper *>(&wrapper),
              static_cast<ISlimGridCallbackWrapper *>(nullptr)}) {
            CGetItemText visitor(rows.column(GCCK_TEXT), nullptr, either);
            QCOMPARE(visitor.Length(), 0);
            row->Accept(&visitor);
            QVERIFY(!visitor.text);
            QCOMPARE(visitor.Length(), 0);
        }
    }
}

void tst_ItemText::itemText_visitedCell_isNotCopied()
{
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text = duplicateText("mine");
    rows.section.SetText("title");
    CGetItemText cell(rows.column(GCCK_TEXT), nullptr, nullptr);
    rows.ordinary.Accept(&cell);
    QVERIFY(cell.text == rows.ordinary.ItemOf(rows.column(GCCK_TEXT))->text);
    CGetItemText title(rows.column(GCCK_TEXT), nullptr, nullptr);
    rows.section.Accept(&title);
    QVERIFY(title.text == rows.section.Text());
}

ZENU_TEST(tst_ItemText)
#include "tst_ItemText.moc"
