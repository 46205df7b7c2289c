#include "orlonumberscan.h"

#include "support/numbers.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace orlonumberscanTest {

using orlo::string;
using namespace orlo::tests;

namespace {

// --- Scans of whole numbers ------------------------------------------------------------------

TEST(scanLong, readsWhatStandsInFrontAndStopsAtTheLimits)
{
    static const struct {
        const char16_t* text;
        std::int32_t value;
    } rows[] = {
        {u"12abc", 12},
        {u" \t\n\v\f\r-7", -7},
        {u"+5", 5},
        {u"007", 7},
        {u"0x10", 0},
        {u"1.9", 1},
        {u"2147483647", 2147483647},
        {u"2147483648", 2147483647},
        {u"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {u"-2147483649", std::numeric_limits<std::int32_t>::min()},
        {u"99999999999999999999999999", 2147483647},
        {u"-99999999999999999999999999", std::numeric_limits<std::int32_t>::min()},
        {u"18446744073709551616", 2147483647},
    };
    for (const auto& row : rows) {
        std::int32_t value = 77;
        EXPECT_TRUE(orlo::scanLong(row.text, value)) << orlo::narrow(row.text);
        EXPECT_EQ(value, row.value) << orlo::narrow(row.text);
    }
}

TEST(scanLong, leavesTheValueWhereNoNumberStands)
{
    for (const char16_t* text :
         {u"", u" ", u"abc", u"-", u"+", u"- 5", u"+-5", u"--5", u".5", u"\u0661", u"\u00a05"}) {
        std::int32_t whole = 77;
        std::uint32_t unsignedWhole = 77;
        std::uint64_t wide64 = 77;
        EXPECT_FALSE(orlo::scanLong(text, whole)) << orlo::narrow(text);
        EXPECT_FALSE(orlo::scanUnsignedLong(text, unsignedWhole)) << orlo::narrow(text);
        EXPECT_FALSE(orlo::scanUnsignedLongLong(text, wide64)) << orlo::narrow(text);
        EXPECT_EQ(whole, 77);
        EXPECT_EQ(unsignedWhole, 77u);
        EXPECT_EQ(wide64, 77u);
    }
}

TEST(scanUnsignedLong, negatesIn32Bits)
{
    static const struct {
        const char16_t* text;
        std::uint32_t value;
    } rows[] = {
        {u"4294967295", 4294967295u},
        {u"4294967296", 4294967295u},
        {u"-1", 4294967295u},
        {u"-5", 4294967291u},
        {u" +7x", 7u},
        {u"-0", 0u},
        {u"-99999999999999999999999", 4294967295u},
    };
    for (const auto& row : rows) {
        std::uint32_t value = 77;
        EXPECT_TRUE(orlo::scanUnsignedLong(row.text, value)) << orlo::narrow(row.text);
        EXPECT_EQ(value, row.value) << orlo::narrow(row.text);
    }
}

TEST(scanUnsignedLongLong, negatesIn64Bits)
{
    static const struct {
        const char16_t* text;
        std::uint64_t value;
    } rows[] = {
        {u"18446744073709551615", 18446744073709551615u},
        {u"18446744073709551616", 18446744073709551615u},
        {u"-1", 18446744073709551615u},
        {u"4294967296 ", 4294967296u},
    };
    for (const auto& row : rows) {
        std::uint64_t value = 77;
        EXPECT_TRUE(orlo::scanUnsignedLongLong(row.text, value)) << orlo::narrow(row.text);
        EXPECT_EQ(value, row.value) << orlo::narrow(row.text);
    }
}

TEST(scanHexadecimal, readsAsWcstolWithBase16)
{
    static const struct {
        const char16_t* text;
        std::int32_t value;
    } rows[] = {
        {u"41", 0x41},
        {u"fF", 255},
        {u"0x1F", 31},
        {u"0X1f", 31},
        {u" \t-10", -16},
        {u"+a", 10},
        {u"12g", 0x12},
        {u"0x", 0},
        {u"0xg", 0},
        {u"", 0},
        {u"zz", 0},
        {u"x41", 0},
        {u"7fffffff", 2147483647},
        {u"80000000", 2147483647},
        {u"ffffffffffffffffff", 2147483647},
        {u"-80000000", std::numeric_limits<std::int32_t>::min()},
        {u"-ffffffffff", std::numeric_limits<std::int32_t>::min()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(orlo::scanHexadecimal(row.text), row.value) << orlo::narrow(row.text);
}

// --- Scans of doubles ------------------------------------------------------------------------

// Bits, so that -0 differs from 0; all NaN count as one.
std::uint64_t bitsOf(double value)
{
    if (std::isnan(value)) value = notANumber;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST(scanDouble, readsTheLongestNumberInFront)
{
    static const struct {
        const char16_t* text;
        double value;
    } rows[] = {
        {u"12.5mm", 12.5},
        {u"1e", 1.0},
        {u"1e+", 1.0},
        {u"1e+x", 1.0},
        {u"1e5", 1e5},
        {u"1.5E-3", 1.5e-3},
        {u"1.", 1.0},
        {u".5", 0.5},
        {u"-.5e1", -5.0},
        {u"+7", 7.0},
        {u" \t\n 7", 7.0},
        {u"1.2.3", 1.2},
        {u"1,5", 1.0},
        {u"007", 7.0},
        {u"-0", -0.0},
        {u"inf", infinity},
        {u"-INF", -infinity},
        {u"infinity", infinity},
        {u"infinit", infinity},
        {u"nan", notANumber},
        {u"NaN(12)", notANumber},
        {u"0x1p3", 8.0},
        {u"0X1.8", 1.5},
        {u"-0x.8p1", -1.0},
        {u"0x", 0.0},
        {u"0xg", 0.0},
        {u"0x.", 0.0},
        {u"0xinf", 0.0},
        {u"0x1p", 1.0},
        {u"0x1p+-3", 1.0},
        {u"1e+-3", 1.0},
        {u"0x-1", 0.0},
        {u"5\u0663", 5.0},
        {u"123456789012345678901234567890", 123456789012345678901234567890.0},
        {u"0.1000000000000000055511151231257827021181583404541015625", 0.1},
        {u"9007199254740993", 9007199254740992.0},
    };
    for (const auto& row : rows) {
        double value = 77;
        EXPECT_TRUE(orlo::scanDouble(row.text, value)) << orlo::narrow(row.text);
        EXPECT_EQ(bitsOf(value), bitsOf(row.value)) << orlo::narrow(row.text) << " " << value;
    }
}

TEST(scanDouble, leavesTheValueWhereNoNumberStands)
{
    for (const char16_t* text : {u"", u" ", u".", u"-", u"+-5", u"-+5", u"--5", u"e5", u"abc",
                                 u"in", u"na", u"x1", u"- 5", u".e5", u"\u0661", u"\u00a05"}) {
        double value = 77;
        EXPECT_FALSE(orlo::scanDouble(text, value)) << orlo::narrow(text);
        EXPECT_EQ(value, 77) << orlo::narrow(text);
    }
}

TEST(scanDouble, turnsNumbersBeyondADoubleIntoInfinityOrZero)
{
    const string zeros(std::u16string(400, u'0'));
    const struct {
        string text;
        double value;
    } rows[] = {
        {u"1e400", infinity},
        {u"-1e400", -infinity},
        {u"1e-400", 0.0},
        {u"-1e-400", -0.0},
        {u"5e-324", std::numeric_limits<double>::denorm_min()},
        {u"1e99999999999999999999999", infinity},
        {u"1e-99999999999999999999999", 0.0},
        {u"0e99999999999999999999999", 0.0},
        {string(u"1") + zeros, infinity},
        {string(u"0.") + zeros + u"1", 0.0},
        {string(u"0.") + zeros + u"1e401", 1.0},
        {string(u"1") + zeros + u"e-400", 1.0},
        {string(u"1") + zeros + u"e-760", 0.0},
        {string(u"1") + zeros + u"e-40.5", infinity},
        {string(u"0.") + zeros + u"1e760", infinity},
        {string(u"1") + zeros + u"-5e-999", infinity},
        {u"0x1p2000", infinity},
        {u"0x1p-2000", 0.0},
        {u"-0x.0001p-2000", -0.0},
        {u"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {u"1.7976931348623159e308", infinity},
        {u"2.4703282292062327e-324", 0.0},
    };
    for (const auto& row : rows) {
        double value = 77;
        EXPECT_TRUE(orlo::scanDouble(row.text.c_str(), value)) << orlo::narrow(row.text);
        EXPECT_EQ(bitsOf(value), bitsOf(row.value)) << orlo::narrow(row.text) << " " << value;
    }
}

// Texts that look like numbers, most of them a little broken. The platform's strtod judges; the
// forms in which it may differ by system have their rows above.
TEST(scanDouble, agreesWithStrtodOnRandomTexts)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    static const std::string units = "0123456789012345678901234567890123456789....--++eeE 5";
    for (int round = 0; round < 100000; ++round) {
        std::string text;
        for (std::size_t length = random() % 24; length > 0; --length)
            text += units[random() % units.size()];
        char* end = nullptr;
        const double expected = std::strtod(text.c_str(), &end);
        double value = 77;
        ASSERT_EQ(orlo::scanDouble(wide(text).c_str(), value), end != text.c_str())
            << text << " seed " << seed;
        ASSERT_EQ(bitsOf(value), bitsOf(end != text.c_str() ? expected : 77))
            << text << " seed " << seed;
    }
}

TEST(scanDouble, readsBackEveryDoubleThatWasWrittenInFull)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20000; ++round) {
        const double value = randomDouble(random);
        double read = 77;
        const string text = printed("%.17g", value);
        ASSERT_TRUE(orlo::scanDouble(text.c_str(), read)) << orlo::narrow(text) << " seed " << seed;
        ASSERT_EQ(bitsOf(read), bitsOf(value)) << orlo::narrow(text) << " seed " << seed;
    }
}

} // namespace

} // namespace orlonumberscanTest
