// What the mapping of Windows path text onto this system's names promises beyond the rules
// that both systems share.
#include "orlodirectory.h"
#include "orlofile.h"
#include "platform/platform.h"

#include "platform/posix/nativetext.h"
#include "support/tempfolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <set>

namespace namesTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

constexpr std::uint32_t everyAttribute = 1 | 2 | 4 | 16 | 32;

class namesTest : public systemTest {
protected:
    [[nodiscard]] std::map<string, std::uint32_t>
    search(const string& pattern, std::uint32_t wanted = everyAttribute) const
    {
        std::map<string, std::uint32_t> hits;
        platform::searchHit hit;
        const platform::searchHandle handle = platform::findFirst(path("") + pattern, wanted, hit);
        if (handle == platform::noSearch) return hits;
        do {
            if (hit.name != u"." && hit.name != u"..") hits[hit.name] = hit.attributes;
        } while (platform::findNext(handle, hit));
        platform::findClose(handle);
        return hits;
    }
    [[nodiscard]] std::set<string> names(const string& pattern) const
    {
        std::set<string> found;
        for (const auto& hit : search(pattern)) found.insert(hit.first);
        return found;
    }
    void linkToEachKind() const
    {
        makeFolder("folder");
        put("file", "kept");
        std::filesystem::create_symlink("folder", native("to-folder"));
        std::filesystem::create_symlink("file", native("to-file"));
        std::filesystem::create_symlink("missing", native("to-nothing"));
    }
};
using patternTest = namesTest;
using copyTest = namesTest;

using nameSet = std::set<string>;

} // namespace

