#pragma once

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/inner/ITextCallback.h"
#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"
#include "zenu/grid/rows/ColumnSet.h"
#include "zenu/grid/rows/ItemLifetime.h"

#include <QByteArray>
#include <QColor>
#include <QtTest/QtTest>

#include <array>
#include <functional>
#include <map>
#include <string>

namespace zenutest {

inline constexpr int kindCount = 8;
inline constexpr std::array<char const *, kindCount> kindNames{
    "text",      "text with icon", "icon",      "owner draw",
    "check box", "list box",       "combo box", "check box with icon"};

// The bits of GC_ITEM::mask, one by one.
struct MaskBit
{
    unsigned mask;
    char const * name;
};

inline constexpr std::array<MaskBit, 11> itemMaskBits{{{0, "no bit"},
                                                       {zenu::GCIM_TEXT, "text"},
                                                       {zenu::GCIM_VALUE, "value"},
                                                       {zenu::GCIM_STATE, "state"},
                                                       {zenu::GCIM_IMAGE, "image"},
                                                       {zenu::GCIM_TEXTLEN, "text length"},
                                                       {zenu::GCIM_TEXTCOLOR, "text colour"},
                                                       {zenu::GCIM_ALIGN, "alignment"},
                                                       {zenu::GCIM_OVERLAY, "overlay"},
                                                       {zenu::GCIM_STATEIMAGE, "state image"},
                                                       {zenu::GCIM_CHECKSTYLE, "check style"}}};

// A column of each kind, id and item index both the kind; list and combo box with ten choices c0
// to c9.
inline void addAllKinds(zenu::ColumnSet & columns)
{
    for (int kind = 0; kind < kindCount; ++kind) {
        std::unique_ptr<zenu::CGCColumn> column = zenu::makeColumn(kind, kind, kind);
        column->kind = kind;
        if (auto * const list = dynamic_cast<zenu::CGCListBoxColumn *>(column.get())) {
            for (int i = 0; i < 10; ++i) {
                list->choices.push_back("c" + std::to_string(i));
            }
        }
        columns.add(std::move(column));
    }
}

// Answers quietly by default; a test puts in what it needs.
class FakeWrapper : public zenu::ISlimGridCallbackWrapper
{
public:
    void GetRowDrawInfo(zenu::GC_DRAWROWINFO *, zenu::IGCRow *) override {}
    void ReleaseRowDrawInfo(zenu::GC_DRAWROWINFO *, zenu::IGCRow *) override {}
    void GetItemDrawInfo(zenu::GC_DRAWITEMINFO *, zenu::IGCRow *, zenu::CGCColumn *, bool,
                         bool) override
    {
    }
    char const * GetItemText(zenu::IGCRow *, zenu::CGCColumn *) override { return text; }
    void SetItemText(zenu::IGCRow *, zenu::CGCColumn *, char const *) override {}
    void SetItemCheck(zenu::IGCRow *, zenu::CGCColumn *, bool) override {}
    int IsItemChecked(zenu::IGCRow *, zenu::CGCColumn *) override { return 0; }
    bool HasSubRows(zenu::IGCRow *) override
    {
        ++hasAsked;
        return hasSubRows;
    }
    int GetSubRowCount(zenu::IGCRow *) override
    {
        ++countAsked;
        return subRowCount;
    }
    void LoadSubRows(zenu::CGCSlimRow * row, bool expanded, int count) override
    {
        ++loads;
        if (whileLoading) {
            whileLoading(row);
        }
        if (createBlocks) {
            row->CreateBlock(lonely, expanded, count);
        }
    }
    int GetDefaultRowHeight() override { return 17; }

    char const * text = nullptr;
    bool hasSubRows = false;
    int subRowCount = 0;
    bool lonely = false;
    bool createBlocks = true;
    std::function<void(zenu::CGCSlimRow *)> whileLoading;
    int hasAsked = 0;
    int countAsked = 0;
    int loads = 0;
};

class FakeTextCallback : public zenu::ITextCallback
{
public:
    char const * GetText(zenu::IGCRow * row, zenu::CGCColumn * column) override
    {
        ++asked;
        if (meanwhile) {
            meanwhile(row, column);
        }
        return text;
    }

    char const * text = "from callback";
    std::function<void(zenu::IGCRow *, zenu::CGCColumn *)> meanwhile;
    int asked = 0;
};

// A row of each class beside a set of columns of all kinds; texts are freed at the end.
class RowsOfAllClasses
{
public:
    ~RowsOfAllClasses()
    {
        ordinary.DestroyItems(columns);
        section.DestroyItems(columns);
    }

    std::array<zenu::IGCRow *, 4> all() { return {&ordinary, &section, &slim, &lonely}; }
    zenu::CGCColumn * column(int kind) const { return columns.find(kind); }

    zenu::ColumnSet const columns = allKinds();
    zenu::CGCOrdinaryRow ordinary{nullptr, columns};
    zenu::CGCSection section{columns};
    zenu::CGCSlimRow slim{nullptr};
    zenu::CGCLonelySlimRow lonely{nullptr};

private:
    static zenu::ColumnSet allKinds()
    {
        zenu::ColumnSet set;
        addAllKinds(set);
        return set;
    }
};

inline constexpr std::array<char const *, 4> rowClassNames{"ordinary", "section", "slim", "lonely"};

// Whether a class of that index has cells and takes children.
inline bool isOrdinary(int rowClass)
{
    return rowClass < 2;
}

// Whether items of a kind have a text of their own.
inline bool bearsText(int kind)
{
    return kind != zenu::GCCK_ICON && kind != zenu::GCCK_LISTBOX;
}

// Data of a test that runs once a row class, a kind, a kind that bears a text.
inline void addRowClasses()
{
    QTest::addColumn<int>("rowClass");
    for (int i = 0; i < int(rowClassNames.size()); ++i) {
        QTest::newRow(rowClassNames[std::size_t(i)]) << i;
    }
}

inline void addKinds()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < kindCount; ++kind) {
        QTest::newRow(kindNames[std::size_t(kind)]) << kind;
    }
}

inline void addTextKinds()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < kindCount; ++kind) {
        if (bearsText(kind)) {
            QTest::newRow(kindNames[std::size_t(kind)]) << kind;
        }
    }
}

// A row for each kind and each bit of an item's mask.
inline void addKindsAndMaskBits()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("mask");
    for (int kind = 0; kind < kindCount; ++kind) {
        for (MaskBit const & bit : itemMaskBits) {
            QTest::addRow("%s, %s", kindNames[std::size_t(kind)], bit.name) << kind << bit.mask;
        }
    }
}

inline QByteArray textOf(char const * text)
{
    return text == zenu::GC_TEXTCALLBACK ? QByteArray("(callback)")
                                         : (text ? QByteArray(text) : QByteArray("(null)"));
}

// An item as one line, so that a failure reads itself.
inline QByteArray dump(zenu::GridItem const & item)
{
    return QByteArray("flags=") + QByteArray::number(item.flags, 16) +
           " images=" + QByteArray::number(item.images[0]) + "," +
           QByteArray::number(item.images[1]) + "," + QByteArray::number(item.images[2]) +
           " color=" + QByteArray::number(item.textColor(), 16) +
           " style=" + QByteArray::number(item.checkStyle()) + " text=" + textOf(item.text);
}

} // namespace zenutest
