#include "tests/sprites/Reference.h"
#include "tests/support/TestMain.h"

#include <zenu/overlay/sprites/PieceList.h>

#include <memory>
#include <random>

using namespace zenu;
using namespace zenutest;

// So many sprites that all move, that the layer keeps what lies below them in one piece.
class tst_DenseSprites : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void drift_everyPixelIsRight();
    void drift_seeThroughAndHoles_everyPixelIsRight();
    void drift_beyondTheHost_everyPixelIsRight();
    void drift_toAnotherPartOfTheHost_everyPixelIsRight();
    void drift_largeSprites_everyPixelIsRight_data();
    void drift_largeSprites_everyPixelIsRight();
    void strips_coverEveryRowOnce();
    void hostPaints_newPictureLiesBelow();
    void hostPaints_announcedAfterwards_newPictureLiesBelow();
    void hostPaints_spritesFarFromIt_newPictureStays();
    void destroyed_leavesTheWidgetsOwn();
    void hidden_leavesTheWidgetsOwn();
    void movedAlone_everyPixelIsRight();
    void changeContents_getsWhatLiesBelow();
    void show_getsWhatLiesBelowTheOtherPlace();
    void show_afterTheWidgetPainted_getsWhatLayBelowTheOtherPlace();
    void band_comesAndGoes();
    void layerHides_leavesTheWidgetsOwn();
    void layerShows_readsAgain();
    void layerShows_whileShown_readsAgain();
    void hostHides_everyPixelIsRightAgain();
    void layerDies_spritesServeAnother();
    void secondLayer_betweenThem_leavesNothing();

private:
    TestSprite & add(QRect const & r, int number);
    void drift(int steps);
    void leaveCorner();
    void enterCorner();
    void checkPicture(char const * when);
    void commit();
    void commitStep(int step);
    QImage below(QRect const & r) const;
    QImage empty() const;

    std::unique_ptr<QWidget> m_window;
    SpriteHost * m_host = nullptr;
    std::unique_ptr<KSpriteLayer> m_layer;
    std::vector<std::unique_ptr<TestSprite>> m_sprites;
    Reference m_reference;
    std::mt19937 m_random;
};

namespace {

constexpr QSize hostSize(200, 160);
constexpr int spriteCount = 90;
constexpr QRect corner(0, 0, 64, 160);
constexpr int enough = 6; // steps, after which the background is held in one piece
constexpr int looks = 3;  // steps from one look at the screen to the next

} // namespace

void tst_DenseSprites::init()
{
    m_random.seed(7);
    m_reference = Reference();
    m_window = std::make_unique<QWidget>();
    m_window->resize(240, 200);
    m_host = new SpriteHost(m_window.get());
    m_host->setGeometry(QRect(QPoint(24, 16), hostSize));
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    showAndSettle(*m_window);
    for (int i = 0; i < spriteCount; ++i)
        add(QRect(i * 53 % 170, i * 37 % 130, 20 + i % 11, 20 + i % 7), i);
    commit();
    drift(enough);
}

void tst_DenseSprites::cleanup()
{
    m_sprites.clear();
    m_layer.reset();
    m_window.reset();
}

TestSprite & tst_DenseSprites::add(QRect const & r, int number)
{
    Reference::Sprite expected;
    expected.target = r;
    expected.wanted = expected.dirty = true;
    expected.priority = number;
    expected.next.color = QColor::fromHsv(number * 37 % 360, 200, 220);
    m_sprites.push_back(
        std::make_unique<TestSprite>(m_layer.get(), r, expected.next.color, number));
    m_reference.sprites.push_back(expected);
    return *m_sprites.back();
}

void tst_DenseSprites::commit()
{
    int const before = m_host->paints;
    m_layer->update();
    m_reference.commit(*m_host, QImage());
    QCOMPARE(m_host->paints, before);
    checkPicture("after the update");
}

void tst_DenseSprites::commitStep(int step)
{
    if (step % looks == looks - 1) {
        commit();
        return;
    }
    m_layer->update();
    m_reference.commit(*m_host, QImage());
}

// Everything moves by a little, and stays on the host.
void tst_DenseSprites::drift(int steps)
{
    auto const way = [&] { return static_cast<int>(m_random() % 7) - 3; };
    for (int step = 0; step < steps; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            QRect const r = m_reference.sprites[i].committed.translated(way(), way());
            QPoint const to(qBound(0, r.x(), hostSize.width() - r.width()),
                            qBound(0, r.y(), hostSize.height() - r.height()));
            m_sprites[i]->moveTo(to);
            m_reference.sprites[i].target.moveTopLeft(to);
        }
        commitStep(step);
    }
}

