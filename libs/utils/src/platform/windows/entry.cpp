#include "orloentry.h"

#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <stdlib.h>

#include <exception>

namespace {

// The tool may run where nobody sits: nothing of the system or of the runtime library may open
// a dialog and wait.
void silenceSystem()
{
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    ::_set_error_mode(_OUT_TO_STDERR);
    std::set_terminate(orlo::platform::endAbnormally);
}

const char16_t* const* unitsOf(wchar_t** arguments)
{
    return reinterpret_cast<const char16_t* const*>(arguments);
}

} // namespace

extern "C" int wmain(int argumentCount, wchar_t** arguments)
{
    silenceSystem();
    return runEntry(argumentCount, unitsOf(arguments));
}
