#include "orlolanguagetable.h"

#include "orlofile.h"
#include "orlolocstring.h"
#include "support/languagefile.h"

#include <functional>
#include <vector>

namespace orlolanguagetableTest {

using orlo::iLocStringId;
using orlo::languageTable;
using orlo::locString;
using orlo::locStringId;
using orlo::string;
using orlo::stringTemplate;
using orlo::tests::addLanguageFile;
using orlo::tests::languageTest;
using orlo::tests::machine;

namespace {

const string bin(u"C:\\tool\\bin\\");
const string config(u"C:\\tool\\config\\Language\\");

class table : public languageTest {
protected:
    languageTable& all = languageTable::instance();
    machine& here = machine::current();
};

// An address whose composite text is given as it stands.
class rawAddress : public iLocStringId {
public:
    explicit rawAddress(const char16_t* whole) : m_whole(whole) {}
    [[nodiscard]] const char16_t* getDefaultText() const override { return u""; }
    [[nodiscard]] const char16_t* getId() const override { return u""; }
    iLocStringId* clone(void* memory) const override { return new (memory) rawAddress(*this); }
    void getKey(string& out) const override { out = m_whole; }

private:
    string m_whole;
};

string textOf(const iLocStringId& id, const char16_t* language = nullptr)
{
    stringTemplate text(u"as it was");
    if (languageTable::instance().lookup(id, text, language)) return text.text();
    EXPECT_EQ(text.text(), string(u"as it was")) << "a look-up without a hit changed the text";
    return u"<none>";
}

string textIn(const char16_t* files, const char16_t* language = nullptr)
{
    return textOf(locStringId(u"key", u"default", files), language);
}

// A file with one text, of the key "key".
void addKey(const string& path, const char16_t* text)
{
    addLanguageFile(path, u"key " + string(text) + u"\n");
}

// The paths that the calls of the machine were made for; locks have none.
std::vector<string> pathsAsked()
{
    std::vector<string> paths;
    for (const auto& call : machine::current().calls)
        if (!call.subject.empty()) paths.push_back(call.subject);
    return paths;
}

// The calls of the machine that lock and unlock, or touch a disk, as letters: ( ) and f.
std::string locksAndFiles()
{
    std::string shape;
    for (const auto& call : machine::current().calls) {
        if (call.operation == "lockMutex") shape += '(';
        if (call.operation == "unlockMutex") shape += ')';
        if (!call.subject.empty() && !shape.ends_with('f')) shape += 'f';
    }
    return shape;
}

struct change {
    int listener;
    string from;
    string to;
};
std::vector<change> changes;

template <int number>
void listen(const char16_t* from, const char16_t* to)
{
    changes.push_back({number, from, to});
}

} // namespace

TEST_F(table, isOneForTheProcess)
{
    EXPECT_EQ(&all, &languageTable::instance());
}

TEST_F(table, searchesTheFoldersOfTheExecutableBeforeThoseOfTheLanguage)
{
    // From the last place to the first: each file that is added hides the one before.
    const string places[] = {config + u"english\\language.loc", bin + u"english\\language.loc",
                             config + u"language.loc", bin + u"language.loc"};
    all.setLanguage(u"english");
    EXPECT_EQ(textIn(u"language.loc"), string(u"<none>"));
    for (const string& place : places) {
        const string text = u"in " + place;
        addKey(place, text.c_str());
        EXPECT_EQ(textIn(u"language.loc"), text);
    }
}

TEST_F(table, findsNothingWithoutAFolderOfTheLanguage)
{
    addKey(config + u"english\\folder.loc", u"english");
    all.setLanguage(u"klingon");
    EXPECT_EQ(textIn(u"folder.loc"), string(u"<none>"));
    all.setLanguage(u"english");
    EXPECT_EQ(textIn(u"folder.loc"), string(u"english"));
}

TEST_F(table, findsFilesOfNoLanguageWhileTheLanguageIsEmpty)
{
    addKey(config + u"english\\neutral.loc", u"english");
    EXPECT_EQ(textIn(u"neutral.loc"), string(u"<none>"));
    addKey(config + u"neutral.loc", u"neutral");
    EXPECT_EQ(textIn(u"neutral.loc"), string(u"neutral"));
}

TEST_F(table, findsALanguageByItsNameAsWritten)
{
    here.addDirectory(config + u"two words");
    addKey(config + u"two words\\written.loc", u"found");
    all.setLanguage(u"two words");
    EXPECT_EQ(textIn(u"written.loc"), string(u"found"));
    all.setLanguage(u" two words");
    EXPECT_EQ(textIn(u"written.loc"), string(u"<none>"));
}

TEST_F(table, stopsAtTheFirstFileEvenIfItLacksTheKey)
{
    addKey(config + u"english\\first.loc", u"english");
    addLanguageFile(bin + u"first.loc", u"other text\n");
    all.setLanguage(u"english");
    EXPECT_EQ(textIn(u"first.loc"), string(u"<none>"));
}

TEST_F(table, triesTheFilesOfAListInTheirOrder)
{
    const locStringId id(u"key", u"default", u"list1.loc", u"list2.loc");
    all.setLanguage(u"english");
    EXPECT_EQ(textOf(id), string(u"<none>"));
    addKey(bin + u"list2.loc", u"second");
    EXPECT_EQ(textOf(id), string(u"second"));
    addKey(config + u"english\\list1.loc", u"first");
    EXPECT_EQ(textOf(id), string(u"first"));
}

TEST_F(table, triesTheCallersLanguageBeforeTheCurrentOneForAList)
{
    all.setLanguage(u"english");
    addKey(config + u"english\\both.loc", u"english");
    EXPECT_EQ(textIn(u"both.loc", u"german"), string(u"english"));
    addKey(config + u"german\\both.loc", u"german");
    EXPECT_EQ(textIn(u"both.loc", u"german"), string(u"german"));
    EXPECT_EQ(textIn(u"both.loc"), string(u"english"));
    addKey(config + u"both.loc", u"common");
    EXPECT_EQ(textIn(u"both.loc", u"german"), string(u"common"));
}

TEST_F(table, triesTheCallersLanguageInsteadOfTheCurrentOneForASingleFile)
{
    const rawAddress id(u"key|default|single.loc");
    all.setLanguage(u"english");
    addKey(config + u"english\\single.loc", u"english");
    EXPECT_EQ(textOf(id), string(u"english"));
    EXPECT_EQ(textOf(id, u"german"), string(u"<none>"));
    addKey(config + u"german\\single.loc", u"german");
    EXPECT_EQ(textOf(id, u"german"), string(u"german"));
    addKey(bin + u"single.loc", u"common");
    EXPECT_EQ(textOf(id, u"german"), string(u"common"));
    EXPECT_EQ(textOf(id), string(u"common"));
}

TEST_F(table, takesTheDefaultFileForATextWithoutFiles)
{
    const locStringId id(u"key", u"default");
    all.setLanguage(u"english");
    all.setDefaultFile(u"standard.loc");
    EXPECT_EQ(textOf(id), string(u"<none>"));
    addKey(config + u"english\\standard.loc", u"english");
    EXPECT_EQ(textOf(id), string(u"english"));
    EXPECT_EQ(textOf(id, u"german"), string(u"<none>"));
    addKey(config + u"german\\standard.loc", u"german");
    EXPECT_EQ(textOf(id, u"german"), string(u"german"));
    addKey(bin + u"standard.loc", u"common");
    EXPECT_EQ(textOf(id, u"german"), string(u"common"));
}

TEST_F(table, neverFindsAFileForATextWithoutFilesOrDefaultFile)
{
    addKey(config + u"english\\language.loc", u"english");
    addKey(bin + u"english", u"a file in the place of a folder");
    all.setLanguage(u"english");
    here.calls.clear();
    EXPECT_EQ(textOf(locStringId(u"key", u"default")), string(u"<none>"));
    EXPECT_EQ(textOf(rawAddress(u"key|default|,")), string(u"<none>"));
    EXPECT_TRUE(pathsAsked().empty());
}

TEST_F(table, splitsAnAddressAtItsBars)
{
    addKey(bin + u"bars.loc", u"found");
    const struct {
        const char16_t* whole;
        const char16_t* text;
    } rows[] = {
        {u"", u"<none>"},
        {u"key", u"<none>"},
        {u"key|bars.loc", u"<none>"},
        {u"key|default|bars.loc", u"found"},
        {u"key|default|,bars.loc", u"found"},
        {u"key|default|,missing.loc,bars.loc", u"found"},
        {u"key|default|bars.loc,", u"found"},
        {u"key||bars.loc|more|parts", u"found"},
        {u"key|de|fault|,bars.loc", u"<none>"},
        {u" key |default|bars.loc", u"found"},
        {u"|default|bars.loc", u"<none>"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(rawAddress(row.whole)), string(row.text)) << orlo::narrow(row.whole);
}

TEST_F(table, asksForNoFileWhereTheAddressLacksAPart)
{
    addKey(bin + u"standard.loc", u"found");
    all.setDefaultFile(u"standard.loc");
    here.calls.clear();
    EXPECT_EQ(textOf(rawAddress(u"")), string(u"<none>"));
    EXPECT_EQ(textOf(rawAddress(u"key|standard.loc")), string(u"<none>"));
    EXPECT_TRUE(pathsAsked().empty());
}

TEST_F(table, takesNamesWithFolders)
{
    addKey(config + u"english\\sub\\deep.loc", u"deep");
    all.setLanguage(u"english");
    EXPECT_EQ(textIn(u"sub/deep.loc"), string(u"deep"));
    EXPECT_EQ(textIn(u"sub\\deep.loc"), string(u"deep"));
    EXPECT_EQ(textIn(u"deep.loc"), string(u"<none>"));
}

TEST_F(table, takesNoDirectoryAsALanguageFile)
{
    here.addDirectory(bin + u"folder.loc");
    addKey(config + u"folder.loc", u"file");
    EXPECT_EQ(textIn(u"folder.loc"), string(u"file"));
}

TEST_F(table, knowsAFileByItsPathWithoutRegardToCase)
{
    addKey(bin + u"Case.loc", u"old");
    EXPECT_EQ(textIn(u"Case.loc"), string(u"old"));
    here.calls.clear();
    EXPECT_EQ(textIn(u"CASE.LOC"), string(u"old"));
    EXPECT_EQ(here.countCalls("openFile"), 0U) << "the file was taken for another one";
}

TEST_F(table, seesAChangedFileAtOnce)
{
    addKey(bin + u"edited.loc", u"old");
    EXPECT_EQ(textIn(u"edited.loc"), string(u"old"));
    addKey(bin + u"edited.loc", u"new");
    EXPECT_EQ(textIn(u"edited.loc"), string(u"new"));
    ASSERT_TRUE(orlo::file(bin + u"edited.loc").remove());
    EXPECT_EQ(textIn(u"edited.loc"), string(u"<none>"));
}

TEST_F(table, asksForTheFileAtEachLookUp)
{
    addKey(bin + u"asked.loc", u"text");
    EXPECT_EQ(textIn(u"asked.loc"), string(u"text"));
    here.calls.clear();
    EXPECT_EQ(textIn(u"asked.loc"), string(u"text"));
    EXPECT_GE(pathsAsked().size(), 2U) << "existence and time";
    for (const string& path : pathsAsked()) EXPECT_EQ(path, bin + u"asked.loc");
    EXPECT_EQ(here.countCalls("openFile"), 0U);
}

TEST_F(table, rendersInTheNewLanguageAfterAChange)
{
    addKey(config + u"english\\changed.loc", u"house");
    addKey(config + u"german\\changed.loc", u"Haus");
    const locString text(u"key", u"default", u"changed.loc");
    all.setLanguage(u"english");
    EXPECT_EQ(string(text.getText()), string(u"house"));
    all.setLanguage(u"german");
    EXPECT_EQ(string(text.getText()), string(u"Haus"));
    here.calls.clear();
    all.setLanguage(u"english");
    EXPECT_TRUE(pathsAsked().empty()) << "a change of language reads nothing";
    EXPECT_EQ(string(text.getText()), string(u"house"));
    EXPECT_EQ(here.countCalls("openFile"), 0U) << "the file of the old language is still known";
}

TEST_F(table, tellsItsListenersOfAChangeInTheirOrder)
{
    all.setLanguage(u"english");
    all.addListener(listen<1>);
    all.addListener(listen<2>);
    all.addListener(listen<1>);
    changes.clear();
    all.setLanguage(u"german");
    ASSERT_EQ(changes.size(), 2U);
    const bool firstIsSmaller = std::less<languageTable::listener>()(listen<1>, listen<2>);
    EXPECT_EQ(changes[0].listener, firstIsSmaller ? 1 : 2);
    EXPECT_EQ(changes[1].listener, firstIsSmaller ? 2 : 1);
    for (const change& told : changes) {
        EXPECT_EQ(told.from, string(u"english"));
        EXPECT_EQ(told.to, string(u"german"));
    }
    all.removeListener(listen<1>);
    all.removeListener(listen<2>);
}

TEST_F(table, tellsNobodyOfALanguageThatIsAlreadySet)
{
    all.setLanguage(u"english");
    all.addListener(listen<1>);
    changes.clear();
    all.setLanguage(u"english");
    EXPECT_TRUE(changes.empty());
    all.setLanguage(u"English");
    EXPECT_EQ(changes.size(), 1U) << "languages differ by case";
    all.removeListener(listen<1>);
    all.setLanguage(u"german");
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(table, tellsItsListenersInsideItsLock)
{
    static std::string shape;
    const languageTable::listener looks = [](const char16_t*, const char16_t*) {
        shape = locksAndFiles();
    };
    all.setLanguage(u"english");
    all.addListener(looks);
    here.calls.clear();
    all.setLanguage(u"german");
    EXPECT_EQ(shape, "(");
    EXPECT_EQ(locksAndFiles(), "()");
    all.removeListener(looks);
}

TEST_F(table, takesItsLockForEachSetting)
{
    const std::function<void()> settings[] = {
        [this] { all.setLanguage(u"german"); },   [this] { all.setLanguage(u"german"); },
        [this] { all.setDefaultFile(u"a.loc"); }, [this] { all.setOverridePrefix(u"site"); },
        [this] { all.addListener(listen<1>); },   [this] { all.removeListener(listen<1>); },
    };
    for (const auto& set : settings) {
        here.calls.clear();
        set();
        EXPECT_EQ(locksAndFiles(), "()");
    }
}

// First the search, then all that is done with the file found: entering it, reading it, taking
// the text.
TEST_F(table, looksATextUpInTwoPiecesUnderItsLock)
{
    addKey(bin + u"locked twice.loc", u"text");
    addKey(bin + u"site_locked twice.loc", u"site");
    all.setOverridePrefix(u"site");
    const rawAddress present(u"key|default|,locked twice.loc");
    here.calls.clear();
    EXPECT_EQ(textOf(present), string(u"site"));
    EXPECT_EQ(locksAndFiles(), "(f)(f)");
    here.calls.clear();
    EXPECT_EQ(textOf(present), string(u"site"));
    EXPECT_EQ(locksAndFiles(), "(f)(f)");
    here.calls.clear();
    EXPECT_EQ(textOf(rawAddress(u"key|default|,no such file.loc")), string(u"<none>"));
    EXPECT_EQ(locksAndFiles(), "(f)");
}

TEST_F(table, takesANullLanguageAsTheEmptyOneAndNullAsNoListener)
{
    all.setLanguage(u"english");
    all.addListener(listen<1>);
    all.addListener(nullptr);
    changes.clear();
    all.setLanguage(nullptr);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].to, string());
    all.setLanguage(u"");
    EXPECT_EQ(changes.size(), 1U);
    all.removeListener(nullptr);
    all.removeListener(listen<1>);
}

TEST_F(table, letsAListenerUseIt)
{
    static string seen;
    const languageTable::listener leaves = [](const char16_t*, const char16_t*) {
        languageTable& used = languageTable::instance();
        seen = textIn(u"listener.loc");
        used.removeListener(listen<1>);
        used.addListener(listen<2>);
    };
    addKey(config + u"german\\listener.loc", u"Haus");
    all.addListener(leaves);
    all.addListener(listen<1>);
    all.setLanguage(u"german");
    EXPECT_EQ(seen, string(u"Haus")) << "the new language holds already";
    all.removeListener(leaves);
    changes.clear();
    all.setLanguage(u"english");
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].listener, 2);
    all.removeListener(listen<2>);
}

