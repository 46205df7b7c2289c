// Language files to measure with.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace benchmarks {

// A folder that goes with all that is in it.
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

// A file of so many entries, made once in each process.
std::filesystem::path languageFile(std::size_t entries, keyOrder order = keyOrder::shuffled);

} // namespace benchmarks
