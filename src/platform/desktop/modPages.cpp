// SPDX-License-Identifier: GPL-3.0-or-later
// Pages and help files.
#include "platform/desktop/modPages.h"

#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"

#include <QDesktopServices>
#include <QUrl>

namespace ob {

static PageEnd Open(const QUrl& url)
{
    return QDesktopServices::openUrl(url) ? PageEnd::Opened : PageEnd::Failed;
}

PageEnd OpenPage(const QString& address)
{
    return Open(QUrl(address));
}

PageEnd OpenFileWithSystem(const QString& path)
{
    return FileExists(path) ? Open(QUrl::fromLocalFile(AbsolutePathOf(path))) : PageEnd::Failed;
}

} // namespace ob
