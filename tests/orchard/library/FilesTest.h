// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders for tests of the library, in a folder of the test's own.
#pragma once

#include "orchard/library/LibraryTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <vector>

#include "orchard/library/cFiles.h"

inline QByteArray BytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

inline void WriteFile(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

inline QByteArray NamesOf(const std::vector<ob::basic::FolderEntry>& entries)
{
    QByteArray names;
    for (const ob::basic::FolderEntry& entry : entries)
        names += Shown(entry.name) + ' ';
    return names;
}
