#include "places.h"

#include <optional>
#include <string_view>

namespace orlo::languagecheck {

namespace {

using view = std::u16string_view;

bool opensPlace(view text, std::size_t at)
{
    return text[at] == u'[' && (at == 0 || text[at - 1] != u'\\');
}

place readPlace(view text, std::size_t at, std::size_t close)
{
    const view content = text.substr(at + 1, close - at - 1);
    const auto colon = content.rfind(u':');
    place found{string(content.substr(0, colon)), {}, at, close + 1 - at};
    if (colon != content.npos) found.conversion = string(content.substr(colon + 1));
    return found;
}

// What stands between the percent sign and the letter.
bool isModifier(char16_t unit)
{
    return view(u"-+ #0123456789.hl").find(unit) != view::npos;
}

} // namespace

std::vector<place> placesIn(const string& text)
{
    std::vector<place> found;
    std::optional<std::size_t> open; // the last bracket counts: "[see [name]]" has one place
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (opensPlace(text, at)) open = at;
        if (text[at] != u']' || !open) continue;
        found.push_back(readPlace(text, *open, at));
        open.reset();
    }
    return found;
}

valueClass classOf(const place& where)
{
    const string& conversion = where.conversion;
    if (conversion.find(u'%') == string::npos) return valueClass::text;
    if (conversion[0] != u'%' || conversion.size() > conversionSpec::maxLength)
        return valueClass::none;
    conversionSpec collected;
    for (std::size_t at = 0; at < conversion.size(); ++at) {
        const bool isLast = at + 1 == conversion.size();
        if (at > 0 && !isLast && !isModifier(conversion[at])) return valueClass::none;
        collected.addChar(conversion[at]);
    }
    return collected.type() == valueClass::empty ? valueClass::none : collected.type();
}

bool takesPercent(const stringTemplate& text, const string& name)
{
    stringTemplate filled(text);
    return filled.insertValue(u"", name.c_str());
}

bool isFilled(const stringTemplate& text, const place& where)
{
    stringTemplate filled(text);
    filled.insertValue(u"", where.name.c_str());
    const view before = text.text();
    const view after = filled.text();
    return after != before && after.starts_with(before.substr(0, where.at)) &&
           after.ends_with(before.substr(where.at + where.length));
}

} // namespace orlo::languagecheck
