#include "tests/sprites/SpriteScene.h"

#include <array>

using namespace zenu;
using namespace zenutest;

// What the application destroys and makes while an update calls it.
class tst_SpriteCallbacks : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void destroyed_inACallback_isSafeAndTheRestIsRight_data();
    void destroyed_inACallback_isSafeAndTheRestIsRight();
    void destroyed_whenTheHostFirstPaints_isSafeAndTheRestIsRight_data();
    void destroyed_whenTheHostFirstPaints_isSafeAndTheRestIsRight();
    void destroyed_inAnothersCallback_everyOtherIsToldOnce();
    void added_inACallback_isCommittedByTheNextUpdate_data();
    void added_inACallback_isCommittedByTheNextUpdate();

private:
    static void addVictims();
    void act(QString const & victim);
    QImage withSprites() const;

    // Tells the test once, in the callback of that name.
    class Acting : public TestSprite
    {
    public:
        using TestSprite::TestSprite;
        void actIn(QString const & callback, std::function<void()> act)
        {
            m_callback = callback;
            m_act = std::move(act);
        }
        void beforeLayerUpdate() override
        {
            TestSprite::beforeLayerUpdate();
            called("before");
        }
        void drawInBuffer(QPixmap * buffer, QPixmap const * background) override
        {
            TestSprite::drawInBuffer(buffer, background);
            called("draw");
        }
        void afterLayerUpdate() override
        {
            TestSprite::afterLayerUpdate();
            called("after");
        }

    private:
        // Nothing of the sprite is touched once it has acted.
        void called(char const * callback)
        {
            if (m_callback == QLatin1String(callback) && m_act)
                std::exchange(m_act, nullptr)();
        }

        QString m_callback;
        std::function<void()> m_act;
    };

    std::array<std::unique_ptr<Acting>, 3> m_sprites; // from the bottom to the top
};

void tst_SpriteCallbacks::init()
{
    Test::init();
    QVERIFY(openScene());
    int x = 8;
    for (auto & sprite : m_sprites) {
        sprite = std::make_unique<Acting>(m_layer.get(), QRect(x, 24, 40, 40),
                                          QColor::fromHsv(x, 255, 255), x);
        x += 24;
    }
}

void tst_SpriteCallbacks::cleanup()
{
    for (auto & sprite : m_sprites)
        sprite.reset();
    closeScene();
}

void tst_SpriteCallbacks::addVictims()
{
    QTest::addColumn<QString>("callback");
    QTest::addColumn<QString>("victim");
    for (char const * callback : {"before", "draw", "after"}) {
        for (char const * victim :
             {"itself", "the lower", "the upper", "all sprites", "layer", "layer and all", "host"})
            QTest::addRow("%s: %s", callback, victim)
                << QString::fromLatin1(callback) << QString::fromLatin1(victim);
    }
}

void tst_SpriteCallbacks::act(QString const & victim)
{
    if (victim.startsWith(QLatin1String("layer"))) {
        m_host->layer = nullptr;
        m_layer.reset();
    }
    if (victim == QLatin1String("host")) {
        delete m_host;
        m_host = nullptr;
    }
    bool const all =
        victim.endsWith(QLatin1String("all")) || victim == QLatin1String("all sprites");
    if (all || victim == QLatin1String("the lower"))
        m_sprites[0].reset();
    if (all || victim == QLatin1String("the upper"))
        m_sprites[2].reset();
    if (all || victim == QLatin1String("itself"))
        m_sprites[1].reset();
}

QImage tst_SpriteCallbacks::withSprites() const
{
    QImage image = m_empty;
    for (auto const & sprite : m_sprites) {
        if (sprite)
            image = filled(image, *m_host, sprite->geometry(), sprite->color);
    }
    return image;
}

void tst_SpriteCallbacks::destroyed_inACallback_isSafeAndTheRestIsRight_data()
{
    addVictims();
}

void tst_SpriteCallbacks::destroyed_inACallback_isSafeAndTheRestIsRight()
{
    QFETCH(QString, callback);
    QFETCH(QString, victim);
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    for (auto & sprite : m_sprites) {
        sprite->moveBy(QPoint(5, 3));
        sprite->show();
    }
    m_sprites[1]->actIn(callback, [&] { act(victim); });
    m_layer->update();
    settle(*m_window);
    for (auto const & sprite : m_sprites)
        QVERIFY(!sprite || sprite->getLayer() == m_layer.get());
    if (m_layer && m_host)
        QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    if (m_layer)
        m_layer->update();
}

void tst_SpriteCallbacks::destroyed_whenTheHostFirstPaints_isSafeAndTheRestIsRight_data()
{
    QTest::addColumn<QString>("victim");
    for (char const * victim : {"itself", "the lower", "the upper", "all sprites", "layer"})
        QTest::newRow(victim) << QString::fromLatin1(victim);
}

// Committed while hidden, the sprites draw themselves once more when the host comes.
void tst_SpriteCallbacks::destroyed_whenTheHostFirstPaints_isSafeAndTheRestIsRight()
{
    QFETCH(QString, victim);
    m_host->hide();
    settle(*m_window);
    m_layer->update();
    int const draws = m_sprites[1]->draws;
    m_sprites[1]->actIn(QStringLiteral("draw"), [&] { act(victim); });
    m_host->show();
    settle(*m_window);
    QVERIFY(!m_sprites[1] || m_sprites[1]->draws > draws);
    if (m_layer)
        QCOMPARE(wrongPixels(seen(), withSprites()), 0);
}

void tst_SpriteCallbacks::destroyed_inAnothersCallback_everyOtherIsToldOnce()
{
    m_layer->update();
    std::array<int, 3> befores{};
    std::array<int, 3> afters{};
    for (size_t i = 0; i < 3; ++i) {
        befores[i] = m_sprites[i]->befores;
        afters[i] = m_sprites[i]->afters;
    }
    m_sprites[1]->actIn(QStringLiteral("before"), [&] { act(QStringLiteral("the lower")); });
    m_layer->update();
    settle(*m_window); // with the update that the destruction asked for
    for (size_t i : {1, 2}) {
        QCOMPARE(m_sprites[i]->befores, befores[i] + 2);
        QCOMPARE(m_sprites[i]->afters, afters[i] + 2);
    }
}

void tst_SpriteCallbacks::added_inACallback_isCommittedByTheNextUpdate_data()
{
    QTest::addColumn<QString>("callback");
    for (char const * callback : {"before", "draw", "after"})
        QTest::newRow(callback) << QString::fromLatin1(callback);
}

void tst_SpriteCallbacks::added_inACallback_isCommittedByTheNextUpdate()
{
    QFETCH(QString, callback);
    m_layer->update();
    m_sprites[1]->show();
    m_sprites[1]->actIn(callback, [&] {
        m_lower = std::make_unique<TestSprite>(m_layer.get(), QRect(20, 20, 32, 32), Qt::black, -1);
    });
    m_layer->update();
    m_layer->update();
    QImage expected = filled(m_empty, *m_host, m_lower->geometry(), m_lower->color);
    for (auto const & sprite : m_sprites)
        expected = filled(expected, *m_host, sprite->geometry(), sprite->color);
    QCOMPARE(wrongPixels(seen(), expected), 0);
    QCOMPARE(m_lower->draws, 1);
}

ZENU_TEST(tst_SpriteCallbacks)
#include "tst_SpriteCallbacks.moc"
