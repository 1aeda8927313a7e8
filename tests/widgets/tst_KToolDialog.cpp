#include "tests/support/TestMain.h"

#include <zenu/overlay/KPainter.h>
#include <zenu/widgets/KFlashButton.h>
#include <zenu/widgets/KToolDialog.h>

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>

#include <memory>

using namespace zenu;

namespace {

QIcon icon(QColor const & color)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(color);
    return QIcon(pixmap);
}

struct Scene
{
    explicit Scene(int margin = 5)
        : dialog(margin)
        , open(icon(Qt::blue), QStringLiteral("Open"))
        , save(icon(Qt::red), QStringLiteral("Save"))
    {
        open.setStatusTip(QStringLiteral("Opens a file"));
        save.setStatusTip(QStringLiteral("Saves the file"));
        dialog.addTool(&open);
        dialog.addTool(&save);
        dialog.setNoActionText(QStringLiteral("Pick one"));
    }
    bool show()
    {
        dialog.move(100, 100);
        dialog.show();
        return QTest::qWaitForWindowExposed(&dialog);
    }
    KFlashButton * button(int index) { return dialog.findChildren<KFlashButton *>().at(index); }
    QLabel * label() { return dialog.findChild<QLabel *>(); }

    KToolDialog dialog;
    QAction open;
    QAction save;
};

} // namespace

class tst_KToolDialog : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fresh_isAPopupWithARaisedPanel();
    void layout_hasTheGivenDistances_data();
    void layout_hasTheGivenDistances();
    void addTool_showsTheLargeIconInOrder();
    void label_followsTheMouse();
    void label_noActionText_changesWhenTheMouseLeavesNext();
    void label_statusTip_isThatOfTheTimeOfAdding();
    void click_triggersTheActionOnceAndStaysOpen();
    void click_afterwards_labelShowsNoActionTextUntilReentered();
    void click_checkableAction_keepsItsState();
    void press_releasedOutside_triggersNothing();
    void press_onTheFrame_hides();
    void setActiveColor_afterAddTool_reachesLaterButtonsOnly();
    void setButtonSpacing_movesTheButtons();
    void addTool_null_isIgnored();
    void addTool_withoutIcon_hasNoExtentAndIsQuiet();
    void action_deleted_clickDoesNothing();
    void dialog_deletedByItsAction_isQuiet();
    void press_outside_hides();
    void escape_hides();
};

void tst_KToolDialog::fresh_isAPopupWithARaisedPanel()
{
    KToolDialog dialog;
    QVERIFY(!dialog.parent());
    QVERIFY(dialog.objectName().isEmpty());
    QCOMPARE(dialog.windowType(), Qt::Popup);
    QCOMPARE(dialog.frameShape(), QFrame::Panel);
    QCOMPARE(dialog.frameShadow(), QFrame::Raised);
    QCOMPARE(dialog.lineWidth(), 2);
    QVERIFY(dialog.noActionText().isNull());
    QCOMPARE(dialog.activeColor(), KPainter::getSysColor(6));
    QCOMPARE(dialog.inactiveColor(), KPainter::getSysColor(10));
    QCOMPARE(dialog.qObject(), static_cast<QObject *>(&dialog));
    auto const * const label = dialog.findChild<QLabel *>();
    QCOMPARE(label->height(), 2 * dialog.fontMetrics().height());
    QCOMPARE(label->frameShape(), QFrame::Panel);
    QCOMPARE(label->frameShadow(), QFrame::Sunken);
    QCOMPARE(label->alignment(), Qt::AlignCenter);
}

void tst_KToolDialog::layout_hasTheGivenDistances_data()
{
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("distance"); // from the edge, with the frame of 2
    QTest::newRow("5") << 5 << 7;
    QTest::newRow("0") << 0 << 2;
    QTest::newRow("20") << 20 << 22;
    QTest::newRow("negative") << -9 << 2;
}

