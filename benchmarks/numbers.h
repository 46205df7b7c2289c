// The numbers to measure with, for the project's source and that of the peers.
#pragma once

#include "orlogeomatrix.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

namespace benchmarks {

// The frame of a platform.
orloGeo::matrix4d platformFrame();

// The frame and its inverse: the 24 numbers of a result file.
const std::array<double, 24>& resultNumbers();

// At most 8 decimals, without zeros at the end.
std::string printedNumber(double value);
std::string withoutZeros(std::string text);

// As long as the longest name of a type in the registry.
inline constexpr char typeName[] =
    "orlo::typeconvert::typeConverter<unsigned long long, orlo::string>";

// A megabyte without a pattern.
const std::string& megabyte();

// `print(value)` gives the text to check, `measure(value)` is what is timed.
template <class Print, class Measure>
void measurePrinting(benchmark::State& state, Print print, Measure measure)
{
    for (const double value : resultNumbers())
        if (print(value) != printedNumber(value))
            return state.SkipWithError("a number reads otherwise");
    for (auto each : state)
        for (const double value : resultNumbers()) measure(value);
}

} // namespace benchmarks
