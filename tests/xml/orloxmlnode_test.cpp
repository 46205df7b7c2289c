#include "orloxmlnode.h"

#include "orloexception.h"
#include "orloxmldocument.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orloxmlnodeTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

string attributesOf(const xmlNode& node)
{
    string text;
    for (const auto& [name, value] : node.attributes)
        text.append(name).append(u"=").append(value).append(u";");
    return text;
}

// Counts the nodes that are there.
class countedNode : public xmlNode {
public:
    countedNode() { ++alive; }
    ~countedNode() override { --alive; }

    static inline int alive = 0;
};

// Tells what happens to it in its end.
class watchedNode : public xmlNode {
public:
    explicit watchedNode(std::vector<std::string>& log, const char* id) : m_log(log), m_id(id) {}
    ~watchedNode() override
    {
        m_log.push_back(m_id + " ends with " + std::to_string(children.size()));
        for (const xmlNode* each : looksAt)
            m_log.push_back(m_id + (each->parent == nullptr ? " sees none" : " sees a parent"));
    }
    std::uint32_t release() override
    {
        m_log.push_back(m_id + " release");
        return xmlNode::release();
    }
    void deleteThis() override
    {
        m_log.push_back(m_id + " deleteThis at " + std::to_string(m_count));
        xmlNode::deleteThis();
    }

    std::vector<const xmlNode*> looksAt;

private:
    std::vector<std::string>& m_log;
    std::string m_id;
};

// Stays when its last reference goes.
class stayingNode : public xmlNode {
public:
    void deleteThis() override { ++deaths; }
    int deaths = 0;
};

// Lets another tree go in its destructor, and tells how many nodes are left behind that.
class holdingNode : public xmlNode {
public:
    holdingNode(refptr<xmlNode> held, int& left) : m_held(std::move(held)), m_left(left) {}
    ~holdingNode() override;

private:
    refptr<xmlNode> m_held;
    int& m_left;
};

holdingNode::~holdingNode()
{
    m_held = nullptr;
    m_left = countedNode::alive;
}

// A chain of counted nodes, the last of which is `deepest`.
refptr<xmlNode> countedChain(std::size_t depth, refptr<xmlNode>& deepest)
{
    refptr<xmlNode> root(new countedNode);
    deepest = root;
    for (std::size_t level = 1; level < depth; ++level) {
        refptr<xmlNode> child(new countedNode);
        deepest->addChild(child);
        deepest = child;
    }
    return root;
}

} // namespace

TEST(xmlNode, isEmptyWhenNew)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    const refptr<xmlDocument> document = xmlDocument::createDocument();
    for (const xmlNode* each : {node.get(), static_cast<xmlNode*>(document.get())}) {
        EXPECT_EQ(each->name, u"");
        EXPECT_EQ(each->text, u"");
        EXPECT_EQ(each->parent, nullptr);
        EXPECT_TRUE(each->children.empty());
        EXPECT_TRUE(each->attributes.empty());
    }
}

TEST(xmlNode, createNodeGivesTheNameAlone)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"p:name");
    EXPECT_EQ(node->name, u"p:name");
    EXPECT_EQ(node->text, u"");
    EXPECT_EQ(node->parent, nullptr);
}

TEST(xmlNode, addChildAppendsInOrderAndSetsTheParent)
{
    const refptr<xmlNode> parent = xmlNode::createNode(u"parent");
    const refptr<xmlNode> first = xmlNode::createNode(u"first");
    EXPECT_TRUE(parent->addChild(first));
    const refptr<xmlNode> second = parent->addChild(u"second");
    ASSERT_EQ(parent->children.size(), 2u);
    EXPECT_TRUE(parent->children[0] == first);
    EXPECT_TRUE(parent->children[1] == second);
    EXPECT_EQ(second->name, u"second");
    EXPECT_EQ(first->parent, parent.get());
    EXPECT_EQ(second->parent, parent.get());
}

TEST(xmlNode, addChildRefusesTheSameNodeTwice)
{
    const refptr<xmlNode> parent = xmlNode::createNode(u"parent");
    const refptr<xmlNode> child = xmlNode::createNode(u"child");
    EXPECT_TRUE(parent->addChild(child));
    EXPECT_FALSE(parent->addChild(child));
    EXPECT_EQ(parent->children.size(), 1u);
}

TEST(xmlNode, addChildRefusesAChildOfAnotherNode)
{
    const refptr<xmlNode> parent = xmlNode::createNode(u"parent");
    const refptr<xmlNode> other = xmlNode::createNode(u"other");
    const refptr<xmlNode> child = parent->addChild(u"child");
    EXPECT_FALSE(other->addChild(child));
    EXPECT_TRUE(other->children.empty());
    EXPECT_EQ(child->parent, parent.get());
}

