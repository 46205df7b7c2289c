// What the checker says of a language against a reference.
#include "languagecheck/checked.h"

namespace referenceTest {

using namespace orlo::tests;
using orlo::string;

namespace {

using languageCheckReference = languageCheckTest;

constexpr const char16_t* wanted = u"a Of [name] at [count:%03d]\n";

} // namespace

TEST_F(languageCheckReference, keysThatAreMissing)
{
    EXPECT_EQ(findingsAgainst(u"a x\nb y\n", u"; texts\nb z\n"),
              "t:1: error: the key \"a\" is missing\n");
}

TEST_F(languageCheckReference, keysThatAreNotKnown)
{
    EXPECT_EQ(findingsAgainst(u"a x\n", u"a x\nA y\n"),
              "t:2: warning: the key \"A\" is not known\n");
}

TEST_F(languageCheckReference, placesThatAreMissing)
{
    EXPECT_EQ(findingsAgainst(wanted, u"a Of [name]\n"),
              "t:1: error: the place [count] is missing\n");
    EXPECT_EQ(
        findingsAgainst(wanted, u"a Of [name] at 50% off\n"),
        "t:1: error: the place [count] is missing, and its value takes a \"%\" of the text\n");
}

TEST_F(languageCheckReference, placesThatAreNotKnown)
{
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a x [nmae] [name]\n"),
              "t:1: error: the place [nmae] is not known\n");
}

TEST_F(languageCheckReference, placesThatAreDoubled)
{
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a [name] x [name]\n"),
              "t:1: error: the place [name] stands 2 times: one alone is filled\n");
}

TEST_F(languageCheckReference, placesWhereTheyStayUnfilled)
{
    const std::string finding = "t:1: error: the place [name] stays unfilled where it stands\n";
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a ([name])\n"), finding);
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a \"  x[name]\"\n"), finding)
        << "blanks in front go before the place is sought";
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a E:x[name]\n"), finding)
        << "and so does the severity";
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a ([name]) 50% off\n"), finding);
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a xx [[name]\n"), finding)
        << "the bracket behind one that fails is passed over";
}

TEST_F(languageCheckReference, conversionsThatDiffer)
{
    EXPECT_EQ(
        findingsAgainst(wanted, u"a [name] [count:%d]\n"),
        "t:1: warning: the place [count] has another conversion, \"%d\" instead of \"%03d\"\n");
    EXPECT_EQ(findingsAgainst(wanted, u"a [name] [count]\n"),
              "t:1: error: the place [count] has a conversion of another kind, \"\" instead of "
              "\"%03d\"\n");
    EXPECT_EQ(findingsAgainst(wanted, u"a [name:%d] [count:%03d]\n"),
              "t:1: error: the place [name] has a conversion of another kind, \"%d\" instead of "
              "\"\"\n");
    for (const char16_t* const unknown :
         {u"%q", u"%*d", u"%n", u"%1$d", u"%C", u"%00000000000003d", u"%d mm", u"about %d", u"d%"})
        EXPECT_EQ(findingsAgainst(wanted, u"a [name] [count:" + string(unknown) + u"]\n"),
                  "t:1: error: the conversion of [count:" + orlo::narrow(unknown) +
                      "] is not known\n");
}

TEST_F(languageCheckReference, aPercentSignInATextWithoutPlaces)
{
    EXPECT_EQ(findingsAgainst(u"a Half price\n", u"a 50% off\n"),
              "t:1: warning: a value would take the \"%\" of this text without places: write out "
              "the word\n");
    EXPECT_EQ(findingsAgainst(u"a [name] off\n", u"a 50% off\n"),
              "t:1: error: the place [name] is missing, and its value takes a \"%\" of the text\n");
}

TEST_F(languageCheckReference, textsAreComparedAsTheProgramHasThem)
{
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"a $$help\nhelp no place\n"),
              "t:1: error: the place [name] is missing\n")
        << "of the key that leads there";
    addText(u"more", u"a x\n");
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u"#include more\n"),
              "more:1: error: the place [name] is missing\n");
    EXPECT_EQ(findingsAgainst(u"a x [name]\n", u";;cmd(replace:::[n]:::[name])\na x [n]\n"), "");
}

TEST_F(languageCheckReference, allThatIsAllowedPassesInSilence)
{
    const struct {
        const char16_t* reference;
        const char16_t* text;
    } rows[] = {
        {wanted, wanted},
        {wanted, u"a [count:%03d] mal [name]\n"},
        {wanted, u"a \\[name] [name], [count:%03d]\n"},
        {wanted, u"a [name] um 50% mehr als [count:%03d]\n"},
        {u"a 5% of\n", u"a 5% von\n"},
        {u"a [name]\n", u"a Of [name]\n"},
        {u"a [name]\n", u"a $$help\nhelp Of [name]\n"},
        {u"a [name]\n", u"a E:[name]\n"},
        {u"a See [name]\n", u"a [siehe [name]]\n"},
        {u"a 1\nb 2\n", u"b 2\na 1\n"},
        {u"a 100 %\n", u"a 100 %\n"},
        {u"a all\n", u"a 100 %\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(findingsAgainst(row.reference, row.text), "") << orlo::narrow(row.text);
}

} // namespace referenceTest
