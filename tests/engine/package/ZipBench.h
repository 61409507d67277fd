// SPDX-License-Identifier: GPL-3.0-or-later
// Shared by the tests of archives and packages: creating files, and reading archives with other programs.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

struct ProgramEnd {
    int status = -1;
    QByteArray out;
    QByteArray error;
};

inline ProgramEnd RunProgram(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(200'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

inline void PutFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable(QStringLiteral("cannot be written: ") + path), __FILE__, __LINE__);
}

inline QByteArray GetFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(cannot be read)");
}

inline void SetTime(const QString& path, const QDateTime& time)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(time, QFileDevice::FileModificationTime))
        QTest::qFail(qPrintable(QStringLiteral("has no time: ") + path), __FILE__, __LINE__);
}

// Bytes that no compression makes smaller; always the same.
inline QByteArray NoiseBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint64 state = 88172645463325252U;
    for (char& byte : bytes) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        byte = static_cast<char>(state >> 32);
    }
    return bytes;
}

// The names in a folder, including hidden ones, in a fixed case-insensitive order.
inline QStringList NamesIn(const QString& folder)
{
    QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort);
    names.sort(Qt::CaseSensitive);
    return names;
}

// The names in an archive, in its order, after two other programs have checked all of it.
inline QStringList NamesInZip(const QString& archive)
{
    const ProgramEnd checked = RunProgram(QStringLiteral("unzip"), {QStringLiteral("-tq"), archive});
    if (checked.status != 0)
        QTest::qFail(("unzip: " + checked.out + checked.error).constData(), __FILE__, __LINE__);
    // Not every build machine has Python with its archive module.
    const QString python = QStringLiteral("/usr/bin/python3");
    const QString test = QStringLiteral("import sys, zipfile\n"
                                        "sys.exit(zipfile.ZipFile(sys.argv[1]).testzip() is not None)");
    static const bool hasPython =
        RunProgram(python, {QStringLiteral("-c"), QStringLiteral("import zipfile")}).status == 0;
    if (hasPython) {
        const ProgramEnd read = RunProgram(python, {QStringLiteral("-c"), test, archive});
        if (read.status != 0)
            QTest::qFail(("python: " + read.error).constData(), __FILE__, __LINE__);
    }
    const ProgramEnd listed = RunProgram(QStringLiteral("zipinfo"), {QStringLiteral("-1"), archive});
    return QString::fromUtf8(listed.out).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

inline QByteArray FileInZip(const QString& archive, const QString& name)
{
    return RunProgram(QStringLiteral("unzip"), {QStringLiteral("-p"), archive, name}).out;
}
