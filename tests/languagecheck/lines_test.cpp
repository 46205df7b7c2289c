// What the checker says of bytes and lines, one planted slip at a time.
#include "languagecheck/checked.h"

namespace linesTest {

using namespace orlo::tests;
using orlo::string;

namespace {

class languageCheckBytes : public languageCheckTest {
protected:
    static std::string findingsInBytes(const std::string& bytes)
    {
        machine::current().addFile(u"C:\\work\\t", bytes);
        return check({u"t"}).output;
    }
    // Each pair of units with its least byte first.
    static std::string utf16(const std::u16string& units)
    {
        std::string bytes;
        for (const char16_t unit : units)
            bytes.append({static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)});
        return bytes;
    }
};

using languageCheckLines = languageCheckTest;

} // namespace

// --- Bytes -----------------------------------------------------------------------------------

TEST_F(languageCheckBytes, lackOfAMarkIsAWarningWhereAllIsAsciiAndElseAnError)
{
    EXPECT_EQ(findingsInBytes("a text\n"),
              "t:1: warning: no byte-order mark: save the file as UTF-8 with its mark\n");
    EXPECT_EQ(findingsInBytes("a M\xC3\xBCll\n"),
              "t:1: error: no byte-order mark, and letters that are read differently from system "
              "to system: save the file as UTF-8 with its mark\n");
}

TEST_F(languageCheckBytes, bytesThatAreNoUtf8AreToldWithTheirFirstLine)
{
    EXPECT_EQ(findingsInBytes(std::string(utf8Mark) + "a x\nb M\xFCll\n"),
              "t:2: error: bytes that are no UTF-8\n");
    EXPECT_EQ(findingsInBytes(std::string(utf8Mark) + "a \xC3\nb x\nc \xE2\x82\n"),
              "t:1: error: bytes that are no UTF-8; so in 2 lines\n");
    EXPECT_EQ(findingsInBytes(std::string(utf8Mark) + "a \xEF\xBF\xBD\n"), "")
        << "U+FFFD may be written";
}

TEST_F(languageCheckBytes, utf16WithItsMarkIsFineButForHalves)
{
    EXPECT_EQ(findingsInBytes("\xFF\xFE" + utf16(u"a M\u00FCll \U0001F600\r\nb y\r\n")), "");
    EXPECT_EQ(findingsInBytes("\xFF\xFE" + utf16(u"a x\nb \xD83D y\n")),
              "t:2: error: half of a surrogate pair\n");
    EXPECT_EQ(findingsInBytes("\xFF\xFE" + utf16(u"a x\nb \xDE00\n")),
              "t:2: error: half of a surrogate pair\n");
    EXPECT_EQ(findingsInBytes("\xFF\xFE" + utf16(u"a x\nb y") + "z"),
              "t:2: error: the file ends within a unit\n");
    EXPECT_EQ(findingsInBytes("\xFE\xFF" + std::string("\0a\0 \0x", 6)),
              "t:1: error: UTF-16 with its most significant bytes in front is not read: save the "
              "file as UTF-8 with its mark\n");
}

