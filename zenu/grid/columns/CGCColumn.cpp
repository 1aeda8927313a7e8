#include "zenu/grid/columns/CGCColumn.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/inner/SlabPool.h"

#include <cstring>

namespace zenu {

namespace {

bool isEditableKind(int kind)
{
    return kind == GCCK_TEXT || kind == GCCK_TEXTWITHICON || kind == GCCK_LISTBOX ||
           kind == GCCK_COMBOBOX;
}

} // namespace

CGCColumn::CGCColumn(int columnId, int columnItemIndex)
    : id(columnId)
    , itemIndex(columnItemIndex)
{
}

CGCColumn::CGCColumn(CGCColumn const & other)
    : id(other.id)
    , itemIndex(other.itemIndex)
    , order(other.order)
    , kind(other.kind)
    , left(other.left)
    , width(other.width)
    , flags(other.flags)
    , format(other.format)
    , text(duplicateText(other.text))
{
}

CGCColumn::~CGCColumn()
{
    releaseText(text);
}

void CGCColumn::GetRecord(GC_COLUMN * record) const
{
    record->format = format;
    record->kind = kind;
    record->flags = flags;
    record->width = width;
    record->order = order;
    if ((record->mask & GCCM_TEXT) && record->text && record->textMax > 0) {
        std::strncpy(record->text, text ? text : "", static_cast<std::size_t>(record->textMax));
    }
}

void CGCColumn::SetRecord(GC_COLUMN const * record)
{
    if (record->mask & GCCM_FORMAT) {
        format = record->format;
    }
    if (record->mask & GCCM_WIDTH) {
        width = record->width;
    }
    if (record->mask & GCCM_KIND) {
        kind = record->kind;
    }
    if (record->mask & GCCM_FLAGS) {
        flags = record->flags;
    }
    if (!isEditableKind(kind)) {
        flags &= ~GCCF_EDITFLAGS;
    }
    if (record->mask & GCCM_TEXT) {
        SetText(record->text);
    }
}

void CGCColumn::Accept(IGCColumnVisitor * visitor)
{
    visitor->Visit(this);
}

void CGCColumn::SetText(char const * newText)
{
    char * const copy = duplicateText(newText);
    releaseText(text);
    text = copy;
}

tag_HCOLUMN * CGCColumn::Handle() const
{
    return columnHandle(id);
}

} // namespace zenu
