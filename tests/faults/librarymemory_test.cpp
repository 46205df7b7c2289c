// Every request of memory of every operation of the library is refused in turn.
#include "faults/rounds.h"

#include "orlogeopoint.h"
#include "orlolanguagetable.h"
#include "orlolocfile.h"
#include "orlolocstring.h"
#include "orlologger.h"
#include "orlomodule.h"
#include "orlopath.h"
#include "orloreport.h"
#include "orlosearchpath.h"
#include "orlotextformat.h"
#include "orloxmldocument.h"
#include "support/languagefile.h"

#include <array>
#include <cstdlib>
#include <functional>
#include <optional>

namespace librarymemoryTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

string same(const string& text)
{
    return text;
}

// An operation that changes a text, or gives one.
struct textRow {
    const char* name;
    string before;
    std::function<void(string&)> change;
};

void runRows(const std::vector<textRow>& rows)
{
    for (const textRow& row : rows)
        faultRounds(
            row.name, [&row] { return row.before; }, row.change, same)
            .run();
}

string unitsOf(std::size_t count)
{
    return std::u16string(count, u'x');
}

const string longText = u"a text that does not fit into its own object";

string joined(const std::vector<string>& texts)
{
    string all;
    for (const string& each : texts) all.append(each).push_back(u'|');
    return all;
}

class libraryMemory : public languageTest {};

} // namespace

// --- Texts -----------------------------------------------------------------------------------

TEST(textMemory, stringsStayWholeWhereNoMemoryIsLeft)
{
    runRows({
        {"from units", longText,
         [](string& text) { text = string(u"another text of some length"); }},
        {"from bytes", longText,
         [](string& text) { text = string("another text of some length"); }},
        {"from a unit and more", longText, [](string& text) { text = string(u'x') + longText; }},
        {"append", longText, [](string& text) { text.append(longText); }},
        {"insert", longText, [](string& text) { text.insert(2, longText); }},
        {"insert units", longText, [](string& text) { text.insert(2, 200, u'x'); }},
        {"replace", longText, [](string& text) { text.replace(2, 1, longText); }},
        {"substr", longText, [](string& text) { text = text.substr(1); }},
        {"reserve", longText, [](string& text) { text.reserve(1000); }},
        {"resize", longText, [](string& text) { text.resize(1000, u'x'); }},
        {"lowerCopy", longText, [](string& text) { text = text.lowerCopy(); }},
        {"replaceAll", longText, [](string& text) { text.replaceAll(u"t", u"a longer piece"); }},
        {"setNumber", longText, [](string& text) { text = string().setNumber(123456789.125); }},
        {"text and text", longText, [](string& text) { text = text + longText; }},
        {"text and units", longText, [](string& text) { text = text + u" and more of it"; }},
        {"units and text", longText, [](string& text) { text = u"more of it and " + text; }},
        {"formatText", longText,
         [](string& text) {
             const formatArgument argument(longText);
             string formatted;
             formatText(formatted, u"%60s", {&argument, 1});
             text.swap(formatted);
         }},
    });
}

TEST(textMemory, piecesOfASplitTextAreCompleteOrNotThere)
{
    faultRounds(
        "split", [] { return std::vector<string>(); },
        [](std::vector<string>& pieces) {
            std::vector<string> made;
            string(u"a first long piece,a second long piece,a third long piece").split(u",", made);
            pieces.swap(made);
        },
        joined)
        .run();
}

TEST(textMemory, entitiesLeaveByTheFailureAlone)
{
    for (const bool encode : {true, false}) {
        faultRounds(
            encode ? "encodeEntities" : "decodeEntities",
            [] { return string(u"&amp;&lt;<a text & more> of 'some' \"length\"&#x41;&gt;"); },
            [encode](string& text) { encode ? encodeEntities(text) : decodeEntities(text); }, same)
            .mayStopHalfWay()
            .run();
    }
}

