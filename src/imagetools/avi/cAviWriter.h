// SPDX-License-Identifier: GPL-3.0-or-later
// Writes AVI files of one video stream. Frames are finished bytes from the caller, which are not inspected here.
#pragma once

#include "imaging/modByteView.h"
#include "platform/files/cFileReplacement.h"

#include <cstdint>
#include <vector>

namespace ob {

// Four characters as their number in a RIFF file.
constexpr std::uint32_t FourCC(const char (&name)[5])
{
    std::uint32_t code = 0;
    for (int place = 3; place >= 0; --place)
        code = code << 8 | static_cast<std::uint8_t>(name[place]);
    return code;
}

// The description of a stream; every other field of the published record is 0. The rate is frames by dwScale seconds.
struct AviStreamInfo {
    struct Rectangle {
        std::int32_t left = 0;
        std::int32_t top = 0;
        std::int32_t right = 0;
        std::int32_t bottom = 0;
    };

    std::uint32_t fccType = FourCC("vids");
    std::uint32_t fccHandler = 0; // the compressor; 0 for none
    std::uint32_t dwScale = 1;
    std::uint32_t dwRate = 1;
    std::uint32_t dwSuggestedBufferSize = 0; // bytes of a frame
    Rectangle rcFrame;
};

enum class AviFrames { Bitmaps, Compressed };

// The greatest length of one RIFF chunk of the file; a frame that is longer has one to itself. A video that does not
// fit into one continues in "AVIX" chunks with their own indexes, which older readers skip.
constexpr std::int64_t AviSegmentBytes = std::int64_t{1} << 30;

// Writes each frame at once and keeps only its place. The file is valid once Finish has returned.
class cAviWriter {
public:
    // The format is a BITMAPINFOHEADER with its masks and colours. All raise as cFileReplacement does.
    cAviWriter(cFileReplacement& file, const AviStreamInfo& stream, ByteView format, AviFrames frames,
               std::int64_t segmentBytes = AviSegmentBytes);

    // Adds a frame, marked as a key frame. Raises DiskFull too when the file has MostSegments chunks.
    void WriteFrame(ByteView frame);

    // Completes indexes and headers; the file still has to be given its name.
    void Finish();

    static constexpr std::size_t MostSegments = 256;

private:
    struct Frame {
        std::uint32_t offset; // of its chunk, from the segment's "movi"
        std::uint32_t size;   // without the chunk's header and padding
    };
    struct Segment {
        std::int64_t indexOffset;
        std::uint32_t indexSize;
        std::uint32_t frames;
    };

    std::vector<std::uint8_t> Header() const;
    bool Fits(std::size_t frameBytes) const;
    void StartSegment();
    void EndSegment(bool isOnly);
    void WriteSegmentIndex();
    void WriteOldIndex();

    cFileReplacement& file;
    AviStreamInfo stream;
    std::vector<std::uint8_t> format;
    std::uint32_t frameCode;
    std::int64_t segmentBytes;

    std::int64_t segmentStart = 0;
    std::int64_t moviStart = 0;    // of the characters "movi"
    std::vector<Frame> index;      // of the segment that is being written
    std::vector<Segment> segments; // those that are complete, when there is more than one
    std::uint32_t frames = 0;
    std::uint32_t firstFrames = 0; // in the first segment
    std::uint32_t firstRiffSize = 0;
    std::uint32_t firstMoviSize = 0;
};

} // namespace ob
