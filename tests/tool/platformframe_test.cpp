#include "platformframe.h"

#include "support/platforms.h"
#include "support/refusal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace platformframeTest {

using namespace orloGeo;
using namespace taven;
using namespace taven::tests;
using orlo::tests::refuses;

namespace {

void expectFrame(const frameText& found, const frameText& expected)
{
    EXPECT_EQ(found.o, expected.o);
    EXPECT_EQ(found.x, expected.x);
    EXPECT_EQ(found.y, expected.y);
    EXPECT_EQ(found.z, expected.z);
}

platformFrame frameOf(const frameExample& example)
{
    return calculatePlatformFrame(example.points, example.zoffset);
}

} // namespace

TEST(platformFrame, ofTheWorkedExamples)
{
    for (const frameExample* example : {&workedExample, &flatRectangle}) {
        const platformFrame frame = frameOf(*example);
        expectFrame(textOf(frame.cs), example->cs);
        expectFrame(textOf(frame.ncs), example->ncs);
    }
}

// Points as a machine measures them. The elements were worked out step by step in another
// language; at least one of them ends in other digits where
// - the middle of a side is (a + b) / 2, or starts from its other end,
// - the origin is the mean of the four points,
// - the heights are added in pairs, backwards, crosswise or from the right, or the offset is
//   added before them or to the middle of the middles,
// - the sides are added as (P2 - P1) + (P3 - P4) or (P2 + P3) - P1 - P4, or brought to length 1
//   before, or their sum is not,
// - the normals are brought to length 1 before they are added, or their sum is not,
// - an axis of the frame is not brought to length 1 once more.
TEST(platformFrame, isCalculatedInItsOrderToTheLastDigit)
{
    const fourPoints measured{{{11.119, 318.1008, 149.8883},
                               {411.6409, 318.4175, 149.6497},
                               {412.8367, 17.5111, 149.7023},
                               {13.8367, 17.1546, 150.858}}};
    // By columns: X, Y, Z and the origin.
    constexpr double expected[4][3] = {
        {0x1.ffffc114fcd09p-1, 0x1.b9738b7b94d2cp-11, -0x1.c9281554dfa20p-10},
        {-0x1.bb037009ae5ffp-11, 0x1.ffffc30d590f2p-1, -0x1.bfdbb41e7fec2p-10},
        {0x1.c8c75575e442ap-10, 0x1.c03e60e5619a3p-10, 0x1.ffff9c01e45c6p-1},
        {0x1.a8b7765fd8adap+7, 0x1.4f978d4fdf3b6p+7, 0x1.2d32786c22682p+7},
    };
    const matrix4d cs = calculatePlatformFrame(measured, 0.574).cs;
    for (unsigned column = 0; column < 4; ++column) {
        for (unsigned row = 0; row < 3; ++row)
            EXPECT_EQ(cs.at(row, column), expected[column][row]) << row << ' ' << column;
    }
}

TEST(platformFrame, turnedByAQuarterIsInvertedExactly)
{
    // +X of the platform is +Y of the machine.
    const fourPoints turned{point3d(-10, 0, 0), point3d(-10, 20, 0), point3d(0, 20, 0),
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
    const fourPoints anticlockwise{flatRectangle.points[3], flatRectangle.points[2],
                                   flatRectangle.points[1], flatRectangle.points[0]};
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
    const matrix4d low = calculatePlatformFrame(workedExample.points, 0).cs;
    matrix4d high = calculatePlatformFrame(workedExample.points, 1000).cs;
    EXPECT_EQ(high.at(2, 3), 1002.0);
    high.at(2, 3) = low.at(2, 3);
    EXPECT_EQ(high, low);
}

TEST(platformFrame, zoffsetMovesTheInverseInAllThreeCoordinates)
{
    const matrix4d low = calculatePlatformFrame(workedExample.points, 0).ncs;
    const matrix4d high = calculatePlatformFrame(workedExample.points, 10).ncs;
    for (unsigned row = 0; row < 3; ++row) {
        EXPECT_NE(low.at(row, 3), high.at(row, 3));
        for (unsigned column = 0; column < 3; ++column)
            EXPECT_EQ(low.at(row, column), high.at(row, column));
    }
}

TEST(platformFrame, letsTheNormalWinOverTheSides)
{
    // Not coplanar: P1 and P3 stand higher.
    const fourPoints bent{point3d(0, 10, 1), point3d(20, 10, 0), point3d(20, 0, 1),
                          point3d(0, 0, 0)};
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
    const platformFrame frame = calculatePlatformFrame(workedExample.points, 0.25);
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
        fourPoints given;
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
    for (const auto& row : rows)
        EXPECT_TRUE(refuses([&] { calculatePlatformFrame(row.given, 0); })) << row.why;
}

TEST(platformFrame, refusesAnOffsetWithoutBounds)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double zoffset : {infinite, -infinite, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(refuses([&] { calculatePlatformFrame(workedExample.points, zoffset); }))
            << zoffset;
}

} // namespace platformframeTest