TEST(textMemory, templatesAreFilledOrStayOpen)
{
    const auto view = [](const stringTemplate& text) { return text.text(); };
    const auto make = [] { return stringTemplate(u"a place for [name] in a longer text"); };
    faultRounds(
        "text", make, [](stringTemplate& text) { text.insertValue(longText.c_str(), u"name"); },
        view)
        .run();
    faultRounds(
        "number", make, [](stringTemplate& text) { text.insertValue(123456789.0, u"name"); }, view)
        .run();
    faultRounds(
        "copy", make,
        [](stringTemplate& text) { text = stringTemplate(stringTemplate(longText.c_str())); }, view)
        .run();
    faultRounds(
        "very wide", [] { return stringTemplate(u"[name:%2000d]"); },
        [](stringTemplate& text) { text.insertValue(7L, u"name"); }, view)
        .run();
    faultRounds(
        "setText", [] { return stringTemplate(u"x"); },
        [](stringTemplate& text) { text.setText(longText.c_str()); }, view)
        .run();
}

TEST(textMemory, aSeverityFailsByTheLibrarysOwnException)
{
    machine::renew();
    faultRounds(
        "severity", [] { return stringTemplate(u"x"); },
        [](stringTemplate& text) { text.setText(u"E:y"); },
        [](const stringTemplate& text) { return text.text(); })
        .leavesBy(outcome::outOfMemory)
        .run();
}

// --- Paths and files -------------------------------------------------------------------------

TEST(pathMemory, pathsAreGivenWholeOrNotAtAll)
{
    machine::renew().environment[u"SOMEWHERE"] = u"C:\\a place of some length";
    const string path = u"C:\\some directory\\another directory\\a name of some length.extension";
    runRows({
        {"normalizePath", longText,
         [](string& text) {
             text = normalizePath(u"one directory/../another directory//name", true);
         }},
        {"normalizePath with a variable", longText,
         [](string& text) { text = normalizePath(u"%SOMEWHERE%\\x", true); }},
        {"combinePath", path,
         [](string& text) { text = combinePath(text, u"..\\below\\another name", false); }},
        {"ensureTrailingSeparator", unitsOf(15),
         [](string& text) { ensureTrailingSeparator(text); }},
        {"pathRoot", u"\\\\a server\\a shared folder\\x",
         [](string& text) { text = pathRoot(text); }},
        {"pathExtension", path, [](string& text) { text = pathExtension(text); }},
        {"pathName", path, [](string& text) { text = pathName(text); }},
        {"pathDirectory", path, [](string& text) { text = pathDirectory(text); }},
        {"splitPath", path,
         [](string& text) {
             std::array<string, 4> parts;
             splitPath(text, parts[0], parts[1], parts[2], parts[3], true);
             text = parts[0] + parts[1] + parts[2] + parts[3];
         }},
        {"getEnvironmentVariable", u"",
         [](string& text) {
             string value;
             text = getEnvironmentVariable((u"SOME" + string(u"WHERE")).c_str(), value) ? value
                                                                                        : longText;
         }},
    });
}

TEST(pathMemory, entriesKeepTheirPaths)
{
    machine::renew();
    const string place = u"C:\\some directory\\another directory";
    const auto view = [](const fsEntry& entry) { return entry.path(); };
    const auto makeFile = [&] { return file(place); };
    const auto makeDirectory = [&] { return directory(place); };
    faultRounds(
        "file from two", makeFile, [&](file& entry) { entry = file(place, longText); }, view)
        .run();
    faultRounds(
        "file of an entry", makeFile, [](file& entry) { entry = file(entry, longText); }, view)
        .run();
    faultRounds(
        "file setPath", makeFile, [](file& entry) { entry.setPath(unitsOf(200)); }, view)
        .run();
    faultRounds(
        "directory from two", makeDirectory,
        [&](directory& entry) { entry = directory(place, longText); }, view)
        .run();
    // The path alone fills its room, so that the separator has to ask for more.
    const string longer = u"C:\\" + unitsOf(60);
    faultRounds(
        "directory setPath", [] { return directory(); },
        [&](directory& entry) { entry.setPath(longer); }, view)
        .run();
    faultRounds(
        "isRemote", makeFile, [](file& entry) { static_cast<void>(entry.isRemote()); }, view)
        .run();
}

