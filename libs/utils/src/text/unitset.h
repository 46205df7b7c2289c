// A set of units below 64, where all the marks of an XML text lie.
#pragma once

#include <cstdint>
#include <string_view>

namespace orlo {

class unitSet {
public:
    constexpr explicit unitSet(std::u16string_view units)
    {
        for (const char16_t unit : units) m_bits |= std::uint64_t{1} << unit;
    }

    [[nodiscard]] constexpr bool contains(char16_t unit) const
    {
        return unit < 64 && (m_bits >> unit & 1) != 0;
    }

private:
    std::uint64_t m_bits = 0;
};

} // namespace orlo
