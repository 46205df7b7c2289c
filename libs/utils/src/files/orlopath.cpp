// The normal form comes about in steps on one copy of the text, each of which counts on those
// before it: a variable, the quotes, one kind of separator, the way from the root, no doubled
// separators. Then a separator closes the last segment too, so that "\..\" and "\.\" find whole
// segments as plain text, and at the end it goes again. Nearly normal paths, as those of search
// hits are, only lose doubled separators and those at their end.
#include "orlopath.h"

#include "platform/platform.h"

#include <algorithm>
#include <utility>

namespace orlo {

namespace {

constexpr char16_t separator = u'\\';
constexpr std::u16string_view anySeparator = u"\\/";

struct pathParts {
    string root;
    string directory;
    string name;
    string extension;
};

pathParts partsOf(const string& path, std::uint32_t flags)
{
    pathParts parts;
    splitPath(path, parts.root, parts.directory, parts.name, parts.extension,
              (flags & extensionAtFirstDot) == 0);
    return parts;
}

string dotted(const string& extension)
{
    return extension.empty() ? extension : u"." + extension;
}

bool isNetworkPath(const string& path)
{
    return path.starts_with(u"\\\\");
}

bool hasDrive(const string& path)
{
    return path.size() >= 2 && path[1] == u':';
}

bool isAbsolute(const string& path)
{
    return isNetworkPath(path) || (hasDrive(path) && path[0] != separator);
}

// True for an absolute path in which at most the end and doubled separators can differ from
// the normal form. Nearly all paths are like that, those of search hits above all.
bool isNearlyNormal(const string& path)
{
    if (!isAbsolute(path)) return false;
    if (path[0] == u'"' || path[0] == u'%' || path[0] == u'/') return false;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const char16_t unit = path[i];
        if (unit == u'%' || unit == u'/') return false;
        // path[size] is the zero unit behind the text.
        if (unit == separator && path[i + 1] == u'.') return false;
    }
    return true;
}

// Only the first name between percent signs is expanded, but at all its places.
void expandVariable(string& path)
{
    const std::size_t first = path.find(u'%');
    if (first == string::npos) return;
    const std::size_t second = path.find(u'%', first + 1);
    if (second == string::npos || second == first + 1) return;
    const string marked = path.substr(first, second + 1 - first);
    string value;
    if (getEnvironmentVariable(marked.substr(1, marked.size() - 2).c_str(), value))
        path.replaceAll(marked, value);
}

// What follows the closing quote is lost; the closing quote itself may be missing.
void removeQuotes(string& path)
{
    if (path.empty() || path[0] != u'"') return;
    path.erase(0, 1);
    path.erase(std::min(path.find(u'\0'), path.size()));
    path.erase(std::min(path.rfind(u'"'), path.size()));
}

void putCurrentDirectoryBefore(string& path)
{
    string current;
    if (!platform::currentDirectory(current)) {
        path.clear();
        return;
    }
    current.replaceChar(u'/', separator);
    if (!current.ends_with(separator)) current.push_back(separator);
    path.insert(0, current);
}

void makeAbsolute(string& path)
{
    if (isAbsolute(path)) return;
    if (!path.starts_with(separator)) {
        putCurrentDirectoryBefore(path);
        return;
    }
    const char16_t drive[] = {static_cast<char16_t>(platform::currentDrive() + 64), u':'};
    path.insert(0, std::u16string_view(drive, 2));
}

// The first unit is spared, for the sake of network paths.
void collapseSeparators(string& path)
{
    if (path.empty()) return;
    const auto doubled = [](char16_t a, char16_t b) { return a == separator && b == separator; };
    path.erase(std::unique(path.begin() + 1, path.end(), doubled), path.end());
}

// All ".." go before any ".", so in "a\.\..\b" the "." is what ".." removes. A ".." above the
// root just vanishes.
void resolveParents(string& path)
{
    static constexpr std::u16string_view parent = u"\\..\\";
    for (std::size_t hit = path.find(parent); hit != string::npos;) {
        const std::size_t before = hit == 0 ? string::npos : path.rfind(separator, hit - 1);
        if (before == string::npos) {
            path.erase(hit, parent.size() - 1);
            hit = path.find(parent, hit);
        } else {
            path.erase(before + 1, hit + parent.size() - 1 - before);
            hit = path.find(parent, before);
        }
    }
}

void removeSelfReferences(string& path)
{
    static constexpr std::u16string_view self = u"\\.\\";
    for (std::size_t hit = path.find(self); hit != string::npos; hit = path.find(self, hit))
        path.erase(hit, self.size() - 1);
}

std::size_t rootLength(const string& path)
{
    if (hasDrive(path)) return 2;
    if (!isNetworkPath(path)) return 0;
    return std::min(path.find(separator, 2), path.size());
}

// Works on its own copy, which a caller who needs his no longer moves in.
string normalized(string path, bool trailing)
{
    if (path.empty()) return path;
    const bool nearlyNormal = isNearlyNormal(path);
    if (!nearlyNormal) {
        expandVariable(path);
        removeQuotes(path);
        path.replaceChar(u'/', separator);
        makeAbsolute(path);
    }
    collapseSeparators(path);
    if (!nearlyNormal) {
        // From here on each segment is closed, so that whole segments can be found as text.
        if (!path.ends_with(separator)) path.push_back(separator);
        resolveParents(path);
        removeSelfReferences(path);
    }
    path.trimRight(separator);
    if (trailing) path.push_back(separator);
    return path;
}

} // namespace

