#include "platform/platform.h"
#include "platform/windows/system.h"

namespace orlo::platform {

// Large pages take a privilege here that users don't have.
void expectFilling(void*, std::size_t) {}
void expectAllocations(std::size_t) {}

void* newLargeBlock(std::size_t size)
{
    return ::VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void deleteLargeBlock(void* block, std::size_t)
{
    ::VirtualFree(block, 0, MEM_RELEASE);
}

} // namespace orlo::platform
