// What all threads of a process share, used by several at once. ThreadSanitizer watches.
#include "orlodirectory.h"
#include "orlofile.h"
#include "orlogeopoint.h"
#include "orlolanguagetable.h"
#include "orlolocstring.h"
#include "orlomodule.h"
#include "orloreport.h"
#include "orlosearchpath.h"
#include "orlotimetext.h"
#include "orloxmldocument.h"
#include "platform/platform.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <functional>
#include <thread>

namespace sharedstateTest {

using namespace orlo;

namespace {

constexpr std::size_t threadCount = 4;
constexpr int rounds = 300;

// Runs the same work on several threads, which begin together.
void onThreads(const std::function<void(std::size_t thread)>& work)
{
    std::atomic<std::size_t> ready = 0;
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&, thread] {
            ++ready;
            while (ready < threadCount) std::this_thread::yield();
            work(thread);
        });
    }
    for (std::thread& each : threads) each.join();
}

string numbered(const char16_t* text, int number)
{
    return text + string().setNumber(number);
}

// A language file beside the executable, where the table looks first.
class languageFile {
public:
    explicit languageFile(const string& name = u"threads.loc") : m_name(name)
    {
        directory folder;
        getModuleDirectory(string::emptyString(), folder);
        m_file = file(folder, m_name);
        const std::string bytes = "\xEF\xBB\xBFkey the text of the file\n";
        const platform::fileHandle opened =
            platform::openFile(m_file.path(), platform::openMode::write);
        EXPECT_EQ(platform::writeFile(opened, bytes.data(), bytes.size()), bytes.size());
        platform::closeFile(opened);
    }
    ~languageFile() { m_file.remove(); }
    languageFile(const languageFile&) = delete;
    languageFile& operator=(const languageFile&) = delete;
    [[nodiscard]] const string& name() const { return m_name; }

private:
    string m_name;
    file m_file;
};

} // namespace

// The first in this program, so that nothing has been used before.
TEST(aFirstUse, ofAllThatIsSharedMayComeFromSeveralThreads)
{
    std::array<const void*, threadCount> tables{};
    std::array<const void*, threadCount> registries{};
    std::array<const string*, threadCount> empties{};
    std::array<scstring, threadCount> interned;
    onThreads([&](std::size_t thread) {
        empties[thread] = &string::emptyString();
        interned[thread] = scstring(u"interned by all");
        registries[thread] = &typeconvert::typeConverterRegistry::instance();
        tables[thread] = &languageTable::instance();
        directory to;
        EXPECT_TRUE(typeconvert::convert(to, file(string(u"C:\\somewhere"))));
    });
    for (std::size_t thread = 1; thread < threadCount; ++thread) {
        EXPECT_EQ(empties[thread], empties[0]);
        EXPECT_EQ(interned[thread], interned[0]);
        EXPECT_EQ(registries[thread], registries[0]);
        EXPECT_EQ(tables[thread], tables[0]);
    }
}

TEST(registry, convertsWhileConvertersComeAndGo)
{
    static constexpr typeconvert::typeConverter<float, file> odd{nullptr};
    auto& registry = typeconvert::typeConverterRegistry::instance();
    const std::size_t before = registry.size();
    onThreads([&](std::size_t thread) {
        for (int round = 0; round < rounds; ++round) {
            if (thread == 0) registry.registerConverter(&odd);
            string text;
            EXPECT_TRUE(typeconvert::convert(text, orloGeo::point3d(round, 2, 3)));
            searchPath places; // by way of text
            EXPECT_TRUE(typeconvert::convert(places, file(string(u"C:\\"))));
            if (thread == 0) registry.unregisterConverter(&odd);
        }
    });
    EXPECT_EQ(registry.size(), before);
}

TEST(numbers, areReadAndWrittenInTheUsersFormatByAllThreads)
{
    onThreads([](std::size_t thread) {
        for (int round = 0; round < rounds; ++round) {
            const double value = static_cast<double>(thread) + round / 8.0;
            string text;
            double back = -1;
            EXPECT_TRUE(typeconvert::convert(text, value, typeconvert::localeNumbers));
            EXPECT_TRUE(typeconvert::convert(back, text));
            EXPECT_EQ(back, value);
        }
    });
}

// The locale of times is the process's: each thread has it for itself, and leaves it as it was.
TEST(timeTexts, areMadeByAllThreadsUnderTheUsersLocale)
{
    string before;
    ASSERT_TRUE(platform::queryTimeLocale(before));
    std::tm time{};
    time.tm_year = 124;
    time.tm_mday = 5;
    const string expected = localTimeText(time);
    onThreads([&](std::size_t) {
        for (int round = 0; round < rounds; ++round) EXPECT_EQ(localTimeText(time), expected);
    });
    string after;
    ASSERT_TRUE(platform::queryTimeLocale(after));
    EXPECT_EQ(after, before);
}

TEST(internedTexts, haveOneAddressForAllThreads)
{
    std::array<std::vector<scstring>, threadCount> made;
    onThreads([&made](std::size_t thread) {
        for (int round = 0; round < rounds; ++round)
            made[thread].emplace_back(numbered(u"text ", round).c_str());
    });
    for (std::size_t thread = 1; thread < threadCount; ++thread) EXPECT_EQ(made[thread], made[0]);
    EXPECT_EQ(made[0][7].text(), u"text 7");
}

