#include "orloxmlnode.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <random>

namespace xmlwriterTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

string written(const refptr<xmlNode>& node, const string& indent = u"")
{
    string out;
    node->writeNode(out, indent);
    return out;
}

refptr<xmlNode> nodeWithText(const string& name, const string& text)
{
    refptr<xmlNode> node = xmlNode::createNode(name);
    node->text = text;
    return node;
}

refptr<xmlNode> sampleTree()
{
    refptr<xmlNode> root = nodeWithText(u"a", u"t");
    root->setAttribute(u"x", u"1");
    root->addChild(u"b");
    root->addChild(u"c")->text = u"u";
    return root;
}

// Trees whose texts survive a write and a read: no "&", since all levels of escaping collapse,
// and no blanks around a text.
class randomTrees {
public:
    explicit randomTrees(unsigned seed) : m_random(seed) {}

    refptr<xmlNode> tree(unsigned depth)
    {
        refptr<xmlNode> node = xmlNode::createNode(word(u"abcxyz:_\u00e9", 1));
        for (unsigned i = below(4); i > 0; --i)
            node->attributes.emplace_back(word(u"nmk", 1), word(u"v <>'\"\n\u4e2d", 0));
        node->text = word(u"txy<>'\"\u00fc", 0);
        for (unsigned i = depth == 0 ? 0 : below(4); i > 0; --i) node->addChild(tree(depth - 1));
        return node;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    string word(std::u16string_view units, unsigned least)
    {
        string made;
        for (unsigned i = least + below(12); i > 0; --i)
            made += units[below(static_cast<unsigned>(units.size()))];
        return made;
    }

    std::mt19937 m_random;
};

} // namespace

TEST(xmlWriter, writesEachShapeOfAnElement)
{
    static const struct {
        const char16_t* source;
        const char16_t* expected;
    } rows[] = {
        {u"<a/>", u"<a/>\n"},
        {u"<></>", u"</>\n"},
        {u"<a>t</a>", u"<a>t</a>\n"},
        {u"<a x='1' y=''/>", u"<a x=\"1\" y=\"\"/>\n"},
        {u"<a x='1'>t</a>", u"<a x=\"1\">t</a>\n"},
        {u"<a><b/></a>", u"<a>\n   <b/>\n</a>\n"},
        {u"<a>t<b/></a>", u"<a>\n   t\n   <b/>\n</a>\n"},
        {u"<a><b><c>t</c></b><d>e<f/></d></a>",
         u"<a>\n   <b>\n      <c>t</c>\n   </b>\n   <d>\n      e\n      <f/>\n   </d>\n</a>\n"},
    };
    for (const auto& row : rows) {
        const refptr<xmlNode> node = xmlNode::createNode(u"");
        node->parseText(row.source, false, nullptr);
        EXPECT_EQ(written(node), row.expected);
    }
}

TEST(xmlWriter, appendsAtTheIndentationThatIsGiven)
{
    string out(u"before\n");
    sampleTree()->writeNode(out, u"\t ");
    EXPECT_EQ(out, u"before\n"
                   u"\t <a x=\"1\">\n"
                   u"\t    t\n"
                   u"\t    <b/>\n"
                   u"\t    <c>u</c>\n"
                   u"\t </a>\n");
}

TEST(xmlWriter, writesADocumentWithoutANameAsAnEmptyTag)
{
    EXPECT_EQ(written(xmlNode::createNode(u"")), u"</>\n");
}

TEST(xmlWriter, encodesValuesAndTextsButNoNames)
{
    const refptr<xmlNode> node = nodeWithText(u"n&<", u"&'\"<>");
    node->setAttribute(u"k>", u"a<b&\"c\"");
    EXPECT_EQ(written(node),
              u"<n&< k>=\"a&lt;b&amp;&quot;c&quot;\">&amp;&apos;&quot;&lt;&gt;</n&<>\n");
}

TEST(xmlWriter, aTextBesideChildrenLosesItsLineFeedsAlone)
{
    const refptr<xmlNode> node = nodeWithText(u"a", u" x\n<\r\n\ty ");
    EXPECT_EQ(written(node), u"<a> x\n&lt;\r\n\ty </a>\n");
    node->addChild(u"b");
    EXPECT_EQ(written(node), u"<a>\n    x&lt;\r\ty \n   <b/>\n</a>\n");
}

