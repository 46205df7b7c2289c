#include "platform/platform.h"

#include "support/tempfolder.h"

namespace contentsTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

using contentsSystemTest = systemTest;

// Every byte value, line ends and the old end-of-file mark among them.
std::string everyByte(std::size_t size)
{
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i);
    return bytes;
}

} // namespace

TEST_F(contentsSystemTest, readsExactlyTheBytesOfAFile)
{
    const std::string bytes = everyByte(100000);
    put("file", bytes);
    const platform::fileHandle file = platform::openFile(path("file"), platform::openMode::read);
    ASSERT_NE(file, platform::noFile);
    std::string got(bytes.size(), '\0');
    EXPECT_EQ(platform::readFile(file, got.data(), 10), 10u);
    EXPECT_EQ(platform::readFile(file, got.data() + 10, got.size() - 10), got.size() - 10);
    EXPECT_TRUE(got == bytes);
    EXPECT_EQ(platform::readFile(file, got.data(), 1), 0u);
    platform::closeFile(file);
}

TEST_F(contentsSystemTest, deliversWhatIsThereAtTheEnd)
{
    put("file", "seven..");
    const platform::fileHandle file = platform::openFile(path("file"), platform::openMode::read);
    ASSERT_NE(file, platform::noFile);
    char got[100];
    EXPECT_EQ(platform::readFile(file, got, sizeof got), 7u);
    platform::closeFile(file);
}

TEST_F(contentsSystemTest, writesExactlyTheBytesGiven)
{
    const std::string bytes = everyByte(100000);
    const platform::fileHandle file = platform::openFile(path("file"), platform::openMode::write);
    ASSERT_NE(file, platform::noFile);
    EXPECT_EQ(platform::writeFile(file, bytes.data(), 10), 10u);
    EXPECT_EQ(platform::writeFile(file, bytes.data() + 10, bytes.size() - 10), bytes.size() - 10);
    EXPECT_TRUE(platform::flushFile(file));
    platform::closeFile(file);
    EXPECT_TRUE(content("file") == bytes);
}

TEST_F(contentsSystemTest, emptiesAFileThatIsOpenedForWriting)
{
    put("file", "old and long");
    const platform::fileHandle file = platform::openFile(path("file"), platform::openMode::write);
    ASSERT_NE(file, platform::noFile);
    EXPECT_EQ(platform::writeFile(file, "new", 3), 3u);
    platform::closeFile(file);
    EXPECT_EQ(content("file"), "new");
}

TEST_F(contentsSystemTest, opensNothingThatIsNotThere)
{
    makeFolder("folder");
    EXPECT_EQ(platform::openFile(path("missing"), platform::openMode::read), platform::noFile);
    EXPECT_FALSE(isThere("missing"));
    EXPECT_EQ(platform::openFile(path("missing/file"), platform::openMode::write),
              platform::noFile);
    EXPECT_EQ(platform::openFile(path("folder"), platform::openMode::write), platform::noFile);
    EXPECT_EQ(platform::openFile(u"", platform::openMode::read), platform::noFile);
    EXPECT_EQ(platform::openFile(u"", platform::openMode::write), platform::noFile);
}

TEST_F(contentsSystemTest, movesNothingAgainstTheModeOfTheFile)
{
    put("file", "kept");
    char byte = 'x';
    const platform::fileHandle reading = platform::openFile(path("file"), platform::openMode::read);
    EXPECT_EQ(platform::writeFile(reading, &byte, 1), 0u);
    platform::closeFile(reading);
    EXPECT_EQ(content("file"), "kept");
    const platform::fileHandle writing =
        platform::openFile(path("file"), platform::openMode::write);
    EXPECT_EQ(platform::readFile(writing, &byte, 1), 0u);
    platform::closeFile(writing);
}

TEST_F(contentsSystemTest, letsTwoReadersShareAFile)
{
    put("file", "x");
    const platform::fileHandle one = platform::openFile(path("file"), platform::openMode::read);
    const platform::fileHandle two = platform::openFile(path("file"), platform::openMode::read);
    EXPECT_NE(one, platform::noFile);
    EXPECT_NE(two, platform::noFile);
    platform::closeFile(one);
    platform::closeFile(two);
}

} // namespace contentsTest
