#include "tests/events/DragFixture.h"
#include "tests/support/TestMain.h"

#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

using namespace zenu;
using namespace zenutest;

namespace {

QPoint const sourcePlace(40, 40);
QPoint const targetPlace(400, 80);
QPoint const otherProcessPlace(400, 400);
QPoint const nowhere(700, 300);

char const * const otherProcessVariable = "ZENU_TEST_DROP_TARGET";

// The other process: a target that says on its output what comes.
int beTheOtherProcess()
{
    Target target(otherProcessPlace, Answer::Move);
    auto const say = [](QString const & text) {
        std::fprintf(stdout, "%s\n", text.toUtf8().constData());
        std::fflush(stdout);
    };
    target.onLog = say;
    target.show();
    if (QTest::qWaitForWindowExposed(&target)) {
        say(QStringLiteral("ready"));
    }
    return QApplication::exec();
}

} // namespace

// Drags with a mouse that another program moves, on a display server without a window manager.
class tst_RealDrag : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void drag_endsByPlaceAndAction_data();
    void drag_endsByPlaceAndAction();
    void drag_ofNothing_isAnEmptyArray();
    void drag_overNoWindow_isACopy();
    void drag_backToTheStart_isNone_data();
    void drag_backToTheStart_isNone();
    void drag_betweenProcesses_bringsThePayload();
    void plainDrag_isClassifiedToo();
    void source_deletedDuringTheDrag_cancelsIt();
    void source_deletedByTheDrop_isStillAMove();

private:
    // Whether the platform takes the drag where the mouse is.
    static void watch(QDrag * drag, bool & isTaken)
    {
        connect(drag, &QDrag::actionChanged, drag,
                [&isTaken](Qt::DropAction action) { isTaken = action != Qt::IgnoreAction; });
    }
    // Presses a button on the window and comes back when it is down.
    void press(Hands & hands, Window & window)
    {
        hands.press(window.middle());
        QTRY_VERIFY_WITH_TIMEOUT(window.isPressed && hands.isDone(), 10000);
    }
    static KDragStream * makeStream(QWidget * source)
    {
        auto * const stream = new KDragStream(dragType, source, "stream");
        writePayload(*stream);
        return stream;
    }

    QString m_tool;
};

void tst_RealDrag::initTestCase()
{
    m_tool = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
    if (QGuiApplication::platformName() != QLatin1String("xcb") || m_tool.isEmpty()) {
        QSKIP("needs a display server and xdotool");
    }
}

void tst_RealDrag::drag_endsByPlaceAndAction_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<DropEffect::Effects>("effect");
    QTest::newRow("moved") << Answer::Move << DropEffect::DropEffectMove;
    QTest::newRow("copied") << Answer::Copy << DropEffect::DropEffectCopy;
    QTest::newRow("refused") << Answer::Refuse << DropEffect::DropEffectCopy;
}

void tst_RealDrag::drag_endsByPlaceAndAction()
{
    QFETCH(Answer, answer);
    QFETCH(DropEffect::Effects, effect);
    Window source(sourcePlace);
    Target target(targetPlace, answer);
    source.open();
    target.open();
    Hands hands(m_tool);
    press(hands, source);
    QPointer<KDragStream> const stream(makeStream(&source));
    bool isTaken = false;
    watch(stream, isTaken);
    hands.move([] { return true; }, source.middle() + QPoint(30, 5));
    hands.move([] { return true; }, target.middle());
    hands.release([&] {
        return target.log.contains(QStringLiteral("enter")) &&
               (answer == Answer::Refuse || isTaken) && QCursor::pos() == target.middle();
    });
    QCOMPARE(stream->drag(), effect);
    QVERIFY(!hands.gaveUp());
    QStringList const expected{QStringLiteral("enter"), QStringLiteral("payload")};
    QCOMPARE(target.log.mid(0, 2), answer == Answer::Refuse ? expected.mid(0, 1) : expected);
    QTRY_VERIFY(!stream); // the toolkit is done with it
}

void tst_RealDrag::drag_ofNothing_isAnEmptyArray()
{
    Window source(sourcePlace);
    Target target(targetPlace, Answer::Move);
    source.open();
    target.open();
    Hands hands(m_tool);
    press(hands, source);
    auto * const stream = new KDragStream(dragType, &source, nullptr);
    bool isTaken = false;
    watch(stream, isTaken);
    hands.move([] { return true; }, target.middle());
    hands.release([&] { return isTaken && QCursor::pos() == target.middle(); });
    QCOMPARE(stream->drag(), DropEffect::DropEffectMove);
    QCOMPARE(target.log.last(), QStringLiteral(" 0 0"));
}

void tst_RealDrag::drag_overNoWindow_isACopy()
{
    Window source(sourcePlace);
    source.open();
    Hands hands(m_tool);
    press(hands, source);
    hands.move([] { return true; }, nowhere);
    hands.release([] { return QCursor::pos() == nowhere; });
    QPointer<KDragStream> const stream(makeStream(&source));
    QCOMPARE(stream->drag(), DropEffect::DropEffectCopy);
    QVERIFY(!hands.gaveUp());
    QTRY_VERIFY(!stream);
}

void tst_RealDrag::drag_backToTheStart_isNone_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("a target has taken it") << Answer::Move;
    QTest::newRow("nobody has taken it") << Answer::Refuse;
}

