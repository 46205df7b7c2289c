// The reader of element trees, for callers who know how long their text is.
#pragma once

#include <cstddef>

namespace orlo {

class xmlNode;

// xmlNode::parseText for a text of which at least `length` units can be looked at, in front
// of its terminator or behind: long texts are searched faster. 0 is always right.
const char16_t* readTree(xmlNode& outermost, const char16_t* text, std::size_t length, bool keepWhitespace);

} // namespace orlo
