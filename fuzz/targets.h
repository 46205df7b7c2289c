// The fuzz targets: one source each in targets/, which tells what it takes. Each takes any bytes,
// holds the code to what it promises for them, and ends the process where a promise is broken.
#pragma once

#include <cstdint>
#include <span>

namespace orlo::fuzz {

using bytes = std::span<const std::uint8_t>;

// The build lists the sources of targets/.
#define ORLO_FUZZ_TARGET(name) void name(bytes given);
#include "targetlist.inc"
#undef ORLO_FUZZ_TARGET

} // namespace orlo::fuzz