void tst_RealDrag::drag_backToTheStart_isNone()
{
    QFETCH(Answer, answer);
    Target source(sourcePlace, answer); // drops on itself
    source.open();
    QPoint const start = source.middle();
    Hands hands(m_tool);
    press(hands, source);
    bool isTaken = false;
    auto * const stream = makeStream(&source);
    watch(stream, isTaken);
    hands.move([] { return true; }, start + QPoint(40, 20));
    hands.move([&] { return QCursor::pos() == start + QPoint(40, 20); }, start);
    hands.release([&] {
        return source.log.contains(QStringLiteral("enter")) && QCursor::pos() == start &&
               (answer == Answer::Refuse || isTaken);
    });
    QCOMPARE(stream->drag(), DropEffect::DropEffectNone);
    QVERIFY(!hands.gaveUp());
    QCOMPARE(source.log.contains(QStringLiteral("payload")), answer == Answer::Move);
}

void tst_RealDrag::drag_betweenProcesses_bringsThePayload()
{
    QProcess other;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(otherProcessVariable), QStringLiteral("1"));
    other.setProcessEnvironment(environment);
    other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QByteArray said;
    connect(&other, &QProcess::readyReadStandardOutput, &other,
            [&] { said += other.readAllStandardOutput(); });
    other.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("-class"), QStringLiteral("tst_RealDrag")});
    QTRY_VERIFY_WITH_TIMEOUT(said.contains("ready\n"), 20000);

    Window source(sourcePlace);
    source.open();
    Hands hands(m_tool);
    press(hands, source);
    QPointer<KDragStream> const stream(makeStream(&source));
    bool isTaken = false;
    watch(stream, isTaken);
    QPoint const goal = otherProcessPlace + QPoint(100, 75);
    hands.move([] { return true; }, goal);
    hands.release([&] { return said.contains("enter\n") && isTaken && QCursor::pos() == goal; });
    QCOMPARE(stream->drag(), DropEffect::DropEffectMove);
    QVERIFY(!hands.gaveUp());
    QTRY_VERIFY_WITH_TIMEOUT(said.contains("payload\n"), 10000);
    QTRY_VERIFY(!stream);
    other.kill();
    QVERIFY(other.waitForFinished());
}

void tst_RealDrag::plainDrag_isClassifiedToo()
{
    Window source(sourcePlace);
    Target target(targetPlace, Answer::Move);
    source.open();
    target.open();
    Hands hands(m_tool);
    press(hands, source);
    auto * const drag = new QDrag(&source);
    drag->setMimeData(new QMimeData);
    drag->mimeData()->setText(QStringLiteral("text"));
    bool isTaken = false;
    watch(drag, isTaken);
    hands.move([] { return true; }, target.middle());
    hands.release([&] { return isTaken && QCursor::pos() == target.middle(); });
    QCOMPARE(realDrag(drag), DropEffect::DropEffectMove);
}

void tst_RealDrag::source_deletedDuringTheDrag_cancelsIt()
{
    auto source = std::make_unique<Window>(sourcePlace);
    Target target(targetPlace, Answer::Move);
    source->open();
    target.open();
    Hands hands(m_tool);
    press(hands, *source);
    QPointer<KDragStream> const stream(makeStream(source.get()));
    bool isTaken = false;
    watch(stream, isTaken);
    hands.move([] { return true; }, target.middle());
    QTimer deleter;
    connect(&deleter, &QTimer::timeout, &deleter, [&] {
        if (isTaken && QCursor::pos() == target.middle()) {
            deleter.stop();
            source.reset();
        }
    });
    deleter.start(10);
    QCOMPARE(stream->drag(), DropEffect::DropEffectCopy); // the mouse is elsewhere
    QVERIFY(!hands.gaveUp());
    QVERIFY(!source);
    QTRY_VERIFY(!stream);
    QVERIFY(!target.log.contains(QStringLiteral("payload")));
    // The next drag is as ever.
    Window next(sourcePlace);
    next.open();
    hands.release([] { return true; });
    hands.then([] { return true; }, {QStringLiteral("sleep"), QStringLiteral("0.1")});
    QTRY_VERIFY(hands.isDone());
    press(hands, next);
    QPointer<KDragStream> const second(makeStream(&next));
    isTaken = false;
    watch(second, isTaken);
    hands.move([] { return true; }, target.middle());
    hands.release([&] { return isTaken && QCursor::pos() == target.middle(); });
    QCOMPARE(second->drag(), DropEffect::DropEffectMove);
}

void tst_RealDrag::source_deletedByTheDrop_isStillAMove()
{
    auto source = std::make_unique<Window>(sourcePlace);
    Target target(targetPlace, Answer::Move);
    target.onDrop = [&source] { source.reset(); };
    source->open();
    target.open();
    Hands hands(m_tool);
    press(hands, *source);
    QPointer<KDragStream> const stream(makeStream(source.get()));
    bool isTaken = false;
    watch(stream, isTaken);
    hands.move([] { return true; }, target.middle());
    hands.release([&] { return isTaken && QCursor::pos() == target.middle(); });
    QCOMPARE(stream->drag(), DropEffect::DropEffectMove);
    QVERIFY(!source);
    QTRY_VERIFY(!stream);
}

// Started with the variable the program is the other process and nothing else.
[[maybe_unused]] static int const registered = zenutest::registerTest([]() -> QObject * {
    if (qEnvironmentVariableIsSet(otherProcessVariable)) {
        std::_Exit(beTheOtherProcess());
    }
    return new tst_RealDrag;
});

#include "tst_RealDrag.moc"
