// The element tree: nodes with a name, one text, ordered attributes and ordered children.
#pragma once

#include "orlorefptr.h"
#include "orlostring.h"
#include "orloxmlentities.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orlo {

class slotBlocks;

namespace detail {
template <class Node, class Source>
class treeReader;
}

// One element. All values are plain text in memory, without entity forms. A parent counts
// references to its children; `parent` is not counted. The tree has no lock.
class xmlNode : public refObj {
    std::uint32_t m_slot = 0; // in a block of nodes; 0 for a node with memory of its own

public:
    using attribute = std::pair<string, string>; // name, value

    // A new node without a parent.
    static refptr<xmlNode> createNode(const string& name);

    // Appends a node that has no parent yet; false, with nothing changed, for an empty
    // reference and for a node that has one.
    bool addChild(const refptr<xmlNode>& child);
    // Makes and appends a new node.
    refptr<xmlNode> addChild(const string& name);
    // The value of the first attribute of exactly this name; false, with `value` unchanged, if
    // there is none.
    bool getAttribute(const string& name, string& value) const;
    // Replaces the value of the first attribute of this name in its place, or appends.
    void setAttribute(const string& name, const string& value);

    // Reads one element from zero-terminated text into this node: name and text are
    // overwritten, attributes and children appended. Gives the place where the caller goes
    // on, or null if the text ended first. Without `keepWhitespace`, blanks and tabs are
    // trimmed from texts. `scratch` is kept for callers that hand a buffer of 512 units down;
    // it may be null and changes no result. Malformed text throws unexpectedErrorException.
    const char16_t* parseText(const char16_t* text, bool keepWhitespace, char16_t* scratch);

    // Appends this node and all below it: one element a line, three blanks a level, line
    // feeds alone, starting at `indent`.
    void writeNode(string& out, const string& indent) const;
    // A guess at the units that writeNode needs at this width of indentation; only a hint.
    [[nodiscard]] std::size_t estimateSize(std::size_t width) const;

    xmlNode* parent = nullptr;
    std::vector<refptr<xmlNode>> children;
    std::vector<attribute> attributes;
    string name;
    string text;

    void deleteThis() override;
    // Every child forgets its parent, and lives on where somebody else holds it.
    ~xmlNode() override;

private:
    template <class Node, class Source>
    friend class detail::treeReader;

    // A new node in memory that many share.
    static xmlNode* createIn(slotBlocks& blocks);
    void releaseAllBelow() noexcept;
    void releaseChildren(xmlNode*& waiting) noexcept;
};

} // namespace orlo
