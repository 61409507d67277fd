// SPDX-License-Identifier: GPL-3.0-or-later
// Masks of sprites: one large picture in memory, and a folder of small files.
#include "imagetools/sprites/modMask.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <random>

using namespace Qt::StringLiterals;

namespace {

ob::cDIBSection Sprite(int width, int height)
{
    ob::cDIBSection sprite;
    if (!sprite.Create(width, height))
        std::abort();
    std::mt19937 generator(1);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width * 3; ++x)
            sprite.Line(y)[x] = static_cast<std::uint8_t>(generator() % 4 == 0 ? generator() : 0);
    }
    return sprite;
}

void Mask(benchmark::State& state)
{
    const ob::cDIBSection sprite = Sprite(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto step : state) {
        (void)step;
        const ob::cDIBSection picture = ob::SpriteWithMask(sprite);
        benchmark::DoNotOptimize(picture.DIBSectionBitsPtr());
    }
}

void Batch(benchmark::State& state)
{
    const ob::cDIBSection sprite = Sprite(256, 256);
    const QTemporaryDir folder;
    QStringList names;
    for (int index = 0; index < state.range(0); ++index)
        names.append(u"%1.bmp"_s.arg(index));
    const ob::BatchWatch watch = {[](qsizetype) {},
                                  [](const QString&, const ob::cDIBSection&) { return ob::BatchStep::GoOn; }};
    for (auto step : state) {
        (void)step;
        state.PauseTiming();
        for (const QString& name : names)
            ob::SaveMask(folder.filePath(name), sprite);
        state.ResumeTiming();
        ob::MaskFiles(folder.path(), names, watch);
    }
}

} // namespace

BENCHMARK(Mask)
    ->ArgNames({"width", "height"})
    ->Args({256, 256})
    ->Args({1920, 1080})
    ->Args({3840, 2160})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Batch)->ArgName("files")->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
