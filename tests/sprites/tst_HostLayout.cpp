#include "tests/sprites/SpriteScene.h"

#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace zenu;
using namespace zenutest;

// Sprites over a host that is hidden, resized, scrolled with its parent, clipped or covered.
class tst_HostLayout : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void committedWhileHidden_appearsWithTheHost();
    void committedWhileHidden_seesItsBackground();
    void windowHiddenAndShown_showsAllAgain();
    void hostResized_showsWhatTheNewSizeLets();
    void scrollArea_spritesMoveWithTheHost();
    void deepChild_isClippedByItsAncestors_data();
    void deepChild_isClippedByItsAncestors();
    void coveredByRelatives_theseStayOnTop();
    void coveredAndUncovered_leavesNothing();
};

void tst_HostLayout::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_HostLayout::committedWhileHidden_appearsWithTheHost()
{
    addSpritesAndBand();
    m_host->hide();
    settle(*m_window);
    m_lower->moveTo(QPoint(100, 100));
    m_layer->update();
    m_lower->moveTo(lowerRect.topLeft());
    m_layer->update();
    m_host->show();
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_HostLayout::committedWhileHidden_seesItsBackground()
{
    addSpritesAndBand();
    m_host->hide();
    TestSprite sprite(m_layer.get(), QRect(8, 8, 20, 20), Qt::green);
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    m_host->show();
    settle(*m_window);
    QCOMPARE(sprite.draws, 2);
    QRect const device = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    m_host->repaint();
    QCOMPARE(sprite.draws, 2);
}

void tst_HostLayout::windowHiddenAndShown_showsAllAgain()
{
    addSpritesAndBand();
    for (int i = 0; i < 2; ++i) {
        QVERIFY(hideAndSettle(*m_window));
        QVERIFY(showAgainAndSettle(*m_window));
        QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    }
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_HostLayout::hostResized_showsWhatTheNewSizeLets()
{
    addSpritesAndBand();
    for (QSize const size : {QSize(60, 60), QSize(50, 100), QSize(280, 200), QSize(90, 70)}) {
        m_host->resize(size);
        settle(*m_window);
        QImage const shown = seen();
        hideAll();
        QImage const bare = seen();
        QImage expected = bare;
        for (QRect const & r : QRegion(m_host->rect()) & bandRect)
            expected = inverted(expected, {deviceRect(*m_host, r)});
        expected = filled(expected, *m_host, lowerRect & m_host->rect(), Qt::red);
        expected = filled(expected, *m_host, upperRect & m_host->rect(), Qt::blue);
        QCOMPARE(difference(shown, expected), QString());
        m_host->repaint();
        QCOMPARE(wrongPixels(seen(), bare), 0);
        m_lower->show();
        m_upper->show();
        m_layer->setSelection(bandRect);
        m_layer->update();
        QCOMPARE(difference(seen(), expected), QString());
    }
}

// The area moves pixels, sprites and all; the host paints what comes into view.
void tst_HostLayout::scrollArea_spritesMoveWithTheHost()
{
    hideAll();
    QScrollArea area(m_window.get());
    area.setFrameShape(QFrame::NoFrame);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setGeometry(16, 16, 160, 120);
    auto * const host = new SpriteHost;
    host->resize(400, 300);
    area.setWidget(host);
    area.show();
    settle(*m_window);
    KSpriteLayer layer(host);
    host->layer = &layer;
    TestSprite sprite(&layer, QRect(100, 90, 40, 40));
    layer.update();
    for (QPoint const scrolled : {QPoint(0, 0), QPoint(40, 0), QPoint(40, 60), QPoint(120, 20)}) {
        area.horizontalScrollBar()->setValue(scrolled.x());
        area.verticalScrollBar()->setValue(scrolled.y());
        settle(*m_window);
        QImage const shown = seen();
        layer.hide();
        layer.update();
        QImage const bare = seen();
        QRect const visible(scrolled, area.size());
        QCOMPARE(bare.pixelColor(deviceRect(*host, QRect(scrolled, QSize(1, 1))).topLeft()),
                 host->colorAt(scrolled.x(), scrolled.y()));
        QCOMPARE(difference(shown, filled(bare, *host, sprite.geometry() & visible, Qt::red)),
                 QString());
        layer.show();
        layer.update();
        QCOMPARE(wrongPixels(seen(), shown), 0);
    }
}

void tst_HostLayout::deepChild_isClippedByItsAncestors_data()
{
    QTest::addColumn<bool>("masked");
    QTest::newRow("by their rectangles") << false;
    QTest::newRow("by the mask of one, too") << true;
}

// Four levels down, and beyond the edges of two of them.
void tst_HostLayout::deepChild_isClippedByItsAncestors()
{
    QFETCH(bool, masked);
    hideAll();
    auto * const outer = new QWidget(m_window.get());
    outer->setGeometry(20, 12, 160, 120);
    auto * const middle = new QWidget(outer);
    middle->setGeometry(-24, -8, 150, 116);
    auto * const inner = new QWidget(middle);
    inner->setGeometry(12, 16, 200, 90);
    auto * const host = new SpriteHost(inner);
    host->setGeometry(-8, -12, 120, 120);
    QRegion seenOfHost = QRegion(host->rect());
    for (QWidget const * w : {inner, middle, outer})
        seenOfHost &= w->rect().translated(-host->mapTo(w, QPoint()));
    if (masked) {
        QRegion const mask = QRegion(outer->rect()) - QRect(50, 40, 32, 24);
        outer->setMask(mask);
        seenOfHost &= mask.translated(-host->mapTo(outer, QPoint()));
    }
    outer->show();
    settle(*m_window);
    QImage const bare = seen();
    KSpriteLayer layer(host);
    host->layer = &layer;
    host->paints = 0;
    layer.setSelForeground(Qt::white);
    layer.setSelBackground(Qt::black);
    TestSprite sprite(&layer, QRect(0, 0, 36, 36));
    for (QPoint const place :
         {QPoint(40, 40), QPoint(50, 48), QPoint(-10, -10), QPoint(90, 20), QPoint(100, 96)}) {
        QRect const band(place + QPoint(-8, 12), QSize(60, 12));
        sprite.moveTo(place);
        layer.setSelection(band);
        layer.update();
        QImage expected = bare;
        for (QRect const & r : (seenOfHost & band) - sprite.geometry())
            expected = inverted(expected, {deviceRect(*host, r)});
        for (QRect const & r : seenOfHost & sprite.geometry())
            expected = filled(expected, *host, r, Qt::red);
        QCOMPARE(difference(seen(), expected), QString());
    }
    layer.hide();
    layer.update();
    QCOMPARE(wrongPixels(seen(), bare), 0);
    QCOMPARE(host->paints, 0);
}

void tst_HostLayout::coveredByRelatives_theseStayOnTop()
{
    QWidget child(m_host);
    child.setGeometry(48, 40, 24, 16);
    QWidget cover(m_window.get());
    cover.setGeometry(QRect(m_host->pos() + QPoint(60, 60), QSize(80, 30)));
    for (QWidget * const widget : {&child, &cover}) {
        widget->setAutoFillBackground(true);
        widget->show();
    }
    settle(*m_window);
    QImage const bare = seen();
    QRegion const covered = QRegion(child.geometry()) + QRect(60, 60, 80, 30);
    addSpritesAndBand();
    m_host->paints = 0;
    for (int i = 0; i < 5; ++i) {
        m_lower->moveBy(QPoint(4, 3));
        m_upper->moveBy(QPoint(-3, 6));
        m_layer->setSelection(bandRect.translated(i * 5, -i));
        m_layer->update();
        QImage expected = withBand(m_layer->getSelection());
        expected = filled(expected, *m_host, m_lower->geometry(), Qt::red);
        expected = filled(expected, *m_host, m_upper->geometry(), Qt::blue);
        QPainter painter(&expected);
        for (QRect const & r : covered)
            painter.drawImage(deviceRect(*m_host, r), bare, deviceRect(*m_host, r));
        painter.end();
        QCOMPARE(difference(seen(), expected), QString());
    }
    QCOMPARE(m_host->paints, 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), bare), 0);
}

void tst_HostLayout::coveredAndUncovered_leavesNothing()
{
    addSpritesAndBand();
    QWidget cover(m_window.get());
    cover.setAutoFillBackground(true);
    cover.setGeometry(60, 60, 80, 60);
    cover.show();
    settle(*m_window);
    m_lower->moveBy(QPoint(9, 5));
    m_layer->update();
    cover.hide();
    m_lower->moveTo(lowerRect.topLeft()); // while the host has not painted yet
    m_layer->update();
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
}

ZENU_TEST(tst_HostLayout)
#include "tst_HostLayout.moc"
