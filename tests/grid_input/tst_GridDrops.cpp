#include "tests/grid_input/InputFixture.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace zenu;
using namespace zenutest;

class tst_GridDrops : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void dragEvents_areToldWithTheCellUnderThem();
    void dragEvents_outsideTheCells_areToldWithoutOne_data();
    void dragEvents_outsideTheCells_areToldWithoutOne();
    void positionWithXMinusOne_isNoPosition();
    void acceptance_isTheApplications();
    void drop_ofAScrolledGrid_goesByTheRowThatIsSeen();
    void drop_afterChangesOfTheTree_findsTheNewOrder();
    void drags_changeNothing();
    void drags_withoutASink_areHarmless();
    void drags_overAnEmptyGrid_areTold();
    void grid_acceptsDropsAndTracksTheMouse();
};

namespace {

struct Scene : InputWindow
{
    Scene()
        : notes(grid)
    {
        grid->addColumns({80, 80});
        list = grid->addMany(30);
        data.setText(QStringLiteral("dragged"));
        notes.acceptDrags = true;
    }
    QPoint point(int row, int column) const
    {
        return cellPoint(*grid, list[static_cast<std::size_t>(row)],
                         grid->GetPriv().columns.all()[column]->Handle());
    }

    // To the window, which passes them on as a drag of another program would come; whether the
    // event came back accepted.
    bool enter(QPoint const & point)
    {
        QDragEnterEvent event(inWindow(point), Qt::CopyAction | Qt::MoveAction, &data,
                              Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        return event.isAccepted();
    }
    bool moveTo(QPoint const & point)
    {
        QDragMoveEvent event(inWindow(point), Qt::CopyAction | Qt::MoveAction, &data,
                             Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        return event.isAccepted();
    }
    bool drop(QPoint const & point)
    {
        QDropEvent event(inWindow(point), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        return event.isAccepted();
    }
    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }

    InputNotes notes;
    std::vector<tag_HROW *> list;
    QMimeData data;
};

} // namespace

void tst_GridDrops::dragEvents_areToldWithTheCellUnderThem()
{
    Scene scene;
    QVERIFY(scene.show());
    QVERIFY(scene.enter(scene.point(1, 0)));
    // Entering is a move as well, as the toolkit sends them.
    QCOMPARE(scene.notes.calls.value(0), "enter 1/0");
    scene.notes.calls.clear();
    QVERIFY(scene.moveTo(scene.point(3, 1)));
    QCOMPARE(scene.notes.text(), "move 3/1");
    QVERIFY(scene.drop(scene.point(4, 1)));
    QCOMPARE(scene.notes.text(), "drop 4/1");
    QVERIFY(scene.enter(scene.point(1, 0)));
    scene.notes.calls.clear();
    scene.leave();
    QCOMPARE(scene.notes.text(), "leave");
}

void tst_GridDrops::dragEvents_outsideTheCells_areToldWithoutOne_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("right of the columns") << QPoint(200, 60);
    QTest::newRow("below the rows") << QPoint(20, 200);
}

void tst_GridDrops::dragEvents_outsideTheCells_areToldWithoutOne()
{
    QFETCH(QPoint, point);
    Scene scene;
    for (std::size_t i = 3; i < scene.list.size(); ++i) {
        scene.grid->DeleteRow(scene.list[i]);
    }
    QVERIFY(scene.show());
    scene.enter(point);
    QCOMPARE(scene.notes.calls.value(0), "enter -/-1");
    scene.notes.calls.clear();
    scene.moveTo(point + QPoint(1, 1));
    QCOMPARE(scene.notes.text(), "move -/-1");
    scene.drop(point);
    QCOMPARE(scene.notes.text(), "drop -/-1");
}

// The grid's own coordinates: a point left of it, as some sources give for none.
void tst_GridDrops::positionWithXMinusOne_isNoPosition()
{
    Scene scene;
    QVERIFY(scene.show());
    QVERIFY(scene.enter(scene.point(2, 0)));
    scene.notes.calls.clear();
    QPoint const point(-1, scene.point(2, 0).y());
    QDropEvent event(point, Qt::CopyAction, &scene.data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(scene.grid, &event);
    QCOMPARE(scene.notes.text(), "drop -/-1");
}

void tst_GridDrops::acceptance_isTheApplications()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.notes.acceptDrags = false;
    QVERIFY(!scene.enter(scene.point(1, 0)));
    scene.notes.acceptDrags = true;
    QVERIFY(scene.enter(scene.point(1, 0)));
    QVERIFY(scene.moveTo(scene.point(2, 0)));
    scene.notes.acceptDrags = false;
    QVERIFY(!scene.moveTo(scene.point(3, 0)));
    scene.notes.acceptDrags = true;
    QVERIFY(scene.moveTo(scene.point(4, 0)));
    scene.notes.acceptDrags = false;
    QVERIFY(!scene.drop(scene.point(4, 0)));
}

void tst_GridDrops::drop_ofAScrolledGrid_goesByTheRowThatIsSeen()
{
    Scene scene;
    QVERIFY(scene.show());
    QPoint const third = scene.point(2, 1);
    scene.grid->OnScroll(-1, KScrolledWidget::ScrollLineForward, 0, true);
    scene.grid->OnScroll(-1, KScrolledWidget::ScrollLineForward, 0, true);
    int const top = scene.grid->GetPriv().GetTopIndex();
    QVERIFY(top > 0);
    scene.enter(third);
    scene.notes.calls.clear();
    scene.drop(third);
    QCOMPARE(scene.notes.text(), QStringLiteral("drop %1/1").arg(2 + top));
}

void tst_GridDrops::drop_afterChangesOfTheTree_findsTheNewOrder()
{
    Scene scene;
    QVERIFY(scene.show());
    QPoint const second = scene.point(1, 0);
    scene.enter(second);
    scene.grid->DeleteRow(scene.list[0]);
    scene.notes.calls.clear();
    scene.moveTo(second);
    QCOMPARE(scene.notes.text(), "move 2/0");
    scene.grid->DeleteAllRows();
    scene.drop(second);
    QCOMPARE(scene.notes.text(), "drop -/-1");
}

void tst_GridDrops::drags_changeNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SetRowSel(scene.list[1], true);
    scene.grid->takePainted();
    scene.enter(scene.point(3, 0));
    scene.moveTo(QPoint(20, 210)); // at the edge: nothing scrolls
    scene.drop(scene.point(5, 0));
    QVERIFY(scene.grid->takePainted().isEmpty());
    QCOMPARE(scene.grid->selected() + scene.grid->focus(), "11/0");
    QCOMPARE(scene.grid->GetPriv().GetTopIndex(), 0);
    QVERIFY(!scene.grid->hasFocus());
}

void tst_GridDrops::drags_withoutASink_areHarmless()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->setNotification(nullptr);
    QVERIFY(!scene.enter(scene.point(1, 0)));
    QVERIFY(!scene.moveTo(scene.point(2, 0)));
    scene.leave();
    scene.enter(scene.point(1, 0));
    QVERIFY(!scene.drop(scene.point(2, 0)));
}

void tst_GridDrops::drags_overAnEmptyGrid_areTold()
{
    Scene scene;
    scene.grid->Reset();
    QVERIFY(scene.show());
    scene.enter(QPoint(5, 50));
    QCOMPARE(scene.notes.calls.value(0), "enter -/-1");
    scene.notes.calls.clear();
    scene.drop(QPoint(5, 50));
    QCOMPARE(scene.notes.text(), "drop -/-1");
}

void tst_GridDrops::grid_acceptsDropsAndTracksTheMouse()
{
    TestGrid const grid;
    QVERIFY(grid.acceptDrops());
    QVERIFY(grid.hasMouseTracking());
}

ZENU_TEST(tst_GridDrops)
#include "tst_GridDrops.moc"
