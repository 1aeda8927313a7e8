#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <zenu/widgets/inner/StandardColors.h>

#include <QtWidgets/QColorDialog>
#include <QtWidgets/QStyleOptionMenuItem>

using namespace zenu;
using zenutest::PopupParts;
using zenutest::settle;

namespace {

// An open popup with a grid of 2 rows of 3.
class OpenPopup : public KColorPopup
{
public:
    OpenPopup()
        : KColorPopup(2, 3, standardColors.data(), Qt::yellow)
        , parts(*this)
    {
        connect(this, &KColorPopup::colorSelected, this,
                [this](QColor const & color) { picks << color; });
    }

    using KColorPopup::initStyleOption;

    bool open()
    {
        popup(QPoint(300, 200));
        bool const exposed = QTest::qWaitForWindowExposed(this);
        QTest::mouseMove(windowHandle(), QPoint(-50, -50));
        settle();
        return exposed;
    }
    void keys(QList<int> const & list)
    {
        for (int const key : list)
            QTest::keyClick(windowHandle(), Qt::Key(key));
    }
    void mouseTo(QWidget & button)
    {
        QTest::mouseMove(windowHandle(), button.mapTo(this, button.rect().center()));
    }

    PopupParts parts;
    QList<QColor> picks;
};

} // namespace

Q_DECLARE_METATYPE(QList<int>)

class tst_ColorPopupInput : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void arrowKeys_walkEntriesAndGrid_data();
    void arrowKeys_walkEntriesAndGrid();
    void arrowKeys_rightToLeft_followTheScreen();
    void arrowKeys_emptyGrid_isPassedOver();
    void arrowKeys_reachActionsOfTheApplication();
    void returnAndSpace_pick_data();
    void returnAndSpace_pick();
    void return_onOther_opensTheDialog();
    void escape_closesWithoutAPick();
    void mouse_lightsWhatItIsOver();
    void mouse_thenKeys_goOnFromThere();
    void keys_thenMouse_lightsOneOnly();
    void rightClick_onAnEntry_doesNothing();
    void drag_ofTheOpeningPress_picks();
    void drag_withoutAMove_doesNotPick();
    void drag_fromOneSwatchToAnother_picksTheOther();
    void closing_leavesNothingLit();
    void focus_staysWithTheMenu();
    void highlight_ofTheMenu_isNotDrawnBelowTheEntries();
};

void tst_ColorPopupInput::arrowKeys_walkEntriesAndGrid_data()
{
    int const down = Qt::Key_Down;
    int const up = Qt::Key_Up;
    int const left = Qt::Key_Left;
    int const right = Qt::Key_Right;
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QByteArray>("lit");
    QTest::newRow("nothing at first") << QList<int>{} << QByteArray("none");
    QTest::newRow("first the default entry") << QList<int>{down} << QByteArray("default");
    QTest::newRow("into the grid") << QList<int>{down, down} << QByteArray("0");
    QTest::newRow("to the right") << QList<int>{down, down, right, right} << QByteArray("2");
    QTest::newRow("not over the right edge")
        << QList<int>{down, down, right, right, right} << QByteArray("2");
    QTest::newRow("not over the left edge") << QList<int>{down, down, left} << QByteArray("0");
    QTest::newRow("down in the grid") << QList<int>{down, down, right, down} << QByteArray("4");
    QTest::newRow("out of the grid")
        << QList<int>{down, down, right, down, down} << QByteArray("other");
    QTest::newRow("back into the same column")
        << QList<int>{down, down, right, down, down, up} << QByteArray("4");
    QTest::newRow("up and out at the top")
        << QList<int>{down, down, right, down, up, up} << QByteArray("default");
    QTest::newRow("from the top into the same column")
        << QList<int>{down, down, right, up, down} << QByteArray("1");
    QTest::newRow("round to the last entry") << QList<int>{down, up} << QByteArray("other");
    QTest::newRow("round to the first entry") << QList<int>{up, down} << QByteArray("default");
}

void tst_ColorPopupInput::arrowKeys_walkEntriesAndGrid()
{
    QFETCH(QList<int>, keys);
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.keys(keys);
    QTEST(popup.parts.lit(), "lit");
    QVERIFY(popup.isVisible());
    QVERIFY(popup.picks.isEmpty());
    popup.close();
}

void tst_ColorPopupInput::arrowKeys_rightToLeft_followTheScreen()
{
    OpenPopup popup;
    popup.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(popup.open());
    QVERIFY(popup.parts.swatches.at(1)->x() < popup.parts.swatches.at(0)->x());
    popup.keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Left});
    QCOMPARE(popup.parts.lit(), QByteArray("1"));
    popup.keys({Qt::Key_Right});
    QCOMPARE(popup.parts.lit(), QByteArray("0"));
    popup.close();
}

