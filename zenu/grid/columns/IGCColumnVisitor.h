#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

class CGCCheckBoxColumn;
class CGCCheckBoxWithIconColumn;
class CGCColumn;
class CGCComboBoxColumn;
class CGCIconColumn;
class CGCListBoxColumn;
class CGCOwnerDrawColumn;
class CGCTextColumn;
class CGCTextWithIconColumn;

// Work on a cell that differs by column kind. Small objects on the stack, with the item or record
// as fields; one that treats all kinds alike overrides Visit alone.
class ZENU_TEST_EXPORT IGCColumnVisitor
{
public:
    virtual ~IGCColumnVisitor() = default;
    virtual void Visit(CGCColumn *) {}
    virtual void VisitIcon(CGCIconColumn * column);
    virtual void VisitText(CGCTextColumn * column);
    virtual void VisitTextWithIcon(CGCTextWithIconColumn * column);
    virtual void VisitCheckBox(CGCCheckBoxColumn * column);
    virtual void VisitListBox(CGCListBoxColumn * column);
    virtual void VisitComboBox(CGCComboBoxColumn * column);
    virtual void VisitOwnerDraw(CGCOwnerDrawColumn * column);
    virtual void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column);
};

} // namespace zenu
