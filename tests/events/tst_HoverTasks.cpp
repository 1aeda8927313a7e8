#include "tests/events/MonitorFixture.h"
#include "tests/support/TestMain.h"

#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <limits>

using namespace zenu;
using zenutest::Clock;
using zenutest::monitor;
using zenutest::Watched;

class tst_HoverTasks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void add_makesTheMonitor();
    void remove_withoutAMonitor_makesIt();
    void ticks_areMillisecondsBy250RoundedUp_data();
    void ticks_areMillisecondsBy250RoundedUp();
    void zeroMilliseconds_neverFires();
    void longestTime_doesNotFireSoon();
    void twoTasks_fireAtTheThirdAndFifthTickOnce();
    void noMoveYet_firstTickOnlySeesTheMouse();
    void move_armsAgain();
    void move_whileSettling_startsOver();
    void move_overAnotherObject_endsTheRestToo();
    void task_addedWhileTheMouseStands_countsFromThere();
    void posIsWhereTheMouseSettled();
    void mouseElsewhere_spendsTheCount();
    void modalDialog_spendsTheCount();
    void modalDialogOfAnInstant_silencesOnlyThen();
    void otherTimers_areNoTicks();
    void ids_areTheNumberOfTasksAndMayRepeat();
    void remove_takesTheFirstWithTheId();
    void remove_unknownId_isIgnored();
    void widgetGone_taskIsNotTouchedAndStillCounts();
    void widgetGone_eventThatWasPosted();
    void nullWidget_nothingHappens();
    void realTime_firesAfterTheRest();

private:
    void rest(QPoint const & pos);

    std::unique_ptr<Watched> m_widget;
    std::unique_ptr<Clock> m_clock;
};

void tst_HoverTasks::init()
{
    Test::init();
    m_widget = std::make_unique<Watched>();
    m_widget->setGeometry(100, 80, 200, 120);
    m_widget->show();
    m_widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_widget.get()));
    QTest::mouseMove(m_widget.get(), QPoint(1, 1));
    if (QByteArray(QTest::currentTestFunction()) != "add_makesTheMonitor" &&
        QByteArray(QTest::currentTestFunction()) != "remove_withoutAMonitor_makesIt") {
        KEventMonitor::init();
        m_clock = std::make_unique<Clock>(monitor());
    }
}

void tst_HoverTasks::cleanup()
{
    m_clock.reset();
    delete monitor();
    m_widget.reset();
}

// Moves the mouse to `pos` of the widget, where it stays.
void tst_HoverTasks::rest(QPoint const & pos)
{
    QTest::mouseMove(m_widget.get(), pos + QPoint(1, 0));
    QTest::mouseMove(m_widget.get(), pos);
    QCOMPARE(QCursor::pos(), m_widget->mapToGlobal(pos));
}

void tst_HoverTasks::add_makesTheMonitor()
{
    QVERIFY(!monitor());
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 500), 0);
    QVERIFY(monitor());
}

void tst_HoverTasks::remove_withoutAMonitor_makesIt()
{
    QVERIFY(!monitor());
    KEventMonitor::removeHoverTask(0);
    QVERIFY(monitor());
}

void tst_HoverTasks::ticks_areMillisecondsBy250RoundedUp_data()
{
    QTest::addColumn<unsigned int>("milliseconds");
    QTest::addColumn<int>("ticks");
    QTest::newRow("1") << 1U << 1;
    QTest::newRow("249") << 249U << 1;
    QTest::newRow("250") << 250U << 1;
    QTest::newRow("251") << 251U << 2;
    QTest::newRow("500") << 500U << 2;
    QTest::newRow("750") << 750U << 3;
    QTest::newRow("25000") << 25000U << 100;
    QTest::newRow("25001") << 25001U << 101;
}

void tst_HoverTasks::ticks_areMillisecondsBy250RoundedUp()
{
    QFETCH(unsigned int, milliseconds);
    QFETCH(int, ticks);
    KEventMonitor::addHoverTask(m_widget.get(), milliseconds);
    rest(QPoint(50, 60));
    m_clock->tick(); // sees where the mouse stands
    m_clock->tick(ticks - 1);
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 50,60"));
}

