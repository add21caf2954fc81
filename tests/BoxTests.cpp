// Message boxes run the host's own code, which may ask, reload, release, change the mode, or throw. Whatever it does,
// the library stays whole and the query outside of the box answers from one state.
#include "LibraryTest.h"
#include "Memory.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKUFCurbConfig.h"

#include <map>

namespace {

constexpr const char* curbFile = "Default/OVA/UFCurb.xml";

class BoxTest : public LibraryTest
{
protected:
    struct Answer
    {
        int result = -1; // -1: there was no object
        std::string offset;
    };

    static Answer Ask(VEXMELKUFCurbConfig* config)
    {
        if (!config)
            return {};
        VEXMELKUFCurbConfigDefinition curb;
        curb.FrontOffset = "before";
        const int result = config->GetStandardData("S", "default", curb);
        return {result, curb.FrontOffset.ConvertToChar()};
    }
    static VEXMELKUFCurbConfig* Curb()
    {
        VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
        return manager ? manager->GetUFCurbConfig() : nullptr;
    }
    static std::string Text(const Answer& answer) { return std::to_string(answer.result) + " " + answer.offset; }

    // Runs an action in every box, but not in boxes that come up inside of many others.
    void InEachBox(const std::function<void()>& action)
    {
        inBox = [action, depth = std::make_shared<int>(0)]
        {
            if (++*depth <= 4)
                action();
            --*depth;
        };
    }
};

} // namespace

TEST_F(BoxTest, WhateverTheHostDoesInABoxTheQueryEndsAndTheLibraryStaysWhole)
{
    const std::string good = OneCategory("front_offset='1'");
    const std::map<std::string, std::pair<std::string, std::string>> boxes = {
        // document, answer
        {"no directory", {good, "0 before"}},
        {"missing", {"", "0 before"}},
        {"broken", {"<config>", "0 before"}},
        {"no document type", {"<!DOCTYPE c SYSTEM 'none.dtd'>" + good, "1 1mm"}},
        {"obsolete", {Document(Standard("S", "", "front_offset='1'")), "1 1mm"}},
    };
    const std::map<std::string, std::function<void()>> actions = {
        {"ask", [] { Ask(Curb()); }},
        {"release", [] { Release(); }},
        {"release and ask",
            []
            {
                Release();
                Ask(Curb());
            }},
        {"reload",
            []
            {
                VEXMELKUtilities::SetReloadConfigurationFlag(1);
                Ask(Curb());
            }},
        {"change the mode", [] { VEXMELKUtilities::SetAppMode(VEXMELKTestMode); }},
        {"leave all modes",
            []
            {
                Release();
                VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(7));
            }},
        {"throw", [] { throw 5; }},
    };
    for (const auto& [box, expected] : boxes)
        for (const auto& [name, action] : actions)
        {
            SCOPED_TRACE(name + " in the box: " + box);
            Release();
            VEXMELKUtilities::Reset();
            directory.Remove(curbFile);
            if (!expected.first.empty())
                directory.Write(curbFile, expected.first);
            directoryIsSet = box != "no directory";
            InEachBox(action);
            VEXMELKUFCurbConfig* config = Curb();
            // Out of all modes there is no manager any more that could own the object.
            const bool hasObject = box != "no directory" || name != "leave all modes";
            ASSERT_EQ(config != nullptr, hasObject);
            if (config)
            {
                EXPECT_EQ(Text(Ask(config)), expected.second);
            }

            inBox = nullptr;
            VEXMELKUtilities::Reset();
            Release();
            directoryIsSet = true;
            directory.Write(curbFile, good);
            EXPECT_EQ(Text(Ask(Curb())), "1 1mm");
            TakeBoxes();
        }
}

TEST_F(BoxTest, ObjectThatIsAskedForInTheBoxOfItsDirectoryIsOne)
{
    directoryIsSet = false;
    std::set<VEXMELKUFCurbConfig*> objects;
    InEachBox([&] { objects.insert(Curb()); });
    objects.insert(Curb());
    EXPECT_EQ(objects.size(), 1U);
    EXPECT_EQ(*objects.begin(), Curb());
}

TEST_F(BoxTest, WhatIsToldOnceIsToldOnceToAQueryInTheBoxToo)
{
    InEachBox([] { Ask(Curb()); });
    Ask(Curb());
    EXPECT_EQ(TakeBoxes().size(), 1U) << "missing file";
    Release();
    directory.Write(curbFile, Document(Standard("S", "", "front_offset='1'")));
    EXPECT_EQ(Text(Ask(Curb())), "1 1mm");
    EXPECT_EQ(TakeBoxes().size(), 1U) << "obsolete format";
}

