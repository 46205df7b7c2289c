#include "orlonumberscan.h"

#include "orlounit.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

namespace orlo {

namespace {

const char16_t* skipSpace(const char16_t* text)
{
    while (isSpaceUnit(*text)) ++text;
    return text;
}

// Takes a sign; true for a minus.
bool takeSign(const char16_t*& text)
{
    if (*text != u'-' && *text != u'+') return false;
    return *text++ == u'-';
}

constexpr unsigned noDigit = 36;

unsigned digitValue(char16_t unit)
{
    if (isDigitUnit(unit)) return static_cast<unsigned>(unit - u'0');
    const char16_t lower = lowerUnit(unit);
    return lower >= u'a' && lower <= u'z' ? static_cast<unsigned>(lower - u'a' + 10) : noDigit;
}

bool beginsHexadecimal(const char16_t* text)
{
    return text[0] == u'0' && lowerUnit(text[1]) == u'x' && digitValue(text[2]) < 16;
}

// The base that the digits tell, where none is given.
unsigned baseOf(const char16_t* digits)
{
    if (beginsHexadecimal(digits)) return 16;
    return digits[0] == u'0' ? 8 : 10;
}

template <class Target>
bool scanUnsigned(const char16_t* text, Target& value)
{
    wholeNumber number;
    if (readWhole(text, 10, number) == nullptr) return false;
    value = static_cast<Target>(number.unsignedLimitedTo(std::numeric_limits<Target>::digits));
    return true;
}

// Digits of a plain decimal number such as "12.5", gathered without its separator.
struct plainDecimal {
    std::uint64_t digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    const char16_t* end = nullptr;
};

plainDecimal readPlain(const char16_t* text)
{
    plainDecimal read;
    const auto takeDigits = [&] {
        const char16_t* const first = text;
        for (; isDigitUnit(*text); ++text)
            read.digits = read.digits * 10 + static_cast<std::uint64_t>(*text - u'0');
        return static_cast<std::size_t>(text - first);
    };
    read.count = takeDigits();
    if (*text == u'.') {
        ++text;
        read.decimals = takeDigits();
        read.count += read.decimals;
    }
    read.end = text;
    return read;
}

// Up to 15 digits and a power of ten up to 22 are exact doubles, so that one division gives
// the nearest value. Exponents, hexadecimal forms and long numbers go the general way.
const char16_t* readShort(const char16_t* text, double& magnitude)
{
    static constexpr double powers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const plainDecimal read = readPlain(text);
    const char16_t next = lowerUnit(*read.end);
    if (read.count == 0 || read.count >= std::size(powers) || next == u'e' || next == u'x')
        return nullptr;
    magnitude = static_cast<double>(read.digits) / powers[read.decimals];
    return read.end;
}

// Units that may be part of a number, as bytes: letters too, for exponents and "infinity".
class narrowNumber {
public:
    explicit narrowNumber(const char16_t* text)
    {
        std::size_t length = 0;
        while (canBelong(text[length])) ++length;
        if (length > m_short.size()) m_long.resize(length);
        char* const begin = length > m_short.size() ? m_long.data() : m_short.data();
        std::transform(text, text + length, begin,
                       [](char16_t unit) { return static_cast<char>(unit); });
        m_view = {begin, length};
    }
    narrowNumber(const narrowNumber&) = delete;
    narrowNumber& operator=(const narrowNumber&) = delete;
    [[nodiscard]] std::string_view view() const { return m_view; }

private:
    static bool canBelong(char16_t unit)
    {
        return digitValue(unit) != noDigit || unit == u'.' || unit == u'+' || unit == u'-';
    }

