#include "orlonumbertext.h"

#include "support/numbers.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

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

} // namespace
