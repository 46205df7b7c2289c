// Reading of numbers in front of a zero-terminated text, by the scanf rules of the "C" locale.
#pragma once

#include <cstdint>

namespace orlo {

// As scanf reads "%ld", "%lu", "%llu" and "%lf": leading white space and a sign are taken, the
// reading stops at the first unit that can't go on, a number beyond the type becomes the nearest
// limit. False, with `value` untouched, if no number stands there. "%lu" and "%llu" take a minus
// sign and negate in their width. scanDouble takes "." as the only separator, and also "inf",
// "nan" and hexadecimal forms.
[[nodiscard]] bool scanLong(const char16_t* text, std::int32_t& value);
[[nodiscard]] bool scanUnsignedLong(const char16_t* text, std::uint32_t& value);
[[nodiscard]] bool scanUnsignedLongLong(const char16_t* text, std::uint64_t& value);
[[nodiscard]] bool scanDouble(const char16_t* text, double& value);

// Value of hexadecimal digits as wcstol reads them with base 16: white space, a sign and a
// leading "0x" are taken, 0 where no digit stands, limits beyond 32 bits.
std::int32_t scanHexadecimal(const char16_t* text);

// A whole number in as many bits as there are; what is larger than 64 bits hold is their limit.
struct wholeNumber {
    bool negative = false;
    bool tooLarge = false;
    std::uint64_t magnitude = 0;

    // The value, or the nearest limit of as many bits (1 to 64). Unsigned, a minus sign negates
    // within them.
    [[nodiscard]] std::int64_t limitedTo(int bits) const;
    [[nodiscard]] std::uint64_t unsignedLimitedTo(int bits) const;
};

// The same readings for those who read on behind the number: they return its end, or null if
// no number stands there. Base 0 takes the base from the digits: "0x1f", "017", "19".
const char16_t* readWhole(const char16_t* text, unsigned base, wholeNumber& number);
const char16_t* readDouble(const char16_t* text, double& value);

} // namespace orlo
