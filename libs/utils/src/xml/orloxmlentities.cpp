// Entities are decoded in passes until nothing changes. Nearly all texts hold no "&" at all
// and are left after one search; of the rest, nearly all hold no "#x" and need no passes
// either: the named entities alone come out the same in whatever order they are taken.
#include "orloxmlentities.h"

#include "orlonumberscan.h"
#include "text/unitsearch.h"
#include "xml/xmlentities.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace orlo {

namespace {

constexpr std::u16string_view referenceStart = u"&#x";

const entity* entityAt(std::u16string_view text)
{
    const auto found =
        std::find_if(std::begin(entities), std::end(entities),
                     [text](const entity& each) { return text.starts_with(each.form); });
    return found == std::end(entities) ? nullptr : found;
}

// Closes up the text from `first` on over its named entities. The "&" of an "&amp;" is put
// back in front of what follows and looked at again, as it may begin the next entity; an
// entity has its only "&" in front, so no two ever overlap, and no order can tell.
void decodeNamed(string& text, std::size_t first)
{
    std::size_t written = first;
    std::size_t read = first;
    while (read < text.size()) {
        const entity* const found =
            text[read] == u'&' ? entityAt(std::u16string_view(text).substr(read)) : nullptr;
        if (found == nullptr) {
            const std::size_t run = indexOfUnit(text, u'&', read + 1) - read;
            std::copy_n(text.data() + read, run, text.data() + written);
            written += run;
            read += run;
            continue;
        }
        read += found->form.size();
        if (found->unit == u'&')
            text[--read] = u'&';
        else
            text[written++] = found->unit;
    }
    text.resize(written);
}

// True if "#x" stands anywhere.
bool mayHoldReference(std::u16string_view text)
{
    std::size_t at = indexOfUnit(text, u'#');
    while (at < text.size() && !text.substr(at).starts_with(u"#x"))
        at = indexOfUnit(text, u'#', at + 1);
    return at < text.size();
}

// The reference at `start` with its ";", which is looked for from the far end: a reference has
// three, two or one digits. Empty if none of the three places holds a ";".
std::u16string_view closedReference(const string& text, std::size_t start)
{
    for (const std::size_t last : {start + 6, start + 5, start + 4})
        if (last < text.size() && text[last] == u';')
            return std::u16string_view(text).substr(start, last + 1 - start);
    return {}; // GCOV_EXCL_LINE: leads to the endless search
}

char16_t referencedUnit(std::u16string_view reference)
{
    const string digits(
        reference.substr(referenceStart.size(), reference.size() - referenceStart.size() - 1));
    return static_cast<char16_t>(scanHexadecimal(digits.c_str()));
}

// A reference that nothing closes is found again for ever, and always has been. The volatile
// read keeps the compiler from taking the loop for one that ends.
// GCOV_EXCL_START: the counts end with the process that is killed here
void searchForever()
{
    volatile bool found = true;
    while (found) continue;
}
// GCOV_EXCL_STOP

// Replaces all numeric references. What was searched once holds none but for one that the
// unit put in completes, as its "&", "#" or "x", or that closes up over a dropped reference:
// it begins two units earlier at most, so the search goes on there and not at the start.
void decodeReferences(string& text)
{
    std::size_t hit = text.find(referenceStart);
    while (hit != string::npos) {
        const string reference(closedReference(text, hit));
        if (reference.empty()) searchForever();
        const char16_t unit = referencedUnit(reference);
        text.replaceAll(reference, std::u16string_view(&unit, unit == 0 ? 0 : 1));
        hit = text.find(referenceStart, hit < 2 ? 0 : hit - 2);
    }
}

void decodeInPasses(string& text)
{
    std::size_t before = 0;
    do {
        before = text.size();
        for (const entity& each : entities)
            text.replaceAll(each.form, std::u16string_view(&each.unit, 1));
        decodeReferences(text);
    } while (text.size() != before);
}

} // namespace

void decodeEntities(string& text)
{
    const std::size_t first = indexOfUnit(text, u'&');
    if (first == text.size()) return;
    // No entity puts a "#" or an "x" in, so without "#x" there never is a numeric reference.
    if (mayHoldReference(text))
        decodeInPasses(text);
    else
        decodeNamed(text, first);
}

void encodeEntities(string& text)
{
    string encoded;
    encoded.reserve(text.size());
    appendEncoded(encoded, text, lineFeeds::keep);
    text.swap(encoded);
}

} // namespace orlo
