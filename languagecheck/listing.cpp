#include "listing.h"

#include "orlostringtemplate.h"
#include "places.h"

#include <cstddef>
#include <vector>

namespace orlo::languagecheck {

namespace {

// Values as the tool gives them.
constexpr struct {
    const char16_t* name;
    const char16_t* value;
} samples[] = {
    {u"platform", u"P400"},
    {u"datetime", u"Fri May 17 09:41:27 2024"},
    {u"File", u"C:\\taven\\P400.xml"},
    {u"Details", u"details"},
};

string sampleText(const string& name)
{
    for (const auto& each : samples) {
        if (name == each.name) return each.value;
    }
    return u"<" + name + u">";
}

void fill(stringTemplate& text, const place& where)
{
    const char16_t* const name = where.name.c_str();
    switch (classOf(where)) {
    case valueClass::integer: text.insertValue(7, name); break;
    case valueClass::floating: text.insertValue(1.5, name); break;
    case valueClass::character: text.insertValue(u'x', name); break;
    default: text.insertValue(sampleText(where.name).c_str(), name); break;
    }
}

// Of names that come again the first counts: the program gives a value once.
void fillAll(stringTemplate& text, const std::vector<place>& places)
{
    for (std::size_t at = 0; at < places.size(); ++at) {
        bool isNew = true;
        for (std::size_t before = 0; before < at; ++before)
            isNew = isNew && places[before].name != places[at].name;
        if (isNew) fill(text, places[at]);
    }
}

const stringTemplate* textOf(const language* of, const string& key)
{
    if (of == nullptr) return nullptr;
    const auto found = of->texts.find(key);
    return found == of->texts.end() ? nullptr : &found->second;
}

} // namespace

std::string listing(const language& of, const language* reference)
{
    if (of.tree.files.empty()) return {};
    std::string all = utf8(of.tree.files.front().shown) + '\n';
    for (const languageKey& each : of.tree.keys) {
        const stringTemplate* const text = textOf(&of, each.key);
        if (text == nullptr) continue;
        const stringTemplate* const wanted = textOf(reference, each.key);
        stringTemplate filled(*text);
        fillAll(filled, placesIn(wanted ? wanted->text() : text->text()));
        string shown = filled.text();
        shown.replaceAll(u"\n", u"\n    ");
        all += "  " + utf8(each.key) + "\n    " + utf8(shown) + '\n';
    }
    return all;
}

} // namespace orlo::languagecheck
