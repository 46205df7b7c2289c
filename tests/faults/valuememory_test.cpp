// Every request of memory is refused in turn: values, places to search, settings of the language
// table, and what else the large operations are made of.
#include "faults/rounds.h"

#include "orloexception.h"
#include "orlolanguagetable.h"
#include "orlolocstring.h"
#include "orlomodule.h"
#include "orloreport.h"
#include "orlosearchpath.h"
#include "orlotime.h"
#include "orloxmldocument.h"
#include "support/languagefile.h"

#include <cstddef>
#include <memory>

namespace valuememoryTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

const string longText = u"a text that does not fit into its own object";

class settingsMemory : public languageTest {};

template <class Value>
string textOf(const Value& value)
{
    string text;
    EXPECT_TRUE(typeconvert::convert(text, value));
    return text;
}

string pathOf(const fsEntry& entry)
{
    return entry.path();
}

} // namespace

// --- Places to search ------------------------------------------------------------------------

TEST(placeMemory, aSearchPathGrowsByWholeDirectories)
{
    const auto make = [] {
        machine& here = machine::renew();
        here.addDirectory(u"C:\\a first directory\\below it\\the wanted one");
        here.addDirectory(u"C:\\a second directory");
        searchPath places;
        places.addDirectory(directory(string(u"C:\\a first directory")));
        return places;
    };
    const auto view = [](const searchPath& places) {
        EXPECT_EQ(machine::current().openHandles(), 0u);
        return textOf(places);
    };
    const string list = u" C:\\a second directory ;; .\\none ; C:\\a first directory\\below it";
    const directory second(string(u"C:\\a second directory"));
    faultRounds(
        "addDirectory", make, [&](searchPath& places) { places.addDirectory(second); }, view)
        .run();
    faultRounds(
        "parse", make, [&](searchPath& places) { places.parse(list, second, u';'); }, view)
        .mayStopHalfWay()
        .run();
    faultRounds(
        "text to searchPath", make, [&](searchPath& places) { typeconvert::convert(places, list); },
        view)
        .mayStopHalfWay()
        .run();
}

TEST(placeMemory, aPlaceIsFoundOrTheOldOneStays)
{
    const auto make = [] {
        machine::renew().addDirectory(u"C:\\a first directory\\below it\\the wanted one");
        return directory(string(u"C:\\before"));
    };
    searchPath places;
    places.addDirectory(directory(string(u"C:\\a first directory")));
    faultRounds(
        "findInDirectories", make,
        [&places](directory& found) { places.findInDirectories(u"the wanted one", found, true); },
        pathOf)
        .run();
    faultRounds(
        "searchPath to text", [] { return string(u"before"); },
        [&places](string& text) { typeconvert::convert(text, places); },
        [](const string& text) { return text; })
        .run();
    faultRounds(
        "getModuleFile", [] { return file(string(u"C:\\before")); },
        [](file& found) { getModuleFile(getModuleHandle(string::emptyString()), found); }, pathOf)
        .run();
}

// --- Values ----------------------------------------------------------------------------------

TEST(valueMemory, textsOfTheCalendarAreWrittenAndReadWhollyOrNotAtAll)
{
    machine::renew();
    const auto toText = [](const char* name, const auto& value) {
        faultRounds(
            name, [] { return string(u"before"); },
            [&value](string& text) { typeconvert::convert(text, value); },
            [](const string& text) { return text; })
            .run();
    };
    toText("date to text", date(2024, 3, 5));
    toText("time to text", orlo::time(12, 30, 15, 7));
    toText("timestamp to text", timestamp(date(2024, 3, 5), orlo::time(12, 30, 15, 7)));

    faultRounds(
        "text to date", [] { return date(1, 2, 3); },
        [](date& day) { typeconvert::convert(day, string(u"'0000002024-0000003-0000005'")); },
        textOf<date>)
        .run();
    faultRounds(
        "text to time", [] { return orlo::time(1, 2, 3, 4); },
        [](orlo::time& day) {
            typeconvert::convert(day, string(u"0000000012:0000000030:0000000015"));
        },
        textOf<orlo::time>)
        .run();
}

