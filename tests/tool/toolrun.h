// Runs the tool, or one command, on the machine in memory.
#pragma once

#include "commands.h"
#include "support/machine.h"
#include "support/text.h"

#include <vector>

namespace taven::tests {

using orlo::string;
using orlo::tests::machine;

// The exit code of a run with these arguments behind the program's name.
inline std::int32_t run(const std::vector<string>& given,
                        const char16_t* programName = u"tavenMorrel.exe")
{
    std::vector<const char16_t*> values{programName};
    for (const string& one : given) values.push_back(one.c_str());
    return runTool({static_cast<int>(values.size()), values.data()});
}

inline std::vector<string> boxes()
{
    return machine::current().boxTexts();
}
inline std::vector<string> files()
{
    return machine::current().files();
}

// The text of the only box; a text that no box shows if there was not exactly one.
inline string onlyBox()
{
    const std::vector<string> shown = boxes();
    return shown.size() == 1 ? shown.front() : string(u"<not exactly one box>");
}

} // namespace taven::tests
