// The managers: one for each mode, creation, keys, reload, release, and queries while the process ends.
#include "LibraryTest.h"
#include "Memory.h"
#include "Registry.h"
#include "System.h"
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
    void WriteCurb(const std::string& offset, const std::string& folder = "")
    {
        directory.Write(folder + "Default/OVA/UFCurb.xml", OneCategory("front_offset='" + offset + "'"));
    }
    static CATUnicodeString FrontOffset(VEXMELKUFCurbConfig& config)
    {
        VEXMELKUFCurbConfigDefinition curb;
        curb.FrontOffset = "before";
        const bool isFilled = config.GetStandardData("S", "default", curb) != 0;
        EXPECT_NE(isFilled, curb.FrontOffset == "before");
        return curb.FrontOffset;
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
    VEXMELKConfigManager copy(*ManagerOf(0)); // as long as there are no objects, which it would release too
    EXPECT_TRUE(copy.CommaDelimiter());
    VEXMELKUtilities::SetCommaDelimeter(0);
    Release();
    copy = *ManagerOf(0);
    EXPECT_FALSE(copy.CommaDelimiter());
}

// A host's box may run other checks while it is open; the last object that the manager held answers to its end.
TEST_F(ManagerTest, BoxInWhichAReloadIsCarriedOutLeavesTheQueryItsObject)
{
    class Reloading final : public ::VEXMELKMessagePresenter
    {
    public:
        void Show(Kind /*kind*/, const CATUnicodeString& /*title*/, const CATUnicodeString& /*text*/) override
        {
            ++boxes;
            VEXMELKUtilities::SetReloadConfigurationFlag(1);
            VEXMELKConfigManager::GetConfigManager();
        }
        int boxes = 0;
    } presenter;
    VEXMELKGUI::InstallPresenter(&presenter);
    EXPECT_EQ(FrontOffset(*ManagerOf(0)->GetUFCurbConfig()), "before");
    EXPECT_EQ(presenter.boxes, 1);
    VEXMELKGUI::InstallPresenter(nullptr);
}

TEST_F(ManagerTest, QueryWhileAReloadIsPendingIsAnsweredFromTheOldDocuments)
{
    WriteCurb("1");
    VEXMELKUFCurbConfig& config = *Manager().GetUFCurbConfig();
    EXPECT_EQ(FrontOffset(config), "1mm");
    WriteCurb("2");
    VEXMELKUtilities::SetReloadConfigurationFlag(1);
    EXPECT_EQ(FrontOffset(config), "1mm");
    EXPECT_TRUE(VEXMELKUtilities::GetReloadConfigurationFlag());
    EXPECT_EQ(FrontOffset(*Manager().GetUFCurbConfig()), "2mm");
}

