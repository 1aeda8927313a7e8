#include "tests/sprites/SpriteHost.h"
#include "tests/support/TestMain.h"

#include <limits>

using namespace zenu;
using namespace zenutest;

// Sprites where something else goes on at the same time: the host paints, dies, scrolls, is covered
// or drawn at another scale, and the application changes things in the middle of an update.
class tst_SpriteSituations : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void update_order_isBeforeThenPicturesUpwardsThenAfter();
    void beforeLayerUpdate_movesItsSprite_isCommittedAtOnce();
    void manyMoves_noPaintEventReachesAnyWidget();
    void oneOfManyHides_touchesItsPlaceAlone();
    void drawInBuffer_repaintsTheHost_leavesNothing();
    void drawInBuffer_grabsTheHost_leavesNothing();

    void destroyedDuringAGrab_leavesTheScreenAfterwards();
    void destroyedInThePaintEventOfARelative_leavesTheScreenAfterwards();
    void destroyedAfterItsRemoval_updatesTheLayer();
    void layerDestroyedInThePaintEvent_isSafe();
    void layerHiddenInThePaintEvent_leavesAfterwards();
    void layerOfNoWidget_isQuiet();
    void secondLayer_takesTheSpritesOfADeadOne();
    void secondLayer_removedBefore_neverShows();

    void band_underHoles_isNotSeen();
    void band_widerThanAnInt_coversTheHost_data();
    void band_widerThanAnInt_coversTheHost();
    void clobberRect_afterTheEvent_spriteAndBandComeBack();
    void clobberRect_widerThanAnInt_isCutByTheHost();
    void hostScrolls_layerOffMeanwhile_paintsTheStripAlone();
    void seeThroughSibling_repainted_leavesNothing();
    void translucentWindow_restoresEveryBit();

private:
    QImage withoutUpper() const;
    QImage withAll() const;
    void hideAll();

    std::unique_ptr<QWidget> m_window;
    SpriteHost * m_host = nullptr;
    std::unique_ptr<KSpriteLayer> m_layer;
    std::unique_ptr<TestSprite> m_lower;
    std::unique_ptr<TestSprite> m_upper;
    QImage m_empty;
};

namespace {

constexpr QRect lowerRect(40, 40, 32, 32);
constexpr QRect upperRect(56, 48, 40, 24);
constexpr QRect bandRect(16, 56, 160, 48);
constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();
const QRect everywhere(QPoint(least, least), QPoint(most, most));

// Paints a veil through which one sees what lies below.
class Veil : public QWidget
{
public:
    using QWidget::QWidget;
    QColor color{0, 0, 0, 90};

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), color); }
};

// Lines of 8 pixels that scroll.
class ScrollingHost : public QWidget
{
public:
    explicit ScrollingHost(QWidget * parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    KSpriteLayer * layer = nullptr;
    QRegion painted;
    int offset = 0;

protected:
    void paintEvent(QPaintEvent * event) override
    {
        painted = event->region();
        {
            QPainter painter(this);
            for (int y = 0; y < height(); y += 8) {
                int const line = (y + offset) / 8;
                painter.fillRect(0, y, width(), 8, QColor(line * 9 % 256, line * 31 % 256, 99));
            }
        }
        if (!layer)
            return;
        for (QRect const & r : event->region())
            layer->clobberRect(r);
        layer->update();
    }
};

struct PaintCounter : QObject
{
    int paints = 0;
    bool eventFilter(QObject *, QEvent * event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// Writes down what the layer calls.
class LoggedSprite : public TestSprite
{
public:
    LoggedSprite(KSpriteLayer * layer, QString const & spriteName, QStringList & spriteLog, int z)
        : TestSprite(layer, lowerRect, Qt::red, z)
        , name(spriteName)
        , log(spriteLog)
    {
    }

    QString name;
    QStringList & log;

    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override
    {
        log += QStringLiteral("draw ") + name;
        TestSprite::drawInBuffer(buffer, background);
    }
    void beforeLayerUpdate() override { log += QStringLiteral("before ") + name; }
    void afterLayerUpdate() override { log += QStringLiteral("after ") + name; }
};

} // namespace

void tst_SpriteSituations::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 240);
    m_host = new SpriteHost(m_window.get());
    m_host->setGeometry(24, 32, 240, 160);
    QVERIFY(showAndSettle(*m_window));
    m_empty = picture(*m_window);
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    m_lower = std::make_unique<TestSprite>(m_layer.get(), lowerRect, Qt::red, 1);
    m_upper = std::make_unique<TestSprite>(m_layer.get(), upperRect, Qt::blue, 2);
    m_layer->update();
    m_host->paints = 0;
}

void tst_SpriteSituations::cleanup()
{
    m_upper.reset();
    m_lower.reset();
    m_layer.reset();
    m_window.reset();
}

