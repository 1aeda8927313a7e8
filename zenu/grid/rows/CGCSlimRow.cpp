#include "zenu/grid/rows/CGCSlimRow.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/inner/LargeBlock.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <new>

namespace zenu {

namespace {

// A block of rows of one class; they start where this object ends.
template <typename Row>
class RowBlock final : public CGCSlimRow::CSubRows
{
public:
    IGCRow * GetRow(int index) override { return firstRow() + index; }
    RowSpan GetRows() override
    {
        return {reinterpret_cast<std::byte *>(firstRow()), sizeof(Row), count, isLonely};
    }

    // Null when there is no memory.
    static CGCSlimRow::CSubRows * create(IGCRow * parent, int rowCount)
    {
        RowBlock * const block = allocate(rowCount);
        for (int i = 0; block && i < rowCount; ++i) {
            ::new (static_cast<void *>(block->firstRow() + i)) Row(parent);
        }
        return block;
    }
    // Null also when a record has children that rows of this class can't have: with ten million
    // records, to look for one beforehand would take as long as to make the rows.
    static CGCSlimRow::CSubRows * create(IGCRow * parent, std::span<GC_SLIMROWDATA> records)
    {
        RowBlock * const block = allocate(static_cast<int>(records.size()));
        if (!block) {
            return nullptr;
        }
        bool anyHeight = false;
        Row * place = block->firstRow();
        for (GC_SLIMROWDATA & record : records) {
            if (isLonely && record.hasChildren) {
                LargeBlock::release(static_cast<void *>(block));
                return nullptr;
            }
            Row * const row = ::new (static_cast<void *>(place++)) Row(parent);
            row->param = static_cast<unsigned long>(record.param);
            record.row = row->Handle();
            anyHeight |= record.height != -1;
        }
        block->anyHeight = anyHeight;
        return block;
    }

private:
    static constexpr bool isLonely = std::is_same_v<Row, CGCLonelySlimRow>;

    static RowBlock * allocate(int rowCount)
    {
        static_assert(sizeof(RowBlock) % alignof(Row) == 0);
        void * const memory = LargeBlock::allocate(
            sizeof(RowBlock) + static_cast<std::size_t>(rowCount) * sizeof(Row));
        if (!memory) {
            return nullptr;
        }
        auto * const block = ::new (memory) RowBlock;
        block->count = rowCount;
        return block;
    }
    Row * firstRow() { return reinterpret_cast<Row *>(this + 1); }
};

using CSlimSubRows = RowBlock<CGCSlimRow>;
using CLonelySlimSubRows = RowBlock<CGCLonelySlimRow>;

} // namespace

void CGCLonelySlimRow::Accept(IGCRowVisitor * visitor)
{
    visitor->VisitLonelySlim(this);
}

bool CGCLonelySlimRow::DeleteChild(IGCRow * row)
{
    delete row;
    return false;
}

CGCSlimRow::~CGCSlimRow()
{
    freeBlock(subRows);
}

int CGCSlimRow::GetChildCount(ISlimGridCallbackWrapper * wrapper)
{
    return GetChildren(wrapper).count();
}

IGCRow * CGCSlimRow::GetChild(int index)
{
    return subRows ? subRows->GetRow(index) : nullptr;
}

RowSpan CGCSlimRow::GetChildren(ISlimGridCallbackWrapper * wrapper)
{
    if (subRows && !subRows->loaded) {
        load(wrapper);
    }
    return subRows && subRows->loaded ? subRows->GetRows() : RowSpan();
}

bool CGCSlimRow::HasChildren(ISlimGridCallbackWrapper * wrapper)
{
    return subRows || wrapper->HasSubRows(this);
}

void CGCSlimRow::ExpandRow(ISlimGridCallbackWrapper * wrapper)
{
    if (!subRows || !subRows->loaded) {
        load(wrapper);
    }
    if (subRows) {
        subRows->expanded = true;
    }
}

void CGCSlimRow::CollapseRow()
{
    if (subRows) {
        subRows->expanded = false;
    }
}

bool CGCSlimRow::IsExpanded() const
{
    return subRows && subRows->expanded;
}

void CGCSlimRow::Accept(IGCRowVisitor * visitor)
{
    visitor->VisitSlim(this);
}

void CGCSlimRow::load(ISlimGridCallbackWrapper * wrapper)
{
    int const count = wrapper->GetSubRowCount(this);
    if (count <= 0) {
        return;
    }
    // The shell goes first: a row asked about while it loads is a closed row without children.
    bool const wasExpanded = IsExpanded();
    freeBlock(subRows);
    subRows = nullptr;
    wrapper->LoadSubRows(this, wasExpanded, count);
}

CGCSlimRow::CSubRows * CGCSlimRow::CreateBlock(bool lonely, bool expanded, int count)
{
    return takeBlock(lonely ? CLonelySlimSubRows::create(this, count)
                            : CSlimSubRows::create(this, count),
                     expanded);
}

CGCSlimRow::CSubRows * CGCSlimRow::CreateBlock(bool expanded, std::span<GC_SLIMROWDATA> records)
{
    CSubRows * const lonely = CLonelySlimSubRows::create(this, records);
    return takeBlock(lonely ? lonely : CSlimSubRows::create(this, records), expanded);
}

// Instead of the block that is there.
CGCSlimRow::CSubRows * CGCSlimRow::takeBlock(CSubRows * block, bool expanded)
{
    freeBlock(subRows);
    subRows = block;
    if (block) {
        block->loaded = true;
        block->expanded = expanded;
    }
    return block;
}

void CGCSlimRow::DropChildren()
{
    if (!subRows) {
        return;
    }
    bool const wasExpanded = subRows->expanded;
    freeBlock(subRows);
    subRows = nullptr;
    if (wasExpanded) {
        subRows = CLonelySlimSubRows::create(this, 0);
        if (subRows) {
            subRows->expanded = true;
        }
    }
}

void CGCSlimRow::freeBlock(CSubRows * first)
{
    // The rows in a block get no destructor call, so blocks deeper down are found here, level by
    // level, however deep.
    std::vector<CSubRows *> pending;
    if (first) {
        pending.push_back(first);
    }
    while (!pending.empty()) {
        CSubRows * const block = pending.back();
        pending.pop_back();
        RowSpan const rows = block->GetRows();
        if (!rows.areLonely()) {
            for (int i = 0; i < rows.count(); ++i) {
                if (CSubRows * const deeper = static_cast<CGCSlimRow *>(rows[i])->subRows) {
                    pending.push_back(deeper);
                }
            }
        }
        LargeBlock::release(static_cast<void *>(block));
    }
}

} // namespace zenu
