// A file by its path, and the search for files in a directory.
#pragma once

#include "orlofilestatus.h"
#include "orlofsentry.h"
#include "orlotypeconvert.h"

#include <cstdint>

namespace orlo {

class directory;

namespace platform {
struct searchHit;
}

// The entry of a file. It keeps nothing open: each operation opens, works and closes. All
// failures are a false or a zero.
class file : public fsEntry {
public:
    // Stores the path as it comes; the empty path is no file.
    explicit file(const string& path = string::emptyString());
    // Joined and normalised.
    file(const string& basePath, const string& name);
    file(const fsEntry& base, const string& name);

    // Something that is no directory is there.
    [[nodiscard]] bool exists() const override;
    // Access in the system's sense, by a mode of accessMode.
    [[nodiscard]] bool hasAccess(unsigned mode) const;
    [[nodiscard]] bool isReadable() const;
    // A missing file is created and removed again to learn the answer.
    [[nodiscard]] bool isWritable() const;
    // Copies the content; false if a path is empty or the copy fails.
    bool copyTo(const file& target, bool overwriteTarget) const;
    // Makes an empty file, never over an existing one, with the permissions of the mode's bits
    // accessWrite and accessRead.
    bool create(unsigned mode) const;
    bool stat(fileStatus& status) const;
    // Seconds since 1970; 0 if there is no file.
    [[nodiscard]] std::int64_t modificationTime() const;
    // Bytes, in 32 bits with sign; 0 if there is no file.
    [[nodiscard]] std::int32_t size() const;
    // Deletes the file; false if there is none, or a directory of this name.
    bool remove() const;
    // Gives the file another name in its directory and takes that path over. False, with
    // nothing changed, if a file of that name exists or the system refuses.
    bool rename(const string& newName) override;
};

namespace detail {

// What the searches for files and for directories share: a search of the system that is closed
// when it goes, and the choice of hits by attributes. "." and ".." are never hits.
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
    // Deletes an earlier hit; `path` is the searched directory's with the hit's name.
    [[nodiscard]] bool remove(const string& path) const;

private:
    bool accept(platform::searchHit& hit);

    std::intptr_t m_handle = -1;
    std::uint32_t m_skipAttributes;
    std::uint32_t m_neededAttributes;
    string m_name;
};

} // namespace detail

// A running search for files: it is itself the current hit, with an empty path at the end.
//
//   for (auto hit = folder.findFiles(u"*.xml", skipHiddenAndSystem); !hit.path().empty();
//   hit.next())
//
// Hits come in the system's order and never include directories.
class fileSearch : public file {
public:
    fileSearch(const directory& where, const string& pattern, std::uint32_t skipAttributes);
    // Moves to the next hit, or leaves the path empty.
    void next();
    // Moves on, and then deletes the file that was the hit, so that the search never stands on
    // a missing one. False if the system refuses. Cheaper than remove(), which starts anew.
    bool removeAndNext();

private:
    void takeHit();
    [[nodiscard]] bool isNamedAsFound() const;

    string m_hitPrefix;
    bool m_staysInDirectory; // the pattern leads to no other one
    detail::entrySearch m_search;
};

namespace detail {
typeconvert::converterList fileConverters();
inline typeconvert::converterGroup fileConverterGroup{fileConverters()};
} // namespace detail

} // namespace orlo
