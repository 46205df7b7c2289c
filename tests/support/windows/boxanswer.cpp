// Stands in for the person at the machine while whole runs are tested: notes what each message
// box shows, and presses OK.
//
//     boxanswer FOLDER
//
// For the nth box since the folder was last empty, FOLDER/n.txt holds in UTF-16 a line each for
// the title and for the number of buttons, icons and owners, and then the text. It is complete
// as soon as it is there. While FOLDER/hold exists the box stays unanswered. FOLDER/ready says
// that boxes are awaited; FOLDER/stop ends the program.
#include <windows.h>

#include <string>

namespace {

using std::wstring;

bool isThere(const wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void writeText(const wstring& path, const wstring& text)
{
    const wstring draft = path + L".draft";
    const HANDLE file =
        CreateFileW(draft.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &written,
              nullptr);
    CloseHandle(file);
    MoveFileW(draft.c_str(), path.c_str());
}

wstring className(HWND window)
{
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

// The text also of a control in another process, which GetWindowText does not give.
wstring textOf(HWND window)
{
    wstring text(2048, L'\0');
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, 5000, &length);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool showsIcon(HWND control)
{
    DWORD_PTR icon = 0;
    SendMessageTimeoutW(control, STM_GETICON, 0, 0, SMTO_NORMAL, 5000, &icon);
    return icon != 0;
}

struct boxContent {
    int buttons = 0;
    int icons = 0;
    wstring text;
};

BOOL CALLBACK noteControl(HWND control, LPARAM context)
{
    auto& content = *reinterpret_cast<boxContent*>(context);
    const wstring kind = className(control);
    if (kind == L"Button" && IsWindowVisible(control)) ++content.buttons;
    if (kind != L"Static") return TRUE;
    if ((GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
        content.icons += showsIcon(control);
    else
        content.text = textOf(control);
    return TRUE;
}

BOOL CALLBACK findBox(HWND window, LPARAM context)
{
    if (!IsWindowVisible(window) || className(window) != L"#32770") return TRUE;
    *reinterpret_cast<HWND*>(context) = window;
    return FALSE;
}

wstring describe(HWND box)
{
    boxContent content;
    EnumChildWindows(box, noteControl, reinterpret_cast<LPARAM>(&content));
    const int owners = GetWindow(box, GW_OWNER) != nullptr;
    return textOf(box) + L"\nbuttons " + std::to_wstring(content.buttons) + L", icons " +
           std::to_wstring(content.icons) + L", owners " + std::to_wstring(owners) + L"\n" +
           content.text;
}

wstring nextFile(const wstring& folder)
{
    int number = 1;
    while (isThere(folder + std::to_wstring(number) + L".txt")) ++number;
    return folder + std::to_wstring(number) + L".txt";
}

void answer(HWND box, const wstring& folder)
{
    writeText(nextFile(folder), describe(box));
    while (isThere(folder + L"hold")) Sleep(5);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    while (IsWindow(box)) Sleep(1);
}

} // namespace

int wmain(int count, wchar_t** values)
{
    if (count != 2) return 2;
    const wstring folder = wstring(values[1]) + L"\\";
    GetDesktopWindow(); // starts the desktop, so that no run of the tool has to
    writeText(folder + L"ready", L"");
    while (!isThere(folder + L"stop")) {
        HWND box = nullptr;
        EnumWindows(findBox, reinterpret_cast<LPARAM>(&box));
        if (box)
            answer(box, folder);
        else
            Sleep(5);
    }
    return 0;
}
