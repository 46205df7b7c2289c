#include "orlopath.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orlopathTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

// On a machine with the current directory C:\work and the current drive C.
class path : public testing::Test {
protected:
    path() : here(machine::renew()) {}
    machine& here;
};

struct normalRow {
    const char16_t* text;
    const char16_t* plain;
    const char16_t* trailing;
};

constexpr normalRow normalRows[] = {
    {u"", u"", u""},
    {u"foo.txt", u"C:\\work\\foo.txt", u"C:\\work\\foo.txt\\"},
    {u"sub/foo.txt", u"C:\\work\\sub\\foo.txt", u"C:\\work\\sub\\foo.txt\\"},
    {u"..\\foo", u"C:\\foo", u"C:\\foo\\"},
    {u"C:\\a\\b\\..\\c.txt", u"C:\\a\\c.txt", u"C:\\a\\c.txt\\"},
    {u"C:\\a\\.\\..\\b", u"C:\\a\\b", u"C:\\a\\b\\"},
    {u"C:\\a\\..\\..\\..\\b", u"C:\\b", u"C:\\b\\"},
    {u"C:\\", u"C:", u"C:\\"},
    {u"C:", u"C:", u"C:\\"},
    {u"c:foo", u"c:foo", u"c:foo\\"},
    {u"\\foo", u"C:\\foo", u"C:\\foo\\"},
    {u"\\\\srv\\share\\x", u"\\\\srv\\share\\x", u"\\\\srv\\share\\x\\"},
    {u"\\\\srv\\..\\x", u"\\\\x", u"\\\\x\\"},
    {u"\\\\..\\x", u"\\x", u"\\x\\"},
    {u"\\\\\\srv", u"\\\\srv", u"\\\\srv\\"},
    {u"\\\\", u"\\\\", u"\\\\\\"},
    {u"C:\\a\\\\b\\\\\\c", u"C:\\a\\b\\c", u"C:\\a\\b\\c\\"},
    {u"C:\\a\\...\\b", u"C:\\a\\...\\b", u"C:\\a\\...\\b\\"},
    // Slashes everywhere.
    {u"C:/a/./b/../c.txt", u"C:\\a\\c.txt", u"C:\\a\\c.txt\\"},
    {u"//srv/share", u"\\\\srv\\share", u"\\\\srv\\share\\"},
    {u"/foo", u"C:\\foo", u"C:\\foo\\"},
    // The end of a path.
    {u"C:\\a\\", u"C:\\a", u"C:\\a\\"},
    {u"C:\\a\\\\\\", u"C:\\a", u"C:\\a\\"},
    {u"C:\\a\\..", u"C:", u"C:\\"},
    {u"C:\\a\\.", u"C:\\a", u"C:\\a\\"},
    {u"C:\\a\\.\\.\\.", u"C:\\a", u"C:\\a\\"},
    {u"C:\\a.\\b..", u"C:\\a.\\b..", u"C:\\a.\\b..\\"},
    {u".", u"C:\\work", u"C:\\work\\"},
    {u"..", u"C:", u"C:\\"},
    {u"\\", u"C:", u"C:\\"},
    // "." and ".." side by side.
    {u"C:\\a\\b\\..\\..\\c", u"C:\\c", u"C:\\c\\"},
    {u"C:\\a\\b\\..\\.\\c", u"C:\\a\\c", u"C:\\a\\c\\"},
    {u"C:\\..", u"C:", u"C:\\"},
    {u"\\\\.\\x", u"\\\\x", u"\\\\x\\"},
    {u"c:.", u"c:.", u"c:.\\"},
    // A drive prefix is any unit and a colon, but a leading separator wins.
    {u"?:\\x", u"?:\\x", u"?:\\x\\"},
    {u"\\:x", u"C:\\:x", u"C:\\:x\\"},
    {u"/:x", u"C:\\:x", u"C:\\:x\\"},
    {u"x", u"C:\\work\\x", u"C:\\work\\x\\"},
    // Units that Windows would refuse, quotes inside, blanks.
    {u"C:\\a\"b\"", u"C:\\a\"b\"", u"C:\\a\"b\"\\"},
    {u"C:\\a *?<>|", u"C:\\a *?<>|", u"C:\\a *?<>|\\"},
    {u" C:\\a", u"C:\\work\\ C:\\a", u"C:\\work\\ C:\\a\\"},
    {u"C:\\\u00e4\U0001F600", u"C:\\\u00e4\U0001F600", u"C:\\\u00e4\U0001F600\\"},
};

