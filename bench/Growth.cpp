// How the time grows with what a document holds: one dimension at a time, the others as in the typical query.
#include "TypicalQuery.h"
#include "VEXMELKCheck.h"

namespace {

std::string NameOf(const char* dimension, const char* who, int value)
{
    return std::string("growth/") + dimension + "/" + who + "/" + std::to_string(value);
}

void AddQueries(const char* dimension, int Shape::*member, std::initializer_list<int> values)
{
    for (const int value : values)
    {
        Shape shape;
        shape.*member = value;
        benchmark::RegisterBenchmark(NameOf(dimension, "library", value).c_str(),
            [=](benchmark::State& state) { QueryLibrary(state, shape, false); });
        benchmark::RegisterBenchmark(NameOf(dimension, "pugixml", value).c_str(),
            [=](benchmark::State& state) { QueryByHand<Pugixml>(state, shape, false); });
    }
}

// All that melkcfg check looks at, without printing it.
void AddChecks(std::initializer_list<int> values)
{
    for (const int value : values)
        benchmark::RegisterBenchmark(NameOf("check", "library", value).c_str(),
            [=](benchmark::State& state)
            {
                Shape shape;
                shape.standards = value;
                shape.children = 0;
                const CATUnicodeString directory(TreeOf(shape).string());
                for (auto _ : state)
                {
                    const VEXMELKCheckResult result = VEXMELKCheck(directory);
                    Require(result.standards == static_cast<std::size_t>(value) + 1, "check: standards");
                }
            });
}

} // namespace

void RegisterGrowth()
{
    AddQueries("standards", &Shape::standards, {10, 100, 1000, 10000, 20000});
    AddQueries("categories", &Shape::categories, {3, 10, 30, 100, 300});
    AddQueries("attributes", &Shape::attributes, {16, 32, 64, 128, 256});
    AddQueries("children", &Shape::children, {6, 20, 60, 200, 600});
    AddChecks({10, 100, 1000, 10000});
}
