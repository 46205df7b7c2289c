// The entity forms of the five units that XML markup is made of.
#pragma once

#include "orlostring.h"

#include <cstddef>
#include <string_view>

namespace orlo {

enum class lineFeeds { keep, drop };

// How many units at the front of the text are written as they are.
std::size_t plainLength(std::u16string_view text, lineFeeds treatment);

// What is written for a unit that is not; nothing for a line feed.
std::u16string_view encodedForm(char16_t unit);

// Hands the text to `put` in pieces, the five units turned into their named entities.
template <class Put>
void putEncoded(std::u16string_view text, lineFeeds treatment, Put put)
{
    for (std::size_t plain = plainLength(text, treatment);; plain = plainLength(text, treatment)) {
        put(text.substr(0, plain));
        if (plain == text.size()) return;
        put(encodedForm(text[plain]));
        text.remove_prefix(plain + 1);
    }
}

} // namespace orlo
