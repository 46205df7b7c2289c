// Collects text that comes in small pieces, and hands it on in large ones.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string_view>
#include <utility>

namespace orlo {

// Every block that is handed on is full but for the last one. Small enough to stay in the
// processor's cache.
class textBlocks {
public:
    static constexpr std::size_t blockUnits = 4096;
    using taker = std::function<void(std::u16string_view block)>;

    explicit textBlocks(taker take) : m_take(std::move(take)) {}

    void put(std::u16string_view text)
    {
        if (text.size() <= shortText && blockUnits - m_used >= text.size())
            putShort(text);
        else
            putLong(text);
    }
    void put(char16_t unit)
    {
        if (m_used == blockUnits) handOn();
        m_units[m_used++] = unit;
    }
    // Hands on what is left.
    void finish()
    {
        if (m_used != 0) handOn();
    }

private:
    // Most names and values are too short for a call of the library's copy to pay.
    static constexpr std::size_t shortText = 16;

    void putShort(std::u16string_view text)
    {
        const char16_t* from = text.data();
        const char16_t* const end = from + text.size();
        char16_t* to = m_units.data() + m_used;
        for (; end - from >= 4; from += 4, to += 4) std::memcpy(to, from, 4 * sizeof *to);
        while (from != end) *to++ = *from++;
        m_used += text.size();
    }
    void putLong(std::u16string_view text)
    {
        while (!text.empty()) {
            if (m_used == blockUnits) handOn();
            const std::size_t count = text.copy(m_units.data() + m_used, blockUnits - m_used);
            m_used += count;
            text.remove_prefix(count);
        }
    }
    void handOn()
    {
        m_take({m_units.data(), m_used});
        m_used = 0;
    }

    taker m_take;
    std::size_t m_used = 0;
    std::array<char16_t, blockUnits> m_units;
};

} // namespace orlo
