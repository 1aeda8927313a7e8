#include "zenu/grid/columns/CGCColumnKinds.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace zenu {

void IGCColumnVisitor::VisitIcon(CGCIconColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitText(CGCTextColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitTextWithIcon(CGCTextWithIconColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitCheckBox(CGCCheckBoxColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitListBox(CGCListBoxColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitComboBox(CGCComboBoxColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitOwnerDraw(CGCOwnerDrawColumn * column)
{
    Visit(column);
}

void IGCColumnVisitor::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column)
{
    Visit(column);
}

void CGCTextColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitText(this);
}

void CGCIconColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitIcon(this);
}

void CGCTextWithIconColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitTextWithIcon(this);
}

void CGCOwnerDrawColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitOwnerDraw(this);
}

void CGCCheckBoxColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitCheckBox(this);
}

void CGCCheckBoxWithIconColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitCheckBoxWithIcon(this);
}

CGCListBoxColumn::CGCListBoxColumn(int columnId, int columnItemIndex)
    : CGCTextColumn(columnId, columnItemIndex)
{
}

CGCListBoxColumn::CGCListBoxColumn(CGCColumn const & other)
    : CGCTextColumn(other)
{
    if (auto const * const list = dynamic_cast<CGCListBoxColumn const *>(&other)) {
        choices = list->choices;
    }
}

void CGCListBoxColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitListBox(this);
}

void CGCListBoxColumn::SetRecordWithChoices(GC_COLUMN * record)
{
    if ((record->mask & GCCM_LISTITEMS) && record->listItems) {
        std::string const items = record->listItems; // a copy: it may be a choice's own text
        choices.clear();
        std::string_view rest = items;
        while (!rest.empty()) {
            std::size_t const end = rest.find(items.back());
            if (end != 0) {
                choices.emplace_back(rest.substr(0, end));
            }
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
    }
    SetRecord(record);
}

char const * CGCListBoxColumn::Choice(int index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < choices.size()
               ? choices[static_cast<std::size_t>(index)].c_str()
               : nullptr;
}

int CGCListBoxColumn::IndexOf(char const * text) const
{
    auto const found = text ? std::find(choices.begin(), choices.end(), text) : choices.end();
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

void CGCComboBoxColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->VisitComboBox(this);
}

namespace {

template <typename... Arguments>
std::unique_ptr<CGCColumn> make(int kind, Arguments const &... arguments)
{
    switch (kind) {
    case GCCK_TEXT:
        return std::make_unique<CGCTextColumn>(arguments...);
    case GCCK_TEXTWITHICON:
        return std::make_unique<CGCTextWithIconColumn>(arguments...);
    case GCCK_ICON:
        return std::make_unique<CGCIconColumn>(arguments...);
    case GCCK_OWNERDRAW:
        return std::make_unique<CGCOwnerDrawColumn>(arguments...);
    case GCCK_CHECKBOX:
        return std::make_unique<CGCCheckBoxColumn>(arguments...);
    case GCCK_LISTBOX:
        return std::make_unique<CGCListBoxColumn>(arguments...);
    case GCCK_COMBOBOX:
        return std::make_unique<CGCComboBoxColumn>(arguments...);
    case GCCK_CHECKBOXWITHICON:
        return std::make_unique<CGCCheckBoxWithIconColumn>(arguments...);
    default:
        return nullptr;
    }
}

} // namespace

std::unique_ptr<CGCColumn> makeColumn(int kind, int id, int itemIndex)
{
    return make(kind, id, itemIndex);
}

std::unique_ptr<CGCColumn> makeColumnFrom(int kind, CGCColumn const & other)
{
    return make(kind, other);
}

} // namespace zenu
