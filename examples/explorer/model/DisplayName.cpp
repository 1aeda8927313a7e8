#include "examples/explorer/model/DisplayName.h"

#include "examples/explorer/model/Utf8.h"

#include <QChar>
#include <QList>
#include <QString>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace explorer {

namespace {

struct Replacement
{
    char32_t code;
    char const * text;
};

// Sorted by code; lower case where there is a case.
constexpr Replacement replacements[] = {
    {0x0111, "d"},    {0x0131, "i"},  {0x0142, "l"},  {0x014b, "ng"},  {0x0153, "oe"},
    {0x03b1, "a"},    {0x03b2, "b"},  {0x03b3, "g"},  {0x03b4, "d"},   {0x03b5, "e"},
    {0x03b6, "z"},    {0x03b7, "i"},  {0x03b8, "th"}, {0x03b9, "i"},   {0x03ba, "k"},
    {0x03bb, "l"},    {0x03bc, "m"},  {0x03bd, "n"},  {0x03be, "x"},   {0x03bf, "o"},
    {0x03c0, "p"},    {0x03c1, "r"},  {0x03c2, "s"},  {0x03c3, "s"},   {0x03c4, "t"},
    {0x03c5, "y"},    {0x03c6, "f"},  {0x03c7, "ch"}, {0x03c8, "ps"},  {0x03c9, "o"},
    {0x0430, "a"},    {0x0431, "b"},  {0x0432, "v"},  {0x0433, "g"},   {0x0434, "d"},
    {0x0435, "e"},    {0x0436, "zh"}, {0x0437, "z"},  {0x0438, "i"},   {0x0439, "y"},
    {0x043a, "k"},    {0x043b, "l"},  {0x043c, "m"},  {0x043d, "n"},   {0x043e, "o"},
    {0x043f, "p"},    {0x0440, "r"},  {0x0441, "s"},  {0x0442, "t"},   {0x0443, "u"},
    {0x0444, "f"},    {0x0445, "kh"}, {0x0446, "ts"}, {0x0447, "ch"},  {0x0448, "sh"},
    {0x0449, "shch"}, {0x044a, "\""}, {0x044b, "y"},  {0x044c, "'"},   {0x044d, "e"},
    {0x044e, "yu"},   {0x044f, "ya"}, {0x0451, "yo"}, {0x2010, "-"},   {0x2011, "-"},
    {0x2012, "-"},    {0x2013, "-"},  {0x2014, "-"},  {0x2018, "'"},   {0x2019, "'"},
    {0x201a, ","},    {0x201c, "\""}, {0x201d, "\""}, {0x201e, "\""},  {0x2022, "\xb7"},
    {0x2026, "..."},  {0x2032, "'"},  {0x2033, "\""}, {0x20ac, "EUR"}, {0x2192, "->"},
    {0x2212, "-"},
};

bool isPlain(char character)
{
    return character >= ' ' && character <= '~';
}

void appendPercentForm(std::string_view bytes, std::string & text)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    for (char const byte : bytes) {
        auto const value = static_cast<unsigned char>(byte);
        text += {'%', digits[value >> 4], digits[value & 15]};
    }
}

// Null for a character without replacement.
char const * replacementOf(char32_t code)
{
    auto const * const found = std::ranges::lower_bound(replacements, code, {}, &Replacement::code);
    return found != std::end(replacements) && found->code == code ? found->text : nullptr;
}

bool appendLetter(char32_t code, std::string & text)
{
    if (code < 0x100) {
        bool const isControl = code < 0x20 || (code >= 0x7f && code < 0xa0);
        if (!isControl) {
            text += static_cast<char>(code);
        }
        return !isControl;
    }
    char32_t const lower = QChar::toLower(code);
    char const * const replacement = replacementOf(lower);
    if (!replacement) {
        return false;
    }
    std::size_t const start = text.size();
    text += replacement;
    if (lower != code) {
        text[start] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[start])));
    }
    return true;
}

// The letters of a character without its accents.
bool appendWithoutAccents(char32_t code, std::string & text)
{
    QString const parts = QString::fromUcs4(&code, 1).normalized(QString::NormalizationForm_KD);
    std::size_t const start = text.size();
    for (char32_t const part : parts.toUcs4()) {
        if (!QChar::isMark(part) && !appendLetter(part, text)) {
            text.resize(start);
            return false;
        }
    }
    return true;
}

void appendCharacter(char32_t code, std::string_view bytes, std::string & text)
{
    if (!appendLetter(code, text) && (code < 0x100 || !appendWithoutAccents(code, text))) {
        appendPercentForm(bytes, text);
    }
}

// Some systems write an accent behind its letter: the two are shown as one where Latin-1 has it.
// 0 for characters that do not belong together.
char32_t composed(Character const & letter, Character const & mark)
{
    if (letter.isStray() || mark.isStray() || !QChar::isMark(mark.code)) {
        return 0;
    }
    std::array<char32_t, 2> const pair{letter.code, mark.code};
    auto const one =
        QString::fromUcs4(pair.data(), 2).normalized(QString::NormalizationForm_C).toUcs4();
    return one.size() == 1 ? one.front() : 0;
}

} // namespace

void displayName(char const * name, std::string & text)
{
    std::string_view const whole = name;
    text.clear();
    while (*name) {
        if (isPlain(*name) && static_cast<signed char>(name[1]) >= 0) {
            text += *name++;
            continue;
        }
        Character const character = characterAt(name);
        std::size_t size = character.size;
        if (character.isStray()) {
            appendPercentForm({name, size}, text);
        } else {
            Character const next = characterAt(name + size);
            char32_t const pair = composed(character, next);
            size += pair ? next.size : 0;
            appendCharacter(pair ? pair : character.code, {name, size}, text);
        }
        name += size;
    }
    if (text.empty()) {
        appendPercentForm(whole, text); // an accent without a letter
    }
}

std::string displayName(char const * name)
{
    std::string text;
    displayName(name, text);
    return text;
}

std::string nameFromText(char const * text)
{
    return QString::fromLatin1(text).toStdString();
}

bool isShownExactly(char const * name)
{
    return nameFromText(displayName(name).c_str()) == name;
}

} // namespace explorer
