// The one failure that a template raises. Exceptions hold templates, so they stand above them;
// the template declares here what it needs of them.
#pragma once

namespace orlo {

// Throws an outOfMemoryException. Defined beside the exceptions.
[[noreturn]] void throwOutOfMemory();

} // namespace orlo
