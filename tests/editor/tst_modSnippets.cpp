// SPDX-License-Identifier: GPL-3.0-or-later
// The snippets without their window: the library, the folder with its defaults, reading, saving, deleting.
#include "editor/modSnippets.h"

#include "core/CoreBench.h"
#include "platform/files/FileTrouble.h"
#include "shell/state/modNames.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char DefaultLibrary[] = "[Add your snippets!]\r\n"
                                  "\r\n"
                                  "Function InsertString$(string$,insert$,start)\r\n"
                                  "'Inserts second string into first string at position *start*\r\n"
                                  "    InsertString$=left$(string$,start-1)+insert$+mid$(string$,start)\r\n"
                                  "End Function\r\n"
                                  "\r\n"
                                  "\r\n"
                                  "[YourSubRoutine]\r\n"
                                  "    'place your own snippet here!\r\n"
                                  "RETURN\r\n";

const QString LibraryMissingText = u"Snippets.bas not found!"_s;

QByteArray LoadedText(const FakeMainForm& form)
{
    return form.ActiveControl().text;
}

} // namespace

class tst_modSnippets : public QObject {
    Q_OBJECT

    std::unique_ptr<CoreBench> bench;

    QString Folder() const { return bench->ProgramPath({}).chopped(1); }
    QString Snippet(const char* name) const { return bench->ProgramPath(u"snippets/"_s + QString::fromUtf8(name)); }
    QByteArray PutAndGet(const QString& text) const
    {
        const QString path = bench->Path(u"x.snip"_s);
        return SaveSnippet(path, text) == SnippetSave::Written ? CoreBench::Get(path) : QByteArray("(declined)");
    }

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    // --- The library. ---

    void aMissingLibraryIsWrittenAndOpened()
    {
        mnuToolSnippet_Click();
        const QString path = bench->ProgramPath(u"snippets.bas"_s);
        QCOMPARE(CoreBench::Get(path), QByteArray(DefaultLibrary));
        const cDocument* document = bench->form.active;
        QVERIFY(document != nullptr);
        QCOMPARE(document->Caption(), path);
        QCOMPARE(document->Tag, TagOpen);
        QCOMPARE(LoadedText(bench->form), QByteArray(DefaultLibrary).chopped(2));
    }

    void theUsersLibraryStaysAsItIs()
    {
        const QString path = bench->ProgramPath(u"snippets.bas"_s);
        CoreBench::PutFile(path, "'mine \xE9\r\n");
        EnsureSnippetFile(Folder());
        QCOMPARE(CoreBench::Get(path), QByteArray("'mine \xE9\r\n"));
        const auto recent = RecentFiles;
        mnuToolSnippet_Click();
        QCOMPARE(LoadedText(bench->form), QByteArray("'mine \xC3\xA9"));
        QCOMPARE(RecentFiles, recent);
    }

    void aLibraryThatCannotBeCreatedIsReported()
    {
        QDir().mkdir(bench->ProgramPath(u"snippets.bas"_s));
        bench->dialogs.ExpectMessage(LibraryMissingText);
        mnuToolSnippet_Click();
        QVERIFY(bench->form.active == nullptr);
        QVERIFY(bench->dialogs.Finished());
    }

    void aLibraryOfOneByteIsAnError()
    {
        CoreBench::PutFile(bench->ProgramPath(u"snippets.bas"_s), "x");
        QCOMPARE(RaisedBy(mnuToolSnippet_Click), 5);
    }

    // --- The folder. ---

    void theFolderIsMadeWithTheDefaults()
    {
        EnsureSnippetFolder(Folder());
        QCOMPARE(SnippetNames(SnippetsPath(Folder())),
                 u"center_dialog.snip center_window.snip custom_cursor.snip password_textbox.snip "
                 "play_midi.snip text_linewrap.snip"_s.split(QLatin1Char(' ')));
    }

