// The numbers of the driver's eye ellipses. Rows are chosen by H-point travel, by another rule for each kind. The data
// of a pair of standard and category are kept; a pair without data keeps those of the pair before it.
#include "VEXMELKEyeEllipsesConfig.h"

#include "VEXMELKOccupantRules.h"

#include <cmath>

namespace {

using HPoint = VEXMELKEyeEllipsesHPointData;

constexpr const char* generationMeaning = "coefficients of a generation; the first of each counts";
constexpr const char* generationMissing = "the queries for that generation fail";
constexpr VEXMELKElement GenerationWith(const char* tag)
{
    return {.tag = tag,
        .below = &VEXMELKCommon::standards,
        .place = VEXMELKPlace::AnyDepth,
        .meaning = generationMeaning,
        .whenMissing = generationMissing};
}
constexpr VEXMELKElement generation2002 = GenerationWith("coeficients2002");
constexpr VEXMELKElement generation1997 = GenerationWith("coeficients1997");
// A generation that is asked for by its tag, which may be any.
constexpr VEXMELKElement anyGeneration = GenerationWith("*");

constexpr VEXMELKRow cutOffValue =
    Integer("value", "the cut-off, an integer; a text that is none is 0", AsWritten(), Skip);
constexpr VEXMELKElement CutOffsBelow(const VEXMELKElement& generation)
{
    return {.tag = "cutOff",
        .below = &generation,
        .choice = VEXMELKChoice::Each,
        .key = &cutOffValue,
        .meaning = "the cut-offs that the standard knows",
        .whenMissing = "the list is empty and fails"};
}
constexpr VEXMELKElement cutOffs2002 = CutOffsBelow(generation2002);
constexpr VEXMELKElement cutOffs1997 = CutOffsBelow(generation1997);

// One kind of coefficient: the element, whose "value" fills the output of the row.
constexpr VEXMELKElement Kind2002(const char* tag, const VEXMELKRow& value)
{
    return {.tag = tag,
        .below = &generation2002,
        .place = VEXMELKPlace::AnyDepth,
        .tables = {VEXMELKRows(&value, 1)},
        .meaning = "2002: one coefficient each; the first counts",
        .whenMissing = "kept"};
}
constexpr VEXMELKElement Kind1997(const char* tag, const VEXMELKRow& value)
{
    return {.tag = tag,
        .below = &generation1997,
        .choice = VEXMELKChoice::Coeficients1997,
        .key = &rowTravel,
        .tables = {VEXMELKRows(&value, 1)},
        .meaning = "1997: rows, chosen by H-point travel for each kind by itself",
        .whenMissing = "kept, and the query fails"};
}
constexpr VEXMELKRow Coefficient(const char* output) { return Number("value", "the coefficient", Keep, Fills{output}); }
using Coefficients = VEXMELKOutputTable<double, double, double, double, double, double, double>;
constexpr Coefficients table2002{Coefficient("L1"), Coefficient("L6"), Coefficient("H30"), Coefficient("T"),
    Coefficient("x"), Coefficient("y"), Coefficient("z")};
constexpr VEXMELKElement kinds2002[] = {
    Kind2002("coef_L1", table2002.rows[0]),
    Kind2002("coef_L6", table2002.rows[1]),
    Kind2002("coef_H30", table2002.rows[2]),
    Kind2002("coef_T", table2002.rows[3]),
    Kind2002("coef_x", table2002.rows[4]),
    Kind2002("coef_y", table2002.rows[5]),
    Kind2002("coef_z", table2002.rows[6]),
};
constexpr Coefficients table1997{Coefficient("L40X"), Coefficient("L40XP2"), Coefficient("L40Z"), Coefficient("L40ZP2"),
    Coefficient("x"), Coefficient("y"), Coefficient("z")};
constexpr VEXMELKElement kinds1997[] = {
    Kind1997("coef_L40X", table1997.rows[0]),
    Kind1997("coef_L40XP2", table1997.rows[1]),
    Kind1997("coef_L40Z", table1997.rows[2]),
    Kind1997("coef_L40ZP2", table1997.rows[3]),
    Kind1997("coef_x", table1997.rows[4]),
    Kind1997("coef_y", table1997.rows[5]),
    Kind1997("coef_z", table1997.rows[6]),
};

using Radii = VEXMELKOutputTable<double, double, double>;
constexpr const char* radii95Meaning = "radii for the cut-off 95";
constexpr const char* radii99Meaning = "radii for the cut-off 99";
constexpr Radii radii95{
    Millimetres("radiusX_95", radii95Meaning, Else(-1.0), Fills{"radiusX"}, NotNegative),
    Millimetres("radiusY_95", radii95Meaning, Else(-1.0), Fills{"radiusY"}, NotNegative),
    Millimetres("radiusZ_95", radii95Meaning, Else(-1.0), Fills{"radiusZ"}, NotNegative),
};
constexpr Radii radii99{
    Millimetres("radiusX_99", radii99Meaning, Else(-1.0), Fills{"radiusX"}, NotNegative),
    Millimetres("radiusY_99", radii99Meaning, Else(-1.0), Fills{"radiusY"}, NotNegative),
    Millimetres("radiusZ_99", radii99Meaning, Else(-1.0), Fills{"radiusZ"}, NotNegative),
};
constexpr VEXMELKElement RadiiBelow(const VEXMELKElement& generation, VEXMELKChoice rule)
{
    return {.tag = "radii",
        .below = &generation,
        .choice = rule,
        .key = &rowTravel,
        .tables = {radii95.rows, radii99.rows},
        .meaning = "rows, chosen by H-point travel",
        .whenMissing = "fails"};
}
constexpr VEXMELKElement radii2002 = RadiiBelow(generation2002, VEXMELKChoice::Radii2002);
constexpr VEXMELKElement radii1997 = RadiiBelow(generation1997, VEXMELKChoice::Radii1997);

constexpr VEXMELKElement backAngles = BackAnglesBelow(VEXMELKCommon::standards);

constexpr VEXMELKOutputTable<double> w7Table{Millimetres(
    "Y_Displacement_W7", "lateral displacement of the eyes; without it both are kept", Keep, Fills{"displacementW7"})};
constexpr VEXMELKOutputTable<double> w3Table{Millimetres(
    "Y_Displacement_W3", "the other one; read only when the first is there", Keep, Fills{"displacementW3"})};
constexpr VEXMELKElement categoryElements = CategoryWith(w7Table.rows, VEXMELKFallBack::ValueByValue, w3Table.rows);

// Kept as texts; an operation hands out those that it names, as millimetres.
constexpr VEXMELKTable hpointTable{
    Length<&HPoint::value>("value", "the row's travel"),
    Length<&HPoint::xmean>("xmean", "centres of the ellipses; empty counts as 0"),
    Length<&HPoint::zmean>("zmean", "centres of the ellipses; empty counts as 0"),
    Length<&HPoint::ymean_left>("ymean_left", "centres of the ellipses; empty counts as 0"),
    Length<&HPoint::ymean_right>("ymean_right", "centres of the ellipses; empty counts as 0"),
    Length<&HPoint::cutoff90>("cutoff90", "length of the cut-off axis; empty counts as 0", NotNegative),
    Length<&HPoint::cutoff95>("cutoff95", "length of the cut-off axis; empty counts as 0", NotNegative),
    Length<&HPoint::cutoff99>("cutoff99", "length of the cut-off axis; empty counts as 0", NotNegative),
};
constexpr VEXMELKElement hpoints{.tag = "hpoint",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::NearestTravel,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &hpointTable.rows[0],
    .tables = {hpointTable.rows},
    .meaning = "rows, chosen by H-point travel",
    .whenMissing = "fails"};

using MinorAxis = VEXMELKOutputTable<CATUnicodeString, CATUnicodeString, CATUnicodeString>;
constexpr MinorAxis axisTable{
    Length("cutoff90", "the axis; empty counts as 0", NotNegative),
    Length("cutoff95", "the axis; empty counts as 0", NotNegative),
    Length("cutoff99", "the axis; empty counts as 0", NotNegative),
};
constexpr VEXMELKElement AxesOf(const char* tag)
{
    return {.tag = tag,
        .below = &categoryElements,
        .place = VEXMELKPlace::AnyDepth,
        .choice = VEXMELKChoice::Last,
        .fallBack = VEXMELKFallBack::WholeCategory,
        .tables = {axisTable.rows},
        .meaning = "minor axes; the last of each counts",
        .whenMissing = "**those of the category asked for before**"};
}
constexpr VEXMELKElement sideView = AxesOf("side_view");
constexpr VEXMELKElement planView = AxesOf("plan_view");

constexpr VEXMELKElement tipAngles = TipAnglesBelow(categoryElements);

constexpr const VEXMELKElement* elements[] = {&generation2002, &generation1997, &anyGeneration, &cutOffs2002,
    &cutOffs1997, &kinds2002[0], &kinds2002[1], &kinds2002[2], &kinds2002[3], &kinds2002[4], &kinds2002[5],
    &kinds2002[6], &kinds1997[0], &kinds1997[1], &kinds1997[2], &kinds1997[3], &kinds1997[4], &kinds1997[5],
    &kinds1997[6], &radii2002, &radii1997, &backAngles, &categoryElements, &hpoints, &sideView, &planView, &tipAngles};

// The radii of the row for the travel.
unsigned char ReadRadii(VEXMELKDecimals decimals, const CATIDOMElement_var& coeficients, const VEXMELKElement& rows,
    double hPointTravel, int cutoff, double& radiusX, double& radiusY, double& radiusZ)
{
    const VEXMELKChosenRow chosen = ChooseRow(coeficients, rows, hPointTravel);
    if (chosen.fails || !chosen.found)
        return 0;
    const CATIDOMElement_var row = FindByKey(coeficients, rows, chosen.travelText);
    ReadFields(decimals, row, cutoff == 99 ? radii99 : radii95, radiusX, radiusY, radiusZ);
    return cutoff == 95 || cutoff == 99;
}

constexpr VEXMELKParameter CutOff(const VEXMELKElement* cutOffs)
{
    return {.name = "cutoff", .role = VEXMELKRole::CutOff, .unit = "%", .element = cutOffs};
}

} // namespace

