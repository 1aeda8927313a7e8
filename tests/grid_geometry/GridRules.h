#pragma once

#include "tests/grid/GridFixture.h"
#include "tests/grid_geometry/GeometryFixture.h"

#include <zenu/grid/GridRecords.h>

namespace zenutest {

// The rules of the layout over what an application knows of a grid, written down as they are said.

inline QRect fromEdges(int left, int top, int right, int bottom)
{
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    return rect;
}

// Where the elements of a cell are; one that is absent is null.
struct CellRule
{
    QRect indent;
    QRect button;
    QRect image;
    QRect text;
    QRect check;
    QRect lead;
    QRect editor;

    void translate(int dx, int dy)
    {
        for (QRect * const rect : {&indent, &button, &image, &text, &check, &lead, &editor}) {
            if (!rect->isNull()) {
                rect->translate(dx, dy);
            }
        }
    }
    unsigned elementAt(QPoint const & point) const
    {
        using namespace zenu;
        std::pair<QRect const *, unsigned> const order[] = {
            {&indent, GCEL_INDENT}, {&button, GCEL_BUTTON}, {&image, GCEL_IMAGE},
            {&text, GCEL_TEXT},     {&check, GCEL_CHECK},   {&lead, GCEL_LEAD}};
        for (auto const & [rect, code] : order) {
            if (rect->contains(point)) {
                return code;
            }
        }
        return GCEL_CELL;
    }
};

struct CellQuestion
{
    int kind = 0;
    int format = 0;
    unsigned flags = 0;
    int width = 0;
    int height = 0;
    int level = 0;
    int indent = 0;
    QSize image; // of the normal list
    QSize lead;
    bool hideCheck = false;
    QString text;
    QFont font;
};

class CellLayout
{
public:
    explicit CellLayout(CellQuestion const & asked)
        : cell(asked)
    {
    }

    CellRule run()
    {
        if (!common()) {
            return rule;
        }
        using namespace zenu;
        int const ofText = cell.indent / 2 - 2;
        int const ofImage = cell.indent - cell.image.width() / 2;
        int const ofCheck = cell.indent - 7;
        switch (cell.kind) {
        case GCCK_ICON:
            image(start(ofImage, 0));
            break;
        case GCCK_TEXTWITHICON:
            image(start(ofImage, 0));
            textAfterImage();
            break;
        case GCCK_CHECKBOX:
            if (int x = start(ofCheck, 2); check(x, 4)) {
                text(x, right);
            }
            break;
        case GCCK_CHECKBOXWITHICON:
            if (int x = start(ofCheck, 2); check(x, 2)) {
                image(x);
                textAfterImage();
            }
            break;
        case GCCK_OWNERDRAW:
            text(left + cell.indent / 2 + 2, right);
            break;
        default:
            text(start(ofText, 2), right);
            break;
        }
        return rule;
    }

    // A section has a button and a title over the whole width.
    CellRule runSection()
    {
        right = cell.width - 2;
        int from = 2;
        if (right - 2 > 9) {
            rule.button = QRect(2, (cell.height - 9) / 2, 9, 9);
            from = 15;
        }
        cell.format = 0;
        text(from, right);
        return rule;
    }

private:
    bool common()
    {
        using namespace zenu;
        right = cell.width - 2;
        if ((cell.format & 0x10000) || (cell.flags & GCCF_TREELINES)) {
            rule.indent.setRect(0, 0, cell.level * cell.indent, cell.height);
            left += cell.level * cell.indent;
        }
        int const top = (cell.height - 9) / 2;
        if (cell.flags & GCCF_TREE) {
            if (right - left <= 9) {
                rule.button = fromEdges(left, top, right, top + 9);
                return false;
            }
            rule.button = fromEdges(left, top, left + 8, top + 8);
            left += 9;
        }
        if ((cell.flags & GCCF_LEAD) && cell.lead.width() < right - left) {
            int const w = cell.lead.width();
            int const h = cell.lead.height();
            int const leadTop = (cell.height - h) / 2;
            int const leadLeft = cell.width - w - 2;
            rule.lead = fromEdges(leadLeft, leadTop, leadLeft + w, leadTop + h);
            right -= 2 + w;
        }
        return true;
    }
    int start(int treeOffset, int gap) const
    {
        bool const tree = (cell.flags & zenu::GCCF_TREE) != 0;
        return tree ? (rule.button.left() + rule.button.right()) / 2 + treeOffset + gap : left;
    }
    void image(int x)
    {
        int const top = (cell.height - cell.image.height()) / 2;
        int const end = right - x > cell.image.width() ? x + cell.image.width() : right;
        rule.image = fromEdges(x, top, end, top + cell.image.height());
    }
    void textAfterImage()
    {
        if (rule.image.right() + 2 < right) {
            text(rule.image.right() + 2, right);
        }
    }
    bool check(int & x, int gap)
    {
        if (right - x <= 11) {
            return false;
        }
        if (!cell.hideCheck) {
            int const top = (cell.height - 11) / 2;
            rule.check = fromEdges(x, top, x + 11, top + 11);
            x = rule.check.right() + gap;
        }
        return true;
    }
    void text(int from, int to)
    {
        rule.editor = fromEdges(from, 0, to, cell.height - 1);
        if (cell.text.isEmpty()) {
            return;
        }
        QFontMetrics const metrics(cell.font);
        QSize const full = metrics.size(Qt::TextSingleLine, cell.text);
        int const dots = metrics.size(Qt::TextSingleLine, QStringLiteral("...")).width();
        bool const atEnd = (cell.format & 2) != 0;
        bool const centred = !atEnd && (cell.format & 4) != 0;
        NaiveFit const fit = naiveFit(cell.font, cell.text, to - from, atEnd);
        bool const cut = fit.count < cell.text.size();
        int const width = cut ? fit.width + dots : full.width();
        int textLeft = atEnd ? to - width : from;
        int textRight = atEnd ? to : from + width;
        if (centred && !cut) {
            int const free = (to - from - width) / 2;
            textLeft = from + free;
            textRight = to - free;
        }
        int const top = (cell.height - full.height()) / 2;
        rule.text =
            fromEdges(std::max(textLeft, from), top, std::min(textRight, to), top + full.height());
    }

