// SPDX-License-Identifier: GPL-3.0-or-later
// A file of pictures, sound or both, taken apart in its own order by FFmpeg's libraries.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <atomic>
#include <memory>
#include <span>

namespace ob {

// Takes what comes out of a file. Times are in microseconds from the file's start.
class cFilmTaker {
public:
    cFilmTaker() = default;
    cFilmTaker(const cFilmTaker&) = delete;
    cFilmTaker& operator=(const cFilmTaker&) = delete;
    virtual ~cFilmTaker() = default;

    virtual void TakePicture(QImage picture, qint64 time) = 0;

    // Pairs of left and right; a piece follows the one before it without a gap.
    virtual void TakeSound(std::span<const float> stereo, qint64 time) = 0;
};

enum class FilmStep { More, End };

// What is wanted of a film. Without a rate, in frames a second, no sound is decoded.
struct FilmWish {
    bool pictures = true;
    int soundRate = 0;
};

class cFilmFile {
public:
    // Null when the file holds nothing that can be played, whatever is wanted of it. Reading ends soon after `stop` has
    // become true.
    static std::unique_ptr<cFilmFile> Open(const QString& path, const FilmWish& wish, const std::atomic<bool>& stop);

    cFilmFile();
    cFilmFile(const cFilmFile&) = delete;
    cFilmFile& operator=(const cFilmFile&) = delete;
    ~cFilmFile();

    qint64 Length() const; // microseconds; 0 when the file does not tell

    // What a run through the file will give.
    bool GivesPictures() const;
    bool GivesSound() const;

    // Whether the file has sound at all.
    bool HasSound() const;

    // The size at which a picture has its right shape.
    QSize ShownSize() const;

    // Decodes the next piece of the file. Damaged pieces are passed over.
    FilmStep Step(cFilmTaker& taker);

    // Where what has been read so far ends, in microseconds.
    qint64 EndOfRead() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ob
