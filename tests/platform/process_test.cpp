#include "platform/platform.h"

#include "support/tempfolder.h"

#include <thread>

namespace processTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

class processSystemTest : public systemTest {
protected:
    processSystemTest() : m_before(std::filesystem::current_path()) {}
    ~processSystemTest() override { std::filesystem::current_path(m_before); }

private:
    std::filesystem::path m_before;
};

using mutexSystemTest = systemTest;

} // namespace

TEST_F(processSystemTest, tellsTheCurrentDirectory)
{
    std::filesystem::current_path(native(""));
    string found;
    ASSERT_TRUE(platform::currentDirectory(found));
    EXPECT_EQ(found, pathText(std::filesystem::current_path()));
    std::filesystem::current_path(native("").root_path());
    ASSERT_TRUE(platform::currentDirectory(found));
    EXPECT_EQ(found.substr(1), string(u":\\"));
}

TEST_F(processSystemTest, tellsNoDirectoryOfMoreThan259Units)
{
    const std::size_t room = 259;
    const std::size_t used = path("x").size() - 1; // with the separator
    for (const std::size_t length : {room - 1, room, room + 1}) {
        // Two levels, since a name alone has its own limit. Some systems enter no directory
        // that is longer than what is asked for here.
        const std::string upper(100, 'u');
        const std::string lower(length - used - upper.size() - 1, 'l');
        std::error_code failed;
        std::filesystem::create_directories(native(upper) / lower, failed);
        std::filesystem::current_path(native(upper), failed);
        std::filesystem::current_path(lower, failed);
        if (failed) continue;
        string found = u"before";
        EXPECT_EQ(platform::currentDirectory(found), length <= room) << length;
        EXPECT_EQ(found.size(), length <= room ? length : 6u);
    }
}

TEST_F(processSystemTest, tellsTheDriveOfTheCurrentDirectory)
{
    string found;
    ASSERT_TRUE(platform::currentDirectory(found));
    EXPECT_EQ(platform::currentDrive(), found[0] - u'A' + 1);
}

TEST_F(processSystemTest, readsEnvironmentVariables)
{
    string value = u"before";
    EXPECT_TRUE(platform::environmentVariable(u"PATH", value));
    EXPECT_FALSE(value.empty());
    EXPECT_FALSE(platform::environmentVariable(u"ORLO_NO_SUCH_VARIABLE", value));
    EXPECT_TRUE(value.empty());
}

TEST_F(processSystemTest, readsAVariableAlsoIntoTheTextThatNamesIt)
{
    string path;
    ASSERT_TRUE(platform::environmentVariable(u"PATH", path));
    string value = u"PATH";
    EXPECT_TRUE(platform::environmentVariable(value.c_str(), value));
    EXPECT_EQ(value, path);
}

TEST_F(processSystemTest, findsTheExecutable)
{
    void* const module = platform::findModule(u"");
    ASSERT_NE(module, nullptr);
    char16_t units[1024];
    const std::size_t length = platform::modulePath(module, units, 1024);
    const string found(units, length);
    EXPECT_EQ(found[1], u':');
    EXPECT_EQ(found[2], u'\\');
    fileStatus status;
    ASSERT_TRUE(platform::queryStatus(found, status)) << narrow(found);
    EXPECT_GT(status.size, 0);
    EXPECT_NE(found.find(u"test"), string::npos) << narrow(found);
    EXPECT_EQ(platform::findModule(u"no-such-module"), nullptr);
}

TEST_F(processSystemTest, cutsThePathOfTheExecutable)
{
    char16_t whole[1024];
    ASSERT_GT(platform::modulePath(platform::findModule(u""), whole, 1024), 8u);
    char16_t cut[8];
    const std::size_t length = platform::modulePath(platform::findModule(u""), cut, 8);
    EXPECT_GE(length, 7u); // a system may spend the last unit on its terminator
    EXPECT_LE(length, 8u);
    EXPECT_EQ(std::u16string_view(cut, length), std::u16string_view(whole, length));
}

TEST_F(processSystemTest, hasANumber)
{
    EXPECT_NE(platform::processId(), 0u);
    EXPECT_EQ(platform::processId(), platform::processId());
}

TEST_F(processSystemTest, ownsNoWindow)
{
    int count = 0;
    platform::enumerateWindows(
        [](platform::window found, void* own) {
            if (platform::windowProcess(found) == platform::processId()) ++*static_cast<int*>(own);
            return true;
        },
        &count);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(platform::windowProcess(nullptr), 0u);
}

TEST_F(mutexSystemTest, isRecursiveAndKeepsOtherThreadsOut)
{
    void* const mutex = platform::createMutex();
    ASSERT_NE(mutex, nullptr);
    int counter = 0;
    const auto countUp = [&] {
        for (int i = 0; i < 5000; ++i) {
            ASSERT_TRUE(platform::lockMutex(mutex));
            ASSERT_TRUE(platform::lockMutex(mutex));
            ++counter;
            platform::unlockMutex(mutex);
            platform::unlockMutex(mutex);
        }
    };
    std::thread other(countUp);
    countUp();
    other.join();
    EXPECT_EQ(counter, 10000);
    platform::destroyMutex(mutex);
}

TEST_F(mutexSystemTest, failsWithoutAMutex)
{
    EXPECT_FALSE(platform::lockMutex(nullptr));
    platform::unlockMutex(nullptr);
    platform::destroyMutex(nullptr);
}

} // namespace processTest
