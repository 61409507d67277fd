// SPDX-License-Identifier: GPL-3.0-or-later
// obtool as a process: its output and files, and its exit status.
#include "obtool/RunObtool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Data = u"" OB_TEST_DATA "/obtool/"_s;
const QString RunCopyCases = u"" OB_TEST_DATA "/runcopy/"_s;

constexpr char StylesUsage[] = "usage: obtool source styles FILE";
constexpr char RunCopyUsage[] = "usage: obtool source runcopy FILE [--folder DIR] [-o OUT]";
constexpr char SyntaxUsage[] = "usage: obtool source syntax [TERM]";
constexpr char KeywordsUsage[] = "usage: obtool source keywords [--lexer]";
constexpr char LibraryUsage[] = "usage: obtool write library wrapper32|printer32|jpeg|snippets";

Outcome Run(const QStringList& arguments, const QByteArray& input = {}, const QString& program = Obtool)
{
    Surroundings surroundings;
    surroundings.input = input;
    surroundings.program = program;
    return RunObtool(arguments, surroundings);
}

// Runs obtool through a shell that executes the setup first.
Outcome RunAfter(const char* setup, const char* line)
{
    Surroundings surroundings;
    surroundings.setup = setup;
    return RunObtool(WordsOf(line), surroundings);
}

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

} // namespace

class tst_obtool : public QObject {
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

    // --- Help and version. ---

    void theVersionIsOneLine()
    {
        const Outcome result = Run({u"--version"_s});
        QCOMPARE(result.status, 0);
        const QRegularExpression line(u"^obtool [0-9]+\\.[0-9]+\\.[0-9]+\n$"_s);
        QVERIFY2(line.match(QString::fromUtf8(result.out)).hasMatch(), result.out.constData());
        QCOMPARE(result.error, QByteArray());
    }

    void helpAnswersAtEveryLevel_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("holds");
        QTest::newRow("tool") << QByteArray("--help") << QByteArray("usage: obtool GROUP VERB [OPTIONS] ARGUMENTS");
        QTest::newRow("source") << QByteArray("source --help")
                                << QByteArray("usage: obtool source VERB [OPTIONS] ARGUMENTS");
        QTest::newRow("write") << QByteArray("write --help")
                               << QByteArray("usage: obtool write VERB [OPTIONS] ARGUMENTS");
        QTest::newRow("styles") << QByteArray("source styles --help") << QByteArray(StylesUsage);
        QTest::newRow("runcopy") << QByteArray("source runcopy --help") << QByteArray(RunCopyUsage);
        QTest::newRow("syntax") << QByteArray("source syntax --help") << QByteArray(SyntaxUsage);
        QTest::newRow("keywords") << QByteArray("source keywords --help") << QByteArray(KeywordsUsage);
        QTest::newRow("library") << QByteArray("write library --help") << QByteArray(LibraryUsage);
        QTest::newRow("after arguments") << QByteArray("source runcopy gone.bas --help") << QByteArray(RunCopyUsage);
    }

    void helpAnswersAtEveryLevel()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, holds);
        const Outcome result = Run(WordsOf(arguments.constData()));
        QCOMPARE(result.status, 0);
        QVERIFY2(result.out.split('\n').contains(holds), result.out.constData());
        QCOMPARE(result.error, QByteArray());
    }

    void theHelpOfAGroupNamesItsVerbs()
    {
        const QByteArray help = Run({u"source"_s, u"--help"_s}).out;
        for (const char* verb : {"styles", "runcopy", "syntax", "keywords"})
            QVERIFY2(help.contains(verb), verb);
    }

#ifdef Q_OS_LINUX
    // Most of the start-up time goes into loading libraries, so those of pictures and archives are loaded when needed.
    void textIsReadWithoutTheLibrariesOfPicturesAndArchives()
    {
        Surroundings traced;
        traced.environment.insert(u"LD_TRACE_LOADED_OBJECTS"_s, u"1"_s);
        const Outcome libraries = RunObtool({}, traced);
        QVERIFY2(libraries.out.contains("libQt6Core"), libraries.out.constData());
        for (const char* library : {"libQt6Gui", "libzip", "libcrypto"})
            QVERIFY2(!libraries.out.contains(library), library);
    }
