// The content of a file, read or written in one go.
#pragma once

#include "orlofile.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace orlo {

// Byte-order marks, which tell in front of a content how its text is encoded.
inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view utf16Mark = "\xFF\xFE"; // the least byte of a unit first

struct fileContent {
    std::unique_ptr<unsigned char[]> bytes;
    std::size_t size = 0;
};

// None where the system tells nothing: there is no such file, as a rule.
[[nodiscard]] std::optional<fileStatus> statusOf(const file& source);

enum class readResult {
    whole,
    unopened, // told before a lack of memory
    withoutMemory,
    cutShort, // `content` holds what came
};

// Reads the first `size` bytes of a file: all that the system tells of, as a rule.
[[nodiscard]] readResult readContent(const file& source, std::size_t size, fileContent& content);

// Makes these bytes the whole content of a file, or returns false: what was there before is
// lost all the same once the file could be opened.
[[nodiscard]] bool writeContent(const file& target, const void* bytes, std::size_t size);

} // namespace orlo
