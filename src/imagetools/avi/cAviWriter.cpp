// SPDX-License-Identifier: GPL-3.0-or-later
// AVI files: a header with space for the large form, frames, and an index after each segment.
#include "imagetools/avi/cAviWriter.h"

#include "imaging/cByteWriter.h"
#include "platform/language/cRuntimeError.h"

#include <algorithm>
#include <limits>

namespace ob {

namespace {

constexpr std::uint32_t HasIndex = 0x10;
constexpr std::uint32_t KeyFrame = 0x10;
constexpr std::uint32_t Videos = 1;

constexpr std::size_t ChunkHeaderBytes = 8;
constexpr std::size_t IndexHeaderBytes = 24;
constexpr std::size_t SegmentEntryBytes = 16; // in the index of indexes
constexpr std::size_t FrameEntryBytes = 8;    // in a segment's index
constexpr std::size_t OldEntryBytes = 16;     // in the index of the old form
constexpr std::size_t LargeHeaderBytes = 248;

constexpr std::uint8_t IndexOfIndexes = 0;
constexpr std::uint8_t IndexOfFrames = 1;

// Nested chunks; their sizes are filled in when they are closed.
class RiffBytes {
public:
    RiffBytes& Byte(std::uint8_t value)
    {
        writer.Byte(value);
        return *this;
    }
    RiffBytes& Word(std::uint32_t value)
    {
        writer.Word(value);
        return *this;
    }
    RiffBytes& Long(std::uint32_t value)
    {
        writer.Long(value);
        return *this;
    }
    RiffBytes& Long64(std::int64_t value)
    {
        writer.Long64(static_cast<std::uint64_t>(value));
        return *this;
    }
    RiffBytes& Zeros(std::size_t count)
    {
        writer.Zeros(count);
        return *this;
    }
    RiffBytes& Bytes(ByteView values)
    {
        writer.Bytes(values);
        return *this;
    }
    RiffBytes& Open(std::uint32_t code)
    {
        writer.Long(code).Long(0);
        open.push_back(writer.Size());
        return *this;
    }
    RiffBytes& OpenList(std::uint32_t kind, std::uint32_t code) { return Open(kind).Long(code); }
    RiffBytes& Close()
    {
        CloseWithSize(static_cast<std::uint32_t>(writer.Size() - open.back()));
        return writer.Size() % 2 != 0 ? Byte(0) : *this;
    }
    // For a chunk that continues after these bytes.
    void CloseWithSize(std::uint32_t size)
    {
        writer.LongAt(open.back() - 4, size);
        open.pop_back();
    }
    std::vector<std::uint8_t> Take() { return writer.Take(); }
    ByteView View() const { return writer.View(); }

private:
    cByteWriter writer;
    std::vector<std::size_t> open;
};

std::uint32_t Limited(std::uint64_t value)
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, std::numeric_limits<std::uint32_t>::max()));
}

std::uint32_t Side(std::int32_t from, std::int32_t to)
{
    const std::int64_t length = std::int64_t{to} - from;
    return static_cast<std::uint32_t>(length < 0 ? -length : length);
}

void PutMainHeader(RiffBytes& riff, const AviStreamInfo& stream, std::uint32_t frames)
{
    const std::uint64_t million = 1'000'000;
    riff.Open(FourCC("avih"));
    riff.Long(Limited((million * stream.dwScale + stream.dwRate / 2) / stream.dwRate));
    riff.Long(Limited(std::uint64_t{stream.dwSuggestedBufferSize} * stream.dwRate / stream.dwScale));
    riff.Long(0).Long(HasIndex).Long(frames).Long(0).Long(Videos).Long(stream.dwSuggestedBufferSize);
    riff.Long(Side(stream.rcFrame.left, stream.rcFrame.right)).Long(Side(stream.rcFrame.top, stream.rcFrame.bottom));
    riff.Zeros(16).Close();
}

void PutStreamHeader(RiffBytes& riff, const AviStreamInfo& stream, std::uint32_t frames)
{
    riff.Open(FourCC("strh")).Long(stream.fccType).Long(stream.fccHandler);
    riff.Zeros(12); // flags, priority, language, initial frames
    riff.Long(stream.dwScale).Long(stream.dwRate).Long(0).Long(frames).Long(stream.dwSuggestedBufferSize);
    riff.Zeros(8); // quality, sample size
    for (const std::int32_t side :
         {stream.rcFrame.left, stream.rcFrame.top, stream.rcFrame.right, stream.rcFrame.bottom})
        riff.Word(static_cast<std::uint32_t>(side) & 0xFFFF);
    riff.Close();
}

RiffBytes& PutIndexHeader(RiffBytes& riff, std::size_t entryLongs, std::uint8_t kind, std::size_t entries)
{
    return riff.Word(static_cast<std::uint32_t>(entryLongs)).Byte(0).Byte(kind).Long(Limited(entries));
}

} // namespace

cAviWriter::cAviWriter(cFileReplacement& target, const AviStreamInfo& description, ByteView formatBytes, AviFrames kind,
                       std::int64_t mostSegmentBytes)
    : file(target), stream(description), format(formatBytes.begin(), formatBytes.end()),
      frameCode(kind == AviFrames::Bitmaps ? FourCC("00db") : FourCC("00dc")), segmentBytes(mostSegmentBytes)
{
    file.Write(Header());
    moviStart = file.Size() - 4;
}

