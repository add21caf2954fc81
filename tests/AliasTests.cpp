// Names that are texts of what an operation fills, and every operation with each allocation failing in turn.
#include "CATIXMLDOMDocumentBuilder.h"
#include "LibraryTest.h"
#include "Memory.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKDescription.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKSAXErrorHandler.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKXMLEntityResolver.h"

#include <map>
#include <regex>
#include <set>

namespace {

const std::string longName = "a name that is too long to be held in the text itself";

class AliasTest : public LibraryTest
{
protected:
    // The one standard with the one category, both of that name.
    void WriteOne(const std::string& file, const std::string& contents, const std::string& attributes = "")
    {
        directory.Write("Default/" + file,
            Document(Standard(
                longName, "<category name='" + longName + "' " + attributes + ">" + contents + "</category>")));
    }
};

} // namespace

TEST_F(AliasTest, NamesMayBeTextsOfTheRecordsThatAreReplaced)
{
    WriteOne("Manikin/SRPLocationCurves.xml", "<curve name='c' a='1'/>");
    VEXArray<VEXMELKSRPLocationCurveDefinition> curves;
    curves.setSize(1);
    curves[0].name = longName.c_str();
    EXPECT_TRUE(Manager().GetSRPLocationCurvesConfig()->GetStandardData(curves[0].name, curves[0].name, curves));
    EXPECT_EQ(curves.size(), 1);
    EXPECT_EQ(curves[0].name, "c");

    WriteOne("OVA/Bumpers.xml", "<MiddlePendulum><bumper loading='b'/></MiddlePendulum>");
    VEXArray<VEXMELKBumpersDefinition> bumpers;
    bumpers.setSize(1);
    bumpers[0].loading = longName.c_str();
    EXPECT_TRUE(
        Manager().GetBumpersConfig()->GetStandardData(bumpers[0].loading, bumpers[0].loading, MiddlePendulum, bumpers));
    EXPECT_EQ(bumpers[0].loading, "b");

    WriteOne("OVA/CrashBarriers.xml", "<barrier loading='b'/>");
    VEXArray<VEXMELKBarrierDefinition> barriers;
    barriers.setSize(1);
    barriers[0].loading = longName.c_str();
    EXPECT_TRUE(
        Manager().GetCrashBarriersConfig()->GetStandardData(barriers[0].loading, barriers[0].loading, barriers));
    EXPECT_EQ(barriers[0].loading, "b");

    WriteOne("OVA/LampPositions.xml", "<Lamp Abbr='l'/>");
    VEXArray<VEXMELKLampPositionsDefinition> lamps;
    lamps.setSize(1);
    lamps[0].Abbr = longName.c_str();
    EXPECT_TRUE(Manager().GetLampPositionsConfig()->GetStandardData(lamps[0].Abbr, lamps[0].Abbr, lamps));
    EXPECT_EQ(lamps[0].Abbr, "l");

    WriteOne("Manikin/EyePoints.xml", "<point name='p'/>");
    VEXArray<VEXMELKEyePointDefinition> points;
    points.setSize(1);
    points[0].name = longName.c_str();
    EXPECT_TRUE(Manager().GetEyePointsConfig()->GetEyePoints(points[0].name, points[0].name, points));
    EXPECT_EQ(points[0].name, "p");

    directory.Write("Default/OVA/BaseData.xml",
        "<b><category name='" + longName + "'><loading name='l'/><seat name='s'/></category></b>");
    VEXArray<VEXMELKLoadingDefinition> loadings;
    loadings.setSize(1);
    loadings[0].name = longName.c_str();
    Manager().GetBaseDataConfig()->GetLoadingDataForBaseDataCategory(loadings[0].name, loadings);
    EXPECT_EQ(loadings[0].name, "l");
    VEXArray<VEXMELKSeatDefinition> seats;
    seats.setSize(1);
    seats[0].name = longName.c_str();
    Manager().GetBaseDataConfig()->GetSeatDataForBaseDataCategory(seats[0].name, seats);
    EXPECT_EQ(seats[0].name, "s");

    WriteOne("Manikin/ManikinTemplate.xml", "<percentil value='" + longName + "' torso_angle='5'/>");
    VEXMELKManikinTemplateDefinition manikin;
    manikin.hip_angle = longName.c_str();
    EXPECT_TRUE(Manager().GetManikinTemplateConfig()->GetStandardData(
        manikin.hip_angle, manikin.hip_angle, manikin.hip_angle, "", MTDriverSeat, manikin));
    EXPECT_EQ(manikin.torso_angle, "5deg");

    WriteOne("Vision/Mirror.xml", "<InstructionField PositionType='" + longName + "' Plane='Road'/>");
    VEXMELKMirrorDefinition mirror;
    mirror.infinite_size = longName.c_str();
    EXPECT_TRUE(Manager().GetMirrorConfig()->GetStandardData(
        mirror.infinite_size, mirror.infinite_size, mirror.infinite_size, mirror));
    EXPECT_EQ(mirror.Plane, "road");
}

