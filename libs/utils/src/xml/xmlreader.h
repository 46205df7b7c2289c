// The reader of element trees. It goes through a text once, from place to place, with one function
// for each construct, which takes the place where the construct begins and gives the place behind
// it. The text stays as it is and where it is: the reader looks for markup in the units or bytes
// that it has, and only what a node stores is decoded.
//
// Nesting costs memory but no call stack. Open elements stand in a list. The finished children of
// an open element hang on each other, the last one first, by the `parent` that they don't have yet;
// an element that ends takes them over in one piece and of the exact size. So a text that ends
// early leaves none of them behind.
#pragma once

#include "orloexception.h"
#include "orlorefptr.h"
#include "orlounit.h"
#include "orloxmlentities.h"
#include "platform/platform.h"
#include "text/unitset.h"
#include "xml/heapforecast.h"
#include "xml/slotblocks.h"

#include <cstddef>
#include <new>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace orlo::detail {

// `Source` is one of those of xmlsource.h; `Node` is xmlNode, which this header need not know.
template <class Node, class Source>
class treeReader {
public:
    using place = typename Source::place;

    treeReader(Source source, bool keepWhitespace)
        : m_source(source), m_keepWhitespace(keepWhitespace)
    {}
    treeReader(const treeReader&) = delete;
    treeReader& operator=(const treeReader&) = delete;
    ~treeReader();

    // Fills `outermost`, and gives the place where the caller goes on; null if the text ended
    // first.
    place read(Node& outermost, place at);

private:
    using nodePointer = refptr<Node>;

    struct openElement {
        Node* node; // counted, but for the outermost
        Node* lastChild = nullptr;
        std::size_t childCount = 0;
    };
    struct rawAttribute {
        place name;
        place nameEnd;
        place value;
        place valueEnd;
    };
    enum class content { none, follows };
    enum class entities { keep, decode };

    [[noreturn]] static void fail()
    {
        throw unexpectedErrorException(u"xmlNode::parseText: invalid xml-format");
    }

    [[nodiscard]] char16_t unitAt(place at) const { return m_source.unitAt(at); }
    [[nodiscard]] place skipBlanks(place at) const;
    [[nodiscard]] place findOneOf(place at, const unitSet& units) const;
    [[nodiscard]] place expectUnit(place at, char16_t unit) const;
    [[nodiscard]] bool startsWith(place at, std::u16string_view text) const;
    [[nodiscard]] place findBehind(place at, std::u16string_view closing) const;
    [[nodiscard]] place findTag(place at) const;
    [[nodiscard]] bool endsTag(place at) const;

    place readContent(place at);
    place readChild(place at);
    content readStart(Node& node, place& at);
    place readName(Node& node, place at);
    place readAttributes(Node& node, place at);
    bool findAttributes(place& at);
    bool findAttribute(place& at);
    void addAttributes(Node& node);
    void addAttribute(Node& node, const rawAttribute& raw);
    content readFirstText(Node& node, place& at);
    place readClosingTag(const Node& node, place at) const;
    void storeText(Node& node, place begin, place end);
    void store(string& to, place begin, place end, entities inIt);
    std::u16string_view decoded(place begin, place end);
    void foresee(std::size_t bytes, place at);
    void closeElement();
    void addChild(nodePointer child);
    static void takeChildren(const openElement& from);
    static void dropChildren(const openElement& from) noexcept;

    Source m_source;
    bool m_keepWhitespace;
    slotBlocks m_nodes{sizeof(Node)};
    heapForecast m_heap;
    std::vector<openElement> m_open;
    std::vector<rawAttribute> m_attributes; // of the tag that is being read
    string m_decoded;                       // room to work in
};

// Markup that makes no element. The last rule takes all that begins like a declaration, and ends
// at the first ">" whatever is inside.
struct passedOverMarkup {
    std::u16string_view opening;
    std::u16string_view closing;
};
inline constexpr passedOverMarkup passedOver[] = {{u"<!--", u"-->"}, {u"<?", u"?>"}, {u"<!", u">"}};

