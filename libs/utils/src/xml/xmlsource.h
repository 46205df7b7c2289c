// The two kinds of text that the reader of element trees takes as they stand: units that end with
// a zero, and bytes of which the end is known. All markup is ASCII, and no byte of another
// character looks like ASCII, so that only names, values and texts need be decoded.
#pragma once

#include "orlostring.h"

#include <array>
#include <cstddef>
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
    // The units themselves.
    void decode(place begin, place end, string& units) const { units.assign(viewOf(begin, end)); }
    [[nodiscard]] string decoded(place begin, place end) const
    {
        return string(viewOf(begin, end));
    }
    [[nodiscard]] bool spells(place begin, place end, const string& name) const
    {
        return viewOf(begin, end) == std::u16string_view(name);
    }

private:
    static std::u16string_view viewOf(place begin, place end)
    {
        return {begin, static_cast<std::size_t>(end - begin)};
    }
};

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
    void decode(place begin, place end, string& units) const;
    // Takes no more memory than the units need.
    [[nodiscard]] string decoded(place begin, place end) const;
    [[nodiscard]] bool spells(place begin, place end, const string& name) const;

private:
    static place find(place at, place end, char16_t unit);

    place m_end;
    const byteUnits* m_table;
};

} // namespace orlo
