#include "peakmemory.h"

// These need what stands in the first.
#include <windows.h>

#include <psapi.h>

namespace benchmarks {

std::size_t peakMemory()
{
    PROCESS_MEMORY_COUNTERS told{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &told, sizeof told)) return 0;
    return told.PeakWorkingSetSize;
}

} // namespace benchmarks
