// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes' seam: splitting filters, the folder of a choice, and the one place that shows a runtime error.
#include "platform/dialogs/modDialogs.h"

#include "core/CoreBench.h"
#include "engine/run/modFileIO.h"
#include "shell/state/Module1.h"

#include <new>
#include <stdexcept>

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

    void aFilterIsPairsOfWordsAndPatterns_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("pairs");
        QTest::newRow("one pair") << QStringLiteral("OB Token (*.tkn)|*.tkn")
                                  << QStringList{QStringLiteral("OB Token (*.tkn)=*.tkn")};
        QTest::newRow("two patterns") << QStringLiteral("BASIC code (*.bas)(*.bak)|*.bas;*.bak")
                                      << QStringList{QStringLiteral("BASIC code (*.bas)(*.bak)=*.bas *.bak")};
        QTest::newRow("two pairs, a space before the pattern")
            << QStringLiteral("BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*")
            << QStringList{QStringLiteral("BASIC code (*.bas),(*.bak)=*.bas *.bak"),
                           QStringLiteral("All Files (*.*)=*")};
        QTest::newRow("a pattern in parentheses")
            << QStringLiteral("BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)")
            << QStringList{QStringLiteral("BASIC Code (*.bas)(*.bak)=*.bas *.bak")};
        QTest::newRow("semicolon at the end") << QStringLiteral("Orchard BASIC |orchard.exe;*.exe;")
                                              << QStringList{QStringLiteral("Orchard BASIC=orchard.exe *.exe")};
        QTest::newRow("name pattern") << QStringLiteral("FreeForm |*ff*.bas;*.bas;*.bak")
                                      << QStringList{QStringLiteral("FreeForm=*ff*.bas *.bas *.bak")};
        QTest::newRow("words without patterns") << QStringLiteral("Words") << QStringList{};
        QTest::newRow("empty") << QString() << QStringList{};
        QTest::newRow("bar at the end") << QStringLiteral("A|*.a|") << QStringList{QStringLiteral("A=*.a")};
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
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '53':\nFile not found"));
        QVERIFY(RunCommand([] { throw RuntimeErrorOf(ErrorNumber::FileNotFound); }) == CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void anErrorOfItsOwnKeepsItsNumberAndWords()
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '17':\nCan't write"));
        QVERIFY(RunCommand([] { throw RuntimeError(17, QStringLiteral("x"), QStringLiteral("Can't write")); }) ==
                CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void wantOfMemoryIsAnErrorLikeOthers()
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '7':\nOut of memory"));
        QVERIFY(RunCommand([] { throw std::bad_alloc(); }) == CommandEnd::Failed);
        QVERIFY(bench->dialogs.Finished());
    }

    void aReasonGoesToTheStatusBarBeforeTheBox()
    {
        SetReasonSink(SetStatusText);
        const RuntimeError full = RuntimeErrorOf(ErrorNumber::DiskFull, {}, QStringLiteral("No space left on device"));
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '61':\nDisk full"));
        QVERIFY(RunCommand([&] { throw full; }) == CommandEnd::Failed);
        QCOMPARE(bench->form.status, QStringLiteral("No space left on device"));

        bench->form.status.clear();
        bench->dialogs.ExpectMessage(QStringLiteral("Error saving file!"));
        FailureBox(QStringLiteral("Error saving file!"), full);
        QCOMPARE(bench->form.status, QStringLiteral("No space left on device"));

        bench->form.status = QStringLiteral("as it was");
        bench->dialogs.ExpectMessage(QStringLiteral("Error saving file!"));
        FailureBox(QStringLiteral("Error saving file!"), RuntimeErrorOf(ErrorNumber::InvalidPicture));
        ShowReason(RuntimeErrorOf(ErrorNumber::InvalidPicture));
        QCOMPARE(bench->form.status, QStringLiteral("as it was"));
        SetReasonSink({});
        ShowReason(full);
        QCOMPARE(bench->form.status, QStringLiteral("as it was"));
        QVERIFY(bench->dialogs.Finished());
    }

    void aCommandInsideACommandShowsItsErrorOnce()
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '5':\nInvalid procedure call or argument"));
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
        QDir().mkdir(QStringLiteral("other"));
        const QString file = bench->Put(QStringLiteral("other/a.bas"), "a");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), QStringLiteral("A|*.a"), file);
        QCOMPARE(OpenFileDialog(QStringLiteral("A|*.a"), QDir::currentPath()), file);
        QCOMPARE(QFileInfo(QDir::currentPath()).canonicalFilePath(),
                 QFileInfo(bench->Path(QStringLiteral("other"))).canonicalFilePath());
    }

    void noChoiceLeavesTheCurrentFolder()
    {
        const QString before = QDir::currentPath();
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), QStringLiteral("A|*.a"), {});
        QCOMPARE(OpenFileDialog(QStringLiteral("A|*.a"), before), QString());
        QCOMPARE(QDir::currentPath(), before);
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modDialogs)
#include "tst_modDialogs.moc"
