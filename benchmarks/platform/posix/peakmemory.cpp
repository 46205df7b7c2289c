#include "peakmemory.h"

#include <fstream>
#include <string>

namespace benchmarks {

std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

} // namespace benchmarks
