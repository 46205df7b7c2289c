#include "platform/utf8codec.h"

#include <cstdint>
#include <cstring>

namespace orlo::platform {

namespace {

constexpr char16_t replacementUnit = 0xFFFD;

// Most texts are ASCII for long runs, so both directions look at a block of input at once; the
// loops over a block have no branch, and compilers make vector operations of them.
constexpr std::ptrdiff_t blockLength = 32;

// Copies a block through registers; false, with nothing copied, if not all of it is ASCII.
template <class From, class To>
bool copyAsciiBlock(const From* from, To* to)
{
    std::uint16_t all = 0;
    for (std::ptrdiff_t i = 0; i < blockLength; ++i) all |= from[i];
    if (all >= 0x80) return false;
    To block[blockLength];
    for (std::ptrdiff_t i = 0; i < blockLength; ++i) block[i] = static_cast<To>(from[i]);
    std::memcpy(to, block, sizeof block);
    return true;
}

template <class From, class To>
void copyAscii(const From*& from, const From* end, To*& to)
{
    const From* at = from;
    To* out = to;
    for (; end - at >= blockLength && copyAsciiBlock(at, out); at += blockLength)
        out += blockLength;
    while (at != end && *at < 0x80) *out++ = static_cast<To>(*at++);
    from = at;
    to = out;
}

// How many bytes a lead byte announces behind itself; 0 for a byte that leads nothing.
constexpr std::size_t trailingBytes(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : 0;
}

constexpr bool isBetween(unsigned char byte, unsigned char first, unsigned char last)
{
    return byte >= first && byte <= last;
}

// The second byte alone shows over-long forms, surrogates and what lies beyond U+10FFFF.
constexpr bool mayFollow(unsigned char lead, unsigned char second)
{
    switch (lead) {
    case 0xE0: return isBetween(second, 0xA0, 0xBF);
    case 0xED: return isBetween(second, 0x80, 0x9F);
    case 0xF0: return isBetween(second, 0x90, 0xBF);
    case 0xF4: return isBetween(second, 0x80, 0x8F);
    default: return isBetween(second, 0x80, 0xBF);
    }
}

constexpr char trailingByte(char32_t codePoint, int shift)
{
    return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
}

// A code point beyond ASCII.
char* writeUtf8(char32_t codePoint, char* to)
{
    if (codePoint < 0x800) {
        *to++ = static_cast<char>(0xC0 | (codePoint >> 6));
    } else if (codePoint < 0x10000) {
        *to++ = static_cast<char>(0xE0 | (codePoint >> 12));
        *to++ = trailingByte(codePoint, 6);
    } else {
        *to++ = static_cast<char>(0xF0 | (codePoint >> 18));
        *to++ = trailingByte(codePoint, 12);
        *to++ = trailingByte(codePoint, 6);
    }
    *to++ = trailingByte(codePoint, 0);
    return to;
}

// Takes one unit, or both of a pair.
char32_t readUnits(const char16_t*& from, const char16_t* end)
{
    const char16_t unit = *from++;
    if (isLowSurrogate(unit)) return replacementUnit;
    if (!isHighSurrogate(unit)) return unit;
    if (from == end || !isLowSurrogate(*from)) return replacementUnit;
    const char32_t high = unit - 0xD800u;
    const char32_t low = *from++ - 0xDC00u;
    return 0x10000u + (high << 10 | low);
}

} // namespace

utf8Sequence readUtf8Sequence(const unsigned char* bytes, std::size_t length)
{
    const unsigned char lead = bytes[0];
    if (lead < 0x80) return {lead, 1};
    const std::size_t trailing = trailingBytes(lead);
    if (trailing == 0 || length < 2 || !mayFollow(lead, bytes[1]))
        return {utf8Sequence::badSequence, 1};

    char32_t codePoint = static_cast<char32_t>(lead & (0x3F >> trailing)) << 6 | (bytes[1] & 0x3F);
    for (std::size_t i = 2; i <= trailing; ++i) {
        if (i == length || !isBetween(bytes[i], 0x80, 0xBF)) return {utf8Sequence::badSequence, i};
        codePoint = codePoint << 6 | (bytes[i] & 0x3F);
    }
    return {codePoint, trailing + 1};
}

char16_t* writeCodePoint(char32_t codePoint, char16_t* units)
{
    if (codePoint >= 0x10000) {
        const char32_t rest = codePoint - 0x10000;
        *units++ = static_cast<char16_t>(0xD800 + (rest >> 10));
        *units++ = static_cast<char16_t>(0xDC00 + (rest & 0x3FF));
    } else {
        *units++ = static_cast<char16_t>(codePoint);
    }
    return units;
}

std::size_t decodeUtf8Bytes(const unsigned char* bytes, std::size_t length, char16_t* units)
{
    const unsigned char* const end = bytes + length;
    char16_t* to = units;
    for (copyAscii(bytes, end, to); bytes != end; copyAscii(bytes, end, to)) {
        const utf8Sequence next = readUtf8Sequence(bytes, static_cast<std::size_t>(end - bytes));
        to = writeCodePoint(
            next.codePoint == utf8Sequence::badSequence ? replacementUnit : next.codePoint, to);
        bytes += next.length;
    }
    return static_cast<std::size_t>(to - units);
}

std::size_t encodeUtf8Units(const char16_t* units, std::size_t length, char* bytes)
{
    const char16_t* const end = units + length;
    char* to = bytes;
    for (copyAscii(units, end, to); units != end; copyAscii(units, end, to)) {
        to = writeUtf8(readUnits(units, end), to);
    }
    return static_cast<std::size_t>(to - bytes);
}

} // namespace orlo::platform
