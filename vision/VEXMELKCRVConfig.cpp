#include "VEXMELKCRVConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

VEXMELKCRVConfig::VEXMELKCRVConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "CloseRangeVisibility.xml")
{
}

unsigned char VEXMELKCRVConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKCRVConfigDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            // Set before anything can fail.
            definition.front_offset = "2000mm";
            definition.driver_side_extension = "700mm";
            definition.passenger_side_extension = "900mm";
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            if (element == NULL_var && defaultElement == NULL_var)
                return 0;

            ReadFields(AttributesOf(FirstChildOfEither(element, defaultElement, "cylinder")), NULL_var,
                {
                    {"radius", "", definition.radius, Keep},
                    {"height", "", definition.height, Keep},
                    {"visibleRayCount", "", definition.visibleRayCount, Keep},
                });
            const CATIDOMNamedNodeMap_var area = AttributesOf(FirstChildOfEither(element, defaultElement, "area"));
            ReadFields(area, NULL_var, {{"type", "", definition.type, Keep}});
            if (definition.type == "front_view")
                ReadFields(area, NULL_var,
                    {
                        {"front_offset", "mm", definition.front_offset, Keep},
                        {"driver_side_extension", "mm", definition.driver_side_extension, Keep},
                        {"passenger_side_extension", "mm", definition.passenger_side_extension, Keep},
                    });
            ReadFields(AttributesOf(FirstChildOfEither(element, defaultElement, "death_zone")), NULL_var,
                {
                    {"param1", "", definition.param1, Keep},
                    {"param2", "", definition.param2, Keep},
                });
            return 1;
        });
}
