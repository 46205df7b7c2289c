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
    return std::transform(narrow.begin(), narrow.end(), out, [](char byte) { return static_cast<char16_t>(byte); });
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
    void put(std::u16string_view text) override { advance(std::copy_n(text.data(), fitting(text.size()), m_at)); }
    void putNarrow(std::string_view text) override { advance(widen(text.substr(0, fitting(text.size())), m_at)); }
    void fill(std::size_t count, char16_t unit) override { advance(std::fill_n(m_at, fitting(count), unit)); }
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
        const auto hit = std::find_if(std::begin(flags), std::end(flags), [at](auto& row) { return row.unit == *at; });
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
    return std::all_of(prefix.begin(), prefix.end(), [&text](char16_t unit) { return *text != 0 && *text++ == unit; });
}

// Doubled and contradicting letters are taken too; the last one counts.
const char16_t* readLength(const char16_t* at, int& bits)
{
    static constexpr struct {
        std::u16string_view letters;
        int bits;
    } lengths[] = {{u"hh", 8}, {u"h", 16}, {u"ll", 64}, {u"l", 32}, {u"I64", 64}, {u"I32", 32}, {u"L", 64}};

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
    const std::size_t length = number.sign.size() + number.leadingZeros + number.digits.size() + number.point.size() +
                               number.trailingZeros + number.exponent.size();
    std::size_t padding = field.width > length ? field.width - length : 0;
    if (field.zeros && zerosAllowed && !field.left) number.leadingZeros += std::exchange(padding, 0);

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

void putInteger(textOutput& out, const conversion& field, std::string_view sign, std::uint64_t magnitude, int base)
{
    std::array<char, 24> room;
    char* const end = std::to_chars(room.data(), room.data() + room.size(), magnitude, base).ptr;
    if (isUpperLetter(field)) upperCase(room.data(), end);

    numberPieces number{.sign = sign};
    if (magnitude != 0 || !field.hasPrecision || field.precision > 0) {
        number.digits = {room.data(), static_cast<std::size_t>(end - room.data())};
    }
    number.leadingZeros = field.precision > number.digits.size() ? field.precision - number.digits.size() : 0;
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
    const std::uint64_t value = static_cast<std::uint64_t>(argument.asInteger()) << surplus >> surplus;
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

std::string_view convert(narrowBuffer& room, double value, std::chars_format form, std::size_t precision)
{
    const auto decimals = static_cast<int>(std::min(precision, exactDecimals));
    const char* const end = std::to_chars(room.data(), room.data() + room.size(), value, form, decimals).ptr;
    return {room.data(), static_cast<std::size_t>(end - room.data())};
}

void takeDecimals(narrowBuffer& room, double value, std::chars_format form, std::size_t precision, numberPieces& number)
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
    const int exponent = exponentOf(convert(room, value, std::chars_format::scientific, digits - 1));
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
    if (isUpperLetter(field)) upperCase(room.data(), number.exponent.data() + number.exponent.size());
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

// --- Scanning --------------------------------------------------------------------------------

const char16_t* skipSpace(const char16_t* text)
{
    while (isSpaceUnit(*text)) ++text;
    return text;
}

// Takes a sign; true for a minus.
bool takeSign(const char16_t*& text)
{
    if (*text != u'-' && *text != u'+') return false;
    return *text++ == u'-';
}

// A whole number in front of a text, in as many bits as there are.
struct wholeNumber {
    bool negative = false;
    bool tooLarge = false;
    std::uint64_t magnitude = 0;
};

constexpr unsigned noDigit = 36;

unsigned digitValue(char16_t unit)
{
    if (isDigitUnit(unit)) return static_cast<unsigned>(unit - u'0');
    const char16_t lower = lowerUnit(unit);
    return lower >= u'a' && lower <= u'z' ? static_cast<unsigned>(lower - u'a' + 10) : noDigit;
}

// Gives the end of the number, or null if no digit stands there.
const char16_t* readWhole(const char16_t* text, unsigned base, wholeNumber& number)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    text = skipSpace(text);
    number.negative = takeSign(text);
    if (base == 16 && text[0] == u'0' && lowerUnit(text[1]) == u'x' && digitValue(text[2]) < base) text += 2;

    const char16_t* const first = text;
    for (unsigned digit = digitValue(*text); digit < base; digit = digitValue(*++text)) {
        number.tooLarge = number.tooLarge || number.magnitude > (most - digit) / base;
        number.magnitude = number.tooLarge ? most : number.magnitude * base + digit;
    }
    return text == first ? nullptr : text;
}

std::int32_t limitedToLong(const wholeNumber& number)
{
    constexpr std::uint64_t mostNegative = 0x80000000;
    const auto magnitude =
        static_cast<std::int64_t>(std::min(number.magnitude, number.negative ? mostNegative : mostNegative - 1));
    return static_cast<std::int32_t>(number.negative ? -magnitude : magnitude);
}

template <class Target>
bool scanUnsigned(const char16_t* text, Target& value)
{
    wholeNumber number;
    if (readWhole(text, 10, number) == nullptr) return false;
    constexpr Target most = std::numeric_limits<Target>::max();
    const bool fits = !number.tooLarge && number.magnitude <= most;
    const auto magnitude = static_cast<Target>(number.magnitude);
    if (fits) {
        value = number.negative ? static_cast<Target>(0 - magnitude) : magnitude;
    } else {
        value = most;
    }
    return true;
}

// Digits of a plain decimal number such as "12.5", gathered without its separator.
struct plainDecimal {
    std::uint64_t digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    const char16_t* end = nullptr;
};

plainDecimal readPlain(const char16_t* text)
{
    plainDecimal read;
    const auto takeDigits = [&] {
        const char16_t* const first = text;
        for (; isDigitUnit(*text); ++text) read.digits = read.digits * 10 + static_cast<std::uint64_t>(*text - u'0');
        return static_cast<std::size_t>(text - first);
    };
    read.count = takeDigits();
    if (*text == u'.') {
        ++text;
        read.decimals = takeDigits();
        read.count += read.decimals;
    }
    read.end = text;
    return read;
}

// Up to 15 digits and a power of ten up to 22 are exact doubles, so that one division gives
// the nearest value. Exponents, hexadecimal forms and long numbers go the general way.
bool scanShort(const char16_t* text, double& magnitude)
{
    static constexpr double powers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const plainDecimal read = readPlain(text);
    const char16_t next = lowerUnit(*read.end);
    if (read.count == 0 || read.count >= std::size(powers) || next == u'e' || next == u'x') return false;
    magnitude = static_cast<double>(read.digits) / powers[read.decimals];
    return true;
}

// Units that may be part of a number, as bytes: letters too, for exponents and "infinity".
class narrowNumber {
public:
    explicit narrowNumber(const char16_t* text)
    {
        std::size_t length = 0;
        while (canBelong(text[length])) ++length;
        if (length > m_short.size()) m_long.resize(length);
        char* const begin = length > m_short.size() ? m_long.data() : m_short.data();
        std::transform(text, text + length, begin, [](char16_t unit) { return static_cast<char>(unit); });
        m_view = {begin, length};
    }
    narrowNumber(const narrowNumber&) = delete;
    narrowNumber& operator=(const narrowNumber&) = delete;
    [[nodiscard]] std::string_view view() const { return m_view; }

private:
    static bool canBelong(char16_t unit)
    {
        return digitValue(unit) != noDigit || unit == u'.' || unit == u'+' || unit == u'-';
    }

    std::array<char, 64> m_short;
    std::string m_long;
    std::string_view m_view;
};

// The decimal number behind an exponent's letter; a double, since it may have any length.
double readExponent(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    double exponent = 0;
    for (std::size_t at = 0; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        exponent = exponent * 10 + (text[at] - '0');
    }
    return negative ? -exponent : exponent;
}

// Whether a number that no double holds is too large rather than too small. Such a number is
// far from 1, so the place of its first digit and the exponent tell.
bool isBeyondOne(std::string_view text, std::chars_format form)
{
    const bool hexadecimal = form == std::chars_format::hex;
    const std::size_t end = text.find_first_not_of(hexadecimal ? "0123456789abcdefABCDEF." : "0123456789.");
    const std::string_view digits = text.substr(0, end);
    const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<double>(digits.find_first_not_of("0."));

    const char16_t mark = end < text.size() ? lowerUnit(static_cast<char16_t>(text[end])) : u'\0';
    const double exponent = mark == (hexadecimal ? u'p' : u'e') ? readExponent(text.substr(end + 1)) : 0;
    return (point - first) * (hexadecimal ? 4 : 1) + exponent > 0;
}

// Value of unsigned text in the given form; false if it does not begin with a number.
bool readForm(std::string_view text, std::chars_format form, double& magnitude)
{
    const auto read = std::from_chars(text.data(), text.data() + text.size(), magnitude, form);
    if (read.ec == std::errc::invalid_argument) return false;
    if (read.ec == std::errc::result_out_of_range) {
        magnitude = isBeyondOne(text, form) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return true;
}

// Behind "0x" only a digit, or a separator and a digit, go on with the number.
bool beginsHexadecimal(std::string_view text)
{
    const auto isHexadecimal = [text](std::size_t at) {
        return at < text.size() && digitValue(static_cast<char16_t>(text[at])) < 16;
    };
    const bool marked = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    return marked && (isHexadecimal(2) || (text[2] == '.' && isHexadecimal(3)));
}

bool scanGeneral(const char16_t* text, double& magnitude)
{
    const narrowNumber number(text);
    // No number goes on at a second sign, but std::from_chars takes "p+-1" for an exponent.
    const std::string_view view = number.view().substr(0, number.view().find("+-"));
    if (view.starts_with('-')) return false;
    if (beginsHexadecimal(view)) return readForm(view.substr(2), std::chars_format::hex, magnitude);
    return readForm(view, std::chars_format::general, magnitude);
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
        if (!(m_value.floating >= -limit && m_value.floating < limit)) return std::numeric_limits<std::int64_t>::min();
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

char16_t* printNumber(char16_t* buffer, double value)
{
    narrowBuffer room;
    std::string_view text = convert(room, value, std::chars_format::fixed, numberDecimals);
    while (text.size() > 1 && text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    return widen(text, buffer);
}

// --- Scans -----------------------------------------------------------------------------------

bool scanLong(const char16_t* text, std::int32_t& value)
{
    wholeNumber number;
    if (readWhole(text, 10, number) == nullptr) return false;
    value = limitedToLong(number);
    return true;
}

bool scanUnsignedLong(const char16_t* text, std::uint32_t& value)
{
    return scanUnsigned(text, value);
}

bool scanUnsignedLongLong(const char16_t* text, std::uint64_t& value)
{
    return scanUnsigned(text, value);
}

bool scanDouble(const char16_t* text, double& value)
{
    text = skipSpace(text);
    const bool negative = takeSign(text);
    double magnitude = 0;
    if (!scanShort(text, magnitude) && !scanGeneral(text, magnitude)) return false;
    value = negative ? -magnitude : magnitude;
    return true;
}

int scanIntegers(const char16_t* text, const char16_t* format, std::span<std::int32_t> fields)
{
    std::size_t count = 0;
    while (*format != 0 && count < fields.size()) {
        if (format[0] != u'%' || format[1] != u'd') {
            if (*text++ != *format++) break;
            continue;
        }
        wholeNumber number;
        text = readWhole(text, 10, number);
        if (text == nullptr) break;
        fields[count++] = limitedToLong(number);
        format += 2;
    }
    return static_cast<int>(count);
}

std::int32_t scanHexadecimal(const char16_t* text)
{
    wholeNumber number;
    return readWhole(text, 16, number) == nullptr ? 0 : limitedToLong(number);
}

} // namespace orlo
