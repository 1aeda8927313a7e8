#include "examples/explorer/model/NaturalOrder.h"

#include "examples/explorer/model/Utf8.h"

#include <QChar>
#include <QString>

#include <array>
#include <cstring>

namespace explorer {

namespace {

constexpr char32_t tableSize = 0x250; // the Latin blocks

char32_t withoutCaseAndAccent(char32_t code)
{
    QString const parts = QChar::decomposition(code);
    char32_t const base = parts.isEmpty() ? code : parts.at(0).unicode();
    // One step leaves an accent on letters that carry two.
    QString const deeper = QChar::decomposition(base);
    return QChar::toCaseFolded(deeper.isEmpty() ? base : deeper.at(0).unicode());
}

char32_t fold(char32_t code)
{
    static std::array<char32_t, tableSize> const table = [] {
        std::array<char32_t, tableSize> filled{};
        for (char32_t i = 0; i < tableSize; ++i) {
            filled[i] = withoutCaseAndAccent(i);
        }
        return filled;
    }();
    if (code < tableSize) {
        return table[code];
    }
    return code < Character::strayBytes ? QChar::toCaseFolded(code) : code;
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Compares the numbers that start at `a` and `b` by value, however long, and steps behind them.
int compareNumbers(char const *& a, char const *& b)
{
    while (*a == '0') {
        ++a;
    }
    while (*b == '0') {
        ++b;
    }
    int order = 0;
    while (isDigit(*a) && isDigit(*b)) {
        if (order == 0) {
            order = *a - *b;
        }
        ++a;
        ++b;
    }
    if (isDigit(*a) != isDigit(*b)) {
        return isDigit(*a) ? 1 : -1;
    }
    return order;
}

} // namespace

int compareNatural(char const * a, char const * b)
{
    char const * const wholeA = a;
    char const * const wholeB = b;
    while (*a && *b) {
        if (isDigit(*a) && isDigit(*b)) {
            if (int const order = compareNumbers(a, b)) {
                return order;
            }
            continue;
        }
        Character const left = characterAt(a);
        Character const right = characterAt(b);
        if (left.code != right.code) {
            char32_t const foldedLeft = fold(left.code);
            char32_t const foldedRight = fold(right.code);
            if (foldedLeft != foldedRight) {
                return foldedLeft < foldedRight ? -1 : 1;
            }
        }
        a += left.size;
        b += right.size;
    }
    if (*a || *b) {
        return *a ? 1 : -1;
    }
    return std::strcmp(wholeA, wholeB);
}

} // namespace explorer
