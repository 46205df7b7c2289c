#include "orloexception.h"
#include "orloxmlnode.h"

#include "support/judgexml.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <random>
#include <thread>
#include <utility>
#include <vector>

namespace xmlreaderTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

// name [attribute]=[value] 'text' (children)
void describe(const xmlNode& node, string& out)
{
    out.append(node.name);
    for (const auto& [name, value] : node.attributes)
        out.append(u" " + name + u"=[" + value + u"]");
    if (!node.text.empty()) out.append(u" '" + node.text + u"'");
    if (node.children.empty()) return;
    out.append(u" (");
    for (const refptr<xmlNode>& child : node.children) {
        if (child != node.children.front()) out.append(u" ");
        EXPECT_EQ(child->parent, &node);
        describe(*child, out);
    }
    out.append(u")");
}

// The node and the text that is left, or how the reading ended.
string outcomeOf(xmlNode& node, const string& text, bool keepWhitespace)
{
    string outcome;
    try {
        const char16_t* const rest = node.parseText(text.c_str(), keepWhitespace, nullptr);
        describe(node, outcome);
        return outcome + u" | " + (rest == nullptr ? u"null" : rest);
    } catch (const unexpectedErrorException&) {
        describe(node, outcome);
        return outcome + u" | error";
    }
}

string outcomeOf(const string& text, bool keepWhitespace = false)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    return outcomeOf(*node, text, keepWhitespace);
}

struct parseRow {
    const char16_t* text;
    const char16_t* expected;
};

template <std::size_t Count>
void expectOutcomes(const parseRow (&rows)[Count])
{
    machine::renew();
    for (const parseRow& row : rows)
        EXPECT_EQ(outcomeOf(row.text), row.expected) << narrow(row.text);
}

// The same, of the judge's.
void describe(const judgedNode& node, string& out)
{
    out.append(node.name);
    for (const auto& [name, value] : node.attributes)
        out.append(u" " + name + u"=[" + value + u"]");
    if (!node.text.empty()) out.append(u" '" + node.text + u"'");
    for (const judgedNode& child : node.children) {
        out.append(&child == &node.children.front() ? u" (" : u" ");
        describe(child, out);
    }
    if (!node.children.empty()) out.append(u")");
}

string judgedOutcomeOf(const string& text, bool keepWhitespace)
{
    judgedNode node;
    string outcome;
    try {
        const auto rest = judgeParse(node, text, keepWhitespace);
        describe(node, outcome);
        return outcome + u" | " + (rest ? text.substr(*rest) : string(u"null"));
    } catch (const malformed&) {
        describe(node, outcome);
        return outcome + u" | error";
    }
}

string randomText(std::mt19937& random, const std::vector<string>& pieces, unsigned most)
{
    string text;
    for (auto count = random() % most; count > 0; --count)
        text.append(pieces[random() % pieces.size()]);
    return text;
}

// Nothing where the decoder would never end.
std::optional<string> judgedDecoded(const string& text)
{
    try {
        std::u16string decoded = text;
        judgeDecodeEntities(decoded);
        return string(std::move(decoded));
    } catch (const neverEnds&) {
        return std::nullopt;
    }
}

string decoded(string text)
{
    decodeEntities(text);
    return text;
}

} // namespace

// --- Forms ---------------------------------------------------------------------------------

