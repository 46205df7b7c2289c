// The entity forms of the five units that XML markup is made of, and how texts are written in them.
#pragma once

#include "orlostring.h"

#include <string_view>

namespace orlo {

struct entity {
    std::u16string_view form;
    char16_t unit;
};

// In the order of the decoder's passes.
inline constexpr entity entities[] = {
    {u"&amp;", u'&'}, {u"&apos;", u'\''}, {u"&quot;", u'"'}, {u"&lt;", u'<'}, {u"&gt;", u'>'},
};

enum class lineFeeds { keep, drop };

// Appends the text with the five units turned into their named entities.
void appendEncoded(string& out, std::u16string_view text, lineFeeds treatment);

} // namespace orlo
