#pragma once

#include "zenu/grid/IGridNotification.h"
#include "zenu/grid/ISlimGridCallback.h"

#include <QKeyEvent>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The application's side of a grid under test: what slim rows and callback texts say, as functions
// of numbers, and a record of what the grid told.

namespace gridrandom {

using zenu::tag_HCOLUMN;
using zenu::tag_HROW;

constexpr unsigned mixed(unsigned a, unsigned b, unsigned c = 0)
{
    unsigned value = a * 2654435761U ^ (b + 0x9e3779b9U) * 40503U ^ (c + 77U) * 2246822519U;
    value ^= value >> 15;
    value *= 2246822519U;
    return value ^ value >> 13;
}

// Texts that records carry, by number: null, GC_TEXTCALLBACK, then words.
inline char const * textOf(int number)
{
    static char const * const words[] = {
        nullptr, zenu::GC_TEXTCALLBACK, "",          "a",    "A",     "b",    "alpha",
        "Alpha", "alphabetical order",  "beta",      "BETA", "gamma", "zeta", "\xe4pfel",
        "Zeta",  "alphabetical ORDEr",  "alphabets", "_",    "10",    "9"};
    return words[static_cast<std::size_t>(number) % std::size(words)];
}

inline char const * plainTextOf(int number)
{
    return number == 1 ? "one" : textOf(number);
}

// The children that slim rows have. A level is known by its parent's param, whose thousands are its
// depth, and by the generation, which changes as real data do.
class Source
{
public:
    struct Child
    {
        long param;
        int hasChildren;
        int height;
    };

    int generation = 0;

    bool hasSubRows(long param) const { return depth(param) < 2 && number(param) % 4 != 0; }

    int count(long param) const
    {
        if (depth(param) >= 2) {
            return number(param) % 8 == 0 ? -1 : 0;
        }
        return static_cast<int>(number(param, generation) % 4);
    }

    std::vector<Child> children(long param, int count) const
    {
        std::vector<Child> rows;
        bool const lonely = number(param, 3) % 3 == 0;
        for (int i = 0; i < count; ++i) {
            unsigned const drawn = number(param, generation + 5 * i);
            rows.push_back({1000 * (depth(param) + 1) + static_cast<long>(drawn % 1000),
                            !lonely && drawn % 3 != 0 ? 1 : 0,
                            drawn % 7 == 0 ? 10 + static_cast<int>(drawn % 30) : -1});
        }
        return rows;
    }

    // Null now and then.
    std::optional<std::string> text(long param, int columnId) const
    {
        unsigned const drawn = number(param, columnId);
        if (drawn % 31 == 0) {
            return std::nullopt;
        }
        return textOf(3 + static_cast<int>(drawn % 15));
    }

    // 1 for checked; the others are all the same.
    int checkState(long param, int columnId) const
    {
        return static_cast<int>(number(param, columnId + 100) % 4) - 1;
    }

private:
    static long depth(long param) { return param < 0 ? 2 : param / 1000; }
    static unsigned number(long param, int more = 0)
    {
        return mixed(static_cast<unsigned>(param), static_cast<unsigned>(more));
    }
};

// What the text function answers for the row of a number.
inline std::optional<std::string> callbackText(int row, int columnId)
{
    unsigned const drawn = mixed(static_cast<unsigned>(row), static_cast<unsigned>(columnId), 9);
    if (drawn % 13 == 0) {
        return std::nullopt;
    }
    return "callback " + std::to_string(drawn % 100);
}

// Tells texts apart in events.
inline long numberOf(std::string const & text)
{
    unsigned number = static_cast<unsigned>(text.size());
    for (char const each : text) {
        number = mixed(number, static_cast<unsigned char>(each));
    }
    return static_cast<long>(number);
}

// Comparisons by number, see `compareRows`.
enum class Comparison
{
    None,
    ByParam,
    Coarse,
    Nonsense,
    AlwaysBefore
};

inline bool isNonsense(Comparison comparison)
{
    return comparison == Comparison::Nonsense || comparison == Comparison::AlwaysBefore;
}

inline int compareParams(Comparison comparison, long a, long b)
{
    switch (comparison) {
    case Comparison::None:
        return 0;
    case Comparison::ByParam:
        return a < b ? -1000000 : (a > b ? 7 : 0);
    case Comparison::Coarse:
        return static_cast<int>(b % 3 - a % 3);
    case Comparison::Nonsense:
        return static_cast<int>(mixed(static_cast<unsigned>(a), static_cast<unsigned>(b)) % 3) - 1;
    case Comparison::AlwaysBefore:
        return -1;
    }
    return 0;
}

inline int compareRows(unsigned long comparison, tag_HROW *, long a, tag_HROW *, long b)
{
    return compareParams(static_cast<Comparison>(comparison), a, b);
}

// One call that the grid made.
struct Event
{
    enum Type
    {
        Scrolling,
        Scrolled,
        Expanding,
        Expanded,
        Selected,
        Selecting, // `rows` are those that leave, with 0, and those that enter, with 1
        FocusIn,
        FocusOut,
        Key,   // `param` is the key
        Click, // `param` is 16 times the column's id, and the element
        RightClick,
        DoubleClick,
        LeadClick,
        Hover, // `param` is the column's id, here and in the next ones
        DragEnter,
        DragMove,
        Drop,
        DragLeave,
        ItemChanging, // `param` is the column's id
        ItemChanged,
        TextWritten,  // to a slim row; `rows` holds a number made of the text
        CheckWritten, // `param` is twice the column's id, and 1 for checked
        Asked,
        Created,
        Deleted
    };

