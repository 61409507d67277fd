// SPDX-License-Identifier: GPL-3.0-or-later
// Replace All of 100,000 matches in 20 MB, from the answer to the question until the text is painted, and the search
// through a text without a match.
#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/frmDocument.h"
#include "editor/frmReplaceWatch.h"
#include "editor/modFind.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modPaths.h"
#include "shell/bench/frmMain.h"
#include "shell/bench/modStart.h"
#include "shell/state/modSettings.h"

#include <benchmark/benchmark.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int LineCount = 100'000;
constexpr int LineBytes = 200;

// Answers every question with No.
class NoDialogs final : public ob::cDialogs {
public:
    ob::BoxAnswer Message(const ob::MessageSpec& spec) override
    {
        return spec.buttons == ob::BoxButtons::Ok ? ob::BoxAnswer::Ok : ob::BoxAnswer::No;
    }
    std::optional<QString> Input(const ob::InputSpec&) override { return std::nullopt; }
    QString File(const ob::FileSpec&) override { return {}; }
    QString Folder(const ob::FolderSpec&) override { return {}; }
    std::optional<std::uint32_t> Color(const ob::ColorSpec&) override { return std::nullopt; }
    std::optional<ob::FontSpec> Font(const ob::FontSpec&) override { return std::nullopt; }
};

// Lines of a program, each with the word in the middle.
QByteArray Program(const QByteArray& word)
{
    const QByteArray code = "    print \"row \"; row; \" of \"; rows : " + word + "(row) = price(row) * (1 + tax) ";
    QByteArray line = code + "' ";
    while (line.size() < LineBytes - 2)
        line += "remark ";
    line.truncate(LineBytes - 2);
    return (line + "\r\n").repeated(LineCount);
}

QWidget* Edit(const ob::cDocument& document)
{
    return dynamic_cast<QWidget*>(document.window)->findChild<QWidget*>(u"sci"_s);
}

ob::cDocument* Load(const QByteArray& text)
{
    ob::cDocument* document = ob::ActiveDocument();
    if (document == nullptr)
        document = ob::NewDocument();
    ob::SendSci(document->sci, ob::SCI_CLEARALL);
    ob::SendSci(document->sci, ob::SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.constData());
    ob::SendSci(document->sci, ob::SCI_EMPTYUNDOBUFFER);
    ob::SendSci(document->sci, ob::SCI_GOTOPOS, 0);
    QApplication::processEvents();
    return document;
}

enum class Wrap { Off, On };

void ReplaceAll(benchmark::State& state, int flags, bool fromStart, const char* word, Wrap wrap)
{
    const QByteArray replacement = "balance$";
    const QByteArray text = Program(word);
    const ob::cDocument* document = Load(text);
    ob::SendSci(document->sci, ob::SCI_SETWRAPMODE, wrap == Wrap::On ? 1 : 0);
    ob::Finding().FindFlags = flags;
    ob::Finding().FindFromStart = fromStart;
    for (auto _ : state) {
        ob::ReplaceAllText(*document, QString::fromUtf8(word), QString::fromLatin1(replacement),
                           [&] { return std::make_unique<ob::frmReplaceWatch>(Edit(*document)); });
        qobject_cast<QAbstractScrollArea*>(Edit(*document))->viewport()->repaint();
        state.PauseTiming();
        const std::intptr_t grown = ob::SendSci(document->sci, ob::SCI_GETLENGTH) - text.size();
        ob::SendSci(document->sci, ob::SCI_UNDO);
        const std::string_view before(text.constData(), static_cast<std::size_t>(text.size()));
        if (grown != LineCount * (replacement.size() - QByteArray(word).size()) ||
            ob::SciText(document->sci) != before) {
            state.SkipWithError("not everything was replaced, or the text did not come back");
            return;
        }
        ob::SendSci(document->sci, ob::SCI_EMPTYUNDOBUFFER);
        ob::SendSci(document->sci, ob::SCI_GOTOPOS, 0);
        QApplication::processEvents();
        state.ResumeTiming();
    }
    ob::SendSci(document->sci, ob::SCI_SETWRAPMODE, 0);
}
#define OB_REPLACE_ALL(name, ...)                                                                                      \
    BENCHMARK_CAPTURE(ReplaceAll, name, __VA_ARGS__)->UseRealTime()->Unit(benchmark::kMillisecond)
OB_REPLACE_ALL(as_it_comes, 0, false, "total", Wrap::Off);
OB_REPLACE_ALL(case_sensitive, ob::FindMatchCase, false, "total", Wrap::Off);
OB_REPLACE_ALL(whole_word, ob::FindWholeWord, false, "total", Wrap::Off);
OB_REPLACE_ALL(from_start, 0, true, "total", Wrap::Off);
OB_REPLACE_ALL(beyond_ascii, 0, false, "größe", Wrap::Off);
OB_REPLACE_ALL(beyond_ascii_from_start_whole_word, ob::FindWholeWord, true, "größe", Wrap::Off);
OB_REPLACE_ALL(wrapped_lines, 0, false, "total", Wrap::On);

void FindNothing(benchmark::State& state, int flags, const char* text)
{
    const ob::cDocument* document = Load(Program("total"));
    ob::Finding().FindFlags = flags;
    ob::Finding().FindFromStart = true;
    for (auto _ : state)
        ob::FindText(*document, QString::fromUtf8(text));
    if (ob::Finding().FoundPos != -1)
        state.SkipWithError("found");
    state.SetBytesProcessed(state.iterations() * ob::SendSci(document->sci, ob::SCI_GETLENGTH));
}
BENCHMARK_CAPTURE(FindNothing, any_case, 0, "tomato")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, case_sensitive, ob::FindMatchCase, "tomato")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, beyond_ascii, 0, "tomätchen")->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    // Measured without a display unless one is requested.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path());
    ob::SetLibraryFolder(u"" OB_BIN ""_s);
    ob::SetSettingsFile(folder.filePath(u"settings.ini"_s));
    ob::WriteSetting(u"ShowTips"_s, u"False"_s);
    NoDialogs dialogs;
    ob::SetDialogs(&dialogs);
    auto frame = std::unique_ptr<ob::frmMain>();
    ob::StartRoutine([&frame] {
        frame = std::make_unique<ob::frmMain>();
        return frame.get();
    });
    frame->Load();
    benchmark::RunSpecifiedBenchmarks();
    frame.reset();
    return 0;
}
