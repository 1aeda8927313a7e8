#include "tests/grid_painting/SlimScene.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/painting/CGetDisplayAttributes.h"

using namespace zenutest;

class tst_CGetDisplayAttributes : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void ordinary_data();
    void ordinary();
    void slim_data();
    void slim();
    void slim_font();
    void section_areTheGrids();
};

void tst_CGetDisplayAttributes::ordinary_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("hasFocus");
    QTest::addColumn<bool>("focusCell");
    QTest::addColumn<bool>("itemColor");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("background");
    Scene const scene;
    QColor const item(Qt::red);
    QColor const row(Qt::blue);
    QColor const back(Qt::yellow);
    QColor const grid = scene.color(GCC_TEXT);
    QColor const selected = scene.color(GCC_SELTEXT);
    QColor const selectedBack = scene.color(GCC_SELBACKGROUND);
    QTest::newRow("row") << false << true << false << false << row << back;
    QTest::newRow("item") << false << true << false << true << item << back;
    QTest::newRow("selected") << true << true << false << true << selected << selectedBack;
    QTest::newRow("looks unselected") << true << false << false << true << item << back;
    QTest::newRow("focus cell") << false << true << true << false << grid << back;
    QTest::newRow("focus cell, item") << false << true << true << true << item << back;
    QTest::newRow("selected focus cell") << true << true << true << true << grid << selectedBack;
}

void tst_CGetDisplayAttributes::ordinary()
{
    QFETCH(bool, selected);
    QFETCH(bool, hasFocus);
    QFETCH(bool, focusCell);
    QFETCH(bool, itemColor);
    Scene scene;
    scene.context.hasFocus = hasFocus;
    scene.context.focusColumn = 0;
    scene.context.colors.set(GCC_FOCUSTEXT, Qt::green);
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const row = scene.addRow();
    row->textColor = QColor(Qt::blue).rgb();
    row->bkColor = QColor(Qt::yellow).rgb();
    QFont own;
    own.setBold(true);
    row->font = &own;
    if (itemColor) {
        row->ItemOf(column)->setTextColor(QColor(Qt::red).rgb());
    }
    CGetDisplayAttributes attributes(scene.context, column, selected, focusCell);
    row->Accept(&attributes);
    QTEST(attributes.textColor, "text");
    QTEST(attributes.bkColor, "background");
    QVERIFY(attributes.font.bold());
}

void tst_CGetDisplayAttributes::slim_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("focusCell");
    QTest::addColumn<QColor>("given");
    QTest::addColumn<QColor>("background");
    Scene const scene;
    QColor const back(Qt::yellow);
    QColor const selectedBack = scene.color(GCC_SELBACKGROUND);
    QTest::newRow("row") << false << false << QColor(Qt::blue) << back;
    QTest::newRow("selected") << true << false << scene.color(GCC_SELTEXT) << selectedBack;
    QTest::newRow("focus cell") << false << true << scene.color(GCC_TEXT) << back;
    QTest::newRow("selected focus cell") << true << true << scene.color(GCC_TEXT) << selectedBack;
}

void tst_CGetDisplayAttributes::slim()
{
    QFETCH(bool, selected);
    QFETCH(bool, focusCell);
    QFETCH(QColor, given);
    SlimScene scene;
    scene.context.hasFocus = true;
    scene.context.focusColumn = 0;
    scene.application.onRow = [](GC_DRAWROWINFO & info) {
        info.textColor = Qt::blue;
        info.bkColor = Qt::yellow;
    };
    CGetDisplayAttributes attributes(scene.context, scene.first, selected, focusCell);
    scene.lonely->Accept(&attributes);
    QCOMPARE(attributes.textColor, given);
    QTEST(attributes.bkColor, "background");
    QCOMPARE(scene.application.calls, QStringList({"row 8",
                                                   QStringLiteral("item 0 %1%2")
                                                       .arg(QChar(selected ? u'S' : u'-'))
                                                       .arg(QChar(focusCell ? u'F' : u'-')),
                                                   "release 8"}));
    scene.application.onItem = [](GC_DRAWITEMINFO & info) { info.textColor = Qt::red; };
    CGetDisplayAttributes again(scene.context, scene.first, selected, focusCell);
    scene.row->Accept(&again);
    QCOMPARE(again.textColor, QColor(Qt::red));
}

void tst_CGetDisplayAttributes::slim_font()
{
    SlimScene scene;
    CGetDisplayAttributes attributes(scene.context, scene.first, false, false);
    scene.application.onRow = [](GC_DRAWROWINFO & info) { info.SetFont(nullptr); };
    scene.row->Accept(&attributes);
    QCOMPARE(attributes.font, scene.font);
    QFont own = scene.font;
    own.setItalic(true);
    scene.application.onRow = [&](GC_DRAWROWINFO & info) { info.SetFont(&own); };
    scene.row->Accept(&attributes);
    QCOMPARE(attributes.font, own);
}

void tst_CGetDisplayAttributes::section_areTheGrids()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 60);
    CGCSection * const section = scene.addSection("Text");
    section->textColor = QColor(Qt::red).rgb();
    CGetDisplayAttributes attributes(scene.context, column, true, true);
    section->Accept(&attributes);
    QCOMPARE(attributes.textColor, scene.color(GCC_TEXT));
    QCOMPARE(attributes.bkColor, scene.color(GCC_BACKGROUND));
}

ZENU_TEST(tst_CGetDisplayAttributes)
#include "tst_CGetDisplayAttributes.moc"
