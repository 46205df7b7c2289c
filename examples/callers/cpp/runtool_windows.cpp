#include "runtool.h"

#include <windows.h>

namespace {

// One argument of a command line: backslashes count only in front of a quotation mark, and there
// they are doubled - also in front of the closing one, which "C:\my folder\" would swallow.
std::wstring quoted(const std::u16string& argument)
{
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const char16_t unit : argument) {
        if (unit == u'"') text.append(backslashes + 1, L'\\');
        backslashes = unit == u'\\' ? backslashes + 1 : 0;
        text += static_cast<wchar_t>(unit);
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

std::wstring lineOf(const std::u16string& program, const std::vector<std::u16string>& arguments)
{
    std::wstring line = quoted(program);
    for (const std::u16string& argument : arguments) line += L' ' + quoted(argument);
    return line;
}

// A report is a box that waits for a person; who is never there needs the limit.
ended waitFor(HANDLE process, std::chrono::seconds limit)
{
    const auto milliseconds = static_cast<DWORD>(std::chrono::milliseconds(limit).count());
    if (::WaitForSingleObject(process, milliseconds) != WAIT_OBJECT_0) {
        ::TerminateProcess(process, 1);
        ::WaitForSingleObject(process, INFINITE);
        return {ended::how::afterTheLimit};
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    return {ended::how::byItself, static_cast<int>(code)};
}

} // namespace

ended runProgram(const std::u16string& program, const std::vector<std::u16string>& arguments,
                 std::chrono::seconds limit)
{
    const std::wstring file(program.begin(), program.end());
    std::wstring line = lineOf(program, arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    // No console flashes; boxes still appear. Nothing is inherited, so standard input is at its
    // end.
    if (!::CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                          nullptr, nullptr, &start, &made))
        return {};
    const ended outcome = waitFor(made.hProcess, limit);
    ::CloseHandle(made.hThread);
    ::CloseHandle(made.hProcess);
    return outcome;
}
