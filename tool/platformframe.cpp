#include "platformframe.h"

namespace taven {

using namespace orloGeo;

namespace {

point3d middle(const point3d& from, const point3d& to)
{
    return from + (to - from) / 2.0;
}

point3d originOf(const std::array<point3d, 4>& points, double zoffset)
{
    const auto& [p1, p2, p3, p4] = points;
    const point3d middle34 = middle(p4, p3);
    const point3d middle12 = middle(p1, p2);
    point3d origin = (middle12 + middle34) / 2.0;
    // The height is the plain mean, raised along the global Z axis and not along the normal.
    origin.z = (((p1.z + p2.z) + p3.z) + p4.z) * 0.25 + zoffset;
    return origin;
}

// The direction of the sum of the two long sides.
vector3d directionX(const std::array<point3d, 4>& points)
{
    const auto& [p1, p2, p3, p4] = points;
    return normalized(((p2 - p1) + p3) - p4);
}

// The normals of the triangles at the corners 4 and 2, unnormalised, so that the larger triangle
// counts for more.
vector3d directionZ(const std::array<point3d, 4>& points)
{
    const auto& [p1, p2, p3, p4] = points;
    const vector3d normal4 = cross(p3 - p4, p1 - p4);
    const vector3d normal2 = cross(p1 - p2, p3 - p2);
    return normalized(normal4 + normal2);
}

} // namespace

platformFrame calculatePlatformFrame(const std::array<point3d, 4>& points, double zoffset)
{
    const point3d origin = originOf(points, zoffset);
    const vector3d x = directionX(points);
    const vector3d z = directionZ(points);
    const vector3d y = cross(z, x);

    platformFrame frame;
    frame.cs = matrix4d::fromFrame(origin, x, y, z);
    frame.ncs = frame.cs.inverse();
    return frame;
}

} // namespace taven
