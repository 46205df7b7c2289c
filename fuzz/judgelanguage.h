// The rules of language files once more, taken literally: what the code is held against.
#pragma once

#include "orlostring.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orlo::fuzz {

// Thrown where a file includes itself, directly or through others.
struct includesItself {};

class judgedLanguageFile {
public:
    explicit judgedLanguageFile(const string& path, std::vector<string> outer = {});

    void setOverride(const string& path);
    // The text of a key before any place is filled, without severity and leading blanks; no
    // value if it is not found.
    std::optional<std::u16string> lookup(std::u16string key);

private:
    using textMap = std::map<std::u16string, std::u16string>;

    bool load();
    void readCommands(const std::vector<std::u16string>& lines);
    void readEntries(const std::vector<std::u16string>& lines);
    void takeLine(std::u16string line);
    void applyCommands(textMap& entries) const;
    void loadOverride();
    std::optional<std::u16string> search(const std::u16string& key,
                                         std::vector<std::u16string>& walked);

    string m_path;
    string m_overridePath;
    std::int64_t m_time = 0;
    std::int64_t m_overrideTime = 0;
    std::vector<judgedLanguageFile> m_includes;
    std::vector<std::u16string> m_commands;
    textMap m_entries;
    std::optional<std::pair<std::u16string, std::u16string>> m_open; // goes on in the next line
};

} // namespace orlo::fuzz
