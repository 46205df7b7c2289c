// The project's units as the wide characters of this system: the same 16 bits in memory.
#pragma once

#include "orlostring.h"

namespace orlo::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* wide(const char16_t* text)
{
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* wide(char16_t* text)
{
    return reinterpret_cast<wchar_t*>(text);
}
inline const wchar_t* wide(const string& text)
{
    return wide(text.c_str());
}
inline const char16_t* units(const wchar_t* text)
{
    return reinterpret_cast<const char16_t*>(text);
}

} // namespace orlo::platform
