// Numbers and texts into each other, held against the C library and against wider numbers.
#include "orlotextformat.h"
#include "orlotextscan.h"
#include "orlotypeconvert.h"

#include "input.h"
#include "support/machine.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>

namespace orlo::fuzz {

namespace {

using namespace typeconvert;
using text = std::u16string;

template <class Value>
bool same(const Value& a, const Value& b)
{
    if constexpr (std::is_floating_point_v<Value>)
        return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
    else
        return a == b;
}

// Smallest and largest value; a long holds 32 bits.
template <class Value>
struct rangeOf {
    static constexpr bool isSigned = std::numeric_limits<Value>::is_signed;
    static constexpr bool isLong =
        std::is_same_v<Value, long> || std::is_same_v<Value, unsigned long>;
    static constexpr int bits = isLong ? 32 : static_cast<int>(sizeof(Value) * 8);
    static constexpr long double low =
        isSigned ? -static_cast<long double>(1ULL << (bits - 1)) : 0.0L;
    static constexpr long double high = isSigned
                                            ? static_cast<long double>((1ULL << (bits - 1)) - 1)
                                            : static_cast<long double>(~0ULL >> (64 - bits));
};

// --- numbers to numbers ------------------------------------------------------------------------

// Every number here is exact as a long double.
template <class To, class From>
void expectInteger(From from)
{
    To to{};
    const bool fits = convert(to, from);
    const auto value = static_cast<long double>(from);
    if (std::is_floating_point_v<From> && (std::isnan(value) || value >= rangeOf<To>::high))
        return; // other limits
    expect(fits == (value >= rangeOf<To>::low && value <= rangeOf<To>::high),
           "a number fits or doesn't");
    const long double limited = std::clamp(value, rangeOf<To>::low, rangeOf<To>::high);
    expect(static_cast<long double>(to) == std::trunc(limited),
           "a number is cut, or becomes the nearest limit");
}

template <class To, class From>
void expectNumber(From from)
{
    if constexpr (std::is_same_v<To, From>) {
        return;
    } else if constexpr (std::is_same_v<To, bool>) {
        if constexpr (!std::is_floating_point_v<From>) {
            bool to = false;
            expect(convert(to, from) && to == (from != 0), "a number is true unless it is 0");
        }
    } else if constexpr (std::is_floating_point_v<To>) {
        To to{};
        const bool fits = convert(to, from);
        const auto value = static_cast<long double>(from);
        const long double limit = std::numeric_limits<To>::max();
        if (std::isnan(value)) return;
        expect(fits == (value >= -limit && value <= limit), "a number fits or doesn't");
        expect(to == static_cast<To>(std::clamp(value, -limit, limit)),
               "a number becomes the nearest one");
    } else {
        expectInteger<To>(from);
    }
}

template <class From>
void expectNumbers(From from)
{
    expectNumber<bool>(from);
    expectNumber<short>(from);
    expectNumber<unsigned short>(from);
    expectNumber<int>(from);
    expectNumber<unsigned>(from);
    expectNumber<long>(from);
    expectNumber<unsigned long>(from);
    expectNumber<unsigned long long>(from);
    expectNumber<float>(from);
    expectNumber<double>(from);
}

// --- numbers to text ---------------------------------------------------------------------------

string wide(const std::string& narrow)
{
    return string(narrow.c_str());
}

template <class Value>
void expectIntegerText(Value value, int width)
{
    string written = u"old";
    expect(convert(written, value) && written == wide(std::to_string(value)),
           "an integer is written in decimal");
    Value read{};
    expect(convert(read, written) && read == value, "and read again");

    string padded;
    expect(convert(padded, value, widthGiven, width), "any width will do");
    const std::size_t zeros = width > 0 && static_cast<std::size_t>(width) > written.size()
                                  ? static_cast<std::size_t>(width) - written.size()
                                  : 0;
    expect(padded == string(text(zeros, u'0')) + written,
           "zeros stand in front of all, the sign included");

    char digits[32];
    std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(value));
    string hexadecimal = u"tail";
    expect(convert(hexadecimal, value, formatGiven, hexUpper), "an integer has a hexadecimal form");
    expect(hexadecimal == wide(digits) + u"tail", "which stands in front of what was there");
    hexadecimal.clear();
    convert(hexadecimal, value, formatGiven | widthGiven, hexLower, width);
    expect(hexadecimal == wide(digits).lowerCopy(), "and has no width");
}

// A negative precision counts as none, for the C library too.
void expectDoubleText(double value, int precision)
{
    char printed[400];
    std::snprintf(printed, sizeof printed, "%.*f", std::min(precision, 10), value);
    string written;
    expect(convert(written, value, widthGiven, precision), "a number is always written");
    if (!std::isnan(value)) expect(written == wide(printed), "with exactly the decimals asked for");

    std::snprintf(printed, sizeof printed, "%.8f", value);
    std::string plain = printed;
    if (std::isfinite(value)) {
        while (plain.back() == '0') plain.pop_back();
        if (plain.back() == '.') plain.pop_back();
    }
    expect(convert(written, value), "a number is always written");
    if (!std::isnan(value)) expect(written == wide(plain), "with at most eight decimals");
    string set = u"old";
    expect(set.setNumber(value) == written, "setNumber writes the same");
    if (!std::isfinite(value)) return;
    double read = 0;
    expect(convert(read, written) && read == std::strtod(plain.c_str(), nullptr),
           "and reads again");
}

// --- texts to numbers --------------------------------------------------------------------------

// What can't be part of a number becomes "?" for the C library; it ends at a zero unit.
std::string narrowed(const string& from)
{
    std::string narrow;
    for (const char16_t unit : text(from.c_str()))
        narrow += unit < 128 ? static_cast<char>(unit) : '?';
    return narrow;
}

template <class Value>
void expectRead(const string& from, const std::optional<Value>& wanted)
{
    Value read = Value(7);
    expect(convert(read, from) == wanted.has_value(),
           "a text is read where a number in range stands");
    expect(same(read, wanted.value_or(Value(7))),
           "what is read is the number, and a text that fails changes nothing");
    Value again = Value(7);
    auto& registry = typeConverterRegistry::instance();
    expect(registry.convert(typeid(Value), &again, typeid(string), &from, 0, {}) ==
                   wanted.has_value() &&
               same(again, read),
           "the registry converts alike");
}

// As "%ld" and "%lu" read in 32 bits.
std::optional<std::int64_t> scannedLong(const std::string& narrow)
{
    char* end = nullptr;
    const long long value = std::strtoll(narrow.c_str(), &end, 10);
    if (end == narrow.c_str()) return std::nullopt;
    return std::clamp<std::int64_t>(value, -2147483648LL, 2147483647LL);
}

std::optional<std::uint32_t> scannedUnsigned(const std::string& narrow)
{
    char* end = nullptr;
    const auto value = static_cast<std::int64_t>(std::strtoll(narrow.c_str(), &end, 10));
    if (end == narrow.c_str()) return std::nullopt;
    if (value > 0xFFFFFFFFLL || value < -0xFFFFFFFFLL) return 0xFFFFFFFF;
    return static_cast<std::uint32_t>(value);
}

std::optional<double> scannedDouble(std::string narrow)
{
    std::replace(narrow.begin(), narrow.end(), ',', '.');
    char* end = nullptr;
    const double value = std::strtod(narrow.c_str(), &end);
    if (end == narrow.c_str()) return std::nullopt;
    return value;
}

template <class To, class From>
std::optional<To> within(const std::optional<From>& value)
{
    if (!value || std::cmp_less(*value, std::numeric_limits<To>::min()) ||
        std::cmp_greater(*value, std::numeric_limits<To>::max()))
        return std::nullopt;
    return static_cast<To>(*value);
}

std::optional<bool> wordOrNumber(const string& from)
{
    if (const auto number = scannedLong(narrowed(from))) return *number != 0;
    const string word = from.lowerCopy();
    if (word == u"true") return true;
    if (word == u"false") return false;
    return std::nullopt;
}

void expectTexts(const string& from)
{
    const std::string narrow = narrowed(from);
    const auto whole = scannedLong(narrow);
    const auto positive = scannedUnsigned(narrow);
    expectRead<short>(from, within<short>(whole));
    expectRead<int>(from, within<int>(whole));
    expectRead<long>(from, within<long>(whole));
    expectRead<unsigned short>(from, within<unsigned short>(positive));
    expectRead<unsigned>(from, positive);
    expectRead<unsigned long>(from, within<unsigned long>(positive));
    expectRead<bool>(from, wordOrNumber(from));

    const std::optional<double> number = scannedDouble(narrow);
    expectRead<double>(from, number);
    constexpr double most = std::numeric_limits<float>::max();
    const bool beyond = number && (*number < -most || *number > most);
    float read = 7;
    expect(convert(read, from) == (number && !beyond), "a text is read as a float where it fits");
    const float limit = number && *number < 0 ? -std::numeric_limits<float>::max()
                                              : std::numeric_limits<float>::max();
    expect(same(read, !number  ? 7.0F
                      : beyond ? limit
                               : static_cast<float>(*number)),
           "a float is the nearest one");
}

// --- formats -----------------------------------------------------------------------------------

// Any text is a format, for printing and for scanning; the kinds of the arguments change with it.
void expectFormats(const string& given, int count, double value)
{
    if (asksForMuch(given)) return;
    const char16_t* const format = given.c_str();
    const formatArgument values[] = {
        count % 100, value, given, count, u'x', static_cast<const void*>(format), value};
    for (std::size_t passed = 0; passed <= std::size(values); ++passed) {
        const std::span<const formatArgument> arguments(values, passed);
        string whole;
        formatText(whole, format, arguments);
        char16_t room[256];
        const int printed = formatText(room, std::size(room), format, arguments);
        const bool fits = whole.size() <= std::size(room);
        expect(printed == (fits ? static_cast<int>(whole.size()) : -1),
               "a bounded print tells whether the text fitted");
        expect(whole.compare(0, std::size(room), room, std::min(whole.size(), std::size(room))) ==
                   0,
               "and writes as much of it as fits");
        text unbounded(whole.size() + 1, u'#');
        expect(formatTextUnbounded(unbounded.data(), format, arguments) ==
                       static_cast<int>(whole.size()) &&
                   unbounded == whole + u'\0',
               "the unbounded print writes the same and a terminator");
    }
}

void expectScan(const string& format, const string& from)
{
    int whole = 7;
    double number = 7;
    string word(u"seven");
    const int count = scanText(from.c_str(), format.c_str(), whole, number, word);
    expect(count >= 0 && count <= 3, "a scan fills no more than its targets");
    if (format.find(u'n') != format.npos) return; // "%n" fills a target and is no field
    expect(count >= 1 || (number == 7 && word == u"seven"),
           "targets that were not reached keep their values");
    expect(count >= 3 || word == u"seven", "the last one too");
}

} // namespace

