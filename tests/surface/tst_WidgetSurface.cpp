#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <zenu/overlay/surface/WidgetSurface.h>

#include <QtWidgets/QGraphicsOpacityEffect>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QLabel>

using namespace zenu;
using namespace zenutest;

namespace {

// Inverts the colours of a region, all in one.
bool invert(WidgetSurface & surface, QRegion const & region)
{
    if (!surface.begin(region))
        return false;
    surface.flip(region, Qt::white, Qt::black);
    surface.end();
    return true;
}

} // namespace

class tst_WidgetSurface : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void target_shown_isScreen();
    void target_withoutSurface_isNone_data();
    void target_withoutSurface_isNone();
    void target_inAGraphicsView_isNone();
    void withoutSurface_everyOperation_doesNothing();

    void device_adjacentRectangles_stayAdjacent();
    void device_nestedChild_countsFromTheWindow();
    void device_extremes_doNotOverflow();
    void format_closed_isInvalid();

    void copy_isWhatTheScreenShows();
    void copy_beyondTheWindow_isZero();
    void copyTo_leavesOtherPixelsAndFormatsAlone();
    void put_movesPixels();
    void put_partOfABuffer_startsAtItsPosition();
    void put_otherFormat_isConverted();
    void put_restores();

    void flip_whiteAgainstBlack_inverts();
    void flip_twice_restores();
    void flip_severalRectangles_eachOnce();
    void flip_manyRectangles_allAppear();
    void flip_nestedChild_hitsTheRightPixels();
    void flip_underRelatives_leavesThemAlone();
    void flip_beyondTheWidget_isCut();
    void write_outsideTheAnnouncedBounds_isCut();

    void blend_sameForEveryRatioOfThePixmap_data();
    void blend_sameForEveryRatioOfThePixmap();
    void blend_transparentPixels_leaveTheSurface();
    void blend_isClipped();

    void begin_twice_isRefusedTheSecondTime();
    void end_withoutBegin_doesNothing();
    void destructor_endsWhatWasBegun();
    void host_deletedWhileOpen_isSafe();

private:
    std::unique_ptr<QWidget> m_window;
    SurfaceHost * m_host = nullptr; // at (16, 24) of a panel at (8, 8)
};

void tst_WidgetSurface::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 240);
    auto * const panel = new QWidget(m_window.get());
    panel->setGeometry(8, 8, 300, 220);
    m_host = new SurfaceHost(panel);
    m_host->setGeometry(16, 24, 200, 150);
    QVERIFY(showAndSettle(*m_window));
    QVERIFY(m_host->paints > 0);
    m_host->paints = 0;
}

void tst_WidgetSurface::target_shown_isScreen()
{
    WidgetSurface surface(m_host);
    QCOMPARE(surface.host(), m_host);
    QCOMPARE(surface.target(), WidgetSurface::Target::Screen);
    QCOMPARE(surface.clip(), QRegion(m_host->rect()));
    QVERIFY(surface.begin(m_host->rect()));
    QVERIFY(surface.isOpen());
    QCOMPARE(surface.target(), WidgetSurface::Target::Screen);
    surface.end();
    QVERIFY(!surface.isOpen());
}

void tst_WidgetSurface::target_withoutSurface_isNone_data()
{
    QTest::addColumn<QString>("reason");
    for (char const * reason : {"never shown", "hidden", "parent hidden", "effect", "effect above",
                                "painting on the screen itself"})
        QTest::newRow(reason) << QString::fromLatin1(reason);
}

void tst_WidgetSurface::target_withoutSurface_isNone()
{
    QFETCH(QString, reason);
    SurfaceHost neverShown;
    SurfaceHost * host = m_host;
    if (reason == QLatin1String("never shown"))
        host = &neverShown;
    else if (reason == QLatin1String("hidden"))
        host->hide();
    else if (reason == QLatin1String("parent hidden"))
        host->parentWidget()->hide();
    else if (reason == QLatin1String("effect"))
        host->setGraphicsEffect(new QGraphicsOpacityEffect);
    else if (reason == QLatin1String("effect above"))
        m_window->setGraphicsEffect(new QGraphicsOpacityEffect);
    else
        host->setAttribute(Qt::WA_PaintOnScreen);
    WidgetSurface surface(host);
    QCOMPARE(surface.target(), WidgetSurface::Target::None);
    QVERIFY(!surface.begin(host->rect()));
    QVERIFY(surface.clip().isEmpty());
    host->setAttribute(Qt::WA_PaintOnScreen, false);
}

