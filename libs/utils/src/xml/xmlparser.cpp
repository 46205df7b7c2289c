// The reader of element trees. It goes through a zero-terminated text once, by pointers, with
// one function for each construct, which takes the place where the construct begins and gives
// the place behind it. Nesting costs memory but no call stack: open elements stand in a list,
// and all nodes that no finished element holds yet wait in another, each open element followed
// by its children so far. An element that ends takes its children from there in one piece, so
// a text that ends early leaves none of them behind.
#include "xml/xmlparser.h"
#include "orloexception.h"
#include "orlounit.h"
#include "orloxmlnode.h"
#include "text/unitsearch.h"
#include "text/unitset.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>
#include <string_view>
#include <vector>

namespace orlo {

namespace {

using namespace std::string_view_literals;

using place = const char16_t*; // into the text; the terminator is the last one

// So that usual elements do not make the list of waiting nodes grow.
constexpr std::size_t pendingRoom = 512;

constexpr unitSet nameEnds(u" \t\n\v\f\r>/\0"sv);
constexpr unitSet attributeNameEnds(u" \t\n\v\f\r=\0"sv);

[[noreturn]] void fail()
{
    throw unexpectedErrorException(u"xmlNode::parseText: invalid xml-format");
}

std::u16string_view between(place begin, place end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

place skipBlanks(place at)
{
    while (isSpaceUnit(*at)) ++at;
    return at;
}

place findOneOf(place at, const unitSet& units)
{
    while (!units.contains(*at)) ++at;
    return at;
}

// The terminator if the unit does not come.
place findUnit(place at, char16_t unit)
{
    while (*at != unit && *at != 0) ++at;
    return at;
}

place expectUnit(place at, char16_t unit)
{
    const place found = findUnit(at, unit);
    if (*found == 0) fail();
    return found;
}

bool startsWith(place at, std::u16string_view text)
{
    for (const char16_t unit : text)
        if (*at++ != unit) return false; // a terminator differs as well
    return true;
}

// Null if the text ends first.
place findBehind(place at, std::u16string_view closing)
{
    for (; *at != 0; ++at)
        if (startsWith(at, closing)) return at + closing.size();
    return nullptr;
}

// Markup that makes no element. The last rule takes all that begins like a declaration, and
// ends at the first ">" whatever is inside.
struct passedOver {
    std::u16string_view opening;
    std::u16string_view closing;
};
constexpr passedOver passedOverMarkup[] = {{u"<!--", u"-->"}, {u"<?", u"?>"}, {u"<!", u">"}};

const passedOver* passedOverAt(place at)
{
    for (const passedOver& each : passedOverMarkup)
        if (startsWith(at, each.opening)) return &each;
    return nullptr;
}

// The next "<" that begins a tag; null if the text ends first, also inside a comment.
place findTag(place at)
{
    while (at != nullptr) {
        at = findUnit(at, u'<');
        if (*at == 0) return nullptr;
        const passedOver* const markup = passedOverAt(at);
        if (markup == nullptr) return at;
        at = findBehind(at + markup->opening.size(), markup->closing);
    }
    return nullptr;
}

bool endsTag(place at)
{
    return *at == u'>' || (*at == u'/' && at[1] == u'>');
}

// From behind the "/" of a closing tag.
place readClosingTag(place at, const string& name)
{
    at = skipBlanks(at);
    if (!startsWith(at, name)) fail();
    at = skipBlanks(at + name.size());
    if (*at != u'>') fail();
    return at + 1;
}

std::u16string_view trimmed(std::u16string_view text)
{
    constexpr std::u16string_view blanks = u" \t";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(blanks) + 1));
    return text;
}

class treeReader {
public:
    // In front of `knownEnd` there is no terminator.
    treeReader(place knownEnd, bool keepWhitespace)
        : m_knownEnd(knownEnd), m_keepWhitespace(keepWhitespace)
    {
        m_pending.reserve(pendingRoom);
    }

    // Fills `outermost`; null if the text ended first.
    place read(xmlNode& outermost, place at);

private:
    struct openElement {
        xmlNode* node;
        std::size_t firstChild; // in m_pending, which holds the node itself just before
    };
    struct rawAttribute {
        std::u16string_view name;
        std::u16string_view value;
    };
    enum class content { none, follows };

    place readContent(place at);
    place readChild(place at);
    content readStart(xmlNode& node, place& at);
    place readName(xmlNode& node, place at);
    place readAttributes(xmlNode& node, place at);
    place findAttributes(place at);
    place findAttribute(place at);
    void addAttributes(xmlNode& node);
    content readFirstText(xmlNode& node, place& at);
    place findMarkup(place at) const;
    void storeText(xmlNode& node, place begin, place end);
    std::u16string_view decoded(std::u16string_view text);
    void closeElement();
    void dropIfNameless();

