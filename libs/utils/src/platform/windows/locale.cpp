#include "platform/platform.h"
#include "platform/windows/system.h"
#include "platform/windows/wide.h"

#include <locale.h>

namespace orlo::platform {

namespace {

constexpr int separatorRoom = 16;

bool decimalSeparator(LCID of, string& separator)
{
    char16_t buffer[separatorRoom];
    if (::GetLocaleInfoW(of, LOCALE_SDECIMAL, wide(buffer), separatorRoom) == 0) return false;
    separator = buffer;
    return true;
}

} // namespace

bool queryTimeLocale(string& name)
{
    const wchar_t* current = ::_wsetlocale(LC_TIME, nullptr);
    if (current == nullptr) return false;
    name = units(current);
    return true;
}

bool setTimeLocale(const string& name)
{
    return ::_wsetlocale(LC_TIME, wide(name)) != nullptr;
}

bool userDecimalSeparator(string& separator)
{
    return decimalSeparator(LOCALE_USER_DEFAULT, separator);
}

bool systemDecimalSeparator(string& separator)
{
    return decimalSeparator(LOCALE_SYSTEM_DEFAULT, separator);
}

} // namespace orlo::platform
