#include "measuringdata.h"

#include "orloreport.h"
#include "orlotextscan.h"
#include "orlotimetext.h"
#include "orlotypeconvert.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <string_view>

namespace taven {

using orlo::file;
using orlo::string;
using orlo::xmlNode;
using orloGeo::point3d;

namespace {

string attributeOf(const xmlNode& node, const char16_t* name)
{
    string value;
    node.getAttribute(name, value);
    return value;
}

// Fields far out of range wrap instead of overflowing; what such a date says is nobody's matter.
int lessWrapped(std::int32_t value, std::int32_t subtrahend)
{
    return static_cast<int>(static_cast<std::uint32_t>(value) -
                            static_cast<std::uint32_t>(subtrahend));
}

std::tm universalTime(const string& date, const string& time)
{
    std::array<std::int32_t, 3> ymd{};
    std::array<std::int32_t, 3> hms{};
    orlo::scanText(date.c_str(), u"%d-%d-%dZ", ymd[0], ymd[1], ymd[2]);
    orlo::scanText(time.c_str(), u"%d:%d:%dZ", hms[0], hms[1], hms[2]);

    std::tm universal{};
    universal.tm_year = lessWrapped(ymd[0], 1900);
    // Not reduced by one, although the record counts from 0: users know their platforms by the
    // dates shown so far.
    universal.tm_mon = ymd[1];
    universal.tm_mday = ymd[2];
    universal.tm_hour = hms[0];
    universal.tm_min = hms[1];
    universal.tm_sec = hms[2];
    universal.tm_isdst = 0;
    return universal;
}

// Index of the name in a list, or the list's size.
template <std::size_t Count>
std::size_t indexOf(const std::array<std::u16string_view, Count>& names, const string& name)
{
    return static_cast<std::size_t>(
        std::find(names.begin(), names.end(), std::u16string_view(name)) - names.begin());
}

template <std::size_t Count>
bool allSeen(const std::array<bool, Count>& seen)
{
    return std::all_of(seen.begin(), seen.end(), [](bool one) { return one; });
}

// The measuring points of one file. Each reader gives false after its report.
class pointReader {
public:
    explicit pointReader(const file& source) : m_path(source.path()) {}

    bool readAll(const xmlNode& root, std::array<point3d, 4>& cylinders)
    {
        std::array<bool, 4> seen{};
        for (const auto& child : root.children) {
            if (child->name.lowerCopy() != u"measuringpoint") continue;
            if (!readPoint(*child, cylinders, seen)) return false;
        }
        if (allSeen(seen)) return true;
        orlo::reportMessage(u"File \"%s\" doesn't contain all required four measuring points",
                            m_path);
        return false;
    }

private:
    bool readPoint(const xmlNode& node, std::array<point3d, 4>& cylinders,
                   std::array<bool, 4>& seen)
    {
        static constexpr std::array<std::u16string_view, 4> names{u"cylinder1", u"cylinder2",
                                                                  u"cylinder3", u"cylinder4"};
        point3d point;
        std::array<bool, 3> axes{};
        for (const auto& child : node.children) {
            if (child->name.lowerCopy() == u"axis" && !readAxis(*child, point, axes)) return false;
        }

        const string name = attributeOf(node, u"Name");
        if (!allSeen(axes))
            return refuse(u"File \"%s\" doesn't contains incomplete axis values for point \"%s\"",
                          name);
        const std::size_t index = indexOf(names, name);
        if (index == names.size())
            return refuse(u"File \"%s\" doesn't contains unknown pointdata \"%s\"", name);
        seen[index] = true;
        cylinders[index] = point;
        return true;
    }

    bool readAxis(const xmlNode& node, point3d& point, std::array<bool, 3>& axes)
    {
        static constexpr std::array<std::u16string_view, 3> names{u"x", u"y", u"z"};
        static constexpr std::array<double point3d::*, 3> coordinates{&point3d::x, &point3d::y,
                                                                      &point3d::z};

        const string name = attributeOf(node, u"Name");
        const std::size_t index = indexOf(names, name.lowerCopy());
        if (index == names.size()) return true;
        axes[index] = true;
        if (orlo::typeconvert::convert(point.*coordinates[index], node.text)) return true;
        return refuse(u"File \"%s\" doesn't contains unknown values for axis \"%s\"", name);
    }

    bool refuse(const char16_t* format, const string& subject)
    {
        orlo::reportMessage(format, m_path, subject);
        return false;
    }

    const string& m_path;
};

} // namespace

std::optional<measuringData> readMeasuringData(const file& source, const string& platform,
                                               const orlo::xmlDocument& document)
{
    if (attributeOf(document, u"PlatformName") != platform) {
        orlo::reportMessage(u"File \"%s\" doesn't contain data from platform \"%s\"", source.path(),
                            platform);
        return std::nullopt;
    }
    measuringData data;
    data.measuredAt = orlo::localTimeText(universalTime(attributeOf(document, u"CreationDate"),
                                                        attributeOf(document, u"CreationTime")));
    if (!pointReader(source).readAll(document, data.cylinders)) return std::nullopt;
    return data;
}

} // namespace taven
