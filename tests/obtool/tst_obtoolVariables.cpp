// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool source variables" as a process.
#include "obtool/RunObtool.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

Outcome Run(const QStringList& arguments, const QByteArray& input = {})
{
    return RunObtool(QStringList{u"source"_s, u"variables"_s} + arguments, input);
}

Outcome Report(const QByteArray& source)
{
    return Run({u"-"_s}, source);
}

} // namespace

class tst_obtoolVariables : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAndLinesFromZeroAreReportedInScanOrder()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"my game.bas"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("zoo = 1\r\n\r\nif a=1 then b=2\r\n  cow$ = \"x = 5\"\r\nend\r\n");
        file.close();
        const Outcome outcome = Run({path});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray("zoo\t0\na\t2\nb\t2\ncow$\t3\n"));
        QCOMPARE(outcome.error, QByteArray());
    }

    void ansiNamesAreReportedAsUtf8()
    {
        QCOMPARE(Report("gr\xF6\xDF"
                        "e = 1\r\n\x80uro = 2\r\nend\r\n")
                     .out,
                 QByteArray("gr\xC3\xB6\xC3\x9F"
                            "e\t0\n\xE2\x82\xACuro\t1\n"));
    }

    void aTabAndAnEmptyNameStayAsTheyAre()
    {
        QCOMPARE(Report("a\tb = 1\r\nab: = 2\r\nend\r\n").out, QByteArray("a\tb\t0\n\t1\n"));
    }

    // As in the code window, loading drops the file's last two bytes, and the scan two characters of the last line.
    void theEndOfTheFileIsCutAsInTheCodeWindow()
    {
        QCOMPARE(Report("total = 5\r\n").out, QByteArray("total\t0\n"));
        QCOMPARE(Report("total=5\r\n").out, QByteArray());
        QCOMPARE(Report("total = 5").out, QByteArray());
        QCOMPARE(Report("\xFC"
                        "b=\xE4\xE4\xE4\r\n")
                     .out,
                 QByteArray("\xC3\xBC"
                            "b\t0\n"));
    }

    void otherLineEndsCountToo()
    {
        QCOMPARE(Report("ab=1\ncd=2\ref=3\r\nend\n\n").out, QByteArray("ab\t0\ncd\t1\nef\t2\n"));
    }

    void aProgramWithoutVariablesGivesAnEmptyReport()
    {
        const Outcome outcome = Report("print 1\r\n");
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray());
    }

    void aMissingFileFails()
    {
        const Outcome outcome = Run({u"/nowhere/missing.bas"_s});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.out, QByteArray());
        QVERIFY(outcome.error.startsWith("obtool: /nowhere/missing.bas: "));
        QCOMPARE(outcome.error.count('\n'), 1);
    }

    void aFileOfOneByteFails() { QCOMPARE(Report("x").status, 1); }

    void withoutAFileItIsWrongUsage()
    {
        const Outcome outcome = Run({});
        QCOMPARE(outcome.status, 2);
        QVERIFY(outcome.error.contains("usage: obtool source variables FILE\n"));
    }
};

QTEST_APPLESS_MAIN(tst_obtoolVariables)
#include "tst_obtoolVariables.moc"