struct splitRow {
    const char16_t* text;
    bool lastDot;
    const char16_t* root;
    const char16_t* directory;
    const char16_t* name;
    const char16_t* extension;
};

constexpr splitRow splitRows[] = {
    {u"C:\\a\\b.tar.gz", true, u"C:", u"\\a\\", u"b.tar", u"gz"},
    {u"C:\\a\\b.tar.gz", false, u"C:", u"\\a\\", u"b", u"tar.gz"},
    {u"c:\\b.txt", true, u"C:", u"\\", u"b", u"txt"},
    {u"C:\\a\\b\\", true, u"C:", u"\\a\\", u"b", u""},
    {u"C:\\", true, u"C:", u"\\", u"", u""},
    {u"C:", true, u"C:", u"\\", u"", u""},
    {u"\\\\srv\\share\\x.y", true, u"\\\\srv", u"\\share\\", u"x", u"y"},
    {u"\\\\srv", true, u"\\\\srv", u"\\", u"", u""},
    {u"\\foo", true, u"", u"\\", u"foo", u""},
    {u"a\\b", true, u"", u"a\\", u"b", u""},
    {u"foo.txt", true, u"", u"\\", u"oo", u"txt"},
    {u"", true, u"", u"", u"", u""},
    {u"C:foo.txt", true, u"C:", u"\\", u"oo", u"txt"},
    {u"C:\\a.b\\", true, u"C:", u"\\", u"a", u"b"},
    {u"C:\\.git", true, u"C:", u"\\", u"", u"git"},
    {u"C:\\a.", true, u"C:", u"\\", u"a", u""},
    {u"//srv/x", true, u"", u"//srv\\", u"x", u""},
    {u"C:/a/b.c", true, u"C:", u"/a\\", u"b", u"c"},
    {u"C:\\a\\b.c/\\/", true, u"C:", u"\\a\\", u"b", u"c/\\"},
    {u"C:\\a\\b//", true, u"C:", u"\\a\\", u"b", u""},
    {u"C:\\a.b\\c", true, u"C:", u"\\a.b\\", u"c", u""},
    {u"\\\\", true, u"\\\\", u"\\", u"", u""},
    {u"\\:x", true, u"\\:", u"\\", u"", u""},
};

// Trimming leaves a text of nothing but one separator as it is.
constexpr splitRow leftoverRows[] = {
    {u"C:\\\\\\", true, u"C:", u"\\", u"\\\\", u""},
    {u"C:\\a.\\\\", true, u"C:", u"\\", u"a", u"\\\\"},
    {u"C:///", true, u"C:", u"\\", u"//", u""},
};

void expectSplit(const splitRow& row)
{
    // Old contents of the outputs must go.
    string root(u"r"), directory(u"d"), name(u"n"), extension(u"e");
    splitPath(row.text, root, directory, name, extension, row.lastDot);
    EXPECT_EQ(root, string(row.root));
    EXPECT_EQ(directory, string(row.directory));
    EXPECT_EQ(name, string(row.name));
    EXPECT_EQ(extension, string(row.extension));
}

} // namespace

TEST_F(path, takesTheNormalForm)
{
    for (const normalRow& row : normalRows) {
        SCOPED_TRACE(narrow(string(row.text)));
        EXPECT_EQ(normalizePath(row.text, false), string(row.plain));
        EXPECT_EQ(normalizePath(row.text, true), string(row.trailing));
    }
}

