#include "tests/grid_editing/EditFixture.h"
#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

using namespace zenutest;

namespace {

struct Step
{
    char const * name;
    int horizontal;
    int vertical;
};

constexpr Step steps[] = {
    {"a row down", KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollLineForward},
    {"a row up", KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollLineBack},
    {"a page down", KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollPageForward},
    {"right", KScrolledWidget::ScrollLineForward, KScrolledWidget::ScrollNothing},
    {"left", KScrolledWidget::ScrollLineBack, KScrolledWidget::ScrollNothing},
    {"a page to the right", KScrolledWidget::ScrollPageForward, KScrolledWidget::ScrollNothing},
};

// What differs between the window as it stands and a fresh paint of all of it.
QString stalePixels(EditGrid & grid)
{
    zenutest::settle(grid);
    QImage const screen = picture(grid);
    QImage const fresh = grid.grab().toImage().convertToFormat(QImage::Format_RGB32);
    return difference(screen, fresh);
}

} // namespace

// An editor that stays where it is while everything under it moves.
class tst_EditorPicture : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setCursorFlashTime(0); } // it shows all the time
    void scrolling_leavesNoPixelOfTheEditor_data();
    void scrolling_leavesNoPixelOfTheEditor();
    void closing_leavesNoPixelOfTheEditor();
    void barsAndHeader_lieAboveTheEditor();
    void otherChildren_leaveNoPixelEither();
};

void tst_EditorPicture::scrolling_leavesNoPixelOfTheEditor_data()
{
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("vertical");
    for (Step const & step : steps) {
        QTest::newRow(step.name) << step.horizontal << step.vertical;
    }
}

void tst_EditorPicture::scrolling_leavesNoPixelOfTheEditor()
{
    QFETCH(int, horizontal);
    QFETCH(int, vertical);
    EditGrid grid(GCS_VERTLINES | GCS_HORZLINES, 60);
    grid.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    grid.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    grid.SetHScrollDelta(13);
    QVERIFY(grid.activate());
    grid.resize(300, 240);
    zenutest::settle(grid);
    grid.OnScroll(KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollPageForward, 0, true);
    grid.OnScroll(KScrolledWidget::ScrollLineForward, KScrolledWidget::ScrollNothing, 0, true);
    QVERIFY(grid.edit(grid.GetNextRow(GCN_SHOWN_NEXT, grid.GetNextRow(GCN_SHOWN_FIRST, nullptr)),
                      Icon));
    grid.type(QStringLiteral("typed"));
    QCOMPARE(stalePixels(grid), QString());
    QRect const place = grid.editor()->geometry();
    for (int i = 0; i < 3; ++i) {
        QString const before = grid.place();
        grid.OnScroll(horizontal, vertical, 0, true);
        QVERIFY(grid.place() != before || i > 0);
        QCOMPARE(stalePixels(grid), QString());
        QCOMPARE(grid.editor()->geometry(), place);
    }
}

void tst_EditorPicture::closing_leavesNoPixelOfTheEditor()
{
    EditGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[2]));
    grid.type(QStringLiteral("a long text that fills the cell"));
    QCOMPARE(stalePixels(grid), QString());
    QVERIFY(grid.EndEditItemNow(false));
    QCOMPARE(stalePixels(grid), QString());
}

void tst_EditorPicture::barsAndHeader_lieAboveTheEditor()
{
    EditGrid grid(0, 60);
    grid.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    QVERIFY(grid.activate());
    grid.SetColumnWidth(grid.column(Text), 2000); // wider than the grid
    QVERIFY(grid.edit(grid.rows[2]));
    QScrollBar * const bar = grid.getVScrollBar();
    QPoint const onBar(bar->geometry().center().x(), grid.editor()->geometry().center().y());
    QVERIFY(grid.editor()->geometry().contains(onBar));
    QVERIFY(!grid.editor()->isAncestorOf(grid.childAt(onBar)));
    QVERIFY(grid.childAt(onBar) == bar);
    QCOMPARE(stalePixels(grid), QString());
}

// Applications lay widgets over a grid, too.
void tst_EditorPicture::otherChildren_leaveNoPixelEither()
{
    EditGrid grid(0, 60);
    QLineEdit child(&grid);
    child.setText(QStringLiteral("of the application"));
    child.setGeometry(20, 80, 120, 24);
    QVERIFY(grid.activate());
    for (Step const & step : steps) {
        grid.OnScroll(step.horizontal, step.vertical, 0, true);
        QCOMPARE(stalePixels(grid), QString());
    }
}

ZENU_TEST(tst_EditorPicture)
#include "tst_EditorPicture.moc"
