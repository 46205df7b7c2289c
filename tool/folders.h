// Folders that the command line names.
#pragma once

#include "orlodirectory.h"

namespace taven {

// Takes the folder of a switch's text, normalised. False if it does not exist; with the debug
// flag its path is reported then, in the place that the format holds.
bool takeFolder(orlo::directory& folder, const orlo::string& switchText, bool debug,
                const char16_t* missingReport);

} // namespace taven
