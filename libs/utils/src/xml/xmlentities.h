// The entity forms of the five units that XML markup is made of.
#pragma once

#include "text/textblocks.h"

#include <string_view>

namespace orlo {

enum class lineFeeds { keep, drop };

// Puts the text with the five units turned into their named entities.
void putEncoded(std::u16string_view text, lineFeeds treatment, textBlocks& out);

} // namespace orlo
