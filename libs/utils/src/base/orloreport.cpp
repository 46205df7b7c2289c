#include "orloreport.h"

#include "platform/platform.h"

#include <new>
#include <vector>

namespace orlo {

namespace {

constexpr std::size_t reportRoom = platform::longestBoxText + 1;
constexpr std::size_t assertionRoom = 1024;

// Formats into the whole buffer; a text that is too long is cut.
template <std::size_t room>
void formatCut(char16_t (&buffer)[room], const char16_t* format,
               std::span<const formatArgument> arguments)
{
    formatText(buffer, room - 1, format, arguments);
    buffer[room - 1] = 0;
}

struct ownWindows {
    std::uint32_t process;
    std::vector<platform::window> found;
};

// Called from within the system, which no exception may pass: where memory ends, the list
// stays as far as it came.
bool collectOwnWindow(platform::window candidate, void* context)
try {
    auto* list = static_cast<ownWindows*>(context);
    if (list == nullptr) return false;
    if (candidate == nullptr) return true;
    const std::uint32_t process = platform::windowProcess(candidate);
    if (process != 0 && process == list->process) list->found.push_back(candidate);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace

void reportFormatted(const char16_t* format, std::span<const formatArgument> arguments)
{
    char16_t text[reportRoom];
    formatCut(text, format, arguments);
    platform::showMessageBox(findOwnerWindow(), text, u"Velmora", platform::taskModal);
}

void* findOwnerWindow()
{
    ownWindows list{getProcessId(), {}};
    platform::enumerateWindows(collectOwnWindow, &list);
    for (const platform::window candidate : list.found) {
        if (platform::parentWindow(candidate) != nullptr) continue;
        if (const platform::window popup = platform::lastActivePopup(candidate)) return popup;
    }
    return nullptr;
}

std::uint32_t getProcessId()
{
    return platform::processId();
}

void failAssertion(const char16_t* condition, const char16_t* file, int line)
{
    char16_t text[assertionRoom];
    const formatArgument arguments[] = {condition, file, line};
    formatCut(text, u"Assertion failed:\n%s\n\nFile: %s\nLine: %d", arguments);
    // The text is itself the format: what is shown for a percent sign in it is settled.
    reportMessage(text);
    throw false;
}

} // namespace orlo
