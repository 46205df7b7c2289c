// What the searches for files and for directories share.
#pragma once

#include "orlostring.h"

#include <cstdint>

namespace orlo {

namespace platform {
struct searchHit;
}

namespace detail {

// A search of the system that is closed when it goes, and the choice of its hits by
// attributes. "." and ".." are never hits.
class entrySearch {
public:
    // Hits have no bit of `skipAttributes` and all bits of `neededAttributes`.
    entrySearch(std::uint32_t skipAttributes, std::uint32_t neededAttributes);
    entrySearch(entrySearch&& other) noexcept;
    entrySearch& operator=(entrySearch&&) = delete;
    ~entrySearch();

    // Called once; false if the very first entry that the pattern matches is no hit, or if
    // there is none.
    bool start(const string& pattern);
    // Moves to the next hit; false at the end.
    bool next();
    // Of the current hit.
    [[nodiscard]] const string& name() const { return m_name; }

private:
    bool accept(platform::searchHit& hit);

    std::intptr_t m_handle;
    std::uint32_t m_skipAttributes;
    std::uint32_t m_neededAttributes;
    string m_name;
};

} // namespace detail

} // namespace orlo