    Type type;
    tag_HROW * row = nullptr;
    long param = 0;
    std::vector<std::pair<tag_HROW *, long>> rows{};

    bool operator==(Event const &) const = default;
    bool isOfLoading() const { return type == Asked || type == Created; }
    bool isOfScrolling() const { return type == Scrolling || type == Scrolled; }
};

// Answers that an operation carries; the i-th call gets the i-th answer.
class Vetoes
{
public:
    void start(unsigned bits)
    {
        expanding = bits & 0xff;
        scrolling = bits >> 8 & 0xff;
        selecting = bits >> 16 & 0xff;
        changing = bits >> 24 & 0xff;
    }
    bool allowsSelecting() { return next(selecting); }
    bool allowsChanging() { return next(changing); }
    bool allowsExpanding() { return next(expanding); }
    bool allowsScrolling() { return next(scrolling); }

private:
    static bool next(unsigned & bits)
    {
        bool const vetoed = bits & 1;
        bits >>= 1;
        return !vetoed;
    }
    unsigned expanding = 0;
    unsigned scrolling = 0;
    unsigned selecting = 0;
    unsigned changing = 0;
};

// Sink and slim callback of the grid under test.
class Recorder : public zenu::IGridNotification, public zenu::ISlimGridCallback
{
public:
    std::vector<Event> events;
    Vetoes vetoes;
    Source source;
    bool stopsPresses = false;
    std::map<tag_HROW *, int> numbers; // of rows by handle, the last owner of each

    char const * textFor(tag_HROW * row, tag_HCOLUMN * column)
    {
        auto const found = numbers.find(row);
        return keep(callbackText(found == numbers.end() ? 0 : found->second, idOf(column)));
    }

