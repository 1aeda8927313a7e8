#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include "zenu/overlay/surface/WidgetSurface.h"

using namespace zenu;
using zenutest::TestGrid;

namespace {

constexpr int rowHeight = 20;
constexpr int markHeight = 11;
constexpr int arrowWidth = 12;

struct Scene
{
    explicit Scene(long style = 0, int columnWidth = 150)
        : grid(style)
    {
        grid.setFocusPolicy(Qt::NoFocus);
        grid.AddColumn("Name", 0, columnWidth);
        grid.SetDefaultHeight(rowHeight);
        for (int i = 0; i < 12; ++i) {
            rows.push_back(grid.add(QByteArray(1, static_cast<char>('a' + i)).constData()));
            grid.SetItemText(rows.back(), columnHandle(0), "some text, fjord");
        }
    }
    bool show() { return grid.showSized(200, 180); }
    QImage picture()
    {
        zenutest::settle();
        return zenutest::picture(grid);
    }
    int bottomOf(tag_HROW * row) const
    {
        QRect rect;
        grid.GetRowRect(row, &rect);
        return rect.top() + rowHeight;
    }
    QRect device(QRect const & rect) { return WidgetSurface(&grid).device(rect); }
    int headerBottom() const { return grid.getHeader()->geometry().bottom() + 1; }

    TestGrid grid;
    std::vector<tag_HROW *> rows;
};

// What a mark on the line at y makes of the picture, the arrows left as they were.
QImage withBar(Scene & scene, QImage picture, int y, int width)
{
    QRect const bar = scene.device(QRect(arrowWidth + 1, y - 1, width - 2 * (arrowWidth + 1), 3)) &
                      scene.device(QRect(0, scene.headerBottom(), 2000, 2000)) & picture.rect();
    for (int py = bar.top(); py <= bar.bottom(); ++py) {
        for (int px = bar.left(); px <= bar.right(); ++px) {
            picture.setPixel(px, py, picture.pixel(px, py) ^ 0xffffff);
        }
    }
    return picture;
}

QRegion differences(QImage const & a, QImage const & b)
{
    QRegion region;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                region += QRect(x, y, 1, 1);
            }
        }
    }
    return region;
}

QString text(QRegion const & region)
{
    return region.isEmpty() ? QString() : QDebug::toString(region.boundingRect());
}

// Empty when the picture shows a mark on the line at y and nothing else is changed.
QString markFault(Scene & scene, QImage const & before, QImage const & after, int y, int width)
{
    QRegion changed = differences(withBar(scene, before, y, width), after);
    int arrows = 0;
    for (int const x : {0, width - arrowWidth}) {
        QRect const arrow = scene.device(QRect(x, y - 5, arrowWidth, markHeight)) & after.rect();
        QRegion const drawn = changed & arrow;
        for (QRect const & part : drawn) {
            for (int py = part.top(); py <= part.bottom(); ++py) {
                for (int px = part.left(); px <= part.right(); ++px) {
                    if ((after.pixel(px, py) & 0xffffff) != 0xff0000) {
                        return QStringLiteral("an arrow is not red at %1, %2").arg(px).arg(py);
                    }
                }
            }
        }
        arrows += drawn.isEmpty() ? 0 : 1;
        changed -= arrow;
    }
    return arrows == 2 ? text(changed) : QStringLiteral("%1 arrows").arg(arrows);
}

} // namespace

class tst_DragIndicator : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void afterRow_marksItsBottom();
    void beforeRow_marksTheBottomOfTheRowAbove();
    void beforeFirstRow_andFirst_markTheTop();
    void arrows_pointAtTheBar();
    void width_isTheLesserOfClientAndColumns();
    void hide_bringsBackEveryPixel();
    void hide_withoutMark_isTrueAndChangesNothing();
    void move_leavesNothingBehind();
    void badHandle_isFalseAndKeepsTheMark();
    void rowOutOfTheOrder_isFalse();
    void otherGrid_takesTheMark();
    void aboveTheDisplay_staysOutOfTheHeader();
    void openEditor_liesAboveTheMark();
    void scrolledMark_isHiddenWithoutTrace();
    void paintedOverMark_isHiddenWithoutTrace();
    void dyingRow_leavesAMarkThatCanBeHidden_data();
    void dyingRow_leavesAMarkThatCanBeHidden();
    void dyingGrid_takesItsMarkAlong();
    void hiddenGrid_drawsNothing();
    void narrowGrid_isBorne();
    void drawing_causesNoPaint();
};

