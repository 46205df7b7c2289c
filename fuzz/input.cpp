#include "input.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace orlo::fuzz {

void expect(bool holds, const char* promise)
{
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

std::vector<bytes> cut(bytes given)
{
    constexpr std::uint8_t separator = 0x1E;
    std::vector<bytes> parts;
    while (true) {
        const auto end = std::find(given.begin(), given.end(), separator);
        const auto length = static_cast<std::size_t>(end - given.begin());
        parts.push_back(given.first(length));
        if (end == given.end()) return parts;
        given = given.subspan(length + 1);
    }
}

string textOf(bytes given)
{
    constexpr std::uint8_t firstLong = 0xF0;
    string text;
    for (std::size_t at = 0; at < given.size(); ++at) {
        char16_t unit = given[at];
        if (given[at] >= firstLong && at + 2 < given.size()) {
            unit = static_cast<char16_t>(given[at + 1] << 8 | given[at + 2]);
            at += 2;
        }
        text.push_back(unit);
    }
    return text;
}

std::vector<std::u16string> piecesOf(const std::u16string& whole, const std::u16string& delimiter)
{
    std::vector<std::u16string> pieces;
    std::size_t from = 0;
    for (std::size_t at = whole.find(delimiter); at != whole.npos;
         at = whole.find(delimiter, from)) {
        pieces.push_back(whole.substr(from, at - from));
        from = at + delimiter.size();
    }
    pieces.push_back(whole.substr(from));
    return pieces;
}

std::u16string lowered(std::u16string word)
{
    for (char16_t& unit : word)
        unit = unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    return word;
}

void replaceEach(std::u16string& in, std::u16string_view from, std::u16string_view to)
{
    if (from.empty()) return;
    for (std::size_t at = in.find(from); at != in.npos; at = in.find(from, at + to.size()))
        in.replace(at, from.size(), to);
}

bool asksForMuch(std::u16string_view format)
{
    std::size_t digits = 0;
    for (const char16_t unit : format) {
        if (unit >= u'0' && unit <= u'9')
            ++digits;
        else if (unit != u'*')
            digits = 0;
        if (digits > 4) return true;
    }
    return false;
}

} // namespace orlo::fuzz
