// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard and its controls, over an invented engine's folder.
#include "engine/package/WizardBench.h"
#include "support/BenchTest.h"

#include "engine/package/frmPackage.h"
#include "engine/run/dlgProcess.h"
#include "shell/state/modNames.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QTimer>
#include <QTreeView>
#include <QUrl>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString FindFilter = u"Orchard BASIC |orchard.exe;*.exe;"_s;
const QString NotFound = u"Orchard BASIC was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s;

// Selects files of the browser's list by name.
void ChooseFiles(const QDialog& dialog, const QStringList& names)
{
    auto* list = Find<QListView>(dialog, "FileList");
    QTRY_VERIFY(list->model()->rowCount() > 0);
    list->clearSelection();
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        if (names.contains(index.data().toString()))
            list->selectionModel()->select(index, QItemSelectionModel::Select);
    }
    QCOMPARE(list->selectionModel()->selectedIndexes().size(), names.size());
}

// A drop of files from another program.
void DropFiles(QWidget* target, const QStringList& files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    QDragEnterEvent enter(target->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    QCOMPARE(enter.isAccepted(), QFile::exists(files.first()));
    if (!enter.isAccepted())
        return;
    QDropEvent drop(target->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &drop);
}

// Waits for the progress window in the working routine's own event loop, and runs the script in it.
class OnProgress final : public QObject {
public:
    explicit OnProgress(std::function<void(dlgProcess&)> progressScript) : script(std::move(progressScript))
    {
        qApp->installEventFilter(this);
    }
    ~OnProgress() override { qApp->removeEventFilter(this); }

    int shown = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* window = qobject_cast<dlgProcess*>(watched);
        if (window != nullptr && event->type() == QEvent::Show) {
            ++shown;
            QTimer::singleShot(0, window, [this, window] { script(*window); });
        }
        return false;
    }

private:
    std::function<void(dlgProcess&)> script;
};

QString Question(const PackageBench& files)
{
    return u"The runtime engine is now called game.exe  All files can be found in "_s + files.Package() +
           u"\r\n\r\nWould you like to test your new application?"_s;
}

} // namespace

class win_frmPackage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWizardShowsThePlan();
    void anotherFileEndsTheCommandSilently();
    void aPathNeverSetIsRequested();
    void theSearchForTheEngineIsOfferedAgain();
    void aMissingEngineIsReported();
    void missingFilesAreMarked();
    void theBrowserStartsAtTheToken();
    void filesAreAddedByButtonKeyAndDoubleClick();
    void linesAreRemovedByButtonAndKey();
    void filesOfOtherProgramsAreDroppedIn();
    void okayMakesThePackageAndEnds();
    void theNewApplicationIsStarted();
    void anApplicationThatCannotStartIsARuntimeError();
    void missingFilesAreReportedAtTheEnd();
    void thePackageIsZipped();
    void aFailedZipIsReported();
    void cancelEndsTheCopying_data();
    void cancelEndsTheCopying();
    void theZipCannotBeInterrupted();
    void aPackageFolderThatCannotBeMadeIsARuntimeError();
    void keysAndNames();
};

void win_frmPackage::theWizardShowsThePlan()
{
    const PackageBench files(2);
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        QCOMPARE(Lines(dialog), Words(engineFiles[1].files) + Words("run.exe obasic.ini game.tkn"));
        QVERIFY(!Find<QCheckBox>(dialog, "chkZip")->isChecked());
        QCOMPARE(Find<QLabel>(dialog, "lblState")->text(), u"Files: 12"_s);
        QCOMPARE(Find<QListWidget>(dialog, "TEMPList")->item(0)->toolTip(), files.At("engine/vwabort.dll"));
    });
    QVERIFY(!QFileInfo::exists(files.Package()));
}

void win_frmPackage::anotherFileEndsTheCommandSilently()
{
    TestBench bench;
    bench.Start();
    for (const QString& chosen : {QString(), bench.Write(u"game.bas"_s, "x")}) {
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Choose TKN"_s, TokenFilter, chosen);
        bench.Choose(u"mnuPackage"_s);
    }
    QVERIFY(bench.dialogs.Finished());
}

