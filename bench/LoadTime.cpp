// Loading and releasing documents: time, and what they occupy.
#include "Bench.h"
#include "Load.h"
#include "Memory.h"
#include "Trees.h"

#include <benchmark/benchmark.h>

namespace fs = std::filesystem;

namespace {

using Files = std::vector<fs::path>;

void CheckElements(const std::string& reader, const Files& files)
{
    static const std::string judge = "expat"; // keeps nothing, so it cannot lose anything either
    Require(Load(reader, files)->Elements() == Load(judge, files)->Elements(), reader + ": elements");
}

void TimeLoad(benchmark::State& state, const std::string& reader, const Files& files)
{
    CheckElements(reader, files);
    for (auto _ : state)
        benchmark::DoNotOptimize(Load(reader, files));
}

void WatchLoad(benchmark::State& state, const std::string& reader, const Files& files)
{
    CheckElements(reader, files); // also lets the reader set up what it keeps for the process
    double bytes = 0;
    for (const fs::path& file : files)
        bytes += static_cast<double>(fs::file_size(file));
    for (auto _ : state)
    {
        const HeapWatch watch;
        const auto loaded = Load(reader, files);
        state.counters["live"] = static_cast<double>(HeapWatch::Use().live) / bytes;
        state.counters["peak"] = static_cast<double>(HeapWatch::Use().peak) / bytes;
    }
}

Files FileOfSize(std::size_t bytes) { return {DefaultFile(TreeOf(ShapeOfSize(bytes)))}; }

} // namespace

void RegisterLoads()
{
    constexpr std::size_t megabyte = 1000000;
    const auto add = [](const std::string& name, const std::string& reader, auto files)
    {
        benchmark::RegisterBenchmark(
            ("load/" + name + "/" + reader).c_str(), [=](benchmark::State& state) { TimeLoad(state, reader, files()); })
            ->Unit(benchmark::kMillisecond);
    };
    for (const std::string reader : readers)
    {
        add("1 MB", reader, [] { return FileOfSize(megabyte); });
        add("19 MB", reader, [] { return FileOfSize(19 * megabyte); });
        add("44 files of 10 kB", reader, [] { return Files(44, FileOfSize(10000).front()); });
        add("sample", reader, SampleFiles);
        add("DBAccess.xml", reader, [] { return Files{SampleDirectory() / "DBAccess.xml"}; });
        for (const std::size_t bytes : {megabyte, 19 * megabyte})
            if (reader != "expat")
                benchmark::RegisterBenchmark(("memory/" + std::to_string(bytes / megabyte) + " MB/" + reader).c_str(),
                    [=](benchmark::State& state) { WatchLoad(state, reader, FileOfSize(bytes)); })
                    ->Iterations(1);
    }
    for (const std::string reader : {"library", "expat"})
        for (const int kilobytes : {10, 40, 160, 640, 2500, 10000})
            benchmark::RegisterBenchmark(("growth/size/" + reader + "/" + std::to_string(kilobytes)).c_str(),
                [=](benchmark::State& state)
                { TimeLoad(state, reader, FileOfSize(static_cast<std::size_t>(kilobytes) * 1000)); });
}
