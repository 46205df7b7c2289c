// The entry of one fuzzer. The build tells which target it runs.
#include "targets.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    orlo::fuzz::ORLO_FUZZED({data, size});
    return 0;
}
