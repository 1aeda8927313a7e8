#include "tests/support/TestMain.h"
#include "tests/time/ClockFixture.h"

#include <zenu/time/TimeUnit.h>

#include <cmath>
#include <limits>

using namespace zenu;

namespace {

using Expected = zenutest::ClockRule;
using Scene = zenutest::ClockScene;

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget * widget) { widget->installEventFilter(this); }
    int paints = 0;
    bool eventFilter(QObject *, QEvent * event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

class tst_KClockWidget : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        zenutest::Test::init();
        TimeUnit::setDefaultUnit(TimeUnit::fs);
    }
    void fresh_hasItsDefaults();
    void fresh_wholeFormHasTheColourOfEdits();
    void setBackgroundColor_reachesAllParts();
    void resize_rewritesOffsetAndPeriod();
    void setOffset_inRange_isShown();
    void setOffset_outOfRange_isInvalid();
    void setOffset_threeDecimalsCount();
    void setPeriod_dragsTheFrequencyAlong();
    void setPeriod_belowTheMinimum_isInvalid();
    void setPeriod_atTheLimits();
    void setFrequency_dragsThePeriodAlong();
    void setFrequency_limits_data();
    void setFrequency_limits();
    void setFrequency_halfAPeriodRoundsUp();
    void setMinimalPeriod_data();
    void setMinimalPeriod();
    void setMinimalPeriod_presentPeriodIsNotTested();
    void typedPeriod_givesTheFrequency();
    void typedFrequency_givesThePeriod();
    void typedPeriod_bareNumber_isInvalidAndStays();
    void typedFrequency_bad_isInvalidAndStays();
    void typedOffset_bad_isInvalidAndStays();
    void mark_swallowsTheNextChangeOnce();
    void setHighStartValue_setsBothButtons();
    void setHighStartValue_sameValue_repaintsNothing();
    void buttons_clicked_chooseTheLevel();
    void drag_movesTheEdge();
    void drag_beyondTheEnds_stopsAtOneAndNinetyNine();
    void drag_withoutTheLeftButton_movesNothing();
    void drag_startedBesideTheHandle_movesNothing();
    void cursor_overTheHandle_isHorizontal();
    void setters_outOfRange_writeTheirOwnEditOnly();
    void typedFrequency_ofThePeriodThatStandsThere_writesNothing();
    void typedFrequency_withoutUnit_isMHz();
    void typedFrequency_tooLowForAPeriod_isInvalid();
    void typedPeriod_belowTheMinimalPeriod_isInvalid();
    void mark_ofTheFrequency_swallowsTheNextChangeOnce();
    void resize_invalidNumbers_areWrittenAsKept();
    void texts_writtenByTheForm_showTheirStart();
};

void tst_KClockWidget::fresh_hasItsDefaults()
{
    KClockWidget clock(nullptr, "clock");
    QCOMPARE(clock.objectName(), QStringLiteral("clock"));
    QCOMPARE(clock.qObject(), static_cast<QObject *>(&clock));
    QVERIFY(clock.hasMouseTracking());
    Scene scene;
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 100 ns | 10MHz"));
    QCOMPARE(scene.clock.getOffset(), 0.0);
    QCOMPARE(scene.clock.getPeriod(), 1e8);
    QCOMPARE(scene.clock.getFrequency(), 10.0);
    QCOMPARE(scene.clock.getMinimalPeriod(), 2.0);
    QCOMPARE(scene.clock.getFillingWith1(), 50);
    QVERIFY(!scene.clock.getHighStartValue());
    QVERIFY(!scene.high->isChecked());
    QVERIFY(scene.low->isChecked());
}

void tst_KClockWidget::fresh_wholeFormHasTheColourOfEdits()
{
    Scene scene;
    QVERIFY(scene.show());
    QColor const base = QApplication::palette().color(QPalette::Base);
    QCOMPARE(scene.clock.grab().toImage().pixelColor(1, scene.clock.height() - 2), base);
}

void tst_KClockWidget::setBackgroundColor_reachesAllParts()
{
    Scene scene;
    QVERIFY(scene.show());
    QColor const color(200, 230, 210);
    scene.clock.setBackgroundColor(color);
    QImage const image = scene.clock.grab().toImage();
    QCOMPARE(image.pixelColor(1, image.height() - 2), color);
    for (QLineEdit const * edit : {scene.offset, scene.period, scene.frequency}) {
        QCOMPARE(image.pixelColor(edit->geometry().right() - 4, edit->geometry().center().y()),
                 color);
    }
}

