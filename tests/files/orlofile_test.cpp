#include "orlofile.h"

#include "orlodirectory.h"
#include "orlotypeconvert.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace orlofileTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

class fileTest : public testing::Test {
protected:
    fileTest() : here(machine::renew())
    {
        here.addFile(u"C:\\a\\f.txt", "12345");
        here.setModificationTime(u"C:\\a\\f.txt", 1000);
        here.addDirectory(u"C:\\a\\sub");
    }
    // The calls of the system, with their modes.
    [[nodiscard]] std::vector<std::string> asked() const
    {
        std::vector<std::string> all;
        for (const auto& call : here.calls)
            all.push_back(call.operation + " " + std::to_string(call.mode));
        return all;
    }
    machine& here;
    file present{u"C:\\a\\f.txt"};
    file missing{u"C:\\a\\m.txt"};
    file folder{u"C:\\a\\sub"};
    file nothing;
};

class fileSearchTest : public testing::Test {
protected:
    fileSearchTest() : here(machine::renew()) {}
    machine& here;
    directory folder{u"C:\\d"};
};

std::vector<string> pathsOf(fileSearch search)
{
    std::vector<string> paths;
    for (; !search.path().empty(); search.next()) paths.push_back(search.path());
    return paths;
}

using paths = std::vector<string>;

} // namespace

TEST_F(fileTest, storesOnePathAsItComes)
{
    EXPECT_EQ(file(u"a/../b").path(), string(u"a/../b"));
    EXPECT_EQ(file().path(), string());
    EXPECT_FALSE(file(u"a").trailingSeparator());
}

TEST_F(fileTest, joinsAndNormalisesBaseAndName)
{
    EXPECT_EQ(file(string(u"C:\\a"), u"x/../b.c").path(), string(u"C:\\a\\b.c"));
    EXPECT_EQ(file(string(u"C:/a/"), u"").path(), string(u"C:\\a"));
    EXPECT_EQ(file(string(), u"b").path(), string());
    EXPECT_EQ(file(directory(u"C:\\a"), u"sub\\b").path(), string(u"C:\\a\\sub\\b"));
    EXPECT_FALSE(file(directory(u"C:\\a"), u"b").trailingSeparator());
}

