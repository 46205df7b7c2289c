// Entities are decoded in passes until nothing changes. Nearly all texts hold no "&" at all
// and are left after one search; of the rest, nearly all hold no "#x" and need no passes
// either: the named entities alone come out the same in whatever order they are taken.
#include "xml/xmlentities.h"

#include "orlotextformat.h"
#include "orloxmlnode.h"
#include "text/unitsearch.h"
#include "text/unitset.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>

namespace orlo {

namespace {

struct entity {
    std::u16string_view form;
    char16_t unit;
};

// In the order of the decoder's passes.
constexpr entity entities[] = {
    {u"&amp;", u'&'}, {u"&apos;", u'\''}, {u"&quot;", u'"'}, {u"&lt;", u'<'}, {u"&gt;", u'>'},
};

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

constexpr unitSet encodedUnits(u"&'\"<>");

// Long texts are mostly plain for long runs, which are looked at in blocks.
constexpr std::ptrdiff_t blockLength = 32;

// All bits or none, as a processor's own comparison of many units gives.
constexpr std::uint16_t same(int unit, char16_t other)
{
    return static_cast<std::uint16_t>(unit == other ? 0xFFFF : 0);
}

// All bits if the unit is encoded or dropped. Two pairs of the five differ in one bit each.
constexpr std::uint16_t isMarked(char16_t unit, char16_t dropped)
{
    static_assert((u'&' | 1) == u'\'' && (u'<' | 2) == u'>');
    return same(unit | 1, u'\'') | same(unit | 2, u'>') | same(unit, u'"') | same(unit, dropped);
}

// Copies a block if none of its units is marked; false, with nothing copied, if not. The loop
// has no branch, so that compilers make vector operations of it.
bool copyPlainBlock(const char16_t* from, char16_t dropped, char16_t* to)
{
    std::uint16_t anyMarked = 0;
    for (std::ptrdiff_t i = 0; i < blockLength; ++i) anyMarked |= isMarked(from[i], dropped);
    if (anyMarked != 0) return false;
    std::memcpy(to, from, blockLength * sizeof *to);
    return true;
}

// Copies what stands in front of the first unit that is encoded or dropped, and tells how much
// that was.
std::size_t copyPlain(std::u16string_view text, char16_t dropped, char16_t* to)
{
    std::size_t at = 0;
    while (text.size() - at >= blockLength && copyPlainBlock(text.data() + at, dropped, to + at))
        at += blockLength;
    for (; at < text.size() && !encodedUnits.contains(text[at]) && text[at] != dropped; ++at)
        to[at] = text[at];
    return at;
}

// Empty for a unit that has no entity.
std::u16string_view encodedForm(char16_t unit)
{
    const auto found = std::find_if(std::begin(entities), std::end(entities),
                                    [unit](const entity& each) { return each.unit == unit; });
    return found == std::end(entities) ? std::u16string_view() : found->form;
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
    textBlocks blocks([&encoded](std::u16string_view block) { encoded.append(block); });
    putEncoded(text, lineFeeds::keep, blocks);
    blocks.finish();
    text.swap(encoded);
}

void putEncoded(std::u16string_view text, lineFeeds treatment, textBlocks& out)
{
    const char16_t dropped = treatment == lineFeeds::drop ? u'\n' : u'"'; // which is encoded anyway
    while (!text.empty()) {
        const std::span<char16_t> room = out.room();
        const std::u16string_view next = text.substr(0, room.size());
        const std::size_t plain = copyPlain(next, dropped, room.data());
        out.keep(plain);
        text.remove_prefix(plain);
        if (plain == next.size()) continue;
        out.put(encodedForm(text.front()));
        text.remove_prefix(1);
    }
}

} // namespace orlo
