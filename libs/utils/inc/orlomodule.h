// Where a loaded module lies on disk; the empty name stands for the executable itself.
#pragma once

#include "orlostring.h"

namespace orlo {

class directory;
class file;

// A loaded module; null for one that is not loaded.
using moduleHandle = void*;

moduleHandle getModuleHandle(const string& name);
// The module's file; false, with `out` untouched, if the system can't tell. A path of more
// than 255 units is cut.
bool getModuleFile(moduleHandle module, file& out);
// The folder of the module's file.
bool getModuleDirectory(moduleHandle module, directory& out);
// The same by name; `out` stays as it is if the module is not loaded.
void getModuleDirectory(const string& name, directory& out);

} // namespace orlo
