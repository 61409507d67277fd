// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for the engine, its runtime, its help and FreeForm: their questions, messages and results.
#include "engine/run/modFileIO.h"

#include "core/CoreBench.h"

using namespace ob;

namespace {

const QString OrchardFilter = QStringLiteral("Orchard BASIC |orchard.exe;*.exe;");
const QString FreeformFilter = QStringLiteral("FreeForm |*ff*.bas;*.bas;*.bak");
const QString HelpFilter = QStringLiteral("Orchard BASIC Help|orchard.hlp;*.hlp;");
const QString RuntimeFilter = QStringLiteral("Runtime Engine (run.exe))|*.EXE;RUN.EXE");

} // namespace

class tst_modFileIO : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    void theEngineThatWasFoundIsKept()
    {
        const QString file = bench->Put(QStringLiteral("orchard.exe"), "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Find Orchard BASIC"), OrchardFilter, file);
        FindOrchard();
        QCOMPARE(OBPath, file);
    }

    void anEngineThatWasNotFoundLeavesAnEmptyPath()
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Find Orchard BASIC"), OrchardFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC"), BoxAnswer::Ok, BoxIcon::None);
        FindOrchard();
        QCOMPARE(OBPath, QString());
    }

    void freeformIsSearchedForWhenTheUserAgrees()
    {
        const QString file = bench->Put(QStringLiteral("ff15.bas"), "x");
        ExpectFreeformQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), FreeformFilter, file);
        FindFreeform();
        QCOMPARE(OBFreeformPath, file);
    }

    void freeformThatWasNotFoundLeavesAnEmptyPath()
    {
        ExpectFreeformQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), FreeformFilter, {});
        bench->dialogs.ExpectMessage(NotFound("FreeForm"), BoxAnswer::Ok, BoxIcon::None);
        FindFreeform();
        QCOMPARE(OBFreeformPath, QString());
    }

    void noSearchForFreeformLeavesItsPath()
    {
        ExpectFreeformQuestion(BoxAnswer::Cancel);
        FindFreeform();
        QCOMPARE(OBFreeformPath, QStringLiteral("no path"));
    }

    void theHelpFileIsKeptOrItsPathIsEmpty()
    {
        const QString file = bench->Put(QStringLiteral("orchard.hlp"), "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), HelpFilter, file);
        FindHelp();
        QCOMPARE(OBHelpPath, file);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), HelpFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC help"), BoxAnswer::Ok, BoxIcon::None);
        FindHelp();
        QCOMPARE(OBHelpPath, QString());
    }

    void theSecondHelpFileKeepsItsPathWhenNoneIsChosen()
    {
        const QString file = bench->Put(QStringLiteral("win.hlp"), "x");
        const QString filter = QStringLiteral("Programming Help|*.hlp;");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), filter, file);
        FindOptionalHelp();
        QCOMPARE(OptionalHelpPath, file);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), filter, {});
        bench->dialogs.ExpectMessage(QStringLiteral("The chosen Helpfile was not found."));
        FindOptionalHelp();
        QCOMPARE(OptionalHelpPath, file);
    }

    void theRuntimeEngineThatWasFoundIsKept()
    {
        const QString file = bench->Put(QStringLiteral("run.exe"), "x");
        ExpectRuntimeQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), RuntimeFilter, file);
        FindRuntime();
        QCOMPARE(OBRuntimePath, file);
    }

    void theRuntimeEnginesPathStaysWhenNoneIsChosen()
    {
        OBRuntimePath = QStringLiteral("/old/run.exe");
        ExpectRuntimeQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), RuntimeFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC Runtime Engine"), BoxAnswer::Ok, BoxIcon::None);
        FindRuntime();
        QCOMPARE(OBRuntimePath, QStringLiteral("/old/run.exe"));
        ExpectRuntimeQuestion(BoxAnswer::Cancel);
        FindRuntime();
        QCOMPARE(OBRuntimePath, QStringLiteral("/old/run.exe"));
    }

private:
    static QString NotFound(const char* what)
    {
        return QLatin1String(what) +
               QStringLiteral(" was not found.  Be sure to specify the path to Orchard BASIC in Options!");
    }

    void ExpectFreeformQuestion(BoxAnswer answer)
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Find FreeForm?"), answer, BoxIcon::Question, BoxButtons::OkCancel);
    }

    void ExpectRuntimeQuestion(BoxAnswer answer)
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Find Orchard BASIC Runtime Engine?"), answer, BoxIcon::None,
                                     BoxButtons::OkCancel);
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modFileIO)
#include "tst_modFileIO.moc"
