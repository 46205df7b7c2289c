#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <unistd.h>

#include <climits>
#include <cstdlib>

namespace orlo::platform {

namespace {

// The room that Windows gives for the current directory, without the terminator.
constexpr std::size_t longestDirectory = 259;
constexpr int driveC = 3;

// Stands for the handle of the executable, the only module.
char executable;

} // namespace

bool currentDirectory(string& path)
{
    char buffer[PATH_MAX];
    // A directory that lies outside the process's root has no path from it.
    if (::getcwd(buffer, sizeof buffer) == nullptr || buffer[0] != '/') return false;
    string found = pathTextOf(buffer);
    if (found.size() > longestDirectory) return false;
    path.swap(found);
    return true;
}

int currentDrive()
{
    return driveC;
}

bool environmentVariable(const char16_t* name, string& value)
{
    const std::string nativeName = nativeText(name); // `value` may hold the name
    value.clear();
    const char* found = std::getenv(nativeName.c_str());
    if (found == nullptr) return false;
    value = textOf(found);
    return true;
}

void* findModule(const string& name)
{
    return name.empty() ? &executable : nullptr;
}

std::size_t modulePath(void*, char16_t* units, std::size_t capacity)
{
    char buffer[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof buffer);
    if (length <= 0) return 0;
    const string path = pathTextOf({buffer, static_cast<std::size_t>(length)});
    return path.copy(units, capacity);
}

std::uint32_t processId()
{
    return static_cast<std::uint32_t>(::getpid());
}

void endAbnormally() // GCOV_EXCL_LINE: the counts end with the process
{
    std::abort(); // GCOV_EXCL_LINE: the same
}

} // namespace orlo::platform