TEST_F(namesTest, haveTheRootAsDriveC)
{
    static const struct {
        const char16_t* path;
        const char* native;
    } rows[] = {
        {u"C:\\data\\taven", "/data/taven"},
        {u"c:\\data\\taven\\", "/data/taven/"},
        {u"C:/data/taven", "/data/taven"},
        {u"\\data", "/data"},
        {u"/data", "/data"},
        {u"C:\\", "/"},
        {u"\\", "/"},
        {u"C:", "."},
        {u"c:foo\\bar", "foo/bar"},
        {u"foo\\bar", "foo/bar"},
        {u"..\\foo", "../foo"},
        {u"C:\\a:b", "/a:b"},
        {u"C:\\Pr\u00FCf", "/Pr\xC3\xBC"
                           "f"},
        {u"", ""},
        {u"D:\\data", ""},
        {u"1:\\data", ""},
        {u"\\\\server\\share", ""},
        {u"//server/share", ""},
        {u"\\/server", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(platform::nativePath(row.path), row.native) << narrow(string(row.path));
}

TEST_F(namesTest, tellAnAbsolutePathOfTheSystem)
{
    EXPECT_EQ(platform::pathTextOf("/data/taven"), string(u"C:\\data\\taven"));
    EXPECT_EQ(platform::pathTextOf("/"), string(u"C:\\"));
}

TEST_F(namesTest, surviveWhateverTheirBytesAre)
{
    const struct {
        std::string bytes;
        std::u16string units;
    } rows[] = {
        {"\xFF", {0xDCFF}},
        {"a\x80z", {u'a', 0xDC80, u'z'}},
        {"\xC3", {0xDCC3}},
        {"\xE2\x82", {0xDCE2, 0xDC82}},
        {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
        {"\xF0\x9F\x98\x80\x80", {0xD83D, 0xDE00, 0xDC80}},
        {"a\\b", {u'a', 0xDC5C, u'b'}},
        {"..\\x", {u'.', u'.', 0xDC5C, u'x'}},
    };
    for (const auto& row : rows) {
        put(row.bytes, "found");
        const string expected(row.units.data(), row.units.size());
        ASSERT_EQ(names(u"*"), nameSet{expected});
        const platform::fileHandle file =
            platform::openFile(path("") + expected, platform::openMode::read);
        EXPECT_NE(file, platform::noFile);
        platform::closeFile(file);
        EXPECT_TRUE(platform::removeFile(path("") + expected));
        EXPECT_FALSE(isThere(row.bytes));
    }
}

TEST_F(namesTest, survivePairsOfEveryTwoBytes)
{
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
            string name;
            platform::nameOf(bytes, name);
            ASSERT_EQ(platform::nativeText(name), bytes) << first << ' ' << second;
            ASSERT_EQ(platform::nativeText(platform::textOf(bytes)), bytes)
                << first << ' ' << second;
        }
    }
}

TEST_F(namesTest, ofArgumentsAndVariablesKeepTheirBackslashes)
{
    EXPECT_EQ(platform::textOf("C:\\a\xFF"), string(u"C:\\a\xDCFF"));
    ::setenv("ORLO_TEST_VARIABLE", "C:\\a\xFF", 1);
    string value;
    EXPECT_TRUE(platform::environmentVariable(u"ORLO_TEST_VARIABLE", value));
    EXPECT_EQ(value, string(u"C:\\a\xDCFF"));
    ::setenv("ORLO_TEST_VARIABLE", "", 1);
    EXPECT_TRUE(platform::environmentVariable(u"ORLO_TEST_VARIABLE", value));
    EXPECT_TRUE(value.empty());
    ::unsetenv("ORLO_TEST_VARIABLE");
    EXPECT_FALSE(platform::environmentVariable(u"ORLO_TEST_VARIABLE", value));
}

TEST_F(namesTest, replaceOtherHalvesOfSurrogatePairs)
{
    EXPECT_EQ(platform::nativeText(std::u16string{u'a', 0xD800, u'b', 0xDC00}), "a\xEF\xBF\xBD"
                                                                                "b\xEF\xBF\xBD");
}

TEST_F(namesTest, keepTheirCase)
{
    put("File.XML", "");
    EXPECT_TRUE(platform::access(path("File.XML"), 0));
    EXPECT_FALSE(platform::access(path("file.xml"), 0));
    EXPECT_EQ(names(u"*.xml"), nameSet{});
    EXPECT_EQ(names(u"*.XML"), nameSet{u"File.XML"});
}

TEST_F(namesTest, tellTheAttributes)
{
    put(".hidden", "");
    put("plain", "");
    put("protected", "");
    makeFolder("folder");
    makeFolder(".git");
    ASSERT_EQ(::chmod(native("protected").c_str(), 0444), 0);
    const std::map<string, std::uint32_t> expected = {
        {u".git", 2 | 16}, {u".hidden", 2}, {u"folder", 16}, {u"plain", 0}, {u"protected", 1},
    };
    EXPECT_EQ(search(u"*"), expected);
}

TEST_F(namesTest, ofLinksTellWhatTheyLeadTo)
{
    linkToEachKind();
    for (const std::uint32_t wanted : {0u, everyAttribute}) {
        const auto hits = search(u"to-*", wanted);
        ASSERT_EQ(hits.size(), 3u);
        EXPECT_EQ(hits.at(u"to-folder"), 16u);
        EXPECT_EQ(hits.at(u"to-file"), 0u);
        EXPECT_EQ(hits.at(u"to-nothing"), 0u);
    }
}

TEST_F(namesTest, ofLinksAreRemovedUnlessTheyLeadToAFolder)
{
    linkToEachKind();
    EXPECT_FALSE(file(path("to-folder")).remove());
    EXPECT_TRUE(isThere("to-folder"));
    EXPECT_TRUE(file(path("to-file")).remove());
    EXPECT_FALSE(isThere("to-file"));
    EXPECT_EQ(content("file"), "kept");
    EXPECT_TRUE(platform::removeFile(path("to-nothing")));
    EXPECT_FALSE(isThere("to-nothing"));
}

TEST_F(namesTest, ofLinksThatASearchFindsAreRemovedIfTheyLeadToAFile)
{
    linkToEachKind();
    for (auto hit = directory(path("")).findFiles(u"to-*", 0); !hit.path().empty();) {
        const file found(hit);
        hit.next();
        EXPECT_EQ(found.remove(), found.path().ends_with(u"to-file")) << narrow(found.path());
    }
    EXPECT_TRUE(isThere("to-folder"));
    EXPECT_FALSE(isThere("to-file"));
    EXPECT_TRUE(isThere("to-nothing"));
    EXPECT_EQ(content("file"), "kept");
}

// What does not exist can't be removed, though a link of that name is there.
TEST_F(namesTest, ofLinksThatLeadNowhereAreNoFilesToRemove)
{
    linkToEachKind();
    const file link(path("to-nothing"));
    EXPECT_FALSE(link.exists());
    EXPECT_FALSE(link.remove());
    EXPECT_TRUE(isThere("to-nothing"));
}

TEST_F(patternTest, letsAQuestionMarkStandForNothingBeforeADotAndAtTheEnd)
{
    for (const char* name : {"a", "ab", "abc", "a.txt", "ab.txt", "abc.txt", "a.b.txt"})
        put(name, "");
    const struct {
        const char16_t* pattern;
        nameSet found;
    } rows[] = {
        {u"a?", {u"a", u"ab"}},
        {u"a??", {u"a", u"ab", u"abc"}},
        {u"a?.txt", {u"a.txt", u"ab.txt"}},
        {u"?b.txt", {u"ab.txt"}},
        {u"a?txt", {}},
        {u"ab.????", {u"ab", u"ab.txt"}},
        {u"ab.??", {u"ab"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(names(row.pattern), row.found) << narrow(string(row.pattern));
}

TEST_F(patternTest, takesTheLastDotForTheExtension)
{
    for (const char* name : {"a", "a.b", "a.b.c", "a.bc", ".c"}) put(name, "");
    const struct {
        const char16_t* pattern;
        nameSet found;
    } rows[] = {
        {u"*.c", {u"a.b.c", u".c"}},
        {u"a*.?", {u"a", u"a.b", u"a.b.c"}},
        {u"*.b*", {u"a.b", u"a.b.c", u"a.bc"}},
        {u"a.*", {u"a", u"a.b", u"a.b.c", u"a.bc"}},
        {u"a.b.*", {u"a.b", u"a.b.c"}},
        {u"*.*.*", {u"a", u"a.b", u"a.b.c", u"a.bc", u".c"}},
        {u"**", {u"a", u"a.b", u"a.b.c", u"a.bc", u".c"}},
        {u"a*b*c", {u"a.b.c", u"a.bc"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(names(row.pattern), row.found) << narrow(string(row.pattern));
}

TEST_F(patternTest, isQuickWhateverItIs)
{
    put(std::string(250, 'a'), "");
    string pattern;
    for (int i = 0; i < 100; ++i) pattern.append(u"*a");
    EXPECT_EQ(names(pattern).size(), 1u);
    EXPECT_EQ(names(pattern + u"b").size(), 0u);
}

TEST_F(copyTest, seesItsSourceUnderAnotherName)
{
    put("file", "kept");
    std::filesystem::create_hard_link(native("file"), native("link"));
    std::filesystem::create_symlink("file", native("symlink"));
    EXPECT_FALSE(platform::copyFile(path("file"), path("link"), false));
    EXPECT_FALSE(platform::copyFile(path("file"), path("symlink"), false));
    EXPECT_FALSE(platform::copyFile(path("symlink"), path("file"), false));
    EXPECT_EQ(content("file"), "kept");
}

TEST_F(copyTest, takesThePermissionsAlong)
{
    for (const mode_t permissions : {0644u, 0755u, 0600u, 0666u}) {
        put("source", "x");
        ASSERT_EQ(::chmod(native("source").c_str(), permissions), 0);
        ASSERT_TRUE(platform::copyFile(path("source"), path("target"), false));
        struct stat found;
        ASSERT_EQ(::stat(native("target").c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 0777, permissions);
    }
}

TEST_F(copyTest, copiesFilesWhoseSizeIsNotKnownBeforehand)
{
    EXPECT_TRUE(platform::copyFile(u"C:\\proc\\self\\status", path("target"), false));
    EXPECT_NE(content("target").find("Pid:"), std::string::npos);
}

// A device is no file to be removed when it takes nothing more.
TEST_F(copyTest, failsOnAFullDeviceAndLeavesIt)
{
    put("source", "too much");
    EXPECT_FALSE(platform::copyFile(path("source"), u"C:\\dev\\full", false));
    EXPECT_TRUE(platform::access(u"C:\\dev\\full", 0));
}

TEST_F(namesTest, areCreatedWithTheUsersMask)
{
    const mode_t before = ::umask(027);
    EXPECT_TRUE(platform::createFile(path("made"), 128));
    platform::closeFile(platform::openFile(path("opened"), platform::openMode::write));
    ::umask(before);
    for (const char* name : {"made", "opened"}) {
        struct stat found;
        ASSERT_EQ(::stat(native(name).c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 0777, 0640u) << name;
    }
}

} // namespace namesTest
