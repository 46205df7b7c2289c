// Starts another program and waits for it, with a limit. Copy this header with the source of
// your system, runtool_windows.cpp or runtool_posix.cpp.
#pragma once

#include <chrono>
#include <string>
#include <vector>

struct ended {
    enum class how { byItself, afterTheLimit, neverStarted };

    how way = how::neverStarted;
    int code = -1; // of a program that ended by itself
};

// Runs the program with these arguments, each of which arrives as it is. Its standard input is
// at the end. After the limit the program is ended.
ended runProgram(const std::u16string& program, const std::vector<std::u16string>& arguments,
                 std::chrono::seconds limit);
