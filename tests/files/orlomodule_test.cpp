#include "orlomodule.h"

#include "orlodirectory.h"
#include "orlofile.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace orlomoduleTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

class moduleTest : public testing::Test {
protected:
    moduleTest() : here(machine::renew())
    {
        here.modules[u"drawing.dll"] = u"D:\\parts\\drawing.dll";
    }
    machine& here;
};

} // namespace

TEST_F(moduleTest, findsTheExecutableByTheEmptyName)
{
    file found;
    ASSERT_TRUE(getModuleFile(getModuleHandle(u""), found));
    EXPECT_EQ(found.path(), string(u"C:\\tool\\bin\\tavenMorrel.exe"));
}

TEST_F(moduleTest, findsALoadedModuleByItsName)
{
    file found;
    ASSERT_TRUE(getModuleFile(getModuleHandle(u"drawing.dll"), found));
    EXPECT_EQ(found.path(), string(u"D:\\parts\\drawing.dll"));
}

TEST_F(moduleTest, givesNoHandleForWhatIsNotLoaded)
{
    EXPECT_EQ(getModuleHandle(u"missing.dll"), nullptr);
}

TEST_F(moduleTest, normalisesThePath)
{
    here.modules[u""] = u"C:\\tool\\.\\lib\\..\\bin/tavenMorrel.exe";
    file found;
    ASSERT_TRUE(getModuleFile(getModuleHandle(u""), found));
    EXPECT_EQ(found.path(), string(u"C:\\tool\\bin\\tavenMorrel.exe"));
}

TEST_F(moduleTest, leavesTheFileUntouchedIfTheSystemCantTell)
{
    file found(u"C:\\before");
    here.failCall("modulePath", 1);
    EXPECT_FALSE(getModuleFile(getModuleHandle(u""), found));
    EXPECT_EQ(found.path(), string(u"C:\\before"));
}

TEST_F(moduleTest, cutsAPathAt255Units)
{
    const string folder = u"C:\\" + string(std::u16string(200, u'f').c_str());
    for (const std::size_t length : {254u, 255u, 256u, 300u}) {
        string path = folder + u"\\" + string(std::u16string(150, u'x').c_str());
        here.modules[u""] = path.substr(0, length);
        file found;
        ASSERT_TRUE(getModuleFile(getModuleHandle(u""), found));
        EXPECT_EQ(found.path(), path.substr(0, std::min<std::size_t>(length, 255))) << length;
    }
}

TEST_F(moduleTest, givesTheFolderWithItsBackslash)
{
    directory folder;
    ASSERT_TRUE(getModuleDirectory(getModuleHandle(u""), folder));
    EXPECT_EQ(folder.path(), string(u"C:\\tool\\bin\\"));
    here.modules[u""] = u"C:\\tavenMorrel.exe";
    ASSERT_TRUE(getModuleDirectory(getModuleHandle(u""), folder));
    EXPECT_EQ(folder.path(), string(u"C:\\"));
}

TEST_F(moduleTest, givesTheFolderByName)
{
    directory folder;
    getModuleDirectory(u"drawing.dll", folder);
    EXPECT_EQ(folder.path(), string(u"D:\\parts\\"));
}

TEST_F(moduleTest, leavesTheFolderAsItIsForWhatIsNotLoaded)
{
    directory folder(u"C:\\before");
    getModuleDirectory(u"missing.dll", folder);
    EXPECT_EQ(folder.path(), string(u"C:\\before\\"));
}

TEST_F(moduleTest, leavesTheFolderAsItIsIfTheSystemCantTell)
{
    directory folder(u"C:\\before");
    here.failCall("modulePath", 1);
    EXPECT_FALSE(getModuleDirectory(getModuleHandle(u""), folder));
    EXPECT_EQ(folder.path(), string(u"C:\\before\\"));
}

} // namespace orlomoduleTest
