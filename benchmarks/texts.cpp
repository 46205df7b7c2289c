// Texts by key, and language files that are loaded.
#include "texts.h"

#include "orlolanguagetable.h"
#include "orlolocfile.h"
#include "orlolocstring.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <map>
#include <set>
#include <system_error>
#include <unordered_map>

namespace benchmarks {

namespace {

orlo::string pathText(const std::filesystem::path& path)
{
    orlo::string text(path.u16string().c_str());
    if (text[0] == u'/') text.insert(0, u"C:");
    return text.replaceChar(u'/', u'\\');
}

std::string number(std::size_t value)
{
    return std::to_string(value);
}

std::u16string widened(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::string nameOf(keyOrder order)
{
    return order == keyOrder::rising ? "rising" : "shuffled";
}

} // namespace

temporaryFolder::temporaryFolder()
{
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    m_path = std::filesystem::temp_directory_path() / ("orlo-benchmark-" + std::to_string(ticks));
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

namespace {

template <keyOrder order>
void loadProject(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    const orlo::file source(pathText(languageFile(entries, order)));
    const std::u16string firstKey = widened(keyOf(0, order));
    orlo::stringTemplate text;
    const auto hasEntry = [&](orlo::locFile& loaded, std::size_t entry) {
        return loaded.lookup(widened(keyOf(entry, order)).c_str(), text) &&
               text.text() == orlo::string(widened(textOf(entry)));
    };
    orlo::locFile checked(source);
    if (!hasEntry(checked, 0) || !hasEntry(checked, entries - 1) ||
        checked.lookup(u"missing", text))
        return state.SkipWithError("a text is not what the file holds");
    for (auto each : state) {
        orlo::locFile loaded(source);
        benchmark::DoNotOptimize(loaded.lookup(firstKey.c_str(), text));
    }
}

// What an engineer writes who needs no more than this.
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
        benchmark::RegisterBenchmark((family + number(entries) + "/" + who).c_str(), measure)
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
