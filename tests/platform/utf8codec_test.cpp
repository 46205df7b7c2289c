#include "platform/utf8codec.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <vector>

namespace utf8codecTest {

using namespace orlo;
using namespace orlo::platform;

namespace {

// Both directions get exactly the room that they may ask for, so that a sanitizer sees more.
string decoded(const std::string& bytes)
{
    std::vector<char16_t> units(bytes.size());
    const auto* source = reinterpret_cast<const unsigned char*>(bytes.data());
    return {units.data(), decodeUtf8Bytes(source, bytes.size(), units.data())};
}

std::string encoded(const std::u16string& units)
{
    std::vector<char> bytes(3 * units.size());
    return {bytes.data(), encodeUtf8Units(units.data(), units.size(), bytes.data())};
}

std::u16string unitsOf(char32_t codePoint)
{
    if (codePoint < 0x10000) return {static_cast<char16_t>(codePoint)};
    const char32_t rest = codePoint - 0x10000;
    return {static_cast<char16_t>(0xD800 | rest >> 10),
            static_cast<char16_t>(0xDC00 | (rest & 0x3FF))};
}

} // namespace

TEST(utf8codec, decodesEachLengthAtItsLimits)
{
    static const struct {
        std::string bytes;
        std::u16string units;
    } rows[] = {
        {"", u""},
        {"a", u"a"},
        {std::string(1, '\0'), std::u16string(1, u'\0')},
        {"\x7F", u"\x7F"},
        {"\xC2\x80", u"\x80"},
        {"\xDF\xBF", u"\u07FF"},
        {"\xE0\xA0\x80", u"\u0800"},
        {"\xED\x9F\xBF", u"\uD7FF"},
        {"\xEE\x80\x80", u"\uE000"},
        {"\xEF\xBF\xBF", u"\uFFFF"},
        {"\xF0\x90\x80\x80", u"\U00010000"},
        {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
        {"Pr\xC3\xBC"
         "f\xE2\x82\xAC\xF0\x9F\x98\x80!",
         u"Pr\u00FCf\u20AC\U0001F600!"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(decoded(row.bytes), string(row.units.data(), row.units.size())) << row.bytes;
        EXPECT_EQ(encoded(row.units), row.bytes);
    }
}

TEST(utf8codec, givesOneReplacementForEachMaximalPartOfABadSequence)
{
    static const struct {
        const char* bytes;
        const char16_t* units;
    } rows[] = {
        {"\x80", u"\uFFFD"},
        {"\xBF\xBF", u"\uFFFD\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},
        {"\xC1\xBF", u"\uFFFD\uFFFD"},
        {"\xC3", u"\uFFFD"},
        {"\xC3(", u"\uFFFD("},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xE2\x82", u"\uFFFD"},
        {"\xE2\x82x", u"\uFFFDx"},
        {"\xE2\x82\xE2\x82\xAC", u"\uFFFD\u20AC"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\xBD\xED\xB8\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x9F\x98", u"\uFFFD"},
        {"\xF0\x9Fx", u"\uFFFDx"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5\x80", u"\uFFFD\uFFFD"},
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
        {"a\xF1\x80\x80\xE1\x80\xC2"
         "b\x80"
         "c\x80\xBF"
         "d",
         u"a\uFFFD\uFFFD\uFFFD"
         u"b\uFFFD"
         u"c\uFFFD\uFFFD"
         u"d"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decoded(row.bytes), string(row.units)) << testing::PrintToString(row.bytes);
}

TEST(utf8codec, encodesEachLoneSurrogateAsTheReplacement)
{
    const std::string replacement = "\xEF\xBF\xBD";
    static const struct {
        std::u16string units;
        std::string before;
        int replacements;
        std::string behind;
    } rows[] = {
        {{0xD800}, "", 1, ""},
        {{0xDBFF}, "", 1, ""},
        {{0xDC00}, "", 1, ""},
        {{0xDFFF}, "", 1, ""},
        {{u'a', 0xD83D, u'b'}, "a", 1, "b"},
        {{u'a', 0xDE00, u'b'}, "a", 1, "b"},
        {{0xDE00, 0xD83D}, "", 2, ""},
        {{0xD83D, 0xD83D, 0xDE00}, "", 1, "\xF0\x9F\x98\x80"},
        {{0xD83D, 0xDE00, 0xDE00}, "\xF0\x9F\x98\x80", 1, ""},
    };
    for (const auto& row : rows) {
        std::string expected = row.before;
        for (int i = 0; i < row.replacements; ++i) expected += replacement;
        EXPECT_EQ(encoded(row.units), expected + row.behind);
    }
}

TEST(utf8codec, takesEveryCodePointThereAndBack)
{
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) continue;
        const std::u16string units = unitsOf(codePoint);
        ASSERT_EQ(decoded(encoded(units)), string(units.data(), units.size()))
            << std::hex << unsigned{codePoint};
    }
}

// Runs of ASCII are taken by words: what interrupts one must be seen at every place in a word.
TEST(utf8codec, seesWhatInterruptsAnAsciiRunAtEveryPlace)
{
    static const struct {
        const char* bytes;
        const char16_t* units;
    } interruptions[] = {
        {"\xC2\x80", u"\x80"}, {"\xE2\x82\xAC", u"\u20AC"}, {"\xF0\x9F\x98\x80", u"\U0001F600"}};

    for (const auto& interruption : interruptions) {
        for (std::size_t before = 0; before <= 24; ++before) {
            for (std::size_t behind = 0; behind <= 17; ++behind) {
                const std::string bytes =
                    std::string(before, 'x') + interruption.bytes + std::string(behind, '~');
                const std::u16string units = std::u16string(before, u'x') + interruption.units +
                                             std::u16string(behind, u'~');
                ASSERT_EQ(decoded(bytes), string(units.data(), units.size()))
                    << before << ' ' << behind;
                ASSERT_EQ(encoded(units), bytes) << before << ' ' << behind;
            }
        }
    }
}

TEST(utf8codec, needsNoMoreRoomThanItMayAskFor)
{
    // Every unit three bytes long, and every bad byte a unit of its own.
    const std::u16string wideUnits(1000, u'\uFFFF');
    EXPECT_EQ(encoded(wideUnits).size(), 3000u);
    const std::string badBytes(1000, '\xFF');
    EXPECT_EQ(decoded(badBytes), string(std::u16string(1000, u'\uFFFD').c_str()));
}

TEST(utf8codec, readsASequenceOrItsLongestPart)
{
    static const struct {
        const char* bytes;
        char32_t codePoint;
        std::size_t length;
    } rows[] = {
        {"ab", U'a', 1},
        {"\xC3\xBC", U'\u00FC', 2},
        {"\xF0\x9F\x98\x80", U'\U0001F600', 4},
        {"\xF0\x9F\x98", utf8Sequence::badSequence, 3},
        {"\xE2\x82z", utf8Sequence::badSequence, 2},
        {"\x80", utf8Sequence::badSequence, 1},
    };
    for (const auto& row : rows) {
        const std::string bytes = row.bytes;
        const utf8Sequence read =
            readUtf8Sequence(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
        EXPECT_EQ(read.codePoint, row.codePoint) << testing::PrintToString(bytes);
        EXPECT_EQ(read.length, row.length) << testing::PrintToString(bytes);
    }
}

} // namespace utf8codecTest
