// A path, and the questions about it that files and directories share.
#pragma once

#include "orlostring.h"

namespace orlo {

// A path as it is stored; an empty path stands for nothing and answers every question with
// no. Nothing is cached: each question asks the system again. Entries are plain values and
// are not destroyed through a base pointer.
class fsEntry {
public:
    // Stores `path` as it comes, or, if `second` is not empty, both joined and normalised.
    // With `trailing` a path that is not empty ends in one backslash.
    fsEntry(const string& path, const string& second, bool trailing);
    fsEntry(const fsEntry&) = default;
    fsEntry& operator=(const fsEntry&) = default;
    fsEntry(fsEntry&&) = default;
    fsEntry& operator=(fsEntry&&) = default;

    [[nodiscard]] const string& path() const { return m_path; }
    [[nodiscard]] bool trailingSeparator() const { return m_trailingSeparator; }
    // Stores the text as it comes, ending in one backslash where the entry keeps one.
    void setPath(const string& newPath);

    // Something of this path is there, whatever it is.
    [[nodiscard]] virtual bool exists() const;
    // A network path, or a drive that the system calls remote.
    [[nodiscard]] virtual bool isRemote() const;
    virtual bool rename(const string& newName) = 0;

protected:
    ~fsEntry() = default;
    enum class joining { always };
    // Always joins and normalises.
    fsEntry(joining, const string& base, const string& name, bool trailing);

    string m_path;
    bool m_trailingSeparator;
};

} // namespace orlo
