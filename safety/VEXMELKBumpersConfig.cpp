// The test bumpers. What a bumper has of its profile is emptied for each bumper, but for five values, which repeat
// until a profile sets them (docs/format.md, Bumpers).
#include "VEXMELKBumpersConfig.h"

#include "VEXMELKReader.h"

namespace {

using Bumper = VEXMELKBumpersDefinition;

constexpr VEXMELKRow profileKey = Text("name", "its name", AsWritten(), Skip);
constexpr VEXMELKTable profileTable{
    Length<&Bumper::NoseRadius>("NoseRadius", "radii", NotNegative),
    Length<&Bumper::SideRadius>("SideRadius", "radii", NotNegative),
    Angle<&Bumper::NoseAngle>("NoseAngle", "angles"),
    Angle<&Bumper::SideAngle>("SideAngle", "angles"),
    Length<&Bumper::NoseHeight>("NoseHeight", "the nose", NotNegative),
    Length<&Bumper::NoseLength>("NoseLength", "the nose", NotNegative),
    Length<&Bumper::RenderDepth>("RenderDepth", "how it is drawn", NotNegative),
    Length<&Bumper::RenderHeight>("RenderHeight", "how it is drawn", NotNegative),
    Length<&Bumper::RenderDistance>("RenderDistance", "how it is drawn", NotNegative),
    Length<&Bumper::CenterLineLength>("CenterLineLength", "how it is drawn", NotNegative),
};
constexpr VEXMELKTable repeatedTable{
    Length<&Bumper::Width>("Width", "the body", Repeat, NotNegative),
    Length<&Bumper::Height>("Height", "the body", Repeat, NotNegative),
    Length<&Bumper::Extension>("Extension", "the body", Repeat),
    Length<&Bumper::Depth>("Depth", "the body", Repeat, NotNegative),
    Length<&Bumper::FilletRadius>("FilletRadius", "the body", Repeat, NotNegative),
};
constexpr VEXMELKElement profiles{.tag = "Profile",
    .choice = VEXMELKChoice::ByKey,
    .key = &profileKey,
    .tables = {profileTable.rows, repeatedTable.rows},
    .meaning = "a profile for all standards of both files; one of the Customer file comes first"};

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);
constexpr VEXMELKElement PendulumOf(const char* tag)
{
    return {.tag = tag,
        .below = &categoryElements,
        .place = VEXMELKPlace::AnyDepth,
        .fallBack = VEXMELKFallBack::WholeCategory,
        .meaning = "one test set-up each (types 0, 1, 2); of several with one name only the first is read",
        .whenMissing = "no bumpers"};
}
// By type.
constexpr VEXMELKElement pendulums[] = {
    PendulumOf("MiddlePendulum"), PendulumOf("RotatedPendulum"), PendulumOf("ShiftedPendulum")};

constexpr VEXMELKWord positions[] = {{"front", 1}, {"rear", 0}};
constexpr VEXMELKTable bumperTable{
    Name<&Bumper::loading>("loading", "loading", "loading state"),
    Length<&Bumper::Limit>("Limit", "height limit", NotNegative),
    Word<&Bumper::Position>("Position", {positions}, "exactly `front` is the front; anything else is the rear"),
    Length<&Bumper::Offset>("Offset", "lateral offset"),
    Angle<&Bumper::Angle>("Angle", "angle", Else("30.0deg")),
};
constexpr VEXMELKRow profileReference = Name("Profile", "Profile", "name of the profile");
constexpr VEXMELKElement BumperOf(const VEXMELKElement& pendulum)
{
    return {.tag = "bumper",
        .below = &pendulum,
        .place = VEXMELKPlace::AnyDepth,
        .choice = VEXMELKChoice::Each,
        .fallBack = VEXMELKFallBack::WholeCategory,
        .tables = {bumperTable.rows, VEXMELKRows(&profileReference, 1)},
        .meaning = "one test bumper"};
}
// By type.
constexpr VEXMELKElement bumperElements[] = {BumperOf(pendulums[0]), BumperOf(pendulums[1]), BumperOf(pendulums[2])};

constexpr const VEXMELKElement* elements[] = {&profiles, &categoryElements, &pendulums[0], &pendulums[1], &pendulums[2],
    &bumperElements[0], &bumperElements[1], &bumperElements[2]};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Bumper> = VEXMELKFieldList<Bumper>(profileTable, repeatedTable, bumperTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKBumpersConfig::GetStandardData>("GetStandardData", standardArgument, categoryArgument,
        VEXMELKParameter{.name = "type", .role = VEXMELKRole::Choice, .choices = 3}, Output("bumpers")),
};

constinit const VEXMELKDescription VEXMELKBumpersConfig::description{
    .name = "Bumpers",
    .file = "OVA\\Bumpers.xml",
    .meaning = "The test bumpers (pendulum faces) that are applied to the vehicle.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKBumpersConfig::VEXMELKBumpersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

VEXMELKBumpersConfig::VEXMELKBumpersConfig(const VEXMELKBumpersConfig& other) = default;

unsigned char VEXMELKBumpersConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    BumperType type, VEXArray<VEXMELKBumpersDefinition>& bumpers)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            bumpers.reset(); // not before: a name may be a text of the array
            if (element == NULL_var)
                return 0;
            if (type >= MiddlePendulum && type <= ShiftedPendulum)
                GetPendulumData(pendulums[type].tag, element, bumpers);
            return 1;
        });
}

unsigned char VEXMELKBumpersConfig::GetPendulumData(const CATUnicodeString& pendulumElementName,
    const CATIDOMElement_var& categoryElement, VEXArray<VEXMELKBumpersDefinition>& bumpers)
{
    const auto type = std::find_if(std::begin(pendulums), std::end(pendulums) - 1,
        [&](const VEXMELKElement& element) { return pendulumElementName == element.tag; });
    const CATIDOMElement_var pendulum = Find(categoryElement, *type);
    Bumper bumper; // one for all
    ForEach(pendulum, bumperElements[type - pendulums], bumpers,
        [&](const CATIDOMElement_var& element)
        {
            CATUnicodeString profile;
            ReadFields(Decimals(), CATIDOMNamedNodeMap_var(), NULL_var, profileTable, bumper); // empties them
            ReadFields(Decimals(), element, bumperTable, bumper);
            if (ReadText(Decimals(), element, profileReference, profile))
                GetProfileData(profile, bumper);
            bumpers.add(bumper);
        });
    return pendulum != NULL_var;
}

unsigned char VEXMELKBumpersConfig::GetProfileData(
    const CATUnicodeString& profileName, VEXMELKBumpersDefinition& bumper)
{
    const CATIDOMElement_var profile = GetRootChildElement(profiles, profileName);
    if (profile == NULL_var)
        return 0;
    ReadFields(Decimals(), profile, profileTable, bumper);
    ReadFields(Decimals(), profile, repeatedTable, bumper);
    return 1;
}
