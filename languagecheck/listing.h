// What each key would show.
#pragma once

#include "textchecks.h"

#include <string>

namespace orlo::languagecheck {

// The file, its keys in their order and below each one its text, with its places filled by samples,
// as UTF-8. With a reference the values are those of its places, as the program would give them:
// a place that is missing then shows what becomes of its value.
std::string listing(const language& of, const language* reference);

} // namespace orlo::languagecheck
