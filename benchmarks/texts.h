// Language files to measure with.
#pragma once

#include <cstddef>
#include <filesystem>

namespace benchmarks {

// A file of so many entries, made once in each process.
std::filesystem::path languageFile(std::size_t entries);

} // namespace benchmarks
