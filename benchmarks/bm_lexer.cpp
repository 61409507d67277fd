// SPDX-License-Identifier: GPL-3.0-or-later
// The lexer on synthetic programs, and on the line shapes that could be slow.
#include "../tests/scilexer/BasicSource.h"
#include "scilexer/modLexer.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

void LexRepeatedly(benchmark::State& state, const std::string& text)
{
    const ob::KeywordSet keywords(ob::basicKeywords);
    std::vector<unsigned char> styles(text.size());
    for (auto _ : state) {
        benchmark::DoNotOptimize(ob::LexText(text, keywords, styles.data()));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void LexProgram(benchmark::State& state)
{
    LexRepeatedly(state, ob::BasicSource(1).Lines(static_cast<std::size_t>(state.range(0))));
}
BENCHMARK(LexProgram)->Arg(1000)->Arg(20000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void LexOneMegabyteOfOpenBrackets(benchmark::State& state)
{
    LexRepeatedly(state, std::string(1 << 20, '['));
}
BENCHMARK(LexOneMegabyteOfOpenBrackets)->Unit(benchmark::kMillisecond);

void LexOneMegabyteOfLineEnds(benchmark::State& state)
{
    LexRepeatedly(state, std::string(1 << 20, '\n'));
}
BENCHMARK(LexOneMegabyteOfLineEnds)->Unit(benchmark::kMillisecond);

void BuildKeywordSet(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ob::KeywordSet(ob::basicKeywords));
}
BENCHMARK(BuildKeywordSet)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
