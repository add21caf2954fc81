// How the time grows with what a document holds: one dimension at a time, the others as in the typical query.
#include "TypicalQuery.h"

namespace {

void AddQueries(const char* dimension, int Shape::*member, std::initializer_list<int> values)
{
    for (const int value : values)
    {
        Shape shape;
        shape.*member = value;
        const auto name = [&](const char* who)
        { return std::string("growth/") + dimension + "/" + who + "/" + std::to_string(value); };
        benchmark::RegisterBenchmark(
            name("library").c_str(), [=](benchmark::State& state) { QueryLibrary(state, shape, false); });
        benchmark::RegisterBenchmark(
            name("pugixml").c_str(), [=](benchmark::State& state) { QueryByHand<Pugixml>(state, shape, false); });
    }
}

} // namespace

void RegisterGrowth()
{
    AddQueries("standards", &Shape::standards, {10, 100, 1000, 10000, 20000});
    AddQueries("categories", &Shape::categories, {3, 10, 30, 100, 300});
    AddQueries("attributes", &Shape::attributes, {16, 32, 64, 128, 256});
    AddQueries("children", &Shape::children, {6, 20, 60, 200, 600});
}
