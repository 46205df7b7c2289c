// The shared empty text at the end of a process, whose first use no other test may have been.
#include "orlostring.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace processendTest {

using orlo::string;

namespace {

// Asks for the shared text when all other static objects have gone: made before it, it is
// destroyed after whatever the first use of it registered.
struct lastOfAll {
    ~lastOfAll()
    {
        if (!asked) return;
        const string& shared = string::emptyString();
        const bool same = &shared == asked && shared.empty() && shared.c_str()[0] == 0;
        std::_Exit(same ? 42 : 1);
    }
    const string* asked = nullptr;
};

TEST(stringSystem, emptyStringServesDestructorsAtTheEndOfTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            static lastOfAll last;
            last.asked = &string::emptyString();
            std::exit(0);
        },
        testing::ExitedWithCode(42), "");
}

} // namespace

} // namespace processendTest
