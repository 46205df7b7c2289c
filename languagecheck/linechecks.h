// What can be told of a language file from its lines alone.
#pragma once

#include "report.h"
#include "source.h"

namespace orlo::languagecheck {

// Lines that are too long, keys alone or twice, comments where none was meant, quotes that don't
// close, continuations that meet the end, commands that are not known, and texts that lose their
// second character to the severity.
void checkLines(const source& from, report& findings);

} // namespace orlo::languagecheck
