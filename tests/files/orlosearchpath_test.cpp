#include "orlosearchpath.h"

#include "orlofile.h"
#include "orlotypeconvert.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlosearchpathTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

using paths = std::vector<string>;

paths pathsOf(const searchPath& search)
{
    paths found;
    for (const directory& entry : search.directories()) found.push_back(entry.path());
    return found;
}

// On a machine with C:\a, C:\b and, below the program's directory, "sub" and ".hidden".
class searchPathTest : public testing::Test {
protected:
    searchPathTest() : here(machine::renew())
    {
        for (const char16_t* path :
             {u"C:\\a", u"C:\\b", u"C:\\tool\\bin\\sub", u"C:\\tool\\bin\\.hidden"})
            here.addDirectory(path);
    }
    paths parsed(const char16_t* text, char16_t delimiter = u';')
    {
        searchPath result;
        result.parse(text, directory(u"C:\\tool\\bin"), delimiter);
        return pathsOf(result);
    }
    machine& here;
    searchPath search;
    directory where{u"unchanged"};
    file found{u"unchanged"};
};

} // namespace

TEST_F(searchPathTest, keepsTheOrderOfItsDirectories)
{
    search.addDirectory(directory(u"C:\\z"));
    search.addDirectory(directory(u"C:\\a"));
    EXPECT_EQ(pathsOf(search), (paths{u"C:\\z\\", u"C:\\a\\"})); // also a missing one
}

TEST_F(searchPathTest, holdsADirectoryOnceInAnyCase)
{
    search.addDirectory(directory(u"C:\\Abc"));
    search.addDirectory(directory(u"c:\\aBC"));
    EXPECT_EQ(pathsOf(search), (paths{u"C:\\Abc\\"}));
    EXPECT_TRUE(search.containsDirectory(directory(u"C:\\ABC\\")));
    EXPECT_FALSE(search.containsDirectory(directory(u"C:\\abcd")));
}

TEST_F(searchPathTest, comparesWholePaths)
{
    search.addDirectory(directory(u"C:\\a\\b"));
    EXPECT_FALSE(search.containsDirectory(directory(u"C:\\a")));
    EXPECT_FALSE(search.containsDirectory(directory(u"C:\\a\\b\\c")));
    EXPECT_FALSE(search.containsDirectory(directory(u"D:\\a\\b")));
}

TEST_F(searchPathTest, tellsCaseOnlyOfAsciiLetters)
{
    search.addDirectory(directory(u"C:\\\u00c4"));
    EXPECT_FALSE(search.containsDirectory(directory(u"C:\\\u00e4")));
}

TEST_F(searchPathTest, isCopiedLikeAValue)
{
    search.addDirectory(directory(u"C:\\a"));
    const searchPath copy = search;
    search.addDirectory(directory(u"C:\\b"));
    EXPECT_EQ(pathsOf(copy), (paths{u"C:\\a\\"}));
}

TEST_F(searchPathTest, readsItsTextForm)
{
    struct row {
        const char16_t* text;
        paths directories;
    };
    const row rows[] = {
        {u"", {}},
        {u"C:\\a;C:\\b", {u"C:\\a\\", u"C:\\b\\"}},
        {u"  C:\\a ; C:\\b  ", {u"C:\\a\\", u"C:\\b\\"}},
        {u"\t C:\\b\t;\tC:\\a", {u"C:\\b\\", u"C:\\a\\"}},
        {u"C:\\a;;C:\\b; \t ;", {u"C:\\a\\", u"C:\\b\\"}},
        {u"C:\\a;C:\\b\\;c:\\A", {u"C:\\a\\", u"C:\\b\\"}},
        {u"C:\\a\\;C:/x/../b", {u"C:\\a\\", u"C:\\b\\"}},
        {u"C:\\missing;C:\\a", {u"C:\\a\\"}},
        {u".", {u"C:\\tool\\bin\\"}},
        {u"..", {u"C:\\tool\\"}},
        {u".\\sub", {u"C:\\tool\\bin\\sub\\"}},
        {u"..\\bin\\sub", {u"C:\\tool\\bin\\sub\\"}},
        {u".hidden", {u"C:\\tool\\bin\\.hidden\\"}},
        {u"sub", {}},
    };
    for (const row& row : rows) {
        SCOPED_TRACE(narrow(string(row.text)));
        EXPECT_EQ(parsed(row.text), row.directories);
    }
}

