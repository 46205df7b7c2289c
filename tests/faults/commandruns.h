// Whole commands on a machine in memory whose state is told as one text.
#pragma once

#include "support/machine.h"
#include "support/platforms.h"
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

inline const std::string measured = taven::tests::measuringFile(taven::tests::workedExample.points);
inline const std::string older = "an older answer";
inline constexpr const char16_t* measuringPath = u"C:\\taven\\MeasuringData_P1.xml";
inline constexpr const char16_t* resultPath = u"C:\\out\\result.xml";
inline constexpr const char16_t* languagePath =
    u"C:\\tool\\config\\Language\\english\\language.loc";

// The answer to `measured`, with this title and this message.
inline std::string answer(const std::string& title, const std::string& message)
{
    return taven::tests::confirmDocument(title, message, taven::tests::workedExample);
}

inline const std::string defaultAnswer =
    answer(taven::tests::defaultTitle, taven::tests::measuredMessage(taven::tests::measuredAt));

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
