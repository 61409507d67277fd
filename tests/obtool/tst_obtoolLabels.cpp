// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool source labels", "comment" and "indent" as processes.
#include "obtool/RunObtool.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The arguments after "obtool source", split at spaces.
Outcome Run(const char* arguments, const QByteArray& input = {})
{
    return RunObtool(QStringList{u"source"_s} + WordsOf(arguments), input);
}

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

const QByteArray Program = "[start]\r\nprint\r\n  sub b x 'twice\r\n[Quit] end\r\n\r\nfunction A(x)\r\nend\r\n";

} // namespace

class tst_obtoolLabels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Labels. ---

    void labelsAreReportedInTextOrder()
    {
        const Outcome outcome = Run("labels -", Program);
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray("1\t[start]\n3\tsub b x 'twice\n4\t[Quit] end\n6\tfunction A(x)\n"));
        QCOMPARE(outcome.error, QByteArray());
    }

    void sortedLabelsAreReportedInTheOrderOfTheSortedList()
    {
        QCOMPARE(Run("labels - --sorted", Program).out,
                 QByteArray("4\t[Quit] end\n1\t[start]\n6\tfunction A(x)\n3\tsub b x 'twice\n"));
        QCOMPARE(Run("labels --sorted -", "[b]\r\n[A]\r\n[B]\r\n[_]\r\nx\r\n").out,
                 QByteArray("4\t[_]\n2\t[A]\n1\t[b]\n3\t[B]\n"));
    }

    void theEndOfTheFileIsCutAsInTheCodeWindow()
    {
        // Loading drops two bytes, and the scan two characters of the last line.
        QCOMPARE(Run("labels -", "[start]\r\n").out, QByteArray("1\t[star\n"));
        QCOMPARE(Run("labels -", "[start]  \r\n").out, QByteArray("1\t[start]\n"));
        QCOMPARE(Run("labels -", "[start]").out, QByteArray("1\t[st\n"));
        QCOMPARE(Run("labels -", "[\xE4\xF6\xFC]\r\n").out, QByteArray("1\t[\xC3\xA4\xC3\xB6\n"));
    }

    void ansiLabelsAreReportedAsUtf8AndTabsStay()
    {
        QCOMPARE(Run("labels -", "[gr\xFC\xDF"
                                 "e]\tx\r\n[\x80]\r\nend\r\n")
                     .out,
                 QByteArray("1\t[gr\xC3\xBC\xC3\x9F"
                            "e]\tx\n2\t[\xE2\x82\xAC]\n"));
    }

    void aProgramWithoutLabelsGivesAnEmptyReport()
    {
        const Outcome outcome = Run("labels -", "\r\n");
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray());
    }

    // --- Comment. ---

    void linesAreCommentedAndUncommented()
    {
        const Outcome outcome = Run("comment - 2 3", "a\r\nb\r\n  c\r\nd\r\n\r\n");
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray("a\r\n'b\r\n'  c\r\nd\r\n"));
        QCOMPARE(outcome.error, QByteArray());
        QCOMPARE(Run("comment - 2 3", "a\r\n'b\r\n  'c\r\nd\r\n\r\n").out, QByteArray("a\r\nb\r\n  c\r\nd\r\n"));
    }

    void theLastLineLosesTwoBytesOfTheAnsiText()
    {
        QCOMPARE(Run("comment - 1 2", "a\r\nb\xE4\xF6\xFC\r\n").out, QByteArray("'a\r\n'b\xE4"));
        QCOMPARE(Run("comment - 1 1", "\r\n").out, QByteArray());
    }

    void theEmptyLineAfterTheLastLineEndCounts()
    {
        QCOMPARE(Run("comment - 1 2", "a\r\n\r\n").out, QByteArray("'a\r\n"));
        QCOMPARE(Run("comment - 2 2", "a\r\n\r\n").out, QByteArray("a\r\n"));
        QCOMPARE(Run("comment - 3 3", "a\r\n\r\n").status, 1);
    }

    void everyByteSurvives()
    {
        QByteArray all;
        for (int byte = 0; byte < 256; ++byte)
            if (byte != '\r' && byte != '\n')
                all.append(static_cast<char>(byte));
        QCOMPARE(Run("comment - 1 1", all + "\r\nx\r\n").out, "'" + all + "\r\nx");
        QCOMPARE(Run("indent - 1 --tab 4", " " + all + "\r\nx\r\n").out, " " + all + "\r\n \r\nx");
    }

    // --- Indent. ---

    void returnIndentsTheNewLine()
    {
        const Outcome outcome = Run("indent - 2 --tab 3", "a\r\n for i = 1 to 2\r\nb\r\n");
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out, QByteArray("a\r\n for i = 1 to 2\r\n    \r\nb"));
        QCOMPARE(outcome.error, QByteArray());
        QCOMPARE(Run("indent --tab 4 - 1", "  a\r\n").out, QByteArray("  a\r\n  "));
        QCOMPARE(Run("indent --tab 4 - 1", "do\r\n").out, QByteArray("do\r\n"));
        QCOMPARE(Run("indent --tab 4 - 2", "a\r\n\r\n").out, QByteArray("a\r\n\r\n"));
    }

    // --- OUT, failures, wrong usage. ---

    void outTakesTheText()
    {
        const QTemporaryDir folder;
        QDir::setCurrent(folder.path());
        Put(u"in.bas"_s, "a\r\nb\r\n");
        QCOMPARE(Run("comment in.bas 1 1 -o out.bas").status, 0);
        QCOMPARE(Get(u"out.bas"_s), QByteArray("'a\r\nb"));
        QCOMPARE(Run("indent in.bas 1 --tab 2 -o out.bas").status, 0);
        QCOMPARE(Get(u"out.bas"_s), QByteArray("a\r\n\r\nb"));
        QCOMPARE(Run("comment in.bas 1 5 -o out.bas").status, 1);
        QCOMPARE(Get(u"out.bas"_s), QByteArray("a\r\n\r\nb"));
        QCOMPARE(Get(u"in.bas"_s), QByteArray("a\r\nb\r\n"));
        QDir::setCurrent(QDir::rootPath());
    }

    void linesOutsideTheTextFail_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("reason");
        const auto row = [](const char* arguments, const char* reason) {
            QTest::newRow(arguments) << QByteArray(arguments) << QByteArray(reason);
        };
        row("comment - 0 1", "obtool: -: the text has no line 0\n");
        row("comment - 1 4", "obtool: -: the text has no line 4\n");
        row("comment - 9999999999 9999999999", "obtool: -: the text has no line 9999999999\n");
        row("comment - 3 2", "obtool: -: the last line comes before the first\n");
        row("comment - 2 0", "obtool: -: the text has no line 0\n");
        row("indent - 0 --tab 4", "obtool: -: the text has no line 0\n");
        row("indent - 4 --tab 4", "obtool: -: the text has no line 4\n");
    }

    void linesOutsideTheTextFail()
    {
        QFETCH(QByteArray, arguments);
        const Outcome outcome = Run(arguments.constData(), "a\r\nb\r\nc\r\n");
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.out, QByteArray());
        QTEST(outcome.error, "reason");
    }

    void filesThatCannotBeReadFail_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        for (const char* arguments :
             {"labels /nowhere/a.bas", "comment /nowhere/a.bas 1 1", "indent /nowhere/a.bas 1 --tab 4"})
            QTest::newRow(arguments) << QByteArray(arguments);
    }

    void filesThatCannotBeReadFail()
    {
        QFETCH(QByteArray, arguments);
        const Outcome outcome = Run(arguments.constData());
        QCOMPARE(outcome.status, 1);
        QVERIFY(outcome.error.startsWith("obtool: /nowhere/a.bas: "));
        QCOMPARE(outcome.error.count('\n'), 1);
        QCOMPARE(Run(QByteArray(arguments).replace("/nowhere/a.bas", "-").constData(), "x").status, 1);
    }

    void wrongUsageIsReported_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("usage");
        const auto row = [](const char* arguments, const char* usage) {
            QTest::newRow(arguments) << QByteArray(arguments) << QByteArray(usage);
        };
        row("labels", "usage: obtool source labels FILE [--sorted]");
        row("labels - --bogus", "usage: obtool source labels FILE [--sorted]");
        row("comment - 1", "usage: obtool source comment FILE FIRST LAST [-o OUT]");
        row("comment - one 2", "usage: obtool source comment FILE FIRST LAST [-o OUT]");
        row("comment - 1 2 3", "usage: obtool source comment FILE FIRST LAST [-o OUT]");
        row("indent - 1", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
        row("indent - 1 --tab 0", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
        row("indent - 1 --tab four", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
        row("indent - 1 --tab -4", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
        row("indent - 1 --tab", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
        row("indent - 1 --tab 32768", "usage: obtool source indent FILE LINE --tab N [-o OUT]");
    }

    void wrongUsageIsReported()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, usage);
        const Outcome outcome = Run(arguments.constData(), "a\r\nb\r\n");
        QCOMPARE(outcome.status, 2);
        QVERIFY2(outcome.error.split('\n').contains(usage), outcome.error.constData());
        QCOMPARE(outcome.out, QByteArray());
    }
};

QTEST_APPLESS_MAIN(tst_obtoolLabels)
#include "tst_obtoolLabels.moc"
