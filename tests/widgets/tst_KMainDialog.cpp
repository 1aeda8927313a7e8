#include "tests/support/TestMain.h"

#include <zenu/widgets/KMainDialog.h>

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolButton>

#include <algorithm>
#include <memory>

using namespace zenu;

namespace {

QIcon icon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    return QIcon(pixmap);
}

// The separators that are to be seen, from the top.
QList<QFrame *> shownLines(KMainDialog const & dialog)
{
    QList<QFrame *> lines;
    for (QFrame * const frame :
         dialog.findChildren<QFrame *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (frame->frameShape() == QFrame::HLine && frame->isVisibleTo(&dialog)) {
            lines.append(frame);
        }
    }
    std::sort(lines.begin(), lines.end(), [](auto * a, auto * b) { return a->y() < b->y(); });
    return lines;
}

// The menu bar has a button of its own.
QList<QToolButton *> tools(KMainDialog const & dialog)
{
    return dialog.findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
}

bool show(KMainDialog & dialog)
{
    dialog.resize(300, 200);
    dialog.show();
    return QTest::qWaitForWindowExposed(&dialog);
}

} // namespace

class tst_KMainDialog : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fresh_showsNothing();
    void constructor_modal_isModal();
    void toolsAndCentralWidgetOnly_haveOneLine();
    void noTools_haveNoLine();
    void menuBar_firstCall_showsBarAndLine();
    void statusBar_firstCall_showsBarAndLine();
    void allParts_standFromTopToBottom();
    void lines_areSunkenAndThreePixelsHigh();
    void setCentralWidget_hidesAndAdopts();
    void setCentralWidget_second_detachesTheFirst();
    void setCentralWidget_sameAgain_stays();
    void setCentralWidget_null_detaches();
    void setCentralWidget_deletedWidget_isForgotten();
    void addActionToToolbar_standsInOrderAtTheLeft();
    void addActionToToolbar_buttonHasTheActionsIconAndAFrozenSize();
    void addActionToToolbar_click_emitsTriggered();
    void addActionToToolbar_toggleAction_doesNotFollow();
    void addActionToToolbar_null_isIgnored();
    void action_deleted_clickDoesNothing();
};

void tst_KMainDialog::fresh_showsNothing()
{
    KMainDialog dialog;
    QVERIFY(!dialog.isModal());
    QVERIFY(dialog.objectName().isEmpty());
    QVERIFY(!dialog.centralWidget());
    QVERIFY(show(dialog));
    QVERIFY(shownLines(dialog).isEmpty());
    QVERIFY(!dialog.findChild<QMenuBar *>()->isVisible());
    QVERIFY(!dialog.findChild<QStatusBar *>()->isVisible());
}

void tst_KMainDialog::constructor_modal_isModal()
{
    QWidget parent;
    KMainDialog const dialog(&parent, true);
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.parent(), &parent);
}

void tst_KMainDialog::toolsAndCentralWidgetOnly_haveOneLine()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    auto * const label = new QLabel;
    dialog.addActionToToolbar(&action);
    dialog.setCentralWidget(label);
    label->show();
    QVERIFY(show(dialog));
    auto const * const tool = tools(dialog).first();
    QCOMPARE(shownLines(dialog).size(), 1); // that of the tools
    QVERIFY(shownLines(dialog).first()->y() > tool->geometry().bottom());
    QVERIFY(!dialog.findChild<QMenuBar *>()->isVisible());
    QVERIFY(!dialog.findChild<QStatusBar *>()->isVisible());
}

void tst_KMainDialog::noTools_haveNoLine()
{
    KMainDialog dialog;
    auto * const label = new QLabel;
    dialog.setCentralWidget(label);
    label->show();
    QVERIFY(show(dialog));
    QVERIFY(shownLines(dialog).isEmpty());
    QCOMPARE(label->geometry(), dialog.rect());
}

