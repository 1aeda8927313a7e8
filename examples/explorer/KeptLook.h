#pragma once

class QSettings;

namespace explorer {

class ExplorerGrid;

/// Writes the widths of a grid's columns, if the user gave them some, and what it is sorted by.
void keepLook(ExplorerGrid const & grid, QSettings & settings);

/// Gives a grid what keepLook wrote. What is missing or makes no sense is left as it is.
void restoreLook(ExplorerGrid & grid, QSettings const & settings);

} // namespace explorer
