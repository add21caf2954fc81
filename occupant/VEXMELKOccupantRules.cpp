// The rules by which rows are chosen, and what several occupant readers read alike. The rules of the generations differ
// because each standard was written for its own (docs/format.md, EyeEllipses).
#include "VEXMELKOccupantRules.h"

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
    if (m_Rule == VEXMELKChoice::HeadContour)
        return first || qualifies;
    return !qualified; // until one has qualified, the row shown last stands in
}

bool VEXMELKTravelChoice::Qualifies(double row) const
{
    if (m_Rule == VEXMELKChoice::Coeficients1997)
        return row < m_Travel - tolerance;
    if (m_Rule == VEXMELKChoice::Radii2002)
        return row <= m_Travel;
    return row < m_Travel;
}

bool VEXMELKTravelChoice::Fails() const
{
    if (!m_HasRows || m_Rule == VEXMELKChoice::HeadContour)
        return false;
    return m_Travel < (m_Rule == VEXMELKChoice::Radii2002 ? m_LastRow : m_LastRow - tolerance);
}

VEXMELKChosenRow ChooseRow(const CATIDOMElement_var& parent, const VEXMELKElement& described, double travel)
{
    VEXMELKTravelChoice choice(described.choice, travel);
    VEXMELKChosenRow chosen;
    VisitKeys(parent, described,
        [&](const CATIDOMNodeList& /*rows*/, int /*position*/, VEXMELKNodeText text)
        {
            const double millimetres = MillimetresFromText(text);
            if (!choice.Show(millimetres))
                return false;
            chosen.found = true;
            chosen.travelText = text;
            chosen.travel = millimetres;
            return false;
        });
    chosen.fails = choice.Fails();
    return chosen;
}

bool ReadTipAngles(VEXMELKDecimals decimals, const CATIDOMElement_var& category,
    const CATIDOMElement_var& defaultCategory, const VEXMELKElement& tipAngles, double& sideViewAngle,
    double& planViewAngle)
{
    const CATIDOMElement_var angles = FindInEither(category, defaultCategory, tipAngles);
    if (angles == NULL_var)
        return false;
    ReadFields(decimals, angles, tipAngleTable, sideViewAngle, planViewAngle);
    return true;
}

bool ReadBackAngleCorrection(VEXMELKDecimals decimals, const CATIDOMElement_var& parent,
    const VEXMELKElement& backAngles, double backAngle, double& horizontal, double& vertical)
{
    const CATIDOMElement_var row = FindNearest(decimals, parent, backAngles, backAngle);
    if (row == NULL_var)
        return false;
    ReadFields(decimals, row, backAngleTable, horizontal, vertical);
    return true;
}

double LineLength(const CATIDOMElement_var& standard, const VEXMELKElement& line)
{
    const std::optional<VEXMELKNodeText> length = FirstKey(standard, line);
    return length ? MillimetresFromText(*length) : line.key->whenMissing.number;
}
