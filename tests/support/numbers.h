// Numbers for the tests of their texts, and the platform's own printf as a judge.
#pragma once

#include "orlostring.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

namespace orlo::tests {

inline constexpr unsigned seed = 20240305;
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

inline string wide(const std::string& bytes)
{
    return string(bytes.c_str());
}

// What the platform's own printf makes of one value.
template <class... Values>
string printed(const std::string& form, Values... values)
{
    std::string room(4096, '\0');
    const int length = std::snprintf(room.data(), room.size(), form.c_str(), values...);
    if (length < 0 || static_cast<std::size_t>(length) >= room.size())
        throw std::length_error(form);
    return wide(room.c_str());
}

// Any bits, thousandths, whole numbers and binary fractions, in turns.
inline double randomDouble(std::mt19937_64& random)
{
    const std::uint64_t bits = random();
    double value = 0;
    switch (random() % 4) {
    case 0: std::memcpy(&value, &bits, sizeof value); break;
    case 1: value = static_cast<double>(static_cast<std::int64_t>(bits) % 2000000) / 1000; break;
    case 2: value = static_cast<double>(static_cast<std::int64_t>(bits) % 1000); break;
    default:
        value =
            std::ldexp(static_cast<double>(bits % 1024), static_cast<int>(bits >> 32) % 60 - 30);
        break;
    }
    return std::isnan(value) ? 0.5 : value;
}

} // namespace orlo::tests
