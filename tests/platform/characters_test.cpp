#include "platform/characters.h"

#include "orlostring.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <clocale>

namespace charactersTest {

using namespace orlo;

namespace {

// A locale with letters beyond ASCII, and what it makes of a letter and a currency sign. Each
// system has one of them.
struct sample {
    const char* locale;
    const char* narrow;
};
constexpr sample samples[] = {
    {"English_United States.1252", "\xC4\x80"},
    {"C.UTF-8", "\xC3\x84\xE2\x82\xAC"},
};

// Such a locale in force for one test.
class foreignCharacters {
public:
    foreignCharacters()
    {
        for (const sample& each : samples)
            if (m_narrow == nullptr && std::setlocale(LC_CTYPE, each.locale) != nullptr)
                m_narrow = each.narrow;
    }
    ~foreignCharacters() { std::setlocale(LC_CTYPE, "C"); }
    foreignCharacters(const foreignCharacters&) = delete;
    foreignCharacters& operator=(const foreignCharacters&) = delete;
    // Null if the system has none.
    [[nodiscard]] const char* narrow() const { return m_narrow; }

private:
    const char* m_narrow = nullptr;
};

TEST(charactersSystem, areThoseOfCWhereAProcessBegins)
{
    EXPECT_TRUE(platform::isPlainCharacterLocale());
    EXPECT_EQ(string("\xC4\xFF"), u"\u00C4\u00FF");
    EXPECT_EQ(string(u"A\u00C4").toLower(), u"a\u00C4");
}

TEST(charactersSystem, areThoseOfTheLocaleInForce)
{
    const foreignCharacters characters;
    ASSERT_NE(characters.narrow(), nullptr);
    EXPECT_FALSE(platform::isPlainCharacterLocale());
    EXPECT_EQ(string(characters.narrow()), u"\u00C4\u20AC");
    EXPECT_EQ(string(u"A\u00C4\u0416").toLower(), u"a\u00E4\u0436");
    EXPECT_EQ(string(u"a\u00E4\u0436").toUpper(), u"A\u00C4\u0416");
    EXPECT_EQ(string(u"\xD83D\u20AC").toUpper(), u"\xD83D\u20AC");
}

TEST(charactersSystem, areAgainThoseOfCAfterwards)
{
    {
        const foreignCharacters characters;
    }
    EXPECT_EQ(string("\xC4"), u"\u00C4");
    EXPECT_EQ(string(u"\u00C4").toLower(), u"\u00C4");
}

} // namespace

} // namespace charactersTest
