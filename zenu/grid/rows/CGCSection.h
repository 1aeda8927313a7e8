#pragma once

#include "zenu/grid/rows/CGCOrdinaryRow.h"

namespace zenu {

// A row with a title across all columns: a pointer more than an ordinary row. Its cells exist and
// are not drawn.
class ZENU_TEST_EXPORT CGCSection : public CGCOrdinaryRow
{
public:
    explicit CGCSection(ColumnSet const & columns);
    ~CGCSection() override;

    void Accept(IGCRowVisitor * visitor) override;
    bool AssertValid(ColumnSet const & columns) override;

    char const * Text() const { return text; }
    // Takes a copy; null is kept.
    void SetText(char const * newText);

private:
    char * text = nullptr; // owned
};

static_assert(sizeof(CGCSection) <= 80 || sizeof(void *) != 8);

} // namespace zenu
