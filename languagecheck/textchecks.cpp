#include "textchecks.h"

#include "messages/languageentries.h"
#include "orlolocfile.h"
#include "places.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <set>
#include <vector>

namespace orlo::languagecheck {

namespace {

constexpr std::u16string_view aliasMark = u"$$";

// A name that no place has, and no value.
constexpr const char16_t* noName = u"\x1";

// A question is freed of blanks and line ends, so a key that begins or ends with one is not found.
bool hasTextOfItsOwn(const languageKey& of)
{
    return !of.value.starts_with(aliasMark) && trimmedLine(of.key) == of.key;
}

languageTexts textsOf(const languageTree& tree)
{
    languageTexts texts;
    if (tree.files.empty()) return texts;
    locFile asked(tree.files.front().where);
    for (const languageKey& each : tree.keys) {
        stringTemplate text;
        if (asked.lookup(each.key.c_str(), text))
            texts.emplace(each.key, text);
        else if (hasTextOfItsOwn(each))
            throw std::bad_alloc(); // the library does without a file that it has no memory for
    }
    return texts;
}

} // namespace

language readLanguage(const namedFile& root, report& findings)
{
    language read{readTree(root, findings), {}};
    read.texts = textsOf(read.tree);
    return read;
}

void checkAliases(const language& of, report& findings)
{
    for (const languageKey& each : of.tree.keys) {
        if (!each.value.starts_with(aliasMark)) continue;
        const auto text = of.texts.find(each.key);
        if (text == of.texts.end())
            findings.error(each.where, u"\"%s\" leads to no text", {each.value});
        else if (text->second.text().starts_with(aliasMark))
            findings.error(each.where, u"\"%s\" leads in a circle", {each.value});
    }
}

namespace {

// --- Places of one text ----------------------------------------------------------------------

// Two texts of one key, and where the one that is checked stands.
struct comparison {
    const position& where;
    const stringTemplate& text;
    std::vector<place> places;
    const stringTemplate& reference;
    std::vector<place> wanted;
};

std::vector<place> named(const std::vector<place>& places, const string& name)
{
    std::vector<place> same;
    std::copy_if(places.begin(), places.end(), std::back_inserter(same),
                 [&name](const place& each) { return each.name == name; });
    return same;
}

void checkMissing(const comparison& of, const place& wanted, report& findings)
{
    if (!named(of.places, wanted.name).empty()) return;
    if (takesPercent(of.text, wanted.name))
        findings.error(of.where,
                       u"the place [%s] is missing, and its value takes a \"%%\" of the text",
                       {wanted.name});
    else
        findings.error(of.where, u"the place [%s] is missing", {wanted.name});
}

// A conversion that is not known is told for itself.
void checkFilling(const comparison& of, const place& wanted, report& findings)
{
    const std::vector<place> same = named(of.places, wanted.name);
    if (same.size() > 1)
        findings.error(of.where, u"the place [%s] stands %d times: one alone is filled",
                       {wanted.name, static_cast<long>(same.size())});
    else if (same.size() == 1 && classOf(same[0]) != valueClass::none &&
             !isFilled(of.text, same[0]))
        findings.error(of.where, u"the place [%s] stays unfilled where it stands", {wanted.name});
}

void checkConversion(const comparison& of, const place& wanted, report& findings)
{
    for (const place& each : named(of.places, wanted.name)) {
        const valueClass type = classOf(each);
        if (type == valueClass::none)
            findings.error(of.where, u"the conversion of [%s:%s] is not known",
                           {each.name, each.conversion});
        else if (type != classOf(wanted))
            findings.error(of.where,
                           u"the place [%s] has a conversion of another kind, \"%s\" "
                           u"instead of \"%s\"",
                           {each.name, each.conversion, wanted.conversion});
        else if (each.conversion != wanted.conversion)
            findings.warning(of.where,
                             u"the place [%s] has another conversion, \"%s\" instead of "
                             u"\"%s\"",
                             {each.name, each.conversion, wanted.conversion});
    }
}

void checkUnknown(const comparison& of, report& findings)
{
    for (const place& each : of.places) {
        if (named(of.wanted, each.name).empty())
            findings.error(of.where, u"the place [%s] is not known", {each.name});
    }
}

// Where a place is missing, that is told with it.
void checkPercent(const comparison& of, report& findings)
{
    if (!of.places.empty() || !of.wanted.empty()) return;
    if (takesPercent(of.text, noName) && !takesPercent(of.reference, noName))
        findings.warning(of.where, u"a value would take the \"%%\" of this text without places: "
                                   u"write out the word");
}

void compareText(const comparison& of, report& findings)
{
    for (const place& wanted : of.wanted) {
        checkMissing(of, wanted, findings);
        checkFilling(of, wanted, findings);
        checkConversion(of, wanted, findings);
    }
    checkUnknown(of, findings);
    checkPercent(of, findings);
}

// --- Keys ------------------------------------------------------------------------------------

void checkMissingKeys(const language& of, const language& reference, report& findings)
{
    std::set<string> known;
    for (const languageKey& each : of.tree.keys) known.insert(each.key);
    for (const languageKey& each : reference.tree.keys) {
        if (!known.contains(each.key))
            findings.error({of.tree.files.front().shown}, u"the key \"%s\" is missing", {each.key});
    }
}

std::set<string> aliasTargets(const languageTree& tree)
{
    std::set<string> targets;
    for (const languageKey& each : tree.keys) {
        if (each.value.starts_with(aliasMark)) targets.insert(each.value.substr(aliasMark.size()));
    }
    return targets;
}

void checkUnknownKeys(const language& of, const language& reference, report& findings)
{
    std::set<string> known = aliasTargets(of.tree);
    for (const languageKey& each : reference.tree.keys) known.insert(each.key);
    for (const languageKey& each : of.tree.keys) {
        if (!known.contains(each.key))
            findings.warning(each.where, u"the key \"%s\" is not known", {each.key});
    }
}

} // namespace

void compareTexts(const language& of, const language& reference, report& findings)
{
    if (of.tree.files.empty()) return;
    checkMissingKeys(of, reference, findings);
    checkUnknownKeys(of, reference, findings);
    for (const languageKey& each : of.tree.keys) {
        const auto text = of.texts.find(each.key);
        const auto wanted = reference.texts.find(each.key);
        if (text == of.texts.end() || wanted == reference.texts.end()) continue;
        compareText({each.where, text->second, placesIn(text->second.text()), wanted->second,
                     placesIn(wanted->second.text())},
                    findings);
    }
}

} // namespace orlo::languagecheck