TEST_F(languageCheckBytes, aBinaryFileGetsOneMessage)
{
    const std::string expected = "t:1: error: the file holds zeros: this is no text, or one "
                                 "without its byte-order mark\n";
    EXPECT_EQ(findingsInBytes(std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\xFF", 18)), expected);
    EXPECT_EQ(findingsInBytes(utf16(u"a x\n")), expected) << "UTF-16 without its mark";
    EXPECT_EQ(findingsInBytes("\xFF\xFE" + utf16(std::u16string(u"a \0x", 4))), expected);
    EXPECT_EQ(check({u"t"}).code, orlo::languagecheck::someErrors);
}

TEST_F(languageCheckBytes, aHugeFileIsNotReadAtAll)
{
    machine::current().addFile(u"C:\\work\\t", std::string(utf8Mark) + "a x\n");
    machine::current().pretendSize(u"C:\\work\\t", 64 * 1024 * 1024 + 1);
    EXPECT_EQ(check({u"t"}).output,
              "t:1: error: the file is too large to be a language file: 67108865 bytes\n");
    EXPECT_EQ(machine::current().countCalls("openFile"), 0u);
}

TEST_F(languageCheckBytes, aFileThatCanNotBeReadIsTold)
{
    EXPECT_EQ(check({u"t"}).output, "t:1: error: there is no such file\n");
    addText(u"t", u"a x\n");
    machine::current().failCall("openFile", 1);
    EXPECT_EQ(check({u"t"}).output, "t:1: error: the file can't be opened\n");
    machine::current().failCall("readFile", 1);
    EXPECT_EQ(check({u"t"}).output, "t:1: error: the file can't be read to its end\n");
}

// --- Lines -----------------------------------------------------------------------------------

TEST_F(languageCheckLines, aLineHoldsAtMost1023Units)
{
    const string longest = u"a " + string(1021, u'x');
    EXPECT_EQ(findingsIn(longest + u"\nb y\n"), "");
    EXPECT_EQ(findingsIn(longest + u"x\nb y\n"),
              "t:1: error: the line has more than 1023 units: what follows counts as a further "
              "line\n");
    EXPECT_EQ(findingsIn(u"b y\n; " + string(3000, u'x')),
              "t:2: error: the line has more than 1023 units: what follows counts as a further "
              "line\n")
        << "its pieces are not judged for themselves";
}

TEST_F(languageCheckLines, aKeyTwice)
{
    EXPECT_EQ(findingsIn(u"a x\nA y\n\na z\n"),
              "t:4: error: the key \"a\" stands on line 1 already, whose text counts\n");
}

TEST_F(languageCheckLines, aKeyAlone)
{
    EXPECT_EQ(findingsIn(u"a\n"), "t:1: error: \"a\" is a key alone, without a text\n");
    EXPECT_EQ(findingsIn(u"a\\\nb x\n"), "t:1: error: \"a\" is a key alone, without a text\n");
}

TEST_F(languageCheckLines, aCommentThatBeginsWhereNoneWasMeant)
{
    const std::string behind = "begins a comment, ";
    const struct {
        const char16_t* text;
        const char* finding;
    } rows[] = {
        {u"a x; y\n", "t:1: warning: the last \";\" begins a comment, \" y\": quote the text, or "
                      "close it by a further \";\"\n"},
        {u"a x;y;z\n", "t:1: warning: the last \";\" begins a comment, \"z\": quote the text, or "
                       "close it by a further \";\"\n"},
        {u"a x \\\ny; z\n", "t:2: warning: the last \";\" begins a comment, \" z\": quote the "
                            "text, or close it by a further \";\"\n"},
        {u"a;b x\n", "t:1: warning: a \";\" in the first word makes the whole line a comment\n"},
        {u"a ; x\n", "t:1: warning: nothing but a comment stands where a text should: if it is "
                     "meant to be empty, write \"\"\n"},
        {u"a x \\\n; y\n", "t:2: warning: nothing but a comment stands where a text should: if it "
                           "is meant to be empty, write \"\"\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(findingsIn(row.text), row.finding);
}

TEST_F(languageCheckLines, quotesThatDoNotClose)
{
    const std::string finding = "warning: the quotation mark in front of the text is not closed\n";
    EXPECT_EQ(findingsIn(u"a \"x\n"), "t:1: " + finding);
    EXPECT_EQ(findingsIn(u"a \"x \\\n\"y\n"), "t:2: " + finding);
}

TEST_F(languageCheckLines, aTextBehindItsLastQuoteIsLost)
{
    EXPECT_EQ(findingsIn(u"a \"Yes\" or no\n"),
              "t:1: error: what stands behind the last quotation mark is lost: \"or no\"\n");
}

TEST_F(languageCheckLines, aContinuationThatMeetsTheEnd)
{
    const std::string finding =
        "error: the text of \"b\" goes on behind the end of the file, and is lost\n";
    EXPECT_EQ(findingsIn(u"a x\nb y \\\n"), "t:2: " + finding);
    EXPECT_EQ(findingsIn(u"a x\nb y \\\nz \\\n\n \n"), "t:2: " + finding);
    EXPECT_EQ(findingsIn(u"b \\"), "t:1: " + finding);
}

TEST_F(languageCheckLines, aCommandThatIsNotKnown)
{
    EXPECT_EQ(findingsIn(u";;cmd(remove:::a:::b)\n"),
              "t:1: error: the command \"remove\" is not known\n");
    EXPECT_EQ(findingsIn(u";;cmd()\n"), "t:1: error: the command \"\" is not known\n");
    EXPECT_EQ(findingsIn(u";;cmd(replace:::a)\n"),
              "t:1: error: the command \"replace\" needs two texts: replace:::old:::new\n");
}

TEST_F(languageCheckLines, aTextThatLosesItsSecondCharacterToTheSeverity)
{
    EXPECT_EQ(findingsIn(u"a C:\\temp\n"),
              "t:1: error: \"C:\" in front of the text is taken for a severity, and is lost: "
              "quote the text with a blank in front\n");
    EXPECT_EQ(findingsIn(u"a \": x\"\n"), "") << "the colon is the first";
}

TEST_F(languageCheckLines, findingsComeInTheOrderOfLines)
{
    const auto answer = check({u"t"});
    const std::string found = findingsIn(u"a\nb C:x\n;;cmd(x)\nc\nb y\n");
    std::vector<std::string> starts;
    for (std::size_t at = 0; at < found.size(); at = found.find('\n', at) + 1)
        starts.push_back(found.substr(at, 4));
    EXPECT_EQ(starts, (std::vector<std::string>{"t:1:", "t:2:", "t:3:", "t:4:", "t:5:"}));
}

TEST_F(languageCheckLines, allThatIsAllowedPassesInSilence)
{
    const char16_t* const allowed[] = {
        u"",
        u"title Measuring\n",
        u"key    two   words  ; note\n",
        u"key a;b;\n",
        u"key a ; b ; note\n",
        u"key \"a ; b \" ; note\n",
        u"key say \"hello\"\n",
        u"key \"\"\n",
        u"key One\\nTwo\n",
        u"key $$other\nother text\n",
        u"; some words\n",
        u";key commented out\n",
        u"\t key \t a\ttext \t\r\n",
        u"KEY 1\nkey 2\n",
        u"note \"The first half \\\n     \"and the second.\"             ; text\n",
        u"note \"The first half \\\n\n     \"and the second.\"\n",
        u"note The first half \\\nand the second; \\\n and the third ; note\n",
        u"key \"\"Yes\" is the answer\"\n",
        u"a E:File\nb W: File\nc I:File\nd e:File\n",
        u"key \" C: is full\"\n",
        u"key [name], [count:%03d], \\[no place], ([odd]) and [name]\n",
        u"key 50% off\n",
        u";;cmd(replace:::old:::new)\nkey old\n",
        u";;cmd(replace:::old:::new:::more)\nkey old\n",
        u"last line without its end",
    };
    for (const char16_t* const text : allowed)
        EXPECT_EQ(findingsIn(text), "") << orlo::narrow(text);
}

} // namespace linesTest