    void theDefaultsHaveTheirContents_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<int>("number");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("center_dialog.snip") << 10 << 7 << QByteArray("open \"Centered; Dialog\" for dialog as #1");
        QTest::newRow("text_linewrap.snip") << 34 << 21 << QByteArray("#1.tb \"!Font times_new_roman 12 Italic \"");
        QTest::newRow("password_textbox.snip")
            << 21 << 15 << QByteArray("  hBox as ulong, _EM_SETPASSWORDCHAR as long,_");
        QTest::newRow("center_window.snip") << 12 << 12 << QByteArray("[quit] close #main : end");
        QTest::newRow("play_midi.snip") << 22 << 4
                                        << QByteArray("'the playmidi command returns the length of the midi in ");
        QTest::newRow("custom_cursor.snip") << 37 << 37 << QByteArray("'IDC_WAIT    Hourglass");
    }

    void theDefaultsHaveTheirContents()
    {
        QFETCH(int, lines);
        QFETCH(int, number);
        EnsureSnippetFolder(Folder());
        const QByteArray bytes = CoreBench::Get(Snippet(QTest::currentDataTag()));
        QList<QByteArray> parts = bytes.split('\n');
        QCOMPARE(parts.size(), lines + 1);
        QVERIFY(parts.takeLast().isEmpty());
        for (const QByteArray& part : parts)
            QVERIFY(part.endsWith('\r'));
        QTEST(parts[number - 1].chopped(1), "line");
    }

    void anExistingFolderGetsNoDefaults()
    {
        QDir().mkdir(SnippetsPath(Folder()));
        EnsureSnippetFolder(Folder());
        QVERIFY(QDir(SnippetsPath(Folder())).isEmpty());
    }

    void aFileInPlaceOfTheFolderIsAnError()
    {
        CoreBench::PutFile(SnippetsPath(Folder()), "x");
        QCOMPARE(RaisedBy([this] { EnsureSnippetFolder(Folder()); }), 75);
        QCOMPARE(CoreBench::Get(SnippetsPath(Folder())), QByteArray("x"));
        QCOMPARE(RaisedBy([this] { EnsureSnippetFolder(bench->Path(u"gone"_s)); }), 76);
    }

