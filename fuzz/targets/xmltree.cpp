// Random trees: written, written again, and read back.
#include "orloxmldocument.h"
#include "platform/utf8codec.h"
#include "xmltarget.h"

#include <algorithm>

namespace orlo::fuzz {

namespace {

constexpr std::size_t pieceUnits = 256;

// The bytes are steps: open a child, set a text, set an attribute, close.
class builder {
public:
    builder(bytes steps, bool proper) : m_input(steps), m_proper(proper) {}

    void fill(xmlNode& root)
    {
        root.name = name();
        xmlNode* at = &root;
        while (!m_input.ended()) at = step(at);
    }

private:
    xmlNode* step(xmlNode* at)
    {
        switch (m_input.byte() % 8) {
        case 0:
        case 1: return at->addChild(name()).get();
        case 2: return at->parent != nullptr ? at->parent : at;
        case 3: at->addChild(name()); return at;
        case 4: at->text = text(); return at;
        case 5: at->attributes.emplace_back(name(), text()); return at;
        default: at->setAttribute(name(), text()); return at;
        }
    }
    // Proper names are read again as they were written.
    string name()
    {
        string given = textOf(m_input.some(m_input.byte() % 16));
        if (!m_proper) return given;
        for (char16_t& unit : given) unit = static_cast<char16_t>(u'a' + unit % 26);
        return given + u"n";
    }
    string text()
    {
        const std::size_t kind = m_input.byte();
        string given = textOf(m_input.some(kind % 64));
        if (kind >= 0xC0) given.append(pieceUnits - 20, u'x'); // to cross the borders of pieces
        return given;
    }

    input m_input;
    bool m_proper;
};

std::string encoded(std::u16string_view text)
{
    std::string bytes = "\xEF\xBB\xBF";
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), pieceUnits))) {
        const std::u16string_view piece = text.substr(0, pieceUnits);
        std::string room(piece.size() * 3, '\0');
        room.resize(platform::encodeUtf8Units(piece.data(), piece.size(), room.data()));
        bytes += room.substr(0, room.find('\0'));
    }
    return bytes;
}

std::string written(const xmlDocument& document, xmlEncoding how)
{
    byteBuffer buffer;
    document.writeBuffer(buffer, how);
    return {reinterpret_cast<const char*>(buffer.data()), buffer.size()};
}

bytes asBytes(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Names no entity, and no surrogate that may lose its other half at the border of two pieces.
bool isPlain(const std::u16string& text)
{
    if (std::any_of(text.begin(), text.end(),
                    [](char16_t unit) { return unit == 0 || (unit & 0xF800) == 0xD800; }))
        return false;
    std::u16string decoded = text;
    return judged([&] { judgeDecodeEntities(decoded); }) && decoded == text;
}

// With proper names, whitespace kept: attributes survive, and the texts of nodes without children.
void expectSurvival(const judgedNode& made, const judgedNode& again)
{
    expect(made.name == again.name, "a proper name survives");
    expect(made.attributes.size() == again.attributes.size(), "all attributes survive");
    expect(made.children.size() == again.children.size(), "all children survive");
    for (std::size_t i = 0; i < made.attributes.size(); ++i) {
        expect(made.attributes[i].first == again.attributes[i].first,
               "a proper attribute name survives");
        expect(!isPlain(made.attributes[i].second) ||
                   made.attributes[i].second == again.attributes[i].second,
               "a value without entity forms survives");
    }
    expect(!made.children.empty() || !isPlain(made.text) || made.text == again.text,
           "a text without entity forms survives");
    for (std::size_t i = 0; i < made.children.size(); ++i)
        expectSurvival(made.children[i], again.children[i]);
}

bool holdsZero(const judgedNode& node)
{
    const auto zero = [](const std::u16string& text) { return text.find(u'\0') != text.npos; };
    return zero(node.name) || zero(node.text) ||
           std::any_of(node.attributes.begin(), node.attributes.end(),
                       [&](const auto& each) { return zero(each.first) || zero(each.second); }) ||
           std::any_of(node.children.begin(), node.children.end(), holdsZero);
}

void expectReading(const judgedNode& made, const std::string& document, bool proper)
{
    for (const bool keepWhitespace : {false, true}) {
        judgedNode wanted;
        const auto told =
            judged([&] { judgeParseBuffer(wanted, asBytes(document), keepWhitespace); });
        if (!told) return;
        const refptr<xmlDocument> again = xmlDocument::createDocument();
        const outcome came =
            read([&] { again->parseBuffer(document.data(), document.size(), keepWhitespace); });
        expect(came == *told, "what was written is taken or refused as the rules tell");
        const judgedNode form = judgedForm(*again);
        expect(form == wanted, "what was written is read as the rules tell");
        if (!proper || holdsZero(made)) continue;
        expect(came == outcome::done, "a tree with proper names can be read");
        if (keepWhitespace) expectSurvival(made, form);
    }
}

} // namespace

void xmltree(bytes given)
{
    if (given.empty()) return;
    tests::machine::renew();
    const bool proper = given[0] % 4 != 0;
    const refptr<xmlDocument> document = xmlDocument::createDocument();
    builder(given.subspan(1), proper).fill(*document);
    const judgedNode made = judgedForm(*document);

    std::u16string wanted;
    judgeWrite(wanted, made, u"");
    string out;
    document->writeNode(out, u"");
    expect(out == string(wanted), "a tree is written as the rules tell");
    expect(document->estimateSize(given[0]) == judgeEstimate(made, given[0]),
           "the estimate is the one told");

    const std::string utf8 = written(*document, xmlEncoding::utf8);
    const std::u16string head = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    expect(utf8 == encoded(head + wanted), "the bytes are the mark and the pieces in UTF-8");
    expect(utf8 == written(*document, xmlEncoding::utf8), "writing twice gives the same bytes");
    const std::u16string wide = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" + wanted;
    const std::string utf16(reinterpret_cast<const char*>(wide.c_str()),
                            (wide.size() + 1) * sizeof(char16_t));
    expect(utf16 == written(*document, xmlEncoding::utf16),
           "UTF-16 is the text as it stands, with its final zero");
    expectReading(made, utf8, proper);
}

} // namespace orlo::fuzz