TEST(parseText, passesOverWhatStandsBeforeTheRoot)
{
    static const parseRow rows[] = {
        {u"<?xml version=\"1.0\"?><a/>", u"a | />"},
        {u"<!-- c --><a/>", u"a | />"},
        {u"<!-- <b/> --><a/>", u"a | />"},
        {u"<!DOCTYPE a><a/>", u"a | />"},
        {u"<?xml?>\r\n<!-- 1 -->\n<!-- 2 --><!DOCTYPE a>\n<a/>", u"a | />"},
        {u"junk ]]> <a/>", u"a | />"},
        {u"<?p ?>?><a/>", u"a | />"},
        // The ends are searched behind the whole beginning.
        {u"<!-->--><a/>", u"a | />"},
        {u"<!--->--><a/>", u"a | />"},
        {u"<?>?><a/>", u"a | />"},
        {u"<!><a/>", u"a | />"},
        {u"<!--><b/>--><a/>", u"a | />"},
        {u"<!---><b/>--><a/>", u"a | />"},
        {u"<?><b/>?><a/>", u"a | />"},
        {u"<!><b/>><a/>", u"b | />><a/>"},
        // Other markup ends at its first ">", so a subset or a CDATA section is not passed whole.
        {u"<!DOCTYPE a [<!ENTITY b 'c'>]><a/>", u"a | />"},
        {u"<!DOCTYPE a [<!ENTITY b 'c'><d/>]><a/>", u"d | />]><a/>"},
        {u"<![CDATA[<b/>]]><a/>", u"a | />"},
        {u"<![CDATA[>]]><a/>", u"a | />"},
    };
    expectOutcomes(rows);
}

TEST(parseText, givesNullWhereTheTextEndsBeforeATag)
{
    static const parseRow rows[] = {
        {u"", u" | null"},          {u"no tag", u" | null"},  {u"<!-- open", u" | null"},
        {u"<!--->", u" | null"},    {u"<!---->", u" | null"}, {u"<?x", u" | null"},
        {u"<?>", u" | null"},       {u"<!x", u" | null"},     {u"<!", u" | null"},
        {u"<!-- <a/>", u" | null"}, {u"<? <a/>", u" | null"}, {u"<!-- c -->", u" | null"},
        {u"<?x?> y", u" | null"},
    };
    expectOutcomes(rows);
}

TEST(parseText, knowsOtherMarkupDirectlyBehindItsBeginningAlone)
{
    static const parseRow rows[] = {
        {u"< !x/>", u"!x | />"},
        {u"<\t!--/>", u"!-- | />"},
        {u"<\n?p/>", u"?p | />"},
        {u"< !-- c --><a b='1'/>", u"!-- c=[1] | />"},
        {u"<a>x< !--y--></a>", u"a 'x' | error"},
        {u"<a>x< ?y/></a>", u"a 'x' (?y) | "},
    };
    expectOutcomes(rows);
}

TEST(parseText, readsTheNameOfATag)
{
    static const parseRow rows[] = {
        {u"<a/>", u"a | />"},
        {u"< \t\r\n\v\fa/>", u"a | />"},
        {u"<a", u"a | "},
        {u"<ns:a.b-1\u00e9/>", u"ns:a.b-1\u00e9 | />"},
        {u"<a&lt;/>", u"a&lt; | />"},
        {u"<a<b/>", u"a<b | />"},
        {u"<1=\"/>", u"1=\" | />"},
        {u"<a\n/>", u"a | />"},
        {u"<a\t/>", u"a | />"},
        {u"<a\r/>", u"a | />"},
        {u"<a\v/>", u"a | />"},
        {u"<a\f/>", u"a | />"},
        {u"<a_long_name_beyond_any_buffer/>", u"a_long_name_beyond_any_buffer | />"},
    };
    expectOutcomes(rows);
}

TEST(parseText, stopsAtAClosingTagThatComesFirst)
{
    static const parseRow rows[] = {
        {u"</a>", u" | </a>"},
        {u"</>", u" | </>"},
        {u" < / a>", u" | < / a>"},
        {u"<!-- c --></a><b/>", u" | </a><b/>"},
    };
    expectOutcomes(rows);
}