namespace {

void addSampleFiles()
{
    machine& here = machine::renew();
    for (const char16_t* name :
         {u"a first file.txt", u"a second file.txt", u"a third file.txt", u"other"})
        here.addFile(u"C:\\a directory of files\\" + string(name), "x");
    here.addFile(u"C:\\a directory of files\\a directory below\\deep file.txt", "x");
}

} // namespace

TEST(fileMemory, renamingMovesBothTheFileAndTheEntryOrNone)
{
    const auto make = [] {
        addSampleFiles();
        return file(string(u"C:\\a directory of files\\a first file.txt"));
    };
    faultRounds(
        "rename", make, [](file& entry) { entry.rename(u"a new name of some length.txt"); },
        [](const file& entry) { return joined(machine::current().files()) + entry.path(); })
        .run();
}

TEST(fileMemory, searchesEndByTheFailureWithNothingOpen)
{
    const directory where(string(u"C:\\a directory of files"));
    const auto make = [] {
        addSampleFiles();
        return string();
    };
    const auto view = [](const string& text) {
        EXPECT_EQ(machine::current().openHandles(), 0u);
        return text;
    };
    const auto walkFiles = [&where](string& all) {
        string found;
        for (auto hit = where.findFiles(u"*.txt", skipHiddenAndSystem); !hit.path().empty();
             hit.next())
            found.append(hit.path());
        all.swap(found);
    };
    const auto walkDirectories = [&where](string& all) {
        string found;
        for (auto hit = where.findDirectories(u"*.*", skipHiddenAndSystem); !hit.path().empty();
             hit.next())
            found.append(hit.path());
        all.swap(found);
    };
    const auto findDeep = [&where](string& all) {
        searchPath places;
        places.addDirectory(where);
        file found;
        if (places.findFile(u"deep file.txt", found, true)) all = found.path();
    };
    faultRounds("findFiles", make, walkFiles, view).run();
    faultRounds("findDirectories", make, walkDirectories, view).run();
    faultRounds("searchPath::findFile", make, findDeep, view).run();
}

TEST(fileMemory, directoriesAreRenamedWholly)
{
    const auto make = [] {
        addSampleFiles();
        return directory(string(u"C:\\a directory of files"));
    };
    faultRounds(
        "directory::rename", make,
        [](directory& entry) { entry.rename(u"a new name of some length"); },
        [](const directory& entry) { return joined(machine::current().files()) + entry.path(); })
        .run();
}

TEST(fileMemory, theModulesFolderIsFoundOrKept)
{
    machine::renew();
    faultRounds(
        "getModuleDirectory", [] { return directory(string(u"C:\\before")); },
        [](directory& folder) { getModuleDirectory(string::emptyString(), folder); },
        [](const directory& folder) { return folder.path(); })
        .run();
}

// --- Conversions -----------------------------------------------------------------------------

namespace {

string textOf(const string& text)
{
    return text;
}

template <class Value>
string textOf(const Value& value)
{
    string text;
    EXPECT_TRUE(typeconvert::convert(text, value));
    return text;
}

template <class To, class From>
void runConversion(const char* name, const To& before, const From& from)
{
    const auto view = [](const To& value) { return textOf(value); };
    faultRounds(
        name, [&] { return before; }, [&](To& to) { typeconvert::convert(to, from); }, view)
        .run();
}

} // namespace

TEST(conversionMemory, aFailedConversionLeavesItsTargetAlone)
{
    machine::renew();
    const string shortText = u"before"; // which leaves no room for a longer one
    runConversion("file to text", shortText, file(string(u"C:\\some directory\\a name")));
    runConversion("directory to text", shortText, directory(string(u"C:\\some directory")));
    runConversion("text to file", file(string(u"C:\\before")), string(u"some directory\\a name"));
    runConversion("text to directory", directory(string(u"C:\\before\\")),
                  string(u"C:/some directory"));
    runConversion("file to directory", directory(string(u"C:\\before\\")),
                  file(string(u"C:\\some directory")));
    runConversion("point to text", shortText, orloGeo::point3d(1.25, 2.25, 3.25));
    runConversion("narrow text to text", shortText, std::string("a text of some length"));
}