TEST_F(path, staysAsItIsInTheNormalForm)
{
    for (const char16_t* text : {u"C:", u"C:\\a", u"C:\\a\\b.c", u"\\\\srv\\x", u"c:\\.git\\..x"}) {
        EXPECT_EQ(normalizePath(text, false), string(text));
        EXPECT_EQ(normalizePath(string(text) + u"\\", true), string(text) + u"\\");
    }
}

// A path with backslashes alone may be found normal at a glance; with slashes it goes through all
// steps.
TEST_F(path, isTheSameWithEitherSlash)
{
    constexpr unsigned seed = 20240305;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    constexpr std::u16string_view units = u"\\\\..:aC";
    for (int round = 0; round < 20000; ++round) {
        string text(random() % 4 != 0 ? u"C:\\a" : u"\\\\");
        for (auto count = random() % 12; count > 0; --count)
            text.push_back(units[random() % units.size()]);
        const string slashed = string(text).replaceChar(u'\\', u'/');
        for (const bool trailing : {false, true})
            ASSERT_EQ(normalizePath(text, trailing), normalizePath(slashed, trailing))
                << narrow(text);
    }
}

TEST_F(path, losesTheQuotesAroundItAndWhatFollowsThem)
{
    EXPECT_EQ(normalizePath(u"\"C:\\a b\\c.txt\" rest", false), string(u"C:\\a b\\c.txt"));
    EXPECT_EQ(normalizePath(u"\"C:\\a b\\c.txt", false), string(u"C:\\a b\\c.txt"));
    EXPECT_EQ(normalizePath(u"\"C:\\a\"b\"c", false), string(u"C:\\a\"b"));
    EXPECT_EQ(normalizePath(string(u"\"C:\\a\0\"b", 8), false), string(u"C:\\a"));
}

TEST_F(path, ofTwoQuotesIsTheCurrentDirectory)
{
    EXPECT_EQ(normalizePath(u"\"\"", false), string(u"C:\\work"));
    EXPECT_EQ(normalizePath(u"\"", false), string(u"C:\\work"));
    EXPECT_EQ(normalizePath(u"\"\"", true), string(u"C:\\work\\"));
}

TEST_F(path, keepsAZeroUnitOutsideOfQuotes)
{
    const string text(u"C:\\a\0b", 6);
    EXPECT_EQ(normalizePath(text, false), text);
}

TEST_F(path, expandsOnlyTheFirstVariable)
{
    here.environment[u"X"] = u"D:\\y";
    here.environment[u"Y"] = u"z";
    EXPECT_EQ(normalizePath(u"%X%\\a", false), string(u"D:\\y\\a"));
    EXPECT_EQ(normalizePath(u"%X%%Y%", false), string(u"D:\\y%Y%"));
    EXPECT_EQ(normalizePath(u"C:\\%Y%\\%X%\\%Y%", false), string(u"C:\\z\\%X%\\z"));
}

TEST_F(path, keepsVariablesBehindAnUnsetOne)
{
    here.environment[u"Y"] = u"z";
    here.environment[u"E"] = u"";
    EXPECT_EQ(normalizePath(u"C:\\%N%\\%Y%", false), string(u"C:\\%N%\\%Y%"));
    EXPECT_EQ(normalizePath(u"C:\\%E%\\%Y%", false), string(u"C:\\%E%\\%Y%"));
    EXPECT_EQ(normalizePath(u"C:\\%%Y%", false), string(u"C:\\%%Y%"));
    EXPECT_EQ(normalizePath(u"C:\\Y%", false), string(u"C:\\Y%"));
    EXPECT_EQ(normalizePath(u"C:\\%Y", false), string(u"C:\\%Y"));
}

TEST_F(path, doesNotScanTheValueOfAVariable)
{
    here.environment[u"X"] = u"C:\\%X%";
    EXPECT_EQ(normalizePath(u"%X%", false), string(u"C:\\%X%"));
}

