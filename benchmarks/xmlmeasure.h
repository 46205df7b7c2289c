// Measures one XML library. A library is a class of static functions:
//
//     static Tree parse(std::string_view bytes);         any movable type
//     static totals count(const Tree& tree);
//     static Written write(const Tree& tree);            a view of bytes; only where it can write
#pragma once

#include "documents.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

namespace benchmarks {

struct xmlCase {
    const char* kind;
    std::size_t size;
    const char* sizeName;
};

constexpr std::size_t million = 1000000;

inline constexpr xmlCase parseCases[] = {
    {"measuring", 0, "1K"},
    {"small", 1000, "1K"},
    {"small", 10000, "10K"},
    {"small", 100000, "100K"},
    {"small", million, "1M"},
    {"small", 10 * million, "10M"},
    {"attributes", 10 * million, "10M"},
    {"texts", 10 * million, "10M"},
    {"wide", million, "1000000"},
    {"deep", 100000, "100000"},
    {"small", 100 * million, "100M"},
    {"attributes", 100 * million, "100M"},
    {"texts", 100 * million, "100M"},
};

// Indented lines make the text of a deep tree grow with the square of its depth.
inline constexpr xmlCase writeCases[] = {
    {"measuring", 0, "1K"},
    {"small", 1000, "1K"},
    {"small", 10000, "10K"},
    {"small", 100000, "100K"},
    {"small", million, "1M"},
    {"small", 10 * million, "10M"},
    {"attributes", 10 * million, "10M"},
    {"texts", 10 * million, "10M"},
    {"wide", million, "1000000"},
    {"deep", 1000, "1000"},
    {"small", 100 * million, "100M"},
    {"attributes", 100 * million, "100M"},
    {"texts", 100 * million, "100M"},
};

// True for the first call with a name: repeated runs need no second check.
inline bool isFirstRun(const std::string& name)
{
    static std::set<std::string> checked;
    return checked.insert(name).second;
}

// What written bytes hold, by the project's own reader.
totals totalsOfWritten(std::string_view bytes);

// The parse and the release of the tree.
template <class Library>
void measureParse(benchmark::State& state, const std::string& name, const xmlCase& which)
{
    const document& source = documentOf(which.kind, which.size);
    if (isFirstRun(name) && Library::count(Library::parse(source.bytes)) != source.content)
        return state.SkipWithError("the tree does not hold what the document does");
    for (auto each : state) {
        auto tree = Library::parse(source.bytes);
        benchmark::DoNotOptimize(tree);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.bytes.size()));
}

template <class Library>
void measureWrite(benchmark::State& state, const std::string& name, const xmlCase& which)
{
    const document& source = documentOf(which.kind, which.size);
    const auto tree = Library::parse(source.bytes);
    if (isFirstRun(name) && totalsOfWritten(Library::write(tree)) != source.content)
        return state.SkipWithError("what was written does not hold what the tree does");
    for (auto each : state) {
        auto written = Library::write(tree);
        benchmark::DoNotOptimize(written);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.bytes.size()));
}

template <class Library>
concept writesTrees = requires(const decltype(Library::parse({}))& tree)
{
    Library::write(tree);
};

inline std::string nameOf(const char* operation, const xmlCase& each, const std::string& who)
{
    return std::string(operation) + "/" + each.kind + "/" + each.sizeName + "/" + who;
}

inline bool isDeeper(const xmlCase& each, std::size_t levels)
{
    return each.kind == std::string_view("deep") && each.size > levels;
}

// Registers all cases for a library, but for documents that are too deep for it.
template <class Library>
bool registerXml(const std::string& who, std::size_t deepestRead = million,
                 std::size_t deepestWritten = million)
{
    for (const xmlCase& each : parseCases) {
        if (isDeeper(each, deepestRead)) continue;
        const std::string name = nameOf("parse", each, who);
        benchmark::RegisterBenchmark(name.c_str(), measureParse<Library>, name, each)
            ->Unit(benchmark::kMicrosecond);
    }
    if constexpr (writesTrees<Library>) {
        for (const xmlCase& each : writeCases) {
            if (isDeeper(each, std::min(deepestRead, deepestWritten))) continue;
            const std::string name = nameOf("write", each, who);
            benchmark::RegisterBenchmark(name.c_str(), measureWrite<Library>, name, each)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    return true;
}

} // namespace benchmarks
