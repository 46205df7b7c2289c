// An ordered list of directories in which a file is looked for by name.
#pragma once

#include "orlodirectory.h"

#include <vector>

namespace orlo {

class file;

// Directories in search order, each once when ASCII case is ignored. Entries are not tested
// again after they were added. Its text form joins the paths by ";".
class searchPath {
public:
    // Appends the directory unless it is there already.
    void addDirectory(const directory& entry);
    [[nodiscard]] bool containsDirectory(const directory& entry) const;
    [[nodiscard]] const std::vector<directory>& directories() const { return m_directories; }

    // The first directory (file) in which `name` exists as a file; with `recursive` the tree
    // below an entry is searched, depth first, before the next entry; hidden and system folders
    // there are passed over, and so is a folder that lies in itself by way of a link. False,
    // with `out` unchanged, if there is none. The name may hold sub-folders.
    bool findInDirectories(const string& name, directory& out, bool recursive) const;
    bool findFile(const string& name, file& out, bool recursive) const;

    // Appends the directories of a text: pieces between delimiters, those that begin with a
    // dot taken from `base`, missing directories dropped.
    void parse(const string& text, const directory& base, char16_t delimiter);

private:
    std::vector<directory> m_directories;
};

namespace detail {
typeconvert::converterList searchPathConverters();
inline typeconvert::converterGroup searchPathConverterGroup{searchPathConverters()};
} // namespace detail

} // namespace orlo
