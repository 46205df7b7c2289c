// Paths: the normal form, joining and taking apart, held against the steps taken literally.
#include "orlopath.h"

#include "input.h"
#include "support/machine.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace orlo::fuzz {

namespace {

using text = std::u16string;

// A path of nothing but this unit stays whole.
void trimEnd(text& path, char16_t unit)
{
    const std::size_t last = path.find_last_not_of(unit);
    if (last != text::npos) path.erase(last + 1);
}

// --- the normal form, step by step -----------------------------------------------------------

void expand(text& path)
{
    const std::size_t first = path.find(u'%');
    if (first == text::npos || first + 1 == path.size()) return;
    const std::size_t second = path.find(u'%', first + 1);
    if (second == text::npos || second == first + 1) return;
    const text name = path.substr(first + 1, second - first - 1);
    string value;
    if (getEnvironmentVariable(name.c_str(), value) && !value.empty())
        replaceEach(path, u"%" + name + u"%", value);
}

void unquote(text& path)
{
    if (path.empty() || path[0] != u'"') return;
    path.erase(0, 1);
    path = path.substr(0, path.find(u'\0'));
    path = path.substr(0, path.rfind(u'"'));
}

text currentDirectory()
{
    text current = tests::machine::current().workingDirectory;
    std::replace(current.begin(), current.end(), u'/', u'\\');
    return current.ends_with(u'\\') ? current : current + u"\\";
}

void makeAbsolute(text& path)
{
    if (path.starts_with(u"\\\\")) return;
    if (path.starts_with(u"\\"))
        path = text(1, static_cast<char16_t>(tests::machine::current().drive + 64)) + u":" + path;
    else if (path.size() >= 2 && path[1] == u':')
        return;
    else if (tests::machine::current().workingDirectory.size() >= 260)
        path.clear();
    else
        path = currentDirectory() + path;
}

void resolve(text& path)
{
    for (std::size_t hit = path.find(u"\\\\", 1); hit != text::npos; hit = path.find(u"\\\\", hit))
        path.erase(hit, 1);
    if (path.empty() || path.back() != u'\\') path += u'\\';
    for (std::size_t hit = path.find(u"\\..\\"); hit != text::npos; hit = path.find(u"\\..\\")) {
        const std::size_t before = hit == 0 ? text::npos : path.rfind(u'\\', hit - 1);
        if (before == text::npos)
            path.erase(hit, 3);
        else
            path.erase(before + 1, hit + 3 - before);
    }
    for (std::size_t hit = path.find(u"\\.\\"); hit != text::npos; hit = path.find(u"\\.\\"))
        path.erase(hit, 2);
}

text judgedNormal(text path, bool trailing)
{
    if (path.empty()) return path;
    expand(path);
    unquote(path);
    std::replace(path.begin(), path.end(), u'/', u'\\');
    makeAbsolute(path);
    resolve(path);
    trimEnd(path, u'\\');
    return trailing ? path + u"\\" : path;
}

// --- the four parts, step by step ------------------------------------------------------------

struct parts {
    string root;
    string directory;
    string name;
    string extension;
    bool operator==(const parts&) const = default;
};

bool hasDrive(const text& path)
{
    return path.size() >= 2 && path[1] == u':';
}

std::size_t rootLength(const text& path)
{
    if (hasDrive(path)) return 2;
    if (path.find(u"\\\\") != 0) return 0;
    return std::min(path.find(u'\\', 2), path.size());
}

parts judgedParts(const text& path, bool lastDot)
{
    if (path.empty()) return {};
    text root = path.substr(0, rootLength(path));
    text rest = path.substr(root.size());
    if (hasDrive(path))
        for (char16_t& unit : root)
            unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    while (!rest.empty() && (rest.back() == u'/' || rest.back() == u'\\')) rest.pop_back();
    const std::size_t separator = rest.find_last_of(u"/\\");
    const text directory = (separator == text::npos ? text() : rest.substr(0, separator)) + u"\\";
    const std::size_t start = root.size() + directory.size();
    text name = start < path.size() ? path.substr(start) : text();
    text extension;
    const std::size_t dot = lastDot ? name.rfind(u'.') : name.find(u'.');
    if (dot != text::npos) {
        extension = name.substr(dot + 1);
        name.erase(dot);
    }
    for (text* each : {&name, &extension})
        for (const char16_t unit : {u'\\', u'/'}) trimEnd(*each, unit);
    return {string(root), string(directory), string(name), string(extension)};
}

parts partsOf(const string& path, bool lastDot)
{
    parts found{u"old", u"old", u"old", u"old"};
    splitPath(path, found.root, found.directory, found.name, found.extension, lastDot);
    return found;
}

// The three that put parts together again, by the table of flags.
void expectJoined(const string& path, std::uint32_t flags)
{
    const auto has = [flags](std::uint32_t bit) { return (flags & bit) != 0; };
    const parts is = judgedParts(path, !has(4));
    const string dotted = is.extension.empty() ? string() : u"." + is.extension;

    string extension = is.extension;
    if (has(32)) extension = is.name + dotted;
    if (has(32) && has(16)) extension = is.directory + extension;
    if (has(32) && has(16) && has(8)) extension = is.root + extension;
    expect(pathExtension(path, flags) == extension, "pathExtension goes by its flags");

    string name = is.name;
    if (!has(2) || has(64)) name = name + dotted;
    if (has(16)) name = is.directory + name;
    if (has(16) && has(8)) name = is.root + name;
    expect(pathName(path, flags) == name, "pathName goes by its flags");

    string directory = is.directory;
    if ((flags & 9) != 1) directory = is.root + directory;
    if (has(32)) directory = directory + is.name;
    if (has(32) && has(64)) directory = directory + dotted;
    expect(pathDirectory(path, flags) == directory, "pathDirectory goes by its flags");
}

void expectParts(const string& path, std::uint32_t flags)
{
    if (path.size() == 1) {
        try {
            partsOf(path, true);
        } catch (const std::out_of_range& failure) {
            return expect(std::string(failure.what()) == "invalid string position",
                          "the failure has its text");
        }
        return expect(false, "a path of one unit is refused");
    }
    for (const bool lastDot : {true, false})
        expect(partsOf(path, lastDot) == judgedParts(path, lastDot),
               "the parts are those of the steps");
    const parts is = judgedParts(path, true);
    expect(pathRoot(path) == is.root, "pathRoot is the root");
    const bool drive = is.root.size() == 2 && is.root[1] == u':';
    expect(pathDriveLetter(path) == (drive ? is.root[0] : u' '),
           "pathDriveLetter is that of the root, or a blank");
    expectJoined(path, flags);
}

// --- what holds of every normal form ---------------------------------------------------------

bool isRooted(const text& path)
{
    return path.starts_with(u"\\\\") || (path.size() > 1 && path[1] == u':' && path[0] != u'\\');
}

void expectNormal(const string& path)
{
    if (path.find_first_not_of(u'\\') == string::npos)
        return; // a text of backslashes is left whole
    expect(path.find(u'/') == string::npos, "a normal form has backslashes only");
    expect(path.find(u"\\\\", 1) == string::npos, "no separator is doubled behind the first unit");
    expect(path.back() != u'\\', "a normal form ends in no separator");
    const text closed = path + u"\\";
    expect(closed.find(u"\\.\\") == text::npos && closed.find(u"\\..\\") == text::npos,
           "no segment is . or ..");
    if (!isRooted(path) || path.find(u'%') != string::npos || path[0] == u'"') return;
    expect(normalizePath(path, false) == path, "a normal form is its own");

    const parts is = partsOf(path, true);
    if (is.root.size() >= path.size()) return;
    const string begin = is.root + is.directory + is.name;
    const string whole = is.extension.empty() ? begin : begin + u"." + is.extension;
    const bool endsInDot = is.extension.empty() && path.back() == u'.';
    if (path[is.root.size()] != u'\\') return; // the name loses its first unit
    expect((endsInDot ? whole + u"." : whole).substr(1) == path.substr(1),
           "the parts give the path again");
}

void expectNormalForms(const string& path)
{
    for (const bool trailing : {false, true})
        expect(normalizePath(path, trailing) == string(judgedNormal(path, trailing)),
               "the normal form is that of the steps");
    if (!path.empty()) expectNormal(normalizePath(path, false));

    string ensured = path;
    ensureTrailingSeparator(ensured);
    text wanted = path;
    trimEnd(wanted, u'\\');
    expect(ensured == string(wanted.empty() ? wanted : wanted + u"\\"),
           "a trailing separator is ensured");
}

} // namespace

// The parts: flags, a path, a second one, and the values of the variables X and Y.
void paths(bytes given)
{
    std::vector<bytes> pieces = cut(given);
    pieces.resize(5);
    input settings(pieces[0]);
    const std::uint32_t flags = settings.byte() & 0x7F;
    static const std::array<string, 4> directories{u"C:\\work", u"D:\\", u"C:/a/.b",
                                                   string(text(260, u'd'))};
    tests::machine& here = tests::machine::renew();
    here.workingDirectory = directories[settings.byte() % directories.size()];
    here.drive = 1 + settings.byte() % 26;
    here.environment = {{u"X", textOf(pieces[3]).c_str()}, {u"Y", textOf(pieces[4]).c_str()}};

    const string path = textOf(pieces[1]);
    const string relative = textOf(pieces[2]);
    expectNormalForms(path);
    expectParts(path, flags);
    const string normal = normalizePath(path, false);
    expectParts(normal, flags);

    text joined = path.empty() ? text() : path + u"\\";
    if (!joined.empty()) joined += relative;
    for (const bool trailing : {false, true})
        expect(combinePath(path, relative, trailing) == string(judgedNormal(joined, trailing)),
               "two paths are joined and brought to the normal form");
}

} // namespace orlo::fuzz
