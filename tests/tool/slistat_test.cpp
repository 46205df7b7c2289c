#include "slistat.h"

#include "tool/toolrun.h"

#include <gtest/gtest.h>

namespace slistatTest {

using namespace taven::tests;

namespace {

constexpr std::uint32_t hidden = 2;
constexpr std::uint32_t system_ = 4;

// An exchange folder in the middle of a platform's life, and a slicing output folder.
class slistat : public testing::Test {
protected:
    void SetUp() override
    {
        machine& m = machine::renew();
        m.addDirectory(u"C:\\taven");
        m.addFile(u"C:\\taven\\P1.xml", "old description");
        m.addFile(u"C:\\taven\\P1.png", "old picture");
        m.addFile(u"C:\\taven\\MeasuringData_P1.xml", "measured");
        m.addFile(u"C:\\taven\\P2.xml", "another platform");
        m.addDirectory(u"C:\\slices");
        m.addFile(u"C:\\slices\\P1.xml", "new description");
        m.addFile(u"C:\\slices\\screen.png", "new picture");
    }

    static std::int32_t end(const std::vector<string>& more = {})
    {
        return runStatus(u"-stat:ended_success", more);
    }
    static std::int32_t start(const std::vector<string>& more = {})
    {
        return runStatus(u"-stat:started", more);
    }
    static std::int32_t runStatus(const string& status, const std::vector<string>& more)
    {
        std::vector<string> given{u"-cmd:slistat", status, u"-slifldr:C:\\slices",
                                  u"-tavenfldr:C:\\taven", u"-platform:P1"};
        given.insert(given.end(), more.begin(), more.end());
        return run(given);
    }
    static std::string content(const char16_t* path) { return machine::current().content(path); }
    static bool has(const char16_t* path) { return machine::current().hasFile(path); }
    static void onlyScreens(const std::vector<string>& names)
    {
        machine::renew();
        machine::current().addDirectory(u"C:\\taven");
        machine::current().addFile(u"C:\\slices\\P1.xml", "new description");
        for (const string& name : names)
            machine::current().addFile(u"C:\\slices\\" + name, orlo::narrow(name));
    }
};

} // namespace

TEST_F(slistat, ignoresAnUnknownStatusWithoutTouchingAnything)
{
    const std::vector<string> before = files();
    for (const char16_t* status :
         {u"-stat:Started", u"-stat:ended_error", u"-stat:", u"-stat:ended_success "}) {
        machine::current().calls.clear();
        EXPECT_EQ(runStatus(status, {}), 0);
        EXPECT_EQ(files(), before);
        EXPECT_EQ(machine::current().countCalls("access"), 0u) << "no folder is looked at";
        EXPECT_TRUE(boxes().empty());
    }
}

TEST_F(slistat, showsTheStatusUnderDebugBeforeItIsJudged)
{
    EXPECT_EQ(run({u"-cmd:slistat", u"-debug", u"-stat:ended_error"}), 0);
    EXPECT_EQ(onlyBox(), u"Status message: \"ended_error\"");
    machine::renew();
    EXPECT_EQ(run({u"-cmd:slistat", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Status message: \"\"");
}

TEST_F(slistat, showsNothingWithoutDebug)
{
    EXPECT_EQ(run({u"-cmd:slistat", u"-stat:started", u"-tavenfldr:C:\\none", u"-platform:P1"}), 0);
    EXPECT_EQ(run({u"-cmd:slistat", u"-stat:ended_success", u"-tavenfldr:C:\\taven",
                   u"-slifldr:C:\\none"}),
              0);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(slistat, reportsAMissingTavenFolderByItsNormalisedPath)
{
    EXPECT_EQ(run({u"-cmd:slistat", u"-debug", u"-stat:started", u"-tavenfldr:none/./x",
                   u"-platform:P1"}),
              0);
    EXPECT_EQ(boxes(), (std::vector<string>{u"Status message: \"started\"",
                                            u"Taven folder \"C:\\work\\none\\x\\\" not found"}));
}

TEST_F(slistat, takesAMissingFolderSwitchForAMissingFolder)
{
    EXPECT_EQ(run({u"-cmd:slistat", u"-debug", u"-stat:started", u"-platform:P1"}), 0);
    EXPECT_EQ(boxes().back(), u"Taven folder \"\" not found");
    EXPECT_EQ(run({u"-cmd:slistat", u"-debug", u"-stat:ended_success", u"-tavenfldr:C:\\taven",
                   u"-platform:P1"}),
              0);
    EXPECT_EQ(boxes().back(), u"Slicing output folder \"\" not found");
}

TEST_F(slistat, wipesThePlatformAtTheStart)
{
    EXPECT_EQ(start(), 0);
    EXPECT_EQ(files(), (std::vector<string>{u"C:\\slices\\P1.xml", u"C:\\slices\\screen.png",
                                            u"C:\\taven\\P2.xml"}));
}

TEST_F(slistat, needsNoOutputFolderAtTheStart)
{
    EXPECT_EQ(start({u"-slifldr:C:\\none", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Status message: \"started\"");
    EXPECT_FALSE(has(u"C:\\taven\\P1.xml"));
}

TEST_F(slistat, bringsInDescriptionAndPictureAtAGoodEnd)
{
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.xml"), "new description");
    EXPECT_EQ(content(u"C:\\taven\\P1.png"), "new picture");
    EXPECT_FALSE(has(u"C:\\taven\\MeasuringData_P1.xml"));
    EXPECT_EQ(content(u"C:\\taven\\P2.xml"), "another platform");
    EXPECT_TRUE(boxes().empty());
}

TEST_F(slistat, keepsTheWipeWhenTheOutputFolderIsMissing)
{
    EXPECT_EQ(end({u"-slifldr:C:\\none", u"-debug"}), 0);
    EXPECT_EQ(boxes().back(), u"Slicing output folder \"C:\\none\\\" not found");
    EXPECT_FALSE(has(u"C:\\taven\\P1.xml"));
    EXPECT_FALSE(has(u"C:\\taven\\MeasuringData_P1.xml"));
}

TEST_F(slistat, endsSilentlyWithoutADescription)
{
    machine::current().addDirectory(
        u"C:\\empty\\P1.xml"); // a folder of that name is no description
    EXPECT_EQ(end({u"-slifldr:C:\\empty", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Status message: \"ended_success\"");
    EXPECT_FALSE(has(u"C:\\taven\\P1.png"));
}

TEST_F(slistat, keepsTheCaseOfThePicturesExtension)
{
    onlyScreens({u"screen.PNG"});
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(files().back(), u"C:\\taven\\P1.xml");
    EXPECT_EQ(files()[files().size() - 2], u"C:\\taven\\P1.PNG");
}

TEST_F(slistat, takesAnyScreenFileWhereNoImageIs)
{
    onlyScreens({u"screen.txt"});
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.txt"), "screen.txt");
}

TEST_F(slistat, takesTheLastScreenFileWhereNoImageIs)
{
    onlyScreens({u"screen.doc", u"screen.txt"});
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.txt"), "screen.txt");
    EXPECT_FALSE(has(u"C:\\taven\\P1.doc"));
}

TEST_F(slistat, prefersAnImageInWhicheverOrderItComes)
{
    for (const auto& order :
         {std::vector<string>{u"screen.txt", u"screen.png"}, {u"screen.png", u"screen.txt"}}) {
        onlyScreens(order);
        EXPECT_EQ(end(), 1);
        EXPECT_EQ(content(u"C:\\taven\\P1.png"), "screen.png");
        EXPECT_FALSE(has(u"C:\\taven\\P1.txt"));
    }
}

TEST_F(slistat, takesTheFirstOfSeveralImages)
{
    onlyScreens({u"screen.Tiff", u"screen.png"});
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.Tiff"), "screen.Tiff");
    EXPECT_FALSE(has(u"C:\\taven\\P1.png"));
}

TEST_F(slistat, knowsSixImageExtensions)
{
    for (const char16_t* extension : {u"png", u"gif", u"jpg", u"jpeg", u"bmp", u"tiff"}) {
        onlyScreens({string(u"screen.") + extension, u"screen.tif"});
        EXPECT_EQ(end(), 1);
        EXPECT_TRUE(has((string(u"C:\\taven\\P1.") + extension).c_str()))
            << orlo::narrow(extension);
        EXPECT_FALSE(has(u"C:\\taven\\P1.tif"));
    }
}

TEST_F(slistat, endsWellWithoutAnyPicture)
{
    onlyScreens({});
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(files(), (std::vector<string>{u"C:\\slices\\P1.xml", u"C:\\taven\\P1.xml"}));
}

TEST_F(slistat, sparesFoldersHiddenAndSystemFiles)
{
    machine& m = machine::current();
    m.addDirectory(u"C:\\taven\\P1.old");
    m.addFile(u"C:\\taven\\P1.hid", "h", hidden);
    m.addFile(u"C:\\taven\\P1.sys", "s", system_);
    EXPECT_EQ(start(), 0);
    EXPECT_TRUE(m.hasDirectory(u"C:\\taven\\P1.old"));
    EXPECT_TRUE(has(u"C:\\taven\\P1.hid"));
    EXPECT_TRUE(has(u"C:\\taven\\P1.sys"));
    EXPECT_FALSE(has(u"C:\\taven\\P1.png"));
}

TEST_F(slistat, passesOverHiddenPictures)
{
    machine& m = machine::current();
    m.setAttributes(u"C:\\slices\\screen.png", hidden);
    m.addFile(u"C:\\slices\\screen.bmp", "bitmap");
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.bmp"), "bitmap");
}

TEST_F(slistat, passesOverPicturesOfTheSystem)
{
    machine& m = machine::current();
    m.setAttributes(u"C:\\slices\\screen.png", system_);
    m.addFile(u"C:\\slices\\screen.bmp", "bitmap");
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.bmp"), "bitmap");
}

// The wipe spares hidden files, so an older picture may still be there.
TEST_F(slistat, overwritesAnOlderDescriptionAndPicture)
{
    for (const char16_t* older : {u"C:\\taven\\P1.xml", u"C:\\taven\\P1.png"})
        machine::current().setAttributes(older, hidden);
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(content(u"C:\\taven\\P1.xml"), "new description");
    EXPECT_EQ(content(u"C:\\taven\\P1.png"), "new picture");
}

// A search may end where the file that it stands on goes.
TEST_F(slistat, movesTheSearchOnBeforeAFileGoes)
{
    EXPECT_EQ(start(), 0);
    std::vector<std::string> steps;
    for (const auto& call : machine::current().calls) {
        if (call.operation == "findNext") steps.push_back("on");
        if (call.operation == "removeFile") steps.push_back(orlo::narrow(call.subject));
    }
    EXPECT_EQ(steps, (std::vector<std::string>{"on", "C:\\taven\\P1.xml", "on", "C:\\taven\\P1.png",
                                               "C:\\taven\\MeasuringData_P1.xml"}));
}

TEST_F(slistat, wipesFilesOfThePlatformInAllTheirExtensions)
{
    machine::current().addFile(u"C:\\taven\\P1.tar.gz", "x");
    machine::current().addFile(u"C:\\taven\\P1", "x");
    machine::current().addFile(u"C:\\taven\\P11.xml", "longer name");
    EXPECT_EQ(start(), 0);
    EXPECT_EQ(files(), (std::vector<string>{u"C:\\slices\\P1.xml", u"C:\\slices\\screen.png",
                                            u"C:\\taven\\P11.xml", u"C:\\taven\\P2.xml"}));
}

TEST_F(slistat, doesNotRefuseAnEmptyPlatform)
{
    machine& m = machine::current();
    m.addFile(u"C:\\taven\\MeasuringData_.xml", "measured");
    EXPECT_EQ(start({u"-platform:"}), 0);
    EXPECT_EQ(m.countCalls("findFirst"), 1u);
    EXPECT_FALSE(has(u"C:\\taven\\MeasuringData_.xml"));
    EXPECT_TRUE(has(u"C:\\taven\\MeasuringData_P1.xml"));
    const auto search = std::find_if(m.calls.begin(), m.calls.end(), [](const auto& call) {
        return call.operation == "findFirst";
    });
    EXPECT_EQ(search->subject, u"C:\\taven\\.*");
}

TEST_F(slistat, lastOfRepeatedSwitchesWins)
{
    EXPECT_EQ(start({u"-platform:P2"}), 0);
    EXPECT_TRUE(has(u"C:\\taven\\P1.xml"));
    EXPECT_FALSE(has(u"C:\\taven\\P2.xml"));
    EXPECT_EQ(start({u"-stat:nothing"}), 0);
    EXPECT_TRUE(has(u"C:\\taven\\P1.xml"));
}

TEST_F(slistat, doesNotLookAtTheResultsOfTheCopies)
{
    for (std::size_t nth : {1u, 2u}) {
        SetUp();
        machine::current().failCall("copyFile", nth);
        EXPECT_EQ(end(), 1);
        EXPECT_TRUE(boxes().empty());
        EXPECT_EQ(has(u"C:\\taven\\P1.xml"), nth != 1);
        EXPECT_EQ(has(u"C:\\taven\\P1.png"), nth != 2);
    }
}

TEST_F(slistat, doesNotReportARemovalThatFails)
{
    for (std::size_t nth : {1u, 2u, 3u}) {
        SetUp();
        machine::current().failCall("removeFile", nth);
        EXPECT_EQ(start({u"-debug"}), 0);
        EXPECT_EQ(onlyBox(), u"Status message: \"started\"");
        EXPECT_EQ(files().size(), 4u) << "one of the three survives";
    }
}

TEST_F(slistat, worksInOnePassOverEachFolder)
{
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(machine::current().countCalls("findFirst"), 2u);
    EXPECT_EQ(machine::current().countCalls("openFile"), 0u);
    EXPECT_EQ(machine::current().openHandles(), 0u);
}

} // namespace slistatTest
