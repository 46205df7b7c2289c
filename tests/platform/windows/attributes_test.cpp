// What only this system's own attributes and process states can show.
#include "platform/platform.h"

#include "platform/windows/system.h"
#include "platform/windows/wide.h"
#include "support/tempfolder.h"

#include <map>

namespace attributesTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

class attributesTest : public systemTest {
protected:
    void putWith(const char* name, std::uint32_t attributes) const
    {
        put(name, "");
        ASSERT_NE(::SetFileAttributesW(platform::wide(path(name)), attributes), FALSE);
    }
};

} // namespace

TEST_F(attributesTest, areThoseOfTheSystem)
{
    putWith("plain", FILE_ATTRIBUTE_NORMAL);
    putWith("hidden", FILE_ATTRIBUTE_HIDDEN);
    putWith("protected", FILE_ATTRIBUTE_READONLY);
    makeFolder("folder");
    const std::uint32_t compared = 1 | 2 | 16; // the archive bit is kept by some file systems only
    std::map<string, std::uint32_t> hits;
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(path("") + u"*", compared, hit);
    ASSERT_NE(search, platform::noSearch);
    do {
        if (hit.name != u"." && hit.name != u"..") hits[hit.name] = hit.attributes & compared;
    } while (platform::findNext(search, hit));
    platform::findClose(search);
    const std::map<string, std::uint32_t> expected = {
        {u"plain", 0}, {u"hidden", 2}, {u"protected", 1}, {u"folder", 16}};
    EXPECT_EQ(hits, expected);
    EXPECT_FALSE(platform::access(path("protected"), 2));
    ::SetFileAttributesW(platform::wide(path("protected")), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(attributesTest, leaveCaseOutOfNames)
{
    put("File.XML", "");
    EXPECT_TRUE(platform::access(path("file.xml"), 0));
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(path("") + u"*.xml", 0, hit);
    ASSERT_NE(search, platform::noSearch);
    EXPECT_EQ(hit.name, string(u"File.XML"));
    platform::findClose(search);
}

TEST(moduleSystem, findsLoadedModules)
{
    void* const library = platform::findModule(u"kernel32.dll");
    ASSERT_NE(library, nullptr);
    char16_t units[260];
    const string path(units, platform::modulePath(library, units, 260));
    EXPECT_NE(path.lowerCopy().find(u"kernel32.dll"), string::npos) << narrow(path);
}

TEST(endAbnormallyDeathTest, endsWithoutAWord)
{
    EXPECT_EXIT(platform::endAbnormally(), testing::ExitedWithCode(3), "^$");
}

} // namespace attributesTest
