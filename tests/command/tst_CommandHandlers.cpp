#include "tests/command/Recorder.h"
#include "tests/support/TestMain.h"

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KCommandUpdate.h>

#include <memory>
#include <type_traits>

using namespace zenu;
using zenutest::Recorder;

class tst_CommandHandlers : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void update_atFirst_isEnabledUncheckedAndNotRadio();
    void update_keepsWhatIsSet();
    void update_anyNumberButZero_isChecked();
    void methodHandler_alwaysEnable_enablesAndTouchesNothingElse();
    void methodHandler_doNothing_returns();
    void methodHandler_isAbstract();
    void dispatcher_unknownId_isFalse();
    void dispatcher_handlersOfOtherIds_areNotCalled();
    void dispatcher_notExclusive_callsAllInOrder();
    void dispatcher_exclusive_stopsAtTheFirstThatTakesIt();
    void dispatcher_exclusive_callsAllWhileNoneTakesIt();
    void dispatcher_onlyHandlerSaysNo_isFalseInBothForms();
    void dispatcher_update_laterHandlersOverwrite();
    void dispatcher_update_exclusive_keepsTheFirstAnswer();
    void dispatcher_update_nobodyAnswers_leavesTheState();
    void dispatcher_handlerAddedTwice_isCalledTwice();
    void dispatcher_nullHandler_isSkipped();
    void dispatcher_handlerAddsOthers_nextCallReachesThem();
    void dispatcher_handlerAddsItselfEachTime_ends();
    void dispatcher_handlerDeletesDispatcher_othersAreNotCalled();
    void dispatcher_handlerMakesItExclusive_holdsFromTheNextCall();
    void translator_mappedId_reachesTheTargetUnderTheOther();
    void translator_unmappedId_isFalseAndTargetIsNotCalled();
    void translator_targetSaysNo_isFalse();
    void translator_secondMapping_replacesTheFirst();
    void translator_addMapping_takesZeros();
    void translator_addMappings_null_doesNothing();
    void translator_addMappings_endsAtAZero_data();
    void translator_addMappings_endsAtAZero();
    void translator_nullTarget_isFalse();
};

void tst_CommandHandlers::update_atFirst_isEnabledUncheckedAndNotRadio()
{
    KCommandUpdate const state;
    QVERIFY(state.isEnabled());
    QVERIFY(!state.isChecked());
    QVERIFY(!state.isRadio());
}

void tst_CommandHandlers::update_keepsWhatIsSet()
{
    KCommandUpdate state;
    ICommandUpdate & face = state;
    face.setEnabled(false);
    face.setRadio(true);
    QVERIFY(!state.isEnabled());
    QVERIFY(!state.isChecked());
    QVERIFY(state.isRadio());
    face.setEnabled(true);
    face.setRadio(false);
    QVERIFY(state.isEnabled());
    QVERIFY(!state.isRadio());
}

void tst_CommandHandlers::update_anyNumberButZero_isChecked()
{
    KCommandUpdate state;
    for (int const checked : {1, 2, -1, std::numeric_limits<int>::min()}) {
        state.setChecked(checked);
        QVERIFY(state.isChecked());
    }
    state.setChecked(0);
    QVERIFY(!state.isChecked());
}

namespace {

class PlainMethods : public KMethodHandlerBase
{
public:
    bool cmd(unsigned int id) override
    {
        doNothing(id);
        return true;
    }
    bool update(unsigned int id, ICommandUpdate * state) override
    {
        alwaysEnable(id, state);
        return true;
    }
};

} // namespace

void tst_CommandHandlers::methodHandler_alwaysEnable_enablesAndTouchesNothingElse()
{
    PlainMethods handler;
    KCommandUpdate state;
    state.setEnabled(false);
    state.setChecked(5);
    state.setRadio(true);
    QVERIFY(handler.update(77, &state));
    QVERIFY(state.isEnabled());
    QVERIFY(state.isChecked());
    QVERIFY(state.isRadio());
    handler.alwaysEnable(0, nullptr);
}

void tst_CommandHandlers::methodHandler_doNothing_returns()
{
    PlainMethods handler;
    QVERIFY(handler.cmd(1));
}

