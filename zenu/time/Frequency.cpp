#include "zenu/time/Frequency.h"

#include "zenu/util/StringUtils.h"
#include "zenu/util/inner/NumberText.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace zenu::Frequency {

namespace {

constexpr char const * unitNames[] = {"GHz", "MHz", "kHz", "Hz", "mHz", "uHz"};

constexpr EUnit known(EUnit unit)
{
    return unit >= GHz && unit <= uHz ? unit : MHz;
}

// One multiplication for each unit on the way: the last bit of a result depends on that.
double converted(double value, EUnit from, EUnit to)
{
    int step = known(from);
    for (; step < known(to); ++step) {
        value *= 1000.0;
    }
    for (; step > known(to); --step) {
        value *= 0.001;
    }
    return value;
}

constexpr bool isNamed(std::string_view word, std::string_view name)
{
    return std::equal(word.begin(), word.end(), name.begin(), name.end(),
                      [](char a, char b) { return foldCase(a) == foldCase(b); });
}

// The unit of a word without white space; `first` is the first character of the whole text.
std::optional<EUnit> unitOf(std::string_view word, char first)
{
    auto const found = std::find_if(std::begin(unitNames), std::end(unitNames),
                                    [&](char const * name) { return isNamed(word, name); });
    if (found == std::end(unitNames)) {
        return std::nullopt;
    }
    auto const unit = static_cast<EUnit>(found - std::begin(unitNames));
    // Without its case mHz is found as MHz.
    return unit == MHz && first == 'm' ? mHz : unit;
}

bool hasLetter(char const * first, char const * last, char letter)
{
    return std::any_of(first, last, [&](char c) { return foldCase(c) == letter; });
}

// Reads a number as scanf does, which differs from strtod in two points: the letter and the sign of
// an exponent without digits belong to the number, as in "1e MHz", and parentheses don't to a NaN.
char const * scanNumber(char const * first, char const * last, double * value)
{
    char const * const end = readNumber(first, last, value);
    if (end && end[-1] == ')') {
        return std::find(first, end, '(');
    }
    if (!end || end == last) {
        return end;
    }
    char const letter = static_cast<char>(foldCase(*end));
    if (letter != 'e' && letter != 'p') {
        return end;
    }
    bool const isHex = hasLetter(first, end, 'x');
    bool const isWord = hasLetter(first, end, 'n'); // inf or nan
    if (isWord || letter != (isHex ? 'p' : 'e') || hasLetter(first, end, letter)) {
        return end;
    }
    bool const hasSign = end + 1 != last && (end[1] == '+' || end[1] == '-');
    return end + (hasSign ? 2 : 1);
}

bool readFrequency(double * value, bool * hasUnit, std::string_view text, EUnit unit)
{
    char const * const last = text.data() + text.size();
    double number = 0;
    char const * const end = scanNumber(text.data(), last, &number);
    if (!end) {
        return false;
    }
    // "-0", ".0" and " 0" are refused on purpose: entry fields take them for unfinished.
    if ((number == 0 && text.front() != '0') || number < 0) {
        return false;
    }
    char const * const word = std::find_if_not(end, last, isSpace);
    char const * const wordEnd = std::find_if(word, last, isSpace);
    if (word != wordEnd) {
        auto const found = unitOf({word, wordEnd}, *word);
        if (!found) {
            return false;
        }
        unit = *found;
    }
    if (hasUnit) {
        *hasUnit = word != wordEnd;
    }
    if (value) {
        *value = converted(number, unit, MHz);
    }
    return true;
}

} // namespace

char const * UnitName(EUnit unit)
{
    return unitNames[known(unit)];
}

bool String2Unit(std::string const & text, EUnit * unit)
{
    std::string word = text;
    trim(word);
    auto const found = unitOf(word.c_str(), *text.c_str());
    if (found && unit) {
        *unit = *found;
    }
    return found.has_value();
}

bool String2Unit(char const * text, EUnit * unit)
{
    return String2Unit(std::string(text ? text : ""), unit);
}

bool String2Double(double * value, bool * hasUnit, std::string const & text, EUnit defaultUnit)
{
    return String2Double(value, hasUnit, text.c_str(), defaultUnit);
}

bool String2Double(double * value, bool * hasUnit, char const * text, EUnit defaultUnit)
{
    return readFrequency(value, hasUnit, text ? text : "", defaultUnit);
}

EUnit GetBestUnit(double value)
{
    if (value >= 1000.0) {
        return GHz;
    }
    int unit = MHz;
    for (; unit < uHz && !(value >= 1.0); ++unit) {
        value *= 1000.0;
    }
    return static_cast<EUnit>(unit);
}

std::string Double2String(double value, EUnit unit)
{
    constexpr int decimals = 6;
    std::string text;
    appendFixed(text, converted(value, MHz, unit), decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return text += UnitName(unit);
}

std::string Double2String(double value)
{
    return Double2String(value, GetBestUnit(value));
}

} // namespace zenu::Frequency
