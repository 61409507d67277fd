// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes' seam: splitting filters, the folder of a choice, and the one place that shows a runtime error.
#include "platform/dialogs/modDialogs.h"

#include "core/CoreBench.h"
#include "engine/run/modFileIO.h"
#include "shell/state/Module1.h"

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QStringList Described(const QString& filter)
{
    QStringList lines;
    for (const FileFilter& pair : FileFiltersOf(filter))
        lines.append(pair.label + QLatin1Char('=') + pair.patterns.join(QLatin1Char(' ')));
    return lines;
}

} // namespace

class tst_modDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void aChosenNameThatIsNoTextIsRefused()
    {
        const QString path = bench->Path(u"b\uFFFD.bas"_s);
        const QString folder = QDir::currentPath();
        const FileSpec spec{FilePurpose::Save, u"Save"_s, {}, {}, u"BASIC|*.bas"_s};
        bench->dialogs.ExpectFile(spec.purpose, spec.title, spec.filter, path);
        bench->dialogs.ExpectMessage(
            path + u" cannot be used: the name has bytes that are not characters of this system."_s, BoxAnswer::Ok,
            BoxIcon::Exclamation);
        QCOMPARE(FileBox(spec), QString());
        QCOMPARE(QDir::currentPath(), folder);
        QVERIFY(bench->dialogs.Finished());
    }

    void aFilterIsPairsOfWordsAndPatterns_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("pairs");
        QTest::newRow("one pair") << u"OB Token (*.tkn)|*.tkn"_s << QStringList{u"OB Token (*.tkn)=*.tkn"_s};
        QTest::newRow("two patterns") << u"BASIC code (*.bas)(*.bak)|*.bas;*.bak"_s
                                      << QStringList{u"BASIC code (*.bas)(*.bak)=*.bas *.bak"_s};
        QTest::newRow("two pairs, a space before the pattern")
            << u"BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*"_s
            << QStringList{u"BASIC code (*.bas),(*.bak)=*.bas *.bak"_s, u"All Files (*.*)=*"_s};
        QTest::newRow("a pattern in parentheses")
            << u"BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"_s << QStringList{u"BASIC Code (*.bas)(*.bak)=*.bas *.bak"_s};
        QTest::newRow("semicolon at the end")
            << u"Orchard BASIC |orchard.exe;*.exe;"_s << QStringList{u"Orchard BASIC=orchard.exe *.exe"_s};
        QTest::newRow("name pattern") << u"FreeForm |*ff*.bas;*.bas;*.bak"_s
                                      << QStringList{u"FreeForm=*ff*.bas *.bas *.bak"_s};
        QTest::newRow("words without patterns") << u"Words"_s << QStringList{};
        QTest::newRow("empty") << QString() << QStringList{};
        QTest::newRow("bar at the end") << u"A|*.a|"_s << QStringList{u"A=*.a"_s};
    }

    void aFilterIsPairsOfWordsAndPatterns()
    {
        QFETCH(QString, filter);
        QTEST(Described(filter), "pairs");
    }

    void aCommandThatEndsShowsNothing()
    {
        bool ran = false;
        QVERIFY(RunCommand([&] { ran = true; }) == CommandEnd::Finished);
        QVERIFY(ran);
    }

    void anUncaughtErrorIsShownOnce()
    {
        bench->dialogs.ExpectMessage(u"Run-time error '53':\nFile not found"_s);
        QVERIFY(RunCommand([] { throw RuntimeErrorOf(ErrorNumber::FileNotFound); }) == CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void anErrorOfItsOwnKeepsItsNumberAndWords()
    {
        bench->dialogs.ExpectMessage(u"Run-time error '17':\nCan't write"_s);
        QVERIFY(RunCommand([] { throw RuntimeError(17, u"x"_s, u"Can't write"_s); }) == CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void wantOfMemoryIsAnErrorLikeOthers()
    {
        bench->dialogs.ExpectMessage(u"Run-time error '7':\nOut of memory"_s);
        QVERIFY(RunCommand([] { throw std::bad_alloc(); }) == CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void aReasonGoesToTheStatusBarBeforeTheBox()
    {
        SetReasonSink(SetStatusText);
        const RuntimeError full = RuntimeErrorOf(ErrorNumber::DiskFull, {}, u"No space left on device"_s);
        bench->dialogs.ExpectMessage(u"Run-time error '61':\nDisk full"_s);
        QVERIFY(RunCommand([&] { throw full; }) == CommandEnd::Failed);
        QCOMPARE(bench->form.status, u"No space left on device"_s);

        bench->form.status.clear();
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        FailureBox(u"Error saving file!"_s, full);
        QCOMPARE(bench->form.status, u"No space left on device"_s);

        bench->form.status = u"as it was"_s;
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        FailureBox(u"Error saving file!"_s, RuntimeErrorOf(ErrorNumber::InvalidPicture));
        ShowReason(RuntimeErrorOf(ErrorNumber::InvalidPicture));
        QCOMPARE(bench->form.status, u"as it was"_s);
        SetReasonSink({});
        ShowReason(full);
        QCOMPARE(bench->form.status, u"as it was"_s);
        QVERIFY(bench->dialogs.Finished());
    }

    void aCommandInsideACommandShowsItsErrorOnce()
    {
        bench->dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
        bool wentOn = false;
        const CommandEnd outer = RunCommand([&] {
            (void)RunCommand([] { throw RuntimeErrorOf(ErrorNumber::InvalidCall); });
            wentOn = true;
        });
        QVERIFY(outer == CommandEnd::Finished && wentOn);
        QVERIFY(bench->dialogs.Finished());
    }

    void theFolderOfAChoiceBecomesTheCurrentOne()
    {
        QDir().mkdir(u"other"_s);
        const QString file = bench->Put(u"other/a.bas"_s, "a");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, u"A|*.a"_s, file);
        QCOMPARE(OpenFileDialog(u"A|*.a"_s, QDir::currentPath()), file);
        QCOMPARE(QFileInfo(QDir::currentPath()).canonicalFilePath(),
                 QFileInfo(bench->Path(u"other"_s)).canonicalFilePath());
    }

    void noChoiceLeavesTheCurrentFolder()
    {
        const QString before = QDir::currentPath();
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, u"A|*.a"_s, {});
        QCOMPARE(OpenFileDialog(u"A|*.a"_s, before), QString());
        QCOMPARE(QDir::currentPath(), before);
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modDialogs)
#include "tst_modDialogs.moc"
