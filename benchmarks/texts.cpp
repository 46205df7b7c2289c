// Texts by key, and language files that are loaded.
#include "languagefiles.h"
#include "orlolanguagetable.h"
#include "orlolocfile.h"
#include "orlolocstring.h"
#include "orlostringtemplate.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <unordered_map>

namespace benchmarks {

namespace {

template <keyOrder order>
void loadProject(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    const orlo::file source(pathText(languageFile(entries, order)));
    const std::u16string firstKey = widened(keyOf(0, order));
    orlo::stringTemplate text;
    orlo::locFile checked(source);
    if (!hasEntry(checked, 0, order) || !hasEntry(checked, entries - 1, order) ||
        checked.lookup(u"missing", text))
        return state.SkipWithError("a text is not what the file holds");
    for (auto each : state) {
        orlo::locFile loaded(source);
        benchmark::DoNotOptimize(loaded.lookup(firstKey.c_str(), text));
    }
}

template <keyOrder order>
void loadStreams(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    const auto path = languageFile(entries, order);
    if (readLines(path).size() < entries ||
        readLines(path)[keyOf(entries - 1, order)] != textOf(entries - 1))
        return state.SkipWithError("a text is not what the file holds");
    for (auto each : state) benchmark::DoNotOptimize(readLines(path));
}

// The names of shuffled files are older than the others.
template <class Measure>
void registerLoad(keyOrder order, const char* who, Measure measure)
{
    const std::string family =
        order == keyOrder::rising ? "language-load/entries in order/" : "language-load/entries/";
    for (const std::size_t entries : {10, 100, 1000, 10000, 100000})
        benchmark::RegisterBenchmark((family + std::to_string(entries) + "/" + who).c_str(),
                                     measure)
            ->Arg(static_cast<std::int64_t>(entries))
            ->Unit(benchmark::kMicrosecond);
}

// The path through the language table and the object that a program holds.
void textOfTable(benchmark::State& state)
{
    const orlo::locString text(u"brx_msgTitle", u"no text", u"language.loc");
    orlo::languageTable::instance().setLanguage(u"english");
    if (orlo::string(text.getText()) != u"taven-kolve Morrel" || !text.hasText())
        return state.SkipWithError("the text does not come from the language file");
    for (auto each : state) benchmark::DoNotOptimize(text.getText());
}
BENCHMARK(textOfTable)->Name("text-by-key/table/project");

void textOfFile(benchmark::State& state)
{
    orlo::locFile source{orlo::file(pathText(languageFile(1000)))};
    const std::u16string key = widened(keyOf(500));
    orlo::stringTemplate text;
    if (!source.lookup(key.c_str(), text) || text.text() != orlo::string(widened(textOf(500))))
        return state.SkipWithError("the text is not that of the file");
    for (auto each : state) benchmark::DoNotOptimize(source.lookup(key.c_str(), text));
}
BENCHMARK(textOfFile)->Name("text-by-key/file/project");

void textOfHashMap(benchmark::State& state)
{
    std::unordered_map<std::u16string, std::u16string> texts;
    for (std::size_t entry = 0; entry < 1000; ++entry)
        texts.emplace(widened(keyOf(entry)), widened(textOf(entry)));
    const std::u16string key = widened(keyOf(500));
    if (texts.at(key) != widened(textOf(500))) return state.SkipWithError("not the text");
    for (auto each : state) benchmark::DoNotOptimize(std::u16string(texts.find(key)->second));
}
BENCHMARK(textOfHashMap)->Name("text-by-key/file/hash map without checks");

const bool registered = [] {
    registerLoad(keyOrder::shuffled, "project", loadProject<keyOrder::shuffled>);
    registerLoad(keyOrder::shuffled, "std::map with streams", loadStreams<keyOrder::shuffled>);
    registerLoad(keyOrder::rising, "project", loadProject<keyOrder::rising>);
    registerLoad(keyOrder::rising, "std::map with streams", loadStreams<keyOrder::rising>);
    return true;
}();

} // namespace

} // namespace benchmarks
