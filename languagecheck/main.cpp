#include "check.h"
#include "orloentry.h"

#include <cstdio>

using orlo::languagecheck::answer;

namespace {

bool print(const std::string& text, std::FILE* to)
{
    return std::fwrite(text.data(), 1, text.size(), to) == text.size() && std::fflush(to) == 0;
}

} // namespace

int runEntry(int argumentCount, const char16_t* const* arguments)
{
    const answer given = orlo::languagecheck::run(argumentCount, arguments);
    const bool printed = print(given.output, stdout) && print(given.complaint, stderr);
    return printed ? given.code : orlo::languagecheck::wrongUse;
}