#endif

    void aMissingModuleIsAFailureOfItsGroupsAlone()
    {
        QVERIFY(QFile::copy(Obtool, u"obtool"_s));
        const QString alone = folder->filePath(u"obtool"_s);
        Put("x.bas", "print 1\r\n");
        QCOMPARE(Run(WordsOf("source runcopy x.bas"), {}, alone).status, 0);
        QCOMPARE(Run(WordsOf("--help"), {}, alone).out, Run(WordsOf("--help")).out);
        for (const char* line : {"image info x.bmp", "zip make x.zip x.bas"}) {
            const Outcome result = Run(WordsOf(line), {}, alone);
            QCOMPARE(result.status, 1);
            QCOMPARE(result.out, QByteArray());
            QVERIFY2(result.error.startsWith("obtool: Tool"), result.error.constData());
            QCOMPARE(result.error.count('\n'), 1);
        }
    }

    // --- Wrong usage. ---

    void wrongUsageIsStatus2WithTheUsageLine_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("usage");
        const auto row = [](const char* arguments, const char* usage) {
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments) << QByteArray(arguments) << QByteArray(usage);
        };
        constexpr char toolUsage[] = "usage: obtool GROUP VERB [OPTIONS] ARGUMENTS";
        constexpr char sourceUsage[] = "usage: obtool source VERB [OPTIONS] ARGUMENTS";
        row("", toolUsage);
        row("bogus", toolUsage);
        row("--bogus", toolUsage);
        row("Source styles x.bas", toolUsage);
        row("source", sourceUsage);
        row("source bogus", sourceUsage);
        row("source --bogus", sourceUsage);
        row("source STYLES x.bas", sourceUsage);
        row("source styles", StylesUsage);
        row("source styles --bogus x.bas", StylesUsage);
        row("source styles x.bas --bogus", StylesUsage);
        row("source styles x.bas y.bas", StylesUsage);
        row("source styles -x.bas", StylesUsage);
        row("source styles x.bas --out y", StylesUsage);
        row("source runcopy", RunCopyUsage);
        row("source runcopy x.bas -o", RunCopyUsage);
        row("source runcopy x.bas --folder", RunCopyUsage);
        row("source runcopy x.bas --fold .", RunCopyUsage);
        row("source runcopy x.bas -o a -o b", RunCopyUsage);
        row("source syntax print beep", SyntaxUsage);
        row("source keywords --bogus", KeywordsUsage);
        row("source keywords x", KeywordsUsage);
        row("write library", LibraryUsage);
        row("write library nothing", LibraryUsage);
        row("write library Snippets", LibraryUsage);
        row("write library snippets jpeg", LibraryUsage);
    }

    void wrongUsageIsStatus2WithTheUsageLine()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, usage);
        Put("x.bas", "print 1\r\n");
        const Outcome result = Run(WordsOf(arguments.constData()));
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(result.error.endsWith("\n" + usage + "\n"), result.error.constData());
        QCOMPARE(Entries(), QStringList{u"x.bas"_s});
    }

    void anEmptyNameIsWrongUsage()
    {
        Put("x.bas", "print 1\r\n");
        for (const char* option : {"-o", "--folder"}) {
            const Outcome result = Run({u"source"_s, u"runcopy"_s, u"x.bas"_s, QLatin1String(option), {}});
            QCOMPARE(result.status, 2);
            QCOMPARE(result.out, QByteArray());
            QVERIFY2(result.error.endsWith(QByteArray("\n") + RunCopyUsage + "\n"), result.error.constData());
        }
    }

    // --- Failures. ---

    void failedWorkIsStatus1WithOneLine_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("missing file") << QByteArray("source styles gone.bas")
                                      << QByteArray("gone.bas: File does not exist or is corrupt.");
        QTest::newRow("a folder") << QByteArray("source styles folder") << QByteArray("folder: Path/File access error");
        QTest::newRow("empty file") << QByteArray("source styles empty.bas")
                                    << QByteArray("empty.bas: Invalid procedure call or argument");
        QTest::newRow("one byte") << QByteArray("source runcopy one.bas")
                                  << QByteArray("one.bas: Invalid procedure call or argument");
        QTest::newRow("empty standard input")
            << QByteArray("source runcopy -") << QByteArray("-: Invalid procedure call or argument");
        QTest::newRow("missing include folder")
            << QByteArray("source runcopy x.bas --folder gone") << QByteArray("gone: Path not found");
        QTest::newRow("missing folder of OUT")
            << QByteArray("source runcopy x.bas -o gone/out.bak") << QByteArray("gone/out.bak: Path not found");
        QTest::newRow("OUT is a folder") << QByteArray("source runcopy x.bas -o folder")
                                         << QByteArray("folder: Path/File access error");
    }

    void failedWorkIsStatus1WithOneLine()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, line);
        QDir().mkdir(u"folder"_s);
        Put("x.bas", "print 1\r\n");
        Put("empty.bas", "");
        Put("one.bas", "x");
        const QStringList before = Entries();
        const Outcome result = Run(WordsOf(arguments.constData()));
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, "obtool: " + line + "\n");
        QCOMPARE(Entries(), before);
    }

    void anOlderOutIsKeptWhenTheWorkFails_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::newRow("missing file") << QByteArray("source runcopy gone.bas -o out.bak");
        QTest::newRow("one byte") << QByteArray("source runcopy one.bas -o out.bak");
        QTest::newRow("missing include folder") << QByteArray("source runcopy x.bas --folder gone -o out.bak");
        QTest::newRow("wrong usage") << QByteArray("source runcopy x.bas --bogus -o out.bak");
    }

    void anOlderOutIsKeptWhenTheWorkFails()
    {
        QFETCH(QByteArray, arguments);
        Put("x.bas", "print 1\r\n");
        Put("one.bas", "x");
        Put("out.bak", "older");
        const QStringList before = Entries();
        QVERIFY(Run(WordsOf(arguments.constData())).status != 0);
        QCOMPARE(Get(u"out.bak"_s), QByteArray("older"));
        QCOMPARE(Entries(), before);
    }