void tst_DragIndicator::afterRow_marksItsBottom()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[2], true));
    QCOMPARE(
        markFault(scene, before, zenutest::picture(scene.grid), scene.bottomOf(scene.rows[2]), 149),
        QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

void tst_DragIndicator::beforeRow_marksTheBottomOfTheRowAbove()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[3], false));
    QCOMPARE(
        markFault(scene, before, zenutest::picture(scene.grid), scene.bottomOf(scene.rows[2]), 149),
        QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

// Half of it would lie in the header, which is another widget.
void tst_DragIndicator::beforeFirstRow_andFirst_markTheTop()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[0], false));
    QImage const beforeFirst = zenutest::picture(scene.grid);
    QCOMPARE(markFault(scene, before, beforeFirst, scene.headerBottom(), 149), QString());
    scene.grid.DrawDragIndicator(nullptr, false);
    QVERIFY(scene.grid.DrawDragIndicator(GCI_FIRST, true));
    QCOMPARE(text(differences(zenutest::picture(scene.grid), beforeFirst)), QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

// Each arrow is wider where it points away from the bar.
void tst_DragIndicator::arrows_pointAtTheBar()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.DrawDragIndicator(scene.rows[2], true);
    QImage const picture = zenutest::picture(scene.grid);
    int const y = scene.bottomOf(scene.rows[2]);
    auto const redIn = [&](QRect const & rect) {
        QRect const area = scene.device(rect);
        int count = 0;
        for (int py = area.top(); py <= area.bottom(); ++py) {
            for (int px = area.left(); px <= area.right(); ++px) {
                count += (picture.pixel(px, py) & 0xffffff) == 0xff0000;
            }
        }
        return count;
    };
    auto const tip = [&](int x) { return redIn(QRect(x, y - 5, 1, markHeight)); };
    QVERIFY(tip(arrowWidth - 1) < tip(6));
    QVERIFY(tip(149 - arrowWidth) < tip(149 - 7));
    scene.grid.DrawDragIndicator(nullptr, false);
}

void tst_DragIndicator::width_isTheLesserOfClientAndColumns()
{
    Scene scene(0, 700);
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    int const right = scene.grid.getClientRect().right();
    QVERIFY(right < 699);
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[2], true));
    QCOMPARE(markFault(scene, before, zenutest::picture(scene.grid), scene.bottomOf(scene.rows[2]),
                       right),
             QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

void tst_DragIndicator::hide_bringsBackEveryPixel()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    for (tag_HROW * const row : {scene.rows[0], scene.rows[1], scene.rows[5]}) {
        for (bool const after : {false, true}) {
            scene.grid.DrawDragIndicator(row, after);
            QVERIFY(scene.grid.DrawDragIndicator(nullptr, after));
            QCOMPARE(text(differences(zenutest::picture(scene.grid), before)), QString());
        }
    }
    QCOMPARE(text(differences(scene.picture(), before)), QString());
}

void tst_DragIndicator::hide_withoutMark_isTrueAndChangesNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(nullptr, false));
    QVERIFY(scene.grid.DrawDragIndicator(nullptr, true));
    QVERIFY(scene.grid.takePainted().isEmpty());
    QCOMPARE(text(differences(scene.picture(), before)), QString());
}

