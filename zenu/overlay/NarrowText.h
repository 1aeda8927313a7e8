#pragma once

#include "zenu/ZenuExport.h"

#include <QString>

namespace zenu {

// The one place where text passes between QString and the library's Latin-1 `char const *`.

/// How many texts `qstring2chars` keeps alive.
constexpr int keptNarrowTexts = 1024;

/// The Latin-1 form of `text`; a character outside Latin-1 becomes '?'. Never null: a null or empty
/// text gives "". The pointer belongs to the library and stays valid until 1024 further texts that
/// are not empty have been converted, whatever becomes of `text`. Who keeps it longer copies it.
ZENU_EXPORT char const * qstring2chars(QString const & text);

/// The text of a Latin-1 string; a null pointer gives a null QString.
ZENU_EXPORT QString chars2qstring(char const * text);

} // namespace zenu
