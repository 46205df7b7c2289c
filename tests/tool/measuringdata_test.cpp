#include "measuringdata.h"

#include "support/platforms.h"
#include "tool/toolrun.h"

#include <gtest/gtest.h>

#include <optional>

namespace measuringdataTest {

using namespace taven;
using namespace taven::tests;
using orloGeo::point3d;

namespace {

const std::string cylinder1 = cylinder(1, workedExample.points[0]);
const std::string cylinder2 = cylinder(2, workedExample.points[1]);
const std::string cylinder3 = cylinder(3, workedExample.points[2]);
const std::string cylinder4 = cylinder(4, workedExample.points[3]);

std::string document(const std::vector<std::string>& points,
                     const std::string& attributes = rootAttributes)
{
    std::string all;
    for (const std::string& point : points) all += point;
    return measuringFile(all, attributes);
}

std::string allPoints(const std::string& before = "", const std::string& after = "")
{
    return document({before, cylinder1, cylinder2, cylinder3, cylinder4, after});
}

const std::string threeAxes = axes({1, 2, 3});

std::optional<measuringData> read(const std::string& text, const string& platform = u"P1")
{
    machine::current().boxes.clear();
    const auto loaded = orlo::xmlDocument::createDocument();
    loaded->parseBuffer(text.data(), text.size(), false);
    return readMeasuringData(orlo::file(u"C:\\taven\\m.xml"), platform, *loaded);
}

string refusalOf(const std::string& text, const string& platform = u"P1")
{
    return read(text, platform) ? string(u"<accepted>") : onlyBox();
}

class measuringReader : public testing::Test {
protected:
    void SetUp() override { machine::renew(); }
};

} // namespace

TEST_F(measuringReader, givesTheFourCylindersInTheirOrder)
{
    const auto data = read(document({cylinder4, cylinder2, cylinder3, cylinder1}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders, workedExample.points);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringReader, ofAnotherPlatformIsRefusedCaseSensitively)
{
    EXPECT_EQ(refusalOf(allPoints(), u"p1"),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"p1\"");
    EXPECT_EQ(refusalOf(document({}, ""), u"P1"),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"P1\"");
}

TEST_F(measuringReader, withoutPlatformNameFitsTheEmptyPlatform)
{
    EXPECT_TRUE(read(document({cylinder1, cylinder2, cylinder3, cylinder4}, ""), u""));
}

TEST_F(measuringReader, foldsElementNamesButNotTheRoot)
{
    std::string text = allPoints();
    const auto replace = [&text](const std::string& from, const std::string& to) {
        for (std::size_t at = text.find(from); at != text.npos;
             at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    };
    replace("measuringpoint", "MeasuringPOINT");
    replace("axis", "Axis");
    replace("measuringdata", "AnyRoot");
    EXPECT_TRUE(read(text));
}

TEST_F(measuringReader, distinguishesCaseOfAttributeNames)
{
    const std::string lower = "platformname=\"P1\" CreationDate=\"2024-02-05Z\"";
    EXPECT_EQ(refusalOf(document({}, lower)),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"P1\"");
}

TEST_F(measuringReader, takesAxesInAnyOrderAndCase)
{
    const auto data = read(
        document({measuringPoint("cylinder1", axis("Z", "3") + axis("X", "1") + axis("Y", "2")),
                  cylinder2, cylinder3, cylinder4}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(1, 2, 3));
}

TEST_F(measuringReader, passesOverUnknownAxes)
{
    EXPECT_TRUE(read(document(
        {measuringPoint("cylinder1", axis("w", "no number") + "<axis>4</axis>" + threeAxes),
         cylinder2, cylinder3, cylinder4})));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringReader, passesOverOtherElementsAndComments)
{
    EXPECT_TRUE(read(allPoints("<!-- x --><note Name=\"cylinder9\"/>", "<other>1</other>")));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringReader, takesPointsFromTheRootAlone)
{
    const std::string nested = "<group>" + measuringPoint("cylinder1", threeAxes) + "</group>";
    const auto data = read(allPoints("", nested));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders, workedExample.points);
    EXPECT_EQ(refusalOf(document({nested, cylinder2, cylinder3, cylinder4})),
              u"File \"C:\\taven\\m.xml\" doesn't contain all required four measuring points");
    EXPECT_TRUE(read(allPoints("<group>" + measuringPoint("unknown", "") + "</group>")));
}

TEST_F(measuringReader, takesAxesFromThePointAlone)
{
    const std::string nested = "<group>" + axis("z", "9") + axis("x", "no number") + "</group>";
    const auto data = read(allPoints("", measuringPoint("cylinder1", threeAxes + nested)));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(1, 2, 3));
    EXPECT_EQ(refusalOf(allPoints(
                  "", measuringPoint("cylinder1", axis("x", "1") + axis("y", "2") + nested))),
              u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
              u"\"cylinder1\"");
}

TEST_F(measuringReader, incompletePointIsReportedBeforeItsUnknownName)
{
    EXPECT_EQ(refusalOf(allPoints(measuringPoint("cylinder5", axis("x", "1") + axis("y", "2")))),
              u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
              u"\"cylinder5\"");
}

TEST_F(measuringReader, eachMissingAxisIsReported)
{
    for (const std::string& axes :
         {axis("y", "2") + axis("z", "3"), axis("x", "1") + axis("z", "3"),
          axis("x", "1") + axis("y", "2"), std::string()}) {
        EXPECT_EQ(refusalOf(document(
                      {measuringPoint("cylinder1", axes), cylinder2, cylinder3, cylinder4})),
                  u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
                  u"\"cylinder1\"");
    }
}

TEST_F(measuringReader, unknownPointNamesAreReportedCaseSensitively)
{
    EXPECT_EQ(refusalOf(allPoints(measuringPoint("Cylinder1", threeAxes))),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown pointdata \"Cylinder1\"");
    EXPECT_EQ(refusalOf(allPoints("<measuringpoint>" + threeAxes + "</measuringpoint>")),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown pointdata \"\"");
}

TEST_F(measuringReader, readsNumbersForgivingly)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {{"12,5", 12.5},   {"12.5mm", 12.5}, {"  7", 7},
                {"-0.25", -0.25}, {"1e2", 100},     {"1.234,5", 1.234}};
    for (const auto& row : rows) {
        const auto data = read(document(
            {measuringPoint("cylinder1", axis("x", row.text) + axis("y", "2") + axis("z", "3")),
             cylinder2, cylinder3, cylinder4}));
        ASSERT_TRUE(data) << row.text;
        EXPECT_EQ(data->cylinders[0].x, row.value) << row.text;
    }
}

TEST_F(measuringReader, textWithoutNumberIsReportedWithTheAxisAsWritten)
{
    for (const char* text : {"", "mm", "-", "x1"}) {
        EXPECT_EQ(refusalOf(allPoints(measuringPoint("cylinder1", axis("Y", text)))),
                  u"File \"C:\\taven\\m.xml\" doesn't contains unknown values for axis \"Y\"");
    }
}

TEST_F(measuringReader, lastOfRepeatedAxesWins)
{
    const auto data = read(document({measuringPoint("cylinder1", threeAxes + axis("x", "9")),
                                     cylinder2, cylinder3, cylinder4}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(9, 2, 3));
}

TEST_F(measuringReader, lastOfRepeatedPointsReplacesTheFirstWhole)
{
    const auto data = read(allPoints("", measuringPoint("cylinder2", threeAxes) +
                                             measuringPoint("cylinder1", threeAxes)));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(1, 2, 3));
    EXPECT_EQ(data->cylinders[1], point3d(1, 2, 3));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringReader, repeatedPointMustBeCompleteByItself)
{
    EXPECT_EQ(refusalOf(allPoints("", measuringPoint("cylinder1", axis("x", "1")))),
              u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
              u"\"cylinder1\"");
}

TEST_F(measuringReader, withThreeCylindersFailsAtTheEnd)
{
    EXPECT_EQ(refusalOf(document({cylinder1, cylinder2, cylinder4})),
              u"File \"C:\\taven\\m.xml\" doesn't contain all required four measuring points");
    EXPECT_EQ(refusalOf(document({})),
              u"File \"C:\\taven\\m.xml\" doesn't contain all required four measuring points");
}

TEST_F(measuringReader, firstFaultEndsTheReading)
{
    EXPECT_EQ(refusalOf(document({measuringPoint("cylinder1", axis("x", "")),
                                  measuringPoint("unknown", threeAxes)})),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown values for axis \"x\"");
}

// The month as read counts from 0 in the record: month 2 is shown as March.
TEST_F(measuringReader, timeIsShownWithTheMonthBehindTheOneRead)
{
    const struct {
        const char* date;
        const char* time;
        const char16_t* shown;
    } rows[] = {
        {"2024-02-05Z", "12:30:15Z", u"Tue Mar  5 12:30:15 2024"},
        {"2023-12-31Z", "23:59:59Z", u"Wed Jan 31 23:59:59 2024"},
        {"2024-00-30Z", "25:61:61Z", u"Wed Jan 31 02:02:01 2024"},
    };
    for (const auto& row : rows) {
        const std::string attributes = std::string("PlatformName=\"P1\" CreationDate=\"") +
                                       row.date + "\" CreationTime=\"" + row.time + "\"";
        const auto data = read(document({cylinder1, cylinder2, cylinder3, cylinder4}, attributes));
        ASSERT_TRUE(data);
        EXPECT_EQ(data->measuredAt, row.shown) << row.date;
    }
}

TEST_F(measuringReader, timeIsShownInTheLocalZone)
{
    machine::current().timeZoneOffset = 3600;
    EXPECT_EQ(read(allPoints())->measuredAt, u"Tue Mar  5 13:30:15 2024");
}

TEST_F(measuringReader, readingGoesOnWithoutAUsableTime)
{
    for (const char* attributes :
         {"PlatformName=\"P1\"", "PlatformName=\"P1\" CreationDate=\"x\" CreationTime=\"y\"",
          "PlatformName=\"P1\" CreationDate=\"2147483647-2147483647-2147483647Z\""
          " CreationTime=\"-2147483648:-2147483648:-2147483648Z\"",
          "PlatformName=\"P1\" CreationDate=\"-2147483648-99999999999-1Z\""}) {
        EXPECT_TRUE(read(document({cylinder1, cylinder2, cylinder3, cylinder4}, attributes)))
            << attributes;
        EXPECT_TRUE(boxes().empty());
    }
}

} // namespace measuringdataTest
