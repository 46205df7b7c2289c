// One language file: keys and texts, one entry a line.
#pragma once

#include "orlofile.h"

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace orlo {

class stringTemplate;

// A language file in memory. Its entries are read at the first look-up, and again at a later
// one if the time of the file or of its override file has changed or if it had no entries. A
// missing or malformed file, or one that does not fit into the memory, is never an error: what
// can't be read is not there. A copy reads its include lines and entries anew. No lock of its
// own.
//
//   key    two   words  ; note       key   two   words
//   key "a ; b " ; note              key   "a ; b ", without the quotes
//   key $$other                      the text of the key `other`
//   #include more.loc                keys that are missing here are looked up in more.loc
//   ;;cmd(replace:::old:::new)       puts "new" for "old" in all texts of this file
class locFile final : public file {
public:
    // Reads the #include lines, once and for all, but not the entries. Names are taken from the
    // directory of the file; a name of a file in `seen`, whatever its case, is passed over, and
    // so is a line by which a file would include itself, directly or through others.
    explicit locFile(const file& source, const std::vector<file>& seen = {});
    locFile(const locFile& other);
    locFile& operator=(const locFile& other);
    locFile(locFile&&) = default;
    locFile& operator=(locFile&&) = default;
    ~locFile();

    // The text of a key, here or in an included file; false, with `text` as it was, if there
    // is none. Blanks around the key do not count; a null key is the empty one.
    bool lookup(const char16_t* key, stringTemplate& text);
    // Names a second file whose entries win over those of this one, from the next look-up on.
    void setOverrideFile(const file& overrideFile);

private:
    struct keyOrder { // by unit, as that of the texts themselves, but many units at a time
        bool operator()(std::u16string_view a, std::u16string_view b) const;
    };
    // Copies of keys and values side by side, as a large file has very many of them. Behind each
    // stands a zero. They stay until all go.
    class textStore {
    public:
        // Makes room for copies of so many units at once; there may come more.
        void expect(std::size_t units);
        std::u16string_view keep(std::u16string_view text);
        void clear();

    private:
        std::vector<std::unique_ptr<char16_t[]>> m_blocks;
        char16_t* m_free = nullptr; // in the last of them
        std::size_t m_left = 0;
    };
    using entryMap = std::map<std::u16string_view, std::u16string_view, keyOrder>;
    struct walk; // over a file and those that it includes
    enum class includes { none };

    locFile(includes, const file& source);
    bool refresh();
    bool load(std::optional<fileStatus> found);
    bool readEntries(const std::optional<fileStatus>& found);
    void loadOverride();
    void applyCommands(locFile& target) const;
    void forgetEntries();

    std::forward_list<locFile> m_includes;
    file m_overrideFile;
    std::int64_t m_overrideTime = 0;
    std::vector<string> m_commands;
    textStore m_texts;
    entryMap m_entries; // of texts in m_texts
    std::int64_t m_fileTime = 0;
};

} // namespace orlo
