// Homogeneous 4 by 4 transformations that stand for frames in space.
#pragma once

#include "orlogeopoint.h"

#include <array>
#include <cstddef>

namespace orloGeo {

// A frame. Columns are the axes and the origin, elements lie row by row:
//
//     | xx yx zx ox |
//     | xy yy zy oy |
//     | xz yz zz oz |
//     |  0  0  0  1 |
class matrix4d {
public:
    // The identity.
    constexpr matrix4d() = default;
    // 16 elements, row by row.
    constexpr explicit matrix4d(const std::array<double, 16>& elements) : m_elements(elements) {}
    // The right-handed orthonormal frame with the direction of `z` as Z axis and the part of
    // `x` across it as X axis; `y` takes no part. Refuses, by the plain bool false, a null `z`
    // and an `x` parallel to it.
    matrix4d(const point3d& origin, const vector3d& x, const vector3d& y, const vector3d& z);
    // The same, by a name that tells what it makes.
    static matrix4d fromFrame(const point3d& origin, const vector3d& x, const vector3d& y,
                              const vector3d& z);

    // The element in row and column 0 to 3, unchecked.
    double& at(unsigned row, unsigned column) { return m_elements[row * 4 + column]; }
    [[nodiscard]] double at(unsigned row, unsigned column) const
    {
        return m_elements[row * 4 + column];
    }

    // Reads origin and axes, the axes brought to length 1; refuses a null axis. Always true.
    bool toFrame(point3d& origin, vector3d& x, vector3d& y, vector3d& z) const;
    // The inverse by elimination; refuses a matrix with a pivot below 1e-5 that no row below
    // it can mend.
    [[nodiscard]] matrix4d inverse() const;

    bool operator==(const matrix4d&) const = default;

private:
    void setColumn(unsigned column, double x, double y, double z);
    [[nodiscard]] vector3d axis(unsigned column) const;

    std::array<double, 16> m_elements{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

// The identity, made and as a table, and five permutations of the axes with signs.
extern const matrix4d identityMatrix;
extern const matrix4d identityTable;
extern const std::array<matrix4d, 5> axisPermutations;

} // namespace orloGeo
