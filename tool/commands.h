// The entry of the tool: the common switches, the language, and the choice of the command.
#pragma once

#include "switches.h"

namespace taven {

// Runs the command that the arguments name and gives the exit code of the process: that of the
// command, or 0 after a report for an unknown one.
std::int32_t runTool(const arguments& given);

} // namespace taven
