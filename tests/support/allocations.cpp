#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {

// Requests until the one that fails; 0 where none is to fail.
thread_local std::size_t remaining = 0;

void* request(std::size_t size) noexcept
{
    if (remaining > 0 && --remaining == 0) return nullptr;
    return std::malloc(size > 0 ? size : 1);
}

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = request(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return request(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

namespace orlo::tests {

allocationFault::allocationFault(std::size_t nth)
{
    remaining = nth;
}

allocationFault::~allocationFault()
{
    remaining = 0;
}

bool allocationFault::hasHappened() const
{
    return remaining == 0;
}

} // namespace orlo::tests
