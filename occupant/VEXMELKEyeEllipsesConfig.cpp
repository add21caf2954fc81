#include "VEXMELKEyeEllipsesConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"
#include "VEXMELKOccupantRules.h"

#include <cmath>

namespace {

constexpr std::string_view generation2002 = "coeficients2002";
constexpr std::string_view generation1997 = "coeficients1997";

VEXMELKEyeEllipsesHPointData HPointDataOf(const CATIDOMElement_var& element)
{
    VEXMELKEyeEllipsesHPointData data;
    ReadFields(element, NULL_var,
        {
            {"value", "mm", data.value},
            {"xmean", "mm", data.xmean},
            {"zmean", "mm", data.zmean},
            {"ymean_left", "mm", data.ymean_left},
            {"ymean_right", "mm", data.ymean_right},
            {"cutoff90", "mm", data.cutoff90},
            {"cutoff95", "mm", data.cutoff95},
            {"cutoff99", "mm", data.cutoff99},
        });
    return data;
}

// The radii of the row that the rule chooses for the travel.
unsigned char ReadRadii(const CATIDOMElement_var& coeficients, VEXMELKTravelChoice::Rule rule, double hPointTravel,
    int cutoff, double& radiusX, double& radiusY, double& radiusZ)
{
    const VEXMELKChosenRow chosen = ChooseRow(rule, coeficients, "radii", "h_point_travel", hPointTravel);
    if (chosen.fails || !chosen.found)
        return 0;
    const CATIDOMElement_var row = FindChild(coeficients, "radii", "h_point_travel", chosen.travelText);
    const bool is99 = cutoff == 99;
    ReadFields(row, NULL_var,
        {
            {is99 ? "radiusX_99" : "radiusX_95", "mm", radiusX, InMillimetres, -1.0},
            {is99 ? "radiusY_99" : "radiusY_95", "mm", radiusY, InMillimetres, -1.0},
            {is99 ? "radiusZ_99" : "radiusZ_95", "mm", radiusZ, InMillimetres, -1.0},
        });
    return cutoff == 95 || cutoff == 99;
}

} // namespace

VEXMELKEyeEllipsesConfig::VEXMELKEyeEllipsesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "EyeEllipses.xml"),
      m_HPointData(0, 20, 100),
      m_Numbers(0, 20, 100)
{
}

// A pair whose category is missing keeps the data of the pair before it, on purpose.
unsigned char VEXMELKEyeEllipsesConfig::Init(const CATUnicodeString& standard, const CATUnicodeString& category)
{
    if (standard == m_Standard && category == m_Category)
        return 1;
    const CATIDOMElement_var element = GetCategoryElement(standard, category);
    if (element != NULL_var)
    {
        m_Standard = ""; // no pair until all data are there
        m_Category = "";
        m_HPointData.reset();
        ForEachElement(element, "hpoint", m_HPointData,
            [&](const CATIDOMElement_var& hpoint) { m_HPointData.add(HPointDataOf(hpoint)); });
        const auto readAxes = [&](const char* tag, MinorAxes& axes)
        {
            ForEachElement(element, tag, // the last one wins
                [&](const CATIDOMElement_var& view)
                {
                    ReadFields(view, NULL_var,
                        {
                            {"cutoff90", "mm", axes.cutoff90},
                            {"cutoff95", "mm", axes.cutoff95},
                            {"cutoff99", "mm", axes.cutoff99},
                        });
                });
        };
        readAxes("side_view", m_SideView);
        readAxes("plan_view", m_PlanView);
    }
    m_Standard = standard;
    m_Category = category;
    return 1;
}

