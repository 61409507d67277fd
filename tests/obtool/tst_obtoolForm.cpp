// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool form" as a process: the programs and forms written, the failures and notes reported.
#include "obtool/RunObtool.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Samples = u"" OB_TEST_DATA "/../../samples/"_s;
const QString Programs = u"" OB_TEST_DATA "/forms/"_s;

constexpr char CompileUsage[] = "usage: obtool form compile FORM [--simple] [--date TEXT] [--comments FILE] [-o OUT]";
constexpr char SaveUsage[] = "usage: obtool form save FORM OUT";
constexpr char CheckUsage[] = "usage: obtool form check FORM";
constexpr char BitmapNote[] = "Code contains at least one bmpbutton that has no valid bitmap file "
                              "associated.  Please correct this in the code generated.\n";
constexpr char OneButton[] = "Window|T|1|2|3|4|h|0|f *8\r\nbutton|B|0|0|150|150||\r\n";

Outcome Run(const QStringList& arguments, const QByteArray& input = {})
{
    return RunObtool(QStringList{u"form"_s} + arguments, input);
}

Outcome RunLine(const char* line, const QByteArray& input = {})
{
    return Run(WordsOf(line), input);
}

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

QByteArray Get(const char* name)
{
    return Get(QString::fromLatin1(name));
}

