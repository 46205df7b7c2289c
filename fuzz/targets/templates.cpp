// Texts with open places: which place a value fills, and what stands there then.
#include "orlostringtemplate.h"

#include "input.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <type_traits>

namespace orlo::fuzz {

namespace {

using text = std::u16string;

// --- where the next value goes, step by step --------------------------------------------------

struct place {
    std::size_t position = 0;
    std::size_t end = 0;
};

struct judgedConversion {
    text units;
    char kind = 0; // c, d, f, s, or C for a class that prints nothing

    void add(char16_t unit)
    {
        if (units.size() == 15) return;
        units += unit;
        const char letter = unit < 128 ? static_cast<char>(unit) : '\0';
        if (letter == '\0') return;
        static constexpr struct {
            std::string_view letters;
            char kind;
        } rows[] = {{"c", 'c'}, {"diouxX", 'd'}, {"eEfgG", 'f'}, {"s", 's'}, {"CS", 'C'}};
        for (const auto& row : rows)
            if (row.letters.find(letter) != row.letters.npos) kind = row.kind;
    }
};

// "%d" over the whole text: no value if no number stands there.
std::optional<long> scanned(const text& units)
{
    std::string narrow;
    for (const char16_t unit : units)
        narrow += unit > 0 && unit < 128 ? static_cast<char>(unit) : '?';
    char* end = nullptr;
    const long value = std::strtol(narrow.c_str(), &end, 10);
    if (end == narrow.c_str()) return std::nullopt;
    return value;
}

class judgedTemplate {
public:
    void set(const text& raw)
    {
        m_text = raw;
        m_next = 0;
        if (m_text.size() >= 2 && m_text[1] == u':') {
            static constexpr std::u16string_view letters = u"..IiWwEe";
            const std::size_t at = letters.find(m_text[0], 2);
            const bool known = at != letters.npos;
            m_severity = known ? static_cast<std::uint32_t>(at / 2) : m_severity.value_or(0);
            m_text.erase(0, 2);
        }
        m_text.erase(0, std::min(m_text.find_first_not_of(u' '), m_text.size()));
    }
    [[nodiscard]] const text& whole() const { return m_text; }
    [[nodiscard]] const std::optional<std::uint32_t>& severity() const { return m_severity; }

    bool locate(judgedConversion& conversion, place& found, const std::optional<text>& name)
    {
        found = {0, m_text.size()};
        if (m_text.empty()) return false;
        const bool placed = name ? findName(*name, found) : findNumber(++m_next, found);
        for (std::size_t at = found.position; at + 1 < found.end && conversion.kind == 0; ++at) {
            if (m_text[at] != u'%' || m_text[at + 1] == u'%') continue;
            std::size_t end = at;
            while (end < m_text.size() && conversion.kind == 0) conversion.add(m_text[end++]);
            if (conversion.kind != 0 && !placed) found = {at, end};
        }
        if (placed && conversion.kind == 0) {
            conversion.add(u'%');
            conversion.add(u's');
        }
        if (!placed && conversion.kind == 0) found = {};
        return conversion.kind != 0;
    }
    void replace(const place& at, const text& by)
    {
        m_text.replace(at.position, at.end - at.position, by);
    }

private:
    bool findNumber(long number, place& found) const
    {
        for (std::size_t at = 0; at + 1 < m_text.size(); ++at) {
            if (m_text[at] != u'$') continue;
            for (std::size_t length = 1; length <= 63 && at + length < m_text.size(); ++length) {
                if (scanned(m_text.substr(at + 1, length)) != number) continue;
                found = {at, at + 1 + length};
                return true;
            }
        }
        return false;
    }
    bool findName(const text& name, place& found) const
    {
        if (m_text.size() < 2) return false;
        for (std::size_t at = 0; at < m_text.size(); at = at == 0 ? 2 : at + 1) {
            if (m_text[at] != u'[' || (at > 0 && m_text[at - 1] == u'\\')) continue;
            if (const std::optional<bool> matched = tryPlace(at, name, found); matched)
                return *matched;
        }
        return false;
    }
    // Moves `at` to the last unit that is done with; true and false are final.
    std::optional<bool> tryPlace(std::size_t& at, const text& name, place& found) const
    {
        text content;
        std::size_t read = at + 1;
        for (; read < m_text.size() && m_text[read] != u']'; ++read) {
            if (content.size() < name.size() && m_text[read] != name[content.size()]) {
                at = read;
                return std::nullopt;
            }
            content += m_text[read];
        }
        if (read == m_text.size()) return std::nullopt;
        if (content.size() < name.size() && name[content.size()] != u']') {
            at = read; // the closing bracket is the first unit that differs
            return std::nullopt;
        }
        found = {at, read + 1};
        at = read;
        if (content.substr(0, content.rfind(u':')) == name) return true;
        return std::nullopt;
    }

