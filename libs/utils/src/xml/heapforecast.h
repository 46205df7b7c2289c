// Lets the heap grow ahead of a large tree.
#pragma once

#include "platform/platform.h"

#include <algorithm>
#include <cstddef>

namespace orlo {

// Counts what a tree takes of the heap piece by piece. From what the text up to here took follows
// what its rest will take, and the system is told of that in portions. A tree that takes little is
// never told of.
class heapForecast {
public:
    // True if the next portion is to be told.
    bool take(std::size_t bytes)
    {
        m_taken += bytes;
        return m_taken > m_foretold;
    }
    // `restFor` tells how much text is still to come for each unit up to here.
    void foretell(double restFor)
    {
        const double rest = static_cast<double>(m_taken) * restFor;
        const auto portion = static_cast<std::size_t>(std::min(rest, most));
        platform::expectAllocations(portion);
        m_foretold = m_taken + std::max(portion, least);
    }

private:
    static constexpr double most = 24 << 20;
    static constexpr std::size_t least = std::size_t{256} << 10;

    std::size_t m_taken = 0;
    std::size_t m_foretold = least;
};

} // namespace orlo
