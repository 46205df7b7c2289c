#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orlo::platform {

namespace {

constexpr unsigned driveMissing = 1;
constexpr unsigned driveFixed = 3;

std::string withoutTrailingSlashes(const std::string& path)
{
    return path.substr(0, path.find_last_not_of('/') + 1);
}

bool isThere(const std::string& path)
{
    struct stat found;
    return ::lstat(path.c_str(), &found) == 0;
}

// For file systems that can't refuse an existing target themselves.
bool renameIfFree(const std::string& from,
                  const std::string& to) // GCOV_EXCL_LINE: needs such a file system
{
    return !isThere(to) && ::rename(from.c_str(), to.c_str()) == 0; // GCOV_EXCL_LINE: the same
}

} // namespace

bool access(const string& path, unsigned mode)
{
    int wanted = F_OK;
    if (mode & accessWrite) wanted |= W_OK;
    if (mode & accessRead) wanted |= R_OK;
    return ::access(nativePath(path).c_str(), wanted) == 0;
}

bool queryStatus(const string& path, fileStatus& out)
{
    struct stat found;
    if (::stat(nativePath(path).c_str(), &found) != 0) return false;
    out.mode = found.st_mode;
    out.size = found.st_size;
    out.modificationTime = found.st_mtime;
    return true;
}

std::optional<entryIdentity> identityOf(const string& path)
{
    struct stat found;
    if (::stat(nativePath(path).c_str(), &found) != 0) return std::nullopt;
    return entryIdentity{found.st_dev, found.st_ino};
}

bool createFile(const string& path, unsigned permission)
{
    // Who may write a file may read it, as on Windows; the rest is left to the user's mask.
    const mode_t mode = permission & permissionToWrite ? 0666 : 0444;
    const int made = ::open(nativePath(path).c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    return made >= 0 && ::close(made) == 0;
}

bool removeFile(const string& path)
{
    return ::unlink(nativePath(path).c_str()) == 0;
}

bool renameEntry(const string& from, const string& to)
{
    const std::string source = nativePath(from);
    const std::string target = nativePath(to);
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Windows takes an entry's own name for a new one.
    if (errno == EEXIST) return withoutTrailingSlashes(source) == withoutTrailingSlashes(target);
    return (errno == EINVAL || errno == ENOSYS) && renameIfFree(source, target);
}

unsigned driveType(const string& root)
{
    return isThere(nativePath(root)) ? driveFixed : driveMissing;
}

} // namespace orlo::platform
