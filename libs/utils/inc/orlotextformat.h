// Printing and scanning of texts by the printf rules of the "C" locale, with typed
// arguments: nothing is ever read that was not passed.
#pragma once

#include "orlostring.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orlo {

// One value for a conversion. A `long` counts as 32 bits. Texts are not copied: they must
// outlive the call that prints them; a null text prints as nothing.
class formatArgument {
public:
    enum class kind { integer, unsignedInteger, floating, unit, text };

    formatArgument(short value) : m_kind(kind::integer) { m_value.integer = value; }
    formatArgument(int value) : m_kind(kind::integer) { m_value.integer = value; }
    formatArgument(long value) : m_kind(kind::integer)
    {
        m_value.integer = static_cast<std::int32_t>(value);
    }
    formatArgument(long long value) : m_kind(kind::integer), m_bits(64) { m_value.integer = value; }
    formatArgument(unsigned short value) : m_kind(kind::unsignedInteger)
    {
        m_value.unsignedInteger = value;
    }
    formatArgument(unsigned value) : m_kind(kind::unsignedInteger)
    {
        m_value.unsignedInteger = value;
    }
    formatArgument(unsigned long value) : m_kind(kind::unsignedInteger)
    {
        m_value.unsignedInteger = static_cast<std::uint32_t>(value);
    }
    formatArgument(unsigned long long value) : m_kind(kind::unsignedInteger), m_bits(64)
    {
        m_value.unsignedInteger = value;
    }
    formatArgument(double value) : m_kind(kind::floating) { m_value.floating = value; }
    formatArgument(char16_t value) : m_kind(kind::unit) { m_value.unit = value; }
    formatArgument(const char16_t* value) : m_kind(kind::text) { m_value.text = value; }
    formatArgument(const string& value) : m_kind(kind::text) { m_value.text = value.c_str(); }

    [[nodiscard]] kind type() const { return m_kind; }
    // Width of an integer when no length letter is given: 32 or 64.
    [[nodiscard]] int bits() const { return m_bits; }
    // The value as the type that a conversion needs: integers convert into each other and to
    // floating, floating is cut towards zero, a text where a number is needed counts as 0.
    [[nodiscard]] std::int64_t asInteger() const;
    [[nodiscard]] double asFloating() const;
    [[nodiscard]] const char16_t* asText() const
    {
        return m_kind == kind::text ? m_value.text : nullptr;
    }

private:
    kind m_kind;
    int m_bits = 32;
    union {
        std::int64_t integer;
        std::uint64_t unsignedInteger;
        double floating;
        char16_t unit;
        const char16_t* text;
    } m_value;
};

// Appends the formatted text to `out`. Conversions: % d i o u x X c C s S e E f F g G with
// the flags, width, precision and length letters of printf. A "*" counts for nothing, "%n"
// and unknown letters print nothing, and a conversion without an argument prints nothing.
// A width or precision above 2147483647 makes its conversion print nothing.
void formatText(string& out, const char16_t* format, std::span<const formatArgument> arguments);

// The same into a caller's buffer: writes at most `capacity` units, with a terminator only
// where there is room for it. Returns the number of units written, or -1 if the text was cut.
int formatText(char16_t* buffer, std::size_t capacity, const char16_t* format,
               std::span<const formatArgument> arguments);

// Text of a double with exactly `precision` decimals and "." as separator; infinities and
// NaN read "inf", "-inf", "nan" and "-nan". Returns the end of the text; `buffer` has room
// for 350 units behind the precision.
char16_t* printFixed(char16_t* buffer, double value, int precision);
// The same with at most 8 decimals: trailing zeros and a trailing separator are removed.
// Without memory the text stays as it was.
void printNumber(string& to, double value);

// Scans of a zero-terminated text, as scanf reads "%ld", "%lu", "%llu" and "%lf": leading white
// space and a sign are taken, the reading stops at the first unit that can't go on, a number
// beyond the type becomes the nearest limit. False, with `value` untouched, if no number
// stands there. "%lu" and "%llu" take a minus sign and negate in their width. scanDouble
// takes "." as the only separator, and also "inf", "nan" and hexadecimal forms.
[[nodiscard]] bool scanLong(const char16_t* text, std::int32_t& value);
[[nodiscard]] bool scanUnsignedLong(const char16_t* text, std::uint32_t& value);
[[nodiscard]] bool scanUnsignedLongLong(const char16_t* text, std::uint64_t& value);
[[nodiscard]] bool scanDouble(const char16_t* text, double& value);

// Scans `text` by a format of "%d" and literal units, such as "%d-%d-%dZ"; gives the number
// of fields read. Fields that were not reached keep their values.
int scanIntegers(const char16_t* text, const char16_t* format, std::span<std::int32_t> fields);

// Value of hexadecimal digits as wcstol reads them with base 16: white space, a sign and a
// leading "0x" are taken, 0 where no digit stands, limits beyond 32 bits.
std::int32_t scanHexadecimal(const char16_t* text);

} // namespace orlo
