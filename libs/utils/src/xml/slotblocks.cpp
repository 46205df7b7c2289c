#include "xml/slotblocks.h"

#include "platform/platform.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace orlo {

namespace {

constexpr std::size_t leastSlots = 4;

constexpr std::size_t largeBlock = 2 * platform::largeBlockAlignment;

// Stands in front of the slots of a block.
struct alignas(16) blockHead {
    // Slots with an object, and those that were not handed out so far.
    std::atomic<std::uint32_t> inUse;
    bool isLarge;
};

void* newBlock(std::size_t bytes, bool isLarge)
{
    if (!isLarge) return ::operator new(bytes);
    void* const block = platform::newLargeBlock(bytes);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void letGo(blockHead& block, std::uint32_t slots) noexcept
{
    if (block.inUse.fetch_sub(slots, std::memory_order_acq_rel) != slots) return;
    const bool isLarge = block.isLarge;
    block.~blockHead();
    if (isLarge)
        platform::deleteLargeBlock(&block, largeBlock);
    else
        ::operator delete(&block);
}

} // namespace

slotBlocks::~slotBlocks()
{
    if (m_taken != m_room)
        letGo(*reinterpret_cast<blockHead*>(m_next - sizeof(blockHead)), m_room - m_taken);
}

void slotBlocks::addBlock()
{
    const std::size_t wanted = sizeof(blockHead) + std::max(m_total, leastSlots) * m_slotBytes;
    const bool isLarge = wanted >= largeBlock / 2;
    const std::size_t bytes = isLarge ? largeBlock : wanted;
    void* const memory = newBlock(bytes, isLarge);
    m_room = static_cast<std::uint32_t>((bytes - sizeof(blockHead)) / m_slotBytes);
    new (memory) blockHead{m_room, isLarge};
    m_next = static_cast<char*>(memory) + sizeof(blockHead);
    m_taken = 0;
    m_total += m_room;
}

void slotBlocks::giveBack(const slot& given, std::size_t slotBytes) noexcept
{
    char* const first = static_cast<char*>(given.memory) - (given.number - 1) * slotBytes;
    letGo(*reinterpret_cast<blockHead*>(first - sizeof(blockHead)), 1);
}

} // namespace orlo
