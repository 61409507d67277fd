// SPDX-License-Identifier: GPL-3.0-or-later
// Icons from icon files, programs and libraries.
#include "imagetools/icons/modIconFile.h"

#include "imagetools/icons/modNeIcons.h"
#include "imagetools/icons/modPeIcons.h"
#include "imaging/modBitmapHeaders.h"
#include "platform/files/cMappedFile.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace ob {

namespace {

constexpr std::size_t DirectoryBytes = 6;
constexpr std::size_t FileEntryBytes = 16;  // ends with the image's place
constexpr std::size_t GroupEntryBytes = 14; // ends with the image's number
// An icon has a dozen images; limits keep a forged directory from costing seconds, and also a forged program whose
// icons all share one such directory.
constexpr std::size_t MostImages = 256;
constexpr std::size_t LeastImages = 16;
constexpr std::size_t MostImagesInAll = 1 << 20;

// The number of images in a directory of either kind; 0 when it is not a directory.
std::size_t ImageCount(ByteView directory)
{
    constexpr std::uint16_t iconKind = 1;
    const cByteReader reader(directory);
    if (directory.size() < DirectoryBytes || reader.Word(0) != 0 || reader.Word(2) != iconKind)
        return 0;
    return reader.Word(4);
}

// The best of the images in the directory, by the headers of the images themselves.
template <class ImageOfEntry>
ByteView BestImage(ByteView directory, std::size_t most, std::size_t entryBytes, ImageOfEntry imageOfEntry)
{
    const std::size_t count = std::min(ImageCount(directory), most);
    ByteView best;
    std::tuple<int, int> bestRank;
    for (std::size_t index = 0; index < count; ++index) {
        const ByteView entry = BytesAt(directory, DirectoryBytes + index * entryBytes, entryBytes);
        if (entry.empty())
            break;
        const ByteView image = imageOfEntry(cByteReader(entry));
        const std::optional<IconImageSize> size = ReadIconImageSize(image);
        if (!size)
            continue;
        const std::tuple<int, int> rank = {std::abs(size->width - IconSide) + std::abs(size->height - IconSide),
                                           -size->bits};
        if (best.empty() || rank < bestRank) {
            best = image;
            bestRank = rank;
        }
    }
    return best;
}

} // namespace

IconIndex::IconIndex(ByteView file)
{
    constexpr std::uint16_t programSignature = 'M' | 'Z' << 8;
    constexpr std::size_t programHeaderBytes = 64;
    const cByteReader reader(file);
    if (reader.Word(0) != programSignature) {
        iconFile = ImageCount(file) > 0 ? file : ByteView();
        return;
    }
    if (file.size() < programHeaderBytes)
        return;
    const std::size_t header = reader.Long(60);
    table = ReadPeIcons(file, header);
    if (table.groups.empty())
        table = ReadNeIcons(file, header);
}

int IconIndex::Count() const
{
    return iconFile.empty() ? static_cast<int>(table.groups.size()) : 1;
}

ByteView IconIndex::ImageBytes(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    if (!iconFile.empty()) {
        return BestImage(iconFile, MostImages, FileEntryBytes,
                         [this](const cByteReader& entry) { return BytesAt(iconFile, entry.Long(12), entry.Long(8)); });
    }
    const std::size_t most = std::clamp(MostImagesInAll / table.groups.size(), LeastImages, MostImages);
    return BestImage(table.groups[static_cast<std::size_t>(index)], most, GroupEntryBytes,
                     [this](const cByteReader& entry) { return table.Image(entry.Word(12)); });
}

std::optional<IconImageSize> IconIndex::Size(int index) const
{
    return ReadIconImageSize(ImageBytes(index));
}

std::optional<IconImage> IconIndex::Extract(int index) const
{
    return ReadIconImage(ImageBytes(index));
}

int IconCount(const QString& path)
{
    try {
        const cMappedFile file(path);
        return IconIndex(file.Bytes()).Count();
    } catch (const RuntimeError&) {
        return 0;
    }
}

std::optional<IconImage> ExtractIcon(const QString& path, int index)
{
    try {
        const cMappedFile file(path);
        return IconIndex(file.Bytes()).Extract(index);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace ob
