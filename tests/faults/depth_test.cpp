// What may be nested without end must not take the call stack along.
#include "orlolocfile.h"
#include "orlostringtemplate.h"
#include "orloxmldocument.h"
#include "support/languagefile.h"

namespace depthTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

string numbered(int number)
{
    return string().setNumber(number);
}

} // namespace

TEST(depth, ofLanguageFilesInAChainCostsNoCallStack)
{
    machine::renew();
    constexpr int last = 4000;
    for (int index = 0; index < last; ++index)
        addLanguageFile(u"C:\\l\\" + numbered(index), u"#include " + numbered(index + 1) + u"\n");
    addLanguageFile(u"C:\\l\\" + numbered(last), u"key the text at the end\n");

    locFile chain(file(string(u"C:\\l\\0")));
    stringTemplate text;
    EXPECT_TRUE(chain.lookup(u"key", text));
    EXPECT_EQ(text.text(), u"the text at the end");
    EXPECT_FALSE(chain.lookup(u"missing", text));
}

TEST(depth, ofElementsCostsNoCallStack)
{
    constexpr std::size_t depth = 100000;
    std::string bytes;
    for (std::size_t level = 0; level < depth; ++level) bytes += "<a>";
    for (std::size_t level = 0; level < depth; ++level) bytes += "</a>";

    refptr<xmlDocument> document = xmlDocument::createDocument();
    document->parseBuffer(bytes.data(), bytes.size(), false);
    std::size_t levels = 0;
    for (const xmlNode* node = document.get(); node != nullptr; ++levels)
        node = node->children.empty() ? nullptr : node->children[0].get();
    EXPECT_EQ(levels, depth);
    EXPECT_GT(document->estimateSize(0), depth);
    document = nullptr;
}

TEST(depth, ofAWidthOrAPrecisionIsTheLengthOfItsText)
{
    stringTemplate wide(u"[x:%99999999d]");
    wide.insertValue(7, u"x");
    EXPECT_EQ(wide.text().size(), 99999999u);
    EXPECT_TRUE(wide.text().starts_with(u"  ") && wide.text().ends_with(u"  7"));

    stringTemplate precise(u"[x:%.99999999f]");
    precise.insertValue(0.5, u"x");
    EXPECT_EQ(precise.text().size(), 100000001u);
    EXPECT_TRUE(precise.text().starts_with(u"0.50") && precise.text().ends_with(u"00"));
}

} // namespace depthTest
