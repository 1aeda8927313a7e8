#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/overlay/NarrowText.h>

namespace gallery {

namespace {

QWidget * makeTexts()
{
    // [code]
    auto const fill = [](ValueGrid & values, std::string const & narrow) {
        QString const wide = zenu::chars2qstring(narrow.c_str());
        values.add(SHOW(wide.size()));
        values.add(SHOW(zenu::qstring2chars(wide)));
        values.add(SHOW(zenu::qstring2chars(wide + QChar(0x20AC))));
        values.add(SHOW(zenu::qstring2chars(QString())));
        values.add(SHOW(zenu::chars2qstring(nullptr).isNull()));
        values.add(SHOW(zenu::keptNarrowTexts));
    };
    // [code]
    return new TypedValues(QStringLiteral("Text"), "Caf\xe9", fill);
}

} // namespace

Page narrowTextPage()
{
    return {"NarrowText",
            "Texts in Latin-1, as the library takes and gives them, and QString.",
            {"NarrowText.h"},
            makeTexts};
}

} // namespace gallery
