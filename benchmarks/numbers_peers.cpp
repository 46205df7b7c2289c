// Peers for numbers that come from packages.
#include "numbers.h"

#include <Eigen/Dense>
#include <fmt/compile.h>
#include <zlib.h>

namespace benchmarks {

namespace {

void printFmt(benchmark::State& state)
{
    char text[64];
    const auto print = [&text](double value) {
        return fmt::format_to(text, FMT_COMPILE("{:.8f}"), value);
    };
    measurePrinting(
        state, [&](double value) { return withoutZeros(std::string(text, print(value))); },
        [&](double value) {
            benchmark::DoNotOptimize(print(value));
            benchmark::ClobberMemory();
        });
}
BENCHMARK(printFmt)->Name("double-to-text/24/fmt");

void inverseEigen(benchmark::State& state)
{
    Eigen::Matrix4d frame;
    for (unsigned i = 0; i < 16; ++i) frame(i / 4, i % 4) = platformFrame().at(i / 4, i % 4);
    if (!(frame.inverse() * frame).isIdentity(1e-9)) return state.SkipWithError("not the inverse");
    for (auto each : state) {
        benchmark::DoNotOptimize(frame);
        Eigen::Matrix4d inverse = frame.inverse();
        benchmark::DoNotOptimize(inverse);
    }
}
BENCHMARK(inverseEigen)->Name("inverse/frame/Eigen");

void crcZlib(benchmark::State& state, std::string_view bytes)
{
    const auto sum = [](std::string_view of) {
        return crc32(0, reinterpret_cast<const Bytef*>(of.data()), static_cast<uInt>(of.size()));
    };
    if (sum("123456789") != 0xCBF43926) return state.SkipWithError("the checksum is wrong");
    for (auto each : state) benchmark::DoNotOptimize(sum(bytes));
}
BENCHMARK_CAPTURE(crcZlib, name, typeName)->Name("crc/type-name/zlib");
BENCHMARK_CAPTURE(crcZlib, megabyte, megabyte())->Name("crc/1M/zlib");

} // namespace

} // namespace benchmarks
