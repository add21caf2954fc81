// VEXMELKManikinTemplateConfig: the two-dimensional manikin template that positions an occupant, from
// "Manikin\ManikinTemplate.xml".
//
//     <standard name="..."><category name="default">
//       <percentil value="95" torso_length="504mm" hip_angle="input" ...>
//         <driver_seat torso_angle="25deg" .../>
//       </percentil>
//       <positioning name="heel point" heel_point="input" seat_point="output" ...><driver_seat .../></positioning>
//     </category></standard>
//
// Each attribute tells the role of one element of the template, or gives it a fixed value. A category that is missing
// is replaced by "default".
#ifndef VEXMELKManikinTemplateConfig_H
#define VEXMELKManikinTemplateConfig_H

#include "VEXMELKUnderfloorConfig.h"

// The role of a template's element.
enum VEXMELKMTElementUsage : int
{
    MTUsageUnused = 0,   // "unused"
    MTUsageBaseData = 1, // "base_data"
    MTUsageValue = 2,    // any other text: a fixed value
    MTUsageInput = 3,    // "input" or "selection"
    MTUsageOutput = 4    // "output"
};

enum VEXMELKManikinTemplateSeatEnum : int
{
    MTDriverSeat = 0, // "driver_seat"
    MTFrontSeat = 1,  // "front_seat"
    MTBackSeat = 2    // "back_seat"
};

// The attribute of a pair fills both its usage and its value: a text with its unit, which for a role is the role's own
// word. Without an attribute a usage is unused and a value "0.0".
struct VEXMELKManikinTemplateDefinition
{
    VEXMELKMTElementUsage torso_length_usage = MTUsageUnused;
    CATUnicodeString torso_length; // length
    VEXMELKMTElementUsage torso_angle_usage = MTUsageUnused;
    CATUnicodeString torso_angle; // angle
    VEXMELKMTElementUsage seat_point_usage = MTUsageUnused;
    VEXMELKMTElementUsage hip_angle_usage = MTUsageUnused;
    CATUnicodeString hip_angle; // angle
    VEXMELKMTElementUsage rump_length_usage = MTUsageUnused;
    CATUnicodeString rump_length; // length
    VEXMELKMTElementUsage knee_angle_usage = MTUsageUnused;
    CATUnicodeString knee_angle; // angle
    VEXMELKMTElementUsage leg_room_usage = MTUsageUnused;
    CATUnicodeString leg_room; // length
    VEXMELKMTElementUsage leg_length_usage = MTUsageUnused;
    CATUnicodeString leg_length; // length
    VEXMELKMTElementUsage foot_angle_usage = MTUsageUnused;
    CATUnicodeString foot_angle;     // angle
    CATUnicodeString max_foot_angle; // angle
    CATUnicodeString min_foot_angle; // angle
    VEXMELKMTElementUsage foot_length_usage = MTUsageUnused;
    CATUnicodeString foot_length; // length
    VEXMELKMTElementUsage foot_flesh_angle_usage = MTUsageUnused;
    CATUnicodeString foot_flesh_angle; // angle
    VEXMELKMTElementUsage foot_hoffset_usage = MTUsageUnused;
    CATUnicodeString foot_hoffset; // length
    VEXMELKMTElementUsage foot_voffset_usage = MTUsageUnused;
    CATUnicodeString foot_voffset; // length
    VEXMELKMTElementUsage bof_point_usage = MTUsageUnused;
    VEXMELKMTElementUsage ankle_point_usage = MTUsageUnused;
    VEXMELKMTElementUsage lift_usage = MTUsageUnused;
    CATUnicodeString lift; // length
    VEXMELKMTElementUsage heel_point_usage = MTUsageUnused;
    VEXMELKMTElementUsage pedal_usage = MTUsageUnused;
    VEXMELKMTElementUsage floor_usage = MTUsageUnused;
    unsigned char foot_on_floor = 0;
    VEXMELKMTElementUsage interior_usage = MTUsageUnused;
    CATUnicodeString interior_interval; // length
};

class ExportedByVEXMELKConfiguration VEXMELKManikinTemplateConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKManikinTemplateConfig(const CATUnicodeString& configurationDirectory);

    VEXMELKMTElementUsage GetRole(CATUnicodeString& text);

    // Replace the list by the names of the category's percentiles or positionings. False, with the list untouched, when
    // the standard has no data for the category.
    unsigned char GetPercentilList(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names);
    unsigned char GetPositioningList(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names);

    // Whether a positioning supports a seat: it holds the seat's element, or nothing at all.
    unsigned char IsSeatSupported(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& positioning, const VEXMELKManikinTemplateSeatEnum& seat);

    // Resets the record, then applies the percentile, its seat, the positioning and its seat, each over the ones before
    // it. Always true: a missing template leaves the defaults.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& percentil, const CATUnicodeString& positioning,
        const VEXMELKManikinTemplateSeatEnum& seat, VEXMELKManikinTemplateDefinition& definition);

private:
    unsigned char GetMTElementAttributesAndValues(
        CATIDOMElement_var& element, VEXMELKManikinTemplateDefinition& definition);
    unsigned char GetMTSeatElement(
        CATIDOMElement_var& parent, const VEXMELKManikinTemplateSeatEnum& seat, CATIDOMElement_var& seatElement);
    void ApplyTemplate(CATIDOMElement_var element, const VEXMELKManikinTemplateSeatEnum& seat,
        VEXMELKManikinTemplateDefinition& definition);
};

#endif
