#include "platform/platform.h"
#include "platform/windows/system.h"

#include <cstdint>

// What the compiler's checks of stack and buffers stand on. The compiler's own library has the
// same, but draws its guard from a DLL that nothing else here needs, at a cost at each start.

namespace {

// Differs from run to run, by the clocks and by the addresses that the system chose.
std::uintptr_t makeGuard()
{
    LARGE_INTEGER ticks;
    FILETIME now;
    ::QueryPerformanceCounter(&ticks);
    ::GetSystemTimeAsFileTime(&now);
    auto guard = reinterpret_cast<std::uintptr_t>(&ticks);
    guard ^= static_cast<std::uintptr_t>(ticks.QuadPart) << 24;
    guard ^= static_cast<std::uintptr_t>(now.dwLowDateTime) << 16 ^ now.dwHighDateTime;
    guard ^= static_cast<std::uintptr_t>(::GetCurrentProcessId()) << 40;
    // A text that runs over its end can't bring the terminator in front along.
    return guard << 8;
}

} // namespace

extern "C" {
std::uintptr_t __stack_chk_guard = makeGuard();

[[noreturn]] void __stack_chk_fail()
{
    orlo::platform::endAbnormally();
    for (;;) {
    }
}

[[noreturn]] void __chk_fail()
{
    __stack_chk_fail();
}
}
