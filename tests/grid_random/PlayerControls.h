#pragma once

#include "tests/grid_random/Player.h"

namespace gridrandom {

inline void Player::setColumnOrder(Args args)
{
    std::vector<int> ids;
    for (ReferenceColumn const & each : ref.columns) {
        ids.push_back(each.id);
    }
    for (std::size_t i = ids.size(); i > 1; --i) {
        std::swap(ids[i - 1], ids[mixed(static_cast<unsigned>(args[0]), unsigned(i)) % i]);
    }
    if (args[0] % 9 == 0 && ids.size() > 1) {
        ids[0] = args[0] % 2 ? ids[1] : 999; // twice the same, or an unknown one
    }
    if (!args[1]) {
        ids.push_back(0);
    }
    std::vector<tag_HCOLUMN *> columns;
    for (int const id : ids) {
        columns.push_back(column(id));
    }
    same("SetColumnOrderArray",
         {grid->SetColumnOrderArray(columns.data(), static_cast<int>(columns.size())),
          ref.setColumnOrder(ids)});
}

inline bool Player::runColumns(Action action, Args args)
{
    GC_COLUMN record;
    auto const fill = [&](unsigned mask, int kind, int flags, int width, int text, int format) {
        record.mask = mask;
        record.kind = kind;
        record.flags = static_cast<unsigned>(flags);
        record.width = width;
        record.text = const_cast<char *>(plainTextOf(text));
        record.format = format;
    };
    auto const idOf = [](tag_HCOLUMN * made) { return Recorder::idOf(made); };
    constexpr unsigned plain = zenu::GCCM_FORMAT | zenu::GCCM_TEXT | zenu::GCCM_WIDTH;
    unsigned const kindBit = zenu::GCCM_FLAGS | (args[5] ? zenu::GCCM_KIND : 0U);
    switch (action) {
    case Action::AddColumn:
        fill(plain | kindBit, args[0], args[1], args[2], args[3], args[4]);
        same("AddColumn", {idOf(grid->AddColumn(&record)), ref.insertColumn(-1, record)});
        return true;
    case Action::AddTextColumn:
        fill(plain, 0, 0, args[2], args[0], args[1]);
        same("AddColumn",
             {idOf(grid->AddColumn(record.text, args[1], args[2])), ref.insertColumn(-1, record)});
        return true;
    case Action::InsertColumn:
        fill(plain | kindBit, args[1], args[2], args[3], args[4], 0);
        same("InsertColumn",
             {idOf(grid->InsertColumn(args[0], &record)), ref.insertColumn(args[0], record)});
        return true;
    case Action::InsertTextColumn:
        fill(plain, 0, 0, args[2], args[1], 1);
        same("InsertColumn", {idOf(grid->InsertColumn(args[0], record.text, 2, args[2])),
                              ref.insertColumn(args[0], record)});
        return true;
    case Action::DeleteColumn:
        same("DeleteColumn", {grid->DeleteColumn(column(args[0])), ref.deleteColumn(args[0])});
        return true;
    case Action::SetColumn:
        fill(static_cast<unsigned>(args[1]), args[2], args[3], args[4], args[5], args[6]);
        same("SetColumn",
             {grid->SetColumn(column(args[0]), &record), ref.setColumn(args[0], record)});
        return true;
    case Action::SetColumnWidth:
        fill(zenu::GCCM_WIDTH, 0, 0, args[1], 0, 0);
        same("SetColumnWidth",
             {grid->SetColumnWidth(column(args[0]), args[1]), ref.setColumn(args[0], record)});
        return true;
    case Action::ShowColumn:
        grid->ShowColumn(column(args[0]), args[1] != 0);
        ref.showColumn(args[0], args[1] != 0);
        return true;
    case Action::SetColumnOrder:
        setColumnOrder(args);
        return true;
    case Action::SetFocusedColumn:
        grid->SetFocusedColumn(column(args[0]));
        ref.setFocusedColumn(args[0]);
        return true;
    default:
        return false;
    }
}

inline bool Player::runScrolling(Action action, Args args)
{
    switch (action) {
    case Action::Scroll: {
        auto const pos = static_cast<unsigned>(args[2]);
        bool const real = grid->OnScroll(args[0], args[1], pos, args[3] != 0);
        bool const wanted = ref.scroll(args[0], args[1], pos, args[3] != 0);
        same("OnScroll", {real, ref.loose ? real : wanted});
        return true;
    }
    case Action::DragBar:
        (args[0] ? grid->getVScrollBar() : grid->getHScrollBar())->setValue(args[1]);
        ref.dragBar(args[0] != 0, args[1]);
        return true;
    case Action::BarAction: {
        constexpr int codes[] = {3, 0, 2, 1};
        int const code = codes[args[1]];
        QScrollBar * const bar = args[0] ? grid->getVScrollBar() : grid->getHScrollBar();
        bar->triggerAction(static_cast<QAbstractSlider::SliderAction>(
            static_cast<int>(QAbstractSlider::SliderSingleStepAdd) + args[1]));
        ref.scroll(args[0] ? -1 : code, args[0] ? code : -1, 0, true);
        return true;
    }
    case Action::EnsureVisible:
        grid->EnsureVisible(handle(args[0]), column(args[1]));
        ref.ensureVisible(handle(args[0]), args[1]);
        return true;
    case Action::SetHScrollDelta:
        grid->SetHScrollDelta(args[0]);
        ref.hScrollDelta = args[0];
        return true;
    case Action::Resize: {
        QSize const size(args[0], args[1]);
        if (size != grid->size()) {
            grid->resize(size);
            ref.resized(grid->getClientRect(), size);
        }
        return true;
    }
    default:
        return false;
    }
}

// While heights of their own are laid out the new one counts from the next rebuild on, so there is
// one here.
inline void Player::setDefaultHeight(int height)
{
    grid->SetDefaultHeight(height);
    ref.around.defaultHeight = grid->GetDefaultHeight();
    if (!ref.heights.empty() || !ref.tops.empty() || ref.heightsLeftBehind) {
        zenu::GC_SORT sort;
        sort.column = column(ref.sortColumn);
        sort.ascending = ref.sortAscending;
        sort.compare = ref.sortComparison ? compareRows : nullptr;
        sort.param = ref.sortComparison ? static_cast<long>(*ref.sortComparison) : 0;
        grid->Sort(&sort);
        ref.invalidate();
    }
}

inline void Player::paint(bool throughEvents)
{
    grid->UpdateVisibleRows();
    ref.settle();
    if (throughEvents) {
        QCoreApplication::processEvents();
    } else {
        grid->grab();
    }
    for (int i = ref.topIndex(); i <= std::min(ref.lastShown(), int(ref.order.size()) - 1); ++i) {
        ref.order[static_cast<std::size_t>(i)]->mayKeepTexts = true;
    }
}

inline void Player::walk(unsigned flags, tag_HROW * row)
{
    bool const stepsFromRow = flags == zenu::GCN_CHILD_NEXT;
    if (ref.fast && stepsFromRow && row && !ref.locate(row)) {
        return;
    }
    tag_HROW * const real = grid->GetNextRow(flags, row);
    tag_HROW * const wanted = ref.nextRow(flags, row);
    nameRows();
    if (!ref.loose) {
        sameRow("GetNextRow of ", row, {real, wanted});
    }
    // A walk's first step and its further ones go under the number of the further ones.
    bool const isFirst = flags == 1 || flags == 3 || flags == 5 || flags == 7 || flags == 13;
    lastGiven[isFirst ? flags + 1 : flags] = real;
}

inline void Player::runRest(Action action, Args args)
{
    switch (action) {
    case Action::Walk:
        walk(static_cast<unsigned>(args[0]), handle(args[1]));
        return;
    case Action::WalkOn:
        walk(static_cast<unsigned>(args[0]), lastGiven[static_cast<unsigned>(args[0])]);
        return;
    case Action::SetDefaultHeight:
        setDefaultHeight(args[0]);
        return;
    case Action::Paint:
        paint(args[0] != 0);
        return;
    case Action::SetSink:
        grid->setNotification(args[0] ? &recorder : nullptr);
        ref.hasSink = args[0] != 0;
        return;
    case Action::SetSource:
        recorder.source.generation = args[0];
        ref.source.generation = args[0];
        return;
    case Action::SetExStyle:
        same("SetGridExStyle",
             {static_cast<long long>(grid->SetGridExStyle(unsigned(args[0]))), ref.exStyle});
        ref.setExStyle(static_cast<unsigned>(args[0]));
        return;
    case Action::HitTest: {
        tag_HROW * row = nullptr;
        tag_HCOLUMN * hitColumn = nullptr;
        bool const hit = grid->HitTest(QPoint(args[0], args[1]), &row, &hitColumn);
        auto const wanted = ref.hitTest(QPoint(args[0], args[1]));
        if (!ref.loose) {
            same("HitTest", {hit, wanted.first != nullptr});
            sameRow("the row hit", nullptr, {row, wanted.first});
            same("the column hit", {Recorder::idOf(hitColumn), wanted.second});
        }
        return;
    }
    default:
        fail(QStringLiteral("an operation without a player"));
    }
}

} // namespace gridrandom
