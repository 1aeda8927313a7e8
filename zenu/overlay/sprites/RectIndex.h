#pragma once

#include "zenu/ZenuExport.h"

#include <QRect>

#include <vector>

namespace zenu {

/// Finds those of many rectangles that lie under another one. The first few questions look at all
/// of them; then a grid of cells is built, with which a question costs what it finds.
class ZENU_TEST_EXPORT RectIndex
{
public:
    /// Forgets all rectangles; `add` numbers them from 0 on.
    void clear();
    void add(QRect const & r) { m_rects.push_back(r); }

    int count() const { return static_cast<int>(m_rects.size()); }
    QRect const & at(int index) const { return m_rects[static_cast<size_t>(index)]; }

    /// The numbers of those that intersect `r`, ascending. Valid until the next question.
    std::vector<int> const & under(QRect const & r);

private:
    struct Cells // first to last, both included
    {
        int left, top, right, bottom;
        qint64 count() const { return qint64(right - left + 1) * (bottom - top + 1); }
    };

    void build();
    Cells cellsOf(QRect const & r) const;
    void lookAt(std::vector<int> const & candidates, QRect const & r);
    template <typename Visit>
    void forEachCell(Cells const & cells, Visit visit) const;

    std::vector<QRect> m_rects;
    int m_questions = 0;
    bool m_built = false;
    QRect m_bounds;
    int m_cell = 0; // width and height of a cell
    int m_columns = 0;
    std::vector<int> m_starts;  // of each cell in m_entries, and the end of the last
    std::vector<int> m_entries; // numbers of rectangles, cell after cell
    std::vector<int> m_wide;    // numbers of those that cover many cells
    std::vector<int> m_found;
};

} // namespace zenu
