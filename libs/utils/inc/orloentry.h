// The entry of a program: link orlo::entry and define runEntry in place of main. The arguments
// then come as the units that a user typed, on every system.
#pragma once

// The program: defined by each executable, called once by the system's entry, with the
// program's name at index 0. Returns the exit code. An exception that leaves it ends the process
// abnormally, and with nothing printed.
int runEntry(int argumentCount, const char16_t* const* arguments);
