#include "tests/sprites/SpriteHost.h"
#include "tests/support/TestMain.h"

#include <zenu/overlay/sprites/RectIndex.h>
#include <zenu/overlay/sprites/RegionUnion.h>
#include <zenu/overlay/sprites/SpriteBuffer.h>
#include <zenu/overlay/sprites/SpriteContents.h>

#include <random>

using namespace zenu;
using namespace zenutest;

// States, buffers and the search, without looking at the screen.
class tst_KSprite : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void newSprite_isHiddenAndWithoutSize();
    void detached_takesItsTargetState();
    void addSprite_twice_isIgnored();
    void removeSprite_ofAnotherLayer_isIgnored();
    void moveBy_twice_movesOnceFromTheCommittedPlace();
    void hide_ofShown_isAboutToHide();
    void nullAndNegativeSizes_drawNothing();
    void farAwayPlaces_saturate();
    void ensureVisible_rightAndBottomEdgesAlone();
    void ensureVisible_off_storesAnything();
    void selection_isSeenAfterTheUpdate();
    void selBackground_equalToTheTargetForeground_isNotStored();
    void selForeground_equal_isIgnored();
    void update_neverShownHost_commits();

    void bufferSize_hysteresis_data();
    void bufferSize_hysteresis();
    void buffers_shrinkAndGrowAsTheSpriteDoes();
    void extendEdges_repeatsWhatTheSizeRoundsAway();
    void rectIndex_findsWhatLookingAtAllFinds_data();
    void rectIndex_findsWhatLookingAtAllFinds();
    void unionOf_isTheSumInAnyOrder();
};

void tst_KSprite::newSprite_isHiddenAndWithoutSize()
{
    QWidget host;
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer);
    QCOMPARE(sprite.getLayer(), &layer);
    QCOMPARE(sprite.geometry(), QRect());
    QCOMPARE(sprite.priority(), 0);
    QVERIFY(!sprite.isEnsureVisible());
    QVERIFY(!sprite.aboutToShow());
    QVERIFY(!sprite.aboutToHide());
    QVERIFY(!sprite.aboutToRemove());
    QCOMPARE(layer.getWidget(), &host);
    QCOMPARE(layer.size(), host.size());
}

void tst_KSprite::detached_takesItsTargetState()
{
    TestSprite sprite(nullptr);
    sprite.setEnsureVisible(true);
    sprite.changeContents(QSize(10, 20));
    sprite.moveTo(QPoint(99999, 3));
    QCOMPARE(sprite.geometry(), QRect(99999, 3, 10, 20));
    QVERIFY(!sprite.getLayer());
    sprite.show();
    QVERIFY(sprite.aboutToShow());
    QWidget host;
    KSpriteLayer layer(&host);
    layer.addSprite(&sprite); // starts hidden
    QVERIFY(!sprite.aboutToShow());
    QCOMPARE(sprite.size(), QSize(10, 20));
}

void tst_KSprite::addSprite_twice_isIgnored()
{
    QWidget host;
    KSpriteLayer layer(&host);
    KSpriteLayer other(&host);
    TestSprite sprite(&layer, QRect(0, 0, 5, 5));
    layer.addSprite(&sprite);
    other.addSprite(&sprite);
    layer.addSprite(nullptr);
    layer.removeSprite(nullptr);
    QVERIFY(sprite.aboutToShow());
    QCOMPARE(sprite.getLayer(), &layer);
    layer.update();
    other.update();
    QCOMPARE(sprite.befores, 1);
}

void tst_KSprite::removeSprite_ofAnotherLayer_isIgnored()
{
    QWidget host;
    KSpriteLayer layer(&host);
    KSpriteLayer other(&host);
    TestSprite sprite(&layer, QRect(0, 0, 5, 5));
    other.removeSprite(&sprite);
    QVERIFY(!sprite.aboutToRemove());
    QVERIFY(sprite.aboutToShow());
}

void tst_KSprite::moveBy_twice_movesOnceFromTheCommittedPlace()
{
    QWidget host;
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer, QRect(10, 10, 5, 5));
    layer.update();
    sprite.moveBy(QPoint(3, 4));
    sprite.moveBy(QPoint(3, 4));
    QCOMPARE(sprite.pos(), QPoint(13, 14));
    layer.update();
    sprite.moveBy(QPoint(3, 4));
    QCOMPARE(sprite.pos(), QPoint(16, 18));
}

void tst_KSprite::hide_ofShown_isAboutToHide()
{
    QWidget host;
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer, QRect(10, 10, 5, 5));
    layer.update();
    sprite.hide();
    QVERIFY(sprite.aboutToHide());
    layer.update();
    QVERIFY(!sprite.aboutToHide());
    QVERIFY(!sprite.aboutToShow());
}

