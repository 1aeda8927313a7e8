#include "examples/waveform/WaveformView.h"
#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <QSignalSpy>

namespace {

constexpr int samples = 200'000;

// The view on display, with markers that only move when told to.
struct Scene
{
    Scene()
        : view(samples)
    {
        view.setDrifting(false);
        view.resize(400, 200);
    }
    bool show()
    {
        bool const shown = zenutest::showAndSettle(view);
        view.activateWindow();
        return shown && QTest::qWaitForWindowActive(&view);
    }
    void move(QPointF const & place, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(QEvent::MouseMove, place, view.mapToGlobal(place), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    }
    void drag(int from, int to)
    {
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(from, 50));
        move(QPointF(to, 60), Qt::LeftButton);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(to, 60));
    }

    WaveformView view;
};

} // namespace

class tst_WaveformView : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void everythingThatMoves_paintsNothing();
    void everythingTakenAway_leavesThePictureAsItWas();
    void drag_selectsTheStretchUnderIt();
    void return_zoomsToTheSelection();
    void zoom_underAMouseAtRest_renewsTheTip();
    void escape_showsAll();
    void range_isLowestAndHighest();
};

void tst_WaveformView::everythingThatMoves_paintsNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    int const paints = scene.view.paints();
    int const frames = scene.view.frames();
    for (int i = 0; i < 60; ++i) {
        scene.view.step();
        QTest::mouseMove(&scene.view, QPoint(20 + 5 * i, 100));
    }
    scene.drag(50, 200);
    QTest::keyClick(&scene.view, Qt::Key_Right);
    QCoreApplication::processEvents();
    QCOMPARE(scene.view.paints(), paints);
    QVERIFY(scene.view.frames() >= frames + 60);
}

void tst_WaveformView::everythingTakenAway_leavesThePictureAsItWas()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.view.clearFocus(); // takes the caret away
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&scene.view, &leave);
    QImage const before = zenutest::picture(scene.view);
    int const paints = scene.view.paints();
    QTest::mouseMove(&scene.view, QPoint(120, 80));
    scene.drag(50, 200);
    QVERIFY(zenutest::wrongPixels(zenutest::picture(scene.view), before) > 0);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(10, 10)); // ends the selection
    scene.view.clearFocus();
    QCoreApplication::sendEvent(&scene.view, &leave);
    QCOMPARE(zenutest::wrongPixels(zenutest::picture(scene.view), before), 0);
    QCOMPARE(scene.view.paints(), paints);
}

void tst_WaveformView::drag_selectsTheStretchUnderIt()
{
    Scene scene;
    QVERIFY(scene.show());
    QCOMPARE(scene.view.selected().last, 0);
    scene.drag(300, 100);
    QCOMPARE(scene.view.selected().first, samples / 400 * 100);
    QCOMPARE(scene.view.selected().last, samples / 400 * 301);
}

void tst_WaveformView::return_zoomsToTheSelection()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.drag(100, 300);
    auto const selected = scene.view.selected();
    int const paints = scene.view.paints();
    QTest::keyClick(&scene.view, Qt::Key_Return);
    QCOMPARE(scene.view.visible().first, selected.first);
    QCOMPARE(scene.view.visible().last, selected.last);
    QTRY_COMPARE(scene.view.paints(), paints + 1);
    QTest::keyClick(&scene.view, Qt::Key_Return); // nothing is selected any more
    QCOMPARE(scene.view.visible().first, selected.first);
}

// The tip and the line at the value look as if the mouse had been moved there just now.
void tst_WaveformView::zoom_underAMouseAtRest_renewsTheTip()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.drag(100, 300);
    scene.move(QPointF(137, 90));
    int const paints = scene.view.paints();
    QTest::keyClick(&scene.view, Qt::Key_Return);
    QTRY_COMPARE(scene.view.paints(), paints + 1);
    zenutest::settle(scene.view);
    scene.view.clearFocus(); // no caret that blinks meanwhile
    QImage const zoomed = zenutest::picture(scene.view);
    scene.move(QPointF(20, 20));
    QVERIFY(zenutest::wrongPixels(zenutest::picture(scene.view), zoomed) > 0);
    scene.move(QPointF(137, 90));
    QCOMPARE(zenutest::wrongPixels(zenutest::picture(scene.view), zoomed), 0);
}

void tst_WaveformView::escape_showsAll()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.drag(100, 300);
    QTest::keyClick(&scene.view, Qt::Key_Return);
    QTest::keyClick(&scene.view, Qt::Key_Escape);
    QCOMPARE(scene.view.visible().first, 0);
    QCOMPARE(scene.view.visible().last, samples);
}

void tst_WaveformView::range_isLowestAndHighest()
{
    Signal const signal(5000);
    float low = signal.at(100);
    float high = low;
    for (int i = 100; i < 300; ++i) {
        low = std::min(low, signal.at(i));
        high = std::max(high, signal.at(i));
    }
    QCOMPARE(signal.range(100, 300).low, low);
    QCOMPARE(signal.range(100, 300).high, high);
    QCOMPARE(signal.range(-5, 0).high, 0.0f);
    QCOMPARE(signal.range(7000, 6000).low, 0.0f);
    QCOMPARE(signal.at(-1), 0.0f);
    QCOMPARE(signal.at(5000), 0.0f);
}

ZENU_TEST(tst_WaveformView)
#include "tst_WaveformView.moc"
