// The built-in conversions between number types, bool and text.
#include "orlotypeconvert.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

namespace orloprimitivesTest {

namespace {

using namespace orlo::typeconvert;
using orlo::string;
using orlo::tests::machine;
using largest = unsigned long long;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double greatestFloat = 3.4028234663852886e+38;
constexpr double greatestDouble = 1.7976931348623157e+308;

template <class To, class From>
void expectConversion(From from, bool fits, To expected)
{
    SCOPED_TRACE(testing::Message()
                 << from << " from " << typeid(From).name() << " to " << typeid(To).name());
    To direct = static_cast<To>(7);
    EXPECT_EQ(convert(direct, from), fits);
    EXPECT_EQ(direct, expected);
    To registered = static_cast<To>(7);
    EXPECT_EQ(typeConverterRegistry::instance().convert(typeid(To), &registered, typeid(From),
                                                        &from, 0, {}),
              fits);
    EXPECT_EQ(registered, expected);
}

// --- Integer to integer --------------------------------------------------------------------

TEST(integerToInteger, takesTheNearestLimit)
{
    expectConversion<short>(70000, false, 32767);
    expectConversion<short>(-70000, false, -32768);
    expectConversion<short>(32767, true, 32767);
    expectConversion<short>(32768, false, 32767);
    expectConversion<short>(-32768, true, -32768);
    expectConversion<short>(-32769, false, -32768);
    expectConversion<short>(static_cast<unsigned short>(32768), false, 32767);
    expectConversion<short>(4000000000u, false, 32767);
    expectConversion<short>(~largest{0}, false, 32767);
    expectConversion<unsigned short>(-1, false, 0);
    expectConversion<unsigned short>(static_cast<short>(-1), false, 0);
    expectConversion<unsigned short>(65535, true, 65535);
    expectConversion<unsigned short>(65536, false, 65535);
    expectConversion<unsigned short>(65536u, false, 65535);
    expectConversion<int>(2147483647u, true, 2147483647);
    expectConversion<int>(2147483648u, false, 2147483647);
    expectConversion<int>(~largest{0}, false, 2147483647);
    expectConversion<unsigned>(-1, false, 0u);
    expectConversion<unsigned>(2147483647, true, 2147483647u);
    expectConversion<unsigned>(largest{4294967295}, true, 4294967295u);
    expectConversion<unsigned>(largest{4294967296}, false, 4294967295u);
    expectConversion<long>(2147483648u, false, 2147483647l);
    expectConversion<long>(largest{4294967296}, false, 2147483647l);
    expectConversion<unsigned long>(-1, false, 0ul);
    expectConversion<unsigned long>(largest{4294967296}, false, 4294967295ul);
    expectConversion<largest>(-1, false, largest{0});
    expectConversion<largest>(static_cast<short>(-1), false, largest{0});
    expectConversion<largest>(4294967295u, true, largest{4294967295});
}

TEST(integerToInteger, copiesWhatFits)
{
    expectConversion<int>(static_cast<short>(-5), true, -5);
    expectConversion<int>(static_cast<unsigned short>(65535), true, 65535);
    expectConversion<int>(-5l, true, -5);
    expectConversion<long>(-5, true, -5l);
    expectConversion<unsigned>(5ul, true, 5u);
    expectConversion<unsigned long>(4000000000u, true, 4000000000ul);
    expectConversion<unsigned>(static_cast<unsigned short>(65535), true, 65535u);
}

// A long of more than 32 bits is cut first, so that both systems give the same.
TEST(integerToInteger, takesALongAs32Bits)
{
    if constexpr (sizeof(long) > 4) {
        const auto beyond = static_cast<long>(0x1'8000'0001);
        const auto unsignedBeyond = static_cast<unsigned long>(0x1'8000'0001);
        expectConversion<int>(beyond, true, -2147483647);
        expectConversion<unsigned>(beyond, false, 0u);
        expectConversion<double>(beyond, true, -2147483647.0);
        expectConversion<int>(unsignedBeyond, false, 2147483647);
        expectConversion<largest>(unsignedBeyond, true, largest{0x8000'0001});
        expectConversion<float>(unsignedBeyond, true, 2147483648.0f);
        expectConversion<bool>(static_cast<long>(0x1'0000'0000), true, false);
        string text;
        EXPECT_TRUE(convert(text, beyond));
        EXPECT_EQ(text, u"-2147483647");
        EXPECT_TRUE(convert(text, unsignedBeyond));
        EXPECT_EQ(text, u"2147483649");
    }
    expectConversion<long>(2147483647, true, 2147483647l);
}

// Values on both sides of every limit, in exact arithmetic.
long double randomWhole(std::mt19937_64& random)
{
    static constexpr long double limits[] = {
        0, 32767, -32768, 65535, 2147483647, -2147483648.0L, 4294967295, 18446744073709551615.0L};
    return limits[random() % std::size(limits)] + static_cast<long double>(random() % 5) - 2;
}

template <class To, class From>
void compareWithClamping(From from)
{
    // Of the targets, long and unsigned long have the limits of 32 bits.
    const bool isLong = std::is_same_v<To, long> || std::is_same_v<To, unsigned long>;
    const long double most = isLong ? (std::is_signed_v<To> ? 2147483647.0L : 4294967295.0L)
                                    : static_cast<long double>(std::numeric_limits<To>::max());
    const long double least = std::is_signed_v<To> ? -most - 1 : 0;
    const auto value = static_cast<long double>(from);
    const long double clamped = std::min(std::max(value, least), most);
    if constexpr (!std::is_same_v<To, From>)
        expectConversion<To>(from, value == clamped, static_cast<To>(clamped));
}

template <class From>
void compareFrom(std::mt19937_64& random)
{
    const bool isLong = std::is_same_v<From, long> || std::is_same_v<From, unsigned long>;
    const long double value = randomWhole(random);
    const long double most = isLong ? (std::is_signed_v<From> ? 2147483647.0L : 4294967295.0L)
                                    : static_cast<long double>(std::numeric_limits<From>::max());
    const long double least = std::is_signed_v<From> ? -most - 1 : 0;
    if (value < least || value > most) return;
    const auto from = static_cast<From>(value);
    compareWithClamping<short>(from);
    compareWithClamping<unsigned short>(from);
    compareWithClamping<int>(from);
    compareWithClamping<unsigned>(from);
    compareWithClamping<long>(from);
    compareWithClamping<unsigned long>(from);
    compareWithClamping<largest>(from);
}

TEST(integerToInteger, clampsRandomValuesAroundTheLimits)
{
    static_assert(std::numeric_limits<long double>::digits >= 64,
                  "the model needs every 64-bit number");
    constexpr unsigned seed = 20240310;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    for (int round = 0; round < 300; ++round) {
        compareFrom<short>(random);
        compareFrom<unsigned short>(random);
        compareFrom<int>(random);
        compareFrom<unsigned>(random);
        compareFrom<long>(random);
        compareFrom<unsigned long>(random);
        compareFrom<largest>(random);
    }
}

// --- Bool ----------------------------------------------------------------------------------

template <class To>
void expectZeroAndOneInto()
{
    expectConversion<To>(false, true, static_cast<To>(0));
    expectConversion<To>(true, true, static_cast<To>(1));
}

TEST(boolConversion, countsAsZeroOrOne)
{
    expectZeroAndOneInto<short>();
    expectZeroAndOneInto<unsigned short>();
    expectZeroAndOneInto<int>();
    expectZeroAndOneInto<unsigned>();
    expectZeroAndOneInto<long>();
    expectZeroAndOneInto<unsigned long>();
    expectZeroAndOneInto<largest>();
    expectZeroAndOneInto<float>();
    expectZeroAndOneInto<double>();
}

template <class From>
void expectTruthOf(From from, bool truth)
{
    for (const bool before : {false, true}) {
        bool to = before;
        EXPECT_TRUE(convert(to, from)) << typeid(From).name();
        EXPECT_EQ(to, truth) << typeid(From).name();
    }
}

TEST(boolConversion, isTrueForAnythingButZero)
{
    expectTruthOf<short>(0, false);
    expectTruthOf<short>(-1, true);
    expectTruthOf<unsigned short>(0, false);
    expectTruthOf<unsigned short>(256, true);
    expectTruthOf<int>(0, false);
    expectTruthOf<int>(0x10000, true);
    expectTruthOf<unsigned>(0, false);
    expectTruthOf<unsigned>(0x80000000, true);
    expectTruthOf<long>(0, false);
    expectTruthOf<long>(-70000, true);
    expectTruthOf<unsigned long>(0, false);
    expectTruthOf<unsigned long>(70000, true);
    expectTruthOf<largest>(0, false);
    expectTruthOf<largest>(largest{1} << 40, true);
}

// --- Floating to integer -------------------------------------------------------------------

template <class To, class From>
struct cutRow {
    From value;
    bool fits;
    To expected;
};

template <class To, class From>
void expectRows(std::initializer_list<cutRow<To, From>> rows)
{
    for (const auto& row : rows) expectConversion<To>(row.value, row.fits, row.expected);
}

TEST(doubleToInteger, cutsTowardsZeroWithinTheLimits)
{
    expectRows<short, double>({
        {32767.0, true, 32767},
        {32767.5, false, 32767},
        {32766.9, true, 32766},
        {-32768.0, true, -32768},
        {-32768.5, false, -32768},
        {0.9, true, 0},
        {-0.9, true, 0},
        {1e300, false, 32767},
        {-infinite, false, -32768},
    });
    expectRows<unsigned short, double>({
        {65535.0, true, 65535},
        {65535.5, false, 65535},
        {-0.1, false, 0},
        {-0.0, true, 0},
        {infinite, false, 65535},
    });
    expectRows<int, double>({
        {70000.9, true, 70000},
        {-0.9, true, 0},
        {-70000.9, true, -70000},
        {2147483647.0, true, 2147483647},
        {2147483647.5, false, 2147483647},
        {2147483646.9, true, 2147483646},
        {2147483648.0, false, 2147483647},
        {-2147483648.0, true, -2147483647 - 1},
        {-2147483648.5, false, -2147483647 - 1},
    });
    expectRows<long, double>({
        {2147483647.0, true, 2147483647l},
        {2147483648.0, false, 2147483647l},
        {-2147483648.0, true, -2147483647l - 1},
        {-2147483649.0, false, -2147483647l - 1},
        {1e10, false, 2147483647l},
    });
    expectRows<unsigned, double>({
        {-0.9, false, 0u},
        {0.9, true, 0u},
        {4294967295.0, true, 4294967295u},
        {4294967295.5, false, 4294967295u},
        {4294967296.0, false, 4294967295u},
        {4294967294.9, true, 4294967294u},
    });
    expectRows<unsigned long, double>({
        {-0.9, false, 0ul},
        {4294967295.0, true, 4294967295ul},
        {4294967296.0, false, 4294967295ul},
    });
    expectRows<largest, double>({
        {-0.9, false, largest{0}},
        {9223372036854775808.0, true, largest{1} << 63},
        {18446744073709549568.0, true, largest{18446744073709549568u}},
        {18446744073709551616.0, true, largest{0x8000'0000'0000'0000}},
        {18446744073709555712.0, false, ~largest{0}},
        {infinite, false, ~largest{0}},
    });
}

TEST(floatToInteger, hasThePowerOfTwoBehindTheLargestValueAsItsLimit)
{
    expectRows<short, float>({
        {32767.0f, true, 32767},
        {32767.5f, false, 32767},
        {-32768.0f, true, -32768},
        {-32769.0f, false, -32768},
    });
    expectRows<unsigned short, float>(
        {{65535.0f, true, 65535}, {65536.0f, false, 65535}, {-0.5f, false, 0}});
    expectRows<int, float>({
        {2147483520.0f, true, 2147483520},
        {2147483648.0f, true, -2147483647 - 1},
        {2147483904.0f, false, 2147483647},
        {-2147483648.0f, true, -2147483647 - 1},
        {-2147483904.0f, false, -2147483647 - 1},
    });
    expectRows<long, float>({
        {2147483648.0f, true, -2147483647l - 1},
        {2147483904.0f, false, 2147483647l},
    });
    expectRows<unsigned, float>({
        {4294967040.0f, true, 4294967040u},
        {4294967296.0f, true, 0u},
        {4294967808.0f, false, 4294967295u},
        {-1.0f, false, 0u},
    });
    expectRows<unsigned long, float>(
        {{4294967296.0f, true, 0ul}, {4294967808.0f, false, 4294967295ul}});
    expectRows<largest, float>({
        {18446742974197923840.0f, true, largest{18446742974197923840u}},
        {18446744073709551616.0f, true, largest{0x8000'0000'0000'0000}},
        {18446746272732807168.0f, false, ~largest{0}},
        {static_cast<float>(infinite), false, ~largest{0}},
    });
}

// Any value will do as long as the conversion says true and nothing is undefined.
template <class To>
void expectTrueFromNan()
{
    To to = 7;
    EXPECT_TRUE(convert(to, nan)) << typeid(To).name();
    EXPECT_TRUE(convert(to, static_cast<float>(nan))) << typeid(To).name();
}

TEST(floatingToInteger, passesNotANumber)
{
    expectTrueFromNan<short>();
    expectTrueFromNan<unsigned short>();
    expectTrueFromNan<int>();
    expectTrueFromNan<unsigned>();
    expectTrueFromNan<long>();
    expectTrueFromNan<unsigned long>();
    expectTrueFromNan<largest>();
}

TEST(doubleToInteger, equalsPlainTruncationForRandomValues)
{
    constexpr unsigned seed = 20240311;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> any(-100000, 100000);
    for (int round = 0; round < 1000; ++round) {
        const double value = any(random);
        const auto whole = static_cast<std::int64_t>(std::trunc(value));
        expectConversion<int>(value, true, static_cast<int>(whole));
        const bool fits = value >= -32768 && value <= 32767;
        expectConversion<short>(value, fits,
                                static_cast<short>(fits        ? whole
                                                   : value < 0 ? -32768
                                                               : 32767));
        const bool natural = value >= 0;
        expectConversion<largest>(value, natural, natural ? static_cast<largest>(whole) : 0);
    }
}

// --- To floating ---------------------------------------------------------------------------

TEST(integerToFloating, takesTheNearestAndAlwaysFits)
{
    expectConversion<double>(static_cast<short>(-5), true, -5.0);
    expectConversion<double>(-2147483647 - 1, true, -2147483648.0);
    expectConversion<double>(4294967295u, true, 4294967295.0);
    expectConversion<double>(~largest{0}, true, 18446744073709551616.0);
    expectConversion<double>((largest{1} << 63) + 1, true, 9223372036854775808.0);
    expectConversion<double>(4294967295ul, true, 4294967295.0);
    expectConversion<float>(static_cast<unsigned short>(65535), true, 65535.0f);
    expectConversion<float>(2147483647, true, 2147483648.0f);
    expectConversion<float>(16777217, true, 16777216.0f);
    expectConversion<float>(16777219, true, 16777220.0f);
    expectConversion<float>(-2147483647l, true, -2147483648.0f);
    expectConversion<float>(~largest{0}, true, 18446744073709551616.0f);
}

TEST(doubleToFloat, takesTheNearestOrTheLimit)
{
    const auto most = static_cast<float>(greatestFloat);
    expectConversion<float>(0.1, true, 0.1f);
    expectConversion<float>(greatestFloat, true, most);
    expectConversion<float>(-greatestFloat, true, -most);
    expectConversion<float>(std::nextafter(greatestFloat, infinite), false, most);
    expectConversion<float>(std::nextafter(-greatestFloat, -infinite), false, -most);
    expectConversion<float>(1e300, false, most);
    expectConversion<float>(-infinite, false, -most);
    expectConversion<float>(1e-300, true, 0.0f);
    float fromNan = 7;
    EXPECT_TRUE(convert(fromNan, nan));
    EXPECT_TRUE(std::isnan(fromNan));
}

TEST(floatToDouble, isExactButForInfinities)
{
    expectConversion<double>(0.1f, true, 0.100000001490116119384765625);
    expectConversion<double>(static_cast<float>(greatestFloat), true, greatestFloat);
    expectConversion<double>(static_cast<float>(infinite), false, greatestDouble);
    expectConversion<double>(static_cast<float>(-infinite), false, -greatestDouble);
    double fromNan = 7;
    EXPECT_TRUE(convert(fromNan, static_cast<float>(nan)));
    EXPECT_TRUE(std::isnan(fromNan));
}

// --- Text to number ------------------------------------------------------------------------

// A refused text leaves the target, which is 7 before.
template <class To>
void expectReading(const char16_t* text, bool reads, To expected)
{
    SCOPED_TRACE(testing::Message() << '"' << orlo::narrow(text) << "\" to " << typeid(To).name());
    To to = static_cast<To>(7);
    EXPECT_EQ(convert(to, string(text)), reads);
    EXPECT_EQ(to, reads ? expected : static_cast<To>(7));
}

TEST(textToInteger, readsASignedLong)
{
    static const struct {
        const char16_t* text;
        bool reads;
        int value;
    } rows[] = {
        {u"0", true, 0},
        {u"12abc", true, 12},
        {u" \t\n-12", true, -12},
        {u"+5", true, 5},
        {u"1.9", true, 1},
        {u"007", true, 7},
        {u"2147483647", true, 2147483647},
        {u"-2147483648", true, -2147483647 - 1},
        {u"0x10", true, 0},
        {u"", false, 0},
        {u"abc", false, 0},
        {u"-", false, 0},
        {u"- 5", false, 0},
        {u".5", false, 0},
        {u"   ", false, 0},
    };
    for (const auto& row : rows) {
        expectReading<int>(row.text, row.reads, row.value);
        expectReading<long>(row.text, row.reads, row.value);
    }
}

TEST(textToInteger, readsAnUnsignedLongAndNegatesIn32Bits)
{
    static const struct {
        const char16_t* text;
        bool reads;
        unsigned value;
    } rows[] = {
        {u"0", true, 0},
        {u"4294967295", true, 4294967295u},
        {u"-1", true, 4294967295u},
        {u"+7x", true, 7},
        {u" 12", true, 12},
        {u"", false, 0},
        {u"x", false, 0},
        {u"-x", false, 0},
    };
    for (const auto& row : rows) {
        expectReading<unsigned>(row.text, row.reads, row.value);
        expectReading<unsigned long>(row.text, row.reads, row.value);
    }
}

TEST(textToInteger, leavesTheTargetOfAShortThatDoesNotFit)
{
    expectReading<short>(u"32767", true, 32767);
    expectReading<short>(u"-32768", true, -32768);
    expectReading<short>(u"32768", false, 0);
    expectReading<short>(u"-32769", false, 0);
    expectReading<short>(u"70000", false, 0);
    expectReading<short>(u"abc", false, 0);
    expectReading<unsigned short>(u"65535", true, 65535);
    expectReading<unsigned short>(u"65536", false, 0);
    expectReading<unsigned short>(u"-1", false, 0);
    expectReading<unsigned short>(u"", false, 0);
}

TEST(textToInteger, readsTheLongestType)
{
    expectReading<largest>(u"18446744073709551615", true, ~largest{0});
    expectReading<largest>(u"4294967296", true, largest{4294967296});
    expectReading<largest>(u"-1", true, ~largest{0});
    expectReading<largest>(u" 5 6", true, largest{5});
    expectReading<largest>(u"", false, largest{0});
    expectReading<largest>(u"x", false, largest{0});
}

TEST(textToInteger, isSafeBeyondItsWidth)
{
    int whole = 7;
    EXPECT_TRUE(convert(whole, string(u"99999999999999999999")));
    unsigned natural = 7;
    EXPECT_TRUE(convert(natural, string(u"-99999999999999999999")));
    largest wide = 7;
    EXPECT_TRUE(convert(wide, string(u"99999999999999999999999999")));
}

TEST(textToBool, readsANumberElseOneOfTheTwoWords)
{
    static const struct {
        const char16_t* text;
        bool reads;
        bool value;
    } rows[] = {
        {u"True", true, true},    {u"TRUE", true, true},    {u"true", true, true},
        {u"tRuE", true, true},    {u"false", true, false},  {u"FALSE", true, false},
        {u"0", true, false},      {u"1", true, true},       {u"2", true, true},
        {u"-7", true, true},      {u"0.5", true, false},    {u"0x1", true, false},
        {u" 1", true, true},      {u"3 true", true, true},  {u"yes", false, false},
        {u"on", false, false},    {u" true", false, false}, {u"true ", false, false},
        {u"truex", false, false}, {u"", false, false},      {u"t", false, false},
    };
    for (const auto& row : rows) {
        for (const bool before : {false, true}) {
            bool to = before;
            EXPECT_EQ(convert(to, string(row.text)), row.reads) << orlo::narrow(row.text);
            EXPECT_EQ(to, row.reads ? row.value : before) << orlo::narrow(row.text);
        }
    }
}

TEST(textToDouble, takesPointAndCommaWhereverTheyStand)
{
    static const struct {
        const char16_t* text;
        bool reads;
        double value;
    } rows[] = {
        {u"1,5", true, 1.5},
        {u"1.5", true, 1.5},
        {u"1,234.5", true, 1.234},
        {u"1.234,5", true, 1.234},
        {u"007", true, 7},
        {u"0", true, 0},
        {u"12", true, 12},
        {u"1,", true, 1},
        {u"1.", true, 1},
        {u",5", true, 0.5},
        {u".5", true, 0.5},
        {u"-1,25e2", true, -125},
        {u"+3", true, 3},
        {u" \t 2,5", true, 2.5},
        {u"2,5 mm", true, 2.5},
        {u"1e3", true, 1000},
        {u"1E-2", true, 0.01},
        {u"12abc", true, 12},
        {u"0,1", true, 0.1},
        {u"123456789012345678901234567890", true, 123456789012345678901234567890.0},
        {u"", false, 0},
        {u"abc", false, 0},
        {u",", false, 0},
        {u"-", false, 0},
        {u" ", false, 0},
        {u"..5", false, 0},
        {u",.5", false, 0},
    };
    for (const auto& row : rows) {
        expectReading<double>(row.text, row.reads, row.value);
        expectReading<float>(row.text, row.reads, static_cast<float>(row.value));
    }
}

TEST(textToDouble, readsLongTextsAsShortOnes)
{
    for (const std::size_t zeros : {40u, 61u, 62u, 63u, 64u, 65u, 500u}) {
        double value = 7;
        EXPECT_TRUE(convert(value, string(std::u16string(zeros, u'0') + u"1,5")));
        EXPECT_EQ(value, 1.5) << zeros;
        EXPECT_TRUE(convert(value, string(u"2,5" + std::u16string(zeros, u'0') + u"1")));
        EXPECT_NEAR(value, 2.5, 1e-15) << zeros;
    }
}

TEST(textToDouble, asksForNoLocale)
{
    machine& here = machine::renew();
    here.userSeparator = u";";
    here.systemSeparator = u";";
    expectReading<double>(u"1,5", true, 1.5);
    expectReading<double>(u"1.5", true, 1.5);
    expectReading<double>(u"1;5", true, 1);
    EXPECT_EQ(here.countCalls("userDecimalSeparator") + here.countCalls("systemDecimalSeparator"),
              0u);
    machine::renew();
}

TEST(textToFloat, takesTheLimitForWhatDoesNotFit)
{
    float value = 7;
    EXPECT_FALSE(convert(value, string(u"1e300")));
    EXPECT_EQ(value, static_cast<float>(greatestFloat));
    EXPECT_FALSE(convert(value, string(u"-1e39")));
    EXPECT_EQ(value, static_cast<float>(-greatestFloat));
}

// --- Number to text ------------------------------------------------------------------------

template <class From, class... Arguments>
string textOf(From from, unsigned flags = 0, Arguments... arguments)
{
    string text(u"old");
    EXPECT_TRUE(convert(text, from, flags, arguments...));
    return text;
}

TEST(doubleToText, hasAtMostEightDecimalsAndNoTrailingZeros)
{
    const struct {
        double value;
        const char16_t* text;
    } rows[] = {
        {1.5, u"1.5"},
        {2.0, u"2"},
        {0.0, u"0"},
        {-0.0, u"-0"},
        {-0.000000001, u"-0"},
        {1e-9, u"0"},
        {100.0, u"100"},
        {0.1, u"0.1"},
        {1234567.123456789, u"1234567.12345679"},
        {1.0 / 3, u"0.33333333"},
        {2.0 / 3, u"0.66666667"},
        {-12.25, u"-12.25"},
        {1e-8, u"0.00000001"},
        {5e-9, u"0.00000001"},
        {1000000, u"1000000"},
        {1e22, u"10000000000000000000000"},
        {0.999999999, u"1"},
        {infinite, u"inf"},
        {-infinite, u"-inf"},
        {nan, u"nan"},
    };
    for (const auto& row : rows) EXPECT_EQ(textOf(row.value), row.text);
}

TEST(doubleToText, writesAllDigitsOfGreatNumbers)
{
    const string text = textOf(1e+300);
    EXPECT_EQ(text.size(), 301u);
    EXPECT_EQ(text.find_first_not_of(u"0123456789"), string::npos);
    EXPECT_EQ(text.substr(0, 17), u"10000000000000000");
    EXPECT_EQ(textOf(-greatestDouble).size(), 310u);
}

TEST(doubleToText, keepsAllDecimalsOfAGivenPrecision)
{
    static const struct {
        double value;
        int precision;
        const char16_t* text;
    } rows[] = {
        {1.5, 3, u"1.500"},
        {1.0, 20, u"1.0000000000"},
        {1.0, 10, u"1.0000000000"},
        {1.0, 9, u"1.000000000"},
        {2.0, 0, u"2"},
        {2.75, 1, u"2.8"},
        {100, 0, u"100"},
        {1.5, -3, u"1.500000"},
        {0, 2, u"0.00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(row.value, widthGiven, row.precision), row.text) << row.precision;
}

TEST(doubleToText, takesThePrecisionAsItsFirstArgumentWhateverTheFormatBit)
{
    EXPECT_EQ(textOf(1.5, formatGiven | widthGiven, 3, 1), u"1.500");
    EXPECT_EQ(textOf(1.5, formatGiven, hexUpper), u"1.5");
    EXPECT_EQ(textOf(1.5f, formatGiven | widthGiven, 3, 1), u"1.500");
}

TEST(doubleToText, hasItsUsualDecimalsWhereThePrecisionIsMissing)
{
    EXPECT_EQ(textOf(1.5, widthGiven), u"1.50000000");
}

TEST(doubleToText, usesTheUsersSeparatorOnDemand)
{
    struct row {
        const char16_t* user;
        const char16_t* system;
        double value;
        const char16_t* text;
    };
    static const row rows[] = {
        {u",", u",", 1.5, u"1,5"}, {u",", u",", 2.0, u"2"},
        {u",", u".", 2.0, u"2,"},  {u",", u".", 1.5, u"1,5"},
        {u".", u",", 2.0, u"2."},  {u"::", u"::", 1.25, u"1::25"},
        {u"::", u"::", 3.0, u"3"}, {u"\u066B", u"\u066B", -0.5, u"-0\u066B5"},
        {u".", u".", 0.0, u"0"},   {u",", u",", infinite, u"inf"},
        {u",", u"", 2.0, u"2,"},
    };
    for (const row& each : rows) {
        machine& here = machine::renew();
        here.userSeparator = each.user;
        here.systemSeparator = each.system;
        EXPECT_EQ(textOf(each.value, localeNumbers), each.text);
        EXPECT_EQ(textOf(each.value), textOf(each.value, 0)) << "only on demand";
    }
    machine& here = machine::renew();
    here.userSeparator = u",";
    EXPECT_EQ(textOf(1.5, localeNumbers | widthGiven, 3), u"1,500");
    EXPECT_EQ(textOf(2.0, localeNumbers | widthGiven, 0), u"2");
    EXPECT_EQ(textOf(1.5f, localeNumbers), u"1,5");
    EXPECT_EQ(textOf(15, localeNumbers), u"15") << "integers have no separator";
    machine::renew();
}

TEST(doubleToText, staysWithThePointIfTheSeparatorsCannotBeTold)
{
    machine& here = machine::renew();
    here.userSeparator = u",";
    here.systemSeparator = u",";
    here.failCall("userDecimalSeparator", 1);
    EXPECT_EQ(textOf(1.5, localeNumbers), u"1.5");
    here.failCall("systemDecimalSeparator", 1);
    EXPECT_EQ(textOf(2.0, localeNumbers), u"2,");
    machine::renew();
}

TEST(doubleToText, asksForNoLocaleUnlessDemanded)
{
    machine& here = machine::renew();
    here.userSeparator = u",";
    here.systemSeparator = u",";
    EXPECT_EQ(textOf(1.5), u"1.5");
    EXPECT_EQ(textOf(1.5, widthGiven, 3), u"1.500");
    EXPECT_TRUE(here.calls.empty());
    machine::renew();
}

TEST(doubleToText, comesBackAsTheSameNumberForRandomValues)
{
    constexpr unsigned seed = 20240312;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    for (int round = 0; round < 2000; ++round) {
        // Whole 1/256 below 2^40: at most 8 decimals and 13 digits before them.
        const double value = (static_cast<double>(random() >> 16) - std::ldexp(1.0, 47)) / 256;
        string text = textOf(value);
        double back = 7;
        ASSERT_TRUE(convert(back, text)) << orlo::narrow(text);
        ASSERT_EQ(back, value) << orlo::narrow(text);
        text.replaceChar(u'.', u',');
        ASSERT_TRUE(convert(back, text)) << orlo::narrow(text);
        ASSERT_EQ(back, value) << orlo::narrow(text);
    }
}

TEST(floatToText, isThatOfItsExactDouble)
{
    EXPECT_EQ(textOf(0.1f), u"0.1");
    EXPECT_EQ(textOf(16777216.0f), u"16777216");
    EXPECT_EQ(textOf(0.3f, widthGiven, 10), u"0.3000000119");
}

TEST(integerToText, isPlainDecimal)
{
    EXPECT_EQ(textOf<short>(-32768), u"-32768");
    EXPECT_EQ(textOf<unsigned short>(65535), u"65535");
    EXPECT_EQ(textOf<int>(-2147483647 - 1), u"-2147483648");
    EXPECT_EQ(textOf<unsigned>(4294967295u), u"4294967295");
    EXPECT_EQ(textOf<long>(-2147483647l - 1), u"-2147483648");
    EXPECT_EQ(textOf<unsigned long>(4294967295ul), u"4294967295");
    EXPECT_EQ(textOf<largest>(~largest{0}), u"18446744073709551615");
    EXPECT_EQ(textOf<int>(0), u"0");
}

TEST(integerToText, fillsUpWithZerosInFrontOfTheSign)
{
    static const struct {
        int value;
        int width;
        const char16_t* text;
    } rows[] = {
        {-5, 4, u"00-5"}, {-5, 2, u"-5"}, {-5, 1, u"-5"},
        {5, 4, u"0005"},  {0, 3, u"000"}, {12345, 3, u"12345"},
        {5, 0, u"5"},     {5, -4, u"5"},  {5, 30, u"000000000000000000000000000005"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(row.value, widthGiven, row.width), row.text) << row.width;
    EXPECT_EQ(textOf<short>(-5, widthGiven, 4), u"00-5");
    EXPECT_EQ(textOf<largest>(5, widthGiven, 4), u"0005");
    EXPECT_EQ(textOf(5, widthGiven), u"5") << "no width passed";
}

TEST(integerToText, takesTheFormatBeforeTheWidth)
{
    EXPECT_EQ(textOf(255, formatGiven | widthGiven, 0, 5), u"00255");
    EXPECT_EQ(textOf(255, formatGiven, 0), u"255");
    EXPECT_EQ(textOf(255, formatGiven, 5), u"255") << "other formats mean decimal";
    EXPECT_EQ(textOf(255, formatGiven), u"255") << "no format passed";
}

// The target is not emptied for hexadecimal digits.
TEST(integerToText, putsHexadecimalDigitsInFrontOfTheTarget)
{
    EXPECT_EQ(textOf<unsigned short>(255, formatGiven, hexLower), u"ffold");
    EXPECT_EQ(textOf<unsigned short>(255, formatGiven, hexUpper), u"FFold");
    EXPECT_EQ(textOf<unsigned short>(0, formatGiven, hexLower), u"0old");
    EXPECT_EQ(textOf(255, formatGiven | widthGiven, hexUpper, 8), u"FFold")
        << "the width is not applied";
    string text;
    EXPECT_TRUE(convert(text, 0x1234ABCDu, formatGiven, hexLower));
    EXPECT_EQ(text, u"1234abcd");
}

TEST(integerToText, extendsHexadecimalValuesTo64Bits)
{
    const string all(u"FFFFFFFFFFFFFFFFold");
    EXPECT_EQ(textOf<short>(-1, formatGiven, hexUpper), all);
    EXPECT_EQ(textOf<int>(-1, formatGiven, hexUpper), all);
    EXPECT_EQ(textOf<long>(-1, formatGiven, hexUpper), all);
    EXPECT_EQ(textOf<largest>(~largest{0}, formatGiven, hexUpper), all);
    EXPECT_EQ(textOf<unsigned short>(65535, formatGiven, hexUpper), u"FFFFold");
    EXPECT_EQ(textOf<unsigned>(4294967295u, formatGiven, hexUpper), u"FFFFFFFFold");
    EXPECT_EQ(textOf<unsigned long>(4294967295ul, formatGiven, hexUpper), u"FFFFFFFFold");
    EXPECT_EQ(textOf<int>(-2147483647 - 1, formatGiven, hexLower), u"ffffffff80000000old");
    EXPECT_EQ(textOf<largest>(largest{0x123456789ABCDEF0}, formatGiven, hexLower),
              u"123456789abcdef0old");
}

TEST(boolToText, isOneOrZeroWhateverTheFlags)
{
    EXPECT_EQ(textOf(true), u"1");
    EXPECT_EQ(textOf(false), u"0");
    EXPECT_EQ(textOf(true, formatGiven | widthGiven, hexUpper, 4), u"1");
    EXPECT_EQ(textOf(false, widthGiven, 4), u"0");
}

TEST(integerToText, comesBackAsTheSameNumberForRandomValues)
{
    constexpr unsigned seed = 20240313;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    for (int round = 0; round < 1000; ++round) {
        const largest value = random() >> random() % 64;
        largest back = 7;
        ASSERT_TRUE(convert(back, textOf(value)));
        ASSERT_EQ(back, value);
        const auto whole = static_cast<int>(static_cast<unsigned>(random()));
        int wholeBack = 7;
        ASSERT_TRUE(convert(wholeBack, textOf(whole)));
        ASSERT_EQ(wholeBack, whole);
        const auto natural = static_cast<unsigned>(random());
        EXPECT_EQ(textOf(natural), string(std::to_string(natural).c_str()));
    }
}

} // namespace

} // namespace orloprimitivesTest