TEST_F(AliasTest, NamesMayBeTheOutputs)
{
    WriteOne("OVA/UFInnerAngle.xml", "", "inner_angle='5' loading='curb'");
    CATUnicodeString angle(longName);
    CATUnicodeString calculation(longName);
    EXPECT_TRUE(Manager().GetUFInnerAngleConfig()->GetStandardData(angle, calculation, angle, calculation));
    EXPECT_EQ(angle, "5deg");
    CATUnicodeString loading(longName);
    EXPECT_TRUE(Manager().GetUFInnerAngleConfig()->GetLoading(loading, loading, loading, 1));
    EXPECT_EQ(loading, "curb");

    directory.Write("Default/OVA/UFCurb.xml",
        Document(Standard(longName, "<category name='default'/><UseDefaultSettings name='x'/>")));
    CATUnicodeString settings(longName);
    EXPECT_TRUE(Manager().GetUFCurbConfig()->GetDefaultSettingsName(settings, settings));
    EXPECT_EQ(settings, "x");
    CATListValCATUnicodeString names;
    names.Append("default");
    Manager().GetUFCurbConfig()->GetStandardNames(names, names[1], 1, 3);
    EXPECT_EQ(names.Size(), 1);
    EXPECT_EQ(names[1], CATUnicodeString(longName));
}

// An array that cannot grow ends the process, as its contract says.
static bool FillsArrays(VEXMELKQuestion& question, const VEXMELKOperation& operation)
{
    bool fills = false;
    for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
        fills = fills || VEXMELKTypeText(question.Parameter(position)).find("list of {") != std::string::npos;
    return fills;
}

static void ExpectNoThrow(VEXMELKConfig& object, const VEXMELKOperation& operation)
{
    const auto question = operation.NewQuestion();
    for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
    {
        const VEXMELKValue value = question->Parameter(position);
        if (const auto* text = std::get_if<CATUnicodeString*>(&value))
            **text = longName.c_str();
    }
    if (FillsArrays(*question, operation))
        return;
    std::size_t number = 1;
    EXPECT_NO_THROW(while (Memory::RunFailingAllocation(number, [&] { question->Ask(object); }))++ number)
        << operation.Name() << " at allocation " << number;
}

// No exception passes an operation, whichever of its allocations fails, also of those that load the documents.
TEST_F(AliasTest, OperationsThrowNothingWhenAnAllocationFails)
{
    std::filesystem::copy(SAMPLE_CONFIGURATION "/Default", directory.Path() + "/Default",
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        SCOPED_TRACE(configuration.description->name);
        VEXMELKConfig* object = configuration.get(Manager());
        if (!object || configuration.description->name == "EyeEllipses") // it fills arrays as it loads
            continue;
        for (const VEXMELKDescription* level = configuration.description; level; level = level->base)
            for (const VEXMELKOperation& operation : level->operations)
                ExpectNoThrow(*object, operation);
        TakeBoxes();
    }
}

static void ExpectNoThrow(const std::string& name, const std::function<void()>& function)
{
    std::size_t number = 1;
    EXPECT_NO_THROW(while (Memory::RunFailingAllocation(number, function))++ number) << name << " at " << number;
}

// What the library exports, as nm shows it.
static std::string ExportedSymbols()
{
    const std::string command = "nm -DC --defined-only '" + std::string(MELK_LIBRARY) + "'";
    FILE* pipe = popen(command.c_str(), "r");
    std::string symbols;
    char buffer[4096];
    for (std::size_t read = 1; read > 0; symbols.append(buffer, read))
        read = fread(buffer, 1, sizeof buffer, pipe);
    EXPECT_EQ(pclose(pipe), 0);
    return symbols;
}

