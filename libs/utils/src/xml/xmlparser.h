// The reader of element trees, for callers who know how long their text is.
#pragma once

#include <cstddef>

namespace orlo {

class xmlNode;

// xmlNode::parseText for a text of which at least `length` units stand in front of its
// terminator: long texts are searched faster. 0 is always right.
const char16_t* readTree(xmlNode& outermost, const char16_t* text, std::size_t length,
                         bool keepWhitespace);

} // namespace orlo