TEST_F(fileTest, withoutAPathAnswersNoAndAsksNothing)
{
    fileStatus status;
    EXPECT_FALSE(nothing.exists());
    EXPECT_FALSE(nothing.hasAccess(0));
    EXPECT_FALSE(nothing.isReadable());
    EXPECT_FALSE(nothing.isWritable());
    EXPECT_FALSE(nothing.copyTo(present, true));
    EXPECT_FALSE(present.copyTo(nothing, true));
    EXPECT_FALSE(nothing.create(6));
    EXPECT_FALSE(nothing.stat(status));
    EXPECT_FALSE(nothing.remove());
    EXPECT_FALSE(nothing.rename(u"x"));
    EXPECT_FALSE(nothing.isRemote());
    EXPECT_EQ(nothing.size(), 0);
    EXPECT_EQ(nothing.modificationTime(), 0);
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(fileTest, existsOnlyAsAFile)
{
    EXPECT_TRUE(present.exists());
    EXPECT_FALSE(missing.exists());
    EXPECT_FALSE(folder.exists());
    EXPECT_TRUE(directory(u"C:\\a\\sub").exists());
    const fsEntry& entry = folder;
    EXPECT_FALSE(entry.exists());
    here.failCall("queryStatus", 1);
    EXPECT_FALSE(present.exists());
}

TEST_F(fileTest, hasTheAccessThatTheSystemGrants)
{
    EXPECT_TRUE(present.hasAccess(0));
    EXPECT_TRUE(present.hasAccess(2));
    EXPECT_TRUE(present.hasAccess(4));
    EXPECT_FALSE(missing.hasAccess(0));
    EXPECT_TRUE(folder.hasAccess(0));
    here.setAttributes(u"C:\\a\\f.txt", attributeReadOnly);
    EXPECT_FALSE(present.hasAccess(2));
    EXPECT_TRUE(present.hasAccess(4));
}

TEST_F(fileTest, isReadableWhereTheSystemLetsItBeRead)
{
    EXPECT_TRUE(present.isReadable());
    EXPECT_FALSE(missing.isReadable());
    here.failCall("access", 1);
    EXPECT_FALSE(present.isReadable());
}

TEST_F(fileTest, asksForTheRightToReadAlone)
{
    EXPECT_TRUE(present.isReadable());
    EXPECT_EQ(asked(), (std::vector<std::string>{"access 4"}));
}

TEST_F(fileTest, asksForTheRightToWriteAndForAFile)
{
    EXPECT_TRUE(present.isWritable());
    EXPECT_EQ(asked(), (std::vector<std::string>{"access 2", "queryStatus 0"}));
}

TEST_F(fileTest, probesAMissingFileByMakingAWritableOneAndRemovingIt)
{
    EXPECT_TRUE(missing.isWritable());
    EXPECT_EQ(asked(), (std::vector<std::string>{"access 2", "queryStatus 0", "createFile 128",
                                                 "queryStatus 0", "removeFile 0"}));
}

TEST_F(fileTest, asksForThePermissionsOfTheModesBits)
{
    struct row {
        unsigned mode;
        unsigned permission;
    };
    for (const row& row : {row{0, 0}, row{1, 0}, row{2, 128}, row{3, 128}, row{4, 256}, row{6, 384},
                           row{7, 384}, row{8, 0}, row{0xFFFFFFFF, 384}}) {
        const file made(u"C:\\a\\made" + string().setNumber(static_cast<double>(row.mode)));
        EXPECT_TRUE(made.create(row.mode));
        EXPECT_EQ(here.calls.back().operation, "createFile");
        EXPECT_EQ(here.calls.back().mode, row.permission) << row.mode;
    }
}

TEST_F(fileTest, tellsSizesBeyond31BitsInItsStatusAndTheirLowBitsAsItsSize)
{
    struct row {
        std::int64_t bytes;
        std::int32_t size;
    };
    for (const row& row : {row{0x7FFFFFFF, 0x7FFFFFFF}, row{0x80000000, INT32_MIN},
                           row{0xFFFFFFFF, -1}, row{0x100000000, 0}, row{0x10000000A, 10}}) {
        here.pretendSize(present.path(), row.bytes);
        fileStatus status;
        ASSERT_TRUE(present.stat(status));
        EXPECT_EQ(status.size, row.bytes);
        EXPECT_EQ(present.size(), row.size) << row.bytes;
    }
}

TEST_F(fileTest, isWritableWithoutBeingTouchedWhereItExists)
{
    EXPECT_TRUE(present.isWritable());
    EXPECT_EQ(here.content(present.path()), "12345");
    EXPECT_EQ(here.countCalls("createFile"), 0u);
}

TEST_F(fileTest, isWritableWhereItIsMissingAndLeavesNothingBehind)
{
    EXPECT_TRUE(missing.isWritable());
    EXPECT_EQ(here.countCalls("createFile"), 1u);
    EXPECT_FALSE(here.hasFile(missing.path()));
}

TEST_F(fileTest, isNotWritableWhereItCannotBeMade)
{
    here.setAttributes(present.path(), attributeReadOnly);
    EXPECT_FALSE(present.isWritable());
    EXPECT_EQ(here.content(present.path()), "12345");
    EXPECT_FALSE(folder.isWritable());
    EXPECT_FALSE(file(u"C:\\nowhere\\f.txt").isWritable());
    here.failCall("createFile", 1);
    EXPECT_FALSE(missing.isWritable());
}

TEST_F(fileTest, isNotWritableIfTheProbeCannotBeRemoved)
{
    here.failCall("removeFile", 1);
    EXPECT_FALSE(missing.isWritable());
    EXPECT_TRUE(here.hasFile(missing.path()));
}

TEST_F(fileTest, copiesItsContent)
{
    EXPECT_TRUE(present.copyTo(missing, false));
    EXPECT_EQ(here.content(missing.path()), "12345");
}

TEST_F(fileTest, copiesOverAFileOnlyIfAsked)
{
    here.addFile(missing.path(), "old");
    EXPECT_FALSE(present.copyTo(missing, false));
    EXPECT_EQ(here.content(missing.path()), "old");
    EXPECT_TRUE(present.copyTo(missing, true));
    EXPECT_EQ(here.content(missing.path()), "12345");
}

TEST_F(fileTest, tellsThatItCannotBeCopied)
{
    EXPECT_FALSE(missing.copyTo(present, true));
    EXPECT_FALSE(present.copyTo(folder, true));
    EXPECT_FALSE(present.copyTo(file(u"C:\\nowhere\\f.txt"), true));
    here.failCall("copyFile", 1);
    EXPECT_FALSE(present.copyTo(missing, true));
}

TEST_F(fileTest, isCreatedEmpty)
{
    EXPECT_TRUE(missing.create(6));
    EXPECT_TRUE(missing.exists());
    EXPECT_EQ(missing.size(), 0);
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(fileTest, isNeverCreatedOverAFile)
{
    EXPECT_FALSE(present.create(6));
    EXPECT_EQ(here.content(present.path()), "12345");
    EXPECT_EQ(here.countCalls("createFile"), 0u);
}

TEST_F(fileTest, isCreatedWithThePermissionOfTheMode)
{
    struct row {
        unsigned mode;
        bool writable;
    };
    for (const row& row :
         {row{2, true}, row{6, true}, row{7, true}, row{4, false}, row{0, false}, row{1, false}}) {
        SCOPED_TRACE(row.mode);
        const file made(u"C:\\a\\made" + string(static_cast<char16_t>(u'0' + row.mode)));
        EXPECT_TRUE(made.create(row.mode));
        EXPECT_EQ(made.hasAccess(2), row.writable);
    }
}

TEST_F(fileTest, isNotCreatedWhereTheSystemRefuses)
{
    EXPECT_FALSE(folder.create(6));
    EXPECT_FALSE(file(u"C:\\nowhere\\f.txt").create(6));
    here.failCall("createFile", 1);
    EXPECT_FALSE(missing.create(6));
}

TEST_F(fileTest, tellsItsStatus)
{
    fileStatus status;
    EXPECT_TRUE(present.stat(status));
    EXPECT_EQ(status.mode & fileStatus::directoryBit, 0u);
    EXPECT_EQ(status.size, 5);
    EXPECT_EQ(status.modificationTime, 1000);
    EXPECT_TRUE(folder.stat(status));
    EXPECT_NE(status.mode & fileStatus::directoryBit, 0u);
    EXPECT_FALSE(missing.stat(status));
}

TEST_F(fileTest, tellsItsSizeAndTime)
{
    EXPECT_EQ(present.size(), 5);
    EXPECT_EQ(present.modificationTime(), 1000);
    EXPECT_EQ(missing.size(), 0);
    EXPECT_EQ(missing.modificationTime(), 0);
    here.setModificationTime(present.path(), 5000000000);
    EXPECT_EQ(present.modificationTime(), 5000000000);
}

TEST_F(fileTest, isRemoved)
{
    EXPECT_TRUE(present.remove());
    EXPECT_FALSE(present.exists());
    EXPECT_FALSE(present.remove());
}

TEST_F(fileTest, isNotRemovedIfItIsADirectory)
{
    EXPECT_FALSE(folder.remove());
    EXPECT_TRUE(here.hasDirectory(u"C:\\a\\sub"));
}

TEST_F(fileTest, isNotRemovedIfItDoesNotExist)
{
    here.failCall("queryStatus", 1);
    EXPECT_FALSE(present.remove());
    EXPECT_EQ(here.countCalls("removeFile"), 0u);
    EXPECT_TRUE(here.hasFile(present.path()));
}

TEST_F(fileTest, isNotRemovedWhereTheSystemRefuses)
{
    here.failCall("removeFile", 1);
    EXPECT_FALSE(present.remove());
    here.setAttributes(present.path(), attributeReadOnly);
    EXPECT_FALSE(present.remove());
    EXPECT_TRUE(present.exists());
}

TEST_F(fileTest, isRenamedInItsDirectoryAndFollows)
{
    EXPECT_TRUE(present.rename(u"g.txt"));
    EXPECT_EQ(present.path(), string(u"C:\\a\\g.txt"));
    EXPECT_EQ(here.content(u"C:\\a\\g.txt"), "12345");
    EXPECT_FALSE(here.hasFile(u"C:\\a\\f.txt"));
}

TEST_F(fileTest, takesARelativePathAsNewName)
{
    EXPECT_TRUE(present.rename(u"sub/../sub/g.txt"));
    EXPECT_EQ(present.path(), string(u"C:\\a\\sub\\g.txt"));
    EXPECT_TRUE(here.hasFile(u"C:\\a\\sub\\g.txt"));
}

TEST_F(fileTest, isNotRenamedToAFileThatExists)
{
    here.addFile(u"C:\\a\\g.txt", "old");
    EXPECT_FALSE(present.rename(u"g.txt"));
    EXPECT_EQ(present.path(), string(u"C:\\a\\f.txt"));
    EXPECT_EQ(here.content(u"C:\\a\\g.txt"), "old");
    EXPECT_EQ(here.content(u"C:\\a\\f.txt"), "12345");
    EXPECT_EQ(here.countCalls("renameEntry"), 0u);
}

TEST_F(fileTest, isNotRenamedWhereTheSystemRefuses)
{
    EXPECT_FALSE(present.rename(u"sub")); // a directory: only the system refuses it
    EXPECT_EQ(here.countCalls("renameEntry"), 1u);
    EXPECT_FALSE(missing.rename(u"x"));
    here.failCall("renameEntry", 1);
    EXPECT_FALSE(present.rename(u"x"));
    EXPECT_EQ(present.path(), string(u"C:\\a\\f.txt"));
    EXPECT_TRUE(here.hasFile(u"C:\\a\\f.txt"));
}

TEST_F(fileTest, isWrittenAsItsPath)
{
    string text(u"old");
    EXPECT_TRUE(typeconvert::convert(text, present));
    EXPECT_EQ(text, string(u"C:\\a\\f.txt"));
    text = u"old";
    EXPECT_FALSE(typeconvert::convert(text, nothing));
    EXPECT_EQ(text, string());
}

TEST_F(fileTest, isReadFromATextInTheNormalForm)
{
    file read(u"old");
    EXPECT_TRUE(typeconvert::convert(read, string(u"sub/../f.txt\\")));
    EXPECT_EQ(read.path(), string(u"C:\\work\\f.txt"));
    EXPECT_FALSE(typeconvert::convert(read, string()));
    EXPECT_EQ(read.path(), string());
}

TEST_F(fileTest, keepsItsKindWhenItIsReadFromText)
{
    file read;
    EXPECT_TRUE(typeconvert::convert(read, string(u"C:\\a\\")));
    EXPECT_EQ(read.path(), string(u"C:\\a"));
    EXPECT_FALSE(read.trailingSeparator());
}

TEST_F(fileSearchTest, findsTheFilesOfADirectoryInTheSystemsOrder)
{
    here.addFile(u"C:\\d\\z.txt", "");
    here.addFile(u"C:\\d\\a.txt", "");
    here.addFile(u"C:\\d\\m", "");
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", skipHiddenAndSystem)),
              (paths{u"C:\\d\\z.txt", u"C:\\d\\a.txt", u"C:\\d\\m"}));
}

TEST_F(fileSearchTest, findsByThePattern)
{
    here.addFile(u"C:\\d\\screen.png", "");
    here.addFile(u"C:\\d\\screens.png", "");
    here.addFile(u"C:\\d\\SCREEN.BMP", "");
    here.addFile(u"C:\\d\\screen", "");
    EXPECT_EQ(pathsOf(folder.findFiles(u"screen.*", skipHiddenAndSystem)),
              (paths{u"C:\\d\\screen.png", u"C:\\d\\SCREEN.BMP", u"C:\\d\\screen"}));
}

TEST_F(fileSearchTest, neverFindsDirectories)
{
    here.addDirectory(u"C:\\d\\first");
    here.addFile(u"C:\\d\\a.txt", "");
    here.addDirectory(u"C:\\d\\last");
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", 0)), (paths{u"C:\\d\\a.txt"}));
}

TEST_F(fileSearchTest, staysOnItsLevel)
{
    here.addFile(u"C:\\d\\sub\\a.txt", "");
    EXPECT_TRUE(pathsOf(folder.findFiles(u"*.*", 0)).empty());
}

TEST_F(fileSearchTest, passesOverHitsWithASkippedAttribute)
{
    here.addFile(u"C:\\d\\1", "", attributeHidden);
    here.addFile(u"C:\\d\\2", "", attributeReadOnly | attributeArchive);
    here.addFile(u"C:\\d\\3", "", attributeSystem | attributeArchive);
    here.addFile(u"C:\\d\\4", "");
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", skipHiddenAndSystem)),
              (paths{u"C:\\d\\2", u"C:\\d\\4"}));
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", attributeReadOnly)),
              (paths{u"C:\\d\\1", u"C:\\d\\3", u"C:\\d\\4"}));
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", 0)).size(), 4u);
}

