#pragma once

#include "zenu/ZenuExport.h"

#include <string>

namespace zenu {

/// Frequencies as text. A frequency itself is a plain double and always a number of MHz; only
/// texts have other units. Numbers in texts have a point, whatever the locale of the process.
namespace Frequency {

/// The units from the largest to the smallest, each a thousandth of the one before. A number
/// outside of these six counts as MHz.
enum EUnit : int
{
    GHz,
    MHz,
    kHz,
    Hz,
    mHz,
    uHz
};

/// "GHz" to "uHz". Never null; lives as long as the program.
ZENU_EXPORT char const * UnitName(EUnit unit);

/// Whether `text` is the name of a unit, in any case, between blanks and tabs; stores it in `unit`
/// if that is not null. MHz and mHz differ in case alone: a text whose very first character is a
/// small m means mHz, every other one MHz, so " mHz" with its blank is MHz. False for a null text.
ZENU_EXPORT bool String2Unit(std::string const & text, EUnit * unit);
ZENU_EXPORT bool String2Unit(char const * text, EUnit * unit);

/// Whether `text` is a frequency: a number that is not negative, and a unit or nothing. What
/// follows after a blank behind the unit is ignored. A zero must be written with a 0 as its very
/// first character. Stores MHz in `value`, and in `hasUnit` whether the text had a unit; without
/// one it counts in `defaultUnit`. Both may be null and are left alone on false. O(length of the
/// text).
ZENU_EXPORT bool String2Double(double * value, bool * hasUnit, std::string const & text,
                               EUnit defaultUnit);
ZENU_EXPORT bool String2Double(double * value, bool * hasUnit, char const * text,
                               EUnit defaultUnit);

/// The unit in which to show `value` MHz: the largest of which there is one, GHz at most; uHz for
/// everything below, zero and negative numbers too.
ZENU_EXPORT EUnit GetBestUnit(double value);

/// `value` MHz in `unit`, or in the best one, with up to six decimals and no blank: "1.5GHz".
ZENU_EXPORT std::string Double2String(double value, EUnit unit);
ZENU_EXPORT std::string Double2String(double value);

} // namespace Frequency

} // namespace zenu
