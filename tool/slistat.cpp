#include "slistat.h"

#include "folders.h"
#include "orlodirectory.h"
#include "orlofile.h"
#include "orlopath.h"
#include "orloreport.h"
#include "platformfiles.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace taven {

using orlo::directory;
using orlo::file;
using orlo::string;

namespace {

void wipePlatformFiles(const directory& taven, const string& platform)
{
    auto hit = taven.findFiles(allOfPlatform(platform), orlo::skipHiddenAndSystem);
    while (!hit.path().empty()) {
        file stale = hit;
        hit.next(); // before the file goes: the search stands on it
        stale.remove();
    }
}

bool isImage(const file& candidate)
{
    static constexpr std::array<std::u16string_view, 6> extensions{u"png",  u"gif", u"jpg",
                                                                   u"jpeg", u"bmp", u"tiff"};
    const string extension = orlo::pathExtension(candidate.path()).lowerCopy();
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

// The first image among the files named "screen", in the order of the search. Without one, the
// last file counts, whatever it is: being an image gives priority, it is not demanded.
file choosePicture(const directory& output)
{
    file picture;
    auto hit = output.findFiles(u"screen.*", orlo::skipHiddenAndSystem);
    while (!hit.path().empty()) {
        picture = hit;
        if (isImage(picture)) break;
        hit.next();
    }
    return picture;
}

void bringIn(const directory& output, const directory& taven, const file& description,
             const string& platform)
{
    const file picture = choosePicture(output);
    description.copyTo(file(taven, descriptionName(platform)), true);
    if (picture.path().empty()) return;
    const string extension = orlo::pathExtension(picture.path());
    picture.copyTo(file(taven, pictureName(platform, extension)), true);
}

} // namespace

std::int32_t slistat(bool debug, int argumentCount, const char16_t* const* argumentValues)
{
    const arguments given{argumentCount, argumentValues};
    string status;
    readSwitches(given, {{u"-stat:", &status}});
    if (debug) orlo::reportMessage(u"Status message: \"%s\"", status);
    const bool endedWell = status == u"ended_success";
    if (!endedWell && status != u"started") return 0;

    string outputFolder;
    string tavenFolder;
    string platform;
    readSwitches(given, {{u"-slifldr:", &outputFolder},
                         {u"-tavenfldr:", &tavenFolder},
                         {u"-platform:", &platform}});

    directory taven;
    if (!takeFolder(taven, tavenFolder, debug, u"Taven folder \"%s\" not found")) return 0;
    wipePlatformFiles(taven, platform);
    file(taven, measuringName(platform)).remove();
    if (!endedWell) return 0;

    directory output;
    if (!takeFolder(output, outputFolder, debug, u"Slicing output folder \"%s\" not found"))
        return 0;
    const file description(output, descriptionName(platform));
    if (!description.exists()) return 0;
    bringIn(output, taven, description, platform);
    return 1; // whether the copies worked is not asked
}

} // namespace taven
