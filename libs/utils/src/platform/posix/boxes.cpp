#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <string_view>
#include <unistd.h>

namespace orlo::platform {

namespace {

constexpr std::size_t longestTitle = 64;
constexpr std::size_t bytesOfUnit = 3;

// Byte by byte, so that the next box finds the next line.
void waitForLine()
{
    char byte = 0;
    while (readFile(STDIN_FILENO, &byte, 1) == 1 && byte != '\n') {
    }
}

char* writeLine(const char16_t* text, std::size_t longest, char* to)
{
    to = writeNative(std::u16string_view(text).substr(0, longest), to);
    *to++ = '\n';
    return to;
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
    // In one piece, so that two threads' boxes do not mix, and without memory, whose lack may be
    // what is told.
    char shown[bytesOfUnit * (longestTitle + longestBoxText + 2)];
    const char* const end = writeLine(text, longestBoxText, writeLine(title, longestTitle, shown));
    writeFile(STDERR_FILENO, shown, static_cast<std::size_t>(end - shown));
    waitForLine();
}

} // namespace orlo::platform
