// SPDX-License-Identifier: GPL-3.0-or-later
// Reading programs for the engine: 1,000,000 lines of the kind that people write, and lines of one kind.
#include "orchard/language/modRead.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

namespace {

// Eleven lines with names of their own.
std::string Piece(std::size_t number)
{
    const std::string own = std::to_string(number);
    const std::string few = std::to_string(number % 50);
    return "[label" + own + "]\r\n" +
           "for i = 1 to 100\r\n"
           "    total = total + value" +
           few +
           "(i) * 2 ' a comment\r\n"
           "    if total > 1000 then print \"too large\"; total else a$ = a$ + \"x\"\r\n"
           "    call show total, left$(a$, 3)\r\n"
           "    while i < 10 and not(done)\r\n"
           "        name$(i) = str$(i) + \" items\" : count" +
           few +
           " = count + 1\r\n"
           "    wend\r\n"
           "next i\r\n"
           "#main.list \"select \"; a$\r\n"
           "\r\n";
}

void ReadRepeatedly(benchmark::State& state, const std::string& text)
{
    std::size_t lines = 0;
    for (auto _ : state) {
        const ob::basic::Program program = ob::basic::ReadProgram(text, nullptr);
        if (!program.errors.empty())
            state.SkipWithError("the program has errors");
        lines = program.lines.Count();
        benchmark::DoNotOptimize(program.nodes.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * lines));
}

// A line is an item.
void ReadLines(benchmark::State& state)
{
    constexpr std::size_t linesOfPiece = 11;
    std::string text = "sub show a, b$\r\nend sub\r\n";
    for (std::size_t piece = 0; piece < static_cast<std::size_t>(state.range(0)) / linesOfPiece; ++piece)
        text += Piece(piece);
    ReadRepeatedly(state, text);
}
BENCHMARK(ReadLines)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ReadAMegabyteOf(benchmark::State& state, std::string_view line)
{
    constexpr std::size_t size = 1 << 20;
    std::string text;
    while (text.size() < size)
        text += line;
    ReadRepeatedly(state, text);
}
BENCHMARK_CAPTURE(ReadAMegabyteOf, comments, "' a comment that is as long as most of them are\n")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAMegabyteOf, sums, "a = b + c * (d - e) / 2 ^ f\n")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAMegabyteOf, texts, "print \"a text that is printed as it is\"\n")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