TEST_F(fileSearchTest, isEmptyWhereAllHitsAreSkipped)
{
    here.addFile(u"C:\\d\\a.x", "", attributeHidden);
    here.addFile(u"C:\\d\\b.x", "", attributeSystem);
    EXPECT_TRUE(folder.findFiles(u"*.x", skipHiddenAndSystem).path().empty());
}

TEST_F(fileSearchTest, isEmptyAtOnceWithoutAHit)
{
    here.addDirectory(u"C:\\d");
    for (const directory& where : {folder, directory(u"C:\\missing")}) {
        fileSearch search = where.findFiles(u"*.x", 0);
        EXPECT_TRUE(search.path().empty());
        search.next();
        EXPECT_TRUE(search.path().empty());
    }
    EXPECT_EQ(here.countCalls("findNext"), 0u);
    EXPECT_EQ(here.countCalls("findClose"), 0u);
}

TEST_F(fileSearchTest, staysAtItsEnd)
{
    here.addFile(u"C:\\d\\a", "");
    fileSearch search = folder.findFiles(u"a", 0);
    EXPECT_EQ(search.path(), string(u"C:\\d\\a"));
    search.next();
    EXPECT_TRUE(search.path().empty());
    EXPECT_EQ(here.openHandles(), 1u);
    search.next();
    EXPECT_TRUE(search.path().empty());
}

