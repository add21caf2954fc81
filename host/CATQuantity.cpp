// Reading numbers with units. Each unit converts in one rounded operation, so equal texts give equal numbers.
#include "CATQuantity.h"

#include "CATMathDef.h"
#include "CATNumberText.h"
#include "CATTextHash.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>

namespace {

// One operation a unit, so that a conversion is rounded once: a factor below one stands as its divisor, which is exact.
struct Unit
{
    std::string_view symbol;
    double factor;
    double divisor;
};

constexpr Unit lengthUnits[] = {
    {"", 1.0, 1.0e3},
    {"mm", 1.0, 1.0e3},
    {"cm", 1.0, 1.0e2},
    {"dm", 1.0, 1.0e1},
    {"m", 1.0, 1.0},
    {"km", 1.0e3, 1.0},
    {"in", 0.0254, 1.0},
    {"ft", 0.3048, 1.0},
    {"mic", 1.0, 1.0e6},
};

constexpr Unit angleUnits[] = {
    {"", CATDegreeToRadian, 1.0},
    {"deg", CATDegreeToRadian, 1.0},
    {"rad", 1.0, 1.0},
    {"grad", std::numbers::pi / 200.0, 1.0},
    {"turn", std::numbers::pi * 2.0, 1.0},
};

constexpr Unit realUnits[] = {
    {"", 1.0, 1.0},
};

// Takes a number written with a decimal comma off the text.
bool TakeCommaNumber(std::string_view& text, double& number)
{
    std::string pointed(text);
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    std::string_view rest = pointed;
    if (!CATTakeNumber(rest, number))
        return false;
    text.remove_prefix(text.size() - rest.size());
    return true;
}

// The number, whose decimal separator is the point, and what stands behind it.
bool PlainQuantity(double number, std::string_view behind, std::span<const Unit> units, double& value)
{
    const std::string_view symbol = CATStripped(behind);
    for (const Unit& unit : units)
        if (CATTextEqual(unit.symbol, symbol))
        {
            const double held = unit.divisor == 1.0 ? number * unit.factor : number / unit.divisor;
            if (std::isinf(held))
                return false;
            value = held;
            return true;
        }
    return false;
}

bool PlainQuantityFromText(std::string_view text, std::span<const Unit> units, double& value)
{
    double number = 0.0;
    text = CATStripped(text);
    return CATTakeNumber(text, number) && PlainQuantity(number, text, units, value);
}

bool QuantityFromText(std::string_view text, std::span<const Unit> units, double& value)
{
    if (PlainQuantityFromText(text, units, value))
        return true;
    double number = 0.0;
    text = CATStripped(text);
    return text.find(',') != std::string_view::npos && TakeCommaNumber(text, number) &&
           PlainQuantity(number, text, units, value);
}

// The first unit of each list is that of a bare number.
std::vector<std::string_view> SymbolsOf(std::span<const Unit> units)
{
    std::vector<std::string_view> symbols;
    for (const Unit& unit : units.subspan(1))
        symbols.push_back(unit.symbol);
    return symbols;
}

} // namespace

std::vector<std::string_view> CATLengthUnits() { return SymbolsOf(lengthUnits); }

std::vector<std::string_view> CATAngleUnits() { return SymbolsOf(angleUnits); }

bool CATLengthFromText(std::string_view text, double& metres) { return QuantityFromText(text, lengthUnits, metres); }

bool CATPlainLengthFromText(std::string_view text, double& metres)
{
    return PlainQuantityFromText(text, lengthUnits, metres);
}

bool CATPlainAngleFromText(std::string_view text, double& radians)
{
    return PlainQuantityFromText(text, angleUnits, radians);
}

bool CATAngleFromText(std::string_view text, double& radians) { return QuantityFromText(text, angleUnits, radians); }

bool CATRealFromText(std::string_view text, double& value) { return QuantityFromText(text, realUnits, value); }
