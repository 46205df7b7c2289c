#include "orlofsentry.h"

#include "orlodirectory.h"
#include "orlofile.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace orlofsentryTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

// The plain entry, with nothing of a file or a directory.
class plainEntry : public fsEntry {
public:
    plainEntry(const string& path, const string& second, bool trailing)
        : fsEntry(path, second, trailing)
    {}
    plainEntry(const string& base, const string& name) : fsEntry(joining::always, base, name, true)
    {}
    bool rename(const string&) override { return false; }
};

class entry : public testing::Test {
protected:
    entry() : here(machine::renew()) {}
    machine& here;
};

} // namespace

TEST_F(entry, storesASinglePathAsItComes)
{
    EXPECT_EQ(plainEntry(u"a/../b\\", u"", false).path(), string(u"a/../b\\"));
    EXPECT_EQ(plainEntry(u"", u"", false).path(), string());
    EXPECT_FALSE(plainEntry(u"a", u"", false).trailingSeparator());
}

TEST_F(entry, endsASinglePathInOneSeparatorIfItKeepsOne)
{
    EXPECT_EQ(plainEntry(u"a/../b\\\\", u"", true).path(), string(u"a/../b\\"));
    EXPECT_EQ(plainEntry(u"C:", u"", true).path(), string(u"C:\\"));
    EXPECT_EQ(plainEntry(u"", u"", true).path(), string());
    EXPECT_TRUE(plainEntry(u"", u"", true).trailingSeparator());
}

TEST_F(entry, joinsAndNormalisesTwoTexts)
{
    EXPECT_EQ(plainEntry(u"C:\\a", u"../b/", false).path(), string(u"C:\\b"));
    EXPECT_EQ(plainEntry(u"C:\\a", u"../b", true).path(), string(u"C:\\b\\"));
    EXPECT_EQ(plainEntry(u"", u"b", true).path(), string());
}

TEST_F(entry, normalisesAlsoWithAnEmptyNameWhereItAlwaysJoins)
{
    EXPECT_EQ(plainEntry(u"C:/a/../b", u"").path(), string(u"C:\\b\\"));
    EXPECT_TRUE(plainEntry(u"C:\\a", u"").trailingSeparator());
}

TEST_F(entry, takesANewPathWithoutNormalisingIt)
{
    plainEntry plain(u"C:\\a", u"", false);
    plain.setPath(u"x/./y\\\\");
    EXPECT_EQ(plain.path(), string(u"x/./y\\\\"));

    plainEntry keeping(u"C:\\a", u"", true);
    keeping.setPath(u"x/./y\\\\");
    EXPECT_EQ(keeping.path(), string(u"x/./y\\"));
    keeping.setPath(u"");
    EXPECT_EQ(keeping.path(), string());
}

TEST_F(entry, copiesPathAndSeparator)
{
    const plainEntry source(u"C:\\a", u"", true);
    plainEntry target(u"x", u"", false);
    target = source;
    EXPECT_EQ(target.path(), string(u"C:\\a\\"));
    EXPECT_TRUE(target.trailingSeparator());
    const plainEntry copy(source);
    EXPECT_EQ(copy.path(), string(u"C:\\a\\"));
    EXPECT_TRUE(copy.trailingSeparator());
}

TEST_F(entry, existsWhateverIsThere)
{
    here.addFile(u"C:\\a\\f.txt", "");
    EXPECT_TRUE(plainEntry(u"C:\\a\\f.txt", u"", false).exists());
    EXPECT_TRUE(plainEntry(u"C:\\a", u"", false).exists());
    EXPECT_FALSE(plainEntry(u"C:\\missing", u"", false).exists());
}

TEST_F(entry, withoutAPathAsksNothing)
{
    const plainEntry nothing(u"", u"", false);
    EXPECT_FALSE(nothing.exists());
    EXPECT_FALSE(nothing.isRemote());
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(entry, asksAgainEachTime)
{
    const plainEntry asked(u"C:\\a", u"", false);
    EXPECT_FALSE(asked.exists());
    here.addDirectory(u"C:\\a");
    EXPECT_TRUE(asked.exists());
}

TEST_F(entry, isRemoteOnANetworkPathWithoutAsking)
{
    EXPECT_TRUE(plainEntry(u"\\\\srv\\share", u"", false).isRemote());
    EXPECT_TRUE(plainEntry(u"\\\\", u"", false).isRemote());
    EXPECT_EQ(here.countCalls("driveType"), 0u);
}

TEST_F(entry, isRemoteOnARemoteDrive)
{
    here.driveTypes[u'N'] = 4;
    here.driveTypes[u'R'] = 5;
    EXPECT_TRUE(plainEntry(u"n:\\a\\b", u"", false).isRemote());
    EXPECT_EQ(here.calls.back().subject, string(u"N:\\"));
    EXPECT_FALSE(plainEntry(u"R:\\a", u"", false).isRemote());
    EXPECT_FALSE(plainEntry(u"C:\\a", u"", false).isRemote());
    EXPECT_FALSE(plainEntry(u"Q:\\a", u"", false).isRemote());
}

TEST_F(entry, isNotRemoteWithoutADrive)
{
    here.driveTypes[u'C'] = 4;
    EXPECT_FALSE(plainEntry(u"a\\b", u"", false).isRemote());
    EXPECT_FALSE(plainEntry(u"\\a", u"", false).isRemote());
    EXPECT_FALSE(plainEntry(u"//srv/share", u"", false).isRemote());
    EXPECT_FALSE(plainEntry(u"/\\srv\\share", u"", false).isRemote());
    EXPECT_EQ(here.countCalls("driveType"), 0u);
}

TEST_F(entry, ofOneUnitRaisesWhenAskedForItsDrive)
{
    EXPECT_THROW(static_cast<void>(plainEntry(u"x", u"", false).isRemote()), std::out_of_range);
}

TEST_F(entry, isAPlainValueWithoutVirtualDestructor)
{
    EXPECT_FALSE(std::has_virtual_destructor_v<file>);
    EXPECT_FALSE(std::has_virtual_destructor_v<directory>);
    EXPECT_TRUE(std::is_abstract_v<fsEntry>);
}

} // namespace orlofsentryTest