#ifdef Q_OS_LINUX
    void aFullStandardOutputIsAFailure_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        for (const char* arguments :
             {"--version", "--help", "source --help", "source styles --help", "source styles x.bas",
              "source runcopy x.bas", "source syntax", "source syntax print", "source keywords",
              "source keywords --lexer", "write library snippets"})
            QTest::newRow(arguments) << QByteArray(arguments);
    }

    void aFullStandardOutputIsAFailure()
    {
        QFETCH(QByteArray, arguments);
        Put("x.bas", "print 1\r\n");
        const Outcome result = RunAfter("exec >/dev/full", arguments.constData());
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: standard output: cannot be written\n"));
    }

    void aFullOutIsAFailure()
    {
        Put("x.bas", "print 1\r\n");
        const Outcome result = Run(WordsOf("source runcopy x.bas -o /dev/full"));
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: /dev/full: Disk full\n"));
    }

    void aFullDiskKeepsAnOlderOut()
    {
        Put("x.bas", QByteArray(100'000, 'x') + "\r\n");
        Put("out.bak", "older");
        const QStringList before = Entries();
        const Outcome result = RunAfter("trap '' XFSZ; ulimit -f 8", "source runcopy x.bas -o out.bak");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: out.bak: Disk full\n"));
        QCOMPARE(Get(u"out.bak"_s), QByteArray("older"));
        QCOMPARE(Entries(), before);
    }

    void aStandardInputThatCannotBeReadIsAFailure()
    {
        const Outcome result = RunAfter("exec <&-", "source runcopy -");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, QByteArray("obtool: -: Bad file descriptor\n"));
    }
#endif

    // --- Files. ---

    void outIsReplacedByANewFile()
    {
        Put("x.bas", "print 1\r\n");
        Put("out.bak", "a much longer older text");
        std::error_code error;
        std::filesystem::create_hard_link("out.bak", "second name", error);
        QVERIFY2(!error, error.message().c_str());
        const Outcome result = Run(WordsOf("source runcopy x.bas -o out.bak"));
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(Get(u"out.bak"_s), QByteArray("print 1 \r\n"));
        QCOMPARE(Get(u"second name"_s), QByteArray("a much longer older text"));
        QCOMPARE(Entries(), (QStringList{u"out.bak"_s, u"second name"_s, u"x.bas"_s}));
    }

    void outMayBeTheFileItself()
    {
        Put("x.bas", "print 1\r\n");
        QCOMPARE(Run(WordsOf("source runcopy -o x.bas x.bas")).status, 0);
        QCOMPARE(Get(u"x.bas"_s), QByteArray("print 1 \r\n"));
    }

    void aDashIsStandardInput()
    {
        Put("lib.bas", "'lib\r\n");
        const QByteArray program = "'include lib.bas\r\nend\r\n";
        const QByteArray copy = "'include lib.bas\r\nend \r\n'*******************************\r\n"
                                "'lib.bas begins here:\r\n\r\n'lib\r\n\r\n";
        Outcome result = Run(WordsOf("source runcopy -"), program);
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, copy);
        QCOMPARE(result.error, QByteArray());

        QDir::setCurrent(QDir::rootPath());
        QCOMPARE(Run(WordsOf("source runcopy -"), program).out, QByteArray("'include lib.bas\r\nend \r\n"));
        result = Run({u"source"_s, u"runcopy"_s, u"--folder"_s, folder->path(), u"-"_s}, program);
        QCOMPARE(result.out, copy);
        QCOMPARE(Run(WordsOf("source styles -"), "end\r\n").out, QByteArray("0\t3\t3\n"));
    }

    void twoDashesEndTheOptions()
    {
        Put("-x.bas", "end\r\n");
        Put("--help", "end\r\n");
        QCOMPARE(Run(WordsOf("source styles -- -x.bas")).out, QByteArray("0\t3\t3\n"));
        QCOMPARE(Run(WordsOf("source styles -- --help")).out, QByteArray("0\t3\t3\n"));
        QCOMPARE(Run(WordsOf("source runcopy -o out.bak -- -x.bas")).status, 0);
        QCOMPARE(Get(u"out.bak"_s), QByteArray("end \r\n"));
        QCOMPARE(Run(WordsOf("source syntax -- --beep")).out, QByteArray("No syntax help available for that term."));
        const Outcome result = Run(WordsOf("source runcopy -- -x.bas -o out.bak"));
        QCOMPARE(result.status, 2);
    }

    void namesMayHoldAnyCharacter_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("spaces") << u" my program .bas"_s;
        QTest::newRow("characters beyond ASCII") << u"\u00DCb\u4E2D.bas"_s;
        QTest::newRow("brackets and commas") << u"[a,b].bas"_s;
        QTest::newRow("quotes") << u"'a\".bas"_s;
        QTest::newRow("equals") << u"a=b.bas"_s;
        QTest::newRow("a verb") << u"styles"_s;
        QTest::newRow("a group") << u"source"_s;
    }

    void namesMayHoldAnyCharacter()
    {
        QFETCH(QString, name);
        Put(name, "end\r\n");
        const Outcome result = Run({u"source"_s, u"styles"_s, name});
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(result.out, QByteArray("0\t3\t3\n"));
        QCOMPARE(Run({u"source"_s, u"runcopy"_s, name, u"-o"_s, name}).status, 0);
        QCOMPARE(Get(name), QByteArray("end \r\n"));
    }

    // --- source. ---

    void stylesAreRunsOfBytes()
    {
        const Outcome result = Run({u"source"_s, u"styles"_s, Data + u"styles.bas"_s});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, Get(Data + u"styles.txt"_s));
        QCOMPARE(result.error, QByteArray());
    }

    void anEmptyTextHasNoStyles()
    {
        Put("x.bas", "\r\n");
        const Outcome result = Run(WordsOf("source styles x.bas"));
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
    }

    void runCopiesAreWholeFiles_data()
    {
        QTest::addColumn<QString>("path");
        const QStringList names = QDir(RunCopyCases).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QVERIFY(names.size() > 20);
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << RunCopyCases + name;
    }

    void runCopiesAreWholeFiles()
    {
        QFETCH(QString, path);
        const QByteArray expected = Get(path + u"/expected.copy"_s);
        Outcome result = Run({u"source"_s, u"runcopy"_s, path + u"/program.bas"_s});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, expected);
        QCOMPARE(result.error, QByteArray());
        result = Run({u"source"_s, u"runcopy"_s, u"-"_s, u"--folder"_s, path, u"-o"_s, u"out.bak"_s},
                     Get(path + u"/program.bas"_s));
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(Get(u"out.bak"_s), expected);
        QDir::setCurrent(path);
        QCOMPARE(Run(WordsOf("source runcopy program.bas")).out, expected);
    }

    void aTermGivesItsTip_data()
    {
        QTest::addColumn<QString>("term");
        QTest::addColumn<QByteArray>("tip");
        QTest::newRow("first row") << u"box"_s << QByteArray("box x y\n'draw box from current pos to x y");
        QTest::newRow("any case") << u"CallBack"_s
                                  << QByteArray("callback addressname, functionname(type1,type2,...typeX), returntype\n"
                                                "'set up a function address for a callback");
        QTest::newRow("two lines of syntax")
            << u"menu"_s
            << QByteArray("menu #h , \"title\", \n\"text\", branchLabel, \"text2\", branchLabel2, . . .etc.\n"
                          "'create a top level menu and menu items");
        QTest::newRow("of two rows the first")
            << u"select"_s << QByteArray("select string$\n'select list item equal to string$");
        QTest::newRow("mark in front") << u"!contents"_s
                                       << QByteArray("!contents varname$ (or) !contents #handle\n'replace text in "
                                                     "texteditor with string or with contents of open file");
        const QByteArray none = "No syntax help available for that term.";
        QTest::newRow("row without a space") << u"txcount(#handle)"_s << none;
        QTest::newRow("no such term") << u"banana"_s << none;
        QTest::newRow("empty") << QString() << none;
        QTest::newRow("a verb") << u"keywords"_s << none;
    }

    void aTermGivesItsTip()
    {
        QFETCH(QString, term);
        QFETCH(QByteArray, tip);
        const Outcome result = Run({u"source"_s, u"syntax"_s, term});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, tip);
        QCOMPARE(result.error, QByteArray());
    }

    void fixedListsAreWrittenWhole_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QString>("file");
        QTest::newRow("syntax") << QByteArray("source syntax") << u"syntax-keys.txt"_s;
        QTest::newRow("keywords") << QByteArray("source keywords") << u"keywords.txt"_s;
        QTest::newRow("keywords of the colouring") << QByteArray("source keywords --lexer") << u"keywords-lexer.txt"_s;
        QTest::newRow("snippets") << QByteArray("write library snippets") << u"snippets.bas"_s;
    }

    void fixedListsAreWrittenWhole()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QString, file);
        const Outcome result = Run(WordsOf(arguments.constData()));
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, Get(Data + file));
        QCOMPARE(result.error, QByteArray());
    }

    void keywordsOfTheUserAreBesideTheTool()
    {
        const QString copy = folder->filePath(u"obtool"_s);
        QVERIFY(QFile::copy(Obtool, copy));
        Put("keywords.txt", "PEAR apple\r\n");
        Put("x.bas", "pear print\r\n");
        QCOMPARE(Run(WordsOf("source styles x.bas"), {}, copy).out, QByteArray("0\t4\t3\n4\t1\t0\n5\t5\t3\n"));
        QCOMPARE(Run(WordsOf("source styles x.bas")).out, QByteArray("0\t4\t7\n4\t1\t0\n5\t5\t3\n"));
        QCOMPARE(Run(WordsOf("source keywords --lexer"), {}, copy).out,
                 "pear apple\r\n" + Get(Data + u"keywords-lexer.txt"_s));
        QCOMPARE(Run(WordsOf("source keywords"), {}, copy).out, Get(Data + u"keywords.txt"_s));
    }

