#include "LibraryTest.h"
#include "VEXMELKUFCurbConfig.h"

using Smoke = LibraryTest;

TEST_F(Smoke, Answers)
{
    directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="25")"));
    VEXMELKUFCurbConfigDefinition curb;
    EXPECT_TRUE(Manager().GetUFCurbConfig()->GetStandardData("S", "x", curb));
    EXPECT_EQ(curb.FrontOffset, "25mm");
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}
