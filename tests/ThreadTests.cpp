// Threads: each has managers, objects and documents of its own, hears of every reload, and may do what it likes while
// the others ask. Under ThreadSanitizer these tests also show that nothing is shared unguarded.
#include "LibraryTest.h"
#include "Memory.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKUFCurbConfig.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

using testing::AnyOf;

namespace {

// A thread that does one thing after the other, each when it is told to, while the test waits.
class Worker
{
public:
    ~Worker() { End(); }
    void Do(const std::function<void()>& act)
    {
        std::unique_lock lock(m_Mutex);
        m_Act = &act;
        m_Changed.notify_all();
        m_Changed.wait(lock, [this] { return !m_Act; });
    }
    void End()
    {
        if (!m_Thread.joinable())
            return;
        {
            const std::lock_guard lock(m_Mutex);
            m_IsEnding = true;
        }
        m_Changed.notify_all();
        m_Thread.join();
    }

private:
    void Run()
    {
        std::unique_lock lock(m_Mutex);
        for (;;)
        {
            m_Changed.wait(lock, [this] { return m_Act || m_IsEnding; });
            if (!m_Act)
                return;
            (*m_Act)();
            m_Act = nullptr;
            m_Changed.notify_all();
        }
    }

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    const std::function<void()>* m_Act = nullptr;
    bool m_IsEnding = false;
    std::thread m_Thread{[this] { Run(); }};
};

} // namespace

class ThreadTest : public LibraryTest
{
protected:
    void WriteCurb(const std::string& offset, const std::string& folder = "")
    {
        // In one step, as an editor does it: whoever loads meanwhile reads the one text or the other.
        directory.Write(folder + "Default/OVA/new", OneCategory("front_offset='" + offset + "'"));
        std::filesystem::rename(directory.Path() + "/" + folder + "Default/OVA/new",
            directory.Path() + "/" + folder + "Default/OVA/UFCurb.xml");
    }
    static VEXMELKUFCurbConfig* Curb() { return VEXMELKConfigManager::GetConfigManager()->GetUFCurbConfig(); }
    static std::string FrontOffset(VEXMELKUFCurbConfig& config)
    {
        VEXMELKUFCurbConfigDefinition curb;
        return config.GetStandardData("S", "default", curb) ? curb.FrontOffset.ConvertToChar() : "none";
    }
    static std::string AskedBy(Worker& worker)
    {
        std::string answer;
        worker.Do([&] { answer = FrontOffset(*Curb()); });
        return answer;
    }
};

TEST_F(ThreadTest, HasManagersObjectsAndDocumentsOfItsOwn)
{
    WriteCurb("1");
    VEXMELKConfigManager* const manager = &Manager();
    VEXMELKUFCurbConfig* const curb = Curb();
    EXPECT_EQ(FrontOffset(*curb), "1mm");
    WriteCurb("2");
    Worker worker;
    worker.Do(
        [&]
        {
            EXPECT_NE(VEXMELKConfigManager::GetConfigManager(), manager);
            EXPECT_NE(Curb(), curb);
            EXPECT_EQ(FrontOffset(*Curb()), "2mm") << "loaded by itself";
            VEXMELKConfigManager::ReleaseConfigManager();
        });
    EXPECT_EQ(Curb(), curb) << "released by another thread";
    EXPECT_EQ(FrontOffset(*curb), "1mm");
}

TEST_F(ThreadTest, HearsOfAReloadThatAnotherOneRequestsAndCarriesItOutOnce)
{
    Worker first;
    Worker second;
    WriteCurb("1");
    for (Worker* worker : {&first, &second})
        EXPECT_EQ(AskedBy(*worker), "1mm");
    EXPECT_EQ(FrontOffset(*Curb()), "1mm");

    WriteCurb("2");
    first.Do([] { VEXMELKUtilities::SetReloadConfigurationFlag(1); });
    EXPECT_EQ(FrontOffset(*Curb()), "2mm");
    EXPECT_FALSE(VEXMELKUtilities::GetReloadConfigurationFlag());
    second.Do([] { EXPECT_TRUE(VEXMELKUtilities::GetReloadConfigurationFlag()) << "not carried out there yet"; });
    WriteCurb("3");
    EXPECT_EQ(FrontOffset(*Curb()), "2mm") << "carried out already";
    for (Worker* worker : {&first, &second})
    {
        EXPECT_EQ(AskedBy(*worker), "3mm");
        worker->Do([] { EXPECT_FALSE(VEXMELKUtilities::GetReloadConfigurationFlag()); });
    }
    // Withdrawn by one, it still holds for the others.
    WriteCurb("4");
    first.Do([] { VEXMELKUtilities::SetReloadConfigurationFlag(1); });
    VEXMELKUtilities::SetReloadConfigurationFlag(0);
    EXPECT_EQ(FrontOffset(*Curb()), "2mm");
    EXPECT_EQ(AskedBy(second), "4mm");
}

