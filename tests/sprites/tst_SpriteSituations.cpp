#include "tests/sprites/SpriteScene.h"

#include <QtWidgets/QGraphicsOpacityEffect>

using namespace zenu;
using namespace zenutest;

// Sprites where the host has no surface of its own, scrolls itself or lies below something.
class tst_SpriteSituations : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void graphicsEffect_spritesAreShownByRepainting();
    void layerOfNoWidget_isQuiet();
    void hostScrolls_layerOffMeanwhile_paintsTheStripAlone();
    void seeThroughSibling_repainted_leavesNothing();
    void translucentWindow_restoresEveryBit();
};

namespace {

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

} // namespace

void tst_SpriteSituations::init()
{
    Test::init();
    QVERIFY(openScene());
}

// There is no surface under an effect: the host paints, and the sprites with it.
void tst_SpriteSituations::graphicsEffect_spritesAreShownByRepainting()
{
    addSpritesAndBand();
    auto * const effect = new QGraphicsOpacityEffect;
    effect->setOpacity(0.999);
    m_host->setGraphicsEffect(effect);
    settle(*m_window);
    m_upper->moveTo(QPoint(120, 8));
    m_layer->update();
    settle(*m_window);
    QPoint const there = deviceRect(*m_host, m_upper->geometry()).center();
    QColor const color = seen().pixelColor(there);
    QVERIFY(color.blue() > 200 && color.red() < 50 && color.green() < 50);
}

void tst_SpriteSituations::layerOfNoWidget_isQuiet()
{
    addSprites();
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

void tst_SpriteSituations::hostScrolls_layerOffMeanwhile_paintsTheStripAlone()
{
    addSprites();
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
        if (movesPixels())
            QVERIFY(host->painted.boundingRect().top() >= host->height() - step - 1);
    }
    QImage const shown = seen();
    host->layer = nullptr;
    host->repaint();
    QImage expected = inverted(seen(), {deviceRect(*host, bandRect)});
    QCOMPARE(wrongPixels(shown, filled(expected, *host, QRect(100, 120, 40, 40), Qt::red)), 0);
}

// What lies over the host is painted after it, and must not get into a background.
void tst_SpriteSituations::seeThroughSibling_repainted_leavesNothing()
{
    addSprites();
    Veil veil(m_window.get());
    veil.setGeometry(QRect(m_host->pos() + QPoint(48, 40), QSize(60, 20)));
    hideAll();
    veil.show();
    settle(*m_window);
    QImage bare = seen();
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
        QCOMPARE(wrongPixels(seen(), expected), 0);
    }
    veil.hide();
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

// Only a display server has windows with alpha; elsewhere this tells little.
void tst_SpriteSituations::translucentWindow_restoresEveryBit()
{
    addSprites();
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