void tst_WidgetSurface::target_inAGraphicsView_isNone()
{
    QGraphicsScene scene;
    auto * const embedded = new SurfaceHost;
    scene.addWidget(embedded);
    WidgetSurface surface(embedded);
    QCOMPARE(surface.target(), WidgetSurface::Target::None);
    QVERIFY(!surface.begin(QRect(0, 0, 9, 9)));
}

void tst_WidgetSurface::withoutSurface_everyOperation_doesNothing()
{
    SurfaceHost hidden;
    for (QWidget * host : {static_cast<QWidget *>(nullptr), static_cast<QWidget *>(&hidden)}) {
        WidgetSurface surface(host);
        QRect const r(0, 0, 10, 10);
        QVERIFY(!surface.begin(r));
        QImage buffer(10, 10, QImage::Format_RGB32);
        buffer.fill(Qt::red);
        QImage const before = buffer;
        QVERIFY(surface.copy(r).isNull());
        surface.copyTo(buffer, QPoint(), r);
        QCOMPARE(buffer, before);
        surface.put(buffer, QPoint(), r);
        surface.blend(QPixmap::fromImage(buffer), r);
        surface.flip(r, Qt::white, Qt::black);
        surface.end();
        QVERIFY(surface.ratio() >= 1);
        QVERIFY(!surface.device(r).isEmpty());
    }
}

void tst_WidgetSurface::device_adjacentRectangles_stayAdjacent()
{
    WidgetSurface surface(m_host);
    for (int x = 0; x < 40; ++x) {
        QRect const left = surface.device(QRect(x, 0, 3, 5));
        QRect const right = surface.device(QRect(x + 3, 0, 3, 5));
        QCOMPARE(right.left(), left.right() + 1);
        QCOMPARE(surface.device(QRect(x, 0, 6, 5)), left | right);
    }
    QVERIFY(surface.device(QRect()).isEmpty());
}

void tst_WidgetSurface::device_nestedChild_countsFromTheWindow()
{
    WidgetSurface surface(m_host);
    double const ratio = m_window->devicePixelRatioF();
    QCOMPARE(surface.ratio(), ratio);
    QCOMPARE(surface.device(QRect(1, 2, 10, 10)).topLeft(),
             QPoint(qRound(25 * ratio), qRound(34 * ratio)));
    m_host->move(0, 0);
    QCOMPARE(surface.device(QRect(0, 0, 8, 8)),
             QRect(QPoint(qRound(8 * ratio), qRound(8 * ratio)),
                   QPoint(qRound(16 * ratio) - 1, qRound(16 * ratio) - 1)));
}

void tst_WidgetSurface::device_extremes_doNotOverflow()
{
    WidgetSurface surface(m_host);
    int const most = std::numeric_limits<int>::max();
    QVERIFY(!surface.device(QRect(0, 0, most, most)).isEmpty());
    QVERIFY(surface.device(QRect(QPoint(most, most), QPoint(most, most))).isEmpty());
    QVERIFY(surface.begin(QRect(0, 0, 100000, 100000)));
    surface.flip(QRect(-50000, -50000, 100000, 100000), Qt::white, Qt::white);
    surface.put(QImage(2, 2, QImage::Format_RGB32), QPoint(), QRect(70000, 0, 2, 2));
    surface.end();
}

void tst_WidgetSurface::format_closed_isInvalid()
{
    WidgetSurface surface(m_host);
    QCOMPARE(surface.format(), QImage::Format_Invalid);
    QVERIFY(surface.begin(m_host->rect()));
    QVERIFY(surface.format() != QImage::Format_Invalid);
    QCOMPARE(surface.copy(QRect(0, 0, 3, 3)).format(), surface.format());
    surface.end();
    QCOMPARE(surface.format(), QImage::Format_Invalid);
}

void tst_WidgetSurface::copy_isWhatTheScreenShows()
{
    WidgetSurface surface(m_host);
    QRect const r(13, 7, 61, 45);
    QVERIFY(surface.begin(r));
    QImage const copied = surface.copy(r);
    QRect const place = surface.device(r);
    surface.end();
    QCOMPARE(copied.devicePixelRatio(), 1.0);
    QCOMPARE(wrongPixels(copied, picture(*m_window).copy(place)), 0);
    settle(*m_window);
    QCOMPARE(m_host->paints, 0);
}

