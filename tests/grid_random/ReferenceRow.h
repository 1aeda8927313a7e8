#pragma once

#include "zenu/grid/GridTypes.h"

#include <QRgb>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The reference's data: plain structures that own their parts.

namespace gridrandom {

using zenu::tag_HROW;

struct ReferenceItem
{
    enum class Text
    {
        None,
        Callback,
        Own
    };

    unsigned flags = 0; // a byte: state bits and, above them, the alignment plus 1
    std::array<int, 3> images{-1, -1, -1};
    QRgb color = 0xff000000;
    bool grayed = false;
    bool radio = false;
    bool hideCheck = false;
    Text textKind = Text::None;
    std::string text;
};

struct ReferenceColumn
{
    int id = 0;
    int place = 0; // of its item in each row
    int order = 0;
    int kind = 0;     // what was made, says how items are read
    int toldKind = 0; // what the record was told
    int left = 0;
    int width = 0;
    unsigned flags = 0;
    int format = 0;
    std::optional<std::string> text;

    bool hidden() const { return (flags & zenu::GCCF_HIDDEN) != 0; }
    bool hasText() const { return kind != zenu::GCCK_ICON && kind != zenu::GCCK_LISTBOX; }
    bool hasEditor() const { return kind == zenu::GCCK_TEXT || kind == zenu::GCCK_TEXTWITHICON; }
    bool hasCheck() const
    {
        return kind == zenu::GCCK_CHECKBOX || kind == zenu::GCCK_CHECKBOXWITHICON;
    }
    bool hasImages() const
    {
        return kind == zenu::GCCK_ICON || kind == zenu::GCCK_TEXTWITHICON ||
               kind == zenu::GCCK_CHECKBOXWITHICON;
    }
};

enum class RowClass
{
    Ordinary,
    Section,
    Slim,
    LonelySlim
};

struct ReferenceRow
{
    int number = 0;
    tag_HROW * handle = nullptr;
    RowClass rowClass = RowClass::Ordinary;
    ReferenceRow * parent = nullptr;
    std::vector<std::unique_ptr<ReferenceRow>> children;
    unsigned long param = 0;
    // Ordinary rows and sections
    bool expanded = true;
    bool hasButton = false;
    QRgb textColor = 0xff000000;
    QRgb bkColor = 0xff000000;
    std::optional<std::string> title;
    std::vector<ReferenceItem> items;
    bool mayKeepTexts = false; // painted since it came on display
    // Slim rows: a block may be there, with children or as a shell that loads them when asked
    bool hasBlock = false;
    bool loaded = false;
    bool blockExpanded = false;

    bool isSlim() const { return rowClass == RowClass::Slim || isLonely(); }
    bool isLonely() const { return rowClass == RowClass::LonelySlim; }
    bool isExpanded() const { return isSlim() ? hasBlock && blockExpanded : expanded; }
    bool isSameOrUnder(ReferenceRow const * ancestor) const
    {
        ReferenceRow const * row = this;
        while (row && row != ancestor) {
            row = row->parent;
        }
        return row == ancestor;
    }
    int placeOf(ReferenceRow const * child) const
    {
        auto const found = std::find_if(children.begin(), children.end(),
                                        [=](auto const & each) { return each.get() == child; });
        return found == children.end() ? -1 : static_cast<int>(found - children.begin());
    }
};

} // namespace gridrandom