static std::set<std::string> Found(const std::string& text, const std::regex& pattern)
{
    std::set<std::string> found;
    for (std::sregex_iterator each(text.begin(), text.end(), pattern), end; each != end; ++each)
        found.insert(each->str(1));
    return found;
}

// The functions of the configurations, managers and handlers that the library exports, by their names.
static std::set<std::string> ExportedFunctions()
{
    // Neither constructors, whose name stands twice, nor destructors and operators.
    return Found(ExportedSymbols(),
        std::regex(
            R"( [TW] ((?:(VEXMELK(?:\w*Config|ConfigManager|SAXErrorHandler|XMLEntityResolver))::(?!\2\()(\w+)))\()"));
}

TEST(ExportedSymbols, AreWhatTheInstalledHeadersDeclare)
{
    std::string headers = "typeinfo vtable abi cxx11 ";
    for (const char* folder : {"include", "description", "host", "document"})
        for (const auto& entry : std::filesystem::directory_iterator(CASES "/../../" + std::string(folder)))
            if (entry.path().extension() == ".h")
                headers += TextOfFile(entry.path());
    const std::regex word(R"((\w+))");
    const std::set<std::string> declared = Found(std::regex_replace(headers, std::regex("//.*"), ""), word);
    const std::set<std::string> exported = Found(ExportedSymbols(), std::regex(R"( [B-Zu] ~?(\w[^(\n@]*))"));
    EXPECT_GT(exported.size(), 400U);
#ifdef __clang__
    // Where it does not inline them, templates of the standard library that give our types are visible too.
    const auto isLeftOut = [](const std::string& symbol) { return symbol.find(" std::") != std::string::npos; };
#else
    const auto isLeftOut = [](const std::string& /*symbol*/) { return false; };
#endif
    for (const std::string& symbol : exported)
        for (const std::string& name : Found(isLeftOut(symbol) ? "" : symbol, word))
            EXPECT_TRUE(declared.contains(name)) << symbol;
}

