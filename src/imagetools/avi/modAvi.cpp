// SPDX-License-Identifier: GPL-3.0-or-later
// What the AVI maker knows of its bitmaps.
#include "imagetools/avi/modAvi.h"

#include "imagetools/pictures/modPicture.h"
#include "imaging/cByteReader.h"
#include "imaging/cByteWriter.h"
#include "imaging/cNumberedError.h"
#include "imaging/modBitmapHeaders.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/modRuntime.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr double LeastRate = 1;
constexpr double MostRate = 30;

// In the header.
constexpr std::size_t SizeOffset = 0;
constexpr std::size_t CompressionOffset = 16;

enum Compression : std::int32_t { Plain = 0, BitFields = 3, AlphaBitFields = 6 };

// The part of a bitmap file that is read: its headers, and for a frame also the pixels that the file has.
qint64 BytesNeeded(QFile& file, AviBitmapPart wanted)
{
    std::array<std::uint8_t, FileHeaderSize + InfoHeaderSize> start = {};
    const std::int64_t least = std::min<std::int64_t>(file.size(), start.size());
    if (wanted == AviBitmapPart::Headers)
        return least;
    if (file.read(reinterpret_cast<char*>(start.data()), start.size()) < 0 || !file.seek(0))
        return 0;
    const ByteView bytes(start);
    const std::int64_t pixels = ReadFileHeader(bytes).bfOffBits;
    const std::int64_t size = ReadInfoHeader(bytes.subspan(FileHeaderSize)).biSizeImage;
    return std::clamp<std::int64_t>(pixels + size, least, file.size());
}

// Reads into the bytes that the bitmap then keeps; files that cannot be read that way are left to the usual reader,
// which knows the reasons.
FileContent ReadBitmapFile(const std::string& name, AviBitmapPart wanted)
{
    const QString path = QString::fromStdString(name);
    QFile file(path);
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(BytesNeeded(file, wanted)));
        const auto count = static_cast<qint64>(bytes.size());
        if (count > 0 && file.read(reinterpret_cast<char*>(bytes.data()), count) == count)
            return {FileOutcome::Done, std::move(bytes), {}};
    }
    return DiskReader()(name);
}

// As many of the bytes there as exist.
ByteView Part(ByteView bytes, std::size_t start, std::size_t count)
{
    const ByteView rest = bytes.subspan(std::min(start, bytes.size()));
    return rest.first(std::min(count, rest.size()));
}

std::size_t TableBytes(const cDIB& dib)
{
    const auto used = static_cast<std::uint32_t>(dib.ClrUsed());
    const int bits = dib.BitCount();
    const bool isIndexed = bits >= 1 && bits <= 8;
    const std::size_t most = isIndexed ? std::size_t{1} << bits : 256;
    return 4 * (used != 0 ? std::min<std::size_t>(used, most) : isIndexed ? most : 0);
}

bool HasUsualMasks(const cDIB& dib, ByteView masks)
{
    const cByteReader reader(masks);
    const std::array<std::uint32_t, 3> values = {reader.Long(0), reader.Long(4), reader.Long(8)};
    if (dib.BitCount() == 16)
        return values == std::array<std::uint32_t, 3>{0x7C00, 0x3E0, 0x1F};
    return dib.BitCount() == 32 && values == std::array<std::uint32_t, 3>{0xFF0000, 0xFF00, 0xFF};
}

// The digits from a place on, without the zeros before them.
QStringView NumberAt(QStringView text, qsizetype& place)
{
    while (place < text.size() && text[place] == u'0')
        ++place;
    const qsizetype start = place;
    while (place < text.size() && text[place].isDigit())
        ++place;
    return text.sliced(start, place - start);
}

int CompareByNumbers(QStringView left, QStringView right)
{
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < left.size() && j < right.size()) {
        if (left[i].isDigit() && right[j].isDigit()) {
            const QStringView one = NumberAt(left, i);
            const QStringView other = NumberAt(right, j);
            if (one.size() != other.size())
                return one.size() < other.size() ? -1 : 1;
            if (const int order = one.compare(other))
                return order;
        } else {
            if (const int order = left.sliced(i, 1).compare(right.sliced(j, 1), Qt::CaseInsensitive))
                return order;
            ++i;
            ++j;
        }
    }
    return static_cast<int>((left.size() - i > 0) - (right.size() - j > 0));
}

} // namespace

bool LoadAviBitmap(cDIB& dib, const QString& path, AviBitmapPart part, const NoticeSink& notice)
{
    const auto read = [part](const std::string& name) { return ReadBitmapFile(name, part); };
    return dib.CreateFromFile(path.toStdString(), read, notice);
}

AviFormat FormatOf(const cDIB& dib)
{
    return {dib.Width(), dib.Height(), dib.BitCount()};
}

AviFrames FramesOf(const cDIB& first)
{
    return first.Compression() == Plain || first.Compression() == BitFields ? AviFrames::Bitmaps
                                                                            : AviFrames::Compressed;
}

