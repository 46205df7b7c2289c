#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <wchar.h>

namespace orlo::platform {

bool access(const string& path, unsigned mode)
{
    return ::_waccess(wide(path), static_cast<int>(mode)) == 0;
}

bool queryStatus(const string& path, fileStatus& out)
{
    // The record with a 64-bit size answers for files beyond 2 GB too.
    struct _stat64 found;
    if (::_wstat64(wide(path), &found) != 0) return false;
    out.mode = found.st_mode;
    out.size = found.st_size;
    out.modificationTime = found.st_mtime;
    return true;
}

std::optional<entryIdentity> identityOf(const string& path)
{
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE opened = ::CreateFileW(wide(path), 0, shared, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return std::nullopt;
    BY_HANDLE_FILE_INFORMATION found;
    const bool told = ::GetFileInformationByHandle(opened, &found) != FALSE;
    ::CloseHandle(opened);
    if (!told) return std::nullopt;
    const std::uint64_t number = std::uint64_t{found.nFileIndexHigh} << 32 | found.nFileIndexLow;
    return entryIdentity{found.dwVolumeSerialNumber, number};
}

bool createFile(const string& path, unsigned permission)
{
    // Never over a file that came into being a moment ago.
    const int flags = _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT;
    const int made = ::_wopen(wide(path), flags, static_cast<int>(permission));
    return made >= 0 && ::_close(made) == 0;
}

bool removeFile(const string& path)
{
    return ::_wremove(wide(path)) == 0;
}

bool renameEntry(const string& from, const string& to)
{
    return ::_wrename(wide(from), wide(to)) == 0;
}

bool copyFile(const string& source, const string& target, bool failIfExists)
{
    return ::CopyFileW(wide(source), wide(target), failIfExists ? TRUE : FALSE) != FALSE;
}

unsigned driveType(const string& root)
{
    return ::GetDriveTypeW(wide(root));
}

} // namespace orlo::platform
