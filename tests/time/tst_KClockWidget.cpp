#include "tests/support/TestMain.h"

#include <zenu/time/Frequency.h>
#include <zenu/time/KClockWidget.h>
#include <zenu/time/TimeValue.h>
#include <zenu/widgets/KValueButton.h>

#include <QLineEdit>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace zenu;

namespace {

constexpr int margin = 5;
QColor const handleColor(150, 60, 60);

// The numbers of the layout, worked out once more from the rule.
struct Expected
{
    explicit Expected(QWidget const & clock)
    {
        QFontMetrics const metrics(clock.font(), &clock);
        auto const measure = [&](char const * text) {
            return metrics
                .boundingRect(QRect(0, 0, 2000, 2000), Qt::AlignLeft | Qt::AlignTop,
                              QString::fromLatin1(text))
                .size();
        };
        int const w = clock.contentsRect().width();
        int const h = clock.contentsRect().height();
        E = measure("000000").height() + 2;
        OW = measure("000000").width() + 2;
        PW = measure("000000000").width() + 2;
        FW = measure("Frequency:").width() + 2;
        L = T = E + 2 * margin;
        WH = h - 2 * (E + 2 * margin);
        OG = int(double(w - 3 * margin - PW - E - OW) * (1.0 / 6.0));
        int const sum = w - 3 * margin - 2 * OG - PW - OW - E;
        HP = sum / 2;
        OW += std::abs(sum) % 2;
        K = int(double(h) * (1.0 / 30.0));
    }
    int pulse(int filling) const { return int((PW + 2 * HP) * double(filling) * 0.01); }
    // The middle of the edge, where the mouse takes the handle.
    QPoint edge(int filling) const { return QPoint(pulse(filling) + 2 * OG + L + OW, WH / 2 + T); }

    int E, OW, PW, FW, L, T, WH, OG, HP, K;
};

struct Scene
{
    Scene()
    {
        clock.resize(520, 240);
        auto edits = clock.findChildren<QLineEdit *>();
        offset = edits.at(0);
        period = edits.at(1);
        frequency = edits.at(2);
        high = clock.findChildren<KValueButton *>().at(0);
        low = clock.findChildren<KValueButton *>().at(1);
    }
    bool show()
    {
        clock.show();
        return QTest::qWaitForWindowExposed(&clock);
    }
    QString texts() const
    {
        return offset->text() + QStringLiteral(" | ") + period->text() + QStringLiteral(" | ") +
               frequency->text();
    }
    // What the user does.
    static void type(QLineEdit * edit, QString const & text)
    {
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void press(QPoint const & place) { QTest::mousePress(&clock, Qt::LeftButton, {}, place); }
    void drag(QPoint const & place)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(place), clock.mapToGlobal(QPointF(place)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&clock, &move);
    }
    void release(QPoint const & place) { QTest::mouseRelease(&clock, Qt::LeftButton, {}, place); }
    Expected expected() const { return Expected(clock); }

    KClockWidget clock;
    QLineEdit * offset;
    QLineEdit * period;
    QLineEdit * frequency;
    KValueButton * high;
    KValueButton * low;
};

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
    void children_standWhereTheRuleSays_data();
    void children_standWhereTheRuleSays();
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
    void setFilling_outOfRange_isKept();
    void drag_movesTheEdge();
    void drag_beyondTheEnds_stopsAtOneAndNinetyNine();
    void drag_withoutTheLeftButton_movesNothing();
    void drag_startedBesideTheHandle_movesNothing();
    void drag_repaintsAllThatChanged();
    void cursor_overTheHandle_isHorizontal();
    void handle_standsTwoRightAndOneBelow();
    void handle_withAFrame_isPaintedApartFromWhereItIsTaken();
    void wave_hasItsLines_data();
    void wave_hasItsLines();
    void sizes_ofAllKinds_areQuiet();
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

void tst_KClockWidget::children_standWhereTheRuleSays_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("frame");
    for (QSize const & size :
         {QSize(520, 240), QSize(521, 241), QSize(333, 150), QSize(1900, 1000)}) {
        for (int frame : {0, 4}) {
            QTest::addRow("%d x %d, frame %d", size.width(), size.height(), frame) << size << frame;
        }
    }
}

void tst_KClockWidget::children_standWhereTheRuleSays()
{
    QFETCH(QSize, size);
    QFETCH(int, frame);
    Scene scene;
    if (frame > 0) {
        scene.clock.setFrameStyle(int(QFrame::Panel) | int(QFrame::Plain));
        scene.clock.setLineWidth(frame);
    }
    QVERIFY(scene.show());
    scene.clock.resize(size);
    Expected const e = scene.expected();
    auto const corners = [](int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right, bottom));
    };
    int const left = e.L + e.OG;
    QCOMPARE(scene.offset->geometry(), corners(left, margin, left + e.OW, margin + e.E));
    int const periodLeft = e.L + 2 * e.OG + e.HP + e.OW;
    QRect const period = corners(periodLeft, margin, periodLeft + e.PW, margin + e.E);
    QCOMPARE(scene.period->geometry(), period);
    QCOMPARE(scene.frequency->geometry(), period.translated(0, e.E + 2 * margin + e.WH));
    QRect const high = corners(margin, e.T - e.E / 2, e.E + margin, e.T + e.E / 2 + 1);
    QCOMPARE(scene.high->geometry(), high);
    QCOMPARE(scene.low->geometry(), high.translated(0, e.WH));
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

