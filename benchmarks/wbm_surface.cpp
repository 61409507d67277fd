// SPDX-License-Identifier: GPL-3.0-or-later
// A form of 2,000 controls in the program: opening it from its file, and one step of dragging a control, with painting.
#include "guibuilder/frmSurface.h"
#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/files/modPaths.h"
#include "platform/language/modAnsi.h"
#include "shell/bench/frmMain.h"
#include "shell/bench/modStart.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modSettings.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int controlCount = 2000;
QString formPath;

// All kinds in turn, in rows over a window of 1,000 by 800 pixels, so that they overlap as little as possible.
QByteArray LargeForm()
{
    ob::GuiForm form;
    form.windowTag = form.GuiWindowType;
    form.width = 15000;
    form.height = 12000;
    for (int number = 0; number < controlCount; ++number) {
        const auto kind = static_cast<ob::ControlKind>(number % static_cast<int>(ob::KindCount));
        ob::ControlRecord& control = form.At(ob::AddControl(form, kind));
        ob::SetRect(control, {static_cast<float>(number % 50 * 300), static_cast<float>(number / 50 * 285), 285, 270});
        control.caption = kind == ob::ControlKind::Bmpbutton ? ob::NoBitmap : u"C%1"_s.arg(number);
        control.visible = true;
    }
    return ob::AnsiFromText(ob::WriteForm(ob::Completed(std::move(form), ob::CompletedFor::File))).bytes;
}

void OpenForm(benchmark::State& state)
{
    for (auto _ : state) {
        ob::LoadGuiForm(formPath);
        QApplication::processEvents();
        state.PauseTiming();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenForm)->UseRealTime()->Unit(benchmark::kMillisecond);

void Send(QWidget& surface, QEvent::Type type, QPoint at, Qt::MouseButton button)
{
    QMouseEvent event(type, at, surface.mapToGlobal(at), button, Qt::LeftButton, {});
    QApplication::sendEvent(&surface, &event);
}

// The pointer moves to and fro by one snap; each step moves the control and paints what that uncovers.
void DragStep(benchmark::State& state)
{
    ob::LoadGuiForm(formPath);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    auto* surface = dynamic_cast<ob::frmMain*>(ob::MainForm)->findChild<ob::frmSurface*>();
    const QPoint start(205, 195);
    Send(*surface, QEvent::MouseButtonPress, start, Qt::LeftButton);
    const ob::ControlRef pressed = surface->Designer().Selection().front();
    const float left = ob::GuiDesign().form.At(pressed).left;
    int step = 0;
    for (auto _ : state) {
        step = step == 5 ? 0 : 5;
        Send(*surface, QEvent::MouseMove, start + QPoint(step, 0), Qt::NoButton);
        QApplication::processEvents();
    }
    if (step != 0 && ob::GuiDesign().form.At(pressed).left == left)
        state.SkipWithError("the control did not move");
    Send(*surface, QEvent::MouseButtonRelease, start, Qt::LeftButton);
}
BENCHMARK(DragStep)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path());
    ob::SetSettingsFile(folder.filePath(u"settings.ini"_s));
    ob::WriteSetting(u"ShowTips"_s, u"False"_s);
    formPath = folder.filePath(u"large.obf"_s);
    QFile file(formPath);
    const QByteArray bytes = LargeForm();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return 1;
    file.close();

    std::unique_ptr<ob::frmMain> frame;
    ob::StartRoutine([&] {
        frame = std::make_unique<ob::frmMain>();
        return frame.get();
    });
    frame->Load();
    frame->resize(1400, 1000);
    QApplication::processEvents();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
