// The entity forms of the five units that XML markup is made of.
#pragma once

#include "orlostring.h"

#include <string_view>

namespace orlo {

enum class lineFeeds { keep, drop };

// Appends `text` with the five units turned into their named entities.
void appendEncoded(string& out, std::u16string_view text, lineFeeds treatment);

} // namespace orlo
