#pragma once

#include "tests/grid_random/Player.h"

#include <random>

// Draws operations that make sense in the present state, most of the time.

namespace gridrandom {

class Generator
{
public:
    explicit Generator(unsigned seed)
        : random(seed * 7919 + 13)
        , pause(below(4))
    {
    }

    Setup setup()
    {
        Setup drawn;
        constexpr unsigned styles[] = {zenu::GCS_NOHEADER, zenu::GCS_HORZLINES,
                                       zenu::GCS_AUTOHSCROLL, zenu::GCS_WHOLEROWS,
                                       zenu::GCS_SINGLESEL};
        for (unsigned const style : styles) {
            drawn.style |= below(3) == 0 ? style : 0U;
        }
        drawn.bars = below(2) == 0;
        drawn.fast = below(5) == 0;
        drawn.size = QSize(range(60, 300), range(40, 300));
        return drawn;
    }

    // The first few make columns.
    Operation next(int id, Player const & player)
    {
        Operation operation;
        operation.id = id;
        operation.action = id < 3 ? Action::AddColumn : drawAction(player.reference());
        ActionInfo const & info = infoOf(operation.action);
        for (std::size_t i = 0; i < info.args.size(); ++i) {
            operation.args[i] = draw(info.args[i], player, operation.args);
        }
        if (below(3) == 0) {
            operation.vetoes = bits(32, 4);
        }
        operation.checked = below(4) >= pause;
        return operation;
    }

private:
    static constexpr std::size_t fullTree = 45;

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    int range(int low, int high) { return low + below(high - low + 1); }
    // A word of `count` bits, each set once in `seldom` times.
    unsigned bits(int count, int seldom)
    {
        unsigned word = 0;
        for (int i = 0; i < count; ++i) {
            word |= below(seldom) == 0 ? 1U << i : 0U;
        }
        return word;
    }
    int pick(std::initializer_list<int> values)
    {
        return values.begin()[below(static_cast<int>(values.size()))];
    }
    int masked(unsigned allowed, int seldom)
    {
        return static_cast<int>(bits(16, seldom) & allowed);
    }

    Action drawAction(ReferenceGrid const & grid)
    {
        bool const full = grid.live.size() > fullTree;
        if (full && below(2) == 0) {
            return below(3) == 0 ? Action::ResetSlimRow : Action::DeleteRow;
        }
        int sum = 0;
        for (ActionInfo const & info : actionTable()) {
            sum += info.weight;
        }
        int at = below(sum);
        for (ActionInfo const & info : actionTable()) {
            at -= info.weight;
            bool const grows = info.action <= Action::InsertSlimRows;
            if (at < 0) {
                return full && grows ? Action::DeleteRow : info.action;
            }
        }
        return Action::Paint;
    }

    int liveRow(ReferenceGrid const & grid)
    {
        if (grid.live.empty()) {
            return nullRow;
        }
        // By number, since addresses differ from run to run.
        std::vector<int> numbers;
        for (auto const & each : grid.live) {
            numbers.push_back(each.second->number);
        }
        std::sort(numbers.begin(), numbers.end());
        return numbers[static_cast<std::size_t>(below(static_cast<int>(numbers.size())))];
    }

    int anyRow(Player const & player)
    {
        int const drawn = below(100);
        if (drawn < 88 || player.names().empty()) {
            return liveRow(player.reference());
        }
        if (drawn < 95) {
            auto row = player.names().begin();
            std::advance(row, below(static_cast<int>(player.names().size())));
            return row->first;
        }
        return pick({nullRow, foreignRow, rootRow, firstRow});
    }

    int parent(Player const & player) { return below(100) < 35 ? rootRow : anyRow(player); }

    int after(Player const & player, Arguments const & args)
    {
        int const drawn = below(100);
        if (drawn < 65) {
            return drawn < 45 ? lastRow : firstRow;
        }
        ReferenceGrid const & grid = player.reference();
        auto const named = player.names().find(args[0]);
        ReferenceRow const * owner =
            named == player.names().end() ? nullptr : grid.locate(named->second);
        owner = owner ? owner : &grid.root;
        if (drawn < 92 && !owner->children.empty()) {
            return owner->children[static_cast<std::size_t>(below(int(owner->children.size())))]
                ->number;
        }
        return anyRow(player);
    }

    int column(ReferenceGrid const & grid)
    {
        if (grid.columns.empty() || below(30) == 0) {
            return pick({-1, 999, 0});
        }
        return grid.columns[static_cast<std::size_t>(below(static_cast<int>(grid.columns.size())))]
            .id;
    }

