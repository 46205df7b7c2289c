// The places in a text that the program fills.
#pragma once

#include "orlostring.h"
#include "orlostringtemplate.h"

#include <cstddef>
#include <vector>

namespace orlo::languagecheck {

using valueClass = conversionSpec::valueClass;

// "[name]" or "[name:conversion]".
struct place {
    string name;
    string conversion; // empty if there is none
    std::size_t at = 0;
    std::size_t length = 0;
};

// All places of a text in their order, wherever they stand and as often as they come again.
std::vector<place> placesIn(const string& text);

// The class in which a value goes into a place: text where it has no conversion, none where its
// conversion is not known.
valueClass classOf(const place& where);

// Whether a value that has no place of its own would take a "%" of the text.
bool takesPercent(const stringTemplate& text, const string& name);

// Whether a value of this name would fill this place.
bool isFilled(const stringTemplate& text, const place& where);

} // namespace orlo::languagecheck
