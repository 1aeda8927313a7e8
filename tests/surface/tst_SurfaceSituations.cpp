#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <zenu/overlay/surface/WidgetSurface.h>

#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace zenu;
using namespace zenutest;

namespace {

bool invert(WidgetSurface & surface, QRegion const & region)
{
    if (!surface.begin(region))
        return false;
    surface.flip(region, Qt::white, Qt::black);
    surface.end();
    return true;
}

QImage copyOf(WidgetSurface & surface, QRect const & r)
{
    QImage const copied = surface.begin(r) ? surface.copy(r) : QImage();
    surface.end();
    return copied;
}

bool hasWholeRatio(QWidget const & widget)
{
    return widget.devicePixelRatioF() == std::floor(widget.devicePixelRatioF());
}

} // namespace

// What the toolkit does meanwhile: paint passes, redirection, scrolling, windows of all kinds.
class tst_SurfaceSituations : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void paintEvent_target_isPass();
    void paintEvent_strip_onlyThePaintedPartIsTouched_data();
    void paintEvent_strip_onlyThePaintedPartIsTouched();
    void paintEvent_full_everyTime_isSafe();
    void paintEvent_copy_readsWhatWasPainted();
    void paintEvent_ofAnotherWidget_touchesNothing();
    void paintEvent_ofTheParent_touchesNothing();

    void grab_target_isRedirectedAndNothingHappens();
    void render_ofTheParent_nothingHappens();
    void grab_hiddenHost_isRedirected();

    void scroll_thenCopy_isWhatTheScreenShows();
    void scroll_thenFlipTwice_restores();
    void scrollArea_thenCopy_isWhatTheScreenShows();
    void scrollArea_movesTheOffset();

    void resize_beforeTheRepaint_isSafe();
    void writes_areCountedForAllSurfacesOfTheWidget();
    void minimised_isSafe();
    void translucentWindow_keepsEveryPixel();
    void nativeChild_appearsOnTheScreen();
    void nativeChild_atAnOddPlace_leavesNothingStale();
    void alienChildOfANativeParent_appearsOnTheScreen();
    void windowNotOfRasterType_repaintsTheHost();

private:
    std::unique_ptr<QWidget> m_window;
    SurfaceHost * m_host = nullptr; // at (24, 32) of the window
};

void tst_SurfaceSituations::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 240);
    m_host = new SurfaceHost(m_window.get());
    m_host->setGeometry(24, 32, 200, 160);
    QVERIFY(showAndSettle(*m_window));
    m_host->paints = 0;
}

void tst_SurfaceSituations::paintEvent_target_isPass()
{
    WidgetSurface surface(m_host);
    auto reached = WidgetSurface::Target::None;
    QRegion clip;
    QRegion opened;
    m_host->whilePainting = [&] {
        reached = surface.target();
        clip = surface.clip();
        QVERIFY(surface.begin(m_host->rect()));
        opened = surface.clip();
        surface.end();
    };
    m_host->update(10, 20, 30, 40);
    QTRY_COMPARE(m_host->paints, 1);
    QCOMPARE(reached, WidgetSurface::Target::Pass);
    QCOMPARE(clip, m_host->painted);
    QCOMPARE(opened, QRegion(10, 20, 30, 40));
    QCOMPARE(surface.target(), WidgetSurface::Target::Screen);
}

void tst_SurfaceSituations::paintEvent_strip_onlyThePaintedPartIsTouched_data()
{
    QTest::addColumn<bool>("painterOpen");
    QTest::newRow("painter of the host open") << true;
    QTest::newRow("painter of the host closed") << false;
}

void tst_SurfaceSituations::paintEvent_strip_onlyThePaintedPartIsTouched()
{
    QFETCH(bool, painterOpen);
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    auto const act = [&] { QVERIFY(invert(surface, m_host->rect())); };
    (painterOpen ? m_host->whilePainting : m_host->afterPainting) = act;
    QRect const strip(0, 48, 200, 13);
    m_host->update(strip);
    QTRY_COMPARE(m_host->paints, 1);
    settle(*m_window);
    QCOMPARE(m_host->paints, 1);
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(strip)})), 0);
}

void tst_SurfaceSituations::paintEvent_full_everyTime_isSafe()
{
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    m_host->afterPainting = [&] { QVERIFY(invert(surface, m_host->rect())); };
    for (int i = 1; i <= 5; ++i) {
        m_host->update();
        QTRY_COMPARE(m_host->paints, i);
        QVERIFY(invert(surface, QRect(0, 0, 20, 20))); // the same store outside the pass
    }
    settle(*m_window);
    QVERIFY(invert(surface, QRect(0, 0, 20, 20)));
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(m_host->rect())})),
             0);
}