TEST(conversionMemory, aNumberThatFindsNoRoomForItsTextGivesFalse)
{
    machine::renew();
    for (const unsigned flags : {0u, unsigned{typeconvert::localeNumbers}}) {
        string text = u"before";
        const allocationFault fault(1);
        EXPECT_FALSE(typeconvert::convert(text, 1234567890.12345678, flags));
        EXPECT_TRUE(fault.hasHappened());
        EXPECT_EQ(text, u"before");
    }
}

TEST(conversionMemory, aHolderThatFindsNoMemoryIsCopiedAsNull)
{
    const genericValue original = genericValue::of(longText);
    for (std::size_t nth : {1u, 2u}) {
        const allocationFault fault(nth);
        const genericValue copy(original);
        EXPECT_TRUE(fault.hasHappened());
        EXPECT_EQ(copy.get(), nullptr) << nth;
        EXPECT_NE(original.get(), nullptr);
    }
}

TEST(conversionMemory, aRefusedRegistrationLeavesNoTrace)
{
    static constexpr typeconvert::typeConverter<float, file> odd{nullptr};
    auto& registry = typeconvert::typeConverterRegistry::instance();
    const std::size_t before = registry.size();
    {
        const allocationFault fault(1);
        EXPECT_THROW(registry.registerConverter(&odd), std::bad_alloc);
    }
    EXPECT_EQ(registry.size(), before);
}

// --- Texts for people ------------------------------------------------------------------------

TEST_F(libraryMemory, internedTextsFailByTheAssertionAndThenByTheEmptyEntry)
{
    const auto assertion = [](const string& line) {
        return u"Assertion failed:\npString\n\nFile: libs/utils/src/orloscstring\nLine: " + line;
    };
    const auto intern = [] {
        static_cast<void>(scstring(u"a text that nobody has interned before"));
    };
    const auto shown = [] { return machine::current().boxTexts(); };
    static_cast<void>(scstring(u"the pool itself is there"));
    {
        const allocationFault beforeTheEntry(1);
        EXPECT_EQ(outcomeOf(intern), outcome::plainFalse);
    }
    EXPECT_EQ(shown(), std::vector<string>{assertion(u"114")});
    {
        const allocationFault behindTheEntry(3);
        EXPECT_EQ(outcomeOf(intern), outcome::plainFalse);
    }
    EXPECT_EQ(outcomeOf(intern), outcome::plainFalse);
    EXPECT_EQ(shown(),
              (std::vector<string>{assertion(u"114"), assertion(u"114"), assertion(u"127")}));
}

// What is made on first use, in a process that has not used it yet.
TEST(firstUseDeathTest, ofThePoolTakesNoMemoryButThatOfTheText)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto internWithoutMemory = [] {
        machine::renew();
        const allocationFault fault(1);
        const outcome ended = outcomeOf([] { static_cast<void>(scstring(u"a text")); });
        const auto shown = machine::current().boxTexts();
        const bool told = shown.size() == 1 && shown[0].ends_with(u"Line: 114");
        std::_Exit(ended == outcome::plainFalse && told ? 0 : 1);
    };
    EXPECT_EXIT(internWithoutMemory(), testing::ExitedWithCode(0), "");
}

TEST(firstUseDeathTest, ofTheTableWithoutMemoryLeavesOneThatThrowsAPlainFalse)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto useTableWithoutRecord = [] {
        const auto setLanguage = [] { languageTable::instance().setLanguage(u"english"); };
        const auto lookUp = [](const char16_t* key) {
            stringTemplate text;
            return languageTable::instance().lookup(locStringId(key, u"text"), text, nullptr);
        };
        machine::renew();
        const bool refusedAtFirst = [&] {
            const allocationFault fault(1);
            return outcomeOf(setLanguage) == outcome::plainFalse;
        }();
        const bool refusedLater = outcomeOf(setLanguage) == outcome::plainFalse &&
                                  outcomeOf([&] { lookUp(u"key"); }) == outcome::plainFalse;
        const bool emptyKeyNeedsNone = !lookUp(u"");
        std::_Exit(refusedAtFirst && refusedLater && emptyKeyNeedsNone ? 0 : 1);
    };
    EXPECT_EXIT(useTableWithoutRecord(), testing::ExitedWithCode(0), "");
}

