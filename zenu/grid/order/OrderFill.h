#pragma once

#include "zenu/grid/rows/IGCRow.h"

#include <vector>

namespace zenu {

class CSimilarRows;
class CVariousRows;
class CVisibleRows;
class ISlimGridCallbackWrapper;

// The walk over the tree that a rebuild of the visible order takes. It does not recurse, so the
// tree may be as deep as memory allows; a level of lonely rows costs one virtual call. It calls
// out, to load slim rows and to compare, and the application may change the tree in these calls:
// rows that come make it look up anew where it stands, a row that dies ends it.
class OrderFill
{
public:
    // What the application did to the tree so far; kept by the order.
    struct Changes
    {
        unsigned number = 0;
        bool deaths = false;
    };

    OrderFill(CVisibleRows * tree, ISlimGridCallbackWrapper * callback, Changes const & watched)
        : root(tree)
        , wrapper(callback)
        , changes(watched)
    {
    }

    // Adds the rows whose ancestors are all expanded to the empty form, in display order, each with
    // its index and its mark as last child. Visits all others too, and takes the index from them.
    // The index of `kept`, -1 when the order has no such row; `kept` is compared as an address.
    // After a death the form is empty.
    template <typename Form>
    int FillRows(Form & form, IGCRow const * kept);

private:
    struct Level
    {
        IGCRowParent * parent;
        RowSpan rows;
        unsigned seenChanges;
        int next = 0;
    };

    Level levelOf(IGCRowParent * parent, RowSpan rows) const;
    void lookAgain(Level & level, bool inTree) const;
    template <typename Form>
    void pushLevel(Form & form, IGCRowParent * parent, RowSpan rows);
    void popLevel();
    template <typename Form>
    int fillLevel(Form & form, IGCRow const * kept);
    template <typename Form>
    static int fillLonely(Form & form, RowSpan rows, IGCRow const * kept);
    void hideBranch(IGCRowParent * parent, RowSpan rows);

    CVisibleRows * root;
    ISlimGridCallbackWrapper * wrapper;
    Changes const & changes;
    bool sorted = false;
    std::vector<Level> levels;
    std::vector<std::vector<IGCRow *>> copies; // one a level while rows are sorted
    std::vector<Level> hiddenLevels;
};

extern template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
extern template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

} // namespace zenu
