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
// out, to load slim rows and to compare, and relies on the frame to refuse changes of the tree
// while a rebuild runs.
class OrderFill
{
public:
    OrderFill(CVisibleRows * tree, ISlimGridCallbackWrapper * callback)
        : root(tree)
        , wrapper(callback)
    {
    }

    // Adds the rows whose ancestors are all expanded to the empty form, in display order, each with
    // its index and its mark as last child. Visits all others too, and takes the index from them.
    // The index of `kept`, -1 when the order has no such row; `kept` is compared as an address.
    template <typename Form>
    int FillRows(Form & form, IGCRow const * kept);

private:
    struct Level
    {
        RowSpan rows;
        int next = 0;
    };

    template <typename Form>
    void pushLevel(Form & form, RowSpan rows);
    void popLevel();
    template <typename Form>
    static int fillLonely(Form & form, RowSpan rows, IGCRow const * kept);
    void hideBranch(RowSpan rows);

    CVisibleRows * root;
    ISlimGridCallbackWrapper * wrapper;
    bool sorted = false;
    std::vector<Level> levels;
    std::vector<std::vector<IGCRow *>> copies; // one a level while rows are sorted
    std::vector<Level> hiddenLevels;
};

extern template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
extern template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

} // namespace zenu