TEST_F(BoxTest, QueryAnswersFromWhatItHasSeenWhenAnotherOneInItsBoxLoadsTheMendedFile)
{
    directory.Write("Default/Manikin/ExtendedEyePoints.xml", "<config>");
    const std::string good =
        OneCategory("", "<movements type='t'/><free_movements><down_up min='1'/></free_movements>");
    const auto ask = [this](VEXMELKExtendedEyePointMovements& movements)
    { return Manager().GetExtendedEyePointsConfig()->GetExtendedEyePointMovements("S", "x", movements); };
    VEXMELKExtendedEyePointMovements outer;
    VEXMELKExtendedEyePointMovements inner;
    int innerResult = -1;
    inBox = [&]
    {
        inBox = nullptr;
        directory.Write("Default/Manikin/ExtendedEyePoints.xml", good);
        innerResult = ask(inner);
    };
    EXPECT_FALSE(ask(outer));
    EXPECT_EQ(outer.type, "standard_movements");
    EXPECT_EQ(outer.down_up_min, 0.0);
    EXPECT_EQ(innerResult, 1);
    EXPECT_EQ(inner.down_up_min, 1.0);
    EXPECT_TRUE(ask(outer));
    EXPECT_EQ(outer.type, "t");
}

TEST_F(BoxTest, CopiesAndAssignmentsLeaveTheRunningQueryToTheObjectThatRunsIt)
{
    directory.Write(curbFile, "<config>");
    const auto config = CATHandle<VEXMELKUFCurbConfig>::Create(CATUnicodeString(directory.Path()));
    auto assigned = CATHandle<VEXMELKUFCurbConfig>::Create(CATUnicodeString(directory.Path()));
    std::unique_ptr<VEXMELKUFCurbConfig> copy;
    inBox = [&]
    {
        inBox = nullptr;
        copy = std::make_unique<VEXMELKUFCurbConfig>(*config.Get());
        *assigned.Get() = *config.Get();
        *config.Get() = *assigned.Get();
    };
    EXPECT_EQ(Text(Ask(config.Get())), "0 before");
    EXPECT_EQ(TakeBoxes().size(), 2U) << "the parser's and the library's, once";
    directory.Write(curbFile, OneCategory("front_offset='1'"));
    EXPECT_EQ(Text(Ask(copy.get())), "1 1mm");
    EXPECT_EQ(Text(Ask(assigned.Get())), "1 1mm");
    EXPECT_EQ(Text(Ask(config.Get())), "1 1mm");
}

TEST_F(BoxTest, QueryInADestructorDeletesNothingTwice)
{
    class Late : public VEXMELKUFCurbConfig
    {
    public:
        using VEXMELKUFCurbConfig::VEXMELKUFCurbConfig;
        Late(const Late&) = default;
        Late& operator=(const Late&) = default;
        ~Late() override { Ask(this); }
    };
    directory.Write(curbFile, OneCategory(""));
    Late* late = new Late(CATUnicodeString(directory.Path()));
    EXPECT_EQ(Memory::Deletions({late}, [&] { EXPECT_EQ(late->Release(), 0UL); }), std::vector<void*>{late});
}

TEST_F(BoxTest, RootsAreEmptiedByABrokenFileAndLeftByAMissingOne)
{
    struct Probe : VEXMELKUFCurbConfig
    {
        using VEXMELKConfig::GetRootDOMElements;
        using VEXMELKUFCurbConfig::VEXMELKUFCurbConfig;
    };
    directory.Write(curbFile, OneCategory(""));
    directory.Write("Broken/" + std::string(curbFile), "<config>");
    Probe good{CATUnicodeString(directory.Path())};
    Probe missing{CATUnicodeString(directory.Path() + "/none")};
    Probe broken{CATUnicodeString(directory.Path() + "/Broken")};
    VEXMELKRootDOMElementsDefinition roots;
    EXPECT_TRUE(good.GetRootDOMElements(roots));
    EXPECT_TRUE(roots.DefaultRootElement != NULL_var);
    EXPECT_FALSE(missing.GetRootDOMElements(roots));
    EXPECT_TRUE(roots.DefaultRootElement != NULL_var);
    roots.CustomerRootElement = roots.DefaultRootElement;
    EXPECT_FALSE(broken.GetRootDOMElements(roots));
    EXPECT_TRUE(roots.DefaultRootElement == NULL_var && roots.CustomerRootElement == NULL_var);
}

TEST_F(BoxTest, EmptyDirectoryHasNoFiles)
{
    directory.Write(curbFile, OneCategory("front_offset='1'"));
    directory.Write("OVA/UFCurb.xml", OneCategory("front_offset='1'"));
    directory.Write("DBAccess.xml", "<r host='h'/>");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory.Path());
    const auto config = CATHandle<VEXMELKUFCurbConfig>::Create(CATUnicodeString());
    EXPECT_EQ(Text(Ask(config.Get())), "0 before");
    EXPECT_THAT(TakeBoxes(), testing::ElementsAre("error Error: OVA\\UFCurb.xml (configuration file not found or not "
                                                  "readable) \nCheck the configuration directory in the settings."));
    std::filesystem::current_path(before);
}
