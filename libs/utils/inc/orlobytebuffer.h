// A growable block of bytes.
#pragma once

#include <cstddef>
#include <memory>

namespace orlo {

// Grows to the exact need of each append, so that a caller who appends often reserves first.
class byteBuffer {
public:
    explicit byteBuffer(std::size_t capacity = 0) { reserve(capacity); }
    byteBuffer(const byteBuffer&) = delete;
    byteBuffer& operator=(const byteBuffer&) = delete;

    // Makes room for `capacity` bytes in all; never shrinks.
    void reserve(std::size_t capacity);
    // Copies `count` bytes to the end; they may lie in this buffer.
    void append(const void* bytes, std::size_t count);
    [[nodiscard]] const unsigned char* data() const { return m_data.get(); }
    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] std::size_t capacity() const { return m_capacity; }

private:
    using block = std::unique_ptr<unsigned char[]>;

    // Moves the bytes to a larger block and gives the old one back.
    block grow(std::size_t capacity);

    block m_data;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

} // namespace orlo
