#pragma once

#include "tests/grid_random/Operations.h"
#include "tests/grid_random/ReferenceGrid.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/header/KHeader.h"

#include <QApplication>
#include <QPixmap>
#include <QScrollBar>

// Plays operations on a real grid and on the reference beside it.

namespace gridrandom {

using zenu::tag_HCOLUMN;

// What is fixed over a sequence.
struct Setup
{
    unsigned style = 0;
    bool bars = false;
    bool fast = false;
    QSize size{200, 150};
};

// A window that is shown once and holds the grids one after the other.
inline QWidget & host()
{
    static QWidget * const window = [] {
        auto * const made = new QWidget;
        made->resize(500, 400);
        made->show();
        made->activateWindow();
        (void)QTest::qWaitForWindowActive(made);
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, made, &QObject::deleteLater);
        return made;
    }();
    return *window;
}

class Player
{
public:
    explicit Player(Setup const & setup);
    Player(Player const &) = delete;
    ~Player() { grid.reset(); } // which may still ask

    // Throws Mismatch when the two differ. Does nothing with an operation that names rows which a
    // grid that trusts its handles may not be asked about.
    void perform(Operation const & operation);
    // Compares everything.
    void check();

    ReferenceGrid const & reference() const { return ref; }
    std::map<int, tag_HROW *> const & names() const { return handles; }

private:
    using Args = Arguments const &;

    tag_HROW * handle(int row) const;
    static tag_HCOLUMN * column(int id)
    {
        return reinterpret_cast<tag_HCOLUMN *>(std::intptr_t(id));
    }
    bool isSafe(Operation const & operation) const;
    void start(unsigned vetoes);
    void nameRows();
    tag_HROW * foreignHandle() const { return handle(foreignRow); }
    [[noreturn]] static void fail(QString const & what) { throw Mismatch(what.toStdString()); }
    // What the grid said and what the reference says. Written in braces, so that the grid is asked
    // first.
    struct Numbers
    {
        long long real;
        long long wanted;
    };
    struct Rows
    {
        tag_HROW * real;
        tag_HROW * wanted;
    };
    static void same(char const * what, Numbers const & numbers);
    // `what` goes on with the name of a row, null for none.
    void sameRow(char const * what, tag_HROW * about, Rows const & rows) const;
    QString nameOf(tag_HROW * row) const;
    QString nameOf(Event const & event) const;
    void compareEvents() const;
    void adoptOrder();

    // PlayerActions.h, PlayerControls.h, PlayerInput.h, PlayerEdits.h
    void run(Operation const & operation);
    bool runRows(Action action, Args args);
    bool runRowData(Action action, Args args);
    bool runSelection(Action action, Args args);
    bool runColumns(Action action, Args args);
    bool runScrolling(Action action, Args args);
    bool runInput(Action action, Args args);
    void settleOrder();
    void sendKey(int number, int keys);
    void sendPress(QPoint const & point, int button, int keys, bool stops);
    void sendFocus(bool in);
    void sendDrag(int step, QPoint const & point);
    void drawMark(tag_HROW * row, bool after);
    bool hasRoom(tag_HROW * row, int columnId) const;
    void deliverEnds();
    static void pressInEditor(int key, QString const & text = {},
                              Qt::KeyboardModifiers keys = Qt::NoModifier);
    void typeText(char const * text, bool append);
    void endEdit(int how);
    void finishWaiting(int columnId, bool begins);
    bool runEdits(Action action, Args args);
    void runRest(Action action, Args args);
    void insertRow(Args args, bool withRecord);
    void insertSlimRows(Args args);
    void setItem(tag_HROW * row, int columnId, GC_ITEM & record);
    void fillTexts(int columnId);
    void setColumnOrder(Args args);
    void setDefaultHeight(int height);
    void paint(bool throughEvents);
    void walk(unsigned flags, tag_HROW * row);

    // Comparison.h
    void compareTree(ReferenceRow & under, tag_HROW * parent);
    void compareWalk(char const * what, unsigned first, std::vector<tag_HROW *> const & wanted);
    void compareWalks();
    void compareCounts();
    void compareRow(ReferenceRow & row);
    void compareItem(ReferenceRow const & row, int columnId, unsigned mask);
    void compareItems();
    void compareColumns();
    void compareScrolling();
    void compareEdit() const;

    std::unique_ptr<zenu::KGridCtrl> grid;
    Recorder recorder;
    ReferenceGrid ref;
    std::map<int, tag_HROW *> handles; // of every row that ever was, by number
    std::map<unsigned, tag_HROW *> lastGiven;
    unsigned checkCount = 0;
    long long foreign = 0; // lies where no row is
};