void tst_CommandHandlers::methodHandler_isAbstract()
{
    static_assert(std::is_abstract_v<KMethodHandlerBase>);
    static_assert(std::is_abstract_v<ICommandHandler>);
    static_assert(std::is_abstract_v<ICommandUpdate>);
    static_assert(std::is_base_of_v<ICommandUpdate, KCommandUpdate>);
    // The shapes of a command method and of an update method.
    static_assert(std::is_same_v<decltype(&KMethodHandlerBase::doNothing),
                                 void (KMethodHandlerBase::*)(unsigned int)>);
    static_assert(std::is_same_v<decltype(&KMethodHandlerBase::alwaysEnable),
                                 void (KMethodHandlerBase::*)(unsigned int, ICommandUpdate *)>);
}

namespace {

// Three handlers of command 1; each knows it or not, and writes its number down.
struct Three
{
    explicit Three(std::initializer_list<bool> answers)
    {
        int number = 0;
        for (bool const answer : answers) {
            Recorder & handler = handlers.at(std::size_t(number++));
            if (answer) {
                handler.known[1];
            }
            handler.onCmd =
                handler.onUpdate = [this, number](unsigned) { order += QString::number(number); };
            dispatcher.addHandler(1, &handler);
        }
    }

    QString cmd()
    {
        order.clear();
        bool const taken = dispatcher.cmd(1);
        return order + (taken ? QStringLiteral(" true") : QStringLiteral(" false"));
    }
    QString update()
    {
        order.clear();
        KCommandUpdate state;
        bool const taken = dispatcher.update(1, &state);
        return order + (taken ? QStringLiteral(" true") : QStringLiteral(" false"));
    }

    KDispatchHandler dispatcher;
    std::array<Recorder, 3> handlers;
    QString order;
};

} // namespace

void tst_CommandHandlers::dispatcher_unknownId_isFalse()
{
    KDispatchHandler dispatcher;
    KCommandUpdate state;
    QVERIFY(!dispatcher.cmd(1));
    QVERIFY(!dispatcher.update(1, &state));
    QVERIFY(!dispatcher.isExclusive());
}

void tst_CommandHandlers::dispatcher_handlersOfOtherIds_areNotCalled()
{
    KDispatchHandler dispatcher;
    Recorder one;
    Recorder two;
    one.known[1];
    two.known[2];
    dispatcher.addHandler(1, &one);
    dispatcher.addHandler(2, &two);
    QVERIFY(dispatcher.cmd(2));
    QCOMPARE(one.takeCalls(), QString());
    QCOMPARE(two.takeCalls(), QStringLiteral("cmd 2"));
}

void tst_CommandHandlers::dispatcher_notExclusive_callsAllInOrder()
{
    Three three{false, true, false};
    QCOMPARE(three.cmd(), QStringLiteral("123 true"));
    QCOMPARE(three.update(), QStringLiteral("123 true"));
    Three first{true, false, false};
    QCOMPARE(first.cmd(), QStringLiteral("123 true"));
}

void tst_CommandHandlers::dispatcher_exclusive_stopsAtTheFirstThatTakesIt()
{
    Three three{false, true, false};
    three.dispatcher.setExclusive(true);
    QVERIFY(three.dispatcher.isExclusive());
    QCOMPARE(three.cmd(), QStringLiteral("12 true"));
    QCOMPARE(three.update(), QStringLiteral("12 true"));
    three.dispatcher.setExclusive(false);
    QCOMPARE(three.cmd(), QStringLiteral("123 true"));
}

void tst_CommandHandlers::dispatcher_exclusive_callsAllWhileNoneTakesIt()
{
    Three three{false, false, false};
    three.dispatcher.setExclusive(true);
    QCOMPARE(three.cmd(), QStringLiteral("123 false"));
    QCOMPARE(three.update(), QStringLiteral("123 false"));
}

void tst_CommandHandlers::dispatcher_onlyHandlerSaysNo_isFalseInBothForms()
{
    Three one{false};
    QCOMPARE(one.cmd(), QStringLiteral("1 false"));
    QCOMPARE(one.update(), QStringLiteral("1 false"));
    one.dispatcher.setExclusive(true);
    QCOMPARE(one.cmd(), QStringLiteral("1 false"));
    QCOMPARE(one.update(), QStringLiteral("1 false"));
}

