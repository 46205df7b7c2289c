#include "orlostring.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <thread>
#include <type_traits>

namespace orlostringTest {

using orlo::string;

namespace {

// --- Making, copying, comparing --------------------------------------------------------------

TEST(string, isMadeFromEachKindOfText)
{
    EXPECT_EQ(string(), u"");
    EXPECT_EQ(string(u"abc"), u"abc");
    EXPECT_EQ(string(u"ab\0c"), u"ab");
    EXPECT_EQ(string(u'x'), u"x");
    EXPECT_EQ(string(std::u16string_view(u"view")), u"view");
}

TEST(string, keepsZeroUnitsWhereTheLengthIsTold)
{
    const string text(u"ab\0c", 4);
    EXPECT_EQ(text.size(), 4u);
    EXPECT_EQ(text[2], u'\0');
    EXPECT_EQ(text[3], u'c');
    EXPECT_EQ(text.c_str()[4], u'\0');
}

TEST(string, takesEachByteOfNarrowTextAsAUnit)
{
    EXPECT_EQ(string("abc"), u"abc");
    EXPECT_EQ(string(""), u"");
    EXPECT_EQ(string("a\0b"), u"a");
    EXPECT_EQ(string("\xe4\xff"), u"\u00e4\u00ff");
}

TEST(string, copiesAreDeep)
{
    string original(u"a text that is too long to lie inside of the object");
    const string kept = original;
    string copy = original;
    EXPECT_NE(copy.data(), original.data());
    copy[0] = u'X';
    EXPECT_EQ(original, kept);
    copy = original;
    original.clear();
    EXPECT_EQ(copy, kept);
}

TEST(string, assignedToItselfStaysAsItIs)
{
    string text(u"a text that is too long to lie inside of the object");
    const string kept = text;
    string& alias = text;
    text = alias;
    EXPECT_EQ(text, kept);
}

TEST(string, hasNoVirtualOperationsAndNoDataOfItsOwn)
{
    EXPECT_FALSE(std::is_polymorphic_v<string>);
    EXPECT_EQ(sizeof(string), sizeof(std::u16string));
}

TEST(string, equalMeansSameLengthAndSameUnits)
{
    EXPECT_TRUE(string(u"abc") == u"abc");
    EXPECT_TRUE(string(u"abc") == string(u"abc"));
    EXPECT_FALSE(string(u"abc") == u"ABC");
    EXPECT_FALSE(string(u"abc") == string(u"ABC"));
    EXPECT_TRUE(string(u"abc") != u"abcd");
    EXPECT_TRUE(string(u"abc") != string(u"ab"));
    EXPECT_TRUE(string(u"a\0b", 3) != string(u"a\0c", 3));
    EXPECT_TRUE(string(u"a\0b", 3) != u"a");
}

TEST(string, ordersByUnsignedUnitAndPutsThePrefixFirst)
{
    static const char16_t* const ascending[] = {u"",   u"A",      u"AB",     u"B",     u"a",
                                                u"aa", u"\u00e4", u"\xd800", u"\uffff"};
    for (std::size_t n = 1; n < std::size(ascending); ++n) {
        EXPECT_LT(string(ascending[n - 1]), string(ascending[n])) << n;
        EXPECT_FALSE(string(ascending[n]) < string(ascending[n - 1])) << n;
    }
    std::map<string, int> keys{{u"b", 2}, {u"a", 1}, {u"B", 0}};
    EXPECT_EQ(keys.begin()->first, u"B");
}

TEST(string, addsTexts)
{
    const string a(u"a");
    EXPECT_EQ(a + u"b", u"ab");
    EXPECT_EQ(a + string(u"b"), u"ab");
    EXPECT_EQ(u"b" + a, u"ba");
    EXPECT_EQ(string(u"x") + a + u"y", u"xay");
    EXPECT_EQ(a, u"a");
    EXPECT_EQ(string(u"a").append(u"b").append(string(u"c")), u"abc");
}

// --- Trimming and removing -------------------------------------------------------------------

TEST(string, trimsUnitsOfASetFromEitherEnd)
{
    static const struct {
        const char16_t* text;
        const char16_t* set;
        const char16_t* left;
        const char16_t* right;
    } rows[] = {
        {u"   ", u" \t", u"", u""},
        {u"a  ", u" \t", u"a  ", u"a"},
        {u" \t a b \t", u"\t ", u"a b \t", u" \t a b"},
        {u" a ", u"", u" a ", u" a "},
        {u"", u" ", u"", u""},
        {u"", u"", u"", u""},
        {u"abcab", u"bbaab", u"cab", u"abc"},
        {u"abc", u"x", u"abc", u"abc"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(string(row.text).trimLeft(row.set), row.left) << orlo::narrow(row.text);
        EXPECT_EQ(string(row.text).trimRight(row.set), row.right) << orlo::narrow(row.text);
    }
}

TEST(string, trimmedOfOneUnitStaysWhereNothingElseStands)
{
    static const struct {
        const char16_t* text;
        char16_t unit;
        const char16_t* expected;
    } rows[] = {
        {u"   ", u' ', u"   "},  {u"a  ", u' ', u"a"},      {u"\\\\\\", u'\\', u"\\\\\\"},
        {u"\\", u'\\', u"\\"},   {u"", u' ', u""},          {u"abc", u' ', u"abc"},
        {u"  a ", u' ', u"  a"}, {u"a \t ", u' ', u"a \t"}, {u"C:\\\\", u'\\', u"C:"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(string(row.text).trimRight(row.unit), row.expected) << orlo::narrow(row.text);
}

TEST(string, removesEveryUnitOfASet)
{
    EXPECT_EQ(string(u"a-b_c-").removeChars(u"-_"), u"abc");
    EXPECT_EQ(string(u"aaa").removeChars(u"a"), u"");
    EXPECT_EQ(string(u"abc").removeChars(u"xyz"), u"abc");
    EXPECT_EQ(string(u"abc").removeChars(u""), u"abc");
    EXPECT_EQ(string(u"").removeChars(u"a"), u"");
    EXPECT_EQ(string(u"abcabc").removeChars(u"ccba"), u"");
}

TEST(string, removesTheUnitsOfAPieceOfItself)
{
    string text(u"a-b-c");
    text.removeChars(std::u16string_view(text).substr(1, 1));
    EXPECT_EQ(text, u"abc");
    string whole(u"abcabc");
    whole.removeChars(whole);
    EXPECT_EQ(whole, u"");
}

// --- Replacing -------------------------------------------------------------------------------

TEST(string, replacesFromLeftToRightAndNotWithinWhatItPutIn)
{
    static const struct {
        const char16_t* text;
        const char16_t* from;
        const char16_t* to;
        const char16_t* expected;
    } rows[] = {
        {u"aaa", u"a", u"aa", u"aaaaaa"},
        {u"aaa", u"aa", u"b", u"ba"},
        {u"aaaa", u"aa", u"a", u"aa"},
        {u"abc", u"", u"x", u"abc"},
        {u"", u"", u"x", u""},
        {u"", u"a", u"x", u""},
        {u"a,b,", u",", u"", u"ab"},
        {u"abc", u"abc", u"", u""},
        {u"abc", u"d", u"x", u"abc"},
        {u"ab", u"abc", u"x", u"ab"},
        {u"x&y&", u"&", u"&amp;", u"x&amp;y&amp;"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(string(row.text).replaceAll(row.from, row.to), row.expected)
            << orlo::narrow(row.text);
    }
}

TEST(string, replacesByPiecesOfItself)
{
    string text(u"aba");
    text.replaceAll(u"a", text);
    EXPECT_EQ(text, u"abababa");
}

// The rule taken step by step, for random texts over few letters.
TEST(string, replacesAsASearchInPlaceDoes)
{
    std::mt19937 random(20240305);
    const auto word = [&random](std::size_t most) {
        string made;
        for (std::size_t n = random() % (most + 1); n > 0; --n)
            made.push_back(static_cast<char16_t>(u'a' + random() % 2));
        return made;
    };
    for (int round = 0; round < 2000; ++round) {
        const string text = word(12);
        const string from = word(3);
        const string to = word(3);
        string expected = text;
        for (std::size_t at = 0; !from.empty() && (at = expected.find(from, at)) != string::npos;
             at += to.size()) {
            expected.std::u16string::replace(at, from.size(), to);
        }
        ASSERT_EQ(string(text).replaceAll(from, to), expected)
            << orlo::narrow(text) << " " << orlo::narrow(from) << " " << orlo::narrow(to);
    }
}

TEST(string, replacesOneUnitByAnother)
{
    EXPECT_EQ(string(u"C:/a/b").replaceChar(u'/', u'\\'), u"C:\\a\\b");
    EXPECT_EQ(string(u"abc").replaceChar(u'x', u'y'), u"abc");
    EXPECT_EQ(string(u"aab").replaceChar(u'a', u'b'), u"bbb");
    EXPECT_EQ(string(u"").replaceChar(u'a', u'b'), u"");
}

// --- Splitting -------------------------------------------------------------------------------

TEST(string, splitsAtEachDelimiterOrAtTheFirstOnly)
{
    using pieces = std::vector<string>;
    static const struct {
        const char16_t* text;
        const char16_t* delimiter;
        bool firstOnly;
        pieces expected;
    } rows[] = {
        {u"abc", u"x", false, {u"abc"}},
        {u"abc", u"x", true, {u"abc"}},
        {u"a=b=c", u"=", true, {u"a", u"b=c"}},
        {u"a=b=c", u"=", false, {u"a", u"b", u"c"}},
        {u",a,,b,", u",", false, {u"", u"a", u"", u"b", u""}},
        {u",", u",", false, {u"", u""}},
        {u",", u",", true, {u"", u""}},
        {u"a=", u"=", true, {u"a", u""}},
        {u"=", u"==", false, {u"="}},
        {u"a--b-c---d", u"--", false, {u"a", u"b-c", u"-d"}},
        {u"a;b,c", u",;", false, {u"a;b,c"}},
    };
    for (const auto& row : rows) {
        pieces found{u"from before"};
        EXPECT_TRUE(string(row.text).split(row.delimiter, found, row.firstOnly))
            << orlo::narrow(row.text);
        EXPECT_EQ(found, row.expected) << orlo::narrow(row.text);
    }
}

TEST(string, splitOfTheEmptyTextIsFalseWithNoPiece)
{
    for (const char16_t* delimiter : {u",", u"abc", u""}) {
        for (const bool firstOnly : {false, true}) {
            std::vector<string> found{u"from before"};
            EXPECT_FALSE(string().split(delimiter, found, firstOnly));
            EXPECT_TRUE(found.empty());
        }
    }
}

TEST(string, splitsOneOfItsOwnPieces)
{
    std::vector<string> pieces{u"a,b"};
    EXPECT_TRUE(pieces[0].split(u",", pieces));
    EXPECT_EQ(pieces, (std::vector<string>{u"a", u"b"}));
}

// --- Case ------------------------------------------------------------------------------------

TEST(string, changesTheCaseOfAsciiLettersAlone)
{
    EXPECT_EQ(string(u"Axis-Z 09 \u00c4\u00e4\U0001f600[`{@").toLower(),
              u"axis-z 09 \u00c4\u00e4\U0001f600[`{@");
    EXPECT_EQ(string(u"Axis-Z 09 \u00c4\u00e4\U0001f600[`{@").toUpper(),
              u"AXIS-Z 09 \u00c4\u00e4\U0001f600[`{@");
}

TEST(string, lowerCopyLeavesTheTextAsItIs)
{
    const string text(u"AbC");
    EXPECT_EQ(text.lowerCopy(), u"abc");
    EXPECT_EQ(text, u"AbC");
}

// The character locale in force on the machine for one test.
class westernCharacters {
public:
    westernCharacters()
    {
        orlo::tests::machine::renew().characters = orlo::tests::machine::characterLocale::western;
    }
    ~westernCharacters() { orlo::tests::machine::renew(); }
    westernCharacters(const westernCharacters&) = delete;
    westernCharacters& operator=(const westernCharacters&) = delete;
};

TEST(string, changesCaseByTheCharacterLocaleInForce)
{
    const westernCharacters locale;
    EXPECT_EQ(string(u"AXIS \u00c4\u00d7\u0416").toLower(), u"axis \u00e4\u00d7\u0416");
    EXPECT_EQ(string(u"axis \u00e4\u00f7\u0436").toUpper(), u"AXIS \u00c4\u00f7\u0436");
    EXPECT_EQ(string(u"\u00c4").lowerCopy(), u"\u00e4");
}

TEST(string, widensNarrowTextByTheCharacterLocaleInForce)
{
    const westernCharacters locale;
    EXPECT_EQ(string("5 \x80 \xe4"), u"5 \u20ac \u00e4");
    EXPECT_EQ(string(""), u"");
}

TEST(string, keepsWhatStandsBeforeNarrowTextThatCantBeConverted)
{
    const westernCharacters locale;
    EXPECT_EQ(string("5 \x80 \x81 mm"), u"5 \u20ac ");
}

// --- Numbers and the shared text -------------------------------------------------------------

TEST(string, becomesTheTextOfANumber)
{
    string text(u"before");
    EXPECT_EQ(text.setNumber(1.5), u"1.5");
    EXPECT_EQ(text.setNumber(100.0), u"100");
    EXPECT_EQ(text.setNumber(-0.000000001), u"-0");
    EXPECT_EQ(text.setNumber(1e300).size(), 301u);
}

TEST(string, emptyStringIsOneObjectForAllThreads)
{
    const string* const here = &string::emptyString();
    EXPECT_EQ(here, &string::emptyString());
    EXPECT_TRUE(here->empty());

    std::vector<const string*> seen(8);
    std::vector<std::thread> threads;
    for (auto& slot : seen) threads.emplace_back([&slot] { slot = &string::emptyString(); });
    for (auto& thread : threads) thread.join();
    EXPECT_TRUE(std::all_of(seen.begin(), seen.end(),
                            [here](const string* other) { return other == here; }));
}

TEST(string, membersThatChangeItCanBeChained)
{
    string text(u"  A,B,C  ");
    EXPECT_EQ(&text.trimLeft(u" "), &text);
    EXPECT_EQ(text.trimRight(u' ')
                  .replaceAll(u",", u"--")
                  .removeChars(u"B")
                  .replaceChar(u'-', u'+')
                  .toLower(),
              u"a++++c");
}

// --- The standard operations -----------------------------------------------------------------

TEST(string, keepsTheStandardOperations)
{
    string text(u"abc");
    EXPECT_EQ(text.insert(1, u"xy"), u"axybc");
    EXPECT_EQ(text.insert(0, string(u"_")), u"_axybc");
    EXPECT_EQ(text.insert(6, 2, u'!'), u"_axybc!!");
    EXPECT_EQ(*text.insert(text.begin(), u'>'), u'>');
    EXPECT_EQ(text.erase(0, 2), u"axybc!!");
    text.erase(text.begin());
    EXPECT_EQ(text.replace(0, 2, u"-"), u"-bc!!");
    EXPECT_EQ(text.find(u"c!"), 2u);
    EXPECT_EQ(text.substr(1, 2), u"bc");
    EXPECT_EQ(text.substr(5), u"");
    EXPECT_EQ(text.at(0), u'-');
}

template <class Failure, class Action>
void expectFailure(Action action, const char* message)
{
    try {
        action();
        ADD_FAILURE() << "no failure raised";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), message);
    }
}

TEST(string, positionsBehindTheEndAreOutOfRange)
{
    string text(u"abc");
    const string added(u"x");
    const char* const message = "invalid string position";
    expectFailure<std::out_of_range>([&] { text.insert(4, u"x"); }, message);
    expectFailure<std::out_of_range>([&] { text.insert(4, added); }, message);
    expectFailure<std::out_of_range>([&] { text.insert(4, 1, u'x'); }, message);
    expectFailure<std::out_of_range>([&] { text.erase(4); }, message);
    expectFailure<std::out_of_range>([&] { text.replace(4, 1, u"x"); }, message);
    expectFailure<std::out_of_range>([&] { static_cast<void>(text.substr(4)); }, message);
    expectFailure<std::out_of_range>([&] { static_cast<void>(text.at(3)); }, message);
    expectFailure<std::out_of_range>([&] { static_cast<void>(std::as_const(text).at(3)); },
                                     message);
    EXPECT_EQ(text, u"abc");
    EXPECT_EQ(text.insert(3, u"d").erase(4), u"abcd");
}

// Each of the standard operations that can grow a text past its limit, by a count.
void expectRefusal(std::size_t count, const std::function<void(string&, std::size_t)>& grow)
{
    string text(u"abc");
    expectFailure<std::length_error>([&] { grow(text, count); }, "string too long");
    EXPECT_EQ(text, u"abc");
}

const std::function<void(string&, std::size_t)> growingOperations[] = {
    [](string& text, std::size_t n) { text.resize(n); },
    [](string& text, std::size_t n) { text.resize(n, u'x'); },
    [](string& text, std::size_t n) { text.reserve(n); },
    [](string& text, std::size_t n) { text.append(n, u'x'); },
    [](string& text, std::size_t n) { text.append(u"x", n); },
    [](string& text, std::size_t n) { text.assign(n, u'x'); },
    [](string& text, std::size_t n) { text.assign(u"x", n); },
    [](string& text, std::size_t n) { text.insert(1, n, u'x'); },
    [](string& text, std::size_t n) { text.insert(1, u"x", n); },
    [](string& text, std::size_t n) { text.insert(text.begin(), n, u'x'); },
    [](string& text, std::size_t n) { text.replace(1, 1, n, u'x'); },
    [](string& text, std::size_t n) { text.replace(1, 1, u"x", n); },
    [](string& text, std::size_t n) { text.replace(text.begin(), text.end(), n, u'x'); },
    [](string& text, std::size_t n) { text = string(n, u'x'); },
    [](string& text, std::size_t n) { text = string(u"x", n); },
};

TEST(string, cannotGrowPastItsLimit)
{
    EXPECT_EQ(string::maxLength, 0x7ffffffffffffffeu);
    for (const auto& grow : growingOperations) expectRefusal(string::maxLength + 1, grow);
}

TEST(string, cannotGrowPastItsLimitByWhatComesToItsUnits)
{
    expectRefusal(string::maxLength - 2, [](string& text, std::size_t n) { text.append(n, u'x'); });
    expectRefusal(string::maxLength - 2,
                  [](string& text, std::size_t n) { text.insert(3, n, u'x'); });
}

TEST(string, runsOutOfMemoryBelowItsLimit)
{
    for (const auto& grow : growingOperations) {
        string text(u"abc");
        EXPECT_THROW(grow(text, string::maxLength - 3), std::bad_alloc);
        EXPECT_EQ(text, u"abc");
    }
}

TEST(string, keepsTheStandardOperationsInAllTheirForms)
{
    const string source(u"0123456789");
    const std::u16string plain(u"plain");
    const std::u16string_view view(u"view");

    EXPECT_EQ(string(3, u'x'), u"xxx");
    EXPECT_EQ(string(source, 7), u"789");
    EXPECT_EQ(string(source, 2, 3), u"234");
    EXPECT_EQ(string(plain.begin(), plain.end()), u"plain");
    EXPECT_EQ((string{u'a', u'b'}), u"ab");

    string text;
    text = u'x';
    EXPECT_EQ(text, u"x");
    text = plain;
    EXPECT_EQ(text, u"plain");
    text = view;
    EXPECT_EQ(text, u"view");
    text = std::u16string(u"moved");
    EXPECT_EQ(text, u"moved");
    text = {u'a', u'b'};
    EXPECT_EQ(text, u"ab");
    text = {};
    EXPECT_EQ(text, u"");

    EXPECT_EQ(&(text += u"a"), &text);
    ((text += u'b') += view) += plain;
    text += {u'!', u'?'};
    EXPECT_EQ(text, u"abviewplain!?");

    EXPECT_EQ(text.assign(u"abc"), u"abc");
    EXPECT_EQ(text.assign(u"abc", 2), u"ab");
    EXPECT_EQ(text.assign(2, u'x'), u"xx");
    EXPECT_EQ(text.assign(source, 8), u"89");
    EXPECT_EQ(text.assign(source, 1, 2), u"12");
    EXPECT_EQ(text.assign(view), u"view");
    EXPECT_EQ(text.assign(plain.begin(), plain.end()), u"plain");
    EXPECT_EQ(text.assign({u'a'}), u"a");

    EXPECT_EQ(text.append(u"bc").append(u"def", 1).append(2, u'x').append(source, 9), u"abcdxx9");
    EXPECT_EQ(text.append(source, 0, 1).append(view).append(plain.begin(), plain.begin() + 1),
              u"abcdxx90viewp");
    EXPECT_EQ(text.append({u'.'}).trimRight(u"."), u"abcdxx90viewp");

    text = u"ab";
    EXPECT_EQ(text.insert(1, u"--", 1).insert(0, source, 8).insert(0, source, 3, 1), u"389a-b");
    EXPECT_EQ(text.insert(0, view).insert(1, 2, u'!'), u"v!!iew389a-b");
    text = u"ab";
    EXPECT_EQ(text.insert(text.end(), 2, u'x') - text.begin(), 2);
    EXPECT_EQ(text.insert(text.begin(), plain.begin(), plain.end()) - text.begin(), 0);
    EXPECT_EQ(text.insert(text.cbegin(), {u'1', u'2'}) - text.begin(), 0);
    EXPECT_EQ(text, u"12plainabxx");

    text = u"0123";
    EXPECT_EQ(text.replace(0, 1, 2, u'x'), u"xx123");
    EXPECT_EQ(text.replace(0, 2, u"abc", 1), u"a123");
    EXPECT_EQ(text.replace(0, 1, source, 8, 1), u"8123");
    EXPECT_EQ(text.replace(0, 1, view), u"view123");
    EXPECT_EQ(text.replace(text.begin(), text.begin() + 4, u"-"), u"-123");
    EXPECT_EQ(text.replace(text.begin(), text.begin() + 1, {u'a', u'b'}), u"ab123");

    text.reserve(100);
    EXPECT_GE(text.capacity(), 100u);
    text.reserve();
    EXPECT_EQ(text, u"ab123");
    EXPECT_EQ(text.erase(text.begin(), text.begin() + 2) - text.begin(), 0);
    EXPECT_EQ(text.erase(), u"");

    EXPECT_EQ(source + u'x', u"0123456789x");
    EXPECT_EQ(string(u"a") + u'x', u"ax");
    EXPECT_EQ(u'x' + string(u"a"), u"xa");
}

TEST(string, positionsBehindTheEndAreOutOfRangeInAllForms)
{
    string text(u"abc");
    const char* const message = "invalid string position";
    const auto expectOutOfRange = [&](auto action) {
        expectFailure<std::out_of_range>(action, message);
        EXPECT_EQ(text, u"abc");
    };
    expectOutOfRange([&] { text.insert(4, u"xy", 1); });
    expectOutOfRange([&] { text.insert(0, text, 4); });
    expectOutOfRange([&] { text.replace(4, 0, 1, u'x'); });
    expectOutOfRange([&] { text.replace(0, 1, text, 4, 1); });
    expectOutOfRange([&] { text.append(text, 4); });
    expectOutOfRange([&] { text.assign(text, 4); });
    expectOutOfRange([&] { static_cast<void>(string(text, 4)); });
}

// A text of 20 units, which lies on the heap and has no room left.
string fullText()
{
    string text(u"0123456789abcdefghij");
    text.reserve();
    return text;
}

TEST(string, takesPiecesOfItself)
{
    const std::u16string_view digits = u"0123456789abcdefghij";
    const auto piece = [](const string& text) { return std::u16string_view(text).substr(8, 4); };

    string text = fullText();
    EXPECT_EQ(text.append(piece(text)), string(digits) + u"89ab");
    text = fullText();
    EXPECT_EQ(text += piece(text), string(digits) + u"89ab");
    text = fullText();
    EXPECT_EQ(text.append(text), string(digits) + string(digits));
    text = fullText();
    EXPECT_EQ(text.append(text.c_str() + 18), string(digits) + u"ij");
    text = fullText();
    EXPECT_EQ(text.insert(0, piece(text)), u"89ab" + string(digits));
    text = fullText();
    EXPECT_EQ(text.insert(10, piece(text)), u"012345678989ababcdefghij");
    text = fullText();
    text.reserve(100);
    EXPECT_EQ(text.insert(10, piece(text)), u"012345678989ababcdefghij") << "with room";
    text = fullText();
    EXPECT_EQ(text.insert(1, text.c_str() + 18, 2), u"0ij123456789abcdefghij");
    text = fullText();
    EXPECT_EQ(text.replace(9, 2, piece(text)), u"01234567889abbcdefghij");
    text = fullText();
    EXPECT_EQ(text.replace(0, 20, piece(text)), u"89ab");
    text = fullText();
    EXPECT_EQ(text.assign(piece(text)), u"89ab");
    text = fullText();
    EXPECT_EQ(text = text.c_str() + 18, u"ij");
    text = fullText();
    EXPECT_EQ(text = piece(text), u"89ab");
    text = fullText();
    EXPECT_EQ(text.replaceAll(piece(text), std::u16string_view(text).substr(0, 2)),
              u"0123456701cdefghij");
    text = fullText();
    EXPECT_EQ(text.removeChars(piece(text)), u"01234567cdefghij");
    text = fullText();
    EXPECT_EQ(text.trimLeft(std::u16string_view(text).substr(0, 4)), u"456789abcdefghij");
    text = fullText();
    EXPECT_EQ(text.trimRight(std::u16string_view(text).substr(16)), u"0123456789abcdef");
    text = fullText();
    EXPECT_EQ(text.trimLeft(text), u"");
    text = fullText();
    EXPECT_EQ(text.trimRight(text), u"");
    text = fullText();
    EXPECT_EQ(std::move(text) + text, string(digits) + string(digits));
    text = fullText();
    EXPECT_EQ(std::move(text) + (text.c_str() + 18), string(digits) + u"ij");
}

TEST(string, splitsAtAPieceOfItselfAndOfTheList)
{
    std::vector<string> pieces{u"a,b,c", u","};
    EXPECT_TRUE(pieces[0].split(pieces[1], pieces));
    EXPECT_EQ(pieces, (std::vector<string>{u"a", u"b", u"c"}));
    const string text(u"a,b,c");
    EXPECT_TRUE(text.split(std::u16string_view(text).substr(1, 1), pieces));
    EXPECT_EQ(pieces, (std::vector<string>{u"a", u"b", u"c"}));
}

TEST(string, countsZeroUnitsLikeOthers)
{
    const string text(u"a\0b\0c", 5);
    const string zero(u"\0", 1);
    EXPECT_EQ(text + zero, string(u"a\0b\0c\0", 6));
    EXPECT_EQ(zero + text, string(u"\0a\0b\0c", 6));
    EXPECT_EQ(string(text) + zero, string(u"a\0b\0c\0", 6));
    EXPECT_EQ(u"x" + text, string(u"xa\0b\0c", 6));
    EXPECT_EQ(text + u"x", string(u"a\0b\0cx", 6));
    EXPECT_EQ(text.substr(1), string(u"\0b\0c", 4));
    EXPECT_EQ(text.substr(0, 2), string(u"a\0", 2));
    EXPECT_EQ(string(text).replaceAll(zero, u"-"), u"a-b-c");
    EXPECT_EQ(string(u"a-b").replaceAll(u"-", zero), string(u"a\0b", 3));
    EXPECT_EQ(string(text).replaceAll(u"c", u"d"), string(u"a\0b\0d", 5));
    EXPECT_EQ(string(text).replaceAll(u"a", u"x"), string(u"x\0b\0c", 5));
    EXPECT_EQ(string(text).removeChars(zero), u"abc");
    EXPECT_EQ(string(text).removeChars(u"b"), string(u"a\0\0c", 4));
    EXPECT_EQ(string(text).removeChars(u"c"), string(u"a\0b\0", 4));
    EXPECT_EQ(string(text).toUpper(), string(u"A\0B\0C", 5));
    EXPECT_EQ(string(u"a\0", 2).trimRight(zero), u"a");
    std::vector<string> pieces;
    EXPECT_TRUE(text.split(zero, pieces));
    EXPECT_EQ(pieces, (std::vector<string>{u"a", u"b", u"c"}));
}

} // namespace

} // namespace orlostringTest
