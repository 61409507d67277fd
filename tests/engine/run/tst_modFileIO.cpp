// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for the engine, its runtime, its help and FreeForm: their questions, messages and results.
#include "engine/run/modFileIO.h"

#include "core/CoreBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString OrchardFilter = u"Orchard BASIC |orchard.exe;*.exe;"_s;
const QString FreeformFilter = u"FreeForm |*ff*.bas;*.bas;*.bak"_s;
const QString HelpFilter = u"Orchard BASIC Help|orchard.hlp;*.hlp;"_s;
const QString RuntimeFilter = u"Runtime Engine (run.exe))|*.EXE;RUN.EXE"_s;

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
        const QString file = bench->Put(u"orchard.exe"_s, "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Find Orchard BASIC"_s, OrchardFilter, file);
        FindOrchard();
        QCOMPARE(OBPath, file);
    }

    void anEngineThatWasNotFoundLeavesAnEmptyPath()
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Find Orchard BASIC"_s, OrchardFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC"), BoxAnswer::Ok, BoxIcon::None);
        FindOrchard();
        QCOMPARE(OBPath, QString());
    }

    void freeformIsSearchedForWhenTheUserAgrees()
    {
        const QString file = bench->Put(u"ff15.bas"_s, "x");
        ExpectFreeformQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, FreeformFilter, file);
        FindFreeform();
        QCOMPARE(OBFreeformPath, file);
    }

    void freeformThatWasNotFoundLeavesAnEmptyPath()
    {
        ExpectFreeformQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, FreeformFilter, {});
        bench->dialogs.ExpectMessage(NotFound("FreeForm"), BoxAnswer::Ok, BoxIcon::None);
        FindFreeform();
        QCOMPARE(OBFreeformPath, QString());
    }

    void noSearchForFreeformLeavesItsPath()
    {
        ExpectFreeformQuestion(BoxAnswer::Cancel);
        FindFreeform();
        QCOMPARE(OBFreeformPath, u"no path"_s);
    }

    void theHelpFileIsKeptOrItsPathIsEmpty()
    {
        const QString file = bench->Put(u"orchard.hlp"_s, "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, HelpFilter, file);
        FindHelp();
        QCOMPARE(OBHelpPath, file);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, HelpFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC help"), BoxAnswer::Ok, BoxIcon::None);
        FindHelp();
        QCOMPARE(OBHelpPath, QString());
    }

    void theSecondHelpFileKeepsItsPathWhenNoneIsChosen()
    {
        const QString file = bench->Put(u"win.hlp"_s, "x");
        const QString filter = u"Programming Help|*.hlp;"_s;
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, filter, file);
        FindOptionalHelp();
        QCOMPARE(OptionalHelpPath, file);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, filter, {});
        bench->dialogs.ExpectMessage(u"The chosen Helpfile was not found."_s);
        FindOptionalHelp();
        QCOMPARE(OptionalHelpPath, file);
    }

    void theRuntimeEngineThatWasFoundIsKept()
    {
        const QString file = bench->Put(u"run.exe"_s, "x");
        ExpectRuntimeQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, RuntimeFilter, file);
        FindRuntime();
        QCOMPARE(OBRuntimePath, file);
    }

    void theRuntimeEnginesPathStaysWhenNoneIsChosen()
    {
        OBRuntimePath = u"/old/run.exe"_s;
        ExpectRuntimeQuestion(BoxAnswer::Ok);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, RuntimeFilter, {});
        bench->dialogs.ExpectMessage(NotFound("Orchard BASIC Runtime Engine"), BoxAnswer::Ok, BoxIcon::None);
        FindRuntime();
        QCOMPARE(OBRuntimePath, u"/old/run.exe"_s);
        ExpectRuntimeQuestion(BoxAnswer::Cancel);
        FindRuntime();
        QCOMPARE(OBRuntimePath, u"/old/run.exe"_s);
    }

private:
    static QString NotFound(const char* what)
    {
        return QLatin1String(what) + u" was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s;
    }

    void ExpectFreeformQuestion(BoxAnswer answer)
    {
        bench->dialogs.ExpectMessage(u"Find FreeForm?"_s, answer, BoxIcon::Question, BoxButtons::OkCancel);
    }

    void ExpectRuntimeQuestion(BoxAnswer answer)
    {
        bench->dialogs.ExpectMessage(u"Find Orchard BASIC Runtime Engine?"_s, answer, BoxIcon::None,
                                     BoxButtons::OkCancel);
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modFileIO)
#include "tst_modFileIO.moc"
