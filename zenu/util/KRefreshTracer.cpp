#include "zenu/util/KRefreshTracer.h"

#include "zenu/util/inner/RefreshTracing.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>

namespace zenu {

namespace {

constexpr int tickMilliseconds = 1000;

} // namespace

struct KRefreshTracer::PrivateData
{
    explicit PrivateData(KRefreshTracer * tracer)
        : ticks(tracer)
        , owner(tracer)
    {
    }

    RefreshState state = RefreshState::Resting;
    QTimer ticks;
    int count = 0;
    int threshold = 1;
    KRefreshTracer * owner;
};

// Lets the free operations at the tracer's data.
struct RefreshTracing
{
    static KRefreshTracer::PrivateData & data() { return *refreshTracer()->d; }
};

KRefreshTracer::KRefreshTracer(QObject * application)
    : QObject(application)
    , d(std::make_unique<PrivateData>(this))
{
    connect(&d->ticks, &QTimer::timeout, d->owner, &KRefreshTracer::timer);
    d->ticks.start(tickMilliseconds);
}

KRefreshTracer::~KRefreshTracer() = default;

void KRefreshTracer::timer()
{
    switch (d->state) {
    case RefreshState::Armed:
        break;
    case RefreshState::JustFired:
        d->state = RefreshState::Resting;
        break;
    case RefreshState::Resting:
        d->state = RefreshState::Armed;
        QApplication::beep();
        break;
    }
}

void KRefreshTracer::end()
{
    delete this;
}

KRefreshTracer * refreshTracer()
{
    static QPointer<KRefreshTracer> s_tracer;
    if (!s_tracer) {
        s_tracer = new KRefreshTracer(QCoreApplication::instance());
    }
    return s_tracer;
}

void notifyRefresh()
{
    auto & data = RefreshTracing::data();
    if (data.state != RefreshState::Armed) {
        return;
    }
    if (++data.count >= data.threshold) {
        data.state = RefreshState::JustFired;
        data.count = 0;
        qDebug("Break at me !!!"); // the place for a breakpoint
    }
}

void setRefreshThreshold(int threshold)
{
    RefreshTracing::data().threshold = threshold;
}

int refreshThreshold()
{
    return RefreshTracing::data().threshold;
}

void resetRefreshTracer()
{
    auto & data = RefreshTracing::data();
    data.count = 0;
    data.state = RefreshState::Resting;
}

RefreshState refreshState()
{
    return RefreshTracing::data().state;
}

int refreshCount()
{
    return RefreshTracing::data().count;
}

} // namespace zenu