    text m_text;
    long m_next = 0;
    std::optional<std::uint32_t> m_severity;
};

// --- what a number looks like -----------------------------------------------------------------

// The conversion for the C library, if it is one of the plain forms that it knows too.
std::optional<std::string> plainForm(const text& conversion, std::string_view letters,
                                     std::string_view length)
{
    std::size_t at = 1;
    const auto skip = [&](std::u16string_view set) {
        while (at < conversion.size() && set.find(conversion[at]) != set.npos) ++at;
    };
    skip(u"-+ #0");
    skip(u"0123456789");
    if (at < conversion.size() && conversion[at] == u'.') {
        ++at;
        skip(u"0123456789");
    }
    if (at + 1 != conversion.size() ||
        letters.find(static_cast<char>(conversion[at])) == letters.npos)
        return std::nullopt;
    std::string form;
    for (const char16_t unit : conversion) form += static_cast<char>(unit);
    form.insert(at, length);
    return form;
}

template <class Value>
text printed(const std::string& form, Value value)
{
    char room[12000];
    const int length = std::snprintf(room, sizeof room, form.c_str(), value);
    return {room, room + length};
}

struct valueOf {
    double number;
    bool whole;       // an integer
    const char* word; // what it reads as where a text is wanted; empty: its number
};

// No value where the judge doesn't know.
std::optional<text> judgedValue(const judgedConversion& conversion, const valueOf& value)
{
    const bool isFinite = std::fabs(value.number) < 2147483648.0;
    if (conversion.kind == 'f') {
        const auto form = plainForm(conversion.units, "eEfgG", "");
        if (form && std::isfinite(value.number)) return printed(*form, value.number);
    } else if (conversion.kind == 'd' && isFinite) {
        const auto form = plainForm(conversion.units, "diouxX", "");
        if (form) return printed(*form, static_cast<int>(value.number));
    } else if (conversion.kind == 's' && std::isfinite(value.number)) {
        const auto form = plainForm(conversion.units, "s", "");
        const text word = value.whole ? printed("%d", static_cast<int>(value.number))
                                      : printed("%f", value.number);
        const std::string narrow =
            *value.word != '\0' ? std::string(value.word) : std::string(word.begin(), word.end());
        const bool known = form && form->find_first_of("0#+ ") > form->find_first_of("123456789.s");
        if (known) return printed(*form, narrow.c_str());
    } else if (conversion.kind == 'C') {
        return text();
    }
    return std::nullopt;
}

// --- one insertion ----------------------------------------------------------------------------

class trial {
public:
    explicit trial(const text& raw)
    {
        m_product.setText(raw.c_str());
        m_judge.set(raw);
        expectSame("a text is taken without its severity and leading blanks");
    }

    [[nodiscard]] bool isHuge() const
    {
        return asksForMuch(m_judge.whole()) || m_judge.whole().size() > 20000;
    }
    void setText(const text& raw)
    {
        m_product.setText(raw.c_str());
        m_judge.set(raw);
        expectSame("a second text replaces the first");
    }

    template <class Value>
    void insertNumber(Value value, const valueOf& judged, const std::optional<text>& name)
    {
        judgedConversion conversion;
        place at;
        const bool located = m_judge.locate(conversion, at, name);
        expect(m_product.insertValue(value, name ? name->c_str() : nullptr),
               "a number is always taken");
        const std::optional<text> wanted = located ? judgedValue(conversion, judged) : text();
        const bool staysOpen = std::is_same_v<Value, int>;
        take(at, wanted, staysOpen);
    }

