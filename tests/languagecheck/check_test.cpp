// The checker's command line: what is looked at, exit codes, and the list of texts.
#include "faults/rounds.h"
#include "languagecheck/checked.h"

namespace checkTest {

using namespace orlo::tests;
using orlo::string;
using namespace orlo::languagecheck;

namespace {

class languageCheckRun : public languageCheckTest {
protected:
    languageCheckRun()
    {
        addText(u"languages\\english\\language.loc", u"a See [platform]\n");
        addText(u"languages\\german\\language.loc", u"a Siehe\n");
    }
};

constexpr const char* missingPlace = "languages/german/language.loc:1: error: the place [platform] "
                                     "is missing\n";

} // namespace

TEST_F(languageCheckRun, looksAtAFileALanguageOrAFolderOfLanguages)
{
    addText(u"languages\\german\\language.loc", u"a\n");
    const std::string finding = "1: error: \"a\" is a key alone, without a text\n";
    EXPECT_EQ(check({u"languages"}).output, "languages/german/language.loc:" + finding);
    EXPECT_EQ(check({u"languages/"}).output, "languages/german/language.loc:" + finding);
    EXPECT_EQ(check({u"languages\\german"}).output, "languages\\german\\language.loc:" + finding);
    EXPECT_EQ(check({u".\\languages\\german\\language.loc"}).output,
              ".\\languages\\german\\language.loc:" + finding);
    EXPECT_EQ(check({u"languages/english", u"languages/german"}).output,
              "languages/german/language.loc:" + finding);
}

TEST_F(languageCheckRun, findsTheReferenceBesideALanguageOrByItsPath)
{
    for (const char16_t* const what : {u"languages", u"languages/german", u"languages/german/"}) {
        const answer found = check({u"--reference", u"english", what});
        EXPECT_EQ(found.output, missingPlace) << orlo::narrow(what);
        EXPECT_EQ(found.code, someErrors);
    }
    for (const char16_t* const reference :
         {u"english", u"languages/english", u"languages/english/language.loc",
          u"C:\\work\\languages\\english"})
        EXPECT_EQ(check({u"--reference", reference, u"languages/german/language.loc"}).output,
                  missingPlace)
            << orlo::narrow(reference);
}

TEST_F(languageCheckRun, exitCodesTellErrorsFromWarnings)
{
    EXPECT_EQ(check({u"languages"}).code, noErrors);
    EXPECT_EQ(check({u"languages"}).output, "");
    addText(u"languages\\german\\language.loc", u"a x;y\n");
    EXPECT_EQ(check({u"languages"}).code, noErrors);
    EXPECT_NE(check({u"languages"}).output, "");
    addText(u"languages\\german\\language.loc", u"a\n");
    EXPECT_EQ(check({u"languages"}).code, someErrors);
}

TEST_F(languageCheckRun, aWrongCallGetsTwoAndNoFindings)
{
    machine::current().addDirectory(u"C:\\work\\empty");
    machine::current().addFile(u"C:\\work\\binary", std::string("a\0", 2));
    const struct {
        std::vector<string> arguments;
        const char* complaint;
    } rows[] = {
        {{}, "orloLanguageCheck [--reference"},
        {{u"--list"}, "orloLanguageCheck [--reference"},
        {{u"--wrong", u"languages"}, "orloLanguageCheck [--reference"},
        {{u"languages", u"--reference"}, "orloLanguageCheck [--reference"},
        {{u""}, "orloLanguageCheck [--reference"},
        {{u"empty"}, "orloLanguageCheck: empty: no language file in this folder\n"},
        {{u"--reference", u"klingon", u"languages"},
         "orloLanguageCheck: klingon: no such reference\n"},
        {{u"--reference", u"binary", u"languages"},
         "orloLanguageCheck: binary:1: error: the file holds zeros"},
    };
    for (const auto& row : rows) {
        const answer given = check(row.arguments);
        EXPECT_EQ(given.code, wrongUse) << row.complaint;
        EXPECT_EQ(given.output, "") << row.complaint;
        EXPECT_EQ(given.complaint.substr(0, std::string(row.complaint).size()), row.complaint);
        EXPECT_FALSE(given.complaint.ends_with("\n\n")) << row.complaint;
    }
    EXPECT_EQ(check({u"--help"}).code, noErrors);
    EXPECT_NE(check({u"--help"}).output, "");
}

TEST_F(languageCheckRun, aFolderInPlaceOfTheFileIsTold)
{
    machine::current().addDirectory(u"C:\\work\\languages\\polish\\language.loc");
    machine::current().addDirectory(u"C:\\work\\languages\\czech");
    const answer given = check({u"languages"});
    EXPECT_EQ(given.code, someErrors);
    EXPECT_EQ(given.output,
              "languages/czech:1: warning: the folder holds no language.loc\n"
              "languages/polish/language.loc:1: error: this is a folder, not a file\n");
}

TEST_F(languageCheckRun, whatIsFoundTwiceIsToldOnce)
{
    addText(u"languages\\german\\language.loc", u"a\n");
    EXPECT_EQ(check({u"languages/german", u"languages/german/language.loc"}).output,
              "languages/german/language.loc:1: error: \"a\" is a key alone, without a text\n");
}

TEST_F(languageCheckRun, theListShowsEachTextWithItsPlacesFilled)
{
    addText(u"t", u"a E:Of [platform],\\n\"[other]\" and ([File])\n"
                  u"b [count:%03d] [size:%.2f] [letter:%c] [platform] [platform]\n"
                  u"c $$a\nd $$nothing\ne \u00FC ; note\n#include more\n");
    addText(u"more", u"e hidden\nf x\n");
    const answer given = check({u"--list", u"t"});
    EXPECT_EQ(given.code, noErrors);
    EXPECT_EQ(given.output, "t\n"
                            "  a\n    Of P400,\n    \"<other>\" and (C:\\taven\\P400.xml)\n"
                            "  b\n    007 1.50 x P400 [platform]\n"
                            "  c\n    Of P400,\n    \"<other>\" and (C:\\taven\\P400.xml)\n"
                            "  e\n    \xC3\xBC\n"
                            "  f\n    x\n");
}

TEST_F(languageCheckRun, theListFillsThePlacesOfTheReference)
{
    addText(u"languages\\german\\language.loc", u"a 100% sicher\nb [own]\n");
    EXPECT_EQ(check({u"--list", u"--reference", u"english", u"languages/german"}).output,
              "languages/german/language.loc\n"
              "  a\n    100P400icher\n"
              "  b\n    <own>\n");
}

TEST_F(languageCheckRun, whereMemoryIsRefusedItSaysSoOrAnswersAsEver)
{
    const std::string noMemory = "not enough memory";
    const char16_t* const arguments[] = {u"orloLanguageCheck", u"--reference", u"english",
                                         u"languages"};
    std::size_t refusals = 0;
    for (bool refused = true; refused;) {
        answer given;
        outcome got = outcome::done;
        {
            const allocationFault fault(refusals + 1);
            got = outcomeOf([&] { given = run(4, arguments); });
            refused = fault.hasHappened();
        }
        SCOPED_TRACE("request " + std::to_string(refusals + 1));
        ASSERT_EQ(got, outcome::done);
        EXPECT_EQ(machine::current().openHandles(), 0u);
        if (given.code == wrongUse) {
            EXPECT_TRUE(given.complaint.ends_with(noMemory + "\n")) << given.complaint;
        } else {
            EXPECT_EQ(given.code, someErrors);
            if (given.output.find(noMemory) == std::string::npos) {
                EXPECT_EQ(given.output, missingPlace);
            }
        }
        if (refused) ++refusals;
    }
    EXPECT_GT(refusals, 10u);
}

} // namespace checkTest
