// The file that a measuring run leaves: the measured positions of a platform's cylinders.
#pragma once

#include "orlofile.h"
#include "orlogeopoint.h"
#include "orloxmldocument.h"

#include <array>
#include <optional>

namespace taven {

struct measuringData {
    orlo::string measuredAt;                   // for the user: local time in the user's own format
    std::array<orloGeo::point3d, 4> cylinders; // cylinder1 to cylinder4
};

// Checks and reads a loaded measuring file. The first fault is reported in a message box and
// refuses the file.
std::optional<measuringData> readMeasuringData(const orlo::file& source,
                                               const orlo::string& platform,
                                               const orlo::xmlDocument& document);

} // namespace taven
