#include "files/filecontent.h"

#include "platform/platform.h"

#include <cstdint>
#include <new>

namespace orlo {

namespace {

// A file that is closed on every way out, and flushed before if it was written.
class openedFile {
public:
    openedFile(const file& which, platform::openMode mode)
        : m_handle(platform::openFile(which.path(), mode)), m_mode(mode)
    {}
    openedFile(const openedFile&) = delete;
    openedFile& operator=(const openedFile&) = delete;
    ~openedFile()
    {
        if (!isOpen()) return;
        if (m_mode == platform::openMode::write) platform::flushFile(m_handle);
        platform::closeFile(m_handle);
    }

    [[nodiscard]] bool isOpen() const { return m_handle != platform::noFile; }
    [[nodiscard]] platform::fileHandle handle() const { return m_handle; }

private:
    platform::fileHandle m_handle;
    platform::openMode m_mode;
};

// Null where no memory can hold so much: a size below zero, taken without its sign, for one.
std::unique_ptr<unsigned char[]> newBlock(std::size_t size)
{
    if (size > PTRDIFF_MAX) return nullptr;
    return std::unique_ptr<unsigned char[]>(new (std::nothrow) unsigned char[size]);
}

} // namespace

std::optional<fileStatus> statusOf(const file& source)
{
    fileStatus status;
    return source.stat(status) ? std::optional(status) : std::nullopt;
}

readResult readContent(const file& source, std::size_t size, fileContent& content)
{
    content = {newBlock(size), 0};
    const openedFile opened(source, platform::openMode::read);
    if (!opened.isOpen()) return readResult::unopened;
    if (!content.bytes) return readResult::withoutMemory;
    platform::expectFilling(content.bytes.get(), size);
    content.size = platform::readFile(opened.handle(), content.bytes.get(), size);
    return content.size == size ? readResult::whole : readResult::cutShort;
}

bool writeContent(const file& target, const void* bytes, std::size_t size)
{
    const openedFile opened(target, platform::openMode::write);
    return opened.isOpen() && platform::writeFile(opened.handle(), bytes, size) == size;
}

} // namespace orlo
