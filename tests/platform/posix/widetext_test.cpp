// Narrow text on a system whose wide characters are whole code points.
#include "orlostring.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <clocale>

namespace widetextTest {

using orlo::string;

TEST(wideTextSystem, hasTwoUnitsForACharacterBeyondThem)
{
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const string widened("a\xF0\x9F\x98\x80\xF4\x8F\xBF\xBFz");
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(widened, u"a\xD83D\xDE00\xDBFF\xDFFFz");
}

} // namespace widetextTest
