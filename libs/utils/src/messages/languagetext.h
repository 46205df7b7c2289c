// The text of a language file, read whole and taken apart into lines.
#pragma once

#include "orlofile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orlo {

// The decoded content of a file: FF FE in front means UTF-16 (least byte first), EF BB BF
// UTF-8, anything else the platform's rule for files without a mark. A carriage return in
// front of a line feed is dropped. No value if the file does not exist or can't be opened.
struct languageText {
    std::u16string units;
    std::int64_t modificationTime; // of the file, before it was read
};
std::optional<languageText> readLanguageText(const file& source);

// Walks through the lines of a text. A line ends behind its line feed, or after 1,023 units:
// a longer one comes in pieces, each a line of its own. What follows a zero unit in a line is
// not seen.
class lineReader {
public:
    static constexpr std::size_t maxLine = 1023;

    explicit lineReader(std::u16string_view text) : m_rest(text) {}
    // False, with `line` untouched, at the end.
    bool next(std::u16string_view& line);

private:
    std::u16string_view m_rest;
};

inline constexpr std::u16string_view blanks = u" \t";
inline constexpr std::u16string_view lineEnds = u"\r\n";

std::u16string_view trimmedLeft(std::u16string_view text, std::u16string_view set);
std::u16string_view trimmedRight(std::u16string_view text, std::u16string_view set);
// Without line ends and then without the blanks in front of them. Blanks between two line
// ends stay.
std::u16string_view trimmedLineEnd(std::u16string_view line);

} // namespace orlo
