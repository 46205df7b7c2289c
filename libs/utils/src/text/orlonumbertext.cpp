#include "orlonumbertext.h"

#include "text/narrownumber.h"

#include <algorithm>
#include <cmath>

namespace orlo {

namespace {

constexpr std::size_t numberDecimals = 8;
constexpr std::size_t decimalsOfPrintf = 6; // where none are told

} // namespace

char16_t* printFixed(char16_t* buffer, double value, int precision)
{
    narrowBuffer room;
    const auto decimals = precision < 0 ? decimalsOfPrintf : static_cast<std::size_t>(precision);
    buffer = widen(printNarrow(room, value, std::chars_format::fixed, decimals), buffer);
    if (decimals <= exactDecimals || !std::isfinite(value)) return buffer;
    return std::fill_n(buffer, decimals - exactDecimals, u'0');
}

void printNumber(std::u16string& to, double value)
{
    narrowBuffer room;
    std::string_view text = printNarrow(room, value, std::chars_format::fixed, numberDecimals);
    while (text.size() > 1 && text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    to.resize(text.size());
    widen(text, to.data());
}

} // namespace orlo
