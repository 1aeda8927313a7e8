#include "zenu/overlay/sprites/RectIndex.h"

#include <algorithm>

namespace zenu {

namespace {

constexpr int questionsWithoutCells = 8;
constexpr int smallestCell = 64;
constexpr qint64 mostCells = 4096;
constexpr qint64 manyCells = 16; // of one rectangle

} // namespace

void RectIndex::clear()
{
    m_rects.clear();
    m_questions = 0;
    m_built = false;
}

std::vector<int> const & RectIndex::under(QRect const & r)
{
    m_found.clear();
    if (!m_built && ++m_questions <= questionsWithoutCells) {
        for (int i = 0; i < count(); ++i) {
            if (at(i).intersects(r))
                m_found.push_back(i);
        }
        return m_found;
    }
    if (!m_built)
        build();
    QRect const inside = r & m_bounds;
    if (inside.isEmpty())
        return m_found;
    lookAt(m_wide, r);
    forEachCell(cellsOf(inside), [&](size_t cell) {
        for (int i = m_starts[cell]; i < m_starts[cell + 1]; ++i) {
            int const number = m_entries[static_cast<size_t>(i)];
            if (at(number).intersects(r))
                m_found.push_back(number);
        }
    });
    std::sort(m_found.begin(), m_found.end());
    m_found.erase(std::unique(m_found.begin(), m_found.end()), m_found.end());
    return m_found;
}

void RectIndex::lookAt(std::vector<int> const & candidates, QRect const & r)
{
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(m_found),
                 [&](int number) { return at(number).intersects(r); });
}

RectIndex::Cells RectIndex::cellsOf(QRect const & r) const
{
    return Cells{(r.left() - m_bounds.left()) / m_cell, (r.top() - m_bounds.top()) / m_cell,
                 (r.right() - m_bounds.left()) / m_cell, (r.bottom() - m_bounds.top()) / m_cell};
}

template <typename Visit>
void RectIndex::forEachCell(Cells const & cells, Visit visit) const
{
    for (int y = cells.top; y <= cells.bottom; ++y) {
        for (int x = cells.left; x <= cells.right; ++x)
            visit(static_cast<size_t>(y) * static_cast<size_t>(m_columns) + static_cast<size_t>(x));
    }
}

// Counts the rectangles of each cell first, so that all lists lie in one block.
void RectIndex::build()
{
    m_built = true;
    m_bounds = QRect();
    for (QRect const & r : m_rects)
        m_bounds |= r;
    m_cell = smallestCell;
    while (qint64(m_bounds.width() / m_cell + 1) * (m_bounds.height() / m_cell + 1) > mostCells)
        m_cell *= 2;
    m_columns = m_bounds.width() / m_cell + 1;
    int const rows = m_bounds.height() / m_cell + 1;
    m_starts.assign(static_cast<size_t>(m_columns) * static_cast<size_t>(rows) + 1, 0);
    m_wide.clear();
    std::vector<int> placed;
    for (int i = 0; i < count(); ++i) {
        if (at(i).isEmpty())
            continue;
        if (cellsOf(at(i)).count() > manyCells) {
            m_wide.push_back(i);
            continue;
        }
        placed.push_back(i);
        forEachCell(cellsOf(at(i)), [&](size_t cell) { ++m_starts[cell]; });
    }
    int sum = 0;
    for (int & start : m_starts)
        start = sum += start;
    m_entries.resize(static_cast<size_t>(sum));
    for (auto number = placed.rbegin(); number != placed.rend(); ++number) {
        forEachCell(cellsOf(at(*number)), [&](size_t cell) {
            m_entries[static_cast<size_t>(--m_starts[cell])] = *number;
        });
    }
}

} // namespace zenu