void tst_KClockWidget::resize_rewritesOffsetAndPeriod()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.period, QStringLiteral("1 us"));
    Scene::type(scene.offset, QStringLiteral("2000 ps"));
    scene.clock.resize(530, 250);
    QCOMPARE(scene.period->text(), QStringLiteral("1000 ns"));
    QCOMPARE(scene.offset->text(), QStringLiteral("2000 ps"));
    QCOMPARE(scene.clock.getPeriod(), 1e9);
}

void tst_KClockWidget::setOffset_inRange_isShown()
{
    Scene scene;
    scene.clock.setOffset(2.5e9);
    QCOMPARE(scene.offset->text(), QStringLiteral("2500 ns"));
    QCOMPARE(scene.clock.getOffset(), 2.5e9);
    scene.clock.setOffset(3.6e18);
    QCOMPARE(scene.clock.getOffset(), 3.6e18);
    scene.clock.setOffset(0.9);
    QCOMPARE(scene.clock.getOffset(), 0.0);
}

void tst_KClockWidget::setOffset_outOfRange_isInvalid()
{
    Scene scene;
    for (double bad : {-1.0, 3.7e18, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        scene.clock.setOffset(5e6);
        scene.clock.setOffset(bad);
        QCOMPARE(scene.offset->text(), QStringLiteral("????"));
        QCOMPARE(scene.clock.getOffset(), -1.0);
    }
}

void tst_KClockWidget::setOffset_threeDecimalsCount()
{
    Scene scene;
    scene.clock.setOffset(12'345'678'901.0);
    QCOMPARE(scene.offset->text(), QStringLiteral("12.346 us"));
    QCOMPARE(scene.clock.getOffset(), 12'346'000'000.0);
}

void tst_KClockWidget::setPeriod_dragsTheFrequencyAlong()
{
    Scene scene;
    scene.clock.setPeriod(2e9);
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 2000 ns | 500kHz"));
    QCOMPARE(scene.clock.getPeriod(), 2e9);
    QCOMPARE(scene.clock.getFrequency(), 0.5);
}

void tst_KClockWidget::setPeriod_belowTheMinimum_isInvalid()
{
    Scene scene;
    scene.clock.setPeriod(1.0);
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    QCOMPARE(scene.clock.getFrequency(), -1.0);
    QCOMPARE(scene.period->text(), QStringLiteral("????"));
}

void tst_KClockWidget::setPeriod_atTheLimits()
{
    Scene scene;
    scene.clock.setPeriod(3.6e18);
    QCOMPARE(scene.clock.getPeriod(), 3.6e18);
    scene.clock.setPeriod(2.0);
    QCOMPARE(scene.clock.getFrequency(), 5e8);
    for (double bad : {3.7e18, -5.0, 0.0, std::numeric_limits<double>::quiet_NaN()}) {
        scene.clock.setPeriod(2.0);
        scene.clock.setPeriod(bad);
        QCOMPARE(scene.clock.getPeriod(), -1.0);
    }
}

void tst_KClockWidget::setFrequency_dragsThePeriodAlong()
{
    Scene scene;
    scene.clock.setFrequency(0.25);
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 4000 ns | 250kHz"));
    QCOMPARE(scene.clock.getPeriod(), 4e9);
    QCOMPARE(scene.clock.getFrequency(), 0.25);
}

void tst_KClockWidget::setFrequency_limits_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("period");
    QTest::newRow("5e8: the period of 2") << 5e8 << 2.0;
    QTest::newRow("5.0000001e8: refused") << 5.0000001e8 << -1.0;
    QTest::newRow("0: refused") << 0.0 << -1.0;
    QTest::newRow("negative: refused") << -3.0 << -1.0;
    QTest::newRow("not a number: refused") << std::numeric_limits<double>::quiet_NaN() << -1.0;
}

void tst_KClockWidget::setFrequency_limits()
{
    QFETCH(double, frequency);
    QFETCH(double, period);
    Scene scene;
    scene.clock.setFrequency(frequency);
    QCOMPARE(scene.clock.getPeriod(), period);
    QCOMPARE(scene.clock.getFrequency(), period < 0 ? -1.0 : frequency);
    if (period < 0) {
        QCOMPARE(scene.frequency->text(), QStringLiteral("????"));
    }
}

void tst_KClockWidget::setFrequency_halfAPeriodRoundsUp()
{
    Scene scene;
    scene.clock.setFrequency(4e8); // 2.5 femtoseconds
    QCOMPARE(scene.clock.getPeriod(), 3.0);
    scene.clock.setFrequency(3e8); // 3.33
    QCOMPARE(scene.clock.getPeriod(), 3.0);
}

void tst_KClockWidget::setMinimalPeriod_data()
{
    QTest::addColumn<double>("limit");
    QTest::addColumn<double>("expected");
    QTest::newRow("0.5") << 0.5 << 2.0;
    QTest::newRow("1e19") << 1e19 << 3.6e18;
    QTest::newRow("1000.9") << 1000.9 << 1000.0;
    QTest::newRow("negative") << -7.0 << 2.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 2.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 3.6e18;
}

void tst_KClockWidget::setMinimalPeriod()
{
    QFETCH(double, limit);
    Scene scene;
    scene.clock.setMinimalPeriod(limit);
    QTEST(scene.clock.getMinimalPeriod(), "expected");
}

void tst_KClockWidget::setMinimalPeriod_presentPeriodIsNotTested()
{
    Scene scene;
    scene.clock.setMinimalPeriod(1e9);
    QCOMPARE(scene.clock.getPeriod(), 1e8);
    scene.clock.setPeriod(9e8);
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    scene.clock.setPeriod(1e9);
    QCOMPARE(scene.clock.getPeriod(), 1e9);
}

void tst_KClockWidget::typedPeriod_givesTheFrequency()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.period, QStringLiteral("1 us"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 1 us | 1MHz"));
    QCOMPARE(scene.clock.getPeriod(), 1e9);
    QCOMPARE(scene.clock.getFrequency(), 1.0);
}

void tst_KClockWidget::typedFrequency_givesThePeriod()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.frequency, QStringLiteral("1MHz"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 1000 ns | 1MHz"));
    QCOMPARE(scene.clock.getPeriod(), 1e9);
    // With the same time in other words there already, nothing is written.
    Scene::type(scene.period, QStringLiteral("1 us"));
    Scene::type(scene.frequency, QStringLiteral("1 MHz"));
    QCOMPARE(scene.clock.getPeriod(), 1e9);
}

void tst_KClockWidget::typedPeriod_bareNumber_isInvalidAndStays()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.period, QStringLiteral("12"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 12 | ????"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    QCOMPARE(scene.clock.getFrequency(), -1.0);
    QTest::keyClicks(scene.period, QStringLiteral(" ns")); // and there is a way back
    QCOMPARE(scene.clock.getPeriod(), 12e6);
}

void tst_KClockWidget::typedFrequency_bad_isInvalidAndStays()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.frequency, QStringLiteral("x"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | ???? | x"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    QCOMPARE(scene.clock.getFrequency(), -1.0);
}

void tst_KClockWidget::typedOffset_bad_isInvalidAndStays()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.offset, QStringLiteral("-3 ns"));
    QCOMPARE(scene.offset->text(), QStringLiteral("-3 ns"));
    QCOMPARE(scene.clock.getOffset(), -1.0);
    Scene::type(scene.offset, QStringLiteral("99999 hr"));
    QCOMPARE(scene.clock.getOffset(), -1.0);
    Scene::type(scene.offset, QStringLiteral("7 ns"));
    QCOMPARE(scene.clock.getOffset(), 7e6);
}

