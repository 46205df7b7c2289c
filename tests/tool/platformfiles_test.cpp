#include "platformfiles.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace platformfilesTest {

using namespace taven;

TEST(platformFiles, areNamedAfterThePlatform)
{
    EXPECT_EQ(descriptionName(u"P1"), u"P1.xml");
    EXPECT_EQ(pictureName(u"P1", u"PNG"), u"P1.PNG");
    EXPECT_EQ(measuringName(u"P1"), u"MeasuringData_P1.xml");
    EXPECT_EQ(allOfPlatform(u"P1"), u"P1.*");
}

TEST(platformFiles, haveNamesAlsoForTheEmptyPlatform)
{
    EXPECT_EQ(descriptionName(u""), u".xml");
    EXPECT_EQ(pictureName(u"", u""), u".");
    EXPECT_EQ(measuringName(u""), u"MeasuringData_.xml");
    EXPECT_EQ(allOfPlatform(u""), u".*");
}

} // namespace platformfilesTest
