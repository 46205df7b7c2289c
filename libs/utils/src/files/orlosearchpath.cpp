#include "orlosearchpath.h"

#include "orlofile.h"
#include "orlofilestatus.h"
#include "orlomodule.h"
#include "orlopath.h"
#include "platform/platform.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace orlo {

namespace {

constexpr std::u16string_view aroundPath = u" \t";
constexpr char16_t textDelimiter = u';';

// A directory on the way down, and what of it is still to be entered.
struct level {
    std::optional<platform::entryIdentity> identity;
    std::vector<directory> ahead; // the next one last
};

// All at once, so that no search is open while the way goes on: a process may have only so many.
std::vector<directory> directoriesIn(const directory& where)
{
    std::vector<directory> found;
    auto hit = where.findDirectories(u"*.*", skipHiddenAndSystem);
    for (; !hit.path().empty(); hit.next()) found.push_back(hit);
    std::reverse(found.begin(), found.end());
    return found;
}

bool isOnTheWay(const std::vector<level>& levels,
                const std::optional<platform::entryIdentity>& identity)
{
    return identity && std::any_of(levels.begin(), levels.end(), [&identity](const level& above) {
               return above.identity == identity;
           });
}

// The way down is a list of levels, so that a deep tree needs no deep call stack. A link may
// lead back to a directory on the way, where the descent would go round for ever.
bool findBelow(const directory& top, const string& name, directory& out)
{
    std::vector<level> levels;
    levels.push_back({platform::identityOf(top.path()), directoriesIn(top)});
    while (!levels.empty()) {
        std::vector<directory>& ahead = levels.back().ahead;
        if (ahead.empty()) {
            levels.pop_back();
            continue;
        }
        directory next = std::move(ahead.back());
        ahead.pop_back();
        const auto identity = platform::identityOf(next.path());
        if (isOnTheWay(levels, identity)) continue;
        if (file(next, name).exists()) {
            out = std::move(next);
            return true;
        }
        levels.push_back({identity, directoriesIn(next)});
    }
    return false;
}

} // namespace

void searchPath::addDirectory(const directory& entry)
{
    if (!containsDirectory(entry)) m_directories.push_back(entry);
}

bool searchPath::containsDirectory(const directory& entry) const
{
    const string sought = entry.path().lowerCopy();
    return std::any_of(
        m_directories.begin(), m_directories.end(),
        [&sought](const directory& known) { return known.path().lowerCopy() == sought; });
}

bool searchPath::findInDirectories(const string& name, directory& out, bool recursive) const
{
    for (const directory& entry : m_directories) {
        if (file(entry, name).exists()) {
            out = entry;
            return true;
        }
        if (recursive && findBelow(entry, name, out)) return true;
    }
    return false;
}

bool searchPath::findFile(const string& name, file& out, bool recursive) const
{
    directory where;
    if (!findInDirectories(name, where, recursive)) return false;
    out = file(where, name);
    return true;
}

void searchPath::parse(const string& text, const directory& base, char16_t delimiter)
{
    std::vector<string> pieces;
    text.split(std::u16string_view(&delimiter, 1), pieces);
    // Added at the end, as the base may be an entry of this list, which grows.
    std::vector<directory> found;
    for (string& piece : pieces) {
        piece.trimLeft(aroundPath).trimRight(aroundPath);
        if (piece.empty()) continue;
        // Any leading dot counts, that of ".hidden" too.
        directory entry = piece[0] == u'.' ? directory(base.path(), piece)
                                           : directory(normalizePath(piece, false));
        if (entry.exists()) found.push_back(std::move(entry));
    }
    for (const directory& entry : found) addDirectory(entry);
}

namespace {

// What the target holds already stays before the new directories.
bool textToSearchPath(searchPath& to, const string& from, unsigned,
                      const typeconvert::argumentList&)
{
    directory program;
    getModuleDirectory(string::emptyString(), program);
    to.parse(from, program, textDelimiter);
    return true;
}

bool searchPathToText(string& to, const searchPath& from, unsigned,
                      const typeconvert::argumentList&)
{
    string text;
    for (const directory& entry : from.directories()) {
        if (&entry != &from.directories().front()) text.push_back(textDelimiter);
        text.append(entry.path());
    }
    to.swap(text);
    return true;
}

} // namespace

typeconvert::converterList detail::searchPathConverters()
{
    static constexpr typeconvert::typeConverter<string, searchPath> fromText{textToSearchPath};
    static constexpr typeconvert::typeConverter<searchPath, string> toText{searchPathToText};
    static constexpr const typeconvert::typeConverterBase* all[] = {&fromText, &toText};
    return all;
}

} // namespace orlo
