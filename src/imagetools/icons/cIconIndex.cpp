// SPDX-License-Identifier: GPL-3.0-or-later
// The icons of an icon file, a program or a library.
#include "imagetools/icons/cIconIndex.h"

#include "imagetools/icons/modNeIcons.h"
#include "imagetools/icons/modPeIcons.h"
#include "imaging/cByteReader.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

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

} // namespace

cIconIndex::cIconIndex(ByteView file) : cIconIndex(std::make_unique<cMemorySource>(file)) {}

cIconIndex::cIconIndex(std::unique_ptr<const cByteSource> file) : source(std::move(file))
{
    constexpr std::uint16_t programSignature = 'M' | 'Z' << 8;
    constexpr std::size_t programHeaderBytes = 64;
    const std::vector<std::uint8_t> start = source->Bytes(source->All().From(0, programHeaderBytes));
    const cByteReader reader(start);
    if (reader.Word(0) != programSignature) {
        iconFile = ImageCount(start) > 0 ? source->All() : ByteRange();
        return;
    }
    if (start.size() < programHeaderBytes)
        return;
    const std::uint64_t header = reader.Long(60);
    table = ReadPeIcons(*source, header);
    if (table.groups.empty())
        table = ReadNeIcons(*source, header);
}

int cIconIndex::Count() const
{
    return iconFile.IsEmpty() ? static_cast<int>(table.groups.size()) : 1;
}

// The best of the images in the directory, by the headers of the images themselves.
template <class PlaceOfEntry>
ByteRange cIconIndex::BestImage(const ByteRange& directory, std::size_t most, std::size_t entryBytes,
                                PlaceOfEntry placeOfEntry) const
{
    const std::vector<std::uint8_t> bytes = source->Bytes(directory.From(0, DirectoryBytes + most * entryBytes));
    const std::size_t count = std::min(ImageCount(bytes), most);
    std::vector<std::uint8_t> buffer;
    ByteRange best;
    std::tuple<int, int> bestRank;
    for (std::size_t index = 0; index < count; ++index) {
        const ByteView entry = BytesAt(bytes, DirectoryBytes + index * entryBytes, entryBytes);
        if (entry.empty())
            break;
        const ByteRange place = placeOfEntry(cByteReader(entry));
        const std::optional<IconImageSize> size = SizeOf(place, buffer);
        if (!size)
            continue;
        const std::tuple<int, int> rank = {std::abs(size->width - IconSide) + std::abs(size->height - IconSide),
                                           -size->bits};
        if (best.IsEmpty() || rank < bestRank) {
            best = place;
            bestRank = rank;
        }
    }
    return best;
}

ByteRange cIconIndex::ImageAt(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    if (!iconFile.IsEmpty()) {
        return BestImage(iconFile, MostImages, FileEntryBytes,
                         [this](const cByteReader& entry) { return iconFile.At(entry.Long(12), entry.Long(8)); });
    }
    const std::size_t most = std::clamp(MostImagesInAll / table.groups.size(), LeastImages, MostImages);
    return BestImage(table.groups[static_cast<std::size_t>(index)], most, GroupEntryBytes,
                     [this](const cByteReader& entry) { return table.Image(entry.Word(12)); });
}

std::optional<IconImageSize> cIconIndex::SizeOf(const ByteRange& image, std::vector<std::uint8_t>& buffer) const
{
    return ReadIconImageSize(source->Look(image.From(0, IconHeadBytes), buffer), image.size);
}

std::optional<IconImageSize> cIconIndex::Size(int index) const
{
    std::vector<std::uint8_t> buffer;
    return SizeOf(ImageAt(index), buffer);
}

std::optional<IconImage> cIconIndex::Extract(int index) const
{
    const ByteRange image = ImageAt(index);
    std::vector<std::uint8_t> buffer;
    const std::uint64_t needed = IconImageBytes(source->Look(image.From(0, IconHeadBytes), buffer));
    return ReadIconImage(source->Look(image.From(0, needed), buffer));
}

} // namespace ob