TEST(xmlNode, addChildRefusesAnEmptyReference)
{
    const refptr<xmlNode> parent = xmlNode::createNode(u"parent");
    EXPECT_FALSE(parent->addChild(refptr<xmlNode>()));
    EXPECT_TRUE(parent->children.empty());
}

TEST(xmlNode, setAttributeReplacesInPlaceAndAppendsNewNames)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"a");
    node->setAttribute(u"x", u"1");
    node->setAttribute(u"y", u"2");
    node->setAttribute(u"z", u"3");
    EXPECT_EQ(attributesOf(*node), u"x=1;y=2;z=3;");
    node->setAttribute(u"y", u"new");
    EXPECT_EQ(attributesOf(*node), u"x=1;y=new;z=3;");
    node->setAttribute(u"w", u"4");
    EXPECT_EQ(attributesOf(*node), u"x=1;y=new;z=3;w=4;");
}

TEST(xmlNode, getAttributeFindsTheExactNameAlone)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"a");
    node->setAttribute(u"Name", u"upper");
    node->setAttribute(u"name", u"lower");
    static const struct {
        const char16_t* wanted;
        bool found;
        const char16_t* value;
    } rows[] = {
        {u"Name", true, u"upper"},       {u"name", true, u"lower"},
        {u"NAME", false, u"unchanged"},  {u"nam", false, u"unchanged"},
        {u"names", false, u"unchanged"}, {u"", false, u"unchanged"},
    };
    for (const auto& row : rows) {
        string value(u"unchanged");
        EXPECT_EQ(node->getAttribute(row.wanted, value), row.found) << narrow(row.wanted);
        EXPECT_EQ(value, row.value) << narrow(row.wanted);
    }
}

TEST(xmlNode, anEmptyNameIsAnAttributeLikeAnyOther)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"a");
    node->setAttribute(u"", u"1");
    string value;
    EXPECT_TRUE(node->getAttribute(u"", value));
    EXPECT_EQ(value, u"1");
    node->setAttribute(u"", u"2");
    EXPECT_EQ(attributesOf(*node), u"=2;");
}

TEST(xmlNode, ofTwoLoadedAttributesOfOneNameTheFirstCounts)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    node->parseText(u"<n a=\"1\" a=\"2\"/>", false, nullptr);
    string value;
    EXPECT_TRUE(node->getAttribute(u"a", value));
    EXPECT_EQ(value, u"1");
    node->setAttribute(u"a", u"3");
    string written;
    node->writeNode(written, u"");
    EXPECT_EQ(written, u"<n a=\"3\" a=\"2\"/>\n");
}

TEST(xmlNode, aChildHeldElsewhereOutlivesItsParent)
{
    refptr<xmlNode> parent = xmlNode::createNode(u"parent");
    const refptr<xmlNode> child = parent->addChild(u"child");
    child->addChild(u"grandchild");
    parent->addChild(u"sibling");
    parent = nullptr;
    EXPECT_EQ(child->parent, nullptr);
    ASSERT_EQ(child->children.size(), 1u);
    EXPECT_EQ(child->children[0]->name, u"grandchild");
    EXPECT_EQ(child->children[0]->parent, child.get());

    const refptr<xmlNode> other = xmlNode::createNode(u"other");
    EXPECT_TRUE(other->addChild(child));
    EXPECT_EQ(child->parent, other.get());
}

TEST(xmlNode, destructionReachesEveryNodeButThoseHeldElsewhere)
{
    refptr<xmlNode> deepest;
    refptr<xmlNode> root = countedChain(5, deepest);
    const refptr<xmlNode> middle = root->children[0]->children[0];
    for (int i = 0; i < 3; ++i) middle->parent->addChild(refptr<xmlNode>(new countedNode));
    deepest = nullptr;
    EXPECT_EQ(countedNode::alive, 8);
    root = nullptr;
    EXPECT_EQ(countedNode::alive, 3);
    EXPECT_EQ(middle->parent, nullptr);
    EXPECT_EQ(middle->children.size(), 1u);
}

TEST(xmlNode, destructionOfADeepTreeNeedsNoStack)
{
    constexpr std::size_t depth = 1000000;
    refptr<xmlNode> deepest;
    refptr<xmlNode> root = countedChain(depth, deepest);
    EXPECT_EQ(countedNode::alive, static_cast<int>(depth));
    root = nullptr;
    EXPECT_EQ(countedNode::alive, 1);
    EXPECT_EQ(deepest->parent, nullptr);
    deepest = nullptr;
    EXPECT_EQ(countedNode::alive, 0);
}