std::int32_t LinesOf(const AviFormat& format)
{
    // The least number has no counterpart, and no picture is that high.
    return format.height == std::numeric_limits<std::int32_t>::min() ? 0 : std::abs(format.height);
}

std::optional<AviFormat> FormatForList(const AviList& list, const QString& file, const NoticeSink& notice)
{
    cDIB dib;
    if (!LoadAviBitmap(dib, file, AviBitmapPart::Headers, notice))
        return {};
    const AviFormat format = FormatOf(dib);
    if (!list.first || *list.first == format)
        return format;
    notice(DifferentFormatText.toStdString(), NoticeIcon::Information);
    return {};
}

void AddToList(AviList& list, const QString& file, const AviFormat& format)
{
    list.files.append(file);
    if (!list.first)
        list.first = format;
}

QStringList InNumberOrder(QStringList paths)
{
    std::sort(paths.begin(), paths.end(), [](const QString& left, const QString& right) {
        const int order = CompareByNumbers(left, right);
        return order != 0 ? order < 0 : left < right;
    });
    return paths;
}

AviFolder WithFolder(AviList list, const QString& folder)
{
    AviFolder result = {std::move(list), {}};
    for (const QString& name : InNumberOrder(ReadFolder(folder, {u"*.bmp"_s, u"*.dib"_s}).files)) {
        const QString file = PathIn(folder, name);
        std::optional<AviFormat> format;
        try {
            format = FormatForList(result.list, file, [](const std::string&, NoticeIcon) {});
        } catch (const NumberedError&) {
            // It is left out like any other that does not fit.
        }
        if (format)
            AddToList(result.list, file, *format);
        else
            result.leftOut.append(name);
    }
    return result;
}

QString FolderAddedText(qsizetype added, const QStringList& leftOut)
{
    constexpr qsizetype mostNames = 3;
    if (added == 0 && leftOut.isEmpty())
        return u"There are no bitmaps in this folder."_s;
    const QString text = u"Files added: %1."_s.arg(added);
    if (leftOut.isEmpty())
        return text;
    const QString more = leftOut.size() > mostNames ? u", ..."_s : QString();
    return text + u" Left out, as they cannot be read or have another format: %1 (%2%3)."_s.arg(leftOut.size())
                      .arg(leftOut.first(std::min(mostNames, leftOut.size())).join(u", "_s), more);
}

std::int32_t FramesPerSecondOf(QStringView text)
{
    // The bounds come first, as a number may be beyond every whole one; halves do not lie on them.
    return ToInt32(std::clamp(Val(text), LeastRate, MostRate));
}

AviStreamInfo StreamInfoOf(const cDIB& first, std::int32_t framesPerSecond)
{
    AviStreamInfo info;
    info.dwRate = static_cast<std::uint32_t>(framesPerSecond);
    info.dwSuggestedBufferSize = static_cast<std::uint32_t>(first.SizeImage());
    info.rcFrame = {0, 0, first.Width(), first.Height()};
    return info;
}

std::vector<std::uint8_t> StreamFormatOf(const cDIB& first)
{
    ByteView info = first.PointerToBitmapInfo();
    info = info.first(info.size() - 1);
    const auto claimed = static_cast<std::size_t>(std::max(first.SizeInfoHeader(), 0));
    const std::size_t headerSize = std::max(claimed, InfoHeaderSize);
    const bool hasMasks = first.Compression() == BitFields || first.Compression() == AlphaBitFields;
    const std::size_t maskBytes = !hasMasks ? 0 : first.Compression() == BitFields ? 12 : 16;
    // A header with space for the masks contains them.
    const bool areMasksAfter = headerSize < InfoHeaderSize + 12;
    const ByteView masks = Part(info, InfoHeaderSize, maskBytes);
    const ByteView table = Part(info, headerSize + (areMasksAfter ? maskBytes : 0), TableBytes(first));

    cByteWriter format;
    format.Bytes(Part(info, 0, InfoHeaderSize));
    format.Zeros(InfoHeaderSize - format.Size());
    format.LongAt(SizeOffset, InfoHeaderSize);
    if (hasMasks && HasUsualMasks(first, masks))
        format.LongAt(CompressionOffset, Plain);
    else
        format.Bytes(masks);
    return format.Bytes(table).Take();
}

ByteView FramePixelsOf(const cDIB& dib)
{
    const ByteView pixels = dib.PointerToBits();
    const std::int64_t width = dib.Width();
    const int bits = dib.BitCount();
    const bool isPlain =
        dib.Compression() == Plain || dib.Compression() == BitFields || dib.Compression() == AlphaBitFields;
    if (!isPlain || width < 1 || bits < 1 || bits > 32)
        return pixels;
    const std::int64_t bytes = (width * bits + 31) / 32 * 4 * LinesOf(FormatOf(dib));
    return pixels.first(std::min(pixels.size(), static_cast<std::size_t>(bytes)));
}

} // namespace ob
