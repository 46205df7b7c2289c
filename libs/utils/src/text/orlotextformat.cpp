// How a format becomes a text: formatInto copies what stands between the conversions and reads
// each conversion into a `conversion`, its flags, counts and length letter; the letter picks one
// of the printers below. A printer takes its argument as the type that it needs, makes the pieces
// of a number (sign, mark, digits, exponent) as narrow text with std::to_chars, and puts them
// with their padding into the output, one that grows or one that is cut. Zeros without end are
// never stored: they are counts until they are put.
#include "orlotextformat.h"

#include "orlounit.h"
#include "text/narrownumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace orlo {

namespace {

// --- Where a formatted text goes -------------------------------------------------------------

class textOutput {
public:
    virtual ~textOutput() = default;
    virtual void put(std::u16string_view text) = 0;
    virtual void putNarrow(std::string_view text) = 0;
    virtual void fill(std::size_t count, char16_t unit) = 0;
    // Nothing more fits.
    [[nodiscard]] virtual bool isCut() const = 0;
};

class growingOutput : public textOutput {
public:
    explicit growingOutput(std::u16string& text) : m_text(text) {}
    void put(std::u16string_view text) override { m_text.append(text); }
    void putNarrow(std::string_view text) override
    {
        const std::size_t length = m_text.size();
        m_text.resize(length + text.size());
        widen(text, m_text.data() + length);
    }
    void fill(std::size_t count, char16_t unit) override { m_text.append(count, unit); }
    [[nodiscard]] bool isCut() const override { return false; }

private:
    std::u16string& m_text;
};

class boundedOutput : public textOutput {
public:
    boundedOutput(char16_t* buffer, std::size_t capacity) : m_at(buffer), m_room(capacity) {}
    void put(std::u16string_view text) override
    {
        advance(std::copy_n(text.data(), fitting(text.size()), m_at));
    }
    void putNarrow(std::string_view text) override
    {
        advance(widen(text.substr(0, fitting(text.size())), m_at));
    }
    void fill(std::size_t count, char16_t unit) override
    {
        advance(std::fill_n(m_at, fitting(count), unit));
    }
    [[nodiscard]] bool isCut() const override { return m_cut; }

    void terminate()
    {
        if (m_room > 0) *m_at = 0;
    }
    [[nodiscard]] const char16_t* end() const { return m_at; }

private:
    std::size_t fitting(std::size_t count)
    {
        m_cut = m_cut || count > m_room;
        return std::min(count, m_room);
    }
    void advance(char16_t* end)
    {
        m_room -= static_cast<std::size_t>(end - m_at);
        m_at = end;
    }

