// Numbers to text and back, the inverse of a frame, the checksum of the registry's keys.
#include "numbers.h"
#include "orlocrc32.h"
#include "orlotypeconvert.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace benchmarks {

orloGeo::matrix4d platformFrame()
{
    return orloGeo::matrix4d::fromFrame({124.04187, -311.7702, 58.33091},
                                        {0.99998476, 0.00498, -0.0021}, {},
                                        {0.0021, 0.00123, 0.999997});
}

namespace {

void addNumbers(const orloGeo::matrix4d& frame, double*& next)
{
    for (unsigned column = 0; column < 4; ++column)
        for (unsigned row = 0; row < 3; ++row) *next++ = frame.at(row, column);
}

std::array<double, 24> makeNumbers()
{
    std::array<double, 24> numbers{};
    double* next = numbers.data();
    addNumbers(platformFrame(), next);
    addNumbers(platformFrame().inverse(), next);
    return numbers;
}

} // namespace

const std::array<double, 24>& resultNumbers()
{
    static const std::array<double, 24> numbers = makeNumbers();
    return numbers;
}

const std::string& megabyte()
{
    static const std::string bytes = [] {
        std::string made(1 << 20, '\0');
        std::uint32_t state = 1;
        for (char& byte : made)
            byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
        return made;
    }();
    return bytes;
}

std::string withoutZeros(std::string text)
{
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string printedNumber(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.8f", value);
    return withoutZeros(text);
}

namespace {

void printProject(benchmark::State& state)
{
    orlo::string text;
    measurePrinting(
        state,
        [](double value) {
            orlo::string result;
            result.setNumber(value);
            return std::string(result.begin(), result.end());
        },
        [&text](double value) { benchmark::DoNotOptimize(text.setNumber(value).data()); });
}
BENCHMARK(printProject)->Name("double-to-text/24/project");

void printToChars(benchmark::State& state)
{
    char text[64];
    const auto print = [&text](double value) {
        return std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 8)
            .ptr;
    };
    measurePrinting(
        state, [&](double value) { return withoutZeros(std::string(text, print(value))); },
        [&](double value) {
            benchmark::DoNotOptimize(print(value));
            benchmark::ClobberMemory();
        });
}
BENCHMARK(printToChars)->Name("double-to-text/24/std::to_chars");

void printSnprintf(benchmark::State& state)
{
    measurePrinting(
        state, [](double value) { return printedNumber(value); },
        [](double value) {
            char text[64];
            benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.8f", value));
            benchmark::ClobberMemory();
        });
}
BENCHMARK(printSnprintf)->Name("double-to-text/24/snprintf");

// `scan(text)` gives the value; `texts` are what the library reads.
template <class Text, class Scan>
void measureScanning(benchmark::State& state, const std::array<Text, 24>& texts, Scan scan)
{
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (!(std::fabs(scan(texts[i]) - resultNumbers()[i]) <= 5e-9))
            return state.SkipWithError("a text gives another number");
    for (auto each : state)
        for (const Text& text : texts) benchmark::DoNotOptimize(scan(text));
}

template <class Text>
std::array<Text, 24> textsOfNumbers()
{
    std::array<Text, 24> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string text = printedNumber(resultNumbers()[i]);
        texts[i].assign(text.begin(), text.end());
    }
    return texts;
}

void scanProject(benchmark::State& state)
{
    measureScanning(state, textsOfNumbers<orlo::string>(), [](const orlo::string& text) {
        double value = 0;
        orlo::typeconvert::convert(value, text);
        return value;
    });
}
BENCHMARK(scanProject)->Name("text-to-double/24/project");

void scanFromChars(benchmark::State& state)
{
    measureScanning(state, textsOfNumbers<std::string>(), [](const std::string& text) {
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    });
}
BENCHMARK(scanFromChars)->Name("text-to-double/24/std::from_chars");

void scanStrtod(benchmark::State& state)
{
    measureScanning(state, textsOfNumbers<std::string>(),
                    [](const std::string& text) { return std::strtod(text.c_str(), nullptr); });
}
BENCHMARK(scanStrtod)->Name("text-to-double/24/strtod");

void inverseProject(benchmark::State& state)
{
    orloGeo::matrix4d frame = platformFrame();
    const orloGeo::matrix4d back = frame.inverse().inverse();
    for (unsigned i = 0; i < 16; ++i)
        if (!(std::fabs(back.at(i / 4, i % 4) - frame.at(i / 4, i % 4)) < 1e-9))
            return state.SkipWithError("the inverse of the inverse is another frame");
    for (auto each : state) {
        benchmark::DoNotOptimize(frame);
        benchmark::DoNotOptimize(frame.inverse());
    }
}
BENCHMARK(inverseProject)->Name("inverse/frame/project");

void crcProject(benchmark::State& state, std::string_view bytes)
{
    const auto sum = [](std::string_view of) {
        std::uint32_t crc = 0xFFFFFFFF;
        processCrc32().addToCrc(crc, of.data(), of.size());
        return ~crc;
    };
    if (sum("123456789") != 0xCBF43926) return state.SkipWithError("the checksum is wrong");
    for (auto each : state) benchmark::DoNotOptimize(sum(bytes));
}
BENCHMARK_CAPTURE(crcProject, name, typeName)->Name("crc/type-name/project");
BENCHMARK_CAPTURE(crcProject, megabyte, megabyte())->Name("crc/1M/project");

} // namespace

} // namespace benchmarks