QImage tst_SpriteSituations::withoutUpper() const
{
    return filled(m_empty, *m_host, m_lower->geometry(), m_lower->color);
}

QImage tst_SpriteSituations::withAll() const
{
    return filled(withoutUpper(), *m_host, m_upper->geometry(), m_upper->color);
}

void tst_SpriteSituations::hideAll()
{
    m_lower->hide();
    if (m_upper)
        m_upper->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
}

void tst_SpriteSituations::update_order_isBeforeThenPicturesUpwardsThenAfter()
{
    QStringList log;
    KSpriteLayer layer(m_host);
    LoggedSprite top(&layer, QStringLiteral("top"), log, 5);
    LoggedSprite low(&layer, QStringLiteral("low"), log, -1);
    LoggedSprite middle(&layer, QStringLiteral("middle"), log, 3);
    layer.update();
    QCOMPARE(log.join(QStringLiteral(", ")),
             QStringLiteral("before top, before low, before middle, "
                            "draw low, draw middle, draw top, "
                            "after top, after low, after middle"));
}

void tst_SpriteSituations::beforeLayerUpdate_movesItsSprite_isCommittedAtOnce()
{
    struct Walker : TestSprite
    {
        using TestSprite::TestSprite;
        void beforeLayerUpdate() override { moveBy(QPoint(8, 0)); }
    };
    Walker walker(m_layer.get(), QRect(8, 100, 16, 16), Qt::green, 3);
    m_layer->update(); // from the null rectangle that is committed at first
    m_layer->update();
    QCOMPARE(walker.pos(), QPoint(16, 0));
    QCOMPARE(wrongPixels(picture(*m_window),
                         filled(withAll(), *m_host, QRect(16, 0, 16, 16), Qt::green)),
             0);
}

void tst_SpriteSituations::manyMoves_noPaintEventReachesAnyWidget()
{
    PaintCounter counter;
    qApp->installEventFilter(&counter);
    for (int i = 0; i < 40; ++i) {
        m_lower->moveBy(QPoint(3, 1));
        m_upper->moveBy(QPoint(-1, 2));
        m_layer->setSelection(QRect(i, i, 50, 40));
        m_layer->update();
        settle(*m_window);
    }
    QCOMPARE(counter.paints, 0);
}

// The layer is not told that some sprites were painted over: what it touches is seen by that.
void tst_SpriteSituations::oneOfManyHides_touchesItsPlaceAlone()
{
    std::vector<std::unique_ptr<TestSprite>> others;
    for (int i = 0; i < 100; ++i) {
        QRect const r(i % 20 * 12, 96 + i / 20 * 12, 10, 10);
        others.push_back(std::make_unique<TestSprite>(m_layer.get(), r, Qt::green));
    }
    m_layer->update();
    m_host->layer = nullptr;
    m_host->repaint();
    m_host->layer = m_layer.get();
    QImage const expected = filled(m_empty, *m_host, upperRect & lowerRect, Qt::red);
    m_upper->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
}

void tst_SpriteSituations::drawInBuffer_repaintsTheHost_leavesNothing()
{
    int calls = 0;
    m_upper->whileDrawing = [&] {
        if (++calls == 1)
            m_host->repaint();
    };
    m_upper->moveTo(QPoint(64, 30));
    m_upper->show();
    m_layer->update();
    QCOMPARE(calls, 1);
    QCOMPARE(m_host->paints, 1);
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    hideAll();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteSituations::drawInBuffer_grabsTheHost_leavesNothing()
{
    m_upper->whileDrawing = [&] { m_host->grab(); };
    m_upper->moveTo(QPoint(64, 30));
    m_upper->show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    hideAll();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpriteSituations::destroyedDuringAGrab_leavesTheScreenAfterwards()
{
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    QImage grabbed = m_host->grab().toImage().convertToFormat(QImage::Format_RGB32);
    grabbed.setDevicePixelRatio(1);
    m_host->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(grabbed, withoutUpper().copy(deviceRect(*m_host, m_host->rect()))), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), withoutUpper()), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteSituations::destroyedInThePaintEventOfARelative_leavesTheScreenAfterwards()
{
    auto * const other = new SpriteHost(m_window.get());
    other->setGeometry(0, 0, 24, 24);
    other->show();
    hideAll();
    settle(*m_window);
    m_empty = picture(*m_window);
    m_lower->show();
    m_upper->show();
    m_layer->update();
    QImage const all = withAll();
    other->inPaintEvent = [&] { m_upper.reset(); };
    other->repaint();
    other->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(picture(*m_window), all), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), withoutUpper()), 0);
}

