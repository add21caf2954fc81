// Numbers with units, against what the units are defined as.
#include "CATCkeGlobalFunctions.h"
#include "CATMathDef.h"
#include "CATQuantity.h"
#include "LibraryTest.h"

#include <numbers>
#include <optional>

namespace {

using Value = std::optional<double>;
constexpr std::nullopt_t none = std::nullopt;
constexpr double degree = std::numbers::pi / 180.0;

CATICkeParm_var Length() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateLength("length", 7.0); }
CATICkeParm_var Angle() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateAngle("angle", 7.0); }
CATICkeParm_var Real() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateReal("real", 7.0); }

using TextReader = bool (*)(std::string_view, double&);

// The reader and the parameter must both give that value, or none.
void ExpectValue(std::string_view text, TextReader reader, CATICkeParm_var parameter, Value expected)
{
    double value = 7.0; // stays where the text is no quantity
    EXPECT_EQ(reader(text, value), expected.has_value()) << '"' << text << '"';
    EXPECT_DOUBLE_EQ(value, expected.value_or(7.0)) << '"' << text << '"';
    parameter->Valuate(CATUnicodeString(text));
    EXPECT_EQ(parameter->HasValue(), expected.has_value()) << parameter->Name() << " of \"" << text << '"';
    EXPECT_EQ(parameter->AsReal(), expected ? value : 0.0) << parameter->Name() << " of \"" << text << '"';
}

} // namespace

TEST(Quantity, ReadsItsGrammar)
{
    for (const std::vector<std::string>& row : Cells(CaseFile("quantities")))
        for (std::size_t cell = 2; cell < row.size(); ++cell)
        {
            const bool isPlain = row[0] == "plain";
            const double number = std::stod(row[1]);
            const Value metres = isPlain ? number / 1000.0 : row[0] == "length" ? Value(number) : none;
            const Value radians = isPlain || row[0] == "angle" ? Value(number * degree) : none;
            ExpectValue(row[cell], CATLengthFromText, Length(), metres);
            ExpectValue(row[cell], CATAngleFromText, Angle(), radians);
            ExpectValue(row[cell], CATRealFromText, Real(), isPlain ? Value(number) : none);
            const CATUnicodeString text(row[cell]);
            EXPECT_DOUBLE_EQ(VEXMELKUtilities::GetValueInMeters(text), metres.value_or(0.0)) << row[cell];
            EXPECT_DOUBLE_EQ(VEXMELKUtilities::GetValueInRadians(text), radians.value_or(0.0)) << row[cell];
        }
    EXPECT_DOUBLE_EQ(CATDegreeToRadian, degree);
}

TEST(Quantity, IsRoundedOnce)
{
    for (int tenths = 0; tenths <= 10000; ++tenths)
    {
        const std::string whole = std::to_string(tenths / 10);
        const std::string tenth = std::to_string(tenths % 10);
        const double number = tenths / 10.0;
        for (const std::string& text : {whole + "." + tenth, whole + "," + tenth, std::to_string(tenths) + "e-1"})
            for (const char* unit : {"", "mm", " mm"})
            {
                const CATUnicodeString length((text + unit));
                CATICkeParm_var parameter = Length();
                parameter->Valuate(length);
                const double metres = VEXMELKUtilities::GetValueInMeters(length);
                ASSERT_EQ(metres, number / 1000.0) << length.ConvertToChar();
                ASSERT_EQ(parameter->AsReal(), metres) << length.ConvertToChar();
            }
        const std::pair<const char*, double> units[] = {{"cm", number / 100.0}, {"dm", number / 10.0}, {"m", number},
            {"km", number * 1000.0}, {"mic", number / 1.0e6}};
        for (const auto& [unit, metres] : units)
            ASSERT_EQ(VEXMELKUtilities::GetValueInMeters(CATUnicodeString((whole + "." + tenth + unit))), metres);
    }
}

TEST(Quantity, OfAParameterGoesWithABadText)
{
    for (CATICkeParm_var parameter : {Length(), Angle(), Real()})
    {
        EXPECT_TRUE(parameter->HasValue()) << parameter->Name();
        EXPECT_EQ(parameter->AsReal(), 7.0) << parameter->Name(); // given in the base unit
        parameter->Valuate("much");
        EXPECT_FALSE(parameter->HasValue()) << parameter->Name();
        EXPECT_EQ(parameter->AsReal(), 0.0) << parameter->Name();
        parameter->Valuate("-0");
        EXPECT_TRUE(parameter->HasValue()) << parameter->Name();
        EXPECT_EQ(parameter->AsReal(), 0.0) << parameter->Name();
    }
}
