#include "LibraryTest.h"
#include "Memory.h"
#include "Registry.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"
#include "VEXMELKUFCurbConfig.h"

#include <set>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ManagerTest : public LibraryTest
{
protected:
    static VEXMELKConfigManager* ManagerOf(int mode)
    {
        VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(mode));
        return VEXMELKConfigManager::GetConfigManager();
    }
};

TEST_F(ManagerTest, EachModeHasOneManagerAndOtherModesHaveNone)
{
    VEXMELKConfigManager* normal = ManagerOf(0);
    VEXMELKConfigManager* test = ManagerOf(1);
    ASSERT_TRUE(normal && test);
    EXPECT_NE(normal, test);
    EXPECT_EQ(ManagerOf(0), normal);
    EXPECT_EQ(ManagerOf(1), test);
    EXPECT_EQ(ManagerOf(2), nullptr);
    EXPECT_EQ(ManagerOf(-1), nullptr);
}

TEST_F(ManagerTest, ReloadRequestDropsBothManagersOnceAndTakesOverTheCommaSetting)
{
    EXPECT_FALSE(ManagerOf(0)->CommaDelimiter());
    EXPECT_FALSE(ManagerOf(1)->CommaDelimiter());
    VEXMELKUtilities::SetCommaDelimeter(1);
    EXPECT_FALSE(ManagerOf(0)->CommaDelimiter()) << "fixed when the manager was created";
    VEXMELKUtilities::SetReloadConfigurationFlag(1);
    EXPECT_EQ(ManagerOf(2), nullptr);
    EXPECT_FALSE(VEXMELKUtilities::GetReloadConfigurationFlag()) << "seen in an unknown mode too";
    EXPECT_TRUE(ManagerOf(0)->CommaDelimiter());
    EXPECT_TRUE(ManagerOf(1)->CommaDelimiter());
}

TEST_F(ManagerTest, QueryWhileAReloadIsPendingIsAnsweredFromTheOldDocuments)
{
    directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="1")"));
    VEXMELKUFCurbConfig* config = Manager().GetUFCurbConfig();
    VEXMELKUFCurbConfigDefinition curb;
    ASSERT_TRUE(config->GetStandardData("S", "default", curb));
    directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="2")"));
    VEXMELKUtilities::SetReloadConfigurationFlag(1);
    ASSERT_TRUE(config->GetStandardData("S", "default", curb));
    EXPECT_EQ(curb.FrontOffset, "1mm");
    EXPECT_TRUE(VEXMELKUtilities::GetReloadConfigurationFlag());
    ASSERT_TRUE(Manager().GetUFCurbConfig()->GetStandardData("S", "default", curb));
    EXPECT_EQ(curb.FrontOffset, "2mm");
}

