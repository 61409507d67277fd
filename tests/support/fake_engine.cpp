// SPDX-License-Identifier: GPL-3.0-or-later
// A stand-in for the language's engine: writes a record of its call and its input next to itself.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

static bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QDir folder(QFileInfo(QString::fromLocal8Bit(argv[0])).absolutePath());

    if (!arguments.isEmpty()) {
        QFile copy(arguments.last());
        if (copy.open(QIODevice::ReadOnly) && !Write(folder.filePath(u"engine.copy"_s), copy.readAll()))
            return 1;
    }
    // The record appears last and complete, so that a reader who sees it finds everything else.
    const QString call = folder.filePath(u"engine.call"_s);
    if (!Write(call + u".new"_s, arguments.join(QLatin1Char('\n')).toLocal8Bit()))
        return 1;
    return QFile::rename(call + u".new"_s, call) ? 0 : 1;
}
