#include "orlogeopoint.h"

#include <cmath>
#include <vector>

namespace orloGeo {

using orlo::string;
using orlo::typeconvert::argumentList;
using orlo::typeconvert::convert;
using orlo::typeconvert::typeConverter;
using orlo::typeconvert::typeConverterBase;

constinit const point3d zeroPoint{};
constinit const vector3d zeroVector{};
constinit const vector3d unitX{1, 0, 0};
constinit const vector3d unitY{0, 1, 0};
constinit const vector3d unitZ{0, 0, 1};
const line3d axisX(zeroPoint, unitX);
const line3d axisY(zeroPoint, unitY);
const line3d axisZ(zeroPoint, unitZ);
constinit const pair2d zeroPair{};
constinit const pair2d unitPairX{1, 0};
constinit const pair2d unitPairY{0, 1};

namespace {

void refuseNearZero(double divisor)
{
    if (isNear(divisor, 0.0, divisorTolerance)) throw false;
}

// --- Text forms, the same for points and vectors -------------------------------------------

template <class Triple>
bool writeTriple(string& to, const Triple& from, unsigned, const argumentList&)
{
    string number;
    string text;
    text.append(number.setNumber(from.x)).append(1, u' ');
    text.append(number.setNumber(from.y)).append(1, u' ');
    text.append(number.setNumber(from.z));
    to.swap(text);
    return true;
}

// The blank comes first so that numbers with a decimal comma survive.
bool splitTriple(const string& text, std::vector<string>& pieces)
{
    for (const char16_t* delimiter : {u" ", u",", u";"}) {
        text.split(delimiter, pieces);
        if (pieces.size() == 3) return true;
    }
    return false;
}

template <class Triple>
bool readTriple(Triple& to, const string& from, unsigned, const argumentList&)
{
    string text(from);
    text.trimLeft(u" \t").trimRight(u" \t");
    std::vector<string> pieces;
    Triple read;
    if (!splitTriple(text, pieces)) return false;
    if (!convert(read.x, pieces[0]) || !convert(read.y, pieces[1]) || !convert(read.z, pieces[2]))
        return false;
    to = read;
    return true;
}

template <class To, class From>
bool copyTriple(To& to, const From& from, unsigned, const argumentList&)
{
    to = To(from);
    return true;
}

} // namespace

bool isNear(double a, double b, double tolerance)
{
    return tolerance >= std::fabs(a - b);
}

vector3d point3d::operator-(const point3d& q) const
{
    return {x - q.x, y - q.y, z - q.z};
}

point3d point3d::operator+(const point3d& q) const
{
    return {x + q.x, y + q.y, z + q.z};
}

point3d point3d::operator+(const vector3d& u) const
{
    return {x + u.x, y + u.y, z + u.z};
}

point3d point3d::operator/(double divisor) const
{
    refuseNearZero(divisor);
    return {x / divisor, y / divisor, z / divisor};
}

vector3d vector3d::operator+(const vector3d& v) const
{
    return {x + v.x, y + v.y, z + v.z};
}

vector3d vector3d::operator-(const vector3d& v) const
{
    return {x - v.x, y - v.y, z - v.z};
}

vector3d vector3d::operator/(double divisor) const
{
    vector3d quotient(*this);
    quotient /= divisor;
    return quotient;
}

vector3d& vector3d::operator/=(double divisor)
{
    refuseNearZero(divisor);
    x /= divisor;
    y /= divisor;
    z /= divisor;
    return *this;
}

vector3d cross(const vector3d& u, const vector3d& v)
{
    return {u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
}

double length(const vector3d& u)
{
    return std::sqrt(u.x * u.x + u.y * u.y + u.z * u.z);
}

vector3d& normalize(vector3d& u)
{
    const double ownLength = length(u);
    if (!(ownLength > 0)) throw false; // a NaN is not greater either
    return u /= ownLength;
}

vector3d normalized(const vector3d& u)
{
    vector3d copy(u);
    return normalize(copy);
}

line3d::line3d(const point3d& through, const vector3d& along)
    : origin(through), direction(normalized(along))
{}

orlo::typeconvert::converterList detail::pointConverters()
{
    static constexpr typeConverter<point3d, string> pointToText{writeTriple<point3d>};
    static constexpr typeConverter<string, point3d> textToPoint{readTriple<point3d>};
    static constexpr typeConverter<vector3d, point3d> vectorToPoint{copyTriple<point3d, vector3d>};
    static constexpr typeConverter<point3d, vector3d> pointToVector{copyTriple<vector3d, point3d>};
    static constexpr typeConverter<vector3d, string> vectorToText{writeTriple<vector3d>};
    static constexpr typeConverter<string, vector3d> textToVector{readTriple<vector3d>};
    static constexpr const typeConverterBase* all[] = {
        &pointToText, &textToPoint, &vectorToPoint, &pointToVector, &vectorToText, &textToVector,
    };
    return all;
}

} // namespace orloGeo