inline constexpr unitSet nameEnds{{u" \t\n\v\f\r>/\0", 9}};
inline constexpr unitSet closingNameEnds{{u" \t\n\v\f\r>\0", 8}};
inline constexpr unitSet attributeNameEnds{{u" \t\n\v\f\r=\0", 8}};

template <class Node, class Source>
treeReader<Node, Source>::~treeReader()
{
    for (const openElement& each : m_open) {
        dropChildren(each);
        if (&each != &m_open.front()) nodePointer::attach(each.node);
    }
}

template <class Node, class Source>
auto treeReader<Node, Source>::read(Node& outermost, place at) -> place
{
    if (readStart(outermost, at) == content::none) return at;
    m_open.push_back({&outermost});
    while (at != nullptr && !m_open.empty()) at = readContent(at);
    return at;
}

// --- Places --------------------------------------------------------------------------------

template <class Node, class Source>
auto treeReader<Node, Source>::skipBlanks(place at) const -> place
{
    while (isSpaceUnit(unitAt(at))) ++at;
    return at;
}

// The end of the text is in each of the sets.
template <class Node, class Source>
auto treeReader<Node, Source>::findOneOf(place at, const unitSet& units) const -> place
{
    while (!units.contains(unitAt(at))) ++at;
    return at;
}

template <class Node, class Source>
auto treeReader<Node, Source>::expectUnit(place at, char16_t unit) const -> place
{
    const place found = m_source.find(at, unit);
    if (unitAt(found) == 0) fail();
    return found;
}

template <class Node, class Source>
bool treeReader<Node, Source>::startsWith(place at, std::u16string_view text) const
{
    for (const char16_t unit : text)
        if (unitAt(at++) != unit) return false; // the end differs as well
    return true;
}

// Null if the text ends first.
template <class Node, class Source>
auto treeReader<Node, Source>::findBehind(place at, std::u16string_view closing) const -> place
{
    for (at = m_source.find(at, closing[0]); unitAt(at) != 0;
         at = m_source.find(at + 1, closing[0]))
        if (startsWith(at, closing)) return at + closing.size();
    return nullptr;
}

// The next "<" that begins a tag; null if the text ends first, also inside a comment.
template <class Node, class Source>
auto treeReader<Node, Source>::findTag(place at) const -> place
{
    const auto passedOverAt = [this](place tag) -> const passedOverMarkup* {
        const char16_t mark = unitAt(tag + 1);
        if (mark != u'!' && mark != u'?') return nullptr; // as nearly always
        for (const passedOverMarkup& each : passedOver)
            if (startsWith(tag, each.opening)) return &each;
        return nullptr;
    };
    while (at != nullptr) {
        at = m_source.find(at, u'<');
        if (unitAt(at) == 0) return nullptr;
        const passedOverMarkup* const markup = passedOverAt(at);
        if (markup == nullptr) return at;
        at = findBehind(at + markup->opening.size(), markup->closing);
    }
    return nullptr;
}

template <class Node, class Source>
bool treeReader<Node, Source>::endsTag(place at) const
{
    return unitAt(at) == u'>' || (unitAt(at) == u'/' && unitAt(at + 1) == u'>');
}

// --- Constructs ----------------------------------------------------------------------------

// One step inside the innermost open element: its closing tag or a child.
template <class Node, class Source>
auto treeReader<Node, Source>::readContent(place at) -> place
{
    at = expectUnit(at, u'<');
    const place inside = skipBlanks(at + 1);
    if (unitAt(inside) != u'/') return readChild(at);
    at = readClosingTag(*m_open.back().node, inside + 1);
    closeElement();
    return at;
}

template <class Node, class Source>
auto treeReader<Node, Source>::readChild(place at) -> place
{
    nodePointer child(Node::createIn(m_nodes));
    if (readStart(*child, at) == content::none) {
        addChild(std::move(child));
    } else {
        m_open.push_back({child.get()});
        static_cast<void>(child.detach());
    }
    return at;
}