void tst_KToolDialog::layout_hasTheGivenDistances()
{
    QFETCH(int, margin);
    QFETCH(int, distance);
    Scene scene(margin);
    QVERIFY(scene.show());
    QRect const inside = scene.dialog.rect().adjusted(distance, distance, -distance, -distance);
    QRect const first = scene.button(0)->geometry();
    QRect const second = scene.button(1)->geometry();
    QRect const line = scene.label()->geometry();
    QCOMPARE(first.top(), inside.top());
    QCOMPARE(line.left(), inside.left());
    QCOMPARE(line.right(), inside.right());
    QCOMPARE(line.bottom(), inside.bottom());
    QCOMPARE(line.top() - first.bottom() - 1, 5);
    QCOMPARE(second.left() - first.right() - 1, 5);
}

void tst_KToolDialog::addTool_showsTheLargeIconInOrder()
{
    Scene scene;
    QVERIFY(scene.show());
    QCOMPARE(scene.button(0)->size(), QSize(32, 32));
    QVERIFY(scene.button(0)->x() < scene.button(1)->x());
    QCOMPARE(scene.button(0)->grab().toImage().pixelColor(16, 16), QColor(Qt::blue));
    QCOMPARE(scene.button(1)->grab().toImage().pixelColor(16, 16), QColor(Qt::red));
}

void tst_KToolDialog::label_followsTheMouse()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::mouseMove(scene.button(0));
    QCOMPARE(scene.label()->text(), QStringLiteral("Opens a file"));
    QTest::mouseMove(scene.button(1));
    QCOMPARE(scene.label()->text(), QStringLiteral("Saves the file"));
    QTest::mouseMove(&scene.dialog, QPoint(3, 3));
    QCOMPARE(scene.label()->text(), QStringLiteral("Pick one"));
}

void tst_KToolDialog::label_noActionText_changesWhenTheMouseLeavesNext()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::mouseMove(scene.button(0));
    QTest::mouseMove(&scene.dialog, QPoint(3, 3));
    scene.dialog.setNoActionText(QStringLiteral("Other"));
    QCOMPARE(scene.dialog.noActionText(), QStringLiteral("Other"));
    QCOMPARE(scene.label()->text(), QStringLiteral("Pick one"));
    QTest::mouseMove(scene.button(0));
    QTest::mouseMove(&scene.dialog, QPoint(3, 3));
    QCOMPARE(scene.label()->text(), QStringLiteral("Other"));
}

void tst_KToolDialog::label_statusTip_isThatOfTheTimeOfAdding()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.open.setStatusTip(QStringLiteral("later"));
    QTest::mouseMove(scene.button(0));
    QCOMPARE(scene.label()->text(), QStringLiteral("Opens a file"));
}

void tst_KToolDialog::click_triggersTheActionOnceAndStaysOpen()
{
    Scene scene;
    QVERIFY(scene.show());
    QSignalSpy const opened(&scene.open, &QAction::triggered);
    QSignalSpy const saved(&scene.save, &QAction::triggered);
    QTest::mouseClick(scene.button(1), Qt::LeftButton);
    QCOMPARE(opened.count(), 0);
    QCOMPARE(saved.count(), 1);
    QVERIFY(scene.dialog.isVisible());
}

void tst_KToolDialog::click_afterwards_labelShowsNoActionTextUntilReentered()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::mouseMove(scene.button(0));
    QTest::mouseClick(scene.button(0), Qt::LeftButton);
    QCOMPARE(scene.label()->text(), QStringLiteral("Pick one"));
    QTest::mouseMove(&scene.dialog, QPoint(3, 3));
    QTest::mouseMove(scene.button(0));
    QCOMPARE(scene.label()->text(), QStringLiteral("Opens a file"));
}

void tst_KToolDialog::click_checkableAction_keepsItsState()
{
    Scene scene;
    scene.open.setCheckable(true);
    QVERIFY(scene.show());
    QSignalSpy const opened(&scene.open, &QAction::triggered);
    QTest::mouseClick(scene.button(0), Qt::LeftButton);
    QCOMPARE(opened.count(), 1);
    QVERIFY(!scene.open.isChecked());
}