TEST(xmlNode, destructionTellsOfAnEmptyChildAndGoesOn)
{
    const machine& here = machine::renew();
    {
        const refptr<xmlNode> root(new countedNode);
        root->addChild(refptr<xmlNode>(new countedNode));
        root->children.emplace_back();
        root->addChild(refptr<xmlNode>(new countedNode));
    }
    EXPECT_EQ(countedNode::alive, 0);
    ASSERT_EQ(here.boxes.size(), 1u);
    EXPECT_EQ(here.boxes[0].text,
              u"Assertion failed:\nm_p != NULL\n\nFile: libs/utils/inc/orlorefptr\nLine: 315");
}

TEST(xmlNode, destructionReleasesEveryNodeOnceAndDeletesItAtTheCountZero)
{
    std::vector<std::string> log;
    refptr<xmlNode> root(new watchedNode(log, "root"));
    const refptr<xmlNode> inner(new watchedNode(log, "inner"));
    root->addChild(refptr<xmlNode>(new watchedNode(log, "leaf")));
    {
        const refptr<xmlNode> branch(new watchedNode(log, "branch"));
        branch->addChild(refptr<xmlNode>(new watchedNode(log, "below")));
        root->addChild(branch);
        root->addChild(inner);
    }
    log.clear();
    root = nullptr;
    EXPECT_EQ(log, (std::vector<std::string>{
                       "root release", "root deleteThis at 0", "root ends with 3", "leaf release",
                       "leaf deleteThis at 0", "leaf ends with 0",
                       "inner release", // which is held elsewhere
                       "branch release", "branch deleteThis at 0", "branch ends with 1",
                       "below release", "below deleteThis at 0", "below ends with 0"}));
    EXPECT_EQ(inner->parent, nullptr);
    log.clear();
}

TEST(xmlNode, allChildrenForgetTheirParentBeforeTheFirstOneGoes)
{
    std::vector<std::string> log;
    refptr<xmlNode> root = xmlNode::createNode(u"root");
    auto* const first = new watchedNode(log, "first");
    root->addChild(refptr<xmlNode>(first));
    const refptr<xmlNode> last = root->addChild(u"last");
    first->looksAt = {last.get()};
    log.clear();
    root = nullptr;
    EXPECT_EQ(log.back(), "first sees none");
}

TEST(xmlNode, aNodeThatDeletesItselfInItsOwnWayKeepsItsChildren)
{
    stayingNode staying;
    {
        const refptr<xmlNode> root = xmlNode::createNode(u"root");
        const refptr<xmlNode> branch = root->addChild(u"branch");
        EXPECT_TRUE(branch->addChild(refptr<xmlNode>(&staying)));
        staying.addChild(u"child")->addChild(u"grandchild");
    }
    EXPECT_EQ(staying.deaths, 1);
    EXPECT_EQ(staying.parent, nullptr);
    ASSERT_EQ(staying.children.size(), 1u);
    EXPECT_EQ(staying.children[0]->parent, &staying);
    EXPECT_EQ(staying.children[0]->children[0]->name, u"grandchild");
}

TEST(xmlNode, aTreeThatADestructorLetsGoIsGoneBehindThat)
{
    int left = -1;
    refptr<xmlNode> deepest;
    refptr<xmlNode> root = xmlNode::createNode(u"root");
    refptr<xmlNode> holding(new holdingNode(countedChain(5, deepest), left));
    deepest = nullptr;
    holding->addChild(u"child");
    root->addChild(holding);
    holding = nullptr;
    root = nullptr;
    EXPECT_EQ(left, 0);
}

// --- Nodes that were read, which share blocks of memory --------------------------------------

namespace {

refptr<xmlDocument> documentOfChildren(std::size_t count)
{
    std::string bytes = "<a>";
    for (std::size_t child = 0; child < count; ++child)
        bytes += "<b c='" + std::to_string(child) + "'>a text of some length</b>";
    bytes += "</a>";
    refptr<xmlDocument> document = xmlDocument::createDocument();
    document->parseBuffer(bytes.data(), bytes.size(), false);
    return document;
}

constexpr std::size_t manyChildren = 100000; // in several large blocks

} // namespace

