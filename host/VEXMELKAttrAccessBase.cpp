// The portable access object: a text and a list of colour ranges.
#include "VEXMELKAttrAccessBase.h"

#include <algorithm>

VEXMELKAttrAccessBase::~VEXMELKAttrAccessBase() = default;

CATUnicodeString VEXMELKAttrAccessBase::GetText() const { return m_Text; }

bool VEXMELKAttrAccessBase::HasValue() const { return !m_Text.IsEmpty(); }

void VEXMELKAttrAccessBase::SetValueFromText(const CATUnicodeString& text) { m_Text = text; }

void VEXMELKAttrAccessBase::ClearValue() { m_Text = ""; }

int VEXMELKAttrAccessBase::AsInteger(int whenNone) const
{
    int value = 0;
    return m_Text.ConvertToNum(&value) != 0 ? value : whenNone;
}

double VEXMELKAttrAccessBase::AsReal(double whenNone) const
{
    double value = 0.0;
    return m_Text.ConvertToNum(&value) != 0 ? value : whenNone;
}

int VEXMELKAttrAccessBase::GetRangeCount() const { return static_cast<int>(m_Ranges.size()); }

void VEXMELKAttrAccessBase::ClearRanges() { m_Ranges.clear(); }

VEXMELKColorRange VEXMELKAttrAccessBase::GetRange(int position) const
{
    return m_Ranges[static_cast<std::size_t>(position) - 1];
}

void VEXMELKAttrAccessBase::RemoveRange(int position) { m_Ranges.erase(m_Ranges.begin() + (position - 1)); }

void VEXMELKAttrAccessBase::AddColorRange(double minimum, double maximum, unsigned int minimumColor,
    unsigned int maximumColor, bool critical, VEXMELKAttrAccessBase* /*companion*/)
{
    m_Ranges.push_back({minimum, maximum, minimumColor, maximumColor, critical});
}

double VEXMELKAttrAccessBase::GetLowerBound() const
{
    const auto lowest = std::ranges::min_element(m_Ranges, {}, &VEXMELKColorRange::Minimum);
    return lowest == m_Ranges.end() ? 0.0 : lowest->Minimum;
}

double VEXMELKAttrAccessBase::GetUpperBound() const
{
    const auto highest = std::ranges::max_element(m_Ranges, {}, &VEXMELKColorRange::Maximum);
    return highest == m_Ranges.end() ? 0.0 : highest->Maximum;
}

bool VEXMELKAttrAccessBase::AsBoolean(int /*options*/) const
{
    CATUnicodeString upperCase = m_Text;
    upperCase.ToUpper();
    return upperCase == "TRUE";
}
