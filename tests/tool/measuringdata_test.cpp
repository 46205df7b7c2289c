#include "measuringdata.h"

#include "tool/toolrun.h"

#include <gtest/gtest.h>

#include <optional>

using namespace taven;
using namespace taven::tests;
using orloGeo::point3d;

namespace {

const char* const cylinder1 =
    R"(<measuringpoint Name="cylinder1"><axis Name="x">1</axis><axis Name="y">11</axis><axis Name="z">2</axis></measuringpoint>)";
const char* const cylinder2 =
    R"(<measuringpoint Name="cylinder2"><axis Name="x">21</axis><axis Name="y">11</axis><axis Name="z">3</axis></measuringpoint>)";
const char* const cylinder3 =
    R"(<measuringpoint Name="cylinder3"><axis Name="x">21</axis><axis Name="y">1</axis><axis Name="z">2</axis></measuringpoint>)";
const char* const cylinder4 =
    R"(<measuringpoint Name="cylinder4"><axis Name="x">1</axis><axis Name="y">1</axis><axis Name="z">1</axis></measuringpoint>)";

const std::string rootAttributes =
    R"(PlatformName="P1" CreationDate="2024-02-05Z" CreationTime="12:30:15Z")";

std::string document(const std::vector<std::string>& points,
                     const std::string& attributes = rootAttributes)
{
    std::string text = "<measuringdata " + attributes + ">";
    for (const std::string& point : points) text += point;
    return text + "</measuringdata>";
}

std::string allPoints(const std::string& before = "", const std::string& after = "")
{
    return document({before, cylinder1, cylinder2, cylinder3, cylinder4, after});
}

std::string point(const std::string& name, const std::string& axes)
{
    return "<measuringpoint Name=\"" + name + "\">" + axes + "</measuringpoint>";
}

std::string axis(const std::string& name, const std::string& text)
{
    return "<axis Name=\"" + name + "\">" + text + "</axis>";
}

const std::string threeAxes = axis("x", "1") + axis("y", "2") + axis("z", "3");

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

class measuringFile : public testing::Test {
protected:
    void SetUp() override { machine::renew(); }
};

} // namespace

TEST_F(measuringFile, isNamedAfterThePlatform)
{
    EXPECT_EQ(measuringFileName(u"P1"), u"MeasuringData_P1.xml");
    EXPECT_EQ(measuringFileName(u""), u"MeasuringData_.xml");
}

