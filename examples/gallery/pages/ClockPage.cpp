#include "examples/gallery/Page.h"

#include <zenu/time/KClockWidget.h>

namespace gallery {

namespace {

QWidget * makeClock()
{
    // [code]
    auto * const clock = new zenu::KClockWidget;
    clock->setPeriod(8e6); // femtoseconds, so that the frequency becomes 125 MHz
    clock->setOffset(2e5);
    clock->setFillingWith1(30); // percent
    clock->setHighStartValue(true);
    // [code]
    return clock;
}

} // namespace

Page clockPage()
{
    return {"Clock",
            "A period of a clock signal: drag the handle, or type.",
            {"KClockWidget"},
            makeClock};
}

} // namespace gallery
