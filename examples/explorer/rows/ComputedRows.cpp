#include "examples/explorer/rows/ComputedRows.h"

#include "examples/explorer/rows/Icons.h"
#include "examples/explorer/rows/Texts.h"

#include <cstdint>
#include <iterator>

namespace explorer {

namespace {

struct Kind
{
    char const * text;
    Icon icon;
};

constexpr Kind kinds[] = {
    {"Archive", Icon::Archive}, {"Drawing", Icon::Image}, {"Measurement", Icon::File},
    {"Program", Icon::Program}, {"Report", Icon::Text},   {"Script", Icon::Code},
    {"Sound", Icon::Media},
};

constexpr std::int64_t firstDate = 1577836800; // the start of 2020
constexpr std::int64_t dateRange = 5LL * 365 * 24 * 3600;

// The same number for the same row, without a pattern from row to row.
std::uint64_t scatter(long param)
{
    auto value = static_cast<std::uint64_t>(param) * 0x9e3779b97f4a7c15u;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
    return value ^ (value >> 31);
}

// Sizes of all magnitudes, as files have them.
std::int64_t sizeOf(long param)
{
    std::uint64_t const value = scatter(param);
    return static_cast<std::int64_t>(value >> (33 + value % 24));
}

std::size_t kindOf(long param)
{
    return scatter(param) / 3 % std::size(kinds);
}

std::int64_t modifiedOf(long param)
{
    return firstDate + static_cast<std::int64_t>(scatter(param) / 7 % dateRange);
}

bool isExecutable(long param)
{
    return kinds[kindOf(param)].icon == Icon::Program || scatter(param) % 11 == 0;
}

template <typename Value>
int order(Value const & a, Value const & b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

int compareBy(long a, long b, Column column)
{
    switch (column) {
    case Column::Name:
        return order(a, b);
    case Column::Size:
        return order(sizeOf(a), sizeOf(b));
    case Column::Kind:
        return order(kindOf(a), kindOf(b));
    case Column::Modified:
        return order(modifiedOf(a), modifiedOf(b));
    case Column::Executable:
        return order(isExecutable(b), isExecutable(a));
    }
    return 0;
}

} // namespace

void ComputedRows::GetItemDrawInfo(zenu::GC_DRAWITEMINFO * info, zenu::tag_HROW *, long param,
                                   zenu::tag_HCOLUMN * column, int, bool, bool)
{
    if (columnOf(column) == Column::Name) {
        info->image = static_cast<int>(param == topRow ? Icon::Folder : kinds[kindOf(param)].icon);
    } else if (columnOf(column) == Column::Executable) {
        info->hideCheck = param == topRow;
        info->checked = isExecutable(param);
    }
}

char const * ComputedRows::GetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column)
{
    bool const isTop = param == topRow;
    text.clear();
    switch (columnOf(column)) {
    case Column::Name:
        text = isTop ? countText(count) + " computed rows" : "Row " + countText(param);
        break;
    case Column::Size:
        if (!isTop) {
            sizeText(sizeOf(param), text);
            text += endMargin;
        }
        break;
    case Column::Kind:
        text = isTop ? "Folder" : kinds[kindOf(param)].text;
        break;
    case Column::Modified:
        if (!isTop) {
            dateText(modifiedOf(param), text);
        }
        break;
    case Column::Executable:
        break;
    }
    return text.c_str();
}

int ComputedRows::IsItemChecked(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column)
{
    return columnOf(column) == Column::Executable && param != topRow && isExecutable(param);
}

bool ComputedRows::HasSubRows(zenu::tag_HROW *, long param)
{
    return param == topRow && count > 0;
}

int ComputedRows::GetSubRowCount(zenu::tag_HROW *, long param)
{
    return param == topRow ? count : 0;
}

void ComputedRows::GetSubRows(zenu::tag_HROW *, long, int rowCount, zenu::GC_SLIMROWDATA * rows)
{
    for (int i = 0; i < rowCount; ++i) {
        rows[i].param = i + 1;
        rows[i].hasChildren = 0;
    }
}

int ComputedRows::compare(long a, long b, Column column, bool ascending)
{
    int const result = compareBy(a, b, column);
    if (result != 0) {
        return ascending ? result : -result;
    }
    return order(a, b);
}

std::string ComputedRows::describe(long param)
{
    return param == topRow ? countText(count) + " computed rows" : "Row " + countText(param);
}

} // namespace explorer
