// SPDX-License-Identifier: GPL-3.0-or-later
// The sound device: it reads what it plays from a source.
#pragma once

#include <QAudioFormat>
#include <QIODevice>

#include <memory>
#include <vector>

class QAudioDevice;
class QAudioSink;

namespace ob {

class cSoundSource {
public:
    cSoundSource() = default;
    cSoundSource(const cSoundSource&) = delete;
    cSoundSource& operator=(const cSoundSource&) = delete;
    virtual ~cSoundSource() = default;

    // Fills pairs of left and right samples, each from -1 to 1; silence where there is nothing. Called from any thread.
    virtual void Render(float* stereo, qsizetype frames) = 0;
};

class cSoundOutput final : private QIODevice {
public:
    // Null when the system has no sound device, or none with a format we support.
    static std::unique_ptr<cSoundOutput> Make();

    cSoundOutput(const QAudioDevice& device, const QAudioFormat& format);
    ~cSoundOutput() override;

    int Rate() const; // frames per second

    // The delay between reading a sample and hearing it, in milliseconds.
    static constexpr int Delay = 100;

    // The source must outlive this object.
    void Start(cSoundSource& from);
    void Stop();

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;
    qint64 bytesAvailable() const override;
    bool isSequential() const override { return true; }

private:
    QAudioFormat format;
    std::unique_ptr<QAudioSink> sink;
    cSoundSource* source = nullptr;
    std::vector<float> stereo;
};

} // namespace ob
