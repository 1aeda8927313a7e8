#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/time/TimeUnit.h>
#include <zenu/time/TimeValue.h>

namespace gallery {

namespace {

QWidget * makeTimes()
{
    // [code]
    auto const fill = [](ValueGrid & values, std::string const & text) {
        using zenu::TimeUnit;
        using zenu::TimeValue;
        TimeValue const time(text.c_str(), 1000.0); // counts picoseconds
        values.add(SHOW(time.valid()));
        values.add(SHOW(time.internal()));
        values.add(SHOW(time.str(3, false)));
        values.add(SHOW(time.str(TimeUnit::us, 6, false)));
        values.add(SHOW(time.str(3, true)));
        values.add(SHOW(time.bestUnit().name()));
        values.add(SHOW(time.inUnit(TimeUnit::sec)));
        values.add(SHOW((-time).str(3, false)));
        values.add(SHOW(TimeValue::readUnit(text.c_str()).name()));
        values.add(SHOW(TimeValue::convert(1.0, TimeUnit::hr, TimeUnit::min)));
    };
    // [code]
    return new TypedValues(QStringLiteral("A time"), "1 hr 1ms500us", fill);
}

} // namespace

Page timeValuePage()
{
    return {"TimeValue",
            "Times from femtoseconds to hours: type one, with units.",
            {"TimeValue", "TimeUnit"},
            makeTimes};
}

} // namespace gallery
