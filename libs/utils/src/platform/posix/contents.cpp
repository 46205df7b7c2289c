#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace orlo::platform {

namespace {

// Calls `transfer(done)`, which moves what is left behind the first `done` bytes, until all is
// moved, nothing is left or the system fails.
template <class Transfer>
std::size_t transferAll(std::size_t count, Transfer transfer)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t moved = transfer(done);
        if (moved < 0 && errno == EINTR) continue;
        if (moved <= 0) break;
        done += static_cast<std::size_t>(moved);
    }
    return done;
}

} // namespace

fileHandle openFile(const string& path, openMode mode)
{
    const int flags = mode == openMode::read ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    return ::open(nativePath(path).c_str(), flags | O_CLOEXEC, 0666);
}

std::size_t readFile(fileHandle file, void* bytes, std::size_t count)
{
    return transferAll(count, [=](std::size_t done) {
        return ::read(static_cast<int>(file), static_cast<char*>(bytes) + done, count - done);
    });
}

std::size_t writeFile(fileHandle file, const void* bytes, std::size_t count)
{
    return transferAll(count, [=](std::size_t done) {
        return ::write(static_cast<int>(file), static_cast<const char*>(bytes) + done,
                       count - done);
    });
}

// Nothing is kept back on our side.
bool flushFile(fileHandle)
{
    return true;
}

void closeFile(fileHandle file)
{
    ::close(static_cast<int>(file));
}

} // namespace orlo::platform
