#include "xml/slotblocks.h"

#include "platform/platform.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace orlo {

namespace {

constexpr std::size_t leastSlots = 4;
constexpr std::size_t mostBytes = std::size_t{8} << 20;

// Stands in front of the slots of a block.
struct alignas(16) blockHead {
    // Slots with an object, and those that were not handed out so far.
    std::atomic<std::uint32_t> inUse;
};

void letGo(blockHead& block, std::uint32_t slots) noexcept
{
    if (block.inUse.fetch_sub(slots, std::memory_order_acq_rel) != slots) return;
    block.~blockHead();
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
    const std::size_t slots = std::clamp(m_total / 2, leastSlots, mostBytes / m_slotBytes);
    const std::size_t bytes = sizeof(blockHead) + slots * m_slotBytes;
    void* const memory = ::operator new(bytes);
    platform::expectFilling(memory, bytes);
    m_room = static_cast<std::uint32_t>(slots);
    new (memory) blockHead{m_room};
    m_next = static_cast<char*>(memory) + sizeof(blockHead);
    m_taken = 0;
    m_total += slots;
}

void slotBlocks::giveBack(const slot& given, std::size_t slotBytes) noexcept
{
    char* const first = static_cast<char*>(given.memory) - (given.number - 1) * slotBytes;
    letGo(*reinterpret_cast<blockHead*>(first - sizeof(blockHead)), 1);
}

} // namespace orlo
