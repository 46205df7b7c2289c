// A file by its path, and the search for files in a directory.
#pragma once

#include "orloentrysearch.h"
#include "orlofilestatus.h"
#include "orlofsentry.h"
#include "orlotypeconvert.h"

#include <cstdint>

namespace orlo {

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

// A running search for files: it is itself the current hit, with an empty path at the end.
//
//   auto hit = folder.findFiles(u"*.xml", skipHiddenAndSystem);
//   for (; !hit.path().empty(); hit.next()) use(hit);
//
// Hits come in the system's order and never include directories. Who deletes a hit takes a copy
// of it and moves on before, so that the search never stands on a missing file.
class fileSearch : public file {
public:
    fileSearch(const fsEntry& where, const string& pattern, std::uint32_t skipAttributes);
    // Moves to the next hit, or leaves the path empty.
    void next();

private:
    void takeHit();

    string m_hitPrefix;
    detail::entrySearch m_search;
};

namespace detail {
typeconvert::converterList fileConverters();
inline typeconvert::converterGroup fileConverterGroup{fileConverters()};
} // namespace detail

} // namespace orlo