TEST(parseText, readsAttributes)
{
    static const parseRow rows[] = {
        {u"<a b='1' c=\"2\"d='3'>x</a>", u"a b=[1] c=[2] d=[3] 'x' | "},
        {u"<a b=\"x>y\"/>", u"a b=[x>y] | />"},
        {u"<a b='</a>'/>", u"a b=[</a>] | />"},
        {u"<a b=\"'\" c='\"'/>", u"a b=['] c=[\"] | />"},
        {u"<a b=''/>", u"a b=[] | />"},
        {u"<a b \n=\t '1' />", u"a b=[1] | />"},
        {u"<a\tb=' 1 '/>", u"a b=[ 1 ] | />"},
        {u"<a b='1' b='2'/>", u"a b=[1] b=[2] | />"},
        {u"<a b='&lt;&#x41;&amp;quot;'/>", u"a b=[<A\"] | />"},
        {u"<a b&lt;='1'/>", u"a b&lt;=[1] | />"},
        // What stands between a name and the next "=" is lost.
        {u"<a b c=\"1\">x</a>", u"a b=[1] 'x' | "},
        {u"<a b></a><c d='1'/>", u"a b></a><c=[1] | />"},
        {u"<a b><c d='1'/>", u"a b><c=[1] | />"},
        // A name stops at blanks and "=" alone.
        {u"<a b>c='1'/>", u"a b>c=[1] | />"},
        {u"<a b/c='1'/>", u"a b/c=[1] | />"},
        {u"<a ='1'/>", u"a =[1] | />"},
        {u"<a / b='1'/>", u"a /=[1] | />"},
        {u"<a b='1'/ c='2'/>", u"a b=[1] /=[2] | />"},
        // The end of the text ends the tag, unless a blank stands before it.
        {u"<a b=\"1\"", u"a b=[1] | "},
        {u"<a b=\"1\" ", u"a b=[1] | error"},
        {u"<a b=\"1\"/", u"a b=[1] | error"},
        {u"<a name_beyond_any_buffer='a value that is too long for any buffer'/>",
         u"a name_beyond_any_buffer=[a value that is too long for any buffer] | />"},
    };
    expectOutcomes(rows);
}

TEST(parseText, readsTheTextBeforeTheFirstMarkup)
{
    static const parseRow rows[] = {
        {u"<a></a>", u"a | "},
        {u"<a>x</a>", u"a 'x' | "},
        {u"<a>x > y</a>", u"a 'x > y' | "},
        {u"<a>a text that is too long for any buffer</a>",
         u"a 'a text that is too long for any buffer' | "},
        {u"<a>&lt;b&gt; &amp; &#x263;</a>", u"a '<b> & \u0263' | "},
        {u"<a>x<b/>y</a>", u"a 'x' (b) | "},
        {u"<a><b/>y</a>", u"a (b) | "},
        {u"<a><!-- c -->x</a>", u"a | "},
        {u"<a>x<!-- c -->y</a>", u"a 'x' | "},
        {u"<a>x<?p?>y<b/></a>", u"a 'x' (b) | "},
        {u"<a><![CDATA[x]]>y</a>", u"a | "},
        {u"<a> <b/></a>", u"a (b) | "},
        {u"<a>x< /a>", u"a 'x' | "},
        {u"<a> < /a>", u"a | "},
        {u"<a>x<", u"a 'x' | <"},
        {u"<a><", u"a | <"},
    };
    expectOutcomes(rows);
}

TEST(parseText, trimsByKeepWhitespace)
{
    static const struct {
        const char16_t* text;
        const char16_t* trimmed;
        const char16_t* kept;
    } rows[] = {
        {u"<a>  </a>", u"", u"  "},
        {u"<a>\n</a>", u"\n", u"\n"},
        {u"<a> \n </a>", u"\n", u" \n "},
        {u"<a>\t x y \t</a>", u"x y", u"\t x y \t"},
        {u"<a>\v x \r</a>", u"\v x \r", u"\v x \r"},
        // Before other markup leading white space of every kind goes in both cases.
        {u"<a>\n  x\n  <b/></a>", u"x\n", u"x\n  "},
        {u"<a> \v\f\r\tx \t<b/></a>", u"x", u"x \t"},
        {u"<a> \n\t <b/></a>", u"", u""},
        {u"<a>  x  < /a>", u"x", u"x  "},
        // Blanks that come out of an entity are not trimmed.
        {u"<a> &#x20;x&#x20; </a>", u" x ", u"  x  "},
    };
    for (const auto& row : rows) {
        for (const bool keepWhitespace : {false, true}) {
            const refptr<xmlNode> node = xmlNode::createNode(u"");
            node->parseText(row.text, keepWhitespace, nullptr);
            EXPECT_EQ(node->text, keepWhitespace ? row.kept : row.trimmed)
                << narrow(row.text) << keepWhitespace;
        }
    }
}

