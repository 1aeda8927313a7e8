#pragma once

namespace zenu {

// One edit of one cell. Its end closes the editor's widget.
class CItemEditor
{
public:
    virtual ~CItemEditor() = default;
    // Shows the widget and gives it the keyboard focus.
    virtual void Activate() = 0;
    // Hands the text over to the row.
    virtual void SaveValue() = 0;
};

} // namespace zenu