void tst_SurfaceSituations::paintEvent_copy_readsWhatWasPainted()
{
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QImage copied;
    m_host->afterPainting = [&] {
        QVERIFY(surface.begin(m_host->rect()));
        copied = surface.copy(m_host->rect());
        surface.end();
    };
    m_host->update();
    QTRY_COMPARE(m_host->paints, 1);
    QCOMPARE(wrongPixels(copied, before.copy(surface.device(m_host->rect()))), 0);
}

void tst_SurfaceSituations::paintEvent_ofAnotherWidget_touchesNothing()
{
    auto * const sibling = new SurfaceHost(m_window.get());
    sibling->setGeometry(240, 32, 64, 64);
    sibling->show();
    settle(*m_window);
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    int acted = 0;
    sibling->afterPainting = [&] {
        ++acted;
        QCOMPARE(surface.target(), WidgetSurface::Target::Pass);
        QVERIFY(surface.begin(m_host->rect()));
        QVERIFY(surface.clip().isEmpty());
        surface.flip(m_host->rect(), Qt::white, Qt::black);
        surface.end();
    };
    sibling->update();
    QTRY_COMPARE(acted, 1);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
}

void tst_SurfaceSituations::paintEvent_ofTheParent_touchesNothing()
{
    SurfaceHost window;
    window.resize(200, 200);
    auto * const child = new SurfaceHost(&window);
    child->setGeometry(8, 8, 64, 64);
    QVERIFY(showAndSettle(window));
    QImage const before = picture(window);
    WidgetSurface surface(child);
    int acted = 0;
    window.afterPainting = [&] {
        ++acted;
        QVERIFY(invert(surface, child->rect()));
    };
    window.update();
    QTRY_COMPARE(acted, 1);
    settle(window);
    QCOMPARE(wrongPixels(picture(window), before), 0);
}

void tst_SurfaceSituations::grab_target_isRedirectedAndNothingHappens()
{
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    auto reached = WidgetSurface::Target::None;
    m_host->afterPainting = [&] {
        reached = surface.target();
        QVERIFY(!surface.begin(m_host->rect()));
        QVERIFY(surface.clip().isEmpty());
        surface.flip(m_host->rect(), Qt::white, Qt::black);
        surface.end();
    };
    QImage const grabbed = m_host->grab().toImage();
    QCOMPARE(m_host->paints, 1);
    QCOMPARE(reached, WidgetSurface::Target::Redirected);
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
    m_host->afterPainting = nullptr;
    QCOMPARE(wrongPixels(grabbed, m_host->grab().toImage()), 0);
}

void tst_SurfaceSituations::render_ofTheParent_nothingHappens()
{
    WidgetSurface surface(m_host);
    auto reached = WidgetSurface::Target::None;
    m_host->afterPainting = [&] { reached = surface.target(); };
    QPixmap pixmap(m_window->size());
    m_window->render(&pixmap);
    QCOMPARE(reached, WidgetSurface::Target::Redirected);
    QCOMPARE(surface.target(), WidgetSurface::Target::Screen);
}

void tst_SurfaceSituations::grab_hiddenHost_isRedirected()
{
    SurfaceHost hidden;
    hidden.resize(40, 40);
    WidgetSurface surface(&hidden);
    auto reached = WidgetSurface::Target::None;
    hidden.afterPainting = [&] {
        reached = surface.target();
        QVERIFY(!surface.begin(hidden.rect()));
    };
    hidden.grab();
    QCOMPARE(reached, WidgetSurface::Target::Redirected);
    QCOMPARE(surface.target(), WidgetSurface::Target::None);
}

// A platform may scroll where the store's memory does not show it.
void tst_SurfaceSituations::scroll_thenCopy_isWhatTheScreenShows()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRect const kept(0, 0, 200, 136);
    m_host->scroll(0, -24);
    if (movesPixels() && hasWholeRatio(*m_window)) {
        QImage const moved = copyOf(surface, kept);
        QVERIFY(wrongPixels(moved, before.copy(surface.device(kept))) > 0);
        QCOMPARE(wrongPixels(moved, before.copy(surface.device(kept.translated(0, 24)))), 0);
    }
    settle(*m_window);
    QCOMPARE(wrongPixels(copyOf(surface, kept), picture(*m_window).copy(surface.device(kept))), 0);
}