    bool OnScrolling(tag_HROW * newTop) override
    {
        events.push_back({Event::Scrolling, newTop});
        return vetoes.allowsScrolling();
    }
    void OnScrolled() override { events.push_back({Event::Scrolled}); }
    bool OnExpanding(tag_HROW * row) override
    {
        events.push_back({Event::Expanding, row});
        return vetoes.allowsExpanding();
    }
    void OnExpanded(tag_HROW * row) override { events.push_back({Event::Expanded, row}); }
    void OnSelectionChanged() override { events.push_back({Event::Selected}); }
    bool OnSelectionChanging(zenu::GC_SELECTIONCHANGE * change) override
    {
        Event event{Event::Selecting};
        for (int i = 0; i < change->deselectedCount; ++i) {
            event.rows.emplace_back(change->deselected[i], 0);
        }
        for (int i = 0; i < change->selectedCount; ++i) {
            event.rows.emplace_back(change->selected[i], 1);
        }
        events.push_back(event);
        return vetoes.allowsSelecting();
    }
    void OnFocusIn() override { events.push_back({Event::FocusIn}); }
    void OnFocusOut() override { events.push_back({Event::FocusOut}); }
    void OnKeyPressed(QKeyEvent * event) override
    {
        events.push_back({Event::Key, nullptr, event->key()});
    }
    bool OnClick(tag_HROW * row, tag_HCOLUMN * column, unsigned element) override
    {
        recordPress(Event::Click, row, column, element);
        return !stopsPresses;
    }
    bool OnRightClick(tag_HROW * row, tag_HCOLUMN * column, unsigned element) override
    {
        recordPress(Event::RightClick, row, column, element);
        return !stopsPresses;
    }
    bool OnDoubleClick(tag_HROW * row, tag_HCOLUMN * column, unsigned element) override
    {
        recordPress(Event::DoubleClick, row, column, element);
        return stopsPresses;
    }
    bool OnLeadClick(tag_HROW * row, tag_HCOLUMN * column, unsigned element) override
    {
        recordPress(Event::LeadClick, row, column, element);
        return !stopsPresses;
    }
    void OnHover(tag_HROW * row, tag_HCOLUMN * column, int) override
    {
        events.push_back({Event::Hover, row, idOf(column)});
    }
    void OnDragEnter(QDragEnterEvent *, tag_HROW * row, tag_HCOLUMN * column) override
    {
        events.push_back({Event::DragEnter, row, idOf(column)});
    }
    void OnDragMove(QDragMoveEvent *, tag_HROW * row, tag_HCOLUMN * column) override
    {
        events.push_back({Event::DragMove, row, idOf(column)});
    }
    void OnDrop(QDropEvent *, tag_HROW * row, tag_HCOLUMN * column) override
    {
        events.push_back({Event::Drop, row, idOf(column)});
    }
    void OnDragLeave(QDragLeaveEvent *) override { events.push_back({Event::DragLeave}); }
    bool OnItemChanging(tag_HROW * row, tag_HCOLUMN * column) override
    {
        events.push_back({Event::ItemChanging, row, idOf(column)});
        return !vetoes.allowsChanging();
    }
    bool OnItemChanged(tag_HROW * row, tag_HCOLUMN * column) override
    {
        events.push_back({Event::ItemChanged, row, idOf(column)});
        return false;
    }

    char const * GetItemText(tag_HROW *, long param, tag_HCOLUMN * column) override
    {
        return keep(source.text(param, idOf(column)));
    }
    void SetItemText(tag_HROW * row, long, tag_HCOLUMN * column, char const * text) override
    {
        events.push_back({Event::TextWritten, row, idOf(column), {{nullptr, numberOf(text)}}});
    }
    void SetItemCheck(tag_HROW * row, long, tag_HCOLUMN * column, bool checked) override
    {
        events.push_back({Event::CheckWritten, row, idOf(column) * 2L + (checked ? 1 : 0)});
    }
    int IsItemChecked(tag_HROW *, long param, tag_HCOLUMN * column) override
    {
        return source.checkState(param, idOf(column));
    }
    bool HasSubRows(tag_HROW *, long param) override { return source.hasSubRows(param); }
    int GetSubRowCount(tag_HROW *, long param) override { return source.count(param); }
    void GetSubRows(tag_HROW * row, long param, int count, zenu::GC_SLIMROWDATA * rows) override
    {
        events.push_back({Event::Asked, row, param});
        int i = 0;
        for (Source::Child const & child : source.children(param, count)) {
            rows[i].param = child.param;
            rows[i].hasChildren = child.hasChildren;
            rows[i++].height = child.height;
        }
    }
    void OnSubRowsCreated(tag_HROW * row, long param, int count,
                          zenu::GC_SLIMROWDATA * rows) override
    {
        record(Event::Created, row, param, count, rows);
    }
    void OnSubRowsDeleted(tag_HROW * row, long param, int count,
                          zenu::GC_SLIMROWDATA * rows) override
    {
        record(Event::Deleted, row, param, count, rows);
    }

    static int idOf(tag_HCOLUMN * column)
    {
        return static_cast<int>(reinterpret_cast<std::intptr_t>(column));
    }

private:
    char const * keep(std::optional<std::string> const & text)
    {
        kept = text.value_or("");
        return text ? kept.c_str() : nullptr;
    }
    void recordPress(Event::Type type, tag_HROW * row, tag_HCOLUMN * column, unsigned element)
    {
        events.push_back({type, row, idOf(column) * 16L + static_cast<long>(element)});
    }
    void record(Event::Type type, tag_HROW * row, long param, int count,
                zenu::GC_SLIMROWDATA const * rows)
    {
        Event event{type, row, param};
        for (int i = 0; i < count; ++i) {
            event.rows.emplace_back(rows[i].row, rows[i].param);
        }
        events.push_back(event);
    }
    std::string kept;
};

} // namespace gridrandom
