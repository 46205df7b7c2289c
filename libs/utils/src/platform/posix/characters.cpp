#include "platform/characters.h"

#include <clocale>
#include <cstring>
#include <cwchar>
#include <cwctype>

namespace orlo::platform {

namespace {

constexpr std::wint_t lastUnit = 0xFFFF;

char16_t caseOf(char16_t unit, std::wint_t (*mapped)(std::wint_t))
{
    const std::wint_t other = mapped(unit);
    return other <= lastUnit ? static_cast<char16_t>(other) : unit;
}

// A wide character of this system is a whole code point.
char16_t* writeUnits(wchar_t character, char16_t* units)
{
    const auto codePoint = static_cast<char32_t>(character);
    if (codePoint <= lastUnit) {
        *units++ = static_cast<char16_t>(codePoint);
        return units;
    }
    *units++ = static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    *units++ = static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    return units;
}

} // namespace

bool isPlainCharacterLocale()
{
    const char* name = std::setlocale(LC_CTYPE, nullptr);
    return name == nullptr || std::strcmp(name, "C") == 0;
}

char16_t lowerCaseOf(char16_t unit)
{
    return caseOf(unit, std::towlower);
}

char16_t upperCaseOf(char16_t unit)
{
    return caseOf(unit, std::towupper);
}

// One character at a time, as the units need not be as many as the characters.
std::size_t widenText(const char* narrow, char16_t* units)
{
    char16_t* to = units;
    std::size_t left = std::strlen(narrow);
    std::mbstate_t state{};
    while (left > 0) {
        wchar_t character;
        const std::size_t length = std::mbrtowc(&character, narrow, left, &state);
        if (length == 0 || length > left) break;
        to = writeUnits(character, to);
        narrow += length;
        left -= length;
    }
    return static_cast<std::size_t>(to - units);
}

} // namespace orlo::platform