TEST(parseText, readsChildren)
{
    static const parseRow rows[] = {
        {u"<a><b/><c></c><d>x</d></a>", u"a (b c d 'x') | "},
        {u"<a><b><c><d/></c></b><e/></a>", u"a (b (c (d)) e) | "},
        {u"<a> x <b y='1'>z</b> lost <c/> lost </a>", u"a 'x' (b y=[1] 'z' c) | "},
        {u"<a><!-- 1 --><b/><?p?><!x><c/><!-- 2 --></a>", u"a (b c) | "},
        {u"<a><!-- < --></a>", u"a | "},
        {u"<a><a><a/></a></a>", u"a (a (a)) | "},
        // A child without a name goes, with all that it holds.
        {u"<a><></><b/></a>", u"a (b) | "},
        {u"<a><><c/></><b/></a>", u"a (b) | "},
    };
    expectOutcomes(rows);
}

TEST(parseText, acceptsClosingTags)
{
    static const parseRow rows[] = {
        {u"<a></a>", u"a | "},
        {u"<a></ \ta\r\n>", u"a | "},
        {u"<a><b/></a>", u"a (b) | "},
        {u"<a><b/>< / a >", u"a (b) | "},
        {u"<a><b></b></a>", u"a (b) | "},
        {u"<></>", u" | "},
        {u"<>x</ >", u" 'x' | "},
        {u"<><b/>< / >", u" (b) | "},
    };
    expectOutcomes(rows);
}

TEST(parseText, leavesWhatStandsBehindTheElement)
{
    static const parseRow rows[] = {
        {u"<a/><b/>", u"a | /><b/>"},
        {u"<a></a><b/>", u"a | <b/>"},
        {u"<a><b/></a> x <!-- open", u"a (b) |  x <!-- open"},
    };
    expectOutcomes(rows);
}

// --- Errors --------------------------------------------------------------------------------

TEST(parseText, refusesMalformedText)
{
    static const struct {
        const char* what;
        const char16_t* text;
    } rows[] = {
        {"the text ends behind <", u"<"},
        {"the text ends behind < and blanks", u"< \n\t"},
        {"the same inside an element", u"<a><b/><"},
        {"the same inside an element, with blanks", u"<a>x< "},
        {"the same inside a child", u"<a><b>x<"},
        {"/ in a name without >", u"<a/b>"},
        {"/ in a name at the end", u"<a/"},
        {"/ in a name, then a blank", u"<a/ >"},
        {"/ in a name, then what would be an attribute", u"<a/ b='1'/>"},
        {"/ in a name, then what would be its value", u"<a/='1'/>"},
        {"an attribute without =", u"<a b>"},
        {"an attribute without =, at the end", u"<a b"},
        {"a blank and the end of the text", u"<a "},
        {"a blank behind a value and the end", u"<a b='1' "},
        {"a value without quotes", u"<a b=1/>"},
        {"a value that is missing", u"<a b="},
        {"a value that is missing behind a blank", u"<a b= "},
        {"a value that is not closed", u"<a b=\"1"},
        {"a value closed by the other quote", u"<a b=\"1'/>"},
        {"nothing behind an opening tag", u"<a>"},
        {"no < behind an opening tag", u"<a>x"},
        {"no < behind a nameless opening tag", u"<>"},
        {"another first closing tag", u"<a></b>"},
        {"the first closing tag in another case", u"<a></A>"},
        {"the first closing tag is shorter", u"<ab></a>"},
        {"the first closing tag without a name", u"<a></>"},
        {"the text ends in the first closing tag", u"<a></"},
        {"the first closing tag is not closed", u"<a></a"},
        {"the first closing tag goes on", u"<a></ab>"},
        {"the first closing tag has an attribute", u"<a></a b>"},
        {"the content ends", u"<a><b/>"},
        {"the content ends behind a text", u"<a><b></b>x"},
        {"the content of a child ends", u"<a><b><c/></b>"},
        {"another later closing tag", u"<a><b/></c>"},
        {"a later closing tag in another case", u"<a><b/></A>"},
        {"the text ends in a later closing tag", u"<a><b/></"},
        {"a later closing tag is not closed", u"<a><b/></a"},
        {"a later closing tag without a name", u"<a>< /><b/></a>"},
        {"a later closing tag goes on", u"<a><b/></ab>"},
        {"a child closed by the name of its parent", u"<a><b></a></b>"},
        {"a child that the end of the text completes", u"<a><b"},
    };
    machine::renew();
    for (const auto& row : rows) {
        const refptr<xmlNode> node = xmlNode::createNode(u"");
        try {
            node->parseText(row.text, false, nullptr);
            ADD_FAILURE() << row.what;
        } catch (const unexpectedErrorException& thrown) {
            EXPECT_EQ(string(thrown.m_message.getText()),
                      u"Unexpected error occurred (xmlNode::parseText: invalid xml-format)")
                << row.what;
        }
        EXPECT_TRUE(node->children.empty()) << row.what;
    }
}

