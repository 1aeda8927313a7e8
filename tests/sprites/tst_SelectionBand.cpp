#include "tests/sprites/SpriteScene.h"

using namespace zenu;
using namespace zenutest;

// The band below the sprites.
class tst_SelectionBand : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void layerHide_bandLeavesAndComesBack();
    void band_isBelowSpritesAndLeavesNoTrace();
    void band_movedPart_isTouchedAlone();
    void band_noSprites_stillHandled();
    void band_coloursOnly_areExchanged();
    void band_movedSpriteUnderIt_backgroundIsClean();
    void band_underHoles_isNotSeen();
    void band_widerThanAnInt_coversTheHost_data();
    void band_widerThanAnInt_coversTheHost();
    void band_farEdges_isRightAfterEachStep_data();
    void band_farEdges_isRightAfterEachStep();

private:
    QString wrongScene() const;

    bool m_upperStands = true;
};

void tst_SelectionBand::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_SelectionBand::layerHide_bandLeavesAndComesBack()
{
    addBand(QRect(10, 10, 50, 40));
    QImage const shown = seen();
    QCOMPARE(wrongPixels(shown, withBand(QRect(10, 10, 50, 40))), 0);
    m_layer->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_layer->show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), shown), 0);
}

void tst_SelectionBand::band_isBelowSpritesAndLeavesNoTrace()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    TestSprite sprite(m_layer.get(), QRect(20, 20, 32, 32));
    for (QRect const r : {QRect(10, 10, 50, 40), QRect(15, 5, 60, 30), QRect(22, 22, 8, 8),
                          QRect(100, 90, 20, 20), QRect(0, 0, 240, 160)}) {
        m_layer->setSelection(r);
        m_layer->update();
        QImage const expected = withBand(r);
        QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, sprite.geometry(), Qt::red)), 0);
        sprite.moveBy(QPoint(3, 5));
    }
    m_layer->setSelection(QRect());
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SelectionBand::band_movedPart_isTouchedAlone()
{
    m_layer->setSelForeground(QColor(200, 100, 50));
    m_layer->setSelBackground(QColor(10, 20, 30));
    m_layer->setSelection(QRect(10, 10, 50, 40));
    m_layer->update();
    m_layer->setSelection(QRect(12, 10, 50, 40));
    m_layer->update();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SelectionBand::band_noSprites_stillHandled()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(0, 0, 30, 30));
    QCOMPARE(m_layer->getSelection(), QRect());
    m_layer->update();
    QCOMPARE(m_layer->getSelection(), QRect(0, 0, 30, 30));
    QCOMPARE(wrongPixels(seen(), withBand(QRect(0, 0, 30, 30))), 0);
}

void tst_SelectionBand::band_coloursOnly_areExchanged()
{
    QRect const r(10, 10, 50, 40);
    m_layer->setSelForeground(Qt::red);
    m_layer->setSelBackground(Qt::blue);
    m_layer->setSelection(r);
    m_layer->update();
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withBand(r)), 0);
}

void tst_SelectionBand::band_movedSpriteUnderIt_backgroundIsClean()
{
    addBand(QRect(10, 10, 100, 100));
    TestSprite sprite(m_layer.get(), QRect(20, 20, 32, 32));
    m_layer->update();
    sprite.moveTo(QPoint(60, 60));
    m_layer->update();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), 0);
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

// The band stays out of the rectangles of sprites, also where they are transparent.
void tst_SelectionBand::band_underHoles_isNotSeen()
{
    addSprites();
    m_upper->hide();
    m_lower->look = TestSprite::Look::Holes;
    m_lower->changeContents(lowerRect.size());
    addBand(bandRect);
    QRect const hole = deviceRect(*m_host, lowerRect.adjusted(6, 6, -6, -6));
    QCOMPARE(wrongPixels(seen().copy(hole), m_empty.copy(hole)), 0);
    m_host->repaint();
    QCOMPARE(wrongPixels(seen().copy(hole), m_empty.copy(hole)), 0);
}

void tst_SelectionBand::band_widerThanAnInt_coversTheHost_data()
{
    QTest::addColumn<QRect>("band");
    QTest::newRow("all that an int can hold") << everywhere;
    constexpr int far = most / 4 * 3;
    QTest::newRow("wide enough to seem negative") << QRect(QPoint(-far, -far), QPoint(far, far));
}

void tst_SelectionBand::band_widerThanAnInt_coversTheHost()
{
    QFETCH(QRect, band);
    addSprites();
    addBand(band);
    QCOMPARE(m_layer->getSelection(), band);
    QImage expected = withBand(m_host->rect());
    expected = filled(expected, *m_host, lowerRect, Qt::red);
    QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, upperRect, Qt::blue)), 0);
    m_lower->changeContents(lowerRect.size());
    m_layer->update();
    QRect const device = deviceRect(*m_host, lowerRect);
    QCOMPARE(wrongPixels(m_lower->below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    m_host->repaint();
    m_host->grab();
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SelectionBand::band_farEdges_isRightAfterEachStep_data()
{
    constexpr int half = most / 2;
    QTest::addColumn<QRect>("band");
    QTest::newRow("all that an int can hold") << everywhere;
    QTest::newRow("to the right and down") << QRect(QPoint(50, 60), QPoint(most, most));
    QTest::newRow("to the left and up") << QRect(QPoint(least, least), QPoint(99, 66));
    QTest::newRow("a line across") << QRect(QPoint(least, 50), QPoint(most, 51));
    QTest::newRow("a line down") << QRect(QPoint(60, least), QPoint(61, most));
    QTest::newRow("as wide as an int is") << QRect(QPoint(-half, 45), QPoint(half, 80));
    QTest::newRow("nothing of it over the host") << QRect(QPoint(half, half), QPoint(most, most));
}

// Where the band and what lies under and over it change, by themselves and together.
void tst_SelectionBand::band_farEdges_isRightAfterEachStep()
{
    QFETCH(QRect, band);
    addSprites();
    std::array<std::function<void()>, 11> const steps = {
        [&] { addBand(band); },
        [&] { m_lower->moveBy(QPoint(7, 5)); },
        [&] { m_upper->changeContents(QSize(70, 9)); },
        [&] { m_layer->setSelection(bandRect); },
        [&] { m_layer->setSelection(band); },
        [&] {
            m_upper->hide();
            m_upperStands = false;
        },
        [&] {
            m_upper->show();
            m_upperStands = true;
        },
        [&] { m_host->repaint(QRect(30, 45, 50, 20)); },
        [&] { m_host->repaint(); },
        [&] { m_layer->setSelection(everywhere); },
        [&] { m_layer->setSelection(band); },
    };
    for (auto const & step : steps) {
        step();
        m_layer->update();
        QCOMPARE(wrongScene(), QString());
        QCOMPARE(difference(grabbed(), ofHost(seen())), QString());
    }
    m_layer->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_layer->show();
    m_layer->update();
    QCOMPARE(wrongScene(), QString());
    m_layer->setSelForeground(Qt::black); // no difference from the other: the band is not seen
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

// What differs from the committed band and the sprites on top.
QString tst_SelectionBand::wrongScene() const
{
    QImage expected = m_empty;
    for (QRect const & part : QRegion(m_host->rect()) & m_layer->getSelection())
        expected = inverted(expected, {deviceRect(*m_host, part)});
    expected = filled(expected, *m_host, m_lower->geometry(), Qt::red);
    if (m_upperStands)
        expected = filled(expected, *m_host, m_upper->geometry(), Qt::blue);
    return difference(seen(), expected);
}

ZENU_TEST(tst_SelectionBand)
#include "tst_SelectionBand.moc"