QImage tst_DenseSprites::empty() const
{
    QImage image(deviceRect(*m_window, m_window->rect()).size(), QImage::Format_RGB32);
    image.fill(m_window->palette().color(QPalette::Window));
    Reference nothing;
    return nothing.picture(*m_host, m_host->rect(), image);
}

QImage tst_DenseSprites::below(QRect const & r) const
{
    return empty().copy(deviceRect(*m_host, r));
}

// So that what is painted there meets no sprite.
void tst_DenseSprites::leaveCorner()
{
    for (int step = 0; step < 2 * enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            QPoint const to(std::max(m_reference.sprites[i].committed.x() + 1, 70 + step % 2),
                            m_reference.sprites[i].committed.y());
            m_sprites[i]->moveTo(to);
            m_reference.sprites[i].target.moveTopLeft(to);
        }
        commitStep(step);
    }
}

void tst_DenseSprites::enterCorner()
{
    for (int step = 0; step < 2 * enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            m_sprites[i]->moveBy(QPoint(-4, 0));
            m_reference.sprites[i].target.translate(-4, 0);
        }
        commitStep(step);
    }
}

void tst_DenseSprites::checkPicture(char const * when)
{
    QImage const expected = m_reference.picture(*m_host, m_host->rect(), empty());
    QString const wrong = difference(picture(*m_window), expected);
    QVERIFY2(wrong.isEmpty(), qPrintable(QLatin1String(when) + QLatin1String(": ") + wrong));
}

void tst_DenseSprites::drift_everyPixelIsRight()
{
    drift(20);
}

void tst_DenseSprites::drift_seeThroughAndHoles_everyPixelIsRight()
{
    for (size_t i = 0; i < m_sprites.size(); i += 3) {
        auto const look = i % 2 == 0 ? TestSprite::Look::SeeThrough : TestSprite::Look::Holes;
        m_sprites[i]->look = m_reference.sprites[i].next.look = look;
        m_sprites[i]->show();
        m_reference.sprites[i].dirty = true;
    }
    drift(2 * enough);
}

void tst_DenseSprites::drift_beyondTheHost_everyPixelIsRight()
{
    for (int step = 0; step < 3 * enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            QPoint const by(i % 2 == 0 ? 5 : -5, i % 3 == 0 ? 4 : -4);
            m_sprites[i]->moveBy(by);
            m_reference.sprites[i].target.translate(by);
        }
        commitStep(step);
    }
}

// More than once around what is kept beside the sprites.
void tst_DenseSprites::drift_toAnotherPartOfTheHost_everyPixelIsRight()
{
    m_window->resize(700, 200);
    m_host->resize(650, 160);
    settle(*m_window);
    for (int step = 0; step < 5 * enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            m_sprites[i]->moveBy(QPoint(12, 0));
            m_reference.sprites[i].target.translate(12, 0);
        }
        commitStep(step);
    }
}

void tst_DenseSprites::drift_largeSprites_everyPixelIsRight_data()
{
    QTest::addColumn<bool>("band");
    QTest::newRow("backgrounds of their own, with a band") << true;
    QTest::newRow("one background") << false;
}

// So large that the steps of an update are done in one strip of the host after the other.
void tst_DenseSprites::drift_largeSprites_everyPixelIsRight()
{
    QFETCH(bool, band);
    m_window->resize(700, 600);
    m_host->resize(650, 560);
    settle(*m_window);
    m_sprites.resize(40);
    m_reference.sprites.resize(40);
    for (size_t i = 0; i < m_sprites.size(); ++i) {
        auto const number = static_cast<int>(i);
        QSize const size(150 + number, 140);
        m_sprites[i]->changeContents(size);
        m_sprites[i]->moveTo(QPoint(number * 61 % 500, number * 47 % 420));
        auto & expected = m_reference.sprites[i];
        m_sprites[i]->look = expected.next.look = static_cast<TestSprite::Look>(i % 3);
        expected.target = m_sprites[i]->geometry();
        expected.dirty = true;
    }
    if (band) {
        m_layer->setSelForeground(Qt::white);
        m_layer->setSelBackground(Qt::blue);
        m_layer->setSelection(QRect(50, 60, 480, 400));
        m_reference.setForeground(Qt::white);
        m_reference.setBackground(Qt::blue);
        m_reference.nextBand.rect = QRect(50, 60, 480, 400);
    }
    commit();
    for (int step = 0; step < enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            QPoint const by(i % 2 == 0 ? 4 : -4, i % 3 == 0 ? 3 : -3);
            m_sprites[i]->moveBy(by);
            m_reference.sprites[i].target.translate(by);
        }
        commitStep(step);
    }
}