TEST(parseText, refusesANullText)
{
    machine::renew();
    try {
        xmlNode::createNode(u"")->parseText(nullptr, false, nullptr);
        FAIL();
    } catch (const unexpectedErrorException& thrown) {
        EXPECT_EQ(string(thrown.m_message.getText()),
                  u"Unexpected error occurred (xmlNode::parseText: NULL specified for pText)");
    }
}

TEST(parseText, losesTheChildrenWhereTheTextEndsInAComment)
{
    static const parseRow rows[] = {
        {u"<a><b/><!-- c -->", u"a | null"},
        {u"<a><b/><!-- c", u"a | null"},
        {u"<a><b/><?p", u"a | null"},
        {u"<a x='1'>t<b/><c><d/><!-- c -->", u"a x=[1] 't' | null"},
    };
    expectOutcomes(rows);
}

// --- The node that is filled ---------------------------------------------------------------

TEST(parseText, addsToTheNode)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"before");
    node->text = u"old";
    node->setAttribute(u"x", u"1");
    const refptr<xmlNode> first = node->addChild(u"first");
    EXPECT_EQ(outcomeOf(*node, u"<a y='2'><b/></a>", false), u"a x=[1] y=[2] 'old' (first b) | ");
    EXPECT_TRUE(node->children.front() == first);
    EXPECT_EQ(outcomeOf(*node, u"<c></c>", false), u"c x=[1] y=[2] (first b) | ");
}

TEST(parseText, keepsTheOldChildrenWhereTheNewOnesAreLost)
{
    machine::renew();
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    node->addChild(u"old");
    EXPECT_EQ(outcomeOf(*node, u"<a><b/><!-- c -->", false), u"a (old) | null");
    EXPECT_EQ(outcomeOf(*node, u"<a><b/>", false), u"a (old) | error");
    EXPECT_EQ(outcomeOf(*node, u"<a><b/></a>", false), u"a (old b) | ");
}

TEST(parseText, keepsNameAndTextWhereNothingIsFound)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"name");
    node->text = u"text";
    EXPECT_EQ(outcomeOf(*node, u"no tag", false), u"name 'text' | null");
    EXPECT_EQ(outcomeOf(*node, u"</x>", false), u"name 'text' | </x>");
}

TEST(parseText, takesABufferAndDoesNotNeedIt)
{
    char16_t scratch[512] = {};
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    string outcome;
    node->parseText(u"<a b='1'>t<c/></a>", false, scratch);
    describe(*node, outcome);
    EXPECT_EQ(outcome, u"a b=[1] 't' (c)");
}

TEST(parseText, leavesNoSpareRoomInFinishedNodes)
{
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    node->parseText(u"<a b='1' c='2' d='3'><e/><f/><g>a text with &lt; and &gt;</g></a>", false,
                    nullptr);
    EXPECT_EQ(node->children.capacity(), 3u);
    EXPECT_EQ(node->attributes.capacity(), 3u);
    const string& text = node->children[2]->text;
    EXPECT_EQ(text, u"a text with < and >");
    EXPECT_EQ(text.capacity(), text.size());
    EXPECT_EQ(node->children[0]->children.capacity(), 0u);
}