TEST_F(libraryMemory, localisedTextsAreRenderedOrTheFailurePasses)
{
    const auto make = [] {
        return locString(u"a key of some length", u"a default text with [a parameter]",
                         u"some language.loc");
    };
    const auto view = [](const locString& text) { return string(text.getText()); };
    faultRounds(
        "setParam", make,
        [](locString& text) { text.setParam(u"a value of some length", u"a parameter"); }, view)
        .mayDoWithout()
        .run();
    faultRounds(
        "copy", make,
        [](locString& text) { text = locString(locString(u"another key", longText.c_str())); },
        view)
        .run();
    faultRounds(
        "getText", make, [](locString& text) { static_cast<void>(text.getText()); }, view)
        .run();
    faultRounds(
        "getKey", [] { return string(); },
        [&make](string& key) {
            string made;
            make().getLocStringId().getKey(made);
            key.swap(made);
        },
        same)
        .run();
}

TEST_F(libraryMemory, aLanguageIsSetWithItsListenersToldOrNotAtAll)
{
    static string told;
    const auto listener = [](const char16_t* before, const char16_t* now) {
        const allocationPause ownMemory;
        told = string(before) + u"," + now;
    };
    addLanguageFile(u"C:\\tool\\config\\Language\\the language before\\memory.loc",
                    u"key before\n");
    addLanguageFile(u"C:\\tool\\config\\Language\\the language behind\\memory.loc",
                    u"key behind\n");
    languageTable& table = languageTable::instance();
    table.addListener(listener);
    const auto make = [&table] {
        table.setLanguage(u"the language before");
        told.clear();
        return 0;
    };
    // The text shows which language the table holds.
    const auto view = [](int) {
        return told + u":" + locString(u"key", u"none", u"memory.loc").getText();
    };
    faultRounds(
        "setLanguage", make, [&table](int) { table.setLanguage(u"the language behind"); }, view)
        .run();
    table.removeListener(listener);
}

namespace {

string lookedUp(locFile& file, const char16_t* key)
{
    stringTemplate text;
    return file.lookup(key, text) ? text.text() : string(u"(none)");
}

void addLanguageFiles()
{
    addLanguageFile(u"C:\\l\\main file.loc",
                    u"#include other file.loc\n;;cmd(replace:::old words:::new words)\n"
                    u"the first key some old words in a text\nthe second key $$third\n");
    addLanguageFile(u"C:\\l\\other file.loc", u"third a text of the other file\n");
    addLanguageFile(u"C:\\l\\over file.loc", u"fourth a text of the override file\n");
}

} // namespace

// What is told of exceptions while a file is read: the look-up fails, and the default text is
// shown. All else must be as if nothing had been tried.
TEST_F(libraryMemory, aLanguageFileIsReadWhollyOrFindsNothing)
{
    const auto make = [] {
        addLanguageFiles();
        auto made = std::make_optional<locFile>(file(string(u"C:\\l\\main file.loc")));
        made->setOverrideFile(file(string(u"C:\\l\\over file.loc")));
        return made;
    };
    faultRounds(
        "locFile",
        [] {
            addLanguageFiles();
            return std::optional<locFile>();
        },
        [](std::optional<locFile>& made) { made.emplace(file(string(u"C:\\l\\main file.loc"))); },
        [](const std::optional<locFile>& made) { return made ? made->path() : string(); })
        .run();
    faultRounds(
        "lookup", make, [](std::optional<locFile>& made) { lookedUp(*made, u"the"); },
        [](const std::optional<locFile>& made) {
            locFile copy(*made);
            return lookedUp(copy, u"the") + lookedUp(copy, u"third");
        })
        .run();
}

TEST_F(libraryMemory, commandsAndOverridesOfALanguageFileWorkWhollyOrAreTriedAgain)
{
    bool triedAgain = false;
    bool happened = true;
    for (std::size_t nth = 1; happened; ++nth) {
        addLanguageFiles();
        locFile loaded(file(string(u"C:\\l\\main file.loc")));
        loaded.setOverrideFile(file(string(u"C:\\l\\over file.loc")));
        stringTemplate text(u"a text that has room for the text of the override file");
        {
            const allocationFault fault(nth);
            EXPECT_EQ(outcomeOf([&] { loaded.lookup(u"fourth", text); }), outcome::done) << nth;
            happened = fault.hasHappened();
        }
        const std::size_t reads = machine::current().countCalls("openFile");
        const string fourth = lookedUp(loaded, u"fourth");
        if (machine::current().countCalls("openFile") == reads) continue; // what was read stays
        triedAgain = true;
        EXPECT_EQ(fourth, u"a text of the override file") << nth;
        EXPECT_EQ(lookedUp(loaded, u"the"), u"first key some new words in a text") << nth;
    }
    EXPECT_TRUE(triedAgain);
}