    std::array<char, 64> m_short;
    std::string m_long;
    std::string_view m_view;
};

// The decimal number behind an exponent's letter; a double, since it may have any length.
double readExponent(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    double exponent = 0;
    for (std::size_t at = 0; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        exponent = exponent * 10 + (text[at] - '0');
    }
    return negative ? -exponent : exponent;
}

// Whether a number that no double holds is too large rather than too small. Such a number is
// far from 1, so the place of its first digit and the exponent tell.
bool isBeyondOne(std::string_view text, std::chars_format form)
{
    const bool hexadecimal = form == std::chars_format::hex;
    const std::size_t end =
        text.find_first_not_of(hexadecimal ? "0123456789abcdefABCDEF." : "0123456789.");
    const std::string_view digits = text.substr(0, end);
    const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<double>(digits.find_first_not_of("0."));

    const char16_t mark = end < text.size() ? lowerUnit(static_cast<char16_t>(text[end])) : u'\0';
    const double exponent =
        mark == (hexadecimal ? u'p' : u'e') ? readExponent(text.substr(end + 1)) : 0;
    return (point - first) * (hexadecimal ? 4 : 1) + exponent > 0;
}

// Value of unsigned text in the given form; returns its length, 0 if it does not begin with a
// number.
std::size_t readForm(std::string_view text, std::chars_format form, double& magnitude)
{
    const auto read = std::from_chars(text.data(), text.data() + text.size(), magnitude, form);
    if (read.ec == std::errc::invalid_argument) return 0;
    if (read.ec == std::errc::result_out_of_range) {
        magnitude = isBeyondOne(text, form) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return static_cast<std::size_t>(read.ptr - text.data());
}

// Behind "0x" only a digit, or a separator and a digit, go on with the number.
bool beginsHexadecimalForm(std::string_view text)
{
    const auto isHexadecimal = [text](std::size_t at) {
        return at < text.size() && digitValue(static_cast<char16_t>(text[at])) < 16;
    };
    const bool marked = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    return marked && (isHexadecimal(2) || (text[2] == '.' && isHexadecimal(3)));
}

const char16_t* readGeneral(const char16_t* text, double& magnitude)
{
    const narrowNumber number(text);
    // No number goes on at a second sign, but std::from_chars takes "p+-1" for an exponent.
    const std::string_view view = number.view().substr(0, number.view().find("+-"));
    if (view.starts_with('-')) return nullptr;
    const bool hexadecimal = beginsHexadecimalForm(view);
    const std::size_t mark = hexadecimal ? 2 : 0;
    const auto form = hexadecimal ? std::chars_format::hex : std::chars_format::general;
    const std::size_t length = readForm(view.substr(mark), form, magnitude);
    return length == 0 ? nullptr : text + mark + length;
}

} // namespace

std::int64_t wholeNumber::limitedTo(int bits) const
{
    const std::uint64_t mostNegative = std::uint64_t{1} << (bits - 1);
    const std::uint64_t limited = std::min(magnitude, negative ? mostNegative : mostNegative - 1);
    return static_cast<std::int64_t>(negative ? 0 - limited : limited);
}

std::uint64_t wholeNumber::unsignedLimitedTo(int bits) const
{
    const std::uint64_t most = ~std::uint64_t{0} >> (64 - bits);
    if (tooLarge || magnitude > most) return most;
    return negative ? (0 - magnitude) & most : magnitude;
}

const char16_t* readWhole(const char16_t* text, unsigned base, wholeNumber& number)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    text = skipSpace(text);
    number.negative = takeSign(text);
    if (base == 0) base = baseOf(text);
    if (base == 16 && beginsHexadecimal(text)) text += 2;

    const char16_t* const first = text;
    for (unsigned digit = digitValue(*text); digit < base; digit = digitValue(*++text)) {
        number.tooLarge = number.tooLarge || number.magnitude > (most - digit) / base;
        number.magnitude = number.tooLarge ? most : number.magnitude * base + digit;
    }
    return text == first ? nullptr : text;
}

const char16_t* readDouble(const char16_t* text, double& value)
{
    text = skipSpace(text);
    const bool negative = takeSign(text);
    double magnitude = 0;
    const char16_t* end = readShort(text, magnitude);
    if (end == nullptr) end = readGeneral(text, magnitude);
    if (end != nullptr) value = negative ? -magnitude : magnitude;
    return end;
}

bool scanLong(const char16_t* text, std::int32_t& value)
{
    wholeNumber number;
    if (readWhole(text, 10, number) == nullptr) return false;
    value = static_cast<std::int32_t>(number.limitedTo(32));
    return true;
}

bool scanUnsignedLong(const char16_t* text, std::uint32_t& value)
{
    return scanUnsigned(text, value);
}

bool scanUnsignedLongLong(const char16_t* text, std::uint64_t& value)
{
    return scanUnsigned(text, value);
}

bool scanDouble(const char16_t* text, double& value)
{
    return readDouble(text, value) != nullptr;
}

std::int32_t scanHexadecimal(const char16_t* text)
{
    wholeNumber number;
    return readWhole(text, 16, number) == nullptr ? 0
                                                  : static_cast<std::int32_t>(number.limitedTo(32));
}

} // namespace orlo
