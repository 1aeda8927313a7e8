#include "tests/support/TestMain.h"
#include "tests/time/ClockFixture.h"

#include <zenu/time/TimeUnit.h>
#include <zenu/time/clock/ClockDrawing.h>

#include <cmath>
#include <limits>

using namespace zenu;

namespace {

using Expected = zenutest::ClockRule;
using Scene = zenutest::ClockScene;

constexpr int margin = Expected::margin;
QColor const handleColor(150, 60, 60);
QColor const waveColor(48, 48, 48);
QColor const borderColor(50, 100, 50);

} // namespace

class tst_ClockPicture : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        zenutest::Test::init();
        TimeUnit::setDefaultUnit(TimeUnit::fs);
    }
    void children_standWhereTheRuleSays_data();
    void children_standWhereTheRuleSays();
    void setFilling_outOfRange_isKept();
    void drag_repaintsAllThatChanged();
    void handle_standsTwoRightAndOneBelow();
    void handle_withAFrame_isPaintedApartFromWhereItIsTaken();
    void wave_hasItsLines_data();
    void wave_hasItsLines();
    void sizes_ofAllKinds_areQuiet();
    void fontChange_placesThePartsAnew();
    void dimensions_haveLinesAndArrows_data();
    void dimensions_haveLinesAndArrows();
    void borders_areDottedFromTheEditsToTheWavesEnd();
    void label_standsRightOfTheEdgeIfThereIsRoom();
    void label_isPainted_data();
    void label_isPainted();
    void frequencyWord_endsBeforeTheFrequencyEdit_data();
    void frequencyWord_endsBeforeTheFrequencyEdit();
    void rightToLeft_pictureIsTheSame();
    void setFilling_zeroAndOneHundredFifty_arePaintedAsTheyAre();
    void dimensions_ratioOfTwo_arrowsAreEvenAboutTheLine();
};

void tst_ClockPicture::children_standWhereTheRuleSays_data()
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

void tst_ClockPicture::children_standWhereTheRuleSays()
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

void tst_ClockPicture::setFilling_outOfRange_isKept()
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

void tst_ClockPicture::drag_repaintsAllThatChanged()
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

void tst_ClockPicture::handle_standsTwoRightAndOneBelow()
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

void tst_ClockPicture::handle_withAFrame_isPaintedApartFromWhereItIsTaken()
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

void tst_ClockPicture::wave_hasItsLines_data()
{
    QTest::addColumn<bool>("high");
    QTest::newRow("low start") << false;
    QTest::newRow("high start") << true;
}

void tst_ClockPicture::wave_hasItsLines()
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

void tst_ClockPicture::sizes_ofAllKinds_areQuiet()
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

void tst_ClockPicture::fontChange_placesThePartsAnew()
{
    Scene scene;
    QVERIFY(scene.show());
    Scene::type(scene.period, QStringLiteral("1 us"));
    QFont font = scene.clock.font();
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    scene.clock.setFont(font);
    Expected const e = scene.expected();
    QCOMPARE(scene.period->width(), e.PW + 1);
    QCOMPARE(scene.low->y(), e.T - e.E / 2 + e.WH);
    QCOMPARE(scene.period->text(), QStringLiteral("1 us")); // what is typed stays
}

void tst_ClockPicture::dimensions_haveLinesAndArrows_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("without a frame") << 0;
    QTest::newRow("with a frame: moved to the right, not down") << 6;
}

