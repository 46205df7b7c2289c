// A search through long runs of text by the runtime library's search for a byte, which looks
// at many of them at once.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace orlo {

// Where `unit`, which is below 256, stands at or behind `from`; the size of the text if nowhere.
inline std::size_t indexOfUnit(std::u16string_view text, char16_t unit, std::size_t from = 0)
{
    while (from < text.size()) {
        const auto* const bytes = reinterpret_cast<const char*>(text.data() + from);
        const void* const byte = std::memchr(bytes, unit, (text.size() - from) * sizeof(char16_t));
        if (byte == nullptr) return text.size();
        from += static_cast<std::size_t>(static_cast<const char*>(byte) - bytes) / sizeof(char16_t);
        if (text[from] == unit) return from;
        ++from; // half of another unit
    }
    return text.size();
}

} // namespace orlo
