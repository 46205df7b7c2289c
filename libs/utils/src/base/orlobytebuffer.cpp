#include "orlobytebuffer.h"

#include "platform/platform.h"

#include <cstring>
#include <utility>

namespace orlo {

void byteBuffer::reserve(std::size_t capacity)
{
    if (m_capacity < capacity) grow(capacity);
}

void byteBuffer::append(const void* bytes, std::size_t count)
{
    if (count == 0) return;
    // The old block lives until the copy is made: the bytes may come from there.
    const block old = m_capacity - m_size < count ? grow(m_size + count) : nullptr;
    std::memcpy(m_data.get() + m_size, bytes, count);
    m_size += count;
}

byteBuffer::block byteBuffer::grow(std::size_t capacity)
{
    block larger(new unsigned char[capacity]);
    platform::expectFilling(larger.get(), capacity);
    if (m_size != 0) std::memcpy(larger.get(), m_data.get(), m_size);
    m_capacity = capacity;
    return std::exchange(m_data, std::move(larger));
}

} // namespace orlo