void tst_ClockPicture::dimensions_haveLinesAndArrows()
{
    QFETCH(int, frame);
    Scene scene;
    scene.clock.setFrameStyle(int(QFrame::Panel) | int(QFrame::Plain));
    scene.clock.setLineWidth(frame);
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QImage const image = scene.clock.grab().toImage();
    int const y = e.E / 2 + margin;
    int const start = frame + e.L + 2 * e.OG + e.OW;
    auto const isLine = [&](int left, int right) {
        for (int x = left; x <= right; ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::black)) {
                return false;
            }
        }
        return true;
    };
    struct Arrow
    {
        int point;
        int base;
    };
    int const end = start + e.PW + 2 * e.HP;
    // From border to edit, which is not moved, and on to the next border.
    QVERIFY(isLine(frame + e.L + 1, e.L + e.OG - 1));
    QVERIFY(isLine(e.L + e.OG + e.OW + 1 + frame, start - 1));
    QVERIFY(isLine(start + 1, scene.period->x() - 1));
    QVERIFY(isLine(scene.period->geometry().right() + 1 + frame, end - 1));
    for (Arrow const & arrow : {Arrow{frame + e.L, frame + e.L + 5}, Arrow{start, start - 5},
                                Arrow{start, start + 5}, Arrow{end, end - 5}}) {
        for (int dy : {-2, 2}) {
            QCOMPARE(image.pixelColor(arrow.base, y + dy), QColor(Qt::black));
            QVERIFY(image.pixelColor(arrow.point, y + dy) != QColor(Qt::black));
        }
        QVERIFY(image.pixelColor(arrow.base, y - 3) != QColor(Qt::black));
        QVERIFY(image.pixelColor(arrow.base, y + 3) != QColor(Qt::black));
    }
}

void tst_ClockPicture::borders_areDottedFromTheEditsToTheWavesEnd()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QImage const image = scene.clock.grab().toImage();
    int const start = e.L + 2 * e.OG + e.OW;
    for (int x : {e.L, start, start + e.PW + 2 * e.HP}) {
        int dots = 0;
        for (int y = 0; y < image.height(); ++y) {
            bool const isDot = image.pixelColor(x, y) == borderColor;
            dots += isDot;
            if (isDot) {
                QVERIFY(y >= margin && y <= margin + e.WH + margin + e.E);
            }
        }
        QVERIFY(dots > (e.WH + e.E) / 3);
        QVERIFY(dots < 2 * (e.WH + e.E) / 3);
    }
}

void tst_ClockPicture::label_standsRightOfTheEdgeIfThereIsRoom()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    ClockLayout const layout(ClockMeasures::of(QFontMetrics(scene.clock.font(), &scene.clock)),
                             scene.clock.contentsRect().size());
    QSize const size(33, 12);
    int const room = e.PW + 2 * (e.HP - margin);
    int const start = e.L + 2 * e.OG + e.OW;
    int const lastRight = room - size.width() - 1; // one pixel more than the label
    QCOMPARE(layout.label(lastRight, size).left(), start + lastRight + margin + e.K);
    QCOMPARE(layout.label(lastRight + 1, size).left(),
             start + lastRight + 1 - margin - e.K - size.width());
    QRect const place = layout.label(10, size);
    QCOMPARE(place.size(), QSize(size.width(), e.WH));
    QCOMPARE(place.top(), e.T);
}

void tst_ClockPicture::label_isPainted_data()
{
    QTest::addColumn<int>("filling");
    QTest::newRow("right of the edge") << 30;
    QTest::newRow("left of the edge") << 97;
}

void tst_ClockPicture::label_isPainted()
{
    QFETCH(int, filling);
    Scene scene;
    scene.clock.setFillingWith1(filling);
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QImage const image = scene.clock.grab().toImage();
    QColor const back = QApplication::palette().color(QPalette::Base);
    bool const isLeft = filling > 90;
    int inked = 0;
    // Between the levels, off the handle, there is nothing but the label.
    for (int x = 3; x < 20; ++x) {
        int const column = e.edge(filling).x() + (isLeft ? -1 : 1) * (e.K + 3 + x);
        for (int y = e.T + 3; y < e.T + e.WH - 3; ++y) {
            inked += image.pixelColor(column, y) != back;
        }
    }
    QVERIFY(inked > 5);
}

void tst_ClockPicture::frequencyWord_endsBeforeTheFrequencyEdit_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("without a frame") << 0;
    QTest::newRow("with a frame: not moved") << 6;
}