TEST(parseText, goesAsDeepAsTheTextDoes)
{
    constexpr std::size_t depth = 1000000;
    string text;
    for (std::size_t level = 0; level < depth; ++level) text.append(u"<a>");
    const string opened(text);
    for (std::size_t level = 0; level < depth; ++level) text.append(u"</a>");

    refptr<xmlNode> node = xmlNode::createNode(u"");
    EXPECT_EQ(*node->parseText(text.c_str(), false, nullptr), u'\0');
    std::size_t levels = 1;
    for (const xmlNode* each = node.get(); !each->children.empty(); each = each->children[0].get())
        ++levels;
    EXPECT_EQ(levels, depth);

    // Cut off on the way, by an error and by a comment.
    machine::renew();
    node = xmlNode::createNode(u"");
    EXPECT_THROW(node->parseText(opened.c_str(), false, nullptr), unexpectedErrorException);
    EXPECT_EQ(node->parseText((opened + u"<!-- c").c_str(), false, nullptr), nullptr);
    EXPECT_TRUE(node->children.empty());
}

TEST(parseText, readsAMillionChildren)
{
    constexpr std::size_t count = 1000000;
    string text(u"<a>");
    for (std::size_t i = 0; i < count; ++i) text.append(u"<b/>");
    text.append(u"</a>");
    const refptr<xmlNode> node = xmlNode::createNode(u"");
    node->parseText(text.c_str(), false, nullptr);
    EXPECT_EQ(node->children.size(), count);
    EXPECT_EQ(node->children.capacity(), count);
}

TEST(parseText, agreesWithTheJudgeOnRandomText)
{
    constexpr unsigned seed = 5;
    static const std::vector<string> pieces = {
        u"<",   u">",        u"/",     u"</",     u"/>",     u"a",    u"b",   u"<a>", u"</a>",
        u"<b>", u"</b>",     u"<a/>",  u" ",      u"\n",     u"=",    u"\"",  u"'",   u"x='1'",
        u"<!",  u"<!-- -->", u"<?p?>", u"-->",    u"?>",     u"<!--", u"<?",  u"\t",  u"&lt;",
        u"t u", u"<a x='",   u"< a >", u"</ b >", u"< / a>", u"<>",   u"</>",
    };
    machine::renew();
    std::mt19937 random(seed);
    for (int i = 0; i < 30000; ++i) {
        const string text = randomText(random, pieces, 20);
        const bool keepWhitespace = random() % 2 == 0;
        ASSERT_EQ(outcomeOf(text, keepWhitespace), judgedOutcomeOf(text, keepWhitespace))
            << "seed " << seed << ", text " << narrow(text);
    }
}

// --- Entities ------------------------------------------------------------------------------

