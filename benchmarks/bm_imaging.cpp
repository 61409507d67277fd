// SPDX-License-Identifier: GPL-3.0-or-later
// The imaging library on pictures of 1920 x 1080, each operation next to the tests' plain loops in the same run:
// "plain" is their time in milliseconds, "times" the speed-up. The last cases grow to 100 megapixels.
#include "../tests/imaging/PlainImaging.h"
#include "imaging/cColourReduceDIB.h"
#include "imaging/cDIBSectionSave.h"
#include "imaging/modBitmapFile.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>
#include <map>

namespace {

constexpr int Width = 1920;
constexpr int Height = 1080;

const plain::Picture& Start(plain::Kind kind)
{
    static std::map<plain::Kind, plain::Picture> pictures;
    plain::Picture& picture = pictures[kind];
    if (picture.width == 0)
        picture = plain::Random(Width, Height, kind, 1);
    return picture;
}

// Processor time: everything here runs on one thread, and other programs may be running.
double SecondsOf(const std::function<void()>& work)
{
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

ob::cDIBSection Copy(const ob::cDIBSection& section)
{
    ob::cDIBSection copy;
    copy.Create(section.Width(), section.Height());
    copy.LoadPictureBlt(section);
    return copy;
}

// Measures on fresh copies of a picture, and the plain loops once.
void Measure(benchmark::State& state, const plain::Picture& start,
             const std::function<void(ob::cDIBSection& source, ob::cDIBSection& target)>& ours,
             const std::function<void(plain::Picture& source, plain::Picture& target)>& plainLoops)
{
    const ob::cDIBSection original = plain::SectionOf(start);
    ob::cDIBSection target = Copy(original);
    double least = 1e9;
    for (auto step : state) {
        (void)step;
        ob::cDIBSection source = Copy(original);
        const double seconds = SecondsOf([&] { ours(source, target); });
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
        benchmark::DoNotOptimize(target.DIBSectionBitsPtr());
    }
    if (!plainLoops)
        return;
    plain::Picture source = start;
    plain::Picture plainTarget(start.width, start.height);
    const double plainSeconds = SecondsOf([&] { plainLoops(source, plainTarget); });
    state.counters["plain"] = plainSeconds * 1000;
    state.counters["times"] = plainSeconds / least;
}

plain::Entries EntriesOf(const ob::cPalette& palette)
{
    return {palette.Entries().begin(), palette.Entries().end()};
}

ob::cPalette BestPalette(const plain::Picture& picture)
{
    ob::cPalette palette;
    palette.CreateOptimal(plain::SectionOf(picture), 236, 6);
    return palette;
}

void OptimalPalette(benchmark::State& state, plain::Kind kind, int level)
{
    Measure(
        state, Start(kind),
        [level](ob::cDIBSection& source, ob::cDIBSection&) {
            ob::cPalette palette;
            palette.CreateOptimal(source, 236, static_cast<std::uint8_t>(level));
            benchmark::DoNotOptimize(palette.Count());
        },
        [level](plain::Picture& source, plain::Picture&) {
            benchmark::DoNotOptimize(plain::Octree().CreateOptimal(source, 236, level).size());
        });
}

void Map(benchmark::State& state, plain::Kind kind, const ob::cPalette& palette, ob::Dither dither)
{
    const plain::Entries entries = EntriesOf(palette);
    Measure(
        state, Start(kind),
        [&](ob::cDIBSection& source, ob::cDIBSection& target) {
            ob::cColourReduceDIB().ApplyPalette(source, target, palette, dither);
        },
        [&](plain::Picture& source, plain::Picture& target) {
            plain::ApplyPalette(source, target, entries, dither == ob::Dither::On);
        });
}

void MapToBest(benchmark::State& state, plain::Kind kind, ob::Dither dither)
{
    Map(state, kind, BestPalette(Start(kind)), dither);
}

void MapTo16(benchmark::State& state, plain::Kind kind, ob::Dither dither)
{
    ob::cPalette palette;
    palette.Create16Colour();
    Map(state, kind, palette, dither);
}

void BlackAndWhite(benchmark::State& state, plain::Kind kind)
{
    Measure(
        state, Start(kind),
        [](ob::cDIBSection& source, ob::cDIBSection& target) { ob::cColourReduceDIB().BlackAndWhite(source, target); },
        [](plain::Picture& source, plain::Picture& target) { plain::BlackAndWhite(source, target); });
}

void Grey(benchmark::State& state, plain::Kind kind)
{
    Measure(
        state, Start(kind), [](ob::cDIBSection& source, ob::cDIBSection&) { ob::cColourReduceDIB().GrayScale(source); },
        [](plain::Picture& source, plain::Picture&) { plain::GrayScale(source); });
}

void Resample(benchmark::State& state, int newHeight, int newWidth)
{
    Measure(
        state, Start(plain::Kind::Photograph),
        [=](ob::cDIBSection& source, ob::cDIBSection&) {
            benchmark::DoNotOptimize(source.Resample(newHeight, newWidth)->DIBSectionBitsPtr());
        },
        [=](plain::Picture& source, plain::Picture&) {
            benchmark::DoNotOptimize(plain::Resample(source, newHeight, newWidth).bytes.data());
        });
}

// A disk whose cost is one copy of the bytes.
ob::FileWriter CopyingWriter(std::vector<std::uint8_t>& file)
{
    return [&file](const std::string&, std::span<const ob::ByteView> pieces) -> ob::WriteResult {
        std::size_t size = 0;
        for (const ob::ByteView piece : pieces) {
            std::memcpy(file.data() + size, piece.data(), piece.size());
            size += piece.size();
        }
        return {};
    };
}

void Save(benchmark::State& state, plain::Kind kind, ob::SaveBitDepth depth, ob::SaveReduceMode mode)
{
    std::vector<std::uint8_t> file(Start(kind).bytes.size() + 2000);
    Measure(state, Start(kind),
            [&](ob::cDIBSection& source, ob::cDIBSection&) {
                std::optional<ob::cPalette> palette;
                ob::cDIBSectionSave().Save("x.bmp", source, palette, depth, mode, CopyingWriter(file));
            },
            {});
}

// The cost of a plain copy of the same bytes.
void MemoryCopy(benchmark::State& state)
{
    const plain::Picture& start = Start(plain::Kind::Photograph);
    std::vector<std::uint8_t> file(start.bytes.size());
    for (auto step : state) {
        (void)step;
        std::memcpy(file.data(), start.bytes.data(), file.size());
        benchmark::ClobberMemory();
    }
}

void Open(benchmark::State& state, ob::SaveBitDepth depth)
{
    ob::cDIBSection section = plain::SectionOf(Start(plain::Kind::Photograph));
    std::vector<std::uint8_t> file;
    std::optional<ob::cPalette> palette;
    ob::cDIBSectionSave().Save("x.bmp", section, palette, depth, ob::SaveReduceMode::None,
                               [&](const std::string&, std::span<const ob::ByteView> pieces) -> ob::WriteResult {
                                   for (const ob::ByteView piece : pieces)
                                       file.insert(file.end(), piece.begin(), piece.end());
                                   return {};
                               });
    for (auto step : state) {
        (void)step;
        benchmark::DoNotOptimize(ob::ReadBitmap(file).index());
    }
}

// All the work of an 8-bit save with its own palette, on pictures of that many megapixels.
void AutomaticSaveOfMegapixels(benchmark::State& state)
{
    const auto side = static_cast<std::int32_t>(std::sqrt(static_cast<double>(state.range(0)) * 1e6));
    const ob::cDIBSection original = plain::SectionOf(Start(plain::Kind::Photograph));
    double seconds = 0;
    for (auto step : state) {
        (void)step;
        std::optional<ob::cDIBSection> picture = original.Resample(side, side);
        std::optional<ob::cPalette> palette;
        seconds = SecondsOf([&] {
            ob::cDIBSectionSave().Save(
                "x.bmp", *picture, palette, ob::SaveBitDepth::Bits8, ob::SaveReduceMode::Automatic,
                [](const std::string&, std::span<const ob::ByteView>) { return ob::WriteResult(); });
        });
        state.SetIterationTime(seconds);
    }
    state.counters["ns/pixel"] = seconds * 1e9 / side / side;
}

constexpr auto Photograph = plain::Kind::Photograph;
constexpr auto Noise = plain::Kind::Noise;

BENCHMARK_CAPTURE(OptimalPalette, photograph, Photograph, 6)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OptimalPalette, noise, Noise, 6)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OptimalPalette, photograph_level_8, Photograph, 8)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OptimalPalette, noise_level_8, Noise, 8)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MapToBest, photograph, Photograph, ob::Dither::Off)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MapToBest, noise, Noise, ob::Dither::Off)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MapToBest, photograph_dithered, Photograph, ob::Dither::On)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MapTo16, photograph_dithered, Photograph, ob::Dither::On)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MapTo16, noise_dithered, Noise, ob::Dither::On)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BlackAndWhite, photograph, Photograph)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BlackAndWhite, noise, Noise)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Grey, photograph, Photograph)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Resample, half, Height / 2, Width / 2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Resample, double, Height * 2, Width * 2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryCopy)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, 24_bits, Photograph, ob::SaveBitDepth::Bits24, ob::SaveReduceMode::None)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, 8_bits_automatic, Photograph, ob::SaveBitDepth::Bits8, ob::SaveReduceMode::Automatic)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, 8_bits_half_tone, Photograph, ob::SaveBitDepth::Bits8, ob::SaveReduceMode::None)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, 24_bits, ob::SaveBitDepth::Bits24)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, 8_bits, ob::SaveBitDepth::Bits8)->Unit(benchmark::kMillisecond);
BENCHMARK(AutomaticSaveOfMegapixels)
    ->Arg(1)
    ->Arg(10)
    ->Arg(100)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