// The mark is set, and no change of the text comes to take it away.
void tst_KClockWidget::mark_swallowsTheNextChangeOnce()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.clock.setPeriod(1.0);
    scene.clock.setPeriod(1.0); // reads "????" already
    scene.period->setText(QStringLiteral("1 us"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    scene.period->setText(QStringLiteral("2 us"));
    QCOMPARE(scene.clock.getPeriod(), 2e9);
}

void tst_KClockWidget::setHighStartValue_setsBothButtons()
{
    Scene scene;
    scene.clock.setHighStartValue(true);
    QVERIFY(scene.clock.getHighStartValue());
    QVERIFY(scene.high->isChecked());
    QVERIFY(!scene.low->isChecked());
    scene.clock.setHighStartValue(false);
    QVERIFY(!scene.high->isChecked());
    QVERIFY(scene.low->isChecked());
}

void tst_KClockWidget::setHighStartValue_sameValue_repaintsNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    QCoreApplication::processEvents();
    scene.high->setChecked(true);
    scene.low->setChecked(false);
    QCoreApplication::processEvents();
    // The buttons' own repaints go through their parent's surface, not through its paint event.
    scene.high->setAttribute(Qt::WA_OpaquePaintEvent);
    scene.low->setAttribute(Qt::WA_OpaquePaintEvent);
    PaintCounter const counter(&scene.clock);
    scene.clock.setHighStartValue(false);
    QVERIFY(!scene.high->isChecked());
    QVERIFY(scene.low->isChecked());
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
    scene.clock.setHighStartValue(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 1);
}