void conversions(bytes given)
{
    tests::machine::renew(); // it keeps each call of the seam, the locks of the registry too
    const string whole = textOf(given);
    expectTexts(whole);
    expectFormats(whole, static_cast<int>(given.size()), 1.5);
    const std::size_t middle = whole.size() / 2;
    expectScan(whole.substr(0, middle), whole.substr(middle));
    expectScan(u"%d %lf%3s", whole);
    input numbers(given);
    const auto bits = numbers.take<std::uint64_t>();
    const int width = static_cast<int>(numbers.take<std::int16_t>()) / 16;
    const double value = input(given).take<double>();
    expectNumbers(value);
    expectNumbers(static_cast<double>(static_cast<std::int64_t>(bits)) / 256);
    expectNumbers(input(given).take<float>());
    expectNumbers(static_cast<short>(bits));
    expectNumbers(static_cast<unsigned short>(bits));
    expectNumbers(static_cast<int>(bits));
    expectNumbers(static_cast<unsigned>(bits));
    expectNumbers(static_cast<long>(static_cast<std::int32_t>(bits)));
    expectNumbers(static_cast<unsigned long>(static_cast<std::uint32_t>(bits)));
    expectNumbers(static_cast<unsigned long long>(bits));
    expectNumbers(bits % 2 != 0);

    expectIntegerText(static_cast<short>(bits), width);
    expectIntegerText(static_cast<unsigned short>(bits), width);
    expectIntegerText(static_cast<int>(bits), width);
    expectIntegerText(static_cast<unsigned>(bits), width);
    expectIntegerText(static_cast<long>(static_cast<std::int32_t>(bits)), width);
    expectIntegerText(static_cast<unsigned long>(static_cast<std::uint32_t>(bits)), width);
    expectIntegerText(static_cast<unsigned long long>(bits), width);
    expectDoubleText(value, width);
    expectDoubleText(static_cast<double>(static_cast<std::int64_t>(bits)) / 1e9, width);
}

} // namespace orlo::fuzz
