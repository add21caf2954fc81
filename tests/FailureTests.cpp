// One allocation or one file operation fails, each in turn, until a whole run passes without meeting the failure. The
// library says so, loses nothing, and answers rightly the next time.
#include "LibraryTest.h"
#include "Memory.h"
#include "VEXArray.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKUFCurbConfig.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum class Fault
{
    None,
    Fails, // the operation ends in an error
    IsInterrupted,
    ReadsLittle, // every read gives a single byte
    Ends,        // a read finds the end, as if the file had been cut meanwhile
    WasLonger,   // the size is told a thousand times too large
};

Fault fault = Fault::None;
std::size_t operationsLeft = 0; // until the one that it happens to

bool Happens(std::initializer_list<Fault> faults)
{
    if (std::find(faults.begin(), faults.end(), fault) == faults.end() || operationsLeft == 0)
        return false;
    return --operationsLeft == 0;
}

int Refuse(int error)
{
    errno = error;
    return -1;
}

std::function<void()> beforeTypes; // called once, before "types" or a file in it is opened

void SeeOpening(const char* path)
{
    if (beforeTypes && std::string_view(path).find("types") != std::string_view::npos)
        std::exchange(beforeTypes, nullptr)();
}

template <class Function> Function* Next(const char* name, Function* /*type*/)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The C library's functions, as the library calls them.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
int open(const char* path, int flags, ...)
{
    static const auto next = Next("open", open);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    SeeOpening(path);
    return Happens({Fault::Fails}) ? Refuse(EMFILE) : next(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...)
{
    static const auto next = Next("openat", openat);
    SeeOpening(path);
    return Happens({Fault::Fails}) ? Refuse(EMFILE) : next(folder, path, flags);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    static const auto next = Next("fstat", fstat);
    if (Happens({Fault::Fails}))
        return Refuse(EIO);
    const int result = next(descriptor, status);
    if (Happens({Fault::WasLonger}))
        status->st_size *= 1000;
    return result;
}

ssize_t read(int descriptor, void* buffer, std::size_t size)
{
    static const auto next = Next("read", read);
    if (Happens({Fault::Fails, Fault::IsInterrupted}))
        return Refuse(fault == Fault::Fails ? EIO : EINTR);
    if (Happens({Fault::Ends}))
        return 0;
    return next(descriptor, buffer, fault == Fault::ReadsLittle ? std::min<std::size_t>(size, 1) : size);
}

int close(int descriptor)
{
    static const auto next = Next("close", close);
    const int result = next(descriptor);
    return Happens({Fault::Fails}) ? Refuse(EIO) : result;
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class FailureTest : public LibraryTest
{
protected:
    struct Answers
    {
        bool asked = false; // whether there was an object to ask
        unsigned char found[2] = {0, 0};
        VEXMELKUFCurbConfigDefinition curbs[2];
    };

    FailureTest()
    {
        const auto standard = [](const std::string& name, const std::string& offset)
        { return Standard(name, "<category name='default' front_offset='" + offset + "'/>"); };
        directory.Write("Default/OVA/UFCurb.xml",
            "<!DOCTYPE config SYSTEM 'curb.dtd'>" + Document(standard("base", "&one;") + standard("both", "2")));
        directory.Write("Default/OVA/curb.dtd", "<!ENTITY one '1'>");
        directory.Write("Customer/OVA/UFCurb.xml", Document(standard("both", "a text that is not held inline")));
        Ask(m_Whole);
    }

    // Cold: manager, objects and documents are made on the way.
    static void Ask(Answers& answers)
    {
        VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
        VEXMELKUFCurbConfig* config = manager ? manager->GetUFCurbConfig() : nullptr;
        answers.asked = config;
        if (!config)
            return;
        answers.found[0] = config->GetStandardData("both", "default", answers.curbs[0]);
        answers.found[1] = config->GetStandardData("base", "default", answers.curbs[1]);
    }

    // Every answer is the whole one or fails, and when one fails, a box says so.
    void ExpectWholeOrTold(const Answers& answers)
    {
        bool isWhole = true;
        for (int index = 0; index < 2; ++index)
        {
            EXPECT_TRUE(!answers.found[index] || answers.curbs[index].FrontOffset == m_Whole.curbs[index].FrontOffset);
            isWhole = isWhole && answers.found[index];
        }
        EXPECT_EQ(TakeBoxes().empty(), isWhole || !answers.asked);
        m_Failures += isWhole ? 0 : 1;
    }

    // The same objects, asked again without the failure.
    void ExpectWholeNow()
    {
        Answers answers;
        Ask(answers);
        EXPECT_TRUE(answers.found[0] && answers.found[1]);
        EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
    }

    Answers m_Whole;
    int m_Failures = 0;
};

TEST_F(FailureTest, AnyAllocationMayFail)
{
    ASSERT_TRUE(m_Whole.found[0] && m_Whole.found[1]);
    for (const bool isReload : {false, true})
    {
        std::size_t number = 0;
        for (bool failed = true; failed; ++number)
        {
            SCOPED_TRACE(number);
            Answers answers;
            if (!isReload)
                Release();
            VEXMELKUtilities::SetReloadConfigurationFlag(isReload);
            failed = Memory::RunFailingAllocation(number + 1, [&] { Ask(answers); });
            ExpectWholeOrTold(answers);
            ExpectWholeNow();
        }
        EXPECT_GT(number, 40U);
    }
    EXPECT_GT(m_Failures, 80);
}

TEST_F(FailureTest, DataThatWereReadByHalfAreReadAgain)
{
    directory.Write("Default/Manikin/EyeEllipses.xml",
        Document(Standard("S", "<category name=''><side_view cutoff90='1'/></category><category name='b'><side_view "
                               "cutoff90='2' cutoff95='a text that is not held inline'/></category>")));
    VEXMELKEyeEllipsesConfig& config = *Manager().GetEyeEllipsesConfig();
    std::size_t number = 0;
    for (bool failed = true; failed;)
    {
        double axis = 0.0;
        EXPECT_TRUE(config.GetSideViewMinorAxis("S", "", 90, axis));
        EXPECT_EQ(axis, 1.0) << number;
        failed = Memory::RunFailingAllocation(++number, [&] { config.GetSideViewMinorAxis("S", "b", 90, axis); });
    }
    EXPECT_THAT(TakeBoxes(), testing::SizeIs(number - 1));
}

TEST_F(FailureTest, AnyFileOperationMayFail)
{
    const struct
    {
        Fault fault;
        int operations; // that it can happen to
        int failures;
    } rows[] = {
        {Fault::Fails, 23, 13}, // closing may fail, and so may the first try to read a document
        {Fault::IsInterrupted, 8, 0},
        {Fault::ReadsLittle, 0, 0},
        {Fault::Ends, 8, 2}, // half of the reads find the end anyway
        {Fault::WasLonger, 3, 0},
    };
    for (const auto& row : rows)
    {
        int operations = -1;
        m_Failures = 0;
        for (operationsLeft = 0; operationsLeft == 0; ++operations)
        {
            SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(row.fault) << " at " << operations);
            Answers answers;
            Release();
            fault = row.fault;
            operationsLeft = static_cast<std::size_t>(operations) + 2;
            Ask(answers);
            fault = Fault::None;
            ExpectWholeOrTold(answers);
            ExpectWholeNow();
        }
        EXPECT_EQ(operations, row.operations);
        EXPECT_EQ(m_Failures, row.failures);
    }
}

TEST_F(FailureTest, AFolderThatBecomesALinkIsNotFollowed)
{
    const TemporaryDirectory outside;
    outside.Write("curb.dtd", "<!ENTITY one 'TOKEN'>");
    directory.Write("types/curb.dtd", "<!ENTITY one '1'>");
    directory.Write("Default/OVA/UFCurb.xml", "<!DOCTYPE config SYSTEM '../../types/curb.dtd'>" +
                                                  Document(Standard("base", "<category front_offset='&one;'/>") +
                                                           Standard("both", "<category front_offset='&one;'/>")));
    Answers answers;
    Release();
    beforeTypes = [&]
    {
        std::filesystem::rename(directory.Path() + "/types", directory.Path() + "/other");
        std::filesystem::create_symlink(outside.Path(), directory.Path() + "/types");
    };
    Ask(answers);
    EXPECT_FALSE(beforeTypes);
    EXPECT_FALSE(answers.found[0] || answers.found[1]);
    EXPECT_THAT(TakeBoxes().front(), testing::HasSubstr("cannot be read")); // from then on there is just none
}

// Neither the Default file nor the one of the single layout stands in for a file that may be there.
TEST_F(FailureTest, WhatCannotBeLookedAtIsTold)
{
    directory.Write("OVA/UFCurb.xml", Document(Standard("both", "<category front_offset='1'/>")));
    const std::string root = directory.Path();
    chmod(root.c_str(), 0755);
    const auto isTold = [&](const std::string& what, int error)
    {
        Answers answers;
        Release();
        Ask(answers);
        const std::string text = "error MELK CFG: Parse Fatal Error: " + what + ": " + std::strerror(error) + "\n";
        const std::vector<std::string> boxes = TakeBoxes();
        return !answers.found[0] && !answers.found[1] && boxes.size() == 4 && boxes[0].starts_with(text) &&
               boxes[2].starts_with(text) && boxes[1].starts_with("error Error: ");
    };
    // In a process of a user who may not do everything.
    const auto told = [&](const std::string& what, int error)
    {
        const bool isUser = geteuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
        std::_Exit(isUser && isTold(what, error) ? 0 : 1);
    };
    for (const char* layout : {"Default", "Customer"})
        for (const std::string& place :
            {std::string(layout), layout + std::string("/OVA"), layout + std::string("/OVA/UFCurb.xml")})
        {
            const std::string path = root + "/" + place;
            const std::string what = root + "\\" + layout + "\\OVA\\UFCurb.xml cannot be read";
            chmod(path.c_str(), 0);
            EXPECT_EXIT(told(what, EACCES), testing::ExitedWithCode(0), "") << place;
            chmod(path.c_str(), 0755);
            std::filesystem::rename(path, root + "/aside");
            for (const auto& [target, error] : {std::pair(root + "/gone", ENOENT), std::pair(path, ELOOP)})
            {
                std::filesystem::create_symlink(target, path);
                EXPECT_TRUE(isTold(what, error)) << place << " to " << target;
                std::filesystem::remove(path);
            }
            std::filesystem::rename(root + "/aside", path);
        }
    const std::string file = root + "\\Default\\OVA\\UFCurb.xml cannot be read";
    const rlimit none = {0, 0};
    EXPECT_EXIT((setrlimit(RLIMIT_NOFILE, &none), told(file, EMFILE)), testing::ExitedWithCode(0), "");
    chmod((root + "/Default/OVA/curb.dtd").c_str(), 0);
    EXPECT_EXIT(told("a document type definition cannot be read", EACCES), testing::ExitedWithCode(0), "");
}

// The array's own rule: it says what it wanted and ends the process.
TEST(VEXArrayMemory, ReportsWhatItWantedAndEndsTheProcess)
{
    using Array = VEXArray<double>;
    const struct
    {
        void (*grow)(Array& array);
        const char* slots;
        const char* where;
    } rows[] = {
        {[](Array& array) { array.add(1.0); }, "25 * 8 = 200", "in long VEXArray<T>::add"},
        {[](Array& array) { array.setSize(9); }, "9 * 8 = 72", "in VEXArray<T>::setAllocatedSize"},
        {[](Array& array) { Array(array).reset(); }, "5 * 8 = 40",
            "in VEXArray<T>::VEXArray( const VEXArray<T>& array )"},
        {[](Array& array) { Array(3) = array; }, "5 * 8 = 40", "in VEXArray<T>::operator="},
        {[](Array& array) { array.reset(); }, "2 * 8 = 16", "in VEXArray<T>::reset"},
        {[](Array& array) { array.removeLast(); }, "4 * 8 = 32", "in VEXArray<T>::removeAndShiftAll"},
        {[](Array& array) { array.removeAndCopyLast(0); }, "4 * 8 = 32", "in VEXArray<T>::removeAndCopyLast"},
    };
    for (const auto& row : rows)
    {
        Array array(2, 20, 0);
        array.setSize(5);
        const std::string report = std::string("\nVEXArray - Error: Bad memory allocation.   \nTrying to allocate ") +
                                   row.slots + " Bytes   \nInfo: " + row.where + "   \n";
        EXPECT_EXIT(Memory::RunFailingAllocation(1, [&] { row.grow(array); }), testing::KilledBySignal(SIGABRT),
            testing::Eq(report));
    }
}
