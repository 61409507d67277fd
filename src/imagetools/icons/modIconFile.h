// SPDX-License-Identifier: GPL-3.0-or-later
// Icons from icon files (.ico) and from programs and libraries (.exe, .dll, .icl) of the PE and NE formats. The kind of
// a file is determined by its content, not its name.
#pragma once

#include "imagetools/icons/modIconImage.h"
#include "imagetools/icons/modIconTable.h"

#include <QString>

#include <cstddef>
#include <optional>

namespace ob {

// The icons in the bytes of a file, which must outlive it. Foreign and damaged bytes have no icon.
class IconIndex {
public:
    explicit IconIndex(ByteView file);

    // An icon file counts as one icon. A program has its icons in the order of its directory.
    int Count() const;

    // The image chosen for the icon of that number, from 0: 32 x 32 pixels, else the nearest size; of several the one
    // with most bits, else the first. Nothing beyond the count, and when no image can be read. A PNG image counts by
    // its header: Extract returns nothing when the chosen one is damaged after it.
    std::optional<IconImageSize> Size(int index) const;
    std::optional<IconImage> Extract(int index) const;

private:
    ByteView ImageBytes(int index) const;

    ByteView iconFile; // empty for a program
    IconTable table;
};

// The same for a file on disk; of a program only the necessary parts are read. A file that cannot be read has no icon.
int IconCount(const QString& path);
std::optional<IconImage> ExtractIcon(const QString& path, int index);

} // namespace ob
