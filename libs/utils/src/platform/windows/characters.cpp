#include "platform/characters.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwctype>

namespace orlo::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

bool isPlainCharacterLocale()
{
    const char* name = std::setlocale(LC_CTYPE, nullptr);
    return name == nullptr || std::strcmp(name, "C") == 0;
}

char16_t lowerCaseOf(char16_t unit)
{
    return static_cast<char16_t>(std::towlower(unit));
}

char16_t upperCaseOf(char16_t unit)
{
    return static_cast<char16_t>(std::towupper(unit));
}

// What the call left in the buffer counts, also where it failed.
std::size_t widenText(const char* narrow, char16_t* units)
{
    const std::size_t room = std::strlen(narrow);
    std::fill_n(units, room, u'\0');
    std::mbstowcs(reinterpret_cast<wchar_t*>(units), narrow, room);
    return static_cast<std::size_t>(std::find(units, units + room, u'\0') - units);
}

} // namespace orlo::platform
