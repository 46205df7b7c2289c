// What the system tells of this process.
#pragma once

#include <cstddef>

namespace benchmarks {

// The most memory in bytes that the process has held at once so far.
std::size_t peakMemory();

} // namespace benchmarks
