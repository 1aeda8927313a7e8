#include "tests/grid_painting/SlimScene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// What painting asks the application of slim rows, in which order, and what it makes of it.
class tst_SlimRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void callbacks_comeInOrder();
    void callbacks_lonelyRow_comeInOrder();
    void selectedAndFocus_arePassedOn();
    void rowInfo_startsWithTheGridsDefaults();
    void rowInfo_isUsed();
    void rowInfo_black_isBlack();
    void rowInfo_nullFont_isTheGrids();
    void rowInfo_flags_areThoseOfTheRow();
    void itemInfo_startsWithTheColorOfTheCell_data();
    void itemInfo_startsWithTheColorOfTheCell();
    void itemInfo_ownColor_isUsedUnderSelectionToo();
    void itemInfo_hiddenCheck_hidesTheBox();
    void text_isReadBeforeTheNextQuestion();
    void withoutCallback_drawsNothing();
};

void tst_SlimRows::callbacks_comeInOrder()
{
    SlimScene scene;
    scene.paint({scene.row});
    QCOMPARE(scene.application.calls, QStringList({"row 7", "children 7", "item 0 --", "text 0",
                                                   "item 2 --", "text 2", "release 7"}));
}

void tst_SlimRows::callbacks_lonelyRow_comeInOrder()
{
    SlimScene scene;
    scene.paint({scene.lonely, scene.row});
    QCOMPARE(
        scene.application.calls,
        QStringList({"row 8", "item 0 --", "text 0", "item 2 --", "text 2", "release 8", "row 7",
                     "children 7", "item 0 --", "text 0", "item 2 --", "text 2", "release 7"}));
}

void tst_SlimRows::selectedAndFocus_arePassedOn()
{
    SlimScene scene;
    scene.context.focusColumn = 2;
    scene.place.focused = true;
    scene.place.selected = true;
    scene.paint({scene.lonely}, scene.place);
    QCOMPARE(scene.application.calls,
             QStringList({"row 8", "item 0 S-", "text 0", "item 2 SF", "text 2", "release 8"}));
}

void tst_SlimRows::rowInfo_startsWithTheGridsDefaults()
{
    SlimScene scene;
    scene.context.hasFocus = true;
    scene.place.selected = true;
    scene.paint({scene.row}, scene.place);
    QCOMPARE(scene.application.given.textColor, scene.color(GCC_TEXT));
    QCOMPARE(scene.application.given.bkColor, scene.color(GCC_BACKGROUND));
    QCOMPARE(scene.application.given.GetFont(), scene.context.font);
}

void tst_SlimRows::rowInfo_isUsed()
{
    SlimScene scene;
    QFont own = scene.font;
    own.setBold(true);
    scene.application.onRow = [&](GC_DRAWROWINFO & info) {
        info.textColor = Qt::blue;
        info.bkColor = Qt::yellow;
        info.SetFont(&own);
    };
    scene.application.text = "Text";
    QImage const actual = scene.paint({scene.row});

    Scene ordinary;
    CGCColumn * const first = ordinary.addColumn(GCCK_TEXT, 60);
    CGCColumn * const second = ordinary.addColumn(GCCK_TEXT, 40);
    CGCOrdinaryRow * const row = ordinary.addRow();
    row->textColor = QColor(Qt::blue).rgb();
    row->bkColor = QColor(Qt::yellow).rgb();
    row->font = &own;
    Scene::setText(row, first, "Text");
    Scene::setText(row, second, "Text");
    COMPARE_PICTURES(actual, ordinary.paint({row}));
    QCOMPARE(scene.application.released.GetFont(), &own);
}

// The record starts with colours, so what the application leaves in it is meant.
void tst_SlimRows::rowInfo_black_isBlack()
{
    for (QColor const & black : {QColor(Qt::black), QColor()}) {
        SlimScene scene;
        scene.application.onRow = [&](GC_DRAWROWINFO & info) { info.bkColor = black; };
        QImage const expected =
            scene.draw([](KPainter & painter) { painter.fillRect(0, 0, 100, 20, Qt::black); });
        COMPARE_PICTURES(scene.paint({scene.row}), expected);
    }
}

