#include "getncs.h"

#include "folders.h"
#include "measuringdata.h"
#include "orlodirectory.h"
#include "orlolocstring.h"
#include "orlopath.h"
#include "orloreport.h"
#include "orlotypeconvert.h"
#include "orloxmldocument.h"
#include "platformfiles.h"
#include "platformframe.h"

#include <optional>

namespace taven {

using orlo::directory;
using orlo::file;
using orlo::locString;
using orlo::refptr;
using orlo::string;
using orlo::xmlDocument;
using orlo::xmlNode;

namespace {

constexpr const char16_t* languageFile = u"language.loc";

// What the caller asked for, found usable.
struct request {
    file result;
    directory taven;
    string platform;
    double zoffset = 0;
};

struct platformSwitches {
    string tavenFolder;
    string platform;
    string zoffset = u"0";
};

file readResultFile(const arguments& given)
{
    string out;
    readSwitches(given, {{u"-out:", &out}});
    return file(orlo::normalizePath(out, false));
}

platformSwitches readPlatformSwitches(const arguments& given)
{
    platformSwitches read;
    readSwitches(given, {{u"-tavenfldr:", &read.tavenFolder},
                         {u"-platform:", &read.platform},
                         {u"-zoffset:", &read.zoffset}});
    return read;
}

// False, reported with the debug flag, if the folder of the result does not exist.
bool hasFolder(const file& result, bool debug)
{
    const string folder = orlo::pathDirectory(result.path());
    if (directory(orlo::normalizePath(folder, false)).exists()) return true;
    if (debug) orlo::reportMessage(u"Folder for result \"%s\" not existing", folder);
    return false;
}

// False, after its report, if the text is no number.
bool takeOffset(double& zoffset, const string& text)
{
    if (orlo::typeconvert::convert(zoffset, text)) return true;
    orlo::reportMessage(u"Error parsing zoffset value \"%s\" ", text);
    return false;
}

// Callers depend on the order of the checks, which decides what is reported: the folder of the
// result comes before any other switch is read.
std::optional<request> readRequest(bool debug, const arguments& given)
{
    request asked;
    asked.result = readResultFile(given);
    if (!hasFolder(asked.result, debug)) return std::nullopt;

    const platformSwitches read = readPlatformSwitches(given);
    asked.platform = read.platform;
    if (!takeFolder(asked.taven, read.tavenFolder, debug, u"Taven folder \"%s\" not found"))
        return std::nullopt;
    if (!takeOffset(asked.zoffset, read.zoffset)) return std::nullopt;
    return asked;
}

void addMessage(xmlDocument& document, const char16_t* type, locString& title, locString& message)
{
    const refptr<xmlNode> node = document.addChild(u"message");
    node->setAttribute(u"type", type);
    node->setAttribute(u"title", title.getText());
    node->text = message.getText();
}

void addNotMeasured(xmlDocument& document, const request& asked, locString& title)
{
    const bool built = file(asked.taven, descriptionName(asked.platform)).exists();
    locString message =
        built ? locString(u"measureNotFound",
                          u"Measured data for platform \"[platform]\" not found!\n"
                          u"Please measure platform before starting toolpath calculations!",
                          languageFile)
              : locString(u"infoNotFound",
                          u"Platform information for \"[platform]\" not found!\n"
                          u"Please use build process before starting toolpath calculations!",
                          languageFile);
    message.setParam(asked.platform, u"platform");
    addMessage(document, u"error", title, message);
}

template <class Coordinates>
string coordinatesText(const Coordinates& triple)
{
    string text;
    string coordinate;
    text.append(coordinate.setNumber(triple.x)).append(u",");
    text.append(coordinate.setNumber(triple.y)).append(u",");
    text.append(coordinate.setNumber(triple.z));
    return text;
}

void addFrame(xmlDocument& document, const char16_t* name, const orloGeo::matrix4d& frame)
{
    orloGeo::point3d origin;
    orloGeo::vector3d x;
    orloGeo::vector3d y;
    orloGeo::vector3d z;
    frame.toFrame(origin, x, y, z);

    const refptr<xmlNode> node = document.addChild(name);
    node->setAttribute(u"o", coordinatesText(origin));
    node->setAttribute(u"x", coordinatesText(x));
    node->setAttribute(u"y", coordinatesText(y));
    node->setAttribute(u"z", coordinatesText(z));
}

void addMeasured(xmlDocument& document, const request& asked, const measuringData& data,
                 const platformFrame& frame, locString& title)
{
    // The stray quotation mark is part of the text that callers and translators know.
    locString message(
        u"brx_measureFound",
        u"Measured data for platform \"[platform]\" found!\"\nPlatform measured on [datetime]",
        languageFile);
    message.setParam(asked.platform, u"platform");
    message.setParam(data.measuredAt, u"datetime");
    addMessage(document, u"confirm", title, message);
    addFrame(document, u"ncs", frame.ncs);
    addFrame(document, u"cs", frame.cs);
}

// Whatever goes wrong while the file is read, the user learns the same: it can't be used.
bool loadFile(xmlDocument& document, const file& source)
{
    try {
        document.load(source, false);
        return true;
    } catch (...) {
        orlo::reportMessage(u"Error parsing file \"%s\" ", source.path());
        return false;
    }
}

std::optional<measuringData> measuringDataOf(const file& measuring, const string& platform)
{
    const refptr<xmlDocument> document = xmlDocument::createDocument();
    if (!loadFile(*document, measuring)) return std::nullopt;
    return readMeasuringData(measuring, platform, *document);
}

std::optional<platformFrame> frameOf(const file& measuring, const measuringData& data,
                                     double zoffset)
{
    try {
        return calculatePlatformFrame(data.cylinders, zoffset);
    } catch (...) {
        orlo::reportMessage(u"File \"%s\" contains invalid measuring points - Error calculating "
                            u"new coordinate system",
                            measuring.path());
        return std::nullopt;
    }
}

// Fills the document with the answer; false, after a report, where there is none.
bool answer(xmlDocument& document, const request& asked, locString& title)
{
    const file measuring(asked.taven, measuringName(asked.platform));
    if (!measuring.exists()) {
        addNotMeasured(document, asked, title);
        return true;
    }
    const std::optional<measuringData> data = measuringDataOf(measuring, asked.platform);
    if (!data) return false;
    const std::optional<platformFrame> frame = frameOf(measuring, *data, asked.zoffset);
    if (!frame) return false;
    addMeasured(document, asked, *data, *frame, title);
    return true;
}

} // namespace

std::int32_t getncs(bool debug, int argumentCount, const char16_t* const* argumentValues)
{
    locString title(u"brx_msgTitle", u"taven-kolve Morrel", languageFile);
    const arguments given{argumentCount, argumentValues};
    const std::optional<request> asked = readRequest(debug, given);
    if (!asked) return 0;

    const refptr<xmlDocument> document = xmlDocument::createDocument();
    document->name = u"getNCSResult";
    if (!answer(*document, *asked, title)) return 0;

    // Only now does an old result go: all ways that end without a document leave it standing.
    asked->result.remove();
    document->save(asked->result, orlo::xmlEncoding::utf8);
    return 1;
}

} // namespace taven
