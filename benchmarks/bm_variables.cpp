// SPDX-License-Identifier: GPL-3.0-or-later
// The variable scan of a program of a million lines, its table, and the table's sort.
#include "engine/run/cVariableTable.h"
#include "engine/run/modVariables.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int lineCount = 1'000'000;

// Ordinary source: about two lines in three assign.
QByteArray Program()
{
    static const QByteArray text = [] {
        QByteArray lines;
        for (int line = 0; line < lineCount; line += 6) {
            const QByteArray number = QByteArray::number(line);
            lines += "    let total" + number + " = total + price(index) * 2\r\n";
            lines += "    if count >= 5 then done = 1: print \"count = \"; count\r\n";
            lines += "    print \"line \"; index, index * 2 + 1\r\n";
            lines += "\r\n";
            lines += "    for index = 1 to 100: name$ = name$ + chr$(index)\r\n";
            lines += "    next index 'a remark\r\n";
        }
        return lines;
    }();
    return text;
}

void Scan(benchmark::State& state)
{
    const QByteArray text = Program();
    std::size_t found = 0;
    for (auto step : state) {
        Q_UNUSED(step);
        found = ob::ScanVariables(text).size();
    }
    state.counters["entries"] = static_cast<double>(found);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * text.size());
}

void Table(benchmark::State& state)
{
    const QByteArray text = Program();
    for (auto step : state) {
        Q_UNUSED(step);
        const ob::cVariableTable table(text);
        benchmark::DoNotOptimize(table.rowCount());
    }
}

void Sort(benchmark::State& state, int column)
{
    ob::cVariableTable table(Program());
    auto order = Qt::AscendingOrder;
    for (auto step : state) {
        Q_UNUSED(step);
        table.sort(column, order);
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    }
}

} // namespace

BENCHMARK(Scan)->Unit(benchmark::kMillisecond);
BENCHMARK(Table)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, names, ob::cVariableTable::NameColumn)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, lines, ob::cVariableTable::LineColumn)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
