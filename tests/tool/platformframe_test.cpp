#include "platformframe.h"

#include "orlotypeconvert.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace orloGeo;
using namespace taven;
using points = std::array<point3d, 4>;

namespace {

constexpr points flatRectangle{point3d(0, 10, 1), point3d(20, 10, 1), point3d(20, 0, 1),
                               point3d(0, 0, 1)};
constexpr points workedExample{point3d(1, 11, 2), point3d(21, 11, 3), point3d(21, 1, 2),
                               point3d(1, 1, 1)};

template <class Triple>
orlo::string textOf(const Triple& triple)
{
    orlo::string text;
    orlo::string number;
    text.append(number.setNumber(triple.x)).append(u",");
    text.append(number.setNumber(triple.y)).append(u",");
    return text + number.setNumber(triple.z);
}

struct frameText {
    orlo::string o, x, y, z;
};

frameText textOf(const matrix4d& frame)
{
    point3d o;
    vector3d x, y, z;
    frame.toFrame(o, x, y, z);
    return {textOf(o), textOf(x), textOf(y), textOf(z)};
}

void expectFrame(const matrix4d& frame, const frameText& expected)
{
    const frameText found = textOf(frame);
    EXPECT_EQ(found.o, expected.o);
    EXPECT_EQ(found.x, expected.x);
    EXPECT_EQ(found.y, expected.y);
    EXPECT_EQ(found.z, expected.z);
}

} // namespace

TEST(platformFrame, ofTheWorkedExample)
{
    const platformFrame frame = calculatePlatformFrame(workedExample, 0.25);
    expectFrame(frame.cs,
                {u"11,6,2.25", u"0.99875234,0,0.04993762", u"-0.00496284,0.99504947,0.09925681",
                 u"-0.0496904,-0.0993808,0.99380799"});
    expectFrame(frame.ncs,
                {u"-11.09863537,-6.13903342,-1.09318879", u"0.99875234,-0.00496284,-0.0496904",
                 u"0,0.99504947,-0.0993808", u"0.04993762,0.09925681,0.99380799"});
}

TEST(platformFrame, ofAFlatRectangleHasUnitAxes)
{
    const platformFrame frame = calculatePlatformFrame(flatRectangle, 0.5);
    expectFrame(frame.cs, {u"10,5,1.5", u"1,0,0", u"0,1,0", u"0,0,1"});
    point3d o;
    vector3d x, y, z;
    frame.ncs.toFrame(o, x, y, z);
    EXPECT_EQ(o, point3d(-10, -5, -1.5));
    EXPECT_EQ(x, unitX);
    EXPECT_EQ(y, unitY);
    EXPECT_EQ(z, unitZ);
}

TEST(platformFrame, turnedByAQuarterIsInvertedExactly)
{
    // +X of the platform is +Y of the machine.
    const points turned{point3d(-10, 0, 0), point3d(-10, 20, 0), point3d(0, 20, 0),
                        point3d(0, 0, 0)};
    const platformFrame frame = calculatePlatformFrame(turned, 0);
    EXPECT_EQ(frame.cs.at(0, 0), 0.0);
    point3d o;
    vector3d x, y, z;
    frame.cs.toFrame(o, x, y, z);
    EXPECT_EQ(o, point3d(-5, 10, 0));
    EXPECT_EQ(x, vector3d(0, 1, 0));
    EXPECT_EQ(y, vector3d(-1, 0, 0));
    EXPECT_EQ(z, vector3d(0, 0, 1));
    frame.ncs.toFrame(o, x, y, z);
    EXPECT_EQ(o, point3d(-10, -5, 0));
    EXPECT_EQ(x, vector3d(0, -1, 0));
    EXPECT_EQ(y, vector3d(1, 0, 0));
    EXPECT_EQ(z, vector3d(0, 0, 1));
}

