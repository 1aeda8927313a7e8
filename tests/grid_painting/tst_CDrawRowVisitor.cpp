#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Grounds, lines and separators of whole rows, by the pixels of the rules.
class tst_CDrawRowVisitor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cells_areFilledSideBySide_data();
    void cells_areFilledSideBySide();
    void hiddenColumn_isSkipped();
    void verticalLines_remainInEachColumnsLastPixel_data();
    void verticalLines_remainInEachColumnsLastPixel();
    void selection_data();
    void selection();
    void rowColors_areUsedUnlessUnset();
    void rowColor_ofUnsetValue_isNotBlack();
    void itemColor_yieldsToSelectionColors();

    void focusCell_leavesAFrameOfTheCellsBackground();
    void focusCell_ownColors_areUsed();
    void focusCell_text_isTheRowsColorWithoutSelection();
    void focusCell_inFullRowSelect_isNone();

    void framedCell_fillsRoundTheText();
    void framedCell_withFocus_hasAFrameRoundTheText();
    void framedCell_withoutText_isPlain();
    void framedCell_rightAligned_leavesTheVerticalLine();
    void framedColumn_keepsRowFocusLinesAway();

    void ancestorLines_standBesideOpenAncestors_data();
    void ancestorLines_standBesideOpenAncestors();
    void ancestorLines_beyondTheCell_areLeftOut();
    void ancestorLines_withoutIndent_fallOnOneColumn();
    void indentation_withoutTreeLines_followsTheFormatBit();

    void deepChain_paintsInReasonableTime();
    void contentsFarDown_looksAsAtTheTop_data();
    void contentsFarDown_looksAsAtTheTop();
    void noSizes_drawNothing();
};

void tst_CDrawRowVisitor::cells_areFilledSideBySide_data()
{
    addPixelRatios();
}

void tst_CDrawRowVisitor::cells_areFilledSideBySide()
{
    QFETCH(double, ratio);
    Scene scene;
    scene.ratio = ratio;
    scene.addColumn(GCCK_TEXT, 33);
    scene.addColumn(GCCK_ICON, 27);
    CGCOrdinaryRow * const row = scene.addRow();
    DrawnRow place = Scene::standing();
    place.y = 3;
    place.height = 17;
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 3, 60, 17, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawRowVisitor::hiddenColumn_isSkipped()
{
    Scene scene;
    CGCColumn * const hidden = scene.addColumn(GCCK_TEXT, 33, GCCF_HIDDEN);
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 40);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, hidden, "Hidden");
    Scene::setText(row, column, "Text");
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 40, 20, scene.color(GCC_BACKGROUND));
        textAt(painter, scene.rectsOf(column, "Text").textRect, scene.color(GCC_TEXT), "Text");
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::verticalLines_remainInEachColumnsLastPixel_data()
{
    addPixelRatios();
}

void tst_CDrawRowVisitor::verticalLines_remainInEachColumnsLastPixel()
{
    QFETCH(double, ratio);
    Scene scene;
    scene.ratio = ratio;
    scene.context.verticalLines = true;
    scene.addColumn(GCCK_TEXT, 30);
    scene.addColumn(GCCK_ICON, 31);
    scene.addColumn(GCCK_TEXT, 20, GCCF_FRAMED);
    CGCOrdinaryRow * const row = scene.addRow();
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 81, 40, scene.color(GCC_BACKGROUND));
        for (int const x : {29, 60, 80}) {
            halfTone(painter, QRect(x, 0, 1, 40), scene.color(GCC_SEPARATOR));
        }
    });
    COMPARE_PICTURES(scene.paint({row, row}), expected);
}

void tst_CDrawRowVisitor::selection_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("hasFocus");
    QTest::addColumn<bool>("showInactive");
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("background");
    QTest::newRow("not selected") << false << true << true << 2 << 3;
    QTest::newRow("with focus") << true << true << false << 6 << 7;
    QTest::newRow("shown without focus") << true << false << true << 8 << 9;
    QTest::newRow("without focus looks unselected") << true << false << false << 2 << 3;
}