void win_frmPackage::aPathNeverSetIsRequested()
{
    const PackageBench files(1);
    TestBench bench;
    bench.Start();
    const QString findTitle = u"Find Orchard BASIC"_s;
    OBPath = u"No Path"_s;
    bench.dialogs.ExpectFile(FilePurpose::Open, findTitle, FindFilter, files.At("engine/orchard.exe"));
    QCOMPARE(frmPackage::GetOrchardPath(), files.engine + QDir::separator());
    QCOMPARE(OBPath, files.At("engine/orchard.exe"));
    // Once it is set, no question is asked.
    QCOMPARE(frmPackage::GetOrchardPath(), files.engine + QDir::separator());
    OBPath = NoPath;
    bench.dialogs.ExpectFile(FilePurpose::Open, findTitle, FindFilter, QString());
    bench.dialogs.ExpectMessage(NotFound, BoxAnswer::Ok, BoxIcon::None);
    QCOMPARE(frmPackage::GetOrchardPath(), QString());
    QCOMPARE(frmPackage::GetOrchardPath(), QString());
    QVERIFY(bench.dialogs.Finished());
}

void win_frmPackage::theSearchForTheEngineIsOfferedAgain()
{
    const PackageBench files(1);
    TestBench bench;
    bench.Start();
    const QString findTitle = u"Find Orchard BASIC"_s;
    const auto cancelSearch = [&] {
        bench.dialogs.ExpectFile(FilePurpose::Open, findTitle, FindFilter, QString());
        bench.dialogs.ExpectMessage(NotFound, BoxAnswer::Ok, BoxIcon::None);
    };
    OBPath = NoPath;
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Choose TKN"_s, TokenFilter, files.Token());
    cancelSearch();
    bench.dialogs.ExpectMessage(NoEngineBox().text, BoxAnswer::Ok, BoxIcon::Exclamation);
    bench.ExpectModal(u"frmPackage"_s, [&](QDialog& dialog) {
        const auto* line = Find<QLabel>(dialog, "lblEngine");
        QVERIFY(line->isVisible() && line->text().startsWith(u"No engine was chosen"_s));
        QCOMPARE(OBPath, QString());
        // What the user has added stays in the package.
        DropFiles(Find<QListWidget>(dialog, "TEMPList")->viewport(), {files.At("engine/orchard.exe")});
        cancelSearch();
        Button(dialog, "cmdFind")->click();
        QVERIFY(line->isVisible());
        QCOMPARE(Lines(dialog), Words("game.tkn orchard.exe"));
        bench.dialogs.ExpectFile(FilePurpose::Open, findTitle, FindFilter, files.At("work/orchard.exe"));
        Button(dialog, "cmdFind")->click();
        QVERIFY2(line->text().contains(QDir::toNativeSeparators(files.work)), qPrintable(line->text()));
        bench.dialogs.ExpectFile(FilePurpose::Open, findTitle, FindFilter, files.At("engine/orchard.exe"));
        Button(dialog, "cmdFind")->click();
        QVERIFY(!line->isVisible() && !Button(dialog, "cmdFind")->isVisible());
        QCOMPARE(Lines(dialog).first(), u"vwabort.dll"_s);
        QCOMPARE(Lines(dialog).last(2), Words("game.tkn orchard.exe"));
        dialog.reject();
    });
    bench.Choose(u"mnuPackage"_s);
    QVERIFY(bench.dialogs.Finished());
}

void win_frmPackage::aMissingEngineIsReported()
{
    const PackageBench files(0);
    TestBench bench;
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Choose TKN"_s, TokenFilter, files.Token());
    bench.dialogs.ExpectMessage(NoEngineBox().text, BoxAnswer::Ok, BoxIcon::Exclamation);
    bench.dialogs.ExpectMessage(u"Error renaming runtime engine!"_s);
    bench.ExpectModal(u"frmPackage"_s, [](QDialog& dialog) {
        QCOMPARE(Lines(dialog), Words("game.tkn"));
        Button(dialog, "cmdOkay")->click();
    });
    bench.Choose(u"mnuPackage"_s);
    QVERIFY(bench.dialogs.Finished());
    QCOMPARE(files.PackedNames(), Words("game.tkn"));
}

