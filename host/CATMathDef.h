// Mathematics: angles and points.
#ifndef CATMathDef_H
#define CATMathDef_H

#include "CATListOf.h"

#include <numbers>

constexpr double CATDegreeToRadian = std::numbers::pi / 180.0;

class CATMathPoint
{
public:
    CATMathPoint() = default;
    CATMathPoint(double x, double y, double z) : m_X(x), m_Y(y), m_Z(z) {}
    double GetX() const { return m_X; }
    double GetY() const { return m_Y; }
    double GetZ() const { return m_Z; }
    friend bool operator==(const CATMathPoint&, const CATMathPoint&) = default;

private:
    double m_X = 0.0;
    double m_Y = 0.0;
    double m_Z = 0.0;
};

using CATListValCATMathPoint = CATListOf<CATMathPoint>;

#endif