TEST_F(path, expandsAVariableBeforeAllElse)
{
    here.environment[u"Q"] = u"\"C:/a/../b\"";
    EXPECT_EQ(normalizePath(u"%Q% lost", false), string(u"C:\\b"));
    here.environment[u"P"] = u":";
    EXPECT_EQ(normalizePath(u"C%P%\\x", false), string(u"C:\\x"));
}

TEST_F(path, takesARelativeTextFromTheCurrentDirectory)
{
    here.workingDirectory = u"D:/x/y/";
    EXPECT_EQ(normalizePath(u"a", false), string(u"D:\\x\\y\\a"));
    here.workingDirectory = u"D:\\";
    EXPECT_EQ(normalizePath(u"a", false), string(u"D:\\a"));
    here.drive = 5;
    EXPECT_EQ(normalizePath(u"\\a", false), string(u"E:\\a"));
}

TEST_F(path, isOneBackslashWhereTheCurrentDirectoryIsUnknown)
{
    here.failCall("currentDirectory", 1);
    EXPECT_EQ(normalizePath(u"sub\\foo", false), string(u"\\"));
    here.failCall("currentDirectory", 1);
    EXPECT_EQ(normalizePath(u"foo", true), string(u"\\\\"));
}

TEST_F(path, knowsNoCurrentDirectoryOfMoreThan259Units)
{
    here.workingDirectory = string(u"C:\\") + string(std::u16string(256, u'd'));
    EXPECT_EQ(normalizePath(u"x", false), here.workingDirectory + u"\\x");
    here.workingDirectory.push_back(u'd');
    EXPECT_EQ(normalizePath(u"x", false), string(u"\\"));
}

TEST_F(path, asksTheMachineOnlyForWhatItNeeds)
{
    normalizePath(u"C:\\a\\..\\b", false);
    normalizePath(u"\\\\srv\\x", true);
    EXPECT_TRUE(here.calls.empty());
}

TEST_F(path, hasNoLimitOfLength)
{
    string text(u"C:");
    for (int i = 0; i < 2000; ++i) text.append(u"\\a\\..\\\\.");
    EXPECT_EQ(normalizePath(text + u"\\end", false), string(u"C:\\end"));
}

TEST_F(path, ofAnEnvironmentVariableNeedsAValue)
{
    here.environment[u"SET"] = u"value";
    here.environment[u"EMPTY"] = u"";
    string value(u"old");
    EXPECT_TRUE(getEnvironmentVariable(u"SET", value));
    EXPECT_EQ(value, string(u"value"));
    EXPECT_FALSE(getEnvironmentVariable(u"EMPTY", value));
    EXPECT_TRUE(value.empty());
    value = u"old";
    EXPECT_FALSE(getEnvironmentVariable(u"UNSET", value));
    EXPECT_TRUE(value.empty());
}

TEST_F(path, joinsBaseAndRelativeText)
{
    struct row {
        const char16_t* base;
        const char16_t* relative;
        const char16_t* joined;
    };
    constexpr row rows[] = {
        {u"C:\\a", u"b", u"C:\\a\\b"},
        {u"C:\\a\\", u"b", u"C:\\a\\b"},
        {u"C:\\a", u"\\b", u"C:\\a\\b"},
        {u"C:\\a", u"..\\b", u"C:\\b"},
        {u"C:\\a", u"x/y.z", u"C:\\a\\x\\y.z"},
        {u"C:\\a", u"", u"C:\\a"},
        {u"", u"b", u""},
        {u"", u"C:\\b", u""},
        {u"", u"", u""},
        {u"C:\\a", u"D:\\b", u"C:\\a\\D:\\b"},
        {u"a", u"b", u"C:\\work\\a\\b"},
        {u"\"C:\\a", u"b\" c", u"C:\\a\\b"},
        {u"\\", u"b", u"\\\\b"},
    };
    for (const row& row : rows) {
        SCOPED_TRACE(narrow(string(row.base)) + " and " + narrow(string(row.relative)));
        const string joined(row.joined);
        EXPECT_EQ(combinePath(row.base, row.relative, false), joined);
        EXPECT_EQ(combinePath(row.base, row.relative, true),
                  joined.empty() ? joined : joined + u"\\");
    }
}