void win_frmPackage::missingFilesAreMarked()
{
    const PackageBench files(1);
    QVERIFY(QFile::remove(files.At("engine/vwabort.dll")));
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        const auto* list = Find<QListWidget>(dialog, "TEMPList");
        QCOMPARE(list->item(0)->text(), u"vwabort.dll"_s);
        QCOMPARE(list->item(0)->toolTip(), u"Not found: "_s + files.At("engine/vwabort.dll"));
        QCOMPARE(list->item(1)->toolTip(), files.At("engine/vwbas11.dll"));
        QCOMPARE(Find<QLabel>(dialog, "lblState")->text(), u"Files: 11, not found: 1"_s);
    });
}

void win_frmPackage::theBrowserStartsAtTheToken()
{
    const PackageBench files(1);
    PutFile(files.At("work/readme.txt"), "x");
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        const auto* list = Find<QListView>(dialog, "FileList");
        QTRY_COMPARE(list->model()->rowCount(), 2);
        QCOMPARE(list->model()->index(0, 0).data().toString(), u"game.tkn"_s);
        QVERIFY(Find<QComboBox>(dialog, "Drive1")->count() > 0);
        QCOMPARE(Find<QTreeView>(dialog, "Dir1")->currentIndex().data().toString(), u"work"_s);
    });
}

void win_frmPackage::filesAreAddedByButtonKeyAndDoubleClick()
{
    const PackageBench files(1);
    for (const char* name : {"work/a.txt", "work/b.txt", "work/c.txt", "work/d.txt"})
        PutFile(files.At(name), name);
    TestBench bench;
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::No);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    QDir::setCurrent(files.work);
    frmPackage dialog(files.Token());
    dialog.show();
    const QStringList before = Lines(dialog);
    QVERIFY(!Button(dialog, "cmdAdd")->isEnabled());
    ChooseFiles(dialog, Words("b.txt a.txt"));
    QVERIFY(Button(dialog, "cmdAdd")->isEnabled());
    Button(dialog, "cmdAdd")->click();
    QCOMPARE(Lines(dialog), before + Words("a.txt b.txt"));
    ChooseFiles(dialog, Words("c.txt"));
    QTest::keyClick(Find<QListView>(dialog, "FileList"), Qt::Key_Return);
    QCOMPARE(Lines(dialog), before + Words("a.txt b.txt c.txt"));
    ChooseFiles(dialog, Words("d.txt"));
    auto* list = Find<QListView>(dialog, "FileList");
    const QPoint place = list->visualRect(list->selectionModel()->selectedIndexes().first()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(Lines(dialog), before + Words("a.txt b.txt c.txt d.txt"));
    // Enter in the list has not pressed OK.
    QVERIFY(dialog.isVisible());
    QVERIFY(!QFileInfo::exists(files.Package()));
    Button(dialog, "cmdOkay")->click();
    QCOMPARE(files.Get("c.txt"), QByteArray("work/c.txt"));
}

void win_frmPackage::linesAreRemovedByButtonAndKey()
{
    const PackageBench files(1);
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        QStringList expected = Lines(dialog);
        QVERIFY(!Button(dialog, "cmdRemove")->isEnabled());
        ChooseLines(dialog, {0, 2});
        QVERIFY(Button(dialog, "cmdRemove")->isEnabled());
        Button(dialog, "cmdRemove")->click();
        expected.removeAt(2);
        expected.removeAt(0);
        QCOMPARE(Lines(dialog), expected);
        ChooseLines(dialog, {1});
        QTest::keyClick(Find<QListWidget>(dialog, "TEMPList"), Qt::Key_Delete);
        expected.removeAt(1);
        QCOMPARE(Lines(dialog), expected);
        // The following line is selected, so that the key can be pressed repeatedly.
        QCOMPARE(Find<QListWidget>(dialog, "TEMPList")->currentRow(), 1);
        while (!Lines(dialog).isEmpty())
            QTest::keyClick(Find<QListWidget>(dialog, "TEMPList"), Qt::Key_Delete);
        QTest::keyClick(Find<QListWidget>(dialog, "TEMPList"), Qt::Key_Delete);
    });
}

