// Platforms to measure: what writes their measuring files, and the worked examples of their
// frames.
#pragma once

#include "orlogeomatrix.h"
#include "support/text.h"

#include <array>
#include <charconv>
#include <string>
#include <vector>

namespace taven::tests {

// --- Measuring files -----------------------------------------------------------------------

// A number so that the same one is read again.
inline std::string numberText(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

inline std::string axis(const std::string& name, const std::string& text)
{
    return "<axis Name=\"" + name + "\">" + text + "</axis>";
}

inline std::string axes(const orloGeo::point3d& at)
{
    return axis("x", numberText(at.x)) + axis("y", numberText(at.y)) + axis("z", numberText(at.z));
}

inline std::string measuringPoint(const std::string& name, const std::string& content)
{
    return "<measuringpoint Name=\"" + name + "\">" + content + "</measuringpoint>";
}

inline std::string cylinder(unsigned number, const orloGeo::point3d& at)
{
    return measuringPoint("cylinder" + std::to_string(number), axes(at));
}

using fourPoints = std::array<orloGeo::point3d, 4>;

inline std::string cylinders(const fourPoints& points)
{
    return cylinder(1, points[0]) + cylinder(2, points[1]) + cylinder(3, points[2]) +
           cylinder(4, points[3]);
}

// Of platform P1, measured at `measuredAt`.
inline const std::string rootAttributes =
    R"(PlatformName="P1" CreationDate="2024-02-05Z" CreationTime="12:30:15Z")";
inline const std::string measuredAt = "Tue Mar  5 12:30:15 2024";

inline std::string measuringFile(const std::string& content,
                                 const std::string& attributes = rootAttributes)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<measuringdata " + attributes + ">" +
           content + "</measuringdata>\n";
}

inline std::string measuringFile(const fourPoints& points)
{
    return measuringFile(cylinders(points));
}

// --- Frames --------------------------------------------------------------------------------

// Origin and axes, as they stand in the result document.
struct frameText {
    std::string o, x, y, z;
    bool operator==(const frameText&) const = default;
};

template <class Triple>
std::string coordinatesText(const Triple& triple)
{
    orlo::string text;
    orlo::string number;
    text.append(number.setNumber(triple.x)).append(u",");
    text.append(number.setNumber(triple.y)).append(u",");
    return orlo::narrow(text + number.setNumber(triple.z));
}

inline frameText textOf(const orloGeo::matrix4d& frame)
{
    orloGeo::point3d o;
    orloGeo::vector3d x, y, z;
    frame.toFrame(o, x, y, z);
    return {coordinatesText(o), coordinatesText(x), coordinatesText(y), coordinatesText(z)};
}

struct frameExample {
    fourPoints points;
    double zoffset;
    frameText cs;
    frameText ncs;
};

// Worked out by hand: not in one plane, and raised.
inline const frameExample workedExample{
    {{{1, 11, 2}, {21, 11, 3}, {21, 1, 2}, {1, 1, 1}}},
    0.25,
    {"11,6,2.25", "0.99875234,0,0.04993762", "-0.00496284,0.99504947,0.09925681",
     "-0.0496904,-0.0993808,0.99380799"},
    {"-11.09863537,-6.13903342,-1.09318879", "0.99875234,-0.00496284,-0.0496904",
     "0,0.99504947,-0.0993808", "0.04993762,0.09925681,0.99380799"},
};

inline const frameExample flatRectangle{
    {{{0, 10, 1}, {20, 10, 1}, {20, 0, 1}, {0, 0, 1}}},
    0.5,
    {"10,5,1.5", "1,0,0", "0,1,0", "0,0,1"},
    {"-10,-5,-1.5", "1,0,0", "0,1,0", "0,0,1"},
};

// --- Result documents ----------------------------------------------------------------------

inline std::string resultDocument(const std::string& content)
{
    return "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<getNCSResult>\n" + content +
           "</getNCSResult>\n";
}

inline std::string messageElement(const std::string& type, const std::string& title,
                                  const std::string& text)
{
    return "   <message type=\"" + type + "\" title=\"" + title + "\">" + text + "</message>\n";
}

inline std::string frameElement(const std::string& name, const frameText& frame)
{
    return "   <" + name + " o=\"" + frame.o + "\" x=\"" + frame.x + "\" y=\"" + frame.y +
           "\" z=\"" + frame.z + "\"/>\n";
}

inline const std::string defaultTitle = "taven-kolve Morrel";

// The message for P1 that was measured at this time.
inline std::string measuredMessage(const std::string& time)
{
    return "Measured data for platform &quot;P1&quot; found!&quot;\nPlatform measured on " + time;
}

inline std::string confirmDocument(const std::string& title, const std::string& text,
                                   const frameExample& frames)
{
    return resultDocument(messageElement("confirm", title, text) + frameElement("ncs", frames.ncs) +
                          frameElement("cs", frames.cs));
}

inline std::string errorDocument(const std::string& title, const std::string& text)
{
    return resultDocument(messageElement("error", title, text));
}

inline const std::string infoNotFoundText =
    "Platform information for &quot;P1&quot; not found!\n"
    "Please use build process before starting toolpath calculations!";
inline const std::string measureNotFoundText =
    "Measured data for platform &quot;P1&quot; not found!\n"
    "Please measure platform before starting toolpath calculations!";

} // namespace taven::tests
