// UTF-8 to UTF-16 code units and back, the same on every system.
#pragma once

#include <cstddef>

namespace orlo::platform {

// Units for bytes; `units` has room for one unit a byte. Each maximal part of a bad sequence
// becomes one U+FFFD. Gives the number of units.
std::size_t decodeUtf8Bytes(const unsigned char* bytes, std::size_t length, char16_t* units);

// Bytes for units; `bytes` has room for three bytes a unit. Each half of a surrogate pair that
// stands alone becomes EF BF BD. Gives the number of bytes.
std::size_t encodeUtf8Units(const char16_t* units, std::size_t length, char* bytes);

// What stands at the front of some bytes: a code point and its length, or badSequence and the
// length of the longest part that could have begun one.
struct utf8Sequence {
    static constexpr char32_t badSequence = 0xFFFFFFFF;
    char32_t codePoint;
    std::size_t length;
};
// `length` is at least 1.
utf8Sequence readUtf8Sequence(const unsigned char* bytes, std::size_t length);

// Writes a code point as one or two units and gives the end.
char16_t* writeCodePoint(char32_t codePoint, char16_t* units);

constexpr bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace orlo::platform