void tst_CommandHandlers::dispatcher_update_laterHandlersOverwrite()
{
    Three three{true, true, false};
    three.handlers[0].known[1] = {false, 1, true};
    three.handlers[1].known[1] = {true, 0, false};
    KCommandUpdate state;
    QVERIFY(three.dispatcher.update(1, &state));
    QVERIFY(state.isEnabled());
    QVERIFY(!state.isChecked());
    QVERIFY(!state.isRadio());
}

void tst_CommandHandlers::dispatcher_update_exclusive_keepsTheFirstAnswer()
{
    Three three{true, true, false};
    three.dispatcher.setExclusive(true);
    three.handlers[0].known[1] = {false, 1, true};
    KCommandUpdate state;
    QVERIFY(three.dispatcher.update(1, &state));
    QVERIFY(!state.isEnabled());
    QVERIFY(state.isChecked());
    QVERIFY(state.isRadio());
}

void tst_CommandHandlers::dispatcher_update_nobodyAnswers_leavesTheState()
{
    Three three{false, false, false};
    KTranslatingHandler translator(&three.dispatcher);
    translator.addMapping(10, 1);
    unsigned int const table[] = {1, 20, 30, 10, 0};
    KDemultiplexingHandler demultiplexer(&translator, table);
    KCommandUpdate state;
    QVERIFY(!demultiplexer.update(20, &state));
    QCOMPARE(three.order, QStringLiteral("123"));
    QVERIFY(state.isEnabled());
    QVERIFY(!state.isChecked());
    QVERIFY(!state.isRadio());
}

void tst_CommandHandlers::dispatcher_handlerAddedTwice_isCalledTwice()
{
    KDispatchHandler dispatcher;
    Recorder handler;
    dispatcher.addHandler(1, &handler);
    dispatcher.addHandler(1, &handler);
    QVERIFY(!dispatcher.cmd(1));
    QCOMPARE(handler.takeCalls(), QStringLiteral("cmd 1 cmd 1"));
}

void tst_CommandHandlers::dispatcher_nullHandler_isSkipped()
{
    KDispatchHandler dispatcher;
    Recorder handler;
    handler.known[1];
    dispatcher.addHandler(1, nullptr);
    QVERIFY(!dispatcher.cmd(1));
    dispatcher.addHandler(1, &handler);
    QVERIFY(dispatcher.cmd(1));
}

void tst_CommandHandlers::dispatcher_handlerAddsOthers_nextCallReachesThem()
{
    KDispatchHandler dispatcher;
    Recorder first;
    Recorder second;
    dispatcher.addHandler(1, &first);
    first.onCmd = [&](unsigned) {
        first.onCmd = nullptr;
        for (unsigned i = 0; i < 100; ++i) {
            dispatcher.addHandler(i, &second);
        }
    };
    QVERIFY(!dispatcher.cmd(1));
    QCOMPARE(second.takeCalls(), QString());
    dispatcher.cmd(1);
    QCOMPARE(second.takeCalls(), QStringLiteral("cmd 1"));
}

void tst_CommandHandlers::dispatcher_handlerAddsItselfEachTime_ends()
{
    KDispatchHandler dispatcher;
    Recorder handler;
    handler.onCmd = [&](unsigned id) { dispatcher.addHandler(id, &handler); };
    dispatcher.addHandler(1, &handler);
    for (int expected : {1, 2, 4, 8}) {
        dispatcher.cmd(1);
        QCOMPARE(int(handler.calls.size()), expected);
        handler.calls.clear();
    }
}

void tst_CommandHandlers::dispatcher_handlerDeletesDispatcher_othersAreNotCalled()
{
    for (bool const answer : {true, false}) {
        auto dispatcher = std::make_unique<KDispatchHandler>();
        Recorder first;
        auto second = std::make_unique<Recorder>();
        if (answer) {
            first.known[1];
        }
        first.onCmd = [&](unsigned) {
            dispatcher.reset();
            second.reset();
        };
        dispatcher->addHandler(1, &first);
        dispatcher->addHandler(1, second.get());
        QCOMPARE(dispatcher->cmd(1), answer);
        QVERIFY(!dispatcher);
    }
}