void tst_DragIndicator::move_leavesNothingBehind()
{
    Scene scene;
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    scene.grid.DrawDragIndicator(scene.rows[1], true);
    scene.grid.DrawDragIndicator(GCI_FIRST, true);
    scene.grid.DrawDragIndicator(scene.rows[4], true);
    QCOMPARE(
        markFault(scene, before, zenutest::picture(scene.grid), scene.bottomOf(scene.rows[4]), 149),
        QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

void tst_DragIndicator::badHandle_isFalseAndKeepsTheMark()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.DrawDragIndicator(scene.rows[1], true);
    QImage const marked = zenutest::picture(scene.grid);
    int stranger = 0;
    QVERIFY(!scene.grid.DrawDragIndicator(reinterpret_cast<tag_HROW *>(&stranger), true));
    QVERIFY(!scene.grid.DrawDragIndicator(GC_ROOT, true));
    QVERIFY(!scene.grid.DrawDragIndicator(GCI_LAST, false));
    QCOMPARE(text(differences(zenutest::picture(scene.grid), marked)), QString());
    scene.grid.DrawDragIndicator(nullptr, false);
}

void tst_DragIndicator::rowOutOfTheOrder_isFalse()
{
    Scene scene;
    tag_HROW * const child = scene.grid.add("child", scene.rows[1]);
    scene.grid.Expand(scene.rows[1], GCE_COLLAPSE);
    QVERIFY(scene.show());
    QVERIFY(!scene.grid.DrawDragIndicator(child, true));
    QVERIFY(!scene.grid.DrawDragIndicator(child, false));
}

void tst_DragIndicator::otherGrid_takesTheMark()
{
    Scene first;
    Scene second;
    QVERIFY(first.show());
    QVERIFY(second.grid.showSized(200, 180));
    second.grid.move(300, 0);
    QVERIFY(QTest::qWaitFor([&] { return second.grid.pos().x() == 300; }));
    QImage const before = first.picture();
    QImage const otherBefore = second.picture();
    first.grid.DrawDragIndicator(first.rows[2], true);
    second.grid.DrawDragIndicator(second.rows[1], true);
    QCOMPARE(text(differences(zenutest::picture(first.grid), before)), QString());
    QCOMPARE(markFault(second, otherBefore, zenutest::picture(second.grid),
                       second.bottomOf(second.rows[1]), 149),
             QString());
    // Any grid hides it.
    first.grid.DrawDragIndicator(nullptr, false);
    QCOMPARE(text(differences(zenutest::picture(second.grid), otherBefore)), QString());
}

// The top of all rows scrolls with them.
void tst_DragIndicator::aboveTheDisplay_staysOutOfTheHeader()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.OnScroll(-1, KScrolledWidget::ScrollLineForward, 0, true);
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(GCI_FIRST, false));
    QCOMPARE(text(differences(zenutest::picture(scene.grid), before)), QString());
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[1], false));
    QCOMPARE(markFault(scene, before, zenutest::picture(scene.grid), scene.headerBottom(), 149),
             QString());
    scene.grid.DrawDragIndicator(nullptr, false);
    QCOMPARE(text(differences(zenutest::picture(scene.grid), before)), QString());
}

void tst_DragIndicator::openEditor_liesAboveTheMark()
{
    int const flashTime = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0); // the cursor shows all the time
    Scene scene;
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_EDITABLE;
    scene.grid.SetColumn(columnHandle(0), &record);
    QVERIFY(scene.show());
    QVERIFY(scene.grid.EditItem(scene.rows[2], columnHandle(0)));
    QRect editorRect;
    QVERIFY(scene.grid.GetItemEditorRect(scene.rows[2], columnHandle(0), &editorRect));
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[2], true));
    QRegion const changed = differences(zenutest::picture(scene.grid), before);
    QVERIFY(!changed.isEmpty());
    QCOMPARE(text(changed & scene.device(editorRect)), QString());
    QVERIFY(scene.grid.DrawDragIndicator(nullptr, true));
    QCOMPARE(text(differences(zenutest::picture(scene.grid), before)), QString());
    QCOMPARE(text(differences(scene.picture(), before)), QString());
    QApplication::setCursorFlashTime(flashTime);
}

void tst_DragIndicator::scrolledMark_isHiddenWithoutTrace()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.DrawDragIndicator(scene.rows[4], true);
    scene.grid.OnScroll(-1, KScrolledWidget::ScrollLineForward, 0, true);
    scene.grid.DrawDragIndicator(nullptr, false);
    QImage const hidden = scene.picture();
    scene.grid.update();
    QCOMPARE(text(differences(hidden, scene.picture())), QString());
}

