#include "tests/support/TestMain.h"
#include "zenu/grid/KGridCtrl.h"

#include <QPaintEvent>

using namespace zenu;

namespace {

class PaintedGrid : public KGridCtrl
{
public:
    PaintedGrid()
    {
        resize(300, 200);
        column = AddColumn("text", 0, 100);
    }
    // The region of all paints since the last call.
    QRegion takePainted()
    {
        for (int turn = 0; turn < 5; ++turn) {
            QCoreApplication::processEvents();
        }
        return std::exchange(painted, QRegion());
    }
    tag_HROW * addRow(char const * text)
    {
        tag_HROW * const row = InsertRow(GC_ROOT, GCI_LAST);
        SetItemText(row, column, text);
        return row;
    }

    tag_HCOLUMN * column = nullptr;

protected:
    void paintEvent(QPaintEvent * event) override
    {
        KGridCtrl::paintEvent(event);
        painted += event->region();
    }

private:
    QRegion painted;
};

} // namespace

// A repaint of the whole that is asked for once must not stand for one that is asked for later.
class tst_RepaintRequests : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void newRows_afterEachPaint_arePaintedAgain();
    void newText_afterNewRows_paintsItsCell();
    void newRows_whileHidden_arePaintedWhenShown();
    void newRows_whileUpdatesAreOff_arePaintedAfterwards();
};

void tst_RepaintRequests::newRows_afterEachPaint_arePaintedAgain()
{
    PaintedGrid grid;
    grid.show();
    QVERIFY(!grid.takePainted().isEmpty());
    for (int i = 0; i < 5; ++i) {
        grid.addRow("one");
        grid.addRow("two");
        QVERIFY(grid.takePainted().contains(grid.rect().center()));
        QVERIFY(grid.takePainted().isEmpty());
    }
}

void tst_RepaintRequests::newText_afterNewRows_paintsItsCell()
{
    PaintedGrid grid;
    grid.show();
    tag_HROW * const row = grid.addRow("one");
    grid.takePainted();
    QRect cell;
    QVERIFY(grid.GetItemRect(row, grid.column, &cell));
    for (char const * const text : {"two", "three"}) {
        grid.SetItemText(row, grid.column, text);
        QRegion const painted = grid.takePainted();
        QVERIFY(painted.contains(cell.center()));
        QVERIFY(!painted.contains(QPoint(250, 150)));
    }
}

void tst_RepaintRequests::newRows_whileHidden_arePaintedWhenShown()
{
    PaintedGrid grid;
    grid.addRow("before the first show");
    grid.show();
    QVERIFY(grid.takePainted().contains(grid.rect().center()));
    grid.addRow("pending when hidden");
    grid.hide();
    grid.addRow("while hidden");
    QVERIFY(grid.takePainted().isEmpty());
    grid.show();
    QVERIFY(grid.takePainted().contains(grid.rect().center()));
    grid.addRow("after that");
    QVERIFY(grid.takePainted().contains(grid.rect().center()));
}

void tst_RepaintRequests::newRows_whileUpdatesAreOff_arePaintedAfterwards()
{
    PaintedGrid grid;
    grid.show();
    grid.takePainted();
    grid.setUpdatesEnabled(false);
    grid.addRow("unseen");
    QVERIFY(grid.takePainted().isEmpty());
    grid.setUpdatesEnabled(true);
    QVERIFY(grid.takePainted().contains(grid.rect().center()));
    grid.addRow("seen");
    QVERIFY(grid.takePainted().contains(grid.rect().center()));
}

ZENU_TEST(tst_RepaintRequests)
#include "tst_RepaintRequests.moc"
