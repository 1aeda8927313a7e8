#include "tests/sprites/SpriteScene.h"

#include <zenu/overlay/KCaret.h>

#include <algorithm>

using namespace zenu;
using namespace zenutest;

// Sprites, layers and hosts that die before each other, also in the middle of a paint event.
class tst_SpriteDeletion : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void spriteDestroyed_leavesTheScreenAtOnce();
    void layerDestroyedFirst_spritesLiveOn();
    void hostDestroyedFirst_nothingHappens();
    void hostDestroyed_withSpriteAsItsChild_isSafe();
    void anyOrder_leavesWhatItMust_data();
    void anyOrder_leavesWhatItMust();

    void destroyedInThePaintEvent_leavesRightAfter();
    void destroyedInThePaintEvent_paintedUnder_restoresTheNewPicture();
    void destroyedDuringAGrab_leavesTheScreenAfterwards();
    void destroyedInThePaintEventOfARelative_leavesTheScreenAfterwards();
    void destroyedAfterItsRemoval_updatesTheLayer();
    void layerDestroyedInThePaintEvent_isSafe();
    void layerDestroyedAfterThePaintEvent_dropsThePostedUpdate();

    void secondLayer_takesTheSpritesOfADeadOne();
    void secondLayer_removedBefore_neverShows();
};

void tst_SpriteDeletion::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_SpriteDeletion::spriteDestroyed_leavesTheScreenAtOnce()
{
    TestSprite below(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue);
    {
        TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
        m_layer->update();
    }
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, below.geometry(), Qt::blue)), 0);
}

void tst_SpriteDeletion::layerDestroyedFirst_spritesLiveOn()
{
    auto removed = std::make_unique<TestSprite>(m_layer.get(), QRect(0, 0, 9, 9));
    auto sprite = std::make_unique<TestSprite>(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_layer->removeSprite(removed.get());
    m_layer->update();
    QImage const shown = seen();
    m_host->layer = nullptr;
    m_layer.reset();
    QVERIFY(!sprite->getLayer());
    QVERIFY(!removed->getLayer());
    sprite->moveTo(QPoint(1, 1));
    sprite->setEnsureVisible(true);
    sprite->moveTo(QPoint(2, 2));
    sprite.reset();
    removed.reset();
    QCOMPARE(wrongPixels(seen(), shown), 0);
}

void tst_SpriteDeletion::hostDestroyedFirst_nothingHappens()
{
    auto sprite = std::make_unique<TestSprite>(m_layer.get(), QRect(40, 40, 32, 32));
    sprite->setEnsureVisible(true);
    m_layer->setSelection(QRect(0, 0, 9, 9));
    m_layer->update();
    delete m_host;
    QCOMPARE(m_layer->getWidget(), nullptr);
    QCOMPARE(m_layer->size(), QSize());
    sprite->moveTo(QPoint(5, 5));
    sprite->changeContents(QSize(7, 7));
    m_layer->setSelection(QRect(0, 0, 5, 5));
    m_layer->clobberRect(QRect(0, 0, 100, 100));
    m_layer->update();
    QCOMPARE(m_layer->getSelection(), QRect(0, 0, 5, 5));
    sprite.reset();
    m_layer->update();
}

// A caret is a QObject, and dies with the children of its widget.
void tst_SpriteDeletion::hostDestroyed_withSpriteAsItsChild_isSafe()
{
    struct Owned : QObject, TestSprite
    {
        Owned(QObject * parent, KSpriteLayer * layer)
            : QObject(parent)
            , TestSprite(layer, QRect(40, 40, 32, 32))
        {
        }
    };
    new Owned(m_host, m_layer.get());
    new Owned(m_window.get(), m_layer.get());
    m_layer->update();
    m_host->layer = nullptr;
    delete m_host;
    m_window.reset();
    m_layer->update();
}

void tst_SpriteDeletion::anyOrder_leavesWhatItMust_data()
{
    QTest::addColumn<QStringList>("order");
    QStringList order{QStringLiteral("host"), QStringLiteral("layer"), QStringLiteral("sprites")};
    do {
        QTest::newRow(qPrintable(order.join(QLatin1Char(' ')))) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

// A sprite takes itself off the screen as long as it has a layer, a layer leaves all as it is.
void tst_SpriteDeletion::anyOrder_leavesWhatItMust()
{
    QFETCH(QStringList, order);
    addSpritesAndBand();
    auto caret = std::make_unique<KCaret>(nullptr, m_layer.get(), QSize(4, 20), 1);
    caret->moveTo(QPoint(200, 100));
    caret->showCaret();
    m_layer->update();
    for (QString const & dying : order) {
        QImage expected = seen();
        if (dying == QLatin1String("host")) {
            delete m_host;
            m_host = nullptr;
        } else if (dying == QLatin1String("layer")) {
            if (m_host)
                m_host->layer = nullptr;
            m_layer.reset();
        } else {
            if (m_host && m_layer)
                expected = withBand(bandRect);
            caret.reset();
            m_lower.reset();
            m_upper.reset();
        }
        if (m_host || dying != QLatin1String("host"))
            QCOMPARE(wrongPixels(seen(), expected), 0);
        QTest::qWait(5); // the caret ticks
        settle(*m_window);
    }
}

void tst_SpriteDeletion::destroyedInThePaintEvent_leavesRightAfter()
{
    addSpritesAndBand();
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    m_host->repaint(QRect(50, 50, 12, 12));
    m_host->inPaintEvent = nullptr;
    settle(*m_window);
    QImage const expected = withBand(bandRect);
    QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, lowerRect, Qt::red)), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteDeletion::destroyedInThePaintEvent_paintedUnder_restoresTheNewPicture()
{
    addSpritesAndBand();
    QRect const r(56, 48, 16, 16);
    m_host->changePicture(r, 4);
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    m_host->repaint(r);
    m_host->inPaintEvent = nullptr;
    m_lower->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QImage const bare = seen();
    m_host->layer = nullptr;
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, seen()), 0);
    m_host->layer = m_layer.get();
}

