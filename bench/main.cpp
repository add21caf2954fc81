// Runs the benchmarks. A wrong answer ends the run, because its time would say nothing.
#include "Bench.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKUtilities.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>

void Require(bool holds, const std::string& message)
{
    if (holds)
        return;
    std::fprintf(stderr, "wrong answer: %s\n", message.c_str());
    std::exit(1);
}

void UseDirectory(const std::filesystem::path& directory, bool withComma)
{
    static std::filesystem::path usedDirectory;
    static bool usedComma = false;
    if (directory == usedDirectory && withComma == usedComma)
        return;
    usedDirectory = directory;
    usedComma = withComma;
    setenv("MELK_CFG_PATH", directory.c_str(), 1);
    VEXMELKUtilities::SetCommaDelimeter(withComma);
    VEXMELKConfigManager::ReleaseConfigManager();
}

int main(int count, char** arguments)
{
    RegisterQueries();
    RegisterConfigurations();
    RegisterLoads();
    RegisterGrowth();
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    const std::size_t run = benchmark::RunSpecifiedBenchmarks();
    VEXMELKConfigManager::ReleaseConfigManager();
    return run > 0 ? 0 : 1;
}
