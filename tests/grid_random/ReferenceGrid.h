#pragma once

#include "tests/grid_random/Application.h"
#include "tests/grid_random/ReferenceRow.h"

#include "zenu/grid/GridRecords.h"

#include <QPoint>
#include <QRect>

#include <functional>
#include <map>
#include <set>
#include <stdexcept>

// A grid without a picture, written for obviousness alone: a tree of plain structures, a visible
// order that is thrown away and filled by recursion, positions found by adding up heights. It takes
// the handles that the real grid gave out, and is otherwise independent of it.

namespace gridrandom {

using zenu::GC_COLUMN;
using zenu::GC_ITEM;
using zenu::GC_ROW;
using zenu::GC_SECTION;
using zenu::GC_SLIMROWDATA;

// The reference found the real grid to be wrong in the middle of an operation.
struct Mismatch : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct ScrollBar
{
    int maximum = 99;
    int value = 0;
};

// What the rows and columns lie in, read from the real grid: the client rectangle and measures of
// fonts are no matter of the model.
struct Surroundings
{
    QRect client;
    int headerHeight = 0;
    int defaultHeight = 0;
    bool wholeRows = false;
    bool autoScroll = false;
};

class ReferenceGrid
{
public:
    ReferenceGrid() { root.handle = zenu::GC_ROOT; }

    // What the real grid told in the operation under way, for the handles of loaded rows.
    std::vector<Event> const * realEvents = nullptr;
    std::vector<Event> events; // what is to be told
    Vetoes vetoes;
    Source source;
    Surroundings around;
    int nextNumber = 0;
    bool hasSink = true;
    bool fast = false;
    unsigned exStyle = 0;

    ReferenceRow root; // only its children are used
    std::map<tag_HROW *, ReferenceRow *, std::less<>> live;
    std::set<tag_HROW *, std::less<>> selection;
    ReferenceRow * focusRow = nullptr;
    int focusColumn = -1;
    int anchor = -1;
    std::string typeAhead;
    bool singleSelection = false;
    std::map<ReferenceRow const *, int> heights;

    std::vector<ReferenceColumn> columns; // by place
    std::vector<int> shownColumns;        // ids
    std::vector<int> headerItems;         // ids
    int nextColumnId = 0;
    int contentsWidth = 0;
    int hScrollPos = 0;
    int hScrollDelta = 5;
    int headerX = 0;

    // The visible order as the last rebuild left it. Rows may be dead while it is dirty.
    std::vector<ReferenceRow *> order;
    std::vector<long long> tops; // empty while all rows are equally high
    ReferenceRow * topRow = nullptr;
    long long totalHeight = 0;
    long long topY = 0; // as it was when the top row was placed, for the bar
    int topIndexStored = 0;
    int shownCount = 0;
    bool dirty = false;
    // Rows that could not be inserted leave heights behind, which are nobody's but keep the order
    // in the form with heights.
    bool heightsLeftBehind = false;
    // Some group was sorted by a comparison that allows for any order.
    bool loose = false;
    ScrollBar vBar;
    ScrollBar hBar;

    struct Edit
    {
        ReferenceRow * row = nullptr; // null while none is open
        int columnId = -1;
        std::string text;
    };
    Edit edit;
    bool awaitsMove = false; // since a left press
    bool windowIsActive = true;
    bool keyboardInEditor = false;
    ReferenceRow * pendingRow = nullptr; // of an edit that waits for its time
    // Whether an editor would find room in a cell: geometry is no matter of the model.
    std::function<bool(tag_HROW *, int)> hasRoom = [](tag_HROW *, int) { return true; };

    int sortColumn = -1;
    bool sortAscending = true;
    std::optional<Comparison> sortComparison;

    // Rows: ReferenceTree.h
    ReferenceRow * locate(tag_HROW * handle) const;
    bool insertRow(GC_ROW & record, tag_HROW * after, tag_HROW * made);
    bool insertSection(tag_HROW * after, tag_HROW * made);
    bool insertSlimRows(std::vector<GC_SLIMROWDATA> const & data, tag_HROW * parent,
                        tag_HROW * after, std::vector<tag_HROW *> const & made);
    bool deleteRow(tag_HROW * handle);
    void deleteAllRows();
    void reset();
    bool resetSlimRow(tag_HROW * handle);
    bool expand(tag_HROW * handle, unsigned code);
    int childCount(ReferenceRow & row);
    bool hasChildren(ReferenceRow const & row) const;
    void forEachRow(ReferenceRow & under, std::function<void(ReferenceRow &)> const & visit);

