// SPDX-License-Identifier: GPL-3.0-or-later
// Icons out of files on disk.
#include "imagetools/icons/modIconFile.h"

#include "platform/files/cFileSource.h"
#include "platform/language/cRuntimeError.h"

namespace ob {

cIconIndex IconsOfFile(const QString& path)
{
    return cIconIndex(std::make_unique<cFileSource>(path));
}

int IconCount(const QString& path)
{
    try {
        return IconsOfFile(path).Count();
    } catch (const RuntimeError&) {
        return 0;
    }
}

std::optional<IconImage> ExtractIcon(const QString& path, int index)
{
    try {
        return IconsOfFile(path).Extract(index);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace ob
