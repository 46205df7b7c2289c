#include "orlodirectory.h"

#include "orlofile.h"
#include "orlotypeconvert.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace orlodirectoryTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

class directoryTest : public testing::Test {
protected:
    directoryTest() : here(machine::renew()) {}
    machine& here;
    directory folder{u"C:\\d"};
};

using paths = std::vector<string>;

paths pathsOf(directorySearch search)
{
    paths found;
    for (; !search.path().empty(); search.next()) found.push_back(search.path());
    return found;
}

} // namespace

TEST_F(directoryTest, endsInOneSeparator)
{
    EXPECT_EQ(directory(u"C:\\a").path(), string(u"C:\\a\\"));
    EXPECT_EQ(directory(u"C:\\a\\\\").path(), string(u"C:\\a\\"));
    EXPECT_EQ(directory(u"C:").path(), string(u"C:\\"));
    EXPECT_TRUE(directory(u"C:\\a").trailingSeparator());
}

TEST_F(directoryTest, storesOnePathAsItComesAndNormalisesTwo)
{
    EXPECT_EQ(directory(u"a/../b").path(), string(u"a/../b\\"));
    EXPECT_EQ(directory(u"C:\\a", u"../b").path(), string(u"C:\\b\\"));
    EXPECT_EQ(directory(u"C:\\", u"..").path(), string(u"C:\\"));
}

TEST_F(directoryTest, withoutAPathDoesNotExist)
{
    directory nothing;
    EXPECT_EQ(nothing.path(), string());
    EXPECT_FALSE(nothing.exists());
    EXPECT_FALSE(nothing.rename(u"x"));
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(directoryTest, existsWhereSomethingIsThere)
{
    EXPECT_FALSE(folder.exists());
    here.addDirectory(u"C:\\d");
    EXPECT_TRUE(folder.exists());
    EXPECT_TRUE(directory(u"C:").exists());
    here.failCall("access", 1);
    EXPECT_FALSE(folder.exists());
}

TEST_F(directoryTest, normalisesANewPath)
{
    folder.setPath(u"C:\\a\\..\\b");
    EXPECT_EQ(folder.path(), string(u"C:\\b\\"));
    folder.setPath(u"sub/");
    EXPECT_EQ(folder.path(), string(u"C:\\work\\sub\\"));
    folder.setPath(u"C:\\");
    EXPECT_EQ(folder.path(), string(u"C:\\"));
    folder.setPath(u"");
    EXPECT_EQ(folder.path(), string());
}

TEST_F(directoryTest, isRenamedInItsParentAndFollows)
{
    here.addFile(u"C:\\a\\b\\f", "x");
    directory renamed(u"C:\\a\\b\\");
    EXPECT_TRUE(renamed.rename(u"c"));
    EXPECT_EQ(renamed.path(), string(u"C:\\a\\c\\"));
    EXPECT_TRUE(here.hasFile(u"C:\\a\\c\\f"));
    EXPECT_FALSE(here.hasDirectory(u"C:\\a\\b"));
}

TEST_F(directoryTest, isRenamedAsTheTextStandsAndFollowsInTheNormalForm)
{
    here.addDirectory(u"C:\\a\\b");
    directory renamed(u"C:\\a\\b");
    EXPECT_TRUE(renamed.rename(u"../c"));
    EXPECT_EQ(renamed.path(), string(u"C:\\c\\"));
    EXPECT_TRUE(here.hasDirectory(u"C:\\c"));
}

TEST_F(directoryTest, staysWhereTheSystemRefusesToRename)
{
    here.addDirectory(u"C:\\a\\b");
    here.addDirectory(u"C:\\a\\c");
    directory renamed(u"C:\\a\\b");
    EXPECT_FALSE(renamed.rename(u"c"));
    EXPECT_EQ(here.countCalls("access") + here.countCalls("queryStatus"),
              0u); // the system's answer is all
    here.failCall("renameEntry", 1);
    EXPECT_FALSE(renamed.rename(u"d"));
    EXPECT_EQ(renamed.path(), string(u"C:\\a\\b\\"));
    EXPECT_FALSE(directory(u"C:\\missing").rename(u"d"));
}

TEST_F(directoryTest, findsSubdirectoriesInTheSystemsOrder)
{
    here.addDirectory(u"C:\\d\\z");
    here.addDirectory(u"C:\\d\\a.b");
    here.addDirectory(u"C:\\d\\m");
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*.*", skipHiddenAndSystem)),
              (paths{u"C:\\d\\z\\", u"C:\\d\\a.b\\", u"C:\\d\\m\\"}));
    EXPECT_EQ(pathsOf(folder.findDirectories(u"?", skipHiddenAndSystem)),
              (paths{u"C:\\d\\z\\", u"C:\\d\\m\\"}));
}

TEST_F(directoryTest, findsTheVeryFirstHit)
{
    here.addDirectory(u"C:\\d\\sub");
    EXPECT_EQ(pathsOf(folder.findDirectories(u"sub", 0)), (paths{u"C:\\d\\sub\\"}));
    EXPECT_EQ(here.countCalls("findNext"), 1u);
}

