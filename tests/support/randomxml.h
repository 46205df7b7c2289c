// Random small documents, as bytes: well-formed ones, and whatever else may come from outside.
#pragma once

#include <random>
#include <string>

namespace orlo::tests {

// With and without marks, in every way to declare an encoding; with entities, bad bytes,
// sequences that are cut off, zeros, and elements that lack their end.
std::string randomDocument(std::mt19937& random);

} // namespace orlo::tests