CATIDOMElement_var VEXMELKEyeEllipsesConfig::GenerationElement(
    const CATUnicodeString& standard, std::string_view elementName)
{
    return FirstElement(GetStandardElement(standard), elementName);
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard(
    const CATUnicodeString& standard, const CATUnicodeString& elementName)
{
    return Answer([&]() -> unsigned char { return GenerationElement(standard, elementName) != NULL_var; });
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard2002(const CATUnicodeString& standard)
{
    return IsStandard(standard, generation2002);
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard1997(const CATUnicodeString& standard)
{
    return IsStandard(standard, generation1997);
}

unsigned char VEXMELKEyeEllipsesConfig::GetCutOffList(const CATUnicodeString& standard, CATRawCollint& cutoffs)
{
    return Answer(
        [&]() -> unsigned char
        {
            cutoffs.RemoveAll();
            CATIDOMElement_var coeficients = GenerationElement(standard, generation2002);
            if (coeficients == NULL_var)
                coeficients = GenerationElement(standard, generation1997);
            if (coeficients == NULL_var)
            {
                for (const int cutoff : {90, 95, 99})
                    cutoffs.Append(cutoff);
                return 1;
            }
            CATListValCATUnicodeString texts;
            ChildAttributeValues(coeficients, "cutOff", "value", texts);
            for (const CATUnicodeString& text : texts)
            {
                int cutoff = 0;
                text.ConvertToNum(&cutoff, "%d");
                cutoffs.Append(cutoff);
            }
            return texts.Size() > 0;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetCoeficients1997(const CATUnicodeString& standard, double hPointTravel,
    double& L40X, double& L40XP2, double& L40Z, double& L40ZP2, double& x, double& y, double& z)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var coeficients = GenerationElement(standard, generation1997);
            if (coeficients == NULL_var)
                return 0;
            const std::pair<const char*, double*> kinds[] = {
                {"coef_L40X", &L40X},
                {"coef_L40XP2", &L40XP2},
                {"coef_L40Z", &L40Z},
                {"coef_L40ZP2", &L40ZP2},
                {"coef_x", &x},
                {"coef_y", &y},
                {"coef_z", &z},
            };
            unsigned char complete = 1;
            for (const auto& [kind, value] : kinds)
            {
                const VEXMELKChosenRow chosen =
                    ChooseRow(VEXMELKTravelChoice::Coeficients1997, coeficients, kind, "h_point_travel", hPointTravel);
                if (chosen.fails)
                    return 0;
                if (chosen.found)
                    ReadFields(FindChild(coeficients, kind, "h_point_travel", chosen.travelText), NULL_var,
                        {{"value", "", *value, AsNumber, Keep}});
                else
                    complete = 0;
            }
            return complete;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetCoeficients2002(
    const CATUnicodeString& standard, double& L1, double& L6, double& H30, double& T, double& x, double& y, double& z)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var coeficients = GenerationElement(standard, generation2002);
            if (coeficients == NULL_var)
                return 0;
            const std::pair<const char*, double*> kinds[] = {
                {"coef_L1", &L1},
                {"coef_L6", &L6},
                {"coef_H30", &H30},
                {"coef_T", &T},
                {"coef_x", &x},
                {"coef_y", &y},
                {"coef_z", &z},
            };
            for (const auto& [kind, value] : kinds)
            {
                const CATIDOMElement_var element = FirstElement(coeficients, kind);
                if (element != NULL_var)
                    ReadFields(element, NULL_var, {{"value", "", *value, AsNumber, Keep}});
            }
            return 1;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetRadii1997(const CATUnicodeString& standard, double hPointTravel, int cutoff,
    double& radiusX, double& radiusY, double& radiusZ)
{
    return Answer(
        [&]
        {
            return ReadRadii(GenerationElement(standard, generation1997), VEXMELKTravelChoice::Radii1997, hPointTravel,
                cutoff, radiusX, radiusY, radiusZ);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetRadii2002(const CATUnicodeString& standard, double hPointTravel, int cutoff,
    double& radiusX, double& radiusY, double& radiusZ)
{
    return Answer(
        [&]
        {
            return ReadRadii(GenerationElement(standard, generation2002), VEXMELKTravelChoice::Radii2002, hPointTravel,
                cutoff, radiusX, radiusY, radiusZ);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetHPointTravelData(const CATUnicodeString& standard,
    const CATUnicodeString& category, double hPointTravel, int cutoff, double& xmean, double& ymeanLeft,
    double& ymeanRight, double& zmean, double& cutoffLength)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            const auto length = [](const CATUnicodeString& text) { return ParameterMillimetres(text, "CHPT"); };
            const VEXMELKEyeEllipsesHPointData* nearest = nullptr;
            double best = 10000000.0;
            for (const VEXMELKEyeEllipsesHPointData& data : m_HPointData)
            {
                const double distance = std::fabs(length(data.value) - hPointTravel);
                if (distance < best)
                {
                    nearest = &data;
                    best = distance;
                }
            }
            if (!nearest)
                return 0;
            xmean = length(nearest->xmean);
            ymeanLeft = length(nearest->ymean_left);
            ymeanRight = length(nearest->ymean_right);
            zmean = length(nearest->zmean);
            cutoffLength = zmean; // stays for any other cut-off than these
            if (cutoff == 90)
                cutoffLength = length(nearest->cutoff90);
            else if (cutoff == 95)
                cutoffLength = length(nearest->cutoff95);
            else if (cutoff == 99)
                cutoffLength = length(nearest->cutoff99);
            return 1;
        });
}

double VEXMELKEyeEllipsesConfig::AxisLength(const MinorAxes& axes, int cutoff)
{
    switch (cutoff)
    {
    case 90:
        return ParameterMillimetres(axes.cutoff90, "CAxis");
    case 95:
        return ParameterMillimetres(axes.cutoff95, "CAxis");
    case 99:
        return ParameterMillimetres(axes.cutoff99, "CAxis");
    default:
        return 0.0;
    }
}

unsigned char VEXMELKEyeEllipsesConfig::GetSideViewMinorAxis(
    const CATUnicodeString& standard, const CATUnicodeString& category, int cutoff, double& axis)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            axis = AxisLength(m_SideView, cutoff);
            return 1;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetPlanViewMinorAxis(
    const CATUnicodeString& standard, const CATUnicodeString& category, int cutoff, double& axis)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            axis = AxisLength(m_PlanView, cutoff);
            return 1;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetTipAngles(
    const CATUnicodeString& standard, const CATUnicodeString& category, double& sideViewAngle, double& planViewAngle)
{
    return Answer(
        [&]() -> unsigned char
        {
            return ReadTipAngles(GetCategoryElement(standard, category), GetCategoryElement(standard, defaultCategory),
                sideViewAngle, planViewAngle);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetBackAngleCorrection(
    const CATUnicodeString& standard, double backAngle, double& horizontal, double& vertical)
{
    return Answer([&]() -> unsigned char
        { return ReadBackAngleCorrection(GetStandardElement(standard), backAngle, horizontal, vertical); });
}

unsigned char VEXMELKEyeEllipsesConfig::GetUSADisplacement(
    const CATUnicodeString& standard, const CATUnicodeString& category, double& displacementW7, double& displacementW3)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard, category, defaultMap);
            if (ReadFields(map, defaultMap, {{"Y_Displacement_W7", "mm", displacementW7, ByLengthParameter, Keep}}))
                ReadFields(map, defaultMap, {{"Y_Displacement_W3", "mm", displacementW3, ByLengthParameter, Keep}});
            return 1; // always
        });
}
