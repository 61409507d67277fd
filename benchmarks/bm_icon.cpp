// SPDX-License-Identifier: GPL-3.0-or-later
// Extraction of icons from programs. The measured time is the user's wait: from a path to the icon's pixels.
#include "../tests/imagetools/icons/IconBytes.h"
#include "imagetools/icons/modIconFile.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QList<QList<icons::Entry>> Icons(int count)
{
    QList<QList<icons::Entry>> result;
    for (int index = 0; index < count; ++index) {
        const auto seed = static_cast<unsigned>(index);
        result.append({icons::RandomImage(16, 16, 4, seed), icons::RandomImage(32, 32, 32, seed),
                       icons::RandomImage(48, 48, 32, seed)});
    }
    return result;
}

// A program of that size; its icons precede everything else in it.
QString ProgramOf(const QTemporaryDir& folder, int iconCount, qsizetype size)
{
    QFile file(folder.filePath(u"program.exe"_s));
    QByteArray bytes = icons::PeFile(icons::ResourcesOf(Icons(iconCount)), icons::PeKind::Bits64);
    if (bytes.size() < size)
        bytes += icons::Noise(size - bytes.size(), 5);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::abort();
    return file.fileName();
}

void FirstIcon(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = ProgramOf(folder, static_cast<int>(state.range(0)), state.range(1) << 20);
    for (auto step : state) {
        (void)step;
        ob::Icon icon;
        const int count = ob::IconCount(path);
        const auto image = ob::ExtractIcon(path, 0);
        if (count != state.range(0) || !image)
            state.SkipWithError("no icon");
        else
            ob::DrawIcon(icon, *image);
        benchmark::DoNotOptimize(icon.pixels);
    }
}

void AllIcons(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    const QByteArray file = icons::PeFile(icons::ResourcesOf(Icons(count)), icons::PeKind::Bits64);
    const ob::ByteView view(reinterpret_cast<const std::uint8_t*>(file.constData()),
                            static_cast<std::size_t>(file.size()));
    for (auto step : state) {
        (void)step;
        const ob::cIconIndex index(view);
        int found = 0;
        for (int icon = 0; icon < index.Count(); ++icon)
            found += index.Extract(icon) ? 1 : 0;
        if (found != count)
            state.SkipWithError("icons are missing");
    }
}

} // namespace

BENCHMARK(FirstIcon)->ArgNames({"icons", "megabytes"})->Args({1, 0})->Args({20, 50})->Args({5000, 100});
BENCHMARK(AllIcons)->ArgName("icons")->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