TEST_F(searchPathTest, readsPiecesFromOneOfItsOwnEntries)
{
    for (const char16_t* path : {u"C:\\a\\x", u"C:\\a\\y", u"C:\\a\\z"}) here.addDirectory(path);
    search.addDirectory(directory(u"C:\\a"));
    search.parse(u".\\x;.\\y;.\\z", search.directories().front(), u';');
    EXPECT_EQ(pathsOf(search), (paths{u"C:\\a\\", u"C:\\a\\x\\", u"C:\\a\\y\\", u"C:\\a\\z\\"}));
}

TEST_F(searchPathTest, dropsOnlyBlanksAndTabsAroundAPiece)
{
    for (const char16_t unit : {u'\n', u'\r', u'\v', u'\f', u'\u00a0', u'\u3000'}) {
        EXPECT_EQ(parsed((u"C:\\a" + string(unit)).c_str()), paths{}) << unsigned{unit};
        EXPECT_EQ(parsed((u" \t" + string(unit) + u"C:\\a").c_str()), paths{}) << unsigned{unit};
    }
}

TEST_F(searchPathTest, takesAPieceWithoutADotFromTheCurrentDirectory)
{
    here.addDirectory(u"C:\\work\\sub");
    EXPECT_EQ(parsed(u"sub;.\\sub"), (paths{u"C:\\work\\sub\\", u"C:\\tool\\bin\\sub\\"}));
}

TEST_F(searchPathTest, takesAnyUnitAsDelimiter)
{
    EXPECT_EQ(parsed(u"C:\\a|C:\\b", u'|'), (paths{u"C:\\a\\", u"C:\\b\\"}));
}

TEST_F(searchPathTest, dropsADirectoryThatTheSystemDoesNotSee)
{
    here.failCall("access", 1);
    EXPECT_EQ(parsed(u"C:\\a;C:\\b"), (paths{u"C:\\b\\"}));
    here.addFile(u"C:\\f", "");
    EXPECT_EQ(parsed(u"C:\\f"), paths{}); // the separator behind it makes it no file
}

TEST_F(searchPathTest, findsNothingWithoutDirectories)
{
    EXPECT_FALSE(search.findFile(u"f", found, true));
    EXPECT_FALSE(search.findInDirectories(u"f", where, true));
    EXPECT_EQ(found.path(), string(u"unchanged"));
    EXPECT_EQ(where.path(), string(u"unchanged\\"));
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(searchPathTest, findsTheFirstOfItsDirectoriesWithTheFile)
{
    search.addDirectory(directory(u"C:\\missing"));
    search.addDirectory(directory(u"C:\\a"));
    search.addDirectory(directory(u"C:\\b"));
    here.addFile(u"C:\\b\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, false));
    EXPECT_EQ(found.path(), string(u"C:\\b\\f"));
    EXPECT_FALSE(found.trailingSeparator());
    here.addFile(u"C:\\a\\f", "");
    EXPECT_TRUE(search.findInDirectories(u"f", where, false));
    EXPECT_EQ(where.path(), string(u"C:\\a\\"));
    EXPECT_TRUE(where.trailingSeparator());
}

TEST_F(searchPathTest, takesANameWithSubFolders)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addFile(u"C:\\a\\english\\language.loc", "");
    for (const char16_t* name : {u"english/language.loc", u"english\\language.loc"}) {
        EXPECT_TRUE(search.findFile(name, found, false));
        EXPECT_EQ(found.path(), string(u"C:\\a\\english\\language.loc"));
    }
    EXPECT_TRUE(search.findInDirectories(u"english/language.loc", where, false));
    EXPECT_EQ(where.path(), string(u"C:\\a\\"));
}

TEST_F(searchPathTest, doesNotTakeADirectoryForTheFile)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addDirectory(u"C:\\a\\f");
    EXPECT_FALSE(search.findFile(u"f", found, false));
    EXPECT_FALSE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"unchanged"));
}

TEST_F(searchPathTest, looksIntoSubdirectoriesOnlyIfAsked)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addFile(u"C:\\a\\x\\y\\f", "");
    EXPECT_FALSE(search.findFile(u"f", found, false));
    EXPECT_EQ(here.countCalls("findFirst"), 0u);
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\x\\y\\f"));
    EXPECT_TRUE(search.findInDirectories(u"f", where, true));
    EXPECT_EQ(where.path(), string(u"C:\\a\\x\\y\\"));
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(searchPathTest, searchesDepthFirst)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addDirectory(u"C:\\a\\1\\deep");
    here.addFile(u"C:\\a\\2\\f", "");
    here.addFile(u"C:\\a\\1\\deep\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\1\\deep\\f"));
    here.addFile(u"C:\\a\\1\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\1\\f"));
}

