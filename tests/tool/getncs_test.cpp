#include "getncs.h"

#include "orloexception.h"
#include "support/platforms.h"
#include "tool/toolrun.h"

#include <gtest/gtest.h>

namespace getncsTest {

using namespace taven::tests;

namespace {

const std::string mark = "\xEF\xBB\xBF";
const std::string infoNotFound = errorDocument(defaultTitle, infoNotFoundText);
const std::string measureNotFound = errorDocument(defaultTitle, measureNotFoundText);
const std::string confirmed =
    confirmDocument(defaultTitle, measuredMessage(measuredAt), workedExample);

const std::string workedFile = measuringFile(workedExample.points);
const std::string equalPoints = measuringFile({{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}}});

const char16_t* const resultPath = u"C:\\out\\result.xml";
const char16_t* const measuringPath = u"C:\\taven\\MeasuringData_P1.xml";

class getncs : public testing::Test {
protected:
    void SetUp() override
    {
        machine::renew();
        machine::current().addDirectory(u"C:\\taven");
        machine::current().addDirectory(u"C:\\out");
    }

    static std::int32_t ask(const std::vector<string>& more = {})
    {
        std::vector<string> given{u"-cmd:getncs", string(u"-out:") + resultPath,
                                  u"-tavenfldr:C:\\taven", u"-platform:P1"};
        given.insert(given.end(), more.begin(), more.end());
        return run(given);
    }
    static void addMeasuring(const std::string& bytes)
    {
        machine::current().addFile(measuringPath, bytes);
    }
    static void addDescription()
    {
        machine::current().addFile(u"C:\\taven\\P1.xml", "description");
    }
    static std::string result() { return machine::current().content(resultPath); }

    // A run that ends in a report: exit code 0, and an older answer stays as it was.
    static void expectRefusal(const string& report, const std::vector<string>& more = {})
    {
        machine& m = machine::current();
        m.boxes.clear();
        m.addFile(resultPath, "older answer");
        EXPECT_EQ(ask(more), 0);
        EXPECT_EQ(onlyBox(), report);
        EXPECT_EQ(result(), "older answer");
    }
};

} // namespace

TEST_F(getncs, tellsAPlatformThatWasNeverBuilt)
{
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(getncs, tellsAPlatformThatWasBuiltButNotMeasured)
{
    addDescription();
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), measureNotFound);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(getncs, takesFoldersOfTheseNamesForMissingFiles)
{
    machine::current().addDirectory(measuringPath);
    machine::current().addDirectory(u"C:\\taven\\P1.xml");
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
}