void tst_KClockWidget::buttons_clicked_chooseTheLevel()
{
    Scene scene;
    QVERIFY(scene.show());
    for (int i = 0; i < 2; ++i) { // the second press changes nothing
        QTest::mouseClick(scene.high, Qt::LeftButton);
        QVERIFY(scene.clock.getHighStartValue());
        QVERIFY(scene.high->isChecked());
        QVERIFY(!scene.low->isChecked());
    }
    QTest::mouseClick(scene.low, Qt::LeftButton);
    QVERIFY(!scene.clock.getHighStartValue());
    QVERIFY(scene.low->isChecked());
}

void tst_KClockWidget::drag_movesTheEdge()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    scene.press(e.edge(50));
    scene.drag(e.edge(80));
    int const delta = e.edge(80).x() - e.edge(50).x();
    QCOMPARE(scene.clock.getFillingWith1(), 50 + int(100.0 / (e.PW + 2 * e.HP) * delta));
    int const before = scene.clock.getFillingWith1();
    scene.drag(e.edge(before)); // no way to go
    QCOMPARE(scene.clock.getFillingWith1(), before);
    scene.drag(e.edge(20));
    QVERIFY(std::abs(scene.clock.getFillingWith1() - 20) <= 1);
    scene.release(e.edge(20));
    scene.drag(e.edge(70));
    QVERIFY(std::abs(scene.clock.getFillingWith1() - 20) <= 1);
}

void tst_KClockWidget::drag_beyondTheEnds_stopsAtOneAndNinetyNine()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    scene.press(e.edge(50));
    scene.drag(QPoint(5000, 100));
    QCOMPARE(scene.clock.getFillingWith1(), 99);
    scene.drag(QPoint(6000, 100));
    QCOMPARE(scene.clock.getFillingWith1(), 99);
    scene.drag(QPoint(-5000, 100));
    QCOMPARE(scene.clock.getFillingWith1(), 1);
    scene.drag(QPoint(-6000, 100));
    QCOMPARE(scene.clock.getFillingWith1(), 1);
    scene.release(QPoint(-6000, 100));
}

void tst_KClockWidget::drag_withoutTheLeftButton_movesNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    scene.press(e.edge(50));
    QPointF const place(e.edge(80));
    QMouseEvent move(QEvent::MouseMove, place, scene.clock.mapToGlobal(place), Qt::NoButton,
                     Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.clock, &move);
    QCOMPARE(scene.clock.getFillingWith1(), 50);
    scene.release(e.edge(50));
}

void tst_KClockWidget::drag_startedBesideTheHandle_movesNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QRect const hit(e.edge(50) - QPoint(e.K, e.K), e.edge(50) + QPoint(e.K + 1, e.K));
    for (QPoint const & place :
         {hit.topLeft() - QPoint(1, 0), hit.topLeft() - QPoint(0, 1),
          hit.bottomRight() + QPoint(1, 0), hit.bottomRight() + QPoint(0, 1)}) {
        scene.press(place);
        scene.drag(e.edge(80));
        QCOMPARE(scene.clock.getFillingWith1(), 50);
        scene.release(place);
    }
    for (QPoint const & place : {hit.topLeft(), hit.bottomRight()}) {
        scene.clock.setFillingWith1(50);
        scene.press(place);
        scene.drag(e.edge(80));
        QVERIFY(scene.clock.getFillingWith1() != 50);
        scene.release(place);
    }
}

