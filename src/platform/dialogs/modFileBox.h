// SPDX-License-Identifier: GPL-3.0-or-later
// What file boxes take from the program and leave with it, put in place by the bench.
#pragma once

#include <QSize>
#include <QString>

#include <functional>

namespace ob {

struct FileBoxHost {
    std::function<QString()> folder;             // where a box starts that names none; empty: the current directory
    std::function<QSize()> size;                 // in pixels, as the user left the last one; empty: the box's own
    std::function<void(const QSize&)> storeSize; // after the user has changed it
};

// The host of this process; at first one that has nothing.
void SetFileBoxHost(FileBoxHost host);

// Where a box with this folder starts: there, or, if it names none or one that is gone, in the host's folder, or in the
// current directory.
QString FileBoxStart(const QString& folder);

QSize FileBoxSize();
void StoreFileBoxSize(const QSize& size);

} // namespace ob