void tst_ClockPicture::frequencyWord_endsBeforeTheFrequencyEdit()
{
    QFETCH(int, frame);
    Scene scene;
    scene.clock.setFrameStyle(int(QFrame::Panel) | int(QFrame::Plain));
    scene.clock.setLineWidth(frame);
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    ClockLayout const layout(ClockMeasures::of(QFontMetrics(scene.clock.font(), &scene.clock)),
                             scene.clock.contentsRect().size());
    QRect const place = layout.frequencyWord();
    QCOMPARE(place.right(), e.HP + 2 * e.OG + e.L - 1 + e.OW);
    QCOMPARE(place.left(), place.right() - e.FW);
    QCOMPARE(place.top(), 3 * margin + e.WH + e.E);
    QCOMPARE(place.height(), e.E);
    QCOMPARE(place.right(), scene.frequency->x() - 1);
    QImage const image = scene.clock.grab().toImage();
    QColor const back = QApplication::palette().color(QPalette::Base);
    QRect inked;
    for (int x = e.L + 2 * e.OG + e.OW + frame + 2; x <= place.right(); ++x) {
        for (int y = place.top() + frame; y <= place.bottom(); ++y) {
            if (image.pixelColor(x, y) != back) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(inked.width() > place.width() / 2);
    QVERIFY(std::abs(inked.center().x() - place.center().x()) <= 2); // centred
}

void tst_ClockPicture::setFilling_zeroAndOneHundredFifty_arePaintedAsTheyAre()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    int const start = e.L + 2 * e.OG + e.OW;
    int const end = start + e.PW + 2 * e.HP;
    scene.clock.setFillingWith1(0);
    QImage image = scene.clock.grab().toImage();
    QCOMPARE(image.pixelColor(start + 2, e.WH / 2 + 1 + e.T), handleColor);
    QCOMPARE(image.pixelColor(end - 3, e.T), waveColor); // high all the way
    QVERIFY(image.pixelColor(end - 3, e.T + e.WH) != waveColor);
    scene.clock.setFillingWith1(150);
    image = scene.clock.grab().toImage();
    QCOMPARE(image.pixelColor(scene.clock.width() - 1, e.T + e.WH), waveColor); // beyond the period
    QVERIFY(image.pixelColor(end - 3, e.T) != waveColor);
}

// The direction of texts that are painted is the application's.
void tst_ClockPicture::rightToLeft_pictureIsTheSame()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QRect const wave(0, margin + e.E + 2, scene.clock.width(), e.WH);
    QImage const before = scene.clock.grab(wave).toImage();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    QImage const after = scene.clock.grab(wave).toImage();
    bool const isTurned = scene.clock.layoutDirection() == Qt::RightToLeft;
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QVERIFY(isTurned);
    QCOMPARE(after, before);
}

void tst_ClockPicture::dimensions_ratioOfTwo_arrowsAreEvenAboutTheLine()
{
    Scene scene;
    QVERIFY(scene.show());
    Expected const e = scene.expected();
    QImage image(2 * scene.clock.size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    scene.clock.render(&image);
    int const y = 2 * (e.E / 2 + margin);
    int const start = 2 * (e.L + 2 * e.OG + e.OW);
    int const rows = 2 * 4;
    for (int x = start - 12; x <= start + 13; ++x) {
        bool const isBorder = std::abs(x - start) <= 1;
        for (int row = 0; row < rows && !isBorder; ++row) {
            QCOMPARE(image.pixel(x, y - row), image.pixel(x, y + 1 + row));
        }
    }
    int const beside = start + 20;
    QCOMPARE(image.pixelColor(beside, y), QColor(Qt::black));
    QVERIFY(image.pixelColor(beside, y - 1) != QColor(Qt::black));
}

ZENU_TEST(tst_ClockPicture)
#include "tst_ClockPicture.moc"
