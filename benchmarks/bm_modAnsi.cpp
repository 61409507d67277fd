// SPDX-License-Identifier: GPL-3.0-or-later
// ANSI text to UTF-8 and back, in bytes of input per second.
#include "platform/language/modAnsi.h"

#include <benchmark/benchmark.h>

namespace {

// Large enough that the time for fresh memory counts too, and as long as a very long program.
constexpr qsizetype largeSize = 64 << 20;
constexpr qsizetype programSize = 256 << 10;

QByteArray Repeated(QByteArrayView piece, qsizetype size)
{
    QByteArray text;
    text.reserve(size + piece.size());
    while (text.size() < size)
        text += piece;
    return text;
}

QByteArray AsciiText(qsizetype size)
{
    return Repeated("for index = 1 to 100: print \"line \"; index, index * 2 + 1: next index ' a remark\r\n", size);
}

// About one character in ten is beyond ASCII, as in remarks of a western language.
QByteArray MixedText(qsizetype size)
{
    return Repeated("print \"gr\xFC\xDF"
                    "e an \xFC"
                    "ber f\xFC"
                    "nfzig \x84"
                    "B\xE4ume\x93\" "
                    "' 5 \x80 f\xFCr \xC4pfel, k\xF6stlich\r\n",
                    size);
}

// Every byte is above 7F.
QByteArray HighText(qsizetype size)
{
    QByteArray bytes;
    for (int number = 0x80; number < 0x100; ++number)
        bytes += static_cast<char>(number);
    return Repeated(bytes, size);
}

void Decode(benchmark::State& state, const QByteArray& ansi)
{
    for (auto step : state) {
        Q_UNUSED(step);
        const QByteArray utf8 = ob::DecodeAnsi(QByteArrayView(ansi));
        benchmark::DoNotOptimize(utf8.constData());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * ansi.size());
}

void Encode(benchmark::State& state, const QByteArray& utf8)
{
    for (auto step : state) {
        Q_UNUSED(step);
        const ob::AnsiText ansi = ob::EncodeAnsi(QByteArrayView(utf8));
        benchmark::DoNotOptimize(ansi.bytes.constData());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * utf8.size());
}

void DecodeShared(benchmark::State& state, const QByteArray& ansi)
{
    for (auto step : state) {
        Q_UNUSED(step);
        const QByteArray utf8 = ob::DecodeAnsi(ansi);
        benchmark::DoNotOptimize(utf8.constData());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * ansi.size());
}

} // namespace

BENCHMARK_CAPTURE(Decode, ascii_64MB, AsciiText(largeSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Decode, ascii_256KB, AsciiText(programSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Decode, mixed_64MB, MixedText(largeSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Decode, mixed_256KB, MixedText(programSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Decode, high_64MB, HighText(largeSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Decode, high_256KB, HighText(programSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DecodeShared, ascii_64MB, AsciiText(largeSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DecodeShared, ascii_256KB, AsciiText(programSize))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, ascii_64MB, ob::DecodeAnsi(AsciiText(largeSize)))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, ascii_256KB, ob::DecodeAnsi(AsciiText(programSize)))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, mixed_64MB, ob::DecodeAnsi(MixedText(largeSize)))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, mixed_256KB, ob::DecodeAnsi(MixedText(programSize)))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, high_64MB, ob::DecodeAnsi(HighText(largeSize)))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encode, high_256KB, ob::DecodeAnsi(HighText(programSize)))->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
