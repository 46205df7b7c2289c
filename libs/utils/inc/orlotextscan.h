// Scanning of texts by the scanf rules of the "C" locale, with typed targets: nothing is ever
// written that was not passed.
#pragma once

#include <array>
#include <span>
#include <string>
#include <variant>

namespace orlo {

// Where a field goes. A `long` counts as 32 bits.
using scanTarget =
    std::variant<short*, unsigned short*, int*, unsigned*, long*, unsigned long*, long long*,
                 unsigned long long*, float*, double*, char16_t*, std::u16string*>;

// Scans a zero-terminated text by a format: white space in it takes any white space, other units
// themselves, and conversions the fields: % d i u o x X a e f g s c [set] n, each with an
// optional "*" (the field is read and goes nowhere), width and length letter. Which type is
// written is the target's matter, so length letters count for nothing; a number beyond it
// becomes its nearest limit. Numbers fill numbers (no integer takes a floating one), "%s" and
// sets fill texts, "%c" a unit or, with a width, a text.
// Returns the number of fields read: the scan ends where the text can't go on by the format, or
// the next target is missing or of another kind; targets that were not reached keep their values.
int scanFields(const char16_t* text, const char16_t* format, std::span<const scanTarget> targets);

// The same with the targets written out.
//
//   scanText(u"2024-03-05Z", u"%d-%d-%dZ", year, month, day)     3
template <class... Targets>
int scanText(const char16_t* text, const char16_t* format, Targets&... targets)
{
    const std::array<scanTarget, sizeof...(targets)> list{scanTarget(&targets)...};
    return scanFields(text, format, list);
}

} // namespace orlo
