#include "orloentrysearch.h"

#include "platform/platform.h"

#include <utility>

namespace orlo::detail {

entrySearch::entrySearch(std::uint32_t skipAttributes, std::uint32_t neededAttributes)
    : m_handle(platform::noSearch), m_skipAttributes(skipAttributes),
      m_neededAttributes(neededAttributes)
{}

entrySearch::entrySearch(entrySearch&& other) noexcept
    : m_handle(std::exchange(other.m_handle, platform::noSearch)),
      m_skipAttributes(other.m_skipAttributes), m_neededAttributes(other.m_neededAttributes),
      m_name(std::move(other.m_name))
{}

entrySearch::~entrySearch()
{
    if (m_handle != platform::noSearch) platform::findClose(m_handle);
}

bool entrySearch::start(const string& pattern)
{
    platform::searchHit hit;
    m_handle = platform::findFirst(pattern, m_skipAttributes | m_neededAttributes, hit);
    return m_handle != platform::noSearch && accept(hit);
}

bool entrySearch::next()
{
    if (m_handle == platform::noSearch) return false;
    platform::searchHit hit;
    hit.name.swap(m_name); // the name's memory serves again
    while (platform::findNext(m_handle, hit)) {
        if (accept(hit)) return true;
    }
    return false;
}

bool entrySearch::accept(platform::searchHit& hit)
{
    const bool wanted = (hit.attributes & m_skipAttributes) == 0 &&
                        (hit.attributes & m_neededAttributes) == m_neededAttributes &&
                        hit.name != u"." && hit.name != u"..";
    if (wanted) m_name.swap(hit.name);
    return wanted;
}

} // namespace orlo::detail
