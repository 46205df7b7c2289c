// The entity forms of the five units that XML markup is made of, and numeric references.
#pragma once

#include "orlostring.h"

namespace orlo {

// Turns the five named entities and "&#x" with one to three hexadecimal digits into their
// characters, again and again until nothing changes, so that all levels of escaping
// collapse. Does not end on a "&#x" that no ";" closes within three digits.
//
//   a&lt;b        a<b
//   &amp;lt;      <
//   &#x41;&#65;   A&#65;
void decodeEntities(string& text);

// Turns & ' " < > into their named entities.
void encodeEntities(string& text);

} // namespace orlo
