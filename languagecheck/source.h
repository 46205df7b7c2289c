// Reading a language file for the checks: its bytes, whether they are a text, and the text as the
// library reads it.
#pragma once

#include "orlofile.h"
#include "report.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orlo::languagecheck {

// Larger files are not looked into: no translator writes so much.
inline constexpr std::int64_t largestFile = std::int64_t{64} * 1024 * 1024;

// A file on disk, and its name as the user should see it.
struct namedFile {
    file where;
    string shown;
};

struct source : namedFile {
    std::u16string text;
};

// Reports a file that can't be read or is no text, a missing mark and bad bytes. No value if
// there is nothing to look into.
std::optional<source> readSource(const namedFile& from, report& findings);

} // namespace orlo::languagecheck