void tst_SlimRows::rowInfo_nullFont_isTheGrids()
{
    SlimScene scene;
    scene.application.text = "Text";
    QImage const expected = scene.paint({scene.row});
    scene.application.onRow = [](GC_DRAWROWINFO & info) { info.SetFont(nullptr); };
    COMPARE_PICTURES(scene.paint({scene.row}), expected);
}

void tst_SlimRows::rowInfo_flags_areThoseOfTheRow()
{
    SlimScene scene;
    scene.application.children = true;
    scene.application.onRow = [](GC_DRAWROWINFO & info) { info.expanded = info.lastChild = true; };
    scene.place.firstRow = true;
    scene.paint({scene.row}, scene.place);
    GC_DRAWROWINFO const & info = scene.application.released;
    QVERIFY(info.firstRow && info.hasChildren && !info.lastChild && !info.expanded);
}

void tst_SlimRows::itemInfo_startsWithTheColorOfTheCell_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("focusCell");
    QTest::addColumn<bool>("focusTextSet");
    QTest::addColumn<QColor>("color");
    Scene const scene;
    QTest::newRow("plain") << false << false << true << QColor(Qt::blue);
    QTest::newRow("selected") << true << false << true << scene.color(GCC_SELTEXT);
    QTest::newRow("focus cell") << false << true << true << QColor(Qt::red);
    QTest::newRow("selected focus cell") << true << true << true << QColor(Qt::red);
    QTest::newRow("without a colour of its own") << true << true << false << QColor(Qt::blue);
}

void tst_SlimRows::itemInfo_startsWithTheColorOfTheCell()
{
    QFETCH(bool, selected);
    QFETCH(bool, focusCell);
    QFETCH(bool, focusTextSet);
    QFETCH(QColor, color);
    SlimScene scene;
    scene.context.hasFocus = true;
    scene.application.onRow = [](GC_DRAWROWINFO & info) { info.textColor = Qt::blue; };
    if (focusTextSet) {
        scene.context.colors.set(GCC_FOCUSTEXT, Qt::red);
    }
    scene.context.focusColumn = focusCell ? 0 : -1;
    scene.place.focused = focusCell;
    scene.place.selected = selected;
    scene.paint({scene.row}, scene.place);
    QCOMPARE(scene.application.givenColors.first(), color);
}

void tst_SlimRows::itemInfo_ownColor_isUsedUnderSelectionToo()
{
    SlimScene scene;
    scene.context.hasFocus = true;
    scene.place.selected = true;
    scene.application.text = "Text";
    scene.application.onItem = [](GC_DRAWITEMINFO & info) { info.textColor = Qt::red; };
    QImage const actual = scene.paint({scene.row}, scene.place);
    scene.application.onItem = nullptr;
    scene.context.colors.set(GCC_SELTEXT, Qt::red);
    COMPARE_PICTURES(actual, scene.paint({scene.row}, scene.place));
}

void tst_SlimRows::itemInfo_hiddenCheck_hidesTheBox()
{
    Scene scene;
    Application application;
    scene.context.slimCallback = &application;
    scene.addColumn(GCCK_CHECKBOX, 60);
    auto * const row = scene.addSlim<CGCLonelySlimRow>();
    application.onItem = [](GC_DRAWITEMINFO & info) { info.hideCheck = info.checked = true; };
    QImage const expected = scene.draw(
        [&](KPainter & painter) { painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND)); });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_SlimRows::text_isReadBeforeTheNextQuestion()
{
    // One buffer for all answers, overwritten by each question.
    SlimScene scene;
    scene.application.text = "Text";
    QImage const expected = scene.paint({scene.row});
    scene.application.onItem = [&](GC_DRAWITEMINFO &) { scene.application.buffer.fill('?'); };
    scene.application.onRow = [&](GC_DRAWROWINFO &) { scene.application.buffer.fill('!'); };
    COMPARE_PICTURES(scene.paint({scene.row}), expected);
}

void tst_SlimRows::withoutCallback_drawsNothing()
{
    SlimScene scene;
    scene.context.slimCallback = nullptr;
    COMPARE_PICTURES(scene.paint({scene.row, scene.lonely}), scene.blank());
}

ZENU_TEST(tst_SlimRows)
#include "tst_SlimRows.moc"
