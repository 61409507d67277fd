// SPDX-License-Identifier: GPL-3.0-or-later
// The label index of a program of a million lines with 50,000 labels, its sorted order, and a jump to the last label.
#include "editor/modLabels.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int lineCount = 1'000'000;
constexpr int linesOfOneLabel = 20;

QByteArray Program()
{
    static const QByteArray text = [] {
        QByteArray lines;
        for (int line = 0; line < lineCount; ++line) {
            // The labels are out of alphabetical order, as in a program that has grown.
            const QByteArray name = QByteArray::number((line * 7919LL) % lineCount);
            if (line % linesOfOneLabel != 0)
                lines += "    total = total + price(index) * 2 'line " + name + "\r\n";
            else if (line % 3 == 0)
                lines += "sub Routine" + name + " a, b\r\n";
            else
                lines += "[label" + name + "]\r\n";
        }
        return lines;
    }();
    return text;
}

void Index(benchmark::State& state)
{
    const QByteArray text = Program();
    std::size_t found = 0;
    for (auto step : state) {
        Q_UNUSED(step);
        found = ob::LabelIndex(text).size();
    }
    state.counters["labels"] = static_cast<double>(found);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * text.size());
}

void Sort(benchmark::State& state)
{
    const std::vector<ob::LabelEntry> index = ob::LabelIndex(Program());
    for (auto step : state) {
        Q_UNUSED(step);
        benchmark::DoNotOptimize(ob::SortedLabels(index));
    }
}

void FindLast(benchmark::State& state)
{
    const QByteArray text = Program();
    const QByteArray target = ob::LabelIndex(text).back().text;
    for (auto step : state) {
        Q_UNUSED(step);
        benchmark::DoNotOptimize(ob::FindLabel(text, target));
    }
}

} // namespace

BENCHMARK(Index)->Unit(benchmark::kMillisecond);
BENCHMARK(Sort)->Unit(benchmark::kMillisecond);
BENCHMARK(FindLast)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
