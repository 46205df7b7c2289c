// A directory by its path, and the search for its subdirectories.
#pragma once

#include "orloentrysearch.h"
#include "orlofsentry.h"
#include "orlotypeconvert.h"

#include <cstdint>

namespace orlo {

class directorySearch;
class fileSearch;

// The entry of a directory; its path always ends in one backslash. Directories are neither
// made nor deleted here.
class directory : public fsEntry {
public:
    // Stores `path` with its final backslash, or both joined and normalised if `second` is
    // not empty. The empty path is no directory.
    explicit directory(const string& path = string::emptyString(),
                       const string& second = string::emptyString());

    // Normalises the text and ends it in one backslash.
    void setPath(const string& newPath);
    // Gives the directory another name in its parent and takes that path over; false, with
    // nothing changed, if the system refuses.
    bool rename(const string& newName) override;

    // Searches of this level, by a pattern with "*" and "?", without entries that have a bit
    // of `skipAttributes`.
    [[nodiscard]] fileSearch findFiles(const string& pattern, std::uint32_t skipAttributes) const;
    [[nodiscard]] directorySearch findDirectories(const string& pattern,
                                                  std::uint32_t skipAttributes) const;
};

// A running search for subdirectories: it is itself the current hit, with an empty path at
// the end. "." and ".." are never hits.
class directorySearch : public directory {
public:
    directorySearch(const directory& where, const string& pattern, std::uint32_t skipAttributes);
    // Moves to the next hit, or leaves the path empty.
    void next();

private:
    string m_basePath;
    detail::entrySearch m_search;
};

namespace detail {
typeconvert::converterList directoryConverters();
inline typeconvert::converterGroup directoryConverterGroup{directoryConverters()};
} // namespace detail

} // namespace orlo
