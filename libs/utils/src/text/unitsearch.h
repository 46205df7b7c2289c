// A search through long runs of text, which looks at many units at once. Not every runtime library
// has one that is faster than unit by unit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orlo {

namespace unitBlock {
inline constexpr std::size_t length = 32;

// The loop has no branch, so that compilers make vector operations of it.
inline bool holds(const char16_t* units, char16_t unit)
{
    std::uint16_t any = 0;
    for (std::size_t i = 0; i < length; ++i)
        any = static_cast<std::uint16_t>(any | (units[i] == unit ? 0xFFFF : 0));
    return any != 0;
}
} // namespace unitBlock

// Where `unit` stands at or behind `from`; the size of the text if nowhere.
inline std::size_t indexOfUnit(std::u16string_view text, char16_t unit, std::size_t from = 0)
{
    const std::size_t size = text.size();
    while (from + unitBlock::length <= size && !unitBlock::holds(text.data() + from, unit))
        from += unitBlock::length;
    while (from < size && text[from] != unit) ++from;
    return from < size ? from : size;
}

} // namespace orlo
