#include "zenu/grid/rows/CGCSection.h"

#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

namespace zenu {

CGCSection::CGCSection(ColumnSet const & columns)
    : CGCOrdinaryRow(nullptr, columns)
{
}

CGCSection::~CGCSection()
{
    releaseText(text);
}

void CGCSection::Accept(IGCRowVisitor * visitor)
{
    visitor->VisitSection(this);
}

bool CGCSection::AssertValid(ColumnSet const & columns)
{
    CGCOrdinaryRow::AssertValid(columns);
    return true;
}

void CGCSection::SetText(char const * newText)
{
    char * const copy = duplicateText(newText);
    releaseText(text);
    text = copy;
}

} // namespace zenu
