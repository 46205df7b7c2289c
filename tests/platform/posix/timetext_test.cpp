// The character sets in which a formatted time comes.
#include "platform/platform.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace timetextTest {

using namespace orlo;

TEST(timeTextSystem, isReadAsUtf8)
{
    EXPECT_EQ(platform::timeText(""), u"");
    EXPECT_EQ(platform::timeText("Fr 29 M\xC3\xA4r 2024"), u"Fr 29 M\u00E4r 2024");
    EXPECT_EQ(platform::timeText("2024\xE5\xB9\xB4"), u"2024\u5E74");
}

TEST(timeTextSystem, isReadByteByByteWhereItIsNoUtf8)
{
    EXPECT_EQ(platform::timeText("Fr 29 M\xE4r 2024"), u"Fr 29 M\u00E4r 2024");
}

} // namespace timetextTest
