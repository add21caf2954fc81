// The underfloor checks. Records first, then the configurations with their operations.

#include "Records.h"
#include "Registry.h"
#include "VEXMELKUFCompleteConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKUFDynamicCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKUFOilTubConfig.h"
#include "VEXMELKUFSlopeAngleConfig.h"
#include "VEXMELKUFSpaceToRoadConfig.h"
#include "VEXMELKUFWheelFixingConfig.h"

template <> constexpr auto FieldsOf<VEXMELKUFCompleteConfigDefinition>()
{
    using R = VEXMELKUFCompleteConfigDefinition;
    return Fields<none, &R::Curb, &R::DynCurb, &R::InnerAngle, &R::OilTub, &R::SlopeAngle, &R::SpaceToRoad,
        &R::WheelFixing>();
}

template <> constexpr auto FieldsOf<VEXMELKUFCurbConfigDefinition>()
{
    using R = VEXMELKUFCurbConfigDefinition;
    return Fields<none, &R::FrontOffset, &R::FrontAngle, &R::BackAngle, &R::BackOffset>();
}

std::vector<Configuration> UnderfloorConfigurations()
{
    using Manager = VEXMELKConfigManager;
    return {
        Describe<&Manager::GetUFSlopeAngleConfig>("UFSlopeAngle", {"VEXMELKUFSlopeAngle"}, "OVA\\UFSlopeAngle.xml",
            {
                Query("GetStandardData", "standard, category, >front_angle, >back_angle",
                    &VEXMELKUFSlopeAngleConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFInnerAngleConfig>("UFInnerAngle", {"VEXMELKUFInnerAngle"}, "OVA\\UFInnerAngle.xml",
            {
                Query("GetStandardData", "standard, category, >inner_angle, >calculation",
                    &VEXMELKUFInnerAngleConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFCurbConfig>("UFCurb", {"VEXMELKUFCurb"}, "OVA\\UFCurb.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKUFCurbConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFDynamicCurbConfig>("UFDynamicCurb", {"VEXMELKUFDynCurb"}, "OVA\\UFDynamicCurb.xml",
            {
                Query("GetStandardData", "standard, category, >out_offset, >in_offset, >in_length, >calculation",
                    &VEXMELKUFDynamicCurbConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFSpaceToRoadConfig>("UFSpaceToRoad", {"VEXMELKUFSpaceToRoad"}, "OVA\\UFSpaceToRoad.xml",
            {
                Query("GetStandardData",
                    "standard, category, >offset, >WholeLength, >CalcUnderAxis, >OffsetUnderAxes, >CircUnderAxis, "
                    ">extension, >WheelRadius, >GeneralSurface",
                    &VEXMELKUFSpaceToRoadConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFOilTubConfig>("UFOilTub", {"VEXMELKUFOilTub"}, "OVA\\UFOilTub.xml",
            {
                Query("GetStandardData", "standard, category, >out_offset, >out_angle, >in_offset, >in_angle",
                    &VEXMELKUFOilTubConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFWheelFixingConfig>("UFWheelFixing", {"VEXMELKUFWheelFixing"}, "OVA\\UFWheelFixing.xml",
            {
                Query("GetStandardData", "standard, category, >radius, >offset",
                    &VEXMELKUFWheelFixingConfig::GetStandardData),
            }),
        Describe<&Manager::GetUFCompleteConfig>("UFComplete", {"VEXMELKUFComplete"}, "OVA\\UFComplete.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKUFCompleteConfig::GetStandardData),
            }),
    };
}
