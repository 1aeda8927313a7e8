#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

namespace zenu {

// Whether cells of a column can show a check box.
class ZENU_TEST_EXPORT KHasCheckBox : public IGCColumnVisitor
{
public:
    void VisitCheckBox(CGCCheckBoxColumn *) override { result = true; }
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *) override { result = true; }

    bool result = false;
};

} // namespace zenu