template <> constexpr auto VEXMELKFieldsOf<HPoint> = VEXMELKFieldList<HPoint>(hpointTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::IsStandard>("IsStandard", standardArgument,
        VEXMELKParameter{.name = "elementName", .role = VEXMELKRole::Tag, .element = &anyGeneration}),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::IsStandard2002>("IsStandard2002", standardArgument),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::IsStandard1997>("IsStandard1997", standardArgument),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetCutOffList>("GetCutOffList", standardArgument, Output("cutoffs")),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetCoeficients1997>(
        "GetCoeficients1997", standardArgument, Travel(kinds1997[0]), table1997),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetCoeficients2002>("GetCoeficients2002", standardArgument, table2002),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetRadii1997>(
        "GetRadii1997", standardArgument, Travel(radii1997), CutOff(&cutOffs1997), radii95),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetRadii2002>(
        "GetRadii2002", standardArgument, Travel(radii2002), CutOff(&cutOffs2002), radii95),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetHPointTravelData>("GetHPointTravelData", standardArgument,
        categoryArgument, Travel(hpoints), CutOff(nullptr), Output("xmean", "mm"), Output("ymeanLeft", "mm"),
        Output("ymeanRight", "mm"), Output("zmean", "mm"), Output("cutoffLength", "mm")),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetSideViewMinorAxis>(
        "GetSideViewMinorAxis", standardArgument, categoryArgument, CutOff(nullptr), Output("axis", "mm")),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetPlanViewMinorAxis>(
        "GetPlanViewMinorAxis", standardArgument, categoryArgument, CutOff(nullptr), Output("axis", "mm")),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetTipAngles>(
        "GetTipAngles", standardArgument, categoryArgument, tipAngleTable),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetBackAngleCorrection>(
        "GetBackAngleCorrection", standardArgument, BackAngle(backAngles), backAngleTable),
    VEXMELKDescribe<&VEXMELKEyeEllipsesConfig::GetUSADisplacement>(
        "GetUSADisplacement", standardArgument, categoryArgument, w7Table, w3Table),
};

