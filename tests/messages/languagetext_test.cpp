#include "messages/languagetext.h"

#include "orlofile.h"
#include "support/allocations.h"
#include "support/languagefile.h"

#include <optional>

namespace languagetextTest {

using orlo::file;
using orlo::readLanguageText;
using orlo::string;
using orlo::tests::addLanguageFile;
using orlo::tests::allocationFault;
using orlo::tests::machine;

TEST(languageText, isNoneWhereThereIsNoMemoryForIt)
{
    machine& here = machine::renew();
    const file source(string(u"C:\\a"));
    addLanguageFile(source.path(), u"key a text of some length\r\n");
    for (const auto how : {allocationFault::lasting::once, allocationFault::lasting::forGood}) {
        std::optional<std::u16string> text;
        for (std::size_t nth = 1; !text; ++nth) {
            const allocationFault fault(nth, how);
            EXPECT_NO_THROW(text = readLanguageText(source)) << nth;
            EXPECT_EQ(here.openHandles(), 0U) << nth;
            EXPECT_EQ(text.has_value(), !fault.hasHappened()) << nth;
        }
        EXPECT_EQ(string(*text), string(u"key a text of some length\n"));
    }
}

TEST(languageText, isNotDecodedWhereTheWordSurelyIsMissing)
{
    machine::renew();
    const file source(string(u"C:\\a"));
    addLanguageFile(source.path(), u"key a text\n");
    EXPECT_FALSE(orlo::readLanguageTextWith("#include", source));
    EXPECT_TRUE(orlo::readLanguageTextWith("a text", source));
}

} // namespace languagetextTest
