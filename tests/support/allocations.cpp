#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {

// Requests until the one that fails; 0 where none is to fail.
thread_local std::size_t remaining = 0;
thread_local bool failsForGood = false;
thread_local bool hasFailed = false;
thread_local int pauses = 0;

bool mustFail() noexcept
{
    if (pauses > 0) return false;
    if (hasFailed && failsForGood) return true;
    if (remaining == 0 || --remaining > 0) return false;
    hasFailed = true;
    return true;
}

void* request(std::size_t size) noexcept
{
    if (mustFail()) return nullptr;
    return std::malloc(size > 0 ? size : 1);
}

void* demand(std::size_t size)
{
    void* const memory = request(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

} // namespace

// All forms are replaced, so that no request goes past and none meets a stranger's release.

void* operator new(std::size_t size)
{
    return demand(size);
}

void* operator new[](std::size_t size)
{
    return demand(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return request(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return request(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

namespace orlo::tests {

allocationFault::allocationFault(std::size_t nth, lasting how)
{
    hasFailed = false;
    failsForGood = how == lasting::forGood;
    remaining = nth;
}

allocationFault::~allocationFault()
{
    remaining = 0;
    hasFailed = false;
}

bool allocationFault::hasHappened() const
{
    return hasFailed;
}

allocationPause::allocationPause()
{
    ++pauses;
}

allocationPause::~allocationPause()
{
    --pauses;
}

} // namespace orlo::tests