private:
    static void Put(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            QTest::qFail("the test's own file cannot be written", __FILE__, __LINE__);
    }
    static void Put(const char* name, const QByteArray& bytes)
    {
        Put(QString::fromLatin1(name), bytes);
    }

    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void aNameThatIsNoTextIsRefused()
    {
#ifdef Q_OS_UNIX
        Put("a.bas", "print 1\r\n");
        const QStringList before = QDir::current().entryList(QDir::Files);
        for (const char* option :
             {"set -- \"$@\" -o \"$(printf 'out\\377')\"", "set -- \"$@\" \"$(printf 'gone\\376')\""}) {
            Surroundings surroundings;
            surroundings.setup = option;
            const Outcome end =
                RunObtool({u"source"_s, u"labels"_s,
                           QString::fromLatin1(option).contains(u" -o "_s) ? u"a.bas"_s : u"--sorted"_s},
                          surroundings);
            QCOMPARE(end.status, 1);
            QVERIFY2(end.error.contains("characters of this system"), end.error.constData());
            QCOMPARE(QDir::current().entryList(QDir::Files), before);
        }
#else
        QSKIP("all names are texts");
#endif
    }

    // Whatever goes to standard output goes to the file of -o instead.
    void everyAnswerGoesToTheFileOfO_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char* line : {"source labels a.bas",
                                 "source variables a.bas",
                                 "source runcopy a.bas",
                                 "source styles a.bas",
                                 "source comment a.bas 1 1",
                                 "source indent a.bas 1 --tab 2",
                                 "source syntax print",
                                 "source syntax",
                                 "source keywords",
                                 "write array --name a 1",
                                 "write messagebox",
                                 "write menu A=b",
                                 "write stylebits Window WS_BORDER",
                                 "write toolbar --bitmap b a=b",
                                 "write loadbmp a.bas",
                                 "write media a.wav",
                                 "write texteditor",
                                 "write library jpeg",
                                 "image info a.bmp",
                                 "palette show a.pal",
                                 "palette closest a.pal 1 2 3",
                                 "icon list a.ico",
                                 "avi codecs"})
            QTest::newRow(line) << QByteArray(line);
    }

    void everyAnswerGoesToTheFileOfO()
    {
        QFETCH(QByteArray, line);
        Put("a.bas", "[begin]\r\na = 1\r\nprint a\r\n");
        Put("a.bmp", QByteArray::fromHex("424d66000000000000003600000028000000040000000400000001001800"
                                         "0000000030000000130b0000130b00000000000000000000") +
                         QByteArray(48, 'x'));
        QCOMPARE(Run(WordsOf("palette make 16 a.pal")).status, 0);
        QCOMPARE(Run(WordsOf("icon make a.bmp a.ico")).status, 0);
        const Outcome plain = Run(WordsOf(line.constData()));
        QCOMPARE(plain.status, 0);
        QVERIFY(!plain.out.isEmpty());
        const Outcome filed = Run(WordsOf((line + " -o answer").constData()));
        QCOMPARE(filed.status, 0);
        QCOMPARE(filed.out, QByteArray());
        QCOMPARE(filed.error, plain.error);
        QCOMPARE(Get(u"answer"_s), plain.out);
    }
};

QTEST_GUILESS_MAIN(tst_obtool)
#include "tst_obtool.moc"
