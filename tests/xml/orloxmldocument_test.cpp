#include "orloxmldocument.h"

#include "orloexception.h"
#include "platform/platform.h"
#include "support/allocations.h"
#include "support/judgexml.h"
#include "support/machine.h"
#include "support/randomxml.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace orloxmldocumentTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

constexpr const char16_t* path = u"C:\\work\\a.xml";
const std::string utf8Mark = "\xEF\xBB\xBF";
const std::string utf16Mark = "\xFF\xFE";

std::string unitBytes(const string& text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

std::string declaration(const std::string& encoding)
{
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

// What `action` throws, with the text of an exception of the library; "" if nothing.
string thrownBy(const std::function<void()>& action)
{
    try {
        action();
    } catch (const orlo::exception& thrown) {
        return thrown.m_message.getText();
    } catch (bool value) {
        return value ? u"true" : u"false";
    }
    return u"";
}

class xmlDocumentTest : public testing::Test {
protected:
    void parse(const std::string& bytes)
    {
        document->parseBuffer(bytes.data(), bytes.size(), false);
    }
    void load() { document->load(file(string(path)), false); }
    void save(xmlEncoding encoding = xmlEncoding::utf8)
    {
        document->save(file(string(path)), encoding);
    }
    void expectNoHandles() { EXPECT_EQ(here.openHandles(), 0u); }

    machine& here = machine::renew();
    refptr<xmlDocument> document = xmlDocument::createDocument();
};
using xmlLoad = xmlDocumentTest;
using xmlParseBuffer = xmlDocumentTest;
using xmlSave = xmlDocumentTest;
using xmlWriteBuffer = xmlDocumentTest;
using xmlUtf8 = xmlDocumentTest;

std::string encoded(const xmlDocument& document, xmlEncoding encoding)
{
    byteBuffer bytes;
    document.writeBuffer(bytes, encoding);
    return {bytes.data(), bytes.data() + bytes.size()};
}

// The UTF-8 bytes that a text in the root element becomes.
std::string encodedText(const string& text)
{
    const refptr<xmlDocument> document = xmlDocument::createDocument();
    document->name = u"a";
    document->text = text;
    const std::string bytes = encoded(*document, xmlEncoding::utf8);
    const std::string start = utf8Mark + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>";
    EXPECT_EQ(bytes.substr(0, start.size()), start);
    return bytes.substr(start.size());
}

// So many units of text fill the first piece, behind the declaration line and the tag.
constexpr std::size_t pieceUnits = 256;
constexpr std::size_t unitsBeforeText = 39 + 3;

string scannedEncoding(const std::string& bytes)
{
    std::string found = "unchanged";
    if (findDeclaredEncoding(bytes.data(), bytes.size(), found)) return string(found.c_str());
    return found == "unchanged" ? u"(none)" : u"(none, but changed)";
}

const std::string sampleDocument =
    "<?xml version=\"1.0\"?>\n<!-- c -->\n<root a=\"1&lt;\" b='2'>text\n"
    "<!-- inner --><child>\xC3\xA9&amp;</child><e/>\n</root>\n";

} // namespace

// --- Loading -------------------------------------------------------------------------------

TEST_F(xmlLoad, fillsTheDocumentAsTheRootElement)
{
    here.addFile(path, sampleDocument);
    load();
    EXPECT_EQ(document->name, u"root");
    EXPECT_EQ(document->text, u"text\n");
    ASSERT_EQ(document->children.size(), 2u);
    EXPECT_EQ(document->children[0]->text, u"\u00e9&");
    EXPECT_EQ(document->children[1]->name, u"e");
    expectNoHandles();
}

TEST_F(xmlLoad, handsKeepWhitespaceDown)
{
    here.addFile(path, "<a>  </a>");
    document->load(file(string(path)), true);
    EXPECT_EQ(document->text, u"  ");
    document->load(file(string(path)), false);
    EXPECT_EQ(document->text, u"");
}

TEST_F(xmlLoad, asksForExistenceThenForTheSizeAndReadsTheFileOnce)
{
    here.addFile(path, "<a/>");
    load();
    EXPECT_EQ(here.countCalls("queryStatus"), 2u);
    for (const char* const operation : {"openFile", "readFile", "closeFile"})
        EXPECT_EQ(here.countCalls(operation), 1u) << operation;
}

TEST_F(xmlLoad, refusesAMissingFileAndADirectory)
{
    EXPECT_EQ(thrownBy([this] { load(); }), u"File C:\\work\\a.xml not found!");
    EXPECT_THROW(load(), fileNotFoundException);
    here.addDirectory(path);
    EXPECT_THROW(load(), fileNotFoundException);
    EXPECT_EQ(here.countCalls("openFile"), 0u);
}

TEST_F(xmlLoad, takesAFileWithoutStatusForMissing)
{
    here.addFile(path, "<a/>");
    here.failCall("queryStatus", 1);
    EXPECT_THROW(load(), fileNotFoundException);
}

TEST_F(xmlLoad, leavesTheDocumentAsItIsForAnEmptyFile)
{
    here.addFile(path, "");
    document->name = u"before";
    load();
    EXPECT_EQ(document->name, u"before");
    EXPECT_EQ(here.countCalls("openFile"), 0u);
}

TEST_F(xmlLoad, tellsWhenTheFileCantBeOpenedOrReadWhole)
{
    here.addFile(path, "<a/>");
    for (const char* const operation : {"openFile", "readFile"}) {
        here.failCall(operation, 1);
        EXPECT_EQ(thrownBy([this] { load(); }), u"Error reading file C:\\work\\a.xml") << operation;
        here.failCall(operation, 1);
        EXPECT_THROW(load(), readFileException) << operation;
        expectNoHandles();
    }
    here.shortTransfers = true;
    here.failCall("readFile", 1);
    EXPECT_THROW(load(), readFileException);
    expectNoHandles();
    EXPECT_EQ(document->name, u"");
}

TEST_F(xmlLoad, tellsALackOfMemoryBehindTheOpening)
{
    here.addFile(path, "<a/>");
    const file source{string(path)};
    {
        const allocationFault noBlock(1);
        EXPECT_THROW(document->load(source, false), outOfMemoryException);
    }
    EXPECT_EQ(here.countCalls("openFile"), 1u);
    EXPECT_EQ(here.countCalls("readFile"), 0u);
    expectNoHandles();

    here.failCall("openFile", 1);
    const allocationFault noBlock(1);
    EXPECT_THROW(document->load(source, false), readFileException);
}

TEST_F(xmlLoad, turnsMalformedTextIntoAnInvalidFile)
{
    here.addFile(path, "<a>");
    EXPECT_EQ(thrownBy([this] { load(); }), u"File C:\\work\\a.xml is not a valid XML-file!");
    EXPECT_THROW(load(), invalidXmlException);
    expectNoHandles();
}

TEST_F(xmlLoad, letsAFailedConversionThrough)
{
    here.addFile(path, declaration("x") + "<a/>");
    here.failCall("decode", 1);
    EXPECT_EQ(thrownBy([this] { load(); }), u"false");
    here.addFile(path, utf8Mark);
    EXPECT_EQ(thrownBy([this] { load(); }), u"false");
    expectNoHandles();
}

TEST_F(xmlLoad, letsALackOfMemoryForTheTextThrough)
{
    here.addFile(path, "<a><b/></a>");
    const file source{string(path)};
    const allocationFault noBlock(2); // the first block is that of the bytes
    EXPECT_THROW(document->load(source, false), outOfMemoryException);
    EXPECT_TRUE(noBlock.hasHappened());
    EXPECT_EQ(here.countCalls("readFile"), 1u);
    expectNoHandles();
}

// Only the low 32 bits of a size count, with their sign.
TEST_F(xmlLoad, hasNoMemoryForAFileOf2GiB)
{
    here.addFile(path, "<a/>");
    for (const std::int64_t size : {std::int64_t{1} << 31, (std::int64_t{1} << 32) - 1}) {
        here.pretendSize(path, size);
        EXPECT_THROW(load(), outOfMemoryException) << size;
        EXPECT_EQ(here.countCalls("readFile"), 0u) << size;
        here.failCall("openFile", 1);
        EXPECT_THROW(load(), readFileException) << size; // the opening comes first
        expectNoHandles();
    }
}

TEST_F(xmlLoad, takesAFileOf4GiBForEmpty)
{
    here.addFile(path, "<a/>");
    here.pretendSize(path, std::int64_t{1} << 32);
    load();
    EXPECT_EQ(document->name, u"");
    EXPECT_EQ(here.countCalls("openFile"), 0u);
}

TEST_F(xmlLoad, readsWhatIsBeyond4GiBFromTheStart)
{
    here.addFile(path, "<a/><b/>");
    here.pretendSize(path, (std::int64_t{1} << 32) + 4);
    load();
    EXPECT_EQ(document->name, u"a");
    document = xmlDocument::createDocument();
    here.pretendSize(path, (std::int64_t{1} << 32) + 1);
    EXPECT_THROW(load(), invalidXmlException); // of "<" alone
    here.pretendSize(path, (std::int64_t{1} << 32) + 9);
    EXPECT_THROW(load(), readFileException); // a byte more than there is
}

TEST_F(xmlLoad, leavesTheDocumentEmptyWithoutATag)
{
    here.addFile(path, "no tag at all");
    load();
    EXPECT_EQ(document->name, u"");
    EXPECT_TRUE(document->children.empty());
}

TEST_F(xmlLoad, readsOrRefusesEveryPrefix)
{
    const std::size_t whole = sampleDocument.size() - 1; // nothing behind the root is looked at
    for (std::size_t length = 0; length <= sampleDocument.size(); ++length) {
        here.addFile(path, sampleDocument.substr(0, length));
        document = xmlDocument::createDocument();
        const string thrown = thrownBy([this] { load(); });
        EXPECT_TRUE(thrown.empty() || thrown == u"File C:\\work\\a.xml is not a valid XML-file!")
            << narrow(thrown);
        EXPECT_TRUE(thrown.empty() || length < whole) << length;
        EXPECT_EQ(document->children.size(), length < whole ? 0u : 2u) << length;
        expectNoHandles();
    }
}

// --- Encodings -----------------------------------------------------------------------------

TEST_F(xmlParseBuffer, ignoresANullPointer)
{
    document->parseBuffer(nullptr, 10, false);
    EXPECT_EQ(document->name, u"");
    EXPECT_EQ(here.countCalls("decode"), 0u);
}

TEST_F(xmlParseBuffer, decidesTheEncodingByMarkThenDeclaration)
{
    static const struct {
        const char* what;
        std::string bytes;
        const char16_t* text;
    } rows[] = {
        {"no mark, no declaration", "<a>\xC3\xA9</a>", u"\u00e9"},
        {"no encoding in the declaration", "<?xml version=\"1.0\"?><a>\xC3\xA9</a>", u"\u00e9"},
        {"UTF-8 mark", utf8Mark + "<a>\xC3\xA9</a>", u"\u00e9"},
        {"the mark comes before the declaration",
         utf8Mark + declaration("iso-8859-1") + "<a>\xC3\xA9</a>", u"\u00e9"},
        {"UTF-16 mark", utf16Mark + unitBytes(u"<a>\u00e9\u4e2d</a>"), u"\u00e9\u4e2d"},
        {"declared utf-8", declaration("utf-8") + "<a>\xC3\xA9</a>", u"\u00e9"},
        {"declared UTF-8", declaration("UTF-8") + "<a>\xC3\xA9</a>", u"\u00e9"},
        {"an empty name is UTF-8", declaration("") + "<a>\xC3\xA9</a>", u"\u00e9"},
        {"another name is the system's set", declaration("iso-8859-1") + "<a>\xE9</a>", u"\u00e9"},
        {"utf8 is another name", declaration("utf8") + "<a>\xC3\xA9</a>", u"\u00c3\u00a9"},
        {"utf16 is another name", declaration("utf16") + "<a>\xE9</a>", u"\u00e9"},
        {"utf-16le is another name", declaration("utf-16le") + "<a>\xE9</a>", u"\u00e9"},
        {"utf-16be is another name", declaration("UTF-16BE") + "<a>\xE9</a>", u"\u00e9"},
        {"utf-8 with more is another name", declaration("utf-8x") + "<a>\xE9</a>", u"\u00e9"},
        {"a shorter name is another one", declaration("utf-1") + "<a>\xE9</a>", u"\u00e9"},
        {"an unknown name too", declaration("x") + "<a>\xC3\xA9</a>", u"\u00c3\u00a9"},
        {"an unseen declaration is UTF-8", "<?xml encoding='x'?><a>\xC3\xA9</a>", u"\u00e9"},
        {"bad bytes are replaced", "<a>\xFFx</a>", u"\ufffdx"},
        {"half a UTF-8 mark is bad bytes before the tag", "\xEF\xBB<a>x</a>", u"x"},
    };
    for (const auto& row : rows) {
        document = xmlDocument::createDocument();
        parse(row.bytes);
        EXPECT_EQ(document->name, u"a") << row.what;
        EXPECT_EQ(document->text, row.text) << row.what;
    }
}

TEST_F(xmlParseBuffer, throwsFalseWhereNoTextComesOut)
{
    EXPECT_EQ(thrownBy([this] { parse(utf8Mark); }), u"false");
    EXPECT_EQ(thrownBy([this] { document->parseBuffer("", 0, false); }), u"false");
    // UTF-8 is decoded without the system, which may fail.
    here.failCall("decode", 1);
    EXPECT_EQ(thrownBy([this] { parse(declaration("x") + "<a/>"); }), u"false");
    here.doubleByteSet = true;
    here.failCall("decode", 2);
    EXPECT_EQ(thrownBy([this] { parse(declaration("x") + "<a/>"); }), u"false");
    EXPECT_EQ(document->name, u"");
}

TEST_F(xmlParseBuffer, tellsALackOfMemoryForItsBlock)
{
    for (const std::string& bytes :
         {std::string("<a><b/></a>"), utf8Mark + "<a><b/></a>", utf16Mark + unitBytes(u"<a/>"),
          declaration("utf-16"), declaration("x") + "<a><b/></a>"}) {
        const allocationFault noBlock(1);
        EXPECT_THROW(parse(bytes), outOfMemoryException) << bytes;
    }
    here.doubleByteSet = true;
    const std::string bytes = declaration("x") + "<b/>";
    document = xmlDocument::createDocument();
    {
        const allocationFault noBlock(1);
        EXPECT_THROW(parse(bytes), outOfMemoryException);
    }
    EXPECT_EQ(document->name, u"");
}

// Where the system's character set has characters of two bytes, of which the second may look like
// ASCII, no byte is taken for itself.
TEST_F(xmlParseBuffer, decodesACharacterSetOfTwoBytesAsAWhole)
{
    here.doubleByteSet = true;
    parse(declaration("x") + "<a b='\x81<>'>\x81\x3C</a>");
    EXPECT_EQ(document->name, u"a");
    EXPECT_EQ(document->text, u"\u813c");
    string value;
    EXPECT_TRUE(document->getAttribute(u"b", value));
    EXPECT_EQ(value, u"\u813c>");
}

TEST_F(xmlParseBuffer, namesAreComparedAsTheyAreDecoded)
{
    // Different bad bytes are the same replacement, and so is the replacement itself.
    for (const char* const closing : {"\xFF", "\xFE", "\xEF\xBF\xBD", "\xE4\xB8", "\xE4"}) {
        document = xmlDocument::createDocument();
        parse(std::string("<\xFF>x</") + closing + ">");
        EXPECT_EQ(document->name, u"\ufffd") << closing;
        EXPECT_EQ(document->text, u"x") << closing;
    }
    for (const char* const closing : {"\xFF\xFF", "\xC3\xA9", "", "\xE4\xB8\xAD"})
        EXPECT_THROW(parse(std::string("<\xFF>x</") + closing + ">"), unexpectedErrorException)
            << closing;
    // In a single-byte set each byte is its own unit, and not that of the same value.
    document = xmlDocument::createDocument();
    parse(declaration("x") + "<\x80>x</\x80>");
    EXPECT_EQ(document->name, u"\u20ac");
}

TEST_F(xmlParseBuffer, aUtf16MarkAloneIsAnEmptyDocument)
{
    parse(utf16Mark);
    EXPECT_EQ(document->name, u"");
    EXPECT_EQ(here.countCalls("decode"), 0u);
}

TEST_F(xmlParseBuffer, fillsUpHalfAUnitByAZeroByte)
{
    // "<a>" has no "<" behind it; were the byte lost, "<a" would be a complete element.
    EXPECT_THROW(parse(utf16Mark + unitBytes(u"<a") + ">"), unexpectedErrorException);
}

TEST_F(xmlParseBuffer, aDeclaredUtf16WithoutMarkIsAnEmptyDocument)
{
    for (const std::string tail : {"<a/>", "<a/> ", "", " "}) {
        document = xmlDocument::createDocument();
        parse(declaration("utf-16") + tail);
        EXPECT_EQ(document->name, u"") << tail;
    }
    EXPECT_EQ(here.countCalls("decode"), 0u);
}

// Behind a declaration of even length, units stand where the copy from the third byte on finds
// them.
TEST_F(xmlParseBuffer, aDeclaredUtf16IsCopiedFromTheThirdByteOn)
{
    const std::string odd = declaration("utf-16");
    ASSERT_EQ(odd.size() % 2, 1u);
    parse(odd + unitBytes(u"<a/>"));
    EXPECT_EQ(document->name, u"");
    parse(odd + " " + unitBytes(u"<a/>"));
    EXPECT_EQ(document->name, u"a");
}

TEST_F(xmlParseBuffer, handsKeepWhitespaceDown)
{
    for (const std::string& bytes :
         {std::string("<a>  </a>"), utf8Mark + "<a>  </a>", utf16Mark + unitBytes(u"<a>  </a>"),
          declaration("x") + "<a>  </a>"}) {
        for (const bool keepWhitespace : {true, false}) {
            document = xmlDocument::createDocument();
            document->parseBuffer(bytes.data(), bytes.size(), keepWhitespace);
            EXPECT_EQ(document->text, keepWhitespace ? u"  " : u"") << bytes;
        }
    }
}

TEST_F(xmlParseBuffer, aZeroEndsTheTextWhereverItStands)
{
    const std::string zero(1, '\0');
    for (const std::string& start :
         {std::string(), utf8Mark, declaration("utf-8"), declaration("x")}) {
        document = xmlDocument::createDocument();
        EXPECT_THROW(parse(start + "<a>x" + zero + "</a>"), unexpectedErrorException) << start;
        EXPECT_EQ(document->name, u"a");
        EXPECT_EQ(document->text, u"");
        EXPECT_THROW(parse(start + "<a b='x" + zero + "'/>"), unexpectedErrorException) << start;
        EXPECT_THROW(parse(start + "<a><b/>" + zero + "</a>"), unexpectedErrorException) << start;
        document = xmlDocument::createDocument();
        parse(start + "<ab" + zero + "c/>");
        EXPECT_EQ(document->name, u"ab") << start;
        document = xmlDocument::createDocument();
        parse(start + "<!-- " + zero + "--><a/>");
        EXPECT_EQ(document->name, u"") << start;
    }
    document = xmlDocument::createDocument();
    EXPECT_THROW(parse(utf16Mark + unitBytes(string(u"<a>x\0</a>", 9))), unexpectedErrorException);
    parse(utf16Mark + unitBytes(string(u"<ab\0c/>", 7)));
    EXPECT_EQ(document->name, u"ab");
}

TEST_F(xmlParseBuffer, endsAtAZeroByte)
{
    parse(std::string("<a/>\0<b/>", 9));
    EXPECT_EQ(document->name, u"a");
    document = xmlDocument::createDocument();
    EXPECT_THROW(parse(std::string("<\0a/>", 5)), unexpectedErrorException);
}

namespace {

// How a reading ended, and the tree that it left.
template <class Read>
std::pair<std::string, judgedNode> outcomeOf(judgedNode tree, Read read)
{
    std::string how = "read";
    try {
        read(tree);
    } catch (const malformed&) {
        how = "malformed";
    } catch (const unexpectedErrorException&) {
        how = "malformed";
    } catch (const noText&) {
        how = "without text";
    } catch (bool) {
        how = "without text";
    } catch (const neverEnds&) {
        how = "never ends";
    }
    return {how, tree};
}

judgedNode formOf(const xmlNode& node)
{
    judgedNode form{node.name, node.text, {}, {}};
    for (const auto& [name, value] : node.attributes) form.attributes.emplace_back(name, value);
    for (const auto& child : node.children) form.children.push_back(formOf(*child));
    return form;
}

} // namespace

// The second opinion decodes the whole before it looks at any unit.
TEST_F(xmlParseBuffer, agreesWithTheSecondOpinionOnRandomDocuments)
{
    constexpr unsigned seed = 17;
    std::mt19937 random(seed);
    int whole = 0;
    for (int i = 0; i < 20000; ++i) {
        machine::renew();
        const std::string bytes = randomDocument(random);
        const auto* const first = reinterpret_cast<const unsigned char*>(bytes.data());
        const bool keepWhitespace = i % 2 == 0;
        const auto wanted = outcomeOf({}, [&](judgedNode& tree) {
            judgeParseBuffer(tree, {first, bytes.size()}, keepWhitespace);
        });
        if (wanted.first == "never ends") continue;
        const auto came = outcomeOf({}, [&](judgedNode& tree) {
            const refptr<xmlDocument> read = xmlDocument::createDocument();
            try {
                read->parseBuffer(first, bytes.size(), keepWhitespace);
            } catch (...) {
                tree = formOf(*read);
                throw;
            }
            tree = formOf(*read);
        });
        ASSERT_TRUE(came == wanted) << "seed " << seed << ", document " << i << ": " << bytes;
        if (came.first == "read" && !came.second.children.empty()) ++whole;
    }
    EXPECT_GT(whole, 2000);
}

TEST_F(xmlParseBuffer, looksAtNothingBehindTheRoot)
{
    parse("<a/><b");
    EXPECT_EQ(document->name, u"a");
    EXPECT_TRUE(document->children.empty());
}

TEST(findDeclaredEncoding, findsTheValueInDoubleQuotesRightBehindTheWord)
{
    static const struct {
        std::string bytes;
        const char16_t* expected;
    } rows[] = {
        {declaration("utf-8"), u"utf-8"},
        {declaration("UTF-16"), u"UTF-16"},
        {"<?xml version=\"1.0\" ENCODING=\"utf-8\"?>", u"utf-8"},
        {"<?xml version=\"1.0\" eNcOdInG=\"utf-8\" standalone=\"yes\"?>", u"utf-8"},
        {"<?encoding=\"x\"?>", u"x"},
        // The scan begins at the third byte: this is no end.
        {"<?> encoding=\"x\"?>", u"x"},
        {"<?xml encoding=\"\"?>", u""},
        {"<?xml version=\"1.0\"?>", u"(none)"},
        {"<?xml encoding='utf-8'?>", u"(none)"},
        {"<?xml encoding = \"utf-8\"?>", u"(none)"},
        {"<?xml encoding= \"utf-8\"?>", u"(none)"},
        {"<?xml encodin=\"utf-8\"?>", u"(none)"},
        {"<?xml version=\"1.0\"?><a encoding=\"utf-8\"/>", u"(none)"},
        {"<?xml ? > encoding=\"x\"?>", u"x"},
        {" " + declaration("utf-8"), u"(none)"},
        {"<a encoding=\"x\"/>", u"(none)"},
        {utf8Mark + declaration("utf-8"), u"(none)"},
        {unitBytes(u"<?xml encoding=\"x\"?>"), u"(none)"},
        {"", u"(none)"},
        {"<", u"(none)"},
        {"<?", u"(none)"},
        // A value that nothing closes ends with the declaration or with the bytes.
        {"<?xml encoding=\"utf-8?>", u"utf-8"},
        {"<?xml encoding=\"utf-8", u"utf-8"},
        {"<?xml encoding=\"", u""},
        {"<?xml encoding=", u"(none)"},
        {"<?xml encoding=\"utf-8?", u"utf-8?"},
        // The word begins at any "e" and takes any of its letters.
        {"<?xml xencoding=\"y\"?>", u"y"},
        {"<?xml eencoding=\"y\"?>", u"(none)"},
        {"<?xml e encoding=\"y\"?>", u"y"},
        // What a longer word left in the buffer still stands behind the next.
        {"<?xml encoding=encoding= encoding=\"y\"?>", u"(none)"},
        // An "e" in the value begins a word, the unit behind the word is lost, and the next
        // units are written over the start.
        {"<?xml encoding=\"abexyz\"?>", u"yze"},
        {"<?xml encoding=\"abe\"?>", u"abe"},
        {"<?xml encoding=\"abecx-y\"?>", u"-yec"},
        // The quote that ends a word inside the value does not end the value.
        {"<?xml encoding=\"abe\" c=\"d\"?>", u" c="},
        // A zero byte ends the name.
        {std::string("<?xml encoding=\"ab\0cd\"?>", 24), u"ab"},
    };
    for (const auto& row : rows) EXPECT_EQ(scannedEncoding(row.bytes), row.expected) << row.bytes;
}

TEST(findDeclaredEncoding, dropsWhatDoesNotFitIntoItsBuffer)
{
    machine::renew();
    const std::string start = "<?xml encoding=\"";
    EXPECT_EQ(scannedEncoding(start + std::string(127, 'x') + "\"?>"),
              string(std::u16string(127, u'x')));
    for (const std::size_t length : {128u, 129u, 300u}) {
        EXPECT_EQ(scannedEncoding(start + std::string(length, 'x') + "?>"),
                  string(std::u16string(128, u'x')))
            << length;
        EXPECT_EQ(scannedEncoding(start + std::string(length, 'x')),
                  string(std::u16string(128, u'x')))
            << length;
    }
    // A word of the right letters, longer than the buffer, is no word.
    EXPECT_EQ(scannedEncoding("<?xml " + std::string(300, 'e') + "\"utf-8\"?>"), u"(none)");
}

TEST(findDeclaredEncoding, endsTheProcessWhereTheClosingQuoteFindsAFullBuffer)
{
    machine::renew();
    for (const std::size_t length : {128u, 129u, 300u}) {
        const std::string bytes = declaration(std::string(length, 'x'));
        std::string found;
        EXPECT_THROW((void)findDeclaredEncoding(bytes.data(), bytes.size(), found), machine::ended)
            << length;
    }
}

// --- Writing -------------------------------------------------------------------------------

TEST_F(xmlWriteBuffer, writesTheDeclarationOfEachEncoding)
{
    static const struct {
        std::uint32_t encoding;
        const char16_t* expected;
    } rows[] = {
        {1, u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"},
        {2, u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
        {0, u"<?xml version=\"1.0\" ?>\n"},
        {3, u"<?xml version=\"1.0\" ?>\n"},
        {0xFFFFFFFF, u"<?xml version=\"1.0\" ?>\n"},
    };
    for (const auto& row : rows) {
        string out(u"replaced");
        xmlDocument::writeDeclaration(out, static_cast<xmlEncoding>(row.encoding));
        EXPECT_EQ(out, row.expected) << row.encoding;
    }
}

TEST_F(xmlWriteBuffer, writesTheSampleLineByLine)
{
    parse("<a x='1'>t<b/><c>u</c></a>");
    EXPECT_EQ(encoded(*document, xmlEncoding::utf8),
              utf8Mark + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<a x=\"1\">\n"
                         "   t\n"
                         "   <b/>\n"
                         "   <c>u</c>\n"
                         "</a>\n");
}

TEST_F(xmlWriteBuffer, writesAnEmptyDocument)
{
    EXPECT_EQ(encoded(*document, xmlEncoding::utf8),
              utf8Mark + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n</>\n");
}

TEST_F(xmlWriteBuffer, writesUnitsWithTheirZeroForTheOtherEncodings)
{
    document->name = u"\u00e9";
    EXPECT_EQ(encoded(*document, xmlEncoding::utf16),
              unitBytes(string(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<\u00e9/>\n") +
                        string(u"\0", 1)));
    EXPECT_EQ(encoded(*document, static_cast<xmlEncoding>(3)),
              unitBytes(string(u"<?xml version=\"1.0\" ?>\n<\u00e9/>\n") + string(u"\0", 1)));
    EXPECT_EQ(here.countCalls("encodeUtf8"), 0u);
}

TEST_F(xmlWriteBuffer, appendsAndReservesOneAndAHalfBytesAUnit)
{
    document->name = u"ab";
    byteBuffer bytes;
    bytes.append("xyz", 3);
    document->writeBuffer(bytes, xmlEncoding::utf8);
    const std::size_t units = 39 + 6; // with the line "<ab/>"
    EXPECT_EQ(bytes.capacity(), 3 + units + units / 2);
    EXPECT_EQ(bytes.size(), 3 + 3 + units);
    EXPECT_EQ(std::memcmp(bytes.data(), "xyz\xEF\xBB\xBF<?xml", 11), 0);
}

TEST_F(xmlUtf8, encodesAllPlanesAndLoneHalves)
{
    static const struct {
        string text;
        const char* expected;
    } rows[] = {
        {u"\u00e9\u4e2d", "\xC3\xA9\xE4\xB8\xAD"},
        {u"\U0001F600", "\xF0\x9F\x98\x80"},
        {string(u"\xD83D", 1), "\xEF\xBF\xBD"},
        {string(u"\xDE00", 1), "\xEF\xBF\xBD"},
        {string(u"\xDE00\xD83D", 2), "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(encodedText(row.text), std::string(row.expected) + "</a>\n");
}

TEST_F(xmlUtf8, aPairAcrossTheBorderOfTwoPiecesBecomesTwoHalves)
{
    const string pair(u"\U0001F600");
    for (const std::size_t before : {0u, 1u, 2u}) {
        // The pair begins `before` units ahead of the border.
        const string filling(std::u16string(pieceUnits - unitsBeforeText - before, u'x'));
        const std::string expected = before == 1 ? "\xEF\xBF\xBD\xEF\xBF\xBD" : "\xF0\x9F\x98\x80";
        EXPECT_EQ(encodedText(filling + pair), narrow(filling) + expected + "</a>\n") << before;
    }
}

TEST_F(xmlUtf8, aZeroUnitDropsTheRestOfItsPiece)
{
    const std::size_t inFirstPiece = pieceUnits - unitsBeforeText;
    string text(std::u16string(inFirstPiece + 5, u'x'));
    text[10] = 0;
    EXPECT_EQ(encodedText(text), std::string(10, 'x') + std::string(5, 'x') + "</a>\n");
    // At the start of a piece it drops the piece whole.
    string whole(std::u16string(inFirstPiece + pieceUnits + 5, u'x'));
    whole[inFirstPiece] = 0;
    EXPECT_EQ(encodedText(whole), std::string(inFirstPiece, 'x') + std::string(5, 'x') + "</a>\n");
}

TEST_F(xmlUtf8, growsForTextsOfManyBytes)
{
    const string text(std::u16string(10000, u'\u4e2d'));
    EXPECT_EQ(encodedText(text), narrow(text) + "</a>\n");
}

TEST_F(xmlWriteBuffer, convertsInPiecesOf256Units)
{
    document->name = u"a";
    document->text = string(std::u16string(1000 - unitsBeforeText - 5, u'x'));
    (void)encoded(*document, xmlEncoding::utf8);
    EXPECT_EQ(here.countCalls("encodeUtf8"), 4u);
}

// Pairs stand at all distances from the borders of pieces, all through a document.
TEST_F(xmlWriteBuffer, aLongDocumentIsItsWholeTextInPiecesOf256Units)
{
    document->name = u"a";
    for (std::size_t number = 0; number < 4000; ++number) {
        const auto child = document->addChild(u"b");
        child->text = string(std::u16string(number % 97, u'x')) + u"\U0001F600<&";
    }
    string text;
    xmlDocument::writeDeclaration(text, xmlEncoding::utf8);
    document->writeNode(text, string());
    ASSERT_GT(text.size(), 200000u);
    std::string expected = utf8Mark;
    for (std::size_t at = 0; at < text.size(); at += pieceUnits) {
        const string piece = text.substr(at, pieceUnits);
        char bytes[3 * pieceUnits];
        expected.append(bytes, platform::encodeUtf8(piece.data(), piece.size(), bytes));
    }
    byteBuffer written;
    document->writeBuffer(written, xmlEncoding::utf8);
    EXPECT_TRUE(encoded(*document, xmlEncoding::utf8) == expected);
    EXPECT_EQ(written.capacity(), std::max(text.size() + text.size() / 2, expected.size()));

    xmlDocument::writeDeclaration(text, xmlEncoding::utf16);
    document->writeNode(text, string());
    EXPECT_TRUE(encoded(*document, xmlEncoding::utf16) == unitBytes(text + string(u"\0", 1)));
}

TEST_F(xmlWriteBuffer, throwsFalseForAPieceThatConvertsToNothing)
{
    document->text = string(std::u16string(600, u'x'));
    for (const std::size_t nth : {1u, 2u, 3u}) {
        here.failCall("encodeUtf8", nth);
        EXPECT_EQ(thrownBy([this] { (void)encoded(*document, xmlEncoding::utf8); }), u"false")
            << nth;
    }
}

// --- Saving --------------------------------------------------------------------------------

TEST_F(xmlSave, writesTheFileWholeAndTheSameEachTime)
{
    parse(sampleDocument);
    save();
    const std::string first = here.content(path);
    EXPECT_EQ(first, encoded(*document, xmlEncoding::utf8));
    save();
    EXPECT_EQ(here.content(path), first);
    EXPECT_EQ(first.find('\r'), std::string::npos);
    expectNoHandles();
}

TEST_F(xmlSave, overwritesALongerFile)
{
    here.addFile(path, std::string(1000, 'x'));
    document->name = u"a";
    save();
    EXPECT_EQ(here.content(path), utf8Mark + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>\n");
}

TEST_F(xmlSave, writesInOneGoThenFlushesThenCloses)
{
    here.addFile(path, "");
    document->text = string(std::u16string(5000, u'x'));
    const std::size_t before = here.calls.size();
    save();
    std::vector<std::string> operations;
    for (std::size_t i = before; i < here.calls.size(); ++i)
        operations.push_back(here.calls[i].operation);
    std::erase(operations, "encodeUtf8");
    ASSERT_GE(operations.size(), 4u);
    const std::vector<std::string> last(operations.end() - 4, operations.end());
    EXPECT_EQ(last, (std::vector<std::string>{"openFile", "writeFile", "flushFile", "closeFile"}));
}

TEST_F(xmlSave, refusesATargetThatIsNotWritableBeforeAnyTextIsMade)
{
    here.addFile(path, "old", 1);
    EXPECT_EQ(thrownBy([this] { save(); }), u"Error writing file C:\\work\\a.xml");
    EXPECT_THROW(save(), writeFileException);
    EXPECT_EQ(here.countCalls("encodeUtf8"), 0u);
    EXPECT_EQ(here.countCalls("openFile"), 0u);
    EXPECT_EQ(here.content(path), "old");
}

TEST_F(xmlSave, leavesTheFileUntouchedWhereTheTextFails)
{
    here.addFile(path, "old");
    here.failCall("encodeUtf8", 1);
    EXPECT_EQ(thrownBy([this] { save(); }), u"false");
    EXPECT_EQ(here.content(path), "old");
    EXPECT_EQ(here.countCalls("openFile"), 0u);
}

TEST_F(xmlSave, tellsWhenTheTargetCantBeOpened)
{
    here.failCall("openFile", 1);
    EXPECT_THROW(save(), writeFileException);
    expectNoHandles();
}

TEST_F(xmlSave, leavesAPartlyWrittenFileBehind)
{
    const std::string whole = encoded(*document, xmlEncoding::utf8);
    here.shortTransfers = true;
    here.failCall("writeFile", 1);
    EXPECT_THROW(save(), writeFileException);
    EXPECT_EQ(here.content(path), whole.substr(0, whole.size() / 2));
    EXPECT_EQ(here.countCalls("flushFile"), 1u);
    EXPECT_EQ(here.countCalls("closeFile"), 1u);
    expectNoHandles();
}

TEST_F(xmlSave, doesNotLookAtTheFlush)
{
    here.failCall("flushFile", 1);
    save();
    EXPECT_EQ(here.content(path), encoded(*document, xmlEncoding::utf8));
    expectNoHandles();
}

TEST_F(xmlSave, anEmptyChildReferenceFailsTheAssertion)
{
    document->children.emplace_back();
    EXPECT_EQ(thrownBy([this] { save(); }), u"false");
    EXPECT_EQ(here.countCalls("openFile"), 0u);
    document->children.clear();
}

TEST_F(xmlSave, whatUtf16WritesIsRefusedByLoad)
{
    document->name = u"a";
    save(xmlEncoding::utf16);
    const std::string bytes = here.content(path);
    ASSERT_GE(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 2), std::string("<\0", 2));
    EXPECT_EQ(bytes.substr(bytes.size() - 2), std::string("\0\0", 2));
    document = xmlDocument::createDocument();
    EXPECT_THROW(load(), invalidXmlException);
}

TEST_F(xmlSave, whatUtf8WritesIsReadAgain)
{
    parse("<a x='&lt;&quot;'>t<b>u v</b></a>");
    save();
    const std::string bytes = here.content(path);
    document = xmlDocument::createDocument();
    load();
    // The text's line end is part of it from now on, and is dropped again in writing.
    EXPECT_EQ(document->text, u"t\n");
    save();
    EXPECT_EQ(here.content(path), bytes);
}

} // namespace orloxmldocumentTest
