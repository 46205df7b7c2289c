#include "support/judgexml.h"

#include "platform/platform.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace orlo::tests {

namespace {

constexpr auto npos = std::u16string::npos;

void replaceEach(std::u16string& text, std::u16string_view from, std::u16string_view to)
{
    for (std::size_t at = text.find(from); at != npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

bool isBlank(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13);
}

// --- entities --------------------------------------------------------------------------------

// The last place of the reference, which has three digits, two or one.
std::size_t endOfReference(const std::u16string& text, std::size_t hit)
{
    for (std::size_t last = hit + 6; last >= hit + 4; --last)
        if (last < text.size() && text[last] == u';') return last;
    throw neverEnds();
}

void decodeReferences(std::u16string& text)
{
    for (std::size_t hit = text.find(u"&#x"); hit != npos; hit = text.find(u"&#x")) {
        const std::u16string reference = text.substr(hit, endOfReference(text, hit) + 1 - hit);
        std::string digits;
        for (const char16_t unit : reference.substr(3, reference.size() - 4))
            digits.push_back(unit < 128 ? static_cast<char>(unit) : '?');
        const auto unit = static_cast<char16_t>(std::strtol(digits.c_str(), nullptr, 16));
        replaceEach(text, reference, unit == 0 ? std::u16string() : std::u16string(1, unit));
    }
}

// --- the declared encoding -------------------------------------------------------------------

char lower(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

std::string lowered(std::string text)
{
    for (char& each : text) each = lower(each);
    return text;
}

// A buffer that is written from its start on, and read up to its first zero.
struct scanBuffer {
    std::string content = std::string(128, '\0');
    std::size_t written = 0;

    void store(char byte)
    {
        if (written < content.size()) content[written++] = byte;
    }
    [[nodiscard]] std::string value() const { return content.c_str(); }
};

// --- the reader ------------------------------------------------------------------------------

class judge {
public:
    judge(const std::u16string& text, bool keepWhitespace) : m_text(text), m_keep(keepWhitespace) {}

    std::optional<std::size_t> parse(judgedNode& node, std::size_t at);

private:
    [[nodiscard]] char16_t unitAt(std::size_t at) const
    {
        return at < m_text.size() ? m_text[at] : u'\0';
    }
    [[nodiscard]] bool stands(std::u16string_view what, std::size_t at) const
    {
        return m_text.compare(at, what.size(), what) == 0;
    }
    [[nodiscard]] std::size_t skipBlanks(std::size_t at) const
    {
        while (at < m_text.size() && isBlank(m_text[at])) ++at;
        return at;
    }
    [[nodiscard]] std::size_t require(char16_t unit, std::size_t at) const
    {
        const std::size_t found = m_text.find(unit, at);
        if (found == npos) throw malformed();
        return found;
    }

    std::optional<std::size_t> findTag(std::size_t at) const;
    std::size_t readName(judgedNode& node, std::size_t at) const;
    std::size_t readAttributes(judgedNode& node, std::size_t at) const;
    std::size_t readAttribute(judgedNode& node, std::size_t at) const;
    std::size_t closeTag(const judgedNode& node, std::size_t at) const;
    [[nodiscard]] std::u16string decodedText(std::size_t begin, std::size_t end) const;
    std::optional<std::size_t> readChildren(judgedNode& node, std::vector<judgedNode>& children,
                                            std::size_t at);

    const std::u16string& m_text;
    bool m_keep;
};

std::optional<std::size_t> judge::findTag(std::size_t at) const
{
    static constexpr struct {
        std::u16string_view opening;
        std::u16string_view closing;
    } skipped[] = {{u"<!--", u"-->"}, {u"<?", u"?>"}, {u"<!", u">"}};
    while (true) {
        at = m_text.find(u'<', at);
        if (at == npos) return std::nullopt;
        const auto* rule = std::begin(skipped);
        while (rule != std::end(skipped) && !stands(rule->opening, at)) ++rule;
        if (rule == std::end(skipped)) return at;
        at = m_text.find(rule->closing, at + rule->opening.size());
        if (at == npos) return std::nullopt;
        at += rule->closing.size();
    }
}

std::size_t judge::readName(judgedNode& node, std::size_t at) const
{
    const std::size_t begin = at;
    while (at < m_text.size() && !isBlank(m_text[at]) && m_text[at] != u'>' && m_text[at] != u'/')
        ++at;
    if (unitAt(at) == u'/' && unitAt(at + 1) != u'>') throw malformed();
    node.name = m_text.substr(begin, at - begin);
    return at;
}

std::size_t judge::readAttributes(judgedNode& node, std::size_t at) const
{
    while (at < m_text.size()) {
        at = skipBlanks(at);
        if (unitAt(at) == u'>' || (unitAt(at) == u'/' && unitAt(at + 1) == u'>')) break;
        at = readAttribute(node, at);
    }
    return at;
}

std::size_t judge::readAttribute(judgedNode& node, std::size_t at) const
{
    std::size_t nameEnd = at;
    while (nameEnd < m_text.size() && !isBlank(m_text[nameEnd]) && m_text[nameEnd] != u'=')
        ++nameEnd;
    const std::size_t quote = skipBlanks(require(u'=', nameEnd) + 1);
    if (unitAt(quote) != u'"' && unitAt(quote) != u'\'') throw malformed();
    const std::size_t end = require(m_text[quote], quote + 1);
    std::u16string value = m_text.substr(quote + 1, end - quote - 1);
    judgeDecodeEntities(value);
    node.attributes.emplace_back(m_text.substr(at, nameEnd - at), value);
    return end + 1;
}

std::size_t judge::closeTag(const judgedNode& node, std::size_t at) const
{
    at = skipBlanks(at);
    if (!stands(node.name, at)) throw malformed();
    at = skipBlanks(at + node.name.size());
    if (unitAt(at) != u'>') throw malformed();
    return at + 1;
}

std::u16string judge::decodedText(std::size_t begin, std::size_t end) const
{
    std::u16string text = m_text.substr(begin, end - begin);
    const auto isTrimmed = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
    while (!m_keep && !text.empty() && isTrimmed(text.front())) text.erase(0, 1);
    while (!m_keep && !text.empty() && isTrimmed(text.back())) text.pop_back();
    judgeDecodeEntities(text);
    return text;
}

std::optional<std::size_t> judge::parse(judgedNode& node, std::size_t at)
{
    const std::optional<std::size_t> tag = findTag(at);
    if (!tag) return std::nullopt;
    at = skipBlanks(*tag + 1);
    if (at == m_text.size()) throw malformed();
    if (m_text[at] == u'/') return tag;
    at = readAttributes(node, readName(node, at));
    if (unitAt(at) != u'>') return at;

    const std::size_t begin = at + 1;
    const std::size_t markup = require(u'<', begin);
    if (unitAt(markup + 1) == u'/') {
        at = closeTag(node, markup + 2);
        node.text = decodedText(begin, markup);
        return at;
    }
    const std::size_t text = skipBlanks(begin);
    if (text != markup) node.text = decodedText(text, markup);
    if (markup + 1 == m_text.size()) return markup;

    std::vector<judgedNode> children = node.children;
    const std::optional<std::size_t> end = readChildren(node, children, markup);
    if (end) node.children = children;
    return end;
}

std::optional<std::size_t> judge::readChildren(judgedNode& node, std::vector<judgedNode>& children,
                                               std::size_t at)
{
    while (true) {
        at = require(u'<', at);
        const std::size_t inside = skipBlanks(at + 1);
        if (unitAt(inside) == u'/') return closeTag(node, inside + 1);
        judgedNode child;
        const std::optional<std::size_t> next = parse(child, at);
        if (!next) return std::nullopt;
        if (!child.name.empty()) children.push_back(std::move(child));
        at = *next;
    }
}

// --- bytes -----------------------------------------------------------------------------------

std::u16string unitsOf(judgedBytes given)
{
    std::u16string units;
    for (std::size_t at = 0; at < given.size(); at += 2)
        units.push_back(
            static_cast<char16_t>(given[at] | (at + 1 < given.size() ? given[at + 1] << 8 : 0)));
    return units;
}

std::u16string converted(platform::encoding from, judgedBytes given)
{
    std::u16string units(given.size() + 1, u'\0');
    if (given.empty()) throw noText();
    const std::size_t count = platform::decode(from, given.data(), given.size(), units.data());
    if (count == 0) throw noText();
    units.resize(count);
    return units;
}

std::u16string documentText(judgedBytes given)
{
    const std::string_view view(reinterpret_cast<const char*>(given.data()), given.size());
    if (view.starts_with("\xEF\xBB\xBF"))
        return converted(platform::encoding::utf8, given.subspan(3));
    if (view.starts_with("\xFF\xFE")) return unitsOf(given.subspan(2));
    const std::string declared = lowered(judgeDeclaredEncoding(given).value_or(""));
    if (declared.empty() || declared == "utf-8") return converted(platform::encoding::utf8, given);
    if (declared == "utf-16") return unitsOf(given.subspan(2));
    return converted(platform::encoding::ansi, given);
}

} // namespace

void judgeDecodeEntities(std::u16string& text)
{
    std::size_t before = 0;
    do {
        before = text.size();
        replaceEach(text, u"&amp;", u"&");
        replaceEach(text, u"&apos;", u"'");
        replaceEach(text, u"&quot;", u"\"");
        replaceEach(text, u"&lt;", u"<");
        replaceEach(text, u"&gt;", u">");
        decodeReferences(text);
    } while (text.size() != before);
}

void judgeEncodeEntities(std::u16string& text)
{
    replaceEach(text, u"&", u"&amp;");
    replaceEach(text, u"'", u"&apos;");
    replaceEach(text, u"\"", u"&quot;");
    replaceEach(text, u"<", u"&lt;");
    replaceEach(text, u">", u"&gt;");
}

std::optional<std::string> judgeDeclaredEncoding(judgedBytes given)
{
    if (given.size() < 3 || given[0] != '<' || given[1] != '?') return std::nullopt;
    scanBuffer buffer;
    bool inWord = false;
    bool inValue = false;
    for (std::size_t at = 2; at < given.size(); ++at) {
        const char byte = static_cast<char>(given[at]);
        if (byte == '?' && at + 1 < given.size() && given[at + 1] == '>') break;
        if (lower(byte) == 'e') {
            inWord = true;
            buffer.store(byte);
        } else if (inWord && byte != '\0' && std::strchr("=cdgino", lower(byte)) != nullptr) {
            buffer.store(byte);
        } else if (inWord) {
            inWord = false;
            buffer.written = 0;
            if (byte == '"' && lowered(buffer.value()) == "encoding=") {
                inValue = true;
                buffer.content.assign(128, '\0');
            }
        } else if (inValue && byte == '"') {
            if (buffer.written == buffer.content.size()) throw endsProcess();
            break;
        } else if (inValue) {
            buffer.store(byte);
        }
    }
    if (!inValue) return std::nullopt;
    return buffer.value();
}

std::optional<std::size_t> judgeParse(judgedNode& node, const std::u16string& text,
                                      bool keepWhitespace)
{
    return judge(text, keepWhitespace).parse(node, 0);
}

void judgeParseBuffer(judgedNode& document, judgedBytes given, bool keepWhitespace)
{
    const std::u16string text = documentText(given);
    judgeParse(document, text.substr(0, text.find(u'\0')), keepWhitespace);
}

void judgeWrite(std::u16string& out, const judgedNode& node, const std::u16string& indent)
{
    out += indent + u"<" + node.name;
    for (auto [name, value] : node.attributes) {
        judgeEncodeEntities(value);
        out += u" " + name + u"=\"" + value + u"\"";
    }
    std::u16string text = node.text;
    judgeEncodeEntities(text);
    if (node.children.empty()) {
        out += text.empty() ? u"/>\n" : u">" + text + u"</" + node.name + u">\n";
        return;
    }
    out += u">\n";
    if (!text.empty()) {
        std::erase(text, u'\n');
        out += indent + u"   " + text + u"\n";
    }
    for (const judgedNode& child : node.children) judgeWrite(out, child, indent + u"   ");
    out += indent + u"</" + node.name + u">\n";
}

std::size_t judgeEstimate(const judgedNode& node, std::size_t width)
{
    std::size_t size = width + 1 + node.name.size();
    for (const auto& [name, value] : node.attributes) size += name.size() + value.size() + 8;
    if (node.children.empty())
        return size + (node.text.empty() ? 4 : node.text.size() + 9 + node.name.size());
    size += 2;
    for (const judgedNode& child : node.children) size += judgeEstimate(child, width + 3);
    return size + node.name.size() + 5 + width;
}

} // namespace orlo::tests
