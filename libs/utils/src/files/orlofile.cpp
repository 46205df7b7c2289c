#include "orlofile.h"

#include "orlopath.h"
#include "platform/platform.h"

#include <utility>

namespace orlo {

file::file(const string& path) : fsEntry(path, string::emptyString(), false) {}

file::file(const string& basePath, const string& name)
    : fsEntry(joining::always, basePath, name, false)
{}

file::file(const fsEntry& base, const string& name) : file(base.path(), name) {}

bool file::exists() const
{
    // A status tells existence too.
    fileStatus status;
    return stat(status) && (status.mode & fileStatus::directoryBit) == 0;
}

bool file::hasAccess(unsigned mode) const
{
    return !m_path.empty() && platform::access(m_path, mode);
}

bool file::isReadable() const
{
    return hasAccess(accessRead);
}

bool file::isWritable() const
{
    if (hasAccess(accessWrite) && exists()) return true;
    return create(accessWrite) && remove();
}

bool file::copyTo(const file& target, bool overwriteTarget) const
{
    return !m_path.empty() && !target.m_path.empty() &&
           platform::copyFile(m_path, target.m_path, !overwriteTarget);
}

bool file::create(unsigned mode) const
{
    const unsigned permissions = (mode & (accessWrite | accessRead)) * platform::permissionFactor;
    return !m_path.empty() && !exists() && platform::createFile(m_path, permissions);
}

bool file::stat(fileStatus& status) const
{
    return !m_path.empty() && platform::queryStatus(m_path, status);
}

std::int64_t file::modificationTime() const
{
    fileStatus status;
    return stat(status) ? status.modificationTime : 0;
}

std::int32_t file::size() const
{
    fileStatus status;
    return stat(status) ? static_cast<std::int32_t>(status.size) : 0;
}

bool file::remove() const
{
    return exists() && platform::removeFile(m_path);
}

bool file::rename(const string& newName)
{
    if (m_path.empty()) return false;
    file target(combinePath(pathDirectory(m_path), newName, false));
    if (target.exists() || !platform::renameEntry(m_path, target.m_path)) return false;
    *this = std::move(target); // the file has moved, so this must not fail
    return true;
}

fileSearch::fileSearch(const fsEntry& where, const string& pattern, std::uint32_t skipAttributes)
    : m_hitPrefix(where.path()), m_search(skipAttributes | attributeSubdirectory, 0)
{
    // A prefix in the normal form lets each hit's path be normal as it is put together.
    if (m_hitPrefix.empty() || normalizePath(m_hitPrefix, true) != m_hitPrefix)
        m_hitPrefix.push_back(u'\\');
    if (m_search.start(where.path() + pattern))
        takeHit();
    else
        next();
}

void fileSearch::next()
{
    m_path.clear();
    while (m_path.empty() && m_search.next()) takeHit();
}

void fileSearch::takeHit()
{
    m_path = normalizePath(m_hitPrefix + m_search.name(), false);
}

namespace {

bool textToFile(file& to, const string& from, unsigned, const typeconvert::argumentList&)
{
    to = file(normalizePath(from, false));
    return !to.path().empty();
}

bool fileToText(string& to, const file& from, unsigned, const typeconvert::argumentList&)
{
    to = from.path();
    return !to.empty();
}

} // namespace

typeconvert::converterList detail::fileConverters()
{
    static constexpr typeconvert::typeConverter<string, file> fromText{textToFile};
    static constexpr typeconvert::typeConverter<file, string> toText{fileToText};
    static constexpr const typeconvert::typeConverterBase* all[] = {&fromText, &toText};
    return all;
}

} // namespace orlo
