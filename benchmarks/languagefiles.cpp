#include "languagefiles.h"
#include "orlostringtemplate.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <set>
#include <system_error>

namespace benchmarks {

namespace {

std::string number(std::size_t value)
{
    return std::to_string(value);
}

std::string nameOf(keyOrder order)
{
    return order == keyOrder::rising ? "rising" : "shuffled";
}

std::filesystem::path baseFolder()
{
    const char* const named = std::getenv("ORLO_BENCHMARK_FOLDER");
    return named != nullptr ? std::filesystem::path(named) : std::filesystem::temp_directory_path();
}

} // namespace

temporaryFolder::temporaryFolder()
{
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    m_path = baseFolder() / ("orlo-benchmark-" + std::to_string(ticks));
    std::filesystem::create_directories(m_path);
}

temporaryFolder::~temporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string keyOf(std::size_t entry, keyOrder order)
{
    // Of one length, so that their order is that of the numbers.
    if (order == keyOrder::rising) return "program_text" + number(100000 + entry);
    return "program_text" + number(entry * 7919 % 1000003);
}

std::string textOf(std::size_t entry)
{
    return "The text number " + number(entry) + " of the platform [platform]";
}

std::u16string widened(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::filesystem::path languageFile(std::size_t entries, keyOrder order)
{
    static const temporaryFolder folder;
    const auto path = folder.path() / (nameOf(order) + number(entries) + ".loc");
    static std::set<std::filesystem::path> made;
    if (made.insert(path).second) {
        std::ofstream out(path, std::ios::binary);
        out << "\xEF\xBB\xBF; made for measurements\n";
        for (std::size_t entry = 0; entry < entries; ++entry)
            out << keyOf(entry, order) << ' ' << textOf(entry) << '\n';
    }
    return path;
}

std::map<std::string, std::string> readLines(const std::filesystem::path& path)
{
    std::map<std::string, std::string> entries;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        const auto blank = line.find(' ');
        if (line[0] != ';' && blank != line.npos)
            entries.emplace(line.substr(0, blank), line.substr(blank + 1));
    }
    return entries;
}

bool hasEntry(orlo::locFile& loaded, std::size_t entry, keyOrder order)
{
    orlo::stringTemplate text;
    return loaded.lookup(widened(keyOf(entry, order)).c_str(), text) &&
           text.text() == orlo::string(widened(textOf(entry)));
}

} // namespace benchmarks