TEST_F(fileSearchTest, endsWhereTheSystemFails)
{
    here.addFile(u"C:\\d\\a.x", "");
    here.addFile(u"C:\\d\\b.x", "");
    here.failCall("findNext", 1);
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.x", 0)), (paths{u"C:\\d\\a.x"}));
    here.failCall("findFirst", 1);
    EXPECT_TRUE(pathsOf(folder.findFiles(u"*.x", 0)).empty());
}

TEST_F(fileSearchTest, closesTheSystemsSearchOnce)
{
    here.addFile(u"C:\\d\\a", "");
    {
        fileSearch search = folder.findFiles(u"*.*", 0);
        const fileSearch moved = std::move(search);
        EXPECT_EQ(moved.path(), string(u"C:\\d\\a"));
        EXPECT_EQ(here.openHandles(), 1u);
    }
    EXPECT_EQ(here.openHandles(), 0u);
    EXPECT_EQ(here.countCalls("findClose"), 1u);
}

TEST_F(fileSearchTest, isTheFileOfItsHit)
{
    here.addFile(u"C:\\d\\a", "123");
    here.addFile(u"C:\\d\\b", "1");
    fileSearch search = folder.findFiles(u"*.*", 0);
    EXPECT_EQ(search.size(), 3);
    EXPECT_TRUE(search.remove());
    search.next();
    const file hit = search;
    EXPECT_EQ(hit.path(), string(u"C:\\d\\b"));
    EXPECT_FALSE(search.trailingSeparator());
}

