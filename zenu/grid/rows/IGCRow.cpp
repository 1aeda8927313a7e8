#include "zenu/grid/rows/IGCRow.h"

#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

namespace zenu {

void IGCRowVisitor::VisitOrdinary(CGCOrdinaryRow * row)
{
    Visit(row);
}

void IGCRowVisitor::VisitSlim(CGCSlimRow * row)
{
    Visit(row);
}

void IGCRowVisitor::VisitLonelySlim(CGCLonelySlimRow * row)
{
    Visit(row);
}

void IGCRowVisitor::VisitSection(CGCSection * row)
{
    Visit(row);
}

void * IGCRow::operator new(std::size_t size)
{
    return SlabPool::allocate(size);
}

void IGCRow::operator delete(void * row, std::size_t size) noexcept
{
    SlabPool::release(row, size);
}

int IGCRow::GetLevel() const
{
    int level = 0;
    for (IGCRow const * ancestor = parent; ancestor; ancestor = ancestor->parent) {
        ++level;
    }
    return level;
}

} // namespace zenu
