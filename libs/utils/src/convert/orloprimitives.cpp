// The built-in conversions: between the number types and bool by range, from and to text by
// the rules of the "C" locale.
#include "orlonumberscan.h"
#include "orlonumbertext.h"
#include "orlotypeconvert.h"
#include "orlounit.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace orlo::typeconvert {

namespace {

// The type that has the range of a number type: a long is 32 bits, a bool counts as 0 or 1.
template <class T>
struct ranged {
    using type = T;
};
template <>
struct ranged<bool> {
    using type = short;
};
template <>
struct ranged<long> {
    using type = std::int32_t;
};
template <>
struct ranged<unsigned long> {
    using type = std::uint32_t;
};
template <class T>
using rangeOf = typename ranged<T>::type;

template <class T>
concept integer = std::integral<T> && !std::same_as<T, bool>;

// --- Number to number ----------------------------------------------------------------------

template <integer To, std::integral From>
bool convertNumber(To& to, From from)
{
    using limits = std::numeric_limits<rangeOf<To>>;
    const auto value = static_cast<rangeOf<From>>(from);
    const bool tooLow = std::cmp_less(value, limits::min());
    const bool tooHigh = std::cmp_greater(value, limits::max());
    to = tooLow ? limits::min() : tooHigh ? limits::max() : static_cast<To>(value);
    return !tooLow && !tooHigh;
}

template <std::same_as<bool> To, integer From>
bool convertNumber(To& to, From from)
{
    to = static_cast<rangeOf<From>>(from) != 0;
    return true;
}

template <std::floating_point To, std::integral From>
bool convertNumber(To& to, From from)
{
    to = static_cast<To>(static_cast<rangeOf<From>>(from));
    return true;
}

// Cuts towards zero in the register that the processor would use. What that can't hold, which
// is NaN and the power of two behind the largest value, has only the highest bit there; of
// the register the target keeps the low bits.
template <integer To, std::floating_point From>
To cutToInteger(From value)
{
    constexpr int digits = std::numeric_limits<To>::digits;
    using signedRegister = std::conditional_t<(digits < 32), std::int32_t, std::int64_t>;
    using cut = std::conditional_t<(digits < 64), signedRegister, std::uint64_t>;
    constexpr int cutDigits = std::numeric_limits<cut>::digits;
    constexpr From pastEnd = From(2) * static_cast<From>(std::uint64_t(1) << (cutDigits - 1));
    constexpr auto highestBit = static_cast<cut>(std::uint64_t(1) << (sizeof(cut) * 8 - 1));
    return static_cast<To>(value < pastEnd ? static_cast<cut>(value) : highestBit);
}

// The limits are those of the target in the type of the source. A float can't hold the largest
// int and has the power of two behind it as its limit, which passes and is cut.
template <integer To, std::floating_point From>
bool convertNumber(To& to, From from)
{
    using limits = std::numeric_limits<rangeOf<To>>;
    const bool tooLow = from < static_cast<From>(limits::min());
    const bool tooHigh = from > static_cast<From>(limits::max());
    to = tooLow ? limits::min() : tooHigh ? limits::max() : cutToInteger<rangeOf<To>>(from);
    return !tooLow && !tooHigh;
}

// Between float and double: infinities become limits as well.
template <std::floating_point To, std::floating_point From>
bool convertNumber(To& to, From from)
{
    constexpr To limit = std::numeric_limits<To>::max();
    const double value = from;
    const bool tooLow = value < -double{limit};
    const bool tooHigh = value > double{limit};
    to = tooLow ? -limit : tooHigh ? limit : static_cast<To>(value);
    return !tooLow && !tooHigh;
}

// --- Text to number ------------------------------------------------------------------------

bool scan(const string& text, std::int32_t& value)
{
    return scanLong(text.c_str(), value);
}

bool scan(const string& text, std::uint32_t& value)
{
    return scanUnsignedLong(text.c_str(), value);
}

bool scan(const string& text, std::uint64_t& value)
{
    return scanUnsignedLongLong(text.c_str(), value);
}

// The short types are read through their longer ones. Unlike a number, a text out of range
// leaves the target as it was.
template <integer To>
bool readText(To& to, const string& text)
{
    using longer = std::conditional_t<std::signed_integral<To>, std::int32_t, std::uint32_t>;
    std::conditional_t<std::same_as<To, unsigned long long>, std::uint64_t, longer> value;
    if (!scan(text, value) || !std::in_range<To>(value)) return false;
    to = static_cast<To>(value);
    return true;
}

bool readText(bool& to, const string& text)
{
    if (std::int32_t number; scan(text, number)) {
        to = number != 0;
        return true;
    }
    const string word = text.lowerCopy();
    const bool known = word == u"true" || word == u"false";
    if (known) to = word == u"true";
    return known;
}

// A comma counts as a decimal point wherever it stands, so the second of two separators ends
// the number. Texts of a usual length are copied without the heap.
bool readText(double& to, const string& text)
{
    if (std::find(text.begin(), text.end(), u',') == text.end())
        return scanDouble(text.c_str(), to);

    char16_t units[64];
    if (text.size() < std::size(units)) {
        std::replace_copy(text.c_str(), text.c_str() + text.size() + 1, units, u',', u'.');
        return scanDouble(units, to);
    }
    string copy(text);
    return scanDouble(copy.replaceChar(u',', u'.').c_str(), to);
}

bool readText(float& to, const string& text)
{
    double value;
    return readText(value, text) && convertNumber(to, value);
}

// --- Number to text ------------------------------------------------------------------------

constexpr int defaultDecimals = 8;
constexpr int mostDecimals = 10;
constexpr int decimalsOfPrintf = 6; // where the precision is negative
constexpr std::size_t numberRoom = 1024;

int decimalsOf(unsigned flags, const argumentList& arguments)
{
    if ((flags & widthGiven) == 0) return defaultDecimals;
    const int precision = arguments.at(0, defaultDecimals);
    return precision < 0 ? decimalsOfPrintf : std::min(precision, mostDecimals);
}

// Printed with the separator of the user, but rid of that of the system: where they differ,
// a whole number ends in the user's separator.
void writeForUser(string& to, std::u16string_view printed, bool keepZeros)
{
    string text(printed);
    string separator;
    const std::size_t point = text.find(u'.');
    if (point != string::npos && platform::userDecimalSeparator(separator))
        text.replace(point, 1, separator);
    if (!keepZeros) text.erase(std::max<std::size_t>(text.find_last_not_of(u'0') + 1, 1));
    if (platform::systemDecimalSeparator(separator) && text.ends_with(separator))
        text.erase(text.size() - separator.size());
    to.swap(text);
}

void writeDouble(string& to, double value, unsigned flags, const argumentList& arguments)
{
    if ((flags & (widthGiven | localeNumbers)) == 0) {
        printNumber(to, value);
        return;
    }
    char16_t units[numberRoom];
    const std::u16string_view printed(units,
                                      printFixed(units, value, decimalsOf(flags, arguments)));
    if ((flags & localeNumbers) == 0)
        to.assign(printed);
    else
        writeForUser(to, printed, (flags & widthGiven) != 0);
}

// No failure passes through a conversion to text: without memory it is just a false.
template <std::floating_point From>
bool writeText(string& to, From from, unsigned flags, const argumentList& arguments)
{
    try {
        writeDouble(to, from, flags, arguments);
        return true;
    } catch (...) {
        return false;
    }
}

// Puts the digits in front of what the target holds.
void prependHexadecimal(string& to, std::uint64_t bits, std::u16string_view digits)
{
    char16_t units[16];
    char16_t* first = std::end(units);
    do {
        *--first = digits[bits & 15];
        bits >>= 4;
    } while (bits != 0);
    to.insert(0, std::u16string_view(first, std::end(units)));
}

// Zeros that fill up the width stand before the sign: files with such numbers exist.
void writeDecimal(string& to, std::uint64_t bits, bool negative, int width)
{
    char digits[24];
    char* const number = negative ? digits + 1 : digits;
    digits[0] = '-';
    const char* const end = std::to_chars(number, std::end(digits), negative ? -bits : bits).ptr;
    const std::ptrdiff_t length = end - digits;
    to.assign(static_cast<std::size_t>(std::max<std::ptrdiff_t>(width, length)), u'0');
    std::copy(std::cbegin(digits), end, to.end() - length);
}

// `bits` are those of the number, continued by its sign.
void writeInteger(string& to, std::uint64_t bits, bool negative, unsigned flags,
                  const argumentList& arguments)
{
    const bool hasFormat = (flags & formatGiven) != 0;
    const int format = hasFormat ? arguments.at(0, 0) : 0;
    if (format == hexUpper)
        prependHexadecimal(to, bits, u"0123456789ABCDEF");
    else if (format == hexLower)
        prependHexadecimal(to, bits, u"0123456789abcdef");
    else
        writeDecimal(to, bits, negative,
                     (flags & widthGiven) != 0 ? arguments.at(hasFormat ? 1 : 0, 1) : 1);
}

template <integer From>
bool writeText(string& to, From from, unsigned flags, const argumentList& arguments)
{
    const auto value = static_cast<rangeOf<From>>(from);
    writeInteger(to, static_cast<std::uint64_t>(value), std::cmp_less(value, 0), flags, arguments);
    return true;
}

template <std::same_as<bool> From>
bool writeText(string& to, From from, unsigned, const argumentList&)
{
    to = from ? u"1" : u"0";
    return true;
}

// --- Narrow text and text ------------------------------------------------------------------

bool widenByte(string& to, const char& from, unsigned, const argumentList&)
{
    const char narrow[] = {from, '\0'};
    to = from == '\0' ? string(u'\0') : string(narrow);
    return true;
}

bool widenPointer(string& to, const char* const& from, unsigned, const argumentList&)
{
    if (from == nullptr) return false;
    to = string(from);
    return true;
}

bool widenText(string& to, const std::string& from, unsigned, const argumentList&)
{
    to.resize(from.size());
    std::ranges::transform(from, to.begin(),
                           [](char byte) { return static_cast<unsigned char>(byte); });
    return true;
}

// Only units that fit a byte have a narrow form.
bool narrowText(std::string& to, const string& from, unsigned, const argumentList&)
{
    if (std::ranges::any_of(from, [](char16_t unit) { return unit > 0xFF; })) return false;
    to.resize(from.size());
    std::ranges::transform(from, to.begin(), [](char16_t unit) { return static_cast<char>(unit); });
    return true;
}

} // namespace