void tst_WidgetSurface::copy_beyondTheWindow_isZero()
{
    WidgetSurface surface(m_host);
    QRect const r(-40, -40, 20, 20); // the window begins at -24, -32
    QVERIFY(surface.begin(m_host->rect()));
    QImage const copied = surface.copy(r);
    QCOMPARE(copied.size(), surface.device(r).size());
    QCOMPARE(copied.pixel(0, 0) & 0xffffffu, 0u);
    QVERIFY((copied.pixel(copied.width() - 1, copied.height() - 1) & 0xffffffu) != 0u);
    QVERIFY(surface.copy(QRect()).isNull());
}

void tst_WidgetSurface::copyTo_leavesOtherPixelsAndFormatsAlone()
{
    WidgetSurface surface(m_host);
    QRect const r(0, 0, 8, 8);
    QVERIFY(surface.begin(r));
    QSize const size = surface.device(r).size();
    QImage buffer(size + QSize(4, 4), surface.format());
    buffer.fill(Qt::magenta);
    surface.copyTo(buffer, QPoint(2, 3), r);
    QCOMPARE(wrongPixels(buffer.copy(QRect(QPoint(2, 3), size)), surface.copy(r)), 0);
    QCOMPARE(buffer.pixelColor(1, 3), QColor(Qt::magenta));
    QCOMPARE(buffer.pixelColor(2, 2), QColor(Qt::magenta));
    QCOMPARE(buffer.pixelColor(size.width() + 2, 3), QColor(Qt::magenta));
    QImage other(size, QImage::Format_Grayscale8);
    other.fill(99);
    surface.copyTo(other, QPoint(), r);
    QCOMPARE(other.constScanLine(0)[0], uchar(99));
}

void tst_WidgetSurface::put_movesPixels()
{
    WidgetSurface surface(m_host);
    QRect const from(0, 0, 32, 32);
    QRect const to(96, 64, 32, 32); // the same phase at every ratio tested
    QImage expected = picture(*m_window);
    QVERIFY(surface.begin(QRegion(from) + to));
    surface.put(surface.copy(from), QPoint(), to);
    QRect const fromPlace = surface.device(from);
    QRect const toPlace = surface.device(to);
    surface.end();
    QCOMPARE(fromPlace.size(), toPlace.size());
    QImage const part = expected.copy(fromPlace);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x)
            expected.setPixel(toPlace.topLeft() + QPoint(x, y), part.pixel(x, y));
    }
    QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
    settle(*m_window);
    QCOMPARE(m_host->paints, 0);
    QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
}

void tst_WidgetSurface::put_partOfABuffer_startsAtItsPosition()
{
    WidgetSurface surface(m_host);
    QRect const r(40, 40, 4, 4);
    QVERIFY(surface.begin(r));
    QSize const size = surface.device(r).size();
    QImage buffer(size * 2, surface.format());
    buffer.fill(Qt::red);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            buffer.setPixelColor(x + 2, y + 1, Qt::green);
    }
    surface.put(buffer, QPoint(2, 1), r);
    QImage const now = surface.copy(r);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            QCOMPARE(now.pixelColor(x, y), QColor(Qt::green));
    }
}

void tst_WidgetSurface::put_otherFormat_isConverted()
{
    WidgetSurface surface(m_host);
    QRect const r(40, 40, 4, 4);
    QVERIFY(surface.begin(r));
    QImage buffer(surface.device(r).size(), QImage::Format_RGB888);
    buffer.fill(QColor(1, 2, 3));
    surface.put(buffer, QPoint(), r);
    QCOMPARE(surface.copy(r).pixelColor(2, 2), QColor(1, 2, 3));
    surface.put(QImage(), QPoint(), r);
    QCOMPARE(surface.copy(r).pixelColor(2, 2), QColor(1, 2, 3));
}

void tst_WidgetSurface::put_restores()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRect const r(11, 13, 37, 29);
    QVERIFY(surface.begin(r));
    QImage const saved = surface.copy(r);
    surface.flip(r, Qt::red, Qt::blue);
    surface.end();
    QVERIFY(wrongPixels(picture(*m_window), before) > 0);
    QVERIFY(surface.begin(r));
    surface.put(saved, QPoint(), r);
    surface.end();
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
}

