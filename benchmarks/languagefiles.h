// Language files to measure with, and how they are read by the project and by plain streams.
#pragma once

#include "orlolocfile.h"
#include "paths.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>

namespace benchmarks {

// A folder that goes with all that is in it. It lies in the folder that the variable
// ORLO_BENCHMARK_FOLDER names, or in that of the system.
class temporaryFolder {
public:
    temporaryFolder();
    temporaryFolder(const temporaryFolder&) = delete;
    temporaryFolder& operator=(const temporaryFolder&) = delete;
    ~temporaryFolder();
    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// How the keys of a file follow each other: as programs grow, or sorted.
enum class keyOrder { shuffled, rising };

// Key and text of an entry.
std::string keyOf(std::size_t entry, keyOrder order = keyOrder::shuffled);
std::string textOf(std::size_t entry);

// Text of ASCII in the library's units.
std::u16string widened(const std::string& ascii);

// A file of so many entries, made once in each process.
std::filesystem::path languageFile(std::size_t entries, keyOrder order = keyOrder::shuffled);

// What an engineer writes who needs no more than this.
std::map<std::string, std::string> readLines(const std::filesystem::path& path);

// Whether the text of that entry is the one that was written.
bool hasEntry(orlo::locFile& loaded, std::size_t entry, keyOrder order);

} // namespace benchmarks
