// The command of the toolpath side: where does a platform really stand?
#pragma once

#include "switches.h"

namespace taven {

// Answers with a small XML document at the path that the caller names: the platform's
// coordinate system and its inverse, or a message for the user. 1 if a document was written,
// else 0.
std::int32_t getncs(bool debug, int argumentCount, const char16_t* const* argumentValues);

} // namespace taven