void tst_KToolDialog::press_releasedOutside_triggersNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    QSignalSpy const opened(&scene.open, &QAction::triggered);
    QTest::mousePress(scene.button(0), Qt::LeftButton);
    QTest::mouseRelease(scene.button(0), Qt::LeftButton, {}, QPoint(-2, 5));
    QCOMPARE(opened.count(), 0);
    QVERIFY(scene.dialog.isVisible());
}

void tst_KToolDialog::press_onTheFrame_hides()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::mousePress(&scene.dialog, Qt::LeftButton, {}, QPoint(1, 1));
    QVERIFY(!scene.dialog.isVisible());
}

void tst_KToolDialog::setActiveColor_afterAddTool_reachesLaterButtonsOnly()
{
    Scene scene;
    QColor const before = scene.button(0)->activeColor();
    scene.dialog.setActiveColor(Qt::green);
    scene.dialog.setInactiveColor(Qt::yellow);
    QAction later;
    scene.dialog.addTool(&later);
    QCOMPARE(scene.button(0)->activeColor(), before);
    QCOMPARE(scene.button(2)->activeColor(), QColor(Qt::green));
    QCOMPARE(scene.button(2)->inactiveColor(), QColor(Qt::yellow));
}

void tst_KToolDialog::setButtonSpacing_movesTheButtons()
{
    Scene scene;
    scene.dialog.setButtonSpacing(23);
    QVERIFY(scene.show());
    QCOMPARE(scene.button(1)->geometry().left() - scene.button(0)->geometry().right() - 1, 23);
}

void tst_KToolDialog::addTool_null_isIgnored()
{
    KToolDialog dialog;
    dialog.addTool(nullptr);
    QVERIFY(dialog.findChildren<KFlashButton *>().isEmpty());
}

void tst_KToolDialog::addTool_withoutIcon_hasNoExtentAndIsQuiet()
{
    KToolDialog dialog;
    QAction bare;
    dialog.addTool(&bare);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.findChild<KFlashButton *>()->size(), QSize(0, 0));
}

void tst_KToolDialog::action_deleted_clickDoesNothing()
{
    KToolDialog dialog;
    auto action = std::make_unique<QAction>(icon(Qt::blue), QStringLiteral("Gone"));
    dialog.addTool(action.get());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    action.reset();
    QTest::mouseClick(dialog.findChild<KFlashButton *>(), Qt::LeftButton);
    QVERIFY(dialog.isVisible());
}

void tst_KToolDialog::dialog_deletedByItsAction_isQuiet()
{
    auto * const dialog = new KToolDialog;
    QPointer<KToolDialog> const guard(dialog);
    QAction action(icon(Qt::blue), QStringLiteral("Close"));
    dialog->addTool(&action);
    QObject::connect(&action, &QAction::triggered, dialog, &QObject::deleteLater);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::mouseClick(dialog->findChild<KFlashButton *>(), Qt::LeftButton);
    QTRY_VERIFY(!guard);
}

// The press comes in through the window, as from the mouse: an open popup has it, wherever it is.
void tst_KToolDialog::press_outside_hides()
{
    Scene scene;
    QVERIFY(scene.show());
    QSignalSpy const opened(&scene.open, &QAction::triggered);
    QPoint const outside(-30, -20);
    QTest::mousePress(scene.dialog.windowHandle(), Qt::LeftButton, {}, outside);
    QVERIFY(!scene.dialog.isVisible());
    QTest::mouseRelease(scene.dialog.windowHandle(), Qt::LeftButton, {}, outside);
    QCOMPARE(opened.count(), 0);
}

void tst_KToolDialog::escape_hides()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(&scene.dialog, Qt::Key_Escape);
    QVERIFY(!scene.dialog.isVisible());
}

ZENU_TEST(tst_KToolDialog)
#include "tst_KToolDialog.moc"
