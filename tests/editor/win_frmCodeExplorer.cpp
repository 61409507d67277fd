// SPDX-License-Identifier: GPL-3.0-or-later
// The code explorer and its controls, over real folders.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmCodeExplorer.h"

#include "platform/files/modFolders.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"

#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

template <class Widget>
Widget* Control(const QDialog& dialog, const char* name)
{
    auto* found = dialog.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no control %s", name);
    return found;
}

QStringList Files(const QDialog& dialog)
{
    const QAbstractItemModel* model = Control<QListView>(dialog, "Fil")->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row)
        names.append(model->index(row, 0).data().toString());
    return names;
}

// The rows of the folder list from top to bottom.
QList<QModelIndex> Folders(const QDialog& dialog)
{
    const auto* tree = Control<QTreeView>(dialog, "Dir1");
    QList<QModelIndex> rows;
    for (QModelIndex index = tree->model()->index(0, 0); index.isValid(); index = tree->indexBelow(index))
        rows.append(index);
    return rows;
}

QModelIndex Folder(const QDialog& dialog, const QString& name)
{
    for (const QModelIndex& index : Folders(dialog))
        if (index.data().toString() == name)
            return index;
    return {};
}

void ClickFile(const QDialog& dialog, const QString& name)
{
    auto* list = Control<QListView>(dialog, "Fil");
    const QModelIndex index = list->model()->index(static_cast<int>(Files(dialog).indexOf(name)), 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
}

void DoubleClickFolder(const QDialog& dialog, const QString& name)
{
    auto* tree = Control<QTreeView>(dialog, "Dir1");
    const QModelIndex index = Folder(dialog, name);
    tree->scrollTo(index);
    const QPoint place = tree->visualRect(index).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
}

QString Preview(const QDialog& dialog)
{
    return Control<QPlainTextEdit>(dialog, "txtDisplay")->toPlainText();
}

QString Chosen(const QDialog& dialog)
{
    return Control<QLineEdit>(dialog, "Text1")->text();
}

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class win_frmCodeExplorer : public QObject {
    Q_OBJECT

private:
    static void FillWorkFolder(const TestBench& bench)
    {
        bench.Write(u"game.bas"_s, "print \"game\"\r\nend\r\n");
        bench.Write(u"Old.BAK"_s, "print \"old\"\r\n");
        bench.Write(u"notes.txt"_s, "no code");
        QDir(bench.Path({})).mkpath(u"sub/deep"_s);
        bench.Write(u"sub/inner.bas"_s, QByteArray(1999, 'x') + "yz\r\n");
    }

    static std::unique_ptr<frmCodeExplorer> Open()
    {
        auto window = std::make_unique<frmCodeExplorer>();
        window->show();
        if (!QTest::qWaitForWindowActive(window.get()))
            QTest::qFail("the window does not become active", __FILE__, __LINE__);
        return window;
    }

    static void NothingToAsk()
    {
        ShowTips = false;
        QuitQuery = false;
    }

private Q_SLOTS:
    void init() { ResetBench(); }

    void openIsTheDefaultButton()
    {
        const TestBench bench;
        const auto window = Open();
        QVERIFY(Control<QPushButton>(*window, "cmdOpen")->isDefault());
    }

    void theListsStartAtTheCurrentFolder()
    {
        const TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window), Words("game.bas Old.BAK"));
        QStringList names;
        for (const QModelIndex& index : Folders(*window))
            names.append(index.data().toString());
        QCOMPARE(names.first(), u"/"_s);
        QCOMPARE(names.last(2), Words("work sub"));
        QVERIFY(Chosen(*window).isEmpty());
        QVERIFY(Preview(*window).isEmpty());
    }

    void aClickOnAFileShowsItsNameAndStart()
    {
        const TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window).size(), 2);
        ClickFile(*window, u"game.bas"_s);
        QCOMPARE(Chosen(*window), u"game.bas"_s);
        QCOMPARE(Preview(*window), u"print \"game\"\nend\n"_s);
        QTest::keyClick(Control<QListView>(*window, "Fil"), Qt::Key_Down);
        QCOMPARE(Chosen(*window), u"Old.BAK"_s);
        QCOMPARE(Preview(*window), u"print \"old\"\n"_s);
    }

    void theListsFollowTheFolder()
    {
        const TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window).size(), 2);
        ClickFile(*window, u"game.bas"_s);
        DoubleClickFolder(*window, u"sub"_s);
        QTRY_COMPARE(Files(*window), Words("inner.bas"));
        QVERIFY(Chosen(*window).isEmpty());
        QVERIFY(Preview(*window).isEmpty());
        ClickFile(*window, u"inner.bas"_s);
        QCOMPARE(Preview(*window), QString(1999, QLatin1Char('x')) + QLatin1Char('y'));
        DoubleClickFolder(*window, u"work"_s);
        QTRY_COMPARE(Files(*window).size(), 2);
    }

    void theKeyboardWalksTheFolders()
    {
        const TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window).size(), 2);
        auto* tree = Control<QTreeView>(*window, "Dir1");
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_Down);
        QCOMPARE(tree->currentIndex().data().toString(), u"sub"_s);
        QTest::keyClick(tree, Qt::Key_Return);
        QTRY_COMPARE(Files(*window), Words("inner.bas"));
        QVERIFY(window->isVisible());
        QTest::keyClick(tree, Qt::Key_Backspace);
        QTRY_COMPARE(Files(*window).size(), 2);
        QCOMPARE(tree->currentIndex().data().toString(), u"work"_s);
    }

    void theFoldersFollowTheDrive()
    {
        const TestBench bench;
        const auto window = Open();
        auto* drives = Control<QComboBox>(*window, "Drive1");
        const int root = drives->findText(u"/"_s);
        QVERIFY(root >= 0);
        drives->setFocus();
        drives->setCurrentIndex(-1);
        QTest::keyClick(drives, Qt::Key_Home);
        QCOMPARE(drives->currentIndex(), 0);
        QTRY_COMPARE(Folders(*window).size(), 1 + ReadFolder(QDir::rootPath(), {}).folders.size());
        QCOMPARE(Control<QTreeView>(*window, "Dir1")->currentIndex().data().toString(), drives->currentText());
    }

    void openShowsTheFileInANewWindow()
    {
        TestBench bench;
        NothingToAsk();
        FillWorkFolder(bench);
        bench.Start();
        const QString recent = RecentFiles[0];
        bench.ExpectModal(u"frmCodeExplorer"_s, [](QDialog& dialog) {
            QTRY_COMPARE(Files(dialog).size(), 2);
            ClickFile(dialog, u"game.bas"_s);
            Control<QPushButton>(dialog, "cmdOpen")->click();
        });
        mnuFileExplore_Click();
        QVERIFY(bench.Active() != nullptr);
        QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print \"game\"\r\nend"));
        QCOMPARE(bench.Active()->Caption(), bench.Path(u"game.bas"_s));
        const QString status = bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
        QVERIFY2(status.startsWith(u"game.bas  Size: 19 KB   Last Modified: "_s), qPrintable(status));
        QCOMPARE(RecentFiles[0], recent);
    }

    void aDoubleClickAndTheEnterKeyOpenToo_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("double click") << false;
        QTest::newRow("Enter") << true;
    }

    void aDoubleClickAndTheEnterKeyOpenToo()
    {
        QFETCH(bool, byKey);
        TestBench bench;
        NothingToAsk();
        FillWorkFolder(bench);
        bench.Start();
        bench.ExpectModal(u"frmCodeExplorer"_s, [byKey](QDialog& dialog) {
            QTRY_COMPARE(Files(dialog).size(), 2);
            ClickFile(dialog, u"Old.BAK"_s);
            auto* list = Control<QListView>(dialog, "Fil");
            if (byKey)
                QTest::keyClick(list, Qt::Key_Return);
            else
                QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                                   list->visualRect(list->currentIndex()).center());
        });
        mnuFileExplore_Click();
        QCOMPARE(bench.Active()->Caption(), bench.Path(u"Old.BAK"_s));
        QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print \"old\""));
    }

    void openWithoutASelectionIsReported()
    {
        TestBench bench;
        const auto window = Open();
        bench.dialogs.ExpectMessage(u"File not found."_s, BoxAnswer::Ok, BoxIcon::None, BoxButtons::Ok, u"Error."_s);
        Control<QPushButton>(*window, "cmdOpen")->click();
        QVERIFY(window->isVisible());
        QVERIFY(bench.dialogs.Finished());
    }

    void openOfAFileThatVanishedIsReported()
    {
        TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window).size(), 2);
        ClickFile(*window, u"game.bas"_s);
        QFile::remove(bench.Path(u"game.bas"_s));
        bench.dialogs.ExpectMessage(u"File not found."_s, BoxAnswer::Ok, BoxIcon::None, BoxButtons::Ok, u"Error."_s);
        Control<QPushButton>(*window, "cmdOpen")->click();
        QVERIFY(window->isVisible());
    }

    void aClickOnAFileThatVanishedShowsNothing()
    {
        const TestBench bench;
        FillWorkFolder(bench);
        const auto window = Open();
        QTRY_COMPARE(Files(*window).size(), 2);
        QFile::remove(bench.Path(u"game.bas"_s));
        ClickFile(*window, u"game.bas"_s);
        QVERIFY(Preview(*window).isEmpty());
    }

    void exitAndEscapeClose()
    {
        const TestBench bench;
        auto window = Open();
        Control<QPushButton>(*window, "cmdExit")->click();
        QVERIFY(!window->isVisible());
        window = Open();
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(!window->isVisible());
    }

    void aFolderOfManyFilesDoesNotBlockTheWindow()
    {
        const TestBench bench;
        constexpr int count = 100'000;
        for (int i = 0; i < count; ++i)
            bench.Write(u"file%1.bas"_s.arg(i), {});
        QElapsedTimer timer;
        timer.start();
        const auto window = Open();
        const auto shown = timer.elapsed();
        qint64 longest = 0;
        qint64 last = timer.elapsed();
        while (Files(*window).size() != count && timer.elapsed() < 60'000) {
            QApplication::processEvents(QEventLoop::AllEvents, 1);
            longest = qMax(longest, timer.elapsed() - last);
            last = timer.elapsed();
        }
        QCOMPARE(Files(*window).size(), count);
        timer.restart();
        ClickFile(*window, u"file99999.bas"_s);
        QApplication::processEvents();
        qInfo("shown after %lld ms, longest wait %lld ms, click %lld ms", static_cast<long long>(shown),
              static_cast<long long>(longest), static_cast<long long>(timer.elapsed()));
        QCOMPARE(Chosen(*window), u"file99999.bas"_s);
        QVERIFY2(shown < 3'000 && longest < 3'000 && timer.elapsed() < 3'000, "the window was held up");
    }

    // The thread that still reads the folder must not access a deleted window.
    void closingWhileTheFolderIsReadIsSafe()
    {
        const TestBench bench;
        for (int i = 0; i < 20'000; ++i)
            bench.Write(u"file%1.bas"_s.arg(i), {});
        for (int i = 0; i < 5; ++i)
            Open()->close();
        QTest::qWait(300);
    }
};

OB_BENCH_TEST(win_frmCodeExplorer)
#include "win_frmCodeExplorer.moc"
