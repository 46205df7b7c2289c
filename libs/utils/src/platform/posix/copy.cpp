#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace orlo::platform {

namespace {

// What one call moves at most within the kernel, and through a buffer of our own.
constexpr std::size_t rangeSize = std::size_t{1} << 30;
constexpr std::size_t blockSize = std::size_t{1} << 18;

class descriptor {
public:
    explicit descriptor(int number) : m_number(number) {}
    descriptor(const descriptor&) = delete;
    descriptor& operator=(const descriptor&) = delete;
    ~descriptor() { close(); }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    // False if what was written could not be kept.
    bool close()
    {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
};

enum class outcome { done, failed, unsupported };

// Moves the content within the kernel.
outcome copyRanges(int from, int to)
{
    for (bool started = false;;) {
        const ssize_t moved = ::copy_file_range(from, nullptr, to, nullptr, rangeSize, 0);
        started = started || moved > 0;
        if (moved > 0 || (moved < 0 && errno == EINTR)) continue;
        // Some file systems report nothing to copy instead of refusing.
        if (!started) return outcome::unsupported;
        return moved == 0 ? outcome::done : outcome::failed;
    }
}

bool copyBlocks(int from, int to)
{
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    for (;;) {
        const ssize_t got = ::read(from, block.get(), blockSize);
        if (got == 0) return true;
        if (got < 0 && errno == EINTR) continue;
        const auto count = static_cast<std::size_t>(got);
        if (got < 0 || writeFile(to, block.get(), count) != count) return false;
    }
}

// The cheapest way first: shared blocks, then a copy within the kernel, then one through us.
bool copyContent(int from, int to)
{
    if (::ioctl(to, FICLONE, from) == 0) return true;
    const outcome ranges = copyRanges(from, to);
    return ranges == outcome::unsupported ? copyBlocks(from, to) : ranges == outcome::done;
}

// A copy has the attributes and the time of its original. A target of another owner keeps
// its own, and is a good copy all the same.
void copyAttributes(const struct stat& original, const struct stat& before, int to)
{
    const mode_t permissions = original.st_mode & 0777;
    if ((before.st_mode & 0777) != permissions) static_cast<void>(::fchmod(to, permissions) == 0);
    const timespec times[2] = {{0, UTIME_OMIT}, original.st_mtim};
    static_cast<void>(::futimens(to, times) == 0);
}

bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isRegular(const struct stat& of)
{
    return S_ISREG(of.st_mode);
}

} // namespace

bool copyFile(const string& source, const string& target, bool failIfExists)
{
    const descriptor from(::open(nativePath(source).c_str(), O_RDONLY | O_CLOEXEC));
    struct stat original;
    if (!from.isOpen() || ::fstat(from.number(), &original) != 0 || S_ISDIR(original.st_mode))
        return false;

    // The target is emptied only once it is known not to be the source under another name.
    const std::string targetPath = nativePath(target);
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (failIfExists ? O_EXCL : 0);
    descriptor to(::open(targetPath.c_str(), flags, original.st_mode & 0777));
    struct stat before;
    if (!to.isOpen() || ::fstat(to.number(), &before) != 0 || isSameFile(original, before))
        return false;
    if (before.st_size > 0 && isRegular(before) && ::ftruncate(to.number(), 0) != 0) return false;

    const bool copied = copyContent(from.number(), to.number());
    if (copied) copyAttributes(original, before, to.number());
    if (to.close() && copied) return true;
    // Half a file under the name of the whole would be taken for good.
    if (isRegular(before)) ::unlink(targetPath.c_str());
    return false;
}

} // namespace orlo::platform