TEST(valueMemory, holdersTakeNewValuesWhollyOrNotAtAll)
{
    const auto make = [] { return genericValue::of(string(u"before")); };
    const auto view = [](const genericValue& value) {
        const string* text = value.value<string>();
        return text != nullptr ? *text : string(u"(null)");
    };
    faultRounds(
        "of", make, [](genericValue& value) { value = genericValue::of(longText); }, view)
        .run();

    const genericValue other = genericValue::of(longText);
    const genericValue number = genericValue::of(1234567.125);
    faultRounds(
        "copyFrom", make, [&](genericValue& value) { value.get()->copyFrom(*other.get()); }, view)
        .run();
    faultRounds(
        "copyTo", make, [&](genericValue& value) { other.get()->copyTo(*value.get()); }, view)
        .run();
    for (const bool to : {false, true}) {
        // A conversion that finds no memory has failed like any other.
        genericValue value = make();
        const allocationFault fault(1);
        EXPECT_FALSE(to ? number.get()->copyTo(*value.get())
                        : value.get()->copyFrom(*number.get()));
        EXPECT_TRUE(fault.hasHappened());
        EXPECT_EQ(view(value), u"before");
    }
}

// --- Texts for people ------------------------------------------------------------------------

TEST_F(settingsMemory, theTablesSettingsChangeWhollyOrNotAtAll)
{
    languageTable& table = languageTable::instance();
    addLanguageFile(u"C:\\tool\\bin\\a first file of texts.loc", u"key first\n");
    addLanguageFile(u"C:\\tool\\bin\\a second file of texts.loc", u"key second\n");
    const auto shown = [](int) { return string(locString(u"key", u"none").getText()); };
    const auto make = [&table] {
        table.setDefaultFile(u"a first file of texts.loc");
        return 0;
    };
    faultRounds(
        "setDefaultFile", make,
        [&table](int) { table.setDefaultFile(u"a second file of texts.loc"); }, shown)
        .run();
}

TEST_F(settingsMemory, aListenerIsToldOrWasNotTakenIn)
{
    static int told;
    const auto listener = [](const char16_t*, const char16_t*) { ++told; };
    languageTable& table = languageTable::instance();
    {
        const allocationFault fault(1);
        EXPECT_EQ(outcomeOf([&] { table.addListener(listener); }), outcome::badAlloc);
    }
    told = 0;
    table.setLanguage(u"first");
    EXPECT_EQ(told, 0);
    table.addListener(listener);
    table.setLanguage(u"second");
    EXPECT_EQ(told, 1);
    table.removeListener(listener);
}

TEST_F(settingsMemory, textsWithParametersAreCopiedAndRenderedWhollyOrNotAtAll)
{
    addLanguageFile(u"C:\\tool\\bin\\some texts.loc",
                    u"key a longer text with [value] and [inner]\n");
    static_cast<void>(scstring(u"some texts.loc"));
    const auto make = [] {
        locString text(u"key", u"default", u"some texts.loc");
        text.setParam(genericValue::of(1234567.125), u"value");
        text.setParam(genericValue::of(locString(u"none", u"a default text inside")), u"inner");
        return text;
    };
    const auto view = [](const locString& text) { return string(text.getText()); };
    faultRounds(
        "setParam with a holder", make,
        [](locString& text) { text.setParam(genericValue::of(longText), u"value"); }, view)
        .mayDoWithout()
        .run();
    faultRounds(
        "hasText", make, [](locString& text) { static_cast<void>(text.hasText()); }, view)
        .run();
    faultRounds(
        "getText with scratch", make,
        [](locString& text) {
            std::vector<string> scratch;
            static_cast<void>(text.getText(nullptr, &scratch));
        },
        view)
        .run();
}

