// The sample configuration lies beside the program: where the project is installed, and in its build tree.
#include "CommandLine.h"
#include "Console.h"
#include "VEXMELKFilePath.h"

#include <filesystem>
#include <iostream>
#include <memory>

namespace {

namespace fs = std::filesystem;

fs::path SampleDirectory()
{
    return (VEXMELKFilePath(ProgramPath()).parent_path() / MELKCFG_SAMPLE).lexically_normal();
}

std::size_t CountFiles(const fs::path& directory)
{
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(directory))
        count += entry.is_regular_file() ? 1 : 0;
    return count;
}

ExitStatus RunInit(const std::string& directory)
{
    const fs::path target = VEXMELKFilePath(directory);
    const fs::path sample = SampleDirectory();
    std::error_code error;
    if (!fs::is_directory(sample, error))
        throw RequestError("the sample is not where it belongs: there is no " + VEXMELKTextOf(sample));
    if (fs::exists(target, error) && !fs::is_directory(target, error))
        throw RequestError(Shown(directory) + " is there already, and no directory");
    if (fs::exists(target, error) && !fs::is_empty(target, error))
        throw RequestError(Shown(directory) + " is not empty: choose a new directory");
    fs::create_directories(target, error);
    if (!error)
        fs::copy(sample, target, fs::copy_options::recursive, error);
    if (error)
        throw RequestError(Shown(directory) + " cannot be written: " + error.message());
    std::cout << CountFiles(target) << " files with illustrative values were written to " << directory << ".\n"
              << "Make the values your own, and ask melkcfg what it finds:\n\n"
              << "  export MELK_CFG_PATH=" << VEXMELKTextOf(fs::absolute(target, error)) << "\n"
              << "  melkcfg list\n"
              << "  melkcfg check\n";
    return Done;
}

} // namespace

void AddSampleCommands(CommandLine& line)
{
    const auto directory = std::make_shared<std::string>();
    line.Add("init", "A configuration to start from: a copy of the sample in a new directory",
            [directory](const Host&) { return RunInit(*directory); }, {"text"})
        ->add_option("DIR", *directory, "A directory that is empty, or not there yet")
        ->required();
}