void tst_WidgetSurface::flip_whiteAgainstBlack_inverts()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRect const line(77, 0, 1, m_host->height());
    QVERIFY(invert(surface, line));
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(line)})), 0);
    settle(*m_window);
    QCOMPARE(m_host->paints, 0);
}

void tst_WidgetSurface::flip_twice_restores()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRegion const region = QRegion(3, 5, 71, 33) + QRegion(50, 20, 60, 60);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(surface.begin(region));
        surface.flip(region, QColor(10, 200, 77), QColor(240, 3, 129, 50));
        surface.end();
        QCOMPARE(wrongPixels(picture(*m_window), before) == 0, i == 1);
    }
}

void tst_WidgetSurface::flip_severalRectangles_eachOnce()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRegion const region = QRegion(0, 0, 33, 17) + QRegion(33, 0, 30, 17) + QRegion(0, 17, 5, 5);
    QVERIFY(invert(surface, region));
    QList<QRect> parts;
    for (QRect const & r : region)
        parts << surface.device(r);
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, parts)), 0);
}

void tst_WidgetSurface::flip_manyRectangles_allAppear()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRegion region;
    QList<QRect> parts;
    for (int i = 0; i < 100; ++i) {
        QRect const r((i % 10) * 19, (i / 10) * 14, 7, 5);
        region += r;
        parts << surface.device(r);
    }
    QVERIFY(region.rectCount() > 64);
    QVERIFY(invert(surface, region));
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, parts)), 0);
}

void tst_WidgetSurface::flip_nestedChild_hitsTheRightPixels()
{
    m_host->move(19, 31); // odd, so that its edges round
    settle(*m_window);
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QVERIFY(invert(surface, m_host->rect()));
    double const ratio = m_window->devicePixelRatioF();
    QPoint const topLeft(qRound(27 * ratio), qRound(39 * ratio));
    QPoint const behind(qRound(227 * ratio), qRound(189 * ratio));
    QCOMPARE(
        wrongPixels(picture(*m_window), inverted(before, {QRect(topLeft, behind - QPoint(1, 1))})),
        0);
}

void tst_WidgetSurface::flip_underRelatives_leavesThemAlone()
{
    auto * const child = new QLabel(QStringLiteral("see-through"), m_host);
    child->setGeometry(8, 8, 80, 16);
    child->show();
    auto * const sibling = new QWidget(m_host->parentWidget());
    sibling->setGeometry(16, 120, 48, 96);
    sibling->setAutoFillBackground(true);
    sibling->show();
    settle(*m_window);
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QVERIFY(invert(surface, m_host->rect()));
    QList<QRect> parts;
    for (QRect const & r : QRegion(m_host->rect()) - QRegion(8, 8, 80, 16) - QRegion(0, 96, 48, 96))
        parts << surface.device(r);
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, parts)), 0);
    delete sibling;
}

void tst_WidgetSurface::flip_beyondTheWidget_isCut()
{
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QVERIFY(invert(surface, QRect(-1000, -1000, 3000, 3000)));
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(m_host->rect())})),
             0);
    QVERIFY(invert(surface, QRect(-1000, -1000, 3000, 3000)));
    QVERIFY(invert(surface, QRect(5000, 5000, 10, 10)));
    QVERIFY(invert(surface, QRegion()));
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
}

void tst_WidgetSurface::write_outsideTheAnnouncedBounds_isCut()
{
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QRect const announced(10, 10, 20, 20);
    QVERIFY(surface.begin(announced));
    surface.flip(m_host->rect(), Qt::white, Qt::black);
    surface.end();
    m_window->backingStore()->flush(m_window->rect());
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(announced)})), 0);
}

void tst_WidgetSurface::blend_sameForEveryRatioOfThePixmap_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("2") << 2.0;
}