    char16_t* m_at;
    std::size_t m_room;
    bool m_cut = false;
};

// --- One conversion --------------------------------------------------------------------------

constexpr std::size_t maxCount = std::numeric_limits<std::int32_t>::max();

struct conversion {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeros = false;
    bool hasPrecision = false;
    std::size_t width = 0;
    std::size_t precision = 0;
    bool widthIsPassed = false; // by a "*"
    bool precisionIsPassed = false;
    int bits = 0; // told by a length letter; 0 without one
    char16_t letter = 0;
};

const char16_t* readFlags(const char16_t* at, conversion& read)
{
    static constexpr struct {
        char16_t unit;
        bool conversion::*flag;
    } flags[] = {
        {u'-', &conversion::left},      {u'+', &conversion::plus},  {u' ', &conversion::blank},
        {u'#', &conversion::alternate}, {u'0', &conversion::zeros},
    };
    for (;; ++at) {
        const auto hit = std::find_if(std::begin(flags), std::end(flags),
                                      [at](auto& row) { return row.unit == *at; });
        if (hit == std::end(flags)) return at;
        read.*hit->flag = true;
    }
}

// Whether the argument of a "*" was passed is told later.
const char16_t* readCount(const char16_t* at, std::size_t& count, bool& isPassed)
{
    for (; *at == u'*' || isDigitUnit(*at); ++at) {
        if (*at == u'*')
            isPassed = true;
        else
            count = std::min(count * 10 + (*at - u'0'), maxCount + 1);
    }
    return at;
}

bool startsWith(const char16_t* text, std::u16string_view prefix)
{
    return std::all_of(prefix.begin(), prefix.end(),
                       [&text](char16_t unit) { return *text != 0 && *text++ == unit; });
}

// Doubled and contradicting letters are taken too; the last one counts.
const char16_t* readLength(const char16_t* at, int& bits)
{
    static constexpr struct {
        std::u16string_view letters;
        int bits;
    } lengths[] = {{u"hh", 8}, {u"h", 16}, {u"ll", 64}, {u"l", 32}, {u"I64", 64}, {u"I32", 32},
                   {u"I", 64}, {u"L", 64}, {u"j", 64},  {u"z", 64}, {u"t", 64}};

    for (;;) {
        const auto stands = [at](auto& row) { return startsWith(at, row.letters); };
        const auto hit = std::find_if(std::begin(lengths), std::end(lengths), stands);
        if (hit == std::end(lengths)) return at;
        at += hit->letters.size();
        bits = hit->bits;
    }
}

// Reads what follows a percent sign.
const char16_t* readConversion(const char16_t* at, conversion& read)
{
    at = readFlags(at, read);
    at = readCount(at, read.width, read.widthIsPassed);
    if (*at == u'.') {
        read.hasPrecision = true;
        at = readCount(at + 1, read.precision, read.precisionIsPassed);
    }
    at = readLength(at, read.bits);
    read.letter = *at;
    return *at == 0 ? at : at + 1;
}

// --- Numbers in their field ------------------------------------------------------------------

// The pieces of a printed number, in their order.
struct numberPieces {
    std::string_view sign{};
    std::string_view mark{}; // "0x"
    std::size_t leadingZeros = 0;
    std::string_view digits{};
    std::string_view point{}; // where the digits hold none but one is asked for
    std::size_t trailingZeros = 0;
    std::string_view exponent{};
};

void putNumber(textOutput& out, const conversion& field, numberPieces number, bool zerosAllowed)
{
    const std::size_t length = number.sign.size() + number.mark.size() + number.leadingZeros +
                               number.digits.size() + number.point.size() + number.trailingZeros +
                               number.exponent.size();
    std::size_t padding = field.width > length ? field.width - length : 0;
    if (field.zeros && zerosAllowed && !field.left)
        number.leadingZeros += std::exchange(padding, 0);

    if (!field.left) out.fill(padding, u' ');
    out.putNarrow(number.sign);
    out.putNarrow(number.mark);
    out.fill(number.leadingZeros, u'0');
    out.putNarrow(number.digits);
    out.putNarrow(number.point);
    out.fill(number.trailingZeros, u'0');
    out.putNarrow(number.exponent);
    if (field.left) out.fill(padding, u' ');
}

std::string_view signOf(bool negative, const conversion& field)
{
    if (negative) return "-";
    if (field.plus) return "+";
    return field.blank ? " " : "";
}

bool isUpperLetter(const conversion& field)
{
    return lowerUnit(field.letter) != field.letter;
}

void upperCase(char* begin, const char* end)
{
    for (; begin != end; ++begin) {
        if (*begin >= 'a' && *begin <= 'z') *begin = static_cast<char>(*begin - 32);
    }
}

// "0x", in the case of the letter.
std::string_view hexadecimalMark(const conversion& field)
{
    return isUpperLetter(field) ? "0X" : "0x";
}

void putInteger(textOutput& out, const conversion& field, numberPieces number,
                std::uint64_t magnitude, int base)
{
    std::array<char, 24> room;
    char* const end = std::to_chars(room.data(), room.data() + room.size(), magnitude, base).ptr;
    if (isUpperLetter(field)) upperCase(room.data(), end);

    if (magnitude != 0 || !field.hasPrecision || field.precision > 0) {
        number.digits = {room.data(), static_cast<std::size_t>(end - room.data())};
    }
    number.leadingZeros =
        field.precision > number.digits.size() ? field.precision - number.digits.size() : 0;
    const bool wantsZero = field.alternate && base == 8 && number.leadingZeros == 0;
    if (wantsZero && !number.digits.starts_with('0')) number.leadingZeros = 1;
    putNumber(out, field, number, !field.hasPrecision);
}

// Bits that fall away when the value is cut to the width that the conversion prints.
int surplusBits(const conversion& field, const formatArgument& argument)
{
    return 64 - (field.bits != 0 ? field.bits : argument.bits());
}

void printSigned(textOutput& out, const conversion& field, const formatArgument& argument)
{
    const int surplus = surplusBits(field, argument);
    const auto bits = static_cast<std::uint64_t>(argument.asInteger());
    const std::int64_t value = static_cast<std::int64_t>(bits << surplus) >> surplus;
    const std::uint64_t magnitude =
        value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    putInteger(out, field, {.sign = signOf(value < 0, field)}, magnitude, 10);
}

void printUnsigned(textOutput& out, const conversion& field, const formatArgument& argument)
{
    const int surplus = surplusBits(field, argument);
    const std::uint64_t value =
        static_cast<std::uint64_t>(argument.asInteger()) << surplus >> surplus;
    const bool hexadecimal = lowerUnit(field.letter) == u'x';
    const bool marked = hexadecimal && field.alternate && value != 0;
    const std::string_view mark = marked ? hexadecimalMark(field) : "";
    putInteger(out, field, {.mark = mark}, value, hexadecimal ? 16 : field.letter == u'o' ? 8 : 10);
}

// All digits of an address, in upper case.
void printPointer(textOutput& out, const conversion& field, const formatArgument& argument)
{
    conversion digits = field;
    digits.letter = u'X';
    digits.hasPrecision = true;
    digits.precision = 2 * sizeof(void*);
    putInteger(out, digits, {}, static_cast<std::uint64_t>(argument.asInteger()), 16);
}

// Splits the text of a number at its exponent, which may be empty.
void takeDigits(std::string_view text, char exponentMark, numberPieces& number)
{
    const std::size_t exponent = std::min(text.find(exponentMark), text.size());
    number.digits = text.substr(0, exponent);
    number.exponent = text.substr(exponent);
}

void takeDecimals(narrowBuffer& room, double value, std::chars_format form, std::size_t precision,
                  numberPieces& number)
{
    const char exponentMark = form == std::chars_format::hex ? 'p' : 'e';
    takeDigits(printNarrow(room, value, form, precision), exponentMark, number);
    number.trailingZeros = precision - std::min(precision, exactDecimals);
}

// As many digits as it takes, where the precision does not tell: 13 hold every double. (The
// library's own shortest form would bring its tables of powers along.)
void takeHexadecimal(narrowBuffer& room, double value, const conversion& field,
                     numberPieces& number)
{
    constexpr std::size_t mostDigits = 13;
    number.mark = hexadecimalMark(field);
    takeDecimals(room, value, std::chars_format::hex,
                 field.hasPrecision ? field.precision : mostDigits, number);
    if (field.hasPrecision) return;
    number.digits = number.digits.substr(0, number.digits.find_last_not_of('0') + 1);
    if (number.digits.ends_with('.')) number.digits.remove_suffix(1);
}

int exponentOf(std::string_view scientific)
{
    int exponent = 0;
    const std::size_t mark = scientific.find('e');
    const bool negative = scientific[mark + 1] == '-';
    std::from_chars(scientific.data() + mark + 2, scientific.data() + scientific.size(), exponent);
    return negative ? -exponent : exponent;
}

// "%#g": as many digits as asked for, zeros included.
void takeAllDigits(narrowBuffer& room, double value, std::size_t digits, numberPieces& number)
{
    const int exponent =
        exponentOf(printNarrow(room, value, std::chars_format::scientific, digits - 1));
    if (exponent < -4 || (exponent >= 0 && static_cast<std::size_t>(exponent) >= digits)) {
        takeDecimals(room, value, std::chars_format::scientific, digits - 1, number);
        return;
    }
    const std::size_t decimals = exponent < 0 ? digits - 1 + static_cast<std::size_t>(-exponent)
                                              : digits - 1 - static_cast<std::size_t>(exponent);
    takeDecimals(room, value, std::chars_format::fixed, decimals, number);
}

void takeFinite(narrowBuffer& room, double value, const conversion& field, numberPieces& number)
{
    const std::size_t precision = field.hasPrecision ? field.precision : 6;
    switch (lowerUnit(field.letter)) {
    case u'e': takeDecimals(room, value, std::chars_format::scientific, precision, number); break;
    case u'f': takeDecimals(room, value, std::chars_format::fixed, precision, number); break;
    case u'a': takeHexadecimal(room, value, field, number); break;
    default:
        if (field.alternate) {
            takeAllDigits(room, value, std::max<std::size_t>(precision, 1), number);
        } else {
            takeDigits(printNarrow(room, value, std::chars_format::general, precision), 'e',
                       number);
        }
    }
    if (field.alternate && number.digits.find('.') == std::string_view::npos) number.point = ".";
}

void printFloating(textOutput& out, const conversion& field, const formatArgument& argument)
{
    narrowBuffer room;
    const double value = argument.asFloating();
    numberPieces number{.sign = signOf(std::signbit(value), field)};
    if (std::isfinite(value)) {
        takeFinite(room, std::fabs(value), field, number);
    } else {
        takeDigits(printNarrow(room, std::fabs(value), std::chars_format::fixed, 0), 'e', number);
    }
    if (isUpperLetter(field))
        upperCase(room.data(), number.exponent.data() + number.exponent.size());
    putNumber(out, field, number, std::isfinite(value));
}

// --- Texts in their field --------------------------------------------------------------------

void putText(textOutput& out, const conversion& field, std::u16string_view text)
{
    const std::size_t padding = field.width > text.size() ? field.width - text.size() : 0;
    if (!field.left) out.fill(padding, u' ');
    out.put(text);
    if (field.left) out.fill(padding, u' ');
}

void printText(textOutput& out, const conversion& field, const formatArgument& argument)
{
    const char16_t* const text = argument.asText();
    if (text == nullptr) return;
    // Nothing is read behind the precision: the text need not end there.
    const std::size_t limit = field.hasPrecision ? field.precision : std::u16string_view::npos;
    std::size_t length = 0;
    while (length < limit && text[length] != 0) ++length;
    putText(out, field, {text, length});
}

void printUnit(textOutput& out, const conversion& field, const formatArgument& argument)
{
    const bool isText = argument.type() == formatArgument::kind::text;
    if (isText && argument.asText() == nullptr) return;
    const auto unit = isText ? *argument.asText() : static_cast<char16_t>(argument.asInteger());
    putText(out, field, {&unit, 1});
}

// --- Whole formats ---------------------------------------------------------------------------

using printFunction = void (*)(textOutput&, const conversion&, const formatArgument&);

printFunction printerOf(char16_t letter)
{
    static constexpr struct {
        std::u16string_view letters;
        printFunction print;
    } printers[] = {
        {u"di", printSigned}, {u"ouxX", printUnsigned}, {u"eEfFgGaA", printFloating},
        {u"cC", printUnit},   {u"sS", printText},       {u"p", printPointer},
    };
    for (const auto& row : printers) {
        if (row.letters.find(letter) != row.letters.npos) return row.print;
    }
    return nullptr;
}

// A negative width is a positive one with the flag "-".
void takeWidth(conversion& field, const formatArgument& argument)
{
    const auto width = std::int64_t{static_cast<std::int32_t>(argument.asInteger())};
    field.left = field.left || width < 0;
    field.width = static_cast<std::size_t>(width < 0 ? -width : width);
}

// A negative precision counts as none.
void takePrecision(conversion& field, const formatArgument& argument)
{
    const auto precision = static_cast<std::int32_t>(argument.asInteger());
    field.hasPrecision = precision >= 0;
    field.precision = static_cast<std::size_t>(std::max(precision, 0));
}

// Takes the arguments of each "*" where they and the value itself were passed: a text that
// comes from a language file may hold a "*" that nobody reckoned with.
void takeCounts(conversion& field, std::span<const formatArgument>& arguments)
{
    const std::size_t counts = std::size_t{field.widthIsPassed} + field.precisionIsPassed;
    if (arguments.size() <= counts) {
        field.hasPrecision = field.hasPrecision && !field.precisionIsPassed;
        return;
    }
    auto argument = arguments.begin();
    if (field.widthIsPassed) takeWidth(field, *argument++);
    if (field.precisionIsPassed) takePrecision(field, *argument);
    arguments = arguments.subspan(counts);
}

void formatInto(textOutput& out, const char16_t* format, std::span<const formatArgument> arguments)
{
    while (*format != 0 && !out.isCut()) {
        const char16_t* percent = format;
        while (*percent != 0 && *percent != u'%') ++percent;
        out.put({format, static_cast<std::size_t>(percent - format)});
        if (*percent == 0) return;

        conversion field;
        format = readConversion(percent + 1, field);
        if (field.letter == u'%') out.put(u"%");
        const printFunction print = printerOf(field.letter);
        if (print == nullptr || arguments.empty()) continue;
        takeCounts(field, arguments);
        if (field.width <= maxCount && field.precision <= maxCount)
            print(out, field, arguments.front());
        arguments = arguments.subspan(1);
    }
}

} // namespace

