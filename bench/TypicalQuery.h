// The typical query as a benchmark: category "car" of standards that vary, by the library or by hand over a peer.
#ifndef BENCH_TypicalQuery_H
#define BENCH_TypicalQuery_H

#include "Bench.h"
#include "Peers.h"

#include <benchmark/benchmark.h>
#include <map>
#include <vector>

// Which standards are asked for, in turn: spread over the document.
inline int AskedStandard(const Shape& shape, int turn)
{
    return static_cast<int>(static_cast<long>(turn) * 7919 % shape.standards);
}
inline constexpr int turns = 256;

void QueryLibrary(benchmark::State& state, const Shape& shape, bool withComma);

template <class Peer> void QueryByHand(benchmark::State& state, const Shape& shape, bool withComma)
{
    static std::map<Shape, TypicalByHand<Peer>> loaded;
    const auto place = loaded.try_emplace(shape, TreeOf(shape)).first;
    const TypicalByHand<Peer>& ask = place->second;
    const auto category = Peer::NameOf("car");
    std::vector<typename Peer::Name> standards;
    Answers answers;
    for (int turn = 0; turn < turns; ++turn)
    {
        const int standard = AskedStandard(shape, turn);
        standards.push_back(Peer::NameOf(StandardName(standard)));
        if (turn < 16)
            Require(
                ask(standards.back(), category, withComma, answers) && answers == ExpectedAnswers(standard, withComma),
                "the typical query, " + StandardName(standard));
    }
    std::size_t turn = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ask(standards[turn++ % turns], category, withComma, answers));
        benchmark::ClobberMemory();
    }
}

#endif
