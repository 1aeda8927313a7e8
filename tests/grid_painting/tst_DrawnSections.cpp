#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Sections and the separators under rows, by the pixels of the rules.
class tst_DrawnSections : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void separators_horizontalLine_isTheLastOne();
    void separators_focusLines_areTopAndBottom();
    void separators_focusLines_needGridFocus();
    void separators_focusLines_areOfTheBackgroundBeforeSelection();
    void section_data();
    void section();
    void section_expandButton_standsOnTheGridsBackground();
    void section_rowColors_replaceTextAndBack();
    void section_separators_areOfItsShownBackground();
    void section_unsetBottomLine_isBlack();
    void section_tooNarrowForTheButton_startsItsTextAtTheEdge();
};

void tst_DrawnSections::separators_horizontalLine_isTheLastOne()
{
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        scene.context.horizontalLines = true;
        scene.context.verticalLines = true;
        scene.addColumn(GCCK_TEXT, 50);
        scene.addColumn(GCCK_TEXT, 50);
        CGCOrdinaryRow * const row = scene.addRow();
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 100, 40, scene.color(GCC_BACKGROUND));
            halfTone(painter, QRect(49, 0, 1, 40), scene.color(GCC_SEPARATOR));
            halfTone(painter, QRect(99, 0, 1, 40), scene.color(GCC_SEPARATOR));
            halfTone(painter, QRect(0, 19, 100, 1), scene.color(GCC_SEPARATOR));
            halfTone(painter, QRect(0, 39, 100, 1), scene.color(GCC_SEPARATOR));
        });
        COMPARE_PICTURES(scene.paint({row, row}), expected);
    }
}

void tst_DrawnSections::separators_focusLines_areTopAndBottom()
{
    Scene scene;
    scene.context.hasFocus = true;
    scene.context.horizontalLines = true;
    scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    row->bkColor = QColor(10, 20, 30).rgb();
    DrawnRow place = Scene::standing();
    place.y = 4;
    place.focused = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 4, 100, 20, QColor(10, 20, 30));
        halfTone(painter, QRect(0, 4, 100, 1), QColor(245, 235, 225));
        halfTone(painter, QRect(0, 23, 100, 1), QColor(245, 235, 225));
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_DrawnSections::separators_focusLines_needGridFocus()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    DrawnRow place = Scene::standing();
    place.focused = true;
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 100, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_DrawnSections::separators_focusLines_areOfTheBackgroundBeforeSelection()
{
    Scene scene;
    scene.context.hasFocus = true;
    scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    row->bkColor = QColor(10, 20, 30).rgb();
    DrawnRow place = Scene::standing();
    place.focused = true;
    place.selected = true;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 20, scene.color(GCC_SELBACKGROUND));
        halfTone(painter, QRect(0, 0, 100, 1), QColor(245, 235, 225));
        halfTone(painter, QRect(0, 19, 100, 1), QColor(245, 235, 225));
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_DrawnSections::section_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("hasFocus");
    QTest::addColumn<bool>("showInactive");
    QTest::addColumn<int>("firstColor");
    QTest::newRow("not selected") << false << true << true << 10;
    QTest::newRow("with focus") << true << true << false << 14;
    QTest::newRow("shown without focus") << true << false << true << 18;
    QTest::newRow("without focus looks unselected") << true << false << false << 10;
}

void tst_DrawnSections::section()
{
    QFETCH(bool, selected);
    QFETCH(bool, hasFocus);
    QFETCH(bool, showInactive);
    QFETCH(int, firstColor);
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        scene.context.hasFocus = hasFocus;
        scene.context.showSelectionInactive = showInactive;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, 50);
        scene.addColumn(GCCK_TEXT, 50);
        CGCSection * const row = scene.addSection("A section across");
        Scene::setText(row, column, "Not shown");
        DrawnRow place = Scene::standing();
        place.selected = selected;
        auto const color = [&](int number) { return scene.context.colors.get(number); };
        CElementRects rects;
        CellInputs inputs;
        inputs.texts = &scene.texts;
        inputs.font = &scene.font;
        inputs.text = row->Text();
        inputs.height = 20;
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 100, 1, color(firstColor + 2));
            painter.fillRect(0, 1, 100, 18, color(firstColor + 1));
            painter.fillRect(0, 19, 100, 1, color(firstColor + 3));
            placeTextInSpan(inputs, 15, 98, 1, &rects);
            QVERIFY(rects.fitCount > 5);
            textAt(painter, rects.textRect, color(firstColor),
                   QByteArray(row->Text()).left(rects.fitCount).constData());
            if (rects.fitCount < 16) {
                textAt(painter, rects.textRect.adjusted(cutWidth(rects), 0, 0, 0),
                       color(firstColor), "...");
            }
        });
        COMPARE_PICTURES(scene.paint({row}, place), expected);
    }
}

