// SPDX-License-Identifier: GPL-3.0-or-later
// The icons of an icon file (.ico), or of a program or library (.exe, .dll, .icl) of the PE or NE format. The kind of
// a file is determined by its content, not its name.
#pragma once

#include "imagetools/icons/modIconImage.h"
#include "imagetools/icons/modIconTable.h"

#include <memory>
#include <optional>

namespace ob {

// Foreign and damaged bytes have no icon. What the source throws goes through, and leaves the index as it was.
class cIconIndex {
public:
    explicit cIconIndex(std::unique_ptr<const cByteSource> file);

    // The icons in memory, which must live as long.
    explicit cIconIndex(ByteView file);

    // An icon file counts as one icon. A program has its icons in the order of its directory.
    int Count() const;

    // The image chosen for the icon of that number, from 0: 32 x 32 pixels, else the nearest size; of several
    // the one with most bits, else the first. Nothing beyond the count, and when no image can be read. A PNG image
    // counts by its header: Extract returns nothing when the chosen one is damaged after it.
    std::optional<IconImageSize> Size(int index) const;
    std::optional<IconImage> Extract(int index) const;

private:
    template <class PlaceOfEntry>
    ByteRange BestImage(const ByteRange& directory, std::size_t most, std::size_t entryBytes,
                        PlaceOfEntry placeOfEntry) const;
    ByteRange ImageAt(int index) const; // empty when there is none
    std::optional<IconImageSize> SizeOf(const ByteRange& image, std::vector<std::uint8_t>& buffer) const;

    std::unique_ptr<const cByteSource> source;
    ByteRange iconFile; // empty for a program
    IconTable table;
};

} // namespace ob
