// SPDX-License-Identifier: GPL-3.0-or-later
// obtool source check: its report, and that the engine reads all that the other verbs write.
#include "RunObtool.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString TopFolder = u"" OB_TEST_DATA "/../../"_s;

QByteArray ErrorsOf(const QByteArray& text)
{
    const Outcome outcome = RunObtool({u"source"_s, u"check"_s, u"-"_s}, text);
    return outcome.status == 0 ? outcome.out : "obtool failed: " + outcome.error;
}

QStringList BitsOf(const QString& object, const QStringList& switches)
{
    QStringList arguments = {u"write"_s, u"stylebits"_s, object};
    arguments << switches << u"--list"_s;
    QStringList bits;
    for (const QByteArray& entry : RunObtool(arguments).out.split('\n'))
        if (!entry.trimmed().isEmpty())
            bits << QString::fromLatin1(entry).section(u' ', 0, 0);
    bits.removeDuplicates();
    return bits;
}

} // namespace

class tst_obtoolCheck : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportsLineColumnAndText();
    void aRightProgramHasAnEmptyReport();
    void whatIsWrittenIsReadWithoutAnError_data();
    void whatIsWrittenIsReadWithoutAnError();
    void allStyleBitsAreKnown_data();
    void allStyleBitsAreKnown();
    void snippetsAreReadWithoutAnError();
    void theEngineChecksWithTheSameReader();
};

void tst_obtoolCheck::reportsLineColumnAndText()
{
    QCOMPARE(ErrorsOf("a = 1\r\nb = _\r\n  (2\r\ngoto [\xE9]\r\n"),
             QByteArray("3\t5\tfound the end of the line, expected \")\"\n"
                        "4\t6\tfound \"[\xC3\xA9]\", expected a label of the main program\n"));
    const Outcome missing = RunObtool(WordsOf("source check no-such-file.bas"));
    QCOMPARE(missing.status, 1);
    QVERIFY(missing.out.isEmpty());
}

void tst_obtoolCheck::aRightProgramHasAnEmptyReport()
{
    const Outcome outcome = RunObtool({u"source"_s, u"check"_s, TopFolder + u"samples/guess.bas"_s});
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.out.isEmpty() && outcome.error.isEmpty());
}

void tst_obtoolCheck::whatIsWrittenIsReadWithoutAnError_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* line :
         {"write library wrapper32", "write library printer32", "write library jpeg", "write library snippets",
          "write array --name a --numeric 1 2.5 -3", "write array --name n Mon Tue it's",
          "write messagebox --icon critical --buttons yesnocancel --title T --message M", "write messagebox",
          "write menu --name File Open=[open] | Quit=[quit]", "write menu --popup A=[a] | B=[b]",
          "write toolbar --bitmap x.bmp [a]=One [b]=Two",
          "write toolbar --bitmap x.bmp --existing #main --style flat [a]=One",
          "write toolbar --bitmap x.bmp --style raised --border thick [a]=One", "write texteditor", "write media x.wav",
          "write media x.mid", "write media x.avi", "write media --path x.mp3"})
        QTest::newRow(line) << WordsOf(line);
    const QStringList pictures = {u"" OB_TEST_DATA "/avi/color1.bmp"_s, u"" OB_TEST_DATA "/avi/color2.bmp"_s};
    QTest::newRow("write loadbmp") << QStringList{u"write"_s, u"loadbmp"_s} + pictures;
    QTest::newRow("write loadbmp --dll --path")
        << QStringList{u"write"_s, u"loadbmp"_s, u"--dll"_s, u"--path"_s} + pictures;
    const QStringList forms = QDir(TopFolder + u"samples"_s).entryList({u"*.obf"_s});
    QVERIFY(!forms.isEmpty());
    for (const QString& form : forms) {
        const QString path = TopFolder + u"samples/"_s + form;
        QTest::newRow(qPrintable(form)) << QStringList{u"form"_s, u"compile"_s, path};
        QTest::newRow(qPrintable(form + u" simple"_s)) << QStringList{u"form"_s, u"compile"_s, u"--simple"_s, path};
    }
}

void tst_obtoolCheck::whatIsWrittenIsReadWithoutAnError()
{
    QFETCH(QStringList, arguments);
    const Outcome written = RunObtool(arguments);
    QCOMPARE(written.status, 0);
    QVERIFY(!written.out.isEmpty());
    QCOMPARE(ErrorsOf(written.out), QByteArray());
}

void tst_obtoolCheck::allStyleBitsAreKnown_data()
{
    QTest::addColumn<QString>("object");
    for (const char* object : {"Button", "Checkbox", "Combobox", "Dialog", "Graphicbox", "Groupbox", "Listbox",
                               "Radiobutton", "StaticText", "Textbox", "Window"})
        QTest::newRow(object) << QString::fromLatin1(object);
}

void tst_obtoolCheck::allStyleBitsAreKnown()
{
    QFETCH(QString, object);
    for (const QStringList& switches : {QStringList(), QStringList{u"--extended"_s}}) {
        const QStringList bits = BitsOf(object, switches);
        QVERIFY(!bits.isEmpty());
        const Outcome written = RunObtool(QStringList{u"write"_s, u"stylebits"_s, object} + switches + bits);
        QCOMPARE(written.status, 0);
        QVERIFY(written.out.contains(bits.back().toLatin1()));
        QCOMPARE(ErrorsOf(written.out), QByteArray());
    }
}

void tst_obtoolCheck::snippetsAreReadWithoutAnError()
{
    QTemporaryDir folder;
    QCOMPARE(RunObtool({u"write"_s, u"snippets"_s, folder.path()}).status, 0);
    const QStringList names = QDir(folder.path()).entryList(QDir::Files);
    QVERIFY(names.size() >= 6);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(ErrorsOf(file.readAll()).isEmpty(), qPrintable(name));
    }
}

void tst_obtoolCheck::theEngineChecksWithTheSameReader()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(u"two words.bas"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("a = (1\nprint \"x\" : next\n");
    file.close();
    Surroundings surroundings;
    surroundings.program = QStringLiteral(OB_BIN "/orchard");
    surroundings.folder = folder.path();
    const Outcome wrong = RunObtool({u"--check"_s, u"two"_s, u"words.bas"_s}, surroundings);
    QCOMPARE(wrong.error, QByteArray("two words.bas:1:7: found the end of the line, expected \")\"\n"
                                     "two words.bas:2:13: found \"next\", expected \"for\" before it\n"));
    QCOMPARE(wrong.status, 2);
    QVERIFY(wrong.out.isEmpty());

    const Outcome right = RunObtool({u"--check"_s, TopFolder + u"samples/guess.bas"_s}, surroundings);
    QCOMPARE(right.status, 0);
    QVERIFY(right.out.isEmpty() && right.error.isEmpty());
    QCOMPARE(RunObtool({u"--check"_s, u"missing.bas"_s}, surroundings).status, 2);
}

QTEST_GUILESS_MAIN(tst_obtoolCheck)
#include "tst_obtoolCheck.moc"