TEST_F(path, expandsAVariableOfTheJoinedText)
{
    here.environment[u"X"] = u"y";
    EXPECT_EQ(combinePath(u"C:\\%X%", u"%X%", false), string(u"C:\\y\\y"));
}

TEST_F(path, endsInExactlyOneSeparator)
{
    struct row {
        const char16_t* before;
        const char16_t* after;
    };
    constexpr row rows[] = {
        {u"", u""},
        {u"C:\\a", u"C:\\a\\"},
        {u"C:\\a\\", u"C:\\a\\"},
        {u"C:\\a\\\\\\", u"C:\\a\\"},
        {u"\\", u"\\\\"},
        {u"\\\\", u"\\\\\\"},
        {u"C:\\a/", u"C:\\a/\\"},
    };
    for (const row& row : rows) {
        string text(row.before);
        ensureTrailingSeparator(text);
        EXPECT_EQ(text, string(row.after));
    }
}

TEST_F(path, splitsIntoFourParts)
{
    for (const splitRow& row : splitRows) {
        SCOPED_TRACE(narrow(string(row.text)));
        expectSplit(row);
    }
}

TEST_F(path, keepsSeparatorsThatAreAllOfAPart)
{
    for (const splitRow& row : leftoverRows) {
        SCOPED_TRACE(narrow(string(row.text)));
        expectSplit(row);
    }
}

TEST_F(path, ofOneUnitCannotBeSplit)
{
    const string one(u"x");
    const auto expectRefusal = [](auto&& split) {
        try {
            split();
            ADD_FAILURE() << "nothing was raised";
        } catch (const std::out_of_range& failure) {
            EXPECT_STREQ(failure.what(), "invalid string position");
        }
    };
    string a, b, c, d;
    expectRefusal([&] { splitPath(one, a, b, c, d, true); });
    expectRefusal([&] { splitPath(u"\\", a, b, c, d, true); });
    expectRefusal([&] { static_cast<void>(pathRoot(one)); });
    expectRefusal([&] { static_cast<void>(pathDriveLetter(one)); });
    expectRefusal([&] { static_cast<void>(pathExtension(one)); });
    expectRefusal([&] { static_cast<void>(pathName(one)); });
    expectRefusal([&] { static_cast<void>(pathDirectory(one)); });
}

TEST_F(path, tellsItsRootAndDrive)
{
    EXPECT_EQ(pathRoot(u"c:\\a"), string(u"C:"));
    EXPECT_EQ(pathRoot(u"\\\\srv\\a"), string(u"\\\\srv"));
    EXPECT_EQ(pathDriveLetter(u"c:\\a"), u'C');
    EXPECT_EQ(pathDriveLetter(u"\\\\srv\\a"), u' ');
    EXPECT_EQ(pathDriveLetter(u"\\\\"), u' ');
    EXPECT_EQ(pathDriveLetter(u"a\\b"), u' ');
    EXPECT_EQ(pathDriveLetter(u""), u' ');
}