// Whatever can be called throws nothing: no exported function is missing here.
TEST_F(AliasTest, FunctionsThrowNothingWhenAnAllocationFails)
{
    directory.Write("Default/OVA/UFCurb.xml", Document(Standard(longName, "<category name='default'/>")));
    testPath = longName;
    const CATUnicodeString text(longName);
    const auto probe = CATHandle<VEXMELKUFCurbConfig>::Create(CATUnicodeString(directory.Path()));
    const auto handler = CATHandle<VEXMELKSAXErrorHandler>::Create();
    const auto resolver = CATHandle<VEXMELKXMLEntityResolver>::Create();
    const CATSAXParseException problem(text, 1, 1);
    const auto ofManager = [](const auto& function)
    {
        if (VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager())
            function(*manager);
    };
    CATUnicodeString path;
    CATUnicodeString user;
    CATListValCATUnicodeString names;
    CATISAXInputSource_var source;
    CATIDOMDocument_var document;
    ASSERT_TRUE(SUCCEEDED(CATIXMLDOMDocumentBuilder().ParseMemory(Document(""), NULL_var, document)));
    const CATIDOMElement_var root = document->GetDocumentElement();
    std::map<std::string, std::function<void()>> functions = {
        {"VEXMELKConfigManager::GetCFGDir",
            [&] { ofManager([&](VEXMELKConfigManager& manager) { manager.GetCFGDir(path); }); }},
        {"VEXMELKConfigManager::GetTestPath", [] { VEXMELKConfigManager::GetTestPath(); }},
        {"VEXMELKConfigManager::GetBaseDataDBPath", [&] { VEXMELKConfigManager::GetBaseDataDBPath(path, user); }},
        {"VEXMELKConfigManager::GetConfig",
            [&] { ofManager([](VEXMELKConfigManager& manager) { manager.GetConfig("VEXMELKUFCurb"); }); }},
        {"VEXMELKConfigManager::CommaDelimiter",
            [&] { ofManager([](VEXMELKConfigManager& manager) { manager.CommaDelimiter(); }); }},
        {"VEXMELKConfigManager::GetConfigManager", [] { VEXMELKConfigManager::GetConfigManager(); }},
        {"VEXMELKConfigManager::GetConfigurations", [] { VEXMELKConfigManager::GetConfigurations(); }},
        {"VEXMELKConfigManager::ReleaseConfigManager", [] { VEXMELKConfigManager::ReleaseConfigManager(); }},
        {"VEXMELKConfigManager::WritesCommas", [] { VEXMELKConfigManager::WritesCommas(); }},
        {"VEXMELKConfig::SetXMLFilePath", [&] { probe->SetXMLFilePath(text); }},
        {"VEXMELKConfig::SetXMLFileName", [&] { probe->SetXMLFileName(text); }},
        {"VEXMELKConfig::BooleanFromString", [&] { VEXMELKConfig::BooleanFromString(text); }},
        {"VEXMELKConfig::CompareStrings", [&] { VEXMELKConfig::CompareStrings(text, text); }},
        {"VEXMELKCheckConfig::GetStandardWithCategoryList",
            [&] { probe->GetStandardWithCategoryList(root, text, names); }},
        {"VEXMELKXMLEntityResolver::ResolveEntity", [&] { resolver->ResolveEntity(text, text, source); }},
        {"VEXMELKSAXErrorHandler::Warning", [&] { handler->Warning(&problem); }},
        {"VEXMELKSAXErrorHandler::Error", [&] { handler->Error(&problem); }},
        {"VEXMELKSAXErrorHandler::FatalError", [&] { handler->FatalError(&problem); }},
    };
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
        functions["VEXMELKConfigManager::Get" + std::string(configuration.description->name) + "Config"] = [&]
        {
            Release();
            ofManager([&](VEXMELKConfigManager& manager) { configuration.get(manager); });
        };
    std::set<std::string> missing = ExportedFunctions();
    EXPECT_GT(missing.size(), functions.size());
    for (const auto& [name, function] : functions)
    {
        ExpectNoThrow(name, function);
        EXPECT_EQ(missing.erase(name), 1U) << name << " is not exported";
    }
    TakeBoxes();
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
        for (const VEXMELKDescription* level = configuration.description; level; level = level->base)
            for (const VEXMELKOperation& operation : level->operations)
                for (const std::string_view name :
                    {level->name, std::string_view("Check"), std::string_view("Underfloor")})
                    missing.erase("VEXMELK" + std::string(name) + "Config::" + std::string(operation.Name()));
    for (const std::string& name : Split(CaseFile("internalFunctions"), "\n"))
        missing.erase(name);
    EXPECT_THAT(missing, testing::IsEmpty());
}

// Elements need a default constructor and an assignment only.
TEST(VEXArrayElements, NeedNoMoreThanAssignmentAndMayLieInTheArrayItself)
{
    struct Plain
    {
        Plain() = default;
        Plain(const Plain&) = delete;
        Plain& operator=(const Plain&) = default;
        std::string text = longName;
    };
    VEXArray<Plain> array(0, 1, 0);
    array.add(Plain());
    array[0].text = "first";
    array.setSize(50, array[0]);
    EXPECT_EQ(array[49].text, "first");
    array.add(array[49]);
    array.removeLast();
    EXPECT_EQ(array.size(), 50);

    for (const int increment : {0, -3})
    {
        VEXArray<int> stuck(0, increment, 0);
        stuck.add(7);
        stuck.changeSize(2);
        EXPECT_EQ(stuck.size(), 3);
        EXPECT_EQ(stuck[0], 7);
        EXPECT_EQ(stuck.changeSize(std::numeric_limits<int>::min()), 0);
    }
    VEXArray<char> large;
    large.add('c');
    EXPECT_DEATH(large.changeSize(std::numeric_limits<int>::max()), "Bad memory allocation");
}

TEST(Handles, OfNothingAreOfNothingWhateverTheyConvertTo)
{
    EXPECT_TRUE(CATIDOMText_var(CATIDOMNode_var()) == NULL_var);
    EXPECT_TRUE(CATIDOMElement_var(CATIDOMNode_var()) == NULL_var);
    EXPECT_TRUE(CATUnicodeString(static_cast<const char*>(nullptr)).IsEmpty());
}
