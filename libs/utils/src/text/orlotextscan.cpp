// How a text is scanned: a fieldScanner holds what is left of the text, of the format and of the
// targets. It takes the format piece by piece; for a conversion it finds the end of its field,
// cut at the width, and stores what stands there. The first piece that does not fit ends it.
#include "orlotextscan.h"

#include "orlonumberscan.h"
#include "orlounit.h"

#include <algorithm>
#include <concepts>
#include <limits>
#include <string_view>
#include <type_traits>

namespace orlo {

namespace {

// --- Storing -----------------------------------------------------------------------------------

template <class T>
concept wholeTarget = std::integral<T> && !std::same_as<T, char16_t>;

template <class T>
constexpr int bitsOf = std::is_same_v<T, long> || std::is_same_v<T, unsigned long>
                           ? 32
                           : static_cast<int>(sizeof(T) * 8);

// Each gives whether a target of this kind takes such a value.
bool store(const scanTarget& target, const wholeNumber& number)
{
    return std::visit(
        [&number](auto* to) {
            using type = std::remove_pointer_t<decltype(to)>;
            if constexpr (std::floating_point<type>)
                *to = static_cast<type>(number.magnitude) * (number.negative ? -1 : 1);
            else if constexpr (wholeTarget<type> && std::signed_integral<type>)
                *to = static_cast<type>(number.limitedTo(bitsOf<type>));
            else if constexpr (wholeTarget<type>)
                *to = static_cast<type>(number.unsignedLimitedTo(bitsOf<type>));
            return wholeTarget<type> || std::floating_point<type>;
        },
        target);
}

bool store(const scanTarget& target, double number)
{
    return std::visit(
        [number](auto* to) {
            using type = std::remove_pointer_t<decltype(to)>;
            if constexpr (std::floating_point<type>) *to = static_cast<type>(number);
            return std::floating_point<type>;
        },
        target);
}

bool store(const scanTarget& target, std::u16string_view text)
{
    if (auto* const* to = std::get_if<std::u16string*>(&target)) {
        (*to)->assign(text);
        return true;
    }
    auto* const* to = std::get_if<char16_t*>(&target);
    if (to == nullptr || text.size() != 1) return false;
    **to = text.front();
    return true;
}

// --- Conversions -------------------------------------------------------------------------------

struct field {
    bool isDropped = false;
    std::size_t width = 0; // 0 without one
    char16_t letter = 0;
    std::u16string_view set{}; // between the brackets of "%[...]", without "^"
    bool isSetNegated = false;
};

constexpr std::size_t mostUnits = std::numeric_limits<std::int32_t>::max();

// A closing bracket that stands first belongs to the set.
const char16_t* readSet(const char16_t* at, field& read)
{
    read.isSetNegated = *at == u'^';
    if (read.isSetNegated) ++at;
    const char16_t* end = at;
    if (*end == u']') ++end;
    while (*end != 0 && *end != u']') ++end;
    read.set = {at, static_cast<std::size_t>(end - at)};
    return *end == 0 ? end : end + 1;
}

// Reads what follows a percent sign.
const char16_t* readConversion(const char16_t* at, field& read)
{
    static constexpr std::u16string_view lengthLetters = u"hlLjztI";
    read.isDropped = *at == u'*';
    if (read.isDropped) ++at;
    for (; isDigitUnit(*at); ++at)
        read.width = std::min(read.width * 10 + static_cast<std::size_t>(*at - u'0'), mostUnits);
    while (lengthLetters.find(*at) != lengthLetters.npos)
        at += at[0] == u'I' && (at[1] == u'3' || at[1] == u'6') && at[2] != 0 ? 3 : 1;
    read.letter = *at;
    if (*at == 0) return at;
    return *at == u'[' ? readSet(at + 1, read) : at + 1;
}

// "a-z" stands for all between; a hyphen at either end for itself.
bool isInSet(std::u16string_view set, char16_t unit)
{
    for (std::size_t at = 0; at < set.size(); ++at) {
        const bool isRange = at + 2 < set.size() && set[at + 1] == u'-';
        const char16_t last = isRange ? set[at + 2] : set[at];
        if (unit >= set[at] && unit <= last) return true;
        if (isRange) at += 2;
    }
    return false;
}

// --- The scan ----------------------------------------------------------------------------------

class fieldScanner {
public:
    fieldScanner(const char16_t* text, std::span<const scanTarget> targets)
        : m_begin(text), m_text(text), m_targets(targets)
    {}

