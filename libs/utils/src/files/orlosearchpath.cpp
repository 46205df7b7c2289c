#include "orlosearchpath.h"

#include "orlomodule.h"
#include "orlopath.h"

#include <algorithm>

namespace orlo {

namespace {

constexpr std::u16string_view blanks = u" \t";
constexpr char16_t textDelimiter = u';';

// The way down is a list of searches, one for each level, so that a deep tree needs no deep
// call stack.
bool findBelow(const directory& top, const string& name, directory& out)
{
    std::vector<directorySearch> levels;
    levels.push_back(top.findDirectories(u"*.*", skipHiddenAndSystem));
    while (!levels.empty()) {
        if (levels.back().path().empty()) {
            levels.pop_back();
            continue;
        }
        const directory hit = levels.back();
        levels.back().next();
        if (file(hit, name).exists()) {
            out = hit;
            return true;
        }
        levels.push_back(hit.findDirectories(u"*.*", skipHiddenAndSystem));
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
    for (string& piece : pieces) {
        piece.trimLeft(blanks).trimRight(blanks);
        if (piece.empty()) continue;
        // Any leading dot counts, that of ".hidden" too.
        const directory entry = piece[0] == u'.' ? directory(base.path(), piece)
                                                 : directory(normalizePath(piece, false));
        if (entry.exists()) addDirectory(entry);
    }
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
