#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <zenu/overlay/KCaret.h>
#include <zenu/overlay/KSpriteLayer.h>

#include <memory>

using namespace zenu;
using zenutest::SurfaceHost;

namespace {

constexpr QSize caretSize(6, 20);
constexpr QPoint caretPlace(40, 30);
const QColor caretColor(1, 2, 3); // which the host's pattern does not have there
constexpr int standsStill = 100'000'000;

// The caret's states, as one reaches them from outside.
enum Start
{
    Off,
    On,
    Blanked,
    Held
};
enum Event
{
    Show,
    Hide,
    Hold,
    Tick
};

void tick(KCaret & caret)
{
    QVERIFY(QMetaObject::invokeMethod(&caret, "blink", Qt::DirectConnection));
}

// A host on display with a layer.
struct Scene
{
    Scene()
    {
        host.resize(160, 100);
        zenutest::showAndSettle(host);
        layer = std::make_unique<KSpriteLayer>(&host);
        host.paints = 0;
    }

    QColor at(QPoint const & place) const
    {
        qreal const ratio = host.devicePixelRatioF();
        return zenutest::picture(host).pixelColor((QPointF(place) * ratio).toPoint());
    }
    bool caretIsSeen() const { return at(caretPlace + QPoint(3, 10)) == caretColor; }

    SurfaceHost host;
    std::unique_ptr<KSpriteLayer> layer;
};

struct CaretScene : Scene
{
    explicit CaretScene(Start start = Off)
        : caret(nullptr, layer.get(), caretSize, standsStill)
    {
        caret.setColor(caretColor);
        caret.moveTo(caretPlace);
        if (start != Off) {
            caret.showCaret();
        }
        if (start == Held) {
            caret.holdCaret();
        }
        layer->update();
        if (start == Blanked) {
            tick(caret);
        }
    }

    void send(Event event)
    {
        switch (event) {
        case Show:
            caret.showCaret();
            break;
        case Hide:
            caret.hideCaret();
            break;
        case Hold:
            caret.holdCaret();
            break;
        case Tick:
            tick(caret);
            break;
        }
    }

    KCaret caret;
};

} // namespace

class tst_KCaret : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void event_inEachState_leadsToTheNext_data();
    void event_inEachState_leadsToTheNext();
    void hideCaret_duringTheBlankPhase_changesNoVisibilityAndEndsBlinking();
    void showCaret_twice_doesNotChangeTheSizeAgain();
    void holdCaret_neverShown_appearsAtTheTickAndBlinksOn();
    void holdCaret_whileBlinking_skipsOneDarkPhase();
    void timer_fromConstruction_blinksWithoutPaintsOfTheHost();
    void timer_offCaret_updatesTheLayerAllTheSame();
    void timer_negativeInterval_neverTicks();
    void setColor_shownCaret_showsAtTheNextAppearance();
    void color_fresh_isBlack();
    void size_shown_isThatOfTheConstructor();
    void destructor_shownCaret_leavesNoTrace();
    void layer_null_isQuiet();
    void layer_deletedFirst_isQuiet();
    void qObject_isTheCaret();
};

void tst_KCaret::event_inEachState_leadsToTheNext_data()
{
    QTest::addColumn<Start>("start");
    QTest::addColumn<Event>("event");
    QTest::addColumn<bool>("wantsToShow"); // before the layer is updated
    QTest::addColumn<bool>("wantsToHide");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("seen");           // after an update
    QTest::addColumn<bool>("seenAfterATick"); // what the state leads to
    QTest::addColumn<bool>("seenAfterTwo");

    QTest::newRow("Off, showCaret: On")
        << Off << Show << true << false << true << true << false << true;
    QTest::newRow("Off, hideCaret: Off")
        << Off << Hide << false << false << false << false << false << false;
    QTest::newRow("Off, holdCaret: Held")
        << Off << Hold << false << false << true << false << true << false;
    QTest::newRow("Off, tick: Off")
        << Off << Tick << false << false << false << false << false << false;
    QTest::newRow("On, showCaret: On")
        << On << Show << false << false << true << true << false << true;
    QTest::newRow("On, hideCaret: Off")
        << On << Hide << false << true << false << false << false << false;
    QTest::newRow("On, holdCaret: Held")
        << On << Hold << false << false << true << true << true << false;
    QTest::newRow("On, tick: Blanked")
        << On << Tick << false << false << true << false << true << false;
    QTest::newRow("Blanked, showCaret: Blanked")
        << Blanked << Show << false << false << true << false << true << false;
    QTest::newRow("Blanked, hideCaret: Off")
        << Blanked << Hide << false << false << false << false << false << false;
    QTest::newRow("Blanked, holdCaret: Held")
        << Blanked << Hold << true << false << true << true << true << false;
    QTest::newRow("Blanked, tick: On")
        << Blanked << Tick << false << false << true << true << false << true;
    QTest::newRow("Held, showCaret: Held")
        << Held << Show << false << false << true << true << true << false;
    QTest::newRow("Held, hideCaret: Off")
        << Held << Hide << false << true << false << false << false << false;
    QTest::newRow("Held, holdCaret: Held")
        << Held << Hold << false << false << true << true << true << false;
    QTest::newRow("Held, tick: On")
        << Held << Tick << false << false << true << true << false << true;
}