TEST(languages, areChangedWhileTextsAreLookedUp)
{
    const languageFile present;
    static std::atomic<int> told;
    told = 0;
    const auto listener = [](const char16_t*, const char16_t*) { ++told; };
    languageTable& table = languageTable::instance();
    table.addListener(listener);
    onThreads([&table](std::size_t thread) {
        for (int round = 0; round < rounds; ++round) {
            if (thread == 0) table.setLanguage(numbered(u"language ", round).c_str());
            const locString found(u"key", u"default", u"threads.loc");
            EXPECT_EQ(string(found.getText()), u"the text of the file");
            const locString missing(u"another key", u"default",
                                    numbered(u"missing", round).c_str());
            EXPECT_EQ(string(missing.getText()), u"default");
        }
    });
    table.removeListener(listener);
    EXPECT_EQ(told, rounds);
}

// Whatever is set meanwhile, a text is the one of a file or the default one.
TEST(languages, areSetInEveryWayWhileTextsAreLookedUp)
{
    const languageFile present;
    languageTable& table = languageTable::instance();
    const auto listener = [](const char16_t*, const char16_t*) {};
    onThreads([&](std::size_t thread) {
        for (int round = 0; round < rounds; ++round) {
            switch (thread) {
            case 0: table.setDefaultFile(numbered(u"threads.loc is not ", round)); break;
            case 1: table.setOverridePrefix(numbered(u"a prefix that is long ", round)); break;
            case 2: table.addListener(listener); break;
            default: table.removeListener(listener); break;
            }
            table.setLanguage(numbered(u"a language that is long ", round % 3).c_str());
            EXPECT_EQ(string(locString(u"key", u"default").getText()), u"default");
            EXPECT_EQ(string(locString(u"key", u"default", u"threads.loc").getText()),
                      u"the text of the file");
        }
    });
    table.removeListener(listener);
    table.setDefaultFile(u"");
    table.setOverridePrefix(u"");
}

// A file comes into use with the first text: all threads ask for new ones at the same time,
// while the prefix of the files that override them changes.
TEST(languageFiles, comeIntoUseOnceForAllThreads)
{
    languageTable& table = languageTable::instance();
    for (int round = 0; round < 100; ++round) {
        const languageFile first(numbered(u"first of two new ones ", round) + u".loc");
        const languageFile second(numbered(u"second of two new ones ", round) + u".loc");
        onThreads([&](std::size_t thread) {
            if (thread % 2 == 0)
                table.setOverridePrefix(numbered(u"a prefix that is long ", round));
            for (const languageFile* present : {&first, &second}) {
                const locString text(u"key", u"default", present->name().c_str());
                EXPECT_EQ(string(text.getText()), u"the text of the file");
                EXPECT_TRUE(text.hasText());
            }
        });
    }
    table.setOverridePrefix(u"");
}

TEST(references, areCountedByAllThreads)
{
    const refptr<xmlNode> shared = xmlNode::createNode(u"shared");
    refptr<xmlNode> given = shared;
    onThreads([&given](std::size_t) {
        for (int round = 0; round < rounds; ++round) {
            const refptr<xmlNode> mine = given;
            EXPECT_EQ(mine->name, u"shared");
        }
    });
    given = nullptr;
    EXPECT_EQ(shared->addRef(), 2u);
    EXPECT_EQ(shared->release(), 1u);
}

// The nodes of a document share memory, whichever thread ends them.
TEST(references, endNodesOfOneDocumentOnAllThreads)
{
    std::string bytes = "<a>";
    for (int child = 0; child < 400; ++child) bytes += "<b><c>a text of some length</c></b>";
    bytes += "</a>";
    for (int round = 0; round < rounds; ++round) {
        refptr<xmlDocument> document = xmlDocument::createDocument();
        document->parseBuffer(bytes.data(), bytes.size(), false);
        std::array<std::vector<refptr<xmlNode>>, threadCount> held;
        for (std::size_t child = 0; child < document->children.size(); ++child)
            held[child % threadCount].push_back(document->children[child]);
        document = nullptr;
        onThreads([&held](std::size_t thread) {
            for (refptr<xmlNode>& each : held[thread]) {
                EXPECT_EQ(each->children[0]->name, u"c");
                each = nullptr;
            }
        });
    }
}

TEST(documents, areReadAndLetGoByAllThreadsAtOnce)
{
    const std::string bytes = "<a><b c='1'>a text</b><d><e/></d></a>";
    onThreads([&bytes](std::size_t) {
        for (int round = 0; round < rounds; ++round) {
            const refptr<xmlDocument> document = xmlDocument::createDocument();
            document->parseBuffer(bytes.data(), bytes.size(), false);
            EXPECT_EQ(document->children.size(), 2u);
        }
    });
}

// The last of several threads takes the object down, after all that the others did with it.
TEST(references, theLastOneEndsTheObject)
{
    for (int round = 0; round < rounds; ++round) {
        std::array<refptr<xmlNode>, threadCount> held;
        held.fill(xmlNode::createNode(u"shared"));
        onThreads([&held](std::size_t thread) { held[thread] = nullptr; });
    }
}

} // namespace sharedstateTest