TEST_F(libraryMemory, anEntryOfTheTableNeverLacksItsOverrideFile)
{
    languageTable& table = languageTable::instance();
    table.setOverridePrefix(u"a prefix");
    bool failed = false;
    for (std::size_t nth = 1; nth < 400; ++nth) {
        // A file that the table has not seen.
        const string name = u"table" + string(static_cast<char16_t>(0x4E00 + nth)) + u".loc";
        addLanguageFile(u"C:\\tool\\bin\\" + name, u"key the main text\n");
        addLanguageFile(u"C:\\tool\\bin\\a prefix_" + name, u"key the text that overrides\n");
        const locString text(u"key", u"default", name.c_str());
        bool happened = false;
        outcome got = outcome::done;
        {
            const allocationFault fault(nth);
            got = outcomeOf([&] { static_cast<void>(text.getText()); });
            happened = fault.hasHappened();
        }
        if (!happened) break;
        if (got == outcome::done) continue; // a file that was read in part stays so
        failed = true;
        EXPECT_EQ(got, outcome::badAlloc);
        EXPECT_EQ(string(text.getText()), u"the text that overrides") << nth;
    }
    EXPECT_TRUE(failed);
}

TEST_F(libraryMemory, exceptionsAreMadeWholeOrTheFailureOfMemoryLeavesInstead)
{
    const file concerned(string(u"C:\\some directory\\a name"));
    const auto make = [] { return 0; };
    const auto view = [](int) { return string(); };
    const readFileException inner(concerned, nullptr);
    faultRounds(
        "fileNotFound", make, [&](int) { static_cast<void>(fileNotFoundException(concerned)); },
        view)
        .mayDoWithout()
        .run();
    faultRounds(
        "writeFile", make, [&](int) { static_cast<void>(writeFileException(concerned, &inner)); },
        view)
        .run();
    faultRounds(
        "unexpectedError", make,
        [&](int) { static_cast<void>(unexpectedErrorException(u"%s", longText)); }, view)
        .run();
    faultRounds(
        "outOfMemory", make, [&](int) { static_cast<void>(outOfMemoryException()); }, view)
        .run();
    faultRounds(
        "copy", make, [&](int) { static_cast<void>(readFileException(inner)); }, view)
        .run();
}

TEST_F(libraryMemory, aReportIsShownWithoutItsOwnerWhereNoMemoryIsLeft)
{
    machine& here = machine::current();
    here.windows.push_back({here.process, nullptr, &here});
    const allocationFault fault(1, allocationFault::lasting::forGood);
    reportMessage(u"%s", longText);
    const allocationPause looking;
    ASSERT_EQ(here.boxes.size(), 1u);
    EXPECT_EQ(here.boxes[0].text, longText);
    EXPECT_EQ(here.boxes[0].owner, nullptr);
}

TEST(loggerMemory, aLoggerIsMadeWithItsNameOrNotAtAll)
{
    using maybeLogger = refptr<orlolog::logger>;
    faultRounds(
        "logger", [] { return maybeLogger(); },
        [](maybeLogger& made) { made = orlolog::logger::create(longText, true, 1); },
        [](const maybeLogger& made) { return made ? made->name() : string(); })
        .run();
}

// --- Element trees ---------------------------------------------------------------------------

namespace {

using documentPointer = refptr<xmlDocument>;

string written(const documentPointer& document)
{
    string text;
    document->writeNode(text, string::emptyString());
    return text;
}

const char* const sample =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a name of some length='a value &amp; more of it'>"
    "a text of some length<child b=\"2\">another text &lt; that</child><e/></a>";

std::string wideDocument(int children)
{
    std::string text = "<a>";
    for (int child = 0; child < children; ++child) text += "<b/>";
    return text + "</a>";
}

documentPointer sampleTree()
{
    machine::renew();
    documentPointer document = xmlDocument::createDocument();
    document->parseBuffer(sample, std::char_traits<char>::length(sample), false);
    return document;
}

} // namespace