// Its layer is still known, so the destructor ends in an update as for any other sprite.
void tst_SpriteSituations::destroyedAfterItsRemoval_updatesTheLayer()
{
    m_layer->removeSprite(m_upper.get());
    m_layer->update();
    m_lower->moveTo(QPoint(80, 80));
    m_upper.reset();
    QCOMPARE(wrongPixels(picture(*m_window), withoutUpper()), 0);
}

void tst_SpriteSituations::layerDestroyedInThePaintEvent_isSafe()
{
    m_upper->moveBy(QPoint(9, 9));
    m_host->inPaintEvent = [&] {
        m_host->layer = nullptr;
        m_layer.reset();
    };
    m_host->repaint();
    m_host->inPaintEvent = nullptr;
    QVERIFY(!m_upper->getLayer());
    m_upper.reset();
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpriteSituations::layerHiddenInThePaintEvent_leavesAfterwards()
{
    m_host->inPaintEvent = [&] { m_layer->hide(); };
    m_host->repaint();
    m_host->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteSituations::layerOfNoWidget_isQuiet()
{
    KSpriteLayer layer(nullptr);
    QCOMPARE(layer.getWidget(), nullptr);
    QCOMPARE(layer.size(), QSize());
    TestSprite sprite(&layer, QRect(1, 2, 3, 4));
    sprite.setEnsureVisible(true);
    sprite.moveTo(QPoint(7, 8));
    layer.setSelection(QRect(0, 0, 9, 9));
    layer.update();
    layer.clobberRect(QRect(0, 0, 9, 9));
    layer.hide();
    layer.update();
    QCOMPARE(sprite.geometry(), QRect(7, 8, 3, 4));
    QCOMPARE(sprite.afters, 2);
}

void tst_SpriteSituations::secondLayer_takesTheSpritesOfADeadOne()
{
    m_host->layer = nullptr;
    m_layer.reset();
    m_host->repaint();
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_layer->addSprite(m_lower.get());
    QCOMPARE(m_lower->getLayer(), m_layer.get());
    m_layer->update(); // it starts hidden there, too
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    m_lower->show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), withoutUpper()), 0);
    m_lower->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpriteSituations::secondLayer_removedBefore_neverShows()
{
    m_layer->removeSprite(m_upper.get());
    m_layer->update();
    m_host->layer = nullptr;
    m_layer.reset();
    KSpriteLayer second(m_host);
    second.addSprite(m_upper.get());
    m_upper->show();
    QVERIFY(!m_upper->aboutToShow());
    QVERIFY(m_upper->aboutToRemove());
    second.update();
}

// The band stays out of the rectangles of sprites, also where they are transparent.
void tst_SpriteSituations::band_underHoles_isNotSeen()
{
    m_upper->hide();
    m_lower->look = TestSprite::Look::Holes;
    m_lower->changeContents(lowerRect.size());
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(bandRect);
    m_layer->update();
    QRect const hole = deviceRect(*m_host, lowerRect.adjusted(6, 6, -6, -6));
    QCOMPARE(wrongPixels(picture(*m_window).copy(hole), m_empty.copy(hole)), 0);
    m_host->repaint();
    QCOMPARE(wrongPixels(picture(*m_window).copy(hole), m_empty.copy(hole)), 0);
}

void tst_SpriteSituations::band_widerThanAnInt_coversTheHost_data()
{
    QTest::addColumn<QRect>("band");
    QTest::newRow("all that an int can hold") << everywhere;
    constexpr int far = most / 4 * 3;
    QTest::newRow("wide enough to seem negative") << QRect(QPoint(-far, -far), QPoint(far, far));
}