void tst_ColorPopupInput::arrowKeys_emptyGrid_isPassedOver()
{
    KColorPopup popup(0, 0, nullptr, Qt::yellow);
    popup.popup(QPoint(300, 200));
    QVERIFY(QTest::qWaitForWindowExposed(&popup));
    QTest::keyClick(popup.windowHandle(), Qt::Key_Down);
    QTest::keyClick(popup.windowHandle(), Qt::Key_Down);
    QCOMPARE(PopupParts(popup).lit(), QByteArray("other"));
    popup.close();
}

void tst_ColorPopupInput::arrowKeys_reachActionsOfTheApplication()
{
    OpenPopup popup;
    QAction * const more = popup.addAction(QStringLiteral("More"));
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Up});
    popup.keys({Qt::Key_Down, Qt::Key_Up}); // whichever way the style begins: the last one
    QCOMPARE(popup.activeAction(), more);
    QCOMPARE(popup.parts.lit(), QByteArray("none"));
    popup.keys({Qt::Key_Up});
    QCOMPARE(popup.parts.lit(), QByteArray("other"));
    popup.keys({Qt::Key_Down});
    QCOMPARE(popup.activeAction(), more);
    QCOMPARE(popup.parts.lit(), QByteArray("none"));
    QSignalSpy const triggered(more, &QAction::triggered);
    popup.keys({Qt::Key_Return});
    QCOMPARE(triggered.size(), 1);
    QVERIFY(!popup.isVisible());
    QVERIFY(popup.picks.isEmpty());
}

void tst_ColorPopupInput::returnAndSpace_pick_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void tst_ColorPopupInput::returnAndSpace_pick()
{
    QFETCH(int, key);
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Down, key});
    QVERIFY(!popup.isVisible());
    QCOMPARE(popup.picks, QList<QColor>{QColor(Qt::yellow)});
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, key});
    QVERIFY(!popup.isVisible());
    QCOMPARE(popup.picks.last(), QColor(standardColors[4]));
    QCOMPARE(popup.picks.size(), 2);
}

void tst_ColorPopupInput::return_onOther_opensTheDialog()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Down, Qt::Key_Up});
    QTimer::singleShot(0, &popup, [] {
        auto * const dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        dialog->setCurrentColor(Qt::magenta);
        dialog->accept();
    });
    popup.keys({Qt::Key_Return});
    QCOMPARE(popup.picks, QList<QColor>{QColor(Qt::magenta)});
}

void tst_ColorPopupInput::escape_closesWithoutAPick()
{
    for (QList<int> const & before :
         {QList<int>{}, QList<int>{Qt::Key_Down}, QList<int>{Qt::Key_Down, Qt::Key_Down}}) {
        OpenPopup popup;
        QVERIFY(popup.open());
        popup.keys(before);
        popup.keys({Qt::Key_Escape});
        QVERIFY(!popup.isVisible());
        QVERIFY(popup.picks.isEmpty());
    }
}

void tst_ColorPopupInput::mouse_lightsWhatItIsOver()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.mouseTo(*popup.parts.standard);
    QTRY_COMPARE(popup.parts.lit(), QByteArray("default"));
    for (int const index : {0, 4, 2}) {
        popup.mouseTo(*popup.parts.swatches.at(index));
        QTRY_COMPARE(popup.parts.lit(), QByteArray::number(index));
    }
    popup.mouseTo(*popup.parts.other);
    QTRY_COMPARE(popup.parts.lit(), QByteArray("other"));
    QTest::mouseMove(popup.windowHandle(), QPoint(-50, -50));
    QTRY_COMPARE(popup.parts.lit(), QByteArray("none"));
    popup.close();
}

void tst_ColorPopupInput::mouse_thenKeys_goOnFromThere()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.mouseTo(*popup.parts.swatches.at(1));
    QTRY_COMPARE(popup.parts.lit(), QByteArray("1"));
    popup.keys({Qt::Key_Down});
    QCOMPARE(popup.parts.lit(), QByteArray("4"));
    popup.keys({Qt::Key_Down});
    QCOMPARE(popup.parts.lit(), QByteArray("other"));
    popup.close();
}

void tst_ColorPopupInput::keys_thenMouse_lightsOneOnly()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.mouseTo(*popup.parts.swatches.at(1));
    QTRY_COMPARE(popup.parts.lit(), QByteArray("1"));
    popup.keys({Qt::Key_Right});
    QCOMPARE(popup.parts.lit(), QByteArray("2"));
    // The mouse is still over 1, and moves a little.
    QWidget & first = *popup.parts.swatches.at(1);
    QTest::mouseMove(popup.windowHandle(), first.mapTo(&popup, QPoint(3, 3)));
    QTRY_COMPARE(popup.parts.lit(), QByteArray("1"));
    popup.close();
}