#ifdef Q_OS_UNIX
    void aFullDiskLeavesNoHalfFolder()
    {
        {
            const FileSizeLimit limit(400); // enough for the first of them
            QCOMPARE(RaisedBy([this] { EnsureSnippetFolder(Folder()); }), 61);
        }
        QVERIFY(!QDir(SnippetsPath(Folder())).exists());
        EnsureSnippetFolder(Folder());
        QCOMPARE(SnippetNames(SnippetsPath(Folder())).size(), 6);
    }

    void aReadOnlyFolderIsAnError()
    {
        const QString folder = bench->Path({}).chopped(1);
        bench->Put(u"a.snip"_s, "old\r\n");
        // Everything above the folder must be accessible to the plain user.
        QVERIFY(QFile::setPermissions(QFileInfo(folder).path(), QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
        {
            const PlainUser user;
            QCOMPARE(RaisedBy([&] { EnsureSnippetFolder(folder); }), 75);
            QCOMPARE(RaisedBy([&] { EnsureSnippetFile(folder); }), 75);
            QCOMPARE(RaisedBy([&] { SaveSnippet(folder + u"/b.snip"_s, {}); }), 75);
            QCOMPARE(RaisedBy([&] { DeleteSnippet(folder + u"/a.snip"_s); }), 75);
        }
        QCOMPARE(CoreBench::Get(bench->Path(u"a.snip"_s)), QByteArray("old\r\n"));
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
    }
#endif

    void theListHasTheSnippetFilesInOrder()
    {
        for (const char* name : {"b.snip", "A.SNIP", "c.snip.bak", "d", ".snip", "e\\f.Snip", "snip"})
            bench->Put(QString::fromUtf8(name), "x\r\n");
        QDir().mkdir(bench->Path(u"folder.snip"_s));
        QCOMPARE(SnippetNames(bench->Path({})), (QStringList{u"A.SNIP"_s, u"b.snip"_s, u"e\\f.Snip"_s}));
        QVERIFY(SnippetNames(bench->Path(u"gone"_s)).isEmpty());
    }

    void tenThousandSnippetsAreListedAtOnce()
    {
        constexpr int count = 10'000;
        for (int i = 0; i < count; ++i)
            bench->Put(u"s%1.snip"_s.arg(i), {});
        QElapsedTimer timer;
        timer.start();
        const QStringList names = SnippetNames(bench->Path({}));
        const auto elapsed = timer.elapsed();
        QCOMPARE(names.size(), count);
        qInfo("listed in %lld ms", static_cast<long long>(elapsed));
        QVERIFY2(elapsed < 1'000, "the list takes too long");
    }

    // --- One snippet. ---

    void aSnippetLosesItsLastTwoBytes_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("text");
        QTest::newRow("line end") << QByteArray("print 1\r\n") << u"print 1"_s;
        QTest::newRow("no line end") << QByteArray("print 1") << u"print"_s;
        QTest::newRow("two bytes") << QByteArray("\r\n") << QString();
        QTest::newRow("one byte") << QByteArray("x") << QString();
        QTest::newRow("no byte") << QByteArray() << QString();
        QTest::newRow("beyond ASCII") << QByteArray("\xE9\x80\xA0\r\n") << QString::fromUtf8("é€\u00A0");
    }

    void aSnippetLosesItsLastTwoBytes()
    {
        QFETCH(QByteArray, file);
        QTEST(SnippetText(bench->Put(u"x.snip"_s, file)), "text");
    }

    void whatCannotBeReadIsAnError()
    {
        QCOMPARE(RaisedBy([this] { SnippetText(bench->Path(u"gone.snip"_s)); }), 53);
        QCOMPARE(RaisedBy([this] { SnippetText(bench->Path({})); }), 75);
    }

    void aSaveAddsOneLineEnd()
    {
        QCOMPARE(PutAndGet(u"a\nb"_s), QByteArray("a\r\nb\r\n"));
        QCOMPARE(PutAndGet(u"a\r\n"_s), QByteArray("a\r\n\r\n"));
        QCOMPARE(PutAndGet({}), QByteArray("\r\n"));
        QCOMPARE(PutAndGet(QString::fromUtf8("é€\u00A0")), QByteArray("\xE9\x80\xA0\r\n"));
    }

    void aSavedSnippetReadsTheSame()
    {
        const QString text = u"print 1\r\n\r\n  'end "_s;
        const QString path = bench->Path(u"x.snip"_s);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(SaveSnippet(path, i == 0 ? text : SnippetText(path)), SnippetSave::Written);
            QCOMPARE(SnippetText(path), text);
        }
    }

    void aCharacterThatCannotBeStoredRaisesAQuestion()
    {
        const QString question = u"Line 2 of the snippet holds a character that BASIC source files cannot "
                                 "store.\nSave with a question mark in place of each such character?"_s;
        const QString path = bench->Put(u"x.snip"_s, "old\r\n");
        bench->dialogs.ExpectQuestion(question, BoxAnswer::No);
        QCOMPARE(SaveSnippet(path, QString::fromUtf8("a\n→")), SnippetSave::Declined);
        QCOMPARE(CoreBench::Get(path), QByteArray("old\r\n"));
        bench->dialogs.ExpectQuestion(question, BoxAnswer::Yes);
        QCOMPARE(SaveSnippet(path, QString::fromUtf8("a\n→")), SnippetSave::Written);
        QCOMPARE(CoreBench::Get(path), QByteArray("a\r\n?\r\n"));
    }

#ifdef Q_OS_UNIX
    void aFullDiskKeepsTheOldSnippet()
    {
        const QString path = bench->Put(u"x.snip"_s, "old\r\n");
        {
            const FileSizeLimit limit(400);
            QCOMPARE(RaisedBy([&] { SaveSnippet(path, QString(1000, QLatin1Char('x'))); }), 61);
        }
        QCOMPARE(CoreBench::Get(path), QByteArray("old\r\n"));
        QCOMPARE(SnippetNames(bench->Path({})).size(), 1);
    }
#endif

    void aSnippetIsDeletedOnce()
    {
        const QString path = bench->Put(u"x.snip"_s, "old\r\n");
        DeleteSnippet(path);
        QVERIFY(!QFile::exists(path));
        DeleteSnippet(path);
    }

    void anOfferedNameStaysInTheFolder_data()
    {
        QTest::addColumn<QString>("offered");
        QTest::newRow("a.snip") << u"a.snip"_s;
        QTest::newRow("read/write") << u"read-write"_s;
        QTest::newRow("../../x.snip") << u"..-..-x.snip"_s;
        QTest::newRow("a\\b") << u"a-b"_s;
        QTest::newRow("..") << u"--"_s;
        QTest::newRow("...") << u"..."_s;
    }

    void anOfferedNameStaysInTheFolder()
    {
        QTEST(OfferedSnippetName(QString::fromUtf8(QTest::currentDataTag())), "offered");
    }

    void insertingNeedsACodeWindow()
    {
        bench->dialogs.ExpectMessage(NoCodeWindowText);
        QCOMPARE(InsertSnippet(u"x"_s), SnippetInsert::NoWindow);
        QVERIFY(bench->dialogs.Finished());
    }
};

OB_CORE_TEST(tst_modSnippets)
#include "tst_modSnippets.moc"
