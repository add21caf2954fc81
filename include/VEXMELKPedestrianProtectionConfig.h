// VEXMELKPedestrianProtectionConfig: the reference lines and test areas of a vehicle's front end, from
// "Safety\PedestrianProtection.xml".
//
//     <standard name="..."><category name="default" CuttingStep="100mm" WrapAroundUseWindshield="true">
//       <curve type="BonnetLeadingEdge" angle="50deg" length="1000mm" .../>
//       <bonnetTop1 name="child" splitM="3" splitN="4" detail="true">
//         <side limit="BonnetSide" offset="82.5mm" offset_type="..."/>
//         <front limit="..." checkDist="1000mm" limit2="..." offset="..." offset_type="..."/>
//         <rear limit="..." offset="..." offset_type="..."/>
//       </bonnetTop1>
//       <bonnetRearTemplate startradius="82.5" step="10"/>
//     </category></standard>
//
// Values are texts with their unit. Each element is taken whole from the category, else from "default"; attributes are
// never mixed.
#ifndef VEXMELKPedestrianProtectionConfig_H
#define VEXMELKPedestrianProtectionConfig_H

#include "VEXMELKUnderfloorConfig.h"

// The construction rule of one reference line. The comments tell what a missing attribute gives; a missing line leaves
// all texts empty and all flags false.
struct TraceCurveDefinition
{
    CATUnicodeString angle;       // angle; empty
    CATUnicodeString length;      // length; empty
    CATUnicodeString offset;      // length; "0.0mm"
    CATUnicodeString radiusLower; // length; empty
    CATUnicodeString radiusUpper; // length; empty
    CATUnicodeString threshold;   // length; empty
    unsigned char defined = 0;    // whether the file has this line
    unsigned char use_lower_end = 0;
    unsigned char use_upper_end = 0;
    unsigned char use_left = 0;
    unsigned char use_right = 0;
    CATUnicodeString tangent_selection; // "lowest"
    CATUnicodeString curve_offset_type; // "WrapAround"
    CATUnicodeString curve_offset;      // length; "0.0mm"
    unsigned char warning = 0;
    CATUnicodeString alternative_angle; // angle; "40.0deg"
};

// One boundary of a test area; empty when missing.
struct PPBonnetTopBoundary
{
    CATUnicodeString limit;
    CATUnicodeString limit2; // front only
    CATUnicodeString offset; // length
    CATUnicodeString offset_type;
    CATUnicodeString checkDist; // length; front only
};

// One test area on the bonnet.
struct PPBonnetTopDefinition
{
    CATUnicodeString name;
    PPBonnetTopBoundary side;
    PPBonnetTopBoundary front;
    PPBonnetTopBoundary rear;
    int splitM = 0;
    int splitN = 0;
    unsigned char detail = 0;
};

// The template along the rear of the bonnet: texts as written, empty when missing.
struct PPBonnetRearTemplateDefinition
{
    CATUnicodeString startradius;
    CATUnicodeString step;
};

struct PedestrianProtectionDefinition
{
    TraceCurveDefinition upperBumper;
    TraceCurveDefinition lowerBumper;
    TraceCurveDefinition cornerOfBumper;
    TraceCurveDefinition bonnetLeadingEdge;
    TraceCurveDefinition bonnetSide;
    TraceCurveDefinition wrapAround1;
    TraceCurveDefinition wrapAround2;
    TraceCurveDefinition wrapAround3;
    TraceCurveDefinition bonnetRear;
    PPBonnetTopDefinition bonnetTop1;
    PPBonnetTopDefinition bonnetTop2;
    PPBonnetRearTemplateDefinition bonnetRearTemplate;
    unsigned char wrapAroundUseWindshield = 0; // of the category, else of "default", else false
    CATUnicodeString cuttingStep;              // length; of the category, else of "default", else empty
};

class ExportedByVEXMELKConfiguration VEXMELKPedestrianProtectionConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKPedestrianProtectionConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the record; a line, area or template that is missing is reset. False, with the record untouched, when
    // the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, PedestrianProtectionDefinition& definition);

private:
    void GetTraceCurveDef(const CATUnicodeString& curveType, const CATIDOMElement_var& categoryElement,
        const CATIDOMElement_var& defaultElement, TraceCurveDefinition& curve);
    void GetPPBonnetTopDef(const CATUnicodeString& elementName, const CATIDOMElement_var& categoryElement,
        const CATIDOMElement_var& defaultElement, PPBonnetTopDefinition& area);
    void GetPPBonnetRearTemplateDef(const CATUnicodeString& elementName, const CATIDOMElement_var& categoryElement,
        const CATIDOMElement_var& defaultElement, PPBonnetRearTemplateDefinition& rearTemplate);

    // The value of an attribute, or the default when it is missing or, for an integer, does not convert.
    CATUnicodeString GetOptionalStringValue(const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name,
        const CATUnicodeString& unit, const CATUnicodeString& defaultValue);
    int GetOptionalIntValue(const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, int defaultValue);
    unsigned char GetOptionalBooleanValue(
        const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, unsigned char defaultValue);
};

#endif