// Reads an element up to its first child or other inner markup, or to its end if there is none,
// and moves `at` there; to null if the text ended before a tag.
template <class Node, class Source>
auto treeReader<Node, Source>::readStart(Node& node, place& at) -> content
{
    at = findTag(at);
    if (at == nullptr) return content::none;
    const place inside = skipBlanks(at + 1);
    if (unitAt(inside) == 0) fail();
    if (unitAt(inside) == u'/') return content::none; // the closing tag of the element around
    at = readName(node, inside);
    at = readAttributes(node, at);
    // A "/>" is left to the next search for "<". The end of the text counts as one.
    if (unitAt(at) != u'>') return content::none;
    ++at;
    return readFirstText(node, at);
}

template <class Node, class Source>
auto treeReader<Node, Source>::readName(Node& node, place at) -> place
{
    const place end = findOneOf(at, nameEnds);
    if (unitAt(end) == u'/' && unitAt(end + 1) != u'>') fail();
    store(node.name, at, end, entities::keep);
    return end;
}

// What was read before a fault stays with the node.
template <class Node, class Source>
auto treeReader<Node, Source>::readAttributes(Node& node, place at) -> place
{
    const bool wellFormed = findAttributes(at);
    addAttributes(node);
    if (!wellFormed) fail();
    return at;
}

// False at a fault.
template <class Node, class Source>
bool treeReader<Node, Source>::findAttributes(place& at)
{
    while (unitAt(at) != 0) {
        at = skipBlanks(at);
        if (endsTag(at)) break;
        if (!findAttribute(at)) return false;
    }
    return true;
}

// The "=" may be anywhere behind the name: what stands between is lost.
template <class Node, class Source>
bool treeReader<Node, Source>::findAttribute(place& at)
{
    const place nameEnd = findOneOf(at, attributeNameEnds);
    const place equals = m_source.find(nameEnd, u'=');
    if (unitAt(equals) == 0) return false;
    const place opening = skipBlanks(equals + 1);
    const char16_t quote = unitAt(opening);
    if (quote != u'"' && quote != u'\'') return false;
    const place closing = m_source.find(opening + 1, quote);
    if (unitAt(closing) == 0) return false;
    m_attributes.push_back({at, nameEnd, opening + 1, closing});
    at = closing + 1;
    return true;
}

// They are counted first, so that they take no more room than they need.
template <class Node, class Source>
void treeReader<Node, Source>::addAttributes(Node& node)
{
    if (m_attributes.empty()) return;
    node.attributes.reserve(node.attributes.size() + m_attributes.size());
    foresee(m_attributes.size() * sizeof node.attributes[0], m_attributes.back().valueEnd);
    for (const rawAttribute& each : m_attributes) addAttribute(node, each);
    m_attributes.clear();
}

// Nearly all are plain, and made where they stay.
template <class Node, class Source>
void treeReader<Node, Source>::addAttribute(Node& node, const rawAttribute& raw)
{
    if (m_source.isPlain(raw.name, raw.nameEnd) && m_source.isPlain(raw.value, raw.valueEnd)) {
        node.attributes.emplace_back(std::piecewise_construct,
                                     std::forward_as_tuple(raw.name, raw.nameEnd),
                                     std::forward_as_tuple(raw.value, raw.valueEnd));
    } else {
        auto& [name, value] = node.attributes.emplace_back();
        store(name, raw.name, raw.nameEnd, entities::keep);
        store(value, raw.value, raw.valueEnd, entities::decode);
    }
}

// From behind the ">" of the opening tag. Text is only what stands before the first markup.
template <class Node, class Source>
auto treeReader<Node, Source>::readFirstText(Node& node, place& at) -> content
{
    const place begin = at;
    const place markup = expectUnit(begin, u'<');
    if (unitAt(markup + 1) == u'/') {
        at = readClosingTag(node, markup + 2);
        storeText(node, begin, markup);
        return content::none;
    }
    at = markup;
    const place text = skipBlanks(begin);
    if (text != markup) storeText(node, text, markup);
    return unitAt(markup + 1) == 0 ? content::none : content::follows;
}

