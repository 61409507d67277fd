// SPDX-License-Identifier: GPL-3.0-or-later
// What the AVI maker knows of its bitmaps: the list of one size and format, and what describes their stream.
#pragma once

#include "imagetools/avi/cAviWriter.h"
#include "imaging/cDIB.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <vector>

namespace ob {

inline const QString DifferentFormatText = QStringLiteral("Chosen bitmap file is a different format!");

// From the bitmap's header; the height of a top-down one is negative.
struct AviFormat {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bitCount = 0;
    bool operator==(const AviFormat&) const = default;
};

// The height without its sign; 0 for the one that has no counterpart.
std::int32_t LinesOf(const AviFormat& format);

// The files in the order of the frames, and the format of the first.
struct AviList {
    QStringList files;
    std::optional<AviFormat> first;
};

// Loads a bitmap, whole or its headers alone. False after a notice when it cannot be loaded. Raises error 9 for a
// header without the image's size.
enum class AviBitmapPart { Headers, Whole };
bool LoadAviBitmap(cDIB& dib, const QString& path, AviBitmapPart part, const NoticeSink& notice);

// The format of a file that fits into the list. Nothing, after a notice, when it cannot be loaded or has another
// format than the first. Raises as LoadAviBitmap does.
std::optional<AviFormat> FormatForList(const AviList& list, const QString& file, const NoticeSink& notice);
void AddToList(AviList& list, const QString& file, const AviFormat& format);

// Paths in the order of the numbers in them: "f2.bmp" before "f10.bmp". Case and leading zeros decide between equals.
QStringList InNumberOrder(QStringList paths);

// A list with all bitmaps of a folder that fit into it added in number order, and the names of those that do not.
struct AviFolder {
    AviList list;
    QStringList leftOut;
};
AviFolder WithFolder(AviList list, const QString& folder);

// What the user is shown of that: how many files were added and which were not.
QString FolderAddedText(qsizetype added, const QStringList& leftOut);

// The number in a text, rounded, within 1 to 30; 1 for a text without one. Raises Overflow beyond a double.
std::int32_t FramesPerSecondOf(QStringView text);

AviFormat FormatOf(const cDIB& dib);

// The description of a stream of such bitmaps.
AviStreamInfo StreamInfoOf(const cDIB& first, std::int32_t framesPerSecond);

// The stream's format: header and colour table as in the bitmap, without the byte after them. A longer header is
// truncated to the 40 bytes that video players know; default masks are omitted.
std::vector<std::uint8_t> StreamFormatOf(const cDIB& first);

// The bitmap's pixels as far as its header says that they go: without run lengths no more than its lines take.
ByteView FramePixelsOf(const cDIB& dib);

// What a stream of such bitmaps has without a compressor: the bitmaps' own run lengths are a compression too.
AviFrames FramesOf(const cDIB& first);

} // namespace ob
