#include "platform/platform.h"

#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace orlo::platform {

namespace {

// Less would spare few pages, and the call has its price.
constexpr std::size_t leastSize = std::size_t{4} << 20;

} // namespace

void expectFilling(void* block, std::size_t size)
{
    if (size < leastSize) return;
    const auto pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t firstPage = (begin + pageSize - 1) / pageSize * pageSize;
    const std::uintptr_t lastPage = (begin + size) / pageSize * pageSize;
    // A system without large pages refuses, and nothing is lost.
    ::madvise(reinterpret_cast<void*>(firstPage), lastPage - firstPage, MADV_HUGEPAGE);
}

// A block that was freed leaves its room at the end of the heap, as pages that nothing has touched:
// the next blocks are cut from these. Heaps map large blocks outside at first, and take them
// in only when one of the size has been freed; so it takes two.
void expectAllocations(std::size_t size)
{
    if (size < leastSize) return;
    for (int block = 0; block < 2; ++block) {
        void* const room = std::malloc(size);
        if (room != nullptr) expectFilling(room, size);
        std::free(room);
    }
}

// What stands around the aligned part goes back.
void* newLargeBlock(std::size_t size)
{
    const std::size_t mapped = size + largeBlockAlignment;
    void* const memory =
        ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return nullptr;
    auto* const begin = static_cast<char*>(memory);
    const std::size_t before =
        largeBlockAlignment - reinterpret_cast<std::uintptr_t>(memory) % largeBlockAlignment;
    ::munmap(begin, before);
    if (before < largeBlockAlignment) ::munmap(begin + before + size, largeBlockAlignment - before);
    ::madvise(begin + before, size, MADV_HUGEPAGE);
    return begin + before;
}

void deleteLargeBlock(void* block, std::size_t size)
{
    ::munmap(block, size);
}

} // namespace orlo::platform
