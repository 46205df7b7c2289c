// The descent of a search path through trees of a real disk.
#include "orlodirectory.h"
#include "orlofile.h"
#include "orlosearchpath.h"
#include "support/posix/apart.h"
#include "support/tempfolder.h"

#include <sys/resource.h>
#include <unistd.h>

namespace descentTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

class descentTest : public systemTest {
protected:
    [[nodiscard]] bool finds(const char16_t* name, file& found) const
    {
        searchPath search;
        search.addDirectory(directory(path("")));
        return search.findFile(name, found, true);
    }
};

} // namespace

TEST_F(descentTest, goesDeeperThanFilesCanBeOpen)
{
    constexpr int depth = 100;
    std::filesystem::path below;
    for (int level = 0; level < depth; ++level) makeFolder(below /= "d");
    put(below / "sought", "");
    const ending end = runApart("", [this] {
        const rlimit few = {depth / 2, depth / 2};
        ::setrlimit(RLIMIT_NOFILE, &few);
        file found;
        ::_exit(finds(u"sought", found) ? 0 : 1);
    });
    EXPECT_EQ(end.status, 0);
}

// Two such links in each folder would make more ways than could ever be gone.
TEST_F(descentTest, passesOverFoldersThatLieInThemselves)
{
    makeFolder("a");
    makeFolder("a/b");
    put("a/b/sought", "");
    for (const char* place : {"", "a", "a/b"}) {
        std::filesystem::create_directory_symlink(".", native(place) / "self");
        std::filesystem::create_directory_symlink(".", native(place) / "again");
    }
    std::filesystem::create_directory_symlink("..", native("a/b") / "above");
    std::filesystem::create_directory_symlink(native(""), native("a") / "top");
    file found;
    EXPECT_FALSE(finds(u"missing", found));
    ASSERT_TRUE(finds(u"sought", found));
    EXPECT_EQ(found.path(), path("a/b/sought"));
}

// A link to another folder is a way like others.
TEST_F(descentTest, followsLinksToOtherFolders)
{
    makeFolder("a");
    makeFolder(".elsewhere");
    put(".elsewhere/sought", "");
    std::filesystem::create_directory_symlink("../.elsewhere", native("a/link"));
    file found;
    ASSERT_TRUE(finds(u"sought", found));
    EXPECT_EQ(found.path(), path("a/link/sought"));
}

} // namespace descentTest
