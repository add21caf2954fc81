// The access object through which a check shows one editable value.
//
// A host derives its own from it. The portable one holds a text and a list of colour ranges.
#ifndef VEXMELKAttrAccessBase_H
#define VEXMELKAttrAccessBase_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

#include <vector>

// One range of a colour scale. Colours are 0xRRGGBB.
struct VEXMELKColorRange
{
    double Minimum = 0.0;
    double Maximum = 0.0;
    unsigned int MinimumColor = 0;
    unsigned int MaximumColor = 0;
    bool Critical = false;
};

class ExportedByVEXMELKConfiguration VEXMELKAttrAccessBase
{
public:
    // The places of the virtual operations are fixed: callers reach them by place.
    virtual ~VEXMELKAttrAccessBase();                            // 1
    virtual CATUnicodeString GetText() const;                    // 2
    virtual bool HasValue() const;                               // 3: whether the text is not empty
    virtual void SetValueFromText(const CATUnicodeString& text); // 4
    virtual void ClearValue();                                   // 5
    virtual int AsInteger(int whenNone) const;                   // 6
    virtual double AsReal(double whenNone) const;                // 7
    virtual int GetRangeCount() const;                           // 8
    virtual void ClearRanges();                                  // 9
    virtual VEXMELKColorRange GetRange(int position) const;      // 10: counted from 1
    virtual void RemoveRange(int position);                      // 11: counted from 1
    // 12: "companion" is the attribute's second access object.
    virtual void AddColorRange(double minimum, double maximum, unsigned int minimumColor, unsigned int maximumColor,
        bool critical, VEXMELKAttrAccessBase* companion);
    virtual double GetLowerBound() const; // 13: the smallest minimum of the ranges, 0 without any
    virtual double GetUpperBound() const; // 14: the largest maximum of the ranges, 0 without any
    // 15: true exactly when the text is "TRUE" in any letter case. "options" is the host's.
    virtual bool AsBoolean(int options) const;

    void SetReadOnly(bool readOnly) { m_ReadOnly = readOnly; }
    bool IsReadOnly() const { return m_ReadOnly; }

private:
    CATUnicodeString m_Text;
    std::vector<VEXMELKColorRange> m_Ranges;
    bool m_ReadOnly = false;
};

#endif
