// What all configurations share: layouts, loading, standards, categories, loadings, priorities, eyes.
#include "LibraryTest.h"
#include "VEXMELKUnderfloorConfig.h"

#include <numbers>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// What derived classes build on, made visible.
class Probe : public VEXMELKUnderfloorConfig
{
public:
    explicit Probe(const TemporaryDirectory& directory, const char* file = "Sub\\File.xml")
        : VEXMELKUnderfloorConfig(CATUnicodeString(directory.Path().c_str()), file)
    {
    }
    using VEXMELKCheckConfig::m_spWorkingElement1;
    using VEXMELKCheckConfig::m_spWorkingElement2;
    using VEXMELKConfig::AddUnits;
    using VEXMELKConfig::GetAttributeMapItemValue;
    using VEXMELKConfig::GetCategoryAttributeMap;
    using VEXMELKConfig::GetCategoryElement;
    using VEXMELKConfig::GetChildElementAttributeValues;
    using VEXMELKConfig::GetChildElementWithAngleAttributeValue;
    using VEXMELKConfig::GetChildElementWithAtrributeValue;
    using VEXMELKConfig::GetChildElementWithAttributeMap;
    using VEXMELKConfig::GetChildElementWithLengthRangeAttributeValue;
    using VEXMELKConfig::GetDefaultSettingsName;
    using VEXMELKConfig::GetNumber;
    using VEXMELKConfig::GetRootDOMElements;
    using VEXMELKConfig::GetStandardElement;

    bool GetSingleRoot(CATIDOMElement_var& root) { return GetRootDOMElement(root) != 0; }
    CATIDOMElement_var Root()
    {
        VEXMELKRootDOMElementsDefinition roots;
        return GetRootDOMElements(roots) ? roots.DefaultRootElement : CATIDOMElement_var();
    }
    // An attribute of the category, else of "default", else "-".
    std::string Value(const std::string& standard, const std::string& category, const char* attribute)
    {
        CATIDOMNamedNodeMap_var defaultMap;
        const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard.c_str(), category.c_str(), defaultMap);
        CATUnicodeString value("-");
        GetAttributeMapItemValue(map, attribute, "", value, defaultMap);
        return value.ConvertToChar();
    }
    std::string PointToPick(const char* standard, const char* category)
    {
        CATUnicodeString point("before");
        const bool found = GetPointToPick(standard, category, point) != 0;
        return std::string(found ? "found " : "") + point.ConvertToChar();
    }
};

std::string Attribute(const CATIDOMElement_var& element, const char* name)
{
    if (element == NULL_var)
        return "no element";
    const CATIDOMNode_var item = element->GetAttributes()->GetNamedItem(name);
    return item == NULL_var ? "no attribute" : std::string(item->GetNodeValue());
}

// "a b c".
std::string Joined(const CATListValCATUnicodeString& list)
{
    std::string joined;
    for (const CATUnicodeString& text : list)
        joined.append(joined.empty() ? "" : " ").append(text.ConvertToChar());
    return joined;
}

const char* const defaultFile = "Default/Sub/File.xml";
const char* const customerFile = "Customer/Sub/File.xml";

} // namespace

using ConfigTest = LibraryTest;

