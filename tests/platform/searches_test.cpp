#include "orlodirectory.h"
#include "platform/platform.h"

#include "support/tempfolder.h"

#include <map>
#include <set>

namespace searchesTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

constexpr std::uint32_t subdirectory = 16;
constexpr std::uint32_t everyAttribute = 1 | 2 | 4 | 16 | 32;

class searchesSystemTest : public systemTest {
protected:
    [[nodiscard]] std::map<string, std::uint32_t> search(const string& pattern) const
    {
        std::map<string, std::uint32_t> hits;
        platform::searchHit hit;
        const platform::searchHandle handle = platform::findFirst(pattern, everyAttribute, hit);
        if (handle == platform::noSearch) return hits;
        do {
            hits[hit.name] = hit.attributes;
        } while (platform::findNext(handle, hit));
        platform::findClose(handle);
        return hits;
    }

    // Names that a pattern finds in the folder, without "." and "..".
    [[nodiscard]] std::set<string> names(const string& pattern) const
    {
        std::set<string> found;
        for (const auto& [name, attributes] : search(path("") + pattern)) {
            if (name != u"." && name != u"..") found.insert(name);
        }
        return found;
    }
};

using nameSet = std::set<string>;

} // namespace

TEST_F(searchesSystemTest, findsByPattern)
{
    for (const char* name : {"P1", "P1.xml", "P1.a.b", "P1x.xml", "P2.xml", "screen.png", "notes"})
        put(name, "");
    const nameSet all = {u"P1",     u"P1.xml",     u"P1.a.b", u"P1x.xml",
                         u"P2.xml", u"screen.png", u"notes"};
    const struct {
        const char16_t* pattern;
        nameSet found;
    } rows[] = {
        {u"*", all},
        {u"*.*", all},
        {u"P1.*", {u"P1", u"P1.xml", u"P1.a.b"}},
        {u"screen.*", {u"screen.png"}},
        {u"*.xml", {u"P1.xml", u"P1x.xml", u"P2.xml"}},
        {u"P1.xml", {u"P1.xml"}},
        {u"P?.xml", {u"P1.xml", u"P2.xml"}},
        {u"P1*", {u"P1", u"P1.xml", u"P1.a.b", u"P1x.xml"}},
        {u"P*.xml", {u"P1.xml", u"P1x.xml", u"P2.xml"}},
        {u"*1*.*", {u"P1", u"P1.xml", u"P1.a.b", u"P1x.xml"}},
        {u"*e*", {u"screen.png", u"notes"}},
        {u"*.p*g", {u"screen.png"}},
        {u"no*", {u"notes"}},
        {u"x*", {}},
        {u"P3.*", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(names(row.pattern), row.found) << narrow(row.pattern);
}

TEST_F(searchesSystemTest, givesDirectoriesAmongTheHits)
{
    makeFolder("folder.x");
    put("file.x", "");
    const auto hits = search(path("") + u"*.x");
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits.at(u"folder.x") & subdirectory, subdirectory);
    EXPECT_EQ(hits.at(u"file.x") & subdirectory, 0u);
}

TEST_F(searchesSystemTest, givesTheDirectoryItselfAndItsParent)
{
    const auto hits = search(path("") + u"*");
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits.at(u".") & everyAttribute, subdirectory);
    EXPECT_EQ(hits.at(u"..") & everyAttribute, subdirectory);
}

TEST_F(searchesSystemTest, findsNothingInAMissingDirectory)
{
    put("file", "");
    EXPECT_TRUE(search(path("missing") + u"\\*").empty());
    EXPECT_TRUE(search(path("file") + u"\\*").empty());
    EXPECT_TRUE(search(u"Q:\\*").empty());
    EXPECT_TRUE(search(u"").empty());
    EXPECT_TRUE(search(path("") + u"missing").empty());
}

TEST_F(searchesSystemTest, searchesTheCurrentDirectoryWithoutAPath)
{
    put("file.here", "");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(native(""));
    EXPECT_EQ(search(u"*.here").count(u"file.here"), 1u);
    EXPECT_EQ(search(path("").substr(0, 2) + u"*.here").count(u"file.here"), 1u);
    std::filesystem::current_path(before);
}

TEST_F(searchesSystemTest, findsEveryEntryOfALargeDirectory)
{
    nameSet made;
    for (int i = 0; i < 3000; ++i) {
        const std::string name = "entry-with-a-rather-long-name-" + std::to_string(i) + ".dat";
        put(name, "");
        made.insert(string(name.c_str()));
    }
    EXPECT_EQ(names(u"*.dat"), made);
}

TEST_F(searchesSystemTest, allowsRemovingWhatWasFound)
{
    for (int i = 0; i < 500; ++i) put("wipe" + std::to_string(i) + ".x", "");
    platform::searchHit hit;
    const platform::searchHandle handle = platform::findFirst(path("") + u"wipe*.x", 0, hit);
    ASSERT_NE(handle, platform::noSearch);
    do {
        EXPECT_TRUE(platform::removeFile(path("") + hit.name));
    } while (platform::findNext(handle, hit));
    platform::findClose(handle);
    EXPECT_TRUE(names(u"*").empty());
}

TEST_F(searchesSystemTest, keepsNamesBeyondAscii)
{
    const std::u16string name = u"Pr\u00FCf\u20AC\u8A9E.xml";
    put(std::filesystem::path(name), "inside");
    const string found(name.c_str());
    EXPECT_EQ(names(u"*.xml"), nameSet{found});
    EXPECT_EQ(names(u"Pr\u00FC*"), nameSet{found});
    EXPECT_TRUE(platform::access(path("") + found, 4));
}

TEST_F(searchesSystemTest, takesNoHandleForNoSearch)
{
    platform::searchHit hit;
    EXPECT_FALSE(platform::findNext(platform::noSearch, hit));
    platform::findClose(platform::noSearch);
}

} // namespace searchesTest
