// The whole run: what is looked at, against what, and what is told.
#pragma once

#include <cstdint>
#include <string>

namespace orlo::languagecheck {

// Exit codes of the process.
enum exitCode : std::int32_t { noErrors = 0, someErrors = 1, wrongUse = 2 };

struct answer {
    exitCode code = noErrors;
    std::string output;    // for standard output
    std::string complaint; // for standard error
};

// Takes the arguments of the process, the program's name at index 0:
//
//   [--reference LANGUAGE|FILE] [--list] FILE|FOLDER...
answer run(int argumentCount, const char16_t* const* arguments);

} // namespace orlo::languagecheck
