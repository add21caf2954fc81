// A session of a host, played from bytes: it edits files, asks, reloads, releases, changes the mode and the decimal
// separator, also from inside message boxes. Each answer is kept with the files and the separator that it must come
// from, so that a fresh manager can be asked the same.
#ifndef FUZZ_Session_H
#define FUZZ_Session_H

#include "Directory.h"
#include "DocumentMaker.h"
#include "Host.h"
#include "Questions.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

class Session final : private VEXMELKMessagePresenter
{
public:
    using Files = std::map<std::string, std::string>; // contents by name, below the directory

    struct Asked
    {
        const Configuration* configuration;
        Question question;
        Json answer;
        Files files;
        bool writesCommas;
    };

    Session(Script& script, const Directory& normal, const Directory& test)
        : m_Script(script), m_Directories{&normal, &test}
    {
        m_Before = VEXMELKGUI::InstallPresenter(this);
        for (const Configuration*& configuration : m_Configurations)
            do
                configuration = &AllConfigurations()[m_Script.Next(AllConfigurations().size())];
            while (configuration->file.empty()); // its creator gives it a file, and no manager creates it
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() override
    {
        VEXMELKGUI::InstallPresenter(m_Before);
        VEXMELKConfigManager::ReleaseConfigManager();
        VEXMELKUtilities::Reset();
    }

    // What was asked outside of boxes and answered from one state of the files.
    std::vector<Asked> Play()
    {
        constexpr int mostSteps = 100;
        for (int step = 0; step < mostSteps && !m_Script.IsAtEnd(); ++step)
            switch (m_Script.Next(8))
            {
            case 0:
            case 1:
            case 2:
                Edit();
                break;
            case 3:
                Act();
                break;
            default:
                Ask();
            }
        return std::move(m_Asked);
    }

private:
    static constexpr std::size_t modes = 2;

    // What the manager of a mode holds.
    struct Managed
    {
        std::optional<bool> writesCommas; // once there is a manager
        std::map<const Configuration*, Files> loaded;
    };

    const Configuration& AnyConfiguration() { return *m_Configurations[m_Script.Next(m_Configurations.size())]; }

    void Edit()
    {
        const Configuration& configuration = AnyConfiguration();
        const std::size_t mode = m_Script.Next(modes);
        static constexpr std::array<const char*, 3> layouts = {"Default/", "Customer/", ""};
        const std::string name = layouts[m_Script.Next(layouts.size())] + FileOf(configuration);
        const std::size_t kind = m_Script.Next(6);
        const std::string contents = kind == 0   ? ""
                                     : kind == 1 ? "<config><standard"
                                                 : MakeDocument(m_Script, configuration);
        m_Directories[mode]->Write(mode == VEXMELKTestMode ? "Configuration/" + name : name, contents);
        m_Files[mode][name] = contents;
    }

    // Something that a host may also do in a box.
    void Act()
    {
        switch (m_Script.Next(6))
        {
        case 0:
            VEXMELKConfigManager::ReleaseConfigManager();
            Forget();
            break;
        case 1:
            VEXMELKUtilities::SetReloadConfigurationFlag(1);
            break;
        case 2:
            VEXMELKUtilities::SetCommaDelimeter(m_Script.Next(2) == 1);
            break;
        case 3:
            VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(m_Script.Next(3))); // the last is no mode
            break;
        default:
            Ask();
        }
    }

    void Ask()
    {
        const Configuration& configuration = AnyConfiguration();
        const Operation& operation = configuration.operations[m_Script.Next(configuration.operations.size())];
        const Question question{&operation, MakeArguments(m_Script, operation)};
        const Operation::Call call = operation.Prepare(question.arguments, Json::object());
        if (VEXMELKUtilities::GetReloadConfigurationFlag())
            Forget();
        VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
        if (!manager)
            return;
        const auto mode = static_cast<std::size_t>(VEXMELKUtilities::GetAppMode());
        Managed& managed = m_Managed[mode];
        if (!managed.writesCommas)
            managed.writesCommas = VEXMELKUtilities::IsCommaDelimeter();
        const auto loaded = managed.loaded.find(&configuration);
        const bool readsAnew = operation.name == "GetDBAccessParameters";
        const bool isLoaded = loaded != managed.loaded.end() && !readsAnew;
        const Files files = isLoaded ? loaded->second : FilesOf(configuration, mode);
        const bool writesCommas = *managed.writesCommas;
        const int generation = m_Generation;
        const int actions = m_ActionsInBoxes;
        const Answered answered = call(*configuration.get(*manager));
        if (generation == m_Generation && !readsAnew && Loads(configuration, files))
            managed.loaded.emplace(&configuration, files);
        if (m_Boxes == 0 && actions == m_ActionsInBoxes && !IsOfQueriesBefore(operation))
            m_Asked.push_back({&configuration, question, {{"result", answered.result}, {"outputs", answered.outputs}},
                files, writesCommas});
    }

    void Show(Kind /*kind*/, const CATUnicodeString& /*title*/, const CATUnicodeString& /*text*/) override
    {
        constexpr int deepest = 3;
        if (m_Boxes >= deepest || m_Script.Next(2) == 0)
            return;
        ++m_Boxes;
        ++m_ActionsInBoxes;
        Act();
        --m_Boxes;
    }

    // What these hand out may be that of the query before (docs/format.md, EyeEllipses and HeadContour).
    static bool IsOfQueriesBefore(const Operation& operation)
    {
        constexpr std::array<std::string_view, 4> stateful = {
            "GetCurrentCutoffList", "GetHPointTravelData", "GetSideViewMinorAxis", "GetPlanViewMinorAxis"};
        return std::find(stateful.begin(), stateful.end(), operation.name) != stateful.end();
    }

    // Both managers are gone.
    void Forget()
    {
        ++m_Generation;
        m_Managed = {};
    }

    Files FilesOf(const Configuration& configuration, std::size_t mode) const
    {
        Files files;
        for (const char* layout : {"Default/", "Customer/", ""})
            if (const auto found = m_Files[mode].find(layout + FileOf(configuration));
                found != m_Files[mode].end() && !found->second.empty())
                files.insert(*found);
        return files;
    }
    // Whether an object that reads these files keeps what it read.
    static bool Loads(const Configuration& configuration, const Files& files)
    {
        const std::string file = FileOf(configuration);
        const auto isThere = [&](const std::string& name) { return files.contains(name); };
        const auto isWhole = [&](const std::string& name)
        { return isThere(name) && files.at(name).ends_with("</config>"); };
        if (!isThere("Default/" + file))
            return isWhole(file);
        return isWhole("Default/" + file) && (!isThere("Customer/" + file) || isWhole("Customer/" + file));
    }

    Script& m_Script;
    VEXMELKMessagePresenter* m_Before;
    std::array<const Directory*, modes> m_Directories;
    std::array<const Configuration*, 3> m_Configurations{};
    std::array<Files, modes> m_Files;
    std::array<Managed, modes> m_Managed;
    std::vector<Asked> m_Asked;
    int m_Generation = 0;
    int m_Boxes = 0; // that are open
    int m_ActionsInBoxes = 0;
};

#endif
