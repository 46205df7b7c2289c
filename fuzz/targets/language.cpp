// Language files: what a look-up gives, while the files change.
#include "input.h"
#include "judgelanguage.h"
#include "orlolocfile.h"
#include "orlostringtemplate.h"
#include "support/machine.h"

#include <array>
#include <optional>
#include <set>
#include <string_view>

namespace orlo::fuzz {

namespace {

const std::array<string, 4> filePaths{u"C:\\lang\\main.loc", u"C:\\lang\\site_main.loc",
                                      u"C:\\lang\\one.loc", u"C:\\lang\\sub\\two.loc"};

std::string narrowText(bytes part)
{
    return {part.begin(), part.end()};
}

std::size_t countOf(std::string_view what, const std::vector<bytes>& parts)
{
    std::size_t count = 0;
    for (const bytes part : parts) {
        const std::string text = narrowText(part);
        for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1))
            ++count;
    }
    return count;
}

// Words of the files, as far as they may be keys.
std::set<string> keysOf(const std::vector<bytes>& parts)
{
    std::set<string> keys;
    for (const bytes part : parts) {
        std::vector<string> words;
        textOf(part).replaceChar(u'\n', u' ').replaceChar(u'$', u' ').split(u" ", words);
        for (std::size_t i = 0; i < words.size() && keys.size() < 12; ++i)
            keys.insert(words[i].c_str());
    }
    return keys;
}

// Puts the files on the machine; a part that is empty stands for no file.
void putFiles(const std::vector<bytes>& parts, std::size_t first, std::int64_t time)
{
    tests::machine& here = tests::machine::current();
    for (std::size_t i = 0; i < filePaths.size() && first + i < parts.size(); ++i) {
        if (parts[first + i].empty()) continue;
        here.addFile(filePaths[i], narrowText(parts[first + i]));
        here.setModificationTime(filePaths[i], time);
    }
}

void expectTexts(locFile& from, judgedLanguageFile& judge, const std::set<string>& keys)
{
    for (const string& key : keys) {
        stringTemplate text(u"as it was");
        const bool found = from.lookup(key.c_str(), text);
        const std::optional<std::u16string> wanted = judge.lookup(key);
        expect(found == wanted.has_value(), "a key is found where the rules tell");
        expect(text.text() == (wanted ? string(*wanted) : string(u"as it was")),
               "its text is the one in the files");
    }
}

// Files that include themselves: the look-ups end, whatever they give.
void expectEnd(const std::set<string>& keys)
{
    locFile from{file(filePaths[0])};
    stringTemplate text;
    for (const string& key : keys) from.lookup(key.c_str(), text);
}

} // namespace

// The parts: four files, and the same four once more as they stand later.
void language(bytes given)
{
    const std::vector<bytes> parts = cut(given);
    if (countOf("cmd(", parts) > 6) return; // each command may double all values
    tests::machine::renew();
    putFiles(parts, 0, 1000);
    const std::set<string> keys = keysOf(parts);
    std::optional<judgedLanguageFile> judge;
    try {
        judge.emplace(filePaths[0]);
    } catch (const includesItself&) {
        if (countOf("#include", parts) <= 6)
            expectEnd(keys); // must not be given: the ways are many
        return;
    }
    locFile from{file(filePaths[0])};
    expectTexts(from, *judge, keys);
    try {
        from.setOverrideFile(file(filePaths[1]));
        judge->setOverride(filePaths[1]);
        expectTexts(from, *judge, keys);
        putFiles(parts, filePaths.size(), 2000);
        expectTexts(from, *judge, keys);
    } catch (const includesItself&) {
        // the override file includes itself, and the judge can't go on
    }
    expect(tests::machine::current().openHandles() == 0, "each file is closed again");
}

} // namespace orlo::fuzz