TEST_F(settingsMemory, clonesAreMadeWholeOrNotAtAll)
{
    const locString original(u"a key of some length", longText.c_str(), u"some texts.loc");
    const auto make = [] { return 0; };
    const auto view = [](int) { return string(); };
    faultRounds(
        "locStringId::clone", make,
        [&](int) {
            alignas(locStringId) std::byte room[sizeof(locStringId)];
            std::destroy_at(original.getLocStringId().clone(room));
        },
        view)
        .run();
    faultRounds(
        "locString::clone", make,
        [&](int) {
            alignas(locString) std::byte room[sizeof(locString)];
            std::destroy_at(static_cast<locString*>(original.clone(room)));
        },
        view)
        .run();
}

TEST_F(settingsMemory, theOwnerOfABoxIsLookedForAsFarAsMemoryGoes)
{
    machine& here = machine::current();
    here.windows.push_back({here.process, nullptr, &here});
    here.windows.push_back({here.process, nullptr, &here});
    const allocationFault fault(1);
    EXPECT_EQ(findOwnerWindow(), nullptr);
    EXPECT_TRUE(fault.hasHappened());
}

TEST_F(settingsMemory, anAssertionIsReportedAlsoWhereNoMemoryIsLeft)
{
    machine& here = machine::current();
    here.windows.push_back({here.process, nullptr, &here});
    const allocationFault fault(1, allocationFault::lasting::forGood);
    EXPECT_EQ(outcomeOf([] { failAssertion(u"condition", u"some file", 7); }), outcome::plainFalse);
    const allocationPause looking;
    EXPECT_EQ(here.boxTexts(),
              std::vector<string>{u"Assertion failed:\ncondition\n\nFile: some file\nLine: 7"});
}

TEST_F(settingsMemory, failuresOfFilesAreMadeWholeOrTheFailureOfMemoryLeavesInstead)
{
    const file concerned(string(u"C:\\some directory\\a name"));
    const auto make = [] { return 0; };
    const auto view = [](int) { return string(); };
    faultRounds(
        "invalidXml", make, [&](int) { static_cast<void>(invalidXmlException(concerned)); }, view)
        .mayDoWithout()
        .run();
    faultRounds(
        "readFile", make, [&](int) { static_cast<void>(readFileException(concerned, nullptr)); },
        view)
        .mayDoWithout()
        .run();
}

// --- Element trees ---------------------------------------------------------------------------

TEST(nodeMemory, theStepsOfATreeChangeItWhollyOrNotAtAll)
{
    using nodePointer = refptr<xmlNode>;
    const auto make = [] {
        nodePointer node = xmlNode::createNode(u"a node");
        node->setAttribute(u"name", longText);
        return node;
    };
    const auto view = [](const nodePointer& node) {
        string text;
        node->writeNode(text, string::emptyString());
        return text;
    };
    const nodePointer child = xmlNode::createNode(u"a child");
    faultRounds(
        "addChild of a node", make, [&](nodePointer& node) { node->addChild(child); }, view)
        .run();
    EXPECT_EQ(child->addRef(), 2u) << "nothing that failed holds it";
    child->release();

    const auto same = [](const string& text) { return text; };
    const auto makeText = [] { return string(u"before"); };
    const nodePointer node = make();
    faultRounds(
        "getAttribute", makeText, [&](string& text) { node->getAttribute(u"name", text); }, same)
        .run();
    faultRounds(
        "writeNode", makeText, [&](string& text) { node->writeNode(text, u"   "); }, same)
        .mayStopHalfWay()
        .run();
    faultRounds(
        "writeDeclaration", makeText,
        [](string& text) { xmlDocument::writeDeclaration(text, xmlEncoding::utf8); }, same)
        .mayStopHalfWay()
        .run();
}

TEST(nodeMemory, aTextIsReadOrFailsByTheLibrarysOwnException)
{
    faultRounds(
        "parseText", [] { return xmlNode::createNode(u""); },
        [](refptr<xmlNode>& node) {
            node->parseText(u"<a><b c='d'>a text of some length</b></a>", false, nullptr);
        },
        [](const refptr<xmlNode>& node) {
            string text;
            node->writeNode(text, string::emptyString());
            return text;
        })
        .leavesBy(outcome::outOfMemory)
        .mayStopHalfWay()
        .run();
}

} // namespace valuememoryTest