void Put(const char* name, const QByteArray& bytes)
{
    QFile file(QString::fromLatin1(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class tst_obtoolForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
    }
    void cleanup()
    {
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    // --- Compile. ---

    void samplesGiveTheirPrograms_data()
    {
        QTest::addColumn<QString>("sample");
        QTest::addColumn<QByteArray>("note");
        for (const char* name : {"address-book", "drawing", "about-dialog"})
            QTest::newRow(name) << QString::fromLatin1(name) << QByteArray();
        QTest::newRow("every-control") << u"every-control"_s << QByteArray(BitmapNote);
    }

    void samplesGiveTheirPrograms()
    {
        QFETCH(QString, sample);
        QFETCH(QByteArray, note);
        const QString form = Samples + sample + u".obf"_s;
        const QStringList arguments{u"compile"_s, form, u"--date"_s, u"2026-11-21"_s};
        const Outcome outline = Run(arguments);
        QCOMPARE(outline.status, 0);
        QCOMPARE(outline.out, Get(Programs + sample + u".bas"_s));
        const QByteArray whole = note.isEmpty() ? note : "obtool: note: " + form.toLocal8Bit() + ": " + note;
        QCOMPARE(outline.error, whole);

        const Outcome simple = Run(arguments + WordsOf("--simple -o program.bas"));
        QCOMPARE(simple.status, 0);
        QCOMPARE(simple.out, QByteArray());
        QCOMPARE(simple.error, whole);
        QCOMPARE(Get("program.bas"), Get(Programs + sample + u"-simple.bas"_s));

        QCOMPARE(RunLine("compile - --date 2026-11-21", Get(form)).out, outline.out);
    }

    void theDateIsWrittenAsGiven()
    {
        const QByteArray start = "'** Created by Orchard Bench - ";
        QVERIFY(Run({u"compile"_s, u"-"_s, u"--date"_s, {}}).out.startsWith(start + "\r\n'** Window Title\r\n"));
        const Outcome result = Run({u"compile"_s, u"-"_s, u"--date"_s, u"1. M\u00E4rz \u20AC"_s});
        QVERIFY2(result.out.startsWith(start + "1. M\xE4rz \x80\r\n"), result.out.constData());
    }

    void withoutADateItIsTodays()
    {
        const QByteArray line = RunLine("compile -").out.split('\r').first();
        const QDate today = QDate::currentDate();
        QVERIFY2(line.contains(QByteArray::number(today.year())), line.constData());
        QVERIFY2(line.contains(QByteArray::number(today.day())), line.constData());
    }

    void commentsComeFirst_data()
    {
        QTest::addColumn<QByteArray>("file"); // "-": none
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("text") << QByteArray("'by \x80\r\n'me\r\n") << QByteArray("'by \x80\r\n'me\r\n\r\n\r\n'** C");
        QTest::newRow("shorter than a line end") << QByteArray("x") << QByteArray("\r\n\r\n\r\n'** C");
        QTest::newRow("empty") << QByteArray() << QByteArray("'no programmer's comments on file\r\n\r\n\r\n'** C");
        QTest::newRow("missing") << QByteArray("-") << QByteArray("'no programmer's comments on file\r\n\r\n\r\n'** C");
        QTest::newRow("one byte") << QByteArray("'") << QByteArray("\r\n\r\n\r\n'** C");
    }

    void commentsComeFirst()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, start);
        if (file != "-")
            Put("my.txt", file);
        Put("a.obf", OneButton);
        const Outcome result = RunLine("compile a.obf --comments my.txt");
        QCOMPARE(result.status, 0);
        QVERIFY2(result.out.startsWith(start), result.out.constData());
        QCOMPARE(result.error, QByteArray());
        if (file != "-")
            QVERIFY(RunLine("compile a.obf --comments -", file).out.startsWith(start));
    }

    void aFormWithoutAFileIsNotAProgram()
    {
        Put("out.bas", "old");
        const Outcome result = RunLine("compile gone.obf -o out.bas");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: gone.obf: Error loading form.\n"));
        QCOMPARE(Get("out.bas"), QByteArray("old"));
    }

    void anExistingBitmapGivesNoNote()
    {
        Put("b.bmp", QByteArray::fromHex("424d3a0000000000000036000000280000000100000001000000010018000000000004000000"
                                         "00000000000000000000000000000000ff000000"));
        Put("a.obf", "bmpbutton|b.bmp|0|0|0|0|n|b\r\n");
        const Outcome result = RunLine("compile a.obf");
        QCOMPARE(result.status, 0);
        QVERIFY(result.out.contains("bmpbutton   #main.n, \"b.bmp\",[b],UL, 0, 0\r\n"));
        QCOMPARE(result.error, QByteArray());
    }

    // --- Save. ---

    void aSampleSavedIsTheSame_data()
    {
        QTest::addColumn<QString>("sample");
        for (const QString& name : QDir(Samples).entryList({u"*.obf"_s}))
            QTest::newRow(qPrintable(name)) << name;
    }

    void aSampleSavedIsTheSame()
    {
        QFETCH(QString, sample);
        const Outcome result = Run({u"save"_s, Samples + sample, u"out.obf"_s});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out + result.error, QByteArray());
        QCOMPARE(Get("out.obf"), Get(Samples + sample));
    }

    void aSaveFillsInWhatIsMissing()
    {
        Put("a.obf", OneButton);
        QCOMPARE(RunLine("save a.obf a.obf").status, 0);
        const QByteArray saved = "defaults|Black|Buttonface|White|White|White|White|False|False|False|-1|True\r\n"
                                 "Window|T| 1| 2| 3| 4|h|-2147483633|f *8|False|-1|True\r\n"
                                 "button|B| 0| 0| 150| 150|button1|button1.click|none|False|-1|True\r\n\r\n";
        QCOMPARE(Get("a.obf"), saved);
        QCOMPARE(RunLine("save - b.obf", OneButton).status, 0);
        QCOMPARE(Get("b.obf"), saved);
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
    }

    void bytesAbove127ComeThrough()
    {
        Put("a.obf", "checkbox|\x80\x81\xE4\xFF|1|2|3|4|n|b\r\n");
        QCOMPARE(RunLine("save a.obf b.obf").status, 0);
        QVERIFY(Get("b.obf").contains("\r\ncheckbox|\x80\x81\xE4\xFF| 1| 2| 3| 4|n|b|none|"));
        QVERIFY(RunLine("compile a.obf").out.contains("\"\x80\x81\xE4\xFF\",[b],"));
    }

    void elevenPanelsAreNotSaved()
    {
        Put("a.obf", "defaults|A|B|C|D|E|F|0|1\r\nstatusbar|11|a|b|c|d|e|f|g|h|i|j|k\r\n");
        Put("b.obf", "old");
        const Outcome result = RunLine("save a.obf b.obf");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: a.obf: Subscript out of range\n"));
        QCOMPARE(Get("b.obf"), QByteArray("old"));
        QVERIFY(RunLine("compile a.obf").out.contains("    Call ChangeStatusText hBar, 10, \"k\"\r\n"));
    }

    // --- Check, and files that are not forms. ---

    void aGoodFormChecksSilently()
    {
        for (const QString& name : QDir(Samples).entryList({u"*.obf"_s})) {
            const Outcome result = Run({u"check"_s, Samples + name});
            QCOMPARE(result.status, 0);
            QCOMPARE(result.out + result.error, QByteArray());
        }
        QCOMPARE(RunLine("check -").status, 0);
    }

    void eachVerbReportsABadForm_data()
    {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<QByteArray>("reason");
        const QByteArray corrupt = "OBF file is corrupt.";
        const QByteArray failed = "Error loading form.";
        QTest::newRow("unknown first field") << QByteArray("open|Window Title|0|0|0|0|h|0|f\r\n") << corrupt;
        QTest::newRow("BASIC") << QByteArray("print 1\r\n") << corrupt;
        QTest::newRow("a missing field") << QByteArray("button|B|1|2\r\n") << failed;
        QTest::newRow("not a number") << QByteArray("button|B|x|2|3|4|n|b\r\n") << failed;
        QTest::newRow("22 items") << "menu|&File|" + QByteArray("*").repeated(21) << failed;
        QTest::newRow("a bar in a caption") << QByteArray("button|a|b|1|2|3|4|n|b\r\n") << failed;
        QTest::newRow("a missing bitmap") << QByteArray("bmpbutton|gone.bmp|1|2|3|4|n|b\r\n") << failed;
        QTest::newRow("not a bitmap") << QByteArray("bmpbutton|a.obf|1|2|3|4|n|b\r\n") << failed;
    }

    void eachVerbReportsABadForm()
    {
        QFETCH(QByteArray, form);
        QFETCH(QByteArray, reason);
        Put("a.obf", form);
        Put("out", "old");
        for (const char* line : {"check a.obf", "save a.obf out", "compile a.obf -o out", "compile a.obf --simple"}) {
            const Outcome result = RunLine(line);
            QCOMPARE(result.status, 1);
            QCOMPARE(result.out, QByteArray());
            QCOMPARE(result.error, "obtool: a.obf: " + reason + '\n');
        }
        QCOMPARE(Get("out"), QByteArray("old"));
        QCOMPARE(RunLine("check -", form).error, "obtool: -: " + reason + '\n');
    }

    void whatCannotBeReadOrWrittenIsReported_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("error");
        const auto row = [](const char* arguments, const char* error) {
            QTest::newRow(arguments) << QByteArray(arguments) << QByteArray(error);
        };
        row("check gone.obf", "gone.obf: Error loading form.");
        row("check .", ".: Error loading form.");
        row("save gone.obf x", "gone.obf: Error loading form.");
        row("save a.obf .", ".: Path/File access error");
        row("save a.obf gone/x", "gone/x: Path not found");
        row("compile a.obf -o gone/x", "gone/x: Path not found");
