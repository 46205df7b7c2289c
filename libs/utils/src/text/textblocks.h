// Collects text that comes in small pieces, and hands it on in large ones.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <span>
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
    // Where the caller may write the next units himself: at least one.
    std::span<char16_t> room()
    {
        if (m_used == blockUnits) handOn();
        return std::span(m_units).subspan(m_used);
    }
    // How many of them he has written.
    void keep(std::size_t count) { m_used += count; }
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
        char16_t* const to = m_units.data() + m_used;
        if (text.size() >= 8)
            putEnds<8>(text, to);
        else if (text.size() >= 4)
            putEnds<4>(text, to);
        else
            for (std::size_t at = 0; at < text.size(); ++at) to[at] = text[at];
        m_used += text.size();
    }
    // Of at most twice `Count` units: the first and the last ones, which may overlap.
    template <std::size_t Count>
    static void putEnds(std::u16string_view text, char16_t* to)
    {
        const std::size_t last = text.size() - Count;
        std::memcpy(to, text.data(), Count * sizeof *to);
        std::memcpy(to + last, text.data() + last, Count * sizeof *to);
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
