// SPDX-License-Identifier: GPL-3.0-or-later
// What file boxes take from the program and leave with it.
#include "platform/dialogs/modFileBox.h"

#include <QDir>

#include <utility>

namespace ob {

static FileBoxHost& Host()
{
    static FileBoxHost host;
    return host;
}

void SetFileBoxHost(FileBoxHost host)
{
    Host() = std::move(host);
}

QString FileBoxStart(const QString& folder)
{
    if (!folder.isEmpty() && QDir(folder).exists())
        return folder;
    const QString own = Host().folder ? Host().folder() : QString();
    return own.isEmpty() ? QDir::currentPath() : own;
}

QSize FileBoxSize()
{
    return Host().size ? Host().size() : QSize();
}

void StoreFileBoxSize(const QSize& size)
{
    if (Host().storeSize)
        Host().storeSize(size);
}

} // namespace ob
