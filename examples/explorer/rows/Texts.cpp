#include "examples/explorer/rows/Texts.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <iterator>

namespace explorer {

void sizeText(std::int64_t bytes, std::string & text)
{
    static constexpr char const * units[] = {" B", " kB", " MB", " GB", " TB", " PB", " EB"};
    if (bytes < 1000) {
        text = std::to_string(bytes) + units[0];
        return;
    }
    std::size_t unit = 1;
    std::int64_t size = 1000;
    // As long as three digits do not hold the rounded number.
    while (unit + 1 < std::size(units) && bytes >= size * 1000 - size / 2) {
        size *= 1000;
        ++unit;
    }
    std::int64_t const tenths = (bytes / (size / 100) + 5) / 10;
    if (tenths < 100) {
        text = std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
    } else {
        text = std::to_string((bytes / (size / 10) + 5) / 10);
    }
    text += units[unit];
}

void dateText(std::int64_t seconds, std::string & text)
{
    text.clear();
    std::time_t const time = seconds;
    std::tm parts;
    if (!localtime_r(&time, &parts)) {
        return;
    }
    std::array<char, 32> buffer;
    text.assign(buffer.data(),
                std::strftime(buffer.data(), buffer.size(), "%Y-%m-%d %H:%M", &parts));
}

std::string countText(std::int64_t count)
{
    std::string text = std::to_string(count);
    std::size_t const first = count < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > first + 3;) {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}

} // namespace explorer