void tst_CDrawRowVisitor::selection()
{
    QFETCH(bool, selected);
    QFETCH(bool, hasFocus);
    QFETCH(bool, showInactive);
    QFETCH(int, text);
    QFETCH(int, background);
    Scene scene;
    scene.context.hasFocus = hasFocus;
    scene.context.showSelectionInactive = showInactive;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, "Text");
    DrawnRow place = Scene::standing();
    place.selected = selected;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.context.colors.get(background));
        textAt(painter, scene.rectsOf(column, "Text").textRect, scene.context.colors.get(text),
               "Text");
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawRowVisitor::rowColors_areUsedUnlessUnset()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    row->textColor = QColor(Qt::blue).rgb();
    row->bkColor = QColor(Qt::yellow).rgb();
    Scene::setText(row, column, "Text");
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, Qt::yellow);
        textAt(painter, scene.rectsOf(column, "Text").textRect, Qt::blue, "Text");
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::rowColor_ofUnsetValue_isNotBlack()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    row->bkColor = QColor(Qt::black).rgb();
    QCOMPARE(QColor(scene.paint({row}).pixel(30, 10)), scene.color(GCC_BACKGROUND));
}

void tst_CDrawRowVisitor::itemColor_yieldsToSelectionColors()
{
    for (bool const selected : {false, true}) {
        Scene scene;
        scene.context.hasFocus = true;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, column, "Text");
        row->ItemOf(column)->setTextColor(QColor(Qt::red).rgb());
        DrawnRow place = Scene::standing();
        place.selected = selected;
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 60, 20,
                             scene.color(selected ? GCC_SELBACKGROUND : GCC_BACKGROUND));
            textAt(painter, scene.rectsOf(column, "Text").textRect,
                   selected ? scene.color(GCC_SELTEXT) : Qt::red, "Text");
        });
        COMPARE_PICTURES(scene.paint({row}, place), expected);
    }
}

namespace {

// The row of the focus cell in a grid with the focus, without its focus lines.
DrawnRow focusedRow(Scene & scene, int column)
{
    scene.context.focusColumn = column;
    DrawnRow place = Scene::standing();
    place.focused = true;
    return place;
}

} // namespace

void tst_CDrawRowVisitor::focusCell_leavesAFrameOfTheCellsBackground()
{
    for (bool const lines : {false, true}) {
        Scene scene;
        scene.context.verticalLines = lines;
        scene.context.showSelectionInactive = true;
        scene.addColumn(GCCK_TEXT, 30);
        scene.addColumn(GCCK_TEXT, 40);
        CGCOrdinaryRow * const row = scene.addRow();
        DrawnRow place = focusedRow(scene, 1);
        place.selected = true;
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 70, 20, scene.color(GCC_INACTIVESELBACKGROUND));
            painter.fillRect(31, 1, lines ? 37 : 38, 18, scene.color(GCC_BACKGROUND));
            if (lines) {
                halfTone(painter, QRect(29, 0, 1, 20), scene.color(GCC_SEPARATOR));
                halfTone(painter, QRect(69, 0, 1, 20), scene.color(GCC_SEPARATOR));
            }
        });
        COMPARE_PICTURES(scene.paint({row}, place), expected);
    }
}