TEST_F(ThreadTest, ReleasesItsOwnWhenItEnds)
{
    WriteCurb("1");
    WriteCurb("1", "Configuration/");
    testPath = directory.Path() + "\\";
    const auto objects = []
    {
        std::set<void*> made;
        for (const VEXMELKAppMode mode : {VEXMELKTestMode, VEXMELKNormalMode})
        {
            VEXMELKUtilities::SetAppMode(mode);
            EXPECT_EQ(FrontOffset(*Curb()), "1mm");
            made.insert({VEXMELKConfigManager::GetConfigManager(), Curb()});
        }
        return made;
    };
    std::set<void*> watched = objects();
    std::set<void*> ofWorker;
    Worker worker;
    worker.Do([&] { ofWorker = objects(); });
    watched.insert(ofWorker.begin(), ofWorker.end());
    const std::vector<void*> deleted = Memory::Deletions(watched, [&] { worker.End(); });
    EXPECT_EQ(std::set<void*>(deleted.begin(), deleted.end()), Memory::isOfLibrary ? ofWorker : std::set<void*>());
}

TEST_F(ThreadTest, EightLoadAskReloadAndReleaseAtWill)
{
    constexpr int threads = 8;
    constexpr int rounds = 300;
    class Counting final : public ::VEXMELKMessagePresenter, public ::VEXMELKLogSink
    {
    public:
        void Show(Kind /*kind*/, const CATUnicodeString& /*title*/, const CATUnicodeString& /*text*/) override
        {
            ++boxes;
            // The host asks inside of a box, too.
            VEXMELKUFCurbConfigDefinition curb;
            Curb()->GetStandardData("S", "default", curb);
        }
        void Write(const CATUnicodeString& line) override { lines += line.IsEmpty() ? 0 : 1; }
        std::atomic<int> boxes = 0;
        std::atomic<int> lines = 0;
    } counting;
    VEXMELKGUI::InstallPresenter(&counting);
    VEXMELKLog::InstallSink(&counting);
    VEXMELKLog::SetLevel(VEXMELKLog::TraceLevel);
    WriteCurb("1.5");
    directory.Write("Default/OVA/FreeSpace.xml", "<root>"); // broken: each load shows a box

    std::mutex writing;
    std::atomic<int> answered = 0;
    const auto play = [&](unsigned seed)
    {
        for (int round = 0; round < rounds; ++round)
        {
            seed = seed * 1664525U + 1013904223U;
            switch (seed >> 24U & 15U)
            {
            case 0:
                VEXMELKUtilities::SetReloadConfigurationFlag(1);
                break;
            case 1:
                VEXMELKConfigManager::ReleaseConfigManager();
                break;
            case 2:
            {
                const std::lock_guard lock(writing);
                WriteCurb(seed & 1U ? "1.5" : "2.5");
                break;
            }
            case 3:
                VEXMELKUtilities::SetCommaDelimeter(seed & 1U);
                break;
            case 4:
            {
                VEXMELKFreeSpaceDefinition space;
                EXPECT_FALSE(VEXMELKConfigManager::GetConfigManager()->GetFreeSpaceConfig()->GetStandardData(
                    "S", "default", space));
                break;
            }
            case 5:
                VEXMELKLog::Trace("thread", "a line");
                break;
            default:
                EXPECT_THAT(FrontOffset(*Curb()), AnyOf("1.5mm", "1,5mm", "2.5mm", "2,5mm"));
                ++answered;
            }
        }
    };
    {
        std::vector<std::jthread> running;
        for (unsigned number = 0; number < threads; ++number)
            running.emplace_back(play, number * 2654435761U);
    }
    EXPECT_GT(answered, threads * rounds / 4);
    EXPECT_GT(counting.boxes, 0);
    EXPECT_GT(counting.lines, 0);
    VEXMELKGUI::InstallPresenter(nullptr);
    VEXMELKLog::InstallSink(nullptr);
}
