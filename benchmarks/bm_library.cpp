// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's library: numbers as texts and back, lines of files, words, constants.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "orchard/library/cFiles.h"
#include "orchard/library/modConstants.h"
#include "orchard/library/modTexts.h"

using namespace ob::basic;

namespace {

enum Kind { Whole, Fraction, Small, Large };

std::vector<double> NumbersOf(std::int64_t kind)
{
    std::vector<double> numbers;
    for (int i = 1; i <= 1000; ++i)
        numbers.push_back(kind == Whole      ? i * 1237.0
                          : kind == Fraction ? i * 1.0001234
                          : kind == Small    ? 0.9 / (i + 0.5)
                                             : i * 1.23e17);
    return numbers;
}

// What most programs would call instead, to compare with.
void PrintfText(benchmark::State& state)
{
    const std::vector<double> numbers = NumbersOf(state.range(0));
    char buffer[64];
    for (auto _ : state)
        for (const double number : numbers)
            benchmark::DoNotOptimize(std::snprintf(buffer, sizeof buffer, "%.9g", number));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}
BENCHMARK(PrintfText)->DenseRange(Whole, Large);

void ShowNumber(benchmark::State& state)
{
    const std::vector<double> numbers = NumbersOf(state.range(0));
    NumberBuffer buffer;
    for (auto _ : state)
        for (const double number : numbers)
            benchmark::DoNotOptimize(NumberText(number, buffer).size());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}
BENCHMARK(ShowNumber)->DenseRange(Whole, Large);

void ReadNumber(benchmark::State& state)
{
    std::vector<std::string> texts;
    for (const double number : NumbersOf(state.range(0)))
        texts.push_back(NumberText(number));
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(Val(text));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}
BENCHMARK(ReadNumber)->DenseRange(Whole, Large);

void UsingTemplate(benchmark::State& state)
{
    const std::vector<double> numbers = NumbersOf(Fraction);
    for (auto _ : state)
        for (const double number : numbers)
            benchmark::DoNotOptimize(Using("######.##", number));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}
BENCHMARK(UsingTemplate);

std::string LinesFile()
{
    return (std::filesystem::temp_directory_path() / "bm_library.txt").string();
}

// Leaves nothing in the folder for temporary files.
const struct LinesFileOwner {
    ~LinesFileOwner() { std::filesystem::remove(LinesFile()); }
} linesFileOwner;

constexpr int lineCount = 1000000;

void MakeLines()
{
    cFiles files;
    cFile& file = files.Open(LinesFile(), FileMode::Output);
    for (int line = 1; line <= lineCount; ++line) {
        file.Text("line ");
        file.Number(line);
        file.EndLine();
    }
    files.CloseAll();
}

void WriteLines(benchmark::State& state)
{
    for (auto _ : state)
        MakeLines();
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(WriteLines)->Unit(benchmark::kMillisecond);

void ReadLines(benchmark::State& state)
{
    MakeLines();
    for (auto _ : state) {
        cFiles files;
        cFile& file = files.Open(LinesFile(), FileMode::Input);
        std::size_t bytes = 0;
        while (!file.Eof())
            bytes += file.Line().size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(ReadLines)->Unit(benchmark::kMillisecond);

void ConstantLookup(benchmark::State& state)
{
    double value = 0;
    for (auto _ : state)
        for (const char* name : {"_WS_VISIBLE", "_CW_USEDEFAULT", "_ES_MULTILINE", "_NO_SUCH_NAME"})
            benchmark::DoNotOptimize(FindConstant(name, value));
    state.SetItemsProcessed(state.iterations() * 4);
}
BENCHMARK(ConstantLookup);

void FindLateText(benchmark::State& state)
{
    const std::string text = std::string(1 << 20, 'a') + "needle";
    for (auto _ : state)
        benchmark::DoNotOptimize(Instr(text, "needle"));
    state.SetBytesProcessed(state.iterations() * (1 << 20));
}
BENCHMARK(FindLateText);

} // namespace

BENCHMARK_MAIN();