void tst_SurfaceSituations::scroll_thenFlipTwice_restores()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    m_host->scroll(0, -24);
    QRect const kept(0, 0, 200, 136);
    QVERIFY(invert(surface, kept));
    QVERIFY(invert(surface, kept));
    settle(*m_window);
    if (!hasWholeRatio(*m_window))
        return;
    // The paint event fills the exposed strip only, so elsewhere the scrolled pixels must stand.
    // Where no pixels are moved it paints all, and this host paints the same however it is
    // scrolled.
    QRect const source = movesPixels() ? kept.translated(0, 24) : kept;
    QCOMPARE(m_host->painted, QRegion(movesPixels() ? QRect(0, 136, 200, 24) : m_host->rect()));
    QCOMPARE(wrongPixels(picture(*m_window).copy(surface.device(kept)),
                         before.copy(surface.device(source))),
             0);
}

void tst_SurfaceSituations::scrollArea_thenCopy_isWhatTheScreenShows()
{
    QScrollArea area;
    auto * const host = new SurfaceHost;
    host->resize(200, 2000);
    area.setWidget(host);
    area.resize(240, 200);
    QVERIFY(showAndSettle(area));
    WidgetSurface surface(host);
    for (int const value : {40, 80, 56}) {
        area.verticalScrollBar()->setValue(value);
        settle(area);
        QRect const seen(0, value, 150, 100);
        QVERIFY(surface.begin(seen));
        QImage const copied = surface.copy(seen);
        surface.end();
        QCOMPARE(wrongPixels(copied, picture(area).copy(surface.device(seen))), 0);
        QCOMPARE(copied.pixelColor(copied.width() / 75, copied.height() / 50),
                 SurfaceHost::patternAt(0, value));
    }
}

void tst_SurfaceSituations::scrollArea_movesTheOffset()
{
    QScrollArea area;
    auto * const host = new SurfaceHost;
    host->resize(200, 2000);
    area.setWidget(host);
    area.resize(240, 200);
    QVERIFY(showAndSettle(area));
    WidgetSurface surface(host);
    QRect const r(16, 96, 32, 32);
    QVERIFY(invert(surface, r));
    area.verticalScrollBar()->setValue(40);
    settle(area);
    if (!movesPixels())
        QVERIFY(invert(surface, r)); // the host was painted anew without it
    QVERIFY(invert(surface, r));     // carried along with the host, and found again
    QImage const restored = picture(area);
    host->update();
    settle(area);
    QCOMPARE(wrongPixels(restored, picture(area)), 0);
}

void tst_SurfaceSituations::resize_beforeTheRepaint_isSafe()
{
    WidgetSurface surface(m_host);
    m_window->resize(400, 300);
    m_host->resize(300, 250);
    QVERIFY(surface.begin(m_host->rect()));
    surface.flip(m_host->rect(), Qt::white, Qt::black);
    QVERIFY(!surface.copy(m_host->rect()).isNull());
    surface.end();
    m_window->resize(50, 50);
    QVERIFY(invert(surface, m_host->rect()));
    m_window->resize(400, 300);
    settle(*m_window);
    QImage const before = picture(*m_window);
    QVERIFY(invert(surface, m_host->rect()));
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(m_host->rect())})),
             0);
}

void tst_SurfaceSituations::writes_areCountedForAllSurfacesOfTheWidget()
{
    WidgetSurface surface(m_host);
    WidgetSurface ofTheWindow(m_window.get());
    quint64 const before = surface.writes();
    quint64 const beforeOfTheWindow = ofTheWindow.writes();
    {
        WidgetSurface another(m_host);
        QCOMPARE(another.writes(), before);
        QVERIFY(another.begin(QRect(4, 4, 8, 8)));
        another.end();
    }
    QCOMPARE(surface.writes(), before + 1);
    QVERIFY(surface.begin(QRegion())); // to be read
    surface.end();
    QCOMPARE(surface.writes(), before + 1);
    QCOMPARE(ofTheWindow.writes(), beforeOfTheWindow);
}

void tst_SurfaceSituations::minimised_isSafe()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    m_window->showMinimized();
    settle(*m_window);
    (void)invert(surface, m_host->rect());
    (void)invert(surface, m_host->rect());
    m_window->showNormal();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
}

