#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace zenu;

class tst_ChildRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void newList_isEmpty();
    void insert_firstAndLast_goToTheEnds();
    void insert_besideAChild_standsBeforeOrAfterIt();
    void insert_unknownPosition_isRefused_data();
    void insert_unknownPosition_isRefused();
    void insert_noRows_changesNothing();
    void remove_leavesNoTrace();
    void remove_noChild_isRefused();
    void remove_all_isEmptyAgain();
    void clear_forgetsAll();
    void indexOf_afterManyFrontInsertions_isExact();
    void randomOperations_matchAVector_data();
    void randomOperations_matchAVector();
    void remove_thousandOfAMillion_leavesTheOthersInOrder();
};

namespace {

using Row = CGCLonelySlimRow;

struct Rows
{
    explicit Rows(int count)
    {
        for (int i = 0; i < count; ++i) {
            owned.push_back(std::make_unique<Row>(nullptr));
        }
    }
    IGCRow * operator[](int i) const { return owned[std::size_t(i)].get(); }
    std::vector<std::unique_ptr<Row>> owned;
};

std::vector<IGCRow *> listOf(ChildRows const & children)
{
    RowSpan const span = children.span();
    std::vector<IGCRow *> list;
    for (int i = 0; i < span.count(); ++i) {
        list.push_back(span[i]);
    }
    return list;
}

using List = std::vector<IGCRow *>;

} // namespace

void tst_ChildRows::newList_isEmpty()
{
    ChildRows const children;
    QVERIFY(children.isEmpty());
    QCOMPARE(children.count(), 0);
    QCOMPARE(children.span().count(), 0);
    QCOMPARE(children.bytes(), std::size_t(0));
}

void tst_ChildRows::insert_firstAndLast_goToTheEnds()
{
    Rows const r(5);
    ChildRows children;
    for (bool after : {true, false}) {
        QVERIFY(children.insert(List{r[0], r[1]}, GCI_LAST, after));
        QVERIFY(children.insert(List{r[2]}, GCI_FIRST, after));
        QVERIFY(children.insert(List{r[3], r[4]}, GCI_LAST, after));
        QCOMPARE(listOf(children), (List{r[2], r[0], r[1], r[3], r[4]}));
        children.clear();
    }
}

void tst_ChildRows::insert_besideAChild_standsBeforeOrAfterIt()
{
    Rows const r(6);
    ChildRows children;
    QVERIFY(children.insert(List{r[0], r[1]}, GCI_LAST, true));
    QVERIFY(children.insert(List{r[2], r[3]}, r[0]->Handle(), true));
    QVERIFY(children.insert(List{r[4]}, r[0]->Handle(), false));
    QVERIFY(children.insert(List{r[5]}, r[1]->Handle(), true));
    QCOMPARE(listOf(children), (List{r[4], r[0], r[2], r[3], r[1], r[5]}));
}

void tst_ChildRows::insert_unknownPosition_isRefused_data()
{
    QTest::addColumn<qlonglong>("position");
    QTest::newRow("null, with a hole in the list") << 0LL;
    QTest::newRow("the root") << -1LL;
    QTest::newRow("an address where nothing lives") << 0x1234567LL;
}

void tst_ChildRows::insert_unknownPosition_isRefused()
{
    QFETCH(qlonglong, position);
    Rows const r(5);
    ChildRows children;
    QVERIFY(children.insert(List{r[0], r[1], r[2]}, GCI_LAST, true));
    QVERIFY(children.remove(r[1]));
    auto * const handle = reinterpret_cast<tag_HROW *>(static_cast<long>(position));
    QVERIFY(!children.insert(List{r[3]}, handle, true));
    QVERIFY(!children.insert(List{r[3]}, handle, false));
    QVERIFY(!children.insert(List{r[3]}, r[1]->Handle(), true));
    QCOMPARE(listOf(children), (List{r[0], r[2]}));
}

void tst_ChildRows::insert_noRows_changesNothing()
{
    Rows const r(2);
    ChildRows children;
    QVERIFY(children.insert(List{}, GCI_LAST, true));
    QVERIFY(children.isEmpty());
    QVERIFY(children.insert(List{r[0]}, GCI_FIRST, true));
    QVERIFY(children.insert(List{}, r[0]->Handle(), true));
    QVERIFY(children.insert(List{r[1]}, r[0]->Handle(), true));
    QCOMPARE(listOf(children), (List{r[0], r[1]}));
}

void tst_ChildRows::remove_leavesNoTrace()
{
    Rows const r(6);
    ChildRows children;
    QVERIFY(children.insert(List{r[0], r[1], r[2], r[3], r[4]}, GCI_LAST, true));
    QVERIFY(children.remove(r[1]));
    QVERIFY(children.remove(r[3]));
    QCOMPARE(children.count(), 3);
    QVERIFY(children.insert(List{r[5]}, r[2]->Handle(), true)); // beside a hole
    QCOMPARE(children.count(), 4);
    QVERIFY(children.at(1) == r[2]);
    QCOMPARE(children.indexOf(r[4]), 3);
    QCOMPARE(listOf(children), (List{r[0], r[2], r[5], r[4]}));
}

void tst_ChildRows::remove_noChild_isRefused()
{
    Rows const r(3);
    ChildRows children;
    QVERIFY(!children.remove(r[0]));
    QVERIFY(!children.remove(nullptr));
    QVERIFY(children.insert(List{r[0], r[1]}, GCI_LAST, true));
    QVERIFY(!children.remove(r[2]));
    QVERIFY(children.remove(r[0]));
    QVERIFY(!children.remove(r[0]));
    QVERIFY(!children.remove(nullptr)); // which a hole is too
    QCOMPARE(children.indexOf(r[2]), -1);
    QCOMPARE(children.indexOf(nullptr), -1);
    QCOMPARE(children.count(), 1);
}