constinit const VEXMELKDescription VEXMELKEyeEllipsesConfig::description{
    .name = "EyeEllipses",
    .file = "Manikin\\EyeEllipses.xml",
    .meaning = "The numbers from which the driver's eye ellipses are built.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKEyeEllipsesConfig::VEXMELKEyeEllipsesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file), m_HPointData(0, 20, 100), m_Numbers(0, 20, 100)
{
}

// A pair whose category is missing keeps the data of the pair before it (docs/format.md, EyeEllipses).
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
        ForEach(element, hpoints, m_HPointData,
            [&](const CATIDOMElement_var& row)
            {
                HPoint data;
                ReadFields(Decimals(), row, hpointTable, data);
                m_HPointData.add(data);
            });
        const auto readAxes = [&](const VEXMELKElement& view, MinorAxes& axes)
        {
            ForEach(element, view,
                [&](const CATIDOMElement_var& row)
                { ReadFields(Decimals(), row, axisTable, axes.cutoff90, axes.cutoff95, axes.cutoff99); });
        };
        readAxes(sideView, m_SideView);
        readAxes(planView, m_PlanView);
    }
    m_Standard = standard;
    m_Category = category;
    return 1;
}

CATIDOMElement_var VEXMELKEyeEllipsesConfig::GenerationElement(
    const CATUnicodeString& standard, const VEXMELKElement& generation)
{
    return Find(GetStandardElement(standard), generation);
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard(
    const CATUnicodeString& standard, const CATUnicodeString& elementName)
{
    return Answer(*this,
        [&]() -> unsigned char
        { return FindTagged(GetStandardElement(standard), anyGeneration, elementName) != NULL_var; });
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard2002(const CATUnicodeString& standard)
{
    return Answer(*this, [&]() -> unsigned char { return GenerationElement(standard, generation2002) != NULL_var; });
}

unsigned char VEXMELKEyeEllipsesConfig::IsStandard1997(const CATUnicodeString& standard)
{
    return Answer(*this, [&]() -> unsigned char { return GenerationElement(standard, generation1997) != NULL_var; });
}

unsigned char VEXMELKEyeEllipsesConfig::GetCutOffList(const CATUnicodeString& standard, CATRawCollint& cutoffs)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            cutoffs.RemoveAll();
            const VEXMELKElement* rows = &cutOffs2002;
            CATIDOMElement_var coeficients = GenerationElement(standard, generation2002);
            if (coeficients == NULL_var)
            {
                rows = &cutOffs1997;
                coeficients = GenerationElement(standard, generation1997);
            }
            if (coeficients == NULL_var)
            {
                for (const int cutoff : {90, 95, 99})
                    cutoffs.Append(cutoff);
                return 1;
            }
            CATListValCATUnicodeString texts;
            CollectKeys(coeficients, *rows, texts);
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
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var coeficients = GenerationElement(standard, generation1997);
            if (coeficients == NULL_var)
                return 0;
            double* const outputs[] = {&L40X, &L40XP2, &L40Z, &L40ZP2, &x, &y, &z};
            unsigned char complete = 1;
            for (std::size_t kind = 0; kind < std::size(outputs); ++kind)
            {
                const VEXMELKChosenRow chosen = ChooseRow(coeficients, kinds1997[kind], hPointTravel);
                if (chosen.fails)
                    return 0;
                if (chosen.found)
                    ReadOutputs(Decimals(), FindByKey(coeficients, kinds1997[kind], chosen.travelText),
                        kinds1997[kind].tables[0], *outputs[kind]);
                else
                    complete = 0;
            }
            return complete;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetCoeficients2002(
    const CATUnicodeString& standard, double& L1, double& L6, double& H30, double& T, double& x, double& y, double& z)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var coeficients = GenerationElement(standard, generation2002);
            if (coeficients == NULL_var)
                return 0;
            double* const outputs[] = {&L1, &L6, &H30, &T, &x, &y, &z};
            for (std::size_t kind = 0; kind < std::size(outputs); ++kind)
            {
                const CATIDOMElement_var element = Find(coeficients, kinds2002[kind]);
                if (element != NULL_var)
                    ReadOutputs(Decimals(), element, kinds2002[kind].tables[0], *outputs[kind]);
            }
            return 1;
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetRadii1997(const CATUnicodeString& standard, double hPointTravel, int cutoff,
    double& radiusX, double& radiusY, double& radiusZ)
{
    return Answer(*this,
        [&]
        {
            return ReadRadii(Decimals(), GenerationElement(standard, generation1997), radii1997, hPointTravel, cutoff,
                radiusX, radiusY, radiusZ);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetRadii2002(const CATUnicodeString& standard, double hPointTravel, int cutoff,
    double& radiusX, double& radiusY, double& radiusZ)
{
    return Answer(*this,
        [&]
        {
            return ReadRadii(Decimals(), GenerationElement(standard, generation2002), radii2002, hPointTravel, cutoff,
                radiusX, radiusY, radiusZ);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetHPointTravelData(const CATUnicodeString& standard,
    const CATUnicodeString& category, double hPointTravel, int cutoff, double& xmean, double& ymeanLeft,
    double& ymeanRight, double& zmean, double& cutoffLength)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            Init(standard, category);
            const VEXMELKEyeEllipsesHPointData* nearest = nullptr;
            double best = 10000000.0;
            for (const VEXMELKEyeEllipsesHPointData& data : m_HPointData)
            {
                const double distance = std::fabs(MillimetresFromText(data.value) - hPointTravel);
                if (distance < best)
                {
                    nearest = &data;
                    best = distance;
                }
            }
            if (!nearest)
                return 0;
            xmean = MillimetresFromText(nearest->xmean);
            ymeanLeft = MillimetresFromText(nearest->ymean_left);
            ymeanRight = MillimetresFromText(nearest->ymean_right);
            zmean = MillimetresFromText(nearest->zmean);
            cutoffLength = zmean; // stays for any other cut-off than these
            if (cutoff == 90)
                cutoffLength = MillimetresFromText(nearest->cutoff90);
            else if (cutoff == 95)
                cutoffLength = MillimetresFromText(nearest->cutoff95);
            else if (cutoff == 99)
                cutoffLength = MillimetresFromText(nearest->cutoff99);
            return 1;
        });
}

double VEXMELKEyeEllipsesConfig::AxisLength(const MinorAxes& axes, int cutoff)
{
    switch (cutoff)
    {
    case 90:
        return MillimetresFromText(axes.cutoff90);
    case 95:
        return MillimetresFromText(axes.cutoff95);
    case 99:
        return MillimetresFromText(axes.cutoff99);
    default:
        return 0.0;
    }
}

unsigned char VEXMELKEyeEllipsesConfig::GetSideViewMinorAxis(
    const CATUnicodeString& standard, const CATUnicodeString& category, int cutoff, double& axis)
{
    return Answer(*this,
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
    return Answer(*this,
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
    return Answer(*this,
        [&]() -> unsigned char
        {
            return ReadTipAngles(Decimals(), GetCategoryElement(standard, category),
                GetCategoryElement(standard, defaultCategory), tipAngles, sideViewAngle, planViewAngle);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetBackAngleCorrection(
    const CATUnicodeString& standard, double backAngle, double& horizontal, double& vertical)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            return ReadBackAngleCorrection(
                Decimals(), GetStandardElement(standard), backAngles, backAngle, horizontal, vertical);
        });
}

unsigned char VEXMELKEyeEllipsesConfig::GetUSADisplacement(
    const CATUnicodeString& standard, const CATUnicodeString& category, double& displacementW7, double& displacementW3)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard, category, defaultMap);
            if (ReadFields(Decimals(), map, defaultMap, w7Table, displacementW7))
                ReadFields(Decimals(), map, defaultMap, w3Table, displacementW3);
            return 1; // always
        });
}
