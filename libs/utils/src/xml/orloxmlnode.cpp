#include "orloxmlnode.h"

#include <algorithm>

namespace orlo {

namespace {

template <class Attributes>
auto findAttribute(Attributes& attributes, const string& wanted)
{
    return std::find_if(attributes.begin(), attributes.end(),
                        [&wanted](const xmlNode::attribute& each) { return each.first == wanted; });
}

// A destructor can't let the failed assertion pass on: the fault is told, and the rest of the
// tree goes as it should.
void tellEmptyChild() noexcept
{
    try {
        detail::failEmptyRefptr();
    } catch (...) {
    }
}

} // namespace

refptr<xmlNode> xmlNode::createNode(const string& tag)
{
    refptr<xmlNode> node(new xmlNode);
    node->name = tag;
    return node;
}

bool xmlNode::addChild(const refptr<xmlNode>& child)
{
    if (!child || child->parent != nullptr) return false;
    children.push_back(child);
    child->parent = this;
    return true;
}

refptr<xmlNode> xmlNode::addChild(const string& tag)
{
    refptr<xmlNode> child = createNode(tag);
    addChild(child);
    return child;
}

bool xmlNode::getAttribute(const string& wanted, string& value) const
{
    const auto found = findAttribute(attributes, wanted);
    if (found == attributes.end()) return false;
    value = found->second;
    return true;
}

void xmlNode::setAttribute(const string& wanted, const string& value)
{
    const auto found = findAttribute(attributes, wanted);
    if (found == attributes.end())
        attributes.emplace_back(wanted, value);
    else
        found->second = value;
}

void xmlNode::deleteThis()
{
    delete this;
}

// A tree may be deeper than the call stack, so the nodes below do not die inside each other:
// those with children of their own wait in a list, linked through the `parent` that they no
// longer need, and find their turn one after the other.
xmlNode::~xmlNode()
{
    xmlNode* doomed = nullptr;
    dropChildren(doomed);
    while (doomed != nullptr) {
        xmlNode* const node = doomed;
        doomed = std::exchange(node->parent, nullptr);
        node->dropChildren(doomed);
        node->deleteThis();
    }
}

// In one pass, as the nodes of a large tree come from memory each time they are looked at.
void xmlNode::dropChildren(xmlNode*& doomed) noexcept
{
    bool anyEmpty = false;
    for (refptr<xmlNode>& child : children) {
        xmlNode* const node = child.get();
        if (node == nullptr) {
            anyEmpty = true;
            continue;
        }
        node->parent = nullptr;
        if (node->children.empty() || node->referenceCount() != 1)
            child = nullptr;
        else
            node->parent = std::exchange(doomed, child.detach());
    }
    children.clear();
    if (anyEmpty) tellEmptyChild();
}

} // namespace orlo
