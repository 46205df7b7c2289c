// The fuzz targets. Each takes any bytes, holds the code to what it promises for them, and ends
// the process where a promise is broken.
#pragma once

#include <cstdint>
#include <span>

namespace orlo::fuzz {

using bytes = std::span<const std::uint8_t>;

void calendar(bytes given);    // texts of dates and times, spans of days
void conversions(bytes given); // numbers and texts into each other
void encoding(bytes given);    // the declared encoding of a document
void entities(bytes given);    // entity forms of XML
void language(bytes given);    // language files: includes, overrides, commands, aliases
void measuring(bytes given);   // whole measuring files through `getncs`
void paths(bytes given);       // the normal form of paths, joining and taking apart
void points(bytes given);      // texts of points and vectors
void switches(bytes given);    // the switches of the command line
void templates(bytes given);   // texts with open places
void utf8(bytes given);        // UTF-8 into units and back
void xmlbytes(bytes given);    // documents, with their encodings
void xmltext(bytes given);     // the reader of element trees
void xmltree(bytes given);     // trees, written and read again

} // namespace orlo::fuzz