    place m_knownEnd;
    bool m_keepWhitespace;
    std::vector<openElement> m_open;
    std::vector<refptr<xmlNode>> m_pending;
    std::vector<rawAttribute> m_attributes; // of the tag that is being read
    string m_decoded;
};

place treeReader::read(xmlNode& outermost, place at)
{
    if (readStart(outermost, at) == content::none) return at;
    m_open.push_back({&outermost, 0});
    while (at != nullptr && !m_open.empty()) at = readContent(at);
    return at;
}

// One step inside the innermost open element: its closing tag or a child.
place treeReader::readContent(place at)
{
    at = findMarkup(at);
    const place inside = skipBlanks(at + 1);
    if (*inside != u'/') return readChild(at);
    at = readClosingTag(inside + 1, m_open.back().node->name);
    closeElement();
    return at;
}

place treeReader::readChild(place at)
{
    m_pending.push_back(refptr<xmlNode>(new xmlNode)); // owned before the list asks for room
    xmlNode* const child = m_pending.back().get();
    child->parent = m_open.back().node;
    if (readStart(*child, at) == content::follows)
        m_open.push_back({child, m_pending.size()});
    else
        dropIfNameless();
    return at;
}

// Reads an element up to its first child or other inner markup, or to its end if there is
// none, and moves `at` there; to null if the text ended before a tag.
treeReader::content treeReader::readStart(xmlNode& node, place& at)
{
    at = findTag(at);
    if (at == nullptr) return content::none;
    const place inside = skipBlanks(at + 1);
    if (*inside == 0) fail();
    if (*inside == u'/') return content::none; // the closing tag of the element around
    at = readName(node, inside);
    at = readAttributes(node, at);
    // A "/>" is left to the next search for "<". The end of the text counts as one.
    if (*at != u'>') return content::none;
    ++at;
    return readFirstText(node, at);
}

place treeReader::readName(xmlNode& node, place at)
{
    const place end = findOneOf(at, nameEnds);
    if (*end == u'/' && end[1] != u'>') fail();
    node.name = string(between(at, end));
    return end;
}

// What was read before a fault stays with the node.
place treeReader::readAttributes(xmlNode& node, place at)
{
    m_attributes.clear();
    try {
        at = findAttributes(at);
    } catch (...) {
        addAttributes(node);
        throw;
    }
    addAttributes(node);
    return at;
}

place treeReader::findAttributes(place at)
{
    while (*at != 0) {
        at = skipBlanks(at);
        if (endsTag(at)) break;
        at = findAttribute(at);
    }
    return at;
}

// The "=" may be anywhere behind the name: what stands between is lost.
place treeReader::findAttribute(place at)
{
    const place nameEnd = findOneOf(at, attributeNameEnds);
    const place quote = skipBlanks(expectUnit(nameEnd, u'=') + 1);
    if (*quote != u'"' && *quote != u'\'') fail();
    const place valueEnd = expectUnit(quote + 1, *quote);
    m_attributes.push_back({between(at, nameEnd), between(quote + 1, valueEnd)});
    return valueEnd + 1;
}

void treeReader::addAttributes(xmlNode& node)
{
    if (m_attributes.empty()) return;
    node.attributes.reserve(node.attributes.size() + m_attributes.size());
    for (const rawAttribute& each : m_attributes)
        node.attributes.emplace_back(each.name, decoded(each.value));
}

// From behind the ">" of the opening tag. Text is only what stands before the first markup.
treeReader::content treeReader::readFirstText(xmlNode& node, place& at)
{
    const place begin = at;
    const place markup = findMarkup(begin);
    if (markup[1] == u'/') {
        at = readClosingTag(markup + 2, node.name);
        storeText(node, begin, markup);
        return content::none;
    }
    at = markup;
    const place text = skipBlanks(begin);
    if (text != markup) storeText(node, text, markup);
    return markup[1] == 0 ? content::none : content::follows;
}

place treeReader::findMarkup(place at) const
{
    if (at < m_knownEnd) at += indexOfUnit(between(at, m_knownEnd), u'<');
    return expectUnit(at, u'<');
}

void treeReader::storeText(xmlNode& node, place begin, place end)
{
    const std::u16string_view text = between(begin, end);
    node.text = string(decoded(m_keepWhitespace ? text : trimmed(text)));
}

// The text itself, or one that holds until the next call.
std::u16string_view treeReader::decoded(std::u16string_view text)
{
    if (indexOfUnit(text, u'&') == text.size()) return text;
    m_decoded.assign(text);
    decodeEntities(m_decoded);
    return m_decoded;
}

void treeReader::closeElement()
{
    const openElement closed = m_open.back();
    m_open.pop_back();
    const auto first = m_pending.begin() + static_cast<std::ptrdiff_t>(closed.firstChild);
    std::vector<refptr<xmlNode>>& children = closed.node->children;
    children.reserve(children.size() + static_cast<std::size_t>(m_pending.end() - first));
    children.insert(children.end(), std::move_iterator(first), std::move_iterator(m_pending.end()));
    m_pending.erase(first, m_pending.end());
    if (!m_open.empty()) dropIfNameless();
}

// The last of the waiting nodes is complete; without a name it held but comments, or a tag
// that nobody can ask for.
void treeReader::dropIfNameless()
{
    if (m_pending.back()->name.empty()) m_pending.pop_back();
}

} // namespace

const char16_t* readTree(xmlNode& outermost, const char16_t* text, std::size_t length,
                         bool keepWhitespace)
{
    try {
        return treeReader(text + length, keepWhitespace).read(outermost, text);
    } catch (const std::bad_alloc&) {
        throw outOfMemoryException();
    }
}

// The buffer of the caller is not needed: short texts need no memory of their own.
const char16_t* xmlNode::parseText(const char16_t* source, bool keepWhitespace,
                                   char16_t* /*scratch*/)
{
    if (source == nullptr)
        throw unexpectedErrorException(u"xmlNode::parseText: NULL specified for pText");
    return readTree(*this, source, 0, keepWhitespace);
}

} // namespace orlo
