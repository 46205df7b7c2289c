// The language files that the project brings along: each language has each text, with the
// places that the program fills.
#include "orloexception.h"
#include "orlolocfile.h"

#include "platform/platform.h"
#include "support/languagefile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace languagefilesTest {

using orlo::file;
using orlo::languageTable;
using orlo::locFile;
using orlo::locString;
using orlo::string;
using orlo::tests::addLanguageBytes;
using orlo::tests::languageTest;

namespace {

// Under Windows the sources may lie on another drive than the current one.
std::filesystem::path languageFolder()
{
    const std::filesystem::path folder = ORLO_LANGUAGE_FOLDER;
    return exists(folder) ? folder : std::filesystem::path("Z:" + folder.string());
}

// Each folder is a language.
std::vector<std::string> languages()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(languageFolder()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Every text of the program, with the text that it has without a language file.
const struct {
    const char16_t* key;
    const char16_t* text;
} texts[] = {
    {u"brx_msgTitle", u"taven-kolve Morrel"},
    {u"infoNotFound", u"Platform information for \"[platform]\" not found!\nPlease use build "
                      u"process before starting "
                      u"toolpath calculations!"},
    {u"measureNotFound",
     u"Measured data for platform \"[platform]\" not found!\nPlease measure platform before "
     u"starting toolpath calculations!"},
    {u"brx_measureFound",
     u"Measured data for platform \"[platform]\" found!\"\nPlatform measured on [datetime]"},
    {u"Msg_EOutOfMem", u"Out of memory"},
    {u"EUnexpected", u"Unexpected error occurred ([Details])"},
    {u"Msg_EFileNotFound", u"File [File] not found!"},
    {u"Msg_EReadFile", u"Error reading file [File]"},
    {u"Msg_EWriteFile", u"Error writing file [File]"},
    {u"Msg_EInvalidXml", u"File [File] is not a valid XML-file!"},
};

std::string readFromSources(const std::string& language)
{
    const std::filesystem::path path = languageFolder() / language / "language.loc";
    std::ifstream in(path, std::ios::binary);
    if (!in) ADD_FAILURE() << path << " can't be opened";
    return {std::istreambuf_iterator<char>(in), {}};
}

string pathOf(const std::string& language)
{
    return u"C:\\tool\\config\\Language\\" + string(language.c_str()) + u"\\language.loc";
}

// The names in brackets, as often as they stand there.
std::multiset<string> placesOf(const string& text)
{
    std::multiset<string> places;
    for (auto open = text.find(u'['); open != text.npos; open = text.find(u'[', open + 1))
        places.insert(text.substr(open, text.find(u']', open) - open + 1));
    return places;
}

class languageFiles : public languageTest, public ::testing::WithParamInterface<std::string> {
protected:
    languageFiles() : bytes(readFromSources(GetParam()))
    {
        addLanguageBytes(pathOf(GetParam()), bytes);
        languageTable::instance().setLanguage(string(GetParam().c_str()).c_str());
    }

    // The text of a key as it stands in the file.
    static string rawText(const char16_t* key)
    {
        const locString text(key, u"<none>", u"language.loc");
        EXPECT_TRUE(text.hasText()) << orlo::narrow(key);
        return text.renderedText();
    }

    std::string bytes;
};

INSTANTIATE_TEST_SUITE_P(each, languageFiles, ::testing::ValuesIn(languages()),
                         [](const auto& row) { return row.param; });

} // namespace

TEST_P(languageFiles, areUtf8WithMark)
{
    EXPECT_EQ(bytes.substr(0, 3), "\xEF\xBB\xBF");
    std::u16string units(bytes.size(), u'\0');
    units.resize(orlo::platform::decode(orlo::platform::encoding::utf8, bytes.data(), bytes.size(),
                                        units.data()));
    EXPECT_EQ(units.find(u'\uFFFD'), units.npos) << "not UTF-8";
}

TEST_P(languageFiles, haveEachTextWithItsPlaces)
{
    for (const auto& row : texts) {
        const string raw = rawText(row.key);
        EXPECT_FALSE(raw.empty());
        EXPECT_EQ(placesOf(raw), placesOf(row.text)) << orlo::narrow(row.key);
    }
}

TEST_P(languageFiles, renderEachTextWithoutAnOpenPlace)
{
    for (const auto& row : texts) {
        locString text(row.key, row.text, u"language.loc");
        string expected = rawText(row.key);
        for (const string& place : placesOf(row.text)) {
            const string name = place.substr(1, place.size() - 2);
            text.setParam(u"<" + name + u">", name.c_str());
            expected.replaceAll(place, u"<" + name + u">");
        }
        EXPECT_EQ(string(text.getText()), expected);
        EXPECT_EQ(expected.find_first_of(u"[]%"), expected.npos);
    }
}

TEST_P(languageFiles, haveTheSameLinesInEachText)
{
    const auto lines = [](const string& text) {
        return std::count(text.begin(), text.end(), u'\n');
    };
    for (const auto& row : texts)
        EXPECT_EQ(lines(rawText(row.key)), lines(row.text)) << orlo::narrow(row.key);
}

TEST_P(languageFiles, haveTheTitleUntranslated)
{
    EXPECT_EQ(rawText(u"brx_msgTitle"), string(u"taven-kolve Morrel"));
}

TEST_P(languageFiles, haveTextsOfTheirOwn)
{
    if (GetParam() == "english") return;
    for (const auto& row : texts) {
        const bool title = string(row.key) == u"brx_msgTitle";
        EXPECT_EQ(rawText(row.key) == string(row.text), title) << orlo::narrow(row.key);
    }
}

TEST_P(languageFiles, serveTheLibrarysFailures)
{
    languageTable::instance().setDefaultFile(u"language.loc");
    const orlo::fileNotFoundException thrown(file(u"C:\\x\\y.xml"));
    string expected = rawText(u"Msg_EFileNotFound");
    expected.replaceAll(u"[File]", u"C:\\x\\y.xml");
    EXPECT_EQ(string(thrown.m_message.getText()), expected);
}

class englishFile : public languageTest {};

TEST_F(englishFile, hasTheTextsThatTheProgramHasWithoutIt)
{
    addLanguageBytes(pathOf("english"), readFromSources("english"));
    languageTable::instance().setLanguage(u"english");
    for (const auto& row : texts) {
        const locString text(row.key, u"<none>", u"language.loc");
        EXPECT_EQ(string(text.getText()), string(row.text));
    }
}

} // namespace languagefilesTest