void tst_KMainDialog::menuBar_firstCall_showsBarAndLine()
{
    KMainDialog dialog;
    QVERIFY(show(dialog));
    QMenuBar * const bar = dialog.menuBar();
    QCOMPARE(bar->parent(), &dialog);
    QVERIFY(bar->isVisible());
    QCOMPARE(shownLines(dialog).size(), 1);
    QCOMPARE(dialog.menuBar(), bar);
    QCOMPARE(shownLines(dialog).size(), 1);
}

void tst_KMainDialog::statusBar_firstCall_showsBarAndLine()
{
    KMainDialog dialog;
    QVERIFY(show(dialog));
    QStatusBar * const bar = dialog.statusBar();
    QCOMPARE(bar->parent(), &dialog);
    QVERIFY(bar->isVisible());
    QCOMPARE(shownLines(dialog).size(), 1);
    QCOMPARE(dialog.statusBar(), bar);
}

void tst_KMainDialog::allParts_standFromTopToBottom()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    auto * const label = new QLabel;
    dialog.statusBar()->showMessage(QStringLiteral("ready"));
    dialog.menuBar()->addMenu(QStringLiteral("File"));
    dialog.addActionToToolbar(&action);
    dialog.setCentralWidget(label);
    label->show();
    QVERIFY(show(dialog));
    auto const lines = shownLines(dialog);
    QCOMPARE(lines.size(), 3);
    QList<QWidget *> const parts{dialog.menuBar(),  lines[0], tools(dialog).first(),
                                 lines[1],          label,    lines[2],
                                 dialog.statusBar()};
    QCOMPARE(parts.first()->y(), 0);
    for (int i = 1; i < parts.size(); ++i) {
        QCOMPARE(parts[i]->y(), parts[i - 1]->geometry().bottom() + 1);
    }
    QCOMPARE(parts.last()->geometry().bottom(), dialog.rect().bottom());
}

void tst_KMainDialog::lines_areSunkenAndThreePixelsHigh()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    dialog.menuBar();
    dialog.statusBar();
    dialog.addActionToToolbar(&action);
    QVERIFY(show(dialog));
    QCOMPARE(shownLines(dialog).size(), 3);
    for (QFrame const * line : shownLines(dialog)) {
        QCOMPARE(line->height(), 3);
        QCOMPARE(line->frameShadow(), QFrame::Sunken);
    }
}

void tst_KMainDialog::setCentralWidget_hidesAndAdopts()
{
    KMainDialog dialog;
    QVERIFY(show(dialog));
    auto * const label = new QLabel;
    label->show();
    dialog.setCentralWidget(label);
    QCOMPARE(dialog.centralWidget(), label);
    QCOMPARE(label->parent(), &dialog);
    QCOMPARE(label->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));
    QCoreApplication::processEvents();
    QVERIFY(!label->isVisible());
    label->show();
    QVERIFY(label->isVisible());
}

void tst_KMainDialog::setCentralWidget_second_detachesTheFirst()
{
    KMainDialog dialog;
    QVERIFY(show(dialog));
    auto const first = std::make_unique<QLabel>();
    auto * const second = new QLabel;
    dialog.setCentralWidget(first.get());
    first->show();
    dialog.setCentralWidget(second);
    QVERIFY(!first->parent());
    QVERIFY(!first->isVisible());
    QCOMPARE(first->pos(), QPoint(0, 0));
    QCOMPARE(dialog.centralWidget(), second);
    second->show();
    QCoreApplication::processEvents();
    QCOMPARE(second->geometry(), dialog.rect());
}

void tst_KMainDialog::setCentralWidget_sameAgain_stays()
{
    KMainDialog dialog;
    auto * const label = new QLabel;
    dialog.setCentralWidget(label);
    dialog.setCentralWidget(label);
    QCOMPARE(dialog.centralWidget(), label);
    QCOMPARE(label->parent(), &dialog);
    label->show();
    QVERIFY(show(dialog));
    QCOMPARE(label->geometry(), dialog.rect());
}

