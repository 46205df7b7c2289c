#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

namespace orlo::platform {

namespace {

struct visitor {
    bool (*visit)(window found, void* context);
    void* context;
};

BOOL CALLBACK visitWindow(HWND found, LPARAM parameter)
{
    const auto* with = reinterpret_cast<const visitor*>(parameter);
    return with->visit(found, with->context) ? TRUE : FALSE;
}

HWND handleOf(window of)
{
    return static_cast<HWND>(of);
}

} // namespace

bool enumerateWindows(bool (*visit)(window found, void* context), void* context)
{
    const visitor with{visit, context};
    return ::EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&with)) != FALSE;
}

std::uint32_t windowProcess(window of)
{
    DWORD process = 0;
    ::GetWindowThreadProcessId(handleOf(of), &process);
    return process;
}

window parentWindow(window of)
{
    return ::GetParent(handleOf(of));
}

window lastActivePopup(window of)
{
    return ::GetLastActivePopup(handleOf(of));
}

void showMessageBox(window owner, const char16_t* text, const char16_t* title, std::uint32_t style)
{
    ::MessageBoxW(handleOf(owner), wide(text), wide(title), style);
}

} // namespace orlo::platform