TEST_F(ManagerTest, ObjectsAreCreatedOnceHaveTheirKeysAndAreReleasedInOrder)
{
    // In the order of their release; configurations with other keys than VEXMELK and their name have them in brackets.
    const std::string order =
        "BaseData() UFSlopeAngle UFInnerAngle UFCurb UFDynamicCurb(UFDynCurb) UFSpaceToRoad UFOilTub UFWheelFixing "
        "UFComplete NumberPlates LampPositions Bumpers WheelCovering SeatingBelts ChildProtection FreeSpace "
        "CrashBarriers() EyeEllipses EyePoints ExtendedEyePoints HeadContour SRPLocationCurves ManikinTemplate() "
        "FieldsOfView(FieldsOfView,FieldOfView) "
        "ERFieldsOfView(ERFieldsOfView,ERFieldOfView,ERAFieldOfView,ERBFieldOfView) CRV(CloseRangeVisibility) "
        "VisionPoints VisionCone Pyramid APillar(PillarCovering) Mirror PedestrianProtection() HeadImpact "
        "OpticalDistortion() MultipleReflection() DirectView DirectView3D Wipers DBAccess() ReportGen() PPOffset()";
    std::vector<void*> objects;
    for (const std::string& described : Split(order, " "))
    {
        const std::string name = Split(described, "(")[0];
        SCOPED_TRACE(name);
        const Configuration& configuration = FindConfiguration(name);
        VEXMELKConfig* object = configuration.get(Manager());
        ASSERT_TRUE(object);
        objects.push_back(object);
        EXPECT_EQ(configuration.get(Manager()), object);
        std::vector<std::string> keys{name};
        if (described.ends_with("()"))
            keys.clear();
        else if (described.ends_with(")"))
            keys = Split(described.substr(name.size() + 1, described.size() - name.size() - 2), ",");
        EXPECT_THAT(configuration.keys, SizeIs(keys.size()));
        for (const std::string& key : keys)
            EXPECT_EQ(Manager().GetConfig(CATUnicodeString("VEXMELK" + key)), object) << key;
    }
    EXPECT_EQ(objects.size() + 1, AllConfigurations().size());
    EXPECT_EQ(Manager().GetOpticalPropsOfWSConfig(), nullptr);
    for (const char* unknown : {"", "vexmelkufcurb", "VEXMELKUFCURB", "UFCurb", "VEXMELKBaseData", "VEXMELKUFCurb "})
        EXPECT_EQ(Manager().GetConfig(unknown), nullptr) << unknown;
    const std::set<void*> watched(objects.begin(), objects.end());
    EXPECT_EQ(watched.size(), objects.size()) << "none is shared with another configuration";
    const std::vector<void*> deleted = Memory::Deletions(watched, [] { Release(); });
    EXPECT_EQ(deleted, Memory::isOfLibrary ? objects : std::vector<void*>());
}

TEST_F(ManagerTest, DirectoryOfEachMode)
{
    CATUnicodeString path("before");
    EXPECT_TRUE(Manager().GetCFGDir(path));
    EXPECT_EQ(path, directory.Path().c_str());

    testPath = directory.Path() + "/test";
    WriteCurb("3", "test/Configuration/");
    EXPECT_EQ(FrontOffset(*ManagerOf(1)->GetUFCurbConfig()), "3mm");
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

    EXPECT_EQ(FrontOffset(*config), "before");
    EXPECT_THAT(
        TakeBoxes(), ElementsAre("error Error: OVA\\UFCurb.xml (configuration file not found or not readable) \n"
                                 "Check the configuration directory in the settings."));
    EXPECT_EQ(FrontOffset(*config), "before");
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    CATUnicodeString path("before");
    EXPECT_FALSE(Manager().GetCFGDir(path));
    EXPECT_EQ(path, "before");
}

TEST_F(ManagerTest, CommaOfTheCurrentModeCountsWhateverObjectAnswers)
{
    WriteCurb("1.5");
    VEXMELKUFCurbConfig& config = *Manager().GetUFCurbConfig();
    VEXMELKUtilities::SetCommaDelimeter(1);
    const std::pair<int, const char*> rows[] = {{0, "1.5mm"}, {1, "1,5mm"}, {2, "1.5mm"}, {0, "1.5mm"}};
    for (const auto& [mode, expected] : rows)
    {
        VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(mode));
        EXPECT_EQ(FrontOffset(config), expected) << mode;
    }
}

static bool KnowsStandards()
{
    CATListValCATUnicodeString names;
    VEXMELKConfigManager::GetConfigManager()->GetUFCurbConfig()->GetStandardNames(names, "default", 1, 3);
    return names.Size() > 0;
}

// A handler that is registered before the library's first use runs after all that the library would destroy itself.
TEST(AtExit, QueriesAreAnswered)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // in a process of its own, where the library is not used yet
    const auto askAndExit = []
    {
        SetVariable("MELK_CFG_PATH", SAMPLE_CONFIGURATION);
        std::atexit(
            []
            {
                const bool fromLoaded = KnowsStandards();
                VEXMELKConfigManager::ReleaseConfigManager();
                _exit(fromLoaded && KnowsStandards() ? 0 : 1);
            });
        std::exit(KnowsStandards() ? 3 : 2);
    };
    EXPECT_EXIT(askAndExit(), testing::ExitedWithCode(0), "");
}
