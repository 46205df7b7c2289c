// A place is found before anything is printed: its bounds, and the conversion that stands
// inside it. Three searches can find it: by name between brackets, by number behind a dollar
// sign, or, where neither gives a place, the first printf conversion of the text. A conversion
// is collected unit by unit into a conversionSpec, whose last letter decides in which class the
// value goes in; the value is brought into that class and printed with the conversion as it was
// collected. The printed text then takes the place of the bounds. Nothing is remembered between
// two insertions but the count of the nameless ones, so that text just put in is searched like
// the rest.
#include "orlostringtemplate.h"

#include "messages/outofmemory.h"
#include "orlonumberscan.h"
#include "orlonumbertext.h"
#include "orlotextformat.h"
#include "orlounit.h"

#include <algorithm>
#include <limits>
#include <new>

namespace orlo {

namespace {

using valueClass = conversionSpec::valueClass;

// Units behind a dollar sign that are looked at for its number.
constexpr std::size_t numberReach = 63;

valueClass classOf(char16_t letter)
{
    static constexpr struct {
        std::u16string_view letters;
        valueClass type;
    } classes[] = {
        {u"c", valueClass::character},    {u"dioxXu", valueClass::integer},
        {u"eEfgG", valueClass::floating}, {u"s", valueClass::text},
        {u"CS", valueClass::empty},
    };
    for (const auto& row : classes) {
        if (row.letters.find(letter) != row.letters.npos) return row.type;
    }
    return valueClass::none;
}

std::uint32_t sizeBehind(char16_t lengthLetter)
{
    switch (lengthLetter) {
    case u'h': return 0;
    case u'l': return 2;
    default: return 1;
    }
}

std::unique_ptr<std::uint32_t> makeSeverity()
{
    try {
        return std::make_unique<std::uint32_t>(0);
    } catch (const std::bad_alloc&) {
        throwOutOfMemory();
    }
}

// A copy can do without: the severity is a hint for those who show the text.
std::unique_ptr<std::uint32_t> copySeverity(const std::uint32_t* severity)
{
    return std::unique_ptr<std::uint32_t>(
        severity != nullptr ? new (std::nothrow) std::uint32_t(*severity) : nullptr);
}

// An unknown letter leaves the severity as it was.
void readSeverity(char16_t letter, std::uint32_t& severity)
{
    switch (upperUnit(letter)) {
    case u'E': severity = 3; break;
    case u'W': severity = 2; break;
    case u'I': severity = 1; break;
    default: break;
    }
}

// Units up to the first at which what was read so far is `number`, the way "%d" reads it; 0 if
// there is none. So the 1 is found in "12" too.
std::size_t lengthOfNumber(std::u16string_view text, std::int32_t number)
{
    text = text.substr(0, numberReach);
    std::size_t at = 0;
    while (at < text.size() && isSpaceUnit(text[at])) ++at;
    if (at < text.size() && text[at] == u'+') ++at;

    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    for (std::int64_t read = 0; at < text.size() && isDigitUnit(text[at]); ++at) {
        read = std::min(read * 10 + (text[at] - u'0'), most);
        if (read == number) return at + 1;
    }
    return 0;
}

bool opensPlace(std::u16string_view text, std::size_t at)
{
    return text[at] == u'[' && (at == 0 || text[at - 1] != u'\\');
}

// --- The text of one value -------------------------------------------------------------------

// A number's text while it waits to be printed as a text: 309 digits, six decimals.
using numberRoom = char16_t[360];

// What a conversion prints: the value, its low 8 bits where one character is wanted, or its
// text where a text is.
formatArgument toArgument(valueClass wanted, std::int32_t value, numberRoom& room)
{
    if (wanted == valueClass::character) return static_cast<signed char>(value);
    if (wanted != valueClass::text) return value;
    const formatArgument number(value);
    formatText(room, std::size(room), u"%d", {&number, 1});
    return static_cast<const char16_t*>(room);
}

formatArgument toArgument(valueClass wanted, double value, numberRoom& room)
{
    if (wanted == valueClass::character)
        return static_cast<unsigned char>(formatArgument(value).asInteger());
    if (wanted != valueClass::text) return value;
    *printFixed(room, value, 6) = 0;
    return static_cast<const char16_t*>(room);
}

formatArgument toArgument(valueClass wanted, bool value, numberRoom&)
{
    if (wanted != valueClass::text) return value ? 1 : 0;
    return value ? u"True" : u"False";
}

// A text that is no number counts as 0.
formatArgument toArgument(valueClass wanted, const char16_t* value, numberRoom&)
{
    std::int32_t whole = 0;
    double number = 0;
    switch (wanted) {
    case valueClass::character: return *value;
    case valueClass::integer: return scanLong(value, whole) ? whole : 0;
    case valueClass::floating: return scanDouble(value, number) ? number : 0.0;
    default: return value;
    }
}

// The printed value up to its first zero unit, which "%c" can give. Short texts stay off the
// heap: most values are names and numbers.
class valueText {
public:
    template <class Value>
    valueText(const conversionSpec& format, Value value)
    {
        if (!format.isComplete() || format.type() == valueClass::empty) return;
        numberRoom room;
        const formatArgument argument = toArgument(format.type(), value, room);
        const int length =
            formatText(m_short, std::size(m_short), format.conversion(), {&argument, 1});
        if (length >= 0) {
            m_view = {m_short, static_cast<std::size_t>(length)};
        } else {
            formatText(m_long, format.conversion(), {&argument, 1});
            m_view = m_long;
        }
        m_view = m_view.substr(0, m_view.find(u'\0'));
    }
    valueText(const valueText&) = delete;
    valueText& operator=(const valueText&) = delete;

