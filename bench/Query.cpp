// The typical query through the library's exported interface, beside the same look-up by hand over each peer.
#include "Memory.h"
#include "TypicalQuery.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKFreeSpaceConfig.h"

namespace {

bool AskLibrary(const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFreeSpaceDefinition& data)
{
    return VEXMELKConfigManager::GetConfigManager()->GetFreeSpaceConfig()->GetStandardData(standard, category, data);
}

Answers AnswersOf(const VEXMELKFreeSpaceDefinition& data)
{
    return {data.FSFrontAngle.ConvertToChar(), data.FSMidAngle.ConvertToChar(), data.FSBackAngle.ConvertToChar(),
        data.FSSideAngle.ConvertToChar(), data.FSNoseLength.ConvertToChar(), data.FSHoleDistance.ConvertToChar(),
        data.FSHoleHight.ConvertToChar(), data.FSHoleLength.ConvertToChar(), data.FSBottomHight.ConvertToChar(),
        data.FSNoseHight.ConvertToChar(), data.FSBodyHight.ConvertToChar(), data.FSMidLength.ConvertToChar(),
        data.FSNoseWidth.ConvertToChar(), data.FSBodyWidth.ConvertToChar()};
}

void RegisterQueries(const Shape& shape, bool withComma)
{
    const std::string name = "query/" + std::to_string(shape.standards) + "/" + std::to_string(shape.ownStandards) +
                             (withComma ? "/comma/" : "/point/");
    const auto add = [&](const char* who, void (*query)(benchmark::State&, const Shape&, bool))
    {
        benchmark::RegisterBenchmark(
            (name + who).c_str(), [=](benchmark::State& state) { query(state, shape, withComma); });
    };
    add("library", QueryLibrary);
    add("pugixml", QueryByHand<Pugixml>);
    add("libxml2", QueryByHand<Libxml2>);
    add("tinyxml2", QueryByHand<Tinyxml2>);
    add("xerces", QueryByHand<Xerces>);
}

} // namespace

void QueryLibrary(benchmark::State& state, const Shape& shape, bool withComma)
{
    UseDirectory(TreeOf(shape), withComma);
    const CATUnicodeString category("car");
    std::vector<CATUnicodeString> standards;
    VEXMELKFreeSpaceDefinition data;
    for (int turn = 0; turn < turns; ++turn)
    {
        const int standard = AskedStandard(shape, turn);
        standards.emplace_back(StandardName(standard).c_str());
        Require(AskLibrary(standards.back(), category, data) && AnswersOf(data) == ExpectedAnswers(standard, withComma),
            "the typical query, " + StandardName(standard));
    }
    {
        const HeapWatch watch;
        for (const CATUnicodeString& standard : standards)
            AskLibrary(standard, category, data);
        state.counters["allocations"] = static_cast<double>(HeapWatch::Use().allocations) / turns;
    }
    std::size_t turn = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AskLibrary(standards[turn++ % turns], category, data));
        benchmark::ClobberMemory();
    }
}

void RegisterQueries()
{
    for (const int standards : {10, 1000, 20000})
        for (const int ownStandards : {standards, 1})
            for (const bool withComma : {false, true})
                RegisterQueries({standards, ownStandards}, withComma);
}