    // Visible order and scrolling: ReferenceOrder.h
    void invalidate() { dirty = true; }
    void settle();
    int indexOf(ReferenceRow const * row);
    int heightOf(ReferenceRow const * row) const;
    long long topOf(int index) const;
    long long bottomOf(int index) const;
    int pageHeight() const;
    long long topPosition() const { return order.empty() ? 0 : topOf(topIndexStored); }
    int topIndex();
    int lastShown();
    int indexFromY(long long y, int low, int high) const;
    int rowUnder(long long y) const;
    int firstIndexForBottom(int index) const;
    int visibleCountFrom(int first) const;
    void place(int index);
    void adopt(std::vector<ReferenceRow *> const & newOrder, tag_HROW * top);
    bool scroll(int hCode, int vCode, unsigned pos, bool doScroll);
    bool scrollTo(int newLeft, int newTop);
    void ensureVisible(tag_HROW * row, int columnId);
    void ensureRowVisible(ReferenceRow const * row);
    void ensureColumnVisible(ReferenceColumn const * column);
    void resized(QRect const & client, QSize const & size);
    void updateVerticalBar();
    void updateHorizontalBar();
    void dragBar(bool vertical, int value);

    // Columns: ReferenceColumns.h
    ReferenceColumn * column(int id);
    ReferenceColumn * shownColumn(int index);
    int insertColumn(int index, GC_COLUMN const & record);
    bool deleteColumn(int id);
    bool setColumn(int id, GC_COLUMN const & record);
    void showColumn(int id, bool show);
    bool setColumnOrder(std::vector<int> const & ids);
    void setFocusedColumn(int id);
    int focusedColumnId();
    void placeHeader();

    // Records, selection and focus: ReferenceData.h
    bool setRow(tag_HROW * handle, GC_ROW & record, GC_SECTION const * section);
    bool setItem(tag_HROW * handle, int columnId, GC_ITEM const & record);
    bool getItem(ReferenceRow const & row, int columnId, GC_ITEM & record, bool kept);
    std::optional<std::string> textOf(ReferenceRow const & row, int columnId);
    unsigned stateOf(ReferenceRow const & row);
    bool setRowSel(tag_HROW * handle, bool select);
    void selectRows(std::vector<tag_HROW *> const & handles);
    void selectAll();
    void clearSelection();
    void sort(int columnId, bool ascending, std::optional<Comparison> comparison);
    void moveFocus(int rowIndex, int columnIndex);
    void clearFocus();

    // Keys, presses and focus: ReferenceInput.h
    struct Pressed
    {
        ReferenceRow * row = nullptr;
        int columnId = -1;
        unsigned element = 0;
        bool shift = false;
        bool ctrl = false;
        bool stops = false; // as the application answers
    };
    void key(int key, bool shift, bool ctrl);
    void press(Event::Type type, Pressed const & at);
    void moveMouse(QPoint const & point);
    void drag(Event::Type type, QPoint const & point);
    void gainFocus();
    void loseFocus() { tell(Event::FocusOut); }

    // Edits and check boxes: ReferenceEdits.h
    bool editItem(tag_HROW * handle, int columnId);
    bool startEdit(ReferenceRow & row, int columnId);
    bool endEdit(bool discard);
    void takeKeyboard();
    bool canEdit(ReferenceRow const & row, ReferenceColumn const & column) const;

    // Walks: ReferenceWalks.h
    tag_HROW * nextRow(unsigned flags, tag_HROW * handle);
    std::pair<tag_HROW *, int> hitTest(QPoint const & point);
    void setExStyle(unsigned word);
    std::vector<tag_HROW *> allRows();

private:
    // A walk over rows that are known at its start.
    struct CachedWalk
    {
        std::vector<tag_HROW *> rows;
        std::size_t cursor = 0;
        bool ended = false;

