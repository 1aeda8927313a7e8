#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// What is in a cell, by the pixels of the rules. Rows are 20 pixels high and stand at the top of
// the picture, so a tree button covers the lines 5 to 13, its centre is the pixel (6, 9).
class tst_CDrawItemVisitor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void everyKind_drawsItsElements_data();
    void everyKind_drawsItsElements();

    void treeLines_data();
    void treeLines();
    void treeLines_withoutTreeFlag_areNotDrawn();
    void treeLines_withoutTreeLinesFlag_areNotDrawn();
    void treeLines_beyondTheCell_areLeftOut();
    void button_standsOnTheCellsBackgroundAfterSelection();
    void button_inNarrowColumn_isClippedAndAlone_data();
    void button_inNarrowColumn_isClippedAndAlone();

    void image_isDrawnUnscaled_data();
    void image_isDrawnUnscaled();
    void image_cutByTheCell_showsItsLeftPart();
    void image_underSelectionColors_isThatOfTheSelectedList();
    void image_selectedWithoutSelectionColors_isThatOfTheNormalList();
    void image_ofMissingSelectedList_drawsNothing();
    void overlayAndState_areDrawnOverTheImage();
    void overlay_withoutImage_isNotDrawn();

    void checkBox_data();
    void checkBox();
    void checkBox_standsOnTheRowsBackgroundBeforeSelection();
    void checkBox_hidden_leavesItsPlaceToTheText();
    void radio_withoutList_drawsNothing();
    void radio_withList_drawsItsCells();
};

namespace {

QRect const wholeButton(2, 5, 9, 9);

} // namespace

void tst_CDrawItemVisitor::everyKind_drawsItsElements_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("elements");
    QTest::newRow("icon") << int(GCCK_ICON) << "image";
    QTest::newRow("text") << int(GCCK_TEXT) << "text";
    QTest::newRow("text with icon") << int(GCCK_TEXTWITHICON) << "image text";
    QTest::newRow("check box") << int(GCCK_CHECKBOX) << "check text";
    QTest::newRow("list box") << int(GCCK_LISTBOX) << "choice";
    QTest::newRow("combo box") << int(GCCK_COMBOBOX) << "text";
    QTest::newRow("owner draw") << int(GCCK_OWNERDRAW) << "";
    QTest::newRow("check box with icon") << int(GCCK_CHECKBOXWITHICON) << "check image text";
}

void tst_CDrawItemVisitor::everyKind_drawsItsElements()
{
    QFETCH(int, kind);
    QFETCH(QString, elements);
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        scene.setImages(KGridImages::Normal, QSize(12, 10), {Qt::red, Qt::blue});
        CGCColumn * const column = scene.addColumn(kind, 110, GCCF_TREE);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, column, "Text");
        row->ItemOf(column)->images = {0, -1, -1};
        if (auto * const list = dynamic_cast<CGCListBoxColumn *>(column)) {
            list->choices = {"Choice"};
        }
        row->rowFlags |= CGCOrdinaryRow::hasChildrenFlag;
        QImage const actual = scene.paint({row});

        bool const isChoice = elements == QStringLiteral("choice");
        char const * const text = isChoice ? "Choice" : "Text";
        CElementRects const rects = scene.rectsOf(column, text);
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 110, 20, scene.color(GCC_BACKGROUND));
            glyph(painter, GlyphExpanded, wholeButton.topLeft());
            if (elements.contains(QStringLiteral("check"))) {
                outline(painter, rects.checkRect, KPainter::getSysColor(1));
            }
            if (elements.contains(QStringLiteral("image"))) {
                painter.fillRect(QRect(rects.imageRect.topLeft(), QSize(12, 10)), Qt::red);
            }
            if (isChoice || elements.contains(QStringLiteral("text"))) {
                // A fresh list item's own colour is black.
                textAt(painter, rects.textRect, isChoice ? Qt::black : scene.color(GCC_TEXT), text);
            }
        });
        COMPARE_PICTURES(actual, expected);
    }
}

void tst_CDrawItemVisitor::treeLines_data()
{
    QTest::addColumn<bool>("firstRow");
    QTest::addColumn<bool>("lastChild");
    QTest::addColumn<bool>("hasChildren");
    QTest::addColumn<bool>("expanded");
    QTest::addColumn<QRect>("vertical"); // from the cell's top
    QRect const none;
    QRect const below(6, 9, 1, 11);
    QRect const above(6, 0, 1, 9);
    QRect const through(6, 0, 1, 20);
    QTest::newRow("middle") << false << false << false << false << through;
    QTest::newRow("first") << true << false << false << false << below;
    QTest::newRow("last") << false << true << false << false << above;
    QTest::newRow("first and last") << true << true << false << false << none;
    QTest::newRow("expanded but childless") << false << false << false << true << through;
    QTest::newRow("collapsed") << false << false << true << false << through;
    QTest::newRow("expanded") << false << false << true << true << through;
    QTest::newRow("first, last and expanded") << true << true << true << true << none;
}