void tst_KClockWidget::setFilling_outOfRange_isKept()
{
    Scene scene;
    QVERIFY(scene.show());
    for (int filling :
         {0, 150, -20, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        scene.clock.setFillingWith1(filling);
        QCOMPARE(scene.clock.getFillingWith1(), filling);
        QVERIFY(!scene.clock.grab().isNull());
    }
    // The handle follows beyond the wave.
    scene.clock.setFillingWith1(102);
    Expected const e = scene.expected();
    QPoint const handle = e.edge(102) + QPoint(3 - e.K, 1);
    QVERIFY(scene.clock.rect().contains(handle));
    QCOMPARE(scene.clock.grab().toImage().pixelColor(handle), handleColor);
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

void tst_KClockWidget::drag_repaintsAllThatChanged()
{
    for (int frame : {0, 4}) {
        Scene scene;
        scene.clock.setFrameStyle(int(QFrame::Panel) | int(QFrame::Plain));
        scene.clock.setLineWidth(frame);
        QVERIFY(scene.show());
        Expected const e = scene.expected();
        scene.press(e.edge(50));
        for (int target : {70, 99, 40, 1, 90, 10}) {
            scene.drag(e.edge(target));
            QCoreApplication::processEvents();
            QImage const shown = scene.clock.screen()
                                     ->grabWindow(scene.clock.winId())
                                     .toImage()
                                     .convertToFormat(QImage::Format_RGB32);
            QImage const whole = scene.clock.grab().toImage().convertToFormat(QImage::Format_RGB32);
            QCOMPARE(shown, whole);
        }
        scene.release(e.edge(10));
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

void tst_KClockWidget::handle_standsTwoRightAndOneBelow()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QVERIFY(e.K > 2);
    QImage const image = scene.clock.grab().toImage();
    QRect const square(e.edge(50) + QPoint(2 - e.K, 1 - e.K),
                       e.edge(50) + QPoint(2 + e.K, 1 + e.K));
    QRect const around = square.adjusted(-2, -2, 2, 2);
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            QCOMPARE(image.pixelColor(x, y) == handleColor, square.contains(x, y));
        }
    }
}

void tst_KClockWidget::handle_withAFrame_isPaintedApartFromWhereItIsTaken()
{
    Scene scene;
    scene.clock.setFrameStyle(int(QFrame::Panel) | int(QFrame::Plain));
    scene.clock.setLineWidth(6);
    QVERIFY(scene.show());
    scene.clock.resize(530, 250);
    Expected const e = scene.expected();
    QPoint const frame = scene.clock.contentsRect().topLeft();
    QCOMPARE(frame, QPoint(6, 6));
    QPoint const painted = e.edge(50) + QPoint(2 + e.K, 1 + e.K) + frame; // its right bottom pixel
    QImage const image = scene.clock.grab().toImage();
    QCOMPARE(image.pixelColor(painted), handleColor);
    QVERIFY(image.pixelColor(painted + QPoint(1, 1)) != handleColor);
    scene.press(painted);
    scene.drag(painted + QPoint(60, 0));
    QCOMPARE(scene.clock.getFillingWith1(), 50);
    scene.release(painted);
    scene.press(e.edge(50) - QPoint(e.K, e.K));
    scene.drag(e.edge(80));
    QVERIFY(scene.clock.getFillingWith1() > 70);
    scene.release(e.edge(80));
}

void tst_KClockWidget::wave_hasItsLines_data()
{
    QTest::addColumn<bool>("high");
    QTest::newRow("low start") << false;
    QTest::newRow("high start") << true;
}

void tst_KClockWidget::wave_hasItsLines()
{
    QFETCH(bool, high);
    Scene scene;
    scene.clock.setHighStartValue(high);
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QImage const image = scene.clock.grab().toImage();
    QColor const ink(48, 48, 48);
    int const start = e.L + 2 * e.OG + e.OW;
    int const edge = start + e.pulse(50) + 1;
    int const end = start + e.PW + 2 * e.HP;
    int const firstLevel = high ? e.T : e.T + e.WH;
    int const secondLevel = high ? e.T + e.WH : e.T;
    for (int x = start + 2; x < edge - 2; ++x) {
        QCOMPARE(image.pixelColor(x, firstLevel), ink);
        QVERIFY(image.pixelColor(x, secondLevel) != ink);
    }
    for (int x = edge + 2; x < end - 1; ++x) {
        QCOMPARE(image.pixelColor(x, secondLevel), ink);
        QVERIFY(image.pixelColor(x, firstLevel) != ink);
    }
    for (int y = e.T + 2; y < e.T + e.WH / 2 - e.K - 2; ++y) {
        QCOMPARE(image.pixelColor(edge, y), ink);
    }
}

void tst_KClockWidget::sizes_ofAllKinds_areQuiet()
{
    QWidget window;
    KClockWidget clock(&window);
    clock.setFrameStyle(int(QFrame::Box) | int(QFrame::Raised));
    window.resize(100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (QSize const & size : {QSize(0, 0), QSize(1, 1), QSize(40, 30), QSize(200, 3),
                               QSize(3, 200), QSize(3840, 2160)}) {
        clock.resize(size);
        for (int filling : {-1000, 0, 50, 100, 1'000'000}) {
            clock.setFillingWith1(filling);
            QVERIFY(clock.grab().isNull() == size.isEmpty());
            QTest::mousePress(&clock, Qt::LeftButton, {}, QPoint(0, 0));
            QTest::mouseRelease(&clock, Qt::LeftButton, {}, QPoint(0, 0));
        }
    }
    QVERIFY(clock.sizeHint().isValid());
}

ZENU_TEST(tst_KClockWidget)
#include "tst_KClockWidget.moc"
