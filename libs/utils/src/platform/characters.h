// The small part of the seam that knows no text of this library: what the runtime library's
// character locale makes of narrow text and of the case of letters.
#pragma once

#include <cstddef>

namespace orlo::platform {

// True under the "C" character locale, where bytes are units of the same value and only ASCII
// letters have a case: the callers then need no other question. It only looks at a name that
// is there anyway.
bool isPlainCharacterLocale();

// A unit in lower (upper) case under the character locale in force; one without is itself.
char16_t lowerCaseOf(char16_t unit);
char16_t upperCaseOf(char16_t unit);

// Units for narrow text under the character locale in force, up to the first zero byte;
// `units` has room for one unit a byte. Returns the number of units. Bytes that can't be
// converted end the text.
std::size_t widenText(const char* narrow, char16_t* units);

} // namespace orlo::platform
