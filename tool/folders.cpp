#include "folders.h"

#include "orlopath.h"
#include "orloreport.h"

namespace taven {

bool takeFolder(orlo::directory& folder, const orlo::string& switchText, bool debug,
                const char16_t* missingReport)
{
    folder = orlo::directory(orlo::normalizePath(switchText, false));
    if (folder.exists()) return true;
    if (debug) orlo::reportMessage(missingReport, folder.path());
    return false;
}

} // namespace taven