TEST(decodeEntities, decodesNamedAndNumericEntities)
{
    static const struct {
        const char16_t* text;
        const char16_t* expected;
    } rows[] = {
        {u"", u""},
        {u"plain", u"plain"},
        {u"&amp;", u"&"},
        {u"&apos;&quot;&lt;&gt;", u"'\"<>"},
        {u"a&lt;b&gt;c", u"a<b>c"},
        // All levels collapse.
        {u"&amp;lt;", u"<"},
        {u"&amp;amp;", u"&"},
        {u"&amp;amp;amp;quot;", u"\""},
        {u"&amp;amp;lt&amp;gt;", u"&lt>"},
        {u"&a&amp;mp;", u"&a&mp;"},
        {u"&&lt;", u"&<"},
        {u"&&amp;lt;", u"&<"},
        // Other entities stay.
        {u"&foo;", u"&foo;"},
        {u"&#65;", u"&#65;"},
        {u"&LT;", u"&LT;"},
        {u"&lt", u"&lt"},
        {u"& lt;", u"& lt;"},
        {u"&", u"&"},
        {u"#x41;", u"#x41;"},
        {u"&#X41;", u"&#X41;"},
        // One to three digits.
        {u"&#x9;", u"\t"},
        {u"&#x41;", u"A"},
        {u"&#x3b1;&#x3B1;", u"\u03b1\u03b1"},
        {u"&#xfff;", u"\u0fff"},
        // The ";" is looked for from the far end.
        {u"&#x4;1;", u"\x04"},
        {u"&#x4;1x;", u"\x04"
                      u"1x;"},
        {u"&#x41;;", u"A"},
        {u"&#x4;;;", u"\x04"},
        {u"&#x4; &#x4;1;", u"\x04 \x04"
                           u"1;"},
        // Digits are read up to the first that is none.
        {u"&#x4G;", u"\x04"},
        {u"&#x 4;", u"\x04"},
        {u"&#x+41;", u"A"},
        {u"&#x-1;", u"\uffff"},
        {u"&#x-41;", u"\uffbf"},
        {u"&#x0x4;", u"\x04"},
        // A value of 0 goes without a trace.
        {u"a&#x0;b", u"ab"},
        {u"a&#x000;b", u"ab"},
        {u"a&#xg;b", u"ab"},
        {u"a&#x0x;b", u"ab"},
        {u"&#x0;", u""},
        // References make new ones.
        {u"&#x26;lt;", u"<"},
        {u"&#x26;#x41;", u"A"},
        {u"&amp;#x41;", u"A"},
        {u"&#&#x78;41;", u"A"},
        {u"&&#x23;x41;", u"A"},
        {u"&&#x0;#x41;", u"A"},
        {u"&#&#x0;x41;", u"A"},
        {u"&a&#x6d;p;lt;", u"<"},
        // Units with the bytes of a mark in one half.
        {u"\u2626&lt;", u"\u2626<"},
        {u"\u2323&#x41;", u"\u2323A"},
        {u"&#x26;amp;#x26;lt;", u"<"},
    };
    for (const auto& row : rows) EXPECT_EQ(decoded(row.text), row.expected) << narrow(row.text);
}

TEST(decodeEntities, handlesZeroUnits)
{
    EXPECT_EQ(decoded(string(u"\0&lt;\0", 6)), string(u"\0<\0", 3));
    EXPECT_EQ(decoded(string(u"&#x4\0;&lt;", 10)), string(u"\x04<"));
}

TEST(decodeEntities, agreesWithTheJudgeOnRandomText)
{
    constexpr unsigned seed = 7;
    static const std::vector<string> pieces = {
        u"&",      u"#",      u"x",      u";",      u"&#x",   u"&#x2;", u"4",      u"1",
        u"26",     u"0",      u"amp;",   u"lt;",    u"&lt;",  u"&amp;", u"&quot;", u"&#x41;",
        u"&#x26;", u"&#x23;", u"&#x78;", u"&#x3b;", u"&#x0;", u"gt;",   u"a",      u"m",
        u"p",      u"l",      u"t",      u" ",      u"-",
    };
    std::mt19937 random(seed);
    int ended = 0;
    for (int i = 0; i < 200000; ++i) {
        const string text = randomText(random, pieces, 12);
        const std::optional<string> expected = judgedDecoded(text);
        if (!expected) continue;
        ++ended;
        ASSERT_EQ(decoded(text), *expected) << "seed " << seed << ", text " << narrow(text);
    }
    EXPECT_GT(ended, 50000);
}

TEST(decodeEntitiesDeathTest, neverEndsOnAReferenceThatNothingCloses)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    constexpr int stillSearching = 7;
    for (const char16_t* const text :
         {u"&#x1234;", u"&#x;", u"&#x", u"&#x41", u"&#x41;&#x", u"&amp;#x&lt;"}) {
        const auto decodeWatched = [text] {
            std::thread([] {
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                std::_Exit(stillSearching);
            }).detach();
            decoded(text);
            std::_Exit(0);
        };
        EXPECT_EXIT(decodeWatched(), testing::ExitedWithCode(stillSearching), "") << narrow(text);
    }
}

} // namespace xmlreaderTest
