// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program: the state, the folder, the recent list, the files on the command line and dropped ones.
#include "shell/bench/modStart.h"

#include "core/CoreBench.h"
#include "editor/document/modSyntaxTable.h"
#include "shell/state/modTexts.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

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
        OBPath = u"gone"_s;
        CoreBench::PutFile(bench->ProgramPath(u"keywords.txt"_s), "PEAR Apple\r\n");
        bool wasReset = false;
        StartRoutine([&] {
            wasReset = MainForm == nullptr && Editor.FontHeight == 12;
            return &bench->form;
        });
        QVERIFY(wasReset);
        QVERIFY(MainForm == &bench->form);
        QVERIFY(QDir(bench->ProgramPath(u"OBprogs"_s)).exists());
        for (const QString& path : {OBPath, OBHelpPath, OptionalHelpPath, OBFreeformPath, OBRuntimePath})
            QCOMPARE(path, u"no path"_s);
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
        SetProgramFolder(u"/proc/nothing"_s);
        StartRoutine([&] { return &bench->form; });
        QVERIFY(MainForm == &bench->form);
    }

    void anExistingProgramsFolderIsLeftAlone()
    {
        QDir().mkpath(bench->ProgramPath(u"OBprogs"_s));
        CoreBench::PutFile(bench->ProgramPath(u"OBprogs/mine.bas"_s), "x");
        StartRoutine([&] { return &bench->form; });
        QCOMPARE(CoreBench::Get(bench->ProgramPath(u"OBprogs/mine.bas"_s)), QByteArray("x"));
    }

    void theFirstStartHasNoRecentFilesAndNoWindow()
    {
        LoadState();
        OpenAtLoad();
        QCOMPARE(Documents.size(), std::size_t{2});
        QCOMPARE(Documents[1]->Tag, QString());
        for (const QString& path : RecentFiles)
            QCOMPARE(path, u"error"_s);
        QVERIFY(bench->form.ShownItems().isEmpty());
        QVERIFY(bench->form.log.isEmpty());
        QVERIFY(bench->form.kind == ActiveChild::None);
    }

    void aFileNamedUntitledOpensOneEmptyWindow()
    {
        bench->Put(u"untitled"_s, "x");
        WriteSetting(u"MRU1"_s, u"untitled"_s);
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.captions[0], u"no files"_s);
        QCOMPARE(bench->form.log, QStringList{u"show 1"_s});
        QCOMPARE(bench->form.active->Caption(), u"untitled.bas"_s);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray());
    }

    void storedPathsReplaceThoseOfTheStart()
    {
        WriteSetting(u"OBPath"_s, u"/gone/orchard.exe"_s);
        StartRoutine([&] { return &bench->form; });
        QCOMPARE(OBPath, u"no path"_s);
        LoadState();
        QCOMPARE(OBPath, u"/gone/orchard.exe"_s);
    }

    void theLastFolderBecomesTheCurrentOne()
    {
        QDir().mkdir(u"programs"_s);
        const QString folder = QDir::currentPath();
        WriteSetting(u"LastDir"_s, folder + u"/programs/"_s);
        LoadState();
        QCOMPARE(QDir::currentPath(), folder + u"/programs"_s);
    }

    void aLastFolderThatHasGoneChangesNothing_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("first start") << u"app.path"_s;
        QTest::newRow("gone") << u"/gone/folder/"_s;
        QTest::newRow("empty") << QString();
    }

    void aLastFolderThatHasGoneChangesNothing()
    {
        QFETCH(QString, stored);
        const QString folder = QDir::currentPath();
        WriteSetting(u"LastDir"_s, stored);
        LoadState();
        QCOMPARE(QDir::currentPath(), folder);
    }

    void theNewestFileOpensWhenThatIsWanted()
    {
        const QString first = bench->Put(u"a.bas"_s, "print 1\r\n");
        const QString second = bench->Put(u"b.bas"_s, "print 2\r\n");
        WriteSetting(u"MRU1"_s, first);
        WriteSetting(u"MRU2"_s, second);
        WriteSetting(u"OpenFileOn"_s, u"True"_s);
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.active->Caption(), first);
        QCOMPARE(bench->form.active->Tag, TagOpen);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.status.startsWith(u"a.bas  Size: 9 KB   Last Modified: "_s));
        QCOMPARE(RecentFiles[0], first);
        QCOMPARE(RecentCount, 2);
        QCOMPARE(ReadSetting(u"MRU3"_s, u"(never written)"_s), u"(never written)"_s);
    }

    void aNewestFileThatCannotBeReadIsSkipped()
    {
        const QString path = bench->Put(u"a.bas"_s, "x");
        WriteSetting(u"MRU1"_s, path);
        WriteSetting(u"OpenFileOn"_s, u"True"_s);
        LoadState();
        OpenAtLoad();
        QCOMPARE(bench->form.active->Caption(), path);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray());
        QVERIFY(bench->form.status.startsWith(u"a.bas  Size: 1 KB"_s));
    }

    void filesOfTheCommandLineOpenByTheirExtension()
    {
        const QString code = bench->Put(u"ab"_s, "print 1\r\n");
        const QString form = bench->Put(u"x.OBF"_s, "\r\n");
        const QString text = bench->Put(u"read me.txt"_s, "text\r\n");
        OpenFiles({code, bench->Path(u"gone.bas"_s), QString(), form, text}, FileSource::CommandLine);
        QCOMPARE(bench->form.log,
                 (QStringList{u"show 1"_s, u"show 1"_s, u"show gui"_s, u"enable mnuFileSaveGui"_s, u"refresh gui"_s,
                              u"enable tool Open Menu Editor"_s, u"show 2"_s, u"show 2"_s}));
        QCOMPARE(Documents[1]->Caption(), code);
        QCOMPARE(Documents[1]->Tag, TagOpen);
        QCOMPARE(FakeMainForm::Control(*Documents[1]).text, QByteArray("print 1"));
        QCOMPARE(Documents[2]->Caption(), text);
        QCOMPARE(RecentFiles[0], text);
        QCOMPARE(RecentFiles[1], code);
        QCOMPARE(RecentCount, 2);
    }

    void aNameThatIsNoTextIsRefused()
    {
        // As text, the name is that of another file.
        const QByteArray lost = QFile::encodeName(bench->Path(u"b"_s)) + "\xFF.bas";
        const QString other = bench->Put(u"b\uFFFD.bas"_s, "print 2\r\n");
        const QString path = QString::fromLocal8Bit(lost);
        QCOMPARE(path, other);
        for (const FileSource source : {FileSource::CommandLine, FileSource::Drop}) {
            bench->form.status.clear();
            OpenFiles({path}, source);
            QCOMPARE(bench->form.status,
                     path + u" cannot be used: the name has bytes that are not characters of this system."_s);
        }
        QVERIFY(bench->form.active == nullptr);
        QVERIFY(RecentFiles[0] != path);
    }

    void whatIsNoFileIsNamedInTheStatusBar()
    {
        const QString gone = bench->Path(u"gone.bas"_s);
        OpenFiles({gone}, FileSource::CommandLine);
        QCOMPARE(bench->form.status, gone + u" does not exist"_s);
        const QString folder = bench->Path(u"."_s);
        OpenFiles({folder}, FileSource::CommandLine);
        QCOMPARE(bench->form.status, folder + u" is a folder"_s);
        QVERIFY(QFile::link(bench->Path(u"nothing"_s), bench->Path(u"link.bas"_s)));
        OpenFiles({bench->Path(u"link.bas"_s)}, FileSource::CommandLine);
        QCOMPARE(bench->form.status, bench->Path(u"link.bas"_s) + u" does not exist"_s);
    }

    void aRelativeNameOpensUnderItsFullPath()
    {
        const QString file = bench->Put(u"ab"_s, "print 1\r\n");
        OpenFiles({u"ab"_s}, FileSource::CommandLine);
        QCOMPARE(QFileInfo(bench->form.active->Caption()).canonicalFilePath(), QFileInfo(file).canonicalFilePath());
        QVERIFY(QDir::isAbsolutePath(bench->form.active->Caption()));
    }

    void aFormOnTheCommandLineIsNotTheLastFile()
    {
        const QString form = bench->Put(u"b.obf"_s, "\r\n");
        const QString code = bench->Put(u"c.bas"_s, "c\r\n");
        OpenFiles({form, code}, FileSource::CommandLine);
        QCOMPARE(bench->form.log.first(), u"show gui"_s);
        QCOMPARE(bench->form.active->Caption(), code);
    }

    void aDroppedFormIsTheLastFile()
    {
        const QString first = bench->Put(u"a.bas"_s, "a\r\n");
        const QString form = bench->Put(u"b.obf"_s, "\r\n");
        const QString last = bench->Put(u"c.bas"_s, "c\r\n");
        OpenFiles({bench->Path(u"gone.obf"_s), first, form, last}, FileSource::Drop);
        QCOMPARE(bench->form.log, (QStringList{u"show 1"_s, u"show 1"_s, u"show gui"_s, u"enable mnuFileSaveGui"_s,
                                               u"refresh gui"_s, u"enable tool Open Menu Editor"_s}));
        QVERIFY(GuiDesign().GuiFormOpen);
        QCOMPARE(bench->form.active->Caption(), first);
    }

    void aFileThatCannotBeReadDoesNotStopTheOthers()
    {
        const QString broken = bench->Put(u"a.bas"_s, "x");
        const QString code = bench->Put(u"c.bas"_s, "c\r\n");
        bench->dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
        OpenFiles({broken, code}, FileSource::CommandLine);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(bench->form.active->Caption(), code);
    }

    void theCaptionHoldsTheThreeNumbersOfTheVersion()
    {
        const QRegularExpression pattern(u"^Orchard Bench  v[0-9]+\\.[0-9]+\\.[0-9]+$"_s);
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
