#pragma once

#include "zenu/grid/rows/IGCRow.h"

#include <vector>

namespace zenu {

class CSimilarRows;
class CVariousRows;
class CVisibleRows;
class ISlimGridCallbackWrapper;

// The two walks over the tree that a rebuild of the visible order takes. Neither recurses, so the
// tree may be as deep as memory allows; a level of lonely rows costs one virtual call. They call
// out, to load slim rows and to compare, and rely on the frame to refuse changes of the tree while
// a rebuild runs.
class OrderFill
{
public:
    OrderFill(CVisibleRows * tree, ISlimGridCallbackWrapper * callback)
        : root(tree)
        , wrapper(callback)
    {
    }

    // Visits every row, those under collapsed rows too, and takes the visible index from each that
    // the order won't hold. The number of rows that it will hold.
    int CountRows();
    // Adds the rows in display order, each with its index and its mark as last child. The index of
    // `kept`, -1 when the order has no such row; `kept` is compared as an address.
    template <typename Form>
    int FillRows(Form & form, IGCRow const * kept);

private:
    struct Level
    {
        RowSpan rows;
        int next = 0;
        bool shown = true; // all ancestors are expanded
    };

    void pushSorted(RowSpan rows);
    void popSorted();
    template <typename Form>
    int fillLonely(Form & form, RowSpan rows, IGCRow const * kept);

    CVisibleRows * root;
    ISlimGridCallbackWrapper * wrapper;
    std::vector<Level> levels;
    std::vector<std::vector<IGCRow *>> copies; // one a level while rows are sorted
    bool sorted = false;
};

extern template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
extern template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

} // namespace zenu