TEST_F(searchPathTest, goesOnWithTheNextSibling)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addDirectory(u"C:\\a\\1\\x\\y");
    here.addFile(u"C:\\a\\2\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\2\\f"));
}

TEST_F(searchPathTest, prefersTheTreeOfAnEarlierDirectory)
{
    search.addDirectory(directory(u"C:\\a"));
    search.addDirectory(directory(u"C:\\b"));
    here.addFile(u"C:\\b\\f", "");
    here.addFile(u"C:\\a\\x\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\x\\f"));
}

TEST_F(searchPathTest, passesOverHiddenAndSystemSubdirectories)
{
    search.addDirectory(directory(u"C:\\a"));
    here.addFile(u"C:\\a\\x\\f", "");
    here.addFile(u"C:\\a\\y\\f", "");
    here.setAttributes(u"C:\\a\\x", attributeHidden);
    here.setAttributes(u"C:\\a\\y", attributeSystem);
    EXPECT_FALSE(search.findFile(u"f", found, true));
}

TEST_F(searchPathTest, goesDownAsDeepAsTheTree)
{
    search.addDirectory(directory(u"C:\\a"));
    string deep(u"C:\\a");
    for (int i = 0; i < 200; ++i) deep.append(u"\\d");
    here.addFile(deep + u"\\f", "");
    EXPECT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), deep + u"\\f");
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(searchPathTest, isWrittenWithADelimiterBetweenItsDirectories)
{
    string text(u"old");
    EXPECT_TRUE(typeconvert::convert(text, search));
    EXPECT_EQ(text, string());
    search.addDirectory(directory(u"C:\\a"));
    EXPECT_TRUE(typeconvert::convert(text, search));
    EXPECT_EQ(text, string(u"C:\\a\\"));
    search.addDirectory(directory(u"C:\\missing"));
    EXPECT_TRUE(typeconvert::convert(text, search));
    EXPECT_EQ(text, string(u"C:\\a\\;C:\\missing\\"));
}

TEST_F(searchPathTest, isReadFromTextBelowTheProgramBehindWhatItHolds)
{
    search.addDirectory(directory(u"C:\\kept"));
    EXPECT_TRUE(typeconvert::convert(search, string(u".\\sub;C:\\a;C:\\missing")));
    EXPECT_EQ(pathsOf(search), (paths{u"C:\\kept\\", u"C:\\tool\\bin\\sub\\", u"C:\\a\\"}));
    EXPECT_TRUE(typeconvert::convert(search, string()));
    EXPECT_EQ(search.directories().size(), 3u);
}

TEST_F(searchPathTest, isReadFromATextAlsoWhereTheProgramsDirectoryIsUnknown)
{
    here.modules.clear();
    EXPECT_TRUE(typeconvert::convert(search, string(u"C:\\a;.\\sub")));
    EXPECT_EQ(pathsOf(search), (paths{u"C:\\a\\"}));
    EXPECT_TRUE(typeconvert::convert(search, string()));
}

// So many searches may be open at a time, and a tree may be deeper.
TEST_F(searchPathTest, hasNoSearchOpenWhileItGoesDown)
{
    here.addFile(u"C:\\a\\1\\2\\3\\4\\f", "");
    here.addDirectory(u"C:\\a\\1\\other");
    search.addDirectory(directory(u"C:\\a"));
    here.calls.clear();
    ASSERT_TRUE(search.findFile(u"f", found, true));
    int open = 0;
    for (const auto& call : here.calls) {
        open += (call.operation == "findFirst") - (call.operation == "findClose");
        EXPECT_LE(open, 1);
        EXPECT_TRUE(call.operation != "queryStatus" || open == 0) << narrow(call.subject);
    }
    EXPECT_EQ(open, 0);
}

TEST_F(searchPathTest, searchesATreeWhoseDirectoriesCannotBeToldApart)
{
    here.addFile(u"C:\\a\\1\\2\\f", "");
    search.addDirectory(directory(u"C:\\a"));
    for (std::size_t nth = 1; nth <= 3; ++nth) here.failCall("identityOf", nth);
    ASSERT_TRUE(search.findFile(u"f", found, true));
    EXPECT_EQ(found.path(), string(u"C:\\a\\1\\2\\f"));
}

} // namespace orlosearchpathTest
