// The writer of element trees. Depth costs memory but no call stack, as in the reader.
#pragma once

#include "orlostring.h"
#include "xml/xmlentities.h"

#include <cstddef>
#include <vector>

namespace orlo::detail {

inline constexpr std::size_t levelWidth = 3;

// Calls `enter(node, depth)` for each node in document order, and `leave(node, depth)` behind
// the last child of each node that has children.
template <class Node, class Enter, class Leave>
void walkTree(const Node& root, Enter enter, Leave leave)
{
    struct openNode {
        const Node* node;
        std::size_t nextChild;
    };
    std::vector<openNode> open;
    const auto visit = [&](const Node& node) {
        enter(node, open.size());
        if (!node.children.empty()) open.push_back({&node, 0});
    };

    visit(root);
    while (!open.empty()) {
        openNode& innermost = open.back();
        const Node& node = *innermost.node;
        if (innermost.nextChild < node.children.size()) {
            visit(*node.children[innermost.nextChild++]);
        } else {
            open.pop_back();
            leave(node, open.size());
        }
    }
}

template <class Node>
class treeWriter {
public:
    treeWriter(string& out, const string& indent)
        : m_out(out), m_indent(indent), m_base(indent.size())
    {}

    void writeStart(const Node& node, std::size_t depth);
    void writeEnd(const Node& node, std::size_t depth);

private:
    void writeIndent(std::size_t depth);
    void writeAttributes(const Node& node);
    void writeClosingTag(const Node& node);

    string& m_out;
    string m_indent; // of the deepest level so far
    std::size_t m_base;
};

template <class Node>
void treeWriter<Node>::writeStart(const Node& node, std::size_t depth)
{
    writeIndent(depth);
    m_out.push_back(u'<');
    m_out.append(node.name);
    writeAttributes(node);
    if (!node.children.empty()) {
        m_out.append(u">\n");
        if (node.text.empty()) return;
        writeIndent(depth + 1);
        appendEncoded(m_out, node.text, lineFeeds::drop);
        m_out.push_back(u'\n');
    } else if (!node.text.empty()) {
        m_out.push_back(u'>');
        appendEncoded(m_out, node.text, lineFeeds::keep);
        writeClosingTag(node);
    } else {
        m_out.append(u"/>\n");
    }
}

template <class Node>
void treeWriter<Node>::writeEnd(const Node& node, std::size_t depth)
{
    writeIndent(depth);
    writeClosingTag(node);
}

template <class Node>
void treeWriter<Node>::writeIndent(std::size_t depth)
{
    const std::size_t width = m_base + depth * levelWidth;
    if (m_indent.size() < width) m_indent.append(width - m_indent.size(), u' ');
    m_out.append(m_indent, 0, width);
}

template <class Node>
void treeWriter<Node>::writeAttributes(const Node& node)
{
    for (const auto& [name, value] : node.attributes) {
        m_out.push_back(u' ');
        m_out.append(name);
        m_out.append(u"=\"");
        appendEncoded(m_out, value, lineFeeds::keep);
        m_out.push_back(u'"');
    }
}

template <class Node>
void treeWriter<Node>::writeClosingTag(const Node& node)
{
    m_out.append(u"</");
    m_out.append(node.name);
    m_out.append(u">\n");
}

// The node's own part, without its children.
template <class Node>
std::size_t estimateNode(const Node& node, std::size_t width)
{
    std::size_t size = width + 1 + node.name.size();
    for (const auto& [name, value] : node.attributes) size += name.size() + value.size() + 8;
    if (!node.children.empty()) return size + 2 + node.name.size() + 5 + width;
    if (!node.text.empty()) return size + node.text.size() + 9 + node.name.size();
    return size + 4;
}

// Appends a node and all below it; `Node` is xmlNode, which this header need not know. `afterTag()`
// may take from `out` what stands there.
template <class Node, class AfterTag>
void writeTree(const Node& root, string& out, const string& indent, AfterTag afterTag)
{
    treeWriter<Node> writer(out, indent);
    walkTree(
        root,
        [&](const Node& node, std::size_t depth) {
            writer.writeStart(node, depth);
            afterTag();
        },
        [&](const Node& node, std::size_t depth) {
            writer.writeEnd(node, depth);
            afterTag();
        });
}

// A guess at the units that this takes.
template <class Node>
std::size_t estimateTree(const Node& root, std::size_t width)
{
    std::size_t size = 0;
    walkTree(
        root,
        [&](const Node& node, std::size_t depth) {
            size += estimateNode(node, width + depth * levelWidth);
        },
        [](const Node&, std::size_t) {});
    return size;
}

} // namespace orlo::detail