void win_frmPackage::filesOfOtherProgramsAreDroppedIn()
{
    const PackageBench files(1);
    PutFile(files.At("readme.txt"), "a");
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        const QStringList before = Lines(dialog);
        QWidget* target = Find<QListWidget>(dialog, "TEMPList")->viewport();
        DropFiles(target, {files.At("readme.txt"), files.engine, files.At("gone.txt")});
        QCOMPARE(Lines(dialog), before + Words("readme.txt"));
        DropFiles(target, {files.At("gone.txt")});
        QCOMPARE(Lines(dialog), before + Words("readme.txt"));
    });
}

void win_frmPackage::okayMakesThePackageAndEnds()
{
    const PackageBench files(2);
    TestBench bench;
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Choose TKN"_s, TokenFilter, files.Token());
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::No);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    bool isEnabledMeanwhile = true;
    QStringList states;
    OnProgress progress([&](dlgProcess& window) {
        states.append(window.findChild<QLabel*>(u"lblProcess"_s)->accessibleName());
        isEnabledMeanwhile = window.parentWidget()->findChild<QWidget*>(u"body"_s)->isEnabled();
        QVERIFY(window.findChild<QPushButton*>(u"cmdCancel"_s)->isVisible());
    });
    bench.ExpectModal(u"frmPackage"_s, [](QDialog& dialog) { Button(dialog, "cmdOkay")->click(); });
    bench.Choose(u"mnuPackage"_s);
    QVERIFY(bench.dialogs.Finished());
    QCOMPARE(progress.shown, 1);
    QVERIFY(!isEnabledMeanwhile);
    QVERIFY(states.isEmpty() || states.first().isEmpty() || states.first().startsWith(u"Processing "_s));
    QCOMPARE(files.PackedNames(), PackageBench::WholePackage(2));
}

void win_frmPackage::theNewApplicationIsStarted()
{
#ifdef Q_OS_UNIX
    const PackageBench files(1);
    TestBench bench;
    QVERIFY(QFile::remove(files.At("engine/run.exe")));
    QVERIFY(QFile::copy(bench.MakeEngine(), files.At("engine/run.exe")));
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Choose TKN"_s, TokenFilter, files.Token());
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::Yes);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    bench.ExpectModal(u"frmPackage"_s, [](QDialog& dialog) { Button(dialog, "cmdOkay")->click(); });
    bench.Choose(u"mnuPackage"_s);
    QVERIFY(bench.dialogs.Finished());
    // The engine writes a record of its call next to itself.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(files.Packed("engine.call")), 20'000);
    QCOMPARE(files.Get("engine.call"), QByteArray());
#else
    QSKIP("the fake engine bears its own name there");
#endif
}

void win_frmPackage::anApplicationThatCannotStartIsARuntimeError()
{
#ifdef Q_OS_UNIX
    const PackageBench files(1);
    QVERIFY(QFile::remove(files.At("engine/vwfont.dll")));
    PutFile(files.At("engine/run.exe"), "#!/nowhere/interpreter\n");
    TestBench bench;
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::Yes);
    bench.dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
    bench.dialogs.ExpectMessage(u"Orchard Bench could not find these needed files:"_s + files.At("engine/vwfont.dll") +
                                u"\r\n"_s);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(!dialog.isVisible());
#else
    QSKIP("has other programs");
#endif
}

void win_frmPackage::missingFilesAreReportedAtTheEnd()
{
    const PackageBench files(1);
    QVERIFY(QFile::remove(files.At("engine/vwfont.dll")));
    TestBench bench;
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::No);
    bench.dialogs.ExpectMessage(u"Orchard Bench could not find these needed files:"_s + files.At("engine/vwfont.dll") +
                                u"\r\n"_s);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(!dialog.isVisible());
}

void win_frmPackage::thePackageIsZipped()
{
    const PackageBench files(3);
    TestBench bench;
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::No);
    bench.dialogs.ExpectMessage(files.Packed("game.zip Created Successfully"), BoxAnswer::Ok, BoxIcon::Information);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    Find<QCheckBox>(dialog, "chkZip")->setChecked(true);
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(!dialog.isVisible());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QStringList names = NamesInZip(files.Packed("game.zip"));
    names.sort(Qt::CaseSensitive);
    QCOMPARE(names, PackageBench::WholePackage(3));
}

