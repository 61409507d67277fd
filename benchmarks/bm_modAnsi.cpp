// SPDX-License-Identifier: GPL-3.0-or-later
// ANSI text to UTF-8 and back, in bytes of input a second.
#include "platform/modAnsi.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype textSize = 64 << 20;

QByteArray Repeated(QByteArrayView piece)
{
    QByteArray text;
    text.reserve(textSize + piece.size());
    while (text.size() < textSize)
        text += piece;
    return text;
}

QByteArray AsciiText()
{
    return Repeated("for index = 1 to 100: print \"line \"; index, index * 2 + 1: next index ' a remark\r\n");
}

// About one character in ten beyond ASCII, as in remarks of a western language.
QByteArray MixedText()
{
    return Repeated("print \"gr\xFC\xDF\x65 an \xFC" "ber f\xFC" "nfzig \x84" "B\xE4ume\x93\" ' 5 \x80 f\xFCr \xC4pfel, k\xF6stlich\r\n");
}

// Every byte above 7F.
QByteArray HighText()
{
    QByteArray bytes;
    for (int number = 0x80; number < 0x100; ++number)
        bytes += static_cast<char>(number);
    return Repeated(bytes);
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

BENCHMARK_CAPTURE(Decode, ascii, AsciiText())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DecodeShared, ascii, AsciiText())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Decode, mixed, MixedText())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Decode, high, HighText())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Encode, ascii, AsciiText())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Encode, mixed, ob::DecodeAnsi(MixedText()))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Encode, high, ob::DecodeAnsi(HighText()))->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
