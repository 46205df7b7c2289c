#include "orlogeomatrix.h"

#include "support/refusal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace orlogeomatrixTest {

namespace {

using namespace orloGeo;
using orlo::tests::refuses;
using elements = std::array<double, 16>;

constexpr elements identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

matrix4d product(const matrix4d& a, const matrix4d& b)
{
    matrix4d result;
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column) {
            double sum = 0;
            for (unsigned i = 0; i < 4; ++i) sum += a.at(row, i) * b.at(i, column);
            result.at(row, column) = sum;
        }
    }
    return result;
}

double greatestDifference(const matrix4d& a, const matrix4d& b)
{
    double greatest = 0;
    for (unsigned i = 0; i < 16; ++i)
        greatest = std::max(greatest, std::fabs(a.at(i / 4, i % 4) - b.at(i / 4, i % 4)));
    return greatest;
}

vector3d column(const matrix4d& m, unsigned index)
{
    return {m.at(0, index), m.at(1, index), m.at(2, index)};
}

// --- The matrix itself ---------------------------------------------------------------------

TEST(matrix, beginsAsTheIdentity)
{
    EXPECT_EQ(matrix4d(), matrix4d(identity));
    EXPECT_EQ(sizeof(matrix4d), 16 * sizeof(double));
    EXPECT_TRUE(std::is_trivially_copyable_v<matrix4d>);
    EXPECT_FALSE(std::is_polymorphic_v<matrix4d>);
}

TEST(matrix, holdsItsElementsRowByRow)
{
    matrix4d m({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    const matrix4d& constant = m;
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column) {
            EXPECT_EQ(m.at(row, column), row * 4 + column);
            EXPECT_EQ(constant.at(row, column), row * 4 + column);
        }
    }
    m.at(1, 2) = 99;
    EXPECT_EQ(constant.at(1, 2), 99);
}

