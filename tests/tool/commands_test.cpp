#include "commands.h"

#include "orlolanguagetable.h"
#include "tool/toolrun.h"

#include <gtest/gtest.h>

namespace commandsTest {

using namespace taven::tests;

namespace {

class commands : public testing::Test {
protected:
    void SetUp() override { machine::renew(); }
};

const string unknownCommand(const string& word)
{
    return u"tavenMorrel.exe: Invalid command \"" + word + u"\"";
}

string languageTold;
void noteLanguage(const char16_t*, const char16_t* now)
{
    languageTold = now;
}

// The language that a run hands to the table.
string languageOf(const std::vector<string>& given,
                  const char16_t* programName = u"tavenMorrel.exe")
{
    auto& table = orlo::languageTable::instance();
    table.setLanguage(u"another one");
    table.addListener(noteLanguage);
    languageTold = u"<not told>";
    run(given, programName);
    table.removeListener(noteLanguage);
    return languageTold;
}

} // namespace

TEST_F(commands, refuseAnUnknownWordWithAReportAndZero)
{
    const struct {
        std::vector<string> given;
        string shown;
    } rows[] = {
        {{}, u""},
        {{u"-cmd:"}, u""},
        {{u"-cmd:FOO"}, u"foo"},
        {{u"-CMD:slistat"}, u""},
        {{u"x-cmd:slistat"}, u""},
        {{u"-cmd:slistat "}, u"slistat "},
        {{u"-cmd:slista"}, u"slista"},
        {{u"-cmd:getncs", u"-cmd:"}, u""},
    };
    for (const auto& row : rows) {
        machine::renew();
        EXPECT_EQ(run(row.given), 0);
        EXPECT_EQ(onlyBox(), unknownCommand(row.shown));
    }
}

TEST_F(commands, readNoFileForAnUnknownWord)
{
    run({u"-cmd:foo"});
    EXPECT_EQ(machine::current().countCalls("openFile"), 0u);
}

// The status shown under -debug tells that slistat ran, the folder's report that getncs did.
TEST_F(commands, foldTheCommandWord)
{
    EXPECT_EQ(run({u"-cmd:SliStat", u"-debug", u"-stat:x"}), 0);
    EXPECT_EQ(onlyBox(), u"Status message: \"x\"");
    machine::renew();
    EXPECT_EQ(run({u"-cmd:GetNCS", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Folder for result \"\" not existing");
}

TEST_F(commands, lastCommandWordWins)
{
    run({u"-cmd:slistat", u"-cmd:getncs", u"-debug"});
    EXPECT_EQ(onlyBox(), u"Folder for result \"\" not existing");
}

TEST_F(commands, takeDebugAsAPrefix)
{
    for (const char16_t* flag : {u"-debug", u"-debugger", u"-debug:0"}) {
        machine::renew();
        run({u"-cmd:slistat", flag});
        EXPECT_EQ(onlyBox(), u"Status message: \"\"");
    }
    for (const char16_t* none : {u"-Debug", u"debug", u"x-debug", u"-debu"}) {
        machine::renew();
        run({u"-cmd:slistat", none});
        EXPECT_TRUE(boxes().empty());
    }
}

// Of the name of the program nothing is read, whatever it looks like.
TEST_F(commands, neverExamineTheProgramsName)
{
    run({u"-cmd:slistat", u"-stat:x"}, u"-debug");
    EXPECT_TRUE(boxes().empty());
    run({}, u"-cmd:slistat");
    EXPECT_EQ(onlyBox(), unknownCommand(u""));
    EXPECT_EQ(languageOf({}, u"-language:german"), u"english");
}

TEST_F(commands, handTheLanguageOnAsWritten)
{
    EXPECT_EQ(languageOf({u"-cmd:slistat", u"-language:German"}), u"German");
    EXPECT_EQ(languageOf({u"-cmd:slistat", u"-language:"}), u"");
    EXPECT_EQ(languageOf({u"-cmd:slistat"}), u"english");
    EXPECT_EQ(languageOf({u"-cmd:slistat", u"-language:a", u"-language:b"}), u"b");
}

TEST_F(commands, setTheLanguageAlsoForAnUnknownWord)
{
    EXPECT_EQ(languageOf({u"-cmd:foo", u"-language:polish"}), u"polish");
}

TEST_F(commands, letTheSwitchesOfACommandPass)
{
    machine::current().addDirectory(u"C:\\taven");
    EXPECT_EQ(run({u"-platform:P", u"-tavenfldr:C:\\taven", u"-cmd:slistat", u"-stat:started"}), 0);
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(machine::current().countCalls("findFirst"), 1u);
}

} // namespace commandsTest
