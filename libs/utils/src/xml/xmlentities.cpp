#include "xml/xmlentities.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace orlo {

namespace {

constexpr char16_t notDropped = u'"'; // which is encoded anyway

constexpr bool isMarked(char16_t unit, char16_t dropped)
{
    return (unit == u'&') | (unit == u'\'') | (unit == u'"') | (unit == u'<') | (unit == u'>') |
           (unit == dropped);
}

// Long texts are mostly plain for long runs, which are looked at in blocks. The loop has no
// branch, so that compilers make vector operations of it.
constexpr std::size_t blockLength = 32;

bool isPlainBlock(const char16_t* units, char16_t dropped)
{
    std::uint16_t anyMarked = 0;
    for (std::size_t i = 0; i < blockLength; ++i)
        anyMarked =
            static_cast<std::uint16_t>(anyMarked | (isMarked(units[i], dropped) ? 0xFFFF : 0));
    return anyMarked == 0;
}

// How much stands in front of the first unit that is encoded or dropped.
std::size_t plainLength(std::u16string_view text, char16_t dropped)
{
    std::size_t at = 0;
    while (text.size() - at >= blockLength && isPlainBlock(text.data() + at, dropped))
        at += blockLength;
    while (at < text.size() && !isMarked(text[at], dropped)) ++at;
    return at;
}

// Empty for a unit that has no entity.
std::u16string_view encodedForm(char16_t unit)
{
    const auto found = std::find_if(std::begin(entities), std::end(entities),
                                    [unit](const entity& each) { return each.unit == unit; });
    return found == std::end(entities) ? std::u16string_view() : found->form;
}

} // namespace

void appendEncoded(string& out, std::u16string_view text, lineFeeds treatment)
{
    const char16_t dropped = treatment == lineFeeds::drop ? u'\n' : notDropped;
    while (!text.empty()) {
        const std::size_t plain = plainLength(text, dropped);
        out.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) return;
        out.append(encodedForm(text.front()));
        text.remove_prefix(1);
    }
}

} // namespace orlo
