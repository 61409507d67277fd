// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the preferences, from the menu item to the painted window, with a comments file of typical size.
#include "editor/document/modUserTexts.h"
#include "platform/files/modPaths.h"
#include "shell/bench/frmOptions.h"
#include "shell/bench/modStart.h"
#include "shell/state/modOptions.h"
#include "shell/state/modSettings.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void OpenPreferences(benchmark::State& state)
{
    for (auto _ : state) {
        ob::mnuShowOptions_Click();
        QApplication::processEvents();
        state.PauseTiming();
        auto* form = qobject_cast<ob::frmOptions*>(QApplication::activeWindow());
        if (form == nullptr || !form->isVisible()) {
            state.SkipWithError("the preferences did not open");
            return;
        }
        form->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
// The first opening of a run also loads what every later one finds loaded.
BENCHMARK(OpenPreferences)->Name("OpenPreferencesFirst")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenPreferences)->UseRealTime()->Unit(benchmark::kMillisecond);

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
    ob::ResetBench();
    ob::ReadAllSettings();
    QFile comments(ob::CommentsPath(folder.path()));
    if (!comments.open(QIODevice::WriteOnly) || comments.write(QByteArray("'made with care\r\n").repeated(40)) < 0)
        return 1;
    comments.close();

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
