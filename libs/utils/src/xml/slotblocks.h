// Memory for many objects of one size.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orlo {

// Hands out places for objects of one size, one behind the other in blocks that grow with the
// number of objects, up to 4 MiB. A place is not used twice: a block goes back to the heap with the
// last of its objects, whichever thread lets that go, and lives no longer. So an object that
// outlives its neighbours holds their memory too, but of one block alone.
class slotBlocks {
public:
    struct slot {
        void* memory;
        std::uint32_t number; // in its block, from 1
    };

    // The size is a multiple of 8.
    explicit slotBlocks(std::size_t slotBytes) : m_slotBytes(slotBytes) {}
    slotBlocks(const slotBlocks&) = delete;
    slotBlocks& operator=(const slotBlocks&) = delete;
    ~slotBlocks();

    // Aligned for pointers; running out of memory is std::bad_alloc.
    slot take()
    {
        if (m_taken == m_room) addBlock();
        return {m_next + m_slotBytes * m_taken++, m_taken};
    }
    // The object is gone.
    static void giveBack(const slot& given, std::size_t slotBytes) noexcept;

private:
    void addBlock();

    std::size_t m_slotBytes;
    char* m_next = nullptr;    // the first slot of the block in use
    std::uint32_t m_room = 0;  // of that block
    std::uint32_t m_taken = 0; // of that room
    std::size_t m_total = 0;   // of all blocks
};

} // namespace orlo
