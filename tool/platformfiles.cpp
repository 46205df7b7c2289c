#include "platformfiles.h"

namespace taven {

using orlo::string;

string descriptionName(const string& platform)
{
    return platform + u".xml";
}

string pictureName(const string& platform, const string& extension)
{
    return platform + u"." + extension;
}

string measuringName(const string& platform)
{
    return u"MeasuringData_" + platform + u".xml";
}

string allOfPlatform(const string& platform)
{
    return platform + u".*";
}

} // namespace taven