TEST_F(measuringFile, givesTheFourCylindersInTheirOrder)
{
    const auto data = read(document({cylinder4, cylinder2, cylinder3, cylinder1}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders, (std::array{point3d(1, 11, 2), point3d(21, 11, 3), point3d(21, 1, 2),
                                           point3d(1, 1, 1)}));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringFile, ofAnotherPlatformIsRefusedCaseSensitively)
{
    EXPECT_EQ(refusalOf(allPoints(), u"p1"),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"p1\"");
    EXPECT_EQ(refusalOf(document({}, ""), u"P1"),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"P1\"");
}

TEST_F(measuringFile, withoutPlatformNameFitsTheEmptyPlatform)
{
    EXPECT_TRUE(read(document({cylinder1, cylinder2, cylinder3, cylinder4}, ""), u""));
}

TEST_F(measuringFile, foldsElementNamesButNotTheRoot)
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

TEST_F(measuringFile, distinguishesCaseOfAttributeNames)
{
    const std::string lower = "platformname=\"P1\" CreationDate=\"2024-02-05Z\"";
    EXPECT_EQ(refusalOf(document({}, lower)),
              u"File \"C:\\taven\\m.xml\" doesn't contain data from platform \"P1\"");
}

TEST_F(measuringFile, takesAxesInAnyOrderAndCase)
{
    const auto data =
        read(document({point("cylinder1", axis("Z", "3") + axis("X", "1") + axis("Y", "2")),
                       cylinder2, cylinder3, cylinder4}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(1, 2, 3));
}

TEST_F(measuringFile, passesOverUnknownAxes)
{
    EXPECT_TRUE(
        read(document({point("cylinder1", axis("w", "no number") + "<axis>4</axis>" + threeAxes),
                       cylinder2, cylinder3, cylinder4})));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringFile, passesOverOtherElementsAndComments)
{
    EXPECT_TRUE(read(allPoints("<!-- x --><note Name=\"cylinder9\"/>", "<other>1</other>")));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringFile, incompletePointIsReportedBeforeItsUnknownName)
{
    EXPECT_EQ(refusalOf(allPoints(point("cylinder5", axis("x", "1") + axis("y", "2")))),
              u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
              u"\"cylinder5\"");
}

TEST_F(measuringFile, eachMissingAxisIsReported)
{
    for (const std::string& axes :
         {axis("y", "2") + axis("z", "3"), axis("x", "1") + axis("z", "3"),
          axis("x", "1") + axis("y", "2"), std::string()}) {
        EXPECT_EQ(refusalOf(document({point("cylinder1", axes), cylinder2, cylinder3, cylinder4})),
                  u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
                  u"\"cylinder1\"");
    }
}

TEST_F(measuringFile, unknownPointNamesAreReportedCaseSensitively)
{
    EXPECT_EQ(refusalOf(allPoints(point("Cylinder1", threeAxes))),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown pointdata \"Cylinder1\"");
    EXPECT_EQ(refusalOf(allPoints("<measuringpoint>" + threeAxes + "</measuringpoint>")),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown pointdata \"\"");
}

TEST_F(measuringFile, readsNumbersForgivingly)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {{"12,5", 12.5},   {"12.5mm", 12.5}, {"  7", 7},
                {"-0.25", -0.25}, {"1e2", 100},     {"1.234,5", 1.234}};
    for (const auto& row : rows) {
        const auto data = read(
            document({point("cylinder1", axis("x", row.text) + axis("y", "2") + axis("z", "3")),
                      cylinder2, cylinder3, cylinder4}));
        ASSERT_TRUE(data) << row.text;
        EXPECT_EQ(data->cylinders[0].x, row.value) << row.text;
    }
}

TEST_F(measuringFile, textWithoutNumberIsReportedWithTheAxisAsWritten)
{
    for (const char* text : {"", "mm", "-", "x1"}) {
        EXPECT_EQ(refusalOf(allPoints(point("cylinder1", axis("Y", text)))),
                  u"File \"C:\\taven\\m.xml\" doesn't contains unknown values for axis \"Y\"");
    }
}

TEST_F(measuringFile, lastOfRepeatedAxesWins)
{
    const auto data = read(document(
        {point("cylinder1", threeAxes + axis("x", "9")), cylinder2, cylinder3, cylinder4}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(9, 2, 3));
}

TEST_F(measuringFile, lastOfRepeatedPointsReplacesTheFirstWhole)
{
    const auto data =
        read(allPoints("", point("cylinder2", threeAxes) + point("cylinder1", threeAxes)));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->cylinders[0], point3d(1, 2, 3));
    EXPECT_EQ(data->cylinders[1], point3d(1, 2, 3));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(measuringFile, repeatedPointMustBeCompleteByItself)
{
    EXPECT_EQ(refusalOf(allPoints("", point("cylinder1", axis("x", "1")))),
              u"File \"C:\\taven\\m.xml\" doesn't contains incomplete axis values for point "
              u"\"cylinder1\"");
}

TEST_F(measuringFile, withThreeCylindersFailsAtTheEnd)
{
    EXPECT_EQ(refusalOf(document({cylinder1, cylinder2, cylinder4})),
              u"File \"C:\\taven\\m.xml\" doesn't contain all required four measuring points");
    EXPECT_EQ(refusalOf(document({})),
              u"File \"C:\\taven\\m.xml\" doesn't contain all required four measuring points");
}

TEST_F(measuringFile, firstFaultEndsTheReading)
{
    EXPECT_EQ(refusalOf(document({point("cylinder1", axis("x", "")), point("unknown", threeAxes)})),
              u"File \"C:\\taven\\m.xml\" doesn't contains unknown values for axis \"x\"");
}

// The month as read counts from 0 in the record: month 2 is shown as March.
TEST_F(measuringFile, timeIsShownWithTheMonthBehindTheOneRead)
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

TEST_F(measuringFile, timeIsShownInTheLocalZone)
{
    machine::current().timeZoneOffset = 3600;
    EXPECT_EQ(read(allPoints())->measuredAt, u"Tue Mar  5 13:30:15 2024");
}

TEST_F(measuringFile, timeIsShownInTheUsersOwnFormatAndTheLocaleIsRestored)
{
    machine& m = machine::current();
    m.userTimeLocale = u"de";
    m.timeText = "5. M\xE4rz 2024";
    m.calls.clear();
    EXPECT_EQ(read(allPoints())->measuredAt, u"5. M\u00E4rz 2024")
        << "bytes are units of the same value";
    EXPECT_EQ(m.timeLocale, u"C");
    EXPECT_EQ(m.countCalls("queryTimeLocale"), 1u);
    EXPECT_EQ(m.countCalls("setTimeLocale"), 2u);

    m.timeText = "X";
    EXPECT_EQ(read(allPoints())->measuredAt, u"X");
}

TEST_F(measuringFile, readingGoesOnWithoutAUsableTime)
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
    for (const char* call :
         {"secondsOf", "localTime", "formatTime", "queryTimeLocale", "setTimeLocale"}) {
        machine::renew().failCall(call, 1);
        EXPECT_TRUE(read(allPoints())) << call;
    }
}
