#include "messages/languageentries.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace languageentriesTest {

using orlo::languageEntries;
using orlo::languageEntry;
using orlo::languageLines;
using orlo::string;

namespace {

struct entryRow {
    const char16_t* key;
    const char16_t* value;
    std::size_t line;
};

void expectEntries(const string& text, const std::vector<entryRow>& rows)
{
    languageEntries entries(text);
    languageEntry entry;
    for (const entryRow& row : rows) {
        ASSERT_TRUE(entries.next(entry)) << orlo::narrow(row.key);
        EXPECT_EQ(entry.key, row.key);
        EXPECT_EQ(entry.value, row.value);
        EXPECT_EQ(entry.line, row.line) << orlo::narrow(row.key);
    }
    EXPECT_FALSE(entries.next(entry));
    EXPECT_FALSE(entries.next(entry)) << "the end stays the end";
}

} // namespace

TEST(languageEntries, comeInTheirOrderWithTheLinesOnWhichTheyBegin)
{
    expectEntries(
        u"; a comment\nzone 1\n\n \t\nkey first \\\n\nsecond\\\nthird\nalone\nzone 2\nlast $$key",
        {{u"zone", u"1", 2},
         {u"key", u"first secondthird", 5},
         {u"zone", u"2", 10},
         {u"last", u"$$key", 11}});
    expectEntries(u"", {});
    expectEntries(u"; nothing\nkey\n", {});
    expectEntries(u"key value \\\nmore \\\n", {});
    expectEntries(u"#include more.loc\n;;cmd(replace:::a:::b)\nE E:severe\n",
                  {{u"#include", u"more.loc", 1}, {u"E", u"E:severe", 3}});
}

TEST(languageEntries, countTheLinesThatAnEditorShows)
{
    const string filler(std::u16string(1018, u'a'));
    // The second line comes in three pieces, of which the second and the third are entries too.
    const string text = u"a 1\nlong " + filler + u"tail " + filler + u"more words\nlast 3\n";
    expectEntries(text, {{u"a", u"1", 1},
                         {u"long", filler.c_str(), 2},
                         {u"tail", filler.c_str(), 2},
                         {u"more", u"words", 2},
                         {u"last", u"3", 3}});
    // A line that ends with its piece is one line.
    expectEntries(u"long " + filler.substr(1) + u"\nlast 2\n",
                  {{u"long", filler.substr(1).c_str(), 1}, {u"last", u"2", 2}});
    expectEntries(u"long " + filler + u"\nlast 2\n",
                  {{u"long", filler.c_str(), 1}, {u"last", u"2", 2}});
}

TEST(languageSteps, tellWhatEachLineIsToTheEntries)
{
    const string text = u"; note\n\nkey\\\na;b x\nkey two words\\\n\n\"more\" ;\\\nlast\nkey x";
    using kind = orlo::languageStep::kind;
    const struct {
        kind what;
        const char16_t* key;
        const char16_t* value;
        bool goesOn;
        std::size_t line;
    } rows[] = {
        {kind::comment, u";", u"", false, 1},
        {kind::keyAlone, u"key", u"", true, 3},
        {kind::comment, u"a;b", u"", false, 4},
        {kind::begins, u"key", u"two words", true, 5},
        {kind::continues, u"", u"\"more\" ;", true, 7},
        {kind::continues, u"", u"last", false, 8},
        {kind::begins, u"key", u"x", false, 9},
    };
    orlo::languageSteps steps(text);
    orlo::languageStep step;
    for (const auto& row : rows) {
        ASSERT_TRUE(steps.next(step));
        EXPECT_EQ(step.what, row.what) << row.line;
        EXPECT_EQ(string(step.key), row.key) << row.line;
        EXPECT_EQ(string(step.value), row.value) << row.line;
        EXPECT_EQ(step.goesOn, row.goesOn) << row.line;
        EXPECT_EQ(step.line, row.line);
    }
    EXPECT_FALSE(steps.next(step));
}

TEST(languageValues, areCutAtTheLastQuoteOrTheLastSemicolon)
{
    const struct {
        const char16_t* line;
        const char16_t* text;
        const char16_t* dropped;
        bool quoted, closed, comment;
    } rows[] = {
        {u"two  words", u"two  words", u"", false, false, false},
        {u"a;b ;c", u"a;b", u"c", false, false, true},
        {u"a ;", u"a", u"", false, false, true},
        {u"\"a ; \"b\" ; c", u"a ; \"b", u" ; c", true, true, false},
        {u"\"open ; c", u"open ; c", u"", true, false, false},
        {u"\"\"", u"", u"", true, true, false},
        {u"say \"a\"", u"say \"a\"", u"", false, false, false},
        {u"", u"", u"", false, false, false},
    };
    for (const auto& row : rows) {
        const string line = row.line;
        const orlo::languageValue value = orlo::readLanguageValue(line);
        EXPECT_EQ(string(value.text), row.text) << orlo::narrow(line);
        EXPECT_EQ(string(value.dropped), row.dropped) << orlo::narrow(line);
        EXPECT_EQ(value.quoted, row.quoted) << orlo::narrow(line);
        EXPECT_EQ(value.closed, row.closed) << orlo::narrow(line);
        EXPECT_EQ(value.comment, row.comment) << orlo::narrow(line);
    }
}

TEST(languageLines, endBehindALineFeedOr1023Units)
{
    const string longest(std::u16string(languageLines::maxLine, u'x'));
    const string text = u"one\n\n" + longest + u"\nlast";
    languageLines lines(text);
    const std::pair<string, std::size_t> expected[] = {
        {u"one\n", 1}, {u"\n", 2}, {longest, 3}, {u"\n", 3}, {u"last", 4}};
    std::u16string_view line;
    for (const auto& [units, number] : expected) {
        ASSERT_TRUE(lines.next(line));
        EXPECT_EQ(string(line), units);
        EXPECT_EQ(lines.number(), number);
    }
    EXPECT_FALSE(lines.next(line));
    EXPECT_EQ(string(line), string(u"last"));
}

TEST(includedNames, areThoseOfTheLinesWithTheMark)
{
    EXPECT_EQ(
        orlo::includedNames(u"key x\n#include a.loc ; first\n \t#include\tb c\t\n; #include d\n"),
        (std::vector<string>{u"a.loc", u"b c"}));
    EXPECT_TRUE(orlo::includedNames(u"").empty());
}

TEST(languageCommands, areReadBehindThoseThatAreKnown)
{
    std::vector<string> commands{u"known"};
    orlo::readCommands(u"key ;;cmd(a:::b) \t\n;;cmd()\n;;cmd(x\ty)))\r\n; ;cmd(no)\n", commands);
    EXPECT_EQ(commands, (std::vector<string>{u"known", u"a:::b", u"", u"x\ty"}));
}

} // namespace languageentriesTest