void tst_KCaret::event_inEachState_leadsToTheNext()
{
    QFETCH(Start, start);
    QFETCH(Event, event);
    CaretScene scene(start);
    QCOMPARE(scene.caretIsSeen(), start == On || start == Held);

    scene.send(event);
    QTEST(scene.caret.aboutToShow(), "wantsToShow");
    QTEST(scene.caret.aboutToHide(), "wantsToHide");
    QTEST(scene.caret.isActive(), "active");
    if (event != Tick) { // a tick updates by itself
        scene.layer->update();
    }
    QTEST(scene.caretIsSeen(), "seen");
    tick(scene.caret);
    QTEST(scene.caretIsSeen(), "seenAfterATick");
    tick(scene.caret);
    QTEST(scene.caretIsSeen(), "seenAfterTwo");
    QCOMPARE(scene.host.paints, 0);
}

void tst_KCaret::hideCaret_duringTheBlankPhase_changesNoVisibilityAndEndsBlinking()
{
    CaretScene scene(Blanked);
    scene.caret.hideCaret();
    QVERIFY(!scene.caret.aboutToHide());
    QVERIFY(!scene.caret.aboutToShow());
    for (int i = 0; i < 3; ++i) {
        tick(scene.caret);
        QVERIFY(!scene.caretIsSeen());
    }
}

void tst_KCaret::showCaret_twice_doesNotChangeTheSizeAgain()
{
    CaretScene scene(On);
    scene.caret.changeContents(QSize(2, 9));
    scene.caret.showCaret();
    QCOMPARE(scene.caret.size(), QSize(2, 9));
}

void tst_KCaret::holdCaret_neverShown_appearsAtTheTickAndBlinksOn()
{
    CaretScene scene;
    scene.caret.holdCaret();
    scene.layer->update();
    QVERIFY(!scene.caretIsSeen());
    for (bool const seen : {true, false, true, false}) {
        tick(scene.caret);
        QCOMPARE(scene.caretIsSeen(), seen);
    }
}

void tst_KCaret::holdCaret_whileBlinking_skipsOneDarkPhase()
{
    CaretScene scene(On);
    for (int i = 0; i < 4; ++i) {
        scene.caret.holdCaret();
        tick(scene.caret);
        QVERIFY(scene.caretIsSeen());
    }
    tick(scene.caret);
    QVERIFY(!scene.caretIsSeen());
}

void tst_KCaret::timer_fromConstruction_blinksWithoutPaintsOfTheHost()
{
    Scene scene;
    KCaret caret(nullptr, scene.layer.get(), caretSize, 15);
    caret.setColor(caretColor);
    caret.moveTo(caretPlace);
    caret.showCaret();
    for (int i = 0; i < 3; ++i) {
        QTRY_VERIFY(scene.caretIsSeen());
        QTRY_VERIFY(!scene.caretIsSeen());
    }
    QCOMPARE(scene.host.paints, 0);
}

void tst_KCaret::timer_offCaret_updatesTheLayerAllTheSame()
{
    Scene scene;
    KCaret const caret(nullptr, scene.layer.get(), caretSize, 15);
    QRect const band(10, 10, 30, 30);
    scene.layer->setSelection(band);
    QVERIFY(scene.layer->getSelection().isNull());
    QTRY_COMPARE(scene.layer->getSelection(), band);
}

void tst_KCaret::timer_negativeInterval_neverTicks()
{
    Scene scene;
    KCaret const caret(nullptr, scene.layer.get(), caretSize, -1);
    QVERIFY(!caret.findChild<QTimer *>()->isActive());
}

void tst_KCaret::setColor_shownCaret_showsAtTheNextAppearance()
{
    CaretScene scene(On);
    QColor const other(200, 100, 50);
    scene.caret.setColor(other);
    QCOMPARE(scene.caret.getColor(), other);
    scene.layer->update();
    QVERIFY(scene.caretIsSeen());
    tick(scene.caret);
    tick(scene.caret);
    QCOMPARE(scene.at(caretPlace + QPoint(3, 10)), other);
}

void tst_KCaret::color_fresh_isBlack()
{
    KCaret const caret(nullptr, nullptr, caretSize, standsStill);
    QCOMPARE(caret.getColor(), QColor(Qt::black));
}

void tst_KCaret::size_shown_isThatOfTheConstructor()
{
    Scene scene;
    KCaret caret(nullptr, scene.layer.get(), caretSize, standsStill);
    QVERIFY(caret.size().isEmpty());
    caret.showCaret();
    QCOMPARE(caret.size(), caretSize);
}

void tst_KCaret::destructor_shownCaret_leavesNoTrace()
{
    Scene scene;
    QImage const before = zenutest::picture(scene.host);
    {
        KCaret caret(nullptr, scene.layer.get(), caretSize, standsStill);
        caret.showCaret();
        scene.layer->update();
        QVERIFY(zenutest::wrongPixels(zenutest::picture(scene.host), before) > 0);
    }
    QCOMPARE(zenutest::wrongPixels(zenutest::picture(scene.host), before), 0);
    QCOMPARE(scene.host.paints, 0);
}

void tst_KCaret::layer_null_isQuiet()
{
    KCaret caret(nullptr, nullptr, caretSize, standsStill);
    caret.showCaret();
    tick(caret);
    QVERIFY(caret.isActive());
    caret.holdCaret();
    caret.hideCaret();
    tick(caret);
    QVERIFY(!caret.isActive());
}

void tst_KCaret::layer_deletedFirst_isQuiet()
{
    CaretScene scene(On);
    scene.layer.reset();
    QVERIFY(!scene.caret.getLayer());
    tick(scene.caret);
    scene.caret.hideCaret();
}

void tst_KCaret::qObject_isTheCaret()
{
    QObject parent;
    auto * const caret = new KCaret(&parent, nullptr, caretSize, standsStill);
    QCOMPARE(caret->qObject(), static_cast<QObject *>(caret));
    QCOMPARE(caret->parent(), &parent);
}

ZENU_TEST(tst_KCaret)
#include "tst_KCaret.moc"
