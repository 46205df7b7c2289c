// What the text of a language file says: entries, names of files to include, commands. Nothing
// here knows of a disk.
#pragma once

#include "orlostring.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace orlo {

// Walks through the lines of a text. A line ends behind its line feed, or after 1,023 units:
// a longer one comes in pieces, each a line of its own. What follows a zero unit in a line is
// not seen.
class languageLines {
public:
    static constexpr std::size_t maxLine = 1023;

    explicit languageLines(std::u16string_view text) : m_rest(text) {}
    // False, with `line` untouched, at the end.
    bool next(std::u16string_view& line);
    // The number of the current line as an editor counts, from 1: pieces of a line share it.
    [[nodiscard]] std::size_t number() const { return m_number; }

private:
    std::u16string_view m_rest;
    std::size_t m_number = 0;
    bool m_complete = true; // the current line has come with its line feed
};

// One entry: its value is put together from all its lines, without quotes and comments.
//
//   key  "first \        line 1    { key, first second, 1 }
//        "second" ; x    line 2
struct languageEntry {
    string key;
    string value;
    std::size_t line = 0; // on which it begins
};

// Walks through the entries of a text in their order, keys that come again included. Lines
// that make no entry are passed over.
class languageEntries {
public:
    explicit languageEntries(std::u16string_view text) : m_lines(text) {}
    // False at the end, where an entry that waits for one more line is lost.
    bool next(languageEntry& entry);

private:
    bool nextLine();
    bool startEntry(languageEntry& entry) const;

    languageLines m_lines;
    std::u16string_view m_line; // without blanks around it and without its "\"
    bool m_continues = false;   // it had one
};

// The names in the "#include" lines, in their order.
std::vector<string> includedNames(std::u16string_view text);

// Appends what the ";;cmd(" lines say, in their order. Tabs inside stay tabs.
void readCommands(std::u16string_view text, std::vector<string>& commands);

// Without blanks and tabs in front, line ends behind and then the blanks in front of those;
// blanks between two line ends stay.
std::u16string_view trimmedLine(std::u16string_view line);

} // namespace orlo
