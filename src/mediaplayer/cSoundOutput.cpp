// SPDX-License-Identifier: GPL-3.0-or-later
// The sound device, through Qt Multimedia.
#include "mediaplayer/cSoundOutput.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMediaDevices>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>
#include <optional>

namespace ob {

namespace {

constexpr int Channels = 2;

// Running since the last sink was closed.
QElapsedTimer& SinceClosing()
{
    static QElapsedTimer timer;
    return timer;
}

// Closing a sink sends a request to the sound server; Qt's shutdown occasionally crashes when it overtakes the server's
// reply.
void WaitForTheServer()
{
    constexpr qint64 needed = 150; // milliseconds
    const qint64 left = SinceClosing().isValid() ? needed - SinceClosing().elapsed() : 0;
    if (left > 0)
        QThread::msleep(static_cast<unsigned long>(left));
}

std::optional<QAudioFormat> FormatFor(const QAudioDevice& device)
{
    QAudioFormat format;
    const int preferred = device.preferredFormat().sampleRate();
    format.setSampleRate(preferred < 8'000 || preferred > 96'000 ? 44'100 : preferred);
    format.setChannelCount(Channels);
    for (const QAudioFormat::SampleFormat sample : {QAudioFormat::Int16, QAudioFormat::Float}) {
        format.setSampleFormat(sample);
        if (device.isFormatSupported(format))
            return format;
    }
    return std::nullopt;
}

} // namespace

std::unique_ptr<cSoundOutput> cSoundOutput::Make()
{
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull())
        return nullptr;
    const std::optional<QAudioFormat> format = FormatFor(device);
    return format ? std::make_unique<cSoundOutput>(device, *format) : nullptr;
}

cSoundOutput::cSoundOutput(const QAudioDevice& device, const QAudioFormat& outputFormat)
    : format(outputFormat), sink(std::make_unique<QAudioSink>(device, outputFormat))
{
    static std::once_flag isRegistered;
    std::call_once(isRegistered, [] { qAddPostRoutine(WaitForTheServer); });
    sink->setBufferSize(format.bytesForDuration(Delay * 1'000));
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

cSoundOutput::~cSoundOutput()
{
    // A sink that is destroyed while playing can still request sound.
    sink->stop();
    sink.reset();
    SinceClosing().start();
}

int cSoundOutput::Rate() const
{
    return format.sampleRate();
}

void cSoundOutput::Start(cSoundSource& from)
{
    source = &from;
    sink->start(this);
}

void cSoundOutput::Stop()
{
    sink->stop();
}

qint64 cSoundOutput::readData(char* data, qint64 size)
{
    const qsizetype frames = static_cast<qsizetype>(size) / format.bytesPerFrame();
    if (source == nullptr || frames <= 0)
        return 0;
    const qsizetype count = frames * Channels;
    stereo.resize(static_cast<std::size_t>(count));
    source->Render(stereo.data(), frames);
    for (float& sample : stereo)
        sample = std::clamp(sample, -1.0F, 1.0F);
    if (format.sampleFormat() == QAudioFormat::Float) {
        std::memcpy(data, stereo.data(), stereo.size() * sizeof(float));
    } else {
        constexpr float loudest = 32'767;
        auto* samples = reinterpret_cast<qint16*>(data);
        std::transform(stereo.begin(), stereo.end(), samples,
                       [](float sample) { return static_cast<qint16>(std::lround(sample * loudest)); });
    }
    return frames * format.bytesPerFrame();
}

qint64 cSoundOutput::writeData(const char*, qint64)
{
    return -1;
}

// There is always more: silence, if nothing else.
qint64 cSoundOutput::bytesAvailable() const
{
    return format.bytesForDuration(1'000'000);
}

} // namespace ob