void tst_DrawnSections::section_expandButton_standsOnTheGridsBackground()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 100);
    CGCSection * const row = scene.addSection(nullptr);
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    auto const expected = [&](GridGlyph button) {
        return scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 100, 1, scene.color(GCC_SECTIONTOP));
            painter.fillRect(0, 1, 100, 18, scene.color(GCC_SECTIONBACKGROUND));
            painter.fillRect(0, 19, 100, 1, scene.color(GCC_SECTIONBOTTOM));
            painter.fillRect(2, 5, 9, 9, scene.color(GCC_BACKGROUND));
            glyph(painter, button, QPoint(2, 5));
        });
    };
    COMPARE_PICTURES(scene.paint({row}), expected(GlyphCollapsed));
    row->rowFlags |= CGCOrdinaryRow::expandedFlag;
    COMPARE_PICTURES(scene.paint({row}), expected(GlyphExpanded));
}

void tst_DrawnSections::section_rowColors_replaceTextAndBack()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 100);
    CGCSection * const row = scene.addSection(nullptr);
    row->bkColor = QColor(Qt::cyan).rgb();
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 1, scene.color(GCC_SECTIONTOP));
        painter.fillRect(0, 1, 100, 18, Qt::cyan);
        painter.fillRect(0, 19, 100, 1, scene.color(GCC_SECTIONBOTTOM));
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_DrawnSections::section_separators_areOfItsShownBackground()
{
    Scene scene;
    scene.context.hasFocus = true;
    scene.addColumn(GCCK_TEXT, 100);
    CGCSection * const row = scene.addSection(nullptr);
    row->bkColor = QColor(Qt::cyan).rgb();
    DrawnRow place = Scene::standing();
    place.selected = true;
    place.focused = true;
    QColor const line = QColor::fromRgb(~scene.color(GCC_SELSECTIONBACKGROUND).rgb() & 0xffffff);
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 20, scene.color(GCC_SELSECTIONBACKGROUND));
        halfTone(painter, QRect(0, 0, 100, 1), line);
        halfTone(painter, QRect(0, 19, 100, 1), line);
    });
    COMPARE_PICTURES(scene.paint({row}, place), expected);
}

void tst_DrawnSections::section_unsetBottomLine_isBlack()
{
    Scene scene;
    scene.context.hasFocus = true;
    scene.context.colors.set(GCC_SELSECTIONBOTTOM, QColor());
    scene.addColumn(GCCK_TEXT, 100);
    DrawnRow place = Scene::standing();
    place.selected = true;
    QImage const picture = scene.paint({scene.addSection(nullptr)}, place);
    QCOMPARE(QColor(picture.pixel(50, 19)), QColor(Qt::black));
}

void tst_DrawnSections::section_tooNarrowForTheButton_startsItsTextAtTheEdge()
{
    Scene scene;
    scene.addColumn(GCCK_TEXT, 13);
    CGCSection * const row = scene.addSection("i");
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    CElementRects rects;
    CellInputs inputs;
    inputs.texts = &scene.texts;
    inputs.font = &scene.font;
    inputs.text = "i";
    inputs.height = 20;
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 13, 1, scene.color(GCC_SECTIONTOP));
        painter.fillRect(0, 1, 13, 18, scene.color(GCC_SECTIONBACKGROUND));
        painter.fillRect(0, 19, 13, 1, scene.color(GCC_SECTIONBOTTOM));
        placeTextInSpan(inputs, 2, 11, 1, &rects);
        textAt(painter, rects.textRect, scene.color(GCC_SECTIONTEXT), "i");
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

ZENU_TEST(tst_DrawnSections)
#include "tst_DrawnSections.moc"