string normalizePath(const string& text, bool trailing)
{
    return normalized(text, trailing);
}

bool getEnvironmentVariable(const char16_t* name, string& value)
{
    return platform::environmentVariable(name, value) && !value.empty();
}

string combinePath(const string& base, const string& relative, bool trailing)
{
    // Without a base the relative text is lost too, which callers count on.
    if (base.empty()) return {};
    string path;
    path.reserve(base.size() + 1 + relative.size());
    path.append(base).append(1, separator).append(relative);
    return normalized(std::move(path), trailing);
}

void ensureTrailingSeparator(string& path)
{
    path.trimRight(separator);
    if (!path.empty()) path.push_back(separator);
}

void splitPath(const string& path, string& root, string& directory, string& name, string& extension,
               bool lastDot)
{
    for (string* part : {&root, &directory, &name, &extension}) part->clear();
    if (path.empty()) return;
    static_cast<void>(path.at(1)); // raises for a path of one unit

    root = path.substr(0, rootLength(path));
    if (hasDrive(path)) root.toUpper();
    const string rest = path.substr(root.size()).trimRight(anySeparator);
    const std::size_t lastSeparator = rest.find_last_of(anySeparator);
    if (lastSeparator != string::npos) directory = rest.substr(0, lastSeparator);
    directory.push_back(separator);

    // One unit too far where no separator stands behind the root; normal forms have one.
    const std::size_t nameStart = root.size() + directory.size();
    if (nameStart < path.size()) name = path.substr(nameStart);
    const std::size_t dot = lastDot ? name.rfind(u'.') : name.find(u'.');
    if (dot != string::npos) {
        extension = name.substr(dot + 1);
        name.erase(dot);
    }
    name.trimRight(separator).trimRight(u'/');
    extension.trimRight(separator).trimRight(u'/');
}

string pathRoot(const string& path)
{
    return partsOf(path, 0).root;
}

char16_t pathDriveLetter(const string& path)
{
    const string root = pathRoot(path);
    return root.size() == 2 && hasDrive(root) ? root[0] : u' ';
}

string pathExtension(const string& path, std::uint32_t flags)
{
    const pathParts parts = partsOf(path, flags);
    if ((flags & withName) == 0) return parts.extension;
    string fullName = parts.name + dotted(parts.extension);
    if ((flags & withDirectory) == 0) return fullName;
    return ((flags & withRoot) != 0 ? parts.root : string()) + parts.directory + fullName;
}

string pathName(const string& path, std::uint32_t flags)
{
    const pathParts parts = partsOf(path, flags);
    string result;
    if ((flags & withDirectory) != 0) {
        if ((flags & withRoot) != 0) result = parts.root;
        result.append(parts.directory);
    }
    result.append(parts.name);
    if ((flags & withoutExtension) == 0 || (flags & withExtension) != 0)
        result.append(dotted(parts.extension));
    return result;
}

string pathDirectory(const string& path, std::uint32_t flags)
{
    const pathParts parts = partsOf(path, flags);
    string result;
    if ((flags & (withoutRoot | withRoot)) != withoutRoot) result = parts.root;
    result.append(parts.directory);
    if ((flags & withName) != 0) {
        result.append(parts.name);
        if ((flags & withExtension) != 0) result.append(dotted(parts.extension));
    }
    return result;
}

} // namespace orlo
