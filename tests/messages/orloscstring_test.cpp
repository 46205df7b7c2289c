#include "orloscstring.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace orloscstringTest {

using orlo::scstring;
using orlo::string;
using orlo::tests::machine;

TEST(scstring, isTheEmptyTextByDefault)
{
    const scstring handle;
    EXPECT_EQ(handle.text(), string());
    EXPECT_EQ(&handle.text(), &string::emptyString());
}

TEST(scstring, ofTheEmptyTextIsTheNullHandle)
{
    EXPECT_EQ(scstring(u""), scstring());
    EXPECT_EQ(&scstring(u"").text(), &string::emptyString());
}

TEST(scstring, holdsItsText)
{
    EXPECT_EQ(scstring(u"language.loc").text(), string(u"language.loc"));
    EXPECT_EQ(string(scstring(u"language.loc").c_str()), string(u"language.loc"));
}

TEST(scstring, ofEqualTextsHoldsOnePointer)
{
    const string first(u"pool entry"), second(u"pool entry");
    const scstring a(first.c_str()), b(second.c_str());
    EXPECT_EQ(a, b);
    EXPECT_EQ(&a.text(), &b.text());
}

TEST(scstring, tellsTextsApartByUnitAndCase)
{
    EXPECT_FALSE(scstring(u"name") == scstring(u"Name"));
    EXPECT_FALSE(scstring(u"name") == scstring(u"nam"));
}

TEST(scstring, keepsItsTextWhenTheOriginalChanges)
{
    string original(u"short-lived");
    const scstring handle(original.c_str());
    original.assign(u"overwritten");
    EXPECT_EQ(handle.text(), string(u"short-lived"));
}

TEST(scstring, ofANullTextFailsAnAssertion)
{
    machine& here = machine::renew();
    try {
        const scstring handle(nullptr);
        FAIL() << "taken";
    } catch (bool thrown) {
        EXPECT_FALSE(thrown);
    }
    ASSERT_EQ(here.boxTexts().size(), 1U);
    EXPECT_EQ(here.boxTexts()[0],
              string(u"Assertion failed:\ns\n\nFile: libs/utils/src/orloscstring\nLine: 102"));
}

TEST(scstring, isTheSameForAllThreads)
{
    const std::u16string names = u"abcdefgh";
    std::vector<std::vector<const string*>> seen(4);
    std::vector<std::thread> threads;
    for (auto& mine : seen)
        threads.emplace_back([&mine, &names] {
            for (const char16_t name : names) {
                const char16_t text[] = {u't', u'h', u'r', u'e', u'a', u'd', name, 0};
                mine.push_back(&scstring(text).text());
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (const auto& mine : seen) EXPECT_EQ(mine, seen[0]);
}

} // namespace orloscstringTest
