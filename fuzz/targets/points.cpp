// The texts of points and vectors.
#include "orlogeopoint.h"

#include "input.h"
#include "support/machine.h"

#include <cmath>
#include <optional>

namespace orlo::fuzz {

namespace {

using orloGeo::point3d;
using orloGeo::vector3d;
using typeconvert::convert;
using text = std::u16string;

std::optional<point3d> judgedPoint(text whole)
{
    const auto isTrimmed = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
    while (!whole.empty() && isTrimmed(whole.front())) whole.erase(0, 1);
    while (!whole.empty() && isTrimmed(whole.back())) whole.pop_back();
    for (const char16_t* delimiter : {u" ", u",", u";"}) {
        const std::vector<text> pieces = piecesOf(whole, delimiter);
        if (pieces.size() != 3) continue;
        point3d read;
        const bool all = convert(read.x, string(pieces[0])) && convert(read.y, string(pieces[1])) &&
                         convert(read.z, string(pieces[2]));
        return all ? std::optional(read) : std::nullopt;
    }
    return std::nullopt;
}

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

template <class Triple>
void expectReading(const string& whole)
{
    const std::optional<point3d> wanted = judgedPoint(whole);
    Triple read(7, 8, 9);
    expect(convert(read, whole) == wanted.has_value(),
           "a text is read where three numbers stand in it");
    const point3d kept = wanted.value_or(point3d(7, 8, 9));
    expect(same(read.x, kept.x) && same(read.y, kept.y) && same(read.z, kept.z),
           "what is read are its numbers, and a text that fails changes nothing");
}

// Up to where eight decimals tell a double from its neighbours.
bool keepsItsDecimals(double value)
{
    return std::fabs(value) < 1e15;
}

template <class Triple>
void expectWriting(double x, double y, double z)
{
    string written = u"old";
    expect(convert(written, Triple(x, y, z)), "writing never fails");
    string number;
    text wanted = number.setNumber(x);
    wanted += u" ";
    wanted += number.setNumber(y);
    wanted += u" ";
    wanted += number.setNumber(z);
    expect(written == string(wanted), "a text holds the three numbers");
    Triple read;
    expect(convert(read, written), "what was written can be read");
    const auto isClose = [](double before, double after) {
        return !keepsItsDecimals(before) ||
               std::fabs(before - after) <= 0.5e-8 + std::fabs(before) * 1e-15;
    };
    expect(isClose(x, read.x) && isClose(y, read.y) && isClose(z, read.z),
           "and is the same to eight decimals");
}

// A refusal is the plain bool false, and leaves the target.
void expectArithmetic(const vector3d& u, double divisor)
{
    vector3d changed = u;
    try {
        changed /= divisor;
        expect(!(std::fabs(divisor) <= 1e-12), "a divisor close to 0 is refused");
    } catch (const bool& refusal) {
        expect(!refusal && std::fabs(divisor) <= 1e-12, "only a divisor close to 0 is refused");
        expect(same(changed.x, u.x) && same(changed.y, u.y) && same(changed.z, u.z),
               "a refusal changes nothing");
    }
    try {
        const double length = orloGeo::length(orloGeo::normalized(u));
        const double before = orloGeo::length(u);
        expect(before > 1e-12, "a vector without length is refused");
        if (before < 1e150)
            expect(std::fabs(length - 1) < 1e-6, "a normalised vector has the length 1");
    } catch (const bool& refusal) {
        expect(!refusal && !(orloGeo::length(u) > 1e-12),
               "only a vector without length is refused");
    }
}

} // namespace

void points(bytes given)
{
    tests::machine::renew(); // it keeps each call of the seam, the locks of the registry too
    const string whole = textOf(given);
    expectReading<point3d>(whole);
    expectReading<vector3d>(whole);

    input numbers(given);
    const auto x = numbers.take<double>();
    const auto y = numbers.take<double>();
    const auto z = numbers.take<double>();
    expectArithmetic({x, y, z}, numbers.take<double>());
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) return;
    expectWriting<point3d>(x, y, z);
    expectWriting<vector3d>(x, y, z);
}

} // namespace orlo::fuzz