    CellQuestion cell;
    CellRule rule;
    int left = 2;
    int right = 0;
};

// The rows and columns of a shown grid with their places, from public reads alone.
class GridRules
{
public:
    struct Row
    {
        zenu::tag_HROW * handle;
        int top; // contents coordinates
        int height;
        int level;
    };
    struct Column
    {
        zenu::tag_HCOLUMN * handle;
        zenu::GC_COLUMN record;
        int left; // contents coordinates
    };

    explicit GridRules(TestGrid const & shown)
        : grid(shown)
    {
        std::vector<zenu::tag_HROW *> handles;
        for (auto row = grid.begin(zenu::GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
            handles.push_back(*row);
        }
        for (zenu::tag_HROW * const handle : handles) {
            int const height = static_cast<int>(grid.GetRowHeight(handle));
            topY = handle == grid.GetTopIndex() ? total : topY;
            rows.push_back({handle, total, height, levelOf(handle)});
            total += height;
        }
        readColumns();
        header = grid.headerHeight();
        offset = grid.GetPriv().hScrollPos;
    }

    int viewTop(Row const & row) const { return row.top - topY + header; }
    QRect rowRect(Row const & row) const
    {
        QRect const client = grid.getClientRect();
        return {client.left(), viewTop(row), client.width(), row.height};
    }
    // The right edge is left plus width.
    QRect itemRect(Row const & row, Column const & column) const
    {
        int const left = column.left - offset;
        return fromEdges(left, viewTop(row), left + column.record.width,
                         viewTop(row) + row.height - 1);
    }
    // Null without rows and columns there.
    std::pair<Row const *, Column const *> at(QPoint const & point) const
    {
        int const x = point.x() + offset;
        int const y = point.y() + topY - header;
        if (point.x() < 0 || point.y() < header) {
            return {nullptr, nullptr};
        }
        for (Row const & row : rows) {
            for (Column const & column : columns) {
                if (y >= row.top && y < row.top + row.height && x >= column.left &&
                    x < column.left + column.record.width) {
                    return {&row, &column};
                }
            }
        }
        return {nullptr, nullptr};
    }

    std::vector<Row> rows;
    std::vector<Column> columns; // those on display
    int total = 0;               // height of all rows
    int topY = 0;
    int header = 0;
    int offset = 0;
    int contentsWidth = 0;

private:
    int levelOf(zenu::tag_HROW * handle) const
    {
        int level = 0;
        while ((handle = grid.GetNextRow(zenu::GCN_PARENT, handle)) != zenu::GC_ROOT) {
            ++level;
        }
        return level;
    }
    void readColumns()
    {
        auto const count = static_cast<std::size_t>(grid.GetColumnsCount());
        std::vector<zenu::tag_HCOLUMN *> handles(count);
        grid.GetColumnOrderArray(handles.data(), static_cast<int>(count));
        for (zenu::tag_HCOLUMN * const handle : handles) {
            Column column{handle, {}, contentsWidth};
            grid.GetColumn(handle, &column.record);
            if (!(column.record.flags & zenu::GCCF_HIDDEN)) {
                contentsWidth += column.record.width;
                columns.push_back(column);
            }
        }
    }

    TestGrid const & grid;
};

} // namespace zenutest
