// SPDX-License-Identifier: GPL-3.0-or-later
// From process start to the painted main window with an empty store: the program itself, run with --grab, which ends
// after the first paint. The time includes encoding the picture, so the figure is an upper bound.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

namespace {

void RunBench(benchmark::State& state, const QStringList& files)
{
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
    int run = 0;
    for (auto _ : state) {
        // A store of its own for each start.
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.filePath(QString::number(++run)));
        QProcess bench;
        bench.setProcessEnvironment(environment);
        bench.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        bench.start(QStringLiteral(OB_BIN "/orchard-bench"),
                    QStringList{QStringLiteral("--grab"), folder.filePath(QStringLiteral("out.ppm"))} + files);
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
    RunBench(state, {QStringLiteral(OB_BIN "/../../../samples/guess.bas")});
}
BENCHMARK(StartWithAProgram)->UseRealTime()->Unit(benchmark::kMillisecond);

void ObtoolVersion(benchmark::State& state)
{
    for (auto _ : state) {
        QProcess tool;
        tool.start(QStringLiteral(OB_BIN "/obtool"), {QStringLiteral("--version")});
        if (!tool.waitForFinished() || tool.exitCode() != 0) {
            state.SkipWithError("obtool did not run");
            return;
        }
    }
}
BENCHMARK(ObtoolVersion)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
