// SPDX-License-Identifier: GPL-3.0-or-later
// Printing 10,000 lines: in colour and plain, to a PDF and to a printer's pages. One round is one complete print.
#include "../tests/scilexer/BasicSource.h"
#include "editor/document/cDocument.h"
#include "editor/document/modStyling.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/modPrint.h"
#include "platform/dialogs/frmPrinter.h"
#include "platform/dialogs/modPrinter.h"
#include "platform/files/modPaths.h"
#include "scilexer/SciLexerOB_Api.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/modOptions.h"
#include "shell/state/modSettings.h"

#include <QApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QPrinter>
#include <QTemporaryDir>
#include <QWidget>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t LineCount = 10000;

enum class Way { Color, Plain };
enum class Target { Pdf, Printer };

class Events final : public ob::cPrintWatch {
public:
    ob::PrintRequest NextPage(const ob::PrintPlace& place) override
    {
        pages = place.page;
        QApplication::processEvents();
        return ob::PrintRequest::GoOn;
    }

    int pages = 1;
};

// The printer's pages go to a file, as there need not be a printer.
std::unique_ptr<ob::cPrintJob> StartJob(Target target, const QString& path)
{
    if (target == Target::Pdf)
        return ob::StartPdf(path, u"program.bas"_s);
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(path);
    return ob::StartOn(std::move(printer));
}

void Print(benchmark::State& state, Way way, Target target)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"out.pdf"_s);
    QWidget frame;
    const auto create = reinterpret_cast<ob::SciLexerOB_CreateFunction*>(
        QLibrary::resolve(u"" OB_BIN "/SciLexerOB"_s, ob::SciLexerOB_CreateName));
    if (create == nullptr)
        qFatal("The plugin SciLexerOB does not load.");
    const ob::SciLexerOB_Window made = create(&frame);
    frame.resize(900, 700);
    made.window->setGeometry(0, 0, 900, 700);
    frame.show();
    ob::cDocument document(1);
    document.sci = made.sci;
    ob::SetUpSci(document.sci, ob::Editor);
    const std::string text = ob::BasicSource(1).Lines(LineCount);
    ob::SendSci(document.sci, ob::SCI_ADDTEXT, text.size(), text.data());
    Events events;
    for (auto _ : state) {
        ob::SendSci(document.sci, ob::SCI_GOTOPOS, 0);
        const auto range = ob::RangeToPrint(document.sci);
        const auto job = StartJob(target, path);
        const auto end = way == Way::Color ? ob::PrintInColor(document, range, *job, events)
                                           : ob::PrintPlain(document, range, 4, *job, events);
        if (end != ob::PrintEnd::Printed || !QFileInfo(path).isFile()) {
            state.SkipWithError("nothing was printed");
            return;
        }
    }
    state.counters["pages"] = events.pages;
    state.counters["bytes"] = static_cast<double>(QFileInfo(path).size());
}

BENCHMARK_CAPTURE(Print, ColorPdf, Way::Color, Target::Pdf)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Print, PlainPdf, Way::Plain, Target::Pdf)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Print, ColorPrinter, Way::Color, Target::Printer)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Print, PlainPrinter, Way::Plain, Target::Printer)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path());
    ob::SetSettingsFile(folder.filePath(u"settings.ini"_s));
    ob::ResetBench();
    ob::ReadAllSettings();
    ob::BuildSyntaxTable();
    ob::Editor.EditBackColor = ob::Rgb(255, 255, 255);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
