#include "orlomodule.h"

#include "orlodirectory.h"
#include "orlofile.h"
#include "orlopath.h"
#include "platform/platform.h"

#include <algorithm>

namespace orlo {

namespace {

constexpr std::size_t pathRoom = 256;

} // namespace

moduleHandle getModuleHandle(const string& name)
{
    return platform::findModule(name);
}

bool getModuleFile(moduleHandle module, file& out)
{
    char16_t buffer[pathRoom];
    const std::size_t length = platform::modulePath(module, buffer, pathRoom);
    if (length == 0) return false;
    // The last place is the terminator's, however the system cuts.
    const string path(buffer, std::min(length, pathRoom - 1));
    out.setPath(normalizePath(path, false));
    return true;
}

bool getModuleDirectory(moduleHandle module, directory& out)
{
    file found;
    if (!getModuleFile(module, found)) return false;
    out.setPath(pathDirectory(found.path()));
    return !out.path().empty();
}

void getModuleDirectory(const string& name, directory& out)
{
    if (const moduleHandle module = getModuleHandle(name)) getModuleDirectory(module, out);
}

} // namespace orlo