TEST_F(ManagerTest, ObjectsAreCreatedOnceAndByEveryKeyOfTheirs)
{
    const struct
    {
        const char* configuration;
        std::vector<const char*> keys;
    } rows[] = {
        {"BaseData", {}},
        {"UFSlopeAngle", {"VEXMELKUFSlopeAngle"}},
        {"UFInnerAngle", {"VEXMELKUFInnerAngle"}},
        {"UFCurb", {"VEXMELKUFCurb"}},
        {"UFDynamicCurb", {"VEXMELKUFDynCurb"}},
        {"UFSpaceToRoad", {"VEXMELKUFSpaceToRoad"}},
        {"UFOilTub", {"VEXMELKUFOilTub"}},
        {"UFWheelFixing", {"VEXMELKUFWheelFixing"}},
        {"UFComplete", {"VEXMELKUFComplete"}},
        {"NumberPlates", {"VEXMELKNumberPlates"}},
        {"LampPositions", {"VEXMELKLampPositions"}},
        {"Bumpers", {"VEXMELKBumpers"}},
        {"WheelCovering", {"VEXMELKWheelCovering"}},
        {"SeatingBelts", {"VEXMELKSeatingBelts"}},
        {"ChildProtection", {"VEXMELKChildProtection"}},
        {"FreeSpace", {"VEXMELKFreeSpace"}},
        {"CrashBarriers", {}},
        {"EyeEllipses", {"VEXMELKEyeEllipses"}},
        {"EyePoints", {"VEXMELKEyePoints"}},
        {"ExtendedEyePoints", {"VEXMELKExtendedEyePoints"}},
        {"HeadContour", {"VEXMELKHeadContour"}},
        {"SRPLocationCurves", {"VEXMELKSRPLocationCurves"}},
        {"ManikinTemplate", {}},
        {"FieldsOfView", {"VEXMELKFieldsOfView", "VEXMELKFieldOfView"}},
        {"ERFieldsOfView",
            {"VEXMELKERFieldsOfView", "VEXMELKERFieldOfView", "VEXMELKERAFieldOfView", "VEXMELKERBFieldOfView"}},
        {"CRV", {"VEXMELKCloseRangeVisibility"}},
        {"VisionPoints", {"VEXMELKVisionPoints"}},
        {"VisionCone", {"VEXMELKVisionCone"}},
        {"Pyramid", {"VEXMELKPyramid"}},
        {"APillar", {"VEXMELKPillarCovering"}},
        {"Mirror", {"VEXMELKMirror"}},
        {"PedestrianProtection", {}},
        {"HeadImpact", {"VEXMELKHeadImpact"}},
        {"PPOffset", {}},
        {"OpticalDistortion", {}},
        {"MultipleReflection", {}},
        {"DirectView", {"VEXMELKDirectView"}},
        {"DirectView3D", {"VEXMELKDirectView3D"}},
        {"Wipers", {"VEXMELKWipers"}},
        {"DBAccess", {}},
        {"ReportGen", {}},
    };
    std::set<const VEXMELKConfig*> objects;
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.configuration);
        const Configuration& configuration = FindConfiguration(row.configuration);
        VEXMELKConfig* object = configuration.get(Manager());
        ASSERT_TRUE(object);
        EXPECT_TRUE(objects.insert(object).second) << "shared with another configuration";
        EXPECT_EQ(configuration.get(Manager()), object);
        EXPECT_THAT(configuration.keys, SizeIs(row.keys.size()));
        for (const char* key : row.keys)
            EXPECT_EQ(Manager().GetConfig(key), object) << key;
    }
    EXPECT_EQ(std::size(rows) + 1, AllConfigurations().size());
    EXPECT_EQ(Manager().GetOpticalPropsOfWSConfig(), nullptr);
    for (const char* unknown : {"", "vexmelkufcurb", "VEXMELKUFCURB", "UFCurb", "VEXMELKBaseData", "VEXMELKUFCurb "})
        EXPECT_EQ(Manager().GetConfig(unknown), nullptr) << unknown;
}

TEST_F(ManagerTest, ReleaseGoesInItsOrder)
{
    const char* const order[] = {"BaseData", "UFSlopeAngle", "UFInnerAngle", "UFCurb", "UFDynamicCurb", "UFSpaceToRoad",
        "UFOilTub", "UFWheelFixing", "UFComplete", "NumberPlates", "LampPositions", "Bumpers", "WheelCovering",
        "SeatingBelts", "ChildProtection", "FreeSpace", "CrashBarriers", "EyeEllipses", "EyePoints",
        "ExtendedEyePoints", "HeadContour", "SRPLocationCurves", "ManikinTemplate", "FieldsOfView", "ERFieldsOfView",
        "CRV", "VisionPoints", "VisionCone", "Pyramid", "APillar", "Mirror", "PedestrianProtection", "HeadImpact",
        "OpticalDistortion", "MultipleReflection", "DirectView", "DirectView3D", "Wipers", "DBAccess", "ReportGen",
        "PPOffset"};
    std::vector<void*> expected;
    for (const char* name : order)
        expected.push_back(FindConfiguration(name).get(Manager()));
    const std::set<void*> watched(expected.begin(), expected.end());
    EXPECT_EQ(Memory::Deletions(watched, [] { Release(); }), expected);
}