TEST(nodeBlocks, aNodeOutlivesItsDocumentAndItsNeighbours)
{
    refptr<xmlDocument> document = documentOfChildren(1000);
    std::vector<refptr<xmlNode>> kept;
    for (std::size_t child = 0; child < 1000; child += 37)
        kept.push_back(document->children[child]);
    document = nullptr;
    for (std::size_t at = 0; at < kept.size(); ++at) {
        EXPECT_EQ(kept[at]->parent, nullptr);
        EXPECT_EQ(kept[at]->text, u"a text of some length");
        string value;
        EXPECT_TRUE(kept[at]->getAttribute(u"c", value));
        EXPECT_EQ(narrow(value), std::to_string(37 * at));
    }
}

TEST(nodeBlocks, goBackToTheSystemWithTheTree)
{
    machine::renew();
    ASSERT_EQ(machine::largeBlocks(), 0u);
    refptr<xmlDocument> document = documentOfChildren(manyChildren);
    EXPECT_GE(machine::largeBlocks(), 3u);
    document = nullptr;
    EXPECT_EQ(machine::largeBlocks(), 0u);
}

TEST(nodeBlocks, oneOfThemIsAllThatASingleNodeHolds)
{
    machine::renew();
    refptr<xmlDocument> document = documentOfChildren(manyChildren);
    refptr<xmlNode> last = document->children.back();
    document = nullptr;
    EXPECT_EQ(machine::largeBlocks(), 1u);
    last = nullptr;
    EXPECT_EQ(machine::largeBlocks(), 0u);
}

TEST(nodeBlocks, goBackWhereTheReadingFails)
{
    machine::renew();
    std::string bytes = "<a>";
    for (std::size_t child = 0; child < manyChildren; ++child) bytes += "<b/>";
    for (const char* const end : {"</b>", "", "<!-- c"}) {
        const refptr<xmlDocument> document = xmlDocument::createDocument();
        const std::string whole = bytes + end;
        try {
            document->parseBuffer(whole.data(), whole.size(), false);
        } catch (const unexpectedErrorException&) {
        }
        EXPECT_TRUE(document->children.empty());
        EXPECT_EQ(machine::largeBlocks(), 0u) << end;
    }
}

TEST(nodeBlocks, holdNodesOfTheProgramsOwnClassesBesideThem)
{
    int left = -1;
    refptr<xmlNode> deepest;
    {
        const refptr<xmlDocument> document = documentOfChildren(10);
        const refptr<xmlNode> child = document->children[3];
        EXPECT_TRUE(child->addChild(countedChain(4, deepest)));
        EXPECT_TRUE(deepest->addChild(
            refptr<xmlNode>(new holdingNode(xmlNode::createNode(u"held"), left))));
    }
    EXPECT_EQ(countedNode::alive, 1);
    EXPECT_EQ(deepest->parent, nullptr);
    deepest = nullptr;
    EXPECT_EQ(countedNode::alive, 0);
    EXPECT_EQ(left, 0);
}

// --- Memory that is told of in advance -------------------------------------------------------

TEST(foretoldMemory, isNothingForASmallTree)
{
    machine::renew();
    const refptr<xmlDocument> document = documentOfChildren(1000);
    EXPECT_TRUE(machine::current().foretoldAllocations.empty());
}

TEST(foretoldMemory, isWhatTheRestOfTheBytesWillTakeIfItIsLikeTheirBeginning)
{
    machine::renew();
    const refptr<xmlDocument> document = documentOfChildren(manyChildren);
    const std::vector<std::size_t>& told = machine::current().foretoldAllocations;
    ASSERT_FALSE(told.empty());
    const std::size_t texts =
        manyChildren * document->children[0]->text.length() * sizeof(char16_t);
    EXPECT_GT(told[0], texts / 2);
    EXPECT_LE(told.size(), 3u) << "in few portions";
}

TEST(foretoldMemory, isAsMuchAgainWhereTheEndOfTheTextIsNotKnown)
{
    constexpr std::size_t units = 300000;
    machine::renew();
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    const std::u16string text = u"<a>" + std::u16string(units, u'x') + u"</a>";
    node->parseText(text.c_str(), false, nullptr);
    EXPECT_EQ(node->text, string(units, u'x'));
    EXPECT_EQ(machine::current().foretoldAllocations,
              std::vector<std::size_t>{units * sizeof(char16_t)});
}

TEST(foretoldMemory, isAtMost24MegabytesAtOnce)
{
    constexpr std::size_t units = 13 << 20;
    machine::renew();
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    const std::u16string text = u"<a>" + std::u16string(units, u'x') + u"</a>";
    node->parseText(text.c_str(), false, nullptr);
    EXPECT_EQ(node->text.length(), units);
    EXPECT_EQ(machine::current().foretoldAllocations, std::vector<std::size_t>{24 << 20});
}

} // namespace orloxmlnodeTest
