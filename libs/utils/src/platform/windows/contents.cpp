#include "platform/platform.h"
#include "platform/windows/wide.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

namespace orlo::platform {

namespace {

// The runtime library counts the bytes of one call in 32 bits.
constexpr std::size_t largestTransfer = std::size_t{1} << 30;

// Calls `transfer(done, count)`, which moves at most `count` bytes behind the first `done`,
// until all is moved, nothing is left or the system fails.
template <class Transfer>
std::size_t transferAll(std::size_t count, Transfer transfer)
{
    std::size_t done = 0;
    while (done < count) {
        const int moved =
            transfer(done, static_cast<unsigned>(std::min(count - done, largestTransfer)));
        if (moved <= 0) break;
        done += static_cast<std::size_t>(moved);
    }
    return done;
}

} // namespace

fileHandle openFile(const string& path, openMode mode)
{
    // The flags and the sharing of the runtime library's "rb" and "wb", without its buffer.
    const int flags = mode == openMode::read ? _O_RDONLY : _O_WRONLY | _O_CREAT | _O_TRUNC;
    return ::_wsopen(wide(path), flags | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
                     _S_IREAD | _S_IWRITE);
}

std::size_t readFile(fileHandle file, void* bytes, std::size_t count)
{
    return transferAll(count, [=](std::size_t done, unsigned size) {
        return ::_read(static_cast<int>(file), static_cast<char*>(bytes) + done, size);
    });
}

std::size_t writeFile(fileHandle file, const void* bytes, std::size_t count)
{
    return transferAll(count, [=](std::size_t done, unsigned size) {
        return ::_write(static_cast<int>(file), static_cast<const char*>(bytes) + done, size);
    });
}

// Nothing is kept back on our side.
bool flushFile(fileHandle)
{
    return true;
}

void closeFile(fileHandle file)
{
    ::_close(static_cast<int>(file));
}

} // namespace orlo::platform
