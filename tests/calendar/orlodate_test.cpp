#include "orlodate.h"

#include "support/machine.h"
#include "support/refusal.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <limits>
#include <type_traits>

namespace orlodateTest {

using orlo::date;
using orlo::days;
using orlo::string;
using orlo::typeconvert::convert;

namespace {

string textOf(const date& value)
{
    string text;
    EXPECT_TRUE(convert(text, value));
    return text;
}

// The text of the date that `text` reads as, or "refused".
string readAs(const string& text)
{
    date value(1999, 9, 9);
    if (convert(value, text)) return textOf(value);
    EXPECT_EQ(textOf(value), u"1999/09/09") << "a refused text changed the target";
    return u"refused";
}

date dateOf(std::chrono::sys_days day)
{
    const std::chrono::year_month_day parts(day);
    return {static_cast<std::uint32_t>(static_cast<int>(parts.year())),
            static_cast<unsigned>(parts.month()), static_cast<unsigned>(parts.day())};
}

constexpr std::chrono::sys_days firstDay = std::chrono::year(1900) / 1 / 1;
constexpr std::chrono::sys_days lastDay = std::chrono::year(2100) / 12 / 31;

struct span {
    date from;
    std::uint32_t count;
    const char16_t* expected;
};

struct reading {
    const char16_t* text;
    const char16_t* expected;
};

TEST(date, isOneWordWithoutVirtualOperations)
{
    EXPECT_EQ(sizeof(date), 4u);
    EXPECT_FALSE(std::is_polymorphic_v<date>);
}

TEST(date, startsWithZerosThroughout)
{
    const date empty;
    EXPECT_EQ(empty.getYear(), 0u);
    EXPECT_EQ(empty.getMonth(), 0u);
    EXPECT_EQ(empty.getDay(), 0u);
}

TEST(date, keepsItsFields)
{
    const date value(65535, 12, 31);
    EXPECT_EQ(value.getYear(), 65535u);
    EXPECT_EQ(value.getMonth(), 12u);
    EXPECT_EQ(value.getDay(), 31u);
}

TEST(date, takesWhatIsTooLargeToTheNearestLimit)
{
    EXPECT_EQ(textOf(date(2024, 2, 30)), u"2024/02/29");
    EXPECT_EQ(textOf(date(2023, 2, 29)), u"2023/02/28");
    EXPECT_EQ(textOf(date(2023, 2, 31)), u"2023/02/28");
    EXPECT_EQ(textOf(date(2023, 4, 31)), u"2023/04/30");
    EXPECT_EQ(textOf(date(2023, 12, 31)), u"2023/12/31");
    EXPECT_EQ(textOf(date(2023, 13, 5)), u"2023/12/05");
    EXPECT_EQ(textOf(date(2023, 14, 40)), u"2023/12/31");
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    EXPECT_EQ(textOf(date(2023, most, most)), u"2023/12/31");
}

TEST(date, beyondTheLastYearIsItsFirstDay)
{
    EXPECT_EQ(textOf(date(65536, 5, 17)), u"65535/01/01");
    EXPECT_EQ(textOf(date(65536, 0, 0)), u"65535/01/01");
    EXPECT_EQ(textOf(date(std::numeric_limits<std::uint32_t>::max(), 12, 31)), u"65535/01/01");
    EXPECT_EQ(textOf(date(65535, 12, 31)), u"65535/12/31");
    EXPECT_EQ(date::maxYear(), 65535u);
}

TEST(date, keepsAMonthOrDayOfZero)
{
    EXPECT_EQ(textOf(date(2023, 5, 0)), u"2023/05/00");
    const date monthless(2023, 0, 7);
    EXPECT_EQ(monthless.getYear(), 2023u);
    EXPECT_EQ(monthless.getMonth(), 0u);
}

// Files hold the word as it is.
TEST(date, liesInItsWordFromDayToYear)
{
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date()), 0u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date(1, 0, 0)), 1u << 12);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date(0, 1, 0)), 1u << 8);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date(0, 0, 1)), 1u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date(2024, 2, 29)), 2024u << 12 | 2u << 8 | 29u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(date(65535, 12, 31)), 0x0FFFFC1Fu);
}