void tst_CDrawItemVisitor::treeLines()
{
    QFETCH(bool, firstRow);
    QFETCH(bool, lastChild);
    QFETCH(bool, hasChildren);
    QFETCH(bool, expanded);
    QFETCH(QRect, vertical);
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60, GCCF_TREE | GCCF_TREELINES);
        CGCOrdinaryRow * const row = scene.addRow();
        row->rowFlags = 0;
        row->rowFlags |= hasChildren ? CGCOrdinaryRow::hasChildrenFlag : 0;
        row->rowFlags |= expanded ? CGCOrdinaryRow::expandedFlag : 0;
        DrawnRow place = Scene::standing();
        place.firstRow = firstRow;
        place.lastChild = lastChild;
        QImage const actual = scene.paint({row}, place);

        // The text starts half an indentation after the button's centre: 16 / 2 - 2.
        QCOMPARE(scene.rectsOf(column, "").treeOffset, 6);
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND));
            if (!vertical.isNull()) {
                painter.fillRect(vertical, lineColor());
            }
            painter.fillRect(6, 9, 6, 1, lineColor());
            if (hasChildren && expanded) {
                painter.fillRect(6 + 16, 18, 1, 2, lineColor());
            }
            if (hasChildren) {
                painter.fillRect(wholeButton, scene.color(GCC_BACKGROUND));
                glyph(painter, expanded ? GlyphExpanded : GlyphCollapsed, wholeButton.topLeft());
            }
        });
        COMPARE_PICTURES(actual, expected);
    }
}

void tst_CDrawItemVisitor::treeLines_withoutTreeFlag_areNotDrawn()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 60, GCCF_TREELINES);
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags |= CGCOrdinaryRow::hasChildrenFlag;
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::treeLines_withoutTreeLinesFlag_areNotDrawn()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 60, GCCF_TREE);
    CGCOrdinaryRow * const row = scene.addRow();
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::treeLines_beyondTheCell_areLeftOut()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 16, GCCF_TREE | GCCF_TREELINES);
    scene.context.indent = 60;
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags |= CGCOrdinaryRow::hasChildrenFlag;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 16, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(6, 0, 1, 20, lineColor());
        painter.fillRect(6, 9, 10, 1, lineColor());
        painter.fillRect(wholeButton, scene.color(GCC_BACKGROUND));
        glyph(painter, GlyphExpanded, wholeButton.topLeft());
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::button_standsOnTheCellsBackgroundAfterSelection()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 60, GCCF_TREE | GCCF_FRAMED);
    scene.context.hasFocus = true;
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    DrawnRow place = Scene::standing();
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(wholeButton, scene.color(GCC_SELBACKGROUND));
        glyph(painter, GlyphCollapsed, wholeButton.topLeft());
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawItemVisitor::button_inNarrowColumn_isClippedAndAlone_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("buttonWidth");
    QTest::newRow("just whole") << 13 << 9;
    QTest::newRow("12") << 12 << 9;
    QTest::newRow("9") << 9 << 6;
    QTest::newRow("one pixel") << 4 << 1;
    QTest::newRow("no room") << 3 << 0;
    QTest::newRow("less than none") << 2 << 0;
}

void tst_CDrawItemVisitor::button_inNarrowColumn_isClippedAndAlone()
{
    QFETCH(int, width);
    QFETCH(int, buttonWidth);
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(5, 5), {Qt::red});
    CGCColumn * const column = scene.addColumn(GCCK_TEXTWITHICON, width, GCCF_TREE);
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    row->ItemOf(column)->images = {0, 0, 0};
    Scene::setText(row, column, "i");
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, width, 20, scene.color(GCC_BACKGROUND));
        if (buttonWidth > 0) {
            makeGridGlyphs()->drawImage(&painter, GlyphCollapsed, 2, 5, buttonWidth, 9);
        }
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::image_isDrawnUnscaled_data()
{
    addPixelRatios();
}

void tst_CDrawItemVisitor::image_isDrawnUnscaled()
{
    QFETCH(double, ratio);
    Scene scene;
    scene.ratio = ratio;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red, Qt::blue});
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images[0] = 1;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(2, 2, 16, 16, Qt::blue);
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::image_cutByTheCell_showsItsLeftPart()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 12);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images[0] = 0;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 12, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(2, 2, 9, 16, Qt::red);
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::image_underSelectionColors_isThatOfTheSelectedList()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    scene.setImages(KGridImages::Selected, QSize(16, 16), {Qt::blue});
    scene.context.hasFocus = true;
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images[0] = 0;
    DrawnRow place = Scene::standing();
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 50, 20, scene.color(GCC_SELBACKGROUND));
        painter.fillRect(2, 2, 16, 16, Qt::blue);
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawItemVisitor::image_selectedWithoutSelectionColors_isThatOfTheNormalList()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    scene.setImages(KGridImages::Selected, QSize(16, 16), {Qt::blue});
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images[0] = 0;
    DrawnRow place = Scene::standing();
    place.selected = true;
    QCOMPARE(QColor(scene.paint({row}, place).pixel(5, 5)), QColor(Qt::red));
}

