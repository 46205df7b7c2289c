#include "orloxmlnode.h"

#include "xml/slotblocks.h"
#include "xml/xmlreader.h"
#include "xml/xmlsource.h"
#include "xml/xmlwriter.h"

#include <algorithm>
#include <new>
#include <utility>

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

void forgetParents(std::vector<refptr<xmlNode>>& children) noexcept
{
    bool anyEmpty = false;
    for (refptr<xmlNode>& child : children) {
        if (child)
            child->parent = nullptr;
        else
            anyEmpty = true;
    }
    if (anyEmpty) tellEmptyChild();
}

// The destruction of a tree: the node whose last reference is being released, and the nodes
// that wait for that.
struct teardown {
    xmlNode* dying = nullptr;
    xmlNode* waiting = nullptr;
};
thread_local teardown* runningTeardown = nullptr;

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

// The buffer of the caller is not needed: short texts need no memory of their own.
const char16_t* xmlNode::parseText(const char16_t* source, bool keepWhitespace,
                                   char16_t* /*scratch*/)
{
    if (source == nullptr)
        throw unexpectedErrorException(u"xmlNode::parseText: NULL specified for pText");
    return detail::readTree(*this, terminatedText(), source, keepWhitespace);
}

void xmlNode::writeNode(string& out, const string& indent) const
{
    detail::writeTree(*this, out, indent, [] {});
}

std::size_t xmlNode::estimateSize(std::size_t width) const
{
    return detail::estimateTree(*this, width);
}

// Only the reader makes nodes in blocks, and only of this very class.
xmlNode* xmlNode::createIn(slotBlocks& blocks)
{
    const slotBlocks::slot slot = blocks.take();
    auto* const node = new (slot.memory) xmlNode;
    node->m_slot = slot.number;
    return node;
}

void xmlNode::deleteThis()
{
    if (m_slot == 0) {
        delete this;
        return;
    }
    const slotBlocks::slot slot{this, m_slot};
    xmlNode::~xmlNode();
    slotBlocks::giveBack(slot, sizeof(xmlNode));
}

// A tree may be deeper than the call stack, so nodes with children do not die inside each other:
// they wait for their turn in the destruction of the node that went first.
xmlNode::~xmlNode()
{
    if (children.empty()) return;
    forgetParents(children);
    if (runningTeardown != nullptr && runningTeardown->dying == this)
        releaseChildren(runningTeardown->waiting);
    else
        releaseAllBelow();
}

// What a destructor of the program's own lets go on the way is torn down for itself.
void xmlNode::releaseAllBelow() noexcept
{
    teardown all;
    teardown* const around = std::exchange(runningTeardown, &all);
    releaseChildren(all.waiting);
    while (all.waiting != nullptr) {
        all.dying = all.waiting;
        all.waiting = std::exchange(all.dying->parent, nullptr);
        all.dying->release();
    }
    runningTeardown = around;
}

// Releases the children. Those that will go and have children of their own are put in front of
// `waiting` with the reference, linked through the `parent` that they no longer need.
void xmlNode::releaseChildren(xmlNode*& waiting) noexcept
{
    for (refptr<xmlNode>& child : children) {
        if (!child) continue;
        xmlNode& node = *child;
        if (node.children.empty() || node.referenceCount() != 1)
            child = nullptr;
        else
            node.parent = std::exchange(waiting, child.detach());
    }
    children.clear();
}

} // namespace orlo