void tst_HoverTasks::zeroMilliseconds_neverFires()
{
    KEventMonitor::addHoverTask(m_widget.get(), 0);
    rest(QPoint(50, 60));
    m_clock->tick(1000);
    QCOMPARE(m_widget->hovers, QStringList());
}

void tst_HoverTasks::longestTime_doesNotFireSoon()
{
    KEventMonitor::addHoverTask(m_widget.get(), std::numeric_limits<unsigned int>::max());
    rest(QPoint(50, 60));
    m_clock->tick(1000);
    QCOMPARE(m_widget->hovers, QStringList());
}

void tst_HoverTasks::twoTasks_fireAtTheThirdAndFifthTickOnce()
{
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    KEventMonitor::addHoverTask(m_widget.get(), 1000);
    rest(QPoint(10, 20));
    QStringList const first{"0 10,20"};
    QStringList const both{"0 10,20", "1 10,20"};
    QStringList const expected[] = {{}, {}, first, first, both, both, both};
    for (QStringList const & hovers : expected) {
        m_clock->tick();
        QCOMPARE(m_widget->hovers, hovers);
    }
    m_clock->tick(100);
    QCOMPARE(m_widget->hovers, both);
    rest(QPoint(11, 21));
    m_clock->tick(5);
    QCOMPARE(m_widget->hovers, both + QStringList({"0 11,21", "1 11,21"}));
}

void tst_HoverTasks::noMoveYet_firstTickOnlySeesTheMouse()
{
    rest(QPoint(10, 20));
    m_clock.reset();
    delete monitor();
    KEventMonitor::init();
    m_clock = std::make_unique<Clock>(monitor());
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
}

void tst_HoverTasks::move_armsAgain()
{
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    rest(QPoint(10, 20));
    m_clock->tick(2); // one left
    rest(QPoint(30, 40));
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 30,40"));
}

void tst_HoverTasks::move_whileSettling_startsOver()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    rest(QPoint(10, 20));
    m_clock->tick();
    rest(QPoint(30, 40));
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 30,40"));
}

void tst_HoverTasks::move_overAnotherObject_endsTheRestToo()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    rest(QPoint(10, 20));
    m_clock->tick(3);
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
    QWidget other;
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(&other, &move);
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList({"0 10,20", "0 10,20"}));
}

void tst_HoverTasks::task_addedWhileTheMouseStands_countsFromThere()
{
    rest(QPoint(10, 20));
    m_clock->tick(5);
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
}

// The widget moves below the mouse: the place on the screen counts, in the widget as it is now.
void tst_HoverTasks::posIsWhereTheMouseSettled()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    rest(QPoint(50, 60));
    QPoint const settled = QCursor::pos();
    m_clock->tick();
    Watched child(m_widget.get());
    child.setGeometry(40, 40, 60, 60);
    child.show();
    KEventMonitor::addHoverTask(&child, 250);
    m_clock->tick();
    QCOMPARE(m_widget->mapToGlobal(QPoint(50, 60)), settled);
    QCOMPARE(m_widget->hovers, QStringList("0 50,60"));
    QCOMPARE(child.hovers, QStringList("1 10,20"));
    KEventMonitor::removeHoverTask(1);
}

void tst_HoverTasks::mouseElsewhere_spendsTheCount()
{
    Watched child(m_widget.get());
    child.setGeometry(100, 60, 50, 50);
    child.show();
    KEventMonitor::addHoverTask(&child, 250);
    rest(QPoint(99, 60)); // one pixel beside it
    m_clock->tick(2);
    child.move(90, 50);
    m_clock->tick(10);
    QCOMPARE(child.hovers, QStringList());
    rest(QPoint(90, 50));
    m_clock->tick(2);
    QCOMPARE(child.hovers, QStringList("0 0,0"));
    rest(QPoint(139, 99));
    m_clock->tick(2);
    QCOMPARE(child.hovers, QStringList({"0 0,0", "0 49,49"}));
    rest(QPoint(140, 99));
    m_clock->tick(2);
    QCOMPARE(child.hovers.size(), 2);
    KEventMonitor::removeHoverTask(0);
}

