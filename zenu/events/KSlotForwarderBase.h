#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QObject>

namespace zenu {

/// Receives a signal for an object that is no QObject: whatever is connected to `slot` ends in
/// `forward`, which a small derived class without Q_OBJECT overrides. It belongs to its parent.
class ZENU_EXPORT KSlotForwarderBase : public QObject
{
    Q_OBJECT
public:
    /// Dies with `parent`; with null its maker deletes it.
    explicit KSlotForwarderBase(QObject * parent);
    ~KSlotForwarderBase() override;

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

public Q_SLOTS:
    /// Calls `forward`. Connects to any signal; arguments of the signal are dropped.
    void slot();

protected:
    /// What the signal is for. It may delete the forwarder.
    virtual void forward() = 0;
};

} // namespace zenu