void tst_KMainDialog::setCentralWidget_null_detaches()
{
    KMainDialog dialog;
    QLabel label;
    dialog.setCentralWidget(&label);
    dialog.setCentralWidget(nullptr);
    QVERIFY(!dialog.centralWidget());
    QVERIFY(!label.parent());
}

void tst_KMainDialog::setCentralWidget_deletedWidget_isForgotten()
{
    KMainDialog dialog;
    auto * const label = new QLabel;
    dialog.setCentralWidget(label);
    delete label;
    QVERIFY(!dialog.centralWidget());
    dialog.setCentralWidget(new QLabel);
    QVERIFY(dialog.centralWidget());
}

void tst_KMainDialog::addActionToToolbar_standsInOrderAtTheLeft()
{
    KMainDialog dialog;
    QAction actions[3];
    for (QAction & action : actions) {
        action.setIcon(icon());
        dialog.addActionToToolbar(&action);
    }
    QVERIFY(show(dialog));
    auto const shown = tools(dialog);
    QCOMPARE(shown.size(), 3);
    int right = -1;
    for (QToolButton const * tool : shown) {
        QCOMPARE(tool->x(), right + 1);
        right = tool->geometry().right();
    }
    QVERIFY(right < dialog.width() / 2);
}

void tst_KMainDialog::addActionToToolbar_buttonHasTheActionsIconAndAFrozenSize()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    action.setToolTip(QStringLiteral("tip"));
    dialog.addActionToToolbar(&action);
    auto * const tool = tools(dialog).first();
    QVERIFY(tool->autoRaise());
    QCOMPARE(tool->icon().cacheKey(), action.icon().cacheKey());
    QVERIFY(tool->text().isEmpty());
    QVERIFY(tool->toolTip().isEmpty());
    QCOMPARE(tool->minimumSize(), tool->sizeHint());
    QSize const before = tool->size();
    tool->setIconSize(QSize(64, 64));
    QVERIFY(show(dialog));
    QCOMPARE(tool->size(), before);
}

void tst_KMainDialog::addActionToToolbar_click_emitsTriggered()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    QSignalSpy const spy(&action, &QAction::triggered);
    dialog.addActionToToolbar(&action);
    QVERIFY(show(dialog));
    QTest::mouseClick(tools(dialog).first(), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
}

// The button's own state changes with a click, the action's does not, and neither follows the
// other.
void tst_KMainDialog::addActionToToolbar_toggleAction_doesNotFollow()
{
    KMainDialog dialog;
    QAction action(icon(), QStringLiteral("Tool"));
    action.setCheckable(true);
    dialog.addActionToToolbar(&action);
    auto * const tool = tools(dialog).first();
    QVERIFY(tool->isCheckable());
    QVERIFY(show(dialog));
    action.setChecked(true);
    QVERIFY(!tool->isChecked());
    action.setEnabled(false);
    QVERIFY(tool->isEnabled());
    QTest::mouseClick(tool, Qt::LeftButton);
    QVERIFY(tool->isChecked());
    QTest::mouseClick(tool, Qt::LeftButton);
    QVERIFY(!tool->isChecked());
    QVERIFY(action.isChecked());
}

void tst_KMainDialog::addActionToToolbar_null_isIgnored()
{
    KMainDialog dialog;
    dialog.addActionToToolbar(nullptr);
    QVERIFY(tools(dialog).isEmpty());
    QVERIFY(show(dialog));
    QVERIFY(shownLines(dialog).isEmpty());
}

void tst_KMainDialog::action_deleted_clickDoesNothing()
{
    KMainDialog dialog;
    auto action = std::make_unique<QAction>(icon(), QStringLiteral("Gone"));
    dialog.addActionToToolbar(action.get());
    QVERIFY(show(dialog));
    action.reset();
    QTest::mouseClick(tools(dialog).first(), Qt::LeftButton);
}

ZENU_TEST(tst_KMainDialog)
#include "tst_KMainDialog.moc"
