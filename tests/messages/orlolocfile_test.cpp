#include "orlolocfile.h"

#include "orlostringtemplate.h"
#include "support/allocations.h"
#include "support/languagefile.h"

#include <utility>

namespace orlolocfileTest {

using orlo::file;
using orlo::locFile;
using orlo::string;
using orlo::stringTemplate;
using orlo::tests::addLanguageBytes;
using orlo::tests::addLanguageFile;
using orlo::tests::allocationFault;
using orlo::tests::machine;

namespace {

const string mainPath(u"C:\\lang\\main.loc");
const string morePath(u"C:\\lang\\more.loc");
const string overridePath(u"C:\\lang\\site_main.loc");

// Every test starts on a machine of its own.
class languageFile : public ::testing::Test {
protected:
    machine& here = machine::renew();
};

// The text of a key, or "<none>".
string textOf(locFile& from, const char16_t* key)
{
    stringTemplate text(u"as it was");
    if (from.lookup(key, text)) return text.text();
    EXPECT_EQ(text.text(), string(u"as it was")) << "a look-up without a hit changed the text";
    return u"<none>";
}

// The same in a new file of this content.
string textIn(const string& content, const char16_t* key)
{
    addLanguageFile(mainPath, content);
    locFile from{file(mainPath)};
    return textOf(from, key);
}

string textInBytes(const std::string& bytes, const char16_t* key)
{
    addLanguageBytes(mainPath, bytes);
    locFile from{file(mainPath)};
    return textOf(from, key);
}

// Gives a file another content without a change of its time.
void rewriteUnseen(const string& path, const std::string& bytes)
{
    orlo::fileStatus before;
    ASSERT_TRUE(file(path).stat(before));
    machine::current().addFile(path, bytes);
    machine::current().setModificationTime(path, before.modificationTime);
}

struct lineRow {
    const char16_t* content;
    const char16_t* key;
    const char16_t* text;
};

void expectTexts(std::initializer_list<lineRow> rows)
{
    for (const lineRow& row : rows)
        EXPECT_EQ(textIn(row.content, row.key), string(row.text))
            << "key " << orlo::narrow(row.key) << " in\n"
            << orlo::narrow(row.content);
}

} // namespace

// --- lines of an entry -----------------------------------------------------------------------

TEST_F(languageFile, hasOneEntryALine)
{
    expectTexts({
        {u"brx_msgTitle Measuring\n", u"brx_msgTitle", u"Measuring"},
        {u"brx_msgTitle Measuring", u"brx_msgTitle", u"Measuring"},
        {u"key    two   words  ; note\n", u"key", u"two   words"},
        {u"key \"a ; b \" ; note\n", u"key", u"a ; b "},
        {u"key \"\"\n", u"key", u""},
        {u"key\n", u"key", u"<none>"},
        {u"; some words\n", u";", u"<none>"},
        {u"key One\\nTwo\n", u"key", u"One\nTwo"},
        {u"key $$other\nother text\n", u"key", u"text"},
        {u"a 1\n\n \t \nb 2\n", u"b", u"2"},
    });
}

TEST_F(languageFile, tellsKeysApartByCase)
{
    expectTexts({{u"Key a\nkey b\n", u"key", u"b"}, {u"Key a\n", u"key", u"<none>"}});
}

TEST_F(languageFile, dropsBlanksAndTabsAroundALine)
{
    expectTexts({
        {u" \t key value \t \n", u"key", u"value"},
        {u"key \"value\" \t \n", u"key", u"value"},
        {u"key value \r\r\n", u"key", u"value"},
    });
}

TEST_F(languageFile, turnsEveryTabIntoABlank)
{
    expectTexts({
        {u"key\tvalue\n", u"key", u"value"},
        {u"key a\tb\n", u"key", u"a b"},
        {u"key \"a\tb\t\"\n", u"key", u"a b "},
    });
}

TEST_F(languageFile, ignoresALineWithASemicolonInItsKey)
{
    expectTexts({
        {u"key;x value\n", u"key;x", u"<none>"},
        {u"key;x value\n", u"key", u"<none>"},
        {u"; key value\n", u"key", u"<none>"},
        {u";key value \\\nother text\n", u"other", u"text"},
    });
}

TEST_F(languageFile, cutsAValueAtItsLastSemicolon)
{
    expectTexts({
        {u"key a;b;c\n", u"key", u"a;b"},
        {u"key a \t ; c\n", u"key", u"a"},
        {u"key a;\n", u"key", u"a"},
        {u"key ;\n", u"key", u""},
    });
}

TEST_F(languageFile, takesAQuotedValueUpToItsLastQuote)
{
    expectTexts({
        {u"key \"a\" rest\n", u"key", u"a"},
        {u"key \"a \"b\" c\" rest\n", u"key", u"a \"b\" c"},
        {u"key \"a;b\"\n", u"key", u"a;b"},
        {u"key \"a  \"\n", u"key", u"a  "},
        {u"key \"open ; end\n", u"key", u"open ; end"},
        {u"key \"\n", u"key", u""},
        {u"key a \"b\" c\n", u"key", u"a \"b\" c"},
    });
}

TEST_F(languageFile, readsBackslashAndNAsALineFeed)
{
    expectTexts({
        {u"key a\\n\\nb\n", u"key", u"a\n\nb"},
        {u"key \\\\n\n", u"key", u"\\\n"},
        {u"key \"\\n\"\n", u"key", u"\n"},
        {u"key a\\Nb\n", u"key", u"a\\Nb"},
        {u"key a\\b\n", u"key", u"a\\b"},
    });
}

TEST_F(languageFile, putsAContinuedEntryTogether)
{
    expectTexts({
        {u"key first \\\n\nsecond\n", u"key", u"first second"},
        {u"key first\\\nsecond\n", u"key", u"firstsecond"},
        {u"key first \\ \t \nsecond\n", u"key", u"first second"},
        {u"key first \\\n   second\n", u"key", u"first second"},
        {u"key \"first \\\n\"second\"\n", u"key", u"first second"},
        {u"key \"first \" x \\\n\" second\" y\n", u"key", u"first  second"},
        {u"key first \\\n\"open; end\n", u"key", u"first open; end"},
        {u"key a\\\nb\\\nc\nnext d\n", u"key", u"abc"},
        {u"key a \\\nb \\\nc\n", u"key", u"a b c"},
        {u"key \"a\" \\\n\"b \\\nc\n", u"key", u"ab c"},
        {u"key a\\\nb\\\nc\nnext d\n", u"next", u"d"},
        {u"key a\\\n\\\nb\n", u"key", u"ab"},
        {u"key \\\nvalue\n", u"key", u"value"},
        {u"key a \\\nb;c ; note\n", u"key", u"a b;c"},
        {u"key a \\\nb  ; note \\\nc\n", u"key", u"a bc"},
        {u"key a ; note \\\nb\n", u"key", u"ab"},
        {u"key a \\\n; nothing\nnext d\n", u"key", u"a "},
        {u"key a \\\n; nothing\nnext d\n", u"next", u"d"},
        {u"key a\\\\\nnb\n", u"key", u"a\nb"},
        {u"key a\\n\\\nb\\nc\n", u"key", u"a\nb\nc"},
    });
}

TEST_F(languageFile, ignoresTheContinuationMarkOfALineWithoutEntry)
{
    expectTexts({
        {u"key\\\nother text\n", u"other", u"text"},
        {u"\\\nother text\n", u"other", u"text"},
    });
}

TEST_F(languageFile, losesAnEntryThatIsOpenAtItsEnd)
{
    expectTexts({
        {u"key value \\", u"key", u"<none>"},
        {u"key value \\\n\n", u"key", u"<none>"},
        {u"first text\nkey value \\\nmore \\\n", u"first", u"text"},
    });
}

TEST_F(languageFile, keepsTheFirstEntryOfAKey)
{
    expectTexts({
        {u"key first\nkey second\n", u"key", u"first"},
        {u"z 1\nkey first\na 2\nkey second\nz 3\nkey third\n", u"key", u"first"},
        {u"z 1\nkey first\na 2\nkey second\nz 3\nkey third\n", u"z", u"1"},
    });
}

TEST_F(languageFile, tellsKeysApartWhereverTheyDiffer)
{
    for (std::size_t at = 0; at < 40; ++at) {
        std::u16string low(40, u'm');
        std::u16string high = low;
        low[at] = u'a';
        high[at] = u'\u4e2d';
        const std::u16string file = high + u" high\nz other\n" + low + u" low\n" + high +
                                    u" second\nshort text\n" + low.substr(0, at + 1) + u" begun\n";
        EXPECT_EQ(textIn(string(file), low.c_str()), string(u"low")) << at;
        EXPECT_EQ(textIn(string(file), high.c_str()), string(u"high")) << at;
        EXPECT_EQ(textIn(string(file), low.substr(0, at + 1).c_str()),
                  string(at < 39 ? u"begun" : u"low"))
            << at;
    }
}

TEST_F(languageFile, keepsTheFirstEntryOfEachOfManyKeys)
{
    constexpr int keys = 20;
    const auto keyAt = [](int line) {
        return u"key" + string(std::to_string(line * 7 % keys).c_str());
    };
    string content;
    for (int line = 0; line < 20 * keys; ++line)
        content.append(keyAt(line))
            .append(u" ")
            .append(string(std::to_string(line).c_str()))
            .append(u"\n");
    addLanguageFile(mainPath, content);
    locFile from{file(mainPath)};
    for (int line = 0; line < keys; ++line)
        EXPECT_EQ(textOf(from, keyAt(line).c_str()), string(std::to_string(line).c_str()));
}

TEST_F(languageFile, hasAnIncludeLineAsAnEntryToo)
{
    expectTexts({{u"#include more.loc\n", u"#include", u"more.loc"}});
}

TEST_F(languageFile, neverGivesASeverityOrLeadingBlanksToTheUser)
{
    expectTexts({
        {u"key E:File not found\n", u"key", u"File not found"},
        {u"key \"  words\"\n", u"key", u"words"},
    });
}

TEST_F(languageFile, takesPiecesOfALongLineAsLines)
{
    const string filler(std::u16string(1018, u'a'));
    const string content =
        u"long " + filler + u"tail " + string(std::u16string(472, u'b')) + u"\nnext 1\n";
    ASSERT_EQ(content.find(u'\n'), 1500U);
    EXPECT_EQ(textIn(content, u"long"), filler);
    EXPECT_EQ(textIn(content, u"tail"), string(std::u16string(472, u'b')));
    EXPECT_EQ(textIn(content, u"next"), string(u"1"));
}

TEST_F(languageFile, takesUpTo1023UnitsAsOneLine)
{
    const string filler(std::u16string(1018, u'a'));
    EXPECT_EQ(textIn(u"long " + filler + u"\nnext 1\n", u"long"), filler);
    EXPECT_EQ(textIn(u"long " + filler + u"\nnext 1\n", u"next"), string(u"1"));
    EXPECT_EQ(textIn(u"long " + filler + u"b\nnext 1\n", u"long"), filler);
}

TEST_F(languageFile, goesOnFromPieceToPieceOfALongLine)
{
    const string filler(std::u16string(1017, u'a'));
    EXPECT_EQ(textIn(u"long " + filler + u"\\end\nnext 1\n", u"long"), filler + u"end");
}

// --- bytes -----------------------------------------------------------------------------------

TEST_F(languageFile, isDecodedByItsMark)
{
    EXPECT_EQ(textInBytes("\xEF\xBB\xBFkey gr\xC3\xBC\xC3\x9F", u"key"), string(u"gr\u00FC\u00DF"));
    EXPECT_EQ(textInBytes(std::string("\xFF\xFEk\0 \0\xFC\0\xAC\x20\n\0", 12), u"k"),
              string(u"\u00FC\u20AC"));
    EXPECT_EQ(textInBytes("key plain", u"key"), string(u"plain"));
}

TEST_F(languageFile, isDecodedByThePlatformsRuleWithoutAMark)
{
    // The machine in memory has windows-1252, as a Windows of the west.
    EXPECT_EQ(textInBytes("key gr\xFC \x80", u"key"), string(u"gr\u00FC \u20AC"));
}

TEST_F(languageFile, knowsNoOtherMark)
{
    const std::string highFirst("\xFE\xFFkey a\nnext b\n");
    EXPECT_EQ(textInBytes(highFirst, u"key"), string(u"<none>"));
    EXPECT_EQ(textInBytes(highFirst, u"\u00FE\u00FFkey"), string(u"a"));
    EXPECT_EQ(textInBytes(highFirst, u"next"), string(u"b"));
    EXPECT_EQ(textInBytes("\xEF\xBBkey a\n", u"\u00EF\u00BBkey"), string(u"a"));
    EXPECT_EQ(textInBytes("\xFFkey a\n", u"\u00FFkey"), string(u"a"));
    EXPECT_EQ(textInBytes("+/v8 a\n", u"+/v8"), string(u"a"));
    // What would be UTF-32 is UTF-16 whose first line begins with a zero.
    const std::string wider("\xFF\xFE\0\0k\0 \0v\0\n\0n\0 \0w\0", 18);
    EXPECT_EQ(textInBytes(wider, u"k"), string(u"<none>"));
    EXPECT_EQ(textInBytes(wider, u"n"), string(u"w"));
}

TEST_F(languageFile, dropsAnOddLastByteOfUtf16)
{
    EXPECT_EQ(textInBytes(std::string("\xFF\xFEk\0 \0v\0w", 9), u"k"), string(u"v"));
}

TEST_F(languageFile, isEmptyWithoutOrWithNothingButAMark)
{
    for (const char* bytes : {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFF\xFEk", "\xEF\xBB"})
        EXPECT_EQ(textInBytes(bytes, u"k"), string(u"<none>"));
}

TEST_F(languageFile, endsItsLinesInEitherStyle)
{
    expectTexts({
        {u"a 1\r\nb 2\r\n", u"a", u"1"},
        {u"a 1\r\nb 2\r\n", u"b", u"2"},
        {u"a 1 \\\r\n2\r\n", u"a", u"1 2"},
    });
}

TEST_F(languageFile, doesNotEndALineAtALoneCarriageReturn)
{
    expectTexts({
        {u"a 1\rb 2\n", u"a", u"1\rb 2"},
        {u"a 1\rb 2\n", u"b", u"<none>"},
        {u"a 1\rb\n", u"a", u"1\rb"},
        {u"a 1\r", u"a", u"1"},
    });
}

TEST_F(languageFile, countsACarriageReturnAndLineFeedAsOneUnit)
{
    const string filler(std::u16string(1017, u'a'));
    const string content = u"long " + filler + u"\r\n";
    EXPECT_EQ(textIn(content + u"next 1\n", u"long"), filler);
    EXPECT_EQ(textIn(content + u"next 1\n", u"next"), string(u"1"));
}

TEST_F(languageFile, seesNothingBehindAZeroInALine)
{
    const std::string bytes("key a\0b\n\0lost x\nnext c\n", 23);
    EXPECT_EQ(textInBytes(bytes, u"key"), string(u"a"));
    EXPECT_EQ(textInBytes(bytes, u"lost"), string(u"<none>"));
    EXPECT_EQ(textInBytes(bytes, u"next"), string(u"c"));
    const std::string comment("key a;b\0;c\n", 12);
    EXPECT_EQ(textInBytes(comment, u"key"), string(u"a"));
    const std::string mark("key a\0\\\nnext b\n", 15);
    EXPECT_EQ(textInBytes(mark, u"next"), string(u"b"));
}

// --- look-up ---------------------------------------------------------------------------------

TEST_F(languageFile, ignoresBlanksAroundTheKeyThatIsSearched)
{
    expectTexts({
        {u"key value\n", u" \tkey", u"value"},
        {u"key value\n", u"key \t\r\n", u"value"},
        {u"key value\n", u"  key  \n", u"value"},
        {u"key value\n", u"key\n ", u"<none>"},
        {u"key value\n", u"", u"<none>"},
    });
}

TEST_F(languageFile, takesANullKeyAsTheEmptyOne)
{
    EXPECT_EQ(textIn(u"key value\n", nullptr), string(u"<none>"));
}

TEST_F(languageFile, followsAliases)
{
    expectTexts({
        {u"a $$b\nb $$c\nc end\n", u"a", u"end"},
        {u"a \"$$b\"\nb end\n", u"a", u"end"},
        {u"a $$missing\n", u"a", u"<none>"},
        {u"a $$\n", u"a", u"<none>"},
        {u"a $ $b\n", u"a", u"$ $b"},
        {u"a $\n", u"a", u"$"},
        {u"a x$$b\n", u"a", u"x$$b"},
        {u"a \" $$b\"\n", u"a", u"$$b"},
    });
}

TEST_F(languageFile, givesTheValueThatClosesACircleOfAliases)
{
    expectTexts({
        {u"a $$b\nb $$a\n", u"a", u"$$a"},
        {u"a $$b\nb $$a\n", u"b", u"$$b"},
        {u"a $$a\n", u"a", u"$$a"},
        {u"a $$b\nb $$c\nc $$b\n", u"a", u"$$b"},
    });
}

TEST_F(languageFile, readsNoEntriesBeforeTheFirstLookUp)
{
    addLanguageFile(mainPath, u"key old\n");
    locFile from{file(mainPath)};
    rewriteUnseen(mainPath, "key new\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"new"));
}

TEST_F(languageFile, isReadOnceForItsIncludesAndOnceForItsEntries)
{
    addLanguageFile(mainPath, u"#include more.loc\nkey value\n");
    addLanguageFile(morePath, u"other text\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(here.countCalls("openFile"), 2U);
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    EXPECT_EQ(here.countCalls("openFile"), 3U) << "the included file was not asked yet";
    EXPECT_EQ(textOf(from, u"other"), string(u"text"));
    EXPECT_EQ(textOf(from, u"missing"), string(u"<none>"));
    EXPECT_EQ(here.countCalls("openFile"), 4U);
}

TEST_F(languageFile, isReadAgainOnlyWhenItsTimeHasChanged)
{
    addLanguageFile(mainPath, u"key old\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"old"));
    rewriteUnseen(mainPath, "key new\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"old"));
    addLanguageFile(mainPath, u"other text\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_EQ(textOf(from, u"other"), string(u"text"));
    here.setModificationTime(mainPath, 1000);
    EXPECT_EQ(textOf(from, u"other"), string(u"text")) << "an older time is a change as well";
}

TEST_F(languageFile, isReadAtEachLookUpWhileItHasNoEntry)
{
    addLanguageFile(mainPath, u"; nothing\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    rewriteUnseen(mainPath, "key value\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
}

TEST_F(languageFile, takesTextsThatGrowFarPastItsOwnSize)
{
    string lines = u";;cmd(replace:::y:::" + string(900, u'x') + u")\n";
    for (int number = 0; number < 9; ++number)
        lines += u"key" + string(static_cast<char16_t>(u'0' + number)) + u" yyy\n";
    addLanguageFile(mainPath, lines);
    locFile from{file(mainPath)};
    for (int number = 0; number < 9; ++number) {
        const string key = u"key" + string(static_cast<char16_t>(u'0' + number));
        EXPECT_EQ(textOf(from, key.c_str()), string(2700, u'x')) << number;
    }
}

TEST_F(languageFile, asksForItsTimeAtEachLookUp)
{
    addLanguageFile(mainPath, u"key value\n");
    locFile from{file(mainPath)};
    textOf(from, u"key");
    here.calls.clear();
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    ASSERT_EQ(here.calls.size(), 1U);
    EXPECT_EQ(here.calls[0].operation, "queryStatus");
    EXPECT_EQ(here.calls[0].subject, mainPath);
}

TEST_F(languageFile, asksForTheTimeOfItsOverrideFileToo)
{
    addLanguageFile(mainPath, u"key value\n");
    addLanguageFile(overridePath, u"other text\n");
    locFile from{file(mainPath)};
    from.setOverrideFile(file(overridePath));
    textOf(from, u"key");
    here.calls.clear();
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    EXPECT_EQ(here.calls.size(), 2U);
    EXPECT_EQ(here.countCalls("queryStatus"), 2U);
}

TEST_F(languageFile, hasNothingWhenItIsMissing)
{
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    addLanguageFile(mainPath, u"key value\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    ASSERT_TRUE(file(mainPath).remove());
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, hasNothingWhenItIsADirectory)
{
    here.addDirectory(mainPath);
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, hasNothingWithoutAPath)
{
    locFile from{file()};
    here.calls.clear();
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(languageFile, isClosedAfterReading)
{
    addLanguageFile(mainPath, u"#include more.loc\nkey value\n");
    addLanguageFile(morePath, u"other text\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(here.openHandles(), 0U);
    EXPECT_EQ(textOf(from, u"other"), string(u"text"));
    EXPECT_EQ(here.openHandles(), 0U);
}

TEST_F(languageFile, hasNothingWhenItCannotBeOpened)
{
    addLanguageFile(mainPath, u"key old\n");
    locFile from{file(mainPath)};
    addLanguageFile(mainPath, u"key value\n");
    here.failCall("openFile", 1);
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_EQ(textOf(from, u"key"), string(u"value")) << "the next look-up tries again";
}

TEST_F(languageFile, hasNothingWhenItCannotBeRead)
{
    addLanguageFile(mainPath, u"key old\n");
    locFile from{file(mainPath)};
    addLanguageFile(mainPath, u"key value\n");
    here.failCall("readFile", 1);
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_EQ(here.openHandles(), 0U);
}

TEST_F(languageFile, keepsWhatWasReadBeforeAFailure)
{
    addLanguageFile(mainPath, u"key value\nother " + string(std::u16string(200, u'x')) + u"\n");
    here.shortTransfers = true;
    here.failCall("readFile", 1);
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
}

// --- includes --------------------------------------------------------------------------------

TEST_F(languageFile, findsTheNameInAnIncludeLine)
{
    addLanguageFile(u"C:\\lang\\more.loc", u"key more\n");
    addLanguageFile(u"C:\\lang\\sub\\more.loc", u"key sub\n");
    addLanguageFile(u"C:\\lang\\two words.loc", u"key words\n");
    addLanguageFile(u"C:\\lang\\more;or less.loc", u"key or less\n");
    addLanguageFile(u"C:\\lang\\de x", u"key de x\n");
    addLanguageFile(u"C:\\up.loc", u"key up\n");
    expectTexts({
        {u"#include more.loc\n", u"key", u"more"},
        {u"#include more.loc", u"key", u"more"},
        {u" \t#include \t more.loc \t\r\n", u"key", u"more"},
        {u"#includemore.loc\n", u"key", u"more"},
        {u"#include more.loc ; note\n", u"key", u"more"},
        {u"#include more;or less.loc ; note\n", u"key", u"or less"},
        {u"#include two words.loc\n", u"key", u"words"},
        {u"#include sub/more.loc\n", u"key", u"sub"},
        {u"#include sub\\more.loc\n", u"key", u"sub"},
        {u"#include ..\\up.loc\n", u"key", u"up"},
        {u"; #include more.loc\n", u"key", u"<none>"},
        {u"#include \"more.loc\"\n", u"key", u"<none>"},
        {u"#include\n", u"key", u"<none>"},
        {u"#include missing.loc\n", u"key", u"<none>"},
        {u"#INCLUDE more.loc\n", u"key", u"<none>"},
        {u"include more.loc\n", u"key", u"<none>"},
    });
}

TEST_F(languageFile, findsIncludeLinesInEveryEncoding)
{
    addLanguageFile(morePath, u"key more\n");
    const std::string line = "#include more.loc\n";
    std::string pairs("\xFF\xFE");
    for (const char byte : line) pairs.append(1, byte).append(1, '\0');
    EXPECT_EQ(textInBytes(line, u"key"), string(u"more"));
    EXPECT_EQ(textInBytes("\xEF\xBB\xBF" + line, u"key"), string(u"more"));
    EXPECT_EQ(textInBytes(pairs, u"key"), string(u"more"));
    EXPECT_EQ(textInBytes("\xFF\xFE" + line, u"key"), string(u"<none>"));
}

// A line that is longer than a read comes in pieces.
TEST_F(languageFile, findsIncludeLinesAndCommandsBehind1023Units)
{
    const string filler(std::u16string(1023, u'f'));
    addLanguageFile(morePath, u"key more\n");
    EXPECT_EQ(textIn(filler + u"#include more.loc\n", u"key"), string(u"more"));
    EXPECT_EQ(textIn(filler.substr(4) + u"#include more.loc\n", u"key"), string(u"<none>"))
        << "the mark is cut in two";
    EXPECT_EQ(textIn(filler + u"#include more.loc" + filler + u"\n", u"key"), string(u"<none>"));
    EXPECT_EQ(textIn(filler + u";;cmd(replace:::a:::b)\nkey aa\n", u"key"), string(u"bb"));
    EXPECT_EQ(textIn(filler.substr(4) + u";;cmd(replace:::a:::b)\nkey aa\n", u"key"),
              string(u"aa"));
}

TEST_F(languageFile, cutsAnIncludeLineAtTheFirstLetterOfTheMark)
{
    addLanguageFile(u"C:\\lang\\more.loc", u"key more\n");
    addLanguageFile(u"C:\\lang\\x", u"key x\n");
    addLanguageFile(u"C:\\lang\\de x", u"key de x\n");
    expectTexts({
        {u"abc #include x\n", u"key", u"de x"},
        {u"bad #include x\n", u"key", u"de x"},
        {u"xyz #include more.loc\n", u"key", u"more"},
    });
}

TEST_F(languageFile, doesNotIncludeADirectory)
{
    here.addDirectory(u"C:\\lang\\sub");
    addLanguageFile(mainPath, u"#include sub\nkey value\n");
    locFile from{file(mainPath)};
    here.calls.clear();
    EXPECT_EQ(textOf(from, u"other"), string(u"<none>"));
    for (const auto& call : here.calls) EXPECT_NE(call.subject, string(u"C:\\lang\\sub"));
}

TEST_F(languageFile, asksItsIncludedFilesInTheirOrder)
{
    addLanguageFile(mainPath, u"own 1\n#include b.loc\n#include a.loc\n");
    addLanguageFile(u"C:\\lang\\a.loc", u"own 2\nkey a\nonly here\n");
    addLanguageFile(u"C:\\lang\\b.loc", u"own 3\nkey b\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"own"), string(u"1"));
    EXPECT_EQ(textOf(from, u"key"), string(u"b"));
    EXPECT_EQ(textOf(from, u"only"), string(u"here"));
    EXPECT_EQ(textOf(from, u"#include"), string(u"b.loc"));
}

TEST_F(languageFile, takesIncludedNamesFromTheIncludingFile)
{
    addLanguageFile(mainPath, u"#include sub\\a.loc\n");
    addLanguageFile(u"C:\\lang\\sub\\a.loc", u"#include b.loc\n");
    addLanguageFile(u"C:\\lang\\sub\\b.loc", u"key deep\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"deep"));
}

TEST_F(languageFile, includesAFileOnceWhateverTheCase)
{
    addLanguageFile(mainPath,
                    u"key value\n#include more.loc\n#include MORE.loc\n#include more.loc\n");
    addLanguageFile(morePath, u"other text\n");
    locFile from{file(mainPath)};
    textOf(from, u"missing");
    here.calls.clear();
    EXPECT_EQ(textOf(from, u"missing"), string(u"<none>"));
    EXPECT_EQ(here.countCalls("queryStatus"), 2U)
        << "one for the file and one for the included one";
}

TEST_F(languageFile, fixesItsIncludesWhenItIsMade)
{
    addLanguageFile(mainPath, u"a 1\n");
    addLanguageFile(morePath, u"key more\n");
    locFile from{file(mainPath)};
    addLanguageFile(mainPath, u"a 2\n#include more.loc\n");
    EXPECT_EQ(textOf(from, u"a"), string(u"2"));
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, asksNoIncludedFileWhenItIsMissingItself)
{
    addLanguageFile(mainPath, u"a 1\n#include more.loc\n");
    addLanguageFile(morePath, u"key more\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"more"));
    ASSERT_TRUE(file(mainPath).remove());
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, asksItsIncludedFilesAlsoWhenItHasNoEntry)
{
    addLanguageFile(mainPath, u"#include more.loc ;\n");
    addLanguageFile(morePath, u"key more\n");
    locFile from{file(mainPath)};
    rewriteUnseen(mainPath, "");
    EXPECT_EQ(textOf(from, u"key"), string(u"more"));
}

TEST_F(languageFile, hasNoIncludesWhenItCannotBeReadAtFirst)
{
    addLanguageFile(mainPath, u"key value\n#include more.loc\n");
    addLanguageFile(morePath, u"other text\n");
    here.failCall("openFile", 1);
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    EXPECT_EQ(textOf(from, u"other"), string(u"<none>"));
}

TEST_F(languageFile, hasNoIncludesWhenTheSystemTellsThatItCannotBeRead)
{
    addLanguageFile(mainPath, u"key value\n#include more.loc\n#include last.loc\n");
    addLanguageFile(morePath, u"other text\n");
    addLanguageFile(u"C:\\lang\\last.loc", u"other last\n");
    here.failCall("access", 1);
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"value"));
    EXPECT_EQ(textOf(from, u"other"), string(u"<none>"));
}

TEST_F(languageFile, passesOverAnIncludedFileThatCannotBeRead)
{
    addLanguageFile(mainPath, u"#include more.loc\n#include last.loc\n");
    addLanguageFile(morePath, u"key more\n");
    addLanguageFile(u"C:\\lang\\last.loc", u"key last\n");
    here.failCall("access", 2);
    locFile from{file(mainPath)};
    EXPECT_FALSE(here.faultsPending());
    EXPECT_EQ(textOf(from, u"key"), string(u"last"));
}

TEST_F(languageFile, goesOnBehindAnIncludedFileThatIsGoneButNotToItsIncludes)
{
    addLanguageFile(mainPath, u"#include more.loc\n#include last.loc\n");
    addLanguageFile(morePath, u"key more\n#include deep.loc\n");
    addLanguageFile(u"C:\\lang\\deep.loc", u"key deep\nonly deep\n");
    addLanguageFile(u"C:\\lang\\last.loc", u"key last\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"only"), string(u"deep"));
    ASSERT_TRUE(file(morePath).remove());
    EXPECT_EQ(textOf(from, u"key"), string(u"last"));
    EXPECT_EQ(textOf(from, u"only"), string(u"<none>"));
}

// Whoever makes it may have included some files already.
TEST_F(languageFile, passesOverTheFilesThatWereSeenAlready)
{
    addLanguageFile(mainPath, u"#include more.loc\n#include last.loc\n");
    addLanguageFile(morePath, u"key more\n");
    addLanguageFile(u"C:\\lang\\last.loc", u"other last\n");
    locFile from(file(mainPath), {file(u"C:\\elsewhere\\last.loc"), file(u"C:\\LANG\\More.loc")});
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_EQ(textOf(from, u"other"), string(u"last"));
    locFile copy(from);
    EXPECT_EQ(textOf(copy, u"key"), string(u"more")) << "a copy begins with an empty list";
    locFile none(file(mainPath), {});
    EXPECT_EQ(textOf(none, u"key"), string(u"more"));
}

TEST_F(languageFile, letsItsIncludesIncludeWhatWasSeenBeforeIt)
{
    addLanguageFile(mainPath, u"#include outer.loc\n");
    addLanguageFile(u"C:\\lang\\outer.loc", u"#include more.loc\n");
    addLanguageFile(morePath, u"key more\n");
    locFile from(file(mainPath), {file(morePath)});
    EXPECT_EQ(textOf(from, u"key"), string(u"more"));
}

TEST_F(languageFile, asksItsIncludesForTheTargetOfAnAliasWithoutBlanks)
{
    addLanguageFile(mainPath, u"one \"$$target \"\ntwo \"$$ \ttarget\"\nthree \"$$ two\"\n"
                              u"#include more.loc\n");
    addLanguageFile(morePath, u"target there\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"one"), string(u"there"));
    EXPECT_EQ(textOf(from, u"two"), string(u"there"));
    EXPECT_EQ(textOf(from, u"three"), string(u"<none>")) << "its own keys have no blanks";
}

TEST_F(languageFile, findsTheTargetOfAnAliasInAnInclude)
{
    addLanguageFile(mainPath, u"key $$target\n#include more.loc\n");
    addLanguageFile(morePath, u"target there\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"there"));
}

TEST_F(languageFile, searchesTheTargetOfAnIncludedAliasInTheIncludedFileOnly)
{
    addLanguageFile(mainPath, u"target here\n#include more.loc\n#include last.loc\n");
    addLanguageFile(morePath, u"key $$target\nlater $$target\n");
    addLanguageFile(u"C:\\lang\\last.loc", u"later last\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
    EXPECT_EQ(textOf(from, u"later"), string(u"last")) << "the next included file is asked";
}

TEST_F(languageFile, doesNotAskItsIncludesForAKeyWhoseAliasLeadsNowhere)
{
    addLanguageFile(mainPath, u"key $$missing\n#include more.loc\n");
    addLanguageFile(morePath, u"key more\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, includesAFileBelowEachFileThatNamesIt)
{
    addLanguageFile(mainPath, u"#include b.loc\n#include c.loc\n");
    addLanguageFile(u"C:\\lang\\b.loc", u"target there\n");
    addLanguageFile(u"C:\\lang\\c.loc", u"key $$target\n#include b.loc\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"there"));
}

TEST_F(languageFile, survivesACircleOfIncludes)
{
    addLanguageFile(mainPath, u"key value\n#include main.loc\n#include more.loc\n");
    addLanguageFile(morePath, u"other text\n#include main.loc\n#include more.loc\n");
    locFile from{file(mainPath)};
    locFile copy(from);
    for (locFile* each : {&from, &copy}) {
        EXPECT_EQ(textOf(*each, u"key"), string(u"value"));
        EXPECT_EQ(textOf(*each, u"other"), string(u"text"));
        EXPECT_EQ(textOf(*each, u"missing"), string(u"<none>"));
    }
}

TEST_F(languageFile, findsAKeyAtTheEndOfAChainOfIncludes)
{
    const int depth = 200;
    const auto path = [](int index) {
        return u"C:\\lang\\f" + string(std::to_string(index).c_str()) + u".loc";
    };
    for (int index = 0; index < depth; ++index)
        addLanguageFile(path(index), u"#include " + path(index + 1).substr(8) + u"\n");
    addLanguageFile(path(depth), u"key deep\n");
    locFile from{file(path(0))};
    EXPECT_EQ(textOf(from, u"key"), string(u"deep"));
}

// --- commands --------------------------------------------------------------------------------

TEST_F(languageFile, replacesInItsTextsByCommand)
{
    expectTexts({
        {u";;cmd(replace:::a:::b)\nkey banana\n", u"key", u"bbnbnb"},
        {u"key banana\n;;cmd(replace:::a:::b)\n", u"key", u"bbnbnb"},
        {u" \t;;cmd(replace:::a:::b) \t\r\nkey banana\n", u"key", u"bbnbnb"},
        {u";;cmd(replace:::a:::b\nkey banana\n", u"key", u"bbnbnb"},
        {u";;cmd(replace:::an:::x:::y)\nkey banana\n", u"key", u"bxxa"},
        {u";;cmd(replace:::a b:::c)\nkey xa bx\n", u"key", u"xcx"},
        {u";;cmd(replace:::a:::)\nkey banana\n", u"key", u"bnn"},
        {u";;cmd(replace::::::b)\nkey banana\n", u"key", u"banana"},
        {u";;cmd(replace:::a:::b)\n;;cmd(replace:::b:::c)\nkey banana\n", u"key", u"ccncnc"},
        {u"text ;;cmd(replace:::a:::b)\nkey banana\n", u"key", u"bbnbnb"},
        {u"key banana ;;cmd(replace:::a:::b)\n", u"key", u"bbnbnb ;"},
    });
}

TEST_F(languageFile, cutsAllClosingParenthesesOfACommand)
{
    expectTexts({
        {u";;cmd(replace:::x:::(y))\nkey axb\n", u"key", u"a(yb"},
        {u";;cmd(replace:::x:::y) )\nkey axb\n", u"key", u"ay) b"},
        {u";;cmd(replace:::):::y:::)\nkey a)b\n", u"key", u"ayb"},
    });
}

// Texts have blanks in the place of tabs, so such a command finds nothing.
TEST_F(languageFile, leavesTheTabsOfItsCommands)
{
    expectTexts({
        {u";;cmd(replace:::a\tb:::c)\nkey xa\tbx\n", u"key", u"xa bx"},
        {u";;cmd(replace:::x:::a\tb)\nkey x\n", u"key", u"a\tb"},
        {u";;cmd(replace\t:::a:::b)\nkey a\n", u"key", u"a"},
    });
}

TEST_F(languageFile, ignoresOtherCommands)
{
    expectTexts({
        {u";;cmd(remove:::a:::b)\nkey banana\n", u"key", u"banana"},
        {u";;cmd(Replace:::a:::b)\nkey banana\n", u"key", u"banana"},
        {u";;cmd( replace:::a:::b)\nkey banana\n", u"key", u"banana"},
        {u";;cmd(replace:::a)\nkey banana\n", u"key", u"banana"},
        {u";;cmd(replace)\nkey banana\n", u"key", u"banana"},
        {u";;cmd()\nkey banana\n", u"key", u"banana"},
        {u";; cmd(replace:::a:::b)\nkey banana\n", u"key", u"banana"},
        {u";cmd(replace:::a:::b)\nkey banana\n", u"key", u"banana"},
    });
}

TEST_F(languageFile, appliesCommandsToValuesAndNotToKeys)
{
    expectTexts({
        {u";;cmd(replace:::key:::lock)\nkey a key\n", u"key", u"a lock"},
        {u";;cmd(replace:::x:::y)\nkey $$x\ny found\n", u"key", u"found"},
    });
}

TEST_F(languageFile, keepsItsCommandsToItself)
{
    addLanguageFile(mainPath, u";;cmd(replace:::a:::b)\nkey aa\n#include more.loc\n");
    addLanguageFile(morePath, u"other aa\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"bb"));
    EXPECT_EQ(textOf(from, u"other"), string(u"aa"));
}

TEST_F(languageFile, holdsItsCommandsTwiceAfterASecondLoad)
{
    const string content(u";;cmd(replace:::a:::aa)\nkey a\n");
    addLanguageFile(mainPath, content);
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"aa"));
    addLanguageFile(mainPath, content);
    EXPECT_EQ(textOf(from, u"key"), string(u"aaaa"));
}

// --- override file ---------------------------------------------------------------------------

namespace {

// The main file with an override file, both of these contents.
locFile overridden(const string& content, const string& overriding)
{
    addLanguageFile(mainPath, content);
    addLanguageFile(overridePath, overriding);
    locFile made{file(mainPath)};
    made.setOverrideFile(file(overridePath));
    return made;
}

} // namespace

TEST_F(languageFile, takesTheEntriesOfItsOverrideFileFirst)
{
    locFile from = overridden(u"key main\nown text\n", u"key site\nadded more\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"site"));
    EXPECT_EQ(textOf(from, u"own"), string(u"text"));
    EXPECT_EQ(textOf(from, u"added"), string(u"more"));
}

TEST_F(languageFile, appliesTheCommandsOfItsOverrideFileToAllEntries)
{
    locFile from = overridden(u"own a\nkey a\n", u";;cmd(replace:::a:::aa)\nkey ax\n");
    EXPECT_EQ(textOf(from, u"own"), string(u"aa"));
    EXPECT_EQ(textOf(from, u"key"), string(u"aaaax"))
        << "in its own file and again after the merge";
}

TEST_F(languageFile, appliesItsOwnCommandsBeforeTheOverrideFileComesIn)
{
    locFile from = overridden(u";;cmd(replace:::a:::b)\nown a\n", u"key a\n");
    EXPECT_EQ(textOf(from, u"own"), string(u"b"));
    EXPECT_EQ(textOf(from, u"key"), string(u"a"));
}

TEST_F(languageFile, doesNotIncludeWhatItsOverrideFileIncludes)
{
    addLanguageFile(morePath, u"key more\n");
    locFile from = overridden(u"own text\n", u"#include more.loc\nother site\n");
    EXPECT_EQ(textOf(from, u"other"), string(u"site"));
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>"));
}

TEST_F(languageFile, isReadAgainWhenItsOverrideFileChangesComesOrGoes)
{
    locFile from = overridden(u"key main\n", u"key site\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"site"));
    rewriteUnseen(overridePath, "key unseen\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"site"));
    addLanguageFile(overridePath, u"key changed\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"changed"));
    ASSERT_TRUE(file(overridePath).remove());
    EXPECT_EQ(textOf(from, u"key"), string(u"main"));
    addLanguageFile(overridePath, u"key back\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"back"));
}

TEST_F(languageFile, takesNoDirectoryAsAnOverrideFile)
{
    addLanguageFile(mainPath, u"key main\n");
    here.addDirectory(overridePath);
    locFile from{file(mainPath)};
    from.setOverrideFile(file(overridePath));
    EXPECT_EQ(textOf(from, u"key"), string(u"main"));
    rewriteUnseen(mainPath, "key unseen\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"main")) << "the time of a directory is no change";
}

TEST_F(languageFile, loadsItsOverrideFileAlsoWhenItIsMissingItself)
{
    addLanguageFile(overridePath, u"key site\n");
    locFile from{file(mainPath)};
    from.setOverrideFile(file(overridePath));
    EXPECT_EQ(textOf(from, u"key"), string(u"<none>")) << "the load has failed";
    EXPECT_EQ(textOf(from, u"key"), string(u"site"))
        << "the entries are there now, and no time has changed";
}

TEST_F(languageFile, isReadAgainAfterItsOverrideFileWasSet)
{
    addLanguageFile(mainPath, u"key main\n");
    addLanguageFile(overridePath, u"other site\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"other"), string(u"<none>"));
    rewriteUnseen(mainPath, "key again\n");
    from.setOverrideFile(file(overridePath));
    EXPECT_EQ(textOf(from, u"other"), string(u"site"));
    EXPECT_EQ(textOf(from, u"key"), string(u"again"));
}

TEST_F(languageFile, isReadAgainAlsoForAnOverrideFileThatIsMissing)
{
    addLanguageFile(mainPath, u"key main\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"main"));
    rewriteUnseen(mainPath, "key again\n");
    from.setOverrideFile(file(overridePath));
    EXPECT_EQ(textOf(from, u"key"), string(u"again"));
}

// --- without memory --------------------------------------------------------------------------

namespace {

// Paths of so few units need no memory themselves.
const string shortPath(u"C:\\a");

// Loads the short file with the nth request for memory refused, and gives the keys that are
// there afterwards.
std::vector<string> keysBehindAFault(std::size_t nth, const std::vector<string>& keys,
                                     bool& happened)
{
    locFile from{file(shortPath)};
    {
        stringTemplate text;
        const allocationFault fault(nth);
        EXPECT_NO_THROW(static_cast<void>(from.lookup(u"none", text)));
        happened = fault.hasHappened();
    }
    std::vector<string> present;
    for (const string& key : keys)
        if (textOf(from, key.c_str()) != u"<none>") present.push_back(key);
    return present;
}

} // namespace

TEST_F(languageFile, throwsNothingWhereNoMemoryIsLeftWhenItIsMade)
{
    addLanguageFile(shortPath, u"#include b\nkey $$ an alias of some length\n");
    addLanguageFile(u"C:\\b", u"an text of the other file\n");
    for (const auto how : {allocationFault::lasting::once, allocationFault::lasting::forGood}) {
        bool happened = true;
        for (std::size_t nth = 1; happened; ++nth) {
            const file source(shortPath);
            const allocationFault fault(nth, how);
            EXPECT_NO_THROW(static_cast<void>(locFile(source))) << nth;
            happened = fault.hasHappened();
        }
    }
}

TEST_F(languageFile, findsNothingWhereNoMemoryIsLeftToReadIt)
{
    addLanguageFile(shortPath, u";;cmd(replace:::words:::some other words)\n"
                               u"a_longer_key a text with some words\nkey $$a_longer_key\n");
    for (std::size_t nth = 1;; ++nth) {
        locFile from{file(shortPath)};
        stringTemplate text(u"a text that is long enough for what is coming as it was before");
        const string before = text.text();
        const allocationFault fault(nth, allocationFault::lasting::forGood);
        bool found = true;
        EXPECT_NO_THROW(found = from.lookup(u"key", text)) << nth;
        if (!fault.hasHappened()) {
            EXPECT_TRUE(found);
            break;
        }
        EXPECT_FALSE(found) << nth;
        EXPECT_EQ(text.text(), before) << nth;
    }
}

TEST_F(languageFile, keepsWhatWasReadBeforeALackOfMemoryInTheOrderOfTheFile)
{
    const std::vector<string> keys{u"zone_of_the_file", u"an_entry_behind_it", u"more_of_the_file",
                                   u"before_the_last", u"yet_another_entry"};
    string content;
    for (const string& key : keys) content.append(key).append(u" the text of this entry\n");
    addLanguageFile(shortPath, content);
    bool keptSome = false;
    bool happened = true;
    for (std::size_t nth = 1; happened; ++nth) {
        const std::vector<string> present = keysBehindAFault(nth, keys, happened);
        for (std::size_t index = 0; index < present.size(); ++index)
            EXPECT_EQ(present[index], keys[index]) << nth;
        keptSome = keptSome || (!present.empty() && present.size() < keys.size());
    }
    EXPECT_TRUE(keptSome);
}

// --- copies ----------------------------------------------------------------------------------

TEST_F(languageFile, isReadAnewByACopy)
{
    addLanguageFile(morePath, u"other text\n");
    locFile from = overridden(u"key old\n", u"site text\n");
    EXPECT_EQ(textOf(from, u"key"), string(u"old"));
    rewriteUnseen(mainPath, "key new\n#include more.loc\n");
    locFile copy(from);
    locFile assigned{file(morePath)};
    assigned = from;
    for (locFile* each : {&copy, &assigned}) {
        EXPECT_EQ(each->path(), mainPath);
        EXPECT_EQ(textOf(*each, u"key"), string(u"new"));
        EXPECT_EQ(textOf(*each, u"other"), string(u"text"));
        EXPECT_EQ(textOf(*each, u"site"), string(u"text"));
    }
    EXPECT_EQ(textOf(from, u"key"), string(u"old"));
    EXPECT_EQ(textOf(from, u"other"), string(u"<none>"));
}

TEST_F(languageFile, leavesItsCommandsOutOfACopy)
{
    addLanguageFile(mainPath, u";;cmd(replace:::a:::aa)\nkey a\n");
    locFile from{file(mainPath)};
    EXPECT_EQ(textOf(from, u"key"), string(u"aa"));
    locFile copy(from);
    EXPECT_EQ(textOf(copy, u"key"), string(u"aa"));
}

TEST_F(languageFile, keepsItsEntriesWhenMoved)
{
    addLanguageFile(mainPath, u"key value\n#include more.loc\n");
    addLanguageFile(morePath, u"other text\n");
    locFile from{file(mainPath)};
    textOf(from, u"other");
    here.calls.clear();
    locFile moved(std::move(from));
    EXPECT_TRUE(here.calls.empty());
    EXPECT_EQ(textOf(moved, u"key"), string(u"value"));
    EXPECT_EQ(textOf(moved, u"other"), string(u"text"));
    EXPECT_EQ(here.countCalls("openFile"), 0U);
}

} // namespace orlolocfileTest
