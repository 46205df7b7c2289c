#include "orlogeopoint.h"

#include "support/refusal.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace orlogeopointTest {

namespace {

using namespace orloGeo;
using orlo::string;
using orlo::tests::refuses;
using orlo::typeconvert::convert;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

// --- Nearness and arithmetic ---------------------------------------------------------------

TEST(isNear, isTrueUpToAndWithTheTolerance)
{
    static const struct {
        double a, b, tolerance;
        bool near;
    } rows[] = {
        {0, 0, 0, true},
        {1, 2, 1, true},
        {2, 1, 1, true},
        {1, 2.5, 1, false},
        {1e-12, 0, 1e-12, true},
        {-1e-12, 0, 1e-12, true},
        {1.1e-12, 0, 1e-12, false},
        {1, 1, -1, false},
        {nan, 0, 1, false},
        {0, nan, 1, false},
        {0, 0, nan, false},
        {infinite, 0, 1, false},
        {infinite, 0, infinite, true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isNear(row.a, row.b, row.tolerance), row.near)
            << row.a << ' ' << row.b << ' ' << row.tolerance;
}

TEST(isNear, hasOneToleranceForDivisors)
{
    EXPECT_EQ(divisorTolerance, 1e-12);
}

TEST(pointAndVector, arePlainValuesThatBeginAtZero)
{
    EXPECT_EQ(point3d(), point3d(0, 0, 0));
    EXPECT_EQ(vector3d(), vector3d(0, 0, 0));
    EXPECT_EQ(sizeof(point3d), 3 * sizeof(double));
    EXPECT_EQ(sizeof(vector3d), 3 * sizeof(double));
    EXPECT_TRUE(std::is_trivially_copyable_v<point3d> && std::is_trivially_copyable_v<vector3d>);
    EXPECT_FALSE(std::is_polymorphic_v<point3d> || std::is_polymorphic_v<vector3d>);
}

TEST(pointAndVector, takeTheirCoordinatesInOrder)
{
    const vector3d v(1, 2, 3);
    EXPECT_EQ(v.x, 1);
    EXPECT_EQ(v.y, 2);
    EXPECT_EQ(v.z, 3);
    EXPECT_EQ(point3d(v), point3d(1, 2, 3));
    EXPECT_EQ(vector3d(point3d(4, 5, 6)), vector3d(4, 5, 6));
}

TEST(pointAndVector, stayTheSameWhenAssignedToThemselves)
{
    point3d p(1, 2, 3);
    const point3d& same = p;
    p = same;
    EXPECT_EQ(p, point3d(1, 2, 3));
}

TEST(pointAndVector, addAndSubtractByCoordinate)
{
    const point3d p(1, 2, 3), q(10, 20, 40);
    const vector3d u(0.5, 0.25, -1), v(2, 4, 8);
    EXPECT_EQ(q - p, vector3d(9, 18, 37));
    EXPECT_EQ(p + q, point3d(11, 22, 43));
    EXPECT_EQ(p + u, point3d(1.5, 2.25, 2));
    EXPECT_EQ(u + v, vector3d(2.5, 4.25, 7));
    EXPECT_EQ(u - v, vector3d(-1.5, -3.75, -9));
}

// The sum of two opposite sides of a platform, as it is usually written.
TEST(pointAndVector, becomeEachOtherWhereTheOtherIsAskedFor)
{
    const point3d p1(1, 11, 2), p2(21, 11, 3), p3(21, 1, 2), p4(1, 1, 1);
    EXPECT_EQ(((p2 - p1) + p3) - p4, vector3d(40, 0, 2));
    EXPECT_EQ(normalized(((p2 - p1) + p3) - p4), normalized(vector3d(40, 0, 2)));
    const point3d p = vector3d(1, 2, 3);
    const vector3d u = p;
    EXPECT_EQ(p, point3d(1, 2, 3));
    EXPECT_EQ(u, vector3d(1, 2, 3));
    EXPECT_EQ(length(p4), length({1, 1, 1}));
    EXPECT_TRUE((std::is_same_v<decltype(p1 + u), point3d>));
    EXPECT_TRUE((std::is_same_v<decltype(p1 - u), vector3d>));
    EXPECT_TRUE((std::is_same_v<decltype(u + p1), vector3d>));
}

TEST(division, dividesEachCoordinateInsteadOfMultiplyingByTheReciprocal)
{
    // 5 / 49 and 5 * (1 / 49) differ in the last digit.
    const double divisor = 49;
    ASSERT_NE(5 / divisor, 5 * (1 / divisor));
    EXPECT_EQ(point3d(5, 10, 49) / divisor, point3d(5 / divisor, 10 / divisor, 1));
    EXPECT_EQ(vector3d(5, 10, 49) / divisor, vector3d(5 / divisor, 10 / divisor, 1));
    vector3d u(5, 10, 49);
    EXPECT_EQ(&(u /= divisor), &u);
    EXPECT_EQ(u, vector3d(5 / divisor, 10 / divisor, 1));
}

TEST(division, refusesDivisorsUpToTheToleranceAndChangesNothing)
{
    static const struct {
        double divisor;
        bool refused;
    } rows[] = {
        {0, true},        {-0.0, true},      {1e-12, true}, {-1e-12, true},    {1e-300, true},
        {1.1e-12, false}, {-1.1e-12, false}, {nan, false},  {infinite, false},
    };
    for (const auto& row : rows) {
        const vector3d before(1, 2, 3);
        vector3d u(before);
        EXPECT_EQ(refuses([&] { u /= row.divisor; }), row.refused) << row.divisor;
        EXPECT_EQ(u == before, row.refused) << row.divisor;
        EXPECT_EQ(refuses([&] { static_cast<void>(before / row.divisor); }), row.refused)
            << row.divisor;
        EXPECT_EQ(refuses([&] { static_cast<void>(point3d(before) / row.divisor); }), row.refused)
            << row.divisor;
    }
}

TEST(cross, isRightHanded)
{
    EXPECT_EQ(cross(unitX, unitY), unitZ);
    EXPECT_EQ(cross(unitY, unitZ), unitX);
    EXPECT_EQ(cross(unitZ, unitX), unitY);
    EXPECT_EQ(cross(unitY, unitX), vector3d(0, 0, -1));
    EXPECT_EQ(cross({1, 2, 3}, {4, 5, 6}), vector3d(-3, 6, -3));
}

TEST(length, sumsTheSquaresInOrder)
{
    EXPECT_EQ(length({2, 3, 6}), 7);
    EXPECT_EQ(length({-2, -3, -6}), 7);
    EXPECT_EQ(length({}), 0);
    // Each small square alone is too small to move 2.25, both together are not.
    const double small = 0.9375 / (1 << 26);
    EXPECT_EQ(length({1.5, small, small}), 1.5);
    EXPECT_GT(length({small, small, 1.5}), 1.5);
}

// --- Normalising ---------------------------------------------------------------------------

TEST(normalize, bringsTheVectorItselfToLengthOne)
{
    vector3d u(2, 3, 6);
    EXPECT_EQ(&normalize(u), &u);
    EXPECT_EQ(u, vector3d(2.0 / 7, 3.0 / 7, 6.0 / 7));
}

TEST(normalize, refusesShortVectorsAndNotANumberAndChangesNothing)
{
    static const struct {
        vector3d vector;
        bool refused;
    } rows[] = {
        {{0, 0, 0}, true},           {{1e-13, 0, 0}, true},    {{1e-12, 0, 0}, true},
        {{1e-200, 1e-200, 0}, true}, {{nan, 1, 1}, true},      {{1, nan, 1}, true},
        {{1, 1, nan}, true},         {{1.1e-12, 0, 0}, false}, {{0, -2, 0}, false},
        {{0, 0, 1e100}, false},
    };
    for (const auto& row : rows) {
        vector3d u(row.vector);
        EXPECT_EQ(refuses([&] { normalize(u); }), row.refused) << row.vector.x;
        if (!row.refused) {
            EXPECT_NEAR(length(u), 1, 1e-15);
            continue;
        }
        EXPECT_TRUE(std::isnan(u.x) ? std::isnan(row.vector.x) : u.x == row.vector.x);
        EXPECT_TRUE(std::isnan(u.y) ? std::isnan(row.vector.y) : u.y == row.vector.y);
        EXPECT_TRUE(std::isnan(u.z) ? std::isnan(row.vector.z) : u.z == row.vector.z);
    }
}

TEST(normalized, leavesTheVectorAndRefusesAsNormalizeDoes)
{
    const vector3d u(0, 0, -4);
    EXPECT_EQ(normalized(u), vector3d(0, 0, -1));
    EXPECT_EQ(u, vector3d(0, 0, -4));
    EXPECT_TRUE(refuses([] { static_cast<void>(normalized({})); }));
}

TEST(normalized, hasLengthOneForRandomVectors)
{
    constexpr unsigned seed = 20240305;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> coordinate(-1000, 1000);
    for (int round = 0; round < 1000; ++round) {
        const vector3d u(coordinate(random), coordinate(random), coordinate(random));
        const vector3d v(coordinate(random), coordinate(random), coordinate(random));
        ASSERT_NEAR(length(normalized(u)), 1, 4e-16) << "round " << round;
        // The cross product stands on both vectors.
        const vector3d w = cross(u, v);
        ASSERT_NEAR(w.x * u.x + w.y * u.y + w.z * u.z, 0, 1e-5) << "round " << round;
        ASSERT_NEAR(w.x * v.x + w.y * v.y + w.z * v.z, 0, 1e-5) << "round " << round;
    }
}

// --- Constants and lines -------------------------------------------------------------------

TEST(geometryConstants, haveTheirValues)
{
    EXPECT_EQ(zeroPoint, point3d(0, 0, 0));
    EXPECT_EQ(zeroVector, vector3d(0, 0, 0));
    EXPECT_EQ(unitX, vector3d(1, 0, 0));
    EXPECT_EQ(unitY, vector3d(0, 1, 0));
    EXPECT_EQ(unitZ, vector3d(0, 0, 1));
    const line3d* const lines[] = {&axisX, &axisY, &axisZ};
    const vector3d* const directions[] = {&unitX, &unitY, &unitZ};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(lines[i]->origin, zeroPoint);
        EXPECT_EQ(lines[i]->direction, *directions[i]);
    }
    const pair2d pairs[] = {zeroPair, unitPairX, unitPairY};
    const double expected[][2] = {{0, 0}, {1, 0}, {0, 1}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(pairs[i].x, expected[i][0]);
        EXPECT_EQ(pairs[i].y, expected[i][1]);
    }
}

TEST(line, normalisesItsDirectionAndRefusesANullOne)
{
    const line3d line({1, 2, 3}, vector3d(0, 5, 0));
    EXPECT_EQ(line.origin, point3d(1, 2, 3));
    EXPECT_EQ(line.direction, unitY);
    EXPECT_TRUE(refuses([] { line3d({}, vector3d()); }));
    EXPECT_TRUE(refuses([] { line3d({}, {1e-12, 0, 0}); })) << "no way round";
}

// --- Text forms ----------------------------------------------------------------------------

TEST(pointText, joinsTheNumbersByOneBlank)
{
    static const struct {
        point3d value;
        const char16_t* text;
    } rows[] = {
        {{0, 0, 0}, u"0 0 0"},
        {{1.5, -2, 0.1}, u"1.5 -2 0.1"},
        {{100, 1234567.123456789, -0.25}, u"100 1234567.12345679 -0.25"},
        {{1e-9, -1e-9, 1.0 / 3}, u"0 -0 0.33333333"},
    };
    for (const auto& row : rows) {
        string text(u"old");
        EXPECT_TRUE(convert(text, row.value));
        EXPECT_EQ(text, row.text);
        EXPECT_TRUE(convert(text, vector3d(row.value)));
        EXPECT_EQ(text, row.text);
    }
}

TEST(pointText, ignoresTheFlagsOfNumbers)
{
    string text;
    EXPECT_TRUE(convert(text, point3d(1.5, 2, 3), orlo::typeconvert::widthGiven, 3));
    EXPECT_EQ(text, u"1.5 2 3");
}

TEST(pointText, isReadByBlankThenCommaThenSemicolon)
{
    static const struct {
        const char16_t* text;
        bool reads;
        point3d value;
    } rows[] = {
        {u"1 2 3", true, {1, 2, 3}},
        {u" \t1 2 3\t ", true, {1, 2, 3}},
        {u"\t 1 2 3", true, {1, 2, 3}}, // a tab that stayed would leave a fourth piece
        {u"1 2 3 \t", true, {1, 2, 3}},
        {u"1,5 2,5 3,5", true, {1.5, 2.5, 3.5}},
        {u"1, 2, 3", true, {1, 2, 3}},
        {u"1,5,2", true, {1, 5, 2}},
        {u"1,2,3", true, {1, 2, 3}},
        {u"1;2;3", true, {1, 2, 3}},
        {u"1,5;2;3", true, {1.5, 2, 3}},
        {u"1,5;2,5;3", true, {1, 5, 5}}, // three pieces at the commas already
        {u"1 ;2 ;3", false, {}},         // three pieces at the blanks already
        {u"-1.25 +2e2 0x10", true, {-1.25, 200, 16}},
        {u"1x 2y 3z", true, {1, 2, 3}},
        {u"1  2 3", false, {}},
        {u"1 2", false, {}},
        {u"1 2 3 4", false, {}},
        {u"1\t2\t3", false, {}},
        {u"1\t2 3", false, {}},
        {u"1,2", false, {}},
        {u"1;2;3;4", false, {}},
        {u"", false, {}},
        {u"   ", false, {}},
        {u"a 2 3", false, {}},
        {u"1 b 3", false, {}},
        {u"1 2 c", false, {}},
        {u"1,,3", false, {}},
        {u",,", false, {}},
        {u"\n1 2 3", true, {1, 2, 3}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(orlo::narrow(row.text));
        const point3d before(7, 8, 9);
        point3d p(before);
        vector3d v(before);
        EXPECT_EQ(convert(p, string(row.text)), row.reads);
        EXPECT_EQ(convert(v, string(row.text)), row.reads);
        EXPECT_EQ(p, row.reads ? row.value : before);
        EXPECT_EQ(v, vector3d(p));
    }
}

TEST(pointText, comesBackAsItWent)
{
    constexpr unsigned seed = 20240306;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> step(-1'000'000, 1'000'000);
    for (int round = 0; round < 500; ++round) {
        // Multiples of 1/256 have at most 8 decimals, so nothing is lost.
        const point3d p(step(random) / 256.0, step(random) / 256.0, step(random) / 256.0);
        string text;
        point3d back;
        ASSERT_TRUE(convert(text, p));
        ASSERT_TRUE(convert(back, text));
        ASSERT_EQ(back, p) << orlo::narrow(text);
    }
}

TEST(pointAndVector, convertIntoEachOther)
{
    point3d p;
    vector3d v;
    EXPECT_TRUE(convert(p, vector3d(1, 2, 1.0 / 3)));
    EXPECT_EQ(p, point3d(1, 2, 1.0 / 3)) << "copied, not by way of text";
    EXPECT_TRUE(convert(v, point3d(4, 5, 1.0 / 7)));
    EXPECT_EQ(v, vector3d(4, 5, 1.0 / 7));
}

} // namespace

} // namespace orlogeopointTest
