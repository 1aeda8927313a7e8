#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/time/TimeUnit.h"

#include <concepts>
#include <limits>
#include <string>

namespace zenu {

/// A time as a signed 64-bit count of a fixed resolution, or no valid time. The resolution is the
/// multiplier, the femtoseconds in one count: 1.0 counts femtoseconds, 1000.0 picoseconds.
///
/// A plain value of 16 bytes. Floating point stands only at the edges: a double or a text becomes a
/// count, and a count a double or a text. Sums wrap around in 64 bits. The multiplier is never
/// tested: with zero, a negative number or NaN the operations give what the divisions give.
/// Numbers in texts have a point, whatever the locale of the process.
class ZENU_EXPORT TimeValue
{
public:
    /// The count that means that there is no valid time: the most negative one. Nothing else does.
    static constexpr long long s_invalidValue = std::numeric_limits<long long>::min();

    /// Regular expressions for validators of what a user types, with and without signs: numbers,
    /// each with a unit in small letters or without. The parser takes more words, and any case; but
    /// a number without a unit, which these let pass, counts nothing there.
    static constexpr char const * s_rxSigned =
        R"([+-]?([0-9]+(\.[0-9]*)?[ \t]?([fpnum]s|s(ec)?|min|hr?)?[ ]?)+)";
    static constexpr char const * s_rxUnsigned =
        R"(([0-9]+(\.[0-9]*)?[ \t]?([fpnum]s|s(ec)?|min|hr?)?[ ]?)+)";

    /// Not valid, with a multiplier of 1.0.
    TimeValue() = default;
    /// `value` times `unit`, rounded to a count: up from a half on, and negative numbers always
    /// towards zero. Not valid if the count does not fit into 64 bits.
    TimeValue(double const & value, TimeUnit const & unit, double const & multiplier);
    /// Takes the count as it is.
    TimeValue(long long const & count, double const & multiplier)
        : m_count(count)
        , m_multiplier(multiplier)
    {
    }
    /// The same for integers of every other type; a plain 0 is a count, too, and no null text.
    template <std::integral Count>
    TimeValue(Count count, double const & multiplier)
        : TimeValue(static_cast<long long>(count), multiplier)
    {
    }
    /// Reads `text` as `set` does.
    TimeValue(char const * text, double const & multiplier);
    TimeValue(TimeValue const &) = default;
    TimeValue & operator=(TimeValue const &) = default;

    /// Replaces the count by the sum of the terms in `text`, a number and a unit each: "1 ms",
    /// "1ms500us", "-2 h 30 min". Where no further term can be read the rest is ignored: "10" and
    /// "xyz" give 0, "1 ms 20" gives 1 ms. While the sum is negative further terms are subtracted,
    /// so that the sign of the first term governs the others. A term too large for 64 bits is the
    /// invalid count. A null text counts as empty. O(length of the text).
    void set(char const * text);

    /// The count and the femtoseconds in one count.
    long long internal() const { return m_count; }
    double multiplier() const { return m_multiplier; }

    /// The time as a number of `unit`. The invalid count takes part as a number.
    double inUnit(TimeUnit const & unit) const
    {
        return m_multiplier / unit.factor() * static_cast<double>(m_count);
    }

    /// False for s_invalidValue.
    bool valid() const { return m_count != s_invalidValue; }
    /// Whether the count is below 0, which that of an invalid time is.
    bool negative() const { return m_count < 0; }

    /// The count negated, with the same multiplier. An invalid time stays invalid.
    TimeValue operator-() const;

    /// Adds or subtracts the count of `other`, with wrap-around, if the multipliers are equal. Else
    /// this multiplier over that of `other`, times its count, is added or subtracted, and the sum
    /// rounded as by the constructor; a sum that does not fit is not valid. That ratio is the
    /// reverse of a conversion. The multiplier stays. The invalid count takes part as a number.
    TimeValue const & operator+=(TimeValue const & other);
    TimeValue const & operator-=(TimeValue const & other);

    /// Equal counts and equal multipliers. The same time at two resolutions is not equal.
    bool operator==(TimeValue const & other) const
    {
        return m_count == other.m_count && m_multiplier == other.m_multiplier;
    }
    /// The opposite.
    bool operator!=(TimeValue const & other) const { return !(*this == other); }

    /// `value` of the unit `from` as a number of the unit `to`.
    static double convert(double const & value, TimeUnit const & from, TimeUnit const & to)
    {
        return from.factor() / to.factor() * value;
    }

    /// The unit in which to show this time: TimeUnit::bestUnit of it, the default unit if the count
    /// is 0, but no unit below TimeUnit::smallestUnit of the multiplier.
    TimeUnit bestUnit() const;

    /// The time as a number, a blank and the name of `unit`, or of the best unit without one. At
    /// most `decimals` stand behind the point, without zeros at the end; below 0 as many as show
    /// one count. "<error>" for an invalid time.
    ///
    /// The compound form splits hours and minutes off and writes them in front: "1 hr 30 min ".
    /// What is left stands behind them as a number, scaled to its best unit, under the name of the
    /// unit asked for, or of "sec" after hours and minutes; nothing if it is zero. So half a second
    /// is "500 sec" there. Zeros at the end stay or cost more than themselves: see docs/time.md.
    std::string str(int decimals, bool compound) const;
    std::string str(TimeUnit const & unit, int decimals, bool compound) const;

    /// As `str` without the compound form, the number alone.
    std::string strNoUnit(TimeUnit const & unit, int decimals) const;

    /// The unit behind the first number of `text`; `unknown` if there is no number or no unit.
    static TimeUnit readUnit(char const * text);

private:
    // Reads one term before `last`, which is the end of the text. Returns the place behind it; null
    // if it has no unit, and then `value` and `unit`, which may be null, still get its number and
    // `unknown`. They are left alone if there is no number.
    static char const * parse(char const * text, char const * last, double * value,
                              TimeUnit * unit);

    int defaultDecimals(TimeUnit const & unit) const;

    long long m_count = s_invalidValue;
    double m_multiplier = 1.0;
};

} // namespace zenu
