#include "platform/platform.h"
#include "platform/utf8codec.h"

#include <algorithm>

namespace orlo::platform {

namespace {

// Windows-1252 has its own characters at 80 to 9F; five places are free and stay controls.
constexpr char16_t windows1252Controls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char16_t windows1252Unit(unsigned char byte)
{
    return byte >= 0x80 && byte <= 0x9F ? windows1252Controls[byte - 0x80] : byte;
}

} // namespace

std::size_t decode(encoding from, const void* bytes, std::size_t length, char16_t* units)
{
    const auto* source = static_cast<const unsigned char*>(bytes);
    if (from != encoding::ansi) return decodeUtf8Bytes(source, length, units);
    std::transform(source, source + length, units, windows1252Unit);
    return length;
}

std::size_t encodeUtf8(const char16_t* units, std::size_t length, char* bytes)
{
    return encodeUtf8Units(units, length, bytes);
}

} // namespace orlo::platform
