#include "tests/sprites/SpriteScene.h"

using namespace zenu;
using namespace zenutest;

// When a layer calls its sprites, in which order, and what they see as their background.
class tst_SpriteDrawing : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void update_notifiesOnceForEachCommit();
    void update_fromWithinAnUpdate_runsAfterwards();
    void update_order_isBeforeThenPicturesUpwardsThenAfter();
    void beforeLayerUpdate_movesItsSprite_isCommittedAtOnce();

    void drawInBuffer_getsTheWidgetsOwnPixels();
    void drawInBuffer_shownAgainWithoutAMove_getsTheOtherBuffer();
    void drawInBuffer_runsForDirtyContentsOnly();
    void drawInBuffer_repaintsTheHost_leavesNothing();
    void drawInBuffer_grabsTheHost_leavesNothing();
};

namespace {

// Writes down what the layer calls.
class LoggedSprite : public TestSprite
{
public:
    LoggedSprite(KSpriteLayer * layer, QString const & spriteName, QStringList & spriteLog, int z)
        : TestSprite(layer, QRect(40, 40, 32, 32), Qt::red, z)
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

void tst_SpriteDrawing::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_SpriteDrawing::update_notifiesOnceForEachCommit()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    QCOMPARE(sprite.befores, 0);
    m_layer->update();
    m_layer->update();
    QCOMPARE(sprite.befores, 2);
    QCOMPARE(sprite.afters, 2);
    m_host->repaint();
    QCOMPARE(sprite.befores, 2);
    QCOMPARE(sprite.afters, 2);
    sprite.moveTo(QPoint(1, 1));
    m_host->repaint();
    QCOMPARE(sprite.befores, 2);
    settle(*m_window);
    QCOMPARE(sprite.befores, 3);
    QCOMPARE(sprite.afters, 3);
}

void tst_SpriteDrawing::update_fromWithinAnUpdate_runsAfterwards()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    int calls = 0;
    sprite.whileDrawing = [&] {
        if (++calls == 1)
            m_layer->update();
    };
    m_layer->update();
    QCOMPARE(calls, 1);
    QCOMPARE(sprite.afters, 1);
    settle(*m_window);
    QCOMPARE(sprite.afters, 2);
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), 0);
}

void tst_SpriteDrawing::update_order_isBeforeThenPicturesUpwardsThenAfter()
{
    addSprites();
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

void tst_SpriteDrawing::beforeLayerUpdate_movesItsSprite_isCommittedAtOnce()
{
    addSprites();
    struct Walker : TestSprite
    {
        using TestSprite::TestSprite;
        void beforeLayerUpdate() override { moveBy(QPoint(8, 0)); }
    };
    Walker walker(m_layer.get(), QRect(8, 100, 16, 16), Qt::green, 3);
    m_layer->update(); // from the null rectangle that is committed at first
    m_layer->update();
    QCOMPARE(walker.pos(), QPoint(16, 0));
    QCOMPARE(wrongPixels(seen(), filled(withSprites(), *m_host, QRect(16, 0, 16, 16), Qt::green)),
             0);
}

void tst_SpriteDrawing::drawInBuffer_getsTheWidgetsOwnPixels()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(50, 30, 60, 60));
    TestSprite other(m_layer.get(), QRect(48, 48, 40, 40), Qt::green, 2);
    m_layer->update();
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    m_layer->update();
    QRect const device = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    sprite.changeContents(QSize(40, 40));
    sprite.moveTo(QPoint(44, 36));
    m_layer->update();
    QRect const moved = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), moved.size())), m_empty.copy(moved)), 0);
}

// A sprite that blends with its background must move or change its contents.
void tst_SpriteDrawing::drawInBuffer_shownAgainWithoutAMove_getsTheOtherBuffer()
{
    QRect const second(96, 64, 32, 32);
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    for (QPoint const place : {second.topLeft(), QPoint(144, 16)}) {
        sprite.moveTo(place);
        m_layer->update();
    }
    sprite.show();
    m_layer->update();
    QRect const device = deviceRect(*m_host, second);
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
}

void tst_SpriteDrawing::drawInBuffer_runsForDirtyContentsOnly()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    m_layer->update();
    sprite.moveTo(QPoint(1, 2));
    m_layer->update();
    sprite.setPriority(7);
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    sprite.color = Qt::blue;
    sprite.changeContents(QSize(20, 20));
    m_layer->update();
    QCOMPARE(sprite.draws, 2);
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, QRect(1, 2, 20, 20), Qt::blue)), 0);
    sprite.hide();
    sprite.changeContents(QSize(20, 20));
    m_layer->update();
    QCOMPARE(sprite.draws, 2);
    sprite.show();
    m_layer->update();
    QCOMPARE(sprite.draws, 3);
}

void tst_SpriteDrawing::drawInBuffer_repaintsTheHost_leavesNothing()
{
    addSprites();
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
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteDrawing::drawInBuffer_grabsTheHost_leavesNothing()
{
    addSprites();
    m_upper->whileDrawing = [&] { m_host->grab(); };
    m_upper->moveTo(QPoint(64, 30));
    m_upper->show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

ZENU_TEST(tst_SpriteDrawing)
#include "tst_SpriteDrawing.moc"
