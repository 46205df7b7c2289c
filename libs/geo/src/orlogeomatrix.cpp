#include "orlogeomatrix.h"

#include <cmath>

namespace orloGeo {

namespace {

constexpr unsigned order = 4;
// An absolute bound, and wider than that of divisors: frames have elements around 1.
constexpr double pivotTolerance = 1e-5;

// A whole matrix from the nine elements of its axes.
constexpr matrix4d turn(const std::array<double, 9>& e)
{
    return matrix4d({e[0], e[1], e[2], 0, e[3], e[4], e[5], 0, e[6], e[7], e[8], 0, 0, 0, 0, 1});
}

// --- Row operations of the elimination -----------------------------------------------------

// The row below the pivot that mends it best, the last one of equals.
unsigned findMendingRow(const matrix4d& a, unsigned pivot)
{
    unsigned found = pivot;
    double best = pivotTolerance;
    for (unsigned row = pivot + 1; row < order; ++row) {
        const double candidate = std::fabs(a.at(row, pivot));
        if (candidate >= best) {
            best = candidate;
            found = row;
        }
    }
    if (found == pivot) throw false;
    return found;
}

void addRow(matrix4d& m, unsigned to, unsigned from)
{
    for (unsigned column = 0; column < order; ++column) m.at(to, column) += m.at(from, column);
}

void scaleRow(matrix4d& m, unsigned row, double factor)
{
    for (unsigned column = 0; column < order; ++column) m.at(row, column) *= factor;
}

void subtractRow(matrix4d& m, unsigned to, unsigned from, double factor)
{
    for (unsigned column = 0; column < order; ++column)
        m.at(to, column) -= factor * m.at(from, column);
}

} // namespace

constinit const matrix4d identityMatrix{};
constinit const matrix4d identityTable = turn({1, 0, 0, 0, 1, 0, 0, 0, 1});
constinit const std::array<matrix4d, 5> axisPermutations{
    turn({1, 0, 0, 0, -1, 0, 0, 0, -1}), turn({1, 0, 0, 0, 0, -1, 0, 1, 0}),
    turn({-1, 0, 0, 0, 0, 1, 0, 1, 0}),  turn({0, 0, -1, -1, 0, 0, 0, 1, 0}),
    turn({0, 0, 1, 1, 0, 0, 0, 1, 0}),
};

// Z leads, and Y is made anew from Z and X: the axes of a caller need not be at right angles.
matrix4d::matrix4d(const point3d& origin, const vector3d& x, const vector3d&, const vector3d& z)
{
    const vector3d zAxis = normalized(z);
    const vector3d yAxis = normalized(cross(zAxis, x));
    const vector3d xAxis = normalized(cross(yAxis, zAxis));
    setColumn(0, xAxis.x, xAxis.y, xAxis.z);
    setColumn(1, yAxis.x, yAxis.y, yAxis.z);
    setColumn(2, zAxis.x, zAxis.y, zAxis.z);
    setColumn(3, origin.x, origin.y, origin.z);
}

matrix4d matrix4d::fromFrame(const point3d& origin, const vector3d& x, const vector3d& y,
                             const vector3d& z)
{
    return {origin, x, y, z};
}

bool matrix4d::toFrame(point3d& origin, vector3d& x, vector3d& y, vector3d& z) const
{
    // All axes are asked before any target changes.
    const vector3d xAxis = normalized(axis(0));
    const vector3d yAxis = normalized(axis(1));
    const vector3d zAxis = normalized(axis(2));
    x = xAxis;
    y = yAxis;
    z = zAxis;
    origin = point3d(axis(3));
    return true;
}

// Each pivot in turn becomes 1 and the rest of its column 0, in a copy of the matrix and, by
// the same steps, in what was the identity and ends as the inverse. A pivot too small gets a
// row from below added, not exchanged. The steps and their order settle the last digits of
// every result file, so they stay as they are.
matrix4d matrix4d::inverse() const
{
    matrix4d a(*this);
    matrix4d b;
    for (unsigned pivot = 0; pivot < order; ++pivot) {
        if (!(std::fabs(a.at(pivot, pivot)) >= pivotTolerance)) {
            const unsigned mending = findMendingRow(a, pivot);
            addRow(b, pivot, mending);
            addRow(a, pivot, mending);
        }
        const double factor = 1.0 / a.at(pivot, pivot);
        scaleRow(b, pivot, factor);
        scaleRow(a, pivot, factor);
        for (unsigned row = 0; row < order; ++row) {
            if (row == pivot) continue;
            const double multiple = a.at(row, pivot);
            subtractRow(b, row, pivot, multiple);
            subtractRow(a, row, pivot, multiple);
        }
    }
    return b;
}

void matrix4d::setColumn(unsigned column, double x, double y, double z)
{
    at(0, column) = x;
    at(1, column) = y;
    at(2, column) = z;
}

vector3d matrix4d::axis(unsigned column) const
{
    return {at(0, column), at(1, column), at(2, column)};
}

} // namespace orloGeo
