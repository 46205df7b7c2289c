#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <cerrno>
#include <unistd.h>

namespace orlo::platform {

namespace {

// Byte by byte, so that the next box finds the next line.
void waitForLine()
{
    for (char byte = 0; byte != '\n';) {
        const ssize_t got = ::read(STDIN_FILENO, &byte, 1);
        if (got == 0 || (got < 0 && errno != EINTR)) return;
    }
}

} // namespace

bool enumerateWindows(bool (*)(window, void*), void*)
{
    return true;
}

std::uint32_t windowProcess(window)
{
    return 0;
}

window parentWindow(window)
{
    return nullptr;
}

window lastActivePopup(window)
{
    return nullptr;
}

void showMessageBox(window, const char16_t* text, const char16_t* title, std::uint32_t)
{
    const std::string shown = nativeText(title) + '\n' + nativeText(text) + '\n';
    writeFile(STDERR_FILENO, shown.data(), shown.size());
    waitForLine();
}

} // namespace orlo::platform
