#include "platform/platform.h"
#include "platform/utf8codec.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <limits>

namespace orlo::platform {

namespace {

constexpr std::size_t longestText = std::numeric_limits<int>::max();

std::size_t decodeAnsi(const char* bytes, std::size_t length, char16_t* to)
{
    if (length > longestText) return 0;
    const int count = static_cast<int>(length);
    return static_cast<std::size_t>(
        ::MultiByteToWideChar(CP_ACP, 0, bytes, count, wide(to), count));
}

} // namespace

std::size_t decode(encoding from, const void* bytes, std::size_t length, char16_t* units)
{
    // UTF-8 is decoded here and not by the system, whose versions differ on bad sequences.
    if (from == encoding::utf8)
        return decodeUtf8Bytes(static_cast<const unsigned char*>(bytes), length, units);
    return decodeAnsi(static_cast<const char*>(bytes), length, units);
}

std::size_t encodeUtf8(const char16_t* units, std::size_t length, char* bytes)
{
    return encodeUtf8Units(units, length, bytes);
}

} // namespace orlo::platform
