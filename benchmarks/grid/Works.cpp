#include "Works.h"

namespace bench {

namespace {

bool quickRun = false;

} // namespace

void setQuick(bool quick)
{
    quickRun = quick;
}

bool isQuick()
{
    return quickRun;
}

std::string sizeName(int rows)
{
    std::string text = std::to_string(rows);
    for (std::size_t place = text.size(); place > 3;) {
        place -= 3;
        text.insert(place, 1, ' ');
    }
    return text;
}

} // namespace bench