template <class To, class From>
bool convertPrimitive(To& to, const From& from, unsigned flags, const argumentList& arguments)
{
    if constexpr (!isPrimitivePair<To, From>)
        return false; // made along with its neighbours, and called by nobody
    else if constexpr (std::same_as<To, string>)
        return writeText(to, from, flags, arguments);
    else if constexpr (std::same_as<From, string>)
        return readText(to, from);
    else
        return convertNumber(to, from);
}

// --- The pairs -----------------------------------------------------------------------------

// clang-format off
#define ORLO_INSTANTIATE(To, From) \
    template bool convertPrimitive<To, From>(To&, const From&, unsigned, const argumentList&);
#define ORLO_FROM_EACH(To) \
    ORLO_INSTANTIATE(To, bool) ORLO_INSTANTIATE(To, string) \
    ORLO_INSTANTIATE(To, short) ORLO_INSTANTIATE(To, unsigned short) \
    ORLO_INSTANTIATE(To, int) ORLO_INSTANTIATE(To, unsigned) \
    ORLO_INSTANTIATE(To, long) ORLO_INSTANTIATE(To, unsigned long) \
    ORLO_INSTANTIATE(To, unsigned long long) \
    ORLO_INSTANTIATE(To, float) ORLO_INSTANTIATE(To, double)