// From behind the "/". The name is compared as it is stored: other bytes may stand for it.
template <class Node, class Source>
auto treeReader<Node, Source>::readClosingTag(const Node& node, place at) const -> place
{
    at = skipBlanks(at);
    const place end = findOneOf(at, closingNameEnds);
    if (!m_source.spells(at, end, node.name)) fail();
    at = skipBlanks(end);
    if (unitAt(at) != u'>') fail();
    return at + 1;
}

template <class Node, class Source>
void treeReader<Node, Source>::storeText(Node& node, place begin, place end)
{
    const auto isTrimmed = [this](place at) {
        return !m_keepWhitespace && (unitAt(at) == u' ' || unitAt(at) == u'\t');
    };
    while (begin != end && isTrimmed(begin)) ++begin;
    while (begin != end && isTrimmed(end - 1)) --end;
    foresee(static_cast<std::size_t>(end - begin) * sizeof(char16_t), end);
    store(node.text, begin, end, entities::decode);
}

// In no more memory than it needs.
template <class Node, class Source>
void treeReader<Node, Source>::store(string& to, place begin, place end, entities inIt)
{
    if (m_source.isPlain(begin, end)) {
        to = string(begin, end);
        return;
    }
    const std::u16string_view units =
        inIt == entities::decode ? decoded(begin, end) : m_source.units(begin, end, m_decoded);
    if (units.size() <= to.capacity())
        to.assign(units);
    else
        to = string(units);
}

// With all entities.
template <class Node, class Source>
std::u16string_view treeReader<Node, Source>::decoded(place begin, place end)
{
    if (!m_source.holds(begin, end, u'&')) return m_source.units(begin, end, m_decoded);
    m_source.decode(begin, end, m_decoded);
    decodeEntities(m_decoded);
    return m_decoded;
}

// The text up to here takes so much of the heap besides the nodes.
template <class Node, class Source>
void treeReader<Node, Source>::foresee(std::size_t bytes, place at)
{
    if (m_heap.take(bytes)) m_heap.foretell(m_source.restFor(at));
}

// --- Open elements -------------------------------------------------------------------------

template <class Node, class Source>
void treeReader<Node, Source>::closeElement()
{
    takeChildren(m_open.back());
    const openElement closed = m_open.back();
    m_open.pop_back();
    if (!m_open.empty()) addChild(nodePointer::attach(closed.node));
}

// To the innermost open element. A child without a name held but comments, or a tag that nobody
// can ask for.
template <class Node, class Source>
void treeReader<Node, Source>::addChild(nodePointer child)
{
    if (child->name.empty()) return;
    openElement& around = m_open.back();
    Node* const node = child.detach();
    node->parent = std::exchange(around.lastChild, node);
    ++around.childCount;
}

template <class Node, class Source>
void treeReader<Node, Source>::takeChildren(const openElement& from)
{
    auto& children = from.node->children;
    children.reserve(children.size() + from.childCount);
    platform::expectFilling(children.data(), children.capacity() * sizeof children[0]);
    children.resize(children.size() + from.childCount);
    auto free = children.end();
    for (Node* child = from.lastChild; child != nullptr;) {
        Node* const before = std::exchange(child->parent, from.node);
        *--free = nodePointer::attach(child);
        child = before;
    }
}

template <class Node, class Source>
void treeReader<Node, Source>::dropChildren(const openElement& from) noexcept
{
    for (Node* child = from.lastChild; child != nullptr;) {
        Node* const before = std::exchange(child->parent, nullptr);
        nodePointer::attach(child);
        child = before;
    }
}

// Reads one element into a node. A lack of memory is told as the library tells it.
template <class Node, class Source>
typename Source::place readTree(Node& outermost, Source source, typename Source::place at,
                                bool keepWhitespace)
{
    try {
        return treeReader<Node, Source>(source, keepWhitespace).read(outermost, at);
    } catch (const std::bad_alloc&) {
        throw outOfMemoryException();
    }
}

} // namespace orlo::detail