void tst_CDrawRowVisitor::focusCell_ownColors_areUsed()
{
    Scene scene;
    scene.context.colors.set(GCC_FOCUSTEXT, Qt::red);
    scene.context.colors.set(GCC_FOCUSBACKGROUND, Qt::yellow);
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    row->textColor = QColor(Qt::blue).rgb();
    Scene::setText(row, column, "Text");
    DrawnRow const place = focusedRow(scene, 0);
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(1, 1, 58, 18, Qt::yellow);
        textAt(painter, scene.rectsOf(column, "Text").textRect, Qt::red, "Text");
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawRowVisitor::focusCell_text_isTheRowsColorWithoutSelection()
{
    Scene scene;
    scene.context.showSelectionInactive = true;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    row->textColor = QColor(Qt::blue).rgb();
    row->bkColor = QColor(Qt::cyan).rgb();
    Scene::setText(row, column, "Text");
    DrawnRow place = focusedRow(scene, 0);
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.color(GCC_INACTIVESELBACKGROUND));
        // The inner ground is the grid's, not the row's.
        painter.fillRect(1, 1, 58, 18, scene.color(GCC_BACKGROUND));
        textAt(painter, scene.rectsOf(column, "Text").textRect, Qt::blue, "Text");
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawRowVisitor::focusCell_inFullRowSelect_isNone()
{
    Scene scene;
    scene.context.fullRowSelect = true;
    scene.context.showSelectionInactive = true;
    scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    DrawnRow place = focusedRow(scene, 0);
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.color(GCC_INACTIVESELBACKGROUND));
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

namespace {

// A framed column with a text in a selected row, and the rectangle round the text.
struct FramedScene : Scene
{
    FramedScene()
    {
        context.hasFocus = true;
        column = addColumn(GCCK_TEXT, 100, GCCF_FRAMED);
        row = addRow();
        row->bkColor = QColor(Qt::cyan).rgb();
        setText(row, column, "Text");
        place.selected = true;
        textRect = rectsOf(column, "Text").textRect;
        round = textRect.adjusted(-2, 0, 2, 0);
    }
    void drawCell(QPainter & painter) const
    {
        painter.fillRect(0, 0, 100, 20, Qt::cyan);
        painter.fillRect(round, color(GCC_SELBACKGROUND));
    }

    CGCColumn * column;
    CGCOrdinaryRow * row;
    DrawnRow place = standing();
    QRect textRect;
    QRect round;
};

} // namespace

void tst_CDrawRowVisitor::framedCell_fillsRoundTheText()
{
    FramedScene scene;
    QImage const expected = scene.draw([&](KPainter & painter) {
        scene.drawCell(painter);
        textAt(painter, scene.textRect, scene.color(GCC_SELTEXT), "Text");
    });
    COMPARE_PICTURES(scene.paint({scene.row}, scene.place), expected);
}

void tst_CDrawRowVisitor::framedCell_withFocus_hasAFrameRoundTheText()
{
    FramedScene scene;
    scene.place.focused = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        scene.drawCell(painter);
        QColor const frame = QColor::fromRgb(~scene.color(GCC_SELBACKGROUND).rgb() & 0xffffff);
        QRect const & round = scene.round;
        int const w = round.right() - round.left();
        int const h = round.bottom() - round.top();
        halfTone(painter, QRect(round.left(), round.top(), 1, h), frame);
        halfTone(painter, QRect(round.right(), round.top(), 1, h), frame);
        halfTone(painter, QRect(round.left(), round.top(), w, 1), frame);
        halfTone(painter, QRect(round.left(), round.bottom(), w, 1), frame);
        textAt(painter, scene.textRect, scene.color(GCC_SELTEXT), "Text");
    });
    COMPARE_PICTURES(scene.paint({scene.row}, scene.place), expected);
    // Not without the grid's focus.
    scene.context.hasFocus = false;
    scene.context.showSelectionInactive = true;
    scene.context.colors.set(GCC_INACTIVESELBACKGROUND, scene.color(GCC_SELBACKGROUND));
    scene.context.colors.set(GCC_INACTIVESELTEXT, scene.color(GCC_SELTEXT));
    QImage const plain = scene.draw([&](KPainter & painter) {
        scene.drawCell(painter);
        textAt(painter, scene.textRect, scene.color(GCC_SELTEXT), "Text");
    });
    COMPARE_PICTURES(scene.paint({scene.row}, scene.place), plain);
}