inline Player::Player(Setup const & setup)
    : grid(std::make_unique<zenu::KGridCtrl>(&host(), 0, nullptr, 0U,
                                             static_cast<long>(setup.style)))
{
    using zenu::KGridCtrl;
    grid->setVScrollBarMode(setup.bars ? KGridCtrl::AlwaysOn : KGridCtrl::AlwaysOff);
    grid->setHScrollBarMode(setup.bars ? KGridCtrl::AlwaysOn : KGridCtrl::AlwaysOff);
    grid->setGeometry(QRect(QPoint(0, 0), setup.size));
    grid->setNotification(&recorder);
    grid->SetSlimGridCallback(&recorder);
    grid->SetTextCallback([](unsigned long self, tag_HROW * row, tag_HCOLUMN * id,
                             long) { return reinterpret_cast<Recorder *>(self)->textFor(row, id); },
                          reinterpret_cast<unsigned long>(&recorder));
    // When the window becomes active is no matter of the model, and a grid that gains the focus
    // selects its first row.
    grid->setFocusPolicy(Qt::NoFocus);
    grid->show();
    grid->setFocus(); // for good, so that no press brings it later
    grid->UpdateVisibleRows();
    ref.around.client = grid->getClientRect();
    ref.around.headerHeight = grid->getHeader()->height();
    ref.around.defaultHeight = grid->GetDefaultHeight();
    ref.around.wholeRows = (setup.style & zenu::GCS_WHOLEROWS) != 0;
    ref.around.autoScroll = (setup.style & zenu::GCS_AUTOHSCROLL) != 0;
    ref.windowIsActive = grid->hasFocus();
    ref.hasRoom = [this](tag_HROW * row, int id) { return hasRoom(row, id); };
    ref.singleSelection = (setup.style & zenu::GCS_SINGLESEL) != 0;
    ref.updateVerticalBar();
    ref.updateHorizontalBar();
    if (setup.fast) {
        grid->SetGridExStyle(zenu::GCXS_FASTLOCATOR);
        ref.setExStyle(zenu::GCXS_FASTLOCATOR);
    }
}

inline tag_HROW * Player::handle(int row) const
{
    switch (row) {
    case rootRow:
        return zenu::GC_ROOT;
    case firstRow:
        return zenu::GCI_FIRST;
    case lastRow:
        return zenu::GCI_LAST;
    case nullRow:
        return nullptr;
    case foreignRow:
        return reinterpret_cast<tag_HROW *>(const_cast<long long *>(&foreign));
    default: {
        auto const found = handles.find(row);
        return found == handles.end() ? nullptr : found->second;
    }
    }
}

inline bool Player::isSafe(Operation const & operation) const
{
    ActionInfo const & info = infoOf(operation.action);
    for (std::size_t i = 0; ref.fast && i < info.args.size(); ++i) {
        bool const isParent = info.args[i] == Arg::Parent && operation.args[i] == rootRow;
        bool const isRow = info.args[i] == Arg::Row || info.args[i] == Arg::Parent;
        tag_HROW * const row = isRow && !isParent ? handle(operation.args[i]) : nullptr;
        if (row && !ref.locate(row)) {
            return false;
        }
    }
    return true;
}

inline void Player::start(unsigned vetoes)
{
    recorder.events.clear();
    ref.events.clear();
    recorder.vetoes.start(vetoes);
    ref.vetoes.start(vetoes);
    ref.realEvents = &recorder.events;
}

inline void Player::perform(Operation const & operation)
{
    if (!isSafe(operation)) {
        return;
    }
    bool const sorted = ref.sortColumn != -1 || ref.sortComparison;
    start(sorted ? operation.vetoes & 0xff : operation.vetoes);
    ref.nextNumber = operation.id * rowsPerOperation;
    if (ref.edit.row) {
        settleOrder(); // its end may give the focus to a row
    }
    run(operation);
    nameRows();
    compareEvents();
    if (ref.loose) {
        adoptOrder();
    }
    if (operation.checked) {
        check();
    }
}

inline void Player::nameRows()
{
    for (auto const & each : ref.live) {
        handles[each.second->number] = each.first;
        recorder.numbers[each.first] = each.second->number;
    }
}

inline void Player::same(char const * what, Numbers const & numbers)
{
    if (numbers.real != numbers.wanted) {
        fail(QStringLiteral("%1 is %2, not %3")
                 .arg(QLatin1String(what))
                 .arg(numbers.real)
                 .arg(numbers.wanted));
    }
}

inline void Player::sameRow(char const * what, tag_HROW * about, Rows const & rows) const
{
    if (rows.real != rows.wanted) {
        fail(QStringLiteral("%1 is %2, not %3")
                 .arg(QLatin1String(what) + (about ? nameOf(about) : QString()), nameOf(rows.real),
                      nameOf(rows.wanted)));
    }
}

