// The typical query through the library's exported interface, beside the same look-up by hand over each peer, and
// beside its floor; in any order, for the first time, and in several threads.
#include "CATIXMLDOMDocumentBuilder.h"
#include "Memory.h"
#include "TypicalQuery.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKFreeSpaceConfig.h"

#include <chrono>
#include <numeric>
#include <random>

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

constexpr CATUnicodeString VEXMELKFreeSpaceDefinition::*fields[] = {&VEXMELKFreeSpaceDefinition::FSFrontAngle,
    &VEXMELKFreeSpaceDefinition::FSMidAngle, &VEXMELKFreeSpaceDefinition::FSBackAngle,
    &VEXMELKFreeSpaceDefinition::FSSideAngle, &VEXMELKFreeSpaceDefinition::FSNoseLength,
    &VEXMELKFreeSpaceDefinition::FSHoleDistance, &VEXMELKFreeSpaceDefinition::FSHoleHight,
    &VEXMELKFreeSpaceDefinition::FSHoleLength, &VEXMELKFreeSpaceDefinition::FSBottomHight,
    &VEXMELKFreeSpaceDefinition::FSNoseHight, &VEXMELKFreeSpaceDefinition::FSBodyHight,
    &VEXMELKFreeSpaceDefinition::FSMidLength, &VEXMELKFreeSpaceDefinition::FSNoseWidth,
    &VEXMELKFreeSpaceDefinition::FSBodyWidth};
static_assert(std::size(fields) == fieldCount);

using Texts = std::array<std::string_view, fieldCount>;

// Where the texts of the answer stand in the document.
Texts FindTexts(const CATIDOMElement_var& root, const std::string& standard)
{
    Texts texts;
    const CATIDOMNodeList_var categories = root->GetElementsByTagName("category");
    for (int position = 0; position < categories->GetLength(); ++position)
    {
        const CATIDOMElement_var category = categories->Item(position);
        const CATIDOMNamedNodeMap_var attributes = category->GetAttributes();
        const bool isAsked = attributes->GetNamedItemValue("name") == "car";
        if (category->GetParentNode()->GetAttributes()->GetNamedItemValue("name") != standard ||
            (!isAsked && attributes->GetNamedItemValue("name") != "default"))
            continue;
        for (std::size_t field = 0; field < fieldCount; ++field)
            if (const auto text = attributes->GetNamedItemValue(freeSpaceFields[field].attribute))
                if (isAsked || texts[field].empty())
                    texts[field] = *text;
    }
    return texts;
}

// The least that the answer costs: where each text stands is known, and only the unit and the copies are left.
void QueryFloor(benchmark::State& state, const Shape& shape, bool withComma)
{
    CATIDOMDocument_var document;
    const CATListValCATUnicodeString none;
    CATIXMLDOMDocumentBuilder().Parse(DefaultFile(TreeOf(shape)).c_str(), none, none, NULL_var, NULL_var, document);
    std::vector<Texts> texts;
    for (int turn = 0; turn < turns; ++turn)
        texts.push_back(turn < shape.standards
                            ? FindTexts(document->GetDocumentElement(), StandardName(AskedStandard(shape, turn)))
                            : texts[static_cast<std::size_t>(turn % shape.standards)]);
    VEXMELKFreeSpaceDefinition data;
    const auto ask = [&](std::size_t turn)
    {
        for (std::size_t field = 0; field < fieldCount; ++field)
        {
            const std::string_view text = texts[turn][field];
            CATUnicodeString& value = data.*fields[field];
            value = text;
            if (withComma)
                value.ReplaceAll('.', ',');
            if (!text.empty() && text.back() >= '0' && text.back() <= '9')
                value.Append(freeSpaceFields[field].unit);
        }
    };
    for (std::size_t turn = 0; turn < 16; ++turn)
    {
        ask(turn);
        Require(
            AnswersOf(data) == ExpectedAnswers(AskedStandard(shape, static_cast<int>(turn)), withComma), "the floor");
    }
    std::size_t turn = 0;
    for (auto _ : state)
    {
        ask(turn++ % turns);
        benchmark::DoNotOptimize(data);
        benchmark::ClobberMemory();
    }
}

// Each standard asked once, over documents that have just been loaded: "again" asks them all a second time and tells
// the time of that. The time is that of one question.
void QueryEach(benchmark::State& state, const Shape& shape, bool inOrder, bool again)
{
    std::vector<CATUnicodeString> standards;
    for (int standard = 0; standard < shape.standards; ++standard)
        standards.emplace_back(StandardName(standard).c_str());
    if (!inOrder)
        std::shuffle(standards.begin(), standards.end(), std::mt19937_64(2026)); // NOLINT: the same order each time
    const CATUnicodeString category("car");
    VEXMELKFreeSpaceDefinition data;
    UseDirectory(TreeOf(shape), false);
    const auto askAll = [&]
    {
        int answered = 0;
        for (const CATUnicodeString& standard : standards)
            answered += AskLibrary(standard, category, data) ? 1 : 0;
        Require(answered == shape.standards, "each standard once");
    };
    for (auto _ : state)
    {
        VEXMELKConfigManager::ReleaseConfigManager();
        AskLibrary("no such standard", category, data); // loads
        if (again)
            askAll();
        const auto begin = std::chrono::steady_clock::now();
        askAll();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(taken.count() / shape.standards);
    }
}

// The typical query in several threads at once, each with its own manager.
void QueryInThreads(benchmark::State& state)
{
    const Shape shape;
    const CATUnicodeString category("car");
    std::vector<CATUnicodeString> standards;
    for (int turn = 0; turn < turns; ++turn)
        standards.emplace_back(StandardName(AskedStandard(shape, turn)).c_str());
    VEXMELKFreeSpaceDefinition data;
    AskLibrary(standards.front(), category, data); // loads
    std::size_t turn = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AskLibrary(standards[turn++ % turns], category, data));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
    Require(AnswersOf(data) == ExpectedAnswers(AskedStandard(shape, static_cast<int>((turn - 1) % turns)), false),
        "the typical query in a thread");
}

void RegisterOrders()
{
    const auto add = [](const char* name, const Shape& shape, bool inOrder, bool again)
    {
        benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { QueryEach(state, shape, inOrder, again); })
            ->UseManualTime()
            ->Iterations(3);
    };
    add("order/any", {.standards = 20000}, false, false);
    add("order/first", {.standards = 1000}, true, false);
    add("order/later", {.standards = 1000}, true, true);
    benchmark::RegisterBenchmark("threads/query", QueryInThreads)
        ->Setup([](const benchmark::State& /*state*/) { UseDirectory(TreeOf(Shape()), false); })
        ->ThreadRange(1, 2)
        ->UseRealTime();
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
    add("floor", QueryFloor);
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
    RegisterOrders();
}