TEST_F(path, givesThePartsThatTheFlagsAskFor)
{
    using ask = string (*)(const string&, std::uint32_t);
    struct row {
        ask function;
        std::uint32_t flags;
        const char16_t* result;
    };
    const row rows[] = {
        {pathExtension, 0, u"gz"},
        {pathExtension, extensionAtFirstDot, u"tar.gz"},
        {pathExtension, withRoot | withDirectory | withExtension, u"gz"},
        {pathExtension, withName, u"b.tar.gz"},
        {pathExtension, withName | withDirectory, u"\\a\\b.tar.gz"},
        {pathExtension, withName | withRoot, u"b.tar.gz"},
        {pathExtension, withName | withDirectory | withRoot, u"C:\\a\\b.tar.gz"},
        {pathName, 0, u"b.tar.gz"},
        {pathName, withoutExtension, u"b.tar"},
        {pathName, withoutExtension | extensionAtFirstDot, u"b"},
        {pathName, withoutExtension | withExtension, u"b.tar.gz"},
        {pathName, withDirectory, u"\\a\\b.tar.gz"},
        {pathName, withRoot, u"b.tar.gz"},
        {pathName, withDirectory | withRoot | withoutExtension, u"C:\\a\\b.tar"},
        {pathDirectory, 0, u"C:\\a\\"},
        {pathDirectory, withoutRoot, u"\\a\\"},
        {pathDirectory, withoutRoot | withRoot, u"C:\\a\\"},
        {pathDirectory, withRoot, u"C:\\a\\"},
        {pathDirectory, withName, u"C:\\a\\b.tar"},
        {pathDirectory, withName | extensionAtFirstDot, u"C:\\a\\b"},
        {pathDirectory, withName | withExtension, u"C:\\a\\b.tar.gz"},
        {pathDirectory, withExtension, u"C:\\a\\"},
    };
    for (const row& row : rows) {
        SCOPED_TRACE(narrow(string(row.result)) + " by flags " + std::to_string(row.flags));
        EXPECT_EQ(row.function(u"c:\\a\\b.tar.gz", row.flags), string(row.result));
    }
}

// The flags stand in the code of callers as numbers.
TEST_F(path, hasFlagsOfSettledValues)
{
    EXPECT_EQ(withoutRoot, 1u);
    EXPECT_EQ(withoutExtension, 2u);
    EXPECT_EQ(extensionAtFirstDot, 4u);
    EXPECT_EQ(withRoot, 8u);
    EXPECT_EQ(withDirectory, 16u);
    EXPECT_EQ(withName, 32u);
    EXPECT_EQ(withExtension, 64u);
}

// The rules once more, word for word, against every word of flags.
TEST_F(path, givesWhatTheRulesSayForEachOfThe128WordsOfFlags)
{
    for (std::uint32_t flags = 0; flags < 128; ++flags) {
        const auto has = [flags](std::uint32_t bit) { return (flags & bit) != 0; };
        const string root = u"C:";
        const string inside = u"\\a\\";
        const string name = has(4) ? u"b" : u"b.tar";
        const string extension = has(4) ? u"tar.gz" : u"gz";

        string ofExtension = extension;
        if (has(32)) {
            ofExtension = name + u"." + extension;
            if (has(16)) ofExtension = inside + ofExtension;
            if (has(16) && has(8)) ofExtension = root + ofExtension;
        }
        string ofName = name;
        if (!has(2) || (has(2) && has(64))) ofName = ofName + u"." + extension;
        if (has(16)) ofName = inside + ofName;
        if (has(16) && has(8)) ofName = root + ofName;
        string ofDirectory = inside;
        if ((flags & 9) != 1) ofDirectory = root + ofDirectory;
        if (has(32)) ofDirectory = ofDirectory + name;
        if (has(32) && has(64)) ofDirectory = ofDirectory + u"." + extension;

        EXPECT_EQ(pathExtension(u"c:\\a\\b.tar.gz", flags), ofExtension) << flags;
        EXPECT_EQ(pathName(u"c:\\a\\b.tar.gz", flags), ofName) << flags;
        EXPECT_EQ(pathDirectory(u"c:\\a\\b.tar.gz", flags), ofDirectory) << flags;
    }
}

TEST_F(path, givesNoDotWithoutAnExtension)
{
    EXPECT_EQ(pathName(u"C:\\a\\b"), string(u"b"));
    EXPECT_EQ(pathExtension(u"C:\\a\\b"), string());
    EXPECT_EQ(pathExtension(u"C:\\a\\b", withName), string(u"b"));
    EXPECT_EQ(pathDirectory(u"C:\\a\\b", withName | withExtension), string(u"C:\\a\\b"));
    EXPECT_EQ(pathName(u""), string());
    EXPECT_EQ(pathDirectory(u""), string());
}

} // namespace orlopathTest
