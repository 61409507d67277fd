// SPDX-License-Identifier: GPL-3.0-or-later
// Zip archives of large files, next to Info-ZIP's program on the same files. Memory is the peak of the process, so the
// cases run from small to large.
#include "engine/package/CGZipFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Megabyte = 1'000'000;

const QString& Folder()
{
    static const QTemporaryDir folder;
    static const QString path = folder.path();
    return path;
}

// A file of that many megabytes in the folder; created on first use.
QString NoiseFile(qint64 megabytes)
{
    const QString path = Folder() + u"/noise%1.bin"_s.arg(megabytes);
    if (QFile::exists(path))
        return path;
    QFile file(path);
    std::vector<quint32> part(Megabyte / sizeof(quint32));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no file can be written");
    for (qint64 number = 0; number < megabytes; ++number) {
        QRandomGenerator::global()->fillRange(part.data(), static_cast<qsizetype>(part.size()));
        if (file.write(reinterpret_cast<const char*>(part.data()), Megabyte) != Megabyte)
            throw std::runtime_error("no room for the file");
    }
    return path;
}

QString TextFile(qint64 megabytes)
{
    const QString path = Folder() + u"/text%1.bas"_s.arg(megabytes);
    QFile file(path);
    if (QFile::exists(path))
        return path;
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no file can be written");
    for (int line = 0; file.pos() < megabytes * Megabyte; ++line)
        file.write(QByteArray("  print \"line ") + QByteArray::number(line) + " of \"; total$ : x" +
                   QByteArray::number(line * 7919 % 1000) + " = x + 1\r\n");
    return path;
}

QString SparseFile(qint64 megabytes)
{
    const QString path = Folder() + u"/sparse%1.bin"_s.arg(megabytes);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(megabytes * Megabyte))
        throw std::runtime_error("no file can be made");
    return path;
}

double PeakMemoryMegabytes()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray status = file.readAll();
    const qsizetype place = status.indexOf("VmHWM:");
    return place < 0 ? 0 : status.mid(place + 6, 20).trimmed().split(' ').first().toDouble() / 1000;
}

void Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error(("failed: " + program.toStdString()));
}

QString Archive()
{
    return Folder() + u"/out.zip"_s;
}

void Count(benchmark::State& state, const QString& file)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * QFileInfo(file).size());
    state.counters["archive MB"] = static_cast<double>(QFileInfo(Archive()).size()) / Megabyte;
    state.counters["peak MB"] = PeakMemoryMegabytes();
}

using MakeFile = QString (*)(qint64);

void OurZip(benchmark::State& state, MakeFile make)
{
    const QString file = make(state.range(0));
    for (auto step : state) {
        Q_UNUSED(step);
        QFile::remove(Archive());
        ob::CGZipFiles zip;
        zip.ZipFileName = Archive();
        zip.AddFile(file);
        if (zip.MakeZipFile() != 0)
            throw std::runtime_error(zip.GetLastMessage().toStdString());
    }
    Count(state, file);
    Run(u"unzip"_s, {u"-tqq"_s, Archive()});
}

void InfoZip(benchmark::State& state, MakeFile make)
{
    const QString file = make(state.range(0));
    for (auto step : state) {
        Q_UNUSED(step);
        QFile::remove(Archive());
        Run(u"zip"_s, {u"-jq"_s, Archive(), file});
    }
    Count(state, file);
}

void OneRound(benchmark::internal::Benchmark* measured)
{
    measured->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
}

} // namespace

BENCHMARK_CAPTURE(OurZip, noise, NoiseFile)->Arg(2)->Arg(200)->Apply(OneRound);
BENCHMARK_CAPTURE(InfoZip, noise, NoiseFile)->Arg(2)->Arg(200)->Apply(OneRound);
BENCHMARK_CAPTURE(OurZip, text, TextFile)->Arg(100)->Apply(OneRound);
BENCHMARK_CAPTURE(InfoZip, text, TextFile)->Arg(100)->Apply(OneRound);
BENCHMARK_CAPTURE(OurZip, sparse, SparseFile)->Arg(5'000)->Iterations(1)->Apply(OneRound);

BENCHMARK_MAIN();