    void insertText(const text& value, const std::optional<text>& name)
    {
        judgedConversion conversion;
        place at;
        const bool located = m_judge.locate(conversion, at, name);
        const bool taken = m_product.insertValue(value.c_str(), name ? name->c_str() : nullptr);
        expect(taken == located, "a text is taken where there is a place");
        if (!located) return expectSame("without a place the text stays");
        take(at, conversion.units == u"%s" ? std::optional<text>(value) : std::nullopt, false);
    }

private:
    void take(const place& at, std::optional<text> wanted, bool staysOpen)
    {
        if (!wanted) wanted = cutOut(at, staysOpen);
        if (!wanted->empty() || !staysOpen) m_judge.replace(at, *wanted);
        expectSame("the value stands in the place that the rules tell");
        const stringTemplate copy(m_product);
        expect(copy.text() == m_product.text(), "a copy has the same text");
    }
    // What stands in the place now, where the judge can't tell: before and behind it nothing
    // has changed.
    [[nodiscard]] text cutOut(const place& at, bool staysOpen) const
    {
        const text before = m_judge.whole().substr(0, at.position);
        const text behind = m_judge.whole().substr(at.end);
        const text now = m_product.text();
        if (staysOpen && now == m_judge.whole()) return {};
        expect(now.size() >= before.size() + behind.size() && now.starts_with(before) &&
                   now.ends_with(behind),
               "only the place changes");
        return now.substr(before.size(), now.size() - before.size() - behind.size());
    }
    void expectSame(const char* promise) const
    {
        expect(m_product.text() == string(m_judge.whole()), promise);
        expect((m_product.severity() != nullptr) == m_judge.severity().has_value(),
               "a severity is there if one was told");
        expect(m_product.severity() == nullptr || *m_product.severity() == *m_judge.severity(),
               "the severity is kept");
    }

    stringTemplate m_product;
    judgedTemplate m_judge;
};

text upToZero(bytes given)
{
    return textOf(given).c_str();
}

void insertNext(trial& tried, input& next, const std::vector<bytes>& words)
{
    const std::uint8_t kind = next.byte();
    const auto word = [&](std::size_t which) {
        return words.empty() ? text() : upToZero(words[which % words.size()]);
    };
    const std::optional<text> name =
        (kind & 8) != 0 ? std::optional<text>(word(kind >> 4)) : std::nullopt;
    switch (kind & 7) {
    case 0: {
        const auto value = next.take<short>();
        return tried.insertNumber(value, {static_cast<double>(value), true, ""}, name);
    }
    case 1: {
        const auto value = next.take<std::int32_t>();
        return tried.insertNumber(value, {static_cast<double>(value), true, ""}, name);
    }
    case 2: {
        const auto value = next.take<std::int32_t>();
        return tried.insertNumber(static_cast<long>(value), {static_cast<double>(value), true, ""},
                                  name);
    }
    case 3: {
        const auto value = next.take<double>();
        return tried.insertNumber(value, {value, false, ""}, name);
    }
    case 4: {
        const bool value = next.byte() % 2 != 0;
        return tried.insertNumber(value, {value ? 1.0 : 0.0, true, value ? "True" : "False"}, name);
    }
    case 5: {
        const auto value = next.take<char16_t>();
        return tried.insertNumber(value, {static_cast<double>(value), true, ""}, name);
    }
    case 6: return tried.insertText(word(next.byte()), name);
    default: return tried.setText(word(next.byte()));
    }
}

} // namespace

// The parts: a text, names and texts to put in, and the steps.
void templates(bytes given)
{
    std::vector<bytes> parts = cut(given);
    trial tried(upToZero(parts.front()));
    input steps(parts.back());
    const std::vector<bytes> words(parts.begin(), parts.end() - 1);
    for (int count = 0; count < 16 && !steps.ended() && !tried.isHuge(); ++count)
        insertNext(tried, steps, words);
}

} // namespace orlo::fuzz
