#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/time/Frequency.h>

namespace gallery {

namespace {

QWidget * makeFrequencies()
{
    // [code]
    auto const fill = [](ValueGrid & values, std::string const & text) {
        namespace Frequency = zenu::Frequency;
        double value = 0;
        bool hasUnit = false;
        values.add(SHOW(Frequency::String2Double(&value, &hasUnit, text, Frequency::kHz)));
        values.add(SHOW(value)); // in MHz
        values.add(SHOW(hasUnit));
        values.add(SHOW(Frequency::Double2String(value)));
        values.add(SHOW(Frequency::Double2String(value, Frequency::Hz)));
        values.add(SHOW(Frequency::UnitName(Frequency::GetBestUnit(value))));
    };
    // [code]
    return new TypedValues(QStringLiteral("A frequency"), "1500 MHz", fill);
}

} // namespace

Page frequencyPage()
{
    return {"Frequency",
            "Frequencies as texts; without a unit a number counts in kHz here.",
            {"Frequency.h"},
            makeFrequencies};
}

} // namespace gallery