TEST(date, comparesAsTheCalendarDoes)
{
    EXPECT_EQ(date(2024, 2, 29), date(2024, 2, 29));
    EXPECT_NE(date(2024, 2, 29), date(2024, 2, 28));
    EXPECT_LT(date(2023, 12, 31), date(2024, 1, 1));
    EXPECT_LT(date(2024, 1, 31), date(2024, 2, 1));
    EXPECT_GT(date(2024, 1, 2), date(2024, 1, 1));
}

TEST(date, takesABrokenDownTime)
{
    std::tm brokenDown{};
    brokenDown.tm_year = 124;
    brokenDown.tm_mon = 1;
    brokenDown.tm_mday = 29;
    EXPECT_EQ(textOf(date(&brokenDown)), u"2024/02/29");
    brokenDown.tm_year = -1901;
    EXPECT_EQ(textOf(date(&brokenDown)), u"65535/01/01") << "years before 0 are huge ones";
}

TEST(date, refusesToTakeNoBrokenDownTime)
{
    EXPECT_TRUE(orlo::tests::refuses([] { date(nullptr); }));
}

TEST(date, todayIsTheLocalDay)
{
    orlo::tests::machine& machine = orlo::tests::machine::renew();
    EXPECT_EQ(textOf(date::today()), u"2024/03/05");
    machine.timeZoneOffset = 12 * 3600; // from noon on it is the next day there
    EXPECT_EQ(textOf(date::today()), u"2024/03/06");
}

TEST(date, todayNeedsALocalTime)
{
    orlo::tests::machine::renew().failCall("localTime", 1);
    EXPECT_TRUE(orlo::tests::refuses([] { date::today(); }));
}

TEST(date, leapYearsAreThoseOfTheGregorianCalendar)
{
    for (const std::uint32_t year : {0u, 4u, 400u, 1600u, 2000u, 2024u, 65532u})
        EXPECT_TRUE(date::isLeapYear(year)) << year;
    for (const std::uint32_t year : {1u, 100u, 1900u, 2023u, 2100u, 65535u})
        EXPECT_FALSE(date::isLeapYear(year)) << year;
    EXPECT_EQ(date::daysInYear(1900), 365u);
    EXPECT_EQ(date::daysInYear(2100), 365u);
    EXPECT_EQ(date::daysInYear(2000), 366u);
}