TEST_F(directoryTest, neverFindsItselfOrItsParent)
{
    here.addDirectory(u"C:\\d\\.git");
    here.addDirectory(u"C:\\d\\..x");
    here.addDirectory(u"C:\\d\\...");
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*.*", 0)),
              (paths{u"C:\\d\\.git\\", u"C:\\d\\..x\\", u"C:\\d\\...\\"}));
    here.addDirectory(u"C:\\e");
    EXPECT_TRUE(directory(u"C:\\e").findDirectories(u"*.*", 0).path().empty());
    EXPECT_TRUE(directory(u"C:\\e").findDirectories(u"*", 0).path().empty());
}

TEST_F(directoryTest, passesOverFiles)
{
    here.addFile(u"C:\\d\\a.x", "");
    here.addDirectory(u"C:\\d\\b.x");
    here.addFile(u"C:\\d\\c.x", "");
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*.x", 0)), (paths{u"C:\\d\\b.x\\"}));
}

TEST_F(directoryTest, withFilesAloneHasNoSubdirectory)
{
    here.addFile(u"C:\\d\\a", "");
    here.addFile(u"C:\\d\\b", "");
    directorySearch search = folder.findDirectories(u"*.*", skipHiddenAndSystem);
    EXPECT_TRUE(search.path().empty());
    search.next();
    EXPECT_TRUE(search.path().empty());
}

TEST_F(directoryTest, passesOverSubdirectoriesWithASkippedAttribute)
{
    for (const char16_t* name : {u"C:\\d\\1", u"C:\\d\\2", u"C:\\d\\3", u"C:\\d\\4"})
        here.addDirectory(name);
    here.setAttributes(u"C:\\d\\1", attributeHidden);
    here.setAttributes(u"C:\\d\\3", attributeSystem);
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*.*", skipHiddenAndSystem)),
              (paths{u"C:\\d\\2\\", u"C:\\d\\4\\"}));
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*.*", 0)).size(), 4u);
}

TEST_F(directoryTest, findsNothingIfSubdirectoriesAreSkipped)
{
    here.addDirectory(u"C:\\d\\a");
    EXPECT_TRUE(pathsOf(folder.findDirectories(u"*.*", attributeSubdirectory)).empty());
}

TEST_F(directoryTest, findsNothingWhereItIsMissing)
{
    directorySearch search = folder.findDirectories(u"*.*", 0);
    EXPECT_TRUE(search.path().empty());
    search.next();
    EXPECT_TRUE(search.path().empty());
    EXPECT_EQ(here.countCalls("findNext") + here.countCalls("findClose"), 0u);
}

TEST_F(directoryTest, endsItsSearchWhereTheSystemFails)
{
    here.addDirectory(u"C:\\d\\ax");
    here.addDirectory(u"C:\\d\\bx");
    here.failCall("findNext", 1);
    EXPECT_EQ(pathsOf(folder.findDirectories(u"*x", 0)), (paths{u"C:\\d\\ax\\"}));
    here.failCall("findFirst", 1);
    EXPECT_TRUE(pathsOf(folder.findDirectories(u"*x", 0)).empty());
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(directoryTest, closesTheSystemsSearchOnce)
{
    here.addDirectory(u"C:\\d\\a");
    {
        directorySearch search = folder.findDirectories(u"*.*", 0);
        const directorySearch moved = std::move(search);
        EXPECT_EQ(moved.path(), string(u"C:\\d\\a\\"));
        EXPECT_EQ(here.openHandles(), 1u);
    }
    EXPECT_EQ(here.openHandles(), 0u);
    EXPECT_EQ(here.countCalls("findClose"), 1u);
}

TEST_F(directoryTest, normalisesThePathsOfItsHits)
{
    here.addDirectory(u"C:\\d\\x1");
    here.addDirectory(u"C:\\d\\x2");
    EXPECT_EQ(pathsOf(directory(u"C:/a/../d").findDirectories(u"x?", 0)),
              (paths{u"C:\\d\\x1\\", u"C:\\d\\x2\\"}));
}

TEST_F(directoryTest, withoutAPathJoinsTheVeryFirstHitToNothing)
{
    here.addDirectory(u"C:\\work\\x1");
    here.addDirectory(u"C:\\work\\x2");
    EXPECT_TRUE(pathsOf(directory().findDirectories(u"x?", 0)).empty());
    EXPECT_EQ(pathsOf(directory().findDirectories(u"*", 0)),
              (paths{u"C:\\work\\x1\\", u"C:\\work\\x2\\"}));
}

TEST_F(directoryTest, isWrittenAsItsPathWithTheSeparator)
{
    string text(u"old");
    EXPECT_TRUE(typeconvert::convert(text, folder));
    EXPECT_EQ(text, string(u"C:\\d\\"));
    EXPECT_FALSE(typeconvert::convert(text, directory()));
    EXPECT_EQ(text, string());
}

TEST_F(directoryTest, isReadFromATextInTheNormalForm)
{
    directory read(u"old");
    EXPECT_TRUE(typeconvert::convert(read, string(u"sub/../x")));
    EXPECT_EQ(read.path(), string(u"C:\\work\\x\\"));
    EXPECT_TRUE(read.trailingSeparator());
    EXPECT_FALSE(typeconvert::convert(read, string()));
    EXPECT_EQ(read.path(), string());
}

TEST_F(directoryTest, becomesAFileByWayOfText)
{
    file converted;
    EXPECT_TRUE(typeconvert::convert(converted, folder));
    EXPECT_EQ(converted.path(), string(u"C:\\d"));
}

} // namespace orlodirectoryTest
