// A text by key as most programs of this system get it: from a catalogue that is mapped once,
// with no look at its file afterwards.
#include "languagefiles.h"

#include <benchmark/benchmark.h>
#include <libintl.h>

#include <clocale>
#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

namespace benchmarks {

namespace {

constexpr const char* domain = "orlo-benchmark";

void putNumber(std::string& out, std::size_t value)
{
    const auto narrow = static_cast<std::uint32_t>(value);
    out.append(reinterpret_cast<const char*>(&narrow), sizeof narrow);
}

// The binary form of a catalogue: a head, two tables of lengths and places, and the texts.
std::string catalogue(const std::map<std::string, std::string>& texts)
{
    constexpr std::size_t headSize = 28;
    const std::size_t tableSize = 8 * texts.size();
    std::string bytes;
    for (const std::size_t value : {std::size_t{0x950412de}, std::size_t{0}, texts.size(), headSize,
                                    headSize + tableSize, std::size_t{0}, headSize + 2 * tableSize})
        putNumber(bytes, value);

    std::string content;
    const auto put = [&](const std::string& text) {
        putNumber(bytes, text.size());
        putNumber(bytes, headSize + 2 * tableSize + content.size());
        content.append(text.c_str(), text.size() + 1);
    };
    for (const auto& [key, text] : texts) put(key);
    for (const auto& [key, text] : texts) put(text);
    return bytes + content;
}

void textOfGettext(benchmark::State& state)
{
    std::map<std::string, std::string> texts{{"", "Content-Type: text/plain; charset=UTF-8\n"}};
    for (std::size_t entry = 0; entry < 1000; ++entry) texts.emplace(keyOf(entry), textOf(entry));

    const temporaryFolder folder;
    const auto messages = folder.path() / "C" / "LC_MESSAGES";
    std::filesystem::create_directories(messages);
    std::ofstream(messages / (std::string(domain) + ".mo"), std::ios::binary) << catalogue(texts);

    const std::string key = keyOf(500);
    std::setlocale(LC_ALL, "C.UTF-8");
    ::bindtextdomain(domain, folder.path().c_str());
    if (::dgettext(domain, key.c_str()) != textOf(500)) return state.SkipWithError("not the text");
    for (auto each : state) benchmark::DoNotOptimize(::dgettext(domain, key.c_str()));
}
BENCHMARK(textOfGettext)->Name("text-by-key/file/gettext without checks");

} // namespace

} // namespace benchmarks
