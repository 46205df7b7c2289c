// Work in a process of its own, seen from its parent.
#pragma once

#include <functional>
#include <string>

namespace orlo::tests {

struct ending {
    int status = 0;     // as waitpid gives it
    std::string output; // standard output
    std::string errors; // standard error
    std::string unread; // what was left of standard input
};

// Runs `work` in a process of its own with `input` on its standard input; it ends with exit code
// 0 where `work` returns.
ending runApart(const std::string& input, const std::function<void()>& work);

} // namespace orlo::tests
