#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <clocale>
#include <langinfo.h>

namespace orlo::platform {

namespace {

// The separator of the locale that the environment names. As everywhere on this system, a
// locale that is not installed counts as "C".
string environmentSeparator()
{
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return u".";
    string separator = textOf(::nl_langinfo_l(RADIXCHAR, user));
    ::freelocale(user);
    return separator;
}

} // namespace

bool queryTimeLocale(string& name)
{
    const char* current = ::setlocale(LC_TIME, nullptr);
    if (current == nullptr) return false;
    name = textOf(current);
    return true;
}

bool setTimeLocale(const string& name)
{
    return ::setlocale(LC_TIME, nativeText(name).c_str()) != nullptr;
}

bool userDecimalSeparator(string& separator)
{
    separator = environmentSeparator();
    return true;
}

// There is no format of the system beside that of the environment.
bool systemDecimalSeparator(string& separator)
{
    return userDecimalSeparator(separator);
}

} // namespace orlo::platform
