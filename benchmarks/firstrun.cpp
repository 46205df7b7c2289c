// One parse or one write in a fresh process, as a user's program does it: no memory is warm, and
// the pages that it takes are touched for the first time.
//
//   firstrun parse project small 10000000      times of the first parse and of its release
//   firstrun warm project small 10000000       the same of the fastest of several more
//   firstrun write project small 10000000      of the first write
//   firstrun warmwrite project small 10000000  of the fastest of several more
//
// Prints nanoseconds, and the bytes by which the peak of the process has
// grown meanwhile (0 where the system does not tell it).
#include "xml_project.h"
#ifdef WITH_PEERS
#include "xml_pugixml.h"
#include "xml_tinyxml2.h"
#endif

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace {

using namespace benchmarks;

constexpr int warmRounds = 15;

// Nanoseconds of processor time where the clock of the process tells it finely enough: neighbours
// on the machine take none of that.
std::int64_t now()
{
    if constexpr (CLOCKS_PER_SEC >= 1000000) return std::clock() * (1000000000 / CLOCKS_PER_SEC);
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

// The peak so far.
std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

struct times {
    std::int64_t work = 0;
    std::int64_t release = 0;
};

void print(const times& taken, std::size_t peakBefore)
{
    std::cout << taken.work << ' ' << taken.release << ' ' << peakMemory() - peakBefore << '\n';
}

template <class Library>
times parseOnce(std::string_view bytes)
{
    const std::int64_t begin = now();
    std::int64_t made = 0;
    {
        const auto tree = Library::parse(bytes);
        made = now();
    }
    return {made - begin, now() - made};
}

template <class Library>
times writeOnce(const typename Library::tree& tree)
{
    const std::int64_t begin = now();
    std::int64_t made = 0;
    {
        const auto written = Library::write(tree);
        made = now();
        if (std::string_view(written).empty()) std::exit(2);
    }
    return {made - begin, now() - made};
}

template <class Run>
times fastest(const Run& run)
{
    times best = run();
    for (int round = 1; round < warmRounds; ++round) {
        const times next = run();
        if (next.work + next.release < best.work + best.release) best = next;
    }
    return best;
}

template <class Library>
int measure(std::string_view what, const document& source)
{
    const std::string_view bytes = source.bytes;
    const std::size_t peakBefore = peakMemory();
    if (what == "parse")
        print(parseOnce<Library>(bytes), peakBefore);
    else if (what == "warm")
        print(fastest([&] { return parseOnce<Library>(bytes); }), peakBefore);
    const auto tree = Library::parse(bytes);
    if (Library::count(tree) != source.content) return 2;
    if (what == "write")
        print(writeOnce<Library>(tree), peakBefore);
    else if (what == "warmwrite")
        print(fastest([&] { return writeOnce<Library>(tree); }), peakBefore);
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 5) return 2;
    const std::string_view what = arguments[1];
    const std::string_view who = arguments[2];
    const document& source = documentOf(arguments[3], std::strtoull(arguments[4], nullptr, 10));
    if (who == "project") return measure<projectXml>(what, source);
#ifdef WITH_PEERS
    if (who == "pugixml") return measure<pugixml>(what, source);
    if (who == "tinyxml2") return measure<tinyXml2>(what, source);
#endif
    return 2;
}