TEST(xmlWriter, aTextOfLineFeedsBesideChildrenLeavesItsLine)
{
    const refptr<xmlNode> node = nodeWithText(u"a", u"\n\n");
    node->addChild(u"b");
    EXPECT_EQ(written(node), u"<a>\n   \n   <b/>\n</a>\n");
}

TEST(xmlWriter, lineFeedsInValuesStay)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"a");
    node->setAttribute(u"x", u"1\n2");
    node->addChild(u"b");
    EXPECT_EQ(written(node), u"<a x=\"1\n2\">\n   <b/>\n</a>\n");
}

TEST(xmlWriter, keepsZeroUnitsAndOtherUnitsAsTheyAre)
{
    const string odd(u"\0\1\xd800\u00e9", 4);
    EXPECT_EQ(written(nodeWithText(u"a", odd)), string(u"<a>") + odd + u"</a>\n");
}

TEST(xmlWriter, leavesTheTreeUnchanged)
{
    const refptr<xmlNode> tree = sampleTree();
    const string first = written(tree);
    EXPECT_EQ(written(tree), first);
    EXPECT_EQ(tree->text, u"t");
    EXPECT_EQ(tree->children.size(), 2u);
}

TEST(xmlWriter, anEmptyChildReferenceFailsTheAssertion)
{
    const machine& here = machine::renew();
    const refptr<xmlNode> node = xmlNode::createNode(u"a");
    node->children.emplace_back();
    string out;
    EXPECT_THROW(node->writeNode(out, u""), bool);
    EXPECT_THROW((void)node->estimateSize(0), bool);
    ASSERT_EQ(here.boxes.size(), 2u);
    EXPECT_EQ(here.boxes[0].text,
              u"Assertion failed:\nm_p != NULL\n\nFile: libs/utils/inc/orlorefptr\nLine: 315");
    node->children.clear();
}

TEST(xmlWriter, estimatesFromNamesAttributesAndTexts)
{
    static const struct {
        const char16_t* source;
        std::size_t width;
        std::size_t expected;
    } rows[] = {
        {u"<a/>", 0, 0 + 1 + 1 + 4},
        {u"<></>", 0, 0 + 1 + 0 + 4},
        {u"<abc/>", 5, 5 + 1 + 3 + 4},
        {u"<a>text</a>", 2, 2 + 1 + 1 + (4 + 9 + 1)},
        {u"<a xy='123' z=''/>", 0, 0 + 1 + 1 + (2 + 3 + 8) + (1 + 0 + 8) + 4},
        // Beside children the text does not count.
        {u"<ab>text<c/></ab>", 1, 1 + 1 + 2 + 2 + (4 + 1 + 1 + 4) + 2 + 5 + 1},
        {u"<a><b><c/></b><d/></a>", 0,
         (0 + 1 + 1) + 2 + ((3 + 1 + 1) + 2 + (6 + 1 + 1 + 4) + 1 + 5 + 3) + (3 + 1 + 1 + 4) + 1 +
             5 + 0},
    };
    for (const auto& row : rows) {
        const refptr<xmlNode> node = xmlNode::createNode(u"");
        node->parseText(row.source, false, nullptr);
        EXPECT_EQ(node->estimateSize(row.width), row.expected) << narrow(row.source);
    }
}

TEST(xmlWriter, goesDeepWithoutTheCallStack)
{
    constexpr std::size_t depth = 3000; // each line is indented, so the text grows with the square
    const refptr<xmlNode> root = xmlNode::createNode(u"a");
    refptr<xmlNode> innermost = root;
    for (std::size_t level = 1; level < depth; ++level) innermost = innermost->addChild(u"a");
    const std::size_t indents =
        3 * (depth - 1) * (depth - 2); // of opening and closing tags above the innermost
    EXPECT_EQ(written(root).size(), indents + 3 * (depth - 1) + (depth - 1) * (4 + 5) + 5);
}

TEST(xmlWriter, estimatesAVeryDeepTreeWithoutTheCallStack)
{
    constexpr std::size_t depth = 1000000;
    const refptr<xmlNode> root = xmlNode::createNode(u"");
    refptr<xmlNode> innermost = root;
    for (std::size_t level = 1; level < depth; ++level) innermost = innermost->addChild(u"");
    // Width twice and 1 + 2 + 5 for each node with children, width and 1 + 4 for the last.
    EXPECT_EQ(root->estimateSize(0),
              3 * (depth - 1) * (depth - 2) + 8 * (depth - 1) + 3 * (depth - 1) + 5);
}

