// The case of ASCII letters in bytes, as in a declaration whose encoding is not known yet.
#pragma once

#include "orlounit.h"

namespace orlo {

inline char lowerByte(char byte)
{
    return static_cast<char>(lowerUnit(static_cast<unsigned char>(byte)));
}

} // namespace orlo
