// SPDX-License-Identifier: GPL-3.0-or-later
// 60 pictures of 1920 x 1080 with 24 bits become an uncompressed video, written by us and by ffmpeg from the same files
// in the same folder. "ffmpeg" is its time in seconds, "share" ours as a fraction of it; both are the minima of the
// rounds, which alternate. Without an ffmpeg program both are missing.
#include "imagetools/avi/cAviWriting.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr int Frames = 60;
constexpr int FrameBytes = Width * Height * 3;

QByteArray Bitmap(int number)
{
    ob::BitmapFileHeader file;
    file.bfType = ob::BitmapFileType;
    file.bfSize = 54 + FrameBytes;
    file.bfOffBits = 54;
    ob::BitmapInfoHeader info;
    info.biSize = 40;
    info.biWidth = Width;
    info.biHeight = Height;
    info.biPlanes = 1;
    info.biBitCount = 24;
    info.biSizeImage = FrameBytes;
    const auto fileBytes = BytesOf(file);
    const auto infoBytes = BytesOf(info);
    QByteArray bytes(reinterpret_cast<const char*>(fileBytes.data()), 14);
    bytes.append(reinterpret_cast<const char*>(infoBytes.data()), 40);
    QByteArray pixels(FrameBytes, Qt::Uninitialized);
    for (qsizetype place = 0; place < pixels.size(); ++place)
        pixels[place] = static_cast<char>(place * (number + 3) / 7);
    return bytes + pixels;
}

ob::AviList MakeBitmaps(const QTemporaryDir& folder)
{
    ob::AviList list;
    for (int number = 0; number < Frames; ++number) {
        const QString path = folder.filePath(u"%1.bmp"_s.arg(number, 3, 10, QLatin1Char('0')));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(Bitmap(number));
        ob::AddToList(list, path, {Width, Height, 24});
    }
    return list;
}

double SecondsOf(const std::function<bool()>& work, bool& isGood)
{
    const auto start = std::chrono::steady_clock::now();
    isGood = work() && isGood;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool WriteOurs(const ob::AviList& list, const QString& out, const char* codec)
{
    ob::cAviWriting writing(out, list, u"30"_s, [](const std::string&, ob::NoticeIcon) {});
    ob::AviState state = writing.Begin([&](const ob::AviFormat&) { return ob::AviOptions{codec, 90}; });
    while (state == ob::AviState::Writing)
        state = writing.WriteFrame();
    return state == ob::AviState::Finished;
}

bool WriteTheirs(const QTemporaryDir& folder, const QString& out)
{
    const QStringList arguments = {
        u"-v"_s,   u"error"_s,    u"-y"_s, u"-framerate"_s, u"30"_s, u"-i"_s, folder.filePath(u"%03d.bmp"_s),
        u"-c:v"_s, u"rawvideo"_s, out};
    return QProcess::execute(u"ffmpeg"_s, arguments) == 0;
}

void Uncompressed(benchmark::State& state)
{
    const QTemporaryDir folder;
    const ob::AviList list = MakeBitmaps(folder);
    const QString ours = folder.filePath(u"ours.avi"_s);
    const QString theirs = folder.filePath(u"theirs.avi"_s);
    const bool hasOther = !QStandardPaths::findExecutable(u"ffmpeg"_s).isEmpty();
    double least = 1e9;
    double leastOther = 1e9;
    bool isGood = true;
    for (auto step : state) {
        (void)step;
        QFile::remove(ours);
        const double seconds = SecondsOf([&] { return WriteOurs(list, ours, "none"); }, isGood);
        state.SetIterationTime(seconds);
        least = std::min(least, seconds);
        if (hasOther) {
            QFile::remove(theirs);
            leastOther = std::min(leastOther, SecondsOf([&] { return WriteTheirs(folder, theirs); }, isGood));
        }
    }
    if (!isGood)
        state.SkipWithError("a video could not be written");
    if (hasOther) {
        state.counters["ffmpeg"] = leastOther;
        state.counters["share"] = least / leastOther;
    }
    state.SetBytesProcessed(state.iterations() * Frames * FrameBytes);
}
BENCHMARK(Uncompressed)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);

} // namespace

BENCHMARK_MAIN();