// Always the same number of bytes, so that the final header fits over the first.
std::vector<std::uint8_t> cAviWriter::Header() const
{
    RiffBytes riff;
    riff.OpenList(FourCC("RIFF"), FourCC("AVI ")).OpenList(FourCC("LIST"), FourCC("hdrl"));
    PutMainHeader(riff, stream, firstFrames);
    riff.OpenList(FourCC("LIST"), FourCC("strl"));
    PutStreamHeader(riff, stream, frames);
    riff.Open(FourCC("strf")).Bytes(format).Close();
    riff.Open(segments.empty() ? FourCC("JUNK") : FourCC("indx"));
    if (segments.empty()) {
        riff.Zeros(IndexHeaderBytes);
    } else {
        PutIndexHeader(riff, SegmentEntryBytes / 4, IndexOfIndexes, segments.size()).Long(frameCode).Zeros(12);
        for (const Segment& segment : segments)
            riff.Long64(segment.indexOffset).Long(segment.indexSize).Long(segment.frames);
    }
    riff.Zeros((MostSegments - segments.size()) * SegmentEntryBytes).Close().Close();
    if (segments.empty())
        riff.Open(FourCC("JUNK")).Zeros(4 + ChunkHeaderBytes + LargeHeaderBytes).Close();
    else
        riff.OpenList(FourCC("LIST"), FourCC("odml"))
            .Open(FourCC("dmlh"))
            .Long(frames)
            .Zeros(LargeHeaderBytes - 4)
            .Close()
            .Close();
    riff.Close().OpenList(FourCC("LIST"), FourCC("movi"));
    riff.CloseWithSize(firstMoviSize);
    riff.CloseWithSize(firstRiffSize);
    return riff.Take();
}

bool cAviWriter::Fits(std::size_t frameBytes) const
{
    if (index.empty())
        return true;
    const std::size_t count = index.size() + 1;
    std::size_t added = ChunkHeaderBytes + frameBytes + frameBytes % 2;
    added += ChunkHeaderBytes + IndexHeaderBytes + count * FrameEntryBytes;
    if (segments.empty())
        added += ChunkHeaderBytes + count * OldEntryBytes;
    return file.Size() - segmentStart + static_cast<std::int64_t>(added) <= segmentBytes;
}

void cAviWriter::WriteFrame(ByteView frame)
{
    if (!Fits(frame.size())) {
        EndSegment(false);
        StartSegment();
    }
    index.push_back({static_cast<std::uint32_t>(file.Size() - moviStart), Limited(frame.size())});
    RiffBytes head;
    head.Long(frameCode).Long(index.back().size);
    file.Write(head.View());
    file.Write(frame);
    constexpr std::uint8_t padding[] = {0};
    if (frame.size() % 2 != 0)
        file.Write(padding);
    ++frames;
}

void cAviWriter::StartSegment()
{
    if (segments.size() == MostSegments)
        throw RuntimeErrorOf(ErrorNumber::DiskFull);
    segmentStart = file.Size();
    RiffBytes head;
    head.OpenList(FourCC("RIFF"), FourCC("AVIX")).OpenList(FourCC("LIST"), FourCC("movi"));
    file.Write(head.View());
    moviStart = file.Size() - 4;
}

void cAviWriter::EndSegment(bool isOnly)
{
    const bool isFirst = segmentStart == 0;
    if (!isOnly)
        WriteSegmentIndex();
    const auto moviSize = static_cast<std::uint32_t>(file.Size() - moviStart);
    if (isFirst)
        WriteOldIndex();
    const auto riffSize = static_cast<std::uint32_t>(file.Size() - segmentStart - 8);
    if (isFirst) {
        firstFrames = frames;
        firstMoviSize = moviSize;
        firstRiffSize = riffSize;
    } else {
        RiffBytes head;
        head.Long(FourCC("RIFF")).Long(riffSize).Long(FourCC("AVIX"));
        head.Long(FourCC("LIST")).Long(moviSize).Long(FourCC("movi"));
        file.WriteAt(segmentStart, head.View());
    }
    index.clear();
}

void cAviWriter::WriteSegmentIndex()
{
    const std::int64_t start = file.Size();
    RiffBytes riff;
    riff.Open(FourCC("ix00"));
    PutIndexHeader(riff, FrameEntryBytes / 4, IndexOfFrames, index.size()).Long(frameCode).Long64(moviStart).Long(0);
    for (const Frame& frame : index)
        riff.Long(frame.offset + static_cast<std::uint32_t>(ChunkHeaderBytes)).Long(frame.size);
    riff.Close();
    file.Write(riff.View());
    segments.push_back({start, static_cast<std::uint32_t>(file.Size() - start), Limited(index.size())});
}

void cAviWriter::WriteOldIndex()
{
    RiffBytes riff;
    riff.Open(FourCC("idx1"));
    for (const Frame& frame : index)
        riff.Long(frameCode).Long(KeyFrame).Long(frame.offset).Long(frame.size);
    riff.Close();
    file.Write(riff.View());
}

void cAviWriter::Finish()
{
    EndSegment(segments.empty());
    file.WriteAt(0, Header());
}

} // namespace ob