TEST_F(ConfigTest, LayoutsAndPrecedence)
{
    // A customer file alone is not read.
    for (const auto& [files, base, customer, single] : Table<4>(R"(
        Default                   | Default    | no element | no element
        Default Customer          | Default    | Customer   | no element
        Default .                 | Default    | no element | .
        .                         | .          | no element | .
        Customer .                | .          | no element | .
        Customer                  | no element | no element | no element)"))
    {
        const TemporaryDirectory own;
        for (const std::string& folder : Split(files, " "))
            own.Write(folder + "/Sub/File.xml", "<config file='" + folder + "'/>");
        Probe probe(own);
        VEXMELKRootDOMElementsDefinition roots;
        EXPECT_EQ(probe.GetRootDOMElements(roots) != 0, base != "no element") << files;
        EXPECT_EQ(Attribute(roots.DefaultRootElement, "file"), base) << files;
        EXPECT_EQ(Attribute(roots.CustomerRootElement, "file"), customer) << files;
        CATIDOMElement_var root;
        EXPECT_EQ(probe.GetSingleRoot(root), single != "no element") << files;
        EXPECT_EQ(Attribute(root, "file"), single) << files;
    }
}

TEST_F(ConfigTest, StandardOfTheCustomerFileIsTakenWhole)
{
    directory.Write(defaultFile, Document(Standard("Both", "<category name='default' a='1' b='2'/>") +
                                          Standard("Base", "<category name='default' a='3'/>") + "<other>" +
                                          Standard("Deep", "<category name='default' a='9'/>") + "</other>"));
    directory.Write(customerFile,
        Document(Standard("Both", "<category name='suv' a='4'/>") + Standard("Both", "<category name='suv' a='5'/>")));
    Probe probe(directory);
    EXPECT_EQ(probe.Value("Both", "suv", "a"), "4") << "the first of a name";
    EXPECT_EQ(probe.Value("Both", "default", "a"), "-") << "categories are not merged";
    EXPECT_EQ(probe.Value("Base", "suv", "a"), "3");
    for (const char* other : {"Deep", "BOTH", ""})
        EXPECT_EQ(probe.Value(other, "suv", "a"), "-") << other;
}

TEST_F(ConfigTest, ChildrenAreDescendantsWhoseParentHasTheSameTag)
{
    // The inner standard has the tag of the outer one, so its categories count as children of both.
    directory.Write(defaultFile, Document(R"(<standard name='S'><x><category name='hidden' a='0'/></x>
        <x><standard name='inner'><category name='deep' a='1'/></standard></x>
        <category a='2'/><category name='own' a='3'/></standard><standard name='no' static_radius='false'/>
        <standard name='yes' static_radius='True'/>)"));
    Probe probe(directory);
    EXPECT_EQ(probe.Value("S", "hidden", "a") + probe.Value("S", "deep", "a") + probe.Value("S", "own", "a"), "-13");
    EXPECT_EQ(probe.Value("inner", "deep", "a"), "-");

    CATIDOMElement_var standard = probe.GetStandardElement("S");
    CATIDOMElement_var found;
    CATIDOMNamedNodeMap_var map;
    CATListValCATUnicodeString values;
    values.Append("before");
    EXPECT_TRUE(probe.GetChildElementWithAttributeMap(standard, "category", found, map));
    EXPECT_EQ(Attribute(found, "a"), "1");
    EXPECT_TRUE(map != NULL_var);
    EXPECT_TRUE(probe.GetChildElementWithAtrributeValue(standard, "category", "a", "2", found));
    EXPECT_EQ(Attribute(found, "name"), "no attribute");
    EXPECT_FALSE(probe.GetChildElementWithAtrributeValue(standard, "category", "a", "0", found));
    EXPECT_TRUE(found == NULL_var);
    EXPECT_FALSE(probe.GetChildElementWithAttributeMap(standard, "none", found, map));
    EXPECT_TRUE(found == NULL_var);
    probe.GetChildElementAttributeValues(standard, "category", "name", values);
    EXPECT_EQ(Joined(values), "deep own");
    probe.GetStandardWithCategoryList(probe.Root(), "own", values);
    EXPECT_EQ(Joined(values), "deep own S") << "appended";

    for (const auto& [name, use] : Table<2>("S|1\nno|0\nyes|1\nunknown|7"))
    {
        unsigned char staticRadius = 7; // what the caller had
        EXPECT_TRUE(probe.UseStaticRadius(name.c_str(), staticRadius));
        EXPECT_EQ(staticRadius, std::stoi(use)) << name;
    }
}

TEST_F(ConfigTest, ManyCategoriesAreFoundAsFewAre)
{
    // Past eight categories an index stands in for the walk; both must give the first of a name.
    for (const int count : {0, 1, 7, 8, 9, 200})
    {
        const std::string last = std::to_string(count - 1);
        std::string categories = "<x><category name='c0' a='hidden'/></x>";
        for (int number = 0; number < count; ++number)
            categories += "<category name='c" + std::to_string(number) + "' a='" + std::to_string(number) + "'/>";
        categories += "<category a='nameless'/><category name='c0' a='second'/><category name='c" + last +
                      "' a='second'/><category name='default' a='d'/>";
        directory.Write(defaultFile, Document(Standard("S", categories)));
        Probe probe(directory);
        EXPECT_EQ(probe.Value("S", "c0", "a"), count > 0 ? "0" : "second") << count;
        EXPECT_EQ(probe.Value("S", "c" + last, "a"), count > 0 ? last : "second") << count;
        EXPECT_EQ(probe.Value("S", "none", "a"), "d") << count;
    }
}

TEST_F(ConfigTest, CategoriesAndTheObsoleteFormat)
{
    const std::string obsolete = "warning Warning: The configuration file uses an obsolete format: standard data stand "
                                 "outside any category.";
    directory.Write(defaultFile,
        Document(
            Standard("Full", "<category name='default' a='d' b='d'/><category name='suv' a='s'/>", "a='standard'") +
            Standard("NoDefault", "<category name='suv' a='s'/>", "a='standard'") + Standard("Old", "<x/>", "a='old'") +
            Standard("Bare", "<category name='suv'/>")));
    Probe probe(directory);
    // The values seen by a reader, and the "a" of the element that is handed out.
    for (const auto& [standard, category, a, b, handedOut] : Table<5>(R"(
        Full      | suv     | s   | d | s
        Full      | van     | d   | d | d
        Full      | default | d   | d | d
        NoDefault | suv     | s   | - | s
        NoDefault | van     | -   | - | no element
        NoDefault | default | -   | - | no element
        Bare      | suv     | -   | - | no attribute
        Unknown   | suv     | -   | - | no element
        Old       | default | old | - | old
        Old       | suv     | old | - | old)"))
    {
        SCOPED_TRACE(standard + " " + category);
        EXPECT_EQ(probe.Value(standard, category, "a"), a);
        EXPECT_EQ(probe.Value(standard, category, "b"), b);
        CATIDOMNamedNodeMap_var map;
        CATIDOMNamedNodeMap_var defaultMap;
        const auto element = probe.GetCategoryElement(standard.c_str(), category.c_str(), map, defaultMap);
        EXPECT_EQ(Attribute(element, "a"), handedOut);
        EXPECT_EQ(map == NULL_var, handedOut == "no element");
        const bool isFirst = standard == "Old" && category == "default";
        EXPECT_EQ(TakeBoxes(), std::vector<std::string>(isFirst ? 1 : 0, obsolete)) << "once per object";
    }
    Probe again(directory);
    again.Value("Old", "suv", "a");
    EXPECT_THAT(TakeBoxes(), ElementsAre(obsolete)) << "the data are used through \"default\"";
}

TEST_F(ConfigTest, UnitsAndNumbers)
{
    Probe probe(directory);
    for (const bool comma : {false, true})
    {
        VEXMELKUtilities::SetCommaDelimeter(comma);
        Release();
        for (const auto& [unit, text, expected] : Table<3>(CaseFile("units")))
        {
            CATUnicodeString value(text.c_str());
            probe.AddUnits(unit.c_str(), value);
            EXPECT_EQ(value, comma ? Replaced(expected, ".", ",") : expected) << unit << " + " << text;
        }
        EXPECT_DOUBLE_EQ(probe.GetNumber("1,5"), 1.5);
        EXPECT_DOUBLE_EQ(probe.GetNumber("1.5mm"), 1.5);
        EXPECT_DOUBLE_EQ(probe.GetNumber("x"), 0.0);
    }
    for (const char* yes : {"TRUE", "true", "True", "tRUE"})
        EXPECT_TRUE(VEXMELKConfig::BooleanFromString(yes)) << yes;
    for (const char* no : {"", "1", "yes", " true", "truer"})
        EXPECT_FALSE(VEXMELKConfig::BooleanFromString(no)) << no;
    EXPECT_TRUE(VEXMELKConfig::CompareStrings("\u00E4Bc", "\u00C4bC"));
    EXPECT_FALSE(VEXMELKConfig::CompareStrings("ab", "abc"));
}

TEST_F(ConfigTest, NearestAngleAndLength)
{
    directory.Write(defaultFile,
        "<config><x><row v='10deg' n='ten'/></x><row n='none'/><row v='20' n='twenty'/><row v='20deg' n='again'/>"
        "<row v='junk' n='zero'/><row v='6500deg' n='far'/></config>");
    Probe probe(directory);
    constexpr double degree = std::numbers::pi / 180.0;
    const std::pair<double, const char*> angles[] = {{10 * degree, "ten"}, {14.9 * degree, "ten"},
        {15.1 * degree, "twenty"}, {25 * degree, "twenty"}, {0.0, "zero"}, {100.0, "far"}, {213.5, "no element"},
        {213.4, "far"}, {-99.9, "zero"}, {-100.0, "no element"}};
    CATIDOMElement_var found;
    for (const auto& [angle, name] : angles)
    {
        probe.GetChildElementWithAngleAttributeValue(probe.Root(), "row", "v", angle, found);
        EXPECT_EQ(Attribute(found, "n"), name) << angle;
    }

    directory.Write(defaultFile,
        "<config><x><row v='100' n='100'/></x><row n='none'/><row v='20cm' n='200'/><row v='200' n='again'/>"
        "<row v='-1000mm' n='-1000'/></config>");
    Probe lengths(directory);
    const std::pair<double, std::string> ranges[] = {{100.0, "100"}, {99.9, "no element"}, {199.9, "100"},
        {200.0, "200"}, {1099.9, "200"}, {1100.0, "no element"}, {-1000.0, "-1000"}, {-100.1, "-1000"},
        {-100.0, "no element"}};
    for (const auto& [length, name] : ranges)
    {
        EXPECT_EQ(lengths.GetChildElementWithLengthRangeAttributeValue(lengths.Root(), "row", "v", length, found),
            name != "no element");
        EXPECT_EQ(Attribute(found, "n"), name) << length;
    }
}

TEST_F(ConfigTest, NamesOfDefaultSettings)
{
    for (const auto& [situation, base, customer, before, name] : Table<5>(CaseFile("namesOfDefaultSettings")))
    {
        const auto written = [](std::string text)
        {
            text = Replaced(
                Replaced(text, "D(USE)", "<DefaultSettings>S(USE)</DefaultSettings>"), "S(", "<standard name='S'>");
            text = Replaced(Replaced(text, ")", "</standard>"), "USE", "<UseDefaultSettings name='Set'/>");
            return Document(Replaced(text, "OWN", "<UseDefaultSettings name='Own'/>"));
        };
        directory.Write(defaultFile, written(base));
        directory.Remove("Customer");
        if (!customer.empty())
            directory.Write(customerFile, written(customer));
        Probe probe(directory);
        CATUnicodeString text(before.c_str());
        const bool found = static_cast<VEXMELKConfig&>(probe).GetDefaultSettingsName("S", text) != 0;
        EXPECT_EQ((found ? "found " : "") + std::string(text.ConvertToChar()), name) << situation;
    }
}

TEST_F(ConfigTest, BrokenFilesAnswerNothingAndAreToldOncePerQuery)
{
    const std::string fatal = "error MELK CFG: Parse Fatal Error: ";
    const std::string unreadable = "error Error:  (configuration file not found or not readable) " + directory.Path();
    Probe probe(directory);
    VEXMELKEyesConfigDefinition eyes{7, "before", "before"};

    directory.Write(defaultFile, "<config>\n <a></b></config>");
    EXPECT_EQ(probe.PointToPick("S", "suv"), "before");
    EXPECT_THAT(TakeBoxes(),
        ElementsAre(fatal + "mismatched tag\n(line: 2, column: 7)", unreadable + "\\Default\\Sub\\File.xml"))
        << "once in a query";
    EXPECT_FALSE(probe.GetEyes("S", eyes));
    EXPECT_EQ(eyes.EyesType, 7);
    EXPECT_THAT(TakeBoxes(), testing::SizeIs(2)) << "and again in the next";
    CATUnicodeString loading;
    EXPECT_TRUE(probe.GetLoading("S", loading, "suv", 1));
    EXPECT_THAT(TakeBoxes(), testing::SizeIs(2)) << "however often a query looks";

    directory.Write(defaultFile, OneCategory("point_to_pick='base'"));
    directory.Write(customerFile, "");
    EXPECT_EQ(probe.PointToPick("S", "suv"), "before") << "nothing of the base document stands in";
    EXPECT_THAT(TakeBoxes(),
        ElementsAre(fatal + "no element found\n(line: 1, column: 1)", unreadable + "\\Customer\\Sub\\File.xml"));

    directory.Write(customerFile, OneCategory("point_to_pick='customer'"));
    EXPECT_EQ(probe.PointToPick("S", "suv"), "found customer") << "a later query finds it mended";
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    directory.Write(customerFile, "");
    EXPECT_EQ(probe.PointToPick("S", "suv"), "found customer") << "what is loaded stays";

    directory.Write("Sub/File.xml", "");
    CATIDOMElement_var root = probe.Root();
    EXPECT_FALSE(probe.GetSingleRoot(root));
    EXPECT_TRUE(root == NULL_var);
}

TEST_F(ConfigTest, DirectoryInTheFilesPlaceIsAMissingFile)
{
    std::filesystem::create_directories(directory.Path() + "/" + defaultFile);
    Probe probe(directory);
    EXPECT_EQ(probe.FindStandardLevel("S"), 0);
    EXPECT_THAT(TakeBoxes(), ElementsAre("error Error: " + directory.Path() +
                                         "\\Sub\\File.xml (configuration file not found or not readable) \nCheck the "
                                         "configuration directory in the settings."));
    EXPECT_EQ(probe.FindStandardLevel("S"), 0);
    CATIDOMElement_var root;
    EXPECT_FALSE(probe.GetSingleRoot(root));
    EXPECT_TRUE(probe.Root() == NULL_var);
    EXPECT_THAT(TakeBoxes(), IsEmpty()) << "once per object, whichever way it is looked for";
    probe.SetXMLFileName("Other.xml");
    directory.Write("Default/Other.xml", OneCategory("point_to_pick='p'"));
    EXPECT_EQ(probe.PointToPick("S", "default"), "found p");
    probe.SetXMLFilePath("nowhere");
    EXPECT_EQ(probe.PointToPick("S", "default"), "found p") << "a document that is loaded stays loaded";
}

TEST_F(ConfigTest, CopiesShareWhatIsLoaded)
{
    directory.Write(defaultFile, OneCategory("point_to_pick='p'"));
    auto original = std::make_unique<Probe>(directory);
    EXPECT_EQ(original->PointToPick("S", "default"), "found p");
    original->m_spWorkingElement1 = original->GetStandardElement("S");
    Probe copy(*original);
    Probe assigned(directory, "Other.xml");
    assigned = *original;
    original.reset();
    directory.Remove("Default");
    for (Probe* probe : {&copy, &assigned})
    {
        EXPECT_EQ(probe->PointToPick("S", "default"), "found p");
        EXPECT_EQ(Attribute(probe->m_spWorkingElement1, "name"), "S");
        EXPECT_TRUE(probe->m_spWorkingElement2 == NULL_var);
    }
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}