TEST(date, monthsHaveTheLengthsOfTheTable)
{
    constexpr std::uint32_t common[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (std::uint32_t month = 1; month <= 12; ++month) {
        EXPECT_EQ(date::daysInMonth(month, 2023), common[month - 1]) << month;
        EXPECT_EQ(date::daysInMonth(month, 2024), month == 2 ? 29u : common[month - 1]) << month;
    }
}

TEST(date, monthsOutsideTheYearReadNoForeignMemory)
{
    for (const std::uint32_t month :
         {0u, 13u, 14u, 25u, 1u << 31, std::numeric_limits<std::uint32_t>::max()}) {
        EXPECT_LE(date::daysInMonth(month, 2023), 31u) << month;
        EXPECT_LE(date::daysInMonth(month, 2024), 31u) << month;
    }
}

TEST(date, agreesWithTheStandardCalendarForTwoCenturies)
{
    std::chrono::sys_days yearStart = firstDay;
    for (std::chrono::sys_days day = firstDay; day <= lastDay; day += std::chrono::days(1)) {
        const std::chrono::year_month_day parts(day);
        if (parts.month() == std::chrono::January && parts.day() == std::chrono::day(1))
            yearStart = day;
        const date value = dateOf(day);
        ASSERT_EQ(value.getDay(), static_cast<unsigned>(parts.day()));
        ASSERT_EQ(value.dayOfYear(), static_cast<std::uint32_t>((day - yearStart).count() + 1));
        ASSERT_EQ(value + days(1), dateOf(day + std::chrono::days(1)))
            << orlo::narrow(textOf(value));
    }
}

TEST(date, addsSpansOfEveryLengthExactly)
{
    const auto length = static_cast<std::uint32_t>((lastDay - firstDay).count());
    for (const std::chrono::sys_days start :
         {firstDay, firstDay + std::chrono::days(58), firstDay + std::chrono::days(364),
          std::chrono::sys_days(std::chrono::year(2000) / 2 / 29)}) {
        const date from = dateOf(start);
        for (std::uint32_t count = 0; count <= length; ++count) {
            ASSERT_EQ(from + days(count), dateOf(start + std::chrono::days(count)))
                << orlo::narrow(textOf(from)) << count;
        }
    }
}

TEST(date, addsDaysAcrossMonthsAndYears)
{
    const span rows[] = {
        {{2024, 2, 15}, 0, u"2024/02/15"},    {{2023, 12, 31}, 0, u"2023/12/31"},
        {{2023, 12, 31}, 1, u"2024/01/01"},   {{2024, 2, 28}, 1, u"2024/02/29"},
        {{2023, 2, 28}, 1, u"2023/03/01"},    {{2024, 1, 31}, 366, u"2025/01/31"},
        {{2024, 12, 1}, 31, u"2025/01/01"},   {{65534, 12, 31}, 365, u"65535/12/31"},
        {{65535, 12, 30}, 1, u"65535/12/31"},
    };
    for (const span& row : rows)
        EXPECT_EQ(textOf(row.from + days(row.count)), row.expected) << row.count;
}

TEST(date, addedBeyondTheLastYearIsItsFirstDay)
{
    EXPECT_EQ(textOf(date(65535, 12, 31) + days(1)), u"65535/01/01");
    EXPECT_EQ(textOf(date(65534, 12, 31) + days(366)), u"65535/01/01");
    EXPECT_EQ(textOf(date(2024, 2, 29) + days(std::numeric_limits<std::uint32_t>::max())),
              u"65535/01/01");
}

TEST(date, plusLeavesItsOperandAndAddToChangesIt)
{
    date value(2024, 2, 28);
    EXPECT_EQ(value + days(1), date(2024, 2, 29));
    EXPECT_EQ(value, date(2024, 2, 28));
    EXPECT_EQ(&days(2).addTo(value), &value);
    EXPECT_EQ(value, date(2024, 3, 1));
    EXPECT_EQ(&days(1).subtractFrom(value), &value);
    EXPECT_EQ(value, date(2024, 2, 29));
}

TEST(date, subtractsByItsOwnSteps)
{
    const span rows[] = {
        {{2020, 3, 15}, 0, u"2020/03/15"},
        {{2020, 3, 15}, 14, u"2020/03/01"},
        {{2020, 3, 15}, 15, u"2020/02/29"},
        {{2020, 3, 15}, 43, u"2020/02/01"},
        {{2020, 3, 15}, 44, u"2020/02/00"}, // no calendar date: a whole February is left to go
        {{2020, 3, 15}, 45, u"2020/01/30"},
        {{2020, 3, 15}, 74, u"2020/01/01"},
        {{2020, 3, 15}, 75, u"2020/01/00"},
        {{2020, 3, 15}, 76, u"2019/12/30"},
        {{2020, 3, 15}, 89, u"2019/12/17"},
        {{2020, 3, 15}, 90, u"2019/11/30"}, // from here on the 15 counts twice
        {{2020, 3, 15}, 100, u"2019/11/20"},
        {{2020, 3, 15}, 480, u"2018/11/05"},
        {{0, 3, 1}, 60, u"0000/01/01"},
        {{0, 3, 1}, 61, u"0000/01/00"},
        {{0, 3, 1}, 62, u"0000/01/01"},
        {{1, 1, 1}, 1000, u"0000/01/01"},
        {{1, 1, 1}, 4294967295u, u"0000/01/01"},
    };
    for (const span& row : rows) {
        date value = row.from;
        days(row.count).subtractFrom(value);
        EXPECT_EQ(textOf(value), row.expected)
            << orlo::narrow(textOf(row.from)) << " less " << row.count;
    }
}

TEST(date, januaryLessItsDayLeavesMonthZero)
{
    for (const std::uint32_t year : {0u, 2023u, 2024u, 65535u}) {
        for (std::uint32_t day = 1; day <= 31; ++day) {
            date value(year, 1, day);
            days(day).subtractFrom(value);
            EXPECT_EQ(value.getMonth(), 0u);
            EXPECT_EQ(value.getYear(), year);
        }
    }
}

// Day 0 of a month stands for the last day of the month before.
std::chrono::sys_days meaningOf(const date& value)
{
    const auto year = static_cast<int>(value.getYear());
    return std::chrono::sys_days(std::chrono::year(year) / std::chrono::month(value.getMonth()) /
                                 1) +
           std::chrono::days(value.getDay()) - std::chrono::days(1);
}

TEST(date, subtractsWithinTheYearAsTheStandardCalendarDoes)
{
    for (const int year : {2023, 2024}) {
        const std::chrono::sys_days start = std::chrono::year(year) / 1 / 1;
        for (std::uint32_t passed = 0; passed < date::daysInYear(static_cast<std::uint32_t>(year));
             ++passed) {
            const date from = dateOf(start + std::chrono::days(passed));
            for (std::uint32_t count = 0; count <= passed; ++count) {
                date value = from;
                days(count).subtractFrom(value);
                ASSERT_EQ(meaningOf(value), start + std::chrono::days(passed - count))
                    << orlo::narrow(textOf(from)) << " less " << count;
            }
        }
    }
}

TEST(date, subtractsFromWhatIsNoCalendarDate)
{
    for (std::uint32_t month = 0; month <= 12; ++month) {
        for (const std::uint32_t count : {0u, 1u, 31u, 32u, 366u, 367u, 800u, 4294967295u}) {
            date value(1, month, 0);
            days(count).subtractFrom(value);
            EXPECT_LE(value.getYear(), 1u);
            EXPECT_LE(value.getMonth(), 12u);
            EXPECT_LE(value.getDay(), 31u);
        }
    }
}

TEST(date, writesFourDigitsAndTwiceTwo)
{
    EXPECT_EQ(textOf(date(5, 3, 7)), u"0005/03/07");
    EXPECT_EQ(textOf(date(2024, 12, 31)), u"2024/12/31");
    EXPECT_EQ(textOf(date(65535, 1, 1)), u"65535/01/01");
    EXPECT_EQ(textOf(date()), u"0000/00/00");
}

TEST(date, readsItsForms)
{
    const reading rows[] = {
        {u"2024/02/29", u"2024/02/29"},
        {u"2024-02-29", u"2024/02/29"},
        {u"'2024/2/29'", u"2024/02/29"},
        {u"\"2024/2/29\"", u"2024/02/29"},
        {u"\" '2024-2-29' \"", u"2024/02/29"},
        {u"'2024/2/29", u"2024/02/29"},
        {u" 2024/ 2/ 29", u"2024/02/29"},
        {u"2024/2/29th", u"2024/02/29"},
        {u"2024/02/29 12:30:15:00", u"2024/02/29"}, // a timestamp's text
        {u"2024/02/29-1-1", u"2024/02/29"},
        {u"2023/02/30", u"2023/02/28"},
        {u"0/1/1", u"0000/01/01"},
        {u"70000/5/5", u"65535/01/01"},
        {u"-1/5/5", u"65535/01/01"}, // numbers without sign take a minus and wrap
        {u"2024/12/31", u"2024/12/31"},
    };
    for (const reading& row : rows)
        EXPECT_EQ(readAs(row.text), row.expected) << orlo::narrow(row.text);
}

TEST(date, refusesWhatIsNoDateInEitherForm)
{
    for (const char16_t* text :
         {u"", u"''", u"2024/02", u"2024-02", u"2024/02/29/1", u"2024-02-29-1", u"2024/02-29",
          u"2024/13/01", u"2024/00/10", u"2024-13-01", u"2024/01/00", u"2024/01/32", u"2024//01",
          u"x/1/1", u"2024/x/1", u"2024/1/x", u"2024/-1/1", u"yesterday", u"20240229"}) {
        EXPECT_EQ(readAs(text), u"refused") << orlo::narrow(text);
    }
}

TEST(date, readsTheTwoWordsInAnyCase)
{
    orlo::tests::machine::renew();
    EXPECT_EQ(readAs(u"today"), u"2024/03/05");
    EXPECT_EQ(readAs(u"TODAY"), u"2024/03/05");
    EXPECT_EQ(readAs(u"tomorrow"), u"2024/03/06");
    EXPECT_EQ(readAs(u"Tomorrow"), u"2024/03/06");
}

TEST(date, readsTheTwoWordsOnlyBare)
{
    for (const char16_t* text : {u"'today'", u"\"tomorrow\"", u" today", u"today ", u"todays"}) {
        EXPECT_EQ(readAs(text), u"refused") << orlo::narrow(text);
    }
}

TEST(date, refusesTheWordsWhereThereIsNoLocalTime)
{
    for (const char16_t* text : {u"today", u"tomorrow"}) {
        orlo::tests::machine& machine = orlo::tests::machine::renew();
        machine.failCall("localTime", 1); // each of the two forms asks
        machine.failCall("localTime", 2);
        EXPECT_EQ(readAs(text), u"refused") << orlo::narrow(text);
    }
}

} // namespace

} // namespace orlodateTest
