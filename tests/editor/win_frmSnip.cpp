// SPDX-License-Identifier: GPL-3.0-or-later
// The snippet bench: selecting, writing, saving, deleting, the clipboard, and inserting into a code window.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmDocument.h"
#include "editor/frmSnip.h"
#include "shell/state/Module1.h"
#include "shell/state/modNames.h"

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString SaveTitle = u"Save As"_s;
const QString SaveFilter = u"Snippet Files (*.snip)|*.snip"_s;

} // namespace

class win_frmSnip : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmSnip> window;

    template <class Kind>
    Kind* Control(const char* name) const
    {
        return window->findChild<Kind*>(QString::fromLatin1(name));
    }
    QListView* List() const { return Control<QListView>("lstSnip"); }
    QLineEdit* Name() const { return Control<QLineEdit>("txtName"); }
    QPlainTextEdit* Text() const { return Control<QPlainTextEdit>("txtSnipDisplay"); }
    QPushButton* Button(const char* name) const { return Control<QPushButton>(name); }
    QString State() const { return Control<QLabel>("lblState")->text(); }
    QString Chosen() const
    {
        const QModelIndexList rows = List()->selectionModel()->selectedIndexes();
        return rows.isEmpty() ? QString() : rows.first().data().toString();
    }
    QStringList Names() const
    {
        QStringList names;
        for (int row = 0; row < List()->model()->rowCount(); ++row)
            names.append(List()->model()->index(row, 0).data().toString());
        return names;
    }

    QString File(const QString& name) const { return bench->ProgramPath(u"snippets/"_s + name); }
    void WriteFile(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(File({}));
        QFile file(File(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    // Two snippets, a.snip and b.snip, instead of the defaults.
    void Open(QWidget* owner = nullptr)
    {
        WriteFile(u"a.snip"_s, "print 1\r\nend\r\n");
        WriteFile(u"b.snip"_s, "beep\r\n");
        OpenAsItIs(owner);
    }
    void OpenAsItIs(QWidget* owner = nullptr)
    {
        window = std::make_unique<frmSnip>(owner);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void Click(const QString& name) const
    {
        const QModelIndex index = List()->model()->index(static_cast<int>(Names().indexOf(name)), 0);
        List()->scrollTo(index);
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, List()->visualRect(index).center());
    }
    void DoubleClick(const QString& name) const
    {
        Click(name);
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, List()->visualRect(List()->currentIndex()).center());
    }
    void Save(const QString& answer) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, answer);
        Button("cmdSave")->click();
        QVERIFY(bench->dialogs.Finished());
    }
    void Confirm(const QString& name, BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(u"Delete %1 ?"_s.arg(QDir::toNativeSeparators(File(name))), answer,
                                     BoxIcon::Question, BoxButtons::OkCancel, u"Confirm"_s);
    }

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        QApplication::clipboard()->clear();
    }
    void cleanup()
    {
        window.reset();
        bench.reset();
    }

    void theFirstOpeningMakesTheDefaults()
    {
        OpenAsItIs();
        QCOMPARE(Names().size(), 6);
        Click(u"center_window.snip"_s);
        QCOMPARE(Name()->text(), u"center_window.snip"_s);
        const QStringList lines = Text()->toPlainText().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 12);
        QCOMPARE(lines.last(), u"[quit] close #main : end"_s);
    }

    void aFolderThatCannotBeCreatedIsReportedAndOpensNothing()
    {
        bench->Start();
        QFile file(bench->ProgramPath(u"snippets"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        bench->dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
        RunCommand(mnuToolSnipBench_Click);
        for (const QWidget* widget : QApplication::topLevelWidgets())
            QVERIFY(qobject_cast<const frmSnip*>(widget) == nullptr);
    }

    void aClickShowsNameAndText()
    {
        Open();
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
        Click(u"a.snip"_s);
        QCOMPARE(Name()->text(), u"a.snip"_s);
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
        QVERIFY(Button("cmdDelete")->isEnabled());
        QTest::keyClick(List(), Qt::Key_Down);
        QCOMPARE(Name()->text(), u"b.snip"_s);
        QCOMPARE(Text()->toPlainText(), u"beep"_s);
    }

    void aClickOnTheChosenSnippetReadsItAgain()
    {
        Open();
        Click(u"a.snip"_s);
        Button("cmdNew")->click();
        Click(u"a.snip"_s);
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
        QTest::keyClicks(Text(), u"x"_s);
        QTest::keyClicks(Name(), u"x"_s);
        Click(u"a.snip"_s);
        QCOMPARE(Name()->text(), u"a.snip"_s);
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
    }

    void tinySnippetsAreEmpty()
    {
        WriteFile(u"0.snip"_s, "");
        WriteFile(u"1.snip"_s, "x");
        Open();
        for (const char* name : {"a.snip", "0.snip", "a.snip", "1.snip"})
            Click(QString::fromLatin1(name));
        QCOMPARE(Name()->text(), u"1.snip"_s);
        QVERIFY(Text()->toPlainText().isEmpty());
        Click(u"0.snip"_s);
        QVERIFY(Text()->toPlainText().isEmpty());
    }

    void aSnippetThatVanishedIsReportedAndTheTextStays()
    {
        Open();
        Click(u"a.snip"_s);
        QFile::remove(File(u"b.snip"_s));
        bench->dialogs.ExpectMessage(u"Run-time error '53':\nFile not found"_s);
        Click(u"b.snip"_s);
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
        QVERIFY(bench->dialogs.Finished());
    }

    void newClearsAndUndoRestoresTypedText()
    {
        Open();
        Click(u"a.snip"_s);
        QTest::keyClicks(Text(), u"x"_s);
        Button("cmdNew")->click();
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        Text()->undo();
        QCOMPARE(Text()->toPlainText(), u"xprint 1\nend"_s);
    }

    void aSaveWritesTheTextWithALineEnd()
    {
        Open();
        Button("cmdNew")->click();
        Text()->setPlainText(QString::fromUtf8("cls\n'é\u00A0x"));
        Name()->setText(u"new"_s);
        Save(File(u"new.snip"_s));
        QCOMPARE(TestBench::Read(File(u"new.snip"_s)), QByteArray("cls\r\n'\xE9\xA0x\r\n"));
        QCOMPARE(Names(), (QStringList{u"a.snip"_s, u"b.snip"_s, u"new.snip"_s}));
        QCOMPARE(Name()->text(), u"new.snip"_s);
        QCOMPARE(Chosen(), u"new.snip"_s);
        Click(u"a.snip"_s);
        Click(u"new.snip"_s);
        QCOMPARE(Text()->document()->toRawText(), QString::fromUtf8("cls\u2029'é\u00A0x"));
    }

    void aSaveWithoutANameIsUntitled()
    {
        Open();
        Save({});
        QCOMPARE(Name()->text(), u"Untitled Snippet"_s);
        QCOMPARE(Names().size(), 2);
        Save(File(u"Untitled Snippet"_s));
        QCOMPARE(TestBench::Read(File(u"Untitled Snippet"_s)), QByteArray("\r\n"));
        QCOMPARE(Names().size(), 2);
        QCOMPARE(State(), u"Saved. The list shows *.snip files of its own folder only."_s);
    }

    void aSaveElsewhereSelectsNothing()
    {
        Open();
        Click(u"b.snip"_s);
        Save(bench->Path(u"a.snip"_s));
        QCOMPARE(TestBench::Read(bench->Path(u"a.snip"_s)), QByteArray("beep\r\n"));
        QCOMPARE(Name()->text(), u"a.snip"_s);
        QVERIFY(Chosen().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
    }

    void aSaveThatFailsKeepsTheText()
    {
        Open();
        Text()->setPlainText(u"cls"_s);
        Name()->setText(u"x"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, File(u"gone/x.snip"_s));
        bench->dialogs.ExpectMessage(u"Run-time error '76':\nPath not found"_s);
        Button("cmdSave")->click();
        QVERIFY(window->isVisible());
        QCOMPARE(Text()->toPlainText(), u"cls"_s);
        QCOMPARE(Name()->text(), u"x"_s);
    }

    void aSavedSnippetGetsItsEnding()
    {
        Open();
        Name()->setText(u"x"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
        Button("cmdSave")->click();
        QCOMPARE(bench->dialogs.LastFile().name, u"x"_s);
        QCOMPARE(bench->dialogs.LastFile().extension, u"snip"_s);
    }

    void enterInTheNameSaves()
    {
        Open();
        Name()->setText(u"x"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
        QTest::keyClick(Name(), Qt::Key_Return);
        QVERIFY(bench->dialogs.Finished());
    }

    void deleteAsksFirst()
    {
        Open();
        Click(u"a.snip"_s);
        Confirm(u"a.snip"_s, BoxAnswer::Cancel);
        Button("cmdDelete")->click();
        QCOMPARE(Names().size(), 2);
        Confirm(u"a.snip"_s, BoxAnswer::Ok);
        Button("cmdDelete")->click();
        QCOMPARE(Names(), QStringList{u"b.snip"_s});
        QVERIFY(!QFile::exists(File(u"a.snip"_s)));
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
        Text()->undo();
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
    }

    void theDeleteKeyInTheListDeletes()
    {
        Open();
        Click(u"b.snip"_s);
        Confirm(u"b.snip"_s, BoxAnswer::Ok);
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(Names(), QStringList{u"a.snip"_s});
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(Names().size(), 1);
    }

    void aVanishedSnippetIsDeletedSilently()
    {
        Open();
        Click(u"b.snip"_s);
        QFile::remove(File(u"b.snip"_s));
        Confirm(u"b.snip"_s, BoxAnswer::Ok);
        Button("cmdDelete")->click();
        QCOMPARE(Names(), QStringList{u"a.snip"_s});
    }

    void copyPutsTheTextOnTheClipboard()
    {
        Open();
        Click(u"a.snip"_s);
        bench->dialogs.ExpectMessage(u"This snippet has been copied to the clipboard. Paste it into your code."_s,
                                     BoxAnswer::Ok, BoxIcon::None, BoxButtons::Ok, u"Okay"_s);
        Button("cmdCopy")->click();
        QCOMPARE(QApplication::clipboard()->text(), u"print 1\r\nend"_s);
        QVERIFY(bench->dialogs.Finished());
    }

    void insertReplacesTheSelection()
    {
        Open();
        Click(u"a.snip"_s);
        Text()->moveCursor(QTextCursor::End);
        Text()->moveCursor(QTextCursor::StartOfWord, QTextCursor::KeepAnchor);
        QApplication::clipboard()->setText(u"cls\r\nbeep"_s);
        Button("cmdPaste")->click();
        QCOMPARE(Text()->toPlainText(), u"print 1\ncls\nbeep"_s);
        QCOMPARE(Name()->text(), u"a.snip"_s);
    }

    void pasteMakesANewSnippet()
    {
        Open();
        Click(u"a.snip"_s);
        QApplication::clipboard()->setText(u"cls\r\nbeep"_s);
        Button("cmdPasteNew")->click();
        QCOMPARE(Text()->toPlainText(), u"cls\nbeep"_s);
        QVERIFY(Name()->text().isEmpty());
    }

    void aClipboardWithoutTextChangesNothing()
    {
        Open();
        Click(u"a.snip"_s);
        auto* data = new QMimeData;
        data->setData(u"application/x-none"_s, "x");
        QApplication::clipboard()->setMimeData(data);
        Button("cmdPaste")->click();
        Button("cmdPasteNew")->click();
        QCOMPARE(Text()->toPlainText(), u"print 1\nend"_s);
        QCOMPARE(Name()->text(), u"a.snip"_s);
    }

    void tabInsertsSpacesUpToTheNextColumn()
    {
        Open();
        Editor.TabSize = 4;
        Text()->setFocus();
        QTest::keyClicks(Text(), u"a"_s);
        QTest::keyClick(Text(), Qt::Key_Tab);
        QTest::keyClicks(Text(), u"b"_s);
        QCOMPARE(Text()->toPlainText(), u"a   b"_s);
        QTest::keyClick(Text(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(!Text()->hasFocus());
    }

    void aDoubleClickAndEnterInsertTheSnippetIntoTheCode_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("double click") << false;
        QTest::newRow("Enter") << true;
    }

    void aDoubleClickAndEnterInsertTheSnippetIntoTheCode()
    {
        QFETCH(bool, byKey);
        bench->Start();
        QuitQuery = false;
        bench->Choose(u"mnuFileNew"_s);
        TestBench::Type(bench->Active(), "rem x");
        SendSci(bench->Active()->sci, SCI_SETSEL, 4, 5);
        Open(&bench->Frame());
        if (byKey) {
            Click(u"a.snip"_s);
            QTest::keyClick(List(), Qt::Key_Return);
        } else {
            DoubleClick(u"a.snip"_s);
        }
        QCOMPARE(TestBench::Text(bench->Active()), QByteArray("rem print 1\r\nend"));
        QCOMPARE(State(), u"Inserted into the active code window."_s);
        SendSci(bench->Active()->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(bench->Active()), QByteArray("rem x"));
        QVERIFY(window->isVisible());
    }

    void withoutACodeWindowTheDoubleClickShowsAMessage()
    {
        Open();
        bench->dialogs.ExpectMessage(NoCodeWindowText);
        DoubleClick(u"a.snip"_s);
        QVERIFY(bench->dialogs.Finished());
    }

    void theMenuShowsOneWindow()
    {
        bench->Start();
        mnuToolSnipBench_Click();
        mnuToolSnipBench_Click();
        int count = 0;
        QPointer<QWidget> shown;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (qobject_cast<frmSnip*>(widget) != nullptr) {
                ++count;
                shown = widget;
            }
        QCOMPARE(count, 1);
        QVERIFY(!shown->isModal());
        QTest::keyClick(shown, Qt::Key_Escape);
        QTRY_VERIFY(shown.isNull());
    }

    void exitCloses()
    {
        Open();
        Button("cmdExit")->click();
        QVERIFY(!window->isVisible());
    }

    void tenThousandSnippetsStayQuick()
    {
        for (int i = 0; i < 10'000; ++i)
            WriteFile(u"s%1.snip"_s.arg(i), "beep\r\n");
        QElapsedTimer timer;
        timer.start();
        OpenAsItIs();
        const auto opened = timer.restart();
        Click(u"s9999.snip"_s);
        const auto clicked = timer.restart();
        Save(File(u"s5000.snip"_s));
        const auto saved = timer.elapsed();
        QCOMPARE(Chosen(), u"s5000.snip"_s);
        qInfo("opened in %lld ms, clicked in %lld ms, saved in %lld ms", static_cast<long long>(opened),
              static_cast<long long>(clicked), static_cast<long long>(saved));
        QVERIFY(opened < 2'000 && clicked < 1'000 && saved < 1'000);
    }
};

OB_BENCH_TEST(win_frmSnip)
#include "win_frmSnip.moc"