        tag_HROW * first()
        {
            ended = rows.empty();
            return ended ? nullptr : rows.front();
        }
        tag_HROW * next(tag_HROW * given)
        {
            ended = ended || given != rows[cursor] || ++cursor == rows.size();
            return ended ? nullptr : rows[cursor];
        }
    };

    void tell(Event::Type type, tag_HROW * row = nullptr);
    bool tellScrolling(tag_HROW * row);
    std::unique_ptr<ReferenceRow> makeRow(RowClass rowClass, tag_HROW * made);
    bool insertUnder(ReferenceRow * parent, std::vector<std::unique_ptr<ReferenceRow>> & rows,
                     tag_HROW * after);
    void enter(ReferenceRow & row);
    void leave(ReferenceRow & row);
    void load(ReferenceRow & row);
    std::vector<tag_HROW *> handlesOfLoaded(ReferenceRow const & row, std::size_t count) const;
    void expandRow(ReferenceRow & row);
    void collapseRow(ReferenceRow & row);
    void expandOne(ReferenceRow & row, unsigned code);
    void expandTree(unsigned code);
    void resetRow(ReferenceRow & row);
    void applyRow(ReferenceRow & row, GC_ROW & record, GC_SECTION const * section);
    void applyState(ReferenceRow & row, GC_ROW const & record);
    void rebuild();
    void fill(ReferenceRow & parent);
    void sortGroup(std::vector<ReferenceRow *> & rows);
    void sortGroupByText(std::vector<ReferenceRow *> & rows);
    int largestTopIndex() const;
    void scrollRows(int newTop);
    int lastWhole();
    int targetTop(int code, unsigned pos, int top);
    int targetLeft(int code, unsigned pos) const;
    int hPageStep() const;
    void rebuildColumns();
    void placeColumns();
    int shownIndexOf(int id) const;
    bool asksForChange(std::vector<tag_HROW *> const & leaving,
                       std::vector<tag_HROW *> const & entering);
    void selectOnly(std::vector<tag_HROW *> const & rows);
    void selectAlso(tag_HROW * row);
    void deselectRow(tag_HROW * row);
    void selectRange(int start, int to);
    bool matches(int index, int columnId, std::string const & prefix);
    void search(std::string const & prefix);
    void moveByKey(int key, bool shift, bool ctrl);
    int columnMarked(int from, int step);
    void tellPress(Event::Type type, Pressed const & at, unsigned element);
    bool selectByPress(Event::Type type, Pressed const & at);
    void editPressed(Pressed const & at, bool wasSelected);
    void flipBoxes(ReferenceRow const & row, int columnId);
    void markEdited(ReferenceRow & row, int columnId, bool on);
    bool asksForItem(tag_HROW * row, int columnId);
    void dropWalks();
    tag_HROW * sibling(ReferenceRow & row, int direction);
    tag_HROW * nextSelected(tag_HROW * given);
    ReferenceItem const * itemOf(ReferenceRow const & row, ReferenceColumn const & column) const;

    std::optional<CachedWalk> allWalk;
    std::optional<CachedWalk> shownWalk;
    std::optional<CachedWalk> visibleWalk;
    std::optional<tag_HROW *> selectionWalk; // the row given last
};

inline void ReferenceGrid::tell(Event::Type type, tag_HROW * row)
{
    if (hasSink) {
        events.push_back({type, row});
    }
}

// True when the application lets it happen; without a sink nobody objects.
inline bool ReferenceGrid::tellScrolling(tag_HROW * row)
{
    tell(Event::Scrolling, row);
    return !hasSink || vetoes.allowsScrolling();
}

} // namespace gridrandom

#include "tests/grid_random/ReferenceColumns.h"
#include "tests/grid_random/ReferenceData.h"
#include "tests/grid_random/ReferenceEdits.h"
#include "tests/grid_random/ReferenceInput.h"
#include "tests/grid_random/ReferenceOrder.h"
#include "tests/grid_random/ReferenceScroll.h"
#include "tests/grid_random/ReferenceSlim.h"
#include "tests/grid_random/ReferenceTree.h"
#include "tests/grid_random/ReferenceWalks.h"
