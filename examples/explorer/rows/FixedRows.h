#pragma once

#include <QFont>

#include <string>
#include <vector>

namespace zenu {
class KGridCtrl;
struct tag_HROW;
} // namespace zenu

namespace explorer {

/// The two sections above the tree, Places and Volumes, with ordinary rows: the grid owns their
/// texts, and borrows
/// the font of their titles from here. Their params are negative, so that nothing takes them for
/// rows of a RowSource.
class FixedRows
{
public:
    /// Adds both sections with their rows, opened, at the end of the grid.
    void addTo(zenu::KGridCtrl & grid);

    /// The path that a row stands for, in the bytes of the file system; empty for a section.
    std::string path(long param) const;

private:
    void addPlaces(zenu::KGridCtrl & grid);
    void addVolumes(zenu::KGridCtrl & grid);
    zenu::tag_HROW * addRow(zenu::KGridCtrl & grid, zenu::tag_HROW * section,
                            std::string const & path);

    std::vector<std::string> paths;
    QFont titleFont;
};

} // namespace explorer
