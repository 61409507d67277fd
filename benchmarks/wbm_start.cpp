// SPDX-License-Identifier: GPL-3.0-or-later
// From process start to the painted main window with an empty store: the program itself, run with --grab, which ends
// after the first paint. The time includes encoding the picture, so the figure is an upper bound.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void RunBench(benchmark::State& state, const QStringList& files)
{
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder.path());
    int run = 0;
    for (auto _ : state) {
        // A store of its own for each start.
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.filePath(QString::number(++run)));
        QProcess bench;
        bench.setProcessEnvironment(environment);
        bench.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        bench.start(u"" OB_BIN "/orchard-bench"_s, QStringList{u"--grab"_s, folder.filePath(u"out.ppm"_s)} + files);
        if (!bench.waitForFinished() || bench.exitCode() != 0) {
            state.SkipWithError("the bench did not start");
            return;
        }
    }
}

void StartToFirstPaint(benchmark::State& state)
{
    RunBench(state, {});
}
BENCHMARK(StartToFirstPaint)->UseRealTime()->Unit(benchmark::kMillisecond);

void StartWithAProgram(benchmark::State& state)
{
    RunBench(state, {u"" OB_BIN "/../../../samples/guess.bas"_s});
}
BENCHMARK(StartWithAProgram)->UseRealTime()->Unit(benchmark::kMillisecond);

void ObtoolVersion(benchmark::State& state)
{
    for (auto _ : state) {
        QProcess tool;
        tool.start(u"" OB_BIN "/obtool"_s, {u"--version"_s});
        if (!tool.waitForFinished() || tool.exitCode() != 0) {
            state.SkipWithError("obtool did not run");
            return;
        }
    }
}
BENCHMARK(ObtoolVersion)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
