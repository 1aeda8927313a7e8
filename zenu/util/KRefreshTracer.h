#pragma once

#include "zenu/ZenuExport.h"

#include <QObject>

#include <memory>

namespace zenu {

/// Helps to catch storms of refreshes: beeps when it is armed, which is once in a while, and stops
/// at a place for a breakpoint when refreshes reach a threshold while it is.
///
/// There is one in a process, made by the library at the first use of the operations that feed it
/// and owned by the application object. It has a timer of one second and costs nothing else. GUI
/// thread only.
class ZENU_EXPORT KRefreshTracer : public QObject
{
    Q_OBJECT

public:
    ~KRefreshTracer() override;

public Q_SLOTS:
    /// A second has passed: a tracer that has just fired rests, one that rests beeps and is armed.
    void timer();
    /// The tracer deletes itself at once. The next use makes a new one.
    void end();

private:
    friend KRefreshTracer * refreshTracer();
    friend struct RefreshTracing;
    explicit KRefreshTracer(QObject * application);

    struct PrivateData;
    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