void tst_CDrawRowVisitor::framedCell_withoutText_isPlain()
{
    FramedScene scene;
    releaseText(scene.row->ItemOf(scene.column)->text);
    scene.row->ItemOf(scene.column)->text = nullptr;
    scene.place.focused = true;
    QImage const expected =
        scene.draw([&](KPainter & painter) { painter.fillRect(0, 0, 100, 20, Qt::cyan); });
    COMPARE_PICTURES(scene.paint({scene.row}, scene.place), expected);
}

void tst_CDrawRowVisitor::framedCell_rightAligned_leavesTheVerticalLine()
{
    FramedScene scene;
    scene.context.verticalLines = true;
    scene.column->format = 2;
    QRect const textRect = scene.rectsOf(scene.column, "Text").textRect;
    QCOMPARE(textRect.right(), 98);
    QImage const picture = scene.paint({scene.row}, scene.place);
    QImage const lines = scene.draw([&](KPainter & painter) {
        halfTone(painter, QRect(99, 0, 1, 20), scene.color(GCC_SEPARATOR));
    });
    COMPARE_PICTURES(picture.copy(99, 0, 1, 20), lines.copy(99, 0, 1, 20));
    QCOMPARE(QColor(picture.pixel(98, textRect.top())), scene.color(GCC_SELBACKGROUND));
    QCOMPARE(QColor(picture.pixel(textRect.left() - 2, textRect.top())),
             scene.color(GCC_SELBACKGROUND));
    QCOMPARE(QColor(picture.pixel(textRect.left() - 3, textRect.top())), QColor(Qt::cyan));
}

void tst_CDrawRowVisitor::framedColumn_keepsRowFocusLinesAway()
{
    Scene scene;
    scene.context.hasFocus = true;
    scene.addColumn(GCCK_TEXT, 40, GCCF_FRAMED);
    scene.addColumn(GCCK_TEXT, 40);
    CGCOrdinaryRow * const row = scene.addRow();
    DrawnRow place = Scene::standing();
    place.focused = true;
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 80, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawRowVisitor::ancestorLines_standBesideOpenAncestors_data()
{
    addPixelRatios();
}

void tst_CDrawRowVisitor::ancestorLines_standBesideOpenAncestors()
{
    QFETCH(double, ratio);
    Scene scene;
    scene.ratio = ratio;
    scene.addColumn(GCCK_TEXT, 20);
    scene.addColumn(GCCK_TEXT, 90, GCCF_TREELINES);
    CGCOrdinaryRow * const top = scene.addRow();
    CGCOrdinaryRow * const last = scene.addRow(top);
    CGCOrdinaryRow * const open = scene.addRow(last);
    CGCOrdinaryRow * const row = scene.addRow(open);
    scene.lastRows.rows = {last, row};
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 110, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(20 + 6, 0, 1, 20, lineColor());
        painter.fillRect(20 + 2 * 16 + 6, 0, 1, 20, lineColor());
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::ancestorLines_beyondTheCell_areLeftOut()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 39, GCCF_TREELINES);
    IGCRow * row = nullptr;
    for (int i = 0; i < 6; ++i) {
        row = scene.addRow(row);
    }
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 39, 20, scene.color(GCC_BACKGROUND));
        for (int const x : {6, 22, 38}) {
            painter.fillRect(x, 0, 1, 20, lineColor());
        }
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::ancestorLines_withoutIndent_fallOnOneColumn()
{
    Scene scene;
    scene.context.indent = 0;
    scene.addColumn(GCCK_TEXT, 39, GCCF_TREELINES);
    CGCOrdinaryRow * const top = scene.addRow();
    CGCOrdinaryRow * const open = scene.addRow(top);
    CGCOrdinaryRow * const row = scene.addRow(open);
    scene.lastRows.rows = {top};
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 39, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(6, 0, 1, 20, lineColor());
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::indentation_withoutTreeLines_followsTheFormatBit()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100, 0, 0x10000);
    CGCOrdinaryRow * const parent = scene.addRow();
    CGCOrdinaryRow * const row = scene.addRow(parent);
    Scene::setText(row, column, "Text");
    QRect const textRect = scene.rectsOf(column, "Text", 20, 1).textRect;
    QCOMPARE(textRect.left(), 2 + 16);
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 20, scene.color(GCC_BACKGROUND));
        textAt(painter, textRect, scene.color(GCC_TEXT), "Text");
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawRowVisitor::deepChain_paintsInReasonableTime()
{
    constexpr int depth = 1'000'000;
    Scene scene;
    scene.addColumn(GCCK_TEXT, 100, GCCF_TREE | GCCF_TREELINES);
    std::vector<std::unique_ptr<CGCOrdinaryRow>> chain;
    chain.reserve(depth);
    IGCRow * row = nullptr;
    for (int i = 0; i < depth; ++i) {
        chain.push_back(std::make_unique<CGCOrdinaryRow>(row, scene.columns));
        row = chain.back().get();
    }
    std::vector<IGCRow *> last;
    for (std::size_t i = chain.size() - 100; i < chain.size(); ++i) {
        last.push_back(chain[i].get());
    }
    QElapsedTimer timer;
    timer.start();
    DrawnRow place = Scene::standing();
    place.height = 1;
    QImage const picture = scene.paint(last, place);
    qint64 const elapsed = timer.elapsed();
    QVERIFY2(scene.lastRows.asked <= 10, "the tree was climbed more than once");
    QVERIFY2(elapsed < 2000, qPrintable(QString::number(elapsed)));
    QCOMPARE(picture.pixel(6, 10), lineColor().rgb());
    for (auto const & each : chain) {
        each->DestroyItems(scene.columns);
    }
}

