#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/painting/RowPath.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

using namespace zenutest;

class tst_RowPath : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void topLevelRow_hasNoAncestors();
    void openLevels_areThoseOfAncestorsWithSiblingsBelow();
    void openLevels_beyondTheLimit_areNotKept();
    void anyOrderOfRows_equalsTheWalkUp_data();
    void anyOrderOfRows_equalsTheWalkUp();
    void chainOfAMillion_isClimbedOnce();
};

namespace {

using Rows = std::vector<std::unique_ptr<CGCLonelySlimRow>>;

IGCRow * add(Rows & rows, IGCRow * parent)
{
    rows.push_back(std::make_unique<CGCLonelySlimRow>(parent));
    return rows.back().get();
}

QString dump(RowPath const & path)
{
    QString text = QString::number(path.level()) + u':';
    for (std::uint8_t const open : path.openLevels()) {
        text += open ? u'|' : u' ';
    }
    return text;
}

QString walkUp(IGCRow const * row, LastRows const & lastRows, int limit)
{
    QString lines;
    for (IGCRow const * ancestor = row->parent; ancestor; ancestor = ancestor->parent) {
        lines.prepend(lastRows.rows.contains(ancestor) ? u' ' : u'|');
    }
    return QString::number(row->GetLevel()) + u':' + lines.left(limit);
}

} // namespace

void tst_RowPath::topLevelRow_hasNoAncestors()
{
    Rows rows;
    LastRows lastRows;
    RowPath path(&lastRows, 10);
    path.enter(add(rows, nullptr));
    QCOMPARE(dump(path), QStringLiteral("0:"));
}

void tst_RowPath::openLevels_areThoseOfAncestorsWithSiblingsBelow()
{
    Rows rows;
    LastRows lastRows;
    IGCRow * const top = add(rows, nullptr);
    IGCRow * const last = add(rows, top);
    IGCRow * const open = add(rows, last);
    IGCRow * const deepest = add(rows, open);
    lastRows.rows = {last, deepest};
    RowPath path(&lastRows, 10);
    path.enter(deepest);
    QCOMPARE(dump(path), QStringLiteral("3:| |"));
    path.enter(add(rows, deepest));
    QCOMPARE(dump(path), QStringLiteral("4:| | "));
    path.enter(last);
    QCOMPARE(dump(path), QStringLiteral("1:|"));
}

void tst_RowPath::openLevels_beyondTheLimit_areNotKept()
{
    Rows rows;
    LastRows lastRows;
    RowPath path(&lastRows, 2);
    IGCRow * row = nullptr;
    for (int level = 0; level < 5; ++level) {
        row = add(rows, row);
        path.enter(row);
    }
    QCOMPARE(dump(path), QStringLiteral("4:||"));
    RowPath other(&lastRows, 2);
    other.enter(row);
    QCOMPARE(dump(other), QStringLiteral("4:||"));
}

void tst_RowPath::anyOrderOfRows_equalsTheWalkUp_data()
{
    QTest::addColumn<int>("breadth"); // how far back a parent may lie
    QTest::addColumn<int>("limit");
    QTest::newRow("deep") << 2 << 1000;
    QTest::newRow("deep, few lines") << 2 << 7;
    QTest::newRow("middle") << 20 << 40;
    QTest::newRow("broad") << 2000 << 5;
    QTest::newRow("no lines") << 10 << 0;
}

void tst_RowPath::anyOrderOfRows_equalsTheWalkUp()
{
    QFETCH(int, breadth);
    QFETCH(int, limit);
    QRandomGenerator random(7);
    Rows rows;
    LastRows lastRows;
    add(rows, nullptr);
    for (int i = 1; i < 2000; ++i) {
        int const back = random.bounded(qMin(i, breadth) + 1);
        IGCRow * const row =
            add(rows, back == i ? nullptr
                                : rows[static_cast<std::size_t>(i - 1 - qMax(0, back - 1))].get());
        if (random.bounded(2)) {
            lastRows.rows.insert(row);
        }
    }
    RowPath path(&lastRows, limit);
    std::size_t at = 0;
    for (int step = 0; step < 4000; ++step) {
        // Mostly the next row, as a paint does, now and then any.
        at = random.bounded(50) ? (at + 1) % rows.size() : random.bounded(2000U);
        path.enter(rows[at].get());
        QCOMPARE(dump(path), walkUp(rows[at].get(), lastRows, limit));
    }
}

void tst_RowPath::chainOfAMillion_isClimbedOnce()
{
    constexpr int depth = 1'000'000;
    Rows rows;
    rows.reserve(depth);
    IGCRow * row = nullptr;
    for (int i = 0; i < depth; ++i) {
        row = add(rows, row);
    }
    LastRows lastRows;
    RowPath path(&lastRows, 30);
    for (std::size_t i = rows.size() - 50; i < rows.size(); ++i) {
        path.enter(rows[i].get());
        QCOMPARE(path.level(), static_cast<int>(i));
        QCOMPARE(path.openLevels().size(), 30U);
    }
    QCOMPARE(lastRows.asked, 30);
}

ZENU_TEST(tst_RowPath)
#include "tst_RowPath.moc"
