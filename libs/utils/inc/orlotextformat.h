// Printing of texts by the wide printf rules of the "C" locale, with typed arguments: nothing is
// ever read that was not passed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace orlo {

// One value for a conversion. A `long` counts as 32 bits, but for the length letters of 64 bits
// it gives all that it has. Texts are not copied: they must outlive the call that prints them; a
// null text prints as nothing. A size or a difference of pointers is of one of these types.
class formatArgument {
public:
    enum class kind { integer, unsignedInteger, floating, unit, text, pointer };

    formatArgument(short value) : m_kind(kind::integer) { m_value.integer = value; }
    formatArgument(int value) : m_kind(kind::integer) { m_value.integer = value; }
    formatArgument(long value) : m_kind(kind::integer) { m_value.integer = value; }
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
        m_value.unsignedInteger = value;
    }
    formatArgument(unsigned long long value) : m_kind(kind::unsignedInteger), m_bits(64)
    {
        m_value.unsignedInteger = value;
    }
    formatArgument(double value) : m_kind(kind::floating) { m_value.floating = value; }
    formatArgument(char16_t value) : m_kind(kind::unit) { m_value.unit = value; }
    formatArgument(const char16_t* value) : m_kind(kind::text) { m_value.text = value; }
    formatArgument(const std::u16string& value) : formatArgument(value.c_str()) {}
    formatArgument(const void* value) : m_kind(kind::pointer), m_bits(64)
    {
        m_value.unsignedInteger = reinterpret_cast<std::uintptr_t>(value);
    }
    formatArgument(std::nullptr_t) : formatArgument(static_cast<const char16_t*>(nullptr)) {}
    formatArgument(const char*) = delete; // narrow text has to be widened before

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

// Appends the formatted text to `out`, which may be among the arguments. Conversions:
// % d i o u x X c C s S e E f F g G a A p with the flags, width, precision and length letters of
// printf: hh 8 bits, h 16, l 32, ll I64 I j z t 64, I32 32; without one, 32 bits or the 64 of the
// argument's type; of several the last one counts, and texts, units and doubles have no need of
// any.
// A "*" takes its argument where one more stands behind it for the value, else it counts for
// nothing; "%n" and unknown letters print nothing, and so does a conversion without an argument.
// A width or precision above 2147483647 makes its conversion print nothing.
void formatText(std::u16string& out, const char16_t* format,
                std::span<const formatArgument> arguments);

// The same into a caller's buffer: writes at most `capacity` units, with a terminator only
// where there is room for it. Returns the number of units written, or -1 if the text was cut.
int formatText(char16_t* buffer, std::size_t capacity, const char16_t* format,
               std::span<const formatArgument> arguments);

// The same into a buffer that the caller knows to be large enough, always with a terminator.
// Returns the number of units before it.
int formatTextUnbounded(char16_t* buffer, const char16_t* format,
                        std::span<const formatArgument> arguments);

} // namespace orlo
