#include "xml/xmlsource.h"

#include "platform/utf8codec.h"

#include <algorithm>
#include <cstdint>

namespace orlo {

namespace {

using place = byteText::place;

// Long runs are looked at in blocks. The loop has no branch, so that compilers make vector
// operations of it.
constexpr std::ptrdiff_t blockBytes = 64;

bool blockHolds(place block, unsigned char byte)
{
    unsigned char any = 0;
    for (std::ptrdiff_t i = 0; i < blockBytes; ++i)
        any = static_cast<unsigned char>(any | (block[i] == byte ? 0xFF : 0));
    return any != 0;
}

bool isAscii(place at, place end)
{
    std::uint64_t all = 0;
    for (; end - at >= byteWord::size; at += byteWord::size) all |= byteWord::at(at);
    for (; at != end; ++at) all |= *at;
    return (all & byteWord::highBits) == 0;
}

} // namespace

byteText::byteText(const unsigned char* bytes, std::size_t length, const byteUnits* table)
    : m_begin(bytes), m_end(find(bytes, bytes + length, 0)), m_table(table)
{}

place byteText::passBlocks(place at, place end, char16_t unit)
{
    while (end - at >= blockBytes && !blockHolds(at, static_cast<unsigned char>(unit)))
        at += blockBytes;
    return at;
}

std::u16string_view byteText::units(place begin, place end, string& work) const
{
    const auto most = static_cast<std::size_t>(end - begin);
    if (work.size() < most) work.resize(most);
    return {work.data(), decodeTo(work.data(), begin, end)};
}

void byteText::decode(place begin, place end, string& units) const
{
    units.resize(static_cast<std::size_t>(end - begin));
    units.resize(decodeTo(units.data(), begin, end));
}

// `units` has room for a unit a byte.
std::size_t byteText::decodeTo(char16_t* units, place begin, place end) const
{
    // Most names and values are short.
    constexpr std::ptrdiff_t shortLength = 16;
    place at = begin;
    char16_t* to = units;
    if (end - begin < shortLength)
        while (at != end && *at < 0x80) *to++ = *at++;
    if (at == end) return static_cast<std::size_t>(to - units);
    if (m_table == nullptr)
        to += platform::decodeUtf8Bytes(at, static_cast<std::size_t>(end - at), to);
    else
        to = std::transform(at, end, to, [this](unsigned char byte) { return (*m_table)[byte]; });
    return static_cast<std::size_t>(to - units);
}

bool byteText::spells(place begin, place end, const string& name) const
{
    if (isAscii(begin, end)) return std::equal(begin, end, name.begin(), name.end());
    string units;
    decode(begin, end, units);
    return units == name;
}

} // namespace orlo