void tst_KSprite::nullAndNegativeSizes_drawNothing()
{
    SpriteHost host;
    KSpriteLayer layer(&host);
    QVERIFY(showAndSettle(host));
    TestSprite sprite(&layer);
    sprite.show();
    layer.update();
    sprite.changeContents(QSize(-5, 20));
    layer.setSelection(QRect(5, 5, -3, 10));
    layer.update();
    host.repaint();
    QCOMPARE(sprite.draws, 0);
    sprite.changeContents(QSize(4, 4));
    layer.update();
    QCOMPARE(sprite.draws, 1);
}

void tst_KSprite::farAwayPlaces_saturate()
{
    SpriteHost host;
    KSpriteLayer layer(&host);
    QVERIFY(showAndSettle(host));
    constexpr int most = std::numeric_limits<int>::max();
    TestSprite sprite(&layer, QRect(10, 10, 5, 5));
    layer.update();
    for (QPoint const p : {QPoint(most, most), QPoint(-most, -most)}) {
        sprite.moveTo(p);
        layer.update();
        sprite.moveBy(p);
        layer.update();
        QVERIFY(sprite.geometry().isValid());
    }
    layer.setSelection(QRect(QPoint(-most / 2, 0), QPoint(most / 2, 5)));
    layer.setSelForeground(Qt::white);
    layer.update();
    QCOMPARE(sprite.size(), QSize(5, 5));
}

void tst_KSprite::ensureVisible_rightAndBottomEdgesAlone()
{
    QWidget host;
    host.setGeometry(30, 20, 100, 100);
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer, QRect(0, 0, 40, 30));
    sprite.setEnsureVisible(true);
    QRect const desktop = host.screen()->virtualGeometry();
    QPoint const last = host.mapFromGlobal(desktop.bottomRight()) - QPoint(39, 29);
    sprite.moveTo(last);
    QCOMPARE(sprite.pos(), last);
    sprite.moveTo(last + QPoint(1, 0));
    QCOMPARE(sprite.pos(), last);
    sprite.moveTo(last + QPoint(17, 23));
    QCOMPARE(sprite.pos(), last);
    sprite.changeContents(QSize(50, 35)); // pushed by the new overhang
    QCOMPARE(sprite.pos(), last - QPoint(10, 5));
    sprite.moveTo(QPoint(-5000, -4000));
    QCOMPARE(sprite.pos(), QPoint(-5000, -4000));
}

void tst_KSprite::ensureVisible_off_storesAnything()
{
    QWidget host;
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer, QRect(0, 0, 40, 30));
    sprite.moveTo(QPoint(50000, 50000));
    QCOMPARE(sprite.pos(), QPoint(50000, 50000));
    sprite.setEnsureVisible(true); // from the next change on
    QVERIFY(sprite.isEnsureVisible());
    QCOMPARE(sprite.pos(), QPoint(50000, 50000));
}

void tst_KSprite::selection_isSeenAfterTheUpdate()
{
    QWidget host;
    KSpriteLayer layer(&host);
    layer.setSelection(QRect(1, 2, 3, 4));
    layer.setSelForeground(Qt::red);
    layer.setSelBackground(Qt::green);
    QCOMPARE(layer.getSelection(), QRect());
    QVERIFY(!layer.getSelForeground().isValid());
    QVERIFY(!layer.getSelBackground().isValid());
    layer.update();
    QCOMPARE(layer.getSelection(), QRect(1, 2, 3, 4));
    QCOMPARE(layer.getSelForeground(), QColor(Qt::red));
    QCOMPARE(layer.getSelBackground(), QColor(Qt::green));
}

void tst_KSprite::selBackground_equalToTheTargetForeground_isNotStored()
{
    QWidget host;
    KSpriteLayer layer(&host);
    layer.setSelForeground(Qt::red);
    layer.setSelBackground(Qt::blue);
    layer.setSelForeground(Qt::green);
    layer.setSelBackground(Qt::green);
    layer.update();
    QCOMPARE(layer.getSelBackground(), QColor(Qt::blue));
    layer.setSelBackground(Qt::red); // the old foreground counts no more
    layer.update();
    QCOMPARE(layer.getSelBackground(), QColor(Qt::red));
}

// An unset colour has the rgb of black.
void tst_KSprite::selForeground_equal_isIgnored()
{
    QWidget host;
    KSpriteLayer layer(&host);
    layer.setSelForeground(Qt::black);
    layer.update();
    QVERIFY(!layer.getSelForeground().isValid());
}

void tst_KSprite::update_neverShownHost_commits()
{
    QWidget host;
    KSpriteLayer layer(&host);
    TestSprite sprite(&layer, QRect(1, 1, 5, 5));
    layer.update();
    QVERIFY(!sprite.aboutToShow());
    QCOMPARE(sprite.draws, 1);
    QCOMPARE(sprite.befores, 1);
    QCOMPARE(sprite.afters, 1);
}

