// SPDX-License-Identifier: GPL-3.0-or-later
// Icons out of icon files (.ico) and out of programs and libraries (.exe, .dll, .icl) of the PE and NE formats. The
// content tells the kind of a file, not its name.
#pragma once

#include "imagetools/icons/modIconImage.h"
#include "imagetools/icons/modIconTable.h"

#include <QString>

#include <cstddef>
#include <optional>

namespace ob {

// The icons in the bytes of a file, which must outlive it. Foreign and damaged bytes hold no icon.
class IconIndex {
public:
    explicit IconIndex(ByteView file);

    // An icon file counts as one icon. A program has its icons in the order of its directory.
    int Count() const;

    // The image that is taken of the icon of that number, from 0: 32 x 32 pixels, else the nearest size; of several
    // the one with most bits, else the first. Nothing beyond the count, and when no image can be read. A PNG image
    // counts by its header: Extract gives nothing when the one taken is damaged behind it.
    std::optional<IconImageSize> Size(int index) const;
    std::optional<IconImage> Extract(int index) const;

private:
    ByteView ImageBytes(int index) const;

    ByteView iconFile; // empty for a program
    IconTable table;
};

// The same for a file on disk; of a program only the parts that are needed are read. A file that cannot be read has no
// icon.
int IconCount(const QString& path);
std::optional<IconImage> ExtractIcon(const QString& path, int index);

} // namespace ob
