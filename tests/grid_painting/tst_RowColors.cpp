#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/painting/RowColors.h"

using namespace zenutest;

class tst_RowColors : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void selectionLook_data();
    void selectionLook();
    void underSelection_eachLook_givesItsColors();
    void ordinaryRowInfo_unsetColor_isTheGrids();
    void ordinaryRowInfo_ownColorsAndFont_areTaken();
    void ordinaryRowInfo_blackWithoutAlpha_isBlack();
    void sectionColors_eachLook_givesItsFour();
    void focusCell_data();
    void focusCell();
    void complement_isOpaque();
};

void tst_RowColors::selectionLook_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("hasFocus");
    QTest::addColumn<bool>("showInactive");
    QTest::addColumn<int>("look");
    QTest::newRow("not selected") << false << true << true << int(SelectionLook::None);
    QTest::newRow("grid has the focus") << true << true << false << int(SelectionLook::Active);
    QTest::newRow("focus counts first") << true << true << true << int(SelectionLook::Active);
    QTest::newRow("shown without focus") << true << false << true << int(SelectionLook::Inactive);
    QTest::newRow("looks unselected") << true << false << false << int(SelectionLook::None);
}

void tst_RowColors::selectionLook()
{
    QFETCH(bool, selected);
    QFETCH(bool, hasFocus);
    QFETCH(bool, showInactive);
    CDrawContext context;
    context.hasFocus = hasFocus;
    context.showSelectionInactive = showInactive;
    QTEST(int(zenu::selectionLook(context, selected)), "look");
}

void tst_RowColors::underSelection_eachLook_givesItsColors()
{
    Scene scene;
    RowColors const own{Qt::red, Qt::blue};
    RowColors colors = underSelection(own, scene.context, SelectionLook::None);
    QCOMPARE(colors.text, own.text);
    QCOMPARE(colors.background, own.background);
    colors = underSelection(own, scene.context, SelectionLook::Active);
    QCOMPARE(colors.text, scene.color(GCC_SELTEXT));
    QCOMPARE(colors.background, scene.color(GCC_SELBACKGROUND));
    colors = underSelection(own, scene.context, SelectionLook::Inactive);
    QCOMPARE(colors.text, scene.color(GCC_INACTIVESELTEXT));
    QCOMPARE(colors.background, scene.color(GCC_INACTIVESELBACKGROUND));
}

void tst_RowColors::ordinaryRowInfo_unsetColor_isTheGrids()
{
    Scene scene;
    CGCOrdinaryRow * const row = scene.addRow();
    row->textColor = GC_UNSETCOLOR;
    row->bkColor = GC_UNSETCOLOR;
    GC_DRAWROWINFO const info = ordinaryRowInfo(scene.context, *row);
    QCOMPARE(info.textColor, scene.color(GCC_TEXT));
    QCOMPARE(info.bkColor, scene.color(GCC_BACKGROUND));
    QCOMPARE(info.GetFont(), scene.context.font);
}

void tst_RowColors::ordinaryRowInfo_ownColorsAndFont_areTaken()
{
    Scene scene;
    CGCOrdinaryRow * const row = scene.addRow();
    QFont own;
    row->textColor = QColor(1, 2, 3).rgb();
    row->bkColor = QColor(4, 5, 6).rgb();
    row->font = &own;
    GC_DRAWROWINFO const info = ordinaryRowInfo(scene.context, *row);
    QCOMPARE(info.textColor, QColor(1, 2, 3));
    QCOMPARE(info.bkColor, QColor(4, 5, 6));
    QCOMPARE(info.GetFont(), &own);
}

void tst_RowColors::ordinaryRowInfo_blackWithoutAlpha_isBlack()
{
    Scene scene;
    CGCOrdinaryRow * const row = scene.addRow();
    row->bkColor = 0;
    QCOMPARE(ordinaryRowInfo(scene.context, *row).bkColor, QColor(0, 0, 0));
}

void tst_RowColors::sectionColors_eachLook_givesItsFour()
{
    Scene scene;
    RowColors const base{Qt::red, Qt::blue};
    auto const numbers = [&](SelectionLook look) {
        SectionColors const colors = sectionColors(scene.context, base, look);
        QStringList names;
        for (QColor const & color :
             {colors.text, colors.background, colors.topLine, colors.bottomLine}) {
            QString name = color.name();
            for (int number = 1; number <= GCC_COUNT; ++number) {
                if (color == scene.context.colors.get(number)) {
                    name = QString::number(number);
                }
            }
            names << name;
        }
        return names.join(u' ');
    };
    QCOMPARE(numbers(SelectionLook::None), QStringLiteral("#ff0000 #0000ff 12 13"));
    QCOMPARE(numbers(SelectionLook::Active), QStringLiteral("14 15 16 17"));
    QCOMPARE(numbers(SelectionLook::Inactive), QStringLiteral("18 19 20 21"));
}

void tst_RowColors::focusCell_data()
{
    QTest::addColumn<bool>("focusedRow");
    QTest::addColumn<bool>("fullRowSelect");
    QTest::addColumn<int>("focusColumn");
    QTest::addColumn<bool>("isFocus");
    QTest::newRow("focused row and column") << true << false << 1 << true;
    QTest::newRow("another row") << false << false << 1 << false;
    QTest::newRow("another column") << true << false << 0 << false;
    QTest::newRow("no column") << true << false << -1 << false;
    QTest::newRow("rows are selected as a whole") << true << true << 1 << false;
}

void tst_RowColors::focusCell()
{
    QFETCH(bool, focusedRow);
    Scene scene;
    scene.addColumn(GCCK_TEXT, 10);
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 10);
    column->order = 0;
    QFETCH(bool, fullRowSelect);
    QFETCH(int, focusColumn);
    scene.context.fullRowSelect = fullRowSelect;
    scene.context.focusColumn = focusColumn;
    QTEST(isFocusCell(scene.context, *column, focusedRow), "isFocus");
}

void tst_RowColors::complement_isOpaque()
{
    QCOMPARE(complement(QColor(255, 128, 0)), QColor(0, 127, 255));
    QCOMPARE(complement(QColor(1, 2, 3, 4)), QColor(254, 253, 252));
}

ZENU_TEST(tst_RowColors)
#include "tst_RowColors.moc"