void win_frmPackage::aFailedZipIsReported()
{
    const PackageBench files(3);
    QVERIFY(QDir().mkpath(files.Packed("game.zip")));
    TestBench bench;
    bench.dialogs.ExpectQuestion(Question(files), BoxAnswer::No);
    bench.dialogs.ExpectMessage(files.Packed("game.zip is no file"), BoxAnswer::Ok, BoxIcon::None);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    Find<QCheckBox>(dialog, "chkZip")->setChecked(true);
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void win_frmPackage::cancelEndsTheCopying_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("the button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closing") << 2;
    QTest::newRow("closing the wizard") << 3;
}

void win_frmPackage::cancelEndsTheCopying()
{
    QFETCH(int, way);
    const PackageBench files(1);
    QFile large(files.At("engine/vwbas11.dll"));
    QVERIFY(large.open(QIODevice::WriteOnly));
    QVERIFY(large.resize(3'000'000'000));
    large.close();
    TestBench bench;
    bench.dialogs.ExpectMessage(u"File copying operation aborted!"_s);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    QString shown;
    OnProgress progress([&](dlgProcess& window) {
        QTimer::singleShot(100, &window, [&, way] {
            shown = window.findChild<QLabel*>(u"lblProcess"_s)->accessibleName();
            if (way == 0)
                window.findChild<QPushButton*>(u"cmdCancel"_s)->click();
            else if (way == 1)
                QTest::keyClick(&window, Qt::Key_Escape);
            else if (way == 2)
                window.close();
            else
                dialog.close();
        });
    });
    Find<QCheckBox>(dialog, "chkZip")->setChecked(true);
    Button(dialog, "cmdOkay")->setFocus();
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QCOMPARE(shown, u"Processing vwbas11.dll"_s);
    // Nothing of a package that is not whole is left.
    QCOMPARE(NamesIn(files.work), Words("game.tkn"));
    // The wizard is usable again, and can be closed.
    QVERIFY(dialog.isVisible());
    QVERIFY(Find<QWidget>(dialog, "body")->isEnabled());
    QVERIFY(dialog.focusWidget() == Button(dialog, "cmdOkay"));
    QVERIFY(dialog.findChild<dlgProcess*>() == nullptr);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void win_frmPackage::theZipCannotBeInterrupted()
{
    dlgProcess window(dlgProcess::Leaving::NotAllowed);
    window.show();
    window.ShowState(u"Creating Zip File"_s, 0.25);
    QVERIFY(!window.findChild<QPushButton*>(u"cmdCancel"_s)->isVisible());
    QCOMPARE(window.findChild<QLabel*>(u"lblProcess"_s)->text(), u"Creating Zip File"_s);
    QCOMPARE(window.findChild<QProgressBar*>(u"pgbProcess"_s)->value(), 250);
    QTest::keyClick(&window, Qt::Key_Escape);
    window.close();
    QVERIFY(window.isVisible());
    QVERIFY(!window.IsCancelled());
}

void win_frmPackage::aPackageFolderThatCannotBeMadeIsARuntimeError()
{
    const PackageBench files(1);
    PutFile(files.Package(), "a file");
    TestBench bench;
    bench.dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
    bench.Start();
    OBPath = files.At("engine/orchard.exe");
    frmPackage dialog(files.Token());
    dialog.show();
    Button(dialog, "cmdOkay")->click();
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(dialog.isVisible());
    QVERIFY(Find<QWidget>(dialog, "body")->isEnabled());
}

void win_frmPackage::keysAndNames()
{
    const PackageBench files(1);
    TestBench bench;
    WithWizard(bench, files, [&](QDialog& dialog) {
        QVERIFY(Button(dialog, "cmdOkay")->isDefault());
        // Each mnemonic belongs to a single control.
        QStringList keys;
        for (const QWidget* control : dialog.findChildren<QWidget*>()) {
            const QString text = control->property("text").toString();
            const qsizetype mark = text.indexOf(QLatin1Char('&'));
            if (mark >= 0)
                keys.append(text.mid(mark + 1, 1).toLower());
        }
        QVERIFY(keys.size() >= 7);
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
    });
}

OB_BENCH_TEST(win_frmPackage)
#include "win_frmPackage.moc"
