#include "platform/platform.h"

#include "support/tempfolder.h"

namespace entriesTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

class entriesSystemTest : public systemTest {
protected:
    void protect(const std::filesystem::path& name) const
    {
        using std::filesystem::perms;
        std::filesystem::permissions(native(name),
                                     perms::owner_read | perms::group_read | perms::others_read);
    }
    [[nodiscard]] bool isProtected(const std::filesystem::path& name) const
    {
        using std::filesystem::perms;
        return (std::filesystem::status(native(name)).permissions() & perms::owner_write) ==
               perms::none;
    }
};

} // namespace

TEST_F(entriesSystemTest, seesFilesAndDirectories)
{
    put("file.txt", "x");
    makeFolder("folder");
    for (const unsigned mode : {0U, 2U, 4U, 6U}) {
        EXPECT_TRUE(platform::access(path("file.txt"), mode)) << mode;
        EXPECT_TRUE(platform::access(path("folder"), mode)) << mode;
        EXPECT_FALSE(platform::access(path("missing"), mode)) << mode;
        EXPECT_FALSE(platform::access(path("file.txt") + u"\\below", mode)) << mode;
        EXPECT_FALSE(platform::access(u"", mode)) << mode;
    }
}

TEST_F(entriesSystemTest, takesBothSeparatorsAndOneAtTheEndOfADirectory)
{
    makeFolder("folder");
    put("folder/file.txt", "x");
    const string folder = path("folder");
    EXPECT_TRUE(platform::access(folder + u"/file.txt", 0));
    EXPECT_TRUE(platform::access(folder + u"\\file.txt", 0));
    EXPECT_TRUE(platform::access(folder + u"\\", 0));
    EXPECT_TRUE(platform::access(folder + u"\\..\\folder\\.\\file.txt", 0));
}

TEST_F(entriesSystemTest, readsAPathUpToItsFirstZeroUnit)
{
    put("file.txt", "x");
    string cut = path("file.txt");
    cut.push_back(u'\0');
    cut.append(u"more");
    EXPECT_TRUE(platform::access(cut, 0));
}

TEST_F(entriesSystemTest, tellsKindSizeAndTime)
{
    put("file.txt", "twelve bytes");
    makeFolder("folder");
    fileStatus found;
    ASSERT_TRUE(platform::queryStatus(path("file.txt"), found));
    EXPECT_EQ(found.mode & 16384u, 0u);
    EXPECT_EQ(found.size, 12);
    EXPECT_NEAR(static_cast<double>(found.modificationTime), static_cast<double>(platform::now()),
                100.0);
    ASSERT_TRUE(platform::queryStatus(path("folder"), found));
    EXPECT_EQ(found.mode & 16384u, 16384u);
    EXPECT_FALSE(platform::queryStatus(path("missing"), found));
    EXPECT_FALSE(platform::queryStatus(u"", found));
}

TEST_F(entriesSystemTest, tellsSizesBeyond32Bits)
{
    put("large", "");
    std::error_code failed;
    std::filesystem::resize_file(native("large"), 5000000000u, failed);
    if (failed) GTEST_SKIP() << "no room for a large file here";
    fileStatus found;
    ASSERT_TRUE(platform::queryStatus(path("large"), found));
    EXPECT_EQ(found.size, 5000000000);
}

TEST_F(entriesSystemTest, createsAnEmptyFile)
{
    static const struct {
        const char* name;
        std::uint32_t permission;
        bool writable;
    } rows[] = {{"write", 128, true}, {"read", 256, false}, {"both", 384, true}};
    for (const auto& row : rows) {
        ASSERT_TRUE(platform::createFile(path(row.name), row.permission)) << row.name;
        EXPECT_EQ(content(row.name), "");
        EXPECT_EQ(isProtected(row.name), !row.writable) << row.name;
        EXPECT_TRUE(platform::access(path(row.name), 4)) << row.name;
    }
}

TEST_F(entriesSystemTest, createsNothingOverAnEntryOrInAMissingFolder)
{
    put("file", "kept");
    makeFolder("folder");
    EXPECT_FALSE(platform::createFile(path("file"), 128));
    EXPECT_EQ(content("file"), "kept");
    EXPECT_FALSE(platform::createFile(path("folder"), 128));
    EXPECT_FALSE(platform::createFile(path("missing/file"), 128));
    EXPECT_FALSE(platform::createFile(u"", 128));
}

TEST_F(entriesSystemTest, removesFilesButNoDirectories)
{
    put("file", "x");
    makeFolder("folder");
    EXPECT_TRUE(platform::removeFile(path("file")));
    EXPECT_FALSE(isThere("file"));
    EXPECT_FALSE(platform::removeFile(path("file")));
    EXPECT_FALSE(platform::removeFile(path("folder")));
    EXPECT_FALSE(platform::removeFile(path("folder") + u"\\"));
    EXPECT_TRUE(isThere("folder"));
    EXPECT_FALSE(platform::removeFile(u""));
}

TEST_F(entriesSystemTest, renamesFilesAndDirectories)
{
    put("file", "content");
    makeFolder("folder");
    put("folder/inside", "x");
    EXPECT_TRUE(platform::renameEntry(path("file"), path("file2")));
    EXPECT_FALSE(isThere("file"));
    EXPECT_EQ(content("file2"), "content");
    EXPECT_TRUE(platform::renameEntry(path("folder") + u"\\", path("folder2")));
    EXPECT_FALSE(isThere("folder"));
    EXPECT_TRUE(isThere("folder2/inside"));
}

