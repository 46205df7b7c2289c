// The text of a language file, read whole from the disk.
#pragma once

#include <optional>
#include <string>

namespace orlo {

class file;

// The decoded content of a file: FF FE in front means UTF-16 (least byte first), EF BB BF
// UTF-8, anything else the platform's rule for files without a mark. A carriage return in
// front of a line feed is dropped. What could not be read to its end is cut there. No value if
// the file does not exist, can't be opened, or does not fit into the memory.
std::optional<std::u16string> readLanguageText(const file& source);

} // namespace orlo
