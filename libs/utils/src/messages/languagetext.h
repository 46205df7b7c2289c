// The text of a language file, read whole from the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orlo {

class file;
struct fileStatus;

// The decoded content of a file: FF FE in front means UTF-16 (least byte first), EF BB BF
// UTF-8, anything else the platform's rule for files without a mark. A carriage return in
// front of a line feed is dropped. What could not be read to its end is cut there. No value if
// the file does not exist, can't be opened, or does not fit into the memory.
std::optional<std::u16string> readLanguageText(const file& source);

// The same for who has just asked for the file's status.
std::optional<std::u16string> readLanguageText(const file& source,
                                               const std::optional<fileStatus>& status);

// The same for a text that is only of use if this word of ASCII stands in it: most often the
// bytes show that it does not, and then there is no value either.
std::optional<std::u16string> readLanguageTextWith(std::string_view word, const file& source);

} // namespace orlo