// Such a store clears each region that is begun, which the offscreen platform does not show.
void tst_SurfaceSituations::translucentWindow_keepsEveryPixel()
{
    QWidget window;
    window.setAttribute(Qt::WA_TranslucentBackground);
    window.resize(160, 120);
    auto * const host = new SurfaceHost(&window);
    host->setGeometry(17, 19, 100, 80);
    QVERIFY(showAndSettle(window));
    if (onXcb())
        QVERIFY(static_cast<QImage *>(window.backingStore()->paintDevice())->hasAlphaChannel());
    WidgetSurface surface(host);
    auto const everything = [&] {
        return surface.begin(host->rect()) ? surface.copy(QRect(-17, -19, 160, 120)) : QImage();
    };
    QImage const before = everything();
    surface.end();
    QRegion const region = QRegion(3, 5, 21, 33) + QRegion(50, 20, 31, 7);
    QVERIFY(invert(surface, region));
    QImage const flipped = everything();
    surface.end();
    QList<QRect> parts;
    for (QRect const & r : region)
        parts << surface.device(r);
    QCOMPARE(wrongPixels(flipped, inverted(before, parts)), 0);
    QVERIFY(invert(surface, region));
    QCOMPARE(everything(), before);
    surface.end();
    QCOMPARE(host->paints, 1);
}

void tst_SurfaceSituations::nativeChild_appearsOnTheScreen()
{
    QWidget window;
    window.resize(320, 240);
    auto * const host = new SurfaceHost(&window);
    host->setGeometry(40, 40, 200, 160); // whole device pixels at every ratio tested
    host->setAttribute(Qt::WA_DontCreateNativeAncestors);
    host->setAttribute(Qt::WA_NativeWindow);
    QVERIFY(showAndSettle(window));
    host->paints = 0;
    QImage const before = picture(window);
    WidgetSurface surface(host);
    QRect const r(13, 17, 51, 43);
    QVERIFY(invert(surface, r));
    QCOMPARE(wrongPixels(picture(window), inverted(before, {surface.device(r)})), 0);
    QVERIFY(invert(surface, r));
    QCOMPARE(wrongPixels(picture(window), before), 0);
    settle(window);
    QCOMPARE(host->paints, 0);
}

// Its edges may fall on other device pixels than those of the window.
void tst_SurfaceSituations::nativeChild_atAnOddPlace_leavesNothingStale()
{
    QWidget window;
    window.resize(320, 240);
    auto * const host = new SurfaceHost(&window);
    host->setGeometry(41, 43, 200, 160);
    host->setAttribute(Qt::WA_DontCreateNativeAncestors);
    host->setAttribute(Qt::WA_NativeWindow);
    QVERIFY(showAndSettle(window));
    WidgetSurface surface(host);
    for (int i = 0; i < 12; ++i) {
        QVERIFY(invert(surface, QRect(10 + i * 13, 9 + i * 11, 9 + i % 4, 8 + i % 3)));
        QImage const shown = picture(window);
        window.backingStore()->flush(host->rect(), host->windowHandle(), host->pos());
        QCOMPARE(wrongPixels(shown, picture(window)), 0);
    }
}

void tst_SurfaceSituations::alienChildOfANativeParent_appearsOnTheScreen()
{
    QWidget window;
    window.resize(320, 240);
    auto * const parent = new QWidget(&window);
    parent->setGeometry(40, 40, 240, 180);
    parent->setAttribute(Qt::WA_NativeWindow);
    auto * const host = new SurfaceHost(parent);
    host->setGeometry(20, 20, 200, 140);
    QVERIFY(showAndSettle(window));
    QImage const before = picture(window);
    WidgetSurface surface(host);
    QRect const r(13, 17, 51, 43);
    QVERIFY(invert(surface, r));
    QCOMPARE(wrongPixels(picture(window), inverted(before, {surface.device(r)})), 0);
    QVERIFY(invert(surface, r));
    QCOMPARE(wrongPixels(picture(window), before), 0);
}

void tst_SurfaceSituations::windowNotOfRasterType_repaintsTheHost()
{
    WidgetSurface surface(m_host);
    m_window->windowHandle()->setSurfaceType(QSurface::RasterGLSurface);
    QRect const r(8, 8, 40, 40);
    QVERIFY(invert(surface, r));
    m_window->windowHandle()->setSurfaceType(QSurface::RasterSurface);
    QTRY_COMPARE(m_host->paints, 1);
    QCOMPARE(m_host->painted, QRegion(r));
}

ZENU_TEST(tst_SurfaceSituations)
#include "tst_SurfaceSituations.moc"
