#include "xml/xmlsource.h"

#include "platform/utf8codec.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace orlo {

namespace {

using place = byteText::place;

// Eight bytes at once.
constexpr std::ptrdiff_t wordBytes = 8;
constexpr std::uint64_t lowBits = 0x0101010101010101;
constexpr std::uint64_t highBits = lowBits * 0x80;

std::uint64_t wordAt(place at)
{
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
}

constexpr bool hasZeroByte(std::uint64_t word)
{
    return ((word - lowBits) & ~word & highBits) != 0;
}

bool isAscii(place at, place end)
{
    std::uint64_t all = 0;
    for (; end - at >= wordBytes; at += wordBytes) all |= wordAt(at);
    for (; at != end; ++at) all |= *at;
    return (all & highBits) == 0;
}

} // namespace

byteText::byteText(const unsigned char* bytes, std::size_t length, const byteUnits* table)
    : m_end(find(bytes, bytes + length, 0)), m_table(table)
{}

place byteText::find(place at, place end, char16_t unit)
{
    const std::uint64_t wanted = lowBits * unit;
    while (end - at >= wordBytes && !hasZeroByte(wordAt(at) ^ wanted)) at += wordBytes;
    while (at != end && *at != unit) ++at;
    return at;
}

void byteText::decode(place begin, place end, string& units) const
{
    const auto length = static_cast<std::size_t>(end - begin);
    units.resize(length);
    if (m_table == nullptr)
        units.resize(platform::decodeUtf8Bytes(begin, length, units.data()));
    else
        std::transform(begin, end, units.begin(),
                       [this](unsigned char byte) { return (*m_table)[byte]; });
}

string byteText::decoded(place begin, place end) const
{
    if (isAscii(begin, end)) return std::u16string(begin, end);
    string units;
    decode(begin, end, units);
    return string(std::u16string_view(units));
}

bool byteText::spells(place begin, place end, const string& name) const
{
    return isAscii(begin, end) ? std::equal(begin, end, name.begin(), name.end())
                               : decoded(begin, end) == name;
}

} // namespace orlo
