#include "CATCkeGlobalFunctions.h"
#include "CATMathDef.h"
#include "CATQuantity.h"
#include "LibraryTest.h"

#include <numbers>
#include <optional>

namespace {

using Value = std::optional<double>;
constexpr std::nullopt_t none = std::nullopt;
constexpr double pi = std::numbers::pi;
constexpr double degree = pi / 180.0;

CATICkeParm_var Length() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateLength("length", 7.0); }
CATICkeParm_var Angle() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateAngle("angle", 7.0); }
CATICkeParm_var Real() { return CATCkeGlobalFunctions::GetVolatileFactory()->CreateReal("real", 7.0); }

using Reader = bool (*)(std::string_view, double&);

// The reader and the parameter must both give that value, or none.
void ExpectValue(std::string_view text, Reader reader, CATICkeParm_var parameter, Value expected)
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
    struct Row
    {
        std::string_view text;
        Value metres;
        Value radians;
        Value real;
    };
    const Row rows[] = {
        // Numbers.
        {"12.5", 0.0125, 12.5 * degree, 12.5},
        {"12,5", 0.0125, 12.5 * degree, 12.5},
        {"5.", 0.005, 5.0 * degree, 5.0},
        {"5,", 0.005, 5.0 * degree, 5.0},
        {".5", 0.0005, 0.5 * degree, 0.5},
        {",5", 0.0005, 0.5 * degree, 0.5},
        {"+45", 0.045, pi / 4.0, 45.0},
        {"-90", -0.09, -pi / 2.0, -90.0},
        {"-,5E+2", -0.05, -50.0 * degree, -50.0},
        {"1.5e3", 1.5, 1500.0 * degree, 1500.0},
        {"25e-1", 0.0025, 2.5 * degree, 2.5},
        {"000120", 0.12, 120.0 * degree, 120.0},
        {" \t\r\n8\n\r\t ", 0.008, 8.0 * degree, 8.0},
        // Units.
        {"12.5mm", 0.0125, none, none},
        {"4.35cm", 0.0435, none, none},
        {"7dm", 0.7, none, none},
        {"-1.25m", -1.25, none, none},
        {"1.1km", 1100.0, none, none},
        {"10in", 0.254, none, none},
        {"2ft", 0.6096, none, none},
        {"7.7mic", 7.7e-6, none, none},
        {"180deg", none, pi, none},
        {"2.5rad", none, 2.5, none},
        {"100grad", none, pi / 2.0, none},
        {"0,25turn", none, pi / 2.0, none},
        {" 12,5 \t mm ", 0.0125, none, none},
        {"1e3mm", 1.0, none, none},
        {"5.mm", 0.005, none, none},
        {",5deg", none, 0.5 * degree, none},
        {"2e1 deg", none, 20.0 * degree, none},
        // Anything else.
        {"", none, none, none},
        {" ", none, none, none},
        {"mm", none, none, none},
        {".", none, none, none},
        {",", none, none, none},
        {"-", none, none, none},
        {"+-5", none, none, none},
        {"- 5", none, none, none},
        {"1 2", none, none, none},
        {"1.2.3", none, none, none},
        {"1,2,3", none, none, none},
        {"1.200,5", none, none, none},
        {"1,200.5", none, none, none},
        {"12;5", none, none, none},
        {"e5", none, none, none},
        {"1e", none, none, none},
        {"1e+mm", none, none, none},
        {"1e2.5", none, none, none},
        {"0x10", none, none, none},
        {"nan", none, none, none},
        {"inf", none, none, none},
        {"infmm", none, none, none},
        {"12MM", none, none, none},
        {"12Deg", none, none, none},
        {"12m m", none, none, none},
        {"12mm5", none, none, none},
        {"12mm,", none, none, none},
        {"12mm deg", none, none, none},
        {"12%", none, none, none},
        {"12inch", none, none, none},
        {"12\v mm", none, none, none},
        {"12\u00A0mm", none, none, none},
        {"\u221212", none, none, none}, // the sign of typesetters
        {{"12mm\0", 5}, none, none, none},
    };
    for (const Row& row : rows)
    {
        ExpectValue(row.text, CATLengthFromText, Length(), row.metres);
        ExpectValue(row.text, CATAngleFromText, Angle(), row.radians);
        ExpectValue(row.text, CATRealFromText, Real(), row.real);
        const CATUnicodeString text(row.text);
        EXPECT_DOUBLE_EQ(VEXMELKUtilities::GetValueInMeters(text), row.metres.value_or(0.0)) << row.text;
        EXPECT_DOUBLE_EQ(VEXMELKUtilities::GetValueInRadians(text), row.radians.value_or(0.0)) << row.text;
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
        const auto metresOf = [&](const char* unit)
        { return VEXMELKUtilities::GetValueInMeters(CATUnicodeString((whole + "." + tenth + unit))); };
        ASSERT_EQ(metresOf("cm"), number / 100.0) << number;
        ASSERT_EQ(metresOf("dm"), number / 10.0) << number;
        ASSERT_EQ(metresOf("m"), number) << number;
        ASSERT_EQ(metresOf("km"), number * 1000.0) << number;
        ASSERT_EQ(metresOf("mic"), number / 1.0e6) << number;
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