TEST(xmlWriter, whatWasWrittenAndReadIsWrittenAgainTheSame)
{
    constexpr unsigned seed = 20240305;
    randomTrees random(seed);
    for (int i = 0; i < 500; ++i) {
        const string once = written(random.tree(4));
        const refptr<xmlNode> back = xmlNode::createNode(u"");
        ASSERT_NE(back->parseText(once.c_str(), false, nullptr), nullptr)
            << "seed " << seed << ", tree " << i;
        ASSERT_EQ(written(back), once) << "seed " << seed << ", tree " << i;
    }
}

TEST(encodeEntities, encodesTheFiveUnitsAndNothingElse)
{
    static const struct {
        const char16_t* text;
        const char16_t* expected;
    } rows[] = {
        {u"", u""},
        {u"plain = ;#/?", u"plain = ;#/?"},
        {u"&", u"&amp;"},
        {u"'", u"&apos;"},
        {u"\"", u"&quot;"},
        {u"<", u"&lt;"},
        {u">", u"&gt;"},
        {u"a<b&\"c\"", u"a&lt;b&amp;&quot;c&quot;"},
        {u"&amp;", u"&amp;amp;"},
        {u"\t\n\r\x01\u00e9\u4e2d", u"\t\n\r\x01\u00e9\u4e2d"},
        {u"\u0126\u013c\u013e", u"\u0126\u013c\u013e"}, // the five with another high byte
    };
    for (const auto& row : rows) {
        string text(row.text);
        encodeEntities(text);
        EXPECT_EQ(text, row.expected);
    }
}

TEST(encodeEntities, encodesAUnitWhereverItStandsInALongText)
{
    for (std::size_t at = 0; at < 100; ++at) {
        string text(std::u16string(100, u'x'));
        text[at] = u'<';
        encodeEntities(text);
        EXPECT_EQ(text, string(std::u16string(at, u'x') + u"&lt;" + std::u16string(99 - at, u'x')));
    }
}

TEST(encodeEntities, knowsTheFiveAmongAllUnitsInALongText)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string around(40, u'x');
        const auto encoded = static_cast<char16_t>(unit);
        string text(around + encoded + around);
        encodeEntities(text);
        const bool isOneOfTheFive =
            std::u16string_view(u"&'\"<>").find(encoded) != std::u16string_view::npos;
        ASSERT_EQ(text == string(around + encoded + around), !isOneOfTheFive) << unit;
    }
}

TEST(encodeEntities, encodesTextsOfAnyLength)
{
    for (std::size_t length : {31u, 32u, 33u, 4095u, 4096u, 4097u, 10000u}) {
        const std::u16string plain(length, u'x');
        string text(plain + u"&" + plain);
        encodeEntities(text);
        EXPECT_EQ(text, string(plain + u"&amp;" + plain));
    }
}

TEST(xmlWriter, aLineFeedBesideChildrenGoesWhereverItStandsInALongText)
{
    for (std::size_t at = 0; at < 100; ++at) {
        std::u16string text(100, u'x');
        text[at] = u'\n';
        const refptr<xmlNode> node = nodeWithText(u"a", string(text));
        EXPECT_EQ(written(node), string(u"<a>" + text + u"</a>\n"));
        node->addChild(u"b");
        EXPECT_EQ(written(node),
                  string(u"<a>\n   " + std::u16string(99, u'x') + u"\n   <b/>\n</a>\n"));
    }
}

TEST(xmlWriter, aLongTextBesideChildrenIsEncodedToo)
{
    const std::u16string plain(40, u'x');
    for (const auto& [unit, form] : {std::pair{u"&", u"&amp;"},
                                     {u"'", u"&apos;"},
                                     {u"\"", u"&quot;"},
                                     {u"<", u"&lt;"},
                                     {u">", u"&gt;"}}) {
        const refptr<xmlNode> node = nodeWithText(u"a", string(plain + unit + plain));
        node->addChild(u"b");
        EXPECT_EQ(written(node), string(u"<a>\n   " + plain + form + plain + u"\n   <b/>\n</a>\n"));
    }
}

} // namespace xmlwriterTest
