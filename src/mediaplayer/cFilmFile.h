// SPDX-License-Identifier: GPL-3.0-or-later
// A file of pictures, sound or both, demultiplexed and decoded in file order by FFmpeg's libraries.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <atomic>
#include <memory>
#include <span>

namespace ob {

// Receives the contents of a file. Times are in microseconds from the start of the file.
class cFilmTaker {
public:
    cFilmTaker() = default;
    cFilmTaker(const cFilmTaker&) = delete;
    cFilmTaker& operator=(const cFilmTaker&) = delete;
    virtual ~cFilmTaker() = default;

    virtual void TakePicture(QImage picture, qint64 time) = 0;

    // Pairs of left and right samples; a piece follows the previous one without a gap.
    virtual void TakeSound(std::span<const float> stereo, qint64 time) = 0;
};

enum class FilmStep { More, End };

// What to decode of a film. Without a rate, in frames per second, no sound is decoded.
struct FilmRequest {
    bool pictures = true;
    int soundRate = 0;
};

class cFilmFile {
public:
    // Null when the file contains nothing that can be played, whatever is requested. Reading ends soon after `stop` has
    // become true.
    static std::unique_ptr<cFilmFile> Open(const QString& path, const FilmRequest& request,
                                           const std::atomic<bool>& stop);

    cFilmFile();
    cFilmFile(const cFilmFile&) = delete;
    cFilmFile& operator=(const cFilmFile&) = delete;
    ~cFilmFile();

    qint64 Length() const; // microseconds; 0 when the file does not specify it

    // What decoding the file will produce.
    bool GivesPictures() const;
    bool GivesSound() const;

    // Whether the file has sound at all.
    bool HasSound() const;

    // The size at which a picture has its proper aspect ratio.
    QSize ShownSize() const;

    // Decodes the next piece of the file. Damaged pieces are skipped.
    FilmStep Step(cFilmTaker& taker);

    // The end of everything read so far, in microseconds.
    qint64 EndOfRead() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ob
