// SPDX-License-Identifier: GPL-3.0-or-later
// Reading, compiling and writing forms of many controls, all kinds in turn, with tool tips.
#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "guibuilder/modGenerator.h"
#include "platform/language/modAnsi.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

// A form file with that many controls, each with a name and a tool tip, as users write them.
QByteArray FormFile(int64_t controlCount)
{
    QByteArray file = "defaults|Black|Lightgray|White|White|White|White|True|True|True|1|True\r\n"
                      "Window|Many Controls| 1200| 900| 9000| 6000|main|12632256|ms sans serif *10|True|1|True\r\n"
                      "menu|&File|&Open  [open] * --bar--  [none] * E&xit  [quit] * |none|none|none|none|none|none\r\n";
    for (int64_t number = 0; number < controlCount; ++number) {
        const ob::KindTraits& kind = ob::KindTable[static_cast<std::size_t>(number) % ob::KindCount];
        const QByteArray digits = QByteArray::number(static_cast<qlonglong>(number));
        file += QByteArray(kind.keyword.data(), static_cast<qsizetype>(kind.keyword.size())) +
                (kind.kind == ob::ControlKind::Bmpbutton ? "|bmpbttn| " : "|Control " + digits + "| ") +
                QByteArray::number(static_cast<qlonglong>(number % 600 * 15)) + "| 150| 1200.5| 450|name" + digits +
                " *What control " + digits + " does|[branch" + digits + "]|12632256|True|1|True\r\n";
    }
    return file + "statusbar|3|Ready|No file|INS|||||True|1|True\r\n";
}

ob::GuiForm Form(int64_t controlCount)
{
    ob::GuiForm form;
    if (ob::ReadForm(FormFile(controlCount), form) != ob::FormLoad::Loaded)
        throw std::runtime_error("the form cannot be read");
    return form;
}

void Read(benchmark::State& state)
{
    const QByteArray file = FormFile(state.range(0));
    for (auto step : state) {
        Q_UNUSED(step);
        ob::GuiForm form;
        benchmark::DoNotOptimize(ob::ReadForm(file, form));
    }
    state.SetComplexityN(state.range(0));
}

void Compile(benchmark::State& state, ob::ProgramKind kind)
{
    ob::GuiForm form = Form(state.range(0));
    for (auto step : state) {
        Q_UNUSED(step);
        form = ob::Completed(std::move(form), ob::CompletedFor::Program);
        benchmark::DoNotOptimize(ob::AnsiFromText(ob::GenerateProgram(form, kind, {}).text).bytes.size());
    }
    state.SetComplexityN(state.range(0));
}

void Write(benchmark::State& state)
{
    ob::GuiForm form = Form(state.range(0));
    for (auto step : state) {
        Q_UNUSED(step);
        form = ob::Completed(std::move(form), ob::CompletedFor::File);
        benchmark::DoNotOptimize(ob::AnsiFromText(ob::WriteForm(form)).bytes.size());
    }
    state.SetComplexityN(state.range(0));
}

void Counts(benchmark::internal::Benchmark* measured)
{
    measured->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond)->Complexity();
}

} // namespace

BENCHMARK(Read)->Apply(Counts);
BENCHMARK_CAPTURE(Compile, outline, ob::ProgramKind::Outline)->Apply(Counts);
BENCHMARK_CAPTURE(Compile, simple, ob::ProgramKind::Simple)->Apply(Counts);
BENCHMARK(Write)->Apply(Counts);

BENCHMARK_MAIN();