// clang-format on
ORLO_FROM_EACH(bool)
ORLO_FROM_EACH(string)
ORLO_FROM_EACH(short)
ORLO_FROM_EACH(unsigned short)
ORLO_FROM_EACH(int)
ORLO_FROM_EACH(unsigned)
ORLO_FROM_EACH(long)
ORLO_FROM_EACH(unsigned long)
ORLO_FROM_EACH(unsigned long long)
ORLO_FROM_EACH(float)
ORLO_FROM_EACH(double)

namespace {

template <class To, class From>
constexpr typeConverter<From, To> pairConverter{convertPrimitive<To, From>};

constexpr typeConverter<const char, string> byteToText{widenByte};
constexpr typeConverter<const char*, string> pointerToText{widenPointer};
constexpr typeConverter<std::string, string> narrowToText{widenText};
constexpr typeConverter<string, std::string> textToNarrow{narrowText};

constexpr std::size_t pairCount = 108;
using converterTable = std::array<const typeConverterBase*, pairCount + 4>;

// Writes those of the pairs that there are, and returns their end.
template <class To, class... From>
constexpr const typeConverterBase** writePairs(const typeConverterBase** next)
{
    ((isPrimitivePair<To, From> ? void(*next++ = &pairConverter<To, From>) : void()), ...);
    return next;
}

template <class... Types>
constexpr converterTable makeTable()
{
    converterTable table{};
    const typeConverterBase** next = table.data();
    ((next = writePairs<Types, Types...>(next)), ...);
    for (const auto* other : std::initializer_list<const typeConverterBase*>{
             &byteToText, &pointerToText, &narrowToText, &textToNarrow})
        *next++ = other;
    return table;
}

constexpr converterTable allConverters =
    makeTable<bool, short, unsigned short, int, unsigned, long, unsigned long, unsigned long long,
              float, double, string>();
static_assert(allConverters.back() == &textToNarrow);

} // namespace

converterList detail::primitiveConverters()
{
    return allConverters;
}

} // namespace orlo::typeconvert