void tst_WidgetSurface::blend_sameForEveryRatioOfThePixmap()
{
    QFETCH(double, ratio);
    WidgetSurface surface(m_host);
    QRect const r(32, 32, 24, 16);
    QVERIFY(surface.begin(r));
    QSize const size = surface.device(r).size();
    QImage image(size + QSize(5, 5), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, SurfaceHost::patternAt(y, x));
    }
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(ratio);
    surface.blend(pixmap, r);
    QImage const now = surface.copy(r.adjusted(-8, -8, 8, 8));
    QPoint const inner =
        surface.device(r).topLeft() - surface.device(r.adjusted(-8, -8, 8, 8)).topLeft();
    surface.end();
    QCOMPARE(wrongPixels(now.copy(QRect(inner, size)), image.copy(QRect(QPoint(), size))), 0);
    QImage const expected = picture(*m_window).copy(surface.device(r.adjusted(-8, -8, 8, 8)));
    QCOMPARE(wrongPixels(now, expected), 0);
}

void tst_WidgetSurface::blend_transparentPixels_leaveTheSurface()
{
    WidgetSurface surface(m_host);
    QRect const r(32, 32, 16, 16);
    QVERIFY(surface.begin(r));
    QSize const size = surface.device(r).size();
    QImage const before = surface.copy(r);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setPixelColor(1, 1, Qt::red);
    image.setPixelColor(3, 3, QColor(255, 255, 255, 128));
    surface.blend(QPixmap::fromImage(image), r);
    QImage const after = surface.copy(r);
    QCOMPARE(wrongPixels(after, before), 2);
    QCOMPARE(after.pixelColor(1, 1), QColor(Qt::red));
    int const mixed = (before.pixelColor(3, 3).red() + 255) / 2;
    QVERIFY(std::abs(after.pixelColor(3, 3).red() - mixed) <= 1);
}

void tst_WidgetSurface::blend_isClipped()
{
    auto * const child = new QWidget(m_host);
    child->setGeometry(32, 32, 16, 16);
    child->setAutoFillBackground(true);
    child->show();
    settle(*m_window);
    QImage const before = picture(*m_window);
    WidgetSurface surface(m_host);
    QVERIFY(surface.begin(m_host->rect()));
    QPixmap red(surface.device(QRect(24, 24, 16, 16)).size());
    red.fill(Qt::red);
    surface.blend(red, QRect(24, 24, 16, 16));
    QRect const place = surface.device(QRect(24, 24, 16, 16));
    QRect const covered = surface.device(child->geometry());
    surface.end();
    QImage const after = picture(*m_window);
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            bool const drawn = place.contains(x, y) && !covered.contains(x, y);
            QCOMPARE(after.pixel(x, y), drawn ? 0xffff0000u : before.pixel(x, y));
        }
    }
}

void tst_WidgetSurface::begin_twice_isRefusedTheSecondTime()
{
    WidgetSurface surface(m_host);
    QImage const before = picture(*m_window);
    QRect const r(0, 0, 20, 20);
    QVERIFY(surface.begin(r));
    QVERIFY(!surface.begin(r));
    surface.flip(r, Qt::white, Qt::black);
    surface.end();
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {surface.device(r)})), 0);
}

void tst_WidgetSurface::end_withoutBegin_doesNothing()
{
    WidgetSurface surface(m_host);
    surface.end();
    QVERIFY(surface.begin(m_host->rect()));
    surface.end();
    surface.end();
    QVERIFY(!surface.isOpen());
}

void tst_WidgetSurface::destructor_endsWhatWasBegun()
{
    QImage const before = picture(*m_window);
    QRect const r(0, 0, 20, 20);
    QRect place;
    {
        WidgetSurface surface(m_host);
        QVERIFY(surface.begin(r));
        surface.flip(r, Qt::white, Qt::black);
        place = surface.device(r);
    }
    QCOMPARE(wrongPixels(picture(*m_window), inverted(before, {place})), 0);
}

void tst_WidgetSurface::host_deletedWhileOpen_isSafe()
{
    WidgetSurface surface(m_host);
    QRect const r(0, 0, 20, 20);
    QVERIFY(surface.begin(r));
    delete m_host;
    surface.flip(r, Qt::white, Qt::black);
    QVERIFY(surface.copy(r).isNull());
    surface.end();
    QVERIFY(!surface.host());
    QVERIFY(!surface.begin(r));

    auto * const host = new SurfaceHost(m_window.get());
    host->resize(50, 50);
    host->show();
    settle(*m_window);
    WidgetSurface other(host);
    QVERIFY(other.begin(r));
    m_window.reset();
    other.flip(r, Qt::white, Qt::black);
    other.end();
    QVERIFY(!other.begin(r));
}

ZENU_TEST(tst_WidgetSurface)
#include "tst_WidgetSurface.moc"
