// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write snippets" as a process.
#include "obtool/RunObtool.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char Usage[] = "usage: obtool write snippets DIR";
const QString Data = u"" OB_TEST_DATA "/obtool/snippets/"_s;

Outcome Run(const QStringList& arguments)
{
    return RunObtool(QStringList{u"write"_s, u"snippets"_s} + arguments);
}

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QStringList Names(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

class tst_obtoolSnippets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSixDefaultsAreWritten_data()
    {
        QTest::addColumn<bool>("folderIsThere");
        QTest::newRow("into a folder") << true;
        QTest::newRow("into a new folder") << false;
    }

    void theSixDefaultsAreWritten()
    {
        QFETCH(bool, folderIsThere);
        const QTemporaryDir top;
        const QString folder = top.filePath(QString::fromUtf8("my snïps"));
        if (folderIsThere)
            QVERIFY(QDir().mkdir(folder));
        const Outcome outcome = Run({folder});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray());
        QCOMPARE(outcome.error, QByteArray());
        QCOMPARE(Names(folder), Names(Data));
        QCOMPARE(Names(folder).size(), 6);
        for (const QString& name : Names(Data))
            QCOMPARE(Get(folder + QLatin1Char('/') + name), Get(Data + name));
    }

    void olderFilesAreReplacedAndOthersStay()
    {
        const QTemporaryDir folder;
        Put(folder.filePath(u"play_midi.snip"_s), "old");
        Put(folder.filePath(u"mine.snip"_s), "mine");
        QCOMPARE(Run({folder.path()}).status, 0);
        QCOMPARE(Get(folder.filePath(u"play_midi.snip"_s)), Get(Data + u"play_midi.snip"_s));
        QCOMPARE(Get(folder.filePath(u"mine.snip"_s)), QByteArray("mine"));
    }

    void aFolderThatCannotBeMadeIsAFailure()
    {
        const QTemporaryDir top;
        const QString inGone = top.filePath(u"gone/new"_s);
        const QString file = top.filePath(u"file"_s);
        Put(file, "x");
        for (const QString& path : {inGone, file}) {
            const Outcome outcome = Run({path});
            QCOMPARE(outcome.status, 1);
            QCOMPARE(outcome.error, "obtool: " + path.toUtf8() + ": the folder cannot be made\n");
        }
        QCOMPARE(Get(file), QByteArray("x"));
    }

    void aFileThatCannotBeWrittenIsAFailure()
    {
        const QTemporaryDir folder;
        const QString inTheWay = folder.filePath(u"center_dialog.snip"_s);
        QVERIFY(QDir().mkdir(inTheWay));
        const Outcome outcome = Run({folder.path()});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.error, "obtool: " + inTheWay.toUtf8() + ": Path/File access error\n");
    }

    void wrongUsageIsStatus2()
    {
        for (const QStringList& arguments :
             {QStringList(), QStringList{QString()}, QStringList{u"a"_s, u"b"_s}, QStringList{u"a"_s, u"--bogus"_s}}) {
            const Outcome outcome = Run(arguments);
            QCOMPARE(outcome.status, 2);
            QVERIFY2(outcome.error.endsWith(QByteArray("\n") + Usage + "\n"), outcome.error.constData());
        }
    }

    void helpOpensWithTheUsage()
    {
        const Outcome outcome = Run({u"--help"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY2(outcome.out.split('\n').contains(Usage), outcome.out.constData());
    }
};

QTEST_GUILESS_MAIN(tst_obtoolSnippets)
#include "tst_obtoolSnippets.moc"
