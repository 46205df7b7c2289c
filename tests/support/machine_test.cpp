// The machine in memory must itself be right, since all other tests lean on it.
#include "support/machine.h"

#include "platform/platform.h"
#include "support/disk.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>
#include <vector>

namespace machineTest {

using namespace orlo;
using orlo::tests::machine;
using orlo::tests::matchesPattern;

namespace {

class machineTest : public testing::Test {
protected:
    machineTest() : here(machine::renew()) {}
    machine& here;
};

std::vector<string> hits(const char16_t* pattern, std::uint32_t wanted = 0)
{
    std::vector<string> names;
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(pattern, wanted, hit);
    if (search == platform::noSearch) return names;
    do names.push_back(hit.name);
    while (platform::findNext(search, hit));
    platform::findClose(search);
    return names;
}

std::string readAll(const char16_t* path)
{
    char bytes[64];
    const platform::fileHandle file = platform::openFile(path, platform::openMode::read);
    const std::size_t count = platform::readFile(file, bytes, sizeof bytes);
    platform::closeFile(file);
    return {bytes, count};
}

using names = std::vector<string>;

// Some address that is no window of the machine.
void* stranger()
{
    static int thing;
    return &thing;
}

} // namespace

TEST_F(machineTest, isNewWhenRenewed)
{
    here.addFile(u"C:\\a", "x");
    here.environment[u"X"] = u"y";
    here.failCall("access", 1);
    platform::showMessageBox(nullptr, u"text", u"title", 1);
    machine& renewed = machine::renew();
    EXPECT_EQ(&renewed, &here);
    EXPECT_TRUE(here.files().empty());
    EXPECT_TRUE(here.hasDirectory(u"C:\\work"));
    EXPECT_TRUE(here.calls.empty() && here.boxes.empty() && here.environment.empty());
    EXPECT_TRUE(platform::access(u"C:\\work", 0));
    EXPECT_EQ(here.clock, 1709640000);
}

TEST_F(machineTest, forgetsTheHandlesOfAnEarlierMachine)
{
    here.addFile(u"C:\\a", "x");
    const platform::fileHandle file = platform::openFile(u"C:\\a", platform::openMode::read);
    machine::renew();
    here.addFile(u"C:\\a", "x");
    platform::openFile(u"C:\\a", platform::openMode::read);
    char byte = 0;
    EXPECT_EQ(platform::readFile(file, &byte, 1), 0u);
}

TEST_F(machineTest, knowsNamesWithoutRegardToAsciiCase)
{
    here.addFile(u"C:\\Dir\\File.TXT", "x");
    EXPECT_TRUE(platform::access(u"c:/dir/FILE.txt", 0));
    EXPECT_EQ(here.content(u"c:\\DIR\\file.txt"), "x");
    EXPECT_EQ(here.files(), (names{u"C:\\Dir\\File.TXT"}));
}

TEST_F(machineTest, resolvesPaths)
{
    here.addFile(u"C:\\work\\sub\\f", "");
    for (const char16_t* path : {u"sub\\f", u".\\sub\\.\\f", u"sub\\..\\sub/f", u"\\work\\sub\\f",
                                 u"C:\\..\\work\\sub\\f"})
        EXPECT_TRUE(platform::access(path, 0)) << narrow(string(path));
    for (const char16_t* path : {u"", u"f", u"sub\\f\\", u"D:\\work\\sub\\f", u"sub\\f\\g",
                                 u"\\\\work\\sub\\f", u"sub\\*"})
        EXPECT_FALSE(platform::access(path, 0)) << narrow(string(path));
    EXPECT_TRUE(platform::access(u"sub\\", 0));
    EXPECT_TRUE(platform::access(u"C:\\", 0));
}

TEST_F(machineTest, refusesWritingToAReadOnlyFile)
{
    here.addFile(u"f", "x", 1);
    EXPECT_TRUE(platform::access(u"f", 0));
    EXPECT_TRUE(platform::access(u"f", 4));
    EXPECT_FALSE(platform::access(u"f", 2));
    EXPECT_EQ(platform::openFile(u"f", platform::openMode::write), platform::noFile);
    EXPECT_FALSE(platform::createFile(u"f", 128));
    EXPECT_FALSE(platform::removeFile(u"f"));
    here.addFile(u"g", "y");
    EXPECT_FALSE(platform::copyFile(u"g", u"f", false));
    EXPECT_EQ(here.content(u"f"), "x");
}

TEST_F(machineTest, tellsTheStatusOfEntries)
{
    here.addFile(u"f", "1234");
    fileStatus status;
    EXPECT_TRUE(platform::queryStatus(u"f", status));
    EXPECT_EQ(status.mode & 16384, 0u);
    EXPECT_EQ(status.size, 4);
    EXPECT_EQ(status.modificationTime, here.clock);
    EXPECT_TRUE(platform::queryStatus(u"C:\\work\\", status));
    EXPECT_EQ(status.mode & 16384, 16384u);
    EXPECT_FALSE(platform::queryStatus(u"g", status));
}

TEST_F(machineTest, makesFilesOnlyWhereADirectoryIs)
{
    EXPECT_TRUE(platform::createFile(u"f", 128));
    EXPECT_TRUE(platform::createFile(u"r", 256));
    EXPECT_FALSE(platform::access(u"r", 2));
    for (const char16_t* path :
         {u"", u"missing\\f", u"C:\\work", u"g\\", u"a*b", u"a:b", u"Q:\\f"}) {
        EXPECT_FALSE(platform::createFile(path, 128)) << narrow(string(path));
        EXPECT_EQ(platform::openFile(path, platform::openMode::write), platform::noFile)
            << narrow(string(path));
    }
}

TEST_F(machineTest, emptiesAFileThatIsCreatedAgain)
{
    here.addFile(u"f", "x");
    EXPECT_TRUE(platform::createFile(u"f", 128));
    EXPECT_EQ(here.content(u"f"), "");
    EXPECT_TRUE(here.hasFile(u"f"));
}

TEST_F(machineTest, removesFilesAlone)
{
    here.addFile(u"f", "x");
    EXPECT_FALSE(platform::removeFile(u"C:\\work"));
    EXPECT_FALSE(platform::removeFile(u"g"));
    EXPECT_TRUE(platform::removeFile(u"f"));
    EXPECT_FALSE(here.hasFile(u"f"));
}

TEST_F(machineTest, neitherRemovesNorRenamesAnOpenFile)
{
    here.addFile(u"f", "x");
    const platform::fileHandle file = platform::openFile(u"f", platform::openMode::read);
    EXPECT_FALSE(platform::removeFile(u"f"));
    EXPECT_FALSE(platform::renameEntry(u"f", u"g"));
    platform::closeFile(file);
    EXPECT_TRUE(platform::renameEntry(u"f", u"g"));
    EXPECT_TRUE(platform::removeFile(u"g"));
}

TEST_F(machineTest, renamesNeverOverAnythingElse)
{
    here.addFile(u"f", "x");
    here.addFile(u"g", "y");
    here.addFile(u"d\\h", "z");
    EXPECT_FALSE(platform::renameEntry(u"f", u"g"));
    EXPECT_FALSE(platform::renameEntry(u"f", u"d"));
    EXPECT_FALSE(platform::renameEntry(u"f", u"missing\\f"));
    EXPECT_FALSE(platform::renameEntry(u"missing", u"i"));
    EXPECT_FALSE(platform::renameEntry(u"d", u"d\\e"));
    EXPECT_TRUE(platform::renameEntry(u"f", u"F"));
    EXPECT_TRUE(platform::renameEntry(u"d\\", u"e"));
    EXPECT_TRUE(platform::renameEntry(u"F", u"e\\f"));
    EXPECT_EQ(here.files(), (names{u"C:\\work\\e\\f", u"C:\\work\\e\\h", u"C:\\work\\g"}));
}

TEST_F(machineTest, copiesContentAttributesAndTime)
{
    here.addFile(u"f", "x", 1);
    here.setModificationTime(u"f", 7);
    EXPECT_TRUE(platform::copyFile(u"f", u"g", true));
    EXPECT_EQ(here.content(u"g"), "x");
    EXPECT_FALSE(platform::access(u"g", 2));
    fileStatus status;
    EXPECT_TRUE(platform::queryStatus(u"g", status));
    EXPECT_EQ(status.modificationTime, 7);
    EXPECT_FALSE(platform::copyFile(u"f", u"g", true));
    EXPECT_FALSE(platform::copyFile(u"f", u"f", false));
    EXPECT_FALSE(platform::copyFile(u"f", u"C:\\work", false));
    EXPECT_FALSE(platform::copyFile(u"C:\\work", u"h", false));
    EXPECT_FALSE(platform::copyFile(u"missing", u"h", false));
}

TEST_F(machineTest, readsAndWritesInPieces)
{
    const platform::fileHandle out = platform::openFile(u"f", platform::openMode::write);
    EXPECT_EQ(platform::writeFile(out, "abc", 3), 3u);
    EXPECT_EQ(platform::writeFile(out, "de", 2), 2u);
    char bytes[8] = {};
    EXPECT_EQ(platform::readFile(out, bytes, 1), 0u);
    EXPECT_TRUE(platform::flushFile(out));
    EXPECT_EQ(here.openHandles(), 1u);
    platform::closeFile(out);
    EXPECT_EQ(here.openHandles(), 0u);
    EXPECT_EQ(here.content(u"f"), "abcde");

    const platform::fileHandle in = platform::openFile(u"f", platform::openMode::read);
    EXPECT_EQ(platform::readFile(in, bytes, 3), 3u);
    EXPECT_EQ(platform::readFile(in, bytes + 3, 5), 2u);
    EXPECT_EQ(platform::readFile(in, bytes, 5), 0u);
    EXPECT_EQ(platform::writeFile(in, "x", 1), 0u);
    EXPECT_STREQ(bytes, "abcde");
    platform::closeFile(in);
    EXPECT_EQ(platform::openFile(u"missing", platform::openMode::read), platform::noFile);
    EXPECT_EQ(platform::openFile(u"C:\\work", platform::openMode::read), platform::noFile);
}

TEST_F(machineTest, deliversHalfOfAShortTransfer)
{
    here.addFile(u"f", "abcdef");
    here.failCall("readFile", 1);
    EXPECT_EQ(readAll(u"f"), "");
    here.shortTransfers = true;
    char bytes[4];
    const platform::fileHandle in = platform::openFile(u"f", platform::openMode::read);
    here.failCall("readFile", 1);
    EXPECT_EQ(platform::readFile(in, bytes, 4), 2u);
    EXPECT_EQ(platform::readFile(in, bytes, 4), 4u);
    platform::closeFile(in);
    const platform::fileHandle out = platform::openFile(u"f", platform::openMode::write);
    here.failCall("writeFile", 1);
    EXPECT_EQ(platform::writeFile(out, "12345", 5), 2u);
    platform::closeFile(out);
    EXPECT_EQ(here.content(u"f"), "12");
}

TEST_F(machineTest, givesHitsInTheOrderOfTheirMaking)
{
    here.addFile(u"C:\\d\\z.x", "");
    here.addFile(u"C:\\d\\a.x", "");
    here.addDirectory(u"C:\\d\\m");
    EXPECT_EQ(hits(u"C:\\d\\*.*"), (names{u".", u"..", u"z.x", u"a.x", u"m"}));
    EXPECT_EQ(hits(u"C:\\d\\*.x"), (names{u"z.x", u"a.x"}));
    EXPECT_EQ(hits(u"C:\\d\\none"), names{});
    EXPECT_EQ(hits(u"C:\\missing\\*"), names{});
    EXPECT_EQ(hits(u"C:\\d\\a.x\\*"), names{});
    EXPECT_EQ(hits(u"C:\\d\\"), names{});
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(machineTest, givesTheWantedAttributesAlone)
{
    here.addFile(u"C:\\d\\f", "", 1 | 2 | 32);
    platform::searchHit hit;
    platform::findClose(platform::findFirst(u"C:\\d\\f", 2 | 4 | 16, hit));
    EXPECT_EQ(hit.attributes, 2u);
    platform::findClose(platform::findFirst(u"C:\\d", 63, hit));
    EXPECT_EQ(hit.attributes, 16u);
}

TEST_F(machineTest, keepsASearchGoingWhenEntriesComeAndGo)
{
    for (const char16_t* path : {u"C:\\d\\1", u"C:\\d\\2", u"C:\\d\\3"}) here.addFile(path, "");
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(u"C:\\d\\?", 0, hit);
    ASSERT_TRUE(platform::removeFile(u"C:\\d\\1"));
    ASSERT_TRUE(platform::removeFile(u"C:\\d\\2"));
    here.addFile(u"C:\\d\\4", "");
    names found;
    while (platform::findNext(search, hit)) found.push_back(hit.name);
    EXPECT_EQ(found.back(), string(u"4"));
    EXPECT_EQ(found[found.size() - 2], string(u"3"));
    platform::findClose(search);
}

TEST(pattern, matchesAsWindowsDoes)
{
    struct row {
        const char16_t* pattern;
        const char16_t* name;
        bool matches;
    };
    constexpr row rows[] = {
        {u"*", u"a.b", true},
        {u"*.*", u"a.b", true},
        {u"*.*", u"a", true},
        {u"P1.*", u"p1.xml", true},
        {u"P1.*", u"P1", true},
        {u"P1.*", u"P1.a.b", true},
        {u"P1.*", u"P10.xml", false},
        {u"P1.*", u"P1x", false},
        {u"P1.*", u"P", false},
        {u"*.xml", u"a.xml", true},
        {u"*.xml", u"a.b.xml", true},
        {u"*.xml", u"a.xmlx", false},
        {u"*.xml", u".xml", true},
        {u"*.xml", u"xml", false},
        {u"?.x", u"a.x", true},
        {u"?.x", u"ab.x", false},
        {u"a?", u"a", true},
        {u"a?b", u"acb", true},
        {u"a?b", u"a.b", false},
        {u"a", u"A", true},
        {u"a", u"ab", false},
        {u"", u"", true},
        {u"", u"a", false},
        {u"a*c*e", u"abcde", true},
        {u"a*c*e", u"abcdf", false},
        {u"a.", u"a", false},
        {u"\u00e4", u"\u00c4", false},
    };
    for (const row& row : rows)
        EXPECT_EQ(matchesPattern(row.pattern, row.name), row.matches)
            << narrow(string(row.pattern)) << " and " << narrow(string(row.name));
}

TEST_F(machineTest, knowsItsDrives)
{
    here.driveTypes[u'N'] = 4;
    EXPECT_EQ(platform::driveType(u"C:\\"), 3u);
    EXPECT_EQ(platform::driveType(u"n:\\"), 4u);
    EXPECT_EQ(platform::driveType(u"E:\\"), 1u);
    here.addDirectory(u"E:\\");
    EXPECT_EQ(platform::driveType(u"E:\\"), 3u);
    EXPECT_EQ(platform::currentDrive(), 3);
}

TEST_F(machineTest, decodesUtf8AndWindows1252)
{
    char16_t units[8];
    EXPECT_EQ(platform::decode(platform::encoding::utf8, "\xC3\xA4z", 3, units), 2u);
    EXPECT_EQ(string(units, 2), string(u"\u00e4z"));
    for (const platform::encoding from : {platform::encoding::ansi, platform::encoding::unmarked}) {
        EXPECT_EQ(platform::decode(from, "a\x80\x9F\xE4\x81", 5, units), 5u);
        EXPECT_EQ(string(units, 5), string(u"a\u20AC\u0178\u00E4\u0081"));
    }
    char bytes[8];
    EXPECT_EQ(platform::encodeUtf8(u"\u20ACz", 2, bytes), 4u);
    EXPECT_EQ(std::memcmp(bytes, "\xE2\x82\xACz", 4), 0);
}

TEST_F(machineTest, tellsItsSurroundings)
{
    string text(u"old");
    EXPECT_TRUE(platform::currentDirectory(text));
    EXPECT_EQ(text, string(u"C:\\work"));
    EXPECT_FALSE(platform::environmentVariable(u"X", text));
    EXPECT_EQ(text, string());
    here.environment[u"Path"] = u"value";
    EXPECT_TRUE(platform::environmentVariable(u"PATH", text));
    EXPECT_EQ(text, string(u"value"));
    EXPECT_TRUE(platform::userDecimalSeparator(text));
    EXPECT_EQ(text, string(u"."));
    here.systemSeparator = u",";
    EXPECT_TRUE(platform::systemDecimalSeparator(text));
    EXPECT_EQ(text, string(u","));
    EXPECT_EQ(platform::processId(), 4242u);
}

TEST_F(machineTest, cutsTheCurrentDirectoryAt259Units)
{
    string text;
    here.workingDirectory = string(std::u16string(259, u'x'));
    EXPECT_TRUE(platform::currentDirectory(text));
    here.workingDirectory.push_back(u'x');
    EXPECT_FALSE(platform::currentDirectory(text));
}

TEST_F(machineTest, knowsItsModules)
{
    char16_t units[255];
    here.modules[u"m"] = u"C:\\m.dll";
    EXPECT_EQ(platform::modulePath(platform::findModule(u"m"), units, 255), 8u);
    EXPECT_EQ(string(units, 8), string(u"C:\\m.dll"));
    EXPECT_EQ(platform::modulePath(platform::findModule(u"m"), units, 3), 3u);
    const std::size_t length = platform::modulePath(nullptr, units, 255);
    EXPECT_EQ(string(units, length), string(u"C:\\tool\\bin\\tavenMorrel.exe"));
    EXPECT_NE(platform::findModule(u""), nullptr);
    EXPECT_EQ(platform::findModule(u"n"), nullptr);
    EXPECT_EQ(platform::modulePath(units, units, 255), 0u);
}

TEST_F(machineTest, keepsTheBoxesAndWindows)
{
    here.windows = {{7, nullptr, stranger()}, {8, stranger(), nullptr}};
    std::vector<platform::window> seen;
    const auto visit = [](platform::window found, void* list) {
        static_cast<std::vector<platform::window>*>(list)->push_back(found);
        return true;
    };
    EXPECT_TRUE(platform::enumerateWindows(visit, &seen));
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(platform::windowProcess(seen[0]), 7u);
    EXPECT_EQ(platform::lastActivePopup(seen[0]), stranger());
    EXPECT_EQ(platform::parentWindow(seen[1]), stranger());
    EXPECT_EQ(platform::windowProcess(stranger()), 0u);
    platform::showMessageBox(seen[0], u"text", u"title", 5);
    ASSERT_EQ(here.boxTexts(), (names{u"text"}));
    EXPECT_EQ(here.boxes[0].title, string(u"title"));
    EXPECT_EQ(here.boxes[0].style, 5u);
    EXPECT_EQ(here.boxes[0].owner, seen[0]);
}

TEST_F(machineTest, endsByAnException)
{
    EXPECT_THROW(platform::endAbnormally(), machine::ended);
}

TEST_F(machineTest, turnsDaysIntoSecondsAndBack)
{
    struct row {
        std::tm fields;
        std::int64_t seconds;
    };
    const auto time = [](int year, int month, int day, int hour, int minute, int second) {
        std::tm fields{};
        fields.tm_year = year - 1900;
        fields.tm_mon = month - 1;
        fields.tm_mday = day;
        fields.tm_hour = hour;
        fields.tm_min = minute;
        fields.tm_sec = second;
        return fields;
    };
    const row rows[] = {
        {time(1970, 1, 1, 0, 0, 0), 0},
        {time(2000, 2, 29, 0, 0, 0), 951782400},
        {time(2024, 3, 5, 12, 0, 0), 1709640000},
        {time(2024, 2, 30, 0, 0, 0), 1709251200}, // the first of March
        {time(2023, 13, 1, 0, 0, 0), 1704067200}, // the next January
        {time(2024, 1, 0, 24, 0, 0), 1704067200},
        {time(2024, 1, 1, 0, -1, 60), 1704067200},
        {time(1969, 12, 31, 23, 59, 59), -1},
        {time(3000, 12, 31, 23, 59, 59), 32535215999},
        {time(3001, 1, 1, 0, 0, 0), -1},
    };
    for (row row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(platform::secondsOf(row.fields), row.seconds);
        std::tm back{};
        ASSERT_EQ(platform::localTime(row.seconds, back), row.seconds >= 0);
        if (row.seconds < 0) continue;
        EXPECT_EQ(back.tm_year, row.fields.tm_year);
        EXPECT_EQ(back.tm_yday, row.fields.tm_yday);
        EXPECT_EQ(back.tm_hour, row.fields.tm_hour);
    }
}

TEST_F(machineTest, showsLocalTime)
{
    char text[32];
    std::tm local{};
    here.timeZoneOffset = -3600;
    EXPECT_TRUE(platform::localTime(here.clock, local));
    EXPECT_EQ(platform::formatTime(text, sizeof text, "%c", local), 24u);
    EXPECT_STREQ(text, "Tue Mar  5 11:00:00 2024");
    EXPECT_EQ(platform::formatTime(text, 24, "%c", local), 0u);
    here.timeText = "any";
    EXPECT_EQ(platform::formatTime(text, sizeof text, "%c", local), 3u);
    EXPECT_STREQ(text, "any");
}

TEST_F(machineTest, keepsTheTimeLocale)
{
    string name;
    EXPECT_TRUE(platform::setTimeLocale(u""));
    EXPECT_TRUE(platform::queryTimeLocale(name));
    EXPECT_EQ(name, here.userTimeLocale);
    EXPECT_TRUE(platform::setTimeLocale(u"C"));
    EXPECT_EQ(here.timeLocale, string(u"C"));
}

TEST_F(machineTest, recordsEachCall)
{
    platform::access(u"C:\\a", 0);
    platform::now();
    platform::access(u"C:\\b", 0);
    ASSERT_EQ(here.calls.size(), 3u);
    EXPECT_EQ(here.calls[2].operation, "access");
    EXPECT_EQ(here.calls[2].subject, string(u"C:\\b"));
    EXPECT_EQ(here.countCalls("access"), 2u);
    EXPECT_EQ(here.countCalls("now"), 1u);
}

TEST_F(machineTest, failsTheNthCallAlone)
{
    platform::access(u"C:\\work", 0);
    here.failCall("access", 2);
    EXPECT_TRUE(platform::access(u"C:\\work", 0));
    EXPECT_EQ(platform::now(), here.clock);
    EXPECT_TRUE(here.faultsPending());
    EXPECT_FALSE(platform::access(u"C:\\work", 0));
    EXPECT_FALSE(here.faultsPending());
    EXPECT_TRUE(platform::access(u"C:\\work", 0));
}

TEST_F(machineTest, countsAllOperationsForAFaultWithoutName)
{
    here.failCall("", 3);
    platform::now();
    EXPECT_TRUE(platform::access(u"C:\\work", 0));
    EXPECT_EQ(platform::currentDrive(), 0);
    EXPECT_TRUE(platform::access(u"C:\\work", 0));
}

TEST_F(machineTest, canFailEveryCallThatCanTellIt)
{
    here.addFile(u"f", "abc");
    here.environment[u"X"] = u"y";
    here.windows = {{1, stranger(), stranger()}};
    const platform::window window = reinterpret_cast<platform::window>(std::uintptr_t{1});
    void* const mutex = platform::createMutex();
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(u"*", 0, hit);
    const platform::fileHandle in = platform::openFile(u"f", platform::openMode::read);
    const platform::fileHandle out = platform::openFile(u"o", platform::openMode::write);
    char bytes[32];
    char16_t wide[8];
    string text;
    std::tm time{};
    time.tm_year = 100;
    fileStatus status;

    struct row {
        const char* operation;
        std::function<bool()> works;
    };
    const row rows[] = {
        {"access", [&] { return platform::access(u"f", 0); }},
        {"queryStatus", [&] { return platform::queryStatus(u"f", status); }},
        {"createFile", [&] { return platform::createFile(u"new", 128); }},
        {"copyFile", [&] { return platform::copyFile(u"f", u"copy", false); }},
        {"renameEntry", [&] { return platform::renameEntry(u"copy", u"copy2"); }},
        {"removeFile", [&] { return platform::removeFile(u"copy2"); }},
        {"driveType", [&] { return platform::driveType(u"C:\\") == 3; }},
        {"findFirst",
         [&] {
             const platform::searchHandle other = platform::findFirst(u"*", 0, hit);
             platform::findClose(other);
             return other != platform::noSearch;
         }},
        {"findNext", [&] { return platform::findNext(search, hit); }},
        {"openFile",
         [&] {
             const platform::fileHandle other = platform::openFile(u"f", platform::openMode::read);
             platform::closeFile(other);
             return other != platform::noFile;
         }},
        {"readFile", [&] { return platform::readFile(in, bytes, 1) == 1; }},
        {"writeFile", [&] { return platform::writeFile(out, "x", 1) == 1; }},
        {"flushFile", [&] { return platform::flushFile(out); }},
        {"decode", [&] { return platform::decode(platform::encoding::utf8, "a", 1, wide) == 1; }},
        {"encodeUtf8", [&] { return platform::encodeUtf8(u"a", 1, bytes) == 1; }},
        {"currentDirectory", [&] { return platform::currentDirectory(text); }},
        {"currentDrive", [&] { return platform::currentDrive() == 3; }},
        {"environmentVariable", [&] { return platform::environmentVariable(u"X", text); }},
        {"findModule", [&] { return platform::findModule(u"") != nullptr; }},
        {"modulePath", [&] { return platform::modulePath(nullptr, wide, 8) == 8; }},
        {"processId", [&] { return platform::processId() != 0; }},
        {"enumerateWindows",
         [&] {
             return platform::enumerateWindows([](platform::window, void*) { return true; },
                                               nullptr);
         }},
        {"windowProcess", [&] { return platform::windowProcess(window) == 1; }},
        {"parentWindow", [&] { return platform::parentWindow(window) != nullptr; }},
        {"lastActivePopup", [&] { return platform::lastActivePopup(window) != nullptr; }},
        {"showMessageBox",
         [&] {
             const std::size_t before = here.boxes.size();
             platform::showMessageBox(nullptr, u"a", u"b", 0);
             return here.boxes.size() == before + 1;
         }},
        {"createMutex",
         [&] {
             void* other = platform::createMutex();
             platform::destroyMutex(other);
             return other != nullptr;
         }},
        {"lockMutex",
         [&] {
             const bool locked = platform::lockMutex(mutex);
             platform::unlockMutex(mutex); // harmless where it is not held
             return locked;
         }},
        {"now", [&] { return platform::now() != -1; }},
        {"secondsOf", [&] { return platform::secondsOf(time) != -1; }},
        {"localTime", [&] { return platform::localTime(0, time); }},
        {"queryTimeLocale", [&] { return platform::queryTimeLocale(text); }},
        {"setTimeLocale", [&] { return platform::setTimeLocale(u""); }},
        {"formatTime", [&] { return platform::formatTime(bytes, sizeof bytes, "%c", time) != 0; }},
        {"userDecimalSeparator", [&] { return platform::userDecimalSeparator(text); }},
        {"systemDecimalSeparator", [&] { return platform::systemDecimalSeparator(text); }},
    };
    for (const row& row : rows) {
        SCOPED_TRACE(row.operation);
        here.failCall(row.operation, 1);
        EXPECT_FALSE(row.works());
        EXPECT_FALSE(here.faultsPending());
        EXPECT_TRUE(row.works());
    }
    platform::findClose(search);
    platform::closeFile(in);
    platform::closeFile(out);
    platform::destroyMutex(mutex);
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(machineTest, doesTheWorkOfCallsThatCannotFail)
{
    here.addFile(u"f", "");
    platform::searchHit hit;
    const platform::searchHandle search = platform::findFirst(u"*", 0, hit);
    const platform::fileHandle file = platform::openFile(u"f", platform::openMode::read);
    here.failCall("findClose", 1);
    here.failCall("closeFile", 1);
    platform::findClose(search);
    platform::closeFile(file);
    EXPECT_EQ(here.openHandles(), 0u);
}

TEST_F(machineTest, letsOneThreadAtATimeHoldAMutex)
{
    void* const mutex = platform::createMutex();
    int counter = 0;
    const auto count = [&] {
        for (int i = 0; i < 500; ++i) {
            platform::lockMutex(mutex);
            platform::lockMutex(mutex); // once more by the same thread
            ++counter;
            platform::unlockMutex(mutex);
            ++counter;
            platform::unlockMutex(mutex);
        }
    };
    std::thread other(count);
    count();
    other.join();
    platform::destroyMutex(mutex);
    EXPECT_EQ(counter, 2000);
    EXPECT_EQ(here.countCalls("lockMutex"), 2000u);
}

TEST_F(machineTest, takesCallsFromSeveralThreads)
{
    const auto work = [](char16_t name) {
        for (int i = 0; i < 200; ++i) {
            const string path = u"C:\\work\\" + string(name);
            platform::createFile(path, 128);
            platform::access(path, 0);
            platform::removeFile(path);
        }
    };
    std::thread other(work, u'a');
    work(u'b');
    other.join();
    EXPECT_EQ(here.calls.size(), 1200u);
    EXPECT_TRUE(here.files().empty());
}

} // namespace machineTest
