// Questions about single UTF-16 code units, answered as the runtime library answers them in
// its "C" locale: only ASCII letters have a case, only the six ASCII blanks are white space.
#pragma once

namespace orlo {

constexpr bool isDigitUnit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

// Blank, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool isSpaceUnit(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

constexpr char16_t lowerUnit(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

constexpr char16_t upperUnit(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

} // namespace orlo
