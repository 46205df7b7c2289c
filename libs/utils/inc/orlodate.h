// Calendar dates, and spans of days to add to and subtract from them.
#pragma once

#include "orlotypeconvert.h"

#include <compare>
#include <cstdint>
#include <ctime>

namespace orlo {

class date_duration;

// A date of the proleptic Gregorian calendar, years 0 to 65535, in one 32-bit word. Dates are
// plain values, ordered as in the calendar. A date made with a month or day of 0, and the
// date of the default constructor, with zeros throughout, is no calendar date.
//
// Its text reads 2024/02/29 and goes through typeconvert::convert both ways. Read are also
// "-" as separator, quotes around the whole, and the words today and tomorrow in any case.
class date {
public:
    date() = default;
    // Takes what is too large down to the nearest limit: the month to 12, the day to the end of
    // its month. A year above maxYear() gives the first day of that year.
    //
    //   date(2023, 2, 31)      2023/02/28
    //   date(70000, 5, 5)      65535/01/01
    date(std::uint32_t year, std::uint32_t month, std::uint32_t day);
    // The date of a broken-down time; a null pointer throws the plain bool false.
    explicit date(const std::tm* brokenDown);
    // The date of now by the local clock. Throws the plain bool false if that can't be told.
    static date today();

    [[nodiscard]] std::uint32_t getYear() const { return m_word >> yearShift; }
    [[nodiscard]] std::uint32_t getMonth() const { return (m_word >> monthShift) & 0xf; }
    [[nodiscard]] std::uint32_t getDay() const { return m_word & 0xff; }
    // 1 for January 1st.
    [[nodiscard]] std::uint32_t dayOfYear() const;

    static constexpr std::uint32_t maxYear() { return 65535; }
    static bool isLeapYear(std::uint32_t year);
    // Days of a month from 1 to 12; any other number counts as a December.
    static std::uint32_t daysInMonth(std::uint32_t month, std::uint32_t year);
    static std::uint32_t daysInYear(std::uint32_t year);

    friend auto operator<=>(const date&, const date&) = default;

private:
    static constexpr unsigned monthShift = 8;
    static constexpr unsigned yearShift = 12;

    std::uint32_t m_word = 0;
};

// The date that lies the span later.
date operator+(date start, const date_duration& span);

// A span of time that can be added to a date, and subtracted. Spans are not destroyed through
// this base.
class date_duration {
public:
    // Both change `target` and give it back.
    virtual date& addTo(date& target) const = 0;
    virtual date& subtractFrom(date& target) const = 0;

protected:
    ~date_duration() = default;
};

// A number of days.
class days final : public date_duration {
public:
    explicit days(std::uint32_t count) : m_days(count) {}

    // Exact across months and years; a day beyond year 65535 gives 65535/01/01.
    date& addTo(date& target) const override;
    // Exact within the year of `target`, except that the last day of a month comes out as day 0
    // of the next where more than one month's start is crossed. Across the start of the year
    // the day of the month counts a second time. So what is left may be no calendar date.
    //
    //   2020/03/15 less 74     2020/01/01
    //   2020/03/15 less 44     2020/02/00, which stands for 2020/01/31
    //   2020/03/15 less 100    2019/11/20, although 2019/12/06 is the day
    //   2020/01/15 less 15     month 0
    date& subtractFrom(date& target) const override;

private:
    std::uint32_t m_days;
};

namespace detail {
// Converts text to date; also stands beside the converters of the timestamp.
bool textToDate(date& to, const string& from, unsigned flags,
                const typeconvert::argumentList& arguments);

typeconvert::converterList dateConverters();
inline typeconvert::converterGroup dateConverterGroup{dateConverters()};
} // namespace detail

} // namespace orlo