TEST_F(table, overridesAFileByTheOneWithThePrefixBesideIt)
{
    all.setLanguage(u"english");
    all.setOverridePrefix(u"site");
    addLanguageFile(config + u"english\\prefixed.loc", u"key main\nother text\n");
    addKey(config + u"english\\site_prefixed.loc", u"site");
    EXPECT_EQ(textIn(u"prefixed.loc"), string(u"site"));
    EXPECT_EQ(textOf(locStringId(u"other", u"default", u"prefixed.loc")), string(u"text"));
}

TEST_F(table, takesTheOverridePrefixForFilesThatComeIntoUseLater)
{
    addKey(bin + u"early.loc", u"main");
    addKey(bin + u"site_early.loc", u"site");
    addKey(bin + u"late.loc", u"main");
    addKey(bin + u"site_late.loc", u"site");
    EXPECT_EQ(textIn(u"early.loc"), string(u"main"));
    all.setOverridePrefix(u"site");
    EXPECT_EQ(textIn(u"early.loc"), string(u"main"));
    EXPECT_EQ(textIn(u"late.loc"), string(u"site"));
    all.setOverridePrefix(u"");
    EXPECT_EQ(textIn(u"late.loc"), string(u"site"));
}

TEST_F(table, givesTheTextsOfIncludedFiles)
{
    all.setLanguage(u"english");
    addLanguageFile(config + u"english\\including.loc", u"#include included.loc\n");
    addKey(config + u"english\\included.loc", u"there");
    EXPECT_EQ(textIn(u"including.loc"), string(u"there"));
}

TEST_F(table, keepsTheTextWhenTheFileCannotBeRead)
{
    addKey(bin + u"locked.loc", u"text");
    here.failCall("openFile", 1);
    here.failCall("openFile", 2);
    EXPECT_EQ(textIn(u"locked.loc"), string(u"<none>"));
}

} // namespace orlolanguagetableTest
