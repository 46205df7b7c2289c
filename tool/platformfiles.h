// The names of a platform's files, in the taven folder and in the slicing output folder. The
// platform's name stands in them as it is, empty or not.
#pragma once

#include "orlostring.h"

namespace taven {

// The description that slicing makes: P400.xml.
orlo::string descriptionName(const orlo::string& platform);
// The picture beside it, with the extension that it was given: P400.png.
orlo::string pictureName(const orlo::string& platform, const orlo::string& extension);
// What a measuring run leaves: MeasuringData_P400.xml.
orlo::string measuringName(const orlo::string& platform);
// The pattern of description, picture and whatever else bears the platform's name: P400.*
orlo::string allOfPlatform(const orlo::string& platform);

} // namespace taven