TEST(treeMemory, growsByWholeNodesAndAttributes)
{
    const auto make = [] { return sampleTree(); };
    faultRounds(
        "addChild", make,
        [](documentPointer& tree) { tree->addChild(u"a new child of some length"); }, written)
        .run();
    faultRounds(
        "new attribute", make,
        [](documentPointer& tree) {
            tree->setAttribute(u"a new one of them", u"a value of some length");
        },
        written)
        .run();
    faultRounds(
        "old attribute", make,
        [](documentPointer& tree) { tree->children[0]->setAttribute(u"b", longText); }, written)
        .run();
    faultRounds(
        "createNode", make, [](documentPointer&) { xmlNode::createNode(longText); }, written)
        .run();
    faultRounds(
        "createDocument", make, [](documentPointer&) { xmlDocument::createDocument(); }, written)
        .run();
}

TEST(treeMemory, readingFailsByTheLibrarysOwnException)
{
    machine::renew();
    for (const std::string& bytes : {std::string(sample), wideDocument(600), wideDocument(40000)}) {
        faultRounds(
            "parseBuffer", [] { return xmlDocument::createDocument(); },
            [&bytes](documentPointer& tree) {
                tree->parseBuffer(bytes.data(), bytes.size(), false);
            },
            written)
            .leavesBy(outcome::outOfMemory)
            .mayStopHalfWay()
            .run();
    }
}

TEST(treeMemory, loadingFailsByTheLibrarysOwnExceptionWithTheFileClosed)
{
    const file source(string(u"C:\\in.xml"));
    faultRounds(
        "load",
        [] {
            machine::renew().addFile(u"C:\\in.xml", sample);
            return xmlDocument::createDocument();
        },
        [&source](documentPointer& tree) { tree->load(source, false); },
        [](const documentPointer& tree) {
            EXPECT_EQ(machine::current().openHandles(), 0u);
            return written(tree);
        })
        .leavesBy(outcome::outOfMemory)
        .mayStopHalfWay()
        .run();
}

// Bytes of a text that could not be written to its end may stand in the buffer.
TEST(treeMemory, writingEndsByTheFailureAlone)
{
    for (const xmlEncoding encoding : {xmlEncoding::utf8, xmlEncoding::utf16}) {
        faultRounds(
            "writeBuffer", [] { return std::make_unique<byteBuffer>(); },
            [encoding, tree = sampleTree()](const std::unique_ptr<byteBuffer>& out) {
                tree->writeBuffer(*out, encoding);
            },
            [](const std::unique_ptr<byteBuffer>& out) {
                return string(std::string(out->data(), out->data() + out->size()).c_str());
            })
            .mayStopHalfWay()
            .run();
    }
}

TEST(treeMemory, aSaveThatFailsLeavesTheOldFileAsItWas)
{
    const auto make = [] {
        const documentPointer tree = sampleTree();
        machine::current().addFile(u"C:\\a directory\\an old file.xml", "old");
        return tree;
    };
    faultRounds(
        "save", make,
        [](const documentPointer& tree) {
            tree->save(file(string(u"C:\\a directory\\an old file.xml")), xmlEncoding::utf8);
        },
        [](const documentPointer& tree) {
            EXPECT_EQ(machine::current().openHandles(), 0u);
            return written(tree) +
                   string(machine::current().content(u"C:\\a directory\\an old file.xml").c_str());
        })
        .run();
}

TEST(treeMemory, aBufferGrowsOrStaysAsItIs)
{
    faultRounds(
        "byteBuffer", [] { return std::make_unique<byteBuffer>(); },
        [](const std::unique_ptr<byteBuffer>& out) { out->append("some bytes", 10); },
        [](const std::unique_ptr<byteBuffer>& out) {
            return string(std::string(out->data(), out->data() + out->size()).c_str());
        })
        .run();
}

} // namespace librarymemoryTest