TEST_F(ManagerTest, DirectoryOfEachMode)
{
    CATUnicodeString path("before");
    EXPECT_TRUE(Manager().GetCFGDir(path));
    EXPECT_EQ(path, directory.Path().c_str());

    testPath = directory.Path() + "/test";
    directory.Write("test/Configuration/Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="3")"));
    VEXMELKUFCurbConfigDefinition curb;
    EXPECT_TRUE(ManagerOf(1)->GetUFCurbConfig()->GetStandardData("S", "default", curb));
    EXPECT_EQ(curb.FrontOffset, "3mm");
    EXPECT_EQ(VEXMELKConfigManager::GetTestPath(), testPath.c_str());

    CATUnicodeString database;
    CATUnicodeString user;
    EXPECT_EQ(VEXMELKConfigManager::GetBaseDataDBPath(database, user), 7);
    EXPECT_EQ(database, "database");
    EXPECT_EQ(user, "reader");
}

TEST_F(ManagerTest, WithoutSettingsObjectNothingIsAskedFor)
{
    VEXMELKGetAdminAccess::ReplaceAccessAttr(nullptr);
    CATUnicodeString path("before");
    CATUnicodeString user("before");
    EXPECT_TRUE(Manager().GetCFGDir(path));
    EXPECT_EQ(path, "before");
    EXPECT_TRUE(VEXMELKConfigManager::GetTestPath().IsEmpty());
    EXPECT_EQ(VEXMELKConfigManager::GetBaseDataDBPath(path, user), E_FAIL);
    EXPECT_LT(E_FAIL, 0);
    ManagerOf(1)->GetUFCurbConfig()->FindStandardLevel("S");
    EXPECT_THAT(TakeBoxes(),
        ElementsAre("error Error: \\Configuration\\OVA\\UFCurb.xml (configuration file not found or not readable) \n"
                    "Check the configuration directory in the settings."));
}

TEST_F(ManagerTest, MissingDirectoryIsToldForEachNewObjectAndItsFileOnce)
{
    directoryIsSet = false;
    const std::string undefined = "error MELK - Configuration Error: Environment variable \"MELK_CFG_PATH\" not "
                                  "defined!\nMELK is not able to initialize its objects!\n";
    VEXMELKUFCurbConfig* config = Manager().GetUFCurbConfig();
    ASSERT_TRUE(config);
    EXPECT_THAT(TakeBoxes(), ElementsAre(undefined));
    EXPECT_EQ(Manager().GetUFCurbConfig(), config);
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_TRUE(Manager().GetBaseDataConfig());
    EXPECT_THAT(TakeBoxes(), ElementsAre(undefined));

    VEXMELKUFCurbConfigDefinition curb;
    EXPECT_FALSE(config->GetStandardData("S", "default", curb));
    EXPECT_THAT(
        TakeBoxes(), ElementsAre("error Error: OVA\\UFCurb.xml (configuration file not found or not readable) \n"
                                 "Check the configuration directory in the settings."));
    EXPECT_FALSE(config->GetStandardData("S", "default", curb));
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    CATUnicodeString path("before");
    EXPECT_FALSE(Manager().GetCFGDir(path));
    EXPECT_EQ(path, "before");
}

TEST_F(ManagerTest, CommaOfTheCurrentModeCountsWhateverObjectAnswers)
{
    directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="1.5")"));
    VEXMELKUFCurbConfig* config = Manager().GetUFCurbConfig();
    VEXMELKUtilities::SetCommaDelimeter(1);
    const struct
    {
        int mode;
        const char* expected;
    } rows[] = {{0, "1.5mm"}, {1, "1,5mm"}, {2, "1.5mm"}, {0, "1.5mm"}};
    for (const auto& row : rows)
    {
        VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(row.mode));
        VEXMELKUFCurbConfigDefinition curb;
        EXPECT_TRUE(config->GetStandardData("S", "default", curb)) << row.mode;
        EXPECT_EQ(curb.FrontOffset, row.expected) << row.mode;
    }
}
