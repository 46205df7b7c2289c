// What the checker says of included files and of texts that lead to others.
#include "languagecheck/checked.h"

namespace includesTest {

using namespace orlo::tests;
using orlo::string;

namespace {

using languageCheckIncludes = languageCheckTest;
using languageCheckAliases = languageCheckTest;

} // namespace

TEST_F(languageCheckIncludes, anIncludeThatIsMissing)
{
    EXPECT_EQ(findingsIn(u"a x\n#include more.loc\n"),
              "t:2: error: the file \"more.loc\" is not there\n");
    EXPECT_EQ(findingsIn(u"#include\n"), "t:1: error: \"#include\" names no file\n");
    addText(u"more.loc", u"a x\n");
    EXPECT_EQ(findingsIn(u"#include \"more.loc\"\n"),
              "t:1: error: the file \"more.loc\" is not there: its name must not be quoted\n");
}

TEST_F(languageCheckIncludes, aFolderIsNoFile)
{
    machine::current().addDirectory(u"C:\\work\\more");
    EXPECT_EQ(findingsIn(u"#include more\n"), "t:1: error: \"more\" is a folder, not a file\n");
}

TEST_F(languageCheckIncludes, anIncludeThatGoesInACircle)
{
    EXPECT_EQ(findingsIn(u"#include t\n"), "t:1: error: \"t\" includes itself by this line\n");
    addText(u"sub\\b", u"b y\n#include ..\\T\n");
    EXPECT_EQ(findingsIn(u"#include sub/b\na x\n"),
              "sub/b:2: error: \"sub/..\\T\" includes itself by this line\n");
}

TEST_F(languageCheckIncludes, aMarkBehindOtherWordsIsTold)
{
    EXPECT_EQ(findingsIn(u"a #include more.loc\n"),
              "t:1: warning: \"#include\" counts at the start of a line alone\n");
}

TEST_F(languageCheckIncludes, includedFilesAreCheckedOnceAndByTheirOwnNames)
{
    addText(u"more\\b.loc", u"b C:x\n#include c.loc\n");
    addText(u"more\\c.loc", u"c\n");
    EXPECT_EQ(findingsIn(u"a x\n#include more/b.loc\n#include more/c.loc\n"),
              "more/b.loc:1: error: \"C:\" in front of the text is taken for a severity, and is "
              "lost: quote the text with a blank in front\n"
              "more/c.loc:1: error: \"c\" is a key alone, without a text\n");
}

TEST_F(languageCheckIncludes, whatIsAllowedPassesInSilence)
{
    addText(u"more.loc", u"a from there\nb x\n");
    addText(u"folder\\two words.loc", u"#include ../more.loc\nc x\n");
    for (const char16_t* const text : {
             u"a x\n#include more.loc\n",
             u"a x\n#include more.loc ; note\n",
             u" \t#include\tmore.loc\nb $$a\n",
             u"#include more.loc\n#include folder\\two words.loc\nd $$c\n",
             u"#include more.loc\n#include MORE.loc\n",
             u"; #include nothing.loc\n",
             u"; how to #include ; nothing\n",
         })
        EXPECT_EQ(findingsIn(text), "") << orlo::narrow(text);
}

TEST_F(languageCheckIncludes, aLongChainTakesNoStack)
{
    const int count = 3000;
    for (int each = 0; each < count; ++each) {
        const std::string next = each + 1 < count ? "#include " + std::to_string(each + 1) : "a";
        addText(string(std::to_string(each).c_str()), string(next.c_str()));
    }
    EXPECT_EQ(check({u"0"}).output, "2999:1: error: \"a\" is a key alone, without a text\n");
}

TEST_F(languageCheckAliases, anAliasToNothing)
{
    EXPECT_EQ(findingsIn(u"a $$b\n"), "t:1: error: \"$$b\" leads to no text\n");
    EXPECT_EQ(findingsIn(u"a $$b\nb $$c\n"), "t:1: error: \"$$b\" leads to no text\n"
                                             "t:2: error: \"$$c\" leads to no text\n");
}

TEST_F(languageCheckAliases, anAliasInACircle)
{
    EXPECT_EQ(findingsIn(u"a $$a\n"), "t:1: error: \"$$a\" leads in a circle\n");
    EXPECT_EQ(findingsIn(u"a $$b\nb $$a\n"), "t:1: error: \"$$b\" leads in a circle\n"
                                             "t:2: error: \"$$a\" leads in a circle\n");
}

TEST_F(languageCheckAliases, leadIntoIncludedFilesButNotBack)
{
    addText(u"more", u"b text\nc $$a\n");
    EXPECT_EQ(findingsIn(u"a $$b\n#include more\n"), "more:2: error: \"$$a\" leads to no text\n");
}

} // namespace includesTest
