// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of files for windows.
#include "imagetools/pictures/frmPictureReading.h"

#include "imagetools/pictures/modPicture.h"
#include "platform/dialogs/frmPatience.h"
#include "platform/files/modFiles.h"

using namespace Qt::StringLiterals;

namespace ob {

QString ReadingText(const QString& path)
{
    return u"Reading %1..."_s.arg(NameOf(path));
}

std::optional<cDIBSection> ReadPicture(const QString& path)
{
    return RunPatiently(ReadingText(path), [path] { return LoadPicture(path); });
}

} // namespace ob
