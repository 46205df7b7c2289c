// Text of a double in plain decimals, with "." as separator whatever the locale.
#pragma once

#include <string>

namespace orlo {

// Text of a double with exactly `precision` decimals, six for a negative precision; infinities
// and NaN read "inf", "-inf", "nan" and "-nan". Returns the end of the text; `buffer` has room
// for 350 units behind the precision.
char16_t* printFixed(char16_t* buffer, double value, int precision);

// The same with at most 8 decimals: trailing zeros and a trailing separator are removed.
// Without memory the text stays as it was.
//
//   0.1  "0.1"      2.0  "2"      -1e-9  "-0"      1234567.123456789  "1234567.12345679"
void printNumber(std::u16string& to, double value);

} // namespace orlo