TEST(platformFrame, ofPointsNumberedAnticlockwiseTurnsZAndY)
{
    const points anticlockwise{flatRectangle[3], flatRectangle[2], flatRectangle[1],
                               flatRectangle[0]};
    point3d o;
    vector3d x, y, z;
    calculatePlatformFrame(anticlockwise, 0).cs.toFrame(o, x, y, z);
    EXPECT_EQ(x, unitX);
    EXPECT_EQ(y, vector3d(0, -1, 0));
    EXPECT_EQ(z, vector3d(0, 0, -1));
    EXPECT_EQ(cross(x, y), z);
}

TEST(platformFrame, isRaisedAlongTheGlobalZAlone)
{
    const matrix4d low = calculatePlatformFrame(workedExample, 0).cs;
    matrix4d high = calculatePlatformFrame(workedExample, 1000).cs;
    EXPECT_EQ(high.at(2, 3), 1002.0);
    high.at(2, 3) = low.at(2, 3);
    EXPECT_EQ(high, low);
}

TEST(platformFrame, zoffsetMovesTheInverseInAllThreeCoordinates)
{
    const matrix4d low = calculatePlatformFrame(workedExample, 0).ncs;
    const matrix4d high = calculatePlatformFrame(workedExample, 10).ncs;
    for (unsigned row = 0; row < 3; ++row) {
        EXPECT_NE(low.at(row, 3), high.at(row, 3));
        for (unsigned column = 0; column < 3; ++column)
            EXPECT_EQ(low.at(row, column), high.at(row, column));
    }
}

TEST(platformFrame, letsTheNormalWinOverTheSides)
{
    // Not coplanar: P1 and P3 stand higher.
    const points bent{point3d(0, 10, 1), point3d(20, 10, 0), point3d(20, 0, 1), point3d(0, 0, 0)};
    const vector3d normal = normalized(cross(bent[2] - bent[3], bent[0] - bent[3]) +
                                       cross(bent[0] - bent[1], bent[2] - bent[1]));
    const matrix4d cs = calculatePlatformFrame(bent, 0).cs;
    EXPECT_NEAR(cs.at(0, 2), normal.x, 1e-15);
    EXPECT_NEAR(cs.at(1, 2), normal.y, 1e-15);
    EXPECT_NEAR(cs.at(2, 2), normal.z, 1e-15);
    EXPECT_NEAR(cs.at(0, 0) * normal.x + cs.at(1, 0) * normal.y + cs.at(2, 0) * normal.z, 0.0,
                1e-15);
}

TEST(platformFrame, inverseTimesFrameIsTheIdentity)
{
    const platformFrame frame = calculatePlatformFrame(workedExample, 0.25);
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column) {
            double sum = 0;
            for (unsigned k = 0; k < 4; ++k) sum += frame.cs.at(row, k) * frame.ncs.at(k, column);
            EXPECT_NEAR(sum, row == column ? 1.0 : 0.0, 1e-14);
        }
    }
}

TEST(platformFrame, refusesPointsThatGiveNone)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const point3d p(3, 4, 5);
    const struct {
        const char* why;
        points given;
    } rows[] = {
        {"four equal points", {p, p, p, p}},
        {"sides in opposite directions",
         {point3d(0, 10, 0), point3d(20, 10, 0), point3d(0, 0, 0), point3d(20, 0, 0)}},
        {"sum of the sides at the limit",
         {point3d(0, 10, 0), point3d(1e-12, 10, 0), point3d(0, 0, 0), point3d(0, 0, 0)}},
        {"four points on one line",
         {point3d(0, 0, 0), point3d(1, 0, 0), point3d(3, 0, 0), point3d(2, 0, 0)}},
        {"triangles that cancel",
         {point3d(0, 10, 0), point3d(20, 0, 0), point3d(20, 10, 0), point3d(0, 0, 0)}},
        {"NaN in x",
         {point3d(nan, 10, 0), point3d(20, 10, 0), point3d(20, 0, 0), point3d(0, 0, 0)}},
        {"NaN in z",
         {point3d(0, 10, 0), point3d(20, 10, 0), point3d(20, 0, nan), point3d(0, 0, 0)}},
    };
    for (const auto& row : rows) {
        try {
            calculatePlatformFrame(row.given, 0);
            ADD_FAILURE() << row.why;
        } catch (bool refused) {
            EXPECT_FALSE(refused) << row.why;
        }
    }
}