#ifdef Q_OS_UNIX
        row("check pipe", "pipe: Error loading form.");
#endif
#ifdef Q_OS_LINUX
        row("save a.obf /dev/full", "/dev/full: Disk full");
#endif
    }

    void whatCannotBeReadOrWrittenIsReported()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, error);
        Put("a.obf", OneButton);
#ifdef Q_OS_UNIX
        QCOMPARE(mkfifo("pipe", 0600), 0);
#endif
        const Outcome result = RunLine(arguments.constData());
        QCOMPARE(result.error, "obtool: " + error + '\n');
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
    }

    // --- Usage. ---

    void wrongUsageIsStatus2WithTheUsageLine_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("usage");
        const auto row = [](const char* arguments, const char* usage) {
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments) << QByteArray(arguments) << QByteArray(usage);
        };
        constexpr char groupUsage[] = "usage: obtool form VERB [OPTIONS] ARGUMENTS";
        row("", groupUsage);
        row("bogus", groupUsage);
        row("compile", CompileUsage);
        row("compile a.obf b.obf", CompileUsage);
        row("compile a.obf --bogus", CompileUsage);
        row("compile a.obf --simple x", CompileUsage);
        row("compile a.obf --date", CompileUsage);
        row("compile a.obf --comments", CompileUsage);
        row("compile a.obf -o", CompileUsage);
        row("save", SaveUsage);
        row("save a.obf", SaveUsage);
        row("save a.obf b.obf c.obf", SaveUsage);
        row("save a.obf -o b.obf", SaveUsage);
        row("check", CheckUsage);
        row("check a.obf b.obf", CheckUsage);
        row("check a.obf -o x", CheckUsage);
    }

    void wrongUsageIsStatus2WithTheUsageLine()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, usage);
        Put("a.obf", OneButton);
        const Outcome result = RunLine(arguments.constData());
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(result.error.endsWith("\n" + usage + "\n"), result.error.constData());
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"a.obf"_s});
    }

    void anEmptyNameIsWrongUsage()
    {
        Put("a.obf", OneButton);
        const QString form = u"a.obf"_s;
        for (const QStringList& arguments :
             {QStringList{u"save"_s, form, {}}, QStringList{u"compile"_s, form, u"-o"_s, {}},
              QStringList{u"compile"_s, form, u"--comments"_s, {}}})
            QCOMPARE(Run(arguments).status, 2);
    }

    void helpNamesTheUsage_data()
    {
        QTest::addColumn<QByteArray>("usage");
        QTest::newRow("compile") << QByteArray(CompileUsage);
        QTest::newRow("save") << QByteArray(SaveUsage);
        QTest::newRow("check") << QByteArray(CheckUsage);
    }

    void helpNamesTheUsage()
    {
        QFETCH(QByteArray, usage);
        const QString verb = QString::fromLatin1(QTest::currentDataTag());
        const Outcome result = Run({verb, u"--help"_s});
        QCOMPARE(result.status, 0);
        QVERIFY2(result.out.split('\n').contains(usage), result.out.constData());
        QVERIFY(Run({u"--help"_s}).out.contains(verb.toLatin1()));
    }

    void optionsEndAfterTwoDashes()
    {
        Put("-a.obf", OneButton);
        QCOMPARE(RunLine("check -- -a.obf").status, 0);
        QCOMPARE(RunLine("save -- -a.obf --simple").status, 0);
        QVERIFY(QFile::exists(u"--simple"_s));
    }

private:
    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_obtoolForm)
#include "tst_obtoolForm.moc"
