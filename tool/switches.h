// The one rule by which all switches of the command line are read.
#pragma once

#include "orlostring.h"

#include <cstdint>
#include <initializer_list>

namespace taven {

// The arguments of the process, the program's name at index 0.
struct arguments {
    int count = 0;
    const char16_t* const* values = nullptr;
};

// A switch with a value: an argument carries it if it begins with the literal, unit by unit;
// the rest of the argument is the value.
struct valueSwitch {
    const char16_t* literal;
    orlo::string* value;
};

// Reads the switches from all arguments behind the program's name. Each argument is tried
// against the list in order and counts for the first switch that fits; the last argument of a
// switch wins; all others are passed over.
void readSwitches(const arguments& given, std::initializer_list<valueSwitch> switches);

// The rest of the argument behind the literal; null if it does not begin with it.
const char16_t* switchValue(const char16_t* argument, const char16_t* literal);

} // namespace taven