// --- Arguments -------------------------------------------------------------------------------

std::int64_t formatArgument::asInteger() const
{
    constexpr double limit = 9223372036854775808.0;
    switch (m_kind) {
    case kind::integer: return m_value.integer;
    case kind::unsignedInteger:
    case kind::pointer: return static_cast<std::int64_t>(m_value.unsignedInteger);
    case kind::unit: return m_value.unit;
    case kind::floating:
        // What no 64 bits hold becomes the value that the processor gives for it.
        if (!(m_value.floating >= -limit && m_value.floating < limit))
            return std::numeric_limits<std::int64_t>::min();
        return static_cast<std::int64_t>(m_value.floating);
    default: return 0;
    }
}

double formatArgument::asFloating() const
{
    switch (m_kind) {
    case kind::floating: return m_value.floating;
    case kind::unsignedInteger: return static_cast<double>(m_value.unsignedInteger);
    default: return static_cast<double>(asInteger());
    }
}

// --- Printing --------------------------------------------------------------------------------

// Made aside, as the arguments may be pieces of the text that grows.
void formatText(std::u16string& out, const char16_t* format,
                std::span<const formatArgument> arguments)
{
    std::u16string made;
    growingOutput output(made);
    formatInto(output, format, arguments);
    out.append(made);
}

int formatText(char16_t* buffer, std::size_t capacity, const char16_t* format,
               std::span<const formatArgument> arguments)
{
    boundedOutput output(buffer, capacity);
    formatInto(output, format, arguments);
    output.terminate();
    return output.isCut() ? -1 : static_cast<int>(output.end() - buffer);
}

int formatTextUnbounded(char16_t* buffer, const char16_t* format,
                        std::span<const formatArgument> arguments)
{
    return formatText(buffer, std::numeric_limits<std::size_t>::max(), format, arguments);
}

} // namespace orlo
