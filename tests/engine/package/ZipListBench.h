// SPDX-License-Identifier: GPL-3.0-or-later
// Lists of files in a temporary folder.
#pragma once

#include "engine/package/ZipBench.h"

#include "engine/package/CGZipFiles.h"

namespace ob {

// Files in a temporary folder, which is the current one.
class ZipFolder {
public:
    ZipFolder() : before(QDir::currentPath()) { QDir::setCurrent(folder.path()); }
    ZipFolder(const ZipFolder&) = delete;
    ZipFolder& operator=(const ZipFolder&) = delete;
    ~ZipFolder() { QDir::setCurrent(before); }

    QString At(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void Put(const char* name, const QByteArray& bytes) const { PutFile(At(name), bytes); }

private:
    QTemporaryDir folder;
    QString before;
};

// A list of relative names with the current folder as its root.
inline CGZipFiles ListOf(const QStringList& specs, const QString& archive = QStringLiteral("out.zip"))
{
    CGZipFiles zip;
    zip.RootDirectory = QDir::currentPath();
    zip.ZipFileName = archive;
    for (const QString& spec : specs)
        zip.AddFile(spec);
    return zip;
}

inline QString Out()
{
    return QDir::current().absoluteFilePath(QStringLiteral("out.zip"));
}

inline QStringList Names(const char* names)
{
    return QString::fromUtf8(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace ob