void tst_KClockWidget::cursor_overTheHandle_isHorizontal()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QTest::mouseMove(&scene.clock, e.edge(50));
    QCOMPARE(scene.clock.cursor().shape(), Qt::SizeHorCursor);
    QTest::mouseMove(&scene.clock, e.edge(90));
    QCOMPARE(scene.clock.cursor().shape(), Qt::ArrowCursor);
    scene.press(e.edge(50));
    QCOMPARE(scene.clock.cursor().shape(), Qt::SizeHorCursor);
    scene.release(e.edge(50));
    QCOMPARE(scene.clock.cursor().shape(), Qt::SizeHorCursor);
}

// The other edit keeps its text: only the stored number is not valid any more.
void tst_KClockWidget::setters_outOfRange_writeTheirOwnEditOnly()
{
    Scene scene;
    scene.clock.setFrequency(-1.0);
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 100 ns | ????"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    Scene other;
    other.clock.setPeriod(1.0);
    QCOMPARE(other.texts(), QStringLiteral("0 ps | ???? | 10MHz"));
    QCOMPARE(other.clock.getFrequency(), -1.0);
}

void tst_KClockWidget::typedFrequency_ofThePeriodThatStandsThere_writesNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.period, QStringLiteral("1 us"));
    scene.frequency->setText(QStringLiteral("0.001 GHz"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 1 us | 0.001 GHz"));
    QCOMPARE(scene.clock.getPeriod(), 1e9);
    QCOMPARE(scene.clock.getFrequency(), 1.0);
}

void tst_KClockWidget::typedFrequency_withoutUnit_isMHz()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.frequency, QStringLiteral("4"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 250 ns | 4"));
}

void tst_KClockWidget::typedFrequency_tooLowForAPeriod_isInvalid()
{
    Scene scene;
    scene.frequency->setText(QStringLiteral("0.0001 uHz"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    QCOMPARE(scene.clock.getFrequency(), -1.0);
    QCOMPARE(scene.period->text(), QStringLiteral("????"));
}

void tst_KClockWidget::typedPeriod_belowTheMinimalPeriod_isInvalid()
{
    Scene scene;
    scene.clock.setMinimalPeriod(5e6);
    scene.period->setText(QStringLiteral("4.999 ns"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 4.999 ns | ????"));
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    scene.period->setText(QStringLiteral("5 ns"));
    QCOMPARE(scene.texts(), QStringLiteral("0 ps | 5 ns | 200MHz"));
}

void tst_KClockWidget::mark_ofTheFrequency_swallowsTheNextChangeOnce()
{
    Scene scene;
    scene.clock.setFrequency(0.0);
    scene.clock.setFrequency(0.0); // reads "????" already
    scene.frequency->setText(QStringLiteral("1MHz"));
    QCOMPARE(scene.clock.getFrequency(), -1.0);
    scene.frequency->setText(QStringLiteral("2MHz"));
    QCOMPARE(scene.clock.getPeriod(), 5e8);
}

// The stored numbers are written, and -1 is one of them.
void tst_KClockWidget::resize_invalidNumbers_areWrittenAsKept()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.clock.setOffset(-5.0);
    scene.clock.setPeriod(1.0);
    scene.clock.resize(530, 250);
    QCOMPARE(scene.texts(), QStringLiteral("-0.001 ps | -0.001 ps | ????"));
    QCOMPARE(scene.clock.getOffset(), -1.0);
    QCOMPARE(scene.clock.getPeriod(), -1.0);
    QCOMPARE(scene.clock.getFrequency(), -1.0);
}

void tst_KClockWidget::texts_writtenByTheForm_showTheirStart()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.period->setFocus();
    scene.clock.setOffset(9.999e9);
    QCOMPARE(scene.offset->cursorPosition(), 0);
    Scene::type(scene.period, QStringLiteral("7 us"));
    QCOMPARE(scene.frequency->text(), QStringLiteral("142.857143kHz"));
    QCOMPARE(scene.frequency->cursorPosition(), 0);
    QCOMPARE(scene.period->cursorPosition(), 4); // where the user is
    scene.clock.setPeriod(8e9);
    scene.period->setCursorPosition(2);
    scene.clock.resize(530, 250); // writes the same
    QCOMPARE(scene.period->cursorPosition(), 2);
}

ZENU_TEST(tst_KClockWidget)
#include "tst_KClockWidget.moc"