void tst_ColorPopupInput::rightClick_onAnEntry_doesNothing()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    for (QWidget * const button : {popup.parts.standard, popup.parts.swatches.at(2)}) {
        popup.mouseTo(*button);
        QTest::mouseClick(popup.windowHandle(), Qt::RightButton, {},
                          button->mapTo(&popup, button->rect().center()));
        QVERIFY(popup.isVisible());
    }
    QVERIFY(popup.picks.isEmpty());
    popup.close();
}

void tst_ColorPopupInput::drag_ofTheOpeningPress_picks()
{
    OpenPopup popup;
    zenutest::Window window;
    QVERIFY(window.open());
    window.button->setPopup(&popup);
    QByteArray lit;
    zenutest::whenOpen(popup, [&] {
        QWidget & swatch = *popup.parts.swatches.at(4);
        QPoint const pos = swatch.mapTo(&popup, swatch.rect().center());
        QTest::mouseMove(popup.windowHandle(), pos);
        QTest::mouseMove(popup.windowHandle(), pos + QPoint(1, 1));
        settle();
        lit = popup.parts.lit();
        QTest::mouseRelease(popup.windowHandle(), Qt::LeftButton, {}, pos + QPoint(1, 1));
    });
    QTest::mouseMove(window.windowHandle(), window.onButton());
    window.press(window.onButton());
    QTRY_COMPARE(popup.picks.size(), 1);
    QCOMPARE(lit, QByteArray("4"));
    QCOMPARE(popup.picks.at(0), QColor(standardColors[4]));
    QVERIFY(!popup.isVisible());
}

void tst_ColorPopupInput::drag_withoutAMove_doesNotPick()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    QWidget & swatch = *popup.parts.swatches.at(1);
    QPoint const pos = swatch.mapTo(&popup, swatch.rect().center());
    popup.close();
    QCursor::setPos(popup.pos() + pos); // it opens under the mouse
    QVERIFY(popup.open());
    QTest::mouseRelease(popup.windowHandle(), Qt::LeftButton, {}, pos);
    QVERIFY(popup.picks.isEmpty());
    QVERIFY(popup.isVisible());
    popup.close();
    QCursor::setPos(0, 0);
}

void tst_ColorPopupInput::drag_fromOneSwatchToAnother_picksTheOther()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    auto const centre = [&popup](int index) {
        QWidget & swatch = *popup.parts.swatches.at(index);
        return swatch.mapTo(&popup, swatch.rect().center());
    };
    popup.mouseTo(*popup.parts.swatches.at(0));
    QTest::mousePress(popup.windowHandle(), Qt::LeftButton, {}, centre(0));
    QTest::mouseMove(popup.windowHandle(), centre(5));
    QTRY_COMPARE(popup.parts.lit(), QByteArray("5"));
    QTest::mouseRelease(popup.windowHandle(), Qt::LeftButton, {}, centre(5));
    QCOMPARE(popup.picks, QList<QColor>{QColor(standardColors[5])});
    QVERIFY(!popup.isVisible());
}

void tst_ColorPopupInput::closing_leavesNothingLit()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Right});
    QCOMPARE(popup.parts.lit(), QByteArray("1"));
    popup.close();
    QCOMPARE(popup.parts.lit(), QByteArray("none"));
    QVERIFY(popup.open());
    popup.keys({Qt::Key_Down, Qt::Key_Down});
    QCOMPARE(popup.parts.lit(), QByteArray("0")); // the column is forgotten
    popup.close();
}

void tst_ColorPopupInput::focus_staysWithTheMenu()
{
    OpenPopup popup;
    QVERIFY(popup.open());
    for (int i = 0; i < 9; ++i) {
        popup.keys({i % 2 ? int(Qt::Key_Tab) : int(Qt::Key_Down)});
        QVERIFY(!popup.focusWidget() || popup.focusWidget() == &popup);
        QVERIFY(popup.parts.lit() != "none");
    }
    popup.close();
}

void tst_ColorPopupInput::highlight_ofTheMenu_isNotDrawnBelowTheEntries()
{
    OpenPopup popup;
    QAction * const more = popup.addAction(QStringLiteral("More"));
    QVERIFY(popup.open());
    QList<QAction *> const actions = popup.actions();
    for (QAction * const action : actions) {
        popup.setActiveAction(action);
        QStyleOptionMenuItem option;
        popup.initStyleOption(&option, action);
        QCOMPARE(bool(option.state & QStyle::State_Selected), action == more);
        QCOMPARE(option.text.isEmpty(), action != more);
    }
    popup.close();
}

ZENU_TEST(tst_ColorPopupInput)
#include "tst_ColorPopupInput.moc"
