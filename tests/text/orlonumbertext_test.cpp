#include "orlonumbertext.h"

#include "support/numbers.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace orlonumbertextTest {

using orlo::string;
using namespace orlo::tests;

namespace {

string fixedText(double value, int precision)
{
    std::u16string room(350 + static_cast<std::size_t>(precision), u'#');
    return {room.data(), static_cast<std::size_t>(orlo::printFixed(room.data(), value, precision) -
                                                  room.data())};
}

string numberText(double value)
{
    string text(u"what stood there before");
    orlo::printNumber(text, value);
    return text;
}

TEST(printFixed, writesAllDecimals)
{
    static const struct {
        double value;
        int precision;
        const char16_t* text;
    } rows[] = {
        {1.5, 6, u"1.500000"},
        {1.5, 3, u"1.500"},
        {-1.5, 0, u"-2"},
        {2.5, 0, u"2"},
        {-0.0, 2, u"-0.00"},
        {infinity, 8, u"inf"},
        {-infinity, 8, u"-inf"},
        {notANumber, 8, u"nan"},
        {std::copysign(notANumber, -1.0), 8, u"-nan"},
        {1.0, 10, u"1.0000000000"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(fixedText(row.value, row.precision), row.text) << row.value;
    EXPECT_EQ(fixedText(1.0, 3000), u"1." + string(std::u16string(3000, u'0')));
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 2).size(), 309 + 3u);
    EXPECT_EQ(fixedText(infinity, 3000), u"inf");
}

TEST(printFixed, agreesWithPrintfOnRandomDoubles)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20000; ++round) {
        const double value = randomDouble(random);
        if (std::isinf(value)) continue;
        const int precision = static_cast<int>(random() % 20);
        ASSERT_EQ(fixedText(value, precision),
                  printed("%." + std::to_string(precision) + "f", value))
            << value << " seed " << seed;
    }
}

TEST(printNumber, dropsZerosAndKeepsEightDecimals)
{
    static const struct {
        double value;
        const char16_t* text;
    } rows[] = {
        {1.5, u"1.5"},
        {2.0, u"2"},
        {0.0, u"0"},
        {-0.000000001, u"-0"},
        {1e-9, u"0"},
        {100.0, u"100"},
        {0.1, u"0.1"},
        {1234567.123456789, u"1234567.12345679"},
        {-0.25, u"-0.25"},
        {1e-8, u"0.00000001"},
        {1.0 / 3, u"0.33333333"},
        {1e15 + 0.5, u"1000000000000000.5"},
        {infinity, u"inf"},
        {-infinity, u"-inf"},
        {notANumber, u"nan"},
        {std::copysign(notANumber, -1.0), u"-nan"},
        {-0.0, u"-0"},
    };
    for (const auto& row : rows) EXPECT_EQ(numberText(row.value), row.text) << row.value;
}

TEST(printNumber, writesAllDigitsOfALargeNumber)
{
    const string text = numberText(1e300);
    EXPECT_EQ(text.size(), 301u);
    EXPECT_EQ(text.find(u'.'), string::npos);
    EXPECT_EQ(text, printed("%.0f", 1e300));
}

// "%.8f" without its trailing zeros: the slow way.
string slowText(double value)
{
    string text = printed("%.8f", value);
    text.trimRight(u"0");
    return text.trimRight(u'.');
}

TEST(printNumber, agreesWithPrintfOnRandomDoubles)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 50000; ++round) {
        const double value = randomDouble(random);
        if (std::isinf(value) || value == 0) continue;
        ASSERT_EQ(numberText(value), slowText(value)) << value << " seed " << seed;
        const double near1 =
            std::ldexp(value, -std::ilogb(value) + static_cast<int>(random() % 70) - 35);
        if (!std::isfinite(near1)) continue;
        ASSERT_EQ(numberText(near1), slowText(near1)) << near1 << " seed " << seed;
    }
}

// The nearest doubles at both sides of each, too.
void expectAround(double value)
{
    for (const double each :
         {value, std::nextafter(value, -infinity), std::nextafter(value, infinity)}) {
        ASSERT_EQ(numberText(each), slowText(each)) << each;
        ASSERT_EQ(numberText(-each), slowText(-each)) << -each;
    }
}

TEST(printNumber, roundsWhereTwoTextsAreEquallyNearToTheEvenOne)
{
    EXPECT_EQ(numberText(0.001953125), u"0.00195312");
    EXPECT_EQ(numberText(0.005859375), u"0.00585938");
    EXPECT_EQ(numberText(-3.001953125), u"-3.00195312");
    for (int numerator = 1; numerator < 4096; numerator += 2) {
        expectAround(numerator / 512.0);
        expectAround(1000000 + numerator / 512.0);
    }
}

TEST(printNumber, carriesIntoTheWholeNumber)
{
    EXPECT_EQ(numberText(0.999999996), u"1");
    EXPECT_EQ(numberText(9.999999995), slowText(9.999999995));
    EXPECT_EQ(numberText(-99.999999999), u"-100");
    for (const double whole : {1.0, 10.0, 1e6, 1e9, 1e14, 1e15}) expectAround(whole);
}

TEST(printNumber, isExactAtItsOwnLimits)
{
    for (const double value :
         {0.0, 5e-9, 1e-8, 1.5e-8, 4.9999999999e-9, std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(), 0.5, 4503599627370496.0, 4503599627370497.5,
          9007199254740992.0, 9007199254740993.0, 18446744073709551616.0, 1e22})
        expectAround(value);
}

} // namespace

} // namespace orlonumbertextTest