void tst_SpriteDeletion::destroyedDuringAGrab_leavesTheScreenAfterwards()
{
    addSprites();
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    QImage const image = grabbed();
    m_host->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(image, ofHost(withLower())), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withLower()), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpriteDeletion::destroyedInThePaintEventOfARelative_leavesTheScreenAfterwards()
{
    addSprites();
    auto * const other = new SpriteHost(m_window.get());
    other->setGeometry(0, 0, 24, 24);
    other->show();
    hideAll();
    settle(*m_window);
    m_empty = seen();
    m_lower->show();
    m_upper->show();
    m_layer->update();
    QImage const all = withSprites();
    other->inPaintEvent = [&] { m_upper.reset(); };
    other->repaint();
    other->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(seen(), all), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withLower()), 0);
}

// Its layer is still known, so the destructor ends in an update as for any other sprite.
void tst_SpriteDeletion::destroyedAfterItsRemoval_updatesTheLayer()
{
    addSprites();
    m_layer->removeSprite(m_upper.get());
    m_layer->update();
    m_lower->moveTo(QPoint(80, 80));
    m_upper.reset();
    QCOMPARE(wrongPixels(seen(), withLower()), 0);
}

void tst_SpriteDeletion::layerDestroyedInThePaintEvent_isSafe()
{
    addSprites();
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
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SpriteDeletion::layerDestroyedAfterThePaintEvent_dropsThePostedUpdate()
{
    addSpritesAndBand();
    m_upper->moveBy(QPoint(50, 50));
    m_host->repaint();
    m_host->layer = nullptr;
    m_layer.reset();
    settle(*m_window);
    QVERIFY(!m_upper->getLayer());
}

void tst_SpriteDeletion::secondLayer_takesTheSpritesOfADeadOne()
{
    addSprites();
    m_host->layer = nullptr;
    m_layer.reset();
    m_host->repaint();
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_layer->addSprite(m_lower.get());
    QCOMPARE(m_lower->getLayer(), m_layer.get());
    m_layer->update(); // it starts hidden there, too
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_lower->show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withLower()), 0);
    m_lower->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SpriteDeletion::secondLayer_removedBefore_neverShows()
{
    addSprites();
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

ZENU_TEST(tst_SpriteDeletion)
#include "tst_SpriteDeletion.moc"
