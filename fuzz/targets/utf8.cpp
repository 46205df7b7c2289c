// UTF-8 into units and back, held against the table of the sequences that there are.
#include "platform/utf8codec.h"

#include "input.h"

#include <algorithm>

namespace orlo::fuzz {

namespace {

// Sequences by their first byte: how many follow, and what the second one may be.
struct sequence {
    std::uint8_t first;
    std::uint8_t last;
    std::size_t following;
    std::uint8_t lowest;
    std::uint8_t highest;
};
constexpr sequence sequences[] = {
    {0x00, 0x7F, 0, 0x80, 0xBF}, {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

void append(std::u16string& units, std::uint32_t codePoint)
{
    if (codePoint < 0x10000) {
        units += static_cast<char16_t>(codePoint);
        return;
    }
    units += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    units += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

// Takes one sequence from the front, or the part of one that is there.
void decodeOne(bytes& rest, std::u16string& units)
{
    const std::uint8_t first = rest[0];
    rest = rest.subspan(1);
    const auto* const row =
        std::find_if(std::begin(sequences), std::end(sequences), [first](const sequence& each) {
            return first >= each.first && first <= each.last;
        });
    if (row == std::end(sequences)) return append(units, 0xFFFD);
    std::uint32_t codePoint = row->following == 0 ? first : first & (0x3FU >> row->following);
    for (std::size_t i = 0; i < row->following; ++i) {
        const std::uint8_t lowest = i == 0 ? row->lowest : 0x80;
        const std::uint8_t highest = i == 0 ? row->highest : 0xBF;
        if (rest.empty() || rest[0] < lowest || rest[0] > highest) return append(units, 0xFFFD);
        codePoint = codePoint << 6 | (rest[0] & 0x3FU);
        rest = rest.subspan(1);
    }
    append(units, codePoint);
}

std::u16string decoded(bytes given)
{
    std::u16string units(given.size(), u'?');
    units.resize(platform::decodeUtf8Bytes(given.data(), given.size(), units.data()));
    return units;
}

// Halves of a pair that stand alone are no characters.
std::u16string withoutLoneHalves(std::u16string units)
{
    for (std::size_t at = 0; at < units.size(); ++at) {
        const bool pair = at + 1 < units.size() && platform::isHighSurrogate(units[at]) &&
                          platform::isLowSurrogate(units[at + 1]);
        if (pair)
            ++at;
        else if (platform::isHighSurrogate(units[at]) || platform::isLowSurrogate(units[at]))
            units[at] = 0xFFFD;
    }
    return units;
}

} // namespace

void utf8(bytes given)
{
    std::u16string wanted;
    for (bytes rest = given; !rest.empty();) decodeOne(rest, wanted);
    expect(decoded(given) == wanted,
           "each sequence becomes its character, each part of one U+FFFD");

    const std::u16string units = textOf(given);
    std::string written(units.size() * 3, '?');
    written.resize(platform::encodeUtf8Units(units.data(), units.size(), written.data()));
    const bytes again(reinterpret_cast<const std::uint8_t*>(written.data()), written.size());
    expect(decoded(again) == withoutLoneHalves(units), "what was encoded is decoded again");
}

} // namespace orlo::fuzz