TEST_F(getncs, confirmsAMeasuredPlatformWithBothSystems)
{
    addMeasuring(workedFile);
    EXPECT_EQ(ask({u"-zoffset:0.25"}), 1);
    EXPECT_EQ(result(), confirmed);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(getncs, needsNoDescriptionOfAMeasuredPlatform)
{
    addMeasuring(workedFile);
    addDescription();
    EXPECT_EQ(ask({u"-zoffset:0.25"}), 1);
    EXPECT_EQ(result(), confirmed);
}

TEST_F(getncs, readsADecimalCommaInTheOffset)
{
    addMeasuring(workedFile);
    EXPECT_EQ(ask({u"-zoffset:0,25"}), 1);
    EXPECT_EQ(result(), confirmed);
}

TEST_F(getncs, refusesAnOffsetThatIsNoNumberAlsoWithoutDebug)
{
    expectRefusal(u"Error parsing zoffset value \"\" ", {u"-zoffset:"});
    expectRefusal(u"Error parsing zoffset value \"up\" ", {u"-zoffset:up"});
}

TEST_F(getncs, missesTheResultFolderSilently)
{
    EXPECT_EQ(ask({u"-out:C:\\none\\r.xml"}), 0);
    EXPECT_EQ(run({u"-cmd:getncs", u"-tavenfldr:C:\\taven"}), 0);
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(ask({u"-out:C:\\none\\r.xml", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Folder for result \"C:\\none\\\" not existing");
}

TEST_F(getncs, showsAnEmptyFolderWhereNoResultIsAskedFor)
{
    EXPECT_EQ(run({u"-cmd:getncs", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Folder for result \"\" not existing");
}

TEST_F(getncs, missesTheTavenFolderSilently)
{
    EXPECT_EQ(ask({u"-tavenfldr:C:\\none"}), 0);
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(ask({u"-tavenfldr:C:\\none", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Taven folder \"C:\\none\\\" not found");
}

TEST_F(getncs, looksAtTheResultFolderThenTheTavenFolderThenTheOffset)
{
    EXPECT_EQ(ask({u"-out:C:\\none\\r.xml", u"-tavenfldr:C:\\none", u"-zoffset:x", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Folder for result \"C:\\none\\\" not existing");
    machine::current().boxes.clear();
    EXPECT_EQ(ask({u"-tavenfldr:C:\\none", u"-zoffset:x", u"-debug"}), 0);
    EXPECT_EQ(onlyBox(), u"Taven folder \"C:\\none\\\" not found");
}

TEST_F(getncs, takesABareFileNameFromTheCurrentDirectory)
{
    EXPECT_EQ(ask({u"-out:r.xml"}), 1);
    EXPECT_EQ(machine::current().content(u"C:\\work\\r.xml"), infoNotFound);
}

TEST_F(getncs, refusesAFileThatCannotBeRead)
{
    const string report = string(u"Error parsing file \"") + measuringPath + u"\" ";
    addMeasuring("<measuringdata>");
    expectRefusal(report);
    addMeasuring("\xEF\xBB\xBF");
    expectRefusal(report);
    addMeasuring(workedFile);
    machine::current().failCall("openFile", 1);
    expectRefusal(report);
    machine::current().failCall("readFile", 1);
    expectRefusal(report);
    EXPECT_EQ(machine::current().openHandles(), 0u);
}

TEST_F(getncs, refusesAnEmptyMeasuringFileAsOneOfAnotherPlatform)
{
    addMeasuring("");
    expectRefusal(string(u"File \"") + measuringPath +
                  u"\" doesn't contain data from platform \"P1\"");
}

TEST_F(getncs, endsAfterTheRefusalOfTheMeasuringData)
{
    addMeasuring(measuringFile(cylinder(1, {1, 2, 3})));
    expectRefusal(string(u"File \"") + measuringPath +
                  u"\" doesn't contain all required four measuring points");
}

TEST_F(getncs, reportsPointsThatGiveNoSystem)
{
    addMeasuring(equalPoints);
    expectRefusal(
        string(u"File \"") + measuringPath +
        u"\" contains invalid measuring points - Error calculating new coordinate system");
}

TEST_F(getncs, reportsAnOffsetWithoutBoundsAsPointsThatGiveNoSystem)
{
    addMeasuring(workedFile);
    for (const char16_t* offset : {u"inf", u"-inf", u"nan", u"1e309", u"-1e309"})
        expectRefusal(
            string(u"File \"") + measuringPath +
                u"\" contains invalid measuring points - Error calculating new coordinate system",
            {string(u"-zoffset:") + offset});
}

TEST_F(getncs, replacesAnOlderAnswer)
{
    machine::current().addFile(resultPath, std::string(10000, 'x'));
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
}

TEST_F(getncs, putsThePlatformIntoFileNamesAndTextsVerbatim)
{
    machine::current().addFile(u"C:\\taven\\a&b.xml", "description");
    EXPECT_EQ(ask({u"-platform:a&b"}), 1);
    EXPECT_NE(result().find("platform &quot;a&amp;b&quot; not found!"), std::string::npos);
}

TEST_F(getncs, takesTextsFromTheLanguageFile)
{
    machine& m = machine::current();
    m.addFile(u"C:\\tool\\config\\Language\\german\\language.loc",
              mark +
                  "brx_msgTitle Titel\ninfoNotFound Zur Plattform [platform] ist nichts bekannt\n");
    EXPECT_EQ(ask({u"-language:german"}), 1);
    EXPECT_EQ(result(), errorDocument("Titel", "Zur Plattform P1 ist nichts bekannt"));
}

TEST_F(getncs, fillsTheDefaultTextWhereTheLanguageFileLacksTheKey)
{
    machine::current().addFile(u"C:\\tool\\config\\Language\\english\\language.loc",
                               mark + "other text\n");
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
}

TEST_F(getncs, looksUpNoTextWhereNoneIsShown)
{
    addMeasuring(equalPoints);
    machine::current().addFile(u"C:\\tool\\config\\Language\\english\\language.loc",
                               mark + "brx_msgTitle T\n");
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(machine::current().countCalls("openFile"), 1u) << "the measuring file alone";
}

TEST_F(getncs, readsEachFileOnce)
{
    addMeasuring(workedFile);
    EXPECT_EQ(ask(), 1);
    std::vector<string> opened;
    for (const auto& call : machine::current().calls) {
        if (call.operation == "openFile") opened.push_back(call.subject);
    }
    EXPECT_EQ(opened,
              (std::vector<string>{u"C:\\taven\\MeasuringData_P1.xml", u"C:\\out\\result.xml"}));
}

TEST_F(getncs, afterTheStartOfASlicingRunKnowsNothing)
{
    addDescription();
    addMeasuring(workedFile);
    EXPECT_EQ(run({u"-cmd:slistat", u"-stat:started", u"-tavenfldr:C:\\taven", u"-platform:P1"}),
              0);
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
}

TEST_F(getncs, letsAFailedSaveOutWithTheOldAnswerGone)
{
    machine& m = machine::current();
    m.addFile(resultPath, "older answer");
    m.failCall("createFile", 1);
    EXPECT_THROW(ask(), orlo::writeFileException);
    EXPECT_FALSE(m.hasFile(resultPath));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(getncs, doesNotLookAtTheRemovalOfTheOldAnswer)
{
    machine& m = machine::current();
    m.addFile(resultPath, "older answer");
    m.failCall("removeFile", 1);
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(result(), infoNotFound);
}

} // namespace getncsTest