void tst_SpriteSituations::band_widerThanAnInt_coversTheHost()
{
    QFETCH(QRect, band);
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(band);
    m_layer->update();
    QCOMPARE(m_layer->getSelection(), band);
    QImage expected = inverted(m_empty, {deviceRect(*m_host, m_host->rect())});
    expected = filled(expected, *m_host, lowerRect, Qt::red);
    QCOMPARE(wrongPixels(picture(*m_window), filled(expected, *m_host, upperRect, Qt::blue)), 0);
    m_lower->changeContents(lowerRect.size());
    m_layer->update();
    QRect const device = deviceRect(*m_host, lowerRect);
    QCOMPARE(wrongPixels(m_lower->below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    m_host->repaint();
    m_host->grab();
    hideAll();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

// The host has painted over a part of all, and says so later, outside of its paint event.
void tst_SpriteSituations::clobberRect_afterTheEvent_spriteAndBandComeBack()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(bandRect);
    m_layer->update();
    QRect const painted(32, 48, 80, 32);
    m_host->layer = nullptr;
    m_host->changePicture(painted, 5);
    m_host->repaint(painted);
    m_layer->clobberRect(painted);
    m_layer->update();
    QImage const shown = picture(*m_window);
    hideAll();
    m_empty = picture(*m_window);
    m_host->repaint();
    QCOMPARE(wrongPixels(m_empty, picture(*m_window)), 0);
    QImage expected = inverted(m_empty, {deviceRect(*m_host, bandRect)});
    expected = filled(expected, *m_host, lowerRect, Qt::red);
    QCOMPARE(wrongPixels(shown, filled(expected, *m_host, upperRect, Qt::blue)), 0);
}

void tst_SpriteSituations::clobberRect_widerThanAnInt_isCutByTheHost()
{
    m_host->inPaintEvent = [&] { m_layer->clobberRect(everywhere); };
    m_host->repaint(QRect(50, 50, 20, 5));
    m_host->grab();
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    hideAll();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    m_host->layer = nullptr;
    m_host->repaint();
    m_layer->clobberRect(everywhere); // told after the event
    m_host->layer = m_layer.get();
    m_lower->show();
    m_upper->show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
}

void tst_SpriteSituations::hostScrolls_layerOffMeanwhile_paintsTheStripAlone()
{
    constexpr int step = 16;
    auto * const host = new ScrollingHost(m_window.get());
    host->setGeometry(m_host->geometry());
    host->show();
    settle(*m_window);
    KSpriteLayer layer(host);
    host->layer = &layer;
    layer.setSelForeground(Qt::white);
    layer.setSelBackground(Qt::black);
    layer.setSelection(bandRect);
    TestSprite const sprite(&layer, QRect(100, 120, 40, 40));
    layer.update();
    for (int i = 0; i < 3; ++i) {
        layer.hide();
        layer.update();
        host->offset += step;
        host->scroll(0, -step);
        layer.show();
        layer.update();
        settle(*m_window);
        QVERIFY(host->painted.boundingRect().top() >= host->height() - step - 1);
    }
    QImage const shown = picture(*m_window);
    host->layer = nullptr;
    host->repaint();
    QImage expected = inverted(picture(*m_window), {deviceRect(*host, bandRect)});
    QCOMPARE(wrongPixels(shown, filled(expected, *host, QRect(100, 120, 40, 40), Qt::red)), 0);
}

// What lies over the host is painted after it, and must not get into a background.
void tst_SpriteSituations::seeThroughSibling_repainted_leavesNothing()
{
    Veil veil(m_window.get());
    veil.setGeometry(QRect(m_host->pos() + QPoint(48, 40), QSize(60, 20)));
    hideAll();
    veil.show();
    settle(*m_window);
    QImage bare = picture(*m_window);
    bare.setDevicePixelRatio(1);
    QRect const covered = deviceRect(*m_window, veil.geometry());
    m_lower->show();
    m_upper->show();
    m_layer->update();
    for (int i = 0; i < 4; ++i) {
        m_upper->moveBy(QPoint(-5, 2));
        m_layer->update();
        veil.repaint();
        settle(*m_window);
        QImage expected = filled(bare, *m_host, m_lower->geometry(), Qt::red);
        expected = filled(expected, *m_host, m_upper->geometry(), Qt::blue);
        QPainter(&expected).drawImage(covered.topLeft(), bare, covered);
        QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
    }
    veil.hide();
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), withAll()), 0);
    hideAll();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

// Only a display server has windows with alpha; elsewhere this tells little.
void tst_SpriteSituations::translucentWindow_restoresEveryBit()
{
    QWidget window;
    window.setAttribute(Qt::WA_TranslucentBackground);
    window.resize(160, 120);
    Veil host(&window);
    host.color = QColor(200, 40, 90, 120);
    host.setGeometry(16, 8, 128, 96);
    QVERIFY(showAndSettle(window));
    auto const stored = [&] {
        return static_cast<QImage *>(window.backingStore()->paintDevice())->copy();
    };
    QImage const before = stored();
    KSpriteLayer layer(&host);
    layer.setSelForeground(Qt::white);
    layer.setSelBackground(Qt::black);
    layer.setSelection(QRect(20, 20, 60, 50));
    TestSprite opaque(&layer, QRect(8, 8, 32, 32), Qt::red, 1);
    TestSprite seeThrough(&layer, QRect(24, 24, 32, 32), Qt::blue, 2);
    seeThrough.look = TestSprite::Look::SeeThrough;
    for (int i = 0; i < 5; ++i) {
        layer.update();
        QVERIFY(stored() != before);
        opaque.moveBy(QPoint(7, 3));
        seeThrough.moveBy(QPoint(2, 5));
    }
    opaque.hide();
    seeThrough.hide();
    layer.setSelection(QRect());
    layer.update();
    QVERIFY(stored() == before);
}

ZENU_TEST(tst_SpriteSituations)
#include "tst_SpriteSituations.moc"
