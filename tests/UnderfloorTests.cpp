// The readers of the underfloor checks.

#include "ReaderTest.h"

using UnderfloorTest = ReaderTest;

TEST_F(UnderfloorTest, EveryValueOfTheCategoryOrOfDefaultOrItsOwnDefault)
{
    const Reader readers[] = {
        {"OVA/UFCurb.xml", "UFCurb", "/definition",
            "front_offset:mm>FrontOffset front_angle:deg>FrontAngle back_angle:deg>BackAngle "
            "back_offset:mm>BackOffset"},
        {"OVA/UFDynamicCurb.xml", "UFDynamicCurb", "", "out_offset:mm in_offset:mm in_length:mm calculation"},
        {"OVA/UFInnerAngle.xml", "UFInnerAngle", "", "inner_angle:deg calculation"},
        {"OVA/UFOilTub.xml", "UFOilTub", "", "out_offset:mm out_angle:deg in_offset:mm in_angle:deg"},
        {"OVA/UFSlopeAngle.xml", "UFSlopeAngle", "", "front_angle:deg back_angle:deg"},
        {"OVA/UFSpaceToRoad.xml", "UFSpaceToRoad", "",
            "offset:mm WholeLength:flag CalcUnderAxis:flag OffsetUnderAxes:mm CircUnderAxis:flag extension:mm "
            "WheelRadius:flag=true GeneralSurface:flag=true"},
        {"OVA/UFWheelFixing.xml", "UFWheelFixing", "", "radius:mm offset:mm"},
        {"OVA/UFComplete.xml", "UFComplete", "/definition",
            "Curb DynCurb InnerAngle OilTub SlopeAngle SpaceToRoad WheelFixing"},
    };
    for (const Reader& reader : readers)
        ExpectCategory(reader);
}
