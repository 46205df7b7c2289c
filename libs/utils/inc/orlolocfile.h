// One language file: keys and texts, one entry a line.
#pragma once

#include "orlofile.h"
#include "orlostringtemplate.h"

#include <cstdint>
#include <forward_list>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orlo {

// A language file in memory. Its entries are read when the first key is looked up, and again
// when the time of the file or of its override file has changed. A missing or malformed file
// is never an error: it has no entries. A copy reads its include lines and entries anew. No
// lock of its own.
//
//   key    two   words  ; note       key   two   words
//   key "a ; b " ; note              key   "a ; b ", without the quotes
//   key $$other                      the text of the key `other`
//   #include more.loc                keys that are missing here are looked up in more.loc
//   ;;cmd(replace:::old:::new)       puts "new" for "old" in all texts of this file
class locFile final : public file {
public:
    // Reads the #include lines, not the entries. Names are taken from the directory of the
    // file. A file that includes itself, directly or through others, is not included again.
    explicit locFile(const file& source);
    locFile(const locFile& other);
    locFile& operator=(const locFile& other);
    locFile(locFile&&) = default;
    locFile& operator=(locFile&&) = default;
    ~locFile();

    // The text of a key, here or in an included file; false, with `text` as it was, if there
    // is none. Blanks around the key do not count.
    bool lookup(const char16_t* key, stringTemplate& text);
    // Names a second file whose entries win over those of this one.
    void setOverrideFile(const file& overrideFile);

private:
    using entryMap = std::map<string, string>;
    // A file and all that it includes, on whatever way, in one list.
    struct member {
        locFile* source;
        std::size_t outer; // index of the file that names this one
    };
    using family = std::vector<member>;
    enum class includes { skip };
    enum class finding { found, missing, unreadable };

    locFile(const file& source, includes);
    void readIncludes();
    void readOwnIncludes(family& files, std::size_t self);

    [[nodiscard]] bool needsLoad() const;
    bool load();
    bool loadEntries();
    std::optional<std::u16string> takeText();
    void loadOverride();
    void applyCommands(entryMap& entries) const;

    finding search(string& key, stringTemplate& text);
    bool searchIncludes(const string& key, stringTemplate& text);

    std::forward_list<locFile> m_includes;
    file m_overrideFile;
    std::int64_t m_overrideTime = 0;
    std::vector<string> m_commands;
    entryMap m_entries;
    std::int64_t m_fileTime = 0;
    std::optional<std::u16string> m_unloaded; // the text, from the include lines to the first load
    std::int64_t m_unloadedTime = 0;
};

} // namespace orlo