void tst_DenseSprites::strips_coverEveryRowOnce()
{
    for (int count : {1, 2, 5}) {
        Strips strips;
        strips.height = 7;
        strips.count = count;
        QRect const r(3, -20, 10, 100);
        int rows = 0;
        for (int strip = 0; strip < count; ++strip) {
            QRect const part = strips.cut(r, strip);
            QCOMPARE(part.left(), r.left());
            QCOMPARE(part.width(), r.width());
            QCOMPARE(part.top(), r.top() + rows);
            QCOMPARE(strips.of(part.top()), strip);
            QCOMPARE(strips.of(part.bottom()), strip);
            rows += part.height();
        }
        QCOMPARE(rows, r.height());
    }
}

void tst_DenseSprites::hostPaints_newPictureLiesBelow()
{
    QRect const r(40, 32, 80, 64);
    m_host->changePicture(r, 3);
    m_host->repaint(r);
    checkPicture("after the repaint");
    drift(2 * enough);
}

void tst_DenseSprites::hostPaints_announcedAfterwards_newPictureLiesBelow()
{
    QRect const r(40, 32, 80, 64);
    m_host->changePicture(r, 3);
    m_host->layer = nullptr;
    m_host->repaint(r);
    m_host->layer = m_layer.get();
    m_layer->clobberRect(r);
    drift(2 * enough);
}

void tst_DenseSprites::hostPaints_spritesFarFromIt_newPictureStays()
{
    leaveCorner();
    m_host->changePicture(corner, 4);
    m_host->repaint(corner);
    checkPicture("after the repaint");
    enterCorner();
}

void tst_DenseSprites::destroyed_leavesTheWidgetsOwn()
{
    for (int i = 0; i < 12; ++i) {
        m_sprites.erase(m_sprites.begin());
        m_reference.sprites.erase(m_reference.sprites.begin());
        commit();
        m_sprites.pop_back();
        m_reference.sprites.pop_back();
        commit();
        drift(enough);
    }
}

void tst_DenseSprites::hidden_leavesTheWidgetsOwn()
{
    for (size_t i = 0; i < m_sprites.size(); i += 2) {
        m_sprites[i]->hide();
        m_reference.sprites[i].wanted = false;
    }
    commit();
    drift(enough);
    for (size_t i = 0; i < m_sprites.size(); i += 2) {
        m_sprites[i]->show();
        m_reference.sprites[i].wanted = m_reference.sprites[i].dirty = true;
    }
    drift(enough);
}

void tst_DenseSprites::movedAlone_everyPixelIsRight()
{
    for (size_t i = 0; i < 5; ++i) {
        m_sprites[i]->moveBy(QPoint(11, -7));
        m_reference.sprites[i].target.translate(11, -7);
        commit();
    }
    drift(enough);
}

void tst_DenseSprites::changeContents_getsWhatLiesBelow()
{
    TestSprite & sprite = *m_sprites[17];
    QSize const size(24, 22);
    sprite.changeContents(size);
    m_reference.sprites[17].dirty = true;
    m_reference.sprites[17].target.setSize(size);
    drift(1);
    QImage const expected = below(sprite.geometry());
    QCOMPARE(difference(sprite.below.copy(expected.rect()), expected), QString());
    drift(enough);
}

// Shown again without a move it gets what was read for the place before.
void tst_DenseSprites::show_getsWhatLiesBelowTheOtherPlace()
{
    for (size_t i : {5, 50}) {
        QRect const other = m_sprites[i]->geometry();
        drift(1);
        QVERIFY(other.topLeft() != m_sprites[i]->pos());
        m_sprites[i]->show();
        m_reference.sprites[i].dirty = true;
        commit();
        QImage const expected = below(other);
        QCOMPARE(difference(m_sprites[i]->below.copy(expected.rect()), expected), QString());
        drift(enough);
    }
}

