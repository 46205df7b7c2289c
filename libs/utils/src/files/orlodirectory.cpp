#include "orlodirectory.h"

#include "orlofile.h"
#include "orlofilestatus.h"
#include "orlopath.h"
#include "platform/platform.h"

#include <utility>

namespace orlo {

directory::directory(const string& path, const string& second) : fsEntry(path, second, true) {}

void directory::setPath(const string& newPath)
{
    fsEntry::setPath(normalizePath(newPath, false));
}

bool directory::rename(const string& newName)
{
    if (m_path.empty()) return false;
    const string target = pathDirectory(m_path) + newName;
    directory renamed(normalizePath(target, false));
    if (!platform::renameEntry(m_path, target)) return false;
    *this = std::move(renamed); // the directory has moved, so this must not fail
    return true;
}

fileSearch directory::findFiles(const string& pattern, std::uint32_t skipAttributes) const
{
    return {*this, pattern, skipAttributes};
}

directorySearch directory::findDirectories(const string& pattern,
                                           std::uint32_t skipAttributes) const
{
    return {*this, pattern, skipAttributes};
}

directorySearch::directorySearch(const directory& where, const string& pattern,
                                 std::uint32_t skipAttributes)
    : m_basePath(where.path()), m_search(skipAttributes, attributeSubdirectory)
{
    if (m_search.start(m_basePath + pattern))
        fsEntry::setPath(combinePath(m_basePath, m_search.name(), false));
    else
        next();
}

void directorySearch::next()
{
    m_path.clear();
    while (m_path.empty() && m_search.next()) setPath(m_basePath + m_search.name());
}

namespace {

bool textToDirectory(directory& to, const string& from, unsigned, const typeconvert::argumentList&)
{
    to.setPath(from);
    return !to.path().empty();
}

bool directoryToText(string& to, const directory& from, unsigned, const typeconvert::argumentList&)
{
    to = from.path();
    return !to.empty();
}

} // namespace

typeconvert::converterList detail::directoryConverters()
{
    static constexpr typeconvert::typeConverter<string, directory> fromText{textToDirectory};
    static constexpr typeconvert::typeConverter<directory, string> toText{directoryToText};
    static constexpr const typeconvert::typeConverterBase* all[] = {&fromText, &toText};
    return all;
}

} // namespace orlo
