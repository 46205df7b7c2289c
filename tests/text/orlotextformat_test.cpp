#include "orlotextformat.h"

#include "support/numbers.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <initializer_list>
#include <limits>
#include <random>

namespace orlotextformatTest {

using orlo::formatArgument;
using orlo::string;

namespace {

using namespace orlo::tests;

using arguments = std::initializer_list<formatArgument>;

string format(const char16_t* text, arguments values)
{
    string out;
    orlo::formatText(out, text, {values.begin(), values.size()});
    return out;
}

// --- Whole formats ---------------------------------------------------------------------------

TEST(formatText, copiesOrdinaryTextAndOnePercentSignOfTwo)
{
    EXPECT_EQ(format(u"", {}), u"");
    EXPECT_EQ(format(u"plain \u00e4\U0001f600", {}), u"plain \u00e4\U0001f600");
    EXPECT_EQ(format(u"100%%", {}), u"100%");
    EXPECT_EQ(format(u"%%%d%%", {5}), u"%5%");
}

TEST(formatText, takesTheArgumentsInTheirOrder)
{
    EXPECT_EQ(format(u"%04d/%02d/%02d", {2024, 3, 5}), u"2024/03/05");
    EXPECT_EQ(format(u"File \"%s\" has %d lines (%c)", {u"a.xml", 7, u'x'}),
              u"File \"a.xml\" has 7 lines (x)");
    EXPECT_EQ(format(u"%d", {1, 2, 3}), u"1");
}

TEST(formatText, appendsToWhatIsThere)
{
    string out(u"x=");
    const formatArgument value(5);
    orlo::formatText(out, u"%d;", {&value, 1});
    EXPECT_EQ(out, u"x=5;");
}

TEST(formatText, takesPiecesOfTheTextThatItAppendsTo)
{
    string out(u"abc");
    const formatArgument values[] = {out, out.c_str() + 1};
    orlo::formatText(out, u"|%30s|%s", values);
    EXPECT_EQ(out, u"abc|" + string(27, u' ') + u"abc|bc");
    string padded(u"abc");
    const formatArgument itself(padded);
    orlo::formatText(padded, u"%600s", {&itself, 1});
    EXPECT_EQ(padded, u"abc" + string(597, u' ') + u"abc");
}

TEST(formatText, printsNothingWhereNoArgumentWasPassed)
{
    EXPECT_EQ(format(u"[%d %s %f %c]", {}), u"[   ]");
    EXPECT_EQ(format(u"[%d %d]", {1}), u"[1 ]");
}

TEST(formatText, readsNothingThatWasNotPassed)
{
    static const struct {
        const char16_t* text;
        const char16_t* expected;
    } rows[] = {
        {u"[%*d]", u"[7]"},    {u"[%.*d]", u"[7]"},   {u"[%*.*d]", u"[7]"}, {u"[%n]", u"[]"},
        {u"[%n%d]", u"[7]"},   {u"[%hld]", u"[7]"},   {u"[%lhd]", u"[7]"},  {u"[%llld]", u"[7]"},
        {u"[%hhhd]", u"[7]"},  {u"[%", u"["},         {u"[%5", u"["},       {u"[%5.", u"["},
        {u"[%-+ #0", u"["},    {u"[%ll", u"["},       {u"[%k%d]", u"[7]"},  {u"[%*k%d]", u"[7]"},
        {u"[%\u00e4]", u"[]"}, {u"[%*3d]", u"[  7]"}, {u"[%d%*d]", u"[7]"}, {u"[%*%%d]", u"[%7]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {7}), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, takesWidthAndPrecisionFromArgumentsThatWerePassed)
{
    const struct {
        const char16_t* text;
        std::initializer_list<formatArgument> values;
        const char16_t* expected;
    } rows[] = {
        {u"[%*d]", {5, 42}, u"[   42]"},
        {u"[%*d]", {-5, 42}, u"[42   ]"},
        {u"[%0*d]", {5, 42}, u"[00042]"},
        {u"[%-*d]", {-5, 42}, u"[42   ]"},
        {u"[%.*f]", {2, 1.5}, u"[1.50]"},
        {u"[%.*f]", {-2, 1.5}, u"[1.500000]"},
        {u"[%.*f]", {0, 1.5}, u"[2]"},
        {u"[%*.*f]", {8, 2, 1.5}, u"[    1.50]"},
        {u"[%*.*s|%d]", {5, 2, u"abc", 7}, u"[   ab|7]"},
        {u"[%.*d]", {4, 42}, u"[0042]"},
        {u"[%*c|%*s]", {3, u'x', -3, u"y"}, u"[  x|y  ]"},
        {u"[%*.*d]", {5, 42}, u"[5]"}, // the value was not passed
        {u"[%*d]%d", {std::numeric_limits<int>::min(), 1, 2}, u"[]2"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, row.values), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, knowsTheLengthLettersOfSizesAndGreatestNumbers)
{
    const std::size_t size = 5000000000;
    const std::ptrdiff_t difference = -5000000000;
    const std::intmax_t greatest = std::numeric_limits<std::intmax_t>::max();
    EXPECT_EQ(format(u"%zu|%d", {size, 7}), u"5000000000|7");
    EXPECT_EQ(format(u"%td|%d", {difference, 7}), u"-5000000000|7");
    EXPECT_EQ(format(u"%jd|%d", {greatest, 7}), u"9223372036854775807|7");
    EXPECT_EQ(format(u"%zx", {size}), u"12a05f200");
    EXPECT_EQ(format(u"%Iu", {size}), u"5000000000");
    EXPECT_EQ(format(u"%zu", {-1}), u"18446744073709551615");
}

TEST(formatText, countsALongAs32Bits)
{
    // Wider than 32 bits where the system's own long is.
    const auto wide = static_cast<long>(0x100000005LL);
    const auto wideUnsigned = static_cast<unsigned long>(0x1FFFFFFFFULL);
    EXPECT_EQ(format(u"%ld %d", {wide, wide}), u"5 5");
    EXPECT_EQ(format(u"%lu %u", {wideUnsigned, wideUnsigned}), u"4294967295 4294967295");
}

TEST(formatText, printsHexadecimalFloatingPoint)
{
    static const struct {
        const char16_t* text;
        double value;
        const char16_t* expected;
    } rows[] = {
        {u"%a", 1.0, u"0x1p+0"},           {u"%a", 0.0, u"0x0p+0"},
        {u"%a", -1.5, u"-0x1.8p+0"},       {u"%A", 0.1, u"0X1.999999999999AP-4"},
        {u"%.2a", 0.1, u"0x1.9ap-4"},      {u"%.0a", 1.0, u"0x1p+0"},
        {u"%#.0a", 1.0, u"0x1.p+0"},       {u"%+a", 1.0, u"+0x1p+0"},
        {u"%12a|", 1.5, u"    0x1.8p+0|"}, {u"%-12a|", 1.5, u"0x1.8p+0    |"},
        {u"%012a", -1.5, u"-0x0001.8p+0"}, {u"%a", infinity, u"inf"},
        {u"%A", -infinity, u"-INF"},       {u"%08a", notANumber, u"     nan"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
    EXPECT_EQ(format(u"%a|%d", {1.0, 7}), u"0x1p+0|7") << "no argument is shifted";
    EXPECT_EQ(format(u"%.1500a", {1.0}).size(), 4 + 1500 + 3u);
}

TEST(formatText, printsAllDigitsOfAnAddress)
{
    const string zeros(2 * sizeof(void*) - 3, u'0');
    const auto* const address = reinterpret_cast<const void*>(std::uintptr_t{0xABC});
    EXPECT_EQ(format(u"%p|%d", {address, 7}), zeros + u"ABC|7");
    EXPECT_EQ(format(u"%-20p|", {address}).size(), 21u);
    EXPECT_EQ(format(u"%p", {static_cast<const void*>(nullptr)}), string(2 * sizeof(void*), u'0'));
}

TEST(formatText, survivesPositionsOfArguments)
{
    EXPECT_EQ(format(u"%1$d", {7}), u"d");
    EXPECT_EQ(format(u"%1$d|%d", {7}), u"d|7");
}

TEST(formatText, printsNothingForCountsBeyond32Bits)
{
    EXPECT_EQ(format(u"[%2147483648d]%d", {1, 2}), u"[]2");
    EXPECT_EQ(format(u"[%.2147483648f]%d", {1.0, 2}), u"[]2");
    EXPECT_EQ(format(u"[%99999999999999999999999999d]%d", {1, 2}), u"[]2");
}

// --- Integers --------------------------------------------------------------------------------

TEST(formatText, printsIntegersByTheirLength)
{
    static const struct {
        const char16_t* text;
        formatArgument value;
        const char16_t* expected;
    } rows[] = {
        {u"%d", 0, u"0"},
        {u"%d", std::numeric_limits<int>::min(), u"-2147483648"},
        {u"%i", 42, u"42"},
        {u"%u", -1, u"4294967295"},
        {u"%d", 4294967295u, u"-1"},
        {u"%hd", 65535, u"-1"},
        {u"%hd", 65536 + 5, u"5"},
        {u"%hu", -1, u"65535"},
        {u"%hhd", 200, u"-56"},
        {u"%hhu", -1, u"255"},
        {u"%ld", -5L, u"-5"},
        {u"%lu", -5, u"4294967291"},
        {u"%d", short{-7}, u"-7"},
        {u"%x", short{-1}, u"ffffffff"},
        {u"%u", static_cast<unsigned short>(65535), u"65535"},
        {u"%d", 9223372036854775807LL, u"9223372036854775807"},
        {u"%lld", std::numeric_limits<long long>::min(), u"-9223372036854775808"},
        {u"%llu", 18446744073709551615ULL, u"18446744073709551615"},
        {u"%u", 18446744073709551615ULL, u"18446744073709551615"},
        {u"%ld", 4294967297LL, u"1"},
        {u"%I64d", 4294967297LL, u"4294967297"},
        {u"%I32d", 4294967297LL, u"1"},
        {u"%lld", -1, u"-1"},
        {u"%o", 8, u"10"},
        {u"%#o", 8, u"010"},
        {u"%#o", 0, u"0"},
        {u"%#.0o", 0, u"0"},
        {u"%x", 255, u"ff"},
        {u"%X", 255, u"FF"},
        {u"%#x", 255, u"0xff"},
        {u"%#X", 255, u"0XFF"},
        {u"%#x", 0, u"0"},
        {u"%.0d", 0, u""},
        {u"%.d", 5, u"5"},
        {u"%d", u'A', u"65"},
        {u"%d", u'\uffff', u"65535"},
        {u"%d", u"12", u"0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, placesIntegersInTheirField)
{
    static const struct {
        const char16_t* text;
        int value;
        const char16_t* expected;
    } rows[] = {
        {u"[%5d]", 42, u"[   42]"},      {u"[%-5d]", 42, u"[42   ]"},
        {u"[%05d]", -42, u"[-0042]"},    {u"[%-05d]", 42, u"[42   ]"},
        {u"[%+d]", 42, u"[+42]"},        {u"[% d]", 42, u"[ 42]"},
        {u"[%+ d]", 42, u"[+42]"},       {u"[%.4d]", -42, u"[-0042]"},
        {u"[%7.4d]", 42, u"[   0042]"},  {u"[%07.4d]", 42, u"[   0042]"},
        {u"[%#8x]", 255, u"[    0xff]"}, {u"[%#08x]", 255, u"[0x0000ff]"},
        {u"[%2d]", 12345, u"[12345]"},   {u"[%+u]", 5, u"[5]"},
        {u"[%03d]", 7, u"[007]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, cutsADoubleTowardsZeroForAnInteger)
{
    static const struct {
        double value;
        const char16_t* expected;
    } rows[] = {
        {1.9, u"1"},  {-1.9, u"-1"}, {2147483648.0, u"-2147483648"}, {4294967296.0 + 5, u"5"},
        {-0.5, u"0"},
    };
    for (const auto& row : rows) EXPECT_EQ(format(u"%d", {row.value}), row.expected) << row.value;
    EXPECT_EQ(format(u"%x", {-1.0}), u"ffffffff");
    for (const double value : {notANumber, infinity, -infinity, 1e300, 9223372036854775808.0}) {
        EXPECT_EQ(format(u"%d", {value}), u"0")
            << value; // the low 32 bits of the processor's answer
    }
}

// Flags, width, precision, length and letter at random; the platform's printf is the judge.
TEST(formatText, agreesWithPrintfOnRandomIntegers)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20000; ++round) {
        const bool isSigned = random() % 2 == 0;
        std::string form = "%";
        for (const char flag : isSigned ? std::string("-+ 0") : std::string("-#0")) {
            if (random() % 3 == 0) form += flag;
        }
        if (random() % 2 == 0) form += std::to_string(1 + random() % 30);
        if (random() % 2 == 0) form += "." + std::to_string(random() % 30);
        static const char* const lengths[] = {"", "h", "hh", "ll"};
        const std::size_t length = random() % 4;
        const char letter = isSigned ? "di"[random() % 2] : "oxX"[random() % 3];
        // "#" belongs to octal and hexadecimal forms; "u" is judged apart from it.
        form += lengths[length];
        form += letter;

        const auto bits = static_cast<long long>(random() >> (random() % 64));
        const string text = wide(form);
        if (length == 3) {
            ASSERT_EQ(format(text.c_str(), {bits}), printed(form, bits))
                << form << " seed " << seed;
        } else {
            const int value = static_cast<int>(bits);
            ASSERT_EQ(format(text.c_str(), {value}), printed(form, value))
                << form << " " << value << " seed " << seed;
        }
    }
}

// --- Floating point --------------------------------------------------------------------------

TEST(formatText, printsFloatingPointInEachForm)
{
    static const struct {
        const char16_t* text;
        formatArgument value;
        const char16_t* expected;
    } rows[] = {
        {u"%f", 1.5, u"1.500000"},
        {u"%lf", 1.5, u"1.500000"},
        {u"%Lf", 1.5, u"1.500000"},
        {u"%.8lf", 0.1, u"0.10000000"},
        {u"%.0f", 2.5, u"2"},
        {u"%.0f", 3.5, u"4"},
        {u"%#.0f", 3.0, u"3."},
        {u"%e", 12345.678, u"1.234568e+04"},
        {u"%E", 1e-100, u"1.000000E-100"},
        {u"%#.0e", 3.0, u"3.e+00"},
        {u"%g", 0.0001, u"0.0001"},
        {u"%g", 0.00001, u"1e-05"},
        {u"%G", 1e20, u"1E+20"},
        {u"%g", 100000.0, u"100000"},
        {u"%g", 1000000.0, u"1e+06"},
        {u"%#g", 1.0, u"1.00000"},
        {u"%#.1g", 1.0, u"1."},
        {u"%#g", 1e10, u"1.00000e+10"},
        {u"%+f", 1.0, u"+1.000000"},
        {u"% f", 1.0, u" 1.000000"},
        {u"%010.2f", -1.5, u"-000001.50"},
        {u"%-10.2f|", 1.5, u"1.50      |"},
        {u"%f", -0.0, u"-0.000000"},
        {u"%f", infinity, u"inf"},
        {u"%F", -infinity, u"-INF"},
        {u"%010f", infinity, u"       inf"},
        {u"%E", notANumber, u"NAN"},
        {u"%f", 3, u"3.000000"},
        {u"%f", 3u, u"3.000000"},
        {u"%f", u'\3', u"3.000000"},
        {u"%f", u"text", u"0.000000"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, printsDecimalsBeyondAllThatADoubleHas)
{
    const double smallest = std::numeric_limits<double>::denorm_min();
    const string text = format(u"%.2000f", {smallest});
    EXPECT_EQ(text.size(), 2002u);
    EXPECT_EQ(text.find_last_not_of(u'0'), 1075u); // the 1074th decimal is a 5
    EXPECT_EQ(text[1075], u'5');
    EXPECT_EQ(format(u"%.1500e", {smallest}).size(), 1 + 1 + 1500 + 5u);
    EXPECT_EQ(format(u"%.1500g", {0.5}), u"0.5");
    EXPECT_EQ(format(u"%#.1500g", {0.5}).size(), 1502u);
}

// The exact digits are the C library's; how many forms of it agree with C99 differs by system,
// so infinities and NaN have their rows above.
TEST(formatText, agreesWithPrintfOnRandomDoubles)
{
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20000; ++round) {
        std::string form = "%";
        for (const char flag : std::string("-+ #0")) {
            if (random() % 4 == 0) form += flag;
        }
        if (random() % 2 == 0) form += std::to_string(1 + random() % 40);
        if (random() % 2 == 0) form += "." + std::to_string(random() % 25);
        form += "eEfFgG"[random() % 6];
        const double value = randomDouble(random);
        if (std::isinf(value)) continue;
        ASSERT_EQ(format(wide(form).c_str(), {value}), printed(form, value))
            << form << " " << value << " seed " << seed;
    }
}

// --- Texts and units -------------------------------------------------------------------------

TEST(formatText, placesTextsInTheirField)
{
    static const struct {
        const char16_t* text;
        formatArgument value;
        const char16_t* expected;
    } rows[] = {
        {u"[%s]", u"abc", u"[abc]"},
        {u"[%5s]", u"abc", u"[  abc]"},
        {u"[%-5s]", u"abc", u"[abc  ]"},
        {u"[%05s]", u"abc", u"[  abc]"},
        {u"[%.2s]", u"abc", u"[ab]"},
        {u"[%5.2s]", u"abc", u"[   ab]"},
        {u"[%.0s]", u"abc", u"[]"},
        {u"[%.s]", u"abc", u"[]"},
        {u"[%ls]", u"abc", u"[abc]"},
        {u"[%hs]", u"abc", u"[abc]"},
        {u"[%S]", u"abc", u"[abc]"},
        {u"[%2s]", u"abc", u"[abc]"},
        {u"[%s]", u"", u"[]"},
        {u"[%s]", u"\U0001f600", u"[\U0001f600]"},
        {u"[%s]", static_cast<const char16_t*>(nullptr), u"[]"},
        {u"[%c]", static_cast<const char16_t*>(nullptr), u"[]"},
        {u"[%s]", 5, u"[]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
}

TEST(formatText, takesTheTextOfAString)
{
    const string value(u"a string");
    EXPECT_EQ(format(u"%s!", {value}), u"a string!");
}

TEST(formatText, readsATextNoFurtherThanThePrecision)
{
    const std::array<char16_t, 3> unterminated{u'a', u'b', u'c'};
    EXPECT_EQ(format(u"%.3s", {unterminated.data()}), u"abc");
}

TEST(formatText, printsOneUnit)
{
    static const struct {
        const char16_t* text;
        formatArgument value;
        const char16_t* expected;
    } rows[] = {
        {u"%c", 65, u"A"},
        {u"%c", 233, u"\u00e9"},
        {u"%c", 0x4E00, u"\u4e00"},
        {u"%c", 0x10041, u"A"},
        {u"%c", 65.9, u"A"},
        {u"%c", -1, u"\uffff"},
        {u"%c", u'\u20ac', u"\u20ac"},
        {u"%c", u"text", u"t"},
        {u"%3c|", u'x', u"  x|"},
        {u"%-3c|", u'x', u"x  |"},
        {u"%C", u'x', u"x"},
        {u"%lc", u'x', u"x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(format(row.text, {row.value}), row.expected) << orlo::narrow(row.text);
    EXPECT_EQ(format(u"a%cb", {0}), string(u"a\0b", 3));
}

// --- The bounded form ------------------------------------------------------------------------

int formatBounded(std::size_t capacity, string& written, const char16_t* text, arguments values)
{
    written.assign(capacity + 1, u'#');
    return orlo::formatText(written.data(), capacity, text, {values.begin(), values.size()});
}

TEST(formatText, writesNoMoreThanTheBufferHolds)
{
    static const struct {
        std::size_t capacity;
        int result;
        const char16_t* written; // with a "0" for the terminator
    } rows[] = {
        {7, 5, u"ab123\0##"}, {6, 5, u"ab123\0#"}, {5, 5, u"ab123#"},
        {4, -1, u"ab12#"},    {1, -1, u"a#"},      {0, -1, u"#"},
    };
    for (const auto& row : rows) {
        string written;
        EXPECT_EQ(formatBounded(row.capacity, written, u"a%s%d", {u"b", 123}), row.result)
            << row.capacity;
        EXPECT_EQ(written, string(row.written, row.capacity + 1)) << row.capacity;
    }
}

TEST(formatTextUnbounded, writesAllAndATerminator)
{
    string written(8, u'#');
    const formatArgument values[] = {u"b", 123};
    EXPECT_EQ(orlo::formatTextUnbounded(written.data(), u"a%s%d", values), 5);
    EXPECT_EQ(written, string(u"ab123\0##", 8));
    EXPECT_EQ(orlo::formatTextUnbounded(written.data(), u"", {}), 0);
    EXPECT_EQ(written, string(u"\0b123\0##", 8));
}

TEST(formatText, stopsAtTheEndOfTheBufferHoweverLongTheTextWouldBe)
{
    string written;
    EXPECT_EQ(formatBounded(4, written, u"%2147483647d", {1}), -1);
    EXPECT_EQ(written, u"    #");
    EXPECT_EQ(formatBounded(4, written, u"%-2147483647s", {u"x"}), -1);
    EXPECT_EQ(written, u"x   #");
    EXPECT_EQ(formatBounded(4, written, u"%.2147483647d", {1}), -1);
    EXPECT_EQ(written, u"0000#");
    EXPECT_EQ(formatBounded(4, written, u"%.2147483647f", {1.0}), -1);
    EXPECT_EQ(written, u"1.00#");
    EXPECT_EQ(formatBounded(4, written, u"%02147483647d%s", {-1, u"x"}), -1);
    EXPECT_EQ(written, u"-000#");
}

} // namespace

} // namespace orlotextformatTest