void tst_DenseSprites::show_afterTheWidgetPainted_getsWhatLayBelowTheOtherPlace()
{
    QRect const other = m_sprites[5]->geometry();
    QImage const expected = below(other);
    drift(1);
    QVERIFY(other.topLeft() != m_sprites[5]->pos());
    m_host->changePicture(m_host->rect(), 3);
    m_host->repaint();
    m_sprites[5]->show();
    m_reference.sprites[5].dirty = true;
    commit();
    QCOMPARE(difference(m_sprites[5]->below.copy(expected.rect()), expected), QString());
}

void tst_DenseSprites::band_comesAndGoes()
{
    QRect const band(30, 20, 120, 100);
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::blue);
    m_reference.setForeground(Qt::white);
    m_reference.setBackground(Qt::blue);
    for (QRect const & r : {band, band.translated(9, 5), QRect(), band, QRect()}) {
        m_layer->setSelection(r);
        m_reference.nextBand.rect = r;
        drift(enough);
    }
}

void tst_DenseSprites::layerHides_leavesTheWidgetsOwn()
{
    m_layer->hide();
    m_reference.layerWanted = false;
    commit();
    QCOMPARE(difference(picture(*m_window), empty()), QString());
    m_layer->show();
    m_reference.layerWanted = true;
    commit();
    drift(enough);
}

// What the widget painted between the sprites without a word is read all the same.
void tst_DenseSprites::layerShows_readsAgain()
{
    m_layer->hide();
    m_reference.layerWanted = false;
    commit();
    m_host->layer = nullptr;
    m_host->changePicture(m_host->rect(), 2);
    m_host->repaint();
    m_host->layer = m_layer.get();
    m_layer->show();
    m_reference.layerWanted = true;
    drift(2 * enough);
}

void tst_DenseSprites::layerShows_whileShown_readsAgain()
{
    leaveCorner();
    m_host->layer = nullptr;
    m_host->changePicture(corner, 4);
    m_host->repaint(corner);
    m_host->layer = m_layer.get();
    m_layer->show();
    enterCorner();
    leaveCorner();
}

void tst_DenseSprites::hostHides_everyPixelIsRightAgain()
{
    m_host->hide();
    settle(*m_window);
    for (size_t i = 0; i < m_sprites.size(); ++i) {
        m_sprites[i]->moveBy(QPoint(2, 3));
        m_reference.sprites[i].target.translate(2, 3);
    }
    m_layer->update();
    m_reference.commit(*m_host, QImage());
    m_host->show();
    settle(*m_window);
    checkPicture("after the host came back");
    drift(2 * enough);
}

void tst_DenseSprites::layerDies_spritesServeAnother()
{
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = nullptr;
    m_host->repaint();
    m_host->layer = m_layer.get();
    m_reference.layerShown = false;
    for (size_t i = 0; i < m_sprites.size(); ++i) {
        m_layer->addSprite(m_sprites[i].get());
        m_sprites[i]->show();
        m_reference.sprites[i].dirty = true;
    }
    commit();
    drift(enough);
}

// Another layer's sprite is no part of what lies below.
void tst_DenseSprites::secondLayer_betweenThem_leavesNothing()
{
    QRect const free(2, 2, 10, 10);
    for (int step = 0; step < enough; ++step) {
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            QPoint const to(std::max(m_reference.sprites[i].committed.x(), 20 + step % 2),
                            m_reference.sprites[i].committed.y() + step % 2);
            m_sprites[i]->moveTo(to);
            m_reference.sprites[i].target.moveTopLeft(to);
        }
        commitStep(step);
    }
    KSpriteLayer other(m_host);
    {
        TestSprite sprite(&other, free, Qt::black);
        other.update();
        for (size_t i = 0; i < m_sprites.size(); ++i) {
            m_sprites[i]->moveBy(QPoint(1, 0));
            m_reference.sprites[i].target.translate(1, 0);
        }
        m_layer->update();
        m_reference.commit(*m_host, QImage());
        QImage const expected =
            filled(m_reference.picture(*m_host, m_host->rect(), empty()), *m_host, free, Qt::black);
        QCOMPARE(difference(picture(*m_window), expected), QString());
    }
    commit();
    drift(enough);
}

ZENU_TEST(tst_DenseSprites)
#include "tst_DenseSprites.moc"
