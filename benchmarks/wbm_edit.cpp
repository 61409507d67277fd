// SPDX-License-Identifier: GPL-3.0-or-later
// The edit control on a program of a million lines, next to Scintilla without a lexer.
#include "../tests/scilexer/BasicSource.h"
#include "scilexer/QsciBase.h"
#include "scilexer/SciLexerOB_Api.h"

#include <QApplication>
#include <QLibrary>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t LineCount = 1000000;
constexpr std::intptr_t Everything = -1;

const std::string& Program()
{
    static const std::string text = ob::BasicSource(1).Lines(LineCount);
    return text;
}

// QScintilla's control, unmodified, behind the same interface as ours.
class BareControl final : public QsciScintillaBase, public ob::cSciControl {
public:
    using QsciScintillaBase::QsciScintillaBase;

    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        return SendScintilla(message, static_cast<unsigned long>(wParam), static_cast<long>(lParam));
    }
};

ob::SciLexerOB_Window MakeBare(QWidget* parent)
{
    auto* control = new BareControl(parent);
    return {control, control};
}

ob::SciLexerOB_Window MakeOwn(QWidget* parent)
{
    static auto* create = reinterpret_cast<ob::SciLexerOB_CreateFunction*>(
        QLibrary::resolve(u"" OB_BIN "/SciLexerOB"_s, ob::SciLexerOB_CreateName));
    if (create == nullptr)
        qFatal("The plugin SciLexerOB does not load.");
    const ob::SciLexerOB_Window made = create(parent);
    ob::SendSci(made.sci, ob::SCI_SETLEXER, 8);
    ob::SendSci(made.sci, ob::SCI_SETKEYWORDS, 0, std::string(ob::basicKeywords).c_str());
    ob::SendSciTexts(made.sci, ob::SCI_SETPROPERTY, "fold", "1");
    return made;
}

// A control that is shown and painted once while it is empty.
struct Window {
    explicit Window(ob::SciLexerOB_CreateFunction* make)
    {
        const ob::SciLexerOB_Window made = make(&frame);
        control = made.window;
        sci = made.sci;
        frame.resize(900, 700);
        control->setGeometry(0, 0, 900, 700);
        frame.show();
        // Nothing is painted before the window system has exposed it.
        QApplication::processEvents();
        Paint();
    }

    void Paint() { qobject_cast<QAbstractScrollArea*>(control)->viewport()->repaint(); }

    void Load(const std::string& text = Program())
    {
        ob::SendSci(sci, ob::SCI_ADDTEXT, text.size(), text.data());
        ob::SendSci(sci, ob::SCI_GOTOPOS, 0);
        Paint();
    }

    QWidget frame;
    QWidget* control = nullptr;
    ob::Sci sci = nullptr;
};

void LoadAndFirstPaint(benchmark::State& state, ob::SciLexerOB_CreateFunction* make)
{
    Program();
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>(make);
        state.ResumeTiming();
        window->Load();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Program().size()));
}
BENCHMARK_CAPTURE(LoadAndFirstPaint, bare, MakeBare)->Unit(benchmark::kMillisecond)->MinTime(3);
BENCHMARK_CAPTURE(LoadAndFirstPaint, own, MakeOwn)->Unit(benchmark::kMillisecond)->MinTime(3);

enum class Styled { AsSeen, Whole };

// One character typed in the middle of the program, until it is painted; every second time it is undone. `start` is
// typed first, unmeasured.
void TypeInTheMiddle(benchmark::State& state, ob::SciLexerOB_CreateFunction* make, Styled styled, const char* start)
{
    Window window(make);
    window.Load();
    if (styled == Styled::Whole)
        ob::SendSci(window.sci, ob::SCI_COLOURISE, 0, Everything);
    ob::SendSci(window.sci, ob::SCI_GOTOLINE, LineCount / 2);
    ob::SendSci(window.sci, ob::SCI_REPLACESEL, 0, start);
    window.Paint();
    // The background work after the jump to the middle is not part of the key's cost.
    for (int turn = 0; turn < 1000; ++turn)
        QApplication::processEvents();
    bool isBack = false;
    for (auto _ : state) {
        if (isBack)
            ob::SendSci(window.sci, ob::SCI_UNDO);
        else
            ob::SendSci(window.sci, ob::SCI_REPLACESEL, 0, "x");
        isBack = !isBack;
        window.Paint();
    }
}
BENCHMARK_CAPTURE(TypeInTheMiddle, bare, MakeBare, Styled::AsSeen, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeInTheMiddle, own_styled_as_seen, MakeOwn, Styled::AsSeen, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeInTheMiddle, own_all_styled, MakeOwn, Styled::Whole, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeInTheMiddle, own_in_an_open_block, MakeOwn, Styled::Whole, "do\r\n")
    ->Unit(benchmark::kMillisecond);

void StyleTheWholeText(benchmark::State& state)
{
    Window window(MakeOwn);
    window.Load();
    for (auto _ : state)
        ob::SendSci(window.sci, ob::SCI_COLOURISE, 0, Everything);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Program().size()));
}
BENCHMARK(StyleTheWholeText)->Unit(benchmark::kMillisecond);

// From the first screen to the last line, which has not been shown before; its colours may come later.
void GoToTheEnd(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>(MakeOwn);
        window->Load();
        state.ResumeTiming();
        ob::SendSci(window->sci, ob::SCI_GOTOPOS, Program().size());
        window->Paint();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(GoToTheEnd)->Unit(benchmark::kMillisecond)->Iterations(3);

// Statements without a line end. The argument is megabytes.
std::string LongLine(std::int64_t megabytes)
{
    constexpr std::string_view statement = "print \"a\"; x(i) + 12.5 : ";
    const auto length = static_cast<std::size_t>(megabytes) * 1000 * 1000;
    std::string line;
    line.reserve(length + statement.size());
    while (line.size() < length)
        line += statement;
    return line;
}

void LongLineLoadAndFirstPaint(benchmark::State& state)
{
    const std::string line = LongLine(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>(MakeOwn);
        state.ResumeTiming();
        window->Load(line);
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(LongLineLoadAndFirstPaint)->Arg(1)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(1);

// One character typed near the start of the line, until it is painted.
void LongLineTyping(benchmark::State& state)
{
    Window window(MakeOwn);
    window.Load(LongLine(state.range(0)));
    ob::SendSci(window.sci, ob::SCI_GOTOPOS, 500);
    for (auto _ : state) {
        ob::SendSci(window.sci, ob::SCI_REPLACESEL, 0, "x");
        window.Paint();
    }
}
BENCHMARK(LongLineTyping)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond)->Iterations(3);

// To the end of the line, until it is painted with the text around the caret.
void LongLineEnd(benchmark::State& state)
{
    Window window(MakeOwn);
    window.Load(LongLine(state.range(0)));
    for (auto _ : state) {
        ob::SendSci(window.sci, ob::SCI_GOTOPOS,
                    static_cast<std::uintptr_t>(ob::SendSci(window.sci, ob::SCI_GETLENGTH)));
        window.Paint();
        QApplication::processEvents();
        window.Paint();
    }
}
BENCHMARK(LongLineEnd)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    // Measured without a display unless one is requested.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
