// What remains of a text by key if nothing but the file checks is done: the bound.
#include "languagefiles.h"

#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include <string>
#include <vector>

namespace benchmarks {

namespace {

// Asks for the status of all paths; only the last one exists.
void measureChecks(benchmark::State& state, const std::vector<std::string>& paths)
{
    struct stat found;
    const auto check = [&found](const std::string& path) {
        return ::stat(path.c_str(), &found) == 0;
    };
    for (const std::string& path : paths)
        if (check(path) != (path == paths.back()))
            return state.SkipWithError("not the files of a look-up");
    for (auto each : state)
        for (const std::string& path : paths) benchmark::DoNotOptimize(check(path));
}

void checksOfFile(benchmark::State& state)
{
    measureChecks(state, {languageFile(1000).string()});
}
BENCHMARK(checksOfFile)->Name("text-by-key/file/file checks");

// The table asks in two folders for the file as it is named and in the folder of the language,
// and then for the time of the file that it has found.
void checksOfTable(benchmark::State& state)
{
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const auto languages = program.parent_path() / "config/Language";
    const std::string found = languages / "english/language.loc";
    measureChecks(state, {program / "language.loc", languages / "language.loc",
                          program / "english/language.loc", found, found});
}
BENCHMARK(checksOfTable)->Name("text-by-key/table/file checks");

} // namespace

} // namespace benchmarks
