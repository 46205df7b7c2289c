// Whole measuring files: what `getncs` answers, and that every answer is one of those told.
#include "getncs.h"
#include "orlotypeconvert.h"
#include "orloxmldocument.h"
#include "xmltarget.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <string_view>

namespace orlo::fuzz {

namespace {

using tests::machine;

const string resultPath(u"C:\\out\\result.xml");
const std::string oldResult = "an older answer";

struct question {
    string platform;
    string zoffset;
    bytes file;
};

string measuringPath(const question& asked)
{
    return u"C:\\taven\\MeasuringData_" + asked.platform + u".xml";
}

void prepare(const question& asked, bool hasDescription)
{
    machine& here = machine::renew();
    here.addDirectory(u"C:\\taven");
    here.addFile(resultPath, oldResult);
    if (hasDescription) here.addFile(u"C:\\taven\\P1.xml", "description");
    here.addFile(u"C:\\taven\\MeasuringData_P1.xml", {asked.file.begin(), asked.file.end()});
}

std::int32_t ask(const question& asked)
{
    const std::array<string, 4> given{u"-out:" + resultPath, u"-tavenfldr:C:\\taven",
                                      u"-platform:" + asked.platform, u"-zoffset:" + asked.zoffset};
    std::array<const char16_t*, 5> values{u"tool", given[0].c_str(), given[1].c_str(),
                                          given[2].c_str(), given[3].c_str()};
    return taven::getncs(false, static_cast<int>(values.size()), values.data());
}

// --- the report that a file asks for, by the steps of its checks -------------------------------

std::u16string attributeOf(const judgedNode& node, std::u16string_view name)
{
    for (const auto& [known, value] : node.attributes)
        if (known == name) return value;
    return {};
}

string told(const question& asked, const char16_t* what, const std::u16string& subject)
{
    return u"File \"" + measuringPath(asked) + u"\" doesn't " + what + u" \"" + string(subject) +
           u"\"";
}

std::optional<string> refusalOfPoint(const judgedNode& point, const question& asked)
{
    std::set<std::u16string> seen;
    for (const judgedNode& axis : point.children) {
        const std::u16string name = attributeOf(axis, u"Name");
        const std::u16string folded = lowered(name);
        if (lowered(axis.name) != u"axis" || (folded != u"x" && folded != u"y" && folded != u"z"))
            continue;
        seen.insert(folded);
        double coordinate = 0;
        if (!typeconvert::convert(coordinate, string(axis.text)))
            return told(asked, u"contains unknown values for axis", name);
    }
    const std::u16string name = attributeOf(point, u"Name");
    if (seen.size() < 3) return told(asked, u"contains incomplete axis values for point", name);
    if (name.size() == 9 && name.starts_with(u"cylinder") && name[8] >= u'1' && name[8] <= u'4')
        return std::nullopt;
    return told(asked, u"contains unknown pointdata", name);
}

std::optional<string> refusalOf(const judgedNode& document, const question& asked)
{
    if (attributeOf(document, u"PlatformName") != std::u16string(asked.platform))
        return told(asked, u"contain data from platform", asked.platform);
    std::set<std::u16string> seen;
    for (const judgedNode& child : document.children) {
        if (lowered(child.name) != u"measuringpoint") continue;
        if (const auto refusal = refusalOfPoint(child, asked)) return refusal;
        seen.insert(attributeOf(child, u"Name"));
    }
    if (seen.size() == 4) return std::nullopt;
    return u"File \"" + measuringPath(asked) +
           u"\" doesn't contain all required four measuring points";
}

// What is shown, where points are refused or taken only once they are calculated with.
std::optional<string> judgedReport(const question& asked, const judgedNode& document,
                                   outcome loaded)
{
    double zoffset = 0;
    if (!typeconvert::convert(zoffset, asked.zoffset))
        return u"Error parsing zoffset value \"" + asked.zoffset + u"\" ";
    if (!machine::current().hasFile(measuringPath(asked))) return std::nullopt;
    if (loaded != outcome::done) return u"Error parsing file \"" + measuringPath(asked) + u"\" ";
    return refusalOf(document, asked);
}

void expectReport(const question& asked, const std::optional<string>& wanted)
{
    constexpr std::size_t mostUnits = 511; // of a report
    const string invalid =
        u"File \"" + measuringPath(asked) +
        u"\" contains invalid measuring points - Error calculating new coordinate system";
    expect(machine::current().boxes.size() == 1, "a refusal is told once");
    const string& shown = machine::current().boxes[0].text;
    const string expected = wanted.value_or(invalid);
    expect(shown == expected.substr(0, mostUnits), "by the first fault");
    expect(machine::current().content(resultPath) == oldResult,
           "and leaves an older answer as it was");
}

// --- the answer --------------------------------------------------------------------------------

std::array<double, 3> numbersOf(const xmlNode& frame, const char16_t* name)
{
    string text;
    expect(frame.getAttribute(name, text), "a frame has an origin and three axes");
    std::vector<string> pieces;
    text.split(u",", pieces);
    expect(pieces.size() == 3, "each of three coordinates");
    std::array<double, 3> numbers{};
    for (std::size_t i = 0; i < 3; ++i)
        expect(typeconvert::convert(numbers[i], pieces[i]), "which are numbers");
    return numbers;
}

double product(const std::array<double, 3>& a, const std::array<double, 3>& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Axes of length 1 that stand on each other. Points that are nearly no frame lose digits, and
// numbers that are hardly numbers give none.
void expectFrame(const xmlNode& node, const char16_t* name)
{
    expect(node.name == name && node.attributes.size() == 4, "the frames come behind the message");
    numbersOf(node, u"o");
    const auto x = numbersOf(node, u"x");
    const auto y = numbersOf(node, u"y");
    const auto z = numbersOf(node, u"z");
    if (!std::isfinite(product(x, x) + product(y, y) + product(z, z))) return;
    for (const auto* axis : {&x, &y, &z})
        expect(std::fabs(product(*axis, *axis) - 1) < 1e-6, "an axis has the length 1");
    const double most =
        std::max({std::fabs(product(x, y)), std::fabs(product(y, z)), std::fabs(product(z, x))});
    expect(most < 1e-3, "the axes stand on each other");
}

void expectDocument(const question& asked)
{
    const std::string written = machine::current().content(resultPath);
    const refptr<xmlDocument> document = xmlDocument::createDocument();
    const auto how = read([&] { document->parseBuffer(written.data(), written.size(), true); });
    expect(how == outcome::done, "the answer is a document");
    expect(document->name == u"getNCSResult" && document->attributes.empty(), "with its root");
    const xmlNode& message = *document->children.at(0);
    string type;
    expect(message.name == u"message" && message.getAttribute(u"type", type),
           "and a message first");
    if (!machine::current().hasFile(measuringPath(asked))) {
        expect(type == u"error" && document->children.size() == 1,
               "a platform without a file has an error alone");
        return;
    }
    expect(type == u"confirm" && document->children.size() == 3,
           "a measured platform has its two frames");
    expectFrame(*document->children[1], u"ncs");
    expectFrame(*document->children[2], u"cs");
}

} // namespace

// The parts: settings, the platform's name, the offset, and the file.
void measuring(bytes given)
{
    std::vector<bytes> parts = cut(given);
    if (parts.size() < 4) return;
    const std::size_t ahead = parts[0].size() + parts[1].size() + parts[2].size() + 3;
    const question asked{textOf(parts[1]).c_str(), textOf(parts[2]).c_str(), given.subspan(ahead)};
    // Such names lead to other folders, or make "&#x" in the answer.
    if (asked.platform.find_first_of(u"\\/.%\":&") != string::npos) return;
    judgedNode document;
    const auto loaded = judged([&] { judgeParseBuffer(document, asked.file, false); });
    if (!loaded) return; // it never ends, or ends the process

    prepare(asked, !parts[0].empty() && parts[0][0] % 2 != 0);
    const std::optional<string> report =
        judgedReport(asked, document,
                     asked.file.empty() ? outcome::done : *loaded); // an empty file is not parsed
    const std::int32_t code = ask(asked);
    expect(machine::current().openHandles() == 0, "each file is closed again");
    if (code == 0) return expectReport(asked, report);
    expect(code == 1 && !report && machine::current().boxes.empty(),
           "an answer is 1, and shows nothing");
    expectDocument(asked);
}

} // namespace orlo::fuzz
