#include "orlofsentry.h"

#include "orlopath.h"
#include "platform/platform.h"

#include <utility>

namespace orlo {

fsEntry::fsEntry(const string& path, const string& second, bool trailing)
    : m_path(second.empty() ? path : combinePath(path, second, false)),
      m_trailingSeparator(trailing)
{
    if (m_trailingSeparator) ensureTrailingSeparator(m_path);
}

fsEntry::fsEntry(joining, const string& base, const string& name, bool trailing)
    : m_path(combinePath(base, name, trailing)), m_trailingSeparator(trailing)
{}

void fsEntry::setPath(const string& newPath)
{
    string complete = newPath;
    if (m_trailingSeparator) ensureTrailingSeparator(complete);
    m_path = std::move(complete);
}

bool fsEntry::exists() const
{
    return !m_path.empty() && platform::access(m_path, accessExistence);
}

bool fsEntry::isRemote() const
{
    if (m_path.starts_with(u"\\\\")) return true;
    if (pathDriveLetter(m_path) == u' ') return false;
    return platform::driveType(pathRoot(m_path) + u"\\") == platform::remoteDrive;
}

} // namespace orlo
