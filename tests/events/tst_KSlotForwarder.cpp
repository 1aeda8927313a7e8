#include "tests/support/TestMain.h"

#include <zenu/events/KSlotForwarderBase.h>

#include <QAction>
#include <QTimer>

#include <functional>

using namespace zenu;

namespace {

// As applications write them: no Q_OBJECT.
class Forwarder : public KSlotForwarderBase
{
public:
    Forwarder(QObject * parent, std::function<void()> function)
        : KSlotForwarderBase(parent)
        , m_function(std::move(function))
    {
    }

protected:
    void forward() override { m_function(); }

private:
    std::function<void()> m_function;
};

} // namespace

class tst_KSlotForwarder : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void construction_parentAndNoName();
    void parentDies_forwarderToo();
    void slot_callsForward();
    void signal_reachesTheTarget();
    void signal_byItsName_reachesTheTarget();
    void signal_withArguments_dropsThem();
    void forwarderDies_signalGoesNowhere();
    void forward_mayDeleteTheForwarder();
};

void tst_KSlotForwarder::construction_parentAndNoName()
{
    QObject parent;
    auto * const forwarder = new Forwarder(&parent, [] {});
    QCOMPARE(forwarder->parent(), &parent);
    QVERIFY(forwarder->objectName().isEmpty());
    QCOMPARE(forwarder->qObject(), static_cast<QObject *>(forwarder));
    Forwarder const lonely(nullptr, [] {});
    QVERIFY(!lonely.parent());
}

void tst_KSlotForwarder::parentDies_forwarderToo()
{
    auto parent = std::make_unique<QObject>();
    QPointer<Forwarder> const forwarder(new Forwarder(parent.get(), [] {}));
    parent.reset();
    QVERIFY(!forwarder);
}

void tst_KSlotForwarder::slot_callsForward()
{
    int calls = 0;
    Forwarder forwarder(nullptr, [&calls] { ++calls; });
    KSlotForwarderBase & base = forwarder;
    base.slot();
    QCOMPARE(calls, 1);
}

void tst_KSlotForwarder::signal_reachesTheTarget()
{
    int calls = 0;
    Forwarder forwarder(nullptr, [&calls] { ++calls; });
    QTimer timer;
    connect(&timer, &QTimer::timeout, &forwarder, &KSlotForwarderBase::slot);
    timer.start(0);
    QTRY_VERIFY(calls > 0);
}

void tst_KSlotForwarder::signal_byItsName_reachesTheTarget()
{
    int calls = 0;
    Forwarder forwarder(nullptr, [&calls] { ++calls; });
    QObject sender;
    QVERIFY(
        connect(&sender, SIGNAL(objectNameChanged(QString)), forwarder.qObject(), SLOT(slot())));
    sender.setObjectName(QStringLiteral("other"));
    QCOMPARE(calls, 1);
}

void tst_KSlotForwarder::signal_withArguments_dropsThem()
{
    int calls = 0;
    Forwarder forwarder(nullptr, [&calls] { ++calls; });
    QAction action;
    connect(&action, &QAction::triggered, &forwarder, &KSlotForwarderBase::slot);
    action.trigger();
    QCOMPARE(calls, 1);
}

void tst_KSlotForwarder::forwarderDies_signalGoesNowhere()
{
    int calls = 0;
    QAction action;
    {
        Forwarder forwarder(nullptr, [&calls] { ++calls; });
        connect(&action, &QAction::triggered, &forwarder, &KSlotForwarderBase::slot);
    }
    action.trigger();
    QCOMPARE(calls, 0);
}

void tst_KSlotForwarder::forward_mayDeleteTheForwarder()
{
    QAction action;
    QPointer<Forwarder> forwarder;
    forwarder = new Forwarder(&action, [&forwarder] { delete forwarder; });
    connect(&action, &QAction::triggered, forwarder, &KSlotForwarderBase::slot);
    action.trigger();
    QVERIFY(!forwarder);
}

ZENU_TEST(tst_KSlotForwarder)
#include "tst_KSlotForwarder.moc"
