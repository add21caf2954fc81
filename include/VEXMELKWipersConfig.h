// VEXMELKWipersConfig: the shares of the fields of view that the wipers have to cover, from "Toolbox\Wipers.xml".
//
//     <standard name="..."><category name="default"
//         a_field="98" b_field="80" c_field="100"/></standard>
//
// Values are plain numbers. A value is taken from the category, else from the category "default" of the same standard.
#ifndef VEXMELKWipersConfig_H
#define VEXMELKWipersConfig_H

#include "VEXMELKCheckConfig.h"

// Plain numbers; -1 when missing, 0 for a text that is no number.
struct VEXMELKWipersDefinition
{
    double a_field = 0.0;
    double b_field = 0.0;
    double c_field = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKWipersConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKWipersConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWipersDefinition& definition);
};

#endif
