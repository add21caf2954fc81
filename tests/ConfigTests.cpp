#include "LibraryTest.h"
#include "VEXMELKUnderfloorConfig.h"

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
    using VEXMELKConfig::GetDefaultSettingsElement;
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
    std::string Value(const char* standard, const char* category, const char* attribute)
    {
        CATIDOMNamedNodeMap_var defaultMap;
        const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard, category, defaultMap);
        CATUnicodeString value("-");
        GetAttributeMapItemValue(map, attribute, "", value, defaultMap);
        return value.ConvertToChar();
    }
};

std::string Attribute(const CATIDOMElement_var& element, const char* name)
{
    if (element == NULL_var)
        return "no element";
    const CATIDOMNode_var item = element->GetAttributes()->GetNamedItem(name);
    return item == NULL_var ? "no attribute" : std::string(item->GetNodeValue());
}

std::vector<std::string> Texts(const CATListValCATUnicodeString& list)
{
    std::vector<std::string> texts;
    for (const CATUnicodeString& text : list)
        texts.emplace_back(text.ConvertToChar());
    return texts;
}

const char* const defaultFile = "Default/Sub/File.xml";
const char* const customerFile = "Customer/Sub/File.xml";
const char* const singleFile = "Sub/File.xml";

} // namespace

using ConfigTest = LibraryTest;

