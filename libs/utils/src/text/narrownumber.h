// Doubles as narrow text, for those who print them in units.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

namespace orlo {

// No double has more than 1074 decimals or 767 digits: what lies behind are zeros.
inline constexpr std::size_t exactDecimals = 1100;
// Sign, 309 digits, separator, decimals.
using narrowBuffer = std::array<char, exactDecimals + 350>;

// Text of a double with `precision` decimals or digits, at most exactDecimals of them.
inline std::string_view printNarrow(narrowBuffer& room, double value, std::chars_format form,
                                    std::size_t precision)
{
    const auto decimals = static_cast<int>(std::min(precision, exactDecimals));
    const char* const end =
        std::to_chars(room.data(), room.data() + room.size(), value, form, decimals).ptr;
    return {room.data(), static_cast<std::size_t>(end - room.data())};
}

// ASCII text as units; returns their end.
inline char16_t* widen(std::string_view narrow, char16_t* out)
{
    return std::transform(narrow.begin(), narrow.end(), out,
                          [](char byte) { return static_cast<char16_t>(byte); });
}

} // namespace orlo
