// The readers of occupant packaging, report templates and database access.

#include "ReaderTest.h"

using PackagingTest = ReaderTest;

namespace {

constexpr const char* templateFile = "Manikin/ManikinTemplate.xml";

} // namespace

TEST_F(PackagingTest, TemplatesEveryAttributeItsRoleAndItsUnit)
{
    Reader reader = {
        templateFile, "ManikinTemplate", "/definition", "foot_on_floor:flag ", "GetStandardData", "S, x, p, q, 1"};
    for (const std::string& valueWithRole :
        Split("torso_length:mm torso_angle:deg hip_angle:deg rump_length:mm knee_angle:deg leg_room:mm leg_length:mm "
              "foot_angle:deg foot_length:mm foot_flesh_angle:deg foot_hoffset:mm foot_voffset:mm lift:mm",
            " "))
    {
        const std::string attribute = Split(valueWithRole, ":")[0];
        reader.fields += valueWithRole + "=0.0 " + attribute + ":usage>" + attribute + "_usage ";
    }
    for (const std::string& role : Split("seat_point bof_point ankle_point heel_point pedal floor interior", " "))
        reader.fields += role + ":usage>" + role + "_usage ";
    reader.fields += "max_foot_angle:deg=0.0 min_foot_angle:deg=0.0 interior_interval:mm=0.0";
    ExpectElement(reader, "<percentil value='p' @/>");
    ExpectElement(reader, "<percentil value='P' lift='1'/><positioning name='q' @/>");
    ExpectElement(reader, "<percentil value='p'><deep><front_seat @/></deep><front_seat lift='1'/></percentil>");
    ExpectElement(reader, "<positioning name='q'><driver_seat lift='1'/><front_seat @/></positioning>");
    ExpectNone(reader, Document(Standard("S", Category("x", "<percentil value='P' lift='1'/>"))));
    ExpectNone(reader, Document(Standard("S", Category("X", "<percentil value='p' lift='1'/>"))));
}
