// Searches through long runs of text, a block of units at a time: a whole block is compared
// without a branch, which compilers turn into a few vector operations.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orlo {

inline constexpr std::ptrdiff_t unitsPerBlock = 16;

inline bool blockHas(const char16_t* block, char16_t a, char16_t b)
{
    std::uint16_t found = 0;
    for (std::ptrdiff_t i = 0; i < unitsPerBlock; ++i)
        found = static_cast<std::uint16_t>(found | (block[i] == a) | (block[i] == b));
    return found != 0;
}

// Passes over whole blocks that hold neither unit; the rest is for the caller to search.
inline const char16_t* skipBlocks(const char16_t* at, const char16_t* end, char16_t a, char16_t b)
{
    while (end - at >= unitsPerBlock && !blockHas(at, a, b)) at += unitsPerBlock;
    return at;
}

} // namespace orlo