TEST_F(ConfigTest, LayoutsAndPrecedence)
{
    const struct
    {
        const char* situation;
        bool hasDefault;
        bool hasCustomer;
        bool hasSingle;
        const char* base; // the "file" of the root, or of none
        const char* customer;
    } rows[] = {
        {"split, base only", true, false, false, "default", "no element"},
        {"split, both", true, true, false, "default", "customer"},
        {"split before single", true, false, true, "default", "no element"},
        {"single", false, false, true, "single", "no element"},
        {"a customer file alone is not read", false, true, true, "single", "no element"},
        {"nothing but a customer file", false, true, false, "no element", "no element"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.situation);
        const TemporaryDirectory own;
        if (row.hasDefault)
            own.Write(defaultFile, "<config file='default'/>");
        if (row.hasCustomer)
            own.Write(customerFile, "<config file='customer'/>");
        if (row.hasSingle)
            own.Write(singleFile, "<config file='single'/>");
        Probe probe(own);
        VEXMELKRootDOMElementsDefinition roots;
        EXPECT_EQ(probe.GetRootDOMElements(roots) != 0, row.base != std::string("no element"));
        EXPECT_EQ(Attribute(roots.DefaultRootElement, "file"), row.base);
        EXPECT_EQ(Attribute(roots.CustomerRootElement, "file"), row.customer);
        CATIDOMElement_var single;
        EXPECT_EQ(probe.GetSingleRoot(single), row.hasSingle);
        EXPECT_EQ(Attribute(single, "file"), row.hasSingle ? "single" : "no element");
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
    EXPECT_EQ(probe.Value("Deep", "suv", "a"), "-") << "no child of the root";
    EXPECT_EQ(probe.Value("BOTH", "suv", "a"), "-");
    EXPECT_EQ(probe.Value("", "suv", "a"), "-");
}

TEST_F(ConfigTest, ChildrenAreDescendantsWhoseParentHasTheSameTag)
{
    // The inner standard has the tag of the outer one, so its categories count as children of both.
    directory.Write(defaultFile, Document("<standard name='S'><x><category name='hidden' a='0'/></x>"
                                          "<x><standard name='inner'><category name='deep' a='1'/></standard></x>"
                                          "<category a='2'/><category name='own' a='3'/></standard>"));
    Probe probe(directory);
    EXPECT_EQ(probe.Value("S", "hidden", "a"), "-");
    EXPECT_EQ(probe.Value("S", "deep", "a"), "1");
    EXPECT_EQ(probe.Value("S", "own", "a"), "3");
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
    EXPECT_THAT(Texts(values), ElementsAre("deep", "own"));
}

TEST_F(ConfigTest, ManyCategoriesAreFoundAsFewAre)
{
    // Past eight categories an index stands in for the walk; both must give the first of a name.
    for (const int count : {0, 1, 7, 8, 9, 200})
    {
        std::string categories = "<x><category name='c0' a='hidden'/></x>";
        for (int number = 0; number < count; ++number)
            categories += "<category name='c" + std::to_string(number) + "' a='" + std::to_string(number) + "'/>";
        categories += "<category a='nameless'/><category name='c0' a='second'/><category name='default' a='d'/>";
        directory.Write(defaultFile, Document(Standard("S", categories)));
        Probe probe(directory);
        SCOPED_TRACE(count);
        EXPECT_EQ(probe.Value("S", "c0", "a"), count > 0 ? "0" : "second");
        EXPECT_EQ(probe.Value("S", ("c" + std::to_string(count - 1)).c_str(), "a"),
            count > 0 ? std::to_string(count - 1) : "d");
        EXPECT_EQ(probe.Value("S", "none", "a"), "d");
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
    const struct
    {
        const char* standard;
        const char* category;
        const char* a; // the value seen by a reader
        const char* b;
        const char* element; // the "a" of the element that is handed out
    } rows[] = {
        {"Full", "suv", "s", "d", "s"},
        {"Full", "van", "d", "d", "d"},
        {"Full", "default", "d", "d", "d"},
        {"NoDefault", "suv", "s", "-", "s"},
        {"NoDefault", "van", "-", "-", "no element"},
        {"NoDefault", "default", "-", "-", "no element"},
        {"Bare", "suv", "-", "-", "no attribute"},
        {"Unknown", "suv", "-", "-", "no element"},
        {"Old", "default", "old", "-", "old"},
        {"Old", "suv", "old", "-", "old"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::string(row.standard) + " " + row.category);
        EXPECT_EQ(probe.Value(row.standard, row.category, "a"), row.a);
        EXPECT_EQ(probe.Value(row.standard, row.category, "b"), row.b);
        CATIDOMNamedNodeMap_var map;
        CATIDOMNamedNodeMap_var defaultMap;
        EXPECT_EQ(Attribute(probe.GetCategoryElement(row.standard, row.category, map, defaultMap), "a"), row.element);
        EXPECT_EQ(map == NULL_var, row.element == std::string("no element"));
        const std::vector<std::string> boxes = TakeBoxes();
        EXPECT_EQ(boxes, row.standard == std::string("Old") && row.category == std::string("default")
                             ? std::vector<std::string>{obsolete}
                             : std::vector<std::string>{})
            << "once per object";
    }
    Probe again(directory);
    again.Value("Old", "suv", "a");
    EXPECT_THAT(TakeBoxes(), ElementsAre(obsolete)) << "the data are used through \"default\"";
}

TEST_F(ConfigTest, UnitsAndNumbers)
{
    const struct
    {
        const char* unit;
        const char* text;
        const char* expected;
        const char* withComma;
    } rows[] = {
        {"mm", "12.5", "12.5mm", "12,5mm"},
        {"mm", "12.5mm", "12.5mm", "12,5mm"},
        {"mm", " \t12\r\n", "12mm", "12mm"},
        {"mm", "12 mm ", "12 mm", "12 mm"},
        {"mm", "", "", ""},
        {"mm", "  ", "", ""},
        {"mm", "abc", "abc", "abc"},
        {"mm", "abc9", "abc9mm", "abc9mm"},
        {"mm", "5.", "5.", "5,"},
        {"mm", "\u00B2", "\u00B2", "\u00B2"},
        {"", " 1.5 ", "1.5", "1,5"},
        {"deg", "-3", "-3deg", "-3deg"},
        {"%", "40", "40", "40"},
        {"%", "40%", "40", "40"},
        {"%", "4%0%", "40", "40"},
        {"mm", "40%", "40%", "40%"},
    };
    Probe probe(directory);
    const auto check = [&](bool comma)
    {
        VEXMELKUtilities::SetCommaDelimeter(comma);
        Release();
        for (const auto& row : rows)
        {
            CATUnicodeString value(row.text);
            probe.AddUnits(row.unit, value);
            EXPECT_EQ(value, comma ? row.withComma : row.expected) << row.unit << " + " << row.text;
        }
        EXPECT_DOUBLE_EQ(probe.GetNumber("1,5"), 1.5);
        EXPECT_DOUBLE_EQ(probe.GetNumber("1.5mm"), 1.5);
        EXPECT_DOUBLE_EQ(probe.GetNumber("x"), 0.0);
    };
    check(false);
    check(true);
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
    constexpr double degree = 3.14159265358979323846 / 180.0;
    const struct
    {
        double angle;
        const char* name;
    } angles[] = {{10 * degree, "ten"}, {14.9 * degree, "ten"}, {15.1 * degree, "twenty"}, {25 * degree, "twenty"},
        {0.0, "zero"}, {100.0, "far"}, {213.5, "no element"}, {213.4, "far"}, {-99.9, "zero"}, {-100.0, "no element"}};
    CATIDOMElement_var found;
    for (const auto& row : angles)
    {
        probe.GetChildElementWithAngleAttributeValue(probe.Root(), "row", "v", row.angle, found);
        EXPECT_EQ(Attribute(found, "n"), row.name) << row.angle;
    }

    directory.Write(defaultFile,
        "<config><x><row v='100' n='100'/></x><row n='none'/><row v='20cm' n='200'/><row v='200' n='again'/>"
        "<row v='-1000mm' n='-1000'/></config>");
    Probe lengths(directory);
    const struct
    {
        double length;
        const char* name;
    } ranges[] = {{100.0, "100"}, {99.9, "no element"}, {199.9, "100"}, {200.0, "200"}, {1099.9, "200"},
        {1100.0, "no element"}, {-1000.0, "-1000"}, {-100.1, "-1000"}, {-100.0, "no element"}};
    for (const auto& row : ranges)
    {
        EXPECT_EQ(lengths.GetChildElementWithLengthRangeAttributeValue(lengths.Root(), "row", "v", row.length, found),
            row.name != std::string("no element"));
        EXPECT_EQ(Attribute(found, "n"), row.name) << row.length;
    }
}

TEST_F(ConfigTest, Loadings)
{
    directory.Write(defaultFile,
        Document(Standard("S", "<category name='default' loading=' c1 '/><category name='suv' rear_loading='c2'/>",
                     "loading=' s1 ' rear_loading=''") +
                 Standard("Plain", "", "loading='p'")));
    Probe probe(directory);
    const struct
    {
        const char* standard;
        const char* category;
        bool rear;
        const char* expected;
    } rows[] = {
        {"S", "", false, " s1 "},
        {"S", "van", false, " s1 "},
        {"S", "default", false, "c1"},
        {"S", "suv", true, "c2"},
        {"S", "default", true, "c1"},
        {"S", "van", true, " s1 "},
        {"Plain", "", true, "p"},
        {"Plain", "default", false, "p"},
        {"Unknown", "default", true, "before"},
    };
    for (const auto& row : rows)
    {
        CATUnicodeString loading("before");
        EXPECT_TRUE(probe.GetLoading(row.standard, loading, row.category, row.rear));
        EXPECT_EQ(loading, row.expected) << row.standard << " " << row.category << " " << row.rear;
    }
}

TEST_F(ConfigTest, PriorityLevels)
{
    const std::string s = "<standard name='S'/>";
    const std::string t = "<standard name='T'/>";
    const struct
    {
        const char* situation;
        std::string priorities;
        int levelOfS;
        int levelOfT;
    } rows[] = {
        {"none", "", 0, 0},
        {"each level",
            "<priorities><priority level='1'>" + s + "</priority><priority level='3'><x>" + t +
                "</x></priority></priorities>",
            1, 3},
        {"first level of several",
            "<priorities><priority level='2'>" + s + "</priority><priority level='1'>" + s + "</priority></priorities>",
            1, 0},
        {"first element of a level",
            "<priorities><priority level='2'>" + s + "</priority><priority level='2'>" + t + "</priority></priorities>",
            2, 0},
        {"unknown levels",
            "<priorities><priority level='0'>" + s + "</priority><priority level='4'>" + t +
                "</priority><priority level='01'>" + t + "</priority></priorities>",
            0, 0},
        {"nameless standard",
            "<priorities><priority level='1'>" + s + "</priority><priority level='3'>" + t +
                "<standard/></priority></priorities>",
            0, 0},
        {"two elements", "<priorities><priority level='1'>" + s + "</priority></priorities><priorities/>", 0, 0},
        {"at any depth", "<x><priorities><priority level='2'>" + s + "</priority></priorities></x>", 2, 0},
        {"no child", "<priorities><x><priority level='2'>" + s + "</priority></x></priorities>", 0, 0},
    };
    directory.Write(customerFile, "<config><priorities><priority level='3'>" + s + "</priority></priorities></config>");
    for (const auto& row : rows)
    {
        directory.Write(defaultFile, Document(row.priorities));
        Probe probe(directory);
        EXPECT_EQ(probe.FindStandardLevel("S"), row.levelOfS) << row.situation;
        EXPECT_EQ(probe.FindStandardLevel("T"), row.levelOfT) << row.situation;
    }
}

TEST_F(ConfigTest, StandardNamesByCategoryAndLevel)
{
    const auto with = [](const char* name, const char* category)
    { return Standard(name, std::string("<category name='") + category + "'/>"); };
    directory.Write(defaultFile,
        Document("<priorities><priority level='1'><standard name='L1'/></priority><priority level='2'>"
                 "<standard name='L2'/></priority></priorities>" +
                 with("L2", "suv") + with("Free", "default") + with("L1", "suv") + with("Van", "van") + "<x>" +
                 with("Deep", "suv") + "</x><standard><category name='suv'/></standard>" + Standard("Old", "")));
    Probe base(directory);
    ASSERT_TRUE(base.Root() != NULL_var); // loaded before there is a customer file
    directory.Write(customerFile, Document(with("Own", "suv") + with("L1", "default") + with("Own", "suv")));
    Probe both(directory);
    const struct
    {
        Probe* probe;
        const char* category;
        bool unordered;
        int maxLevel;
        std::vector<std::string> names;
    } rows[] = {
        {&base, "suv", true, -1, {"L2", "Free", "L1", "Deep"}},
        {&base, "suv", false, 3, {"Free", "Deep", "L1", "L2"}},
        {&base, "suv", false, 1, {"Free", "Deep", "L1"}},
        {&base, "suv", false, 0, {"Free", "Deep"}},
        {&base, "suv", false, -1, {}},
        {&base, "van", true, 3, {"Free", "Van"}},
        {&base, "none", true, 3, {"Free"}},
        {&both, "suv", true, 3, {"Own", "L1", "Own", "L2", "Free", "Deep"}},
        {&both, "suv", false, 3, {"Own", "Own", "Free", "Deep", "L1", "L2"}},
    };
    for (const auto& row : rows)
    {
        CATListValCATUnicodeString names;
        names.Append("before");
        row.probe->GetStandardNames(names, row.category, row.unordered, row.maxLevel);
        EXPECT_EQ(Texts(names), row.names) << row.category << " " << row.unordered << " " << row.maxLevel;
    }
    CATListValCATUnicodeString names;
    names.Append("before");
    base.GetStandardWithCategoryList(base.Root(), "van", names);
    EXPECT_THAT(Texts(names), ElementsAre("before", "Free", "Van"));
}

TEST_F(ConfigTest, NamesOfDefaultSettings)
{
    const std::string use = "<UseDefaultSettings name='Set'/>";
    const struct
    {
        const char* situation;
        std::string base;
        std::string customer;
        const char* before;
        bool result;
        const char* name;
    } rows[] = {
        {"in the standard", Standard("S", use), "", "", true, "Set"},
        {"no settings", Standard("S", ""), "", "", false, ""},
        {"two names", Standard("S", use + use), "", "", false, ""},
        {"one of two has a name", Standard("S", use + "<UseDefaultSettings/>"), "", "", true, "Set"},
        {"deeper", Standard("S", "<x>" + use + "</x>"), "", "", false, ""},
        {"the caller's own text counts where an element is", Standard("S", ""), "", "mine", true, "mine"},
        {"and is replaced", Standard("S", use), "", "mine", true, "Set"},
        {"by an empty one too", Standard("S", "<UseDefaultSettings name=''/>"), "", "mine", false, ""},
        {"but not for an unknown standard", Standard("T", use), "", "mine", false, "mine"},
        {"settings of the base document last", "<DefaultSettings>" + Standard("S", use) + "</DefaultSettings>", "", "",
            true, "Set"},
        {"standard before them",
            "<DefaultSettings>" + Standard("S", use) + "</DefaultSettings>" +
                Standard("S", "<UseDefaultSettings name='Own'/>"),
            "", "", true, "Own"},
        {"settings of the customer document first", Standard("S", "<UseDefaultSettings name='Own'/>"),
            "<DefaultSettings>" + Standard("S", use) + "</DefaultSettings>", "", true, "Set"},
        {"but not if there are two", Standard("S", "<UseDefaultSettings name='Own'/>"),
            "<DefaultSettings>" + Standard("S", use) + "</DefaultSettings><DefaultSettings/>", "", true, "Own"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.situation);
        directory.Write(defaultFile, Document(row.base));
        directory.Remove("Customer");
        if (!row.customer.empty())
            directory.Write(customerFile, Document(row.customer));
        Probe probe(directory);
        CATUnicodeString name(row.before);
        EXPECT_EQ(static_cast<VEXMELKConfig&>(probe).GetDefaultSettingsName("S", name) != 0, row.result);
        EXPECT_EQ(name, row.name);
    }
}

TEST_F(ConfigTest, EyesPointAndRadius)
{
    const std::string categories = "<category name='default' point_to_pick=' p '/>";
    directory.Write(defaultFile,
        Document(Standard("Points", "<x><eye_points standard=' a '/></x><eye_ellipses standard='no'/>" + categories,
                     "static_radius='false'") +
                 Standard("Ellipses", "<eye_ellipses standard='b' percentil=' 95 '/><eye_ellipses standard='no'/>") +
                 Standard("Extended", "<eye_extended_points standard='c' percentil='no'/>", "static_radius='True'") +
                 Standard("None", "<category name='suv'/>")));
    Probe probe(directory);
    const struct
    {
        const char* standard;
        int type;
        const char* name;
        const char* percentil;
        int staticRadius; // 7: as the caller had it
    } rows[] = {
        {"Points", 0, " a ", "before", 0},
        {"Ellipses", 1, "b", " 95 ", 1},
        {"Extended", 2, "c", "before", 1},
        {"None", 2, "before", "before", 1},
        {"Unknown", 7, "before", "before", 7},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.standard);
        VEXMELKEyesConfigDefinition eyes{7, "before", "before"};
        EXPECT_TRUE(probe.GetEyes(row.standard, eyes));
        EXPECT_EQ(eyes.EyesType, row.type);
        EXPECT_EQ(eyes.Standard, row.name);
        EXPECT_EQ(eyes.Percentil, row.percentil);
        unsigned char use = 7;
        EXPECT_TRUE(probe.UseStaticRadius(row.standard, use));
        EXPECT_EQ(use, row.staticRadius);
    }
    CATUnicodeString point("before");
    EXPECT_TRUE(probe.GetPointToPick("Points", "suv", point));
    EXPECT_EQ(point, "p");
    EXPECT_TRUE(probe.GetPointToPick("None", "suv", point));
    EXPECT_EQ(point, "");
    point = "before";
    EXPECT_FALSE(probe.GetPointToPick("None", "van", point));
    EXPECT_EQ(point, "before");
}

TEST_F(ConfigTest, BrokenFilesAnswerNothingAndAreToldOncePerQuery)
{
    const std::string path = directory.Path();
    const auto fatal = [](int line, int column, const char* message)
    {
        return std::string("error MELK CFG: Parse Fatal Error: ") + message + "\n(line: " + std::to_string(line) +
               ", column: " + std::to_string(column) + ")";
    };
    const std::string unreadable = "error Error:  (configuration file not found or not readable) " + path;
    Probe probe(directory);
    VEXMELKEyesConfigDefinition eyes{7, "before", "before"};
    CATUnicodeString point("before");

    directory.Write(defaultFile, "<config>\n <a></b></config>");
    EXPECT_FALSE(probe.GetPointToPick("S", "suv", point));
    EXPECT_THAT(TakeBoxes(), ElementsAre(fatal(2, 7, "mismatched tag"), unreadable + "\\Default\\Sub\\File.xml"))
        << "once in a query";
    EXPECT_FALSE(probe.GetEyes("S", eyes));
    EXPECT_EQ(eyes.EyesType, 7);
    EXPECT_THAT(TakeBoxes(), testing::SizeIs(2)) << "and again in the next";

    directory.Write(defaultFile, OneCategory("point_to_pick='base'"));
    directory.Write(customerFile, "");
    EXPECT_FALSE(probe.GetPointToPick("S", "suv", point)) << "nothing of the base document stands in";
    EXPECT_THAT(TakeBoxes(), ElementsAre(fatal(1, 1, "no element found"), unreadable + "\\Customer\\Sub\\File.xml"));
    EXPECT_EQ(point, "before");

    directory.Write(customerFile, OneCategory("point_to_pick='customer'"));
    EXPECT_TRUE(probe.GetPointToPick("S", "suv", point)) << "a later query finds it mended";
    EXPECT_EQ(point, "customer");
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    directory.Write(customerFile, "");
    EXPECT_TRUE(probe.GetPointToPick("S", "suv", point)) << "what is loaded stays";
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
    EXPECT_THAT(TakeBoxes(), IsEmpty()) << "once per object, whichever way it is looked for";
    probe.SetXMLFileName("Other.xml");
    directory.Write("Default/Other.xml", OneCategory("point_to_pick='p'"));
    CATUnicodeString point;
    EXPECT_TRUE(probe.GetPointToPick("S", "default", point));
    probe.SetXMLFilePath("nowhere");
    EXPECT_TRUE(probe.GetPointToPick("S", "default", point)) << "a document that is loaded stays loaded";
}

TEST_F(ConfigTest, CopiesShareWhatIsLoaded)
{
    directory.Write(defaultFile, OneCategory("point_to_pick='p'"));
    auto original = std::make_unique<Probe>(directory);
    CATUnicodeString point;
    EXPECT_TRUE(original->GetPointToPick("S", "default", point));
    original->m_spWorkingElement1 = original->GetStandardElement("S");
    Probe copy(*original);
    Probe assigned(directory, "Other.xml");
    assigned = *original;
    original.reset();
    directory.Remove("Default");
    for (Probe* probe : {&copy, &assigned})
    {
        point = "";
        EXPECT_TRUE(probe->GetPointToPick("S", "default", point));
        EXPECT_EQ(point, "p");
        EXPECT_EQ(Attribute(probe->m_spWorkingElement1, "name"), "S");
        EXPECT_TRUE(probe->m_spWorkingElement2 == NULL_var);
    }
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}