void tst_CDrawItemVisitor::image_ofMissingSelectedList_drawsNothing()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    scene.context.hasFocus = true;
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images = {0, 0, 0};
    DrawnRow place = Scene::standing();
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 50, 20, scene.color(GCC_SELBACKGROUND));
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawItemVisitor::overlayAndState_areDrawnOverTheImage()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    scene.setImages(KGridImages::Overlay, QSize(10, 8), {Qt::green, Qt::blue});
    scene.setImages(KGridImages::State, QSize(4, 5), {Qt::white, Qt::yellow});
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images = {0, 1, 1};
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND));
        painter.fillRect(2, 2, 16, 16, Qt::red);
        painter.fillRect(2, 2, 10, 8, Qt::blue);
        painter.fillRect(2, 2, 4, 5, Qt::yellow);
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::overlay_withoutImage_isNotDrawn()
{
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(16, 16), {Qt::red});
    scene.setImages(KGridImages::Overlay, QSize(10, 8), {Qt::green});
    CGCColumn * const column = scene.addColumn(GCCK_ICON, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->images = {-1, 0, 0};
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::checkBox_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("grayed");
    QTest::addColumn<int>("shownGlyph");
    QTest::newRow("clear") << false << false << -1;
    QTest::newRow("checked") << true << false << int(GlyphChecked);
    QTest::newRow("grayed") << false << true << int(GlyphGrayed);
    QTest::newRow("grayed counts before checked") << true << true << int(GlyphGrayed);
}

void tst_CDrawItemVisitor::checkBox()
{
    QFETCH(bool, checked);
    QFETCH(bool, grayed);
    QFETCH(int, shownGlyph);
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        CGCColumn * const column = scene.addColumn(GCCK_CHECKBOX, 50);
        CGCOrdinaryRow * const row = scene.addRow();
        row->ItemOf(column)->setState(GCIS_CHECKED, checked);
        row->ItemOf(column)->setCheckStyle(grayed ? GridItem::grayed : 0);
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND));
            outline(painter, QRect(2, 4, 12, 12), KPainter::getSysColor(1));
            if (shownGlyph >= 0) {
                glyph(painter, GridGlyph(shownGlyph), QPoint(3, 5));
            }
        });
        COMPARE_PICTURES(scene.paint({row}), expected);
    }
}

void tst_CDrawItemVisitor::checkBox_standsOnTheRowsBackgroundBeforeSelection()
{
    Scene scene;
    scene.addColumn(GCCK_CHECKBOX, 50);
    scene.context.hasFocus = true;
    CGCOrdinaryRow * const row = scene.addRow();
    row->bkColor = QColor(Qt::cyan).rgb();
    DrawnRow place = Scene::standing();
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 50, 20, scene.color(GCC_SELBACKGROUND));
        painter.fillRect(2, 4, 12, 12, Qt::cyan);
        outline(painter, QRect(2, 4, 12, 12), KPainter::getSysColor(1));
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_CDrawItemVisitor::checkBox_hidden_leavesItsPlaceToTheText()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_CHECKBOX, 80);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->setCheckStyle(GridItem::hideCheck);
    Scene::setText(row, column, "Text");
    QImage const actual = scene.paint({row});
    Scene plain;
    CGCColumn * const text = plain.addColumn(GCCK_TEXT, 80);
    CGCOrdinaryRow * const textRow = plain.addRow();
    Scene::setText(textRow, text, "Text");
    COMPARE_PICTURES(actual, plain.paint({textRow}));
}

void tst_CDrawItemVisitor::radio_withoutList_drawsNothing()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_CHECKBOX, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->ItemOf(column)->setCheckStyle(GridItem::radio | GridItem::grayed);
    row->ItemOf(column)->setState(GCIS_CHECKED, true);
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CDrawItemVisitor::radio_withList_drawsItsCells()
{
    for (bool const checked : {false, true}) {
        Scene scene;
        scene.setImages(KGridImages::Radio, QSize(7, 7), {Qt::red, Qt::blue});
        CGCColumn * const column = scene.addColumn(GCCK_CHECKBOX, 50);
        CGCOrdinaryRow * const row = scene.addRow();
        row->ItemOf(column)->setCheckStyle(GridItem::radio);
        row->ItemOf(column)->setState(GCIS_CHECKED, checked);
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 50, 20, scene.color(GCC_BACKGROUND));
            painter.fillRect(3, 5, 7, 7, checked ? Qt::blue : Qt::red);
        });
        COMPARE_PICTURES(scene.paint({row}), expected);
    }
}

ZENU_TEST(tst_CDrawItemVisitor)
#include "tst_CDrawItemVisitor.moc"