    // One with an editor, mostly.
    int editColumn(ReferenceGrid const & grid)
    {
        std::vector<int> ids;
        for (ReferenceColumn const & each : grid.columns) {
            if ((each.flags & zenu::GCCF_EDITABLE) && each.hasEditor()) {
                ids.push_back(each.id);
            }
        }
        return ids.empty() || below(5) == 0
                   ? column(grid)
                   : ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
    }

    int draw(Arg arg, Player const & player, Arguments const & args);
    int drawSmall(Arg arg);

    std::mt19937 random;
    int pause; // of four operations so many are not followed by a comparison
};

inline int Generator::draw(Arg arg, Player const & player, Arguments const & args)
{
    switch (arg) {
    case Arg::Row:
        return anyRow(player);
    case Arg::Parent:
        return parent(player);
    case Arg::After:
        return after(player, args);
    case Arg::Column:
        return column(player.reference());
    case Arg::EditColumn:
        return editColumn(player.reference());
    case Arg::ColumnFlags:
        return masked(0x5cff, 6) | (below(8) == 0 ? 0x10 : 0) |
               (below(2) == 0 ? static_cast<int>(zenu::GCCF_EDITABLE) : 0);
    case Arg::ColumnMask:
        return masked(0x3f, 3);
    case Arg::RowMask:
        return masked(0x1ee & ~unsigned(zenu::GCRM_FONT), 3);
    case Arg::RowState:
        return masked(0x1f, 2);
    case Arg::ItemMask:
        return masked(zenu::GCIM_TEXT | zenu::GCIM_VALUE | zenu::GCIM_IMAGE | zenu::GCIM_STATE |
                          zenu::GCIM_TEXTCOLOR | zenu::GCIM_ALIGN | zenu::GCIM_OVERLAY |
                          zenu::GCIM_STATEIMAGE | zenu::GCIM_CHECKSTYLE,
                      3);
    case Arg::ItemState:
        return masked(0xf, 2); // the mark of a kept text is the grid's own
    default:
        return drawSmall(arg);
    }
}

inline int Generator::drawSmall(Arg arg)
{
    switch (arg) {
    case Arg::Kind:
        return below(15) == 0 ? pick({-1, 8, 1000}) : below(8);
    case Arg::Format:
        return pick({0, 1, 2, 4, 0x8001});
    case Arg::Width:
        return below(12) == 0 ? pick({0, 1, 400}) : range(10, 120);
    case Arg::Index:
        return range(-2, 8);
    case Arg::Code: {
        int const drawn = below(20);
        int const code =
            drawn == 0 ? 4 : (drawn == 1 ? 3 : (drawn == 2 ? pick({5, 77}) : below(3)));
        return code < 3 && below(3) == 0 ? code | static_cast<int>(zenu::GCE_NOSCROLL) : code;
    }
    case Arg::Bool:
        return below(2);
    case Arg::Height:
        return below(2) == 0 ? -1 : (below(10) == 0 ? pick({0, -3, 1, 500}) : range(5, 60));
    case Arg::Param:
        return below(3000);
    case Arg::Color:
    case Arg::Seed:
        return below(1000);
    case Arg::Text:
        return below(20);
    case Arg::Value:
        return below(10) == 0 ? pick({-1, -2, 8, 130}) : below(8);
    case Arg::Image:
        return range(-1, 20);
    case Arg::Count:
        return below(5);
    case Arg::ScrollCode:
        return range(-1, 7);
    case Arg::Position:
        return below(5) == 0 ? pick({0, 1, 100000}) : below(400);
    case Arg::WalkFlag:
        return range(0, 17);
    case Arg::NextFlag:
        return pick({2, 4, 6, 8, 14});
    case Arg::Size:
        return below(12) == 0 ? pick({1, 5, 20}) : range(40, 300);
    case Arg::Compare:
        return range(0, 4);
    case Arg::Generation:
        return below(4);
    case Arg::ExStyle:
        return pick({0, 4});
    case Arg::BarStep:
        return below(4);
    case Arg::Key:
        return below(16);
    case Arg::Modifiers:
        return below(16);
    case Arg::Point:
        return below(8) == 0 ? pick({-1, 0, 1000}) : below(150);
    case Arg::Button:
        return below(3);
    case Arg::DragStep:
        return below(4);
    case Arg::EditEnd:
        return below(6);
    default:
        return 0;
    }
}

} // namespace gridrandom