TEST(matrix, staysTheSameWhenAssignedToItself)
{
    matrix4d m({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    const matrix4d copy(m);
    const matrix4d& same = m;
    m = same;
    EXPECT_EQ(m, copy);
}

TEST(matrix, hasItsConstants)
{
    EXPECT_EQ(identityMatrix, matrix4d(identity));
    EXPECT_EQ(identityTable, matrix4d(identity));
    static const elements permutations[] = {
        {1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1},
        {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1},
        {-1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1},
        {0, 0, -1, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1},
        {0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1},
    };
    ASSERT_EQ(axisPermutations.size(), std::size(permutations));
    for (std::size_t i = 0; i < std::size(permutations); ++i)
        EXPECT_EQ(axisPermutations[i], matrix4d(permutations[i])) << i;
}

// --- Frames --------------------------------------------------------------------------------

TEST(fromFrame, putsAxesAndOriginIntoColumns)
{
    const matrix4d m = matrix4d::fromFrame({10, 20, 30}, {0, 5, 0}, {-3, 0, 0}, {0, 0, 2});
    EXPECT_EQ(m, matrix4d(elements{0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 30, 0, 0, 0, 1}));
    EXPECT_EQ(m, matrix4d({10, 20, 30}, {0, 5, 0}, {-3, 0, 0}, {0, 0, 2}));
}

TEST(fromFrame, keepsTheDirectionOfZAndThePartOfXAcrossIt)
{
    // x leans towards z; only its part along (1, 0, 0) stays.
    const matrix4d m = matrix4d::fromFrame({}, {3, 0, 4}, {0, 1, 0}, {0, 0, 7});
    EXPECT_EQ(m, matrix4d(identity));
}

TEST(fromFrame, isTheSameWithAnyY)
{
    const point3d origin(1, 2, 3);
    const vector3d x(1, 0.25, -0.5), z(0.1, 0.2, 3);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const matrix4d expected = matrix4d::fromFrame(origin, x, {0, 1, 0}, z);
    for (const vector3d& y : {vector3d(0, -1, 0), vector3d(), x, z, vector3d(nan, nan, nan)})
        EXPECT_EQ(matrix4d::fromFrame(origin, x, y, z), expected);
}

TEST(fromFrame, refusesANullZAndAnXParallelToIt)
{
    static const struct {
        vector3d x, z;
    } rows[] = {
        {{1, 0, 0}, {0, 0, 0}}, {{1, 0, 0}, {0, 0, 1e-12}}, {{0, 0, 0}, {0, 0, 1}},
        {{0, 0, 5}, {0, 0, 1}}, {{0, 0, -5}, {0, 0, 1}},    {{1e-13, 0, 1}, {0, 0, 1}},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(refuses([&] {
            matrix4d::fromFrame({}, row.x, {0, 1, 0}, row.z);
        })) << row.x.x
            << ' ' << row.x.z;
}

TEST(fromFrame, isRightHandedAndOrthonormalForRandomAxes)
{
    constexpr unsigned seed = 20240307;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> any(-10, 10);
    for (int round = 0; round < 500; ++round) {
        const vector3d x(any(random), any(random), any(random)),
            z(any(random), any(random), any(random));
        const matrix4d m = matrix4d::fromFrame({any(random), any(random), any(random)}, x, {}, z);
        const vector3d mx = column(m, 0), my = column(m, 1), mz = column(m, 2);
        ASSERT_LE(length(cross(mx, my) - mz), 1e-14) << "round " << round;
        ASSERT_LE(length(mz - normalized(z)), 1e-15) << "round " << round;
        ASSERT_LE(std::fabs(mx.x * mz.x + mx.y * mz.y + mx.z * mz.z), 1e-14) << "round " << round;
        ASSERT_GT(mx.x * x.x + mx.y * x.y + mx.z * x.z, 0) << "round " << round;
        for (unsigned c = 0; c < 4; ++c) ASSERT_EQ(m.at(3, c), c == 3 ? 1 : 0);
    }
}

// The same once more on bare numbers: X' is brought to length 1 too, although it stands at right
// angles on two axes of length 1, and that shows in its last digits. Only the length is the
// library's: the square root that MinGW calls where nothing is optimised, as here, is rounded
// twice.
elements plainFrame(const vector3d& x, const vector3d& z)
{
    using triple = std::array<double, 3>;
    const auto unit = [](const triple& v) {
        const double norm = length({v[0], v[1], v[2]});
        return triple{v[0] / norm, v[1] / norm, v[2] / norm};
    };
    const auto across = [](const triple& u, const triple& v) {
        return triple{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                      u[0] * v[1] - u[1] * v[0]};
    };
    const triple zAxis = unit({z.x, z.y, z.z});
    const triple yAxis = unit(across(zAxis, {x.x, x.y, x.z}));
    const triple xAxis = unit(across(yAxis, zAxis));
    return {xAxis[0], yAxis[0], zAxis[0], 0, xAxis[1], yAxis[1], zAxis[1], 0,
            xAxis[2], yAxis[2], zAxis[2], 0, 0,        0,        0,        1};
}

TEST(fromFrame, hasTheSameLastDigitsAsAPlainOneForRandomAxes)
{
    constexpr unsigned seed = 20240310;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> any(-10, 10);
    for (int round = 0; round < 500; ++round) {
        const vector3d x(any(random), any(random), any(random)),
            z(any(random), any(random), any(random));
        ASSERT_EQ(matrix4d::fromFrame({}, x, {}, z), matrix4d(plainFrame(x, z)))
            << "round " << round;
    }
}

TEST(toFrame, normalisesTheAxesButNotTheOriginAndIgnoresTheLastRow)
{
    const matrix4d m({2, 0, 0, 10, 0, 0, -3, 20, 0, 4, 0, 30, 5, 6, 7, 8});
    point3d origin;
    vector3d x, y, z;
    EXPECT_TRUE(m.toFrame(origin, x, y, z));
    EXPECT_EQ(origin, point3d(10, 20, 30));
    EXPECT_EQ(x, vector3d(1, 0, 0));
    EXPECT_EQ(y, vector3d(0, 0, 1));
    EXPECT_EQ(z, vector3d(0, -1, 0));
}

TEST(toFrame, refusesANullColumnAndChangesNothing)
{
    for (unsigned nullColumn = 0; nullColumn < 3; ++nullColumn) {
        matrix4d m;
        m.at(nullColumn, nullColumn) = 0;
        const vector3d before(7, 8, 9);
        point3d origin(7, 8, 9);
        vector3d x(before), y(before), z(before);
        EXPECT_TRUE(refuses([&] { m.toFrame(origin, x, y, z); })) << nullColumn;
        EXPECT_EQ(origin, point3d(before));
        EXPECT_TRUE(x == before && y == before && z == before) << nullColumn;
    }
}

TEST(toFrame, givesBackWhatFromFrameTook)
{
    const point3d origin(123.456, -7.5, 0.1);
    const matrix4d m = matrix4d::fromFrame(origin, {1, 0.1, 0.2}, {}, {-0.1, 0.05, 1});
    point3d readOrigin;
    vector3d x, y, z;
    EXPECT_TRUE(m.toFrame(readOrigin, x, y, z));
    EXPECT_EQ(readOrigin, origin) << "unchanged";
    EXPECT_LE(length(x - column(m, 0)), 4e-16);
    EXPECT_LE(length(y - column(m, 1)), 4e-16);
    EXPECT_LE(length(z - column(m, 2)), 4e-16);
}

// --- Inverse -------------------------------------------------------------------------------

TEST(inverse, ofTheIdentityIsTheIdentity)
{
    const matrix4d m;
    EXPECT_EQ(m.inverse(), m);
}

TEST(inverse, leavesTheMatrix)
{
    const matrix4d m({2, 0, 0, 4, 0, 2, 0, 6, 0, 0, 2, 8, 0, 0, 0, 1});
    const matrix4d before(m);
    EXPECT_EQ(m.inverse(),
              matrix4d(elements{0.5, 0, 0, -2, 0, 0.5, 0, -3, 0, 0, 0.5, -4, 0, 0, 0, 1}));
    EXPECT_EQ(m, before);
}

TEST(inverse, ofAQuarterTurnIsExactByRowAddition)
{
    const matrix4d turned({0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 30, 0, 0, 0, 1});
    EXPECT_EQ(turned.inverse(),
              matrix4d(elements{0, 1, 0, -20, -1, 0, 0, 10, 0, 0, 1, -30, 0, 0, 0, 1}));
}

TEST(inverse, ofEachAxisPermutationIsItsTransposed)
{
    for (const matrix4d& m : axisPermutations) {
        const matrix4d inverted = m.inverse();
        for (unsigned i = 0; i < 16; ++i) EXPECT_EQ(inverted.at(i / 4, i % 4), m.at(i % 4, i / 4));
    }
}

TEST(inverse, takesPivotsFromTheTolerance)
{
    static const struct {
        double pivot;
        bool refused;
    } rows[] = {
        {1e-5, false},
        {-1e-5, false},
        {0.99e-5, true},
        {-0.99e-5, true},
        {1.01e-5, false},
        {0, true},
        {std::numeric_limits<double>::quiet_NaN(), true},
    };
    // The last pivot has no row below it, the others have rows of zeros.
    for (unsigned k = 0; k < 4; ++k) {
        for (const auto& row : rows) {
            matrix4d m;
            m.at(k, k) = row.pivot;
            EXPECT_EQ(refuses([&] { static_cast<void>(m.inverse()); }), row.refused)
                << k << ' ' << row.pivot;
        }
    }
}

TEST(inverse, mendsASmallPivotByARowThatReachesTheTolerance)
{
    static const struct {
        double below;
        bool refused;
    } rows[] = {{1e-5, false}, {-1e-5, false}, {0.99e-5, true}, {-0.99e-5, true}};
    for (const auto& row : rows) {
        matrix4d m({0, 1, 0, 0, row.below, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
        EXPECT_EQ(refuses([&] { static_cast<void>(m.inverse()); }), row.refused) << row.below;
    }
}

// Column 1 holds so small elements that only one of the two ways leaves a second pivot within
// the tolerance: mended by row 1 it is `small` away from `difference`, by row 2 the other way.
TEST(inverse, mendsByTheGreatestRowAndByTheLastOfEquals)
{
    constexpr double small = 0.6e-5;
    static const struct {
        double first, second; // column 0 of the rows 1 and 2
        bool secondChosen;
    } rows[] = {
        {1, 1, true},     {-1, -1, true},      {1.001, 1, false},
        {1, 1.001, true}, {-1.001, -1, false}, {-1, -1.001, true},
    };
    for (const auto& row : rows) {
        const matrix4d refusedBySecond(
            {0, small, 1, 0, row.first, small, 0, 0, row.second, 0, 0, 0, 0, 0, 0, 1});
        const matrix4d refusedByFirst(
            {0, small, 1, 0, row.first, 0, 0, 0, row.second, small, 0, 0, 0, 0, 0, 1});
        EXPECT_EQ(refuses([&] { static_cast<void>(refusedBySecond.inverse()); }), row.secondChosen)
            << row.first << ' ' << row.second;
        EXPECT_EQ(refuses([&] { static_cast<void>(refusedByFirst.inverse()); }), !row.secondChosen)
            << row.first << ' ' << row.second;
    }
}

TEST(inverse, doesNotTestAMendedPivotAgain)
{
    // The sum of the pivot and its mending row is about 1e-6, below the tolerance.
    const matrix4d m({-0.9e-5, 1, 0, 0, 1e-5, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    const matrix4d inverted = m.inverse();
    EXPECT_LE(greatestDifference(product(m, inverted), matrix4d()), 1e-9);
}

TEST(inverse, multipliesByTheReciprocalInsteadOfDividing)
{
    // 1 / 49 * 49 is just below 1, so the scaled pivot row shows which of the two was done.
    const double reciprocal = 1.0 / 49;
    ASSERT_NE(reciprocal * 49, 1.0);
    const matrix4d m({49, 0, 0, 5, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    ASSERT_NE(5 * reciprocal, 5.0 / 49);
    EXPECT_EQ(m.inverse().at(0, 0), reciprocal);
    EXPECT_EQ(m.inverse().at(0, 3), -(5 * reciprocal));
}

TEST(inverse, refusesSingularMatrices)
{
    EXPECT_TRUE(refuses([] { static_cast<void>(matrix4d(elements{}).inverse()); }));
    // Two equal rows.
    EXPECT_TRUE(refuses([] {
        static_cast<void>(
            matrix4d(elements{1, 2, 3, 4, 1, 2, 3, 4, 0, 0, 1, 0, 0, 0, 0, 1}).inverse());
    }));
    // A zero last row.
    EXPECT_TRUE(refuses([] {
        static_cast<void>(
            matrix4d(elements{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0}).inverse());
    }));
}

TEST(inverse, timesTheMatrixIsTheIdentityForRandomFrames)
{
    constexpr unsigned seed = 20240308;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> axes(-1, 1), places(-1000, 1000);
    for (int round = 0; round < 2000; ++round) {
        const point3d place(places(random), places(random), places(random));
        const vector3d x(axes(random), axes(random), axes(random)),
            z(axes(random), axes(random), axes(random));
        const matrix4d m = matrix4d::fromFrame(place, x, {}, z);
        const matrix4d inverted = m.inverse();
        // Origins around 1000 and pivots that may come near 1e-5 cost up to nine digits.
        ASSERT_LE(greatestDifference(product(m, inverted), matrix4d()), 1e-6) << "round " << round;
        // The slow way to the same: the transposed turn, and the origin seen from the frame.
        for (unsigned r = 0; r < 3; ++r) {
            const vector3d across = column(m, r);
            const vector3d origin = column(m, 3);
            ASSERT_NEAR(inverted.at(r, 0), across.x, 1e-8);
            ASSERT_NEAR(inverted.at(r, 1), across.y, 1e-8);
            ASSERT_NEAR(inverted.at(r, 2), across.z, 1e-8);
            ASSERT_NEAR(inverted.at(r, 3),
                        -(across.x * origin.x + across.y * origin.y + across.z * origin.z), 1e-5);
        }
    }
}

// The elimination once more, over a flat array and with nothing shared with the library.
bool plainInverse(elements a, elements& b)
{
    b = identity;
    for (unsigned k = 0; k < 4; ++k) {
        double p = a[k * 4 + k];
        if (std::fabs(p) < 1e-5) {
            unsigned found = 0;
            double best = 1e-5;
            for (unsigned r = k + 1; r < 4; ++r) {
                if (std::fabs(a[r * 4 + k]) < best) continue;
                best = std::fabs(a[r * 4 + k]);
                found = r;
            }
            if (found == 0) return false;
            for (unsigned c = 0; c < 4; ++c) b[k * 4 + c] = b[k * 4 + c] + b[found * 4 + c];
            for (unsigned c = 0; c < 4; ++c) a[k * 4 + c] = a[k * 4 + c] + a[found * 4 + c];
            p = a[k * 4 + k];
        }
        const double f = 1.0 / p;
        for (unsigned c = 0; c < 4; ++c) {
            b[k * 4 + c] = b[k * 4 + c] * f;
            a[k * 4 + c] = a[k * 4 + c] * f;
        }
        for (unsigned r = 0; r < 4; ++r) {
            const double g = a[r * 4 + k];
            for (unsigned c = 0; r != k && c < 4; ++c) {
                b[r * 4 + c] = b[r * 4 + c] - g * b[k * 4 + c];
                a[r * 4 + c] = a[r * 4 + c] - g * a[k * 4 + c];
            }
        }
    }
    return true;
}

TEST(inverse, hasTheSameLastDigitsAsAPlainEliminationForRandomMatrices)
{
    constexpr unsigned seed = 20240309;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    // Few and small values, so that zeros, equal rows and refusals come often.
    static constexpr double values[] = {0, 0, 0, 1, -1, 1e-5, 0.99e-5, -1e-5, 0.1, 0.7, -3, 49};
    int refused = 0;
    for (unsigned round = 0; round < 5000; ++round) {
        elements all;
        for (double& element : all) element = values[random() % std::size(values)];
        const matrix4d m(all);
        elements expected;
        if (!plainInverse(all, expected)) {
            ++refused;
            ASSERT_TRUE(refuses([&] { static_cast<void>(m.inverse()); })) << "round " << round;
            continue;
        }
        const matrix4d inverted = m.inverse();
        for (unsigned i = 0; i < 16; ++i)
            ASSERT_EQ(inverted.at(i / 4, i % 4), expected[i]) << "round " << round;
    }
    EXPECT_GT(refused, 100);
    EXPECT_LT(refused, 4900);
}

} // namespace

} // namespace orlogeomatrixTest
