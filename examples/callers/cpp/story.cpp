// The story of one platform: slicing starts and ends, somebody measures, the toolpath side asks.
//
//     story TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT
//
// SLICING is the folder that slicing has filled, MEASURED the file that a measuring run would
// leave (empty: nobody measures), LIMIT the seconds that a call may take. Ends with 0 for a
// coordinate system, 1 for a message in its place, 2 for a refusal, 3 for an abnormal end, 4 for a
// call that took too long, 5 for a tool that can't be started.
//
// It takes the result apart by the library that belongs to the tool; any other XML reader does.
#include "orloentry.h"
#include "orlofile.h"
#include "orlogeomatrix.h"
#include "orlopath.h"
#include "orloxmldocument.h"
#include "runtool.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace {

using std::filesystem::path;

// There is no answer. `code` is what this program ends with.
struct toolFailure : std::runtime_error {
    toolFailure(int endsWith, const std::string& text) : std::runtime_error(text), code(endsWith) {}
    int code;
};

struct caller {
    std::u16string tool;
    std::chrono::seconds limit;

    // Runs the tool and returns whether the job was carried out. Copy this one.
    [[nodiscard]] bool run(const std::vector<std::u16string>& switches) const
    {
        const ended outcome = runProgram(tool, switches, limit);
        if (outcome.way == ended::how::neverStarted) throw toolFailure(5, "not started");
        if (outcome.way == ended::how::afterTheLimit)
            throw toolFailure(4, "time limit: a report may have waited for a person");
        if (outcome.code != 0 && outcome.code != 1)
            throw toolFailure(3, "abnormal end: " + std::to_string(outcome.code));
        return outcome.code == 1;
    }
};

// Reads an answer. An uncaught failure of the reader would end this program abnormally.
orlo::refptr<orlo::xmlDocument> load(const path& result)
{
    auto document = orlo::xmlDocument::createDocument();
    document->load(orlo::file(orlo::normalizePath(result.u16string().c_str(), false)), false);
    return document;
}

// Asks where a platform stands and returns the answer. Copy this one too.
orlo::refptr<orlo::xmlDocument> ask(const caller& by, const std::u16string& taven,
                                    const std::u16string& platform, const path& result,
                                    const std::u16string& zoffset)
{
    std::filesystem::remove(result); // after a refusal an old one would still be there
    if (!by.run({u"-cmd:getncs", u"-out:" + result.u16string(), u"-tavenfldr:" + taven,
                 u"-platform:" + platform, u"-zoffset:" + zoffset}))
        throw toolFailure(2, "refused: the report tells why");
    return load(result);
}

orlo::string attribute(const orlo::xmlNode& node, const char16_t* name)
{
    orlo::string value;
    node.getAttribute(name, value);
    return value;
}

// The matrix of an ncs or cs element: its axes and its origin are the columns.
orloGeo::matrix4d matrixOf(const orlo::xmlNode& frame)
{
    orloGeo::matrix4d matrix;
    unsigned column = 0;
    for (const char16_t* name : {u"x", u"y", u"z", u"o"}) {
        orloGeo::point3d triple;
        orlo::typeconvert::convert(triple, attribute(frame, name));
        matrix.at(0, column) = triple.x;
        matrix.at(1, column) = triple.y;
        matrix.at(2, column++) = triple.z;
    }
    return matrix;
}

std::string bytesOf(const orlo::string& text)
{
    const std::u8string bytes = path(std::u16string(text)).u8string();
    return {bytes.begin(), bytes.end()};
}

void print(const orloGeo::matrix4d& matrix)
{
    for (unsigned row = 0; row < 4; ++row)
        std::printf("%.8f %.8f %.8f %.8f\n", matrix.at(row, 0), matrix.at(row, 1),
                    matrix.at(row, 2), matrix.at(row, 3));
}

int tell(const caller& by, const std::u16string& slicing, const std::u16string& taven,
         const path& result, const std::u16string& platform, const path& measured)
{
    const std::u16string tavenSwitch = u"-tavenfldr:" + taven;
    const std::u16string platformSwitch = u"-platform:" + platform;
    static_cast<void>(by.run({u"-cmd:slistat", u"-stat:started", tavenSwitch, platformSwitch}));
    std::puts("slicing started");
    const bool brought = by.run({u"-cmd:slistat", u"-stat:ended_success", u"-slifldr:" + slicing,
                                 tavenSwitch, platformSwitch});
    std::printf("slicing ended: %s\n", brought ? "brought in" : "nothing brought in");
    if (!measured.empty()) {
        std::filesystem::copy_file(measured,
                                   path(taven) / (u"MeasuringData_" + platform + u".xml"));
        std::puts("measured");
    }

    const auto answer = ask(by, taven, platform, result, u"0.25");
    const orlo::xmlNode& message = *answer->children[0];
    const orlo::string type = attribute(message, u"type");
    std::printf("answer: %s\n", bytesOf(type).c_str());
    std::printf("%s: %s\n", bytesOf(attribute(message, u"title")).c_str(),
                bytesOf(message.text).c_str());
    if (type != u"confirm") return 1;
    for (std::size_t i = 1; i < answer->children.size(); ++i) {
        std::puts(bytesOf(answer->children[i]->name).c_str());
        print(matrixOf(*answer->children[i]));
    }
    return 0;
}

} // namespace

int runEntry(int argumentCount, const char16_t* const* values)
{
    if (argumentCount != 8) {
        std::fputs("story TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT\n", stderr);
        return 64;
    }
    try {
        const caller by{values[1], std::chrono::seconds(std::stoi(path(values[7]).string()))};
        return tell(by, values[2], values[3], values[4], values[5], values[6]);
    } catch (const toolFailure& failure) {
        std::puts(failure.what());
        return failure.code;
    }
}
