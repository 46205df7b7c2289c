#include "check.h"

#include "linechecks.h"
#include "listing.h"
#include "orlodirectory.h"
#include "orlopath.h"
#include "report.h"
#include "textchecks.h"

#include <algorithm>
#include <new>
#include <optional>
#include <vector>

namespace orlo::languagecheck {

namespace {

constexpr const char16_t* fileName = u"language.loc";

constexpr const char* usage =
    "orloLanguageCheck [--reference LANGUAGE|FILE] [--list] FILE|FOLDER...\n"
    "\n"
    "Looks for slips in language files, and prints one finding a line:\n"
    "file:line: error|warning: text. A folder is that of a language or of several.\n"
    "\n"
    "  --reference LANGUAGE|FILE  also compares keys and places with this language\n"
    "  --list                     prints what each key would show, instead of findings\n"
    "  --help                     prints this\n"
    "\n"
    "The exit code is 1 if there are errors, 2 if the call is wrong, and 0 otherwise.\n";

// --- The command line ------------------------------------------------------------------------

struct options {
    std::vector<string> names;
    string reference;
    bool list = false;
    bool help = false;
};

// False if they can't be understood.
bool readOptions(int argumentCount, const char16_t* const* arguments, options& given)
{
    for (int index = 1; index < argumentCount; ++index) {
        const string argument = arguments[index];
        if (argument == u"--list") {
            given.list = true;
        } else if (argument == u"--help") {
            given.help = true;
        } else if (argument == u"--reference") {
            if (++index == argumentCount) return false;
            given.reference = arguments[index];
        } else if (argument.starts_with(u"--") || argument.empty()) {
            return false;
        } else {
            given.names.push_back(argument);
        }
    }
    return given.help || !given.names.empty();
}

// Lines of a report end by themselves.
answer complain(const std::string& text)
{
    const char* const end = text.ends_with('\n') ? "" : "\n";
    return {wrongUse, {}, "orloLanguageCheck: " + text + end};
}

// --- What is looked at -----------------------------------------------------------------------

bool isThere(const namedFile& which)
{
    fileStatus status;
    return which.where.stat(status);
}

bool isFolder(const namedFile& which)
{
    fileStatus status;
    return which.where.stat(status) && (status.mode & fileStatus::directoryBit) != 0;
}

// Named as the user has begun: with his separators.
string shownBelow(const string& folder, const string& name)
{
    if (folder.ends_with(u'/') || folder.ends_with(u'\\')) return folder + name;
    return folder + (folder.find(u'\\') == string::npos ? u"/" : u"\\") + name;
}

namedFile named(const string& shown)
{
    return {file(normalizePath(shown, false)), shown};
}

std::vector<string> languagesIn(const directory& folder)
{
    std::vector<string> names;
    auto hit = folder.findDirectories(u"*", skipHiddenAndSystem);
    for (; !hit.path().empty(); hit.next())
        names.push_back(pathName(normalizePath(hit.path(), false)));
    std::sort(names.begin(), names.end());
    return names;
}

// The file that was named, or those in the folder of a language or of several.
std::vector<namedFile> filesOf(const string& name, report& findings)
{
    const namedFile given = named(name);
    if (!isFolder(given)) return {given};

    std::vector<namedFile> found;
    const namedFile own = named(shownBelow(name, fileName));
    if (isThere(own)) found.push_back(own);
    for (const string& language : languagesIn(directory(given.where.path()))) {
        const string below = shownBelow(name, language);
        const namedFile each = named(shownBelow(below, fileName));
        if (isThere(each))
            found.push_back(each);
        else if (found.empty() || found.front().shown != own.shown)
            findings.warning({below}, u"the folder holds no %s", {fileName});
    }
    return found;
}

// --- The reference ---------------------------------------------------------------------------

// A language beside those that are looked at, or else a file or a folder by its path.
std::optional<namedFile> findReference(const options& given)
{
    std::vector<string> places;
    for (const string& name : given.names) {
        const string languages = normalizePath(name, false);
        places.push_back(
            combinePath(combinePath(languages, given.reference, false), fileName, false));
        const string upwards = u"..\\" + given.reference;
        places.push_back(combinePath(combinePath(languages, upwards, false), fileName, false));
        places.push_back(
            combinePath(combinePath(pathDirectory(languages), upwards, false), fileName, false));
    }
    const string path = normalizePath(given.reference, false);
    places.push_back(path);
    places.push_back(combinePath(path, fileName, false));
    for (const string& each : places) {
        if (file(each).exists()) return namedFile{file(each), given.reference};
    }
    return std::nullopt;
}

// --- The run ---------------------------------------------------------------------------------

void checkLanguage(const language& of, const language* reference, report& findings)
{
    for (const source& each : of.tree.files) checkLines(each, findings);
    checkAliases(of, findings);
    if (reference != nullptr) compareTexts(of, *reference, findings);
}

answer check(const options& given, const language* reference)
{
    report findings;
    std::string list;
    for (const string& name : given.names) {
        const std::vector<namedFile> files = filesOf(name, findings);
        if (files.empty()) return complain(utf8(name) + ": no language file in this folder");
        for (const namedFile& each : files) {
            const language read = readLanguage(each, findings);
            if (given.list)
                list += listing(read, reference);
            else
                checkLanguage(read, reference, findings);
        }
    }
    const exitCode code = findings.hasErrors() ? someErrors : noErrors;
    return {code, list + findings.text(), {}};
}

answer checkAgainstReference(const options& given)
{
    if (given.reference.empty()) return check(given, nullptr);
    const std::optional<namedFile> found = findReference(given);
    if (!found) return complain(utf8(given.reference) + ": no such reference");
    report ofReference;
    const language reference = readLanguage(*found, ofReference);
    if (reference.tree.files.empty()) return complain(ofReference.text());
    return check(given, &reference);
}

} // namespace

answer run(int argumentCount, const char16_t* const* arguments)
try {
    options given;
    if (!readOptions(argumentCount, arguments, given)) return {wrongUse, {}, usage};
    if (given.help) return {noErrors, usage, {}};
    return checkAgainstReference(given);
} catch (const std::bad_alloc&) {
    return complain("not enough memory");
}

} // namespace orlo::languagecheck
