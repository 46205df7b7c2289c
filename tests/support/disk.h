// The files and directories of the machine in memory, by the rules of Windows: names without
// regard to ASCII case, a read-only file is neither written nor deleted, an open one neither
// deleted nor renamed. Paths are absolute here, with "\" or "/".
#pragma once

#include "orlofilestatus.h"
#include "orlostring.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::tests {

struct diskEntry {
    string name;
    std::uint32_t attributes = 0;
    std::uint64_t number = 0; // in the order in which the entries were made
    std::int64_t modificationTime = 0;
    std::string bytes;
    int openCount = 0;
    std::map<std::uint64_t, std::shared_ptr<diskEntry>> children; // by number
    std::map<string, std::uint64_t> numbers; // of the children, by lower-case name

    [[nodiscard]] bool isDirectory() const { return (attributes & attributeSubdirectory) != 0; }
    [[nodiscard]] bool isReadOnly() const { return (attributes & attributeReadOnly) != 0; }
    [[nodiscard]] std::shared_ptr<diskEntry> child(const string& childName) const;
};
using entryPointer = std::shared_ptr<diskEntry>;

class disk {
public:
    // Null if nothing is there.
    [[nodiscard]] entryPointer find(const string& path) const;

    // Made where they are missing, with all directories above them.
    entryPointer provideDirectory(const string& path);
    entryPointer provideFile(const string& path);

    // What a program can do; null or false if Windows would refuse.
    entryPointer emptiedFile(const string& path, std::int64_t now);
    bool remove(const string& path);
    bool rename(const string& from, const string& to);
    bool copy(const string& source, const string& target, bool failIfExists, std::int64_t now);

    // Paths of all files, sorted.
    [[nodiscard]] std::vector<string> files() const;

private:
    struct place; // a directory, and a name in it
    [[nodiscard]] place placeOf(const string& path) const;
    entryPointer addChild(diskEntry& parent, const string& name, std::uint32_t attributes);
    static void attach(diskEntry& parent, const entryPointer& entry);
    static void detach(diskEntry& parent, const diskEntry& entry);

    diskEntry m_roots; // the drives and servers are its children
    std::uint64_t m_made = 0;
};

// A file's name against a pattern with "*" and "?"; "*.*" matches all, and a final ".*" also a
// name without an extension.
bool matchesPattern(std::u16string_view pattern, std::u16string_view name);

} // namespace orlo::tests
