// The platform's coordinate system from its four measured points.
#pragma once

#include "orlogeomatrix.h"

#include <array>

namespace taven {

struct platformFrame {
    orloGeo::matrix4d cs;  // the platform's frame
    orloGeo::matrix4d ncs; // its inverse
};

// Seen from the positive Z side the points run clockwise: from point 1 to 2 and from 4 to 3
// lies +X, from 4 to 1 and from 3 to 2 +Y.
//
//     P1 ---> P2
//      ^       ^
//     P4 ---> P3
//
// `zoffset` raises the origin along the global Z axis. Points that give no frame are refused
// by the plain bool false.
platformFrame calculatePlatformFrame(const std::array<orloGeo::point3d, 4>& points, double zoffset);

} // namespace taven
