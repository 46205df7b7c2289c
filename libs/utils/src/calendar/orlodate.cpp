// Dates count in the proleptic Gregorian calendar and lie in one word, the year above the month
// above the day, so that the word orders them and files can hold it.
//
// Nothing here goes day by day, and nothing by a number of days since some first day: a span moves
// by whole years first, then by whole months, then within one. On the way the day is kept as
// three numbers beside the date (calendarDay), since it may lie beyond the last year that a date
// holds. Forward this is exact. Backward it keeps a slip that dates already counted depend on; see
// skipMonthsBack.
//
// A text is tried with "/" and then with "-" as delimiter. A try that fails throws the plain bool
// false where it fails, and one place catches it.
#include "orlodate.h"

#include "orlotextformat.h"
#include "platform/platform.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace orlo {

namespace {

constexpr std::uint32_t monthsInYear = 12;
constexpr std::uint32_t longestMonth = 31;

// By leap year, then by month from 1.
constexpr std::uint32_t monthLengths[2][monthsInYear] = {
    {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
};

// A day on its way to another date; it may lie beyond the last year that a date can hold.
struct calendarDay {
    explicit calendarDay(const date& from)
        : year(from.getYear()), month(from.getMonth()), day(from.getDay())
    {}

    std::uint32_t year;
    std::uint32_t month;
    std::uint32_t day;

    [[nodiscard]] date asDate() const { return {year, month, day}; }
    [[nodiscard]] std::uint32_t yearLength() const { return date::daysInYear(year); }
    [[nodiscard]] std::uint32_t monthLength() const { return date::daysInMonth(month, year); }
    void toNextMonth()
    {
        if (month == monthsInYear) ++year;
        month = month == monthsInYear ? 1 : month + 1;
    }
};

// Moves to the first day of the year in which the last of the `count` days lie, and takes the
// days up to there off `count`.
void skipYears(calendarDay& at, std::uint32_t& count)
{
    const std::uint32_t left = at.yearLength() - at.asDate().dayOfYear() + 1;
    if (count <= left) return;
    count -= left;
    ++at.year;
    at.month = at.day = 1;
    while (count > at.yearLength() && at.year <= date::maxYear()) {
        count -= at.yearLength();
        ++at.year;
    }
}

// The same for months within a year.
void skipMonths(calendarDay& at, std::uint32_t& count)
{
    const std::uint32_t left = at.monthLength() - at.day + 1;
    if (count <= left) return;
    count -= left;
    at.toNextMonth();
    at.day = 1;
    while (count > at.monthLength()) {
        count -= at.monthLength();
        at.toNextMonth();
    }
}

// Moves back by whole years until the rest of `count` lies within one; not before year 0.
void skipYearsBack(calendarDay& at, std::uint32_t& count)
{
    const std::uint32_t passed = at.asDate().dayOfYear();
    if (count > passed) {
        const bool atStart = at.year == 0;
        count = atStart ? 0 : count - passed;
        at.month = atStart ? 1 : monthsInYear;
        at.day = atStart ? 1 : longestMonth;
        if (!atStart) --at.year;
    }
    while (count > at.yearLength()) {
        if (at.year == 0) {
            at.month = at.day = 1;
            count = 0;
        } else {
            count -= at.yearLength();
            --at.year;
        }
    }
}

// Moves back to the last day of the month in which the rest of `count` lies. The day of the
// month on which the way began is taken off even if years lie between: it is meant so, since
// dates that were counted this way must come out the same again.
void skipMonthsBack(calendarDay& at, std::uint32_t& count, std::uint32_t firstDay)
{
    if (count >= firstDay) {
        count -= firstDay;
        --at.month;
        at.day = at.monthLength();
    }
    while (count > at.monthLength()) {
        count -= at.monthLength();
        --at.month;
        at.day = at.monthLength();
    }
}

bool dateToText(string& to, const date& from, unsigned, const typeconvert::argumentList&)
{
    string text;
    formatText(
        text, u"%04d/%02d/%02d",
        std::initializer_list<formatArgument>{from.getYear(), from.getMonth(), from.getDay()});
    to.swap(text);
    return true;
}

string withoutQuotes(const string& text)
{
    string bare(text);
    if (!bare.empty() && (bare.front() == u'"' || bare.front() == u'\''))
        bare.trimLeft(u"'\" ").trimRight(u"'\" ");
    return bare;
}

std::uint32_t readNumber(const string& text)
{
    std::uint32_t value = 0;
    if (!typeconvert::convert(value, text)) throw false;
    return value;
}

// Throws the plain bool false if the text is no date of this delimiter.
date readDate(const string& text, const char16_t* delimiter)
{
    const string word = text.lowerCopy();
    if (word == u"today") return date::today();
    if (word == u"tomorrow") return date::today() + days(1);

    std::vector<string> parts;
    if (!withoutQuotes(text).split(delimiter, parts) || parts.size() != 3) throw false;
    const std::uint32_t year = readNumber(parts[0]);
    const std::uint32_t month = readNumber(parts[1]);
    const std::uint32_t day = readNumber(parts[2]);
    if (month < 1 || month > monthsInYear || day < 1 || day > longestMonth) throw false;
    return {year, month, day};
}

bool tryDate(date& to, const string& text, const char16_t* delimiter)
{
    try {
        to = readDate(text, delimiter);
        return true;
    } catch (bool) {
        return false;
    }
}

} // namespace

date::date(std::uint32_t year, std::uint32_t month, std::uint32_t day)
{
    if (year > maxYear()) {
        year = maxYear();
        month = day = 1;
    }
    month = std::min(month, monthsInYear);
    day = std::min(day, daysInMonth(month, year));
    m_word = year << yearShift | month << monthShift | day;
}

date::date(const std::tm* brokenDown)
{
    if (brokenDown == nullptr) throw false;
    *this = date(static_cast<std::uint32_t>(brokenDown->tm_year) + 1900,
                 static_cast<std::uint32_t>(brokenDown->tm_mon) + 1,
                 static_cast<std::uint32_t>(brokenDown->tm_mday));
}

date date::today()
{
    std::tm local{};
    return date(platform::localTime(platform::now(), local) ? &local : nullptr);
}

std::uint32_t date::dayOfYear() const
{
    std::uint32_t passed = getDay();
    for (std::uint32_t month = 1; month < getMonth(); ++month)
        passed += daysInMonth(month, getYear());
    return passed;
}

bool date::isLeapYear(std::uint32_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

std::uint32_t date::daysInMonth(std::uint32_t month, std::uint32_t year)
{
    if (month < 1 || month > monthsInYear) month = monthsInYear;
    return monthLengths[isLeapYear(year)][month - 1];
}

std::uint32_t date::daysInYear(std::uint32_t year)
{
    return isLeapYear(year) ? 366 : 365;
}

date operator+(date start, const date_duration& span)
{
    return span.addTo(start);
}

date& days::addTo(date& target) const
{
    calendarDay at(target);
    std::uint32_t count = m_days;
    skipYears(at, count);
    // All days beyond the last year give the same date, so there is no need to walk there.
    if (at.year > date::maxYear()) return target = at.asDate();
    skipMonths(at, count);
    at.day += count;
    if (at.day > at.monthLength()) {
        at.day -= at.monthLength();
        at.toNextMonth();
    }
    return target = at.asDate();
}

date& days::subtractFrom(date& target) const
{
    calendarDay at(target);
    std::uint32_t count = m_days;
    skipYearsBack(at, count);
    skipMonthsBack(at, count, target.getDay());
    at.day -= count;
    return target = at.asDate();
}

namespace detail {

bool textToDate(date& to, const string& from, unsigned, const typeconvert::argumentList&)
{
    return tryDate(to, from, u"/") || tryDate(to, from, u"-");
}

typeconvert::converterList dateConverters()
{
    static constexpr typeconvert::typeConverter<date, string> toText(dateToText);
    static constexpr typeconvert::typeConverter<string, date> fromText(textToDate);
    static constexpr const typeconvert::typeConverterBase* all[] = {&toText, &fromText};
    return all;
}

} // namespace detail

} // namespace orlo