void tst_HoverTasks::modalDialog_spendsTheCount()
{
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    rest(QPoint(10, 20));
    m_clock->tick(2);
    QDialog dialog;
    dialog.setModal(true);
    dialog.setGeometry(400, 400, 100, 100);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList());
    dialog.close();
    m_clock->tick(10);
    QCOMPARE(m_widget->hovers, QStringList());
    rest(QPoint(12, 20));
    m_clock->tick(3);
    QCOMPARE(m_widget->hovers, QStringList("0 12,20"));
}

void tst_HoverTasks::modalDialogOfAnInstant_silencesOnlyThen()
{
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    rest(QPoint(10, 20));
    m_clock->tick();
    {
        QDialog dialog;
        dialog.setModal(true);
        dialog.setGeometry(400, 400, 100, 100);
        dialog.show();
        m_clock->tick(); // not the one that fires
    }
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
}

void tst_HoverTasks::otherTimers_areNoTicks()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    rest(QPoint(10, 20));
    for (int i = 0; i < 10; ++i)
        m_clock->tickOfAnother();
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList());
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
}

void tst_HoverTasks::ids_areTheNumberOfTasksAndMayRepeat()
{
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 250), 0);
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 500), 1);
    KEventMonitor::removeHoverTask(0);
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 750), 1);
    rest(QPoint(10, 20));
    m_clock->tick(10);
    QCOMPARE(m_widget->hovers, QStringList({"1 10,20", "1 10,20"}));
}

void tst_HoverTasks::remove_takesTheFirstWithTheId()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    KEventMonitor::removeHoverTask(0);
    KEventMonitor::addHoverTask(m_widget.get(), 500); // 1 too
    KEventMonitor::removeHoverTask(1);
    rest(QPoint(10, 20));
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList()); // the one of 250 is gone
    m_clock->tick();
    QCOMPARE(m_widget->hovers, QStringList("1 10,20"));
}

void tst_HoverTasks::remove_unknownId_isIgnored()
{
    KEventMonitor::addHoverTask(m_widget.get(), 250);
    KEventMonitor::removeHoverTask(1);
    KEventMonitor::removeHoverTask(-1);
    rest(QPoint(10, 20));
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList("0 10,20"));
}

void tst_HoverTasks::widgetGone_taskIsNotTouchedAndStillCounts()
{
    auto child = std::make_unique<Watched>(m_widget.get());
    child->resize(m_widget->size());
    child->show();
    KEventMonitor::addHoverTask(child.get(), 250);
    rest(QPoint(10, 20));
    m_clock->tick();
    child.reset();
    m_clock->tick(3);
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 250), 1);
    rest(QPoint(10, 20));
    m_clock->tick(2);
    QCOMPARE(m_widget->hovers, QStringList("1 10,20"));
}

void tst_HoverTasks::widgetGone_eventThatWasPosted()
{
    auto child = std::make_unique<Watched>(m_widget.get());
    child->resize(m_widget->size());
    child->show();
    KEventMonitor::addHoverTask(child.get(), 250);
    rest(QPoint(10, 20));
    m_clock->tick();
    QTimer::singleShot(0, this, [&] { child.reset(); });
    m_clock->tick();
    QCoreApplication::processEvents();
    QVERIFY(!child);
}

void tst_HoverTasks::nullWidget_nothingHappens()
{
    QCOMPARE(KEventMonitor::addHoverTask(nullptr, 250), 0);
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 250), 1);
    rest(QPoint(10, 20));
    m_clock->tick(5);
    QCOMPARE(m_widget->hovers, QStringList("1 10,20"));
    KEventMonitor::removeHoverTask(0);
    QCOMPARE(KEventMonitor::addHoverTask(m_widget.get(), 250), 1);
}

void tst_HoverTasks::realTime_firesAfterTheRest()
{
    m_clock.reset();
    KEventMonitor::addHoverTask(m_widget.get(), 500);
    rest(QPoint(10, 20));
    QElapsedTimer elapsed;
    elapsed.start();
    QTRY_COMPARE(m_widget->hovers, QStringList("0 10,20"));
    QVERIFY2(elapsed.elapsed() >= 490, qPrintable(QString::number(elapsed.elapsed())));
    QTest::qWait(600);
    QCOMPARE(m_widget->hovers.size(), 1);
}

ZENU_TEST(tst_HoverTasks)
#include "tst_HoverTasks.moc"
