// Windows, boxes and mutexes of the system itself.
#include "orloreport.h"
#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace boxesTest {

using namespace orlo;

namespace {

constexpr const wchar_t* dialogClass = L"#32770";

// A visible window of this thread.
class ownWindow {
public:
    explicit ownWindow(DWORD style, HWND parent = nullptr)
        : m_handle(::CreateWindowExW(0, L"STATIC", L"orlo", style | WS_VISIBLE, 0, 0, 100, 100,
                                     parent, nullptr, nullptr, nullptr))
    {}
    ownWindow(const ownWindow&) = delete;
    ownWindow& operator=(const ownWindow&) = delete;
    ~ownWindow() { ::DestroyWindow(m_handle); }
    operator HWND() const { return m_handle; }

private:
    HWND m_handle;
};

struct shownBox {
    std::wstring title;
    HWND owner = nullptr;
    bool othersEnabled = false;
};

BOOL CALLBACK takeBox(HWND window, LPARAM context)
{
    wchar_t kind[32] = L"";
    DWORD process = 0;
    ::GetClassNameW(window, kind, 32);
    ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() || std::wstring(kind) != dialogClass ||
        !::IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(context) = window;
    return FALSE;
}

// Waits for the box of another thread, notes what it is, and presses its button. `over` tells
// that none will come, as on a system without a display.
shownBox answerBox(HWND other, const std::atomic<bool>& over)
{
    HWND box = nullptr;
    while (box == nullptr) {
        if (over) return {};
        ::Sleep(5);
        ::EnumWindows(takeBox, reinterpret_cast<LPARAM>(&box));
    }
    shownBox shown;
    wchar_t title[64] = L"";
    ::GetWindowTextW(box, title, 64);
    shown.title = title;
    shown.owner = ::GetWindow(box, GW_OWNER);
    shown.othersEnabled = ::IsWindowEnabled(other) != FALSE;
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    return shown;
}

template <class Show>
shownBox boxOf(HWND other, Show show)
{
    shownBox shown;
    std::atomic<bool> over = false;
    std::thread person([&] { shown = answerBox(other, over); });
    show();
    over = true;
    person.join();
    return shown;
}

// The windows of this process that have no parent, in the system's order.
std::vector<HWND> ownTopWindows()
{
    std::vector<HWND> found;
    const auto take = [](HWND window, LPARAM list) -> BOOL {
        DWORD process = 0;
        ::GetWindowThreadProcessId(window, &process);
        if (process == ::GetCurrentProcessId() && ::GetParent(window) == nullptr)
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
        return TRUE;
    };
    ::EnumWindows(take, reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace

TEST(windowsSystem, tellParentAndProcess)
{
    const ownWindow top(WS_OVERLAPPEDWINDOW);
    const ownWindow child(WS_CHILD, top);
    ASSERT_NE(static_cast<HWND>(child), nullptr);
    EXPECT_EQ(platform::parentWindow(child), static_cast<HWND>(top));
    EXPECT_EQ(platform::parentWindow(top), nullptr);
    EXPECT_EQ(platform::parentWindow(nullptr), nullptr);
    EXPECT_EQ(platform::windowProcess(child), ::GetCurrentProcessId());
    EXPECT_EQ(platform::processId(), ::GetCurrentProcessId());
}

TEST(windowsSystem, tellTheLastActivePopup)
{
    const ownWindow top(WS_OVERLAPPEDWINDOW);
    EXPECT_EQ(platform::lastActivePopup(top), static_cast<HWND>(top));
    const ownWindow popup(WS_POPUP | WS_CAPTION, top);
    ::SetActiveWindow(popup);
    EXPECT_EQ(platform::lastActivePopup(top), static_cast<HWND>(popup));
    EXPECT_EQ(platform::lastActivePopup(nullptr), nullptr);
}

TEST(windowsSystem, areEnumeratedUntilTheVisitorEnds)
{
    const ownWindow first(WS_OVERLAPPEDWINDOW);
    const ownWindow second(WS_OVERLAPPEDWINDOW);
    int visited = 0;
    const auto endAtOnce = [](platform::window, void* count) {
        ++*static_cast<int*>(count);
        return false;
    };
    EXPECT_FALSE(platform::enumerateWindows(endAtOnce, &visited));
    EXPECT_EQ(visited, 1);
}

TEST(ownerWindowSystem, isThePopupOfTheFirstWindowOfThisProcessWithoutParent)
{
    EXPECT_EQ(findOwnerWindow(), nullptr);
    const ownWindow top(WS_OVERLAPPEDWINDOW);
    // The system may have made more windows for the process than this one, and in front of it.
    const std::vector<HWND> own = ownTopWindows();
    EXPECT_NE(std::find(own.begin(), own.end(), static_cast<HWND>(top)), own.end());
    EXPECT_EQ(findOwnerWindow(), ::GetLastActivePopup(own.front()));
}

// A task-modal box keeps the person from all other windows of the program, also those that do
// not own it.
TEST(messageBoxSystem, isTaskModalAndHasItsTitleAndOwner)
{
    const ownWindow other(WS_OVERLAPPEDWINDOW);
    const shownBox alone = boxOf(
        other, [] { platform::showMessageBox(nullptr, u"text", u"Velmora", platform::taskModal); });
    EXPECT_EQ(alone.title, L"Velmora");
    EXPECT_FALSE(alone.othersEnabled);
    EXPECT_NE(::IsWindowEnabled(other), FALSE);

    const ownWindow owner(WS_OVERLAPPEDWINDOW);
    const shownBox owned = boxOf(other, [&owner] {
        platform::showMessageBox(owner, u"text", u"Velmora", platform::taskModal);
    });
    EXPECT_EQ(owned.owner, static_cast<HWND>(owner));
}

TEST(messageBoxSystem, isReportedTaskModalByTheFirstOwnWindow)
{
    const ownWindow first(WS_OVERLAPPEDWINDOW);
    const shownBox shown = boxOf(first, [] { reportMessage(u"%d", 7); });
    EXPECT_EQ(shown.title, L"Velmora");
    EXPECT_EQ(shown.owner, static_cast<HWND>(first));
    EXPECT_FALSE(shown.othersEnabled);
}

TEST(mutexSystem, isTakenAlsoWhenItsOwnerHasGoneWithoutReleasingIt)
{
    void* const abandoned = platform::createMutex();
    std::thread([abandoned] { EXPECT_TRUE(platform::lockMutex(abandoned)); }).join();
    EXPECT_TRUE(platform::lockMutex(abandoned));
    platform::unlockMutex(abandoned);
    platform::destroyMutex(abandoned);
}

TEST(mutexSystem, belongsToNobodyAtFirstAndHasNoName)
{
    void* const first = platform::createMutex();
    void* const second = platform::createMutex();
    ASSERT_TRUE(platform::lockMutex(first));
    // Of one name they would be one mutex, and of an owner this thread's.
    std::thread([second] {
        EXPECT_EQ(::WaitForSingleObject(second, 0), WAIT_OBJECT_0);
        ::ReleaseMutex(second);
    }).join();
    platform::unlockMutex(first);
    platform::destroyMutex(first);
    platform::destroyMutex(second);
}

} // namespace boxesTest
