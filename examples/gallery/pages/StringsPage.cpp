#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/util/StringUtils.h>

namespace gallery {

namespace {

// [code]
std::string trimmed(std::string text)
{
    zenu::trim(text);
    return text;
}

std::string upper(std::string text)
{
    zenu::makeUpper(text);
    return text;
}

void fill(ValueGrid & values, std::string text)
{
    values.add(SHOW(trimmed(text)));
    values.add(SHOW(upper(text)));
    values.add(SHOW(zenu::extractLeft(text, 4)));
    values.add(SHOW(zenu::extractMid(text, 4, 4)));
    values.add(SHOW(zenu::extractRight(text, 4)));
    values.add(SHOW(zenu::string2int64(text.c_str())));
    values.add(SHOW(zenu::compareNoCase(text, "  42 zenu")));
    values.add(SHOW(zenu::equalNoCase(text, "  42 ZENU  ")));
    values.add(SHOW(zenu::num2string(1e20)));
}
// [code]

QWidget * makeStrings()
{
    return new TypedValues(QStringLiteral("A text"), "  42 Zenu  ", fill);
}

} // namespace

Page stringsPage()
{
    return {"Strings",
            "Texts without regard to case, trimmed, cut, and as numbers.",
            {"StringUtils.h"},
            makeStrings};
}

} // namespace gallery