TEST_F(entriesSystemTest, refusesToRenameOntoAnEntryOrFromNothing)
{
    put("file", "one");
    put("file2", "two");
    makeFolder("folder");
    makeFolder("folder2");
    EXPECT_FALSE(platform::renameEntry(path("file"), path("file2")));
    EXPECT_FALSE(platform::renameEntry(path("file"), path("folder")));
    EXPECT_FALSE(platform::renameEntry(path("folder") + u"\\", path("folder2")));
    EXPECT_FALSE(platform::renameEntry(path("folder") + u"\\", path("file")));
    EXPECT_EQ(content("file"), "one");
    EXPECT_EQ(content("file2"), "two");
    EXPECT_FALSE(platform::renameEntry(path("missing"), path("new")));
    EXPECT_FALSE(platform::renameEntry(path("file"), path("missing/new")));
}

TEST_F(entriesSystemTest, takesAnEntrysOwnNameForANewOne)
{
    makeFolder("folder");
    EXPECT_TRUE(platform::renameEntry(path("folder"), path("folder")));
    EXPECT_TRUE(isThere("folder"));
}

TEST_F(entriesSystemTest, copiesContentsOfEverySize)
{
    for (const std::size_t size : {0u, 1u, 4096u, 262143u, 262144u, 262145u, 3000000u}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 >> 3);
        put("source", bytes);
        ASSERT_TRUE(platform::copyFile(path("source"), path("target"), false)) << size;
        EXPECT_TRUE(content("target") == bytes) << size;
    }
}

TEST_F(entriesSystemTest, replacesALongerTargetOrRefusesIt)
{
    put("source", "short");
    put("target", "a good deal longer");
    EXPECT_FALSE(platform::copyFile(path("source"), path("target"), true));
    EXPECT_EQ(content("target"), "a good deal longer");
    EXPECT_TRUE(platform::copyFile(path("source"), path("target"), false));
    EXPECT_EQ(content("target"), "short");
    EXPECT_TRUE(platform::copyFile(path("source"), path("new"), true));
    EXPECT_EQ(content("new"), "short");
}

TEST_F(entriesSystemTest, copiesTheProtectionAndTheTime)
{
    put("source", "x");
    std::filesystem::last_write_time(
        native("source"), std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
    protect("source");
    ASSERT_TRUE(platform::copyFile(path("source"), path("target"), false));
    EXPECT_TRUE(isProtected("target"));
    fileStatus original;
    fileStatus copy;
    ASSERT_TRUE(platform::queryStatus(path("source"), original));
    ASSERT_TRUE(platform::queryStatus(path("target"), copy));
    EXPECT_EQ(copy.modificationTime, original.modificationTime);
    std::filesystem::permissions(native("source"), std::filesystem::perms::owner_all);
    std::filesystem::permissions(native("target"), std::filesystem::perms::owner_all);
}

TEST_F(entriesSystemTest, copiesNothingFromOrOntoADirectoryOrFromNothing)
{
    put("file", "x");
    makeFolder("folder");
    EXPECT_FALSE(platform::copyFile(path("folder"), path("target"), false));
    EXPECT_FALSE(platform::copyFile(path("missing"), path("target"), false));
    EXPECT_FALSE(isThere("target"));
    EXPECT_FALSE(platform::copyFile(path("file"), path("folder"), false));
    EXPECT_FALSE(platform::copyFile(path("file"), path("missing/target"), false));
    EXPECT_FALSE(platform::copyFile(u"", path("target"), false));
    EXPECT_FALSE(platform::copyFile(path("file"), u"", false));
}

TEST_F(entriesSystemTest, doesNotCopyAFileOntoItself)
{
    put("file", "kept");
    EXPECT_FALSE(platform::copyFile(path("file"), path("file"), false));
    EXPECT_EQ(content("file"), "kept");
}

TEST_F(entriesSystemTest, knowsTheKindOfADrive)
{
    EXPECT_EQ(platform::driveType(u"C:\\"), 3u);
    EXPECT_EQ(platform::driveType(u"Q:\\"), 1u);
}

TEST_F(entriesSystemTest, findsNothingOnMissingDrivesAndServers)
{
    EXPECT_FALSE(platform::access(u"Q:\\", 0));
    EXPECT_FALSE(platform::access(u"Q:\\file", 0));
    EXPECT_FALSE(platform::access(u"\\\\no-such-server\\share\\file", 0));
    EXPECT_FALSE(platform::createFile(u"Q:\\file", 128));
}

TEST_F(entriesSystemTest, countsRelativePathsFromTheCurrentDirectory)
{
    put("file", "x");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(native(""));
    const string drive = path("").substr(0, 2);
    EXPECT_TRUE(platform::access(u"file", 0));
    EXPECT_TRUE(platform::access(u".\\file", 0));
    EXPECT_TRUE(platform::access(drive + u"file", 0));
    EXPECT_TRUE(platform::access(drive + u".\\file", 0));
    EXPECT_TRUE(platform::access(path("file").substr(2), 0))
        << "from the root of the current drive";
    EXPECT_FALSE(platform::access(u"\\file", 0));
    EXPECT_FALSE(platform::access(u"missing", 0));
    std::filesystem::current_path(before);
}

} // namespace entriesTest