TEST_F(fileSearchTest, goesOnWhenItsHitsAreRemoved)
{
    for (char16_t name = u'a'; name <= u'z'; ++name) here.addFile(u"C:\\d\\" + string(name), "");
    for (fileSearch search = folder.findFiles(u"*.*", 0); !search.path().empty(); search.next())
        EXPECT_TRUE(search.remove());
    EXPECT_TRUE(here.files().empty());
}

TEST_F(fileSearchTest, putsThePatternBehindTheStoredPath)
{
    here.addFile(u"C:\\d\\sub\\a.x", "");
    // The directory is not normalised for the system, but its hits are.
    EXPECT_EQ(pathsOf(directory(u"C:/d/./sub").findFiles(u"*.x", 0)), (paths{u"C:\\d\\sub\\a.x"}));
    EXPECT_EQ(here.calls.front().subject, string(u"C:/d/./sub\\*.x"));
}

TEST_F(fileSearchTest, ofNoDirectorySearchesTheCurrentOneButNamesItsHitsFromTheRoot)
{
    here.addFile(u"C:\\work\\a.x", "");
    EXPECT_EQ(pathsOf(directory().findFiles(u"*.x", 0)), (paths{u"C:\\a.x"}));
    EXPECT_EQ(here.calls.front().subject, string(u"*.x"));
}

TEST_F(fileSearchTest, normalisesNamesWithPercentSigns)
{
    here.environment[u"X"] = u"y";
    here.addFile(u"C:\\d\\100%", "");
    here.addFile(u"C:\\d\\%X%", "");
    EXPECT_EQ(pathsOf(folder.findFiles(u"*.*", 0)), (paths{u"C:\\d\\100%", u"C:\\d\\y"}));
}

TEST_F(fileSearchTest, findsFilesInTheRootOfADriveAndOnAServer)
{
    here.addFile(u"D:\\a.x", "");
    here.addFile(u"\\\\srv\\share\\b.x", "");
    EXPECT_EQ(pathsOf(directory(u"D:").findFiles(u"*.x", 0)), (paths{u"D:\\a.x"}));
    EXPECT_EQ(pathsOf(directory(u"\\\\srv\\share").findFiles(u"*.x", 0)),
              (paths{u"\\\\srv\\share\\b.x"}));
}

} // namespace orlofileTest
