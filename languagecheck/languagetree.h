// A language file with those that it includes.
#pragma once

#include "report.h"
#include "source.h"

#include <cstddef>
#include <vector>

namespace orlo::languagecheck {

// A key where it counts: its first entry, in the order in which files are asked.
struct languageKey {
    string key;
    string value; // as it stands there: not what an alias leads to
    position where;
};

struct languageTree {
    std::vector<source> files; // the one that was named, then those below it as they are asked
    std::vector<languageKey> keys;
};

// Reads a file and, each once, all below it; reports what is wrong with their bytes and their
// "#include" lines. Without files if the first one can't be read.
languageTree readTree(const namedFile& root, report& findings);

} // namespace orlo::languagecheck
