// The two kinds of text that the reader of element trees takes as they stand: units that end with
// a zero, and bytes of which the end is known. All markup is ASCII, and no byte of another
// character looks like ASCII, so that only names, values and texts need be decoded.
#pragma once

#include "orlostring.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orlo {

// Zero-terminated units. All is asked of the places themselves.
class terminatedText {
public:
    using place = const char16_t*;

    // Zero at the end.
    [[nodiscard]] char16_t unitAt(place at) const { return *at; }
    // Where the unit stands; the end if it does not come.
    [[nodiscard]] place find(place at, char16_t unit) const
    {
        while (*at != unit && *at != 0) ++at;
        return at;
    }
    [[nodiscard]] bool holds(place begin, place end, char16_t unit) const
    {
        return viewOf(begin, end).find(unit) != std::u16string_view::npos;
    }
    // True if each place is a unit of its own, and no entity is among them. Not looked for: units
    // need no decoding.
    [[nodiscard]] static bool isPlain(place /*begin*/, place /*end*/) { return false; }
    // The units, which may lie in `work`, in front of others.
    [[nodiscard]] std::u16string_view units(place begin, place end, string& /*work*/) const
    {
        return viewOf(begin, end);
    }
    // Becomes the units.
    void decode(place begin, place end, string& units) const { units.assign(viewOf(begin, end)); }
    [[nodiscard]] bool spells(place begin, place end, const string& name) const
    {
        return viewOf(begin, end) == std::u16string_view(name);
    }
    // How much is to come for each unit before the place; the end is not known, so as much.
    [[nodiscard]] double restFor(place /*at*/) const { return 1; }

private:
    static std::u16string_view viewOf(place begin, place end)
    {
        return {begin, static_cast<std::size_t>(end - begin)};
    }
};

// Eight bytes at once.
namespace byteWord {
inline constexpr std::ptrdiff_t size = 8;
inline constexpr std::uint64_t lowBits = 0x0101010101010101;
inline constexpr std::uint64_t highBits = lowBits * 0x80;

// The first byte is the lowest.
inline std::uint64_t at(const unsigned char* bytes)
{
    std::uint64_t word = 0;
    for (int i = 0; i < size; ++i) word |= std::uint64_t{bytes[i]} << 8 * i;
    return word;
}
// The lowest bit that is set lies in the first zero byte; no bit if there is none.
constexpr std::uint64_t zeroBytes(std::uint64_t word)
{
    return (word - lowBits) & ~word & highBits;
}
// Zero if no byte is this one.
constexpr std::uint64_t bytesAlike(std::uint64_t word, char16_t byte)
{
    return zeroBytes(word ^ lowBits * byte);
}
constexpr bool isAscii(std::uint64_t word)
{
    return (word & highBits) == 0;
}
} // namespace byteWord

// What each byte of a single-byte character set stands for.
using byteUnits = std::array<char16_t, 256>;

// Bytes in UTF-8, or in a single-byte character set with ASCII in its lower half. A zero byte
// ends them as well.
class byteText {
public:
    using place = const unsigned char*;

    // Without a table the bytes are UTF-8.
    byteText(const unsigned char* bytes, std::size_t length, const byteUnits* table);

    [[nodiscard]] char16_t unitAt(place at) const { return at == m_end ? u'\0' : *at; }
    [[nodiscard]] place find(place at, char16_t unit) const { return find(at, m_end, unit); }
    [[nodiscard]] bool holds(place begin, place end, char16_t unit) const
    {
        return find(begin, end, unit) != end;
    }
    [[nodiscard]] static bool isPlain(place begin, place end)
    {
        for (; end - begin >= byteWord::size; begin += byteWord::size) {
            const std::uint64_t word = byteWord::at(begin);
            if (!byteWord::isAscii(word) || byteWord::bytesAlike(word, u'&') != 0) return false;
        }
        while (begin != end && *begin < 0x80 && *begin != '&') ++begin;
        return begin == end;
    }
    [[nodiscard]] std::u16string_view units(place begin, place end, string& work) const;
    void decode(place begin, place end, string& units) const;
    [[nodiscard]] bool spells(place begin, place end, const string& name) const;
    // How much is to come for each byte before the place.
    [[nodiscard]] double restFor(place at) const
    {
        return static_cast<double>(m_end - at) / static_cast<double>(at - m_begin);
    }

private:
    static place find(place at, place end, char16_t unit)
    {
        constexpr int nearWords = 4;
        for (int words = 0; end - at >= byteWord::size; ++words) {
            if (const auto found = byteWord::bytesAlike(byteWord::at(at), unit); found != 0)
                return at + std::countr_zero(found) / 8;
            at += byteWord::size;
            if (words == nearWords) at = passBlocks(at, end, unit);
        }
        while (at != end && *at != unit) ++at;
        return at;
    }
    // Passes blocks without the unit.
    static place passBlocks(place at, place end, char16_t unit);
    std::size_t decodeTo(char16_t* units, place begin, place end) const;

    place m_begin;
    place m_end;
    const byteUnits* m_table;
};

} // namespace orlo
