#include "orloentry.h"

#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <exception>
#include <vector>

int main(int argumentCount, char** arguments)
{
    std::set_terminate(orlo::platform::endAbnormally);

    std::vector<orlo::string> texts;
    texts.reserve(static_cast<std::size_t>(argumentCount));
    std::vector<const char16_t*> values;
    values.reserve(static_cast<std::size_t>(argumentCount));
    for (int i = 0; i < argumentCount; ++i) {
        texts.push_back(orlo::platform::textOf(arguments[i]));
        values.push_back(texts.back().c_str());
    }
    return runEntry(argumentCount, values.data());
}
