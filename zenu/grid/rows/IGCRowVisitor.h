#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

class CGCLonelySlimRow;
class CGCOrdinaryRow;
class CGCSection;
class CGCSlimRow;
class IGCRow;

// Work on a row that differs by row class; one that treats all classes alike overrides Visit alone.
class ZENU_TEST_EXPORT IGCRowVisitor
{
public:
    virtual ~IGCRowVisitor() = default;
    virtual void Visit(IGCRow *) {}
    virtual void VisitOrdinary(CGCOrdinaryRow * row);
    virtual void VisitSlim(CGCSlimRow * row);
    virtual void VisitLonelySlim(CGCLonelySlimRow * row);
    virtual void VisitSection(CGCSection * row);
};

} // namespace zenu
