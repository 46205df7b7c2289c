// The writer of element trees. Depth costs memory but no call stack, as in the reader.
#include "xml/xmlwriter.h"
#include "orloxmlnode.h"
#include "xml/xmlentities.h"

#include <cstddef>
#include <vector>

namespace orlo {

using namespace std::string_view_literals;

namespace {

constexpr std::size_t levelWidth = 3;

// Calls `enter(node, depth)` for each node in document order, and `leave(node, depth)` behind
// the last child of each node that has children.
template <class Enter, class Leave>
void walkTree(const xmlNode& root, Enter enter, Leave leave)
{
    struct openNode {
        const xmlNode* node;
        std::size_t nextChild;
    };
    std::vector<openNode> open;
    const auto visit = [&](const xmlNode& node) {
        enter(node, open.size());
        if (!node.children.empty()) open.push_back({&node, 0});
    };

    visit(root);
    while (!open.empty()) {
        openNode& innermost = open.back();
        const xmlNode& node = *innermost.node;
        if (innermost.nextChild < node.children.size()) {
            visit(*node.children[innermost.nextChild++]);
        } else {
            open.pop_back();
            leave(node, open.size());
        }
    }
}

class treeWriter {
public:
    treeWriter(textBlocks& out, const string& indent)
        : m_out(out), m_indent(indent), m_base(indent.size())
    {}

    void writeStart(const xmlNode& node, std::size_t depth);
    void writeEnd(const xmlNode& node, std::size_t depth);

private:
    void writeIndent(std::size_t depth);
    void writeAttributes(const xmlNode& node);
    void writeClosingTag(const xmlNode& node);

    textBlocks& m_out;
    string m_indent; // of the deepest level so far
    std::size_t m_base;
};

void treeWriter::writeStart(const xmlNode& node, std::size_t depth)
{
    writeIndent(depth);
    m_out.put(u'<');
    m_out.put(node.name);
    writeAttributes(node);
    if (!node.children.empty()) {
        m_out.put(u">\n"sv);
        if (node.text.empty()) return;
        writeIndent(depth + 1);
        putEncoded(node.text, lineFeeds::drop, m_out);
        m_out.put(u'\n');
    } else if (!node.text.empty()) {
        m_out.put(u'>');
        putEncoded(node.text, lineFeeds::keep, m_out);
        writeClosingTag(node);
    } else {
        m_out.put(u"/>\n"sv);
    }
}

void treeWriter::writeEnd(const xmlNode& node, std::size_t depth)
{
    writeIndent(depth);
    writeClosingTag(node);
}

void treeWriter::writeIndent(std::size_t depth)
{
    const std::size_t width = m_base + depth * levelWidth;
    if (m_indent.size() < width) m_indent.append(width - m_indent.size(), u' ');
    m_out.put(std::u16string_view(m_indent).substr(0, width));
}

void treeWriter::writeAttributes(const xmlNode& node)
{
    for (const auto& [name, value] : node.attributes) {
        m_out.put(u' ');
        m_out.put(name);
        m_out.put(u"=\""sv);
        putEncoded(value, lineFeeds::keep, m_out);
        m_out.put(u'"');
    }
}

void treeWriter::writeClosingTag(const xmlNode& node)
{
    m_out.put(u"</"sv);
    m_out.put(node.name);
    m_out.put(u">\n"sv);
}

// The node's own part, without its children.
std::size_t estimateNode(const xmlNode& node, std::size_t width)
{
    std::size_t size = width + 1 + node.name.size();
    for (const auto& [name, value] : node.attributes) size += name.size() + value.size() + 8;
    if (!node.children.empty()) return size + 2 + node.name.size() + 5 + width;
    if (!node.text.empty()) return size + node.text.size() + 9 + node.name.size();
    return size + 4;
}

} // namespace

void writeTree(const xmlNode& root, textBlocks& out, const string& indent)
{
    treeWriter writer(out, indent);
    walkTree(
        root, [&](const xmlNode& node, std::size_t depth) { writer.writeStart(node, depth); },
        [&](const xmlNode& node, std::size_t depth) { writer.writeEnd(node, depth); });
}

void xmlNode::writeNode(string& out, const string& indent) const
{
    textBlocks blocks([&out](std::u16string_view block) { out.append(block); });
    writeTree(*this, blocks, indent);
    blocks.finish();
}

std::size_t xmlNode::estimateSize(std::size_t width) const
{
    std::size_t size = 0;
    walkTree(
        *this,
        [&](const xmlNode& node, std::size_t depth) {
            size += estimateNode(node, width + depth * levelWidth);
        },
        [](const xmlNode&, std::size_t) {});
    return size;
}

} // namespace orlo
