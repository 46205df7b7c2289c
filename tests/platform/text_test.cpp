#include "platform/platform.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <vector>

namespace textTest {

using namespace orlo;

namespace {

string decoded(platform::encoding from, const std::string& bytes)
{
    std::vector<char16_t> units(bytes.size());
    return {units.data(), platform::decode(from, bytes.data(), bytes.size(), units.data())};
}

} // namespace

TEST(textSystem, decodesUtf8WithReplacements)
{
    EXPECT_EQ(decoded(platform::encoding::utf8, "a\xC3\xBC\xE2\x82\xAC"), string(u"a\u00FC\u20AC"));
    EXPECT_EQ(decoded(platform::encoding::utf8, "a\xE2\x82z\xFF"), string(u"a\uFFFDz\uFFFD"));
}

TEST(textSystem, leavesAsciiAsItIsInEveryEncoding)
{
    std::string ascii;
    string expected;
    for (char byte = 1; byte < 0x7F; ++byte) {
        ascii.push_back(byte);
        expected.push_back(static_cast<char16_t>(byte));
    }
    for (const auto from :
         {platform::encoding::utf8, platform::encoding::ansi, platform::encoding::unmarked}) {
        EXPECT_EQ(decoded(from, ascii), expected);
    }
}

// The single-byte set of a western system.
TEST(textSystem, decodesTheSingleByteSet)
{
    static const struct {
        const char* bytes;
        const char16_t* units;
    } rows[] = {
        {"Pr\xFC"
         "fung",
         u"Pr\u00FCfung"},
        {"\x80 \x85 \x93\x94", u"\u20AC \u2026 \u201C\u201D"},
        {"\x81\x8D\x8F\x90\x9D", u"\x81\x8D\x8F\x90\x9D"},
        {"\xA0\xE4\xFF", u"\xA0\xE4\xFF"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decoded(platform::encoding::ansi, row.bytes), string(row.units));
}

TEST(textSystem, encodesUtf8)
{
    const std::u16string units = {u'a', 0xFC, 0x20AC, 0xD83D, 0xDE00, 0xD83D};
    std::vector<char> bytes(3 * units.size());
    const std::size_t count = platform::encodeUtf8(units.data(), units.size(), bytes.data());
    EXPECT_EQ(std::string(bytes.data(), count),
              "a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

} // namespace textTest
