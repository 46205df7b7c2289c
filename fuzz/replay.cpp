// Runs the inputs of the corpus once, with any compiler: replay CORPUS [TARGET...], where each
// folder below CORPUS has the name of its target; all targets if none is named. An input that
// breaks a promise ends the process, so its name stands on the last line.
#include "targets.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

namespace {

using namespace orlo::fuzz;
using std::filesystem::path;

struct target {
    std::string_view name;
    void (*run)(bytes given);
};

constexpr target targets[] = {
#define ORLO_FUZZ_TARGET(name) {#name, name},
#include "targetlist.inc"
#undef ORLO_FUZZ_TARGET
};

bool isChosen(std::string_view name, std::span<char*> chosen)
{
    return chosen.empty() || std::find(chosen.begin(), chosen.end(), name) != chosen.end();
}

std::vector<path> filesIn(const path& folder)
{
    std::vector<path> files;
    if (!std::filesystem::is_directory(folder)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool contentOf(const path& file, std::vector<std::uint8_t>& content)
{
    std::ifstream stream(file, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(stream), {});
    return stream.good() || stream.eof();
}

} // namespace

int main(int count, char** values)
{
    if (count < 2) return 2;
    const std::span<char*> chosen(values + 2, values + count);
    int passed = 0;
    int failed = 0;
    for (const target& each : targets) {
        if (!isChosen(each.name, chosen)) continue;
        const std::vector<path> files = filesIn(path(values[1]) / each.name);
        if (files.empty()) ++failed; // a target without inputs tests nothing
        std::printf("%s: %zu inputs\n", each.name.data(), files.size());
        for (const path& file : files) {
            std::printf("%s\n", file.string().c_str());
            std::fflush(stdout);
            std::vector<std::uint8_t> content;
            const bool read = contentOf(file, content);
            if (read) each.run(content);
            ++(read ? passed : failed);
        }
    }
    std::printf("%d passed, %d failed\n", passed, failed);
    return passed > 0 && failed == 0 ? 0 : 1;
}
