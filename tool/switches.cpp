#include "switches.h"

#include <string_view>

namespace taven {

const char16_t* switchValue(const char16_t* argument, const char16_t* literal)
{
    const std::u16string_view prefix(literal);
    return std::u16string_view(argument).starts_with(prefix) ? argument + prefix.size() : nullptr;
}

namespace {

void readArgument(const char16_t* argument, std::initializer_list<valueSwitch> switches)
{
    for (const valueSwitch& candidate : switches) {
        if (const char16_t* value = switchValue(argument, candidate.literal)) {
            *candidate.value = value;
            return;
        }
    }
}

} // namespace

void readSwitches(const arguments& given, std::initializer_list<valueSwitch> switches)
{
    for (int index = 1; index < given.count; ++index) readArgument(given.values[index], switches);
}

} // namespace taven
