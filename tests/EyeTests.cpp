// The readers of eye ellipses, eye points and extended eye points.

#include "ReaderTest.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"

namespace {

constexpr const char* ellipsesFile = "Manikin/EyeEllipses.xml";
constexpr const char* pointsFile = "Manikin/EyePoints.xml";

} // namespace

using EyeTest = ReaderTest;

TEST_F(EyeTest, CopiesHaveTheDataAndPositionsKeepTheCallersCoordinates)
{
    WriteDefault(ellipsesFile, OneCategory("", "<hpoint value='100'/><plan_view cutoff95='22'/>"));
    Ask("EyeEllipses", "GetHPointTravelData", "S, x, 100, 95");
    auto& config = static_cast<VEXMELKEyeEllipsesConfig&>(Object("EyeEllipses"));
    double axis = before;
    const auto copy = CATHandle<VEXMELKEyeEllipsesConfig>::Create(config);
    EXPECT_TRUE(copy->GetPlanViewMinorAxis("unknown", "x", 95, axis));
    EXPECT_DOUBLE_EQ(axis, 22.0);

    VEXMELKEyePointPosition position;
    std::tie(position.x, position.y, position.z, position.dx) = std::tuple(1.0, 2.0, 3.0, before);
    WriteDefault(pointsFile, OneCategory("", "<deep><top_v_point x='9' dx='x' dy='1cm'/></deep>"));
    EXPECT_TRUE(Manager().GetEyePointsConfig()->GetTopVEyePointPosition("S", "x", position));
    EXPECT_THAT(std::vector({position.x, position.y, position.z, position.dx, position.dy, position.dz}),
        testing::ElementsAre(1.0, 2.0, 3.0, 0.0, 10.0, 0.0));
}
