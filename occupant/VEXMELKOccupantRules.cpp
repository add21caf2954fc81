#include "VEXMELKOccupantRules.h"

#include "VEXMELKField.h"

#include <utility>

namespace {

constexpr double tolerance = 1e-10; // millimetres

} // namespace

bool VEXMELKTravelChoice::Show(double row)
{
    const bool first = !std::exchange(m_HasRows, true);
    const bool qualifies = Qualifies(row);
    const bool qualified = std::exchange(m_HasQualified, m_HasQualified || qualifies);
    m_LastRow = row;
    if (m_Rule == HeadContour)
        return first || qualifies;
    return !qualified; // until one has qualified, the row shown last stands in
}

bool VEXMELKTravelChoice::Qualifies(double row) const
{
    switch (m_Rule)
    {
    case Coeficients1997:
        return row < m_Travel - tolerance;
    case Radii2002:
        return row <= m_Travel;
    case Radii1997:
    case HeadContour:
        break;
    }
    return row < m_Travel;
}

bool VEXMELKTravelChoice::Fails() const
{
    if (!m_HasRows || m_Rule == HeadContour)
        return false;
    return m_Travel < (m_Rule == Radii2002 ? m_LastRow : m_LastRow - tolerance);
}

VEXMELKChosenRow ChooseRow(VEXMELKTravelChoice::Rule rule, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double travel)
{
    VEXMELKTravelChoice choice(rule, travel);
    VEXMELKChosenRow chosen;
    ForEachChild(parent, tag,
        [&](const CATIDOMElement_var& row)
        {
            const std::optional<VEXMELKNodeText> text = AttributeText(row, attribute);
            if (!text)
                return;
            const double millimetres = MillimetresFromText(CATUnicodeString(*text));
            if (!choice.Show(millimetres))
                return;
            chosen.found = true;
            chosen.travelText = *text;
            chosen.travel = millimetres;
        });
    chosen.fails = choice.Fails();
    return chosen;
}

bool ReadTipAngles(const CATIDOMElement_var& category, const CATIDOMElement_var& defaultCategory, double& sideViewAngle,
    double& planViewAngle)
{
    CATIDOMElement_var angles = FirstElement(category, "tip_angles");
    if (angles == NULL_var)
        angles = FirstElement(defaultCategory, "tip_angles");
    if (angles == NULL_var)
        return false;
    ReadFields(angles, NULL_var,
        {
            {"side_view_angle", "deg", sideViewAngle, InRadians, 0.0},
            {"plan_view_angle", "deg", planViewAngle, InRadians, 0.0},
        });
    return true;
}

bool ReadBackAngleCorrection(const CATIDOMElement_var& parent, double backAngle, double& horizontal, double& vertical)
{
    const CATIDOMElement_var row = NearestAngle(parent, "back_angle", "value", backAngle);
    if (row == NULL_var)
        return false;
    ReadFields(row, NULL_var,
        {
            {"horizontal", "mm", horizontal, ByLengthParameter, 0.0},
            {"vertical", "mm", vertical, ByLengthParameter, 0.0},
        });
    return true;
}

void ReadOffsets(const CATIDOMElement_var& element, double& dx, double& dy, double& dz)
{
    ReadFields(element, NULL_var,
        {
            {"dx", "mm", dx, ByLengthParameter, 0.0},
            {"dy", "mm", dy, ByLengthParameter, 0.0},
            {"dz", "mm", dz, ByLengthParameter, 0.0},
        });
}

double LineLength(const CATIDOMElement_var& standard, std::string_view tag, double whenNone)
{
    const std::optional<VEXMELKNodeText> length = FirstChildAttribute(standard, tag, "length");
    return length ? MillimetresFromText(CATUnicodeString(*length)) : whenNone;
}
