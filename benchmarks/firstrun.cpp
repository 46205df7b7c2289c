// One job in a fresh process, as a user's program does it: no memory is warm, and the pages that
// it takes are touched for the first time.
//
//   firstrun project parse small 10000000       a document from bytes to a tree
//   firstrun pugixml write small 10000000       from a tree to bytes
//   firstrun project language-load shuffled 100000
//   firstrun streams language-load rising 100000
//
// Prints nanoseconds: those of the job and those of the release of what it made. With a count as
// a fifth argument, those of the fastest of so many runs. Ends with 2 where the result is wrong.
#include "languagefiles.h"
#include "orlostringtemplate.h"
#include "xml_project.h"
#include "xml_pugixml.h"
#include "xml_tinyxml2.h"
#ifdef WITH_ALL_PEERS
#include "xml_expat.h"
#include "xml_libxml2.h"
#endif

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace benchmarks;

// Nanoseconds of processor time where the clock of the process tells it finely enough: neighbours
// on the machine take none of that.
std::int64_t now()
{
    if constexpr (CLOCKS_PER_SEC >= 1000000) return std::clock() * (1000000000 / CLOCKS_PER_SEC);
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

struct times {
    std::int64_t work = 0;
    std::int64_t release = 0;

    std::int64_t all() const { return work + release; }
};

// `job()` gives what it has made, `isRight(made)` looks at it between work and release.
template <class Job, class Check>
std::optional<times> measureOnce(const Job& job, const Check& isRight)
{
    times taken;
    const std::int64_t begin = now();
    using result = decltype(job());
    std::unique_ptr<result> made(new result(job())); // in place: not all results can be moved
    taken.work = now() - begin;
    if (!isRight(*made)) return std::nullopt;
    const std::int64_t releaseBegin = now();
    made.reset();
    taken.release = now() - releaseBegin;
    return taken;
}

template <class Job, class Check>
int measure(int runs, const Job& job, const Check& isRight)
{
    std::optional<times> best;
    for (int run = 0; run < runs; ++run) {
        const auto taken = measureOnce(job, isRight);
        if (!taken) return 2;
        if (!best || taken->all() < best->all()) best = taken;
    }
    if (!best) return 2;
    std::cout << best->work << ' ' << best->release << '\n';
    return 0;
}

template <class Library>
concept writesTrees = requires(const decltype(Library::parse({}))& tree)
{
    Library::write(tree);
};

template <class Library>
int measureXml(std::string_view what, const document& source, int runs)
{
    const auto parse = [&] { return Library::parse(source.bytes); };
    const auto isWhole = [&](const auto& tree) { return Library::count(tree) == source.content; };
    if (what == "parse") return measure(runs, parse, isWhole);
    if constexpr (writesTrees<Library>) {
        const auto tree = parse();
        const auto write = [&] { return Library::write(tree); };
        const auto readsBack = [&](const auto& written) {
            return projectXml::count(projectXml::parse(written)) == source.content;
        };
        if (what == "write") return measure(runs, write, readsBack);
    }
    return 2;
}

int measureXmlOf(std::string_view who, std::string_view what, const document& source, int runs)
{
    if (who == "project") return measureXml<projectXml>(what, source, runs);
    if (who == "pugixml") return measureXml<pugixml>(what, source, runs);
    if (who == "tinyxml2") return measureXml<tinyXml2>(what, source, runs);
#ifdef WITH_ALL_PEERS
    if (who == "libxml2") return measureXml<libXml2>(what, source, runs);
    if (who == "expat+tree") return measureXml<expatTree>(what, source, runs);
#endif
    return 2;
}

// The library reads its file at the first look-up.
int measureLoadByProject(std::size_t entries, keyOrder order, int runs)
{
    const orlo::file source(pathText(languageFile(entries, order)));
    const std::u16string firstKey = widened(keyOf(0, order));
    const auto load = [&] {
        auto loaded = std::make_unique<orlo::locFile>(source);
        orlo::stringTemplate text;
        loaded->lookup(firstKey.c_str(), text);
        return loaded;
    };
    return measure(runs, load, [&](const auto& loaded) {
        return hasEntry(*loaded, 0, order) && hasEntry(*loaded, entries - 1, order);
    });
}

int measureLoadByStreams(std::size_t entries, keyOrder order, int runs)
{
    const auto path = languageFile(entries, order);
    return measure(
        runs, [&] { return readLines(path); },
        [&](auto& read) {
            return read.size() >= entries && read[keyOf(entries - 1, order)] == textOf(entries - 1);
        });
}

int measureLoadOf(std::string_view who, std::string_view orderName, std::size_t entries, int runs)
{
    const keyOrder order = orderName == "rising" ? keyOrder::rising : keyOrder::shuffled;
    if (who == "project") return measureLoadByProject(entries, order, runs);
    if (who == "streams") return measureLoadByStreams(entries, order, runs);
    return 2;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 5 && count != 6) return 2;
    const std::string_view who = arguments[1];
    const std::string_view what = arguments[2];
    const std::size_t size = std::strtoull(arguments[4], nullptr, 10);
    const int runs = count == 6 ? std::atoi(arguments[5]) : 1;
    if (what == "language-load") return measureLoadOf(who, arguments[3], size, runs);
    return measureXmlOf(who, what, documentOf(arguments[3], size), runs);
}
