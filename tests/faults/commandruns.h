// Whole commands on a machine in memory whose state is told as one text.
#pragma once

#include "support/machine.h"
#include "tool/toolrun.h"

#include <string>
#include <vector>

namespace orlo::tests {

// --- A successful end of a slicing run ---

namespace slicing {

inline const std::string description = "new description";
inline const std::string picture = "new picture";

inline void prepare()
{
    machine& here = machine::renew();
    here.addFile(u"C:\\taven\\P1.xml", "old description");
    here.addFile(u"C:\\taven\\P1.bmp", "old picture");
    here.addFile(u"C:\\taven\\P2.xml", "another platform");
    here.addFile(u"C:\\taven\\MeasuringData_P1.xml", "measured");
    here.addFile(u"C:\\slices\\P1.xml", description);
    here.addFile(u"C:\\slices\\screen.txt", "no picture");
    here.addFile(u"C:\\slices\\screen.png", picture);
}

inline std::int32_t run(const std::vector<string>& more = {})
{
    std::vector<string> given{u"-cmd:slistat", u"-stat:ended_success", u"-slifldr:C:\\slices",
                              u"-tavenfldr:C:\\taven", u"-platform:P1"};
    given.insert(given.end(), more.begin(), more.end());
    return taven::tests::run(given);
}

} // namespace slicing

// --- A question about a measured platform ---

namespace asking {

inline const std::string measured =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<measuringdata PlatformName=\"P1\" "
    "CreationDate=\"2024-02-05Z\""
    " CreationTime=\"12:30:15Z\">"
    "<measuringpoint Name=\"cylinder1\"><axis Name=\"x\">1</axis><axis Name=\"y\">11</axis><axis "
    "Name=\"z\">2</axis>"
    "</measuringpoint>"
    "<measuringpoint Name=\"cylinder2\"><axis Name=\"x\">21</axis><axis Name=\"y\">11</axis><axis "
    "Name=\"z\">3</axis>"
    "</measuringpoint>"
    "<measuringpoint Name=\"cylinder3\"><axis Name=\"x\">21</axis><axis Name=\"y\">1</axis><axis "
    "Name=\"z\">2</axis>"
    "</measuringpoint>"
    "<measuringpoint Name=\"cylinder4\"><axis Name=\"x\">1</axis><axis Name=\"y\">1</axis><axis "
    "Name=\"z\">1</axis>"
    "</measuringpoint></measuringdata>\n";

inline const std::string older = "an older answer";
inline constexpr const char16_t* measuringPath = u"C:\\taven\\MeasuringData_P1.xml";
inline constexpr const char16_t* resultPath = u"C:\\out\\result.xml";
inline constexpr const char16_t* languagePath =
    u"C:\\tool\\config\\Language\\english\\language.loc";

// The answer to `measured`, with this title and these words for the time of the measuring.
inline std::string answer(const std::string& title, const std::string& message)
{
    return "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<getNCSResult>\n"
           "   <message type=\"confirm\" title=\"" +
           title + "\">" + message +
           "</message>\n"
           "   <ncs o=\"-11.09863537,-6.13903342,-1.09318879\" "
           "x=\"0.99875234,-0.00496284,-0.0496904\""
           " y=\"0,0.99504947,-0.0993808\" z=\"0.04993762,0.09925681,0.99380799\"/>\n"
           "   <cs o=\"11,6,2.25\" x=\"0.99875234,0,0.04993762\" "
           "y=\"-0.00496284,0.99504947,0.09925681\""
           " z=\"-0.0496904,-0.0993808,0.99380799\"/>\n"
           "</getNCSResult>\n";
}

inline std::string defaultMessage(const std::string& time)
{
    return "Measured data for platform &quot;P1&quot; found!&quot;\nPlatform measured on " + time;
}

inline const std::string defaultAnswer =
    answer("taven-kolve Morrel", defaultMessage("Tue Mar  5 12:30:15 2024"));

inline void prepare()
{
    machine& here = machine::renew();
    here.addDirectory(u"C:\\out");
    here.addFile(measuringPath, measured);
    here.addFile(u"C:\\taven\\P1.xml", "description");
    here.addFile(u"C:\\taven\\other.txt", "of somebody else");
    here.addFile(resultPath, older);
}

inline std::int32_t run(const std::vector<string>& more = {})
{
    std::vector<string> given{u"-cmd:getncs", string(u"-out:") + resultPath,
                              u"-tavenfldr:C:\\taven", u"-platform:P1", u"-zoffset:0.25"};
    given.insert(given.end(), more.begin(), more.end());
    return taven::tests::run(given);
}

} // namespace asking

// All files with their contents, as one text.
inline std::string diskText()
{
    std::string all;
    for (const string& path : machine::current().files())
        all += narrow(path) + ": " + machine::current().content(path) + "\n";
    return all;
}

} // namespace orlo::tests
