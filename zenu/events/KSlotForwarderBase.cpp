#include "zenu/events/KSlotForwarderBase.h"

namespace zenu {

KSlotForwarderBase::KSlotForwarderBase(QObject * parent)
    : QObject(parent)
{
}

KSlotForwarderBase::~KSlotForwarderBase() = default;

void KSlotForwarderBase::slot()
{
    forward();
}

} // namespace zenu