void tst_CommandHandlers::dispatcher_handlerMakesItExclusive_holdsFromTheNextCall()
{
    Three three{true, true, true};
    three.handlers[0].onCmd = [&](unsigned) { three.dispatcher.setExclusive(true); };
    QCOMPARE(three.cmd(), QStringLiteral("23 true"));
    QCOMPARE(three.cmd(), QStringLiteral(" true"));
}

void tst_CommandHandlers::translator_mappedId_reachesTheTargetUnderTheOther()
{
    Recorder target;
    target.known[20] = {false, 1, true};
    KTranslatingHandler translator(&target);
    translator.addMapping(1, 20);
    QVERIFY(translator.cmd(1));
    KCommandUpdate state;
    QVERIFY(translator.update(1, &state));
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 20 update 20"));
    QVERIFY(!state.isEnabled());
    QVERIFY(state.isChecked());
    QVERIFY(state.isRadio());
}

void tst_CommandHandlers::translator_unmappedId_isFalseAndTargetIsNotCalled()
{
    Recorder target;
    target.known[1];
    target.known[20];
    KTranslatingHandler translator(&target);
    translator.addMapping(1, 20);
    KCommandUpdate state;
    QVERIFY(!translator.cmd(20));
    QVERIFY(!translator.update(20, &state));
    QVERIFY(!translator.cmd(0));
    QCOMPARE(target.takeCalls(), QString());
}

void tst_CommandHandlers::translator_targetSaysNo_isFalse()
{
    Recorder target;
    KTranslatingHandler translator(&target);
    translator.addMapping(1, 20);
    KCommandUpdate state;
    QVERIFY(!translator.cmd(1));
    QVERIFY(!translator.update(1, &state));
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 20 update 20"));
}

void tst_CommandHandlers::translator_secondMapping_replacesTheFirst()
{
    Recorder target;
    KTranslatingHandler translator(&target);
    translator.addMapping(1, 20);
    translator.addMapping(1, 30);
    translator.cmd(1);
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 30"));
}

void tst_CommandHandlers::translator_addMapping_takesZeros()
{
    Recorder target;
    KTranslatingHandler translator(&target);
    translator.addMapping(0, 4294967295U);
    translator.addMapping(4294967295U, 0);
    translator.cmd(0);
    translator.cmd(4294967295U);
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 4294967295 cmd 0"));
}

void tst_CommandHandlers::translator_addMappings_null_doesNothing()
{
    Recorder target;
    KTranslatingHandler translator(&target);
    translator.addMapping(1, 20);
    translator.addMappings(nullptr);
    translator.cmd(1);
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 20"));
}

void tst_CommandHandlers::translator_addMappings_endsAtAZero_data()
{
    QTest::addColumn<unsigned>("from");
    QTest::addColumn<unsigned>("to");
    QTest::newRow("both") << 0U << 0U;
    QTest::newRow("the first member") << 0U << 5U;
    QTest::newRow("the second member") << 2U << 0U;
}

void tst_CommandHandlers::translator_addMappings_endsAtAZero()
{
    QFETCH(unsigned, from);
    QFETCH(unsigned, to);
    Recorder target;
    KTranslatingHandler translator(&target);
    KTranslatingHandler::IDPair pairs[] = {{1, 10}, {from, to}, {3, 30}};
    translator.addMappings(pairs);
    for (unsigned const id : {0U, 1U, 2U, 3U}) {
        translator.cmd(id);
    }
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 10"));
    // Nor is anything read behind the end.
    auto const heap = std::make_unique<KTranslatingHandler::IDPair[]>(1);
    heap[0] = {from, to};
    translator.addMappings(heap.get());
}

void tst_CommandHandlers::translator_nullTarget_isFalse()
{
    KTranslatingHandler translator(nullptr);
    translator.addMapping(1, 2);
    KCommandUpdate state;
    QVERIFY(!translator.cmd(1));
    QVERIFY(!translator.update(1, &state));
}

ZENU_TEST(tst_CommandHandlers)
#include "tst_CommandHandlers.moc"
