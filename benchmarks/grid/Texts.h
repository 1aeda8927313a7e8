#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace bench {

// What the texts of a column look like.
enum class TextKind
{
    Random,   // 4 to 15 letters and digits, of both cases
    Numbered, // "Entry no 0012345": what is different comes late
};

// Texts of cells, made before anything is measured. The same numbers give the same texts.
class Texts
{
public:
    static constexpr std::size_t longest = 15;

    Texts(int rows, int columns, TextKind kind = TextKind::Random);

    int rows() const { return rowCount; }
    int columns() const { return columnCount; }
    char const * at(int row, int column) const
    {
        return bytes[static_cast<std::size_t>(row) * static_cast<std::size_t>(columnCount) +
                     static_cast<std::size_t>(column)]
            .data();
    }

private:
    int rowCount;
    int columnCount;
    std::vector<std::array<char, longest + 1>> bytes;
};

// Made once and kept.
Texts const & keptTexts(int rows, int columns, TextKind kind = TextKind::Random);

// A number without a pattern for each number: the same in every run.
std::size_t scattered(std::size_t number);

} // namespace bench