inline QString Player::nameOf(tag_HROW * row) const
{
    if (!row) {
        return rowName(nullRow);
    }
    if (row == zenu::GC_ROOT) {
        return rowName(rootRow);
    }
    auto const found = recorder.numbers.find(row);
    return found == recorder.numbers.end() ? QStringLiteral("an unknown row")
                                           : rowName(found->second);
}

inline QString Player::nameOf(Event const & event) const
{
    static char const * const types[] = {"OnScrolling",
                                         "OnScrolled",
                                         "OnExpanding",
                                         "OnExpanded",
                                         "OnSelectionChanged",
                                         "OnSelectionChanging",
                                         "OnFocusIn",
                                         "OnFocusOut",
                                         "OnKeyPressed",
                                         "OnClick",
                                         "OnRightClick",
                                         "OnDoubleClick",
                                         "OnLeadClick",
                                         "OnHover",
                                         "OnDragEnter",
                                         "OnDragMove",
                                         "OnDrop",
                                         "OnDragLeave",
                                         "OnItemChanging",
                                         "OnItemChanged",
                                         "SetItemText",
                                         "SetItemCheck",
                                         "GetSubRows",
                                         "OnSubRowsCreated",
                                         "OnSubRowsDeleted"};
    QString text = QLatin1String(types[event.type]);
    if (!event.isOfScrolling() || event.row) {
        text += QStringLiteral("(%1)").arg(nameOf(event.row));
    }
    return event.rows.empty() ? text
                              : text + QStringLiteral(" with %1 rows").arg(event.rows.size());
}

// In which order the levels are loaded is not said; all else is told in one order.
inline void Player::compareEvents() const
{
    auto const split = [&](std::vector<Event> const & events) {
        std::vector<Event> told;
        std::vector<Event> loaded;
        for (Event const & event : events) {
            if (event.isOfLoading()) {
                loaded.push_back(event);
            } else if (!ref.loose || !event.isOfScrolling()) {
                told.push_back(event);
            }
        }
        std::stable_sort(loaded.begin(), loaded.end(), [](Event const & a, Event const & b) {
            return std::less<>()(a.row, b.row);
        });
        told.insert(told.end(), loaded.begin(), loaded.end());
        return told;
    };
    std::vector<Event> const real = split(recorder.events);
    std::vector<Event> const wanted = split(ref.events);
    if (real == wanted) {
        return;
    }
    auto const list = [&](std::vector<Event> const & events) {
        QStringList names;
        for (Event const & event : events) {
            names.append(nameOf(event));
        }
        return names.join(QStringLiteral(", "));
    };
    fail(QStringLiteral("it told [%1], not [%2]").arg(list(real), list(wanted)));
}

// Where any order is allowed the reference takes that of the real grid, if it is one of the same
// tree.
inline void Player::adoptOrder()
{
    std::vector<ReferenceRow *> order;
    grid->UpdateVisibleRows();
    ref.settle();
    for (tag_HROW * row = grid->GetNextRow(zenu::GCN_VISIBLE_FIRST); row;
         row = grid->GetNextRow(zenu::GCN_VISIBLE_NEXT, row)) {
        ReferenceRow * const found = ref.locate(row);
        bool const belongs = found && ref.indexOf(found) != -1 &&
                             std::find(order.begin(), order.end(), found) == order.end();
        // Its parent's branch must be the one that is open.
        ReferenceRow const * const before = order.empty() ? nullptr : order.back();
        bool const hangs =
            found && (!found->parent || (before && before->isSameOrUnder(found->parent)));
        if (!belongs || !hangs) {
            fail(QStringLiteral("the sorted order holds %1 at a wrong place").arg(nameOf(row)));
        }
        order.push_back(found);
    }
    same("the number of sorted rows",
         {static_cast<long long>(order.size()), static_cast<long long>(ref.order.size())});
    for (tag_HROW * row = grid->GetNextRow(zenu::GCN_SHOWN_FIRST); row;
         row = grid->GetNextRow(zenu::GCN_SHOWN_NEXT, row)) {
    }
    ref.adopt(order, grid->GetTopIndex());
    same("the number of rows on display", {grid->GetVisibleCount(), ref.shownCount});
    ref.loose = false;
}

} // namespace gridrandom

#include "tests/grid_random/Comparison.h"
#include "tests/grid_random/PlayerActions.h"
#include "tests/grid_random/PlayerControls.h"
#include "tests/grid_random/PlayerEdits.h"
#include "tests/grid_random/PlayerInput.h"