void tst_CDrawRowVisitor::contentsFarDown_looksAsAtTheTop_data()
{
    addPixelRatios();
}

void tst_CDrawRowVisitor::contentsFarDown_looksAsAtTheTop()
{
    QFETCH(double, ratio);
    auto const paint = [&](int y) {
        Scene scene;
        scene.ratio = ratio;
        scene.context.verticalLines = true;
        scene.context.horizontalLines = true;
        scene.context.hasFocus = true;
        scene.setImages(KGridImages::Normal, QSize(12, 10), {Qt::red});
        CGCColumn * const column = scene.addColumn(GCCK_CHECKBOXWITHICON, 100, GCCF_TREE);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, column, "A text that is cut");
        row->ItemOf(column)->images = {0, -1, -1};
        row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
        DrawnRow place = Scene::standing();
        place.y = y;
        place.focused = true;
        scene.offset = QPoint(0, y);
        return scene.paint({row}, place);
    };
    // 2^31 less one screen; a multiple of the half-tone's period.
    COMPARE_PICTURES(paint(0x7ffff000), paint(0));
}

void tst_CDrawRowVisitor::noSizes_drawNothing()
{
    Scene scene;
    scene.context.verticalLines = true;
    scene.context.horizontalLines = true;
    scene.context.hasFocus = true;
    scene.addColumn(GCCK_CHECKBOXWITHICON, 0, GCCF_TREE | GCCF_TREELINES | GCCF_LEAD);
    scene.addColumn(GCCK_LISTBOX, -5);
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag | CGCOrdinaryRow::expandedFlag;
    DrawnRow place = Scene::standing();
    place.focused = true;
    COMPARE_PICTURES(scene.paint({row}, place), scene.blank());
    place.height = 0;
    COMPARE_PICTURES(scene.paint({row}, place), scene.blank());
}

ZENU_TEST(tst_CDrawRowVisitor)
#include "tst_CDrawRowVisitor.moc"
