#include "support/randomxml.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace orlo::tests {

namespace {

using namespace std::string_view_literals;

// Builds a document out of elements; now and then something else comes between.
class documentMaker {
public:
    explicit documentMaker(std::mt19937& random) : m_random(random) {}

    std::string make()
    {
        addStart();
        addElement(3);
        if (oneIn(4)) m_bytes += anyOf(oddities);
        if (oneIn(8)) m_bytes = inUnits(m_bytes);
        if (oneIn(4)) m_bytes.resize(below(m_bytes.size() + 1));
        if (oneIn(16)) m_bytes.insert(below(m_bytes.size() + 1), 1, static_cast<char>(below(256)));
        return std::move(m_bytes);
    }

private:
    static constexpr std::string_view names[] = {"a"sv,
                                                 "b"sv,
                                                 "ab"sv,
                                                 "a:b.c-1"sv,
                                                 "name_of_some_length"sv,
                                                 "\xC3\xA9"sv,
                                                 "\xFF"sv,
                                                 "\xE4\xB8\xAD"sv,
                                                 "\xE4\xB8"sv,
                                                 "\x80"sv,
                                                 "\xF0\x9F\x98\x80"sv,
                                                 ""sv};
    static constexpr std::string_view texts[] = {"x"sv,
                                                 " "sv,
                                                 "\t"sv,
                                                 "\n"sv,
                                                 "some text that is longer than others "sv,
                                                 "&lt;"sv,
                                                 "&amp;"sv,
                                                 "&amp;lt;"sv,
                                                 "&#x41;"sv,
                                                 "&#xe9;"sv,
                                                 "&#x0;"sv,
                                                 "&foo;"sv,
                                                 "&"sv,
                                                 "#x41;"sv,
                                                 "\xC3\xA9"sv,
                                                 "\xE2\x82\xAC"sv,
                                                 "\xF0\x9F\x98\x80"sv,
                                                 "\xED\xA0\x80"sv,
                                                 "\xC3"sv,
                                                 "\xE2\x82"sv,
                                                 "\xF0\x9F\x98"sv,
                                                 "\xF0\x9F"sv,
                                                 "\xA9"sv,
                                                 "\xFE"sv,
                                                 "\xC0\x80"sv,
                                                 "\xF4\x90\x80\x80"sv,
                                                 "\x81\x3C"sv,
                                                 "\xEF\xBB\xBF"sv,
                                                 "'"sv,
                                                 "="sv,
                                                 "/"sv};
    static constexpr std::string_view blanks[] = {""sv,   ""sv,    ""sv,      " "sv,
                                                  "\n"sv, "\t "sv, "\v\f\r"sv};
    static constexpr std::string_view oddities[] = {
        "<"sv,           ">"sv,
        "/"sv,           "</"sv,
        "/>"sv,          "="sv,
        "\""sv,          "'"sv,
        "\0"sv,          "<!-- c -->"sv,
        "<!-- "sv,       "-->"sv,
        "<?p ?>"sv,      "<?"sv,
        "?>"sv,          "<!DOCTYPE x [<!ENTITY y 'z'>]>"sv,
        "<!"sv,          "<![CDATA[x>]]>"sv,
        "<>"sv,          "</>"sv,
        "< a / >"sv,     "\xC3"sv,
        "\xEF\xBF\xBD"sv};
    static constexpr std::string_view encodings[] = {
        "utf-8"sv, "UTF-8"sv,      "utf-16"sv,       "UTF-16"sv, "utf8"sv,  "utf16"sv, "utf-16le"sv,
        ""sv,      "iso-8859-1"sv, "windows-1252"sv, "x"sv,      "ascii"sv, "be\"c"sv};

    template <std::size_t Count>
    std::string_view anyOf(const std::string_view (&set)[Count])
    {
        return set[below(Count)];
    }
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    bool oneIn(std::size_t times) { return below(times) == 0; }

    void addStart()
    {
        if (oneIn(6)) m_bytes += "\xEF\xBB\xBF";
        if (oneIn(2)) {
            m_bytes += "<?xml version=\"1.0\" encoding=\"";
            m_bytes += anyOf(encodings);
            m_bytes += "\"?>";
        } else if (oneIn(4)) {
            m_bytes += "<?xml version='1.0' encoding='x'?>";
        }
        if (oneIn(4)) m_bytes += anyOf(oddities);
        m_bytes += anyOf(blanks);
    }
    void addText(std::size_t most)
    {
        for (std::size_t pieces = below(most + 1); pieces > 0; --pieces) m_bytes += anyOf(texts);
    }
    void addAttribute()
    {
        const char quote = oneIn(2) ? '"' : '\'';
        m_bytes += oneIn(8) ? "" : " ";
        m_bytes += anyOf(names);
        m_bytes += anyOf(blanks);
        m_bytes += oneIn(24) ? "" : "=";
        m_bytes += anyOf(blanks);
        m_bytes += quote;
        addText(3);
        m_bytes += quote;
    }
    void addElement(std::size_t depth)
    {
        const std::string_view name = anyOf(names);
        m_bytes += '<';
        m_bytes += oneIn(8) ? anyOf(blanks) : ""sv;
        m_bytes += name;
        while (oneIn(3)) addAttribute();
        m_bytes += oneIn(8) ? anyOf(blanks) : ""sv;
        if (oneIn(4)) {
            m_bytes += "/>";
            return;
        }
        m_bytes += '>';
        addText(4);
        for (std::size_t inner = depth == 0 ? 0 : below(4); inner > 0; --inner) {
            oneIn(8) ? static_cast<void>(m_bytes += anyOf(oddities)) : addElement(depth - 1);
            m_bytes += anyOf(blanks);
        }
        m_bytes += oneIn(8) ? "</ " : "</";
        m_bytes += oneIn(24) ? anyOf(names) : name;
        m_bytes += oneIn(8) ? anyOf(blanks) : ""sv;
        m_bytes += oneIn(32) ? "" : ">";
    }
    // The same with each byte as a unit, behind the mark of UTF-16 or without it.
    std::string inUnits(std::string_view bytes)
    {
        std::string units = oneIn(8) ? "" : "\xFF\xFE";
        for (const char each : bytes) {
            units += each;
            units += oneIn(64) ? '\x4E' : '\0';
        }
        return units;
    }

    std::mt19937& m_random;
    std::string m_bytes;
};

} // namespace

std::string randomDocument(std::mt19937& random)
{
    return documentMaker(random).make();
}

} // namespace orlo::tests
