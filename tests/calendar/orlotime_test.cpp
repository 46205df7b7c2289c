#include "orlotime.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <limits>
#include <type_traits>

namespace orlotimeTest {

namespace {

using orlo::date;
using orlo::string;
using orlo::time;
using orlo::timestamp;
using orlo::typeconvert::convert;

constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();

string textOf(const time& value)
{
    string text;
    EXPECT_TRUE(convert(text, value));
    return text;
}

// The text of the time that `text` reads as, or "refused".
string readAs(const string& text)
{
    time value(1, 2, 3, 4);
    if (convert(value, text)) return textOf(value);
    EXPECT_EQ(textOf(value), u"01:02:03:04") << "a refused text changed the target";
    return u"refused";
}

struct construction {
    time made;
    const char16_t* expected;
};

struct reading {
    const char16_t* text;
    const char16_t* expected;
};

TEST(time, isOneWordWithoutVirtualOperations)
{
    EXPECT_EQ(sizeof(time), 4u);
    EXPECT_FALSE(std::is_polymorphic_v<time>);
    EXPECT_EQ(textOf(time()), u"00:00:00:00");
}

TEST(time, liesInItsWordWithTheFractionBelowTheSeconds)
{
    EXPECT_EQ(std::bit_cast<std::uint32_t>(time()), 0u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(time(0, 0, 1, 0)), 1u << 8);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(time(0, 0, 0, 1)), 1u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(time(23, 59, 58, 57)), 86398u << 8 | 57u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(time(24, 0, 0, 0)), 86400u << 8);
}

TEST(time, keepsItsParts)
{
    const time value(23, 59, 58, 57);
    EXPECT_EQ(value.getHour(), 23u);
    EXPECT_EQ(value.getMinute(), 59u);
    EXPECT_EQ(value.getSecond(), 58u);
    EXPECT_EQ(value.getFraction(), 57u);
}

TEST(time, twentyFourIsTheEndOfADayOnlyBareOfAllElse)
{
    EXPECT_EQ(textOf(time(24, 0, 0, 0)), u"24:00:00:00");
    EXPECT_EQ(textOf(time(24, 0, 0, 1)), u"00:00:00:01");
    EXPECT_EQ(textOf(time(24, 0, 1, 0)), u"00:00:01:00");
    EXPECT_EQ(textOf(time(24, 1, 0, 0)), u"00:01:00:00");
    EXPECT_EQ(textOf(time(25, 0, 0, 0)), u"01:00:00:00");
    EXPECT_EQ(textOf(time(48, 0, 0, 0)), u"00:00:00:00");
}

TEST(time, carriesLargePartsIntoHours)
{
    const construction rows[] = {
        {{0, 90, 0, 0}, u"01:30:00:00"},      {{0, 0, 3725, 0}, u"01:02:05:00"},
        {{0, 0, 0, 3723004}, u"01:02:03:04"}, {{23, 60, 0, 0}, u"00:00:00:00"},
        {{0, 1440, 0, 0}, u"00:00:00:00"},    {{22, 60, 3600, 3600000}, u"01:00:00:00"},
        {{1, 2, 3, 999}, u"01:02:03:231"}, // 999 - 3 * 256
    };
    for (const construction& row : rows) EXPECT_EQ(textOf(row.made), row.expected);
}

TEST(time, minutesFromSecondsAreNotCarriedOn)
{
    EXPECT_EQ(textOf(time(0, 59, 119, 0)), u"01:00:59:00");
    // 59 minutes three times over, and twice 59 seconds, behind hour 23.
    EXPECT_EQ(textOf(time(23, 59, 3599, 3599000)), u"25:58:58:00");
}

TEST(time, keepsEightBitsOfTheMilliseconds)
{
    EXPECT_EQ(textOf(time(0, 0, 0, 1500)), u"00:00:01:244");
    EXPECT_EQ(time(0, 0, 0, 255).getFraction(), 255u);
    EXPECT_EQ(time(0, 0, 0, 256).getFraction(), 0u);
    EXPECT_EQ(time(0, 0, 0, 999).getFraction(), 231u);
}

TEST(time, sumsOfHoursWrapInThirtyTwoBits)
{
    EXPECT_EQ(textOf(time(most, 0, 0, 0)), u"15:00:00:00");  // 4294967295 mod 24
    EXPECT_EQ(textOf(time(most, 60, 0, 0)), u"00:00:00:00"); // one hour more is hour 0
    EXPECT_EQ(textOf(time(most, 150, 0, 0)), u"01:30:00:00");
}

TEST(time, writesAtLeastTwoDigitsForEachPart)
{
    EXPECT_EQ(textOf(time(7, 5, 3, 1)), u"07:05:03:01");
    EXPECT_EQ(textOf(time(7, 5, 3, 200)), u"07:05:03:200");
}

TEST(time, readsItsForms)
{
    const reading rows[] = {
        {u"7", u"07:00:00:00"},      {u"07:30", u"07:30:00:00"},    {u"07:30:15", u"07:30:15:00"},
        {u"0", u"00:00:00:00"},      {u"23:59:59", u"23:59:59:00"}, {u"24", u"00:00:00:00"},
        {u"24:00", u"00:00:00:00"},  {u"24:59:59", u"00:59:59:00"}, {u" 7: 30", u"07:30:00:00"},
        {u"7h:30m", u"07:30:00:00"},
    };
    for (const reading& row : rows)
        EXPECT_EQ(readAs(row.text), row.expected) << orlo::narrow(row.text);
}

TEST(time, readsAFourthPartAsSeconds)
{
    const reading rows[] = {
        {u"12:30:15:500", u"12:38:20:00"},
        {u"12:30:15:00", u"12:30:00:00"},
        {u"12:30:15:999", u"12:46:39:00"},
        {u"12:30:15:7:x", u"12:30:07:00"}, // further parts do not count
    };
    for (const reading& row : rows)
        EXPECT_EQ(readAs(row.text), row.expected) << orlo::narrow(row.text);
}

TEST(time, refusesWhatIsNoTime)
{
    for (const char16_t* text : {u"", u":", u"x", u"25", u"-1", u"12:60", u"12:x", u"12:",
                                 u"12:30:60", u"12:30:x", u"12:30:", u"12:30:60:1", u"12:30:x:1",
                                 u"12:30:15:1000", u"12:30:15:x", u"12:30:15:", u":30", u"noon"}) {
        EXPECT_EQ(readAs(text), u"refused") << orlo::narrow(text);
    }
}

TEST(time, withAFractionDoesNotReadBackTheSame)
{
    EXPECT_EQ(readAs(textOf(time(12, 30, 15, 7))), u"12:30:07:00");
}

TEST(timestamp, holdsADateAndThenATime)
{
    EXPECT_EQ(sizeof(timestamp), 8u);
    const timestamp value(date(2024, 2, 29), time(12, 30, 15, 0));
    EXPECT_EQ(value.getDate(), date(2024, 2, 29));
    EXPECT_EQ(textOf(value.getTime()), u"12:30:15:00");
}

TEST(timestamp, liesInItsWordsWithTheDateFirst)
{
    using words = std::array<std::uint32_t, 2>;
    const timestamp value(date(2024, 2, 29), time(12, 30, 15, 7));
    EXPECT_EQ(std::bit_cast<words>(value), (words{2024u << 12 | 2u << 8 | 29u, 45015u << 8 | 7u}));
}

TEST(timestamp, writesDateBlankTime)
{
    string text(u"replaced");
    EXPECT_TRUE(convert(text, timestamp(date(2024, 2, 29), time(12, 30, 15, 0))));
    EXPECT_EQ(text, u"2024/02/29 12:30:15:00");
    EXPECT_TRUE(convert(text, timestamp(date(5, 3, 7), time(24, 0, 0, 0))));
    EXPECT_EQ(text, u"0005/03/07 24:00:00:00");
}

TEST(timestamp, isNotReadFromText)
{
    timestamp value(date(2024, 2, 29), time(12, 30, 15, 0));
    EXPECT_FALSE(convert(value, string(u"2025/01/01 01:01:01:00")));
    EXPECT_EQ(value.getDate(), date(2024, 2, 29));
}

// Through its text, by way of the registry.
TEST(timestamp, convertsToItsDate)
{
    date day;
    EXPECT_TRUE(convert(day, timestamp(date(2024, 2, 29), time(12, 30, 15, 0))));
    EXPECT_EQ(day, date(2024, 2, 29));
}

} // namespace

} // namespace orlotimeTest
