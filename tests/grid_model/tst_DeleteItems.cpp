#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/data/CheckState.h"
#include "zenu/grid/data/DeleteItems.h"

using namespace zenu;
using namespace zenutest;

class tst_DeleteItems : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void deleteAllItem_tree_destroysEveryItem();
    void deleteAllItem_slimRows_areNotEntered();
    void deleteAllItem_oneVisitor_servesManyRows();
    void deleteAllItem_chainOfAMillionRows_needsNoRecursion();
    void hasCheckBox_ofKind_data();
    void hasCheckBox_ofKind();
};

namespace {

CGCOrdinaryRow * addChild(IGCRow * parent, ColumnSet const & columns)
{
    auto * const row = new CGCOrdinaryRow(parent, columns);
    row->Items()[0].text = duplicateText("text");
    parent->InsertChildAfter(row, GCI_LAST);
    return row;
}

} // namespace

void tst_DeleteItems::deleteAllItem_tree_destroysEveryItem()
{
    RowsOfAllClasses rows;
    std::vector<CGCOrdinaryRow *> all{&rows.section};
    for (std::size_t i = 0; i < 50; ++i) {
        all.push_back(addChild(all[i / 3], rows.columns));
    }
    CDeleteAllItem visitor(rows.columns, nullptr);
    rows.section.Accept(&visitor);
    for (CGCOrdinaryRow const * const row : all) {
        QVERIFY(row->Items().empty());
    }
}

void tst_DeleteItems::deleteAllItem_slimRows_areNotEntered()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    wrapper.hasSubRows = true;
    wrapper.subRowCount = 3;
    CDeleteAllItem visitor(rows.columns, &wrapper);
    rows.ordinary.InsertChildAfter(new CGCSlimRow(&rows.ordinary), GCI_LAST);
    CGCOrdinaryRow * const child = addChild(&rows.ordinary, rows.columns);
    rows.ordinary.InsertChildAfter(new CGCLonelySlimRow(&rows.ordinary), GCI_LAST);
    rows.ordinary.Accept(&visitor);
    rows.slim.Accept(&visitor);
    rows.lonely.Accept(&visitor);
    QVERIFY(child->Items().empty());
    QCOMPARE(wrapper.loads + wrapper.countAsked + wrapper.hasAsked, 0);
}

void tst_DeleteItems::deleteAllItem_oneVisitor_servesManyRows()
{
    RowsOfAllClasses rows;
    CDeleteAllItem visitor(rows.columns, nullptr);
    std::vector<std::unique_ptr<CGCOrdinaryRow>> tops;
    for (int i = 0; i < 5; ++i) {
        tops.push_back(std::make_unique<CGCOrdinaryRow>(nullptr, rows.columns));
        tops.back()->Items()[0].text = duplicateText("top");
        CGCOrdinaryRow * const child =
            addChild(addChild(tops.back().get(), rows.columns), rows.columns);
        tops.back()->Accept(&visitor);
        QVERIFY(tops.back()->Items().empty());
        QVERIFY(child->Items().empty());
    }
}

void tst_DeleteItems::deleteAllItem_chainOfAMillionRows_needsNoRecursion()
{
    ColumnSet columns;
    columns.add(makeColumn(GCCK_TEXT, 0, 0));
    auto const top = std::make_unique<CGCOrdinaryRow>(nullptr, columns);
    CGCOrdinaryRow * row = top.get();
    for (int i = 1; i < 1000000; ++i) {
        row = addChild(row, columns);
    }
    CDeleteAllItem visitor(columns, nullptr);
    top->Accept(&visitor);
    QVERIFY(row->Items().empty());
}

void tst_DeleteItems::hasCheckBox_ofKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("has");
    for (int kind = 0; kind < kindCount; ++kind) {
        QTest::newRow(kindNames[std::size_t(kind)])
            << kind << (kind == GCCK_CHECKBOX || kind == GCCK_CHECKBOXWITHICON);
    }
}

void tst_DeleteItems::hasCheckBox_ofKind()
{
    QFETCH(int, kind);
    QFETCH(bool, has);
    KHasCheckBox visitor;
    makeColumn(kind, 0, 0)->Accept(&visitor);
    QCOMPARE(visitor.result, has);
    KHasCheckBox root;
    CGCColumn(0, 0).Accept(&root);
    QVERIFY(!root.result);
}

ZENU_TEST(tst_DeleteItems)
#include "tst_DeleteItems.moc"
