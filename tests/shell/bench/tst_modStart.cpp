// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program: the state, the folder, the recent list, the files on the command line and dropped ones.
#include "shell/bench/modStart.h"

#include "core/CoreBench.h"
#include "editor/document/modSyntaxTable.h"
#include "shell/state/modTexts.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>

using namespace ob;

class tst_modStart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        BuildSyntaxTable();
    }
    void cleanup() { bench.reset(); }

    void theStartRoutineMakesTheStateAndTheFolders()
    {
        Editor.FontHeight = 77;
        OBPath = QStringLiteral("gone");
        CoreBench::PutFile(bench->ProgramPath(QStringLiteral("keywords.txt")), "PEAR Apple\r\n");
        bool wasReset = false;
        StartRoutine([&] {
            wasReset = MainForm == nullptr && Editor.FontHeight == 12;
            return &bench->form;
        });
        QVERIFY(wasReset);
        QVERIFY(MainForm == &bench->form);
        QVERIFY(QDir(bench->ProgramPath(QStringLiteral("OBprogs"))).exists());
        for (const QString& path : {OBPath, OBHelpPath, OptionalHelpPath, OBFreeformPath, OBRuntimePath})
            QCOMPARE(path, QStringLiteral("no path"));
        QVERIFY(Words().SyntaxTable.size() == 231);
        QVERIFY(Words().LexerKeywords.startsWith("pear apple\r\nabs( "));
        QVERIFY(bench->form.log.isEmpty());
    }

    void theLibrariesAreWrittenBesideTheProgramEachTime()
    {
        for (const char* name : {"wrapper32.bas", "printer32.bas"}) {
            const auto text = EmbeddedText(QLatin1String(name));
            const QString path = bench->ProgramPath(QLatin1String(name));
            StartRoutine([&] { return &bench->form; });
            if (!text) {
                QVERIFY2(!QFile::exists(path), "nothing is embedded, and yet a file was written");
                continue;
            }
            const QByteArray library(text->data(), static_cast<qsizetype>(text->size()));
            QCOMPARE(CoreBench::Get(path), library);
            CoreBench::PutFile(path, "'edited" + library.mid(7) + "'tail\r\n");
            StartRoutine([&] { return &bench->form; });
            QCOMPARE(CoreBench::Get(path), library + "'tail\r\n");
        }
    }

    void aStartInAFolderThatCannotBeWrittenContinues()
    {
        SetProgramFolder(QStringLiteral("/proc/nothing"));
        StartRoutine([&] { return &bench->form; });
        QVERIFY(MainForm == &bench->form);
    }

    void anExistingProgramsFolderIsLeftAlone()
    {
        QDir().mkpath(bench->ProgramPath(QStringLiteral("OBprogs")));
        CoreBench::PutFile(bench->ProgramPath(QStringLiteral("OBprogs/mine.bas")), "x");
        StartRoutine([&] { return &bench->form; });
        QCOMPARE(CoreBench::Get(bench->ProgramPath(QStringLiteral("OBprogs/mine.bas"))), QByteArray("x"));
    }

    void theFirstStartHasNoRecentFilesAndNoWindow()
    {
        LoadState();
        OpenAtLoad();
        QCOMPARE(Documents.size(), std::size_t{2});
        QCOMPARE(Documents[1]->Tag, QString());
        for (const QString& path : RecentFiles)
            QCOMPARE(path, QStringLiteral("error"));
        QVERIFY(bench->form.ShownItems().isEmpty());
        QVERIFY(bench->form.log.isEmpty());
        QVERIFY(bench->form.kind == ActiveChild::None);
    }

    void aFileNamedUntitledOpensOneEmptyWindow()
    {
        bench->Put(QStringLiteral("untitled"), "x");
        WriteSetting(QStringLiteral("MRU1"), QStringLiteral("untitled"));
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.captions[0], QStringLiteral("no files"));
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("show 1")});
        QCOMPARE(bench->form.active->Caption(), QStringLiteral("untitled.bas"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray());
    }

    void storedPathsReplaceThoseOfTheStart()
    {
        WriteSetting(QStringLiteral("OBPath"), QStringLiteral("/gone/orchard.exe"));
        StartRoutine([&] { return &bench->form; });
        QCOMPARE(OBPath, QStringLiteral("no path"));
        LoadState();
        QCOMPARE(OBPath, QStringLiteral("/gone/orchard.exe"));
    }

    void theLastFolderBecomesTheCurrentOne()
    {
        QDir().mkdir(QStringLiteral("programs"));
        const QString folder = QDir::currentPath();
        WriteSetting(QStringLiteral("LastDir"), folder + QStringLiteral("/programs/"));
        LoadState();
        QCOMPARE(QDir::currentPath(), folder + QStringLiteral("/programs"));
    }

    void aLastFolderThatHasGoneChangesNothing_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("first start") << QStringLiteral("app.path");
        QTest::newRow("gone") << QStringLiteral("/gone/folder/");
        QTest::newRow("empty") << QString();
    }

    void aLastFolderThatHasGoneChangesNothing()
    {
        QFETCH(QString, stored);
        const QString folder = QDir::currentPath();
        WriteSetting(QStringLiteral("LastDir"), stored);
        LoadState();
        QCOMPARE(QDir::currentPath(), folder);
    }

    void theNewestFileOpensWhenThatIsWanted()
    {
        const QString first = bench->Put(QStringLiteral("a.bas"), "print 1\r\n");
        const QString second = bench->Put(QStringLiteral("b.bas"), "print 2\r\n");
        WriteSetting(QStringLiteral("MRU1"), first);
        WriteSetting(QStringLiteral("MRU2"), second);
        WriteSetting(QStringLiteral("OpenFileOn"), QStringLiteral("True"));
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.active->Caption(), first);
        QCOMPARE(bench->form.active->Tag, TagOpen);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.status.startsWith(QStringLiteral("a.bas  Size: 9 KB   Last Modified: ")));
        QCOMPARE(RecentFiles[0], first);
        QCOMPARE(RecentCount, 2);
        QCOMPARE(ReadSetting(QStringLiteral("MRU3"), QStringLiteral("(never written)")),
                 QStringLiteral("(never written)"));
    }

    void aNewestFileThatCannotBeReadIsSkipped()
    {
        const QString path = bench->Put(QStringLiteral("a.bas"), "x");
        WriteSetting(QStringLiteral("MRU1"), path);
        WriteSetting(QStringLiteral("OpenFileOn"), QStringLiteral("True"));
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.active->Caption(), path);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray());
        QVERIFY(bench->form.status.startsWith(QStringLiteral("a.bas  Size: 1 KB")));
    }

    void filesOfTheCommandLineOpenByTheirExtension()
    {
        const QString code = bench->Put(QStringLiteral("ab"), "print 1\r\n");
        const QString form = bench->Put(QStringLiteral("x.OBF"), "\r\n");
        const QString text = bench->Put(QStringLiteral("read me.txt"), "text\r\n");
        OpenFiles({code, bench->Path(QStringLiteral("gone.bas")), QString(), form, text}, FileSource::CommandLine);
        QCOMPARE(bench->form.log,
                 (QStringList{QStringLiteral("show 1"), QStringLiteral("show 1"), QStringLiteral("show gui"),
                              QStringLiteral("enable mnuFileSaveGui"), QStringLiteral("refresh gui"),
                              QStringLiteral("enable tool Open Menu Editor"), QStringLiteral("show 2"),
                              QStringLiteral("show 2")}));
        QCOMPARE(Documents[1]->Caption(), code);
        QCOMPARE(Documents[1]->Tag, TagOpen);
        QCOMPARE(FakeMainForm::Control(*Documents[1]).text, QByteArray("print 1"));
        QCOMPARE(Documents[2]->Caption(), text);
        QCOMPARE(RecentFiles[0], text);
        QCOMPARE(RecentFiles[1], code);
        QCOMPARE(RecentCount, 2);
    }

    void aRelativeNameOpensUnderItsFullPath()
    {
        const QString file = bench->Put(QStringLiteral("ab"), "print 1\r\n");
        OpenFiles({QStringLiteral("ab")}, FileSource::CommandLine);
        QCOMPARE(QFileInfo(bench->form.active->Caption()).canonicalFilePath(), QFileInfo(file).canonicalFilePath());
        QVERIFY(QDir::isAbsolutePath(bench->form.active->Caption()));
    }

    void aFormOnTheCommandLineIsNotTheLastFile()
    {
        const QString form = bench->Put(QStringLiteral("b.obf"), "\r\n");
        const QString code = bench->Put(QStringLiteral("c.bas"), "c\r\n");
        OpenFiles({form, code}, FileSource::CommandLine);
        QCOMPARE(bench->form.log.first(), QStringLiteral("show gui"));
        QCOMPARE(bench->form.active->Caption(), code);
    }

    void aDroppedFormIsTheLastFile()
    {
        const QString first = bench->Put(QStringLiteral("a.bas"), "a\r\n");
        const QString form = bench->Put(QStringLiteral("b.obf"), "\r\n");
        const QString last = bench->Put(QStringLiteral("c.bas"), "c\r\n");
        OpenFiles({bench->Path(QStringLiteral("gone.obf")), first, form, last}, FileSource::Drop);
        QCOMPARE(bench->form.log,
                 (QStringList{QStringLiteral("show 1"), QStringLiteral("show 1"), QStringLiteral("show gui"),
                              QStringLiteral("enable mnuFileSaveGui"), QStringLiteral("refresh gui"),
                              QStringLiteral("enable tool Open Menu Editor")}));
        QVERIFY(GuiDesign().GuiFormOpen);
        QCOMPARE(bench->form.active->Caption(), first);
    }

    void aFileThatCannotBeReadDoesNotStopTheOthers()
    {
        const QString broken = bench->Put(QStringLiteral("a.bas"), "x");
        const QString code = bench->Put(QStringLiteral("c.bas"), "c\r\n");
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '5':\nInvalid procedure call or argument"));
        OpenFiles({broken, code}, FileSource::CommandLine);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(bench->form.active->Caption(), code);
    }

    void theCaptionHoldsTheThreeNumbersOfTheVersion()
    {
        const QRegularExpression pattern(QStringLiteral("^Orchard Bench  v[0-9]+\\.[0-9]+\\.[0-9]+$"));
        QVERIFY2(pattern.match(MainCaption()).hasMatch(), qPrintable(MainCaption()));
    }

private:
    std::unique_ptr<CoreBench> bench;
};

// The start reads the system's colours.
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    tst_modStart test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_modStart.moc"
