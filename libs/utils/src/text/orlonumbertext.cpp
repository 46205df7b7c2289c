// printNumber writes what "%.8f" writes, less its trailing zeros, but without a general printer of
// doubles, which takes twice as long: below 2^53 the fraction is exact by itself, and its eight
// decimals are one exact product of integers.
#include "orlonumbertext.h"

#include "text/narrownumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace orlo {

namespace {

constexpr std::size_t decimalsOfPrintf = 6; // where none are told

// --- Eight decimals ---------------------------------------------------------------------------

constexpr std::size_t numberDecimals = 8;
constexpr std::uint32_t decimalScale = 100000000; // 5^8 times 2^8
constexpr std::uint64_t fiveToTheEighth = 390625;
// From here on no double has a fraction.
constexpr double wholeFrom = 9007199254740992.0;
// What lies below is nearer to 0 than to one of the last decimal.
constexpr double leastSeen = 5e-9;

// A number cut into its whole part and its decimals, exactly rounded to eight.
struct cutNumber {
    std::uint64_t whole;
    std::uint32_t decimals;
};

// A fraction below 1 times 10^8, to the nearest whole number, of two equally near ones to the
// even one, as printf rounds. Exact: the 53 bits of the fraction times 5^8 make 72 bits, which
// are held in two parts of 40 and 32; what is left is a power of two.
std::uint32_t decimalsOf(double fraction)
{
    if (fraction < leastSeen) return 0;
    constexpr int mantissaBits = 52;
    constexpr int exponentBias = 1023;
    const auto bits = std::bit_cast<std::uint64_t>(fraction);
    const std::uint64_t hidden = std::uint64_t{1} << mantissaBits;
    const std::uint64_t mantissa = (bits & (hidden - 1)) | hidden;
    const int scale = exponentBias + mantissaBits - static_cast<int>(bits >> mantissaBits);

    constexpr std::uint64_t lowMask = 0xFFFFFFFF;
    const std::uint64_t low = (mantissa & lowMask) * fiveToTheEighth;
    const std::uint64_t high = (mantissa >> 32) * fiveToTheEighth + (low >> 32);
    const int shift = scale - static_cast<int>(numberDecimals) - 32; // 13 to 40
    const auto result = static_cast<std::uint32_t>(high >> shift);
    const std::uint64_t rest = high & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const bool isOverHalf = rest > half || (rest == half && (low & lowMask) != 0);
    const bool isHalf = rest == half && (low & lowMask) == 0;
    return result + (isOverHalf || (isHalf && result % 2 != 0) ? 1 : 0);
}

cutNumber cut(double magnitude)
{
    cutNumber number{static_cast<std::uint64_t>(magnitude), 0};
    number.decimals = decimalsOf(magnitude - static_cast<double>(number.whole));
    if (number.decimals == decimalScale) number = {number.whole + 1, 0};
    return number;
}

// Sign, 16 digits, separator, decimals.
constexpr std::size_t shortRoom = 32;

// Writes backwards from `end` and returns the begin.
char16_t* writeBackwards(const cutNumber& number, bool negative, char16_t* end)
{
    char16_t* to = end;
    std::uint32_t decimals = number.decimals;
    std::size_t places = decimals == 0 ? 0 : numberDecimals;
    for (; places > 0 && decimals % 10 == 0; decimals /= 10) --places;
    const bool hasDecimals = places > 0;
    for (; places > 0; --places, decimals /= 10)
        *--to = static_cast<char16_t>(u'0' + decimals % 10);
    if (hasDecimals) *--to = u'.';
    std::uint64_t whole = number.whole;
    do {
        *--to = static_cast<char16_t>(u'0' + whole % 10);
        whole /= 10;
    } while (whole != 0);
    if (negative) *--to = u'-';
    return to;
}

// Numbers without a fraction, infinities and NaN, at length.
void printAtLength(std::u16string& to, double value)
{
    narrowBuffer room;
    const std::string_view text = printNarrow(room, value, std::chars_format::fixed, 0);
    to.resize(text.size());
    widen(text, to.data());
}

} // namespace

char16_t* printFixed(char16_t* buffer, double value, int precision)
{
    narrowBuffer room;
    const auto decimals = precision < 0 ? decimalsOfPrintf : static_cast<std::size_t>(precision);
    buffer = widen(printNarrow(room, value, std::chars_format::fixed, decimals), buffer);
    if (decimals <= exactDecimals || !std::isfinite(value)) return buffer;
    return std::fill_n(buffer, decimals - exactDecimals, u'0');
}

void printNumber(std::u16string& to, double value)
{
    const double magnitude = std::fabs(value);
    if (!(magnitude < wholeFrom)) {
        printAtLength(to, value);
        return;
    }
    std::array<char16_t, shortRoom> room;
    char16_t* const end = room.data() + room.size();
    const char16_t* const begin = writeBackwards(cut(magnitude), std::signbit(value), end);
    to.assign(begin, static_cast<std::size_t>(end - begin));
}

} // namespace orlo