    [[nodiscard]] std::u16string_view view() const { return m_view; }

private:
    char16_t m_short[512];
    string m_long;
    std::u16string_view m_view;
};

} // namespace

// --- Collecting a conversion -----------------------------------------------------------------

void conversionSpec::addChar(char16_t unit)
{
    if (m_length == maxLength) return;
    m_size = m_length > 0 ? sizeBehind(m_conversion[m_length - 1]) : 1;
    m_conversion[m_length++] = unit;
    const valueClass type = classOf(unit);
    if (type != valueClass::none) m_class = type;
}

// --- The text --------------------------------------------------------------------------------

stringTemplate::stringTemplate(const stringTemplate& other)
    : m_text(other.m_text), m_nextPosition(other.m_nextPosition),
      m_severity(copySeverity(other.severity()))
{}

stringTemplate& stringTemplate::operator=(const stringTemplate& other)
{
    if (this == &other) return *this;
    m_text = other.m_text;
    m_nextPosition = other.m_nextPosition;
    m_severity = copySeverity(other.severity());
    return *this;
}

void stringTemplate::setText(const char16_t* text)
{
    m_nextPosition = 0;
    if (text == nullptr) text = u"";
    if (text[0] != 0 && text[1] == u':') {
        if (!m_severity) m_severity = makeSeverity();
        readSeverity(text[0], *m_severity);
        text += 2;
    }
    m_text.assign(text);
    m_text.trimLeft(u" ");
}

// --- Finding a place -------------------------------------------------------------------------

bool stringTemplate::findPosition(std::int32_t number, place& found) const
{
    if (number < 1) return false;
    const std::u16string_view text = m_text;
    for (std::size_t at = text.find(u'$'); at != text.npos; at = text.find(u'$', at + 1)) {
        const std::size_t length = lengthOfNumber(text.substr(at + 1), number);
        if (length == 0) continue;
        found = {at, at + 1 + length};
        return true;
    }
    return false;
}

bool stringTemplate::findName(std::u16string_view name, place& found) const
{
    const std::u16string_view text = m_text;
    if (text.size() < 2) return false;
    std::size_t next = 0;
    for (std::size_t at = 0; at < text.size(); at = next) {
        next = at == 0 ? 2 : at + 1; // meant: no place opens at index 1
        if (opensPlace(text, at) && readPlace(at, name, found, next)) return true;
    }
    return false;
}

bool stringTemplate::readPlace(std::size_t at, std::u16string_view name, place& found,
                               std::size_t& next) const
{
    const std::u16string_view rest = std::u16string_view(m_text).substr(at + 1);
    const std::size_t shared = std::min(rest.size(), name.size());
    std::size_t same = 0;
    while (same < shared && rest[same] == name[same] && rest[same] != u']') ++same;
    if (same < shared && rest[same] != name[same]) {
        next = at + 1 + same + 1;
        return false;
    }

    const std::size_t close = rest.find(u']', same);
    if (close == rest.npos) {
        next = m_text.size(); // nor does any later bracket close
        return false;
    }
    found = {at, at + 1 + close + 1};
    next = found.end;
    const std::u16string_view content = rest.substr(0, close);
    return content.substr(0, content.rfind(u':')) == name;
}

void stringTemplate::findConversion(conversionSpec& format, place& found, bool placeFound) const
{
    const std::size_t last = found.end;
    for (std::size_t at = found.position; at + 1 < last && !format.isComplete(); ++at) {
        // Of "%%d" the second percent sign begins a conversion: a percent sign can't be escaped.
        if (m_text[at] != u'%' || m_text[at + 1] == u'%') continue;
        // A conversion without its letter stays, and takes room from what follows.
        const std::size_t reach = std::min(m_text.size(), at + conversionSpec::maxLength);
        std::size_t end = at;
        while (end < reach && !format.isComplete()) format.addChar(m_text[end++]);
        if (format.isComplete() && !placeFound) found = {at, end};
    }
}

bool stringTemplate::locatePlaceholder(conversionSpec& format, place& found, const char16_t* name)
{
    found = {0, m_text.size()};
    if (m_text.empty()) return false;
    const bool placeFound =
        name != nullptr ? findName(name, found) : findPosition(++m_nextPosition, found);
    findConversion(format, found, placeFound);
    if (!format.isComplete() && placeFound) {
        // Behind a conversion that never ended there may be no room for it.
        format.addChar(u'%');
        format.addChar(u's');
    } else if (!format.isComplete()) {
        found = {};
    }
    return format.isComplete();
}

void stringTemplate::fillPlace(const place& found, std::u16string_view text)
{
    m_text.replace(found.position, found.end - found.position, text);
}

// --- Inserting -------------------------------------------------------------------------------

template <class Value>
bool stringTemplate::insertAlways(Value value, const char16_t* name)
{
    conversionSpec format;
    place found;
    locatePlaceholder(format, found, name);
    fillPlace(found, valueText(format, value).view());
    return true;
}

bool stringTemplate::insertValue(short value, const char16_t* name)
{
    return insertAlways(std::int32_t{value}, name);
}

bool stringTemplate::insertValue(int value, const char16_t* name)
{
    conversionSpec format;
    place found;
    locatePlaceholder(format, found, name);
    const valueText text(format, std::int32_t{value});
    if (!text.view().empty()) fillPlace(found, text.view());
    return true;
}

bool stringTemplate::insertValue(long value, const char16_t* name)
{
    return insertAlways(static_cast<std::int32_t>(value), name);
}

bool stringTemplate::insertValue(double value, const char16_t* name)
{
    return insertAlways(value, name);
}

bool stringTemplate::insertValue(const char16_t* value, const char16_t* name)
{
    conversionSpec format;
    place found;
    if (!locatePlaceholder(format, found, name)) return false;
    fillPlace(found, value != nullptr ? valueText(format, value).view() : std::u16string_view());
    return true;
}

bool stringTemplate::insertValue(bool value, const char16_t* name)
{
    return insertAlways(value, name);
}

// In every class, the text class included, the unit counts as its number.
bool stringTemplate::insertValue(char16_t value, const char16_t* name)
{
    return insertAlways(std::int32_t{value}, name);
}

} // namespace orlo
