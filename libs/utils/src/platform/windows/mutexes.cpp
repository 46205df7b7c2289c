#include "platform/platform.h"
#include "platform/windows/system.h"

namespace orlo::platform {

void* createMutex()
{
    return ::CreateMutexW(nullptr, FALSE, nullptr);
}

bool lockMutex(void* mutex)
{
    return ::WaitForSingleObject(mutex, INFINITE) != WAIT_FAILED;
}

void unlockMutex(void* mutex)
{
    ::ReleaseMutex(mutex);
}

void destroyMutex(void* mutex)
{
    if (mutex != nullptr) ::CloseHandle(mutex);
}

} // namespace orlo::platform