void tst_KSprite::bufferSize_hysteresis_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("taken");
    QTest::newRow("fresh") << 10 << 0 << 10;
    QTest::newRow("larger") << 101 << 100 << 101;
    QTest::newRow("smaller") << 60 << 100 << 100;
    QTest::newRow("half") << 50 << 100 << 100;
    QTest::newRow("below half") << 49 << 100 << 49;
    QTest::newRow("half of an odd size") << 50 << 101 << 101;
    QTest::newRow("below half of an odd size") << 49 << 101 << 49;
    QTest::newRow("nothing") << 0 << 100 << 0;
    QTest::newRow("one from one") << 0 << 1 << 1;
    QTest::newRow("negative") << -7 << 100 << 0;
}

void tst_KSprite::bufferSize_hysteresis()
{
    QFETCH(int, wanted);
    QFETCH(int, current);
    QFETCH(int, taken);
    QCOMPARE(bufferSizeFor(QSize(wanted, 30), QSize(current, 30)), QSize(taken, 30));
    QCOMPARE(bufferSizeFor(QSize(30, wanted), QSize(30, current)), QSize(30, taken));
}

void tst_KSprite::buffers_shrinkAndGrowAsTheSpriteDoes()
{
    SpriteHost host;
    host.resize(200, 160);
    KSpriteLayer layer(&host);
    QVERIFY(showAndSettle(host));
    TestSprite sprite(&layer, QRect(0, 0, 100, 40));
    struct
    {
        QSize size, buffer;
    } const steps[] = {{{100, 40}, {100, 40}},
                       {{60, 40}, {100, 40}},
                       {{49, 39}, {49, 40}},
                       {{49, 19}, {49, 19}},
                       {{50, 38}, {50, 38}}};
    for (auto const & step : steps) {
        sprite.changeContents(step.size);
        layer.update();
        QCOMPARE(sprite.bufferSize, deviceSizeOf(step.buffer, ratioOf(host)));
    }
}

void tst_KSprite::extendEdges_repeatsWhatTheSizeRoundsAway()
{
    QImage image(45, 45, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(0, 0, 41, 41, Qt::red); // 33 * 1.25 is 41.25
    extendEdges(image, QSize(33, 33), 1.25);
    QCOMPARE(image.pixelColor(41, 7), QColor(Qt::red));
    QCOMPARE(image.pixelColor(7, 41), QColor(Qt::red));
    QCOMPARE(image.pixelColor(41, 41), QColor(Qt::red));
    QCOMPARE(image.pixelColor(42, 7).alpha(), 0);
    extendEdges(image, QSize(32, 32), 1.25); // nothing to extend
    QCOMPARE(image.pixelColor(42, 7).alpha(), 0);
}

void tst_KSprite::rectIndex_findsWhatLookingAtAllFinds_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("range");
    QTest::newRow("small ones") << 30 << 1000;
    QTest::newRow("some cover many cells") << 700 << 1000;
    QTest::newRow("wide apart") << 100 << 2000000;
}

void tst_KSprite::rectIndex_findsWhatLookingAtAllFinds()
{
    QFETCH(int, width);
    QFETCH(int, range);
    std::mt19937 random(7);
    auto const below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    auto const someRect = [&] {
        return QRect(below(range) - range / 3, below(range) - range / 3, below(width) + 1,
                     below(width) + 1);
    };
    RectIndex index;
    std::vector<QRect> rects;
    for (int i = 0; i < 400; ++i) {
        rects.push_back(someRect());
        index.add(rects.back());
    }
    for (int question = 0; question < 300; ++question) {
        QRect const r = question % 7 == 0 ? rects[static_cast<size_t>(question)] : someRect();
        std::vector<int> expected;
        for (int i = 0; i < index.count(); ++i) {
            if (rects[static_cast<size_t>(i)].intersects(r))
                expected.push_back(i);
        }
        QCOMPARE(index.under(r), expected);
    }
    index.clear();
    QVERIFY(index.under(QRect(0, 0, 100, 100)).empty());
}

void tst_KSprite::unionOf_isTheSumInAnyOrder()
{
    std::vector<QRect> rects;
    QRegion sum;
    for (int i = 0; i < 37; ++i) {
        rects.emplace_back(i * 31 % 200, i * 17 % 150, i % 5 * 9, 12);
        sum += rects.back();
    }
    QCOMPARE(unionOf(rects), sum);
    QVERIFY(unionOf({}).isEmpty());
}

ZENU_TEST(tst_KSprite)
#include "tst_KSprite.moc"
