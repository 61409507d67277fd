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

using namespace ob;

namespace {

const QString SaveTitle = QStringLiteral("Save As");
const QString SaveFilter = QStringLiteral("Snippet Files (*.snip)|*.snip");

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

    QString File(const QString& name) const { return bench->ProgramPath(QStringLiteral("snippets/") + name); }
    void WriteFile(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(File({}));
        QFile file(File(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    // Two snippets, a.snip and b.snip, instead of the defaults.
    void Open(QWidget* owner = nullptr)
    {
        WriteFile(QStringLiteral("a.snip"), "print 1\r\nend\r\n");
        WriteFile(QStringLiteral("b.snip"), "beep\r\n");
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
        bench->dialogs.ExpectMessage(QStringLiteral("Delete %1 ?").arg(QDir::toNativeSeparators(File(name))), answer,
                                     BoxIcon::Question, BoxButtons::OkCancel, QStringLiteral("Confirm"));
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
        Click(QStringLiteral("center_window.snip"));
        QCOMPARE(Name()->text(), QStringLiteral("center_window.snip"));
        const QStringList lines = Text()->toPlainText().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 12);
        QCOMPARE(lines.last(), QStringLiteral("[quit] close #main : end"));
    }

    void aFolderThatCannotBeCreatedIsReportedAndOpensNothing()
    {
        bench->Start();
        QFile file(bench->ProgramPath(QStringLiteral("snippets")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '75':\nPath/File access error"));
        RunCommand(mnuToolSnipBench_Click);
        for (const QWidget* widget : QApplication::topLevelWidgets())
            QVERIFY(qobject_cast<const frmSnip*>(widget) == nullptr);
    }

    void aClickShowsNameAndText()
    {
        Open();
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
        Click(QStringLiteral("a.snip"));
        QCOMPARE(Name()->text(), QStringLiteral("a.snip"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
        QVERIFY(Button("cmdDelete")->isEnabled());
        QTest::keyClick(List(), Qt::Key_Down);
        QCOMPARE(Name()->text(), QStringLiteral("b.snip"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("beep"));
    }

    void aClickOnTheChosenSnippetReadsItAgain()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        Button("cmdNew")->click();
        Click(QStringLiteral("a.snip"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
        QTest::keyClicks(Text(), QStringLiteral("x"));
        QTest::keyClicks(Name(), QStringLiteral("x"));
        Click(QStringLiteral("a.snip"));
        QCOMPARE(Name()->text(), QStringLiteral("a.snip"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
    }

    void tinySnippetsAreEmpty()
    {
        WriteFile(QStringLiteral("0.snip"), "");
        WriteFile(QStringLiteral("1.snip"), "x");
        Open();
        for (const char* name : {"a.snip", "0.snip", "a.snip", "1.snip"})
            Click(QString::fromLatin1(name));
        QCOMPARE(Name()->text(), QStringLiteral("1.snip"));
        QVERIFY(Text()->toPlainText().isEmpty());
        Click(QStringLiteral("0.snip"));
        QVERIFY(Text()->toPlainText().isEmpty());
    }

    void aSnippetThatVanishedIsReportedAndTheTextStays()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        QFile::remove(File(QStringLiteral("b.snip")));
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '53':\nFile not found"));
        Click(QStringLiteral("b.snip"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
        QVERIFY(bench->dialogs.Finished());
    }

    void newClearsAndUndoRestoresTypedText()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        QTest::keyClicks(Text(), QStringLiteral("x"));
        Button("cmdNew")->click();
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        Text()->undo();
        QCOMPARE(Text()->toPlainText(), QStringLiteral("xprint 1\nend"));
    }

    void aSaveWritesTheTextWithALineEnd()
    {
        Open();
        Button("cmdNew")->click();
        Text()->setPlainText(QString::fromUtf8("cls\n'é\u00A0x"));
        Name()->setText(QStringLiteral("new"));
        Save(File(QStringLiteral("new.snip")));
        QCOMPARE(TestBench::Read(File(QStringLiteral("new.snip"))), QByteArray("cls\r\n'\xE9\xA0x\r\n"));
        QCOMPARE(Names(),
                 (QStringList{QStringLiteral("a.snip"), QStringLiteral("b.snip"), QStringLiteral("new.snip")}));
        QCOMPARE(Name()->text(), QStringLiteral("new.snip"));
        QCOMPARE(Chosen(), QStringLiteral("new.snip"));
        Click(QStringLiteral("a.snip"));
        Click(QStringLiteral("new.snip"));
        QCOMPARE(Text()->document()->toRawText(), QString::fromUtf8("cls\u2029'é\u00A0x"));
    }

    void aSaveWithoutANameIsUntitled()
    {
        Open();
        Save({});
        QCOMPARE(Name()->text(), QStringLiteral("Untitled Snippet"));
        QCOMPARE(Names().size(), 2);
        Save(File(QStringLiteral("Untitled Snippet")));
        QCOMPARE(TestBench::Read(File(QStringLiteral("Untitled Snippet"))), QByteArray("\r\n"));
        QCOMPARE(Names().size(), 2);
        QCOMPARE(State(), QStringLiteral("Saved. The list shows *.snip files of its own folder only."));
    }

    void aSaveElsewhereSelectsNothing()
    {
        Open();
        Click(QStringLiteral("b.snip"));
        Save(bench->Path(QStringLiteral("a.snip")));
        QCOMPARE(TestBench::Read(bench->Path(QStringLiteral("a.snip"))), QByteArray("beep\r\n"));
        QCOMPARE(Name()->text(), QStringLiteral("a.snip"));
        QVERIFY(Chosen().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
    }

    void aSaveThatFailsKeepsTheText()
    {
        Open();
        Text()->setPlainText(QStringLiteral("cls"));
        Name()->setText(QStringLiteral("x"));
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, File(QStringLiteral("gone/x.snip")));
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '76':\nPath not found"));
        Button("cmdSave")->click();
        QVERIFY(window->isVisible());
        QCOMPARE(Text()->toPlainText(), QStringLiteral("cls"));
        QCOMPARE(Name()->text(), QStringLiteral("x"));
    }

    void enterInTheNameSaves()
    {
        Open();
        Name()->setText(QStringLiteral("x"));
        bench->dialogs.ExpectFile(FilePurpose::Save, SaveTitle, SaveFilter, {});
        QTest::keyClick(Name(), Qt::Key_Return);
        QVERIFY(bench->dialogs.Finished());
    }

    void deleteAsksFirst()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        Confirm(QStringLiteral("a.snip"), BoxAnswer::Cancel);
        Button("cmdDelete")->click();
        QCOMPARE(Names().size(), 2);
        Confirm(QStringLiteral("a.snip"), BoxAnswer::Ok);
        Button("cmdDelete")->click();
        QCOMPARE(Names(), QStringList{QStringLiteral("b.snip")});
        QVERIFY(!QFile::exists(File(QStringLiteral("a.snip"))));
        QVERIFY(Name()->text().isEmpty() && Text()->toPlainText().isEmpty());
        QVERIFY(!Button("cmdDelete")->isEnabled());
        Text()->undo();
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
    }

    void theDeleteKeyInTheListDeletes()
    {
        Open();
        Click(QStringLiteral("b.snip"));
        Confirm(QStringLiteral("b.snip"), BoxAnswer::Ok);
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(Names(), QStringList{QStringLiteral("a.snip")});
        QTest::keyClick(List(), Qt::Key_Delete);
        QCOMPARE(Names().size(), 1);
    }

    void aVanishedSnippetIsDeletedSilently()
    {
        Open();
        Click(QStringLiteral("b.snip"));
        QFile::remove(File(QStringLiteral("b.snip")));
        Confirm(QStringLiteral("b.snip"), BoxAnswer::Ok);
        Button("cmdDelete")->click();
        QCOMPARE(Names(), QStringList{QStringLiteral("a.snip")});
    }

    void copyPutsTheTextOnTheClipboard()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        bench->dialogs.ExpectMessage(
            QStringLiteral("This snippet has been copied to the clipboard. Paste it into your code."), BoxAnswer::Ok,
            BoxIcon::None, BoxButtons::Ok, QStringLiteral("Okay"));
        Button("cmdCopy")->click();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("print 1\r\nend"));
        QVERIFY(bench->dialogs.Finished());
    }

    void insertReplacesTheSelection()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        Text()->moveCursor(QTextCursor::End);
        Text()->moveCursor(QTextCursor::StartOfWord, QTextCursor::KeepAnchor);
        QApplication::clipboard()->setText(QStringLiteral("cls\r\nbeep"));
        Button("cmdPaste")->click();
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\ncls\nbeep"));
        QCOMPARE(Name()->text(), QStringLiteral("a.snip"));
    }

    void pasteMakesANewSnippet()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        QApplication::clipboard()->setText(QStringLiteral("cls\r\nbeep"));
        Button("cmdPasteNew")->click();
        QCOMPARE(Text()->toPlainText(), QStringLiteral("cls\nbeep"));
        QVERIFY(Name()->text().isEmpty());
    }

    void aClipboardWithoutTextChangesNothing()
    {
        Open();
        Click(QStringLiteral("a.snip"));
        auto* data = new QMimeData;
        data->setData(QStringLiteral("application/x-none"), "x");
        QApplication::clipboard()->setMimeData(data);
        Button("cmdPaste")->click();
        Button("cmdPasteNew")->click();
        QCOMPARE(Text()->toPlainText(), QStringLiteral("print 1\nend"));
        QCOMPARE(Name()->text(), QStringLiteral("a.snip"));
    }

    void tabInsertsSpacesUpToTheNextColumn()
    {
        Open();
        Editor.TabSize = 4;
        Text()->setFocus();
        QTest::keyClicks(Text(), QStringLiteral("a"));
        QTest::keyClick(Text(), Qt::Key_Tab);
        QTest::keyClicks(Text(), QStringLiteral("b"));
        QCOMPARE(Text()->toPlainText(), QStringLiteral("a   b"));
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
        bench->Choose(QStringLiteral("mnuFileNew"));
        TestBench::Type(bench->Active(), "rem x");
        SendSci(bench->Active()->sci, SCI_SETSEL, 4, 5);
        Open(&bench->Frame());
        if (byKey) {
            Click(QStringLiteral("a.snip"));
            QTest::keyClick(List(), Qt::Key_Return);
        } else {
            DoubleClick(QStringLiteral("a.snip"));
        }
        QCOMPARE(TestBench::Text(bench->Active()), QByteArray("rem print 1\r\nend"));
        QCOMPARE(State(), QStringLiteral("Inserted into the active code window."));
        SendSci(bench->Active()->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(bench->Active()), QByteArray("rem x"));
        QVERIFY(window->isVisible());
    }

    void withoutACodeWindowTheDoubleClickShowsAMessage()
    {
        Open();
        bench->dialogs.ExpectMessage(NoCodeWindowText);
        DoubleClick(QStringLiteral("a.snip"));
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
            WriteFile(QStringLiteral("s%1.snip").arg(i), "beep\r\n");
        QElapsedTimer timer;
        timer.start();
        OpenAsItIs();
        const auto opened = timer.restart();
        Click(QStringLiteral("s9999.snip"));
        const auto clicked = timer.restart();
        Save(File(QStringLiteral("s5000.snip")));
        const auto saved = timer.elapsed();
        QCOMPARE(Chosen(), QStringLiteral("s5000.snip"));
        qInfo("opened in %lld ms, clicked in %lld ms, saved in %lld ms", static_cast<long long>(opened),
              static_cast<long long>(clicked), static_cast<long long>(saved));
        QVERIFY(opened < 2'000 && clicked < 1'000 && saved < 1'000);
    }
};

OB_BENCH_TEST(win_frmSnip)
#include "win_frmSnip.moc"
