// Lets GoogleTest print the project's texts, and shortens writing them.
#pragma once

#include "orlostring.h"

#include <ostream>
#include <string>

namespace orlo {

// UTF-8 of a text, lone surrogates as U+FFFD.
std::string narrow(const std::u16string& text);

inline void PrintTo(const string& text, std::ostream* out)
{
    *out << '"' << narrow(text) << '"';
}

} // namespace orlo
