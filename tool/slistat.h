// The command of the slicing software: keeps the taven folder in step with a slicing run.
#pragma once

#include "switches.h"

namespace taven {

// At both ends of a run wipes what is known of the platform; at a good end brings in its
// description and picture. 1 if it went through to the copying, else 0.
std::int32_t slistat(bool debug, int argumentCount, const char16_t* const* argumentValues);

} // namespace taven