void tst_DragIndicator::paintedOverMark_isHiddenWithoutTrace()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.DrawDragIndicator(scene.rows[4], true);
    scene.grid.SetItemText(scene.rows[4], columnHandle(0), "another text");
    zenutest::settle();
    scene.grid.DrawDragIndicator(nullptr, false);
    QImage const hidden = scene.picture();
    scene.grid.update();
    QCOMPARE(text(differences(hidden, scene.picture())), QString());
}

void tst_DragIndicator::dyingRow_leavesAMarkThatCanBeHidden_data()
{
    QTest::addColumn<bool>("fast");
    QTest::addColumn<bool>("all");
    QTest::newRow("one row") << false << false;
    QTest::newRow("all rows") << false << true;
    QTest::newRow("one row, trusted handles") << true << false;
    QTest::newRow("all rows, trusted handles") << true << true;
}

void tst_DragIndicator::dyingRow_leavesAMarkThatCanBeHidden()
{
    QFETCH(bool, fast);
    QFETCH(bool, all);
    Scene scene;
    if (fast) {
        scene.grid.DeleteAllRows();
        scene.grid.SetGridExStyle(GCXS_FASTLOCATOR);
        scene.rows.clear();
        for (int i = 0; i < 6; ++i) {
            scene.rows.push_back(scene.grid.add("row"));
        }
    }
    QVERIFY(scene.show());
    scene.grid.DrawDragIndicator(scene.rows[2], true);
    if (all) {
        scene.grid.DeleteAllRows();
    } else {
        scene.grid.DeleteRow(scene.rows[2]);
    }
    QVERIFY(scene.grid.DrawDragIndicator(nullptr, false));
    scene.grid.UpdateVisibleRows();
    QImage const hidden = scene.picture();
    scene.grid.update();
    QCOMPARE(text(differences(hidden, scene.picture())), QString());
}

void tst_DragIndicator::dyingGrid_takesItsMarkAlong()
{
    auto first = std::make_unique<Scene>();
    QVERIFY(first->show());
    first->grid.DrawDragIndicator(first->rows[2], true);
    first.reset();
    Scene second;
    QVERIFY(second.show());
    QImage const before = second.picture();
    QVERIFY(second.grid.DrawDragIndicator(second.rows[1], true));
    QVERIFY(second.grid.DrawDragIndicator(nullptr, true));
    QCOMPARE(text(differences(zenutest::picture(second.grid), before)), QString());
}

void tst_DragIndicator::hiddenGrid_drawsNothing()
{
    Scene scene;
    QVERIFY(scene.grid.DrawDragIndicator(scene.rows[1], true));
    QVERIFY(scene.show());
    QImage const before = scene.picture();
    QVERIFY(scene.grid.DrawDragIndicator(nullptr, true));
    QCOMPARE(text(differences(scene.picture(), before)), QString());
}

void tst_DragIndicator::narrowGrid_isBorne()
{
    Scene narrow(0, 10);
    QVERIFY(narrow.show());
    QImage const before = narrow.picture();
    QVERIFY(narrow.grid.DrawDragIndicator(narrow.rows[1], true));
    QVERIFY(narrow.grid.DrawDragIndicator(nullptr, true));
    QCOMPARE(text(differences(zenutest::picture(narrow.grid), before)), QString());
    TestGrid empty;
    QVERIFY(empty.showSized(100, 100));
    QVERIFY(empty.DrawDragIndicator(GCI_FIRST, true));
    QVERIFY(empty.DrawDragIndicator(nullptr, true));
}

void tst_DragIndicator::drawing_causesNoPaint()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid.takePainted();
    scene.grid.DrawDragIndicator(scene.rows[2], true);
    QVERIFY(scene.grid.takePainted().isEmpty());
    // Taking it away paints its strip, in case that rows were painted over it.
    scene.grid.DrawDragIndicator(nullptr, true);
    QRegion const strip(0, scene.bottomOf(scene.rows[2]) - 5, 149, markHeight);
    QVERIFY((scene.grid.takePainted() - strip).isEmpty());
}

ZENU_TEST(tst_DragIndicator)
#include "tst_DragIndicator.moc"
