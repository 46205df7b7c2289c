// Telling a person that something happened: the blocking message box.
#pragma once

#include "orlotextformat.h"

#include <array>
#include <cstdint>
#include <span>

namespace orlo {

// Shows at most 511 units of the formatted text in a task-modal box with the title
// "Velmora" and returns when the box has been closed.
void reportFormatted(const char16_t* format, std::span<const formatArgument> arguments);

template <class... Arguments>
void reportMessage(const char16_t* format, const Arguments&... arguments)
{
    const std::array<formatArgument, sizeof...(arguments)> list{formatArgument(arguments)...};
    reportFormatted(format, list);
}

// The first window of this process without a parent that has an active popup, in the
// system's order; null if there is none, as for a console program.
void* findOwnerWindow();

// The id of this process.
std::uint32_t getProcessId();

// Reports a failed assertion in a message box, then throws the plain bool false. The report
// is a format in its own right: a percent sign in it is read as a conversion.
[[noreturn]] void failAssertion(const char16_t* condition, const char16_t* file, int line);

} // namespace orlo
