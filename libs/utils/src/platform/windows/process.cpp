#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <direct.h>
#include <stdlib.h>

namespace orlo::platform {

namespace {

constexpr int directoryRoom = 260;
// The exit code that the runtime library's own abnormal end gives.
constexpr UINT abnormalExit = 3;

} // namespace

bool currentDirectory(string& path)
{
    char16_t buffer[directoryRoom];
    if (::_wgetcwd(wide(buffer), directoryRoom) == nullptr) return false;
    path = buffer;
    return true;
}

int currentDrive()
{
    return ::_getdrive();
}

bool environmentVariable(const char16_t* name, string& value)
{
    const wchar_t* found = ::_wgetenv(wide(name)); // `value` may hold the name
    value.clear();
    if (found == nullptr) return false;
    value = units(found);
    return true;
}

void* findModule(const string& name)
{
    return ::GetModuleHandleW(name.empty() ? nullptr : wide(name));
}

std::size_t modulePath(void* module, char16_t* units, std::size_t capacity)
{
    const auto room = static_cast<DWORD>(capacity);
    const DWORD length = ::GetModuleFileNameW(static_cast<HMODULE>(module), wide(units), room);
    // A path that was cut gives up its last unit for the terminator.
    return length < room || length == 0 ? length : length - 1;
}

std::uint32_t processId()
{
    return ::GetCurrentProcessId();
}

void endAbnormally()
{
    // An abort of the runtime library would speak or show a dialog first.
    ::TerminateProcess(::GetCurrentProcess(), abnormalExit);
    for (;;) ::Sleep(INFINITE);
}

} // namespace orlo::platform
