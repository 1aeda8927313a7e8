#include "tests/support/TestMain.h"

#include <zenu/util/KRefreshTracer.h>
#include <zenu/util/inner/RefreshTracing.h>

using namespace zenu;

#if defined(Q_OS_LINUX)
static int s_beeps = 0;

// Found before that of Qt, for this whole program: counts and makes no sound.
void QApplication::beep()
{
    ++s_beeps;
}
#endif

namespace {

// "resting count=0 threshold=1".
QByteArray dump()
{
    static char const * const names[] = {"armed", "fired", "resting"};
    return QByteArray(names[static_cast<int>(refreshState())]) +
           " count=" + QByteArray::number(refreshCount()) +
           " threshold=" + QByteArray::number(refreshThreshold());
}

void tick()
{
    QVERIFY(QMetaObject::invokeMethod(refreshTracer(), "timer", Qt::DirectConnection));
}

void expectBreak()
{
    QTest::ignoreMessage(QtDebugMsg, "Break at me !!!");
}

} // namespace

class tst_KRefreshTracer : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { delete refreshTracer(); }
    void tracer_atTheStart_restsAndTicksEachSecond();
    void tracer_isOneInTheProcess_ofTheApplication();
    void timer_eachState_hasItsNext();
    void timer_arms_withABeep();
    void notification_armed_countsUpToTheThreshold();
    void notification_otherwise_doesNothing();
    void notification_thresholdBelowTheCount_fires();
    void rhythm_afterFiring_isTwoTicksOfRest();
    void reset_restsAndCountsAnew();
    void end_deletes_andTheNextUseStartsAnew();
};

void tst_KRefreshTracer::tracer_atTheStart_restsAndTicksEachSecond()
{
    QCOMPARE(dump(), QByteArray("resting count=0 threshold=1"));
    auto const ticks = refreshTracer()->findChild<QTimer *>();
    QVERIFY(ticks);
    QVERIFY(ticks->isActive());
    QVERIFY(!ticks->isSingleShot());
    QCOMPARE(ticks->interval(), 1000);

    QTimerEvent timeout(ticks->timerId()); // a second before its time
    QCoreApplication::sendEvent(ticks, &timeout);
    QCOMPARE(dump(), QByteArray("armed count=0 threshold=1"));
}

void tst_KRefreshTracer::tracer_isOneInTheProcess_ofTheApplication()
{
    QCOMPARE(refreshTracer(), refreshTracer());
    QCOMPARE(refreshTracer()->parent(), QCoreApplication::instance());
    auto const meta = refreshTracer()->metaObject();
    QVERIFY(meta->indexOfSlot("timer()") >= 0);
    QVERIFY(meta->indexOfSlot("end()") >= 0);
}

void tst_KRefreshTracer::timer_eachState_hasItsNext()
{
    tick();
    QCOMPARE(refreshState(), RefreshState::Armed);
    tick();
    QCOMPARE(refreshState(), RefreshState::Armed);
    expectBreak();
    notifyRefresh();
    QCOMPARE(refreshState(), RefreshState::JustFired);
    tick();
    QCOMPARE(refreshState(), RefreshState::Resting);
    tick();
    QCOMPARE(refreshState(), RefreshState::Armed);
}

void tst_KRefreshTracer::timer_arms_withABeep()
{
#if !defined(Q_OS_LINUX)
    QSKIP("a beep can't be counted here");
#else
    s_beeps = 0;
    tick(); // armed
    QCOMPARE(s_beeps, 1);
    tick(); // stays armed
    expectBreak();
    notifyRefresh();
    tick(); // rests
    QCOMPARE(s_beeps, 1);
    tick(); // armed
    QCOMPARE(s_beeps, 2);
#endif
}

void tst_KRefreshTracer::notification_armed_countsUpToTheThreshold()
{
    setRefreshThreshold(3);
    tick();
    notifyRefresh();
    notifyRefresh();
    QCOMPARE(dump(), QByteArray("armed count=2 threshold=3"));
    tick(); // the count stays while armed
    QCOMPARE(dump(), QByteArray("armed count=2 threshold=3"));
    expectBreak();
    notifyRefresh();
    QCOMPARE(dump(), QByteArray("fired count=0 threshold=3"));
}

void tst_KRefreshTracer::notification_otherwise_doesNothing()
{
    notifyRefresh();
    QCOMPARE(dump(), QByteArray("resting count=0 threshold=1"));
    tick();
    expectBreak();
    notifyRefresh();
    notifyRefresh();
    QCOMPARE(dump(), QByteArray("fired count=0 threshold=1"));
}

void tst_KRefreshTracer::notification_thresholdBelowTheCount_fires()
{
    setRefreshThreshold(10);
    tick();
    notifyRefresh();
    notifyRefresh();
    setRefreshThreshold(1);
    expectBreak();
    notifyRefresh();
    QCOMPARE(dump(), QByteArray("fired count=0 threshold=1"));
}

void tst_KRefreshTracer::rhythm_afterFiring_isTwoTicksOfRest()
{
    QByteArray states;
    tick();
    for (int second = 0; second < 6; ++second) {
        if (refreshState() == RefreshState::Armed) {
            expectBreak();
        }
        notifyRefresh();
        states += QByteArray::number(static_cast<int>(refreshState()));
        tick();
        states += QByteArray::number(static_cast<int>(refreshState())) + ' ';
    }
    QCOMPARE(states, QByteArray("12 20 12 20 12 20 "));
}

void tst_KRefreshTracer::reset_restsAndCountsAnew()
{
    setRefreshThreshold(5);
    tick();
    notifyRefresh();
    resetRefreshTracer();
    QCOMPARE(dump(), QByteArray("resting count=0 threshold=5"));
}

void tst_KRefreshTracer::end_deletes_andTheNextUseStartsAnew()
{
    setRefreshThreshold(5);
    tick();
    QPointer<KRefreshTracer> const tracer = refreshTracer();
    QVERIFY(QMetaObject::invokeMethod(tracer, "end", Qt::DirectConnection));
    QVERIFY(tracer.isNull());
    QCOMPARE(dump(), QByteArray("resting count=0 threshold=1"));
}

ZENU_TEST(tst_KRefreshTracer)
#include "tst_KRefreshTracer.moc"