void tst_ChildRows::remove_all_isEmptyAgain()
{
    Rows const r(3);
    ChildRows children;
    QVERIFY(children.insert(List{r[0], r[1], r[2]}, GCI_LAST, true));
    QVERIFY(children.remove(r[0]));
    QVERIFY(children.remove(r[1]));
    QVERIFY(!children.isEmpty());
    QVERIFY(children.remove(r[2]));
    QVERIFY(children.isEmpty());
    QCOMPARE(children.span().count(), 0);
    QVERIFY(children.insert(List{r[1]}, GCI_LAST, true));
    QCOMPARE(listOf(children), (List{r[1]}));
}

void tst_ChildRows::clear_forgetsAll()
{
    Rows const r(2);
    ChildRows children;
    QVERIFY(children.insert(List{r[0], r[1]}, GCI_LAST, true));
    children.clear();
    QVERIFY(children.isEmpty());
    QCOMPARE(children.bytes(), std::size_t(0));
    QVERIFY(!children.insert(List{r[1]}, r[0]->Handle(), true));
}

void tst_ChildRows::indexOf_afterManyFrontInsertions_isExact()
{
    int const count = 5000; // far more than rows remember their place by
    Rows const r(count);
    ChildRows children;
    for (int i = 0; i < count; ++i) {
        QVERIFY(children.insert(List{r[i]}, GCI_FIRST, true));
    }
    for (int i = 0; i < count; ++i) {
        QCOMPARE(children.indexOf(r[i]), count - 1 - i);
    }
}

void tst_ChildRows::randomOperations_matchAVector_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("checkEvery");
    for (unsigned seed = 1; seed <= 6; ++seed) {
        // Looking at the list closes its holes: look seldom, too.
        for (int checkEvery : {1, 37, 5000}) {
            QTest::addRow("seed %u, looked at every %d", seed, checkEvery) << seed << checkEvery;
        }
    }
}

void tst_ChildRows::randomOperations_matchAVector()
{
    QFETCH(unsigned, seed);
    QFETCH(int, checkEvery);
    int const rowCount = 2500;
    Rows const r(rowCount);
    std::mt19937 random(seed);
    List naive;
    List spare;
    for (int i = 0; i < rowCount; ++i) {
        spare.push_back(r[i]);
    }
    ChildRows children;
    for (int step = 0; step < 10000; ++step) {
        bool const growing = (step / 2500) % 2 == 0;
        if (!spare.empty() && (naive.empty() || random() % 10 < (growing ? 7U : 2U))) {
            List rows;
            for (auto n = 1 + random() % 3; n > 0 && !spare.empty(); --n) {
                rows.push_back(spare.back());
                spare.pop_back();
            }
            bool const after = random() % 2 == 0;
            std::size_t at = 0;
            tag_HROW * position = GCI_FIRST;
            if (auto const where = random() % 4; where == 0 || naive.empty()) {
                at = naive.size();
                position = GCI_LAST;
            } else if (where > 1) {
                at = random() % naive.size();
                position = naive[at]->Handle();
                at += after ? 1 : 0;
            }
            naive.insert(naive.begin() + std::ptrdiff_t(at), rows.begin(), rows.end());
            QVERIFY(children.insert(rows, position, after));
        } else {
            auto const at = std::ptrdiff_t(random() % naive.size());
            IGCRow * const row = naive[std::size_t(at)];
            naive.erase(naive.begin() + at);
            spare.insert(spare.begin(), row);
            QVERIFY(children.remove(row));
            QVERIFY(!children.remove(row));
        }
        QCOMPARE(children.count(), int(naive.size()));
        QCOMPARE(children.isEmpty(), naive.empty());
        if (step % checkEvery == 0 && !naive.empty()) {
            std::size_t const at = random() % naive.size();
            QCOMPARE(children.indexOf(naive[at]), int(at));
            QVERIFY(children.at(int(at)) == naive[at]);
        }
        if (step % 500 == 499 && checkEvery != 5000) {
            QCOMPARE(listOf(children), naive);
        }
    }
    QCOMPARE(listOf(children), naive);
    for (std::size_t i = 0; i < naive.size(); ++i) {
        QCOMPARE(children.indexOf(naive[i]), int(i));
    }
}

void tst_ChildRows::remove_thousandOfAMillion_leavesTheOthersInOrder()
{
    int const count = 1000000;
    Rows const r(count);
    ChildRows children;
    children.reserve(count);
    List all;
    for (int i = 0; i < count; ++i) {
        all.push_back(r[i]);
    }
    QVERIFY(children.insert(all, GCI_LAST, true));
    std::mt19937 random(5);
    std::shuffle(all.begin(), all.end(), random);
    for (int i = 0; i < 1000; ++i) {
        QVERIFY(children.remove(all[std::size_t(i)]));
    }
    QCOMPARE(children.count(), count - 1000);
    for (int i = 0, at = 0; i < count; ++i) {
        if (at < children.count() && children.at(at) == r[i]) {
            ++at;
        }
        if (i == count - 1) {
            QCOMPARE(at, children.count());
        }
    }
    QCOMPARE(children.indexOf(all[0]), -1);
    QVERIFY(children.at(children.indexOf(all[1000])) == all[1000]);
}

ZENU_TEST(tst_ChildRows)
#include "tst_ChildRows.moc"
