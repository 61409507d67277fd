// SPDX-License-Identifier: GPL-3.0-or-later
// Closing and saving a form: the question, the file, and what is left when it cannot be written.
#include "guibuilder/modGuiCommands.h"

#include "guibuilder/FormLines.h"
#include "guibuilder/GuiCommandBench.h"
#include "platform/files/FileTrouble.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char LostQuestion[] = "Line %1 of the form file holds a character that form files cannot store.\n"
                                "Save with a question mark in place of each such character?";

} // namespace

class tst_modGuiSave : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    // --- Closing a modified form. ---

    void aFormClosesWithoutAQuestion_data()
    {
        QTest::addColumn<bool>("isModified");
        QTest::addColumn<bool>("isAsked");
        QTest::newRow("unmodified") << false << true;
        QTest::newRow("modified, but the user does not want to be asked") << true << false;
        QTest::newRow("neither") << false << false;
    }

    void aFormClosesWithoutAQuestion()
    {
        QFETCH(bool, isModified);
        QFETCH(bool, isAsked);
        OpenModifiedForm(*bench);
        GuiDesign().GuiFormModified = isModified;
        QuitQuery = isAsked;
        QCOMPARE(QueryGuiUnload(), UnloadAnswer::Unload);
    }

    void aModifiedFormAsks_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("unloads");
        QTest::newRow("no") << static_cast<int>(BoxAnswer::No) << true;
        QTest::newRow("cancel") << static_cast<int>(BoxAnswer::Cancel) << false;
    }

    void aModifiedFormAsks()
    {
        QFETCH(int, answer);
        QFETCH(bool, unloads);
        OpenModifiedForm(*bench);
        ExpectCloseQuestion(*bench, static_cast<BoxAnswer>(answer));
        QCOMPARE(QueryGuiUnload() == UnloadAnswer::Unload, unloads);
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void yesSavesAndCloses()
    {
        OpenModifiedForm(*bench);
        ExpectCloseQuestion(*bench, BoxAnswer::Yes);
        ExpectSaveBox(*bench, bench->Path(u"drawn.obf"_s));
        QCOMPARE(QueryGuiUnload(), UnloadAnswer::Unload);
        QVERIFY(!GuiDesign().GuiFormModified);
        QVERIFY(CoreBench::Get(bench->Path(u"drawn.obf"_s)).contains("\r\nWindow|Drawn| 1200|"));
    }

    void yesWithoutAFileKeepsTheWindow()
    {
        OpenModifiedForm(*bench);
        ExpectCloseQuestion(*bench, BoxAnswer::Yes);
        ExpectSaveBox(*bench, {});
        QCOMPARE(QueryGuiUnload(), UnloadAnswer::Stay);
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void yesWithAFailedSaveKeepsTheForm()
    {
        OpenModifiedForm(*bench);
        ExpectCloseQuestion(*bench, BoxAnswer::Yes);
        ExpectSaveBox(*bench, bench->Path(u"gone/drawn.obf"_s));
        QCOMPARE(RaisedBy(QueryGuiUnload), 76);
        QVERIFY(GuiDesign().GuiFormModified && GuiDesign().GuiFormOpen);
    }

    // --- Save. ---

    void aSaveWritesTheFormAndShowsItsName()
    {
        OpenModifiedForm(*bench);
        GuiDesign().form.caption = u"\u20AC"_s;
        GuiDesign().form.GuiHandleName.clear();
        GuiDesign().form.At(AddControl(GuiDesign().form, ControlKind::Button)).visible = true;
        const QString path = bench->Put(u"my form.obf"_s, QByteArray(10'000, 'o'));
        SaveGuiForm(path);
        QCOMPARE(CoreBench::Get(path), Fresh({"button|| 0| 0| 1200| 450|button1|button1.click|none|False|-1|True"})
                                           .replace("Window Title", "\x80"));
        QCOMPARE(bench->form.status, u"Form saved as my form.obf"_s);
        QVERIFY(!GuiDesign().GuiFormModified);
        QCOMPARE(GuiDesign().form.GuiHandleName, u"main"_s);
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 1}).branch, u"button1.click"_s);
        QVERIFY(bench->form.log.isEmpty());
    }

    void aCharacterThatTheCodePageLacksIsAskedAbout_data()
    {
        QTest::addColumn<bool>("isYes");
        QTest::newRow("yes") << true;
        QTest::newRow("no") << false;
    }

    void aCharacterThatTheCodePageLacksIsAskedAbout()
    {
        QFETCH(bool, isYes);
        OpenModifiedForm(*bench);
        const QString status = bench->form.status;
        GuiDesign().form.caption = u"\u03B1\u03B2"_s;
        GuiDesign().form.GuiHandleName = u"\u0100"_s;
        const QString path = bench->Put(u"a.obf"_s, "old");
        bench->dialogs.ExpectQuestion(QString::fromLatin1(LostQuestion).arg(2), isYes ? BoxAnswer::Yes : BoxAnswer::No);
        SaveGuiForm(path);
        QCOMPARE(GuiDesign().GuiFormModified, !isYes);
        QCOMPARE(CoreBench::Get(path),
                 isYes ? Fresh({}).replace("Window Title", "\?\?").replace("|main|", "|?|") : QByteArray("old"));
        QCOMPARE(bench->form.status, isYes ? u"Form saved as a.obf"_s : status);
        // The form itself keeps its characters.
        QCOMPARE(GuiDesign().form.caption, u"\u03B1\u03B2"_s);
    }

    void anUnmodifiedFormStaysUnmodifiedAfterNo()
    {
        OpenModifiedForm(*bench);
        GuiDesign().GuiFormModified = false;
        GuiDesign().form.caption = u"\u03B1"_s;
        bench->dialogs.ExpectQuestion(QString::fromLatin1(LostQuestion).arg(2), BoxAnswer::No);
        SaveGuiForm(bench->Path(u"a.obf"_s));
        QVERIFY(!GuiDesign().GuiFormModified);
        QVERIFY(!QFile::exists(bench->Path(u"a.obf"_s)));
    }

    void elevenPanelsAreNotSaved()
    {
        for (const bool isModified : {true, false}) {
            OpenModifiedForm(*bench);
            GuiDesign().GuiFormModified = isModified;
            GuiDesign().form.GuiStatusbarOn = true;
            GuiDesign().form.panels.resize(11);
            const QString path = bench->Put(u"a.obf"_s, "old");
            bench->form.status.clear();
            QCOMPARE(RaisedBy([&] { SaveGuiForm(path); }), 9);
            QCOMPARE(CoreBench::Get(path), QByteArray("old"));
            QCOMPARE(GuiDesign().GuiFormModified, isModified);
            QCOMPARE(bench->form.status, QString());
            GuiDesign().form.panels.resize(10);
            SaveGuiForm(path);
            QVERIFY(CoreBench::Get(path).contains("\r\nstatusbar|10|"));
        }
    }

    void aSaveThatFailsLeavesFileAndForm_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("number");
        QTest::newRow("a folder") << u"folder"_s << 75;
        QTest::newRow("in a missing folder") << u"gone/a.obf"_s << 76;
        QTest::newRow("in a closed folder") << u"closed/a.obf"_s << 75;
        QTest::newRow("write-protected") << u"protected.obf"_s << 75;
        QTest::newRow("disk full") << u"full.obf"_s << 61;
    }

    void aSaveThatFailsLeavesFileAndForm()
    {
#ifdef Q_OS_UNIX
        QFETCH(QString, name);
        QFETCH(int, number);
        QFile::setPermissions(bench->Path({}), QFile::Permissions(0x7777));
        QFile::setPermissions(bench->Path(u".."_s), QFile::Permissions(0x7777));
        QVERIFY(QDir().mkdir(u"folder"_s) && QDir().mkdir(u"closed"_s));
        for (const char* old : {"protected.obf", "full.obf"})
            bench->Put(QString::fromLatin1(old), "old");
        QVERIFY(QFile::setPermissions(u"full.obf"_s, QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(u"closed"_s, QFile::Permissions(0x5555)));
        QVERIFY(QFile::setPermissions(u"protected.obf"_s, QFile::Permissions(0x4444)));
        OpenModifiedForm(*bench);
        bench->form.status.clear();
        const QString path = bench->Path(name);
        int raised = 0;
        {
            const PlainUser user;
            const FileSizeLimit limit(100);
            raised = RaisedBy([&] { SaveGuiForm(path); });
        }
        QCOMPARE(raised, number);
        QVERIFY(GuiDesign().GuiFormModified);
        QCOMPARE(bench->form.status, QString());
        QCOMPARE(QDir(bench->Path({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
                 Log({"closed", "folder", "full.obf", "protected.obf"}));
        QVERIFY(QDir(bench->Path(u"closed"_s)).isEmpty());
        for (const char* old : {"protected.obf", "full.obf"})
            QCOMPARE(CoreBench::Get(bench->Path(QString::fromLatin1(old))), QByteArray("old"));
        QVERIFY(QFile::setPermissions(u"closed"_s, QFile::Permissions(0x7777)));
#else
        QSKIP("has no such permissions");
#endif
    }

    void theSaveCommandNeedsAnActiveForm()
    {
        bench->dialogs.ExpectMessage(u"No gui form to save!"_s);
        guiSave();
        bench->Open(u"a.bas"_s);
        bench->dialogs.ExpectMessage(u"No gui form to save!"_s);
        guiSave();
        OpenModifiedForm(*bench);
        bench->form.ShowDocument(*Documents.back());
        bench->dialogs.ExpectMessage(u"The gui builder is not active; there is no form to save!"_s);
        guiSave();
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void theSaveCommandAsksForTheFile()
    {
        OpenModifiedForm(*bench);
        ExpectSaveBox(*bench, {});
        guiSave();
        QVERIFY(GuiDesign().GuiFormModified);
        ExpectSaveBox(*bench, bench->Path(u"a.obf"_s));
        guiSave();
        QVERIFY(!GuiDesign().GuiFormModified);
        QCOMPARE(bench->form.status, u"Form saved as a.obf"_s);
        QVERIFY(CoreBench::Get(bench->Path(u"a.obf"_s)).startsWith(FreshDefaults));
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modGuiSave)
#include "tst_modGuiSave.moc"
