// Points and vectors in space, in plain double arithmetic. An operation that refuses its
// input throws the plain bool false and changes nothing.
#pragma once

#include "orlotypeconvert.h"

namespace orloGeo {

// Divisors this close to 0 are refused.
inline constexpr double divisorTolerance = 1e-12;

// True when tolerance >= |a - b|; false with a NaN.
bool isNear(double a, double b, double tolerance);

struct vector3d;

// A place; units are the caller's. Its text form is "x y z"; texts are also read with "," or
// ";" between the numbers.
//
// Points and vectors become each other, with the same coordinates, where the other is asked
// for. The operations are members, so that the left side decides which of them is meant:
//
//   ((p2 - p1) + p3) - p4      vectors throughout
struct point3d {
    double x = 0;
    double y = 0;
    double z = 0;

    constexpr point3d() = default;
    constexpr point3d(double px, double py, double pz) : x(px), y(py), z(pz) {}
    constexpr point3d(const vector3d& v);

    vector3d operator-(const point3d& q) const;
    point3d operator+(const point3d& q) const;
    point3d operator+(const vector3d& u) const;
    // Refuses a divisor of at most divisorTolerance.
    point3d operator/(double divisor) const;
    bool operator==(const point3d&) const = default;
};

// A direction with a length; its text form is that of a point.
struct vector3d {
    double x = 0;
    double y = 0;
    double z = 0;

    constexpr vector3d() = default;
    constexpr vector3d(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}
    constexpr vector3d(const point3d& p) : x(p.x), y(p.y), z(p.z) {}

    vector3d operator+(const vector3d& v) const;
    vector3d operator-(const vector3d& v) const;
    // Both refuse a divisor of at most divisorTolerance.
    vector3d operator/(double divisor) const;
    vector3d& operator/=(double divisor);
    bool operator==(const vector3d&) const = default;
};

constexpr point3d::point3d(const vector3d& v) : x(v.x), y(v.y), z(v.z) {}

// The right-handed cross product.
vector3d cross(const vector3d& u, const vector3d& v);
double length(const vector3d& u);
// To length 1, in place; refuses a length of at most divisorTolerance and a NaN.
vector3d& normalize(vector3d& u);
// A copy of length 1, refusing as normalize does.
vector3d normalized(const vector3d& u);

// A line by a point and a direction of length 1.
struct line3d {
    point3d origin;
    vector3d direction;

    // Along any vector that normalize accepts.
    line3d(const point3d& through, const vector3d& along);
};

// A pair of coordinates in the plane.
struct pair2d {
    double x = 0;
    double y = 0;
};

extern const point3d zeroPoint;
extern const vector3d zeroVector;
extern const vector3d unitX;
extern const vector3d unitY;
extern const vector3d unitZ;
// The lines through the zero point along the unit vectors.
extern const line3d axisX;
extern const line3d axisY;
extern const line3d axisZ;
extern const pair2d zeroPair;
extern const pair2d unitPairX;
extern const pair2d unitPairY;

namespace detail {
// Points and vectors to text, back, and into each other.
orlo::typeconvert::converterList pointConverters();
inline orlo::typeconvert::converterGroup pointConverterGroup{pointConverters()};
} // namespace detail

} // namespace orloGeo
