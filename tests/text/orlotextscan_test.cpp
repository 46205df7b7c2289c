#include "orlotextscan.h"

#include "orlostring.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

namespace orlotextscanTest {

using orlo::scanFields;
using orlo::scanTarget;
using orlo::scanText;
using orlo::string;

namespace {

TEST(scanText, countsTheFieldsItRead)
{
    static const struct {
        const char16_t* text;
        const char16_t* format;
        int count;
        std::array<int, 3> fields;
    } rows[] = {
        {u"2024-03-05Z", u"%d-%d-%dZ", 3, {2024, 3, 5}},
        {u"2024-03-05", u"%d-%d-%dZ", 3, {2024, 3, 5}},
        {u" 2024- 3- 5Z", u"%d-%d-%dZ", 3, {2024, 3, 5}},
        {u"2024 -3-5Z", u"%d-%d-%dZ", 1, {2024, -9, -9}},
        {u"2024--3-5Z", u"%d-%d-%dZ", 3, {2024, -3, 5}},
        {u"12:30", u"%d:%d:%dZ", 2, {12, 30, -9}},
        {u"12:30:", u"%d:%d:%dZ", 2, {12, 30, -9}},
        {u"12.30", u"%d:%d:%dZ", 1, {12, -9, -9}},
        {u"", u"%d:%d:%dZ", 0, {-9, -9, -9}},
        {u"x", u"%d:%d:%dZ", 0, {-9, -9, -9}},
        {u"x1", u"x%d", 1, {1, -9, -9}},
        {u"y1", u"x%d", 0, {-9, -9, -9}},
        {u"99999999999", u"%d", 1, {2147483647, -9, -9}},
        {u"1,2,3,4", u"%d,%d,%d,%d", 3, {1, 2, 3}}, // no target for the fourth
        {u"7%8", u"%d%%%d", 2, {7, 8, -9}},
        {u"7 %8", u"%d%%%d", 2, {7, 8, -9}},
        {u"7 8", u"%d%%%d", 1, {7, -9, -9}},
        {u"1\0+2", u"%d\0%d", 1, {1, -9, -9}},
        {u"1 \t\n2", u"%d %d", 2, {1, 2, -9}},
        {u"1x 2", u"%dx %d", 2, {1, 2, -9}},
        {u"12345", u"%2d%2d%d", 3, {12, 34, 5}},
        {u" 12-3", u"%2d%3d", 2, {12, -3, -9}},
        {u"1 2 3", u"%*d %d %d", 2, {2, 3, -9}},
        {u"1 2 3", u"%d %*d %d", 2, {1, 3, -9}},
        {u"ff 0x10 -7", u"%x %X %x", 3, {255, 16, -7}},
        {u"17 017 0x1f", u"%i %i %i", 3, {17, 15, 31}},
        {u"17 8", u"%o%o", 1, {15, -9, -9}},
        {u"1 2", u"%ld%hhd", 2, {1, 2, -9}},
        {u"1 2", u"%I64d%I32d", 2, {1, 2, -9}},
        {u"1 2 3", u"%zd%td%jd", 3, {1, 2, 3}},
        {u"abc 5", u"%*s%d", 1, {5, -9, -9}},
        {u"abc5", u"%*[a-c]%d%n", 1, {5, 4, -9}},
        {u"5", u"%", 0, {-9, -9, -9}},
        {u"5", u"%5", 0, {-9, -9, -9}},
        {u"5", u"%k%d", 0, {-9, -9, -9}},
        {u"5", u"%*", 0, {-9, -9, -9}},
        {u"5", u"%[", 0, {-9, -9, -9}},
        {u"5", u"%[^", 0, {-9, -9, -9}},
        {u"5", u"%I6", 0, {-9, -9, -9}},
        {u"5", u"", 0, {-9, -9, -9}},
    };
    for (const auto& row : rows) {
        std::array<int, 3> fields{-9, -9, -9};
        EXPECT_EQ(scanText(row.text, row.format, fields[0], fields[1], fields[2]), row.count)
            << orlo::narrow(row.text) << " by " << orlo::narrow(row.format);
        EXPECT_EQ(fields, row.fields)
            << orlo::narrow(row.text) << " by " << orlo::narrow(row.format);
    }
}

template <class Target>
Target scanned(const char16_t* text, const char16_t* format)
{
    Target value{};
    EXPECT_EQ(scanText(text, format, value), 1) << orlo::narrow(text);
    return value;
}

TEST(scanText, takesTheLimitOfTheTargetWhereANumberIsBeyondIt)
{
    EXPECT_EQ(scanned<short>(u"32768", u"%hd"), 32767);
    EXPECT_EQ(scanned<short>(u"-99999", u"%hd"), -32768);
    EXPECT_EQ(scanned<unsigned short>(u"65536", u"%hu"), 65535);
    EXPECT_EQ(scanned<unsigned short>(u"-1", u"%hu"), 65535);
    EXPECT_EQ(scanned<int>(u"-2147483649", u"%d"), std::numeric_limits<int>::min());
    EXPECT_EQ(scanned<unsigned>(u"-1", u"%u"), 4294967295u);
    EXPECT_EQ(scanned<long>(u"2147483648", u"%ld"), 2147483647);
    EXPECT_EQ(scanned<unsigned long>(u"4294967296", u"%lu"), 4294967295u);
    EXPECT_EQ(scanned<long long>(u"-9223372036854775808", u"%lld"),
              std::numeric_limits<long long>::min());
    EXPECT_EQ(scanned<long long>(u"9999999999999999999999", u"%lld"), 9223372036854775807);
    EXPECT_EQ(scanned<unsigned long long>(u"18446744073709551615", u"%llu"), 18446744073709551615u);
    EXPECT_EQ(scanned<unsigned long long>(u"18446744073709551616", u"%llu"), 18446744073709551615u);
}

TEST(scanText, readsFloatingNumbersByThePointAlone)
{
    EXPECT_EQ(scanned<double>(u" -1.5e2x", u"%lf"), -150);
    EXPECT_EQ(scanned<double>(u"1,5", u"%lf"), 1);
    EXPECT_EQ(scanned<float>(u".5", u"%g"), 0.5F);
    EXPECT_EQ(scanned<double>(u"0x1p3", u"%a"), 8);
    EXPECT_EQ(scanned<double>(u"12", u"%d"), 12) << "a whole number for a floating target";
    EXPECT_EQ(scanned<float>(u"-12", u"%d"), -12);
    double whole = 0;
    double rest = 0;
    EXPECT_EQ(scanText(u"1.25.5", u"%4lf%lf", whole, rest), 2);
    EXPECT_EQ(whole, 1.25);
    EXPECT_EQ(rest, 0.5);
    EXPECT_EQ(scanText(u"1;2.5", u"%lf;%lf", whole, rest), 2);
    EXPECT_EQ(rest, 2.5);
}

TEST(scanText, readsTextsAndUnits)
{
    string word;
    char16_t unit = 0;
    int number = 0;
    EXPECT_EQ(scanText(u"  P1.A 7", u"%s%c%d", word, unit, number), 3);
    EXPECT_EQ(word, u"P1.A");
    EXPECT_EQ(unit, u' ');
    EXPECT_EQ(number, 7);
    EXPECT_EQ(scanText(u"abcdef", u"%3s%c", word, unit), 2);
    EXPECT_EQ(word, u"abc");
    EXPECT_EQ(unit, u'd');
    EXPECT_EQ(scanText(u" ab", u"%3c", word), 1);
    EXPECT_EQ(word, u" ab");
    EXPECT_EQ(scanText(u"ab", u"%3c", word), 0) << "not enough of them";
    EXPECT_EQ(word, u" ab");
    EXPECT_EQ(scanText(u"   ", u"%s", word), 0);
    EXPECT_EQ(scanText(u"", u"%c", unit), 0);
}

TEST(scanText, readsUnitsOfASet)
{
    static const struct {
        const char16_t* text;
        const char16_t* format;
        int count;
        const char16_t* word;
    } rows[] = {
        {u"abcd", u"%[a-c]", 1, u"abc"},   {u"a-c", u"%[a-]", 1, u"a-"},
        {u"-a", u"%[-a]", 1, u"-a"},       {u"a]b", u"%[]a]", 1, u"a]"},
        {u"key=5", u"%[^=]", 1, u"key"},   {u"a]b", u"%[^]]", 1, u"a"},
        {u" a", u"%[a]", 0, u"before"},    {u"abc", u"%2[a-z]", 1, u"ab"},
        {u"xyz", u"%[a-c]", 0, u"before"}, {u"a b\tc;", u"%[^;]", 1, u"a b\tc"},
    };
    for (const auto& row : rows) {
        string word(u"before");
        EXPECT_EQ(scanText(row.text, row.format, word), row.count) << orlo::narrow(row.format);
        EXPECT_EQ(word, row.word) << orlo::narrow(row.format);
    }
}

TEST(scanText, endsAtATargetOfAnotherKind)
{
    string word(u"before");
    int number = -9;
    double floating = -9;
    EXPECT_EQ(scanText(u"5", u"%d", word), 0);
    EXPECT_EQ(word, u"before");
    EXPECT_EQ(scanText(u"5.5", u"%lf", number), 0);
    EXPECT_EQ(scanText(u"five", u"%s", number), 0);
    EXPECT_EQ(number, -9);
    EXPECT_EQ(scanText(u"five", u"%s", floating), 0);
    EXPECT_EQ(floating, -9);
    char16_t unit = u'-';
    EXPECT_EQ(scanText(u"ab", u"%2c", unit), 0);
    EXPECT_EQ(unit, u'-');
}

TEST(scanText, tellsHowManyUnitsWereReadWithoutCountingThat)
{
    int position = -9;
    int number = 0;
    EXPECT_EQ(scanText(u" 42 mm", u"%d %n", number, position), 1);
    EXPECT_EQ(number, 42);
    EXPECT_EQ(position, 4);
}

TEST(scanFields, takesItsTargetsAsAList)
{
    int year = 0;
    double length = 0;
    string unit;
    const scanTarget targets[] = {&year, &length, &unit};
    EXPECT_EQ(scanFields(u"2024 12.5 mm", u"%d %lf %s", targets), 3);
    EXPECT_EQ(year, 2024);
    EXPECT_EQ(length, 12.5);
    EXPECT_EQ(unit, u"mm");
    EXPECT_EQ(scanFields(u"2025", u"%d", {}), 0) << "nothing is written that was not passed";
    EXPECT_EQ(year, 2024);
}

} // namespace

} // namespace orlotextscanTest