    int scan(const char16_t* format)
    {
        while (*format != 0) {
            if (isSpaceUnit(*format)) {
                skipSpace();
                ++format;
            } else if (*format != u'%') {
                if (*m_text != *format++) break;
                ++m_text;
            } else {
                field wanted;
                format = readConversion(format + 1, wanted);
                if (!takeField(wanted)) break;
            }
        }
        return m_count;
    }

private:
    void skipSpace()
    {
        while (isSpaceUnit(*m_text)) ++m_text;
    }

    bool takeField(const field& wanted)
    {
        switch (wanted.letter) {
        case u'%': skipSpace(); return *m_text == u'%' && ++m_text != nullptr;
        case u'd':
        case u'u': return takeWhole(wanted, 10);
        case u'i': return takeWhole(wanted, 0);
        case u'o': return takeWhole(wanted, 8);
        case u'x':
        case u'X': return takeWhole(wanted, 16);
        case u'a':
        case u'A':
        case u'e':
        case u'E':
        case u'f':
        case u'F':
        case u'g':
        case u'G': return takeDouble(wanted);
        case u's':
        case u'S':
            skipSpace();
            return takeUnits(wanted, [](char16_t u) { return !isSpaceUnit(u); });
        case u'[':
            return takeUnits(wanted, [&wanted](char16_t unit) {
                return isInSet(wanted.set, unit) != wanted.isSetNegated;
            });
        case u'c':
        case u'C': return takeCount(wanted);
        case u'n': return takePosition(wanted);
        default: return false;
        }
    }

    // Lets `read` read a number in front of the text, of which it sees no more than the width.
    template <class Read>
    bool readNumber(const field& wanted, Read read)
    {
        skipSpace();
        if (wanted.width == 0) {
            const char16_t* const end = read(m_text);
            if (end != nullptr) m_text = end;
            return end != nullptr;
        }
        std::size_t length = 0;
        while (length < wanted.width && m_text[length] != 0) ++length;
        const std::u16string visible(m_text, length);
        const char16_t* const end = read(visible.c_str());
        if (end != nullptr) m_text += end - visible.c_str();
        return end != nullptr;
    }

    bool takeWhole(const field& wanted, unsigned base)
    {
        wholeNumber number;
        return readNumber(wanted,
                          [&](const char16_t* text) { return readWhole(text, base, number); }) &&
               deliver(wanted, number);
    }

    bool takeDouble(const field& wanted)
    {
        double number = 0;
        return readNumber(wanted, [&](const char16_t* text) { return readDouble(text, number); }) &&
               deliver(wanted, number);
    }

    template <class Belongs>
    bool takeUnits(const field& wanted, Belongs belongs)
    {
        const std::size_t most = wanted.width == 0 ? mostUnits : wanted.width;
        std::size_t length = 0;
        while (length < most && m_text[length] != 0 && belongs(m_text[length])) ++length;
        return length > 0 && takeText(wanted, length);
    }

    // Exactly as many units as the width tells, white space included.
    bool takeCount(const field& wanted)
    {
        const std::size_t count = std::max<std::size_t>(wanted.width, 1);
        std::size_t length = 0;
        while (length < count && m_text[length] != 0) ++length;
        return length == count && takeText(wanted, length);
    }

    bool takeText(const field& wanted, std::size_t length)
    {
        const std::u16string_view units(m_text, length);
        m_text += length;
        return deliver(wanted, units);
    }

    // The number of units that were read so far is no field.
    bool takePosition(const field& wanted)
    {
        wholeNumber position;
        position.magnitude = static_cast<std::uint64_t>(m_text - m_begin);
        const bool delivered = deliver(wanted, position);
        if (delivered && !wanted.isDropped) --m_count;
        return delivered;
    }

    template <class Value>
    bool deliver(const field& wanted, const Value& value)
    {
        if (wanted.isDropped) return true;
        if (m_targets.empty() || !store(m_targets.front(), value)) return false;
        m_targets = m_targets.subspan(1);
        ++m_count;
        return true;
    }

    const char16_t* m_begin;
    const char16_t* m_text;
    std::span<const scanTarget> m_targets;
    int m_count = 0;
};

} // namespace

int scanFields(const char16_t* text, const char16_t* format, std::span<const scanTarget> targets)
{
    return fieldScanner(text, targets).scan(format);
}

} // namespace orlo
