#pragma once

#include "zenu/grid/columns/CGCColumn.h"

#include <memory>
#include <string>
#include <vector>

namespace zenu {

class ZENU_TEST_EXPORT CGCTextColumn : public CGCColumn
{
public:
    using CGCColumn::CGCColumn;
    explicit CGCTextColumn(CGCColumn const & other)
        : CGCColumn(other)
    {
    }
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCIconColumn : public CGCColumn
{
public:
    using CGCColumn::CGCColumn;
    explicit CGCIconColumn(CGCColumn const & other)
        : CGCColumn(other)
    {
    }
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCTextWithIconColumn : public CGCTextColumn
{
public:
    using CGCTextColumn::CGCTextColumn;
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCOwnerDrawColumn : public CGCTextWithIconColumn
{
public:
    using CGCTextWithIconColumn::CGCTextWithIconColumn;
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCCheckBoxColumn : public CGCTextColumn
{
public:
    using CGCTextColumn::CGCTextColumn;
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCCheckBoxWithIconColumn : public CGCTextColumn
{
public:
    using CGCTextColumn::CGCTextColumn;
    void Accept(IGCColumnVisitor * visitor) override;
};

class ZENU_TEST_EXPORT CGCListBoxColumn : public CGCTextColumn
{
public:
    CGCListBoxColumn(int columnId, int columnItemIndex);
    // The choices come along when the other column has some.
    explicit CGCListBoxColumn(CGCColumn const & other);
    void Accept(IGCColumnVisitor * visitor) override;

    // SetRecord, and with GCCM_LISTITEMS the choices: the text's own last character separates them,
    // empty pieces are skipped. Beside SetRecord, not in place of it: the grid calls SetRecord, so
    // a grid's list columns start without choices and keep those that a derived build gives them.
    virtual void SetRecordWithChoices(GC_COLUMN * record);

    // The choice at a list index, null when it is out of range.
    char const * Choice(int index) const;
    // The index of the first choice that is this text to the letter; -1 for none and for null.
    int IndexOf(char const * text) const;

    std::vector<std::string> choices;
};

class ZENU_TEST_EXPORT CGCComboBoxColumn : public CGCListBoxColumn
{
public:
    using CGCListBoxColumn::CGCListBoxColumn;
    void Accept(IGCColumnVisitor * visitor) override;
};

// A new column of a GCCK_ kind, null for a kind that does not exist.
ZENU_TEST_EXPORT std::unique_ptr<CGCColumn> makeColumn(int kind, int id, int itemIndex);
// A column of another kind with the fields of `other`, null for a kind that does not exist.
ZENU_TEST_EXPORT std::unique_ptr<CGCColumn> makeColumnFrom(int kind, CGCColumn const & other);

} // namespace zenu
