// The way from the system's own entry into the program.
#pragma once

// The program: defined by each executable, called once by the system's entry, with the
// program's name at index 0. Gives the exit code. An exception that leaves it ends the process
// abnormally, and with nothing printed.
int runEntry(int argumentCount, const char16_t* const* arguments);
