#include "orloexception.h"

#include "support/allocations.h"
#include "support/languagefile.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

namespace orloexceptionTest {

using orlo::file;
using orlo::languageTable;
using orlo::locString;
using orlo::string;
using orlo::tests::addLanguageFile;
using orlo::tests::languageTest;
using orlo::tests::machine;

namespace {

class failure : public languageTest {};

const file sample(u"C:\\x\\y.xml");

string textOf(const orlo::exception& thrown)
{
    return thrown.m_message.getText();
}

string keyOf(const orlo::exception& thrown)
{
    string key;
    thrown.m_message.getLocStringId().getKey(key);
    return key;
}

// Catch sites in other programs rely on the layout: the derived classes add no field, and the
// destructor is the one virtual operation.
static_assert(sizeof(orlo::exception) ==
              sizeof(void*) + sizeof(locString) + sizeof(std::vector<locString>));
static_assert(sizeof(orlo::outOfMemoryException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::unexpectedErrorException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::fileException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::fileNotFoundException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::readFileException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::writeFileException) == sizeof(orlo::exception));
static_assert(sizeof(orlo::invalidXmlException) == sizeof(orlo::exception));

static_assert(!std::is_base_of_v<std::exception, orlo::exception>);
static_assert(std::is_base_of_v<orlo::exception, orlo::outOfMemoryException>);
static_assert(std::is_base_of_v<orlo::exception, orlo::unexpectedErrorException>);
static_assert(std::is_base_of_v<orlo::exception, orlo::fileException>);
static_assert(std::is_base_of_v<orlo::fileException, orlo::fileNotFoundException>);
static_assert(std::is_base_of_v<orlo::fileException, orlo::readFileException>);
static_assert(std::is_base_of_v<orlo::fileException, orlo::writeFileException>);
static_assert(std::is_base_of_v<orlo::fileException, orlo::invalidXmlException>);
static_assert(std::has_virtual_destructor_v<orlo::exception>);
static_assert(!std::is_constructible_v<orlo::fileException, const locString&, const file&,
                                       const orlo::exception*>);

} // namespace

TEST_F(failure, carriesKeyDefaultTextAndParameters)
{
    const struct {
        orlo::exception thrown;
        const char16_t* key;
        const char16_t* text;
    } rows[] = {
        {orlo::outOfMemoryException(), u"Msg_EOutOfMem|Out of memory|", u"Out of memory"},
        {orlo::unexpectedErrorException(u"line %d of %s", 7, u"a.xml"),
         u"EUnexpected|Unexpected error occurred ([Details])|",
         u"Unexpected error occurred (line 7 of a.xml)"},
        {orlo::fileNotFoundException(sample), u"Msg_EFileNotFound|File [File] not found!|",
         u"File C:\\x\\y.xml not found!"},
        {orlo::readFileException(sample, nullptr), u"Msg_EReadFile|Error reading file [File]|",
         u"Error reading file C:\\x\\y.xml"},
        {orlo::writeFileException(sample, nullptr), u"Msg_EWriteFile|Error writing file [File]|",
         u"Error writing file C:\\x\\y.xml"},
        {orlo::invalidXmlException(sample),
         u"Msg_EInvalidXml|File [File] is not a valid XML-file!|",
         u"File C:\\x\\y.xml is not a valid XML-file!"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(keyOf(row.thrown), string(row.key));
        EXPECT_EQ(row.thrown.m_message.renderedText(), string())
            << "rendered before somebody asked";
        EXPECT_EQ(textOf(row.thrown), string(row.text));
        EXPECT_TRUE(row.thrown.m_stack.empty());
    }
}

// Nothing but the header itself tells how many virtual operations a class has.
TEST_F(failure, hasItsDestructorAsItsOnlyVirtualOperation)
{
    std::ifstream header(ORLO_LANGUAGE_FOLDER "/../../libs/utils/inc/orloexception.h");
    const std::vector<std::string> words{std::istream_iterator<std::string>(header), {}};
    ASSERT_FALSE(words.empty());
    EXPECT_EQ(std::count(words.begin(), words.end(), "virtual"), 1);
    EXPECT_EQ(std::count(words.begin(), words.end(), "override"), 0);
    EXPECT_TRUE(std::has_virtual_destructor_v<orlo::exception>);
}

TEST_F(failure, isCaughtByItsBases)
{
    const std::function<void()> fileFailures[] = {
        [] { throw orlo::fileNotFoundException(sample); },
        [] { throw orlo::readFileException(sample, nullptr); },
        [] { throw orlo::writeFileException(sample, nullptr); },
        [] { throw orlo::invalidXmlException(sample); },
    };
    for (const auto& fail : fileFailures) {
        EXPECT_THROW(fail(), orlo::fileException);
        EXPECT_THROW(fail(), orlo::exception);
    }
    EXPECT_THROW(throw orlo::outOfMemoryException(), orlo::exception);
    EXPECT_THROW(throw orlo::unexpectedErrorException(u"x"), orlo::exception);
}

TEST_F(failure, holdsTheMessagesOfTheInnerOneNearestFirst)
{
    const orlo::unexpectedErrorException deepest(u"cause");
    const orlo::readFileException middle(file(u"C:\\deep.xml"), &deepest);
    EXPECT_EQ(textOf(middle), string(u"Error reading file C:\\deep.xml"));
    const orlo::writeFileException outer(sample, &middle);
    ASSERT_EQ(outer.m_stack.size(), 2U);
    EXPECT_EQ(outer.m_stack[0].renderedText(), string()) << "rendered texts are not kept";
    EXPECT_EQ(string(outer.m_stack[0].getText()), string(u"Error reading file C:\\deep.xml"));
    EXPECT_EQ(string(outer.m_stack[1].getText()), string(u"Unexpected error occurred (cause)"));
    EXPECT_EQ(textOf(outer), string(u"Error writing file C:\\x\\y.xml"));
}

TEST_F(failure, copiesItsMessageAndItsStack)
{
    const orlo::outOfMemoryException inner;
    const orlo::readFileException original(sample, &inner);
    const orlo::readFileException copy(original);
    orlo::readFileException assigned(file(u"C:\\other"), nullptr);
    assigned = original;
    for (const orlo::exception* each : {static_cast<const orlo::exception*>(&copy),
                                        static_cast<const orlo::exception*>(&assigned)}) {
        EXPECT_EQ(textOf(*each), string(u"Error reading file C:\\x\\y.xml"));
        ASSERT_EQ(each->m_stack.size(), 1U);
        EXPECT_EQ(string(each->m_stack[0].getText()), string(u"Out of memory"));
    }
}

TEST_F(failure, rendersOneCopyWithoutTheOther)
{
    const orlo::fileNotFoundException original(sample);
    const orlo::fileNotFoundException copy(original);
    EXPECT_EQ(textOf(copy), string(u"File C:\\x\\y.xml not found!"));
    EXPECT_EQ(original.m_message.renderedText(), string());
}

TEST_F(failure, takesItsTextFromTheDefaultLanguageFile)
{
    languageTable::instance().setLanguage(u"german");
    languageTable::instance().setDefaultFile(u"failures.loc");
    addLanguageFile(u"C:\\tool\\config\\Language\\german\\failures.loc",
                    u"Msg_EFileNotFound Datei [File] fehlt\nEUnexpected Fehler: [Details]\n");
    EXPECT_EQ(textOf(orlo::fileNotFoundException(sample)), string(u"Datei C:\\x\\y.xml fehlt"));
    EXPECT_EQ(textOf(orlo::unexpectedErrorException(u"%d", 5)), string(u"Fehler: 5"));
    EXPECT_EQ(textOf(orlo::outOfMemoryException()), string(u"Out of memory"));
}

TEST_F(failure, findsTheLanguageFileWhenItIsThrown)
{
    languageTable::instance().setDefaultFile(u"atonce.loc");
    addLanguageFile(u"C:\\tool\\bin\\atonce.loc", u"Msg_EOutOfMem no room\n");
    machine::current().calls.clear();
    const orlo::outOfMemoryException thrown;
    EXPECT_GT(machine::current().countCalls("openFile"), 0U);
    machine::current().calls.clear();
    EXPECT_EQ(textOf(thrown), string(u"no room"));
    EXPECT_EQ(machine::current().countCalls("openFile"), 0U);
}

TEST_F(failure, rendersTheMessageOfTheThrowerAndNotItsOwn)
{
    const locString message(u"key", u"words");
    const orlo::exception thrown(message);
    EXPECT_EQ(message.renderedText(), string(u"words"));
    EXPECT_EQ(thrown.m_message.renderedText(), string());
}

// What goes wrong when the language file is looked for leaves instead of the exception.
TEST_F(failure, isNotMadeWhenItsTextCannotBeRendered)
{
    const locString message(u"key", u"E:words");
    bool rendered = false;
    for (std::size_t nth = 1; !rendered; ++nth) {
        const orlo::tests::allocationFault fault(nth);
        try {
            const orlo::exception thrown(message);
            rendered = !fault.hasHappened();
        } catch (const orlo::outOfMemoryException&) {
            break; // the severity of the text
        } catch (const std::bad_alloc&) {
            continue; // a copy of the message, or a text on the way
        }
    }
    EXPECT_FALSE(rendered) << "no failure of the rendering has left the constructor";
}

TEST_F(failure, takesANullFormatAsTheEmptyText)
{
    EXPECT_EQ(textOf(orlo::unexpectedErrorException(nullptr)),
              string(u"Unexpected error occurred ()"));
}

TEST_F(failure, cutsItsDetailsAt511Units)
{
    const string longest(std::u16string(511, u'd'));
    const string tooLong(std::u16string(600, u'd'));
    const string shorter(std::u16string(510, u'd'));
    for (const string* details : {&shorter, &longest, &tooLong})
        EXPECT_EQ(textOf(orlo::unexpectedErrorException(u"%s", *details)),
                  u"Unexpected error occurred (" + details->substr(0, 511) + u")");
}

TEST_F(failure, showsEmptyDetails)
{
    EXPECT_EQ(textOf(orlo::unexpectedErrorException(u"")), string(u"Unexpected error occurred ()"));
}

} // namespace orloexceptionTest
