#pragma once

#include "zenu/ZenuExport.h"

#include <utility>

namespace zenu {

/// A unit of time from the femtosecond to the hour, or no unit. A plain value of four bytes that
/// converts to its enumeration, so that units compare by size: `unit > TimeUnit::ms`.
class ZENU_EXPORT TimeUnit
{
public:
    /// The units from the smallest to the largest; `unknown` is the greatest and means no unit. A
    /// number outside of these nine counts as `unknown`.
    enum EUnit : int
    {
        fs,
        ps,
        ns,
        us,
        ms,
        sec,
        min,
        hr,
        unknown
    };

    /// Holds `unknown`.
    TimeUnit() = default;
    /// Holds `unit`.
    TimeUnit(EUnit const & unit)
        : m_unit(unit)
    {
    }
    /// Holds what parseUnit reads.
    TimeUnit(char const * text, char const ** end)
        : m_unit(parseUnit(text, end))
    {
    }
    TimeUnit(TimeUnit const &) = default;
    TimeUnit & operator=(TimeUnit const &) = default;

    /// The unit as its enumeration.
    operator EUnit() const { return m_unit; }

    /// "fs" to "hr", and "?" for `unknown`. Never null; lives as long as the program.
    char const * name() const { return s_unitNames[place()]; }
    /// Femtoseconds in one unit; 1.0 for `unknown`, so that a time without a unit is one in fs.
    double factor() const { return s_unitFactors[place()]; }

    /// The unit in which a time of 0 is shown, `fs` at first. One for the whole process.
    static EUnit defaultUnit() { return s_defaultUnit; }
    static void setDefaultUnit(EUnit unit) { s_defaultUnit = unit; }

    /// The unit in which to show a time of `x` femtoseconds: the greatest of which there are ten.
    /// `fs` if there is none, and for negative numbers; `hr` for what is not a number.
    static EUnit bestUnit(double const & x);

    /// The smallest unit that is worth showing when a count is `multiplier` femtoseconds: the first
    /// from `ps` on that is not below it. Never `fs`; `unknown` beyond an hour.
    static EUnit smallestUnit(double const & multiplier);

    /// Reads one of the words fs, fsec, ps, psec, ns, nsec, us, usec, ms, msec, s, sec, min, h and
    /// hr in any case, behind any white space. No letter may follow. Stores the place behind the
    /// word in `end` if that is not null. Anything else, a null text too, gives `unknown` and a
    /// null `end`. Looks at no more than five characters behind the white space and allocates
    /// nothing.
    static EUnit parseUnit(char const * text, char const ** end);

    /// The next greater unit; `hr` becomes `unknown`, and `unknown` stays.
    TimeUnit const & operator++();
    /// The next smaller unit; `unknown` becomes `hr`. Unlike ++ it does not stop at its end: `fs`
    /// becomes `unknown`.
    TimeUnit const & operator--();

    /// Names and femtoseconds of the units, indexed by EUnit.
    static constexpr char const * s_unitNames[] = {"fs",  "ps",  "ns", "us", "ms",
                                                   "sec", "min", "hr", "?"};
    static constexpr double s_unitFactors[] = {1, 1e3, 1e6, 1e9, 1e12, 1e15, 6e16, 3.6e18, 1};

private:
    friend class TimeValue;

    // Decimals that show one femtosecond in the unit; those of min and hr are rounded.
    static constexpr int s_unitDigits[] = {0, 3, 6, 9, 12, 15, 17, 19, 0};
    static EUnit s_defaultUnit;

    // The unit and the place behind its word, or `unknown` and null.
    static std::pair<EUnit, char const *> parse(char const * text);

    // The index into the tables.
    unsigned place() const
    {
        auto const number = static_cast<unsigned>(m_unit);
        return number < unknown ? number : static_cast<unsigned>(unknown);
    }
    int digits() const { return s_unitDigits[place()]; }

    EUnit m_unit = unknown;
};

} // namespace zenu
