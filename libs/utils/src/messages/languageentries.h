// What the text of a language file says: entries, names of files to include, commands. Nothing
// here knows of a disk.
#pragma once

#include "orlostring.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace orlo {

inline constexpr std::u16string_view blanks = u" \t";
inline constexpr std::u16string_view includeMark = u"#include";

// Walks through the lines of a text. A line ends behind its line feed, or after 1,023 units:
// a longer one comes in pieces, each a line of its own. What follows a zero unit in a line is
// not seen.
class languageLines {
public:
    static constexpr std::size_t maxLine = 1023;

    explicit languageLines(std::u16string_view text);
    // False, with `line` untouched, at the end.
    bool next(std::u16string_view& line);
    // The number of the current line as an editor counts, from 1: pieces of a line share it.
    [[nodiscard]] std::size_t number() const { return m_number; }

private:
    std::u16string_view m_rest;
    std::size_t m_number = 0;
    bool m_complete = true;  // the current line has come with its line feed
    bool m_hasZeros = false; // nearly no text has one
};

// The text of an entry on one line, and what the line holds beside it.
//
//   a;b;c         a;b    dropped "c", a comment
//   "a ; b " c    a ; b  dropped " c", quoted and closed
struct languageValue {
    std::u16string_view text;
    std::u16string_view dropped; // behind the last ";", or behind the last quote
    bool quoted = false;
    bool closed = false; // by a second quote
    bool comment = false;
};
languageValue readLanguageValue(std::u16string_view line);

// What a line that is not empty is to the entries of its text.
struct languageStep {
    enum class kind { begins, continues, comment, keyAlone };
    kind what = kind::comment;
    std::u16string_view key;   // the first word, of a line that continues nothing
    std::u16string_view value; // of a line that begins or continues an entry, as it stands there
    bool goesOn = false;       // it ends in a "\", which neither of them holds
    std::size_t line = 0;
};

// Walks through the lines of a text that are not empty.
class languageSteps {
public:
    explicit languageSteps(std::u16string_view text) : m_lines(text) {}
    // False, with `step` as it was, at the end.
    bool next(languageStep& step);

private:
    languageLines m_lines;
    bool m_open = false; // an entry waits for one more line
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
    explicit languageEntries(std::u16string_view text) : m_steps(text) {}
    // False at the end, where an entry that waits for one more line is lost.
    bool next(languageEntry& entry);

private:
    languageSteps m_steps;
};

// The names in the "#include" lines, in their order.
std::vector<string> includedNames(std::u16string_view text);

// Appends what the ";;cmd(" lines say, in their order. Tabs inside stay tabs.
void readCommands(std::u16string_view text, std::vector<string>& commands);

// Without blanks and tabs in front, line ends behind and then the blanks in front of those;
// blanks between two line ends stay.
std::u16string_view trimmedLine(std::u16string_view line);

} // namespace orlo
