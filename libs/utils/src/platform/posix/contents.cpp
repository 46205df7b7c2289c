#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orlo::platform {

namespace {

// Waits until a file that was opened not to wait can move bytes.
bool waitFor(int file, short event)
{
    pollfd awaited = {file, event, 0};
    return ::poll(&awaited, 1, -1) >= 0 || errno == EINTR;
}

// Calls `transfer(done)`, which moves what is left behind the first `done` bytes, until all is
// moved, nothing is left or the system fails; `event` is what the file has to be ready for.
template <class Transfer>
std::size_t transferAll(int file, short event, std::size_t count, Transfer transfer)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t moved = transfer(done);
        if (moved < 0 && errno == EINTR) continue;
        if (moved < 0 && errno == EAGAIN && waitFor(file, event)) continue;
        if (moved <= 0) break;
        done += static_cast<std::size_t>(moved);
    }
    return done;
}

// While it lives, writing to a pipe that nobody reads any more fails without the signal that
// would end the process. Only this thread is touched, and a signal that was waiting before
// goes on waiting.
class quietPipes {
public:
    quietPipes()
    {
        ::sigemptyset(&m_broken);
        ::sigaddset(&m_broken, SIGPIPE);
        m_wasPending = isPending();
        ::pthread_sigmask(SIG_BLOCK, &m_broken, &m_before);
    }
    quietPipes(const quietPipes&) = delete;
    quietPipes& operator=(const quietPipes&) = delete;
    ~quietPipes()
    {
        const int failure = errno;
        const timespec atOnce = {0, 0};
        if (!m_wasPending && isPending()) ::sigtimedwait(&m_broken, nullptr, &atOnce);
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        errno = failure;
    }

private:
    static bool isPending()
    {
        sigset_t pending;
        return ::sigpending(&pending) == 0 && ::sigismember(&pending, SIGPIPE) == 1;
    }

    sigset_t m_broken;
    sigset_t m_before;
    bool m_wasPending;
};

// Nobody has to read a regular file, which spares nearly all files the four calls of the above.
bool mayBePipe(int file)
{
    struct stat found;
    return ::fstat(file, &found) != 0 || !S_ISREG(found.st_mode);
}

} // namespace

fileHandle openFile(const string& path, openMode mode)
{
    const int flags = mode == openMode::read ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    return ::open(nativePath(path).c_str(), flags | O_CLOEXEC, 0666);
}

std::size_t readFile(fileHandle file, void* bytes, std::size_t count)
{
    const int number = static_cast<int>(file);
    return transferAll(number, POLLIN, count, [=](std::size_t done) {
        return ::read(number, static_cast<char*>(bytes) + done, count - done);
    });
}

std::size_t writeFile(fileHandle file, const void* bytes, std::size_t count)
{
    const int number = static_cast<int>(file);
    std::optional<quietPipes> quiet;
    if (mayBePipe(number)) quiet.emplace();
    return transferAll(number, POLLOUT, count, [=](std::size_t done) {
        return ::write(number, static_cast<const char*>(bytes) + done, count - done);
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
