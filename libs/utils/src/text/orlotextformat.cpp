#include "orlotextformat.h"

#include "orlounit.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace orlo {

namespace {

// --- Numbers as narrow text ------------------------------------------------------------------

// No double has more than 1074 decimals or 767 digits: what lies behind are zeros.
constexpr std::size_t exactDecimals = 1100;
// Sign, 309 digits, separator, decimals.
constexpr std::size_t narrowRoom = exactDecimals + 350;
constexpr std::size_t numberDecimals = 8;

char16_t* widen(std::string_view narrow, char16_t* out)
{
    return std::transform(narrow.begin(), narrow.end(), out,
                          [](char byte) { return static_cast<char16_t>(byte); });
}

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
    explicit growingOutput(string& text) : m_text(text) {}
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
    string& m_text;
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

// A "*" would take an argument that nobody passed.
const char16_t* readCount(const char16_t* at, std::size_t& count)
{
    for (; *at == u'*' || isDigitUnit(*at); ++at) {
        if (*at != u'*') count = std::min(count * 10 + (*at - u'0'), maxCount + 1);
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
    } lengths[] = {{u"hh", 8},   {u"h", 16},   {u"ll", 64}, {u"l", 32},
                   {u"I64", 64}, {u"I32", 32}, {u"L", 64}};

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
    at = readCount(at, read.width);
    if (*at == u'.') {
        read.hasPrecision = true;
        at = readCount(at + 1, read.precision);
    }
    at = readLength(at, read.bits);
    read.letter = *at;
    return *at == 0 ? at : at + 1;
}

// --- Numbers in their field ------------------------------------------------------------------

// The pieces of a printed number, in their order.
struct numberPieces {
    std::string_view sign{}; // and "0x"
    std::size_t leadingZeros = 0;
    std::string_view digits{};
    std::string_view point{}; // where the digits hold none but one is asked for
    std::size_t trailingZeros = 0;
    std::string_view exponent{};
};

void putNumber(textOutput& out, const conversion& field, numberPieces number, bool zerosAllowed)
{
    const std::size_t length = number.sign.size() + number.leadingZeros + number.digits.size() +
                               number.point.size() + number.trailingZeros + number.exponent.size();
    std::size_t padding = field.width > length ? field.width - length : 0;
    if (field.zeros && zerosAllowed && !field.left)
        number.leadingZeros += std::exchange(padding, 0);

    if (!field.left) out.fill(padding, u' ');
    out.putNarrow(number.sign);
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

void putInteger(textOutput& out, const conversion& field, std::string_view sign,
                std::uint64_t magnitude, int base)
{
    std::array<char, 24> room;
    char* const end = std::to_chars(room.data(), room.data() + room.size(), magnitude, base).ptr;
    if (isUpperLetter(field)) upperCase(room.data(), end);

    numberPieces number{.sign = sign};
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
    putInteger(out, field, signOf(value < 0, field), magnitude, 10);
}

void printUnsigned(textOutput& out, const conversion& field, const formatArgument& argument)
{
    const int surplus = surplusBits(field, argument);
    const std::uint64_t value =
        static_cast<std::uint64_t>(argument.asInteger()) << surplus >> surplus;
    const bool hexadecimal = lowerUnit(field.letter) == u'x';
    const bool marked = hexadecimal && field.alternate && value != 0;
    const std::string_view mark = !marked ? "" : field.letter == u'X' ? "0X" : "0x";
    putInteger(out, field, mark, value, hexadecimal ? 16 : field.letter == u'o' ? 8 : 10);
}

// Splits the text of a number at its exponent, which may be empty.
void takeDigits(std::string_view text, numberPieces& number)
{
    const std::size_t exponent = std::min(text.find('e'), text.size());
    number.digits = text.substr(0, exponent);
    number.exponent = text.substr(exponent);
}

using narrowBuffer = std::array<char, narrowRoom>;

std::string_view convert(narrowBuffer& room, double value, std::chars_format form,
                         std::size_t precision)
{
    const auto decimals = static_cast<int>(std::min(precision, exactDecimals));
    const char* const end =
        std::to_chars(room.data(), room.data() + room.size(), value, form, decimals).ptr;
    return {room.data(), static_cast<std::size_t>(end - room.data())};
}

void takeDecimals(narrowBuffer& room, double value, std::chars_format form, std::size_t precision,
                  numberPieces& number)
{
    takeDigits(convert(room, value, form, precision), number);
    number.trailingZeros = precision - std::min(precision, exactDecimals);
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
        exponentOf(convert(room, value, std::chars_format::scientific, digits - 1));
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
    default:
        if (field.alternate) {
            takeAllDigits(room, value, std::max<std::size_t>(precision, 1), number);
        } else {
            takeDigits(convert(room, value, std::chars_format::general, precision), number);
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
        takeDigits(convert(room, std::fabs(value), std::chars_format::fixed, 0), number);
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

char16_t unitOf(const formatArgument& argument)
{
    const std::int64_t value = argument.asInteger();
    switch (argument.type()) {
    case formatArgument::kind::text: return *argument.asText();
    case formatArgument::kind::unit: return static_cast<char16_t>(value);
    case formatArgument::kind::floating: return static_cast<unsigned char>(value);
    default: return static_cast<char16_t>(static_cast<signed char>(value));
    }
}

void printUnit(textOutput& out, const conversion& field, const formatArgument& argument)
{
    if (argument.type() == formatArgument::kind::text && argument.asText() == nullptr) return;
    const char16_t unit = unitOf(argument);
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
        {u"di", printSigned}, {u"ouxX", printUnsigned}, {u"eEfFgG", printFloating},
        {u"cC", printUnit},   {u"sS", printText},
    };
    for (const auto& row : printers) {
        if (row.letters.find(letter) != row.letters.npos) return row.print;
    }
    return nullptr;
}

void formatInto(textOutput& out, const char16_t* format, std::span<const formatArgument> arguments)
{
    auto argument = arguments.begin();
    while (*format != 0 && !out.isCut()) {
        const char16_t* percent = format;
        while (*percent != 0 && *percent != u'%') ++percent;
        out.put({format, static_cast<std::size_t>(percent - format)});
        if (*percent == 0) return;

        conversion field;
        format = readConversion(percent + 1, field);
        if (field.letter == u'%') out.put(u"%");
        const printFunction print = printerOf(field.letter);
        if (print == nullptr || argument == arguments.end()) continue;
        if (field.width <= maxCount && field.precision <= maxCount) print(out, field, *argument);
        ++argument;
    }
}

} // namespace

// --- Arguments -------------------------------------------------------------------------------

std::int64_t formatArgument::asInteger() const
{
    constexpr double limit = 9223372036854775808.0;
    switch (m_kind) {
    case kind::integer: return m_value.integer;
    case kind::unsignedInteger: return static_cast<std::int64_t>(m_value.unsignedInteger);
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

void formatText(string& out, const char16_t* format, std::span<const formatArgument> arguments)
{
    growingOutput output(out);
    formatInto(output, format, arguments);
}

int formatText(char16_t* buffer, std::size_t capacity, const char16_t* format,
               std::span<const formatArgument> arguments)
{
    boundedOutput output(buffer, capacity);
    formatInto(output, format, arguments);
    output.terminate();
    return output.isCut() ? -1 : static_cast<int>(output.end() - buffer);
}

char16_t* printFixed(char16_t* buffer, double value, int precision)
{
    narrowBuffer room;
    const auto decimals = static_cast<std::size_t>(precision < 0 ? 6 : precision);
    buffer = widen(convert(room, value, std::chars_format::fixed, decimals), buffer);
    if (decimals <= exactDecimals || !std::isfinite(value)) return buffer;
    return std::fill_n(buffer, decimals - exactDecimals, u'0');
}

void printNumber(string& to, double value)
{
    narrowBuffer room;
    std::string_view text = convert(room, value, std::chars_format::fixed, numberDecimals);
    while (text.size() > 1 && text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    to.resize(text.size());
    widen(text, to.data());
}

} // namespace orlo
